// CFrameWnd: creation, layout, commands, menus and their help texts.
#include "afxext.h"
#include "wnd_access.h"

#include <algorithm>

using framework::HandleOf;

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
  ON_WM_CREATE()
  ON_WM_DESTROY()
  ON_WM_CLOSE()
  ON_WM_SIZE()
  ON_WM_INITMENUPOPUP()
  ON_WM_MENUSELECT()
  ON_MESSAGE(WM_SETMESSAGESTRING, &CFrameWnd::OnSetMessageString)
  ON_MESSAGE_VOID(WM_IDLEUPDATECMDUI, &CFrameWnd::OnIdleUpdateCmdUI)
END_MESSAGE_MAP()

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

CFrameWnd::CFrameWnd()
    : m_hAccelTable(nullptr),
      m_bAutoMenuEnable(TRUE),
      m_bAutoDelete(TRUE),
      m_nIDTracking(0),
      m_nIDLastMessage(0),
      m_bInRecalcLayout(FALSE),
      m_bLayoutWanted(FALSE),
      m_hMenuDefault(nullptr) {}

CFrameWnd::~CFrameWnd() = default;

// ---- Creation ------------------------------------------------------------------------------------

BOOL CFrameWnd::Create(LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                       CWnd* pParentWnd, LPCWSTR lpszMenuName, DWORD dwExStyle, CCreateContext* pContext) {
  HMENU menu = nullptr;
  if (lpszMenuName != nullptr) {
    menu = ::LoadMenuW(AfxFindResourceHandle(lpszMenuName, MAKEINTRESOURCEW(4) /* RT_MENU */), lpszMenuName);
    if (menu == nullptr) {
      PostNcDestroy();
      return FALSE;
    }
  }
  m_strTitle = lpszWindowName;
  const auto width = static_cast<int>(static_cast<UINT>(rect.right) - static_cast<UINT>(rect.left));
  const auto height = static_cast<int>(static_cast<UINT>(rect.bottom) - static_cast<UINT>(rect.top));
  if (CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, width, height,
               HandleOf(pParentWnd), menu, pContext)) {
    return TRUE;
  }
  if (menu != nullptr) ::DestroyMenu(menu);  // the object itself may be gone by now
  return FALSE;
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd,
                          CCreateContext* pContext) {
  CString title;
  if (title.LoadString(nIDResource)) {
    const int end = title.Find(L'\n');
    if (end >= 0) title = title.Left(end);
  }
  LPCWSTR windowClass = nullptr;
  const bool registered = framework::OrOnException(
      [&] {
        windowClass = GetIconWndClass(dwDefaultStyle, nIDResource);
        return true;
      },
      false);
  if (!registered) {
    PostNcDestroy();
    return FALSE;
  }
  if (!Create(windowClass, title, dwDefaultStyle, rectDefault, pParentWnd, MAKEINTRESOURCEW(nIDResource), 0,
              pContext)) {
    return FALSE;  // the object itself may be gone by now
  }
  m_hMenuDefault = ::GetMenu(m_hWnd);
  LoadAccelTable(MAKEINTRESOURCEW(nIDResource));
  if (pContext == nullptr) SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
  return TRUE;
}

namespace {

LPCWSTR RegisterFrameClass(HICON icon) {
  return AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW),
                             reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW + 1)), icon);
}

}  // namespace

LPCWSTR CFrameWnd::GetIconWndClass(DWORD, UINT nIDResource) {
  const LPCWSTR name = MAKEINTRESOURCEW(nIDResource);
  const HINSTANCE module = AfxFindResourceHandle(name, MAKEINTRESOURCEW(14) /* RT_GROUP_ICON */);
  const HICON icon = ::LoadIconW(module, name);
  return icon == nullptr ? nullptr : RegisterFrameClass(icon);
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCTW& cs) {
  if (cs.lpszClass == nullptr) cs.lpszClass = RegisterFrameClass(nullptr);
  return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCWSTR lpszResourceName) {
  const HINSTANCE module = AfxFindResourceHandle(lpszResourceName, MAKEINTRESOURCEW(9) /* RT_ACCELERATOR */);
  m_hAccelTable = ::LoadAcceleratorsW(module, lpszResourceName);
  return m_hAccelTable != nullptr;
}

int CFrameWnd::OnCreate(LPCREATESTRUCTW lpCreateStruct) {
  auto* const context = static_cast<CCreateContext*>(lpCreateStruct->lpCreateParams);
  return OnCreateHelper(lpCreateStruct, context);
}

int CFrameWnd::OnCreateHelper(LPCREATESTRUCTW lpcs, CCreateContext* pContext) {
  constexpr int refused = -1;
  if (CWnd::OnCreate(lpcs) == refused || !OnCreateClient(lpcs, pContext)) return refused;
  PostMessage(WM_SETMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
  RecalcLayout();
  return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCTW, CCreateContext*) { return TRUE; }
void CFrameWnd::OnClose() { DestroyWindow(); }

void CFrameWnd::OnDestroy() {
  // A menu that is not on show any more does not go with the window.
  if (m_hMenuDefault != nullptr && ::GetMenu(m_hWnd) != m_hMenuDefault) ::SetMenu(m_hWnd, m_hMenuDefault);
  m_hMenuDefault = nullptr;
  m_hAccelTable = nullptr;
  CWnd::OnDestroy();
}

void CFrameWnd::PostNcDestroy() {
  if (m_bAutoDelete) delete this;
}

// ---- Layout --------------------------------------------------------------------------------------

void CFrameWnd::OnSize(UINT nType, int cx, int cy) {
  CWnd::OnSize(nType, cx, cy);
  if (nType != SIZE_MINIMIZED) RecalcLayout();
}

void CFrameWnd::RecalcLayout(BOOL) {
  if (m_bInRecalcLayout) return;  // bars that move while they are laid out
  m_bInRecalcLayout = TRUE;
  m_bLayoutWanted = FALSE;
  RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST);
  m_bInRecalcLayout = FALSE;
}

CControlBar* CFrameWnd::GetControlBar(UINT nID) {
  for (POSITION position = m_listControlBars.GetHeadPosition(); position != nullptr;) {
    auto* const bar = static_cast<CControlBar*>(m_listControlBars.GetNext(position));
    if (static_cast<UINT>(bar->GetDlgCtrlID()) == nID) return bar;
  }
  return nullptr;
}

void CFrameWnd::ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL bDelay) {
  if (bDelay) {
    pBar->DelayShow(bShow);
    m_bLayoutWanted = TRUE;
    return;
  }
  pBar->DelayShow(bShow);
  pBar->m_nStateFlags &= ~static_cast<UINT>(CControlBar::delayShow | CControlBar::delayHide);
  pBar->ShowWindow(bShow ? SW_SHOWNOACTIVATE : SW_HIDE);
  RecalcLayout();
}

void CFrameWnd::OnIdleUpdateCmdUI() {
  for (POSITION position = m_listControlBars.GetHeadPosition(); position != nullptr;) {
    auto* const bar = static_cast<CControlBar*>(m_listControlBars.GetNext(position));
    const UINT delayed = bar->m_nStateFlags & (CControlBar::delayShow | CControlBar::delayHide);
    if (delayed == 0) continue;
    bar->m_nStateFlags &= ~delayed;
    bar->ShowWindow(delayed == CControlBar::delayShow ? SW_SHOWNOACTIVATE : SW_HIDE);
    m_bLayoutWanted = TRUE;
  }
  if (m_bLayoutWanted) RecalcLayout();
}

void CFrameWnd::ActivateFrame(int nCmdShow) {
  if (nCmdShow == -1) nCmdShow = !IsWindowVisible() ? SW_SHOWNORMAL : IsIconic() ? SW_RESTORE : -1;
  BringWindowToTop();
  if (nCmdShow != -1) ShowWindow(nCmdShow);
  BringWindowToTop();
}

CString CFrameWnd::GetTitle() const { return m_strTitle; }
void CFrameWnd::SetTitle(LPCWSTR lpszTitle) { m_strTitle = lpszTitle; }

// ---- Commands ------------------------------------------------------------------------------------

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg) {
  if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
  const bool key = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
  return key && m_hAccelTable != nullptr && ::TranslateAcceleratorW(m_hWnd, m_hAccelTable, pMsg);
}

BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  CWinApp* const app = AfxGetApp();
  return app != nullptr && app->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

namespace {

constexpr UINT firstSystemCommand = 0xF000;

// Points state at the item at its index. False for a separator.
bool SelectItem(CCmdUI& state, CMenu& menu) {
  constexpr UINT isPopup = 0xFFFFFFFF;
  state.m_nID = menu.GetMenuItemID(static_cast<int>(state.m_nIndex));
  state.m_pSubMenu = nullptr;
  if (state.m_nID == 0) return false;
  if (state.m_nID != isPopup) return true;
  // A pop-up is asked for under the id of its first item.
  state.m_pSubMenu = menu.GetSubMenu(static_cast<int>(state.m_nIndex));
  if (state.m_pSubMenu == nullptr) return false;
  state.m_nID = state.m_pSubMenu->GetMenuItemID(0);
  return state.m_nID != 0 && state.m_nID != isPopup;
}

}  // namespace

void CFrameWnd::OnInitMenuPopup(CMenu* pMenu, UINT, BOOL bSysMenu) {
  if (bSysMenu || pMenu == nullptr) return;
  CCmdUI state;
  state.m_pMenu = pMenu;
  state.m_nIndexMax = pMenu->GetMenuItemCount();
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
    if (!SelectItem(state, *pMenu)) continue;
    const bool automatic =
        m_bAutoMenuEnable && state.m_pSubMenu == nullptr && state.m_nID < firstSystemCommand;
    state.DoUpdate(this, automatic);

    // A handler may have put items in or taken some out.
    const UINT count = pMenu->GetMenuItemCount();
    if (count < state.m_nIndexMax) state.m_nIndex -= std::min(state.m_nIndex, state.m_nIndexMax - count);
    if (count > state.m_nIndexMax) state.m_nIndex += count - state.m_nIndexMax;
    state.m_nIndexMax = count;
  }
}

// ---- Help texts ----------------------------------------------------------------------------------

void CFrameWnd::OnMenuSelect(UINT nItemID, UINT nFlags, HMENU) {
  constexpr UINT closed = 0xFFFF;
  constexpr UINT lastSystemCommand = 0xF1F0;
  if (nFlags == closed) {
    m_nIDTracking = AFX_IDS_IDLEMESSAGE;
  } else if (nItemID == 0 || (nFlags & (MF_SEPARATOR | MF_POPUP)) != 0) {
    m_nIDTracking = 0;
  } else if (nItemID >= firstSystemCommand && nItemID < lastSystemCommand) {
    m_nIDTracking = AFX_IDS_SCFIRST + ((nItemID - firstSystemCommand) >> 4);
  } else {
    m_nIDTracking = nItemID;
  }
  if (m_nIDTracking != m_nIDLastMessage && GetMessageBar() != nullptr) SetMessageText(m_nIDTracking);
}

CWnd* CFrameWnd::GetMessageBar() { return GetDescendantWindow(AFX_IDW_STATUS_BAR, TRUE); }

void CFrameWnd::GetMessageString(UINT nID, CString& rMessage) const {
  rMessage.Empty();
  if (nID == 0 || !rMessage.LoadString(nID)) return;
  const int end = rMessage.Find(L'\n');  // the tip of a button follows
  if (end >= 0) rMessage = rMessage.Left(end);
}

void CFrameWnd::SetMessageText(LPCWSTR lpszText) {
  SendMessage(WM_SETMESSAGESTRING, 0, reinterpret_cast<LPARAM>(lpszText));
}

void CFrameWnd::SetMessageText(UINT nID) { SendMessage(WM_SETMESSAGESTRING, nID); }

LRESULT CFrameWnd::OnSetMessageString(WPARAM wParam, LPARAM lParam) {
  const UINT last = m_nIDLastMessage;
  const auto id = static_cast<UINT>(wParam);
  if (CWnd* const bar = GetMessageBar()) {
    CString text(reinterpret_cast<LPCWSTR>(lParam));
    if (lParam == 0) GetMessageString(id, text);
    bar->SetWindowText(text);
  }
  m_nIDLastMessage = id;
  m_nIDTracking = id;
  return static_cast<LRESULT>(last);
}

BOOL CFrameWnd::IsTracking() const { return m_nIDTracking != 0 && m_nIDTracking != AFX_IDS_IDLEMESSAGE; }
