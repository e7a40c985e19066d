// A set of pixels as y-x banded rectangles.
#pragma once

#include <vector>

#include <windows.h>

namespace desktop {

class Region {
 public:
  Region() = default;
  explicit Region(const RECT& rect);
  // From the rows of a shape, one pixel high each, in order from top to bottom and left to right and
  // disjoint. Empty ones may be among them.
  static Region FromRows(const std::vector<RECT>& rows);

  bool IsEmpty() const { return m_rects.empty(); }
  bool IsRectangle() const { return m_rects.size() == 1; }
  RECT Bounds() const;
  bool Contains(int x, int y) const;
  bool Intersects(const RECT& rect) const;
  const std::vector<RECT>& Rects() const { return m_rects; }

  void Clear() { m_rects.clear(); }
  void Offset(int dx, int dy);
  Region& operator|=(const Region& other);
  Region& operator&=(const Region& other);
  Region& operator-=(const Region& other);
  Region& operator^=(const Region& other);
  friend bool operator==(const Region& a, const Region& b);

 private:
  std::vector<RECT> m_rects;  // sorted by top, then left; disjoint; bands share top and bottom
};

// The region behind a handle, or null. Lock held.
Region* RegionFromHandle(HRGN handle);

}  // namespace desktop
