// Device contexts: their birth and death, coordinates, what may be written, and selection.
#include "device_context.h"

#include <algorithm>
#include <utility>

#include "../world.h"

namespace desktop {
namespace {

// Far outside of any surface, and far from overflow when two are added.
constexpr long long kFar = 0x1fffffff;

int Clamp(long long value) { return static_cast<int>(std::clamp(value, -kFar, kFar)); }

void HoldAll(const DcState& state) {
  for (HGDIOBJ object :
       {HGDIOBJ(state.pen), HGDIOBJ(state.brush), HGDIOBJ(state.font), HGDIOBJ(state.bitmap)})
    HoldObject(object);
}

void LetAllGo(const DcState& state) {
  for (HGDIOBJ object :
       {HGDIOBJ(state.pen), HGDIOBJ(state.brush), HGDIOBJ(state.font), HGDIOBJ(state.bitmap)})
    LetObjectGo(object);
}

DcState DefaultState() {
  DcState state;
  state.pen = static_cast<HPEN>(GetStockObject(BLACK_PEN));
  state.brush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  state.font = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
  state.bitmap = DefaultBitmap();
  return state;
}

void ReleaseBitmap(HBITMAP handle) {
  if (Bitmap* bitmap = FindBitmap(handle)) bitmap->selectedInto = nullptr;
}

HGDIOBJ SelectBitmap(DeviceContext& dc, HBITMAP handle) {
  Bitmap* bitmap = FindBitmap(handle);
  if (dc.kind != DeviceContext::Kind::Memory) return nullptr;
  if (handle == dc.state.bitmap) return handle;
  if (!bitmap->isSection && bitmap->bitCount != 1 && bitmap->bitCount != 32) return nullptr;
  if (!bitmap->stock && bitmap->selectedInto) return nullptr;
  HBITMAP old = dc.state.bitmap;
  ReleaseBitmap(old);
  if (!bitmap->stock) bitmap->selectedInto = dc.handle;
  dc.state.bitmap = handle;
  Reselect(old, handle);
  dc.ClipChanged();
  return old;
}

template <typename Handle>
HGDIOBJ Exchange(Handle& slot, HGDIOBJ object) {
  HGDIOBJ old = slot;
  slot = static_cast<Handle>(object);
  Reselect(old, object);
  return old;
}

}  // namespace

HBITMAP DefaultBitmap() {
  static HBITMAP bitmap = [] {
    auto made = std::make_unique<Bitmap>(1, 1, 1);
    return static_cast<HBITMAP>(AddStockObject(std::move(made)));
  }();
  return bitmap;
}

void Reselect(HGDIOBJ oldObject, HGDIOBJ newObject) {
  HoldObject(newObject);
  LetObjectGo(oldObject);
}

HDC AddDC(std::unique_ptr<DeviceContext> dc) {
  DeviceContext& made = *dc;
  auto handle = static_cast<HDC>(AddObject(std::move(dc)));
  if (!handle) return nullptr;
  made.handle = handle;
  made.state = DefaultState();
  HoldAll(made.state);
  return handle;
}

void FreeDC(DeviceContext& dc) {
  ReleaseBitmap(dc.state.bitmap);
  LetAllGo(dc.state);
  for (const DcState& state : dc.saved) LetAllGo(state);
  FreeObject(dc.handle);
}

POINT DeviceContext::ToDevice(int x, int y) const {
  return {Clamp(static_cast<long long>(x) - state.windowOrigin.x + state.viewportOrigin.x),
          Clamp(static_cast<long long>(y) - state.windowOrigin.y + state.viewportOrigin.y)};
}

POINT DeviceContext::ToLogical(int x, int y) const {
  return {Clamp(static_cast<long long>(x) + state.windowOrigin.x - state.viewportOrigin.x),
          Clamp(static_cast<long long>(y) + state.windowOrigin.y - state.viewportOrigin.y)};
}

POINT DeviceContext::ToSurface(int x, int y) const {
  POINT device = ToDevice(x, y);
  return {Clamp(static_cast<long long>(device.x) + target.origin.x),
          Clamp(static_cast<long long>(device.y) + target.origin.y)};
}

RECT DeviceContext::ToSurface(const RECT& logical) const {
  POINT topLeft = ToSurface(logical.left, logical.top);
  POINT bottomRight = ToSurface(logical.right, logical.bottom);
  return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

bool DeviceContext::IsMono() const {
  if (kind != Kind::Memory) return false;
  Bitmap* bitmap = FindBitmap(state.bitmap);
  return bitmap && bitmap->IsMono();
}

SIZE DeviceContext::Extent() const {
  if (kind == Kind::Window) return target.extent;
  if (kind == Kind::Screen) return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  Bitmap* bitmap = FindBitmap(state.bitmap);
  return bitmap ? SIZE{bitmap->width, bitmap->height} : SIZE{};
}

Region DeviceContext::Visible() const {
  if (kind == Kind::Window) return target.visible;
  SIZE extent = Extent();
  return Region(RECT{0, 0, extent.cx, extent.cy});
}

const Region& DeviceContext::Clip() {
  if (m_clipValid) return m_clip;
  m_clip = Visible();
  if (state.hasClip) {
    Region own = state.clip;
    own.Offset(target.origin.x, target.origin.y);
    m_clip &= own;
  }
  m_clipValid = true;
  return m_clip;
}

Canvas::Canvas(DeviceContext& dc) {
  if (dc.kind == DeviceContext::Kind::Window) {
    m_surface = dc.target.surface;
    if (m_surface)
      m_pixels = {m_surface->pixels.data(), m_surface->width, m_surface->width, m_surface->height};
    return;
  }
  if (dc.kind != DeviceContext::Kind::Memory) return;
  m_bitmap = FindBitmap(dc.state.bitmap);
  if (m_bitmap) m_pixels = m_bitmap->View();
}

Canvas::~Canvas() {
  if (m_bitmap) m_bitmap->Written();
}

HDC CreateWindowDC(const DrawTarget& target, HWND window) {
  auto dc = std::make_unique<DeviceContext>(DeviceContext::Kind::Window);
  dc->target = target;
  dc->window = window;
  return AddDC(std::move(dc));
}

void RetargetWindowDC(HDC handle, const DrawTarget& target) {
  DeviceContext* dc = FindDC(handle);
  if (!dc || dc->kind != DeviceContext::Kind::Window) return;
  dc->target = target;
  dc->ClipChanged();
}

void ResetDC(HDC handle) {
  DeviceContext* dc = FindDC(handle);
  if (!dc) return;
  DcState fresh = DefaultState();
  HoldAll(fresh);
  ReleaseBitmap(dc->state.bitmap);
  LetAllGo(dc->state);
  for (const DcState& state : dc->saved) LetAllGo(state);
  dc->saved.clear();
  dc->state = std::move(fresh);
  dc->ClipChanged();
}

bool DestroyWindowDC(HDC handle) {
  DeviceContext* dc = FindDC(handle);
  if (!dc || dc->kind != DeviceContext::Kind::Window) return false;
  FreeDC(*dc);
  return true;
}

}  // namespace desktop

using namespace desktop;

HDC WINAPI CreateCompatibleDC(HDC reference) {
  WorldLock lock(WorldMutex());
  if (reference && !FindDC(reference)) return nullptr;
  return AddDC(std::make_unique<DeviceContext>(DeviceContext::Kind::Memory));
}

HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR, const tagDEVMODEW*) {
  WorldLock lock(WorldMutex());
  const wchar_t* name = driver ? driver : device;
  if (!name || wcscasecmp(name, L"DISPLAY") != 0) return nullptr;
  return AddDC(std::make_unique<DeviceContext>(DeviceContext::Kind::Screen));
}

HDC WINAPI CreateICW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const tagDEVMODEW* mode) {
  return CreateDCW(driver, device, port, mode);
}

BOOL WINAPI DeleteDC(HDC handle) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  // A window's DC goes back by ReleaseDC, which knows whose it is.
  if (dc->kind == DeviceContext::Kind::Window) return ReleaseDC(dc->window, handle) ? TRUE : FALSE;
  FreeDC(*dc);
  return TRUE;
}

int WINAPI SaveDC(HDC handle) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return 0;
  HoldAll(dc->state);
  dc->saved.push_back(dc->state);
  return static_cast<int>(dc->saved.size());
}

BOOL WINAPI RestoreDC(HDC handle, int level) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  int depth = static_cast<int>(dc->saved.size());
  if (level < 0) level = depth + 1 + level;
  if (level < 1 || level > depth) return FALSE;
  DcState state = dc->saved[static_cast<size_t>(level - 1)];
  HoldAll(state);
  while (static_cast<int>(dc->saved.size()) >= level) {
    LetAllGo(dc->saved.back());
    dc->saved.pop_back();
  }
  ReleaseBitmap(dc->state.bitmap);
  LetAllGo(dc->state);
  dc->state = std::move(state);
  if (Bitmap* bitmap = FindBitmap(dc->state.bitmap); bitmap && !bitmap->stock) bitmap->selectedInto = handle;
  dc->ClipChanged();
  return TRUE;
}

HWND WINAPI WindowFromDC(HDC handle) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  return dc ? dc->window : nullptr;
}

HGDIOBJ WINAPI SelectObject(HDC handle, HGDIOBJ object) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  GdiObject* selected = FindObject(object);
  if (!dc || !selected) return nullptr;
  switch (selected->type) {
    case OBJ_PEN:
    case OBJ_EXTPEN: return Exchange(dc->state.pen, object);
    case OBJ_BRUSH: return Exchange(dc->state.brush, object);
    case OBJ_FONT: return Exchange(dc->state.font, object);
    case OBJ_BITMAP: return SelectBitmap(*dc, static_cast<HBITMAP>(object));
    case OBJ_REGION: {
      auto complexity = static_cast<uintptr_t>(SelectClipRgn(handle, static_cast<HRGN>(object)));
      return reinterpret_cast<HGDIOBJ>(complexity);
    }
    default: return nullptr;
  }
}

HGDIOBJ WINAPI GetCurrentObject(HDC handle, UINT type) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return nullptr;
  switch (type) {
    case OBJ_PEN:
    case OBJ_EXTPEN: return dc->state.pen;
    case OBJ_BRUSH: return dc->state.brush;
    case OBJ_FONT: return dc->state.font;
    case OBJ_BITMAP: return dc->state.bitmap;
    default: return nullptr;
  }
}
