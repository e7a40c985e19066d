// Which window a mouse event is for, and what comes before the window sees it.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

constexpr UINT kToNonClient = WM_NCMOUSEMOVE - WM_MOUSEMOVE;

bool IsButtonDown(UINT message) {
  return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
         message == WM_XBUTTONDOWN;
}

bool TakesMouse(const Window* window) {
  return (window->style & WS_VISIBLE) && !(window->IsChildStyle() && (window->style & WS_DISABLED));
}

bool SeenThrough(const Window* window) {
  constexpr DWORD both = WS_EX_LAYERED | WS_EX_TRANSPARENT;
  return (window->exStyle & both) == both;
}

// The windows under a point from the deepest outwards; only those with WM_NCHITTEST left to say more.
void Collect(const Window* window, POINT inParent, std::vector<HWND>& found) {
  if (!TakesMouse(window) || SeenThrough(window) || !PtInRect(&window->rect, inParent)) return;
  const POINT inside{inParent.x - window->rect.left, inParent.y - window->rect.top};
  if (window->shape && !window->shape->Contains(inside.x, inside.y)) return;
  if (!(window->style & (WS_MINIMIZE | WS_DISABLED)) && PtInRect(&window->client, inParent)) {
    const POINT inClient{inParent.x - window->client.left, inParent.y - window->client.top};
    for (const Window* child = window->firstChild; child; child = child->below)
      Collect(child, inClient, found);
  }
  found.push_back(window->handle);
}

std::vector<HWND> WindowsUnder(HWND root, POINT point) {
  WorldLock lock(WorldMutex());
  std::vector<HWND> found;
  const Window* from = root ? FromHandle(root) : nullptr;
  if (from && from->parent) {
    const POINT origin = ClientOrigin(from->parent);
    Collect(from, {point.x - origin.x, point.y - origin.y}, found);
    return found;
  }
  for (const Window* top = DesktopWindow()->firstChild; top; top = top->below) Collect(top, point, found);
  return found;
}

struct HitInfo {
  HWND window;
  DWORD style;
  bool mine;
};

HitInfo Info(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  if (!window) return {};
  return {handle, window->style, window->queue == MyQueue()};
}

HWND TopOfChildren(HWND handle) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  return window ? TopLevel(window)->handle : nullptr;
}

// Double clicks: the same button in the same window soon after and close by.
UINT CountClick(UINT message, HWND window, const InputEvent& event, bool wants, bool remove) {
  if (!IsButtonDown(event.message)) return message;
  WorldLock lock(WorldMutex());
  Click& click = MyQueue()->click;
  const bool second = wants && event.message == click.message && window == click.window &&
                      event.time - click.time < GetDoubleClickTime() &&
                      std::abs(event.point.x - click.point.x) < Metric(SM_CXDOUBLECLK) / 2 &&
                      std::abs(event.point.y - click.point.y) < Metric(SM_CYDOUBLECLK) / 2;
  if (remove) click = second ? Click{} : Click{event.message, window, event.time, event.point};
  return second ? message + (WM_LBUTTONDBLCLK - WM_LBUTTONDOWN) : message;
}

// False if the click goes no further.
bool ActivateForClick(HWND window, int hit, UINT message) {
  HWND active;
  {
    WorldLock lock(WorldMutex());
    active = MyQueue()->active;
  }
  if (window == active) return true;
  const HWND top = TopOfChildren(window);
  if (!top) return true;
  const LRESULT answer =
      Send(window, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top), MAKELONG(hit, message));
  switch (answer) {
    case MA_NOACTIVATEANDEAT: return false;
    case MA_NOACTIVATE: return true;
    case MA_ACTIVATEANDEAT: MakeForeground(top, true); return false;
    default: return MakeForeground(top, true);
  }
}

bool HookRefuses(const MSG& msg, int hit, bool remove, ULONG_PTR extra) {
  if (!HasHook(WH_MOUSE)) return false;
  MOUSEHOOKSTRUCT info{msg.pt, msg.hwnd, static_cast<UINT>(hit), extra};
  return CallHooks(WH_MOUSE, remove ? HC_ACTION : HC_NOREMOVE, msg.message,
                   reinterpret_cast<LPARAM>(&info)) != 0;
}

struct Aim {
  HWND window = nullptr;
  int hit = HTCLIENT;
  bool captured = false;
};

Aim AimOf(const InputEvent& event) {
  Aim aim;
  {
    WorldLock lock(WorldMutex());
    const Queue& queue = *MyQueue();
    if (queue.capture) return {queue.capture, HTCLIENT, true};
  }
  aim.window = WindowAt(nullptr, event.point, &aim.hit);
  return aim;
}

bool WantsDoubleClicks(HWND handle, int hit) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return hit != HTCLIENT || (window && (window->cls->style & CS_DBLCLKS));
}

bool IsWheel(UINT message) { return message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL; }

void AddressToWindow(MSG& msg, const InputEvent& event, const Aim& aim) {
  msg.lParam = MAKELPARAM(event.point.x, event.point.y);
  if (aim.captured || aim.hit == HTCLIENT) {
    if (IsWheel(event.message)) return;
    POINT point = event.point;
    ScreenToClient(msg.hwnd, &point);
    msg.lParam = MAKELPARAM(point.x, point.y);
    return;
  }
  if (IsWheel(event.message)) return;
  msg.message += kToNonClient;
  const bool x = event.message == WM_XBUTTONDOWN || event.message == WM_XBUTTONUP;
  msg.wParam = x ? MAKEWPARAM(aim.hit, HIWORD(event.wParam)) : static_cast<WPARAM>(aim.hit);
}

}  // namespace

bool ContainsPoint(const Window* window, POINT screenPoint) {
  const RECT rect = WindowOnScreen(window);
  if (!PtInRect(&rect, screenPoint)) return false;
  return !window->shape || window->shape->Contains(screenPoint.x - rect.left, screenPoint.y - rect.top);
}

Window* WindowAtQuietly(POINT point) {
  for (Window* top = DesktopWindow()->firstChild; top; top = top->below) {
    std::vector<HWND> found;
    Collect(top, point, found);
    if (!found.empty()) return FromHandle(found.front());
  }
  return nullptr;
}

HWND WindowAt(HWND root, POINT point, int* hit) {
  *hit = HTNOWHERE;
  for (HWND handle : WindowsUnder(root, point)) {
    const HitInfo info = Info(handle);
    if (!info.window) continue;
    if (info.style & WS_MINIMIZE) {
      *hit = HTCAPTION;
      return handle;
    }
    if (info.style & WS_DISABLED) {
      *hit = HTERROR;
      return handle;
    }
    if (!info.mine) {
      *hit = HTCLIENT;
      return handle;
    }
    const auto answer = static_cast<int>(Send(handle, WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y)));
    if (answer == HTTRANSPARENT) continue;
    *hit = answer;
    return handle;
  }
  return nullptr;
}

InputOutcome MakeMouseMessage(const InputEvent& event, MSG& msg, const Filter& filter) {
  Aim aim = AimOf(event);
  const bool remove = filter.Removes();
  const auto drop = [&event] {
    WorldLock lock(WorldMutex());
    ApplyKeys(*MyQueue(), event);
    return InputOutcome::drop;
  };
  if (!aim.window || !IsWindow(aim.window)) return drop();
  if (!Info(aim.window).mine) {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(aim.window);
    if (window && window->queue) {
      window->queue->input.push_back(event);
      SetChanged(*window->queue, QS_MOUSE);
    }
    return InputOutcome::drop;
  }
  msg = {aim.window, event.message, event.wParam, 0, event.time, event.point};
  const HWND hitWindow = aim.window;
  AddressToWindow(msg, event, aim);
  msg.message = CountClick(msg.message, msg.hwnd, event, WantsDoubleClicks(msg.hwnd, aim.hit), false);
  if (!filter.Takes(msg.message) || !MatchesFilter(msg.hwnd, filter.window)) {
    return InputOutcome::leave;
  }
  if (HookRefuses(msg, aim.hit, remove, event.extra)) return drop();
  if (aim.hit == HTERROR || aim.hit == HTNOWHERE) {
    Send(hitWindow, WM_SETCURSOR, reinterpret_cast<WPARAM>(hitWindow), MAKELONG(aim.hit, event.message));
    return drop();
  }
  if (remove) {
    CountClick(msg.message, msg.hwnd, event, WantsDoubleClicks(msg.hwnd, aim.hit), true);
    WorldLock lock(WorldMutex());
    Queue& queue = *MyQueue();
    ApplyKeys(queue, event);
    // The event is taken: what the messages below may pump must not see it again.
    std::erase_if(queue.input, [&event](const InputEvent& e) { return e.id == event.id; });
  }
  if (!remove || aim.captured) return InputOutcome::deliver;
  bool goesOn = true;
  if (IsButtonDown(event.message)) {
    NotifyParent(msg.hwnd, event.message);
    goesOn = ActivateForClick(msg.hwnd, aim.hit, event.message);
  }
  Send(hitWindow, WM_SETCURSOR, reinterpret_cast<WPARAM>(hitWindow), MAKELONG(aim.hit, event.message));
  return goesOn ? InputOutcome::deliver : InputOutcome::drop;
}

void CheckTrackedMouse(Queue& queue) {
  TrackedMouse& tracked = queue.tracked;
  const Window* window = FromHandle(tracked.window);
  if (!window) return;
  for (const InputEvent& event : queue.input)
    if (event.message >= WM_MOUSEFIRST && event.message <= WM_MOUSELAST) return;
  const POINT point = CursorPos();
  const RECT client = ClientOnScreen(window);
  const bool nonclient = tracked.flags & TME_NONCLIENT;
  const bool inside = WindowAtQuietly(point) == window && (PtInRect(&client, point) != 0) != nonclient;
  const auto post = [&queue, window](UINT message, WPARAM wParam, LPARAM lParam) {
    queue.posted.push_back({window->handle, message, wParam, lParam, ClockTicks(), CursorPos()});
    queue.changed |= QS_POSTMESSAGE;
  };
  if (!inside) {
    if (tracked.flags & TME_LEAVE) post(nonclient ? WM_NCMOUSELEAVE : WM_MOUSELEAVE, 0, 0);
    tracked = {};
    return;
  }
  if (!(tracked.flags & TME_HOVER)) return;
  const POINT from = tracked.hoverPoint;
  if (std::abs(point.x - from.x) > 2 || std::abs(point.y - from.y) > 2) {
    tracked.hoverPoint = point;
    tracked.hoverDue = ClockNow() + tracked.hoverTime;
    return;
  }
  if (ClockNow() < tracked.hoverDue) return;
  tracked.flags &= ~TME_HOVER;
  const POINT inClient{point.x - client.left, point.y - client.top};
  const POINT shown = nonclient ? point : inClient;
  post(nonclient ? WM_NCMOUSEHOVER : WM_MOUSEHOVER, 0, MAKELPARAM(shown.x, shown.y));
  if (!(tracked.flags & TME_LEAVE)) tracked = {};
}

}  // namespace desktop

HWND WINAPI WindowFromPoint(POINT point) {
  int hit;
  const HWND window = WindowAt(nullptr, {Near(point.x), Near(point.y)}, &hit);
  return window ? window : GetDesktopWindow();
}

BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT event) {
  if (!event || event->cbSize < sizeof(TRACKMOUSEEVENT)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  WorldLock lock(WorldMutex());
  Queue& queue = *MyQueue();
  TrackedMouse& tracked = queue.tracked;
  if (event->dwFlags & TME_QUERY) {
    *event = {sizeof(TRACKMOUSEEVENT), tracked.flags, tracked.window,
              tracked.flags & TME_HOVER ? tracked.hoverTime : 0};
    return TRUE;
  }
  if (!FromHandleOrError(event->hwndTrack)) return FALSE;
  if (event->dwFlags & TME_CANCEL) {
    if (tracked.window != event->hwndTrack) return TRUE;
    tracked.flags &= ~(event->dwFlags & ~TME_CANCEL);
    if (!(tracked.flags & (TME_LEAVE | TME_HOVER))) tracked = {};
    return TRUE;
  }
  const DWORD known = TME_HOVER | TME_LEAVE | TME_NONCLIENT;
  tracked = {};
  tracked.window = event->hwndTrack;
  tracked.flags = event->dwFlags & known;
  const bool standard = event->dwHoverTime == HOVER_DEFAULT || event->dwHoverTime == 0;
  tracked.hoverTime = standard ? 400 : event->dwHoverTime;
  tracked.hoverPoint = CursorPos();
  tracked.hoverDue = ClockNow() + tracked.hoverTime;
  SetChanged(queue, 0);
  return TRUE;
}

BOOL WINAPI DragDetect(HWND window, POINT start) {
  // The button is up or the mouse has left the drag box, whatever comes first.
  const RECT box{start.x - Metric(SM_CXDRAG), start.y - Metric(SM_CYDRAG), start.x + Metric(SM_CXDRAG),
                 start.y + Metric(SM_CYDRAG)};
  SetCapture(window);
  MSG msg;
  for (;;) {
    while (PeekMessageW(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) {
      if (msg.message == WM_LBUTTONUP) {
        ReleaseCapture();
        return FALSE;
      }
      POINT point{static_cast<short>(LOWORD(msg.lParam)), static_cast<short>(HIWORD(msg.lParam))};
      if (msg.message == WM_MOUSEMOVE && !PtInRect(&box, point)) {
        ReleaseCapture();
        return TRUE;
      }
    }
    if (GetCapture() != window) return FALSE;
    WaitMessage();
  }
}
