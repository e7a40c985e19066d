#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "bounded.h"

namespace desktop {
namespace {

// How far the edge of a quarter ellipse stands in from its bounding box, on the row at `row` (0 is the
// outermost).
int CornerInset(int row, int width, int height) {
  double a = width / 2.0;
  double b = height / 2.0;
  double y = b - (row + 0.5);
  if (y <= 0) return 0;
  // A pixel belongs to the shape when clearly more than half of it does.
  constexpr double kBias = 0.7;
  return static_cast<int>(a - a * std::sqrt(std::max(0.0, 1 - y * y / (b * b))) + kBias);
}

struct Crossing {
  LONG x;
  int winding;
};

long long FloorDivide(long long a, long long b) { return a / b - (a % b != 0 && (a < 0) != (b < 0) ? 1 : 0); }

void AddCrossing(const POINT& from, const POINT& to, LONG y, std::vector<Crossing>& crossings) {
  if (from.y == to.y) return;
  bool down = from.y < to.y;
  const POINT& top = down ? from : to;
  const POINT& bottom = down ? to : from;
  if (y < top.y || y >= bottom.y) return;
  long long rise = static_cast<long long>(bottom.y) - top.y;
  long long run = static_cast<long long>(bottom.x) - top.x;
  // Rounded up: a pixel is inside from the first whole position at or right of the edge.
  long long x = top.x - FloorDivide(-run * (y - top.y), rise);
  crossings.push_back({static_cast<LONG>(x), down ? 1 : -1});
}

void AddSpans(const std::vector<Crossing>& crossings, LONG y, int mode, std::vector<RECT>& rows) {
  int winding = 0;
  for (size_t i = 0; i + 1 < crossings.size(); ++i) {
    winding += mode == WINDING ? crossings[i].winding : 1;
    bool inside = mode == WINDING ? winding != 0 : winding % 2 != 0;
    if (inside) rows.push_back({crossings[i].x, y, crossings[i + 1].x, y + 1});
  }
}

}  // namespace

Region RoundedRegion(const RECT& rect, int width, int height) {
  // No surface shows more of a curve than this.
  constexpr int kMostCurved = 0xffff;
  width = std::min(std::abs(Bounded(width)), rect.right - rect.left);
  height = std::min({std::abs(Bounded(height)), rect.bottom - rect.top, kMostCurved});
  if (width < 2 || height < 2) return Region(rect);
  int curved = height / 2;
  std::vector<RECT> upper;
  std::vector<RECT> lower;
  for (int row = 0; row < curved; ++row) {
    int inset = CornerInset(row, width, height);
    upper.push_back({rect.left + inset, rect.top + row, rect.right - inset, rect.top + row + 1});
    lower.push_back({rect.left + inset, rect.bottom - 1 - row, rect.right - inset, rect.bottom - row});
  }
  std::reverse(lower.begin(), lower.end());
  Region region = Region::FromRows(upper);
  region |= Region(RECT{rect.left, rect.top + curved, rect.right, rect.bottom - curved});
  region |= Region::FromRows(lower);
  return region;
}

Region PolygonRegion(const POINT* points, const int* counts, int polygons, int mode) {
  constexpr LONG kFar = 0x7fff;
  size_t total = 0;
  for (int i = 0; i < polygons; ++i) total += static_cast<size_t>(counts[i]);
  if (total == 0) return {};
  auto [low, high] =
      std::minmax_element(points, points + total, [](const POINT& a, const POINT& b) { return a.y < b.y; });
  LONG top = std::max(low->y, -kFar);
  LONG bottom = std::min(high->y, kFar);
  std::vector<Crossing> crossings;
  std::vector<RECT> rows;
  for (LONG y = top; y < bottom; ++y) {
    crossings.clear();
    const POINT* first = points;
    for (int i = 0; i < polygons; ++i) {
      auto count = static_cast<size_t>(counts[i]);
      for (size_t k = 0; k < count; ++k) AddCrossing(first[k], first[(k + 1) % count], y, crossings);
      first += count;
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    AddSpans(crossings, y, mode, rows);
  }
  return Region::FromRows(rows);
}

}  // namespace desktop
