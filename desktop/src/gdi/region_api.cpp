// Regions by handle.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "../world.h"
#include "bounded.h"
#include "object.h"
#include "shapes.h"

namespace desktop {
namespace {

// Larger coordinates are refused, as by the system.
constexpr LONG kMaxCoordinate = 1 << 27;

int Complexity(const Region& region) {
  if (region.IsEmpty()) return NULLREGION;
  return region.IsRectangle() ? SIMPLEREGION : COMPLEXREGION;
}

HRGN MakeRegion(Region region) {
  return static_cast<HRGN>(AddObject(std::make_unique<RegionObject>(std::move(region))));
}

RECT Normalized(int left, int top, int right, int bottom) {
  return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

bool InRange(const RECT& rect, long long dx, long long dy) {
  return rect.left + dx >= -kMaxCoordinate && rect.top + dy >= -kMaxCoordinate &&
         rect.right + dx < kMaxCoordinate && rect.bottom + dy < kMaxCoordinate;
}

}  // namespace
}  // namespace desktop

using namespace desktop;

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom) {
  WorldLock lock(WorldMutex());
  return MakeRegion(Region(Normalized(left, top, right, bottom)));
}

HRGN WINAPI CreateRectRgnIndirect(const RECT* rect) {
  return rect ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : nullptr;
}

HRGN WINAPI CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height) {
  WorldLock lock(WorldMutex());
  // The right and bottom edges of a round region are exclusive once more than those of the shape.
  RECT rect = Bounded(Normalized(left, top, right, bottom));
  --rect.right;
  --rect.bottom;
  return MakeRegion(RoundedRegion(rect, width, height));
}

HRGN WINAPI CreateEllipticRgn(int left, int top, int right, int bottom) {
  RECT rect = Bounded(Normalized(left, top, right, bottom));
  return CreateRoundRectRgn(left, top, right, bottom, rect.right - rect.left, rect.bottom - rect.top);
}

HRGN WINAPI CreateEllipticRgnIndirect(const RECT* rect) {
  return rect ? CreateEllipticRgn(rect->left, rect->top, rect->right, rect->bottom) : nullptr;
}

HRGN WINAPI CreatePolygonRgn(const POINT* points, int count, int mode) {
  WorldLock lock(WorldMutex());
  if (!points || count < 2 || (mode != ALTERNATE && mode != WINDING)) return nullptr;
  return MakeRegion(PolygonRegion(points, &count, 1, mode));
}

HRGN WINAPI ExtCreateRegion(const void* transform, DWORD size, const RGNDATA* data) {
  WorldLock lock(WorldMutex());
  if (transform || !data || size < sizeof(RGNDATAHEADER) || data->rdh.dwSize < sizeof(RGNDATAHEADER))
    return nullptr;
  DWORD count = data->rdh.nCount;
  if (data->rdh.iType != RDH_RECTANGLES || count > (size - sizeof(RGNDATAHEADER)) / sizeof(RECT))
    return nullptr;
  Region region;
  for (DWORD i = 0; i < count; ++i) {
    RECT rect;
    std::memcpy(&rect, data->Buffer + i * sizeof(RECT), sizeof(RECT));
    region |= Region(rect);
  }
  return MakeRegion(std::move(region));
}

int WINAPI CombineRgn(HRGN resultHandle, HRGN firstHandle, HRGN secondHandle, int mode) {
  WorldLock lock(WorldMutex());
  Region* result = RegionFromHandle(resultHandle);
  Region* first = RegionFromHandle(firstHandle);
  Region* second = mode == RGN_COPY ? first : RegionFromHandle(secondHandle);
  if (!result || !first || !second) return ERROR;
  Region combined = *first;
  switch (mode) {
    case RGN_AND: combined &= *second; break;
    case RGN_OR: combined |= *second; break;
    case RGN_XOR: combined ^= *second; break;
    case RGN_DIFF: combined -= *second; break;
    case RGN_COPY: break;
    default: return ERROR;
  }
  *result = std::move(combined);
  return Complexity(*result);
}

int WINAPI GetRgnBox(HRGN handle, LPRECT box) {
  WorldLock lock(WorldMutex());
  Region* region = RegionFromHandle(handle);
  if (!region || !box) return ERROR;
  *box = region->Bounds();
  return Complexity(*region);
}

int WINAPI OffsetRgn(HRGN handle, int dx, int dy) {
  WorldLock lock(WorldMutex());
  Region* region = RegionFromHandle(handle);
  if (!region || !InRange(region->Bounds(), dx, dy)) return ERROR;
  region->Offset(dx, dy);
  return Complexity(*region);
}

BOOL WINAPI SetRectRgn(HRGN handle, int left, int top, int right, int bottom) {
  WorldLock lock(WorldMutex());
  Region* region = RegionFromHandle(handle);
  if (!region) return FALSE;
  *region = Region(Normalized(left, top, right, bottom));
  return TRUE;
}

BOOL WINAPI EqualRgn(HRGN firstHandle, HRGN secondHandle) {
  WorldLock lock(WorldMutex());
  Region* first = RegionFromHandle(firstHandle);
  Region* second = RegionFromHandle(secondHandle);
  return first && second && *first == *second ? TRUE : FALSE;
}

BOOL WINAPI PtInRegion(HRGN handle, int x, int y) {
  WorldLock lock(WorldMutex());
  Region* region = RegionFromHandle(handle);
  return region && region->Contains(x, y) ? TRUE : FALSE;
}

BOOL WINAPI RectInRegion(HRGN handle, const RECT* rect) {
  WorldLock lock(WorldMutex());
  Region* region = RegionFromHandle(handle);
  if (!region || !rect) return FALSE;
  return region->Intersects(Normalized(rect->left, rect->top, rect->right, rect->bottom)) ? TRUE : FALSE;
}

DWORD WINAPI GetRegionData(HRGN handle, DWORD size, LPRGNDATA data) {
  WorldLock lock(WorldMutex());
  Region* region = RegionFromHandle(handle);
  if (!region) return 0;
  const std::vector<RECT>& rects = region->Rects();
  auto bytes = static_cast<DWORD>(rects.size() * sizeof(RECT));
  auto needed = static_cast<DWORD>(sizeof(RGNDATAHEADER)) + bytes;
  if (!data) return needed;
  if (size < needed) return 0;
  data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(rects.size()), bytes,
               region->Bounds()};
  if (bytes) std::memcpy(data->Buffer, rects.data(), bytes);
  return needed;
}
