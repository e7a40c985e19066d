// CWnd: painting and scrolling.
#include "wnd_access.h"

using framework::HandleOf;
using framework::TypedHandleOf;

// ---- Painting ------------------------------------------------------------------------------------

CDC* CWnd::BeginPaint(LPPAINTSTRUCT lpPaint) { return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint)); }
void CWnd::EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }

namespace {

// The wrapper of a context just opened; without one the context goes back at once.
CDC* Wrap(HWND window, HDC opened) {
  CDC* const context = CDC::FromHandle(opened);
  if (context == nullptr && opened != nullptr) ::ReleaseDC(window, opened);
  return context;
}

}  // namespace

CDC* CWnd::GetDC() { return Wrap(m_hWnd, ::GetDC(m_hWnd)); }
CDC* CWnd::GetWindowDC() { return Wrap(m_hWnd, ::GetWindowDC(m_hWnd)); }

CDC* CWnd::GetDCEx(CRgn* prgnClip, DWORD flags) {
  return Wrap(m_hWnd, ::GetDCEx(m_hWnd, TypedHandleOf<HRGN>(prgnClip), flags));
}

int CWnd::ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, HandleOf(pDC)); }
void CWnd::UpdateWindow() { ::UpdateWindow(m_hWnd); }
void CWnd::SetRedraw(BOOL bRedraw) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(bRedraw)); }
BOOL CWnd::GetUpdateRect(LPRECT lpRect, BOOL bErase) { return ::GetUpdateRect(m_hWnd, lpRect, bErase); }

int CWnd::GetUpdateRgn(CRgn* pRgn, BOOL bErase) {
  return ::GetUpdateRgn(m_hWnd, TypedHandleOf<HRGN>(pRgn), bErase);
}

// For a null window these would repaint the whole screen.
void CWnd::Invalidate(BOOL bErase) { InvalidateRect(nullptr, bErase); }

void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase) {
  if (m_hWnd != nullptr) ::InvalidateRect(m_hWnd, lpRect, bErase);
}

void CWnd::InvalidateRgn(CRgn* pRgn, BOOL bErase) {
  if (m_hWnd != nullptr) ::InvalidateRgn(m_hWnd, TypedHandleOf<HRGN>(pRgn), bErase);
}

void CWnd::ValidateRect(LPCRECT lpRect) {
  if (m_hWnd != nullptr) ::ValidateRect(m_hWnd, lpRect);
}

void CWnd::ValidateRgn(CRgn* pRgn) {
  if (m_hWnd != nullptr) ::ValidateRgn(m_hWnd, TypedHandleOf<HRGN>(pRgn));
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* prgnUpdate, UINT flags) {
  return m_hWnd != nullptr && ::RedrawWindow(m_hWnd, lpRectUpdate, TypedHandleOf<HRGN>(prgnUpdate), flags);
}

BOOL CWnd::LockWindowUpdate() { return ::LockWindowUpdate(m_hWnd); }
void CWnd::UnlockWindowUpdate() { ::LockWindowUpdate(nullptr); }

void CWnd::Print(CDC* pDC, DWORD dwFlags) const {
  ::SendMessageW(m_hWnd, WM_PRINT, reinterpret_cast<WPARAM>(HandleOf(pDC)), static_cast<LPARAM>(dwFlags));
}

void CWnd::PrintClient(CDC* pDC, DWORD dwFlags) const {
  ::SendMessageW(m_hWnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(HandleOf(pDC)),
                 static_cast<LPARAM>(dwFlags));
}

// ---- Scrolling -----------------------------------------------------------------------------------

CScrollBar* CWnd::GetScrollBarCtrl(int) const { return nullptr; }

int CWnd::GetScrollPos(int nBar) const {
  if (const CScrollBar* const bar = GetScrollBarCtrl(nBar)) return bar->GetScrollPos();
  return ::GetScrollPos(m_hWnd, nBar);
}

void CWnd::GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const {
  if (const CScrollBar* const bar = GetScrollBarCtrl(nBar)) {
    bar->GetScrollRange(lpMinPos, lpMaxPos);
  } else {
    ::GetScrollRange(m_hWnd, nBar, lpMinPos, lpMaxPos);
  }
}

int CWnd::SetScrollPos(int nBar, int nPos, BOOL bRedraw) {
  if (CScrollBar* const bar = GetScrollBarCtrl(nBar)) return bar->SetScrollPos(nPos, bRedraw);
  return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw);
}

void CWnd::SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw) {
  if (CScrollBar* const bar = GetScrollBarCtrl(nBar)) {
    bar->SetScrollRange(nMinPos, nMaxPos, bRedraw);
  } else {
    ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw);
  }
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw) {
  const CScrollBar* const bar = GetScrollBarCtrl(nBar);
  lpScrollInfo->cbSize = sizeof(SCROLLINFO);
  ::SetScrollInfo(bar != nullptr ? bar->m_hWnd : m_hWnd, bar != nullptr ? SB_CTL : nBar, lpScrollInfo,
                  bRedraw);
  return TRUE;
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask) {
  const CScrollBar* const bar = GetScrollBarCtrl(nBar);
  lpScrollInfo->cbSize = sizeof(SCROLLINFO);
  lpScrollInfo->fMask = nMask;
  return ::GetScrollInfo(bar != nullptr ? bar->m_hWnd : m_hWnd, bar != nullptr ? SB_CTL : nBar, lpScrollInfo);
}

int CWnd::GetScrollLimit(int nBar) {
  int first = 0;
  int last = 0;
  GetScrollRange(nBar, &first, &last);
  SCROLLINFO info = {};
  if (!GetScrollInfo(nBar, &info, SIF_PAGE)) return last;
  // The last position at which a full page can be shown.
  const int pageBeyondFirst = static_cast<int>(info.nPage) - 1;
  return pageBeyondFirst > 0 ? last - pageBeyondFirst : last;
}

void CWnd::ShowScrollBar(UINT nBar, BOOL bShow) {
  const auto which = static_cast<int>(nBar);
  CScrollBar* const bar = nBar == SB_BOTH ? nullptr : GetScrollBarCtrl(which);
  if (bar != nullptr) {
    bar->ShowWindow(bShow ? SW_SHOW : SW_HIDE);
  } else {
    ::ShowScrollBar(m_hWnd, which, bShow);
  }
}

void CWnd::EnableScrollBarCtrl(int nBar, BOOL bEnable) {
  if (nBar == SB_BOTH) {
    EnableScrollBarCtrl(SB_HORZ, bEnable);
    EnableScrollBarCtrl(SB_VERT, bEnable);
    return;
  }
  if (CScrollBar* const bar = GetScrollBarCtrl(nBar)) {
    bar->EnableWindow(bEnable);
  } else {
    ::ShowScrollBar(m_hWnd, nBar, bEnable);
  }
}

BOOL CWnd::EnableScrollBar(int nSBFlags, UINT nArrowFlags) {
  return ::EnableScrollBar(m_hWnd, static_cast<UINT>(nSBFlags), nArrowFlags);
}

void CWnd::ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect, LPCRECT lpClipRect) {
  ::ScrollWindow(m_hWnd, xAmount, yAmount, lpRect, lpClipRect);
}

int CWnd::ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* prgnUpdate,
                         LPRECT lpRectUpdate, UINT flags) {
  return ::ScrollWindowEx(m_hWnd, dx, dy, lpRectScroll, lpRectClip, TypedHandleOf<HRGN>(prgnUpdate),
                          lpRectUpdate, flags);
}
