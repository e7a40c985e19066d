// Death of windows.
#include <algorithm>

#include "controls/controls.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

std::vector<HWND> OwnedBy(HWND owner) {
  WorldLock lock(WorldMutex());
  std::vector<HWND> owned;
  const Window* window = FromHandle(owner);
  for (const Window* top = DesktopWindow()->firstChild; window && top; top = top->below)
    if (top->owner == window) owned.push_back(top->handle);
  return owned;
}

bool IsMine(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window && window->queue == MyQueue();
}

void DestroyOwned(HWND owner) {
  for (HWND owned : OwnedBy(owner))
    if (IsMine(owned)) DestroyWindow(owned);
}

// WM_DESTROY goes from parents to children.
void Announce(HWND handle) {
  bool caret = false;
  bool active = false;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return;
    window->destroying = true;
    caret = MyQueue()->caret.window == handle;
    active = MyQueue()->active == handle;
  }
  if (caret) DestroyCaret();
  if (active) ActivateOther(handle);
  Send(handle, WM_DESTROY);
  if (!IsWindow(handle)) return;
  for (HWND child : ChildHandles(handle))
    if (IsWindow(child)) Announce(child);
}

}  // namespace

void Finish(HWND handle) {
  for (HWND child : ChildHandles(handle))
    if (IsMine(child)) Finish(child);
  if (!IsWindow(handle)) return;
  Send(handle, WM_NCDESTROY);
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (window) DestroyQuietly(window);
}

void DestroyQuietly(Window* window) {
  while (window->firstChild) DestroyQuietly(window->firstChild);
  const HWND handle = window->handle;
  for (Window* other : AllWindows()) {
    if (other->owner == window) other->owner = nullptr;
    if (other->lastActivePopup == handle) other->lastActivePopup = nullptr;
  }
  DropDCs(window);
  ControlsForgetWindow(handle);
  QueueForgetsWindow(handle);
  --window->cls->windows;
  FreeWindow(window);
  RetargetDCs();
}

}  // namespace desktop

BOOL WINAPI DestroyWindow(HWND handle) {
  bool child;
  bool visible;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandleOrError(handle);
    if (!window) return FALSE;
    if (window->queue != MyQueue()) {
      SetLastError(ERROR_ACCESS_DENIED);
      return FALSE;
    }
    child = window->IsChildStyle();
  }
  if (HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_DESTROYWND, reinterpret_cast<WPARAM>(handle), 0))
    return FALSE;
  if (child) NotifyParent(handle, WM_DESTROY);
  if (!IsWindow(handle)) return TRUE;
  {
    WorldLock lock(WorldMutex());
    visible = FromHandle(handle)->style & WS_VISIBLE;
  }
  if (visible) {
    if (child) {
      ShowWindow(handle, SW_HIDE);
    } else {
      SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    }
    if (!IsWindow(handle)) return TRUE;
  }
  if (!child) {
    DestroyOwned(handle);
    if (!IsWindow(handle)) return TRUE;
  }
  Announce(handle);
  if (IsWindow(handle)) Finish(handle);
  return TRUE;
}
