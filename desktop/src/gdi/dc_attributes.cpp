// The attributes of a DC. A setter returns the old value.
#include <utility>

#include "../world.h"
#include "device_context.h"

namespace desktop {
namespace {

template <typename Value>
Value Set(HDC handle, Value DcState::*field, Value value, Value failure) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  return dc ? std::exchange(dc->state.*field, value) : failure;
}

template <typename Value>
Value Get(HDC handle, Value DcState::*field, Value failure) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  return dc ? dc->state.*field : failure;
}

// A mode among first..last; anything else changes nothing and gives 0.
int SetMode(HDC handle, int DcState::*field, int mode, int first, int last) {
  return mode >= first && mode <= last ? Set(handle, field, mode, 0) : 0;
}

BOOL SetPoint(HDC handle, POINT DcState::*field, POINT value, LPPOINT old) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  POINT before = std::exchange(dc->state.*field, value);
  if (old) *old = before;
  return TRUE;
}

BOOL GetPoint(HDC handle, POINT DcState::*field, LPPOINT result) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !result) return FALSE;
  *result = dc->state.*field;
  return TRUE;
}

BOOL OffsetPoint(HDC handle, POINT DcState::*field, int dx, int dy, LPPOINT old) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  POINT& point = dc->state.*field;
  if (old) *old = point;
  // Wraps like the system's arithmetic; unsigned, so that it is defined.
  point.x = static_cast<LONG>(static_cast<DWORD>(point.x) + static_cast<DWORD>(dx));
  point.y = static_cast<LONG>(static_cast<DWORD>(point.y) + static_cast<DWORD>(dy));
  return TRUE;
}

// With MM_TEXT the extents are 1 and cannot be changed; setting them succeeds without effect.
BOOL UnitExtent(HDC handle, LPSIZE extent, bool required) {
  WorldLock lock(WorldMutex());
  if (!FindDC(handle) || (required && !extent)) return FALSE;
  if (extent) *extent = {1, 1};
  return TRUE;
}

// Palette-relative colours have nothing to be relative to here.
COLORREF PlainColor(COLORREF color) { return color & 0xffffff; }

}  // namespace
}  // namespace desktop

using namespace desktop;

COLORREF WINAPI SetTextColor(HDC dc, COLORREF color) {
  return Set(dc, &DcState::textColor, PlainColor(color), CLR_INVALID);
}
COLORREF WINAPI GetTextColor(HDC dc) { return Get(dc, &DcState::textColor, CLR_INVALID); }
COLORREF WINAPI SetBkColor(HDC dc, COLORREF color) {
  return Set(dc, &DcState::bkColor, PlainColor(color), CLR_INVALID);
}
COLORREF WINAPI GetBkColor(HDC dc) { return Get(dc, &DcState::bkColor, CLR_INVALID); }
COLORREF WINAPI SetDCBrushColor(HDC dc, COLORREF color) {
  return Set(dc, &DcState::brushColor, PlainColor(color), CLR_INVALID);
}
COLORREF WINAPI GetDCBrushColor(HDC dc) { return Get(dc, &DcState::brushColor, CLR_INVALID); }
COLORREF WINAPI SetDCPenColor(HDC dc, COLORREF color) {
  return Set(dc, &DcState::penColor, PlainColor(color), CLR_INVALID);
}
COLORREF WINAPI GetDCPenColor(HDC dc) { return Get(dc, &DcState::penColor, CLR_INVALID); }

int WINAPI SetBkMode(HDC dc, int mode) { return SetMode(dc, &DcState::bkMode, mode, TRANSPARENT, OPAQUE); }
int WINAPI GetBkMode(HDC dc) { return Get(dc, &DcState::bkMode, 0); }
UINT WINAPI SetTextAlign(HDC dc, UINT align) { return Set(dc, &DcState::textAlign, align, GDI_ERROR); }
UINT WINAPI GetTextAlign(HDC dc) { return Get(dc, &DcState::textAlign, GDI_ERROR); }
int WINAPI SetTextCharacterExtra(HDC dc, int extra) {
  return Set(dc, &DcState::charExtra, extra, static_cast<int>(0x80000000u));
}
int WINAPI GetTextCharacterExtra(HDC dc) {
  return Get(dc, &DcState::charExtra, static_cast<int>(0x80000000u));
}
int WINAPI SetROP2(HDC dc, int rop) { return SetMode(dc, &DcState::rop2, rop, R2_BLACK, R2_WHITE); }
int WINAPI GetROP2(HDC dc) { return Get(dc, &DcState::rop2, 0); }
int WINAPI SetPolyFillMode(HDC dc, int mode) {
  return SetMode(dc, &DcState::polyFillMode, mode, ALTERNATE, WINDING);
}
int WINAPI GetPolyFillMode(HDC dc) { return Get(dc, &DcState::polyFillMode, 0); }
int WINAPI SetStretchBltMode(HDC dc, int mode) {
  return SetMode(dc, &DcState::stretchMode, mode, BLACKONWHITE, MAXSTRETCHBLTMODE);
}
int WINAPI GetStretchBltMode(HDC dc) { return Get(dc, &DcState::stretchMode, 0); }
int WINAPI SetArcDirection(HDC dc, int direction) {
  return SetMode(dc, &DcState::arcDirection, direction, AD_COUNTERCLOCKWISE, AD_CLOCKWISE);
}
int WINAPI GetArcDirection(HDC dc) { return Get(dc, &DcState::arcDirection, 0); }
DWORD WINAPI SetLayout(HDC dc, DWORD layout) { return Set(dc, &DcState::layout, layout, GDI_ERROR); }
DWORD WINAPI GetLayout(HDC dc) { return Get(dc, &DcState::layout, GDI_ERROR); }

int WINAPI SetMapMode(HDC handle, int mode) {
  WorldLock lock(WorldMutex());
  return FindDC(handle) && mode == MM_TEXT ? MM_TEXT : 0;
}

int WINAPI GetMapMode(HDC handle) {
  WorldLock lock(WorldMutex());
  return FindDC(handle) ? MM_TEXT : 0;
}

BOOL WINAPI SetBrushOrgEx(HDC dc, int x, int y, LPPOINT old) {
  return SetPoint(dc, &DcState::brushOrigin, {x, y}, old);
}
BOOL WINAPI GetBrushOrgEx(HDC dc, LPPOINT origin) { return GetPoint(dc, &DcState::brushOrigin, origin); }
BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT old) {
  return SetPoint(dc, &DcState::viewportOrigin, {x, y}, old);
}
BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT origin) {
  return GetPoint(dc, &DcState::viewportOrigin, origin);
}
BOOL WINAPI OffsetViewportOrgEx(HDC dc, int x, int y, LPPOINT old) {
  return OffsetPoint(dc, &DcState::viewportOrigin, x, y, old);
}
BOOL WINAPI SetWindowOrgEx(HDC dc, int x, int y, LPPOINT old) {
  return SetPoint(dc, &DcState::windowOrigin, {x, y}, old);
}
BOOL WINAPI GetWindowOrgEx(HDC dc, LPPOINT origin) { return GetPoint(dc, &DcState::windowOrigin, origin); }
BOOL WINAPI OffsetWindowOrgEx(HDC dc, int x, int y, LPPOINT old) {
  return OffsetPoint(dc, &DcState::windowOrigin, x, y, old);
}
BOOL WINAPI SetViewportExtEx(HDC dc, int, int, LPSIZE old) { return UnitExtent(dc, old, false); }
BOOL WINAPI GetViewportExtEx(HDC dc, LPSIZE extent) { return UnitExtent(dc, extent, true); }
BOOL WINAPI SetWindowExtEx(HDC dc, int, int, LPSIZE old) { return UnitExtent(dc, old, false); }
BOOL WINAPI GetWindowExtEx(HDC dc, LPSIZE extent) { return UnitExtent(dc, extent, true); }

BOOL WINAPI GetDCOrgEx(HDC handle, LPPOINT origin) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !origin) return FALSE;
  *origin = {};
  if (dc->kind == DeviceContext::Kind::Window && dc->window) {
    // The surface is that of the top-level window, which starts at that window's corner.
    RECT frame{};
    HWND top = GetAncestor(dc->window, GA_ROOT);
    if (GetWindowRect(top ? top : dc->window, &frame)) *origin = {frame.left, frame.top};
    origin->x += dc->target.origin.x;
    origin->y += dc->target.origin.y;
  }
  return TRUE;
}

BOOL WINAPI DPtoLP(HDC handle, LPPOINT points, int count) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || (count > 0 && !points)) return FALSE;
  for (int i = 0; i < count; ++i) points[i] = dc->ToLogical(points[i].x, points[i].y);
  return TRUE;
}

BOOL WINAPI LPtoDP(HDC handle, LPPOINT points, int count) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || (count > 0 && !points)) return FALSE;
  for (int i = 0; i < count; ++i) points[i] = dc->ToDevice(points[i].x, points[i].y);
  return TRUE;
}

BOOL WINAPI MoveToEx(HDC dc, int x, int y, LPPOINT old) {
  return SetPoint(dc, &DcState::position, {x, y}, old);
}
BOOL WINAPI GetCurrentPositionEx(HDC dc, LPPOINT position) {
  return GetPoint(dc, &DcState::position, position);
}

COLORREF WINAPI GetNearestColor(HDC handle, COLORREF color) {
  WorldLock lock(WorldMutex());
  return FindDC(handle) ? PlainColor(color) : CLR_INVALID;
}

int WINAPI GetDeviceCaps(HDC handle, int index) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return 0;
  constexpr int kDotsPerInch = 96;
  int width = GetSystemMetrics(SM_CXSCREEN);
  int height = GetSystemMetrics(SM_CYSCREEN);
  auto millimetres = [](int pixels) { return (pixels * 254 + kDotsPerInch * 5) / (kDotsPerInch * 10); };
  switch (index) {
    case TECHNOLOGY: return DT_RASDISPLAY;
    case HORZSIZE: return millimetres(width);
    case VERTSIZE: return millimetres(height);
    case HORZRES:
    case DESKTOPHORZRES: return width;
    case VERTRES:
    case DESKTOPVERTRES: return height;
    case BITSPIXEL: return 32;
    case PLANES: return 1;
    case NUMBRUSHES:
    case NUMPENS:
    case NUMCOLORS: return -1;
    case RASTERCAPS: return 0xbe99;  // blits, bitmaps, DIBs, stretching, flood fill; no palette
    case CURVECAPS: return 0x1ff;
    case LINECAPS: return 0xfe;
    case POLYGONALCAPS: return 0xff;
    case TEXTCAPS: return 0x79f7;
    case CLIPCAPS: return 1;
    case ASPECTX:
    case ASPECTY: return 36;
    case ASPECTXY: return 51;
    case LOGPIXELSX:
    case LOGPIXELSY: return kDotsPerInch;
    case COLORRES: return 24;
    case NUMRESERVED: return 20;
    case DRIVERVERSION: return 0x4000;
    default: return 0;
  }
}

BOOL WINAPI CancelDC(HDC handle) {
  WorldLock lock(WorldMutex());
  return FindDC(handle) ? TRUE : FALSE;
}

BOOL WINAPI GdiFlush() { return TRUE; }
DWORD WINAPI GdiSetBatchLimit(DWORD) { return 1; }
