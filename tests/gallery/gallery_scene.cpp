#include "gallery_scene.h"

#include <VornComCtl.h>

#include "folder.h"
#include "resource.h"
#include "support/driver.h"

namespace {

class CTestApp : public CWinApp {};
CTestApp g_app;

}  // namespace

std::string Narrow(const CString& text) {
  std::string narrow(static_cast<size_t>(text.GetLength()) * 4, '\0');
  const int length = ::WideCharToMultiByte(CP_UTF8, 0, text, text.GetLength(), narrow.data(),
                                           static_cast<int>(narrow.size()), nullptr, nullptr);
  narrow.resize(static_cast<size_t>(length));
  return narrow;
}

// ---- The folder --------------------------------------------------------------------------------------

TestFolder::TestFolder() {
  wchar_t place[MAX_PATH] = L"";
  wchar_t name[MAX_PATH] = L"";
  ::GetTempPathW(MAX_PATH, place);
  // The name is a file's at first.
  ::GetTempFileNameW(place, L"gal", 0, name);
  ::DeleteFileW(name);
  EXPECT_TRUE(::CreateDirectoryW(name, nullptr));
  m_path = name;
}

TestFolder::~TestFolder() {
  for (auto path = m_made.rbegin(); path != m_made.rend(); ++path) {
    if (!::DeleteFileW(*path)) ::RemoveDirectoryW(*path);
  }
  EXPECT_TRUE(::RemoveDirectoryW(m_path)) << Narrow(m_path);
}

void TestFolder::Make(const std::wstring& name) {
  CString path = JoinPath(m_path, name.c_str());
  if (path.Right(1) == L"\\") {
    path.TrimRight(L"\\");
    EXPECT_TRUE(::CreateDirectoryW(path, nullptr)) << Narrow(path);
  } else {
    const HANDLE file = ::CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE) << Narrow(path);
    ::CloseHandle(file);
  }
  m_made.push_back(path);
}

void TestFolder::Remove(const std::wstring& name) {
  EXPECT_TRUE(::DeleteFileW(JoinPath(m_path, name.c_str())));
}

// ---- The gallery -------------------------------------------------------------------------------------

GalleryScene::~GalleryScene() {
  g_app.m_pMainWnd = nullptr;
  if (m_frame != nullptr) m_frame->DestroyWindow();
}

void GalleryScene::Open(const CommandLine& more) {
  ASSERT_TRUE(AfxInitVornComCtl());
  CommandLine commandLine = more;
  if (commandLine.folder.IsEmpty()) commandLine.folder = m_folder.Path();
  m_frame = new CMainFrame(commandLine);
  ASSERT_TRUE(m_frame->LoadFrame(IDR_MAINFRAME));
  g_app.m_pMainWnd = m_frame;
  m_frame->ShowWindow(SW_SHOW);
  m_frame->UpdateWindow();
  m_frame->Start();
  Run();
}

void GalleryScene::Run() {
  MSG message;
  do {
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) AfxPumpMessage();
  } while (m_frame->Idle());
}

void GalleryScene::Command(UINT id) {
  m_frame->SendMessage(WM_COMMAND, id);
  Run();
}

void GalleryScene::Key(UINT virtualKey) {
  support::PostKey(virtualKey);
  Run();
}

void GalleryScene::Type(const std::string& letters) {
  for (const char letter : letters) Key(static_cast<UINT>(letter));
}

UINT GalleryScene::MenuState(UINT id) {
  const CMenu& bar = *m_frame->GetMenu();
  const int count = ::GetMenuItemCount(bar);
  for (int i = 0; i < count; ++i) {
    const HMENU popup = ::GetSubMenu(bar, i);
    m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), i);
    for (int j = 0; j < ::GetMenuItemCount(popup); ++j) {
      const HMENU inner = ::GetSubMenu(popup, j);
      if (inner != nullptr) m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(inner), j);
    }
  }
  return ::GetMenuState(bar, id, MF_BYCOMMAND);
}

std::vector<std::string> GalleryScene::LogLines() {
  std::vector<std::string> lines;
  for (int i = 0; i < Pane().Log().GetCount(); ++i) {
    CString line;
    Pane().Log().GetText(i, line);
    lines.push_back(Narrow(line.Mid(line.Find(L"  ") + 2)));
  }
  return lines;
}

// ---- Items -------------------------------------------------------------------------------------------

CVornTreeItem* GalleryScene::Item(const std::wstring& path) {
  return Tree().GetItemFromFullPathName(path.c_str());
}

std::string GalleryScene::Label(CVornTreeItem* item) { return Narrow(Tree().GetItemText(item)); }

std::string GalleryScene::Children(CVornTreeItem* item) {
  std::string labels;
  for (CVornTreeItem* child = Tree().GetChildItem(item); child; child = Tree().GetNextItem(child)) {
    labels += (labels.empty() ? "" : " ") + Label(child);
  }
  return labels;
}

POINT GalleryScene::LabelOf(CVornTreeItem* item) {
  Tree().EnsureVisible(item);
  Run();
  CRect rect;
  EXPECT_EQ(Tree().GetItemRect(item, rect, 1), 1);
  return support::At(Tree(), rect.right - 4, rect.top + rect.Height() / 2);
}

POINT GalleryScene::ButtonOf(CVornTreeItem* item) {
  Tree().EnsureVisible(item);
  Run();
  CRect rect;
  EXPECT_EQ(Tree().GetItemRect(item, rect, 1), 1);
  // The button is where the control itself says.
  for (int x = 0; x < rect.right; ++x) {
    unsigned int zone = 0;
    const CPoint point(x, rect.top + rect.Height() / 2);
    if (Tree().HitTest(point, &zone) == item && zone == 0x0010) return support::At(Tree(), point.x, point.y);
  }
  ADD_FAILURE() << "no button";
  return {};
}
