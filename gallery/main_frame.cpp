#include "main_frame.h"

#include "resource.h"

namespace {

constexpr UINT kPanes[] = {ID_SEPARATOR, IDS_PANE_DETAIL, IDS_PANE_STATE};
constexpr int kDetailPane = 1;
constexpr int kStatePane = 2;

}  // namespace

IMPLEMENT_DYNAMIC(CMainFrame, CFrameWnd)

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
  ON_WM_CREATE()
  ON_WM_SETFOCUS()
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
  cs.x = 22;
  cs.y = 24;
  cs.cx = m_size.cx > 0 ? m_size.cx : 980;
  cs.cy = m_size.cy > 0 ? m_size.cy : 680;
  return CFrameWnd::PreCreateWindow(cs);
}

int CMainFrame::OnCreate(LPCREATESTRUCTW lpCreateStruct) {
  if (CFrameWnd::OnCreate(lpCreateStruct) == -1) return -1;
  if (!m_view.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, CRect(),
                     this, AFX_IDW_PANE_FIRST)) {
    return -1;
  }
  if (!m_statusBar.Create(this) || !m_statusBar.SetIndicators(kPanes, 3)) return -1;
  return m_progress.Create(WS_CHILD, CRect(), &m_statusBar, 1) ? 0 : -1;
}

BOOL CMainFrame::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  return m_view.OnCmdMsg(nID, nCode, pExtra, pHandlerInfo) ||
         CFrameWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

bool CMainFrame::Idle() {
  const bool more = m_view.Idle();
  ShowText(kDetailPane, m_view.Detail());
  ShowText(kStatePane, m_view.Page().State());
  ShowProgress(m_view.Page().Progress());
  return more;
}

void CMainFrame::ShowText(int pane, const CString& text) {
  if (m_statusBar.GetPaneText(pane) != text) m_statusBar.SetPaneText(pane, text);
}

void CMainFrame::ShowProgress(int percent) {
  if (percent < 0) {
    if (m_progress.IsWindowVisible()) m_progress.ShowWindow(SW_HIDE);
    return;
  }
  CRect place;
  m_statusBar.GetItemRect(kStatePane, place);
  place.DeflateRect(2, 2);
  m_progress.MoveWindow(place, FALSE);
  m_progress.SetPos(percent);
  m_progress.ShowWindow(SW_SHOWNA);
}

void CMainFrame::OnSetFocus(CWnd*) {
  if (m_view.m_hWnd != nullptr) m_view.SetFocus();
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
