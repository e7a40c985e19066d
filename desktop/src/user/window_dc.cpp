// DCs of windows: what they may draw on, and who has one.
#include <algorithm>

#include "gdi/write_count.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

struct OutDC {
  HDC dc;
  HWND window;
  DWORD flags;
  std::shared_ptr<Region> clip;  // in window coordinates
  bool exclude;
  bool lasting;  // of CS_OWNDC or CS_CLASSDC: not freed by ReleaseDC
};

std::vector<OutDC>& OutDCs() {
  static auto& table = *new std::vector<OutDC>;
  return table;
}

RECT WholeOf(const Window* window) { return {0, 0, window->Width(), window->Height()}; }

// Takes what lies above `last` (all children without it) out of a region in the parent's client coordinates.
void ClipSiblings(Region& region, const Window* parent, const Window* last) {
  for (const Window* child = parent->firstChild; child && child != last; child = child->below) {
    if (!(child->style & WS_VISIBLE) || (child->exStyle & WS_EX_TRANSPARENT)) continue;
    if (!region.Intersects(child->rect)) continue;
    if (!child->shape) {
      region -= Region(child->rect);
      continue;
    }
    Region shape = *child->shape;
    shape.Offset(child->rect.left, child->rect.top);
    shape &= Region(child->rect);
    region -= shape;
  }
}

DrawTarget TargetOf(const OutDC& out) {
  DrawTarget target;
  Window* window = FromHandle(out.window);
  POINT origin;
  target.surface = SurfaceOf(window, &origin);
  const RECT client = ClientInWindow(window);
  const bool whole = out.flags & DCX_WINDOW;
  target.origin = whole ? origin : POINT{origin.x + client.left, origin.y + client.top};
  target.extent = whole ? SIZE{window->Width(), window->Height()}
                        : SIZE{client.right - client.left, client.bottom - client.top};
  target.visible = VisibleRegion(window, out.flags | DCX_WINDOW);
  if (!whole) target.visible &= Region(client);
  if (out.clip && out.exclude) target.visible -= *out.clip;
  if (out.clip && !out.exclude) target.visible &= *out.clip;
  target.visible.Offset(origin.x, origin.y);
  target.visible &= Region(RECT{0, 0, target.surface->width, target.surface->height});
  return target;
}

DWORD FlagsFromStyle(const Window* window, DWORD flags) {
  if (!(flags & DCX_USESTYLE)) return flags;
  flags &= ~(DCX_CLIPCHILDREN | DCX_CLIPSIBLINGS | DCX_PARENTCLIP);
  if (window->style & WS_CLIPSIBLINGS) flags |= DCX_CLIPSIBLINGS;
  if (!(flags & DCX_WINDOW)) {
    if (window->cls->style & CS_PARENTDC) flags |= DCX_PARENTCLIP;
    if ((window->style & WS_CLIPCHILDREN) && !(window->style & WS_MINIMIZE)) flags |= DCX_CLIPCHILDREN;
  }
  return flags;
}

std::vector<OutDC>::iterator FindOut(HDC dc) {
  auto& table = OutDCs();
  return std::find_if(table.begin(), table.end(), [dc](const OutDC& out) { return out.dc == dc; });
}

HDC& LastingDC(Window* window) { return window->cls->style & CS_OWNDC ? window->ownDC : window->cls->dc; }

// The clip that a call asks for, in window coordinates. The region given becomes the system's.
std::shared_ptr<Region> ClipOf(Window* window, HRGN clip, DWORD flags) {
  std::shared_ptr<Region> result;
  const POINT origin = WindowOrigin(window);
  if (clip && (flags & (DCX_INTERSECTRGN | DCX_EXCLUDERGN))) {
    const Region* given = RegionFromHandle(clip);
    if (given) {
      result = std::make_shared<Region>(*given);
      result->Offset(-origin.x, -origin.y);
    }
  }
  if (!(flags & (DCX_INTERSECTUPDATE | DCX_EXCLUDEUPDATE))) return result;
  if (!result) return std::make_shared<Region>(window->update.region);
  *result &= window->update.region;
  return result;
}

HDC GetLasting(Window* window, OutDC out) {
  HDC& lasting = LastingDC(window);
  out.lasting = true;
  if (lasting) {
    const auto found = FindOut(lasting);
    if (found != OutDCs().end() && found->window == out.window) {
      out.dc = lasting;
      *found = out;
      RetargetWindowDC(lasting, TargetOf(out));
      return lasting;
    }
    // The class's DC goes to another window; its attributes stay.
    if (found != OutDCs().end()) OutDCs().erase(found);
    DestroyWindowDC(lasting);
  }
  lasting = CreateWindowDC(TargetOf(out), out.window);
  if (!lasting) return nullptr;
  out.dc = lasting;
  OutDCs().push_back(out);
  return lasting;
}

HDC Hand(Window* window, HRGN clip, DWORD flags) {
  flags = FlagsFromStyle(window, flags);
  OutDC out{nullptr,
            window->handle,
            flags,
            ClipOf(window, clip, flags),
            (flags & (DCX_EXCLUDERGN | DCX_EXCLUDEUPDATE)) != 0,
            false};
  const bool lasting = (window->cls->style & (CS_OWNDC | CS_CLASSDC)) && !(flags & (DCX_WINDOW | DCX_CACHE));
  if (lasting) return GetLasting(window, out);
  out.dc = CreateWindowDC(TargetOf(out), window->handle);
  if (!out.dc) return nullptr;
  OutDCs().push_back(out);
  return out.dc;
}

}  // namespace

Region VisibleRegion(Window* window, DWORD flags) {
  if (!IsShown(window)) return {};
  const bool whole = flags & DCX_WINDOW;
  const RECT client = ClientInWindow(window);
  Region region(whole ? WholeOf(window) : client);
  if (flags & DCX_PARENTCLIP && window->parent && window->parent->parent) {
    const RECT parent = window->parent->client;
    region =
        Region(RECT{-window->rect.left, -window->rect.top, parent.right - parent.left - window->rect.left,
                    parent.bottom - parent.top - window->rect.top});
  }
  if (window->shape) region &= *window->shape;
  if (flags & DCX_CLIPCHILDREN) {
    region.Offset(-client.left, -client.top);
    ClipSiblings(region, window, nullptr);
    region.Offset(client.left, client.top);
  }
  // From here in coordinates of one ancestor after the other.
  int dx = 0;
  int dy = 0;
  for (const Window* each = window; each->parent && each->parent->parent; each = each->parent) {
    const Window* parent = each->parent;
    region.Offset(each->rect.left, each->rect.top);
    dx += each->rect.left;
    dy += each->rect.top;
    if (each->style & WS_CLIPSIBLINGS) ClipSiblings(region, parent, each);
    const RECT area = ClientInWindow(parent);
    region.Offset(area.left, area.top);
    dx += area.left;
    dy += area.top;
    region &= Region(area);
    if (parent->shape) region &= *parent->shape;
  }
  region.Offset(-dx, -dy);
  return region;
}

std::shared_ptr<Surface> SurfaceOf(Window* window, POINT* origin) {
  Window* top = TopLevel(window);
  if (!top->surface)
    top->surface =
        std::make_shared<Surface>(std::clamp(top->Width(), 1, 8192), std::clamp(top->Height(), 1, 8192));
  const POINT own = WindowOrigin(window);
  const POINT of = WindowOrigin(top);
  *origin = {own.x - of.x, own.y - of.y};
  return top->surface;
}

void RetargetDCs() {
  for (const OutDC& out : OutDCs())
    if (FromHandle(out.window)) RetargetWindowDC(out.dc, TargetOf(out));
}

void DropDCs(Window* window) {
  auto& table = OutDCs();
  for (const OutDC& out : table)
    if (out.window == window->handle) DestroyWindowDC(out.dc);
  std::erase_if(table, [window](const OutDC& out) { return out.window == window->handle; });
  window->ownDC = nullptr;
  if (window->cls->dc && FindOut(window->cls->dc) == table.end()) window->cls->dc = nullptr;
}

void ResetDCs() { OutDCs().clear(); }

void MovePixels(Surface& surface, const RECT& from, int dx, int dy, const Region& within) {
  const RECT bounds{0, 0, surface.width, surface.height};
  Region target(from);
  target &= Region(bounds);
  target.Offset(dx, dy);
  target &= within;
  target &= Region(bounds);
  if (target.IsEmpty()) return;
  // A copy first: source and target may overlap in any direction.
  RECT source = target.Bounds();
  OffsetRect(&source, -dx, -dy);
  const int width = source.right - source.left;
  std::vector<uint32_t> copy;
  copy.reserve(static_cast<size_t>(width) * static_cast<size_t>(source.bottom - source.top));
  for (int y = source.top; y < source.bottom; ++y)
    copy.insert(copy.end(), surface.row(y) + source.left, surface.row(y) + source.right);
  for (const RECT& rect : target.Rects()) {
    CountWrite(&surface, rect);
    for (int y = rect.top; y < rect.bottom; ++y) {
      const auto row = static_cast<size_t>(y - dy - source.top) * static_cast<size_t>(width);
      const uint32_t* from32 = copy.data() + row + (rect.left - dx - source.left);
      std::copy_n(from32, rect.right - rect.left, surface.row(y) + rect.left);
    }
  }
}

}  // namespace desktop

HDC WINAPI GetDCEx(HWND handle, HRGN clip, DWORD flags) {
  WorldLock lock(WorldMutex());
  if (FailsHere()) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  Window* window = handle ? FromHandleOrError(handle) : DesktopWindow();
  return window ? Hand(window, clip, flags) : nullptr;
}

HDC WINAPI GetDC(HWND window) {
  return window ? GetDCEx(window, nullptr, DCX_USESTYLE) : GetDCEx(nullptr, nullptr, DCX_CACHE | DCX_WINDOW);
}

HDC WINAPI GetWindowDC(HWND window) { return GetDCEx(window, nullptr, DCX_USESTYLE | DCX_WINDOW); }

int WINAPI ReleaseDC(HWND, HDC dc) {
  WorldLock lock(WorldMutex());
  const auto found = FindOut(dc);
  if (found == OutDCs().end()) return 0;
  if (!found->lasting) {
    OutDCs().erase(found);
    DestroyWindowDC(dc);
    return 1;
  }
  // It goes on without the clip that was asked for.
  found->clip.reset();
  RetargetWindowDC(dc, TargetOf(*found));
  return 1;
}
