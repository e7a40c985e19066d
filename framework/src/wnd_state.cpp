// CWnd: style, text, place, timers, focus.
#include "wnd_access.h"

using framework::HandleOf;

// ---- Style and relations of its own --------------------------------------------------------------

DWORD CWnd::GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
DWORD CWnd::GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }

namespace {

BOOL ModifyBits(HWND window, int which, DWORD remove, DWORD add, UINT flags) {
  const auto earlier = static_cast<DWORD>(::GetWindowLongPtrW(window, which));
  const DWORD wanted = (earlier & ~remove) | add;
  if (wanted == earlier) return FALSE;
  ::SetWindowLongPtrW(window, which, static_cast<LONG>(wanted));
  if (flags != 0) {
    ::SetWindowPos(window, nullptr, 0, 0, 0, 0,
                   SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | flags);
  }
  return TRUE;
}

}  // namespace

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyBits(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyBits(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

BOOL PASCAL CWnd::ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyBits(hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL PASCAL CWnd::ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyBits(hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

CWnd* CWnd::GetOwner() const { return m_hWndOwner != nullptr ? FromHandle(m_hWndOwner) : GetParent(); }
void CWnd::SetOwner(CWnd* pOwnerWnd) { m_hWndOwner = HandleOf(pOwnerWnd); }
int CWnd::GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }

int CWnd::SetDlgCtrlID(int nID) { return static_cast<int>(::SetWindowLongPtrW(m_hWnd, GWLP_ID, nID)); }

CMenu* CWnd::GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
BOOL CWnd::SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, HandleOf(pMenu)); }
void CWnd::DrawMenuBar() { ::DrawMenuBar(m_hWnd); }
CMenu* CWnd::GetSystemMenu(BOOL bRevert) const { return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert)); }
BOOL CWnd::IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
BOOL CWnd::EnableWindow(BOOL bEnable) { return ::EnableWindow(m_hWnd, bEnable); }
BOOL CWnd::IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
BOOL CWnd::IsIconic() const { return ::IsIconic(m_hWnd); }
BOOL CWnd::IsZoomed() const { return ::IsZoomed(m_hWnd); }
BOOL CWnd::IsWindowUnicode() const { return ::IsWindowUnicode(m_hWnd); }

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon) {
  return reinterpret_cast<HICON>(
      SendMessage(WM_SETICON, bBigIcon ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(hIcon)));
}

HICON CWnd::GetIcon(BOOL bBigIcon) const {
  return reinterpret_cast<HICON>(::SendMessageW(m_hWnd, WM_GETICON, bBigIcon ? ICON_BIG : ICON_SMALL, 0));
}

// ---- Text ----------------------------------------------------------------------------------------

void CWnd::SetWindowText(LPCWSTR lpszString) { ::SetWindowTextW(m_hWnd, lpszString); }

int CWnd::GetWindowText(LPWSTR lpszStringBuf, int nMaxCount) const {
  return ::GetWindowTextW(m_hWnd, lpszStringBuf, nMaxCount);
}

void CWnd::GetWindowText(CString& rString) const {
  const int length = GetWindowTextLength();
  ::GetWindowTextW(m_hWnd, rString.GetBuffer(length + 1), length + 1);
  rString.ReleaseBuffer();
}

int CWnd::GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }

void CWnd::SetFont(CFont* pFont, BOOL bRedraw) {
  SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(HandleOf(pFont)), MAKELPARAM(bRedraw, 0));
}

CFont* CWnd::GetFont() const {
  return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
}

// ---- Messages ------------------------------------------------------------------------------------

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // Without a window it would go to the thread.
  return m_hWnd != nullptr && ::PostMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendNotifyMessageW(m_hWnd, message, wParam, lParam);
}

int CWnd::MessageBox(LPCWSTR lpszText, LPCWSTR lpszCaption, UINT nType) {
  return ::MessageBoxW(m_hWnd, lpszText, lpszCaption != nullptr ? lpszCaption : AfxGetAppName(), nType);
}

// ---- Place ---------------------------------------------------------------------------------------

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint) {
  ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint) {
  MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, bRepaint);
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags) {
  return ::SetWindowPos(m_hWnd, HandleOf(pWndInsertAfter), x, y, cx, cy, nFlags);
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const {
  lpwndpl->length = sizeof(WINDOWPLACEMENT);
  return ::GetWindowPlacement(m_hWnd, lpwndpl);
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl) {
  WINDOWPLACEMENT placement = *lpwndpl;
  placement.length = sizeof(placement);
  return ::SetWindowPlacement(m_hWnd, &placement);
}

void CWnd::BringWindowToTop() { ::BringWindowToTop(m_hWnd); }
void CWnd::GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
void CWnd::GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
int CWnd::SetWindowRgn(HRGN hRgn, BOOL bRedraw) { return ::SetWindowRgn(m_hWnd, hRgn, bRedraw); }
int CWnd::GetWindowRgn(HRGN hRgn) const { return ::GetWindowRgn(m_hWnd, hRgn); }

void CWnd::CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType) {
  DWORD exStyle = GetExStyle();
  if (nAdjustType == adjustBorder) exStyle &= ~static_cast<DWORD>(WS_EX_CLIENTEDGE);
  const bool hasMenu = (GetStyle() & WS_CHILD) == 0 && ::GetMenu(m_hWnd) != nullptr;
  ::AdjustWindowRectEx(lpClientRect, GetStyle(), hasMenu, exStyle);
}

BOOL CWnd::ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
void CWnd::ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }

void CWnd::ClientToScreen(LPRECT lpRect) const {
  // As one rectangle, so that a mirrored window keeps left and right in order.
  ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }

void CWnd::ScreenToClient(LPRECT lpRect) const {
  ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const {
  ::MapWindowPoints(m_hWnd, HandleOf(pwndTo), lpPoint, nCount);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const {
  ::MapWindowPoints(m_hWnd, HandleOf(pwndTo), reinterpret_cast<LPPOINT>(lpRect), 2);
}

// ---- Timers, focus, capture, caret ---------------------------------------------------------------

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse,
                        void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD)) {
  // Without a window the timer would be the thread's, and nobody's to kill.
  return m_hWnd == nullptr ? 0 : ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}

BOOL CWnd::KillTimer(UINT_PTR nIDEvent) { return m_hWnd != nullptr && ::KillTimer(m_hWnd, nIDEvent); }
CWnd* PASCAL CWnd::GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
CWnd* CWnd::SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
CWnd* PASCAL CWnd::GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }
BOOL CWnd::SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
CWnd* PASCAL CWnd::GetCapture() { return FromHandle(::GetCapture()); }
CWnd* CWnd::SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
CWnd* PASCAL CWnd::GetFocus() { return FromHandle(::GetFocus()); }
CWnd* CWnd::SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
CWnd* PASCAL CWnd::GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
CWnd* CWnd::GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }

void CWnd::CreateCaret(CBitmap* pBitmap) {
  ::CreateCaret(m_hWnd, framework::TypedHandleOf<HBITMAP>(pBitmap), 0, 0);
}

void CWnd::CreateSolidCaret(int nWidth, int nHeight) { ::CreateCaret(m_hWnd, nullptr, nWidth, nHeight); }

CPoint PASCAL CWnd::GetCaretPos() {
  CPoint position;
  ::GetCaretPos(&position);
  return position;
}

void PASCAL CWnd::SetCaretPos(POINT point) { ::SetCaretPos(point.x, point.y); }
void CWnd::HideCaret() { ::HideCaret(m_hWnd); }
void CWnd::ShowCaret() { ::ShowCaret(m_hWnd); }
