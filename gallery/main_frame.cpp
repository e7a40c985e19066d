#include "main_frame.h"

#include "resource.h"

namespace {

constexpr UINT kPanes[] = {ID_SEPARATOR, IDS_PANE_BUFFER, IDS_PANE_SIZE};
constexpr int kBufferPane = 1;
constexpr int kSizePane = 2;

CString SizeText(LPCWSTR label, CSize size) {
  CString text;
  text.Format(L"%s : %d × %d", label, size.cx, size.cy);
  return text;
}

}  // namespace

IMPLEMENT_DYNAMIC(CMainFrame, CFrameWnd)

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
  ON_WM_CREATE()
  ON_WM_SETFOCUS()
  ON_WM_SIZE()
  ON_WM_GETMINMAXINFO()
  ON_COMMAND_RANGE(ID_PAGE_FIRST, ID_PAGE_LAST, &CMainFrame::OnPage)
  ON_UPDATE_COMMAND_UI_RANGE(ID_PAGE_FIRST, ID_PAGE_LAST, &CMainFrame::OnUpdatePage)
  ON_COMMAND(ID_PAGE_NEXT, &CMainFrame::OnNextPage)
  ON_COMMAND(ID_PAGE_PREVIOUS, &CMainFrame::OnPreviousPage)
  ON_COMMAND(ID_APP_ABOUT, &CMainFrame::OnAbout)
  ON_COMMAND(ID_VIEW_STATUS_BAR, &CMainFrame::OnViewStatusBar)
  ON_UPDATE_COMMAND_UI(ID_VIEW_STATUS_BAR, &CMainFrame::OnUpdateViewStatusBar)
END_MESSAGE_MAP()

CMainFrame::CMainFrame(const CommandLine& commandLine) : m_view(commandLine), m_size(commandLine.size) {
  m_view.ShowPage(commandLine.page);
}

BOOL CMainFrame::PreCreateWindow(CREATESTRUCTW& cs) {
  cs.x = 32;
  cs.y = 24;
  cs.cx = m_size.cx > 0 ? m_size.cx : 900;
  cs.cy = m_size.cy > 0 ? m_size.cy : 600;
  return CFrameWnd::PreCreateWindow(cs);
}

int CMainFrame::OnCreate(LPCREATESTRUCTW lpCreateStruct) {
  if (CFrameWnd::OnCreate(lpCreateStruct) == -1) return -1;
  if (!m_view.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(), this,
                     AFX_IDW_PANE_FIRST)) {
    return -1;
  }
  if (!m_statusBar.Create(this) || !m_statusBar.SetIndicators(kPanes, 3)) return -1;
  m_view.OnPainted(
      [this](CSize buffer) { m_statusBar.SetPaneText(kBufferPane, SizeText(L"Tampon", buffer)); });
  return 0;
}

void CMainFrame::OnSetFocus(CWnd*) {
  if (m_view.m_hWnd != nullptr) m_view.SetFocus();
}

void CMainFrame::OnSize(UINT nType, int cx, int cy) {
  CFrameWnd::OnSize(nType, cx, cy);
  if (m_statusBar.m_hWnd != nullptr) m_statusBar.SetPaneText(kSizePane, SizeText(L"Fenêtre", CSize(cx, cy)));
}

void CMainFrame::OnGetMinMaxInfo(MINMAXINFO* lpMMI) { lpMMI->ptMinTrackSize = CPoint(480, 320); }

void CMainFrame::ShowPage(int page) {
  const int count = m_view.PageCount();
  m_view.ShowPage((page % count + count) % count);
}

void CMainFrame::OnPage(UINT nID) { ShowPage(static_cast<int>(nID) - ID_PAGE_FIRST); }

void CMainFrame::OnUpdatePage(CCmdUI* pCmdUI) {
  pCmdUI->SetRadio(static_cast<int>(pCmdUI->m_nID) - ID_PAGE_FIRST == m_view.CurrentPage());
}

void CMainFrame::OnNextPage() { ShowPage(m_view.CurrentPage() + 1); }
void CMainFrame::OnPreviousPage() { ShowPage(m_view.CurrentPage() - 1); }
void CMainFrame::OnAbout() { ShowPage(ID_PAGE_ABOUT - ID_PAGE_FIRST); }

void CMainFrame::OnViewStatusBar() { ShowControlBar(&m_statusBar, !m_statusBar.IsVisible(), FALSE); }
void CMainFrame::OnUpdateViewStatusBar(CCmdUI* pCmdUI) { pCmdUI->SetCheck(m_statusBar.IsVisible()); }
