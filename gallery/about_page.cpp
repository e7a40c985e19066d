// Who the library is: its identity, and what it has registered in this process.
#include <VornComCtl.h>

#include <vector>

#include "page.h"

namespace {

CString ModulePath() {
  wchar_t path[MAX_PATH] = L"";
  const HMODULE module = ::GetModuleHandleW(L"VornComCtl");
  if (module != nullptr) ::GetModuleFileNameW(module, path, MAX_PATH);
  return path;
}

// The library registers its classes for its own module.
bool IsRegistered(LPCWSTR name) {
  WNDCLASSW found = {};
  return ::GetClassInfoW(::GetModuleHandleW(L"VornComCtl"), name, &found) != FALSE;
}

struct Line {
  CString label;
  CString value;
};

class AboutPage : public GalleryPage {
 public:
  AboutPage() {
    m_lines = {{L"Description", VORNCOMCTL_get_module_description()},
               {L"Révision", VornComCtl_get_revision()},
               {L"Version", CString(VORNCOMCTL_get_module_info(1)).Trim()},
               {L"Construction", VORNCOMCTL_get_build_info()},
               {L"Module", ModulePath()}};
  }

  CString Title() const override { return L"À propos"; }
  CString Subtitle() const override {
    return L"L’identité de la bibliothèque, telle qu’elle la donne elle-même";
  }

  void Paint(CDC& dc, const CRect& area, theme::Fonts& fonts) override {
    const int identity = 48 + 26 * static_cast<int>(m_lines.size()) + 12;
    PaintIdentity(dc, CRect(area.left, area.top, area.right, area.top + identity), fonts);
    PaintClasses(dc, CRect(area.left, area.top + identity + 14, area.right, area.top + identity + 14 + 160),
                 fonts);
  }

 private:
  void PaintIdentity(CDC& dc, const CRect& area, theme::Fonts& fonts) {
    theme::Card(dc, area);
    CRect row(area);
    row.DeflateRect(20, 14, 16, 12);
    theme::Text(dc, fonts.heading, theme::kInk, L"VornComCtl", row);
    row.top += 32;
    for (const Line& line : m_lines) {
      CRect label(row.left, row.top, row.left + 110, row.top + 20);
      theme::Text(dc, fonts.body, theme::kMuted, line.label, label);
      CRect value(label.right, row.top, row.right, row.top + 20);
      theme::Text(dc, fonts.strong, theme::kInk, line.value, value, DT_SINGLELINE | DT_END_ELLIPSIS);
      row.top += 26;
    }
  }

  static void PaintClasses(CDC& dc, const CRect& area, theme::Fonts& fonts) {
    theme::Card(dc, area);
    CRect row(area);
    row.DeflateRect(20, 14, 16, 12);
    theme::Text(dc, fonts.heading, theme::kInk, L"Classes de fenêtres", row);
    row.top += 32;
    for (LPCWSTR name : {L"VornLibrary::VornTreeCtrl", L"VornLibrary::VornBar", L"VornLibrary::VornToolTip",
                         L"VornLibrary::VornReportWnd"}) {
      const bool registered = IsRegistered(name);
      theme::Mark(dc, CPoint(row.left + 8, row.top + 8), registered);
      theme::Text(dc, fonts.body, theme::kInk, name, CRect(row.left + 28, row.top, row.right, row.top + 20));
      row.top += 26;
    }
  }

  std::vector<Line> m_lines;
};

}  // namespace

std::unique_ptr<GalleryPage> MakeAboutPage() { return std::make_unique<AboutPage>(); }
