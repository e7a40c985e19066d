#include <algorithm>

#include <windows.h>

namespace {

// Coordinates wrap around at the ends of their range, as on Windows.
LONG Sum(LONG a, int b) { return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b)); }
LONG Difference(LONG a, int b) { return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b)); }

}  // namespace

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom) {
  if (!rect) return FALSE;
  *rect = {left, top, right, bottom};
  return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT rect) { return SetRect(rect, 0, 0, 0, 0); }

BOOL WINAPI CopyRect(LPRECT to, const RECT* from) {
  if (!to || !from) return FALSE;
  *to = *from;
  return TRUE;
}

BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy) {
  if (!rect) return FALSE;
  *rect = {Difference(rect->left, dx), Difference(rect->top, dy), Sum(rect->right, dx),
           Sum(rect->bottom, dy)};
  return TRUE;
}

BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy) {
  if (!rect) return FALSE;
  *rect = {Sum(rect->left, dx), Sum(rect->top, dy), Sum(rect->right, dx), Sum(rect->bottom, dy)};
  return TRUE;
}

BOOL WINAPI IsRectEmpty(const RECT* rect) {
  return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL WINAPI EqualRect(const RECT* a, const RECT* b) {
  if (!a || !b) return FALSE;
  return a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL WINAPI PtInRect(const RECT* rect, POINT point) {
  if (!rect) return FALSE;
  return point.x >= rect->left && point.x < rect->right && point.y >= rect->top && point.y < rect->bottom;
}

BOOL WINAPI IntersectRect(LPRECT to, const RECT* a, const RECT* b) {
  if (!to || !a || !b) return FALSE;
  const RECT both{std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                  std::min(a->bottom, b->bottom)};
  if (IsRectEmpty(a) || IsRectEmpty(b) || IsRectEmpty(&both)) {
    SetRectEmpty(to);
    return FALSE;
  }
  *to = both;
  return TRUE;
}

BOOL WINAPI UnionRect(LPRECT to, const RECT* a, const RECT* b) {
  if (!to || !a || !b) return FALSE;
  if (IsRectEmpty(a) && IsRectEmpty(b)) {
    SetRectEmpty(to);
    return FALSE;
  }
  if (IsRectEmpty(a)) return CopyRect(to, b);
  if (IsRectEmpty(b)) return CopyRect(to, a);
  *to = {std::min(a->left, b->left), std::min(a->top, b->top), std::max(a->right, b->right),
         std::max(a->bottom, b->bottom)};
  return TRUE;
}

BOOL WINAPI SubtractRect(LPRECT to, const RECT* a, const RECT* b) {
  if (!to || !a || !b) return FALSE;
  if (IsRectEmpty(a)) {
    SetRectEmpty(to);
    return FALSE;
  }
  RECT rest = *a;
  RECT both;
  if (IntersectRect(&both, a, b)) {
    if (EqualRect(&both, &rest)) {
      SetRectEmpty(to);
      return FALSE;
    }
    // Only a strip over the whole height or width leaves a rectangle.
    if (both.top == rest.top && both.bottom == rest.bottom) {
      if (both.left == rest.left) {
        rest.left = both.right;
      } else if (both.right == rest.right) {
        rest.right = both.left;
      }
    } else if (both.left == rest.left && both.right == rest.right) {
      if (both.top == rest.top) {
        rest.top = both.bottom;
      } else if (both.bottom == rest.bottom) {
        rest.bottom = both.top;
      }
    }
  }
  *to = rest;
  return TRUE;
}
