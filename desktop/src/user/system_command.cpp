// System commands, clicks into the frame, and the loops that move and size a window.
#include <algorithm>

#include "controls/menu_bar.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

POINT PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

// Keeps the capture until the button is up; true if it came up over the same part.
bool TrackButton(HWND window, int part) {
  SetCapture(window);
  bool over = true;
  MSG msg;
  for (;;) {
    if (!GetMessageW(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST)) break;
    if (msg.message == WM_MOUSEMOVE || msg.message == WM_LBUTTONUP)
      over = DefNcHitTest(window, msg.pt) == part;
    if (msg.message == WM_LBUTTONUP || GetCapture() != window) break;
  }
  if (GetCapture() == window) ReleaseCapture();
  return over;
}

UINT EdgesOf(WPARAM command) { return static_cast<UINT>(command & 0x0f); }

bool PullsLeft(UINT edge) { return edge == WMSZ_LEFT || edge == WMSZ_TOPLEFT || edge == WMSZ_BOTTOMLEFT; }
bool PullsRight(UINT edge) { return edge == WMSZ_RIGHT || edge == WMSZ_TOPRIGHT || edge == WMSZ_BOTTOMRIGHT; }
bool PullsTop(UINT edge) { return edge == WMSZ_TOP || edge == WMSZ_TOPLEFT || edge == WMSZ_TOPRIGHT; }
bool PullsBottom(UINT edge) {
  return edge == WMSZ_BOTTOM || edge == WMSZ_BOTTOMLEFT || edge == WMSZ_BOTTOMRIGHT;
}

struct Drag {
  HWND window = nullptr;
  bool moves = false;  // SC_MOVE, else SC_SIZE
  UINT edge = 0;
  RECT start{};  // in coordinates of the parent
  RECT now{};
  POINT from{};
  MINMAXINFO limits{};
  POINT parentOrigin{};
};

RECT Dragged(const Drag& drag, POINT to) {
  const int dx = to.x - drag.from.x;
  const int dy = to.y - drag.from.y;
  RECT rect = drag.start;
  if (drag.moves) {
    OffsetRect(&rect, dx, dy);
    return rect;
  }
  const POINT& low = drag.limits.ptMinTrackSize;
  const POINT& high = drag.limits.ptMaxTrackSize;
  const int width = rect.right - rect.left;
  const int height = rect.bottom - rect.top;
  if (PullsLeft(drag.edge)) rect.left = rect.right - std::clamp(width - dx, low.x, std::max(low.x, high.x));
  if (PullsRight(drag.edge)) rect.right = rect.left + std::clamp(width + dx, low.x, std::max(low.x, high.x));
  if (PullsTop(drag.edge)) rect.top = rect.bottom - std::clamp(height - dy, low.y, std::max(low.y, high.y));
  if (PullsBottom(drag.edge))
    rect.bottom = rect.top + std::clamp(height + dy, low.y, std::max(low.y, high.y));
  return rect;
}

// Asks the window about the new rectangle and takes it.
void Follow(Drag& drag, POINT to) {
  RECT rect = Dragged(drag, to);
  if (EqualRect(&rect, &drag.now)) return;
  OffsetRect(&rect, drag.parentOrigin.x, drag.parentOrigin.y);
  const auto param = reinterpret_cast<LPARAM>(&rect);
  if (drag.moves) {
    Send(drag.window, WM_MOVING, 0, param);
  } else {
    Send(drag.window, WM_SIZING, drag.edge, param);
  }
  OffsetRect(&rect, -drag.parentOrigin.x, -drag.parentOrigin.y);
  drag.now = rect;
}

void Place(const Drag& drag, const RECT& rect) {
  const UINT flags = SWP_NOACTIVATE | SWP_NOZORDER | (drag.moves ? SWP_NOSIZE : 0);
  SetWindowPos(drag.window, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
               flags);
}

bool KeyStep(WPARAM key, POINT& point) {
  const int step = 8;
  if (key == VK_LEFT)
    point.x -= step;
  else if (key == VK_RIGHT)
    point.x += step;
  else if (key == VK_UP)
    point.y -= step;
  else if (key == VK_DOWN)
    point.y += step;
  else
    return false;
  return true;
}

// Runs until the button is up or a key ends it. True if the drag was given up.
bool RunDrag(Drag& drag, bool withKeys) {
  POINT at = drag.from;
  MSG msg;
  const bool live = [] {
    BOOL full = FALSE;
    SystemParametersInfoW(SPI_GETDRAGFULLWINDOWS, 0, &full, 0);
    return full != FALSE;
  }();
  while (GetMessageW(&msg, nullptr, 0, 0)) {
    const bool key = msg.message == WM_KEYDOWN;
    if (msg.message == WM_LBUTTONUP || (key && msg.wParam == VK_RETURN)) return false;
    if (key && msg.wParam == VK_ESCAPE) return true;
    if (msg.message == WM_MOUSEMOVE) {
      at = msg.pt;
    } else if (!(key && withKeys && KeyStep(msg.wParam, at))) {
      TranslateMessage(&msg);
      DispatchMessageW(&msg);
      if (!IsWindow(drag.window)) return true;
      if (GetCapture() != drag.window) return false;
      continue;
    }
    const RECT before = drag.now;
    Follow(drag, at);
    if (!IsWindow(drag.window)) return true;
    if (live && !EqualRect(&before, &drag.now)) Place(drag, drag.now);
  }
  PostQuitMessage(static_cast<int>(msg.wParam));
  return true;
}

bool StartDrag(Drag& drag, HWND window, WPARAM command) {
  drag.window = window;
  drag.moves = (command & 0xfff0) == SC_MOVE;
  drag.edge = drag.moves ? 0 : EdgesOf(command);
  {
    WorldLock lock(WorldMutex());
    const Window* found = FromHandle(window);
    if (!found || (found->style & WS_MAXIMIZE)) return false;
    if (!drag.moves && !(found->style & WS_THICKFRAME)) return false;
    drag.start = drag.now = found->rect;
    if (found->parent) drag.parentOrigin = ClientOrigin(found->parent);
    MyQueue()->moveSize = window;
  }
  drag.limits = AskMinMax(window);
  return IsWindow(window);
}

void EndDrag() {
  WorldLock lock(WorldMutex());
  MyQueue()->moveSize = nullptr;
}

}  // namespace

void SizeMoveLoop(HWND window, WPARAM command) {
  Drag drag;
  const bool byKeys = EdgesOf(command) == 0;
  if (!StartDrag(drag, window, command)) return;
  const DWORD pos = GetMessagePos();
  drag.from = PointOf(static_cast<LPARAM>(pos));
  if (byKeys) GetCursorPos(&drag.from);
  if (!drag.moves && byKeys) drag.edge = WMSZ_BOTTOMRIGHT;
  SetCapture(window);
  Send(window, WM_ENTERSIZEMOVE);
  const bool givenUp = RunDrag(drag, byKeys);
  EndDrag();
  if (!IsWindow(window)) return;
  const bool changed = !EqualRect(&drag.start, &drag.now);
  const bool refused = HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_MOVESIZE, reinterpret_cast<WPARAM>(window),
                                                    reinterpret_cast<LPARAM>(&drag.now));
  if (changed && !givenUp && !refused) {
    const RECT& to = drag.now;
    SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                 drag.moves ? SWP_NOSIZE : 0);
    if (IsWindow(window)) UpdateWindow(window);
  } else if (changed) {
    Place(drag, drag.start);
  }
  if (GetCapture() == window) ReleaseCapture();
  if (IsWindow(window)) Send(window, WM_EXITSIZEMOVE);
}

LRESULT DefNcButtonDown(HWND window, WPARAM hit, LPARAM lParam) {
  switch (hit) {
    case HTCAPTION: {
      const HWND top = GetAncestor(window, GA_ROOT);
      if (SetForegroundWindow(top) || GetActiveWindow() == top)
        Send(window, WM_SYSCOMMAND, SC_MOVE + HTCAPTION, lParam);
      return 0;
    }
    case HTSYSMENU:
      if (GetWindowLongW(window, GWL_STYLE) & WS_SYSMENU)
        Send(window, WM_SYSCOMMAND, SC_MOUSEMENU + HTSYSMENU, lParam);
      return 0;
    case HTMENU: Send(window, WM_SYSCOMMAND, SC_MOUSEMENU, lParam); return 0;
    case HTHSCROLL: Send(window, WM_SYSCOMMAND, SC_HSCROLL + HTHSCROLL, lParam); return 0;
    case HTVSCROLL: Send(window, WM_SYSCOMMAND, SC_VSCROLL + HTVSCROLL, lParam); return 0;
    case HTMINBUTTON:
      if (TrackButton(window, HTMINBUTTON)) Send(window, WM_SYSCOMMAND, SC_MINIMIZE, lParam);
      return 0;
    case HTMAXBUTTON:
      if (TrackButton(window, HTMAXBUTTON))
        Send(window, WM_SYSCOMMAND, IsZoomed(window) ? SC_RESTORE : SC_MAXIMIZE, lParam);
      return 0;
    case HTCLOSE:
      if (TrackButton(window, HTCLOSE)) Send(window, WM_SYSCOMMAND, SC_CLOSE, lParam);
      return 0;
    default: break;
  }
  if (hit >= HTLEFT && hit <= HTBOTTOMRIGHT)
    Send(window, WM_SYSCOMMAND, SC_SIZE + hit - (HTLEFT - WMSZ_LEFT), lParam);
  return 0;
}

LRESULT DefNcDoubleClick(HWND window, WPARAM hit, LPARAM lParam) {
  const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
  if (hit == HTSYSMENU) {
    Send(window, WM_SYSCOMMAND, SC_CLOSE, lParam);
  } else if (hit == HTCAPTION && (style & WS_MAXIMIZEBOX)) {
    Send(window, WM_SYSCOMMAND, style & WS_MAXIMIZE ? SC_RESTORE : SC_MAXIMIZE, lParam);
  } else if (hit != HTCAPTION) {
    return DefNcButtonDown(window, hit, lParam);
  }
  return 0;
}

LRESULT DefSysCommand(HWND window, WPARAM wParam, LPARAM lParam) {
  if (HasHook(WH_CBT) && CallHooks(WH_CBT, HCBT_SYSCOMMAND, wParam, lParam)) return 0;
  const POINT point = PointOf(lParam);
  switch (wParam & 0xfff0) {
    case SC_SIZE:
    case SC_MOVE: SizeMoveLoop(window, wParam); break;
    case SC_MINIMIZE:
      ShowOwnedPopups(window, FALSE);
      ShowWindow(window, SW_MINIMIZE);
      break;
    case SC_MAXIMIZE:
      if (IsIconic(window)) ShowOwnedPopups(window, TRUE);
      ShowWindow(window, SW_MAXIMIZE);
      break;
    case SC_RESTORE:
      if (IsIconic(window)) ShowOwnedPopups(window, TRUE);
      ShowWindow(window, SW_RESTORE);
      break;
    case SC_CLOSE: return Send(window, WM_CLOSE);
    case SC_VSCROLL: ScrollBarLoop(window, SB_VERT, point); break;
    case SC_HSCROLL: ScrollBarLoop(window, SB_HORZ, point); break;
    case SC_MOUSEMENU:
      if ((wParam & 0x0f) == HTSYSMENU) {
        TrackMenuBarByKey(window, L' ');
      } else {
        TrackMenuBarByMouse(window, point);
      }
      break;
    case SC_KEYMENU: TrackMenuBarByKey(window, static_cast<WCHAR>(lParam)); break;
    default: break;
  }
  return 0;
}

}  // namespace desktop
