// ShowWindow, minimising and maximising.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

struct ShowState {
  bool visible = false;
  bool child = false;
  bool parentShown = true;
  DWORD style = 0;
};

bool Inspect(HWND handle, ShowState& state) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window) return false;
  state.style = window->style;
  state.visible = window->style & WS_VISIBLE;
  state.child = window->IsChildStyle();
  state.parentShown = !window->parent || !window->parent->parent || IsShown(window->parent);
  return true;
}

// What a command wants: flags for SetWindowPos, and whether it goes through a change of state.
struct ShowPlan {
  UINT flags = 0;
  RECT place{};
  bool show = true;
  bool nothing = false;
};

ShowPlan PlanFor(HWND handle, int command, const ShowState& state) {
  ShowPlan plan;
  const UINT inPlace = SWP_NOSIZE | SWP_NOMOVE;
  const UINT childFlags = state.child ? SWP_NOACTIVATE | SWP_NOZORDER : 0;
  const auto change = [&](UINT to) { plan.flags |= SWP_FRAMECHANGED | MinMaximize(handle, to, &plan.place); };
  switch (command) {
    case SW_HIDE:
      plan.show = false;
      plan.nothing = !state.visible;
      plan.flags = inPlace | SWP_HIDEWINDOW | childFlags;
      break;
    case SW_SHOWMINNOACTIVE:
    case SW_MINIMIZE:
    case SW_FORCEMINIMIZE: plan.flags = SWP_NOACTIVATE | SWP_NOZORDER; [[fallthrough]];
    case SW_SHOWMINIMIZED:
      plan.flags |= SWP_SHOWWINDOW | SWP_NOCOPYBITS;
      if (state.style & WS_MINIMIZE) {
        plan.flags |= inPlace;
        plan.nothing = state.visible;
      } else {
        change(SW_MINIMIZE);
      }
      break;
    case SW_SHOWMAXIMIZED:
      plan.flags = state.visible ? 0 : SWP_SHOWWINDOW;
      if ((state.style & WS_MAXIMIZE) && state.visible) {
        plan.nothing = true;
      } else if (state.style & WS_MAXIMIZE) {
        plan.flags |= inPlace;
      } else {
        change(SW_MAXIMIZE);
      }
      break;
    case SW_SHOWNA:
      plan.flags = SWP_NOACTIVATE | SWP_SHOWWINDOW | inPlace | (state.child ? SWP_NOZORDER : 0);
      break;
    case SW_SHOW:
      plan.nothing = state.visible;
      plan.flags = SWP_SHOWWINDOW | inPlace | childFlags;
      break;
    case SW_SHOWNOACTIVATE: plan.flags = SWP_NOACTIVATE | SWP_NOZORDER; [[fallthrough]];
    case SW_RESTORE:
    case SW_SHOWNORMAL:
    case SW_SHOWDEFAULT:
      plan.flags |= state.visible ? 0 : SWP_SHOWWINDOW;
      if (state.style & (WS_MINIMIZE | WS_MAXIMIZE)) {
        change(static_cast<UINT>(command));
      } else {
        plan.nothing = state.visible;
        plan.flags |= inPlace | childFlags;
      }
      break;
    default: plan.nothing = true;
  }
  return plan;
}

void FocusAfterHide(HWND handle) {
  if (GetActiveWindow() == handle) ActivateOther(handle);
  const HWND focus = GetFocus();
  if (focus != handle && !IsChild(handle, focus)) return;
  HWND parent = GetAncestor(handle, GA_PARENT);
  if (parent == GetDesktopWindow()) parent = nullptr;
  SetFocus(parent);
}

// A window that was an icon takes the focus, and hears that it is active even if it was so.
void FocusAfterRestore(HWND handle, UINT flags) {
  SetFocus(handle);
  if (IsWindow(handle) && GetAncestor(handle, GA_ROOT) == handle && !(flags & SWP_NOACTIVATE))
    Send(handle, WM_ACTIVATE, WA_ACTIVE, 0);
}

void FirstSize(HWND handle) {
  RECT client;
  DWORD style;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window || !window->needsSize) return;
    window->needsSize = false;
    client = window->client;
    style = window->style;
  }
  const WPARAM how = style & WS_MAXIMIZE   ? SIZE_MAXIMIZED
                     : style & WS_MINIMIZE ? SIZE_MINIMIZED
                                           : SIZE_RESTORED;
  Send(handle, WM_SIZE, how, MAKELPARAM(client.right - client.left, client.bottom - client.top));
  if (IsWindow(handle)) Send(handle, WM_MOVE, 0, MAKELPARAM(client.left, client.top));
}

void RememberNormal(Window* window) {
  if (!(window->style & (WS_MINIMIZE | WS_MAXIMIZE))) window->normalRect = window->rect;
}

}  // namespace

MINMAXINFO AskMinMax(HWND handle) {
  MINMAXINFO info{};
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(handle);
    if (!window) return info;
    const SIZE frame = FrameSize(window->style, window->exStyle);
    info.ptMaxSize = {Metric(SM_CXSCREEN) + 2 * frame.cx, Metric(SM_CYSCREEN) + 2 * frame.cy};
    info.ptMaxPosition = {-frame.cx, -frame.cy};
    if (window->parent && window->parent->parent) {
      const RECT& client = window->parent->client;
      info.ptMaxSize = {client.right - client.left + 2 * frame.cx, client.bottom - client.top + 2 * frame.cy};
    }
    if ((window->style & WS_CAPTION) == WS_CAPTION) {
      info.ptMinTrackSize = {Metric(SM_CXMINTRACK), Metric(SM_CYMINTRACK)};
    } else {
      info.ptMinTrackSize = {2 * frame.cx, 2 * frame.cy};
    }
    info.ptMaxTrackSize = {Metric(SM_CXMAXTRACK), Metric(SM_CYMAXTRACK)};
    if (window->maxPos.x != -1 || window->maxPos.y != -1) info.ptMaxPosition = window->maxPos;
  }
  Send(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
  for (POINT* point : {&info.ptMaxSize, &info.ptMaxPosition, &info.ptMinTrackSize, &info.ptMaxTrackSize})
    *point = Near(*point);
  info.ptMaxTrackSize.x = std::max(info.ptMaxTrackSize.x, info.ptMinTrackSize.x);
  info.ptMaxTrackSize.y = std::max(info.ptMaxTrackSize.y, info.ptMinTrackSize.y);
  return info;
}

// Sets the style for a change of state and says where the window goes: left, top, width, height.
UINT MinMaximize(HWND handle, UINT command, RECT* rect) {
  const UINT nothing = SWP_NOSIZE | SWP_NOMOVE;
  if (HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_MINMAX, reinterpret_cast<WPARAM>(handle), command))
    return nothing;
  const bool maximize = command == SW_MAXIMIZE;
  const bool wasIcon = IsIconic(handle);
  if (wasIcon && command != SW_MINIMIZE && !Send(handle, WM_QUERYOPEN)) return nothing;
  if (command == SW_MINIMIZE && (GetFocus() == handle || IsChild(handle, GetFocus()))) SetFocus(nullptr);
  const MINMAXINFO info = maximize ? AskMinMax(handle) : MINMAXINFO{};
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return nothing;
  RememberNormal(window);
  switch (command) {
    case SW_MINIMIZE:
      window->restoreToMaximized = window->style & WS_MAXIMIZE;
      window->style = (window->style & ~WS_MAXIMIZE) | WS_MINIMIZE;
      *rect = {window->IsChildStyle() ? 0 : -32000, window->IsChildStyle() ? 0 : -32000,
               Metric(SM_CXMINIMIZED), Metric(SM_CYMINIMIZED)};
      return SWP_STATECHANGED;
    case SW_MAXIMIZE:
      window->style = (window->style & ~WS_MINIMIZE) | WS_MAXIMIZE;
      *rect = {info.ptMaxPosition.x, info.ptMaxPosition.y, info.ptMaxSize.x, info.ptMaxSize.y};
      return SWP_STATECHANGED;
    default: break;
  }
  const bool toMaximized =
      (window->style & WS_MINIMIZE) && window->restoreToMaximized && command == SW_RESTORE;
  window->style &= ~(WS_MINIMIZE | WS_MAXIMIZE);
  RECT to = window->normalRect;
  if (toMaximized) {
    window->style |= WS_MAXIMIZE;
    const SIZE frame = FrameSize(window->style, window->exStyle);
    to = {-frame.cx, -frame.cy, Metric(SM_CXSCREEN) + frame.cx, Metric(SM_CYSCREEN) + frame.cy};
  }
  *rect = {to.left, to.top, to.right - to.left, to.bottom - to.top};
  return SWP_STATECHANGED | (wasIcon ? SWP_NOCOPYBITS : 0);
}

}  // namespace desktop

BOOL WINAPI ShowWindow(HWND handle, int command) {
  ShowState state;
  if (!Inspect(handle, state)) return FALSE;
  const ShowPlan plan = PlanFor(handle, command, state);
  if (plan.nothing) return state.visible;
  const bool changesState = plan.flags & SWP_STATECHANGED;
  if ((plan.show != state.visible || command == SW_SHOWNA) && command != SW_SHOWMAXIMIZED && !changesState) {
    Send(handle, WM_SHOWWINDOW, plan.show, 0);
    if (!IsWindow(handle)) return state.visible;
  }
  if (!state.parentShown && !changesState) {
    // Nothing is to be seen: only the style changes.
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return state.visible;
    window->style = plan.show ? window->style | WS_VISIBLE : window->style & ~WS_VISIBLE;
  } else {
    const RECT& to = plan.place;
    SetWindowPos(handle, HWND_TOP, to.left, to.top, to.right, to.bottom, plan.flags);
    if (!IsWindow(handle)) return state.visible;
  }
  if (command == SW_HIDE) {
    FocusAfterHide(handle);
    return state.visible;
  }
  FirstSize(handle);
  if (changesState && (state.style & WS_MINIMIZE) && !IsIconic(handle)) FocusAfterRestore(handle, plan.flags);
  return state.visible;
}

BOOL WINAPI ShowOwnedPopups(HWND owner, BOOL show) {
  std::vector<HWND> popups;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandleOrError(owner);
    if (!window) return FALSE;
    for (Window* top = DesktopWindow()->firstChild; top; top = top->below) {
      if (top->owner != window) continue;
      const bool visible = top->style & WS_VISIBLE;
      if (show ? !visible && top->showPending : visible) popups.push_back(top->handle);
      top->showPending = !show && visible;
    }
  }
  for (HWND popup : popups)
    if (IsWindow(popup)) Send(popup, WM_SHOWWINDOW, show, show ? SW_PARENTOPENING : SW_PARENTCLOSING);
  return TRUE;
}

BOOL WINAPI OpenIcon(HWND window) {
  if (!IsIconic(window)) return FALSE;
  ShowWindow(window, SW_SHOWNORMAL);
  return TRUE;
}

BOOL WINAPI CloseWindow(HWND window) {
  if (!IsWindow(window) || IsIconic(window)) return FALSE;
  ShowWindow(window, SW_MINIMIZE);
  return TRUE;
}

BOOL WINAPI GetWindowPlacement(HWND handle, WINDOWPLACEMENT* placement) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  if (!window || !placement) return FALSE;
  RememberNormal(window);
  *placement = {sizeof(WINDOWPLACEMENT), 0, SW_SHOWNORMAL, window->minPos, window->maxPos,
                window->normalRect};
  if (window->style & WS_MINIMIZE) {
    placement->showCmd = SW_SHOWMINIMIZED;
    if (window->restoreToMaximized) placement->flags |= WPF_RESTORETOMAXIMIZED;
  } else if (window->style & WS_MAXIMIZE) {
    placement->showCmd = SW_SHOWMAXIMIZED;
  }
  return TRUE;
}

BOOL WINAPI SetWindowPlacement(HWND handle, const WINDOWPLACEMENT* placement) {
  bool plain;
  RECT to;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandleOrError(handle);
    if (!window || !placement) return FALSE;
    window->minPos = Near(placement->ptMinPosition);
    window->maxPos = Near(placement->ptMaxPosition);
    window->normalRect = Near(placement->rcNormalPosition);
    window->restoreToMaximized = placement->flags & WPF_RESTORETOMAXIMIZED;
    plain = !(window->style & (WS_MINIMIZE | WS_MAXIMIZE));
    to = window->normalRect;
  }
  if (plain)
    SetWindowPos(handle, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  ShowWindow(handle, static_cast<int>(placement->showCmd));
  return TRUE;
}
