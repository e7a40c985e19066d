// The clip region of a DC: what the host adds to what the window lets through.
#include <utility>

#include "../world.h"
#include "device_context.h"

namespace desktop {
namespace {

int Complexity(const Region& region) {
  if (region.IsEmpty()) return NULLREGION;
  return region.IsRectangle() ? SIMPLEREGION : COMPLEXREGION;
}

int ClipChanged(DeviceContext& dc) {
  dc.ClipChanged();
  return Complexity(dc.Clip());
}

// What is visible, in device coordinates: the clip region of a DC that has none yet.
Region VisibleInDevice(const DeviceContext& dc) {
  Region visible = dc.Visible();
  visible.Offset(-dc.target.origin.x, -dc.target.origin.y);
  return visible;
}

void MaterializeClip(DeviceContext& dc) {
  if (dc.state.hasClip) return;
  dc.state.clip = VisibleInDevice(dc);
  dc.state.hasClip = true;
}

Region DeviceRectangle(const DeviceContext& dc, int left, int top, int right, int bottom) {
  if (left > right) std::swap(left, right);
  if (top > bottom) std::swap(top, bottom);
  POINT a = dc.ToDevice(left, top);
  POINT b = dc.ToDevice(right, bottom);
  return Region(RECT{a.x, a.y, b.x, b.y});
}

void Combine(Region& clip, const Region& other, int mode) {
  switch (mode) {
    case RGN_AND: clip &= other; break;
    case RGN_OR: clip |= other; break;
    case RGN_XOR: clip ^= other; break;
    case RGN_DIFF: clip -= other; break;
    default: clip = other; break;
  }
}

}  // namespace
}  // namespace desktop

using namespace desktop;

int WINAPI ExtSelectClipRgn(HDC handle, HRGN region, int mode) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || mode < RGN_MIN || mode > RGN_MAX) return ERROR;
  if (!region) {
    if (mode != RGN_COPY) return ERROR;
    dc->state.hasClip = false;
    dc->state.clip.Clear();
    return ClipChanged(*dc);
  }
  Region* other = RegionFromHandle(region);
  if (!other) return ERROR;
  if (mode != RGN_COPY) MaterializeClip(*dc);
  dc->state.hasClip = true;
  Combine(dc->state.clip, *other, mode);
  return ClipChanged(*dc);
}

int WINAPI SelectClipRgn(HDC dc, HRGN region) { return ExtSelectClipRgn(dc, region, RGN_COPY); }

int WINAPI IntersectClipRect(HDC handle, int left, int top, int right, int bottom) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return ERROR;
  Region rect = DeviceRectangle(*dc, left, top, right, bottom);
  if (dc->state.hasClip) {
    dc->state.clip &= rect;
  } else {
    dc->state.clip = rect;
    dc->state.hasClip = true;
  }
  return ClipChanged(*dc);
}

int WINAPI ExcludeClipRect(HDC handle, int left, int top, int right, int bottom) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return ERROR;
  MaterializeClip(*dc);
  dc->state.clip -= DeviceRectangle(*dc, left, top, right, bottom);
  return ClipChanged(*dc);
}

int WINAPI OffsetClipRgn(HDC handle, int dx, int dy) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return ERROR;
  if (dc->state.hasClip) dc->state.clip.Offset(dx, dy);
  return ClipChanged(*dc);
}

int WINAPI GetClipBox(HDC handle, LPRECT box) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !box) return ERROR;
  const Region& clip = dc->Clip();
  *box = {};
  if (clip.IsEmpty()) return NULLREGION;
  RECT bounds = clip.Bounds();
  POINT origin = dc->ToSurface(0, 0);
  *box = {bounds.left - origin.x, bounds.top - origin.y, bounds.right - origin.x, bounds.bottom - origin.y};
  return Complexity(clip);
}

int WINAPI GetClipRgn(HDC handle, HRGN region) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  Region* result = RegionFromHandle(region);
  if (!dc || !result) return -1;
  if (!dc->state.hasClip) return 0;
  *result = dc->state.clip;
  return 1;
}

int WINAPI GetRandomRgn(HDC handle, HRGN region, int code) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  Region* result = RegionFromHandle(region);
  if (!dc || !result) return -1;
  if (code != SYSRGN) return GetClipRgn(handle, region);
  POINT origin{};
  GetDCOrgEx(handle, &origin);
  *result = VisibleInDevice(*dc);
  result->Offset(origin.x, origin.y);
  return 1;
}

BOOL WINAPI PtVisible(HDC handle, int x, int y) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  POINT point = dc->ToSurface(x, y);
  return dc->Clip().Contains(point.x, point.y) ? TRUE : FALSE;
}

BOOL WINAPI RectVisible(HDC handle, const RECT* rect) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !rect) return FALSE;
  RECT area = dc->ToSurface(*rect);
  if (area.left > area.right) std::swap(area.left, area.right);
  if (area.top > area.bottom) std::swap(area.top, area.bottom);
  return dc->Clip().Intersects(area) ? TRUE : FALSE;
}
