// CDC: colours, modes, mapping, clipping.
#include "gdiobj_maps.h"

using framework::HandleOf;
using framework::TypedHandleOf;

namespace {

// Runs an attribute function on both handles of a context; the attribute handle's result counts.
template <class Function>
auto OnBoth(const CDC& context, Function function) {
  auto result = function(context.m_hDC != nullptr ? context.m_hDC : context.m_hAttribDC);
  if (context.m_hAttribDC != nullptr && context.m_hDC != nullptr && context.m_hAttribDC != context.m_hDC) {
    result = function(context.m_hAttribDC);
  }
  return result;
}

}  // namespace

// ---- Colours and modes ---------------------------------------------------------------------------

COLORREF CDC::GetNearestColor(COLORREF crColor) const { return ::GetNearestColor(m_hAttribDC, crColor); }
COLORREF CDC::GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
int CDC::GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
int CDC::GetROP2() const { return ::GetROP2(m_hAttribDC); }
int CDC::GetStretchBltMode() const { return ::GetStretchBltMode(m_hAttribDC); }
COLORREF CDC::GetTextColor() const { return ::GetTextColor(m_hAttribDC); }

COLORREF CDC::SetBkColor(COLORREF crColor) {
  return OnBoth(*this, [=](HDC dc) { return ::SetBkColor(dc, crColor); });
}

int CDC::SetBkMode(int nBkMode) {
  return OnBoth(*this, [=](HDC dc) { return ::SetBkMode(dc, nBkMode); });
}

int CDC::SetROP2(int nDrawMode) {
  return OnBoth(*this, [=](HDC dc) { return ::SetROP2(dc, nDrawMode); });
}

int CDC::SetStretchBltMode(int nStretchMode) {
  return OnBoth(*this, [=](HDC dc) { return ::SetStretchBltMode(dc, nStretchMode); });
}

COLORREF CDC::SetTextColor(COLORREF crColor) {
  return OnBoth(*this, [=](HDC dc) { return ::SetTextColor(dc, crColor); });
}

// ---- Mapping -------------------------------------------------------------------------------------

int CDC::GetMapMode() const { return ::GetMapMode(m_hAttribDC); }

CPoint CDC::GetViewportOrg() const {
  CPoint origin;
  ::GetViewportOrgEx(m_hAttribDC, &origin);
  return origin;
}

int CDC::SetMapMode(int nMapMode) {
  return OnBoth(*this, [=](HDC dc) { return ::SetMapMode(dc, nMapMode); });
}

CPoint CDC::SetViewportOrg(int x, int y) {
  return OnBoth(*this, [=](HDC dc) {
    CPoint earlier;
    ::SetViewportOrgEx(dc, x, y, &earlier);
    return earlier;
  });
}

CPoint CDC::SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }

CPoint CDC::OffsetViewportOrg(int nWidth, int nHeight) {
  return OnBoth(*this, [=](HDC dc) {
    CPoint earlier;
    ::OffsetViewportOrgEx(dc, nWidth, nHeight, &earlier);
    return earlier;
  });
}

CSize CDC::GetViewportExt() const {
  CSize extent;
  ::GetViewportExtEx(m_hAttribDC, &extent);
  return extent;
}

CSize CDC::SetViewportExt(int cx, int cy) {
  return OnBoth(*this, [=](HDC dc) {
    CSize earlier;
    ::SetViewportExtEx(dc, cx, cy, &earlier);
    return earlier;
  });
}

CSize CDC::SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }

CPoint CDC::GetWindowOrg() const {
  CPoint origin;
  ::GetWindowOrgEx(m_hAttribDC, &origin);
  return origin;
}

CPoint CDC::SetWindowOrg(int x, int y) {
  return OnBoth(*this, [=](HDC dc) {
    CPoint earlier;
    ::SetWindowOrgEx(dc, x, y, &earlier);
    return earlier;
  });
}

CPoint CDC::SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }

CPoint CDC::OffsetWindowOrg(int nWidth, int nHeight) {
  return OnBoth(*this, [=](HDC dc) {
    CPoint earlier;
    ::OffsetWindowOrgEx(dc, nWidth, nHeight, &earlier);
    return earlier;
  });
}

CSize CDC::GetWindowExt() const {
  CSize extent;
  ::GetWindowExtEx(m_hAttribDC, &extent);
  return extent;
}

CSize CDC::SetWindowExt(int cx, int cy) {
  return OnBoth(*this, [=](HDC dc) {
    CSize earlier;
    ::SetWindowExtEx(dc, cx, cy, &earlier);
    return earlier;
  });
}

CSize CDC::SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }

namespace {

// A rectangle as the two points that the mapping functions take.
template <class Function>
void MapCorners(LPRECT rectangle, Function map) {
  POINT corners[] = {{rectangle->left, rectangle->top}, {rectangle->right, rectangle->bottom}};
  map(corners);
  *rectangle = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

}  // namespace

void CDC::DPtoLP(LPPOINT lpPoints, int nCount) const { ::DPtoLP(m_hAttribDC, lpPoints, nCount); }

void CDC::DPtoLP(LPRECT lpRect) const {
  MapCorners(lpRect, [this](POINT* corners) { ::DPtoLP(m_hAttribDC, corners, 2); });
}

void CDC::LPtoDP(LPPOINT lpPoints, int nCount) const { ::LPtoDP(m_hAttribDC, lpPoints, nCount); }

void CDC::LPtoDP(LPRECT lpRect) const {
  MapCorners(lpRect, [this](POINT* corners) { ::LPtoDP(m_hAttribDC, corners, 2); });
}

// ---- Clipping ------------------------------------------------------------------------------------

int CDC::GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hAttribDC, lpRect); }
BOOL CDC::PtVisible(int x, int y) const { return ::PtVisible(m_hDC, x, y); }
BOOL CDC::PtVisible(POINT point) const { return PtVisible(point.x, point.y); }
BOOL CDC::RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hDC, lpRect); }

int CDC::SelectClipRgn(CRgn* pRgn) {
  const HRGN region = TypedHandleOf<HRGN>(pRgn);
  return OnBoth(*this, [=](HDC dc) { return ::SelectClipRgn(dc, region); });
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode) {
  const HRGN region = TypedHandleOf<HRGN>(pRgn);
  return OnBoth(*this, [=](HDC dc) { return ::ExtSelectClipRgn(dc, region, nMode); });
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2) {
  return OnBoth(*this, [=](HDC dc) { return ::ExcludeClipRect(dc, x1, y1, x2, y2); });
}

int CDC::ExcludeClipRect(LPCRECT lpRect) {
  return ExcludeClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::ExcludeUpdateRgn(CWnd* pWnd) { return ::ExcludeUpdateRgn(m_hDC, HandleOf(pWnd)); }

int CDC::IntersectClipRect(int x1, int y1, int x2, int y2) {
  return OnBoth(*this, [=](HDC dc) { return ::IntersectClipRect(dc, x1, y1, x2, y2); });
}

int CDC::IntersectClipRect(LPCRECT lpRect) {
  return IntersectClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::OffsetClipRgn(int x, int y) {
  return OnBoth(*this, [=](HDC dc) { return ::OffsetClipRgn(dc, x, y); });
}

int CDC::OffsetClipRgn(SIZE size) { return OffsetClipRgn(size.cx, size.cy); }
