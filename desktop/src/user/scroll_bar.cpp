// Standard scroll bars: their layout, looks, and the loop that follows the mouse in one.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

constexpr int kMinThumb = 8;
constexpr UINT_PTR kRepeatTimer = 0xfff0;
constexpr UINT kFirstDelay = 200;
constexpr UINT kRepeatDelay = 50;

enum class Part { none, lineUp, pageUp, thumb, pageDown, lineDown };

struct Tracking {
  HWND window = nullptr;
  int bar = SB_VERT;
  int pos = 0;
};

Tracking& TheTracking() {
  static auto& tracking = *new Tracking;
  return tracking;
}

RECT Along(const RECT& rect, bool horizontal, int from, int to) {
  if (horizontal) return {rect.left + from, rect.top, rect.left + to, rect.bottom};
  return {rect.left, rect.top + from, rect.right, rect.top + to};
}

bool OffBar(const ScrollBar& bar) { return bar.disabled == ESB_DISABLE_BOTH; }

Part PartAt(const BarLayout& layout, int at, bool across) {
  if (!across || at < 0 || at >= layout.length) return Part::none;
  if (at < layout.arrow) return Part::lineUp;
  if (at >= layout.length - layout.arrow) return Part::lineDown;
  if (!layout.thumbLength) return Part::none;
  if (at < layout.thumbStart) return Part::pageUp;
  return at < layout.thumbStart + layout.thumbLength ? Part::thumb : Part::pageDown;
}

WPARAM CodeOf(Part part) {
  switch (part) {
    case Part::lineUp: return SB_LINEUP;
    case Part::lineDown: return SB_LINEDOWN;
    case Part::pageUp: return SB_PAGEUP;
    default: return SB_PAGEDOWN;
  }
}

struct Snapshot {
  RECT rect{};
  POINT origin{};
  ScrollBar bar;
  BarLayout layout;
  bool ok = false;
};

Snapshot Look(HWND handle, int bar) {
  WorldLock lock(WorldMutex());
  Snapshot shot;
  Window* window = FromHandle(handle);
  if (!window) return shot;
  shot.rect = ScrollBarRect(window, bar);
  shot.origin = WindowOrigin(window);
  shot.bar = *BarOf(window, bar);
  shot.layout = LayOutBar(shot.rect, shot.bar, bar == SB_HORZ);
  shot.ok = true;
  return shot;
}

int AlongOf(const Snapshot& shot, int bar, POINT screen) {
  return bar == SB_HORZ ? screen.x - shot.origin.x - shot.rect.left
                        : screen.y - shot.origin.y - shot.rect.top;
}

Part PartUnder(const Snapshot& shot, int bar, POINT screen) {
  const POINT inside{screen.x - shot.origin.x, screen.y - shot.origin.y};
  return PartAt(shot.layout, AlongOf(shot, bar, screen), PtInRect(&shot.rect, inside));
}

void Repaint(HWND handle, int bar, Part pressed, bool dragged, int thumb) {
  const HDC dc = GetDCEx(handle, nullptr, DCX_CACHE | DCX_WINDOW | DCX_USESTYLE);
  if (!dc) return;
  PaintScrollBar(handle, dc, bar, static_cast<int>(pressed), dragged, thumb);
  ReleaseDC(handle, dc);
}

void Tell(HWND handle, int bar, WPARAM code, int pos = 0) {
  const bool withPos = code == SB_THUMBTRACK || code == SB_THUMBPOSITION;
  const WPARAM wParam = withPos ? MAKEWPARAM(code, pos) : code;
  if (IsWindow(handle)) Send(handle, bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL, wParam, 0);
}

void DragThumb(HWND handle, int bar, POINT start) {
  const Snapshot first = Look(handle, bar);
  const int grip = AlongOf(first, bar, start) - first.layout.thumbStart;
  int pos = first.bar.pos;
  {
    WorldLock lock(WorldMutex());
    TheTracking() = {handle, bar, pos};
  }
  Tell(handle, bar, SB_THUMBTRACK, pos);
  MSG msg;
  while (IsWindow(handle) && GetCapture() == handle && GetMessageW(&msg, nullptr, 0, 0)) {
    if (msg.message == WM_LBUTTONUP) break;
    if (msg.message != WM_MOUSEMOVE) {
      TranslateMessage(&msg);
      DispatchMessageW(&msg);
      continue;
    }
    const Snapshot shot = Look(handle, bar);
    const int room = shot.layout.length - shot.layout.arrow - shot.layout.thumbLength;
    // Far off the bar the thumb goes back to where it was.
    const int reach = shot.layout.arrow * 8;
    RECT wide = shot.rect;
    InflateRect(&wide, bar == SB_HORZ ? shot.layout.length : reach,
                bar == SB_HORZ ? reach : shot.layout.length);
    const POINT inside{msg.pt.x - shot.origin.x, msg.pt.y - shot.origin.y};
    const bool near = PtInRect(&wide, inside);
    const int wanted =
        std::clamp(AlongOf(shot, bar, msg.pt) - grip, shot.layout.arrow, std::max(shot.layout.arrow, room));
    const int next = near ? PosOfThumb(shot.layout, shot.bar, wanted) : first.bar.pos;
    Repaint(handle, bar, Part::thumb, near, wanted);
    if (next == pos) continue;
    pos = next;
    {
      WorldLock lock(WorldMutex());
      TheTracking().pos = pos;
    }
    Tell(handle, bar, SB_THUMBTRACK, pos);
  }
  {
    WorldLock lock(WorldMutex());
    TheTracking() = {};
  }
  if (GetCapture() == handle) ReleaseCapture();
  Tell(handle, bar, SB_THUMBPOSITION, pos);
}

void HoldPart(HWND handle, int bar, Part part, POINT start) {
  POINT at = start;
  const auto act = [&] {
    const Snapshot shot = Look(handle, bar);
    const bool over = shot.ok && PartUnder(shot, bar, at) == part;
    if (over) Tell(handle, bar, CodeOf(part));
    if (IsWindow(handle)) Repaint(handle, bar, over ? part : Part::none, false, 0);
  };
  act();
  {
    WorldLock lock(WorldMutex());
    SetSystemTimer(handle, kRepeatTimer, kFirstDelay);
  }
  MSG msg;
  while (IsWindow(handle) && GetCapture() == handle && GetMessageW(&msg, nullptr, 0, 0)) {
    if (msg.message == WM_LBUTTONUP) break;
    if (msg.message == WM_MOUSEMOVE) {
      at = msg.pt;
    } else if (msg.message == WM_SYSTIMER && msg.wParam == kRepeatTimer && msg.hwnd == handle) {
      {
        WorldLock lock(WorldMutex());
        SetSystemTimer(handle, kRepeatTimer, kRepeatDelay);
      }
      act();
    } else {
      TranslateMessage(&msg);
      DispatchMessageW(&msg);
    }
  }
  WorldLock lock(WorldMutex());
  if (FromHandle(handle)) KillSystemTimer(handle, kRepeatTimer);
}

void PaintTrack(HDC dc, RECT track, HBRUSH brush) {
  if (!IsRectEmpty(&track)) FillRect(dc, &track, brush);
}

}  // namespace

int TrackedPos(HWND handle, int bar) {
  const Tracking& tracking = TheTracking();
  if (tracking.window == handle && tracking.bar == bar) return tracking.pos;
  Window* window = FromHandle(handle);
  return window ? BarOf(window, bar)->pos : 0;
}

void ResetTracking() { TheTracking() = {}; }

RECT ScrollBarRect(const Window* window, int bar) {
  RECT rect = ClientInWindow(window);
  if (bar == SB_CTL) return rect;
  const int width = Metric(SM_CXVSCROLL);
  const int height = Metric(SM_CYHSCROLL);
  const bool left = window->exStyle & WS_EX_LEFTSCROLLBAR;
  if (bar == SB_VERT) {
    if (!(window->style & WS_VSCROLL)) return {};
    return left ? RECT{rect.left - width, rect.top, rect.left, rect.bottom}
                : RECT{rect.right, rect.top, rect.right + width, rect.bottom};
  }
  if (!(window->style & WS_HSCROLL)) return {};
  return {rect.left, rect.bottom, rect.right, rect.bottom + height};
}

BarLayout LayOutBar(const RECT& rect, const ScrollBar& bar, bool horizontal) {
  BarLayout layout;
  layout.length = horizontal ? rect.right - rect.left : rect.bottom - rect.top;
  layout.arrow = Metric(horizontal ? SM_CXHSCROLL : SM_CYVSCROLL);
  if (layout.length <= 2 * layout.arrow + 4) {
    layout.arrow = layout.length > 4 ? (layout.length - 4) / 2 : 0;
    return layout;
  }
  const int room = layout.length - 2 * layout.arrow;
  const long long span = static_cast<long long>(bar.high) - bar.low + 1;
  int thumb = layout.arrow;
  if (bar.page) thumb = std::max(static_cast<int>(static_cast<long long>(room) * bar.page / span), kMinThumb);
  const long long last = static_cast<long long>(bar.high) - std::max(bar.page - 1, 0);
  if (room < thumb || OffBar(bar) || bar.low >= last) return layout;
  layout.thumbLength = thumb;
  layout.thumbStart = layout.arrow + static_cast<int>((bar.pos - static_cast<long long>(bar.low)) *
                                                      (room - thumb) / (last - bar.low));
  return layout;
}

int PosOfThumb(const BarLayout& layout, const ScrollBar& bar, int thumbStart) {
  const long long room = layout.length - 2 * layout.arrow - layout.thumbLength;
  if (room <= 0) return bar.low;
  const long long at = std::clamp<long long>(thumbStart - layout.arrow, 0, room);
  const long long last = static_cast<long long>(bar.high) - std::max(bar.page - 1, 0);
  return static_cast<int>(bar.low + (at * (last - bar.low) + room / 2) / room);
}

void PaintScrollBar(HWND handle, HDC dc, int kind, int pressedPart, bool thumbMoved, int thumbAt) {
  Snapshot shot = Look(handle, kind);
  if (!shot.ok || IsRectEmpty(&shot.rect)) return;
  const bool horizontal = kind == SB_HORZ;
  const auto pressed = static_cast<Part>(pressedPart);
  BarLayout& layout = shot.layout;
  if (thumbMoved && layout.thumbLength) layout.thumbStart = thumbAt;
  const UINT off = shot.bar.disabled;
  RECT first = Along(shot.rect, horizontal, 0, layout.arrow);
  RECT last = Along(shot.rect, horizontal, layout.length - layout.arrow, layout.length);
  DrawFrameControl(dc, &first, DFC_SCROLL,
                   (horizontal ? DFCS_SCROLLLEFT : DFCS_SCROLLUP) |
                       (pressed == Part::lineUp ? DFCS_PUSHED | DFCS_FLAT : 0) |
                       (off & ESB_DISABLE_LTUP ? DFCS_INACTIVE : 0));
  DrawFrameControl(dc, &last, DFC_SCROLL,
                   (horizontal ? DFCS_SCROLLRIGHT : DFCS_SCROLLDOWN) |
                       (pressed == Part::lineDown ? DFCS_PUSHED | DFCS_FLAT : 0) |
                       (off & ESB_DISABLE_RTDN ? DFCS_INACTIVE : 0));
  const auto brush = reinterpret_cast<HBRUSH>(DefWindowProcW(
      handle, WM_CTLCOLORSCROLLBAR, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(handle)));
  const int from = layout.arrow;
  const int to = layout.length - layout.arrow;
  if (!layout.thumbLength) return PaintTrack(dc, Along(shot.rect, horizontal, from, to), brush);
  const int end = layout.thumbStart + layout.thumbLength;
  PaintTrack(dc, Along(shot.rect, horizontal, from, layout.thumbStart), brush);
  PaintTrack(dc, Along(shot.rect, horizontal, end, to), brush);
  RECT thumb = Along(shot.rect, horizontal, layout.thumbStart, end);
  DrawEdge(dc, &thumb, EDGE_RAISED, BF_RECT | BF_MIDDLE);
}

void PaintScrollBars(HWND handle, HDC dc) {
  RECT vertical;
  RECT horizontal;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(handle);
    if (!window) return;
    vertical = ScrollBarRect(window, SB_VERT);
    horizontal = ScrollBarRect(window, SB_HORZ);
  }
  if (!IsRectEmpty(&vertical)) PaintScrollBar(handle, dc, SB_VERT, 0, false, 0);
  if (!IsRectEmpty(&horizontal)) PaintScrollBar(handle, dc, SB_HORZ, 0, false, 0);
  if (IsRectEmpty(&vertical) || IsRectEmpty(&horizontal)) return;
  const RECT corner{vertical.left, horizontal.top, vertical.right, horizontal.bottom};
  FillRect(dc, &corner, GetSysColorBrush(COLOR_3DFACE));
}

void ScrollBarLoop(HWND handle, int bar, POINT point) {
  const Snapshot shot = Look(handle, bar);
  if (!shot.ok || OffBar(shot.bar)) return;
  const Part part = PartUnder(shot, bar, point);
  if (part == Part::none) return;
  SetCapture(handle);
  HideCaret(handle);
  if (part == Part::thumb) {
    DragThumb(handle, bar, point);
  } else {
    HoldPart(handle, bar, part, point);
  }
  if (GetCapture() == handle) ReleaseCapture();
  if (IsWindow(handle)) Repaint(handle, bar, Part::none, false, 0);
  Tell(handle, bar, SB_ENDSCROLL);
  ShowCaret(handle);
}

}  // namespace desktop
