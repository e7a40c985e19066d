// CWnd: the handlers of messages. What a class does not override does what the system does.
#include "wnd_access.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
  ON_WM_NCDESTROY()
  ON_WM_CTLCOLOR()
  ON_WM_DRAWITEM()
  ON_WM_MEASUREITEM()
  ON_WM_DELETEITEM()
  ON_WM_COMPAREITEM()
  ON_WM_HSCROLL()
  ON_WM_VSCROLL()
  ON_WM_PARENTNOTIFY()
  ON_WM_SYSCOLORCHANGE()
  ON_WM_SETTINGCHANGE()
END_MESSAGE_MAP()

// ---- Handlers that offer the message to the control it is about ----------------------------------

namespace {

// The control of an owner-drawn item; null for a menu.
template <class Item>
HWND ControlOf(const Item* item) {
  return item == nullptr || item->CtlType == ODT_MENU
             ? nullptr
             : ::GetDlgItem(CWnd::GetCurrentMessage()->hwnd, static_cast<int>(item->CtlID));
}

}  // namespace

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT) {
  LRESULT brush = 0;
  if (pWnd != nullptr && ReflectLastMsg(pWnd->m_hWnd, &brush)) return reinterpret_cast<HBRUSH>(brush);
  return reinterpret_cast<HBRUSH>(Default());
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct) {
  if (lpDrawItemStruct != nullptr) {
    if (lpDrawItemStruct->CtlType == ODT_MENU) {
      // The menu that the item belongs to draws it, if it is an object of its own.
      if (CMenu* const menu =
              CMenu::FromHandlePermanent(reinterpret_cast<HMENU>(lpDrawItemStruct->hwndItem))) {
        menu->DrawItem(lpDrawItemStruct);
        return;
      }
    } else if (ReflectLastMsg(lpDrawItemStruct->hwndItem)) {
      return;
    }
  }
  Default();
}

void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT lpMeasureItemStruct) {
  if (!ReflectLastMsg(ControlOf(lpMeasureItemStruct))) Default();
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct) {
  if (lpDeleteItemStruct == nullptr || !ReflectLastMsg(lpDeleteItemStruct->hwndItem)) Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct) {
  LRESULT result = 0;
  if (lpCompareItemStruct != nullptr && ReflectLastMsg(lpCompareItemStruct->hwndItem, &result)) {
    return static_cast<int>(result);
  }
  return static_cast<int>(Default());
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* pScrollBar) {
  if (pScrollBar == nullptr || !ReflectLastMsg(pScrollBar->m_hWnd)) Default();
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar* pScrollBar) {
  if (pScrollBar == nullptr || !ReflectLastMsg(pScrollBar->m_hWnd)) Default();
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam) {
  const bool aboutChild = message == WM_CREATE || message == WM_DESTROY;
  if (!aboutChild || !ReflectLastMsg(reinterpret_cast<HWND>(lParam))) Default();
}

// ---- Handlers that tell the children -------------------------------------------------------------

void CWnd::OnSysColorChange() {
  const bool isChild = (GetStyle() & WS_CHILD) != 0;
  if (!isChild) SendMessageToDescendants(WM_SYSCOLORCHANGE);
  Default();
}

void CWnd::OnSettingChange(UINT uFlags, LPCWSTR lpszSection) {
  const bool isChild = (GetStyle() & WS_CHILD) != 0;
  if (!isChild) SendMessageToDescendants(WM_SETTINGCHANGE, uFlags, reinterpret_cast<LPARAM>(lpszSection));
  Default();
}

// ---- Handlers that only do the default -----------------------------------------------------------

void CWnd::OnActivate(UINT, CWnd*, BOOL) { Default(); }
void CWnd::OnActivateApp(BOOL, DWORD) { Default(); }
void CWnd::OnCancelMode() { Default(); }
void CWnd::OnCaptureChanged(CWnd*) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnClose() { Default(); }
void CWnd::OnContextMenu(CWnd*, CPoint) { Default(); }
int CWnd::OnCreate(LPCREATESTRUCTW) { return static_cast<int>(Default()); }
void CWnd::OnDeadChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnEnable(BOOL) { Default(); }
void CWnd::OnEndSession(BOOL) { Default(); }
void CWnd::OnEnterIdle(UINT, CWnd*) { Default(); }
void CWnd::OnEnterMenuLoop(BOOL) { Default(); }
BOOL CWnd::OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
void CWnd::OnExitMenuLoop(BOOL) { Default(); }
UINT CWnd::OnGetDlgCode() { return static_cast<UINT>(Default()); }
void CWnd::OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
void CWnd::OnInitMenu(CMenu*) { Default(); }
void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnMButtonUp(UINT, CPoint) { Default(); }
LRESULT CWnd::OnMenuChar(UINT, UINT, CMenu*) { return Default(); }
void CWnd::OnMenuSelect(UINT, UINT, HMENU) { Default(); }
int CWnd::OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
void CWnd::OnMouseHover(UINT, CPoint) { Default(); }
void CWnd::OnMouseHWheel(UINT, short, CPoint) { Default(); }
void CWnd::OnMouseLeave() { Default(); }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
void CWnd::OnMove(int, int) { Default(); }
void CWnd::OnMoving(UINT, LPRECT) { Default(); }
BOOL CWnd::OnNcActivate(BOOL) { return static_cast<BOOL>(Default()); }
void CWnd::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*) { Default(); }
BOOL CWnd::OnNcCreate(LPCREATESTRUCTW) { return static_cast<BOOL>(Default()); }
LRESULT CWnd::OnNcHitTest(CPoint) { return Default(); }
void CWnd::OnNcLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnNcMButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnNcMButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnNcMButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnNcMouseHover(UINT, CPoint) { Default(); }
void CWnd::OnNcMouseLeave() { Default(); }
void CWnd::OnNcMouseMove(UINT, CPoint) { Default(); }
void CWnd::OnNcPaint() { Default(); }
void CWnd::OnNcRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnNcRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnNcRButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnPaint() { Default(); }
void CWnd::OnPaletteChanged(CWnd*) { Default(); }
HCURSOR CWnd::OnQueryDragIcon() { return reinterpret_cast<HCURSOR>(Default()); }
BOOL CWnd::OnQueryEndSession() { return static_cast<BOOL>(Default()); }
BOOL CWnd::OnQueryNewPalette() { return static_cast<BOOL>(Default()); }
void CWnd::OnRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnRButtonUp(UINT, CPoint) { Default(); }
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnSizing(UINT, LPRECT) { Default(); }
void CWnd::OnStyleChanged(int, LPSTYLESTRUCT) { Default(); }
void CWnd::OnStyleChanging(int, LPSTYLESTRUCT) { Default(); }
void CWnd::OnSysChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysCommand(UINT, LPARAM) { Default(); }
void CWnd::OnSysDeadChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnTimer(UINT_PTR) { Default(); }
void CWnd::OnWindowPosChanged(WINDOWPOS*) { Default(); }
void CWnd::OnWindowPosChanging(WINDOWPOS*) { Default(); }
