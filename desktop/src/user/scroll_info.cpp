// What scroll bars know: range, page, position, and whether they show.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

DWORD BarStyle(int bar) { return bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL; }

bool IsValid(const SCROLLINFO* info) {
  if (!info || (info->fMask & ~(SIF_ALL | SIF_DISABLENOSCROLL))) return false;
  return info->cbSize == sizeof(SCROLLINFO) || info->cbSize == sizeof(SCROLLINFO) - sizeof(int);
}

// Puts page and position back into the range. Widths are worked out without overflow.
void Limit(ScrollBar& bar) {
  if (bar.low > bar.high || static_cast<UINT>(bar.high) - static_cast<UINT>(bar.low) >= 0x80000000u) {
    bar.low = 0;
    bar.high = 0;
  }
  const long long span = static_cast<long long>(bar.high) - bar.low + 1;
  bar.page = static_cast<int>(std::clamp<long long>(bar.page, 0, span));
  const long long last = static_cast<long long>(bar.high) - std::max(bar.page - 1, 0);
  bar.pos = static_cast<int>(std::clamp<long long>(bar.pos, bar.low, last));
}

// What has to be done about the bar after a change of its values.
enum class Effect { none, repaint, show, hide };

struct Change {
  Effect effect = Effect::none;
  int pos = 0;
};

bool NothingToScroll(const ScrollBar& bar) { return bar.low >= bar.high - std::max(bar.page - 1, 0); }

Effect EffectOf(Window* window, int kind, ScrollBar& bar, const ScrollBar& old, const SCROLLINFO& info) {
  if (!(info.fMask & (SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL)))
    return old.pos != bar.pos ? Effect::repaint : Effect::none;
  const bool changed =
      old.low != bar.low || old.high != bar.high || old.page != bar.page || old.pos != bar.pos;
  if (NothingToScroll(bar)) {
    if (info.fMask & SIF_DISABLENOSCROLL) {
      bar.disabled = ESB_DISABLE_BOTH;
      return Effect::repaint;
    }
    if (kind != SB_CTL) return window->style & BarStyle(kind) ? Effect::hide : Effect::none;
    return changed ? Effect::repaint : Effect::none;
  }
  if ((info.fMask & SIF_DISABLENOSCROLL) || old.disabled == ESB_DISABLE_BOTH) bar.disabled = ESB_ENABLE_BOTH;
  if (kind != SB_CTL && !(window->style & BarStyle(kind))) return Effect::show;
  return changed || old.disabled != bar.disabled ? Effect::repaint : Effect::none;
}

void RepaintBar(HWND handle, int bar) {
  bool shown;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandle(handle);
    const RECT rect = window ? ScrollBarRect(window, bar) : RECT{};
    shown = window && IsShown(window) && !IsRectEmpty(&rect);
  }
  if (!shown) return;
  const HDC dc = GetDCEx(handle, nullptr, DCX_CACHE | DCX_WINDOW | DCX_USESTYLE);
  if (!dc) return;
  PaintScrollBar(handle, dc, bar, 0, false, 0);
  ReleaseDC(handle, dc);
}

// Sets the style bits; the frame is laid out anew by SetWindowPos.
bool ShowBars(HWND handle, DWORD add, DWORD remove) {
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return false;
    const DWORD style = (window->style | add) & ~remove;
    if (style == window->style) return true;
    window->style = style;
  }
  SetWindowPos(handle, nullptr, 0, 0, 0, 0,
               SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER | SWP_FRAMECHANGED);
  return true;
}

Change Store(HWND handle, int kind, const SCROLLINFO& info) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  ScrollBar* bar = window ? BarOf(window, kind) : nullptr;
  if (!bar) return {};
  const ScrollBar old = *bar;
  if (info.fMask & SIF_PAGE) bar->page = static_cast<int>(std::min<UINT>(info.nPage, 0x7fffffff));
  if (info.fMask & SIF_POS) bar->pos = info.nPos;
  if (info.fMask & SIF_RANGE) {
    bar->low = info.nMin;
    bar->high = info.nMax;
  }
  Limit(*bar);
  return {EffectOf(window, kind, *bar, old, info), bar->pos};
}

int SetInfo(HWND handle, int bar, const SCROLLINFO& info, bool redraw) {
  const Change change = Store(handle, bar, info);
  switch (change.effect) {
    case Effect::hide: ShowBars(handle, 0, BarStyle(bar)); break;
    case Effect::show: ShowBars(handle, BarStyle(bar), 0); break;
    case Effect::repaint:
      if (redraw) RepaintBar(handle, bar);
      break;
    case Effect::none: break;
  }
  return change.pos;
}

}  // namespace

ScrollBar* BarOf(Window* window, int bar) {
  if (bar == SB_HORZ) return &window->horizontal;
  if (bar == SB_VERT || bar == SB_CTL) return &window->vertical;
  return nullptr;
}

}  // namespace desktop

int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw) {
  if (!IsValid(info)) return 0;
  if (bar == SB_CTL)
    return static_cast<int>(Send(window, SBM_SETSCROLLINFO, redraw, reinterpret_cast<LPARAM>(info)));
  return SetInfo(window, bar, *info, redraw);
}

BOOL WINAPI GetScrollInfo(HWND handle, int kind, LPSCROLLINFO info) {
  if (!IsValid(info)) return FALSE;
  if (kind == SB_CTL) {
    Send(handle, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(info));
    return TRUE;
  }
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  const ScrollBar* bar = window ? BarOf(window, kind) : nullptr;
  if (!bar) return FALSE;
  if (info->fMask & SIF_PAGE) info->nPage = static_cast<UINT>(bar->page);
  if (info->fMask & SIF_POS) info->nPos = bar->pos;
  if (info->fMask & SIF_RANGE) {
    info->nMin = bar->low;
    info->nMax = bar->high;
  }
  if ((info->fMask & SIF_TRACKPOS) && info->cbSize == sizeof(SCROLLINFO))
    info->nTrackPos = TrackedPos(handle, kind);
  return (info->fMask & SIF_ALL) != 0;
}

int WINAPI SetScrollPos(HWND window, int bar, int pos, BOOL redraw) {
  const int old = GetScrollPos(window, bar);
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_POS;
  info.nPos = pos;
  SetScrollInfo(window, bar, &info, redraw);
  return old;
}

int WINAPI GetScrollPos(HWND window, int bar) {
  if (bar == SB_CTL) return static_cast<int>(Send(window, SBM_GETPOS));
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_POS;
  return GetScrollInfo(window, bar, &info) ? info.nPos : 0;
}

BOOL WINAPI SetScrollRange(HWND window, int bar, int low, int high, BOOL redraw) {
  if (!IsWindow(window)) return FALSE;
  if (bar == SB_CTL) {
    Send(window, redraw ? SBM_SETRANGEREDRAW : SBM_SETRANGE, static_cast<WPARAM>(low), high);
    return TRUE;
  }
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_RANGE;
  info.nMin = low;
  info.nMax = high;
  SetScrollInfo(window, bar, &info, redraw);
  return TRUE;
}

BOOL WINAPI GetScrollRange(HWND window, int bar, LPINT low, LPINT high) {
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_RANGE;
  if (bar == SB_CTL) {
    Send(window, SBM_GETRANGE, reinterpret_cast<WPARAM>(low), reinterpret_cast<LPARAM>(high));
    return TRUE;
  }
  if (!GetScrollInfo(window, bar, &info)) return FALSE;
  if (low) *low = info.nMin;
  if (high) *high = info.nMax;
  return TRUE;
}

BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show) {
  if (!IsWindow(window)) return FALSE;
  if (bar == SB_CTL) {
    ShowWindow(window, show ? SW_SHOW : SW_HIDE);
    return TRUE;
  }
  const DWORD bits = bar == SB_BOTH ? WS_HSCROLL | WS_VSCROLL : BarStyle(bar);
  return show ? ShowBars(window, bits, 0) : ShowBars(window, 0, bits);
}

BOOL WINAPI EnableScrollBar(HWND handle, UINT which, UINT arrows) {
  arrows &= ESB_DISABLE_BOTH;
  bool changed = false;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandleOrError(handle);
    if (!window) return FALSE;
    const auto set = [&changed, arrows](ScrollBar& bar) {
      changed = changed || bar.disabled != arrows;
      bar.disabled = arrows;
    };
    if (which == SB_BOTH || which == SB_HORZ) set(window->horizontal);
    if (which == SB_BOTH || which == SB_VERT || which == SB_CTL) set(window->vertical);
  }
  if (!changed) return FALSE;
  if (which == SB_CTL) EnableWindow(handle, arrows != ESB_DISABLE_BOTH);
  if (which == SB_BOTH || which == SB_HORZ) RepaintBar(handle, SB_HORZ);
  if (which == SB_BOTH || which == SB_VERT) RepaintBar(handle, SB_VERT);
  return TRUE;
}

BOOL WINAPI GetScrollBarInfo(HWND handle, LONG object, PSCROLLBARINFO info) {
  if (!info || info->cbSize != sizeof(SCROLLBARINFO)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  const auto which = static_cast<DWORD>(object);
  const int kind = which == OBJID_HSCROLL ? SB_HORZ : which == OBJID_VSCROLL ? SB_VERT : SB_CTL;
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  if (!window) return FALSE;
  const RECT rect = ScrollBarRect(window, kind);
  const BarLayout layout = LayOutBar(rect, *BarOf(window, kind), kind == SB_HORZ);
  const POINT origin = WindowOrigin(window);
  info->rcScrollBar = rect;
  OffsetRect(&info->rcScrollBar, origin.x, origin.y);
  info->dxyLineButton = layout.arrow;
  info->xyThumbTop = layout.thumbStart;
  info->xyThumbBottom = layout.thumbStart + layout.thumbLength;
  info->reserved = 0;
  std::fill(std::begin(info->rgstate), std::end(info->rgstate), 0);
  if (kind != SB_CTL && !(window->style & BarStyle(kind))) info->rgstate[0] |= STATE_SYSTEM_INVISIBLE;
  if (NothingToScroll(*BarOf(window, kind)))
    info->rgstate[0] |=
        info->rgstate[0] & STATE_SYSTEM_INVISIBLE ? STATE_SYSTEM_OFFSCREEN : STATE_SYSTEM_UNAVAILABLE;
  return TRUE;
}
