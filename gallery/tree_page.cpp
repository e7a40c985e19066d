// The page of the tree: what the gallery shows first.
#include "folder.h"
#include "page.h"
#include "tree_pane.h"

namespace {

class TreePage : public GalleryPage {
 public:
  explicit TreePage(const CommandLine& commandLine) : m_commandLine(commandLine) {}

  CString Title() const override { return L"Arborescence"; }
  CString Subtitle() const override { return m_pane.Subtitle(); }
  bool Create(CWnd& view) override { return m_pane.Create(&view) != FALSE; }
  CWnd* Window() override { return &m_pane; }

  void Start() override {
    m_pane.OpenFolder(m_commandLine.folder.IsEmpty() ? DefaultFolder() : m_commandLine.folder);
    if (!m_commandLine.selected.IsEmpty()) m_pane.Tree().SelectPath(m_commandLine.selected);
    if (m_commandLine.fill > 0) m_pane.Fill(m_commandLine.fill);
  }

  bool Idle() override { return m_pane.Idle(); }
  CString Detail() override { return m_pane.Detail(); }
  CString State() const override { return m_pane.State(); }
  int Progress() const override { return m_pane.Progress(); }

 private:
  CommandLine m_commandLine;
  CTreePane m_pane;
};

}  // namespace

std::unique_ptr<GalleryPage> MakeTreePage(const CommandLine& commandLine) {
  return std::make_unique<TreePage>(commandLine);
}
