// Who is whose parent, owner, neighbour; searching and walking windows; points between them.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

HWND HandleOf(const Window* window) { return window ? window->handle : nullptr; }

bool SameText(const std::wstring& text, LPCWSTR wanted) {
  return !wanted || FoldCase(text.c_str()) == FoldCase(wanted);
}

bool SameClass(const Window* window, LPCWSTR wanted) {
  if (!wanted) return true;
  if (IsAtom(wanted)) return window->cls->atom == static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(wanted));
  return FoldCase(window->cls->name.c_str()) == FoldCase(wanted);
}

void CollectDescendants(const Window* window, std::vector<HWND>& found) {
  for (const Window* child = window->firstChild; child; child = child->below) {
    found.push_back(child->handle);
    CollectDescendants(child, found);
  }
}

BOOL CallFor(const std::vector<HWND>& windows, WNDENUMPROC proc, LPARAM param) {
  for (HWND window : windows) {
    // A callback may destroy windows that come later.
    if (IsWindow(window) && !proc(window, param)) return FALSE;
  }
  return TRUE;
}

Window* EnabledPopup(Window* owner) {
  for (Window* top = DesktopWindow()->firstChild; top; top = top->below) {
    if (top == owner || (top->style & (WS_VISIBLE | WS_DISABLED)) != WS_VISIBLE) continue;
    for (Window* up = top->owner; up; up = up->owner)
      if (up == owner) return top;
  }
  return nullptr;
}

Window* Related(Window* window, UINT relation) {
  switch (relation) {
    case GW_HWNDFIRST: return window->parent ? window->parent->firstChild : nullptr;
    case GW_HWNDLAST: return window->parent ? window->parent->lastChild : nullptr;
    case GW_HWNDNEXT: return window->below;
    case GW_HWNDPREV: return window->above;
    case GW_OWNER: return window->owner;
    case GW_CHILD: return window->firstChild;
    case GW_ENABLEDPOPUP: return EnabledPopup(window);
    default: SetLastError(ERROR_INVALID_PARAMETER); return nullptr;
  }
}

Window* ChildAt(Window* parent, POINT inClient, UINT flags) {
  const RECT client{0, 0, parent->client.right - parent->client.left,
                    parent->client.bottom - parent->client.top};
  if (!PtInRect(&client, inClient)) {
    // Points in the frame belong to the parent itself.
    const POINT inParent{inClient.x + parent->client.left, inClient.y + parent->client.top};
    return PtInRect(&parent->rect, inParent) ? parent : nullptr;
  }
  for (Window* child = parent->firstChild; child; child = child->below) {
    if ((flags & CWP_SKIPINVISIBLE) && !(child->style & WS_VISIBLE)) continue;
    if ((flags & CWP_SKIPDISABLED) && (child->style & WS_DISABLED)) continue;
    if ((flags & CWP_SKIPTRANSPARENT) && (child->exStyle & WS_EX_TRANSPARENT)) continue;
    if (PtInRect(&child->rect, inClient)) return child;
  }
  return parent;
}

// Wraps around at the ends of the range.
POINT Moved(POINT point, int dx, int dy) {
  RECT rect{point.x, point.y, point.x, point.y};
  OffsetRect(&rect, dx, dy);
  return {rect.left, rect.top};
}

bool Shift(HWND from, HWND to, int& dx, int& dy) {
  WorldLock lock(WorldMutex());
  const Window* a = from ? FromHandleOrError(from) : DesktopWindow();
  const Window* b = to ? FromHandleOrError(to) : DesktopWindow();
  if (!a || !b) return false;
  const POINT pa = ClientOrigin(a);
  const POINT pb = ClientOrigin(b);
  dx = pa.x - pb.x;
  dy = pa.y - pb.y;
  return true;
}

}  // namespace

}  // namespace desktop

BOOL WINAPI IsWindow(HWND window) {
  WorldLock lock(WorldMutex());
  if (FromHandle(window)) return TRUE;
  SetLastError(ERROR_INVALID_WINDOW_HANDLE);
  return FALSE;
}

BOOL WINAPI IsWindowUnicode(HWND window) {
  WorldLock lock(WorldMutex());
  return FromHandleOrError(window) != nullptr;
}

BOOL WINAPI IsWindowVisible(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  return window && IsShown(window) && !window->messageOnly;
}

BOOL WINAPI IsWindowEnabled(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  return window && !(window->style & WS_DISABLED);
}

BOOL WINAPI IsIconic(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window && (window->style & WS_MINIMIZE);
}

BOOL WINAPI IsZoomed(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window && (window->style & WS_MAXIMIZE);
}

BOOL WINAPI IsChild(HWND parent, HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  const Window* ancestor = FromHandle(parent);
  if (!window || !ancestor) return FALSE;
  while (window->IsChildStyle() && window->parent) {
    window = window->parent;
    if (window == ancestor) return TRUE;
  }
  return FALSE;
}

HWND WINAPI GetParent(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window) return nullptr;
  if (window->style & WS_POPUP) return HandleOf(window->owner);
  if (!(window->style & WS_CHILD) || !window->parent) return nullptr;
  return window->parent == MessageRoot() ? nullptr : HandleOf(window->parent);
}

HWND WINAPI GetAncestor(HWND handle, UINT what) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  if (!window || !window->parent) return nullptr;
  if (what == GA_PARENT) return HandleOf(window->parent);
  if (what == GA_ROOT) return HandleOf(TopLevel(window));
  if (what != GA_ROOTOWNER) return nullptr;
  for (;;) {
    Window* up = window->IsChildStyle() ? window->parent : window->owner;
    if (!up || !up->parent) return HandleOf(window);
    window = up;
  }
}

HWND WINAPI GetWindow(HWND handle, UINT relation) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  return window ? HandleOf(Related(window, relation)) : nullptr;
}

HWND WINAPI GetTopWindow(HWND parent) {
  WorldLock lock(WorldMutex());
  const Window* window = parent ? FromHandleOrError(parent) : DesktopWindow();
  return window ? HandleOf(window->firstChild) : nullptr;
}

HWND WINAPI GetLastActivePopup(HWND owner) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(owner);
  if (!window) return owner;
  const Window* popup = FromHandle(window->lastActivePopup);
  return popup ? popup->handle : owner;
}

HWND WINAPI GetDesktopWindow() {
  WorldLock lock(WorldMutex());
  return DesktopWindow()->handle;
}

HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR title) {
  WorldLock lock(WorldMutex());
  const Window* root = parent == HWND_MESSAGE ? MessageRoot()
                       : parent               ? FromHandleOrError(parent)
                                              : DesktopWindow();
  if (!root) return nullptr;
  const Window* window = root->firstChild;
  if (after) {
    const Window* start = FromHandleOrError(after);
    if (!start || start->parent != root) return nullptr;
    window = start->below;
  }
  for (; window; window = window->below)
    if (SameClass(window, className) && SameText(window->text, title)) return window->handle;
  return nullptr;
}

HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title) {
  if (HWND found = FindWindowExW(nullptr, nullptr, className, title)) return found;
  return FindWindowExW(HWND_MESSAGE, nullptr, className, title);
}

BOOL WINAPI EnumWindows(WNDENUMPROC proc, LPARAM param) {
  return proc && CallFor(ChildHandles(nullptr), proc, param);
}

BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM param) {
  if (!proc) return FALSE;
  std::vector<HWND> found;
  {
    WorldLock lock(WorldMutex());
    const Window* window = parent ? FromHandleOrError(parent) : DesktopWindow();
    if (!window) return FALSE;
    if (IsDesktop(window)) {
      for (const Window* top = window->firstChild; top; top = top->below) found.push_back(top->handle);
    } else {
      CollectDescendants(window, found);
    }
  }
  return CallFor(found, proc, param);
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC proc, LPARAM param) {
  if (!proc) return FALSE;
  std::vector<HWND> found;
  {
    WorldLock lock(WorldMutex());
    for (const Window* top = DesktopWindow()->firstChild; top; top = top->below)
      if (top->queue && top->queue->thread == thread) found.push_back(top->handle);
  }
  return CallFor(found, proc, param);
}

DWORD WINAPI GetWindowThreadProcessId(HWND handle, LPDWORD process) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window) return 0;
  if (process) *process = GetCurrentProcessId();
  return window->queue ? window->queue->thread : GetCurrentThreadId();
}

HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(parent);
  return window ? HandleOf(ChildAt(window, {Near(point.x), Near(point.y)}, flags)) : nullptr;
}

HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point) {
  return ChildWindowFromPointEx(parent, point, CWP_ALL);
}

HWND WINAPI RealChildWindowFromPoint(HWND parent, POINT point) {
  return ChildWindowFromPointEx(parent, point, CWP_SKIPTRANSPARENT | CWP_SKIPINVISIBLE);
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count) {
  int dx;
  int dy;
  if (!points || !Shift(from, to, dx, dy)) return 0;
  for (UINT i = 0; i < count; ++i) {
    points[i] = Moved(points[i], dx, dy);
  }
  return MAKELONG(dx, dy);
}

BOOL WINAPI ClientToScreen(HWND window, LPPOINT point) {
  int dx;
  int dy;
  if (!point || !window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (!Shift(window, nullptr, dx, dy)) return FALSE;
  *point = Moved(*point, dx, dy);
  return TRUE;
}

BOOL WINAPI ScreenToClient(HWND window, LPPOINT point) {
  int dx;
  int dy;
  if (!point || !window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (!Shift(nullptr, window, dx, dy)) return FALSE;
  *point = Moved(*point, dx, dy);
  return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window || !rect) return FALSE;
  *rect = window->client;
  OffsetRect(rect, -rect->left, -rect->top);
  return TRUE;
}

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window || !rect) return FALSE;
  *rect = WindowOnScreen(window);
  return TRUE;
}

HWND WINAPI GetDlgItem(HWND parent, int id) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(parent);
  if (!window) return nullptr;
  for (const Window* child = window->firstChild; child; child = child->below)
    if (static_cast<int>(child->id) == id) return child->handle;
  SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
  return nullptr;
}

int WINAPI GetDlgCtrlID(HWND handle) { return static_cast<int>(GetWindowLongPtrW(handle, GWLP_ID)); }

HWND WINAPI SetParent(HWND handle, HWND parent) {
  HWND old;
  bool visible;
  RECT rect;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandleOrError(handle);
    Window* target = parent == HWND_MESSAGE ? MessageRoot()
                     : parent               ? FromHandleOrError(parent)
                                            : DesktopWindow();
    if (!window || !target) return nullptr;
    if (!window->parent || IsDescendant(window, target)) {
      SetLastError(ERROR_INVALID_PARAMETER);
      return nullptr;
    }
    old = window->parent->handle;
    visible = window->style & WS_VISIBLE;
  }
  // Hidden while it changes sides.
  if (visible) ShowWindow(handle, SW_HIDE);
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    Window* target = parent == HWND_MESSAGE ? MessageRoot() : parent ? FromHandle(parent) : DesktopWindow();
    if (!window || !target) return nullptr;
    rect = window->rect;
    UnlinkWindow(window);
    LinkWindow(window, target, nullptr);
    window->messageOnly = target->messageOnly || target == MessageRoot();
    window->surface.reset();
    RetargetDCs();
  }
  SetWindowPos(handle, HWND_TOP, rect.left, rect.top, 0, 0, SWP_NOSIZE | (visible ? 0 : SWP_NOACTIVATE));
  if (visible && IsWindow(handle)) ShowWindow(handle, SW_SHOW);
  return old;
}
