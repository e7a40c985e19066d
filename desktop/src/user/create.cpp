// Birth of windows.
#include <algorithm>

#include "controls/controls.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

DWORD WithEdge(DWORD style, DWORD exStyle) {
  const bool edge = (exStyle & WS_EX_DLGMODALFRAME) ||
                    (!(exStyle & WS_EX_STATICEDGE) && (style & (WS_DLGFRAME | WS_THICKFRAME)));
  return edge ? exStyle | WS_EX_WINDOWEDGE : exStyle & ~WS_EX_WINDOWEDGE;
}

// What the caller asked for, put right.
struct Plan {
  CREATESTRUCTW cs{};
  Window* parent = nullptr;
  Window* owner = nullptr;
  bool messageOnly = false;
  bool defaultShow = false;
  std::shared_ptr<WindowClass> cls;
};

bool ResolveParent(Plan& plan, HWND parent) {
  const bool child = (plan.cs.style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
  if (parent == HWND_MESSAGE) {
    plan.messageOnly = true;
    plan.parent = MessageRoot();
    return true;
  }
  Window* given = parent && parent != GetDesktopWindow() ? FromHandle(parent) : nullptr;
  if (parent && !given && parent != GetDesktopWindow()) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return false;
  }
  if (given == MessageRoot() || (given && given->parent == MessageRoot() && !child)) {
    plan.messageOnly = true;
    plan.parent = MessageRoot();
    return true;
  }
  if (child) {
    if (!parent) {
      SetLastError(ERROR_TLW_WITH_WSCHILD);
      return false;
    }
    plan.parent = given ? given : DesktopWindow();
    plan.messageOnly = plan.parent->messageOnly;
    return true;
  }
  plan.parent = DesktopWindow();
  plan.owner = given ? TopLevel(given) : nullptr;
  return true;
}

// Windows that are no children have more styles than they were given; WM_CREATE does not tell.
DWORD FullStyle(DWORD style) {
  if (!(style & (WS_CHILD | WS_POPUP))) style |= WS_CAPTION | WS_CLIPSIBLINGS;
  if ((style & WS_POPUP) && !(style & WS_CHILD)) style |= WS_CLIPSIBLINGS;
  return style;
}

// CW_USEDEFAULT has a meaning for overlapped windows only; for others it is 0.
void FixPlace(Plan& plan) {
  CREATESTRUCTW& cs = plan.cs;
  const bool overlapped = !(cs.style & (WS_CHILD | static_cast<LONG>(WS_POPUP)));
  if (cs.x == CW_USEDEFAULT) {
    plan.defaultShow = overlapped && cs.y == CW_USEDEFAULT;
    if (overlapped && cs.y != CW_USEDEFAULT) {
      // As on Windows y is then a command for ShowWindow.
      plan.cs.y = 0;
    }
    cs.x = 0;
    cs.y = 0;
  }
  if (cs.cx != CW_USEDEFAULT) return;
  if (!overlapped) {
    cs.cx = cs.cy = 0;
    return;
  }
  const RECT work{0, 0, Metric(SM_CXSCREEN), Metric(SM_CYSCREEN)};
  cs.cx = work.right * 3 / 4 - Near(cs.x);
  cs.cy = work.bottom * 3 / 4 - Near(cs.y);
}

RECT PlaceOf(const CREATESTRUCTW& cs) {
  const int x = Near(cs.x);
  const int y = Near(cs.y);
  return {x, y, x + std::clamp(cs.cx, 0, 32767), y + std::clamp(cs.cy, 0, 32767)};
}

Window* Make(const Plan& plan) {
  Window* window = AllocateWindow();
  if (!window) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  const CREATESTRUCTW& cs = plan.cs;
  window->cls = plan.cls;
  ++plan.cls->windows;
  window->queue = MyQueue();
  window->proc = plan.cls->proc;
  window->owner = plan.owner;
  window->messageOnly = plan.messageOnly;
  window->style = FullStyle(static_cast<DWORD>(cs.style)) & ~(WS_VISIBLE | WS_MINIMIZE | WS_MAXIMIZE);
  window->exStyle = cs.dwExStyle;
  window->instance = cs.hInstance;
  window->extra.resize(static_cast<size_t>(plan.cls->windowExtra));
  if (window->IsChildStyle()) {
    window->id = reinterpret_cast<LONG_PTR>(cs.hMenu);
  } else {
    window->menu = cs.hMenu;
  }
  window->rect = window->client = PlaceOf(cs);
  LinkWindow(window, plan.parent, nullptr);
  return window;
}

// Children start at the bottom of the z-order, others at the top of their band.
void PlaceInOrder(Window* window) {
  Window* parent = window->parent;
  UnlinkWindow(window);
  if (window->IsChildStyle()) {
    LinkWindow(window, parent, parent->lastChild);
    return;
  }
  Window* after = nullptr;
  if (!(window->exStyle & WS_EX_TOPMOST))
    for (Window* top = parent->firstChild; top && (top->exStyle & WS_EX_TOPMOST); top = top->below)
      after = top;
  LinkWindow(window, parent, after);
}

void ApplyTrackLimits(HWND handle) {
  RECT rect;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(handle);
    if (!window || !((window->style & WS_THICKFRAME) || !(window->style & (WS_POPUP | WS_CHILD)))) return;
    rect = window->rect;
  }
  const MINMAXINFO info = AskMinMax(handle);
  const int cx = std::max(std::min(rect.right - rect.left, info.ptMaxTrackSize.x), info.ptMinTrackSize.x);
  const int cy = std::max(std::min(rect.bottom - rect.top, info.ptMaxTrackSize.y), info.ptMinTrackSize.y);
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return;
  window->rect.right = window->rect.left + std::max(cx, 0);
  window->rect.bottom = window->rect.top + std::max(cy, 0);
  window->client = window->rect;
}

// WM_NCCALCSIZE speaks of the screen here, because there is no second rectangle to compare with.
void AskClientArea(HWND handle) {
  RECT rect;
  POINT origin{};
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(handle);
    if (!window) return;
    rect = window->rect;
    if (window->parent) origin = ClientOrigin(window->parent);
  }
  OffsetRect(&rect, origin.x, origin.y);
  Send(handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect));
  OffsetRect(&rect, -origin.x, -origin.y);
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return;
  window->client = rect;
  window->normalRect = window->rect;
  PlaceInOrder(window);
}

void SendFirstSize(HWND handle) {
  RECT client;
  bool iconic;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window || !window->needsSize) return;
    window->needsSize = false;
    client = window->client;
    iconic = window->style & WS_MINIMIZE;
  }
  if (iconic) return;
  Send(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right - client.left, client.bottom - client.top));
  if (IsWindow(handle)) Send(handle, WM_MOVE, 0, MAKELPARAM(client.left, client.top));
}

int FirstShowCommand(const Plan& plan) {
  if (plan.cs.style & WS_MAXIMIZE) return SW_SHOWMAXIMIZED;
  if (plan.cs.style & WS_MINIMIZE) return SW_SHOWMINIMIZED;
  return SW_SHOW;
}

bool CbtRefuses(HWND handle, CREATESTRUCTW& cs) {
  if (!HasHook(WH_CBT)) return false;
  const bool child = (cs.style & (WS_CHILD | static_cast<LONG>(WS_POPUP))) == WS_CHILD;
  CBT_CREATEWNDW info{&cs, child ? HWND_BOTTOM : HWND_TOP};
  const CREATESTRUCTW before = cs;
  if (CallHooks(WH_CBT, HCBT_CREATEWND, reinterpret_cast<WPARAM>(handle), reinterpret_cast<LPARAM>(&info)))
    return true;
  if (before.x == cs.x && before.y == cs.y && before.cx == cs.cx && before.cy == cs.cy) return false;
  // The hook has moved the window.
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (window) window->rect = window->client = PlaceOf(cs);
  return false;
}

// A window that refuses to live ends without WM_DESTROY.
void Abandon(HWND handle) {
  if (IsWindow(handle)) Finish(handle);
}

// The conversation with the window procedure. False if it does not want to live.
bool Introduce(HWND handle, Plan& plan, CREATESTRUCTW& cs) {
  if (CbtRefuses(handle, cs)) {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (window) DestroyQuietly(window);
    return false;
  }
  ApplyTrackLimits(handle);
  if (!IsWindow(handle)) return false;
  const auto param = reinterpret_cast<LPARAM>(&cs);
  if (!Send(handle, WM_NCCREATE, 0, param)) {
    Abandon(handle);
    return false;
  }
  if (!IsWindow(handle)) return false;
  AskClientArea(handle);
  if (!IsWindow(handle)) return false;
  if (Send(handle, WM_CREATE, 0, param) == -1) {
    Abandon(handle);
    return false;
  }
  if (!IsWindow(handle)) return false;
  {
    WorldLock lock(WorldMutex());
    FromHandle(handle)->created = true;
  }
  // Overlapped windows hear of their size when they are shown first.
  if (cs.style & (WS_CHILD | static_cast<LONG>(WS_POPUP))) SendFirstSize(handle);
  if (!IsWindow(handle)) return false;
  if (plan.cs.style & (WS_MINIMIZE | WS_MAXIMIZE)) {
    RECT rect;
    const UINT flags = MinMaximize(handle, plan.cs.style & WS_MINIMIZE ? SW_MINIMIZE : SW_MAXIMIZE, &rect);
    SetWindowPos(handle, nullptr, rect.left, rect.top, rect.right, rect.bottom,
                 flags | SWP_FRAMECHANGED | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  NotifyParent(handle, WM_CREATE);
  return IsWindow(handle);
}

HMENU ClassMenu(const WindowClass& cls, HINSTANCE instance) {
  if (!cls.hasMenuName) return nullptr;
  return LoadMenuW(cls.instance ? cls.instance : instance,
                   cls.menuName.empty() ? cls.menuId : cls.menuName.c_str());
}

}  // namespace

void NotifyParent(HWND handle, UINT event) {
  const bool life = event == WM_CREATE || event == WM_DESTROY;
  const auto child = reinterpret_cast<LPARAM>(handle);
  const POINT point = CursorPos();
  WPARAM wParam = event;
  if (life) wParam = MAKEWPARAM(event, GetDlgCtrlID(handle));
  for (;;) {
    LPARAM lParam = child;
    {
      WorldLock lock(WorldMutex());
      const Window* window = FromHandle(handle);
      if (!window || !window->IsChildStyle() || (window->exStyle & WS_EX_NOPARENTNOTIFY)) return;
      if (!window->parent || !window->parent->parent) return;
      handle = window->parent->handle;
      const POINT origin = ClientOrigin(window->parent);
      if (!life) lParam = MAKELPARAM(point.x - origin.x, point.y - origin.y);
    }
    Send(handle, WM_PARENTNOTIFY, wParam, lParam);
    if (life) return;
  }
}

}  // namespace desktop

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                            LPVOID param) {
  Plan plan;
  plan.cs = {param, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
             title, className, exStyle};
  HMENU ownMenu = menu;
  const bool child = (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
  HWND handle;
  {
    WorldLock lock(WorldMutex());
    plan.cls = FindClass(className, instance ? instance : GetModuleHandleW(nullptr));
    if (!plan.cls) {
      SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
      return nullptr;
    }
  }
  if (!child && !menu) ownMenu = ClassMenu(*plan.cls, instance);
  {
    WorldLock lock(WorldMutex());
    if (FailsHere()) {
      SetLastError(ERROR_NOT_ENOUGH_MEMORY);
      return nullptr;
    }
    if (!ResolveParent(plan, parent)) return nullptr;
    plan.cs.dwExStyle = WithEdge(FullStyle(style), plan.cs.dwExStyle);
    FixPlace(plan);
    plan.cs.hMenu = ownMenu;
    Window* window = Make(plan);
    if (!window) return nullptr;
    handle = window->handle;
  }
  CREATESTRUCTW cs = plan.cs;
  cs.hwndParent = parent;
  if (!Introduce(handle, plan, cs)) return nullptr;
  if (style & WS_VISIBLE) ShowWindow(handle, FirstShowCommand(plan));
  return IsWindow(handle) ? handle : nullptr;
}
