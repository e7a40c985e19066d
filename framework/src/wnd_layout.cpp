// CWnd: placing itself and laying out bars.
#include "afxext.h"
#include "wnd_access.h"

using framework::HandleOf;

namespace {

// Moves a rectangle, without sizing it, so that it lies within area; its top left corner counts most.
void KeepWithin(CRect& rectangle, const RECT& area) {
  if (rectangle.right > area.right) rectangle.MoveToX(area.right - rectangle.Width());
  if (rectangle.bottom > area.bottom) rectangle.MoveToY(area.bottom - rectangle.Height());
  if (rectangle.left < area.left) rectangle.MoveToX(area.left);
  if (rectangle.top < area.top) rectangle.MoveToY(area.top);
}

CRect WorkAreaAt(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

}  // namespace

void CWnd::CenterWindow(CWnd* pAlternateOwner) {
  if (m_hWnd == nullptr) return;
  const bool isChild = (GetStyle() & WS_CHILD) != 0;
  HWND center = HandleOf(pAlternateOwner);
  if (center == nullptr) center = isChild ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
  if (center != nullptr && !isChild && (!::IsWindowVisible(center) || ::IsIconic(center))) center = nullptr;

  CRect area;
  CRect middle;
  if (isChild) {
    ::GetClientRect(::GetParent(m_hWnd), &area);
    ::GetClientRect(center, &middle);
    ::MapWindowPoints(center, ::GetParent(m_hWnd), reinterpret_cast<LPPOINT>(&middle), 2);
  } else {
    area = WorkAreaAt(center != nullptr ? center : m_hWnd);
    if (center == nullptr || !::GetWindowRect(center, &middle)) middle = area;
  }

  CRect place;
  GetWindowRect(&place);
  const CSize size = place.Size();
  place = CRect(
      CPoint(middle.left + (middle.Width() - size.cx) / 2, middle.top + (middle.Height() - size.cy) / 2),
      size);
  KeepWithin(place, area);
  SetWindowPos(nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

namespace vornfw {

void RepositionWindow(AFX_SIZEPARENTPARAMS* layout, HWND hWnd, LPCRECT rectangle) {
  CRect earlier;
  ::GetWindowRect(hWnd, &earlier);
  ::MapWindowPoints(nullptr, ::GetParent(hWnd), reinterpret_cast<LPPOINT>(&earlier), 2);
  if (earlier == *rectangle) return;
  constexpr UINT flags = SWP_NOACTIVATE | SWP_NOZORDER;
  const int width = rectangle->right - rectangle->left;
  const int height = rectangle->bottom - rectangle->top;
  if (layout != nullptr && layout->hDWP != nullptr) {
    layout->hDWP =
        ::DeferWindowPos(layout->hDWP, hWnd, nullptr, rectangle->left, rectangle->top, width, height, flags);
  } else if (layout == nullptr) {
    ::SetWindowPos(hWnd, nullptr, rectangle->left, rectangle->top, width, height, flags);
  }
}

}  // namespace vornfw

void CWnd::RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlags, LPRECT lpRectParam,
                          LPCRECT lpRectClient, BOOL bStretch) {
  if (m_hWnd == nullptr) return;
  AFX_SIZEPARENTPARAMS layout = {};
  layout.bStretch = bStretch;
  if (lpRectClient != nullptr) {
    layout.rect = *lpRectClient;
  } else {
    GetClientRect(&layout.rect);
  }
  const UINT kind = nFlags & ~static_cast<UINT>(reposNoPosLeftOver);
  const bool query = kind == reposQuery;
  constexpr int expectedWindows = 8;
  if (!query) layout.hDWP = ::BeginDeferWindowPos(expectedWindows);

  HWND leftOver = nullptr;
  for (HWND child = ::GetTopWindow(m_hWnd); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const UINT id = LOWORD(::GetDlgCtrlID(child));
    CWnd* const object = FromHandlePermanent(child);
    if (id == nIDLeftOver) {
      leftOver = child;
    } else if (id >= nIDFirst && id <= nIDLast && object != nullptr) {
      ::SendMessageW(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
    }
  }

  if (query) {
    if (lpRectParam == nullptr) return;
    *lpRectParam = layout.rect;
    if (!bStretch) *lpRectParam = CRect(0, 0, layout.sizeTotal.cx, layout.sizeTotal.cy);
    return;
  }
  if (leftOver != nullptr && (nFlags & reposNoPosLeftOver) == 0) {
    if (kind == reposExtra && lpRectParam != nullptr) {
      layout.rect.left += lpRectParam->left;
      layout.rect.top += lpRectParam->top;
      layout.rect.right -= lpRectParam->right;
      layout.rect.bottom -= lpRectParam->bottom;
    }
    if (CWnd* const object = FromHandle(leftOver)) object->CalcWindowRect(&layout.rect);
    vornfw::RepositionWindow(&layout, leftOver, &layout.rect);
  }
  if (layout.hDWP != nullptr) ::EndDeferWindowPos(layout.hDWP);
}
