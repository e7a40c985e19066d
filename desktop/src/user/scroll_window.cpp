// Scrolling what a window shows.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

void Report(const Region& update, HRGN updateRegion, LPRECT updateRect) {
  if (updateRect) *updateRect = update.Bounds();
  Region* result = updateRegion ? RegionFromHandle(updateRegion) : nullptr;
  if (result) *result = update;
}

int Kind(const Region& region) {
  if (region.IsEmpty()) return NULLREGION;
  return region.IsRectangle() ? SIMPLEREGION : COMPLEXREGION;
}

struct Area {
  Region moves;  // what may move, in client coordinates
  Region clip;   // where it may move to
};

// Moves pixels and what waits for paint. Gives the part that has to be painted, in client coordinates.
Region ScrollPixels(Window* window, int dx, int dy, const Area& area, DWORD dcx) {
  const RECT client = ClientInWindow(window);
  Region visible = VisibleRegion(window, dcx | DCX_WINDOW);
  visible &= Region(client);
  visible.Offset(-client.left, -client.top);
  Region source = area.moves;
  source &= visible;
  Region target = source;
  target.Offset(dx, dy);
  target &= area.clip;
  target &= visible;
  POINT origin;
  const auto surface = SurfaceOf(window, &origin);
  Region onSurface = target;
  onSurface.Offset(origin.x + client.left, origin.y + client.top);
  RECT from = onSurface.Bounds();
  OffsetRect(&from, -dx, -dy);
  if (!onSurface.IsEmpty()) MovePixels(*surface, from, dx, dy, onSurface);
  // Everything of the area that got no valid pixels.
  Region update = area.moves;
  update &= area.clip;
  Region moved = area.moves;
  moved.Offset(dx, dy);
  moved &= area.clip;
  update |= moved;
  update &= visible;
  update -= target;
  return update;
}

void MoveWaiting(Window* window, int dx, int dy, const Area& area) {
  const RECT client = ClientInWindow(window);
  Region waiting = window->update.region;
  waiting.Offset(-client.left, -client.top);
  waiting &= area.moves;
  if (waiting.IsEmpty()) return;
  waiting.Offset(dx, dy);
  waiting &= area.clip;
  waiting.Offset(client.left, client.top);
  window->update.region |= waiting;
}

std::vector<HWND> ChildrenIn(Window* window, const RECT* rect) {
  std::vector<HWND> found;
  for (const Window* child = window->firstChild; child; child = child->below) {
    RECT both;
    if (!rect || IntersectRect(&both, rect, &child->rect)) found.push_back(child->handle);
  }
  return found;
}

}  // namespace

}  // namespace desktop

int WINAPI ScrollWindowEx(HWND handle, int dx, int dy, const RECT* rect, const RECT* clip, HRGN updateRegion,
                          LPRECT updateRect, UINT flags) {
  Region update;
  std::vector<HWND> children;
  dx = Near(dx);
  dy = Near(dy);
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandleOrError(handle);
    if (!window) return ERROR;
    RECT client = window->client;
    OffsetRect(&client, -client.left, -client.top);
    Area area{Region(rect ? Near(*rect) : client), Region(clip ? Near(*clip) : client)};
    area.moves &= Region(client);
    area.clip &= Region(client);
    if (rect) area.clip &= rect && !clip ? area.moves : area.clip;
    const bool shown = IsShown(window);
    if (shown && (dx || dy) && !area.clip.IsEmpty()) {
      const bool alone = !(flags & SW_SCROLLCHILDREN);
      const bool clips = (window->style & WS_CLIPCHILDREN) && alone;
      update = ScrollPixels(window, dx, dy, area, clips ? DCX_CLIPCHILDREN : 0);
      MoveWaiting(window, dx, dy, area);
      if (flags & SW_INVALIDATE) {
        Region part = update;
        const RECT inWindow = ClientInWindow(window);
        part.Offset(inWindow.left, inWindow.top);
        Redraw(window, part, false,
               RDW_INVALIDATE | (flags & SW_ERASE ? RDW_ERASE : 0) | (alone ? 0 : RDW_ALLCHILDREN));
      }
    }
    Report(update, updateRegion, updateRect);
    if (flags & SW_SCROLLCHILDREN) children = ChildrenIn(window, rect);
  }
  for (HWND child : children) {
    RECT place;
    if (!GetWindowRect(child, &place)) continue;
    MapWindowPoints(nullptr, handle, reinterpret_cast<LPPOINT>(&place), 2);
    // The pixels have moved already.
    SetWindowPos(child, nullptr, place.left + dx, place.top + dy, 0, 0,
                 SWP_NOZORDER | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_DEFERERASE);
  }
  return Kind(update);
}

BOOL WINAPI ScrollWindow(HWND window, int dx, int dy, const RECT* rect, const RECT* clip) {
  const UINT flags = SW_INVALIDATE | SW_ERASE | (rect ? 0 : SW_SCROLLCHILDREN);
  return ScrollWindowEx(window, dx, dy, rect, clip, nullptr, nullptr, flags) != ERROR;
}

BOOL WINAPI ScrollDC(HDC dc, int dx, int dy, const RECT* rect, const RECT* clip, HRGN updateRegion,
                     LPRECT updateRect) {
  RECT box;
  if (GetClipBox(dc, &box) == ERROR) return FALSE;
  dx = Near(dx);
  dy = Near(dy);
  const RECT area = rect ? Near(*rect) : box;
  const RECT limit = clip ? Near(*clip) : box;
  RECT source = area;
  IntersectRect(&source, &source, &limit);
  RECT target = source;
  OffsetRect(&target, dx, dy);
  IntersectRect(&target, &target, &limit);
  if (!IsRectEmpty(&target))
    BitBlt(dc, target.left, target.top, target.right - target.left, target.bottom - target.top, dc,
           target.left - dx, target.top - dy, SRCCOPY);
  WorldLock lock(WorldMutex());
  Region update(source);
  update -= Region(target);
  Report(update, updateRegion, updateRect);
  return TRUE;
}
