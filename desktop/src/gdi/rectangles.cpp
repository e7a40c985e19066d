// Filled, framed and inverted rectangles and regions.
#include <algorithm>
#include <utility>

#include "../world.h"
#include "bounded.h"
#include "paint.h"

namespace desktop {
namespace {

constexpr BYTE kPatternCopy = 0xf0;
constexpr BYTE kInvert = 0x55;
constexpr BYTE kPatternInvert = 0x5a;

Region RegionOnSurface(const DeviceContext& dc, const Region& region) {
  POINT origin = dc.ToSurface(0, 0);
  Region result = region;
  result.Offset(origin.x, origin.y);
  return result;
}

BOOL FillHandle(HDC handle, HRGN regionHandle, HBRUSH brush, BYTE rop) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  Region* region = RegionFromHandle(regionHandle);
  if (!dc || !region) return FALSE;
  FillArea(*dc, RegionOnSurface(*dc, *region), BrushPaint(*dc, brush), rop);
  return TRUE;
}

}  // namespace
}  // namespace desktop

using namespace desktop;

int WINAPI FillRect(HDC handle, const RECT* rect, HBRUSH brush) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !rect || !FindBrush(ResolveBrush(brush))) return 0;
  FillArea(*dc, dc->ToSurface(*rect), BrushPaint(*dc, brush), kPatternCopy);
  return 1;
}

int WINAPI FrameRect(HDC handle, const RECT* rect, HBRUSH brush) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !rect || !FindBrush(ResolveBrush(brush))) return 0;
  RECT r = dc->ToSurface(*rect);
  if (r.right <= r.left || r.bottom <= r.top) return 0;
  Region frame(r);
  frame -= Region(RECT{r.left + 1, r.top + 1, r.right - 1, r.bottom - 1});
  FillArea(*dc, frame, BrushPaint(*dc, brush), kPatternCopy);
  return 1;
}

BOOL WINAPI InvertRect(HDC handle, const RECT* rect) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !rect) return FALSE;
  FillArea(*dc, dc->ToSurface(*rect), Paint(), kInvert);
  return TRUE;
}

BOOL WINAPI DrawFocusRect(HDC handle, const RECT* rect) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !rect) return FALSE;
  RECT r = dc->ToSurface(*rect);
  if (r.left > r.right) std::swap(r.left, r.right);
  if (r.top > r.bottom) std::swap(r.top, r.bottom);
  Region frame(r);
  frame -= Region(RECT{r.left + 1, r.top + 1, r.right - 1, r.bottom - 1});
  // Every second pixel is inverted, so that drawing twice restores what was there.
  Paint dots;
  dots.width = dots.height = 2;
  dots.words = {0, 0xffffff, 0xffffff, 0};
  dots.origin = {r.left + 1, r.top};
  FillArea(*dc, frame, dots, kPatternInvert);
  return TRUE;
}

BOOL WINAPI FillRgn(HDC dc, HRGN region, HBRUSH brush) { return FillHandle(dc, region, brush, kPatternCopy); }

BOOL WINAPI PaintRgn(HDC handle, HRGN region) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  return dc ? FillHandle(handle, region, dc->state.brush, kPatternCopy) : FALSE;
}

BOOL WINAPI InvertRgn(HDC dc, HRGN region) { return FillHandle(dc, region, nullptr, kInvert); }

BOOL WINAPI FrameRgn(HDC handle, HRGN regionHandle, HBRUSH brush, int width, int height) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  Region* region = RegionFromHandle(regionHandle);
  if (!dc || !region || width <= 0 || height <= 0) return FALSE;
  width = Bounded(width);
  height = Bounded(height);
  Region core = *region;
  for (POINT shift : {POINT{-width, 0}, POINT{width, 0}, POINT{0, -height}, POINT{0, height}}) {
    Region moved = *region;
    moved.Offset(shift.x, shift.y);
    core &= moved;
  }
  Region frame = *region;
  frame -= core;
  FillArea(*dc, RegionOnSurface(*dc, frame), BrushPaint(*dc, brush), kPatternCopy);
  return TRUE;
}
