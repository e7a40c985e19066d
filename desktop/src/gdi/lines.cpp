// Pixels, lines and filled shapes.
#include <algorithm>
#include <cmath>
#include <vector>

#include "../world.h"
#include "dib.h"
#include "paint.h"
#include "shapes.h"
#include "stroke.h"

namespace desktop {
namespace {

std::vector<POINT> SurfacePoints(const DeviceContext& dc, const POINT* points, size_t count) {
  std::vector<POINT> result;
  result.reserve(count);
  for (size_t i = 0; i < count; ++i) result.push_back(dc.ToSurface(points[i].x, points[i].y));
  return result;
}

void DrawPolyline(Stroke& stroke, const std::vector<POINT>& points, bool closed) {
  for (size_t i = 1; i < points.size(); ++i) stroke.Line(points[i - 1], points[i]);
  if (closed && points.size() > 1) stroke.Line(points.back(), points.front());
}

// The box of a shape on the surface, ordered.
RECT ShapeBox(const DeviceContext& dc, int left, int top, int right, int bottom) {
  RECT box = dc.ToSurface(RECT{left, top, right, bottom});
  if (box.left > box.right) std::swap(box.left, box.right);
  if (box.top > box.bottom) std::swap(box.top, box.bottom);
  return box;
}

void DrawRounded(DeviceContext& dc, const RECT& box, int width, int height) {
  Stroke stroke(dc);
  Region shape = RoundedRegion(box, width, height);
  FillArea(dc, shape, BrushPaint(dc, dc.state.brush), TernaryFromRop2(dc.state.rop2));
  stroke.Outline(shape);
}

}  // namespace
}  // namespace desktop

using namespace desktop;

BOOL WINAPI SetPixelV(HDC handle, int x, int y, COLORREF color) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  POINT point = dc->ToSurface(x, y);
  if (!dc->Clip().Contains(point.x, point.y)) return TRUE;
  Canvas canvas(*dc);
  if (!canvas) return TRUE;
  CountWrite(dc->target.surface.get(), {point.x, point.y, point.x + 1, point.y + 1});
  canvas.Pixels().row(point.y)[point.x] = ColorWord(*dc, color);
  return TRUE;
}

COLORREF WINAPI SetPixel(HDC handle, int x, int y, COLORREF color) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return CLR_INVALID;
  SetPixelV(handle, x, y, color);
  return ToColor(ColorWord(*dc, color));
}

COLORREF WINAPI GetPixel(HDC handle, int x, int y) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return CLR_INVALID;
  POINT point = dc->ToSurface(x, y);
  if (!dc->Clip().Contains(point.x, point.y)) return CLR_INVALID;
  Canvas canvas(*dc);
  canvas.ReadOnly();
  return canvas ? ToColor(canvas.Pixels().row(point.y)[point.x] & 0xffffff) : CLR_INVALID;
}

BOOL WINAPI LineTo(HDC handle, int x, int y) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  POINT from = dc->ToSurface(dc->state.position.x, dc->state.position.y);
  Stroke(*dc).Line(from, dc->ToSurface(x, y));
  dc->state.position = {x, y};
  return TRUE;
}

BOOL WINAPI Polyline(HDC handle, const POINT* points, int count) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !points || count < 2) return FALSE;
  Stroke stroke(*dc);
  DrawPolyline(stroke, SurfacePoints(*dc, points, static_cast<size_t>(count)), false);
  return TRUE;
}

BOOL WINAPI PolylineTo(HDC handle, const POINT* points, DWORD count) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !points || count < 1) return FALSE;
  std::vector<POINT> all{dc->state.position};
  all.insert(all.end(), points, points + count);
  Stroke stroke(*dc);
  DrawPolyline(stroke, SurfacePoints(*dc, all.data(), all.size()), false);
  dc->state.position = all.back();
  return TRUE;
}

BOOL WINAPI PolyPolyline(HDC handle, const POINT* points, const DWORD* counts, DWORD polylines) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !points || !counts || polylines < 1) return FALSE;
  if (std::any_of(counts, counts + polylines, [](DWORD count) { return count < 2; })) return FALSE;
  for (DWORD i = 0; i < polylines; ++i) {
    Stroke stroke(*dc);
    DrawPolyline(stroke, SurfacePoints(*dc, points, counts[i]), false);
    points += counts[i];
  }
  return TRUE;
}

BOOL WINAPI PolyPolygon(HDC handle, const POINT* points, const int* counts, int polygons) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !points || !counts || polygons < 1) return FALSE;
  if (std::any_of(counts, counts + polygons, [](int count) { return count < 2; })) return FALSE;
  size_t total = 0;
  for (int i = 0; i < polygons; ++i) total += static_cast<size_t>(counts[i]);
  std::vector<POINT> all = SurfacePoints(*dc, points, total);
  Region inside = PolygonRegion(all.data(), counts, polygons, dc->state.polyFillMode);
  FillArea(*dc, inside, BrushPaint(*dc, dc->state.brush), TernaryFromRop2(dc->state.rop2));
  auto first = all.begin();
  for (int i = 0; i < polygons; ++i) {
    Stroke stroke(*dc);
    DrawPolyline(stroke, std::vector<POINT>(first, first + counts[i]), true);
    first += counts[i];
  }
  return TRUE;
}

BOOL WINAPI Polygon(HDC dc, const POINT* points, int count) { return PolyPolygon(dc, points, &count, 1); }

BOOL WINAPI Rectangle(HDC handle, int left, int top, int right, int bottom) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  RECT box = ShapeBox(*dc, left, top, right, bottom);
  if (box.left == box.right || box.top == box.bottom) return TRUE;
  Stroke stroke(*dc);
  Paint paint = BrushPaint(*dc, dc->state.brush);
  BYTE rop = TernaryFromRop2(dc->state.rop2);
  --box.right;
  --box.bottom;
  if (!stroke.Draws()) {
    FillArea(*dc, box, paint, rop);
    return TRUE;
  }
  int inner = 1;
  if (stroke.IsInsideFrame()) {
    int half = stroke.Width() / 2;
    box = {box.left + half, box.top + half, box.right - (stroke.Width() - 1) / 2,
           box.bottom - (stroke.Width() - 1) / 2};
  }
  RECT inside{box.left + inner, box.top + inner, box.right, box.bottom};
  FillArea(*dc, inside, paint, rop);
  DrawPolyline(stroke,
               {{box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}},
               true);
  return TRUE;
}

BOOL WINAPI RoundRect(HDC handle, int left, int top, int right, int bottom, int width, int height) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  if (width == 0 || height == 0) return Rectangle(handle, left, top, right, bottom);
  DrawRounded(*dc, ShapeBox(*dc, left, top, right, bottom), width, height);
  return TRUE;
}

BOOL WINAPI Ellipse(HDC handle, int left, int top, int right, int bottom) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  RECT box = ShapeBox(*dc, left, top, right, bottom);
  DrawRounded(*dc, box, box.right - box.left, box.bottom - box.top);
  return TRUE;
}

BOOL WINAPI Arc(HDC handle, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  RECT box = ShapeBox(*dc, left, top, right, bottom);
  double cx = (box.left + box.right - 1) / 2.0;
  double cy = (box.top + box.bottom - 1) / 2.0;
  double a = (box.right - box.left - 1) / 2.0;
  double b = (box.bottom - box.top - 1) / 2.0;
  if (a <= 0 || b <= 0) return TRUE;
  POINT start = dc->ToSurface(x1, y1);
  POINT end = dc->ToSurface(x2, y2);
  // Angles grow counterclockwise: the vertical axis of the surface points down.
  constexpr double kTurn = 6.283185307179586;
  double from = std::atan2((cy - start.y) / b, (start.x - cx) / a);
  double to = std::atan2((cy - end.y) / b, (end.x - cx) / a);
  if (dc->state.arcDirection == AD_CLOCKWISE) std::swap(from, to);
  if (to <= from) to += kTurn;
  int steps = std::clamp(static_cast<int>((a + b) * (to - from)), 8, 20000);
  std::vector<POINT> points;
  for (int i = 0; i <= steps; ++i) {
    double angle = from + (to - from) * i / steps;
    POINT point{static_cast<LONG>(std::lround(cx + a * std::cos(angle))),
                static_cast<LONG>(std::lround(cy - b * std::sin(angle)))};
    if (points.empty() || points.back().x != point.x || points.back().y != point.y) points.push_back(point);
  }
  Stroke stroke(*dc);
  DrawPolyline(stroke, points, false);
  return TRUE;
}

BOOL WINAPI LineDDA(int x1, int y1, int x2, int y2, LINEDDAPROC proc, LPARAM data) {
  if (!proc) return FALSE;
  long long dx = std::llabs(static_cast<long long>(x2) - x1);
  long long dy = std::llabs(static_cast<long long>(y2) - y1);
  long long major = std::max(dx, dy);
  int stepX = x2 < x1 ? -1 : 1;
  int stepY = y2 < y1 ? -1 : 1;
  for (long long i = 0; i < major; ++i) {
    auto x = static_cast<int>((2 * i * dx + major) / (2 * major));
    auto y = static_cast<int>((2 * i * dy + major) / (2 * major));
    proc(x1 + stepX * x, y1 + stepY * y, data);
  }
  return TRUE;
}
