// Update regions: what waits for paint, and the messages that have it painted.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

void InvalidateSelf(Window* window, const Region& part, bool frame, UINT flags) {
  const RECT bounds = frame ? RECT{0, 0, window->Width(), window->Height()} : ClientInWindow(window);
  Region crop = part;
  crop &= Region(bounds);
  crop &= VisibleRegion(window, DCX_WINDOW);
  if (crop.IsEmpty()) return;
  UpdateState& update = window->update;
  if ((flags & RDW_FRAME) && frame) update.nonclient = true;
  update.region |= crop;
  if (flags & RDW_ERASE) update.erase = true;
}

void ValidateSelf(Window* window, const Region& part, bool whole, UINT flags) {
  UpdateState& update = window->update;
  if (whole && (flags & RDW_NOFRAME)) {
    update.region.Clear();
  } else {
    Region crop = part;
    if (!(flags & RDW_NOFRAME)) crop &= Region(ClientInWindow(window));
    update.region -= crop;
  }
  if (flags & RDW_NOERASE) update.erase = update.delayedErase = false;
  if (flags & RDW_NOFRAME) update.nonclient = false;
  if (update.region.IsEmpty()) update.erase = update.delayedErase = update.nonclient = false;
}

bool TakesChildren(const Window* window, UINT flags) {
  if (flags & RDW_NOCHILDREN) return false;
  if (window->style & WS_MINIMIZE) return false;
  return (flags & RDW_ALLCHILDREN) || !(window->style & WS_CLIPCHILDREN);
}

// Which windows of a tree wait for something, from the top down.
void CollectWaiting(Window* window, UINT flags, std::vector<HWND>& found) {
  if (!(window->style & WS_VISIBLE)) return;
  if (window->update.Any()) found.push_back(window->handle);
  if (!TakesChildren(window, flags)) return;
  for (Window* child = window->firstChild; child; child = child->below) CollectWaiting(child, flags, found);
}

Window* FindToPaint(Window* window, const Queue& queue) {
  if (!(window->style & WS_VISIBLE)) return nullptr;
  if (window->queue.get() == &queue && window->update.Any()) return window;
  for (Window* child = window->firstChild; child; child = child->below)
    if (Window* found = FindToPaint(child, queue)) return found;
  return nullptr;
}

// The frame first, then the background of what waits.
void EraseOne(HWND handle) {
  HRGN frame = nullptr;
  bool whole = false;
  bool erase = false;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window || !IsShown(window)) return;
    if (window->update.nonclient) {
      window->update.nonclient = false;
      whole = window->update.region == Region(RECT{0, 0, window->Width(), window->Height()});
      frame = CreateRectRgn(0, 0, 0, 0);
      Region* region = frame ? RegionFromHandle(frame) : nullptr;
      if (region) {
        *region = window->update.region;
        const POINT origin = WindowOrigin(window);
        region->Offset(origin.x, origin.y);
      }
      // The frame needs no more paint than this.
      window->update.region &= Region(ClientInWindow(window));
    }
    erase = window->update.erase && !window->update.region.IsEmpty();
  }
  if (frame) {
    Send(handle, WM_NCPAINT, whole ? 1 : reinterpret_cast<WPARAM>(frame), 0);
    DeleteObject(frame);
  }
  if (!erase || !IsWindow(handle)) return;
  const HDC dc = GetDCEx(handle, nullptr, DCX_INTERSECTUPDATE | DCX_USESTYLE | DCX_CACHE);
  if (!dc) return;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (window) window->update.erase = false;
  }
  const bool done = Send(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0) != 0;
  ReleaseDC(handle, dc);
  if (done) return;
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (window) window->update.delayedErase = true;
}

std::vector<HWND> Waiting(HWND handle, UINT flags) {
  WorldLock lock(WorldMutex());
  std::vector<HWND> found;
  Window* window = FromHandle(handle);
  if (window && IsShown(window)) CollectWaiting(window, flags, found);
  return found;
}

BOOL RedrawWindowIn(HWND handle, const RECT* rect, HRGN rgn, UINT flags) {
  {
    WorldLock lock(WorldMutex());
    Window* window = handle ? FromHandleOrError(handle) : DesktopWindow();
    if (!window) return FALSE;
    if (IsDesktop(window)) {
      flags |= RDW_ALLCHILDREN;
      for (Window* top = window->firstChild; top; top = top->below)
        RedrawAll(top, flags | RDW_FRAME | RDW_ERASE);
    } else if (!rect && !rgn) {
      RedrawAll(window, flags);
    } else {
      Region part;
      if (rgn) {
        const Region* given = RegionFromHandle(rgn);
        if (!given) return FALSE;
        part = *given;
      } else if (!IsRectEmpty(rect)) {
        part = Region(Near(*rect));
      }
      const RECT client = ClientInWindow(window);
      part.Offset(client.left, client.top);
      if (!part.IsEmpty() || (flags & (RDW_INTERNALPAINT | RDW_NOINTERNALPAINT)))
        Redraw(window, part, (flags & RDW_FRAME) != 0, flags);
    }
  }
  const HWND target = handle ? handle : GetDesktopWindow();
  if (flags & RDW_UPDATENOW) {
    UpdateNow(target, flags);
  } else if (flags & RDW_ERASENOW) {
    EraseNow(target, flags);
  }
  return TRUE;
}

}  // namespace

void Redraw(Window* window, const Region& part, bool frame, UINT flags) {
  if (!IsShown(window) || (window->style & WS_MINIMIZE)) return;
  UpdateState& update = window->update;
  if (flags & RDW_INVALIDATE) InvalidateSelf(window, part, frame, flags);
  if (flags & RDW_VALIDATE) ValidateSelf(window, part, false, flags);
  if (flags & RDW_INTERNALPAINT) update.internalPaint = true;
  if (flags & RDW_NOINTERNALPAINT) update.internalPaint = false;
  if (window->queue && update.Any()) SetChanged(*window->queue, QS_PAINT);
  if (!TakesChildren(window, flags)) return;
  const RECT client = ClientInWindow(window);
  for (Window* child = window->firstChild; child; child = child->below) {
    if (!(child->style & WS_VISIBLE)) continue;
    Region inChild = part;
    inChild &= Region(client);
    inChild.Offset(-client.left - child->rect.left, -client.top - child->rect.top);
    inChild &= Region(RECT{0, 0, child->Width(), child->Height()});
    if (inChild.IsEmpty()) continue;
    const UINT childFlags = flags & RDW_INVALIDATE ? flags | RDW_FRAME | RDW_ERASE : flags;
    Redraw(child, inChild, true, childFlags);
  }
}

void RedrawAll(Window* window, UINT flags) {
  if (flags & RDW_VALIDATE) {
    window->update.region -=
        Region(flags & RDW_NOFRAME ? RECT{0, 0, window->Width(), window->Height()} : ClientInWindow(window));
  }
  const bool frame = flags & RDW_FRAME;
  const RECT rect = frame ? RECT{0, 0, window->Width(), window->Height()} : ClientInWindow(window);
  Redraw(window, Region(rect), frame, flags);
}

bool NeedsPaint(const Window* window) { return window->update.Any(); }

Window* WindowToPaint(const Queue& queue, HWND filter) {
  if (filter) {
    Window* window = FromHandle(filter);
    return window && IsShown(window) ? FindToPaint(window, queue) : nullptr;
  }
  for (Window* top = DesktopWindow()->firstChild; top; top = top->below)
    if (Window* found = FindToPaint(top, queue)) return found;
  return nullptr;
}

void EraseNow(HWND handle, UINT flags) {
  if (!(flags & RDW_ALLCHILDREN)) return EraseOne(handle);
  for (HWND each : Waiting(handle, flags)) EraseOne(each);
}

void UpdateNow(HWND handle, UINT flags) {
  // A window that refuses to validate itself gets its chance once only.
  std::vector<HWND> painted;
  for (;;) {
    HWND next = nullptr;
    for (HWND each : Waiting(handle, flags)) {
      if (std::find(painted.begin(), painted.end(), each) != painted.end()) continue;
      next = each;
      break;
    }
    if (!next) return;
    painted.push_back(next);
    {
      WorldLock lock(WorldMutex());
      Window* window = FromHandle(next);
      if (window) window->update.internalPaint = false;
    }
    Send(next, WM_PAINT);
  }
}

}  // namespace desktop

BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags) {
  if (IsIconic(window)) return TRUE;
  return RedrawWindowIn(window, rect, region, flags);
}

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
  if (!window)
    return RedrawWindow(nullptr, nullptr, nullptr,
                        RDW_ALLCHILDREN | RDW_INVALIDATE | RDW_FRAME | RDW_ERASE | RDW_ERASENOW);
  return RedrawWindow(window, rect, nullptr, RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL WINAPI InvalidateRgn(HWND window, HRGN region, BOOL erase) {
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  return RedrawWindow(window, nullptr, region, RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL WINAPI ValidateRect(HWND window, const RECT* rect) {
  // Without a window everything is invalidated, as on Windows.
  if (!window) return InvalidateRect(nullptr, nullptr, TRUE);
  return RedrawWindow(window, rect, nullptr, rect ? RDW_VALIDATE : RDW_VALIDATE | RDW_NOERASE);
}

BOOL WINAPI ValidateRgn(HWND window, HRGN region) {
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  return RedrawWindow(window, nullptr, region, region ? RDW_VALIDATE : RDW_VALIDATE | RDW_NOERASE);
}

BOOL WINAPI UpdateWindow(HWND window) {
  return RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

int WINAPI GetUpdateRgn(HWND handle, HRGN region, BOOL erase) {
  if (erase) EraseNow(handle, RDW_NOCHILDREN);
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  Region* result = RegionFromHandle(region);
  if (!window || !result) return ERROR;
  *result = window->update.region;
  const RECT client = ClientInWindow(window);
  *result &= Region(client);
  result->Offset(-client.left, -client.top);
  if (result->IsEmpty()) return NULLREGION;
  return result->IsRectangle() ? SIMPLEREGION : COMPLEXREGION;
}

BOOL WINAPI GetUpdateRect(HWND handle, LPRECT rect, BOOL erase) {
  if (erase) EraseNow(handle, RDW_NOCHILDREN);
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window) return FALSE;
  Region part = window->update.region;
  const RECT client = ClientInWindow(window);
  part &= Region(client);
  part.Offset(-client.left, -client.top);
  if (rect) *rect = part.Bounds();
  // A private DC speaks in its own coordinates.
  if (rect && window->ownDC) DPtoLP(window->ownDC, reinterpret_cast<LPPOINT>(rect), 2);
  return !part.IsEmpty();
}

int WINAPI ExcludeUpdateRgn(HDC dc, HWND window) {
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  if (!region) return ERROR;
  int result = GetUpdateRgn(window, region, FALSE);
  if (result != ERROR) result = ExtSelectClipRgn(dc, region, RGN_DIFF);
  DeleteObject(region);
  return result;
}

HDC WINAPI BeginPaint(HWND handle, LPPAINTSTRUCT ps) {
  if (!ps) return nullptr;
  {
    WorldLock lock(WorldMutex());
    if (!FromHandleOrError(handle)) return nullptr;
  }
  HideCaretForPaint(handle);
  EraseOne(handle);
  if (!IsWindow(handle)) return nullptr;
  const HDC dc = GetDCEx(handle, nullptr, DCX_INTERSECTUPDATE | DCX_USESTYLE);
  if (!dc) return nullptr;
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return nullptr;
  *ps = {};
  ps->hdc = dc;
  ps->fErase = window->update.delayedErase;
  GetClipBox(dc, &ps->rcPaint);
  const bool whole = window->update.region.IsEmpty();
  if (whole) ps->rcPaint = {};
  window->update = {};
  return dc;
}

BOOL WINAPI EndPaint(HWND handle, const PAINTSTRUCT* ps) {
  if (!ps) return FALSE;
  ReleaseDC(handle, ps->hdc);
  ShowCaret(handle);
  return TRUE;
}

BOOL WINAPI LockWindowUpdate(HWND window) {
  static HWND locked = nullptr;
  WorldLock lock(WorldMutex());
  if (window && !FromHandleOrError(window)) return FALSE;
  if (window && locked && FromHandle(locked)) return FALSE;
  const HWND unlocked = std::exchange(locked, window);
  // What was drawn in the meantime is on the window already; repaint to be certain.
  Window* before = !window && unlocked ? FromHandle(unlocked) : nullptr;
  if (before) RedrawAll(before, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  return TRUE;
}
