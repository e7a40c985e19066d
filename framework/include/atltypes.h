// CSize, CPoint, CRect: the Win32 structures with arithmetic. Everything is inline.
#pragma once

#include "afxver_.h"

#include <algorithm>

class CPoint;
class CRect;
class CSize;

// A width and a height. Layout-compatible with SIZE.
class CSize : public tagSIZE {
 public:
  constexpr CSize() noexcept : tagSIZE{0, 0} {}
  constexpr CSize(int initCX, int initCY) noexcept : tagSIZE{initCX, initCY} {}
  constexpr CSize(SIZE initSize) noexcept : tagSIZE(initSize) {}
  inline CSize(POINT initPt) noexcept;
  // The low word gives cx and the high word cy, both signed.
  CSize(DWORD dwSize) noexcept
      : tagSIZE{static_cast<SHORT>(LOWORD(dwSize)), static_cast<SHORT>(HIWORD(dwSize))} {}

  void SetSize(int CX, int CY) noexcept {
    cx = CX;
    cy = CY;
  }

  // Each comparison also takes the class itself: else either side could be converted to the structure.
  BOOL operator==(SIZE size) const noexcept { return cx == size.cx && cy == size.cy; }
  BOOL operator==(const CSize& size) const noexcept { return *this == static_cast<SIZE>(size); }
  BOOL operator!=(SIZE size) const noexcept { return !(*this == size); }
  BOOL operator!=(const CSize& size) const noexcept { return !(*this == size); }
  void operator+=(SIZE size) noexcept {
    cx += size.cx;
    cy += size.cy;
  }
  void operator-=(SIZE size) noexcept {
    cx -= size.cx;
    cy -= size.cy;
  }

  CSize operator+(SIZE size) const noexcept { return CSize(cx + size.cx, cy + size.cy); }
  CSize operator-(SIZE size) const noexcept { return CSize(cx - size.cx, cy - size.cy); }
  CSize operator-() const noexcept { return CSize(-cx, -cy); }
  inline CPoint operator+(POINT point) const noexcept;
  inline CPoint operator-(POINT point) const noexcept;
  inline CRect operator+(const RECT* lpRect) const noexcept;
  inline CRect operator-(const RECT* lpRect) const noexcept;
};

// A position. Layout-compatible with POINT.
class CPoint : public tagPOINT {
 public:
  constexpr CPoint() noexcept : tagPOINT{0, 0} {}
  constexpr CPoint(int initX, int initY) noexcept : tagPOINT{initX, initY} {}
  constexpr CPoint(POINT initPt) noexcept : tagPOINT(initPt) {}
  constexpr CPoint(SIZE initSize) noexcept : tagPOINT{initSize.cx, initSize.cy} {}
  // As a message carries it: the low word is x and the high word y, both signed.
  CPoint(LPARAM dwPoint) noexcept
      : tagPOINT{static_cast<SHORT>(LOWORD(dwPoint)), static_cast<SHORT>(HIWORD(dwPoint))} {}

  void Offset(int xOffset, int yOffset) noexcept {
    x += xOffset;
    y += yOffset;
  }
  void Offset(POINT point) noexcept { Offset(point.x, point.y); }
  void Offset(SIZE size) noexcept { Offset(size.cx, size.cy); }
  void SetPoint(int X, int Y) noexcept {
    x = X;
    y = Y;
  }

  BOOL operator==(POINT point) const noexcept { return x == point.x && y == point.y; }
  BOOL operator==(const CPoint& point) const noexcept { return *this == static_cast<POINT>(point); }
  BOOL operator!=(POINT point) const noexcept { return !(*this == point); }
  BOOL operator!=(const CPoint& point) const noexcept { return !(*this == point); }
  void operator+=(SIZE size) noexcept { Offset(size); }
  void operator-=(SIZE size) noexcept { Offset(-size.cx, -size.cy); }
  void operator+=(POINT point) noexcept { Offset(point); }
  void operator-=(POINT point) noexcept { Offset(-point.x, -point.y); }

  CPoint operator+(SIZE size) const noexcept { return CPoint(x + size.cx, y + size.cy); }
  CPoint operator-(SIZE size) const noexcept { return CPoint(x - size.cx, y - size.cy); }
  CPoint operator-() const noexcept { return CPoint(-x, -y); }
  CPoint operator+(POINT point) const noexcept { return CPoint(x + point.x, y + point.y); }
  CSize operator-(POINT point) const noexcept { return CSize(x - point.x, y - point.y); }
  inline CRect operator+(const RECT* lpRect) const noexcept;
  inline CRect operator-(const RECT* lpRect) const noexcept;
};

// A rectangle; right and bottom lie just outside. Layout-compatible with RECT. Operations assume a
// normalized rectangle (left <= right, top <= bottom) where that matters, as the Win32 functions do.
class CRect : public tagRECT {
 public:
  constexpr CRect() noexcept : tagRECT{0, 0, 0, 0} {}
  constexpr CRect(int l, int t, int r, int b) noexcept : tagRECT{l, t, r, b} {}
  constexpr CRect(const RECT& srcRect) noexcept : tagRECT(srcRect) {}
  CRect(LPCRECT lpSrcRect) noexcept : tagRECT(*lpSrcRect) {}
  constexpr CRect(POINT point, SIZE size) noexcept
      : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy} {}
  constexpr CRect(POINT topLeft, POINT bottomRight) noexcept
      : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

  int Width() const noexcept { return right - left; }
  int Height() const noexcept { return bottom - top; }
  CSize Size() const noexcept { return CSize(right - left, bottom - top); }
  // The corners as points that may be changed in place.
  CPoint& TopLeft() noexcept { return *reinterpret_cast<CPoint*>(&left); }
  CPoint& BottomRight() noexcept { return *reinterpret_cast<CPoint*>(&right); }
  const CPoint& TopLeft() const noexcept { return *reinterpret_cast<const CPoint*>(&left); }
  const CPoint& BottomRight() const noexcept { return *reinterpret_cast<const CPoint*>(&right); }
  CPoint CenterPoint() const noexcept { return CPoint((left + right) / 2, (top + bottom) / 2); }
  void SwapLeftRight() noexcept { std::swap(left, right); }
  static void SwapLeftRight(LPRECT lpRect) noexcept { std::swap(lpRect->left, lpRect->right); }

  operator LPRECT() noexcept { return this; }
  operator LPCRECT() const noexcept { return this; }

  BOOL IsRectEmpty() const noexcept { return left >= right || top >= bottom; }
  BOOL IsRectNull() const noexcept { return left == 0 && right == 0 && top == 0 && bottom == 0; }
  BOOL PtInRect(POINT point) const noexcept {
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
  }

  void SetRect(int x1, int y1, int x2, int y2) noexcept { *this = CRect(x1, y1, x2, y2); }
  void SetRect(POINT topLeft, POINT bottomRight) noexcept { *this = CRect(topLeft, bottomRight); }
  void SetRectEmpty() noexcept { *this = CRect(); }
  void CopyRect(LPCRECT lpSrcRect) noexcept { *this = CRect(lpSrcRect); }
  BOOL EqualRect(LPCRECT lpRect) const noexcept { return *this == *lpRect; }

  void InflateRect(int x, int y) noexcept { InflateRect(x, y, x, y); }
  void InflateRect(SIZE size) noexcept { InflateRect(size.cx, size.cy); }
  void InflateRect(LPCRECT lpRect) noexcept {
    InflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
  }
  void InflateRect(int l, int t, int r, int b) noexcept {
    left -= l;
    top -= t;
    right += r;
    bottom += b;
  }
  void DeflateRect(int x, int y) noexcept { InflateRect(-x, -y); }
  void DeflateRect(SIZE size) noexcept { DeflateRect(size.cx, size.cy); }
  void DeflateRect(LPCRECT lpRect) noexcept {
    DeflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
  }
  void DeflateRect(int l, int t, int r, int b) noexcept { InflateRect(-l, -t, -r, -b); }

  void OffsetRect(int x, int y) noexcept {
    left += x;
    top += y;
    right += x;
    bottom += y;
  }
  void OffsetRect(POINT point) noexcept { OffsetRect(point.x, point.y); }
  void OffsetRect(SIZE size) noexcept { OffsetRect(size.cx, size.cy); }
  void MoveToX(int x) noexcept { OffsetRect(x - left, 0); }
  void MoveToY(int y) noexcept { OffsetRect(0, y - top); }
  void MoveToXY(int x, int y) noexcept { OffsetRect(x - left, y - top); }
  void MoveToXY(POINT point) noexcept { MoveToXY(point.x, point.y); }
  void NormalizeRect() noexcept {
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
  }

  // The results are non-zero if the rectangle left behind is not empty.
  BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept {
    return ::IntersectRect(this, lpRect1, lpRect2);
  }
  BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept { return ::UnionRect(this, lpRect1, lpRect2); }
  BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept {
    return ::SubtractRect(this, lpRectSrc1, lpRectSrc2);
  }
  // Scales each coordinate by nMultiplier / nDivisor, rounded.
  CRect MulDiv(int nMultiplier, int nDivisor) const noexcept {
    return CRect(::MulDiv(left, nMultiplier, nDivisor), ::MulDiv(top, nMultiplier, nDivisor),
                 ::MulDiv(right, nMultiplier, nDivisor), ::MulDiv(bottom, nMultiplier, nDivisor));
  }

  CRect& operator=(const RECT& srcRect) noexcept {
    tagRECT::operator=(srcRect);
    return *this;
  }
  BOOL operator==(const RECT& rect) const noexcept {
    return left == rect.left && top == rect.top && right == rect.right && bottom == rect.bottom;
  }
  BOOL operator==(const CRect& rect) const noexcept { return *this == static_cast<const RECT&>(rect); }
  BOOL operator!=(const RECT& rect) const noexcept { return !(*this == rect); }
  BOOL operator!=(const CRect& rect) const noexcept { return !(*this == rect); }
  void operator+=(POINT point) noexcept { OffsetRect(point); }
  void operator+=(SIZE size) noexcept { OffsetRect(size); }
  void operator+=(LPCRECT lpRect) noexcept { InflateRect(lpRect); }
  void operator-=(POINT point) noexcept { OffsetRect(-point.x, -point.y); }
  void operator-=(SIZE size) noexcept { OffsetRect(-size.cx, -size.cy); }
  void operator-=(LPCRECT lpRect) noexcept { DeflateRect(lpRect); }
  void operator&=(const RECT& rect) noexcept { IntersectRect(CRect(*this), &rect); }
  void operator|=(const RECT& rect) noexcept { UnionRect(CRect(*this), &rect); }

  CRect operator+(POINT point) const noexcept {
    CRect result(*this);
    result += point;
    return result;
  }
  CRect operator-(POINT point) const noexcept {
    CRect result(*this);
    result -= point;
    return result;
  }
  CRect operator+(SIZE size) const noexcept {
    CRect result(*this);
    result += size;
    return result;
  }
  CRect operator-(SIZE size) const noexcept {
    CRect result(*this);
    result -= size;
    return result;
  }
  CRect operator+(LPCRECT lpRect) const noexcept {
    CRect result(*this);
    result += lpRect;
    return result;
  }
  CRect operator-(LPCRECT lpRect) const noexcept {
    CRect result(*this);
    result -= lpRect;
    return result;
  }
  CRect operator&(const RECT& rect) const noexcept {
    CRect result(*this);
    result &= rect;
    return result;
  }
  CRect operator|(const RECT& rect) const noexcept {
    CRect result(*this);
    result |= rect;
    return result;
  }
};

inline CSize::CSize(POINT initPt) noexcept : tagSIZE{initPt.x, initPt.y} {}
inline CPoint CSize::operator+(POINT point) const noexcept { return CPoint(cx + point.x, cy + point.y); }
inline CPoint CSize::operator-(POINT point) const noexcept { return CPoint(cx - point.x, cy - point.y); }
inline CRect CSize::operator+(const RECT* lpRect) const noexcept { return CRect(lpRect) + *this; }
inline CRect CSize::operator-(const RECT* lpRect) const noexcept { return CRect(lpRect) - *this; }
inline CRect CPoint::operator+(const RECT* lpRect) const noexcept { return CRect(lpRect) + *this; }
inline CRect CPoint::operator-(const RECT* lpRect) const noexcept { return CRect(lpRect) - *this; }
