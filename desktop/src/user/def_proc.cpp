// DefWindowProcW.
#include <algorithm>

#include "controls/menu_bar.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

POINT PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

HWND ParentOfChild(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  if (!window || !window->IsChildStyle() || !window->parent || !window->parent->parent) return nullptr;
  return window->parent->handle;
}

DWORD StyleOf(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window ? window->style : 0;
}

LRESULT SetText(HWND handle, LPCWSTR text) {
  bool caption;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return FALSE;
    window->text = text ? text : L"";
    caption = HasCaption(window->style) && IsShown(window);
  }
  if (caption) PaintNonClient(handle, nullptr);
  return TRUE;
}

LRESULT GetText(HWND handle, WPARAM size, LPWSTR text) {
  if (!size || !text) return 0;
  return InternalGetWindowText(handle, text, static_cast<int>(std::min<WPARAM>(size, 0x7fffffff)));
}

LRESULT TextLength(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window ? static_cast<LRESULT>(window->text.size()) : 0;
}

void Paint(HWND window) {
  PAINTSTRUCT ps;
  if (BeginPaint(window, &ps)) EndPaint(window, &ps);
}

LRESULT EraseBackground(HWND handle, HDC dc) {
  HBRUSH brush;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(handle);
    if (!window || !dc) return 0;
    brush = window->cls->background;
  }
  if (!brush) return 0;
  RECT rect;
  GetClipBox(dc, &rect);
  FillRect(dc, &rect, brush);
  return 1;
}

LRESULT PositionChanging(HWND handle, WINDOWPOS& pos) {
  if (pos.flags & SWP_NOSIZE) return 0;
  const DWORD style = StyleOf(handle);
  if (!((style & WS_THICKFRAME) || !(style & (WS_POPUP | WS_CHILD)))) return 0;
  const MINMAXINFO info = AskMinMax(handle);
  pos.cx = std::min(pos.cx, info.ptMaxTrackSize.x);
  pos.cy = std::min(pos.cy, info.ptMaxTrackSize.y);
  if (style & WS_MINIMIZE) return 0;
  pos.cx = std::max(pos.cx, info.ptMinTrackSize.x);
  pos.cy = std::max(pos.cy, info.ptMinTrackSize.y);
  return 0;
}

LRESULT PositionChanged(HWND handle, const WINDOWPOS& pos) {
  RECT client;
  DWORD style;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return 0;
    client = window->client;
    style = window->style;
    if (!(pos.flags & SWP_NOCLIENTSIZE) || (pos.flags & SWP_STATECHANGED)) window->needsSize = false;
  }
  if (!(pos.flags & SWP_NOCLIENTMOVE)) Send(handle, WM_MOVE, 0, MAKELPARAM(client.left, client.top));
  if ((pos.flags & SWP_NOCLIENTSIZE) && !(pos.flags & SWP_STATECHANGED)) return 0;
  const WPARAM how = style & WS_MINIMIZE   ? SIZE_MINIMIZED
                     : style & WS_MAXIMIZE ? SIZE_MAXIMIZED
                                           : SIZE_RESTORED;
  if (IsWindow(handle))
    Send(handle, WM_SIZE, how, MAKELPARAM(client.right - client.left, client.bottom - client.top));
  return 0;
}

LRESULT SetRedrawState(HWND handle, bool redraw) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return 0;
  if (redraw) {
    window->style |= WS_VISIBLE;
  } else if (window->style & WS_VISIBLE) {
    window->update = {};
    for (HWND each : ChildHandles(handle)) {
      Window* child = FromHandle(each);
      if (child) RedrawAll(child, RDW_VALIDATE | RDW_ALLCHILDREN | RDW_NOFRAME | RDW_NOERASE);
    }
    window->style &= ~WS_VISIBLE;
  }
  RetargetDCs();
  return 0;
}

LRESULT Activated(HWND handle, WPARAM wParam) {
  if (LOWORD(wParam) != WA_INACTIVE && !HIWORD(wParam)) SetFocus(handle);
  return 0;
}

LRESULT NcActivate(HWND handle, WPARAM active, LPARAM lParam) {
  bool shown;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return 0;
    window->ncActive = active;
    shown = IsShown(window) && (window->style & (WS_CAPTION | WS_THICKFRAME));
  }
  if (shown && lParam != -1) PaintNonClient(handle, nullptr);
  return TRUE;
}

LPCWSTR SizingCursor(UINT hit) {
  switch (hit) {
    case HTLEFT:
    case HTRIGHT: return IDC_SIZEWE;
    case HTTOP:
    case HTBOTTOM: return IDC_SIZENS;
    case HTTOPLEFT:
    case HTBOTTOMRIGHT: return IDC_SIZENWSE;
    case HTTOPRIGHT:
    case HTBOTTOMLEFT: return IDC_SIZENESW;
    default: return IDC_ARROW;
  }
}

LRESULT SetTheCursor(HWND handle, HWND under, LPARAM lParam) {
  const auto hit = static_cast<short>(LOWORD(lParam));
  const UINT message = HIWORD(lParam);
  if (hit < HTLEFT || hit > HTBOTTOMRIGHT) {
    // The parents may have their say first.
    const HWND parent = ParentOfChild(handle);
    if (parent && Send(parent, WM_SETCURSOR, reinterpret_cast<WPARAM>(under), lParam)) return TRUE;
  }
  if (hit == HTERROR) {
    if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN) {
      const HWND popup = GetLastActivePopup(GetAncestor(handle, GA_ROOT));
      if (popup && popup != handle && IsWindowEnabled(popup)) SetForegroundWindow(popup);
    }
    return FALSE;
  }
  if (hit == HTCLIENT) {
    const auto cursor = reinterpret_cast<HCURSOR>(GetClassLongPtrW(under, GCLP_HCURSOR));
    if (!cursor) return FALSE;
    SetCursor(cursor);
    return TRUE;
  }
  SetCursor(LoadCursorW(nullptr, SizingCursor(static_cast<UINT>(hit))));
  return TRUE;
}

LRESULT MouseActivate(HWND handle, WPARAM wParam, LPARAM lParam) {
  const HWND parent = ParentOfChild(handle);
  if (parent) {
    const LRESULT answer = Send(parent, WM_MOUSEACTIVATE, wParam, lParam);
    if (answer) return answer;
  }
  return LOWORD(lParam) == HTCAPTION ? MA_NOACTIVATE : MA_ACTIVATE;
}

void CancelMode(HWND handle) {
  if (GetCapture() == handle) ReleaseCapture();
}

LRESULT KeyDown(HWND handle, UINT message, WPARAM key, LPARAM lParam) {
  if (key == VK_F10 && (GetKeyState(VK_SHIFT) & 0x8000)) {
    Send(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
    return 0;
  }
  if (message == WM_SYSKEYDOWN && key == VK_F4 && (lParam & (1 << 29))) {
    const HWND top = GetAncestor(handle, GA_ROOT);
    if (top && !(GetClassLongW(top, GCL_STYLE) & CS_NOCLOSE)) PostMessageW(top, WM_SYSCOMMAND, SC_CLOSE, 0);
  }
  return 0;
}

// Alt or F10 pressed and released by itself opens the menu bar.
struct MenuKeys {
  bool altAlone = false;
  bool f10 = false;
};
thread_local MenuKeys t_menuKeys;

LRESULT SysKeyDown(HWND handle, WPARAM key, LPARAM lParam) {
  if (lParam & (1 << 29)) {
    t_menuKeys.altAlone = key == VK_MENU && !(lParam & (1 << 30) && !t_menuKeys.altAlone);
    t_menuKeys.f10 = false;
    return KeyDown(handle, WM_SYSKEYDOWN, key, lParam);
  }
  if (key == VK_F10) {
    t_menuKeys.f10 = !(GetKeyState(VK_SHIFT) & 0x8000);
    return KeyDown(handle, WM_SYSKEYDOWN, key, lParam);
  }
  if (key == VK_ESCAPE && (GetKeyState(VK_SHIFT) & 0x8000)) Send(handle, WM_SYSCOMMAND, SC_KEYMENU, VK_SPACE);
  return 0;
}

LRESULT KeyUp(HWND handle, WPARAM key) {
  const bool opens = (key == VK_MENU && t_menuKeys.altAlone) || (key == VK_F10 && t_menuKeys.f10);
  if (opens) Send(GetAncestor(handle, GA_ROOT), WM_SYSCOMMAND, SC_KEYMENU, 0);
  t_menuKeys = {};
  return 0;
}

LRESULT SysChar(HWND handle, WPARAM ch, LPARAM lParam) {
  t_menuKeys.altAlone = false;
  if (ch == VK_RETURN && IsIconic(handle)) {
    PostMessageW(handle, WM_SYSCOMMAND, SC_RESTORE, 0);
    return 0;
  }
  if (!(lParam & (1 << 29)) || ch == VK_TAB || ch == VK_ESCAPE) return 0;
  if (ch == VK_SPACE && (StyleOf(handle) & WS_CHILD)) {
    return Send(GetParent(handle), WM_SYSCHAR, ch, lParam);
  }
  return Send(handle, WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(ch));
}

LRESULT ContextMenu(HWND handle, WPARAM wParam, LPARAM lParam) {
  const HWND parent = ParentOfChild(handle);
  if (parent) {
    Send(parent, WM_CONTEXTMENU, wParam, lParam);
    return 0;
  }
  const POINT point = PointOf(lParam);
  const LRESULT hit = lParam == -1 ? HTNOWHERE : DefNcHitTest(handle, point);
  if (hit == HTCAPTION || hit == HTSYSMENU) {
    const HMENU menu = GetSystemMenu(handle, FALSE);
    const UINT command = menu ? static_cast<UINT>(TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON,
                                                                 point.x, point.y, 0, handle, nullptr))
                              : 0;
    if (command) PostMessageW(handle, WM_SYSCOMMAND, command, lParam);
  }
  return 0;
}

LRESULT AskForContextMenu(HWND handle, POINT screenPoint) {
  Send(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(screenPoint.x, screenPoint.y));
  return 0;
}

LRESULT Wheel(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND parent = ParentOfChild(handle);
  return parent ? Send(parent, message, wParam, lParam) : 0;
}

// Popups come and go with their owner.
LRESULT ShowForOwner(HWND handle, bool show, LPARAM reason) {
  if (!reason || !GetWindow(handle, GW_OWNER)) return 0;
  const bool visible = StyleOf(handle) & WS_VISIBLE;
  if (visible != show) ShowWindow(handle, show ? SW_SHOWNOACTIVATE : SW_HIDE);
  return 0;
}

HICON* IconSlot(Window* window, WPARAM kind) {
  return kind == ICON_BIG ? &window->iconBig : &window->iconSmall;
}

LRESULT SetTheIcon(HWND handle, WPARAM kind, HICON icon) {
  HICON old;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return 0;
    old = std::exchange(*IconSlot(window, kind), icon);
  }
  if (HasCaption(StyleOf(handle))) PaintNonClient(handle, nullptr);
  return reinterpret_cast<LRESULT>(old);
}

LRESULT GetTheIcon(HWND handle, WPARAM kind) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  return window ? reinterpret_cast<LRESULT>(*IconSlot(window, kind)) : 0;
}

LRESULT ControlColor(UINT message, HDC dc) {
  if (message == WM_CTLCOLORSCROLLBAR) {
    SetBkColor(dc, GetSysColor(COLOR_3DHILIGHT));
    SetTextColor(dc, GetSysColor(COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_SCROLLBAR));
  }
  SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
  const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
  const int back = field ? COLOR_WINDOW : COLOR_3DFACE;
  SetBkColor(dc, GetSysColor(back));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(back));
}

void Print(HWND handle, HDC dc, LPARAM options) {
  if ((options & PRF_CHECKVISIBLE) && !IsWindowVisible(handle)) return;
  if (options & PRF_ERASEBKGND) Send(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
  if (options & PRF_CLIENT) Send(handle, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), options);
}

LRESULT UiState(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_QUERYUISTATE) {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(handle);
    return window ? window->uiState : 0;
  }
  if (message == WM_CHANGEUISTATE) {
    const HWND parent = ParentOfChild(handle);
    if (parent) return Send(parent, message, wParam, lParam);
    return Send(handle, WM_UPDATEUISTATE, wParam, lParam);
  }
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return 0;
    if (LOWORD(wParam) == UIS_SET) window->uiState |= HIWORD(wParam);
    if (LOWORD(wParam) == UIS_CLEAR) window->uiState &= ~static_cast<UINT>(HIWORD(wParam));
    if (LOWORD(wParam) == UIS_INITIALIZE) window->uiState = UISF_HIDEACCEL | UISF_HIDEFOCUS;
  }
  for (HWND child : ChildHandles(handle))
    if (IsWindow(child)) Send(child, message, wParam, lParam);
  return 0;
}

LRESULT NcCreate(HWND handle, const CREATESTRUCTW* cs) {
  if (cs && cs->lpszName && !(IS_INTRESOURCE(cs->lpszName))) SetText(handle, cs->lpszName);
  return TRUE;
}

LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCREATE: return NcCreate(window, reinterpret_cast<CREATESTRUCTW*>(lParam));
    case WM_NCCALCSIZE: return DefNcCalcSize(window, wParam, lParam);
    case WM_NCPAINT: return DefNcPaint(window, reinterpret_cast<HRGN>(wParam));
    case WM_NCHITTEST: return DefNcHitTest(window, PointOf(lParam));
    case WM_NCACTIVATE: return NcActivate(window, wParam, lParam);
    case WM_NCLBUTTONDOWN: return DefNcButtonDown(window, wParam, lParam);
    case WM_NCLBUTTONDBLCLK: return DefNcDoubleClick(window, wParam, lParam);
    case WM_NCRBUTTONUP:
      return DefNcHitTest(window, PointOf(lParam)) == HTCAPTION || wParam == HTSYSMENU
                 ? AskForContextMenu(window, PointOf(lParam))
                 : 0;
    case WM_RBUTTONUP: {
      POINT point = PointOf(lParam);
      ClientToScreen(window, &point);
      return AskForContextMenu(window, point);
    }
    case WM_CONTEXTMENU: return ContextMenu(window, wParam, lParam);
    case WM_WINDOWPOSCHANGING:
      return lParam ? PositionChanging(window, *reinterpret_cast<WINDOWPOS*>(lParam)) : 0;
    case WM_WINDOWPOSCHANGED:
      return lParam ? PositionChanged(window, *reinterpret_cast<const WINDOWPOS*>(lParam)) : 0;
    case WM_ACTIVATE: return Activated(window, wParam);
    case WM_MOUSEACTIVATE: return MouseActivate(window, wParam, lParam);
    case WM_SETCURSOR: return SetTheCursor(window, reinterpret_cast<HWND>(wParam), lParam);
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL: return Wheel(window, message, wParam, lParam);
    case WM_SETTEXT: return SetText(window, reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return GetText(window, wParam, reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return TextLength(window);
    case WM_PAINT: Paint(window); return 0;
    case WM_SYNCPAINT:
      RedrawWindow(window, nullptr, nullptr, RDW_ERASENOW | RDW_ERASE | RDW_ALLCHILDREN);
      return 0;
    case WM_ERASEBKGND: return EraseBackground(window, reinterpret_cast<HDC>(wParam));
    case WM_SETREDRAW: return SetRedrawState(window, wParam);
    case WM_CLOSE: DestroyWindow(window); return 0;
    case WM_QUERYOPEN:
    case WM_QUERYENDSESSION: return TRUE;
    case WM_SHOWWINDOW: return ShowForOwner(window, wParam, lParam);
    case WM_CANCELMODE: CancelMode(window); return 0;
    case WM_SYSCOMMAND: return DefSysCommand(window, wParam, lParam);
    case WM_KEYDOWN: return KeyDown(window, message, wParam, lParam);
    case WM_SYSKEYDOWN: return SysKeyDown(window, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP: return KeyUp(window, wParam);
    case WM_SYSCHAR: return SysChar(window, wParam, lParam);
    case WM_SETICON: return SetTheIcon(window, wParam, reinterpret_cast<HICON>(lParam));
    case WM_GETICON: return GetTheIcon(window, wParam);
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORSCROLLBAR: return ControlColor(message, reinterpret_cast<HDC>(wParam));
    case WM_PRINT: Print(window, reinterpret_cast<HDC>(wParam), lParam); return 0;
    case WM_CHANGEUISTATE:
    case WM_UPDATEUISTATE:
    case WM_QUERYUISTATE: return UiState(window, message, wParam, lParam);
    case WM_NOTIFYFORMAT: return lParam == NF_QUERY ? NFR_UNICODE : 0;
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM: return -1;
    default: return 0;
  }
}

}  // namespace

}  // namespace desktop

LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!IsWindow(window)) return 0;
  return Handle(window, message, wParam, lParam);
}
