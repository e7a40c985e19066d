#include "stroke.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

#include "shapes.h"

namespace desktop {
namespace {

std::vector<DWORD> DashesOf(const Pen& pen) {
  switch (pen.style & PS_STYLE_MASK) {
    case PS_DASH: return {18, 6};
    case PS_DOT: return {3, 3};
    case PS_DASHDOT: return {9, 6, 3, 6};
    case PS_DASHDOTDOT: return {9, 3, 3, 3, 3, 3};
    case PS_ALTERNATE: return {1, 1};
    case PS_USERSTYLE: {
      std::vector<DWORD> dashes = pen.dashes;
      // An odd number of lengths swaps on and off each time round.
      if (dashes.size() % 2) dashes.insert(dashes.end(), pen.dashes.begin(), pen.dashes.end());
      return dashes;
    }
    default: return {};
  }
}

// Which way a line that passes exactly between two pixels leans depends on its octant.
bool LeansOutward(int dx, int dy, bool steep) {
  if (!steep) return dy < 0;
  return dx < 0;
}

}  // namespace

Stroke::Stroke(DeviceContext& dc) : m_dc(dc) {
  Pen* pen = FindPen(dc.state.pen);
  if (!pen || (pen->style & PS_STYLE_MASK) == PS_NULL) return;
  m_draws = true;
  // Wider ones cover everything alike.
  m_width = std::clamp(pen->width, 1, 0x7fff);
  m_insideFrame = (pen->style & PS_STYLE_MASK) == PS_INSIDEFRAME;
  m_rop = TernaryFromRop2(dc.state.rop2);
  m_word = ColorWord(dc, pen->usesDcColor ? dc.state.penColor : pen->color);
  if (m_width > 1) return;
  m_dashes = DashesOf(*pen);
  m_period = std::accumulate(m_dashes.begin(), m_dashes.end(), 0LL);
  if (m_period == 0) m_dashes.clear();
  m_fillsGaps = dc.state.bkMode == OPAQUE && pen->type == OBJ_PEN;
  m_gapWord = ColorWord(dc, dc.state.bkColor);
}

bool Stroke::DashAt(long long position) const {
  if (m_dashes.empty()) return true;
  long long rest = position % m_period;
  for (size_t i = 0; i < m_dashes.size(); ++i) {
    if (rest < m_dashes[i]) return i % 2 == 0;
    rest -= m_dashes[i];
  }
  return true;
}

void Stroke::Plot(const Canvas& canvas, int x, int y, bool on) {
  if (!on && !m_fillsGaps) return;
  if (!m_dc.Clip().Contains(x, y)) return;
  CountWrite(m_dc.target.surface.get(), {x, y, x + 1, y + 1});
  RopRow(m_rop, canvas.Pixels().row(y) + x, nullptr, on ? &m_word : &m_gapWord, 1);
}

void Stroke::Line(POINT from, POINT to) {
  if (!m_draws) return;
  if (m_width > 1) {
    Wide(from, to);
    return;
  }
  Thin(from, to);
}

void Stroke::Thin(POINT from, POINT to) {
  int dx = to.x - from.x;
  int dy = to.y - from.y;
  bool steep = std::abs(dy) > std::abs(dx);
  long long major = steep ? std::abs(dy) : std::abs(dx);
  long long minor = steep ? std::abs(dx) : std::abs(dy);
  if (major == 0) return;
  int majorStep = (steep ? dy : dx) < 0 ? -1 : 1;
  int minorStep = (steep ? dx : dy) < 0 ? -1 : 1;
  if (minor == 0 && m_dashes.empty()) {
    LONG first = majorStep > 0 ? 0 : static_cast<LONG>(1 - major);
    LONG last = majorStep > 0 ? static_cast<LONG>(major) : 1;
    RECT area = steep ? RECT{from.x, from.y + first, from.x + 1, from.y + last}
                      : RECT{from.x + first, from.y, from.x + last, from.y + 1};
    FillArea(m_dc, area, SolidPaint(m_word), m_rop);
    return;
  }
  // Only the steps whose major coordinate can be visible.
  RECT bounds = m_dc.Clip().Bounds();
  long long start = steep ? from.y : from.x;
  long long low = steep ? bounds.top : bounds.left;
  long long high = steep ? bounds.bottom : bounds.right;
  long long begin = std::max(0LL, majorStep > 0 ? low - start : start - high + 1);
  long long end = std::min(major, majorStep > 0 ? high - start : start - low + 1);
  long long tie = LeansOutward(dx, dy, steep) ? 0 : 1;
  Canvas canvas(m_dc);
  for (long long i = begin; canvas && i < end; ++i) {
    auto along = static_cast<int>(start + i * majorStep);
    auto aside = static_cast<int>((2 * i * minor + major - tie) / (2 * major)) * minorStep;
    bool on = DashAt(m_phase + i);
    if (steep) {
      Plot(canvas, from.x + aside, along, on);
    } else {
      Plot(canvas, along, from.y + aside, on);
    }
  }
  m_phase += major;
}

void Stroke::Wide(POINT from, POINT to) {
  int before = m_width / 2;
  auto disc = [&](POINT p) {
    RECT box{p.x - before, p.y - before, p.x - before + m_width, p.y - before + m_width};
    return RoundedRegion(box, m_width, m_width);
  };
  Region shape = disc(from);
  shape |= disc(to);
  if (from.x == to.x || from.y == to.y) {
    RECT box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)};
    if (from.y == to.y) {
      box.top -= before;
      box.bottom = box.top + m_width;
    } else {
      box.left -= before;
      box.right = box.left + m_width;
    }
    shape |= Region(box);
  } else {
    double length = std::hypot(to.x - from.x, to.y - from.y);
    double nx = -(to.y - from.y) / length * m_width / 2;
    double ny = (to.x - from.x) / length * m_width / 2;
    auto corner = [&](POINT p, int side) {
      return POINT{static_cast<LONG>(std::lround(p.x + side * nx)),
                   static_cast<LONG>(std::lround(p.y + side * ny))};
    };
    POINT quad[] = {corner(from, 1), corner(to, 1), corner(to, -1), corner(from, -1)};
    int count = 4;
    shape |= PolygonRegion(quad, &count, 1, WINDING);
  }
  FillArea(m_dc, shape, SolidPaint(m_word), m_rop);
}

void Stroke::Outline(const Region& region) {
  if (!m_draws) return;
  Region inside = region;
  for (int i = 0; i < m_width; ++i) {
    Region core = inside;
    for (POINT shift : {POINT{-1, 0}, POINT{1, 0}, POINT{0, -1}, POINT{0, 1}}) {
      Region moved = inside;
      moved.Offset(shift.x, shift.y);
      core &= moved;
    }
    inside = core;
  }
  Region edge = region;
  edge -= inside;
  FillArea(m_dc, edge, SolidPaint(m_word), m_rop);
}

}  // namespace desktop
