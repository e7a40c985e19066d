// Regions as bands: rows of equal top and bottom that hold sorted, disjoint spans.
#include "region.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace desktop {
namespace {

using Rects = std::vector<RECT>;

// The bands of a region, one after the other.
class BandReader {
 public:
  explicit BandReader(const Rects& rects) : m_rects(rects) { FindEnd(); }

  bool AtEnd() const { return m_begin == m_rects.size(); }
  LONG Top() const { return m_rects[m_begin].top; }
  LONG Bottom() const { return m_rects[m_begin].bottom; }
  size_t Begin() const { return m_begin; }
  size_t End() const { return m_end; }
  bool Covers(LONG y) const { return !AtEnd() && Top() <= y && y < Bottom(); }

  // The first band edge after y, or the largest number.
  LONG NextEdge(LONG y) const {
    if (AtEnd()) return std::numeric_limits<LONG>::max();
    return Top() > y ? Top() : Bottom();
  }

  void SkipTo(LONG y) {
    while (!AtEnd() && Bottom() <= y) {
      m_begin = m_end;
      FindEnd();
    }
  }

 private:
  void FindEnd() {
    m_end = m_begin;
    while (m_end < m_rects.size() && m_rects[m_end].top == m_rects[m_begin].top) ++m_end;
  }

  const Rects& m_rects;
  size_t m_begin = 0;
  size_t m_end = 0;
};

// The spans of one band, read as edges from left to right.
class EdgeReader {
 public:
  EdgeReader(const Rects& rects, size_t begin, size_t end) : m_rects(rects), m_index(begin), m_end(end) {}

  bool Inside() const { return m_inside; }
  LONG Next() const {
    if (m_index == m_end) return std::numeric_limits<LONG>::max();
    return m_inside ? m_rects[m_index].right : m_rects[m_index].left;
  }
  void Pass(LONG x) {
    while (m_index != m_end && Next() == x) {
      if (m_inside) ++m_index;
      m_inside = !m_inside;
    }
  }

 private:
  const Rects& m_rects;
  size_t m_index;
  size_t m_end;
  bool m_inside = false;
};

template <typename Rule>
void AppendBand(Rects& out, EdgeReader a, EdgeReader b, LONG top, LONG bottom, Rule rule) {
  bool open = false;
  LONG start = 0;
  for (LONG x = std::min(a.Next(), b.Next()); x != std::numeric_limits<LONG>::max();
       x = std::min(a.Next(), b.Next())) {
    a.Pass(x);
    b.Pass(x);
    bool inside = rule(a.Inside(), b.Inside());
    if (inside == open) continue;
    if (open) out.push_back({start, top, x, bottom});
    start = x;
    open = inside;
  }
}

// Joins the band that starts at `last` to the one before it when they are the same but for y.
size_t Coalesce(Rects& out, size_t previous, size_t last) {
  size_t count = out.size() - last;
  if (count == 0) return previous;
  if (last - previous != count || out[previous].bottom != out[last].top) return last;
  for (size_t i = 0; i < count; ++i) {
    if (out[previous + i].left != out[last + i].left || out[previous + i].right != out[last + i].right)
      return last;
  }
  for (size_t i = 0; i < count; ++i) out[previous + i].bottom = out[last].bottom;
  out.resize(last);
  return previous;
}

template <typename Rule>
Rects Combine(const Rects& a, const Rects& b, Rule rule) {
  Rects out;
  if (a.empty() && b.empty()) return out;
  out.reserve(a.size() + b.size());
  BandReader bandsA(a);
  BandReader bandsB(b);
  LONG y = std::min(a.empty() ? b.front().top : a.front().top, b.empty() ? a.front().top : b.front().top);
  size_t previous = 0;
  while (!bandsA.AtEnd() || !bandsB.AtEnd()) {
    LONG next = std::min(bandsA.NextEdge(y), bandsB.NextEdge(y));
    bool inA = bandsA.Covers(y);
    bool inB = bandsB.Covers(y);
    size_t last = out.size();
    AppendBand(out, inA ? EdgeReader(a, bandsA.Begin(), bandsA.End()) : EdgeReader(a, 0, 0),
               inB ? EdgeReader(b, bandsB.Begin(), bandsB.End()) : EdgeReader(b, 0, 0), y, next, rule);
    previous = Coalesce(out, previous, last);
    y = next;
    bandsA.SkipTo(y);
    bandsB.SkipTo(y);
  }
  return out;
}

LONG SaturatingAdd(LONG value, int delta) {
  long long sum = static_cast<long long>(value) + delta;
  return static_cast<LONG>(
      std::clamp<long long>(sum, std::numeric_limits<LONG>::min() / 2, std::numeric_limits<LONG>::max() / 2));
}

}  // namespace

Region::Region(const RECT& rect) {
  if (rect.left < rect.right && rect.top < rect.bottom) m_rects.push_back(rect);
}

Region Region::FromRows(const std::vector<RECT>& rows) {
  Region region;
  std::vector<RECT>& out = region.m_rects;
  size_t previous = 0;
  size_t last = 0;
  for (const RECT& row : rows) {
    if (row.left >= row.right) continue;
    if (out.size() > last && out[last].top != row.top) {
      previous = Coalesce(out, previous, last);
      last = out.size();
    }
    if (out.size() > last && out.back().right == row.left) {
      out.back().right = row.right;
    } else {
      out.push_back({row.left, row.top, row.right, row.top + 1});
    }
  }
  Coalesce(out, previous, last);
  return region;
}

RECT Region::Bounds() const {
  if (m_rects.empty()) return {};
  RECT box = {m_rects.front().left, m_rects.front().top, m_rects.front().right, m_rects.back().bottom};
  for (const RECT& rect : m_rects) {
    box.left = std::min(box.left, rect.left);
    box.right = std::max(box.right, rect.right);
  }
  return box;
}

bool Region::Contains(int x, int y) const {
  for (const RECT& rect : m_rects) {
    if (rect.top > y) return false;
    if (y < rect.bottom && x >= rect.left && x < rect.right) return true;
  }
  return false;
}

bool Region::Intersects(const RECT& area) const {
  if (area.left >= area.right || area.top >= area.bottom) return false;
  for (const RECT& rect : m_rects) {
    if (rect.top >= area.bottom) return false;
    if (rect.bottom > area.top && rect.left < area.right && rect.right > area.left) return true;
  }
  return false;
}

void Region::Offset(int dx, int dy) {
  for (RECT& rect : m_rects) {
    rect = {SaturatingAdd(rect.left, dx), SaturatingAdd(rect.top, dy), SaturatingAdd(rect.right, dx),
            SaturatingAdd(rect.bottom, dy)};
  }
  // Rectangles pushed against the end of the number range have lost their area.
  std::erase_if(m_rects, [](const RECT& r) { return r.left >= r.right || r.top >= r.bottom; });
}

Region& Region::operator|=(const Region& other) {
  if (other.IsEmpty()) return *this;
  if (IsEmpty()) return *this = other;
  m_rects = Combine(m_rects, other.m_rects, [](bool a, bool b) { return a || b; });
  return *this;
}

Region& Region::operator&=(const Region& other) {
  if (IsRectangle() && other.IsRectangle()) {
    const RECT& a = m_rects[0];
    const RECT& b = other.m_rects[0];
    return *this = Region(RECT{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                               std::min(a.bottom, b.bottom)});
  }
  m_rects = Combine(m_rects, other.m_rects, [](bool a, bool b) { return a && b; });
  return *this;
}

Region& Region::operator-=(const Region& other) {
  if (IsEmpty() || other.IsEmpty()) return *this;
  m_rects = Combine(m_rects, other.m_rects, [](bool a, bool b) { return a && !b; });
  return *this;
}

Region& Region::operator^=(const Region& other) {
  m_rects = Combine(m_rects, other.m_rects, [](bool a, bool b) { return a != b; });
  return *this;
}

bool operator==(const Region& a, const Region& b) {
  return std::equal(a.m_rects.begin(), a.m_rects.end(), b.m_rects.begin(), b.m_rects.end(),
                    [](const RECT& p, const RECT& q) {
                      return p.left == q.left && p.top == q.top && p.right == q.right && p.bottom == q.bottom;
                    });
}

}  // namespace desktop
