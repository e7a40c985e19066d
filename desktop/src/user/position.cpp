// SetWindowPos and its relatives: where a window is, how big, and above which others.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

constexpr UINT kNoGeometry = SWP_NOSIZE | SWP_NOMOVE | SWP_NOCLIENTSIZE | SWP_NOCLIENTMOVE;
constexpr UINT kNoPosition = kNoGeometry | SWP_NOZORDER;
constexpr UINT kNoSizeOrOrder = SWP_NOSIZE | SWP_NOCLIENTSIZE | SWP_NOZORDER;
constexpr UINT kStatus = kNoPosition | SWP_FRAMECHANGED | SWP_HIDEWINDOW | SWP_SHOWWINDOW;

// One call of SetWindowPos.
struct Move {
  WINDOWPOS pos{};
  RECT oldRect{}, oldClient{};
  RECT rect{}, client{};
  RECT valid[2]{};  // the part of the client area that keeps its pixels: new place, old place
  UINT ncResult = 0;
  Region oldVisible;  // in parent's client coordinates
};

Window* Topmost(Window* window) {
  while (window->owner && window->owner->parent) window = window->owner;
  return window;
}

// HWND_TOP and the like, said as a window: the sibling above, or null for the very top.
Window* ResolveAfter(Window* window, HWND after) {
  Window* parent = window->parent;
  const bool child = window->IsChildStyle();
  if (after == HWND_BOTTOM) return parent->lastChild == window ? window->above : parent->lastChild;
  const bool top = after == HWND_TOP || after == HWND_TOPMOST || after == HWND_NOTOPMOST;
  if (!top) {
    Window* sibling = FromHandle(after);
    return sibling && sibling->parent == parent ? sibling : nullptr;
  }
  if (child || (window->exStyle & WS_EX_TOPMOST)) return nullptr;
  Window* last = nullptr;
  for (Window* each = parent->firstChild; each; each = each->below) {
    if (each == window) continue;
    if (!(each->exStyle & WS_EX_TOPMOST)) break;
    last = each;
  }
  return last;
}

// Flags that would change nothing are taken out, and impossible ones put right.
bool FixFlags(WINDOWPOS& pos) {
  Window* window = FromHandle(pos.hwnd);
  if (!window || IsDesktop(window)) return false;
  pos.flags &= ~(kStatus & (SWP_NOCLIENTSIZE | SWP_NOCLIENTMOVE));
  pos.x = Near(pos.x);
  pos.y = Near(pos.y);
  pos.cx = std::clamp(pos.cx, 0, 32767);
  pos.cy = std::clamp(pos.cy, 0, 32767);
  if (window->style & WS_VISIBLE) {
    pos.flags &= ~SWP_SHOWWINDOW;
  } else {
    pos.flags &= ~SWP_HIDEWINDOW;
    if (!(pos.flags & SWP_SHOWWINDOW)) pos.flags |= SWP_NOREDRAW;
  }
  if (window->Width() == pos.cx && window->Height() == pos.cy) pos.flags |= SWP_NOSIZE;
  if (window->rect.left == pos.x && window->rect.top == pos.y) pos.flags |= SWP_NOMOVE;
  const bool child = window->IsChildStyle();
  if (!child && !(pos.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW | SWP_NOZORDER)) &&
      (pos.flags & SWP_NOZORDER) == 0 && pos.hwndInsertAfter != HWND_TOPMOST &&
      pos.hwndInsertAfter != HWND_NOTOPMOST) {
    // What becomes active comes to the top.
    pos.flags &= ~SWP_NOZORDER;
    pos.hwndInsertAfter = HWND_TOP;
  }
  if (pos.flags & SWP_NOZORDER) return true;
  if (pos.hwndInsertAfter == HWND_TOPMOST) {
    const bool first = (window->exStyle & WS_EX_TOPMOST) && !window->above;
    if (first) pos.flags |= SWP_NOZORDER;
    return true;
  }
  if (pos.hwndInsertAfter == HWND_NOTOPMOST) {
    if (!(window->exStyle & WS_EX_TOPMOST)) pos.flags |= SWP_NOZORDER;
    return true;
  }
  if (pos.hwndInsertAfter == HWND_TOP) {
    if (!window->above) pos.flags |= SWP_NOZORDER;
    return true;
  }
  if (pos.hwndInsertAfter == HWND_BOTTOM) {
    if (!window->below && !(window->exStyle & WS_EX_TOPMOST)) pos.flags |= SWP_NOZORDER;
    return true;
  }
  const Window* after = FromHandle(pos.hwndInsertAfter);
  if (!after || after->parent != window->parent) return after != nullptr;
  if (after == window || after->below == window) pos.flags |= SWP_NOZORDER;
  return true;
}

void Plan(Move& move) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(move.pos.hwnd);
  move.oldRect = window->rect;
  move.oldClient = window->client;
  move.rect = move.oldRect;
  move.client = move.oldClient;
  const WINDOWPOS& pos = move.pos;
  if (!(pos.flags & SWP_NOSIZE)) {
    if (window->style & WS_MINIMIZE) {
      move.rect.right = move.rect.left + Metric(SM_CXMINIMIZED);
      move.rect.bottom = move.rect.top + Metric(SM_CYMINIMIZED);
    } else {
      move.rect.right = move.rect.left + pos.cx;
      move.rect.bottom = move.rect.top + pos.cy;
    }
  }
  if (!(pos.flags & SWP_NOMOVE)) {
    OffsetRect(&move.rect, pos.x - move.oldRect.left, pos.y - move.oldRect.top);
    OffsetRect(&move.client, pos.x - move.oldRect.left, pos.y - move.oldRect.top);
  }
}

// Asks for the client area when the size or the frame changes.
void AskNcSize(Move& move) {
  WINDOWPOS& pos = move.pos;
  const bool asks = (pos.flags & (SWP_FRAMECHANGED | SWP_NOSIZE)) != SWP_NOSIZE;
  if (asks) {
    NCCALCSIZE_PARAMS params{};
    params.rgrc[0] = move.rect;
    params.rgrc[1] = move.oldRect;
    params.rgrc[2] = move.oldClient;
    WINDOWPOS copy = pos;
    params.lppos = &copy;
    move.ncResult = static_cast<UINT>(Send(pos.hwnd, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params)));
    move.client = params.rgrc[0];
    if (move.ncResult & WVR_VALIDRECTS) {
      move.valid[0] = params.rgrc[1];
      move.valid[1] = params.rgrc[2];
    }
  }
  const RECT& client = move.client;
  const RECT& old = move.oldClient;
  if (client.left != old.left || client.top != old.top)
    pos.flags &= ~SWP_NOCLIENTMOVE;
  else
    pos.flags |= SWP_NOCLIENTMOVE;
  if (client.right - client.left != old.right - old.left ||
      client.bottom - client.top != old.bottom - old.top)
    pos.flags &= ~SWP_NOCLIENTSIZE;
  else
    pos.flags |= SWP_NOCLIENTSIZE;
}

// What keeps its pixels by itself: the top left corner, unless the class wants all redrawn.
void ComputeValid(Move& move, const Window* window) {
  if (move.ncResult & WVR_VALIDRECTS) return;
  const UINT style = window->cls->style;
  const int oldWidth = move.oldClient.right - move.oldClient.left;
  const int oldHeight = move.oldClient.bottom - move.oldClient.top;
  const int width = move.client.right - move.client.left;
  const int height = move.client.bottom - move.client.top;
  const bool redrawX = (style & CS_HREDRAW) && width != oldWidth;
  const bool redrawY = (style & CS_VREDRAW) && height != oldHeight;
  const bool all = (move.ncResult & WVR_HREDRAW && width != oldWidth) ||
                   (move.ncResult & WVR_VREDRAW && height != oldHeight);
  if (redrawX || redrawY || all || (move.pos.flags & SWP_NOCOPYBITS)) {
    move.valid[0] = move.valid[1] = {};
    return;
  }
  const int keepX = std::min(width, oldWidth);
  const int keepY = std::min(height, oldHeight);
  const UINT nc = move.ncResult;
  RECT to = move.client;
  RECT from = move.oldClient;
  if ((nc & WVR_ALIGNRIGHT) && !(nc & WVR_ALIGNLEFT)) {
    to.left = to.right - keepX;
    from.left = from.right - keepX;
  }
  if ((nc & WVR_ALIGNBOTTOM) && !(nc & WVR_ALIGNTOP)) {
    to.top = to.bottom - keepY;
    from.top = from.bottom - keepY;
  }
  to.right = to.left + keepX;
  to.bottom = to.top + keepY;
  from.right = from.left + keepX;
  from.bottom = from.top + keepY;
  move.valid[0] = to;
  move.valid[1] = from;
}

void Relink(Window* window, HWND after) {
  Window* parent = window->parent;
  if (after == HWND_TOPMOST) window->exStyle |= WS_EX_TOPMOST;
  if (after == HWND_NOTOPMOST || after == HWND_BOTTOM) window->exStyle &= ~WS_EX_TOPMOST;
  const bool special = IsSpecial(after);
  if (!special && !window->IsChildStyle()) {
    // Between topmost windows one becomes topmost itself; below others one is so no more.
    const Window* sibling = FromHandle(after);
    if (sibling && !(sibling->exStyle & WS_EX_TOPMOST)) window->exStyle &= ~WS_EX_TOPMOST;
    if (sibling && sibling->below && (sibling->below->exStyle & WS_EX_TOPMOST) && sibling->below != window)
      window->exStyle |= WS_EX_TOPMOST;
  }
  Window* above = ResolveAfter(window, after);
  if (above == window) return;
  UnlinkWindow(window);
  LinkWindow(window, parent, above);
}

// Owned windows stay above their owners and come along to the top.
void RaiseOwned(Window* owner) {
  std::vector<Window*> owned;
  for (Window* each = owner->parent->firstChild; each; each = each->below)
    if (each->owner == owner) owned.push_back(each);
  for (auto it = owned.rbegin(); it != owned.rend(); ++it) {
    Window* window = *it;
    if (owner->exStyle & WS_EX_TOPMOST) window->exStyle |= WS_EX_TOPMOST;
    Window* parent = window->parent;
    UnlinkWindow(window);
    Window* above = owner->above;
    if (window->exStyle & WS_EX_TOPMOST && !(owner->exStyle & WS_EX_TOPMOST)) above = nullptr;
    LinkWindow(window, parent, above);
    RaiseOwned(window);
  }
}

void Reorder(Window* window, const WINDOWPOS& pos) {
  if (pos.flags & SWP_NOZORDER) return;
  Relink(window, pos.hwndInsertAfter);
  if (window->IsChildStyle() || !window->parent || (pos.flags & SWP_NOOWNERZORDER)) return;
  // A window that comes to the top brings its owner along, right below it.
  if (pos.hwndInsertAfter == HWND_TOP && window->owner && window->owner->parent == window->parent) {
    Window* owner = Topmost(window);
    if (!(owner->exStyle & WS_EX_TOPMOST)) {
      Relink(owner, HWND_TOP);
      RaiseOwned(owner);
      Relink(window, HWND_TOP);
    }
  }
  RaiseOwned(window);
}

// The frame and the background of a top-level window live in its surface: keep what stays.
void ResizeSurface(Window* window) {
  if (!window->surface) return;
  const int width = std::clamp(window->Width(), 1, 8192);
  const int height = std::clamp(window->Height(), 1, 8192);
  if (window->surface->width == width && window->surface->height == height) return;
  auto fresh = std::make_shared<Surface>(width, height);
  const int rows = std::min(height, window->surface->height);
  const int columns = std::min(width, window->surface->width);
  for (int y = 0; y < rows; ++y) std::copy_n(window->surface->row(y), columns, fresh->row(y));
  window->surface = fresh;
}

Region FrameOf(const Window* window) { return Region(RECT{0, 0, window->Width(), window->Height()}); }

// Moves the pixels that stay valid and says which part of the window has to be painted anew (in window
// coordinates).
Region CarryPixels(Window* window, const Move& move, const Region& oldVisible) {
  Region fresh = VisibleRegion(window, DCX_WINDOW);
  const RECT& to = move.valid[0];
  const RECT& from = move.valid[1];
  if (IsRectEmpty(&to) || IsRectEmpty(&from)) return fresh;
  const bool top = !window->parent || !window->parent->parent;
  // In window coordinates after and before.
  RECT toIn = to;
  OffsetRect(&toIn, -move.rect.left, -move.rect.top);
  RECT fromIn = from;
  OffsetRect(&fromIn, -move.oldRect.left, -move.oldRect.top);
  Region kept = oldVisible;
  kept &= Region(fromIn);
  kept.Offset(toIn.left - fromIn.left, toIn.top - fromIn.top);
  kept &= Region(toIn);
  Region target = fresh;
  target &= kept;
  POINT origin;
  const auto surface = SurfaceOf(window, &origin);
  const int dx = top ? toIn.left - fromIn.left : to.left - from.left;
  const int dy = top ? toIn.top - fromIn.top : to.top - from.top;
  if (surface && (dx || dy)) {
    Region onSurface = target;
    onSurface.Offset(origin.x, origin.y);
    RECT source = onSurface.Bounds();
    OffsetRect(&source, -dx, -dy);
    MovePixels(*surface, source, dx, dy, onSurface);
  }
  // What waited for paint keeps waiting, at its new place.
  Region waiting = window->update.region;
  waiting &= Region(fromIn);
  waiting.Offset(toIn.left - fromIn.left, toIn.top - fromIn.top);
  target -= waiting;
  fresh -= target;
  return fresh;
}

// The part of the parent that was under the window.
void Expose(Window* window, const Region& oldInParent) {
  Window* parent = window->parent;
  if (!parent || !parent->parent) return;
  Region exposed = oldInParent;
  if (IsShown(window)) {
    Region now = VisibleRegion(window, DCX_WINDOW);
    now.Offset(window->rect.left, window->rect.top);
    exposed -= now;
  }
  if (exposed.IsEmpty()) return;
  const RECT client = ClientInWindow(parent);
  exposed.Offset(client.left, client.top);
  Redraw(parent, exposed, false, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_FRAME);
}

// A window that only moves keeps its frame as well as its client area.
Region CarryFrame(Window* window, const Move& move, const Region& oldVisible) {
  Region kept = VisibleRegion(window, DCX_WINDOW);
  kept &= oldVisible;
  const bool top = !window->parent || !window->parent->parent;
  if (!top) {
    POINT origin;
    const auto surface = SurfaceOf(window, &origin);
    const int dx = move.rect.left - move.oldRect.left;
    const int dy = move.rect.top - move.oldRect.top;
    Region frame = kept;
    frame -= Region(ClientInWindow(window));
    frame.Offset(origin.x, origin.y);
    RECT source = frame.Bounds();
    OffsetRect(&source, -dx, -dy);
    if (!frame.IsEmpty()) MovePixels(*surface, source, dx, dy, frame);
  }
  kept -= window->update.region;
  return kept;
}

// What the change leaves to be painted, in window coordinates. Pixels that stay valid are carried along.
Region StalePart(Window* window, const Move& move, const Region& oldVisible) {
  const UINT flags = move.pos.flags;
  if (flags & SWP_SHOWWINDOW) return VisibleRegion(window, DCX_WINDOW);
  if (!IsShown(window)) return {};
  if ((flags & kNoGeometry) != kNoGeometry || (flags & SWP_FRAMECHANGED)) {
    Region stale = CarryPixels(window, move, oldVisible);
    const bool movedOnly =
        (flags & (SWP_NOSIZE | SWP_FRAMECHANGED)) == SWP_NOSIZE && (flags & SWP_NOCLIENTSIZE);
    if (movedOnly) stale -= CarryFrame(window, move, oldVisible);
    return stale;
  }
  if (flags & SWP_NOZORDER) return {};
  Region stale = VisibleRegion(window, DCX_WINDOW);
  stale -= oldVisible;
  return stale;
}

void Invalidate(Window* window, const Move& move, const Region& oldVisible, const Region& oldInParent) {
  const Region stale = StalePart(window, move, oldVisible);
  window->update.region &= FrameOf(window);
  if (move.pos.flags & SWP_NOREDRAW) return;
  if (!stale.IsEmpty()) Redraw(window, stale, true, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  Expose(window, oldInParent);
}

void Commit(Move& move) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(move.pos.hwnd);
  if (!window) return;
  WINDOWPOS& pos = move.pos;
  ComputeValid(move, window);
  const Region oldVisible = VisibleRegion(window, DCX_WINDOW);
  Region oldInParent = oldVisible;
  oldInParent.Offset(window->rect.left, window->rect.top);
  Reorder(window, pos);
  window->rect = move.rect;
  window->client = move.client;
  if (pos.flags & SWP_SHOWWINDOW) window->style |= WS_VISIBLE;
  if (pos.flags & SWP_HIDEWINDOW) {
    window->style &= ~WS_VISIBLE;
    window->update = {};
  }
  if (!window->parent || !window->parent->parent) ResizeSurface(window);
  Invalidate(window, move, oldVisible, oldInParent);
  RetargetDCs();
}

void EraseAfter(const WINDOWPOS& pos, UINT asked) {
  if (pos.flags & SWP_DEFERERASE) return;
  // A window that has only moved leaves the erasing to WM_PAINT.
  const bool geometry = (pos.flags & kStatus) != kNoSizeOrOrder;
  if (!(asked & SWP_NOREDRAW) && ((asked & SWP_HIDEWINDOW) || (!(asked & SWP_SHOWWINDOW) && geometry))) {
    HWND parent = GetAncestor(pos.hwnd, GA_PARENT);
    if (!parent || parent == GetDesktopWindow()) parent = pos.hwnd;
    EraseNow(parent, 0);
  }
  if ((pos.flags & kStatus) != kNoPosition && (asked & SWP_SHOWWINDOW) && IsWindow(pos.hwnd))
    EraseNow(pos.hwnd, 0);
}

// A window with popups of its own on top of it is told that it lies below them.
HWND ToldAfter(const WINDOWPOS& pos) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(pos.hwnd);
  if ((pos.flags & SWP_NOZORDER) || !window || !window->above) return pos.hwndInsertAfter;
  return window->above->owner == window ? window->above->handle : pos.hwndInsertAfter;
}

void ActivateAfter(const WINDOWPOS& pos) {
  if (pos.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) return;
  bool child;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(pos.hwnd);
    if (!window) return;
    child = window->IsChildStyle();
  }
  if (child) {
    Send(pos.hwnd, WM_CHILDACTIVATE);
  } else {
    MakeForeground(pos.hwnd, false);
  }
}

}  // namespace

bool ApplyPosition(HWND handle, HWND after, int x, int y, int cx, int cy, UINT flags) {
  Move move;
  move.pos = {handle, after, x, y, cx, cy, flags};
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandleOrError(handle);
    if (!window) return false;
    if (!IsSpecial(after) && !(flags & SWP_NOZORDER)) {
      const Window* sibling = FromHandleOrError(after);
      if (!sibling) return false;
      if (sibling->parent != window->parent) return true;
    }
  }
  const UINT asked = flags;
  if (!(flags & SWP_NOSENDCHANGING))
    Send(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&move.pos));
  {
    WorldLock lock(WorldMutex());
    if (!FromHandle(handle)) return false;
    if (move.pos.flags & SWP_NOSIZE) {
      move.pos.cx = FromHandle(handle)->Width();
      move.pos.cy = FromHandle(handle)->Height();
    }
    if (move.pos.flags & SWP_NOMOVE) {
      move.pos.x = FromHandle(handle)->rect.left;
      move.pos.y = FromHandle(handle)->rect.top;
    }
    move.pos.hwnd = handle;
    if (!FixFlags(move.pos)) return false;
  }
  Plan(move);
  AskNcSize(move);
  if (!IsWindow(handle)) return false;
  const bool hides = move.pos.flags & SWP_HIDEWINDOW;
  if (hides) HideCaret(handle);
  Commit(move);
  if (move.pos.flags & SWP_SHOWWINDOW) ShowCaret(handle);
  ActivateAfter(move.pos);
  if (!IsWindow(handle)) return true;
  EraseAfter(move.pos, asked);
  if (!IsWindow(handle)) return true;
  if ((move.pos.flags & kStatus) != kNoPosition) {
    WINDOWPOS told = move.pos;
    told.hwndInsertAfter = ToldAfter(told);
    told.x = move.rect.left;
    told.y = move.rect.top;
    told.cx = move.rect.right - move.rect.left;
    told.cy = move.rect.bottom - move.rect.top;
    Send(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&told));
  }
  return true;
}

void SetRects(Window* window, const RECT& rect, const RECT& client) {
  window->rect = rect;
  window->client = client;
}

}  // namespace desktop

BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int cx, int cy, UINT flags) {
  return ApplyPosition(window, after, x, y, cx, cy, flags);
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
  const UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0 : SWP_NOREDRAW);
  return ApplyPosition(window, nullptr, x, y, width, height, flags);
}

BOOL WINAPI BringWindowToTop(HWND window) {
  return ApplyPosition(window, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

namespace desktop {

namespace {

struct Deferred {
  std::vector<WINDOWPOS> moves;
};

std::map<HDWP, Deferred>& DeferTable() {
  static auto& table = *new std::map<HDWP, Deferred>;
  return table;
}

ULONG_PTR g_nextDefer = 0x20001;

}  // namespace

}  // namespace desktop

HDWP WINAPI BeginDeferWindowPos(int count) {
  WorldLock lock(WorldMutex());
  if (count < 0) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  if (FailsHere()) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  const auto handle = reinterpret_cast<HDWP>(g_nextDefer += 2);
  DeferTable()[handle];
  return handle;
}

HDWP WINAPI DeferWindowPos(HDWP info, HWND window, HWND after, int x, int y, int cx, int cy, UINT flags) {
  WorldLock lock(WorldMutex());
  const auto found = DeferTable().find(info);
  if (found == DeferTable().end()) {
    SetLastError(ERROR_INVALID_DWP_HANDLE);
    return nullptr;
  }
  if (!FromHandleOrError(window)) {
    DeferTable().erase(found);
    return nullptr;
  }
  for (WINDOWPOS& pos : found->second.moves) {
    if (pos.hwnd != window) continue;
    // Two orders for one window become one.
    if (!(flags & SWP_NOZORDER)) pos.hwndInsertAfter = after;
    if (!(flags & SWP_NOMOVE)) pos.x = x, pos.y = y;
    if (!(flags & SWP_NOSIZE)) pos.cx = cx, pos.cy = cy;
    const UINT nots = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE |
                      SWP_NOCOPYBITS | SWP_NOOWNERZORDER;
    pos.flags &= flags | ~nots;
    pos.flags |= flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED);
    return info;
  }
  found->second.moves.push_back({window, after, x, y, cx, cy, flags});
  return info;
}

BOOL WINAPI EndDeferWindowPos(HDWP info) {
  std::vector<WINDOWPOS> moves;
  {
    WorldLock lock(WorldMutex());
    const auto found = DeferTable().find(info);
    if (found == DeferTable().end()) {
      SetLastError(ERROR_INVALID_DWP_HANDLE);
      return FALSE;
    }
    moves = std::move(found->second.moves);
    DeferTable().erase(found);
  }
  bool all = true;
  for (const WINDOWPOS& pos : moves)
    all = ApplyPosition(pos.hwnd, pos.hwndInsertAfter, pos.x, pos.y, pos.cx, pos.cy, pos.flags) && all;
  return all;
}
