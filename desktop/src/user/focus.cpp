// Activation, focus, foreground and capture.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

HWND Active() {
  WorldLock lock(WorldMutex());
  return MyQueue()->active;
}

HWND Focus() {
  WorldLock lock(WorldMutex());
  return MyQueue()->focus;
}

DWORD ThreadOf(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window && window->queue ? window->queue->thread : 0;
}

bool Iconic(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window && (window->style & WS_MINIMIZE);
}

// Tells all top-level windows of a thread that it is now (not any more) the active one.
void TellThread(DWORD thread, bool active, DWORD other) {
  if (!thread) return;
  std::vector<HWND> targets;
  {
    WorldLock lock(WorldMutex());
    for (const Window* top = DesktopWindow()->firstChild; top; top = top->below)
      if (top->queue && top->queue->thread == thread) targets.push_back(top->handle);
  }
  for (HWND target : targets)
    if (IsWindow(target)) Send(target, WM_ACTIVATEAPP, active, static_cast<LPARAM>(other));
}

bool CanActivate(const Window* window) {
  return window && !window->IsChildStyle() && (window->style & WS_VISIBLE) &&
         !(window->style & WS_DISABLED) && !window->destroying && !(window->exStyle & WS_EX_NOACTIVATE);
}

void Deactivate(HWND previous, HWND next) {
  if (!IsWindow(previous)) return;
  Send(previous, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(next));
  Send(previous, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, Iconic(previous)), reinterpret_cast<LPARAM>(next));
}

void FocusAfterActivation(HWND window) {
  HWND focus;
  bool inside = false;
  {
    WorldLock lock(WorldMutex());
    focus = MyQueue()->focus;
    Window* found = FromHandle(focus);
    inside = found && TopLevel(found)->handle == window;
    if (window && MyQueue()->active != window) return;
  }
  if (!focus || !window || !inside) SetFocusTo(window);
}

HWND NextToActivate(Window* window) {
  if (window->style & WS_POPUP) {
    Window* owner = window->owner ? TopLevel(window->owner) : nullptr;
    if (CanActivate(owner)) return owner->handle;
  }
  const Queue* queue = window->queue.get();
  for (Window* other = DesktopWindow()->firstChild; other; other = other->below)
    if (other != window && CanActivate(other) && other->queue.get() == queue) return other->handle;
  return nullptr;
}

}  // namespace

bool MakeActive(HWND window, HWND* before, bool byMouse, bool withFocus) {
  const HWND previous = Active();
  if (before) *before = previous;
  if (previous == window) return true;
  if (HasHook(WH_CBT)) {
    CBTACTIVATESTRUCT info{byMouse, previous};
    if (CallHooks(WH_CBT, HCBT_ACTIVATE, reinterpret_cast<WPARAM>(window), reinterpret_cast<LPARAM>(&info)))
      return false;
  }
  Deactivate(previous, window);
  {
    WorldLock lock(WorldMutex());
    Window* target = FromHandle(window);
    if (window && !target) return false;
    Queue& queue = *MyQueue();
    queue.active = window;
    if (target) {
      Window* root = target;
      while (root->owner) root = root->owner;
      root->lastActivePopup = window;
      target->lastActivePopup = window;
    }
  }
  if (window) Send(window, WM_QUERYNEWPALETTE);
  const DWORD oldThread = previous ? ThreadOf(previous) : 0;
  const DWORD newThread = window ? ThreadOf(window) : 0;
  if (oldThread != newThread) {
    TellThread(oldThread, false, newThread);
    TellThread(newThread, true, oldThread);
  }
  if (IsWindow(window)) {
    const bool foreground = GetForegroundWindow() == window;
    Send(window, WM_NCACTIVATE, foreground, reinterpret_cast<LPARAM>(previous));
    Send(window, WM_ACTIVATE, MAKEWPARAM(byMouse ? WA_CLICKACTIVE : WA_ACTIVE, Iconic(window)),
         reinterpret_cast<LPARAM>(previous));
  }
  if (withFocus && Active() == window) FocusAfterActivation(window);
  return true;
}

void SetFocusTo(HWND window) {
  HWND previous;
  {
    WorldLock lock(WorldMutex());
    Queue& queue = *MyQueue();
    previous = queue.focus;
    if (previous == window || (window && !FromHandle(window))) return;
    queue.focus = window;
  }
  if (IsWindow(previous)) {
    Send(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    if (window != Focus()) return;
  }
  if (IsWindow(window)) Send(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous), 0);
}

bool MakeForeground(HWND window, bool byMouse) {
  std::shared_ptr<Queue> old;
  std::shared_ptr<Queue> mine;
  std::shared_ptr<Queue> target;
  HWND oldActive = nullptr;
  {
    WorldLock lock(WorldMutex());
    mine = MyQueue();
    const Window* found = FromHandle(window);
    if (window && !found) return false;
    target = found && found->queue ? found->queue : mine;
    old = ForegroundQueue();
    if (old && old != target) oldActive = old->active;
    ForegroundQueue() = target;
  }
  if (old && old != target && oldActive) {
    // The other thread's windows lose what they show of being active.
    if (old == mine) {
      MakeActive(nullptr, nullptr, false, true);
    } else {
      SendNotifyMessageW(oldActive, WM_NCACTIVATE, FALSE, 0);
    }
  }
  if (target != mine) {
    WorldLock lock(WorldMutex());
    target->active = target->focus = window;
    return true;
  }
  return MakeActive(window, nullptr, byMouse, true);
}

void ActivateOther(HWND handle) {
  HWND next = nullptr;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (window) next = NextToActivate(window);
  }
  const HWND foreground = GetForegroundWindow();
  if ((!foreground || foreground == handle) && next && MakeForeground(next, false)) return;
  if (!MakeActive(next, nullptr, false, true)) MakeActive(nullptr, nullptr, false, true);
}

HWND SetCaptureTo(HWND window) {
  HWND previous;
  {
    WorldLock lock(WorldMutex());
    Queue& queue = *MyQueue();
    if (window) {
      const Window* found = FromHandleOrError(window);
      if (!found || found->queue.get() != &queue) return nullptr;
    }
    previous = queue.capture;
    queue.capture = window;
  }
  if (previous && IsWindow(previous)) Send(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
  return previous;
}

}  // namespace desktop

HWND WINAPI SetFocus(HWND window) {
  const HWND previous = Focus();
  if (!window) {
    if (!previous) return nullptr;
    if (HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_SETFOCUS, 0, reinterpret_cast<LPARAM>(previous)))
      return nullptr;
    SetFocusTo(nullptr);
    return previous;
  }
  HWND top = window;
  {
    WorldLock lock(WorldMutex());
    Window* found = FromHandleOrError(window);
    if (!found) return nullptr;
    if (found->queue != MyQueue()) {
      SetLastError(ERROR_ACCESS_DENIED);
      return nullptr;
    }
    if (window == previous) return previous;
    for (const Window* each = found; each; each = each->parent) {
      if (each->style & (WS_MINIMIZE | WS_DISABLED)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
      }
      if (!each->IsChildStyle()) {
        top = each->handle;
        break;
      }
    }
  }
  if (HasHook(WH_CBT) &&
      CallHooks(WH_CBT, HCBT_SETFOCUS, reinterpret_cast<WPARAM>(window), reinterpret_cast<LPARAM>(previous)))
    return nullptr;
  if (top != Active()) {
    if (!GetForegroundWindow()) {
      MakeForeground(top, false);
    } else if (!MakeActive(top, nullptr, false, false)) {
      return nullptr;
    }
    if (!IsWindow(window)) return nullptr;
    {
      WorldLock lock(WorldMutex());
      if (MyQueue()->active != top) return nullptr;
    }
  }
  SetFocusTo(window);
  return previous;
}

HWND WINAPI GetFocus() { return Focus(); }

HWND WINAPI SetActiveWindow(HWND window) {
  const HWND previous = Active();
  if (window) {
    WorldLock lock(WorldMutex());
    const Window* found = FromHandleOrError(window);
    if (!found || found->queue != MyQueue()) return nullptr;
    if (found->IsChildStyle()) return previous;
    if (found->style & WS_DISABLED) return nullptr;
  }
  bool takeForeground;
  {
    WorldLock lock(WorldMutex());
    takeForeground = !ForegroundQueue();
  }
  if (takeForeground) MakeForeground(window, false);
  if (!MakeActive(window, nullptr, false, true)) return nullptr;
  return previous;
}

HWND WINAPI GetActiveWindow() { return Active(); }

BOOL WINAPI SetForegroundWindow(HWND window) {
  {
    WorldLock lock(WorldMutex());
    Window* found = FromHandleOrError(window);
    if (!found) return FALSE;
    window = TopLevel(found)->handle;
  }
  return MakeForeground(window, false);
}

HWND WINAPI GetForegroundWindow() {
  WorldLock lock(WorldMutex());
  const auto& queue = ForegroundQueue();
  return queue ? queue->active : nullptr;
}

HWND WINAPI SetCapture(HWND window) { return SetCaptureTo(window); }

HWND WINAPI GetCapture() {
  WorldLock lock(WorldMutex());
  return MyQueue()->capture;
}

BOOL WINAPI ReleaseCapture() {
  SetCaptureTo(nullptr);
  return TRUE;
}

BOOL WINAPI GetGUIThreadInfo(DWORD thread, PGUITHREADINFO info) {
  if (!info || info->cbSize != sizeof(GUITHREADINFO)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  WorldLock lock(WorldMutex());
  const auto queue = thread == GetCurrentThreadId() ? MyQueue()
                     : thread                       ? QueueOfThread(thread)
                                                    : ForegroundQueue();
  if (!queue) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  const Caret& caret = queue->caret;
  *info = {sizeof(GUITHREADINFO),
           0,
           queue->active,
           queue->focus,
           queue->capture,
           nullptr,
           queue->moveSize,
           caret.window,
           {caret.x, caret.y, caret.x + caret.width, caret.y + caret.height}};
  if (caret.window && caret.hideCount == 0) info->flags |= GUI_CARETBLINKING;
  if (queue->moveSize) info->flags |= GUI_INMOVESIZE;
  return TRUE;
}
