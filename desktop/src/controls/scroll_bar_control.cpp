#include "controls/scroll_bar_control.h"

#include <algorithm>

namespace desktop {

namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kFirstRepeat = 200;
constexpr UINT kNextRepeat = 50;
constexpr int kSmallestThumb = 8;

}  // namespace

int ScrollBarControl::LastPosition() const { return std::max(m_low, m_high - std::max(m_page - 1, 0)); }

int ScrollBarControl::Clamped(long long position) const {
  return static_cast<int>(std::clamp<long long>(position, m_low, LastPosition()));
}

int ScrollBarControl::SetInfo(const SCROLLINFO& info, bool redraw) {
  if (info.fMask & SIF_RANGE) {
    m_low = info.nMin;
    m_high = std::max(info.nMin, info.nMax);
  }
  const long long span = static_cast<long long>(m_high) - m_low + 1;
  if (info.fMask & SIF_PAGE) m_page = static_cast<int>(std::min<long long>(info.nPage, span));
  m_page = static_cast<int>(std::min<long long>(m_page, span));
  m_position = Clamped((info.fMask & SIF_POS) ? info.nPos : m_position);
  if (redraw) Invalidate(false);
  return m_position;
}

BOOL ScrollBarControl::GetInfo(SCROLLINFO& info) const {
  if (info.fMask & SIF_RANGE) {
    info.nMin = m_low;
    info.nMax = m_high;
  }
  if (info.fMask & SIF_PAGE) info.nPage = static_cast<UINT>(m_page);
  if (info.fMask & SIF_POS) info.nPos = m_position;
  if (info.fMask & SIF_TRACKPOS) info.nTrackPos = m_pressed == Part::thumb ? m_track : m_position;
  return (info.fMask & SIF_ALL) != 0;
}

ScrollBarControl::Layout ScrollBarControl::LayOut() const {
  const RECT client = ClientRect();
  Layout layout{};
  layout.length = IsVertical() ? client.bottom : client.right;
  layout.arrow = std::min(GetSystemMetrics(IsVertical() ? SM_CYVSCROLL : SM_CXHSCROLL), layout.length / 2);
  const int room = layout.length - 2 * layout.arrow;
  const long long span = static_cast<long long>(m_high) - m_low + 1;
  int thumb = m_page ? static_cast<int>(static_cast<long long>(room) * m_page / span)
                     : GetSystemMetrics(IsVertical() ? SM_CYVTHUMB : SM_CXHTHUMB);
  thumb = std::max(thumb, kSmallestThumb);
  layout.thumbBegin = layout.thumbEnd = layout.arrow;
  const long long way = static_cast<long long>(LastPosition()) - m_low;
  if (thumb >= room || way <= 0) return layout;
  const int position = m_pressed == Part::thumb ? m_track : m_position;
  layout.thumbBegin += static_cast<int>((room - thumb) * (static_cast<long long>(position) - m_low) / way);
  layout.thumbEnd = layout.thumbBegin + thumb;
  return layout;
}

ScrollBarControl::Part ScrollBarControl::PartAt(const Layout& layout, int at) const {
  if (at < 0 || at >= layout.length) return Part::none;
  if (at < layout.arrow) return Part::lineBack;
  if (at >= layout.length - layout.arrow) return Part::lineOn;
  if (layout.thumbBegin == layout.thumbEnd) return Part::none;
  if (at < layout.thumbBegin) return Part::pageBack;
  return at < layout.thumbEnd ? Part::thumb : Part::pageOn;
}

int ScrollBarControl::Along(LPARAM point) const {
  return static_cast<short>(IsVertical() ? HIWORD(point) : LOWORD(point));
}

RECT ScrollBarControl::Span(int begin, int end) const {
  const RECT client = ClientRect();
  return IsVertical() ? RECT{0, begin, client.right, end} : RECT{begin, 0, end, client.bottom};
}

void ScrollBarControl::Tell(int code, int position) const {
  SendMessageW(GetParent(Window()), IsVertical() ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(code, position),
               reinterpret_cast<LPARAM>(Window()));
}

void ScrollBarControl::Act(Part part) const {
  switch (part) {
    case Part::lineBack: return Tell(SB_LINEUP);
    case Part::lineOn: return Tell(SB_LINEDOWN);
    case Part::pageBack: return Tell(SB_PAGEUP);
    case Part::pageOn: return Tell(SB_PAGEDOWN);
    default: return;
  }
}

void ScrollBarControl::OnDown(int at) {
  if (Style() & WS_TABSTOP) SetFocus(Window());
  const Layout layout = LayOut();
  m_pressed = PartAt(layout, at);
  if (m_pressed == Part::none) return;
  SetCapture(Window());
  m_grip = at - layout.thumbBegin;
  m_track = m_position;
  Invalidate(false);
  if (m_pressed == Part::thumb) return Tell(SB_THUMBTRACK, m_track);
  SetTimer(Window(), kRepeatTimer, kFirstRepeat, nullptr);
  Act(m_pressed);
}

void ScrollBarControl::OnMove(int at) {
  if (m_pressed != Part::thumb) return;
  const Layout layout = LayOut();
  const int room = layout.length - 2 * layout.arrow - (layout.thumbEnd - layout.thumbBegin);
  if (room <= 0) return;
  const long long way = static_cast<long long>(LastPosition()) - m_low;
  const int offset = std::clamp(at - m_grip - layout.arrow, 0, room);
  const int position = static_cast<int>(m_low + (offset * way + room / 2) / room);
  if (position == m_track) return;
  m_track = position;
  Invalidate(false);
  Tell(SB_THUMBTRACK, position);
}

void ScrollBarControl::OnUp() {
  if (m_pressed == Part::none) return;
  const bool dragged = m_pressed == Part::thumb;
  m_pressed = Part::none;
  KillTimer(Window(), kRepeatTimer);
  if (GetCapture() == Window()) ReleaseCapture();
  Invalidate(false);
  if (dragged) Tell(SB_THUMBPOSITION, m_track);
  Tell(SB_ENDSCROLL);
}

bool ScrollBarControl::OnKey(WPARAM key) const {
  int code;
  switch (key) {
    case VK_UP:
    case VK_LEFT: code = SB_LINEUP; break;
    case VK_DOWN:
    case VK_RIGHT: code = SB_LINEDOWN; break;
    case VK_PRIOR: code = SB_PAGEUP; break;
    case VK_NEXT: code = SB_PAGEDOWN; break;
    case VK_HOME: code = SB_TOP; break;
    case VK_END: code = SB_BOTTOM; break;
    default: return false;
  }
  Tell(code);
  return true;
}

void ScrollBarControl::Paint(HDC dc) {
  const Layout layout = LayOut();
  const RECT client = ClientRect();
  const HBRUSH brush = AskColors(WM_CTLCOLORSCROLLBAR, dc);
  FillRect(dc, &client, brush);
  const bool enabled = IsWindowEnabled(Window()) && LastPosition() > m_low;
  const auto arrow = [&](int begin, UINT kind, Part part) {
    RECT rect = Span(begin, begin + layout.arrow);
    UINT state = kind;
    if (!enabled || m_disabled == ESB_DISABLE_BOTH) state |= DFCS_INACTIVE;
    if (m_pressed == part) state |= DFCS_PUSHED | DFCS_FLAT;
    DrawFrameControl(dc, &rect, DFC_SCROLL, state);
  };
  arrow(0, IsVertical() ? DFCS_SCROLLUP : DFCS_SCROLLLEFT, Part::lineBack);
  arrow(layout.length - layout.arrow, IsVertical() ? DFCS_SCROLLDOWN : DFCS_SCROLLRIGHT, Part::lineOn);
  if (!enabled || layout.thumbBegin == layout.thumbEnd) return;
  RECT thumb = Span(layout.thumbBegin, layout.thumbEnd);
  DrawEdge(dc, &thumb, EDGE_RAISED, BF_RECT | BF_MIDDLE);
}

LRESULT ScrollBarControl::HandleBar(UINT message, WPARAM wParam, LPARAM lParam) {
  SCROLLINFO info{};
  switch (message) {
    case SBM_SETPOS: {
      const int before = m_position;
      info.fMask = SIF_POS;
      info.nPos = static_cast<int>(wParam);
      SetInfo(info, lParam != 0);
      return before;
    }
    case SBM_GETPOS: return m_position;
    case SBM_SETRANGE:
    case SBM_SETRANGEREDRAW: {
      const int before = m_position;
      info.fMask = SIF_RANGE;
      info.nMin = static_cast<int>(wParam);
      info.nMax = static_cast<int>(lParam);
      SetInfo(info, message == SBM_SETRANGEREDRAW);
      return before == m_position ? 0 : before;
    }
    case SBM_GETRANGE:
      if (wParam) *reinterpret_cast<int*>(wParam) = m_low;
      if (lParam) *reinterpret_cast<int*>(lParam) = m_high;
      return 0;
    case SBM_ENABLE_ARROWS:
      m_disabled = static_cast<UINT>(wParam);
      Invalidate(false);
      return TRUE;
    case SBM_SETSCROLLINFO: return SetInfo(*reinterpret_cast<const SCROLLINFO*>(lParam), wParam != 0);
    case SBM_GETSCROLLINFO: return GetInfo(*reinterpret_cast<SCROLLINFO*>(lParam));
    default: return 0;
  }
}

LRESULT ScrollBarControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= SBM_SETPOS && message <= SBM_GETSCROLLINFO) return HandleBar(message, wParam, lParam);
  switch (message) {
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONDOWN: OnDown(Along(lParam)); return 0;
    case WM_MOUSEMOVE: OnMove(Along(lParam)); return 0;
    case WM_LBUTTONUP: OnUp(); return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != Window()) OnUp();
      return 0;
    case WM_TIMER: {
      POINT point{};
      GetCursorPos(&point);
      ScreenToClient(Window(), &point);
      SetTimer(Window(), kRepeatTimer, kNextRepeat, nullptr);
      // It repeats while the mouse is over what it pressed.
      if (PartAt(LayOut(), IsVertical() ? point.y : point.x) == m_pressed) Act(m_pressed);
      return 0;
    }
    case WM_KEYDOWN: return OnKey(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_KEYUP: Tell(SB_ENDSCROLL); return 0;
    case WM_GETDLGCODE: return DLGC_WANTARROWS;
    case WM_ENABLE: Invalidate(false); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font)); return 0;
    default: return Default(message, wParam, lParam);
  }
}

}  // namespace desktop
