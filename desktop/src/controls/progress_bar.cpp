// The progress bar.
#include <commctrl.h>

#include <algorithm>

#include "controls/progress_bar.h"

namespace desktop {

namespace {

constexpr COLORREF kDefaultColor = 0xFF000000;
constexpr int kBlockGap = 2;

COLORREF OrSystem(COLORREF color, int index) { return color == kDefaultColor ? GetSysColor(index) : color; }

}  // namespace

LRESULT ProgressBar::SetRange(int low, int high) {
  const LRESULT before = MAKELONG(LOWORD(m_low), LOWORD(m_high));
  m_low = low;
  m_high = high;
  m_position = std::clamp(m_position, std::min(low, high), std::max(low, high));
  Invalidate();
  return before;
}

LRESULT ProgressBar::SetPosition(long long position) {
  const int before = m_position;
  m_position =
      static_cast<int>(std::clamp<long long>(position, std::min(m_low, m_high), std::max(m_low, m_high)));
  if (before != m_position) Invalidate(before > m_position);
  return before;
}

// A step beyond the end starts again at the beginning.
LRESULT ProgressBar::StepIt() {
  const int before = m_position;
  const long long next = static_cast<long long>(m_position) + m_step;
  const long long span = static_cast<long long>(m_high) - m_low;
  if (next > m_high && span > 0)
    m_position = static_cast<int>(m_low + (next - m_low) % span);
  else
    m_position = static_cast<int>(std::max<long long>(next, m_low));
  if (before != m_position) Invalidate(true);
  return before;
}

void ProgressBar::Fill(HDC dc, const RECT& rect, COLORREF color) const {
  const HBRUSH brush = CreateSolidBrush(color);
  if (!brush) return;
  FillRect(dc, &rect, brush);
  DeleteObject(brush);
}

void ProgressBar::Paint(HDC dc) {
  RECT rect = ClientRect();
  Fill(dc, rect, OrSystem(m_backColor, COLOR_BTNFACE));
  InflateRect(&rect, -1, -1);
  const bool vertical = (Style() & PBS_VERTICAL) != 0;
  const int length = vertical ? rect.bottom - rect.top : rect.right - rect.left;
  const int breadth = vertical ? rect.right - rect.left : rect.bottom - rect.top;
  if (m_high == m_low || length <= 0) return;
  const int done = static_cast<int>((static_cast<long long>(m_position) - m_low) * length /
                                    (static_cast<long long>(m_high) - m_low));
  const bool smooth = (Style() & PBS_SMOOTH) != 0;
  const int block = smooth ? std::max(done, 1) : std::max(breadth * 2 / 3, 1);
  const int step = block + (smooth ? 0 : kBlockGap);
  for (int at = 0; at < done; at += step) {
    const int end = std::min(at + block, length);
    const RECT part = vertical ? RECT{rect.left, rect.bottom - end, rect.right, rect.bottom - at}
                               : RECT{rect.left + at, rect.top, rect.left + end, rect.bottom};
    Fill(dc, part, OrSystem(m_barColor, COLOR_HIGHLIGHT));
  }
}

LRESULT ProgressBar::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto exchange = [this](COLORREF& slot, LPARAM value) {
    Invalidate();
    return static_cast<LRESULT>(std::exchange(slot, static_cast<COLORREF>(value)));
  };
  switch (message) {
    case WM_CREATE:
      SetWindowLongW(Window(), GWL_EXSTYLE, static_cast<LONG>(ExStyle() | WS_EX_STATICEDGE));
      SetWindowPos(Window(), nullptr, 0, 0, 0, 0,
                   SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      return 0;
    case PBM_SETRANGE: return SetRange(LOWORD(lParam), HIWORD(lParam));
    case PBM_SETRANGE32: return SetRange(static_cast<int>(wParam), static_cast<int>(lParam));
    case PBM_GETRANGE:
      if (auto* range = reinterpret_cast<PBRANGE*>(lParam)) *range = {m_low, m_high};
      return wParam ? m_low : m_high;
    case PBM_SETPOS: return SetPosition(static_cast<int>(wParam));
    case PBM_DELTAPOS: return SetPosition(static_cast<long long>(m_position) + static_cast<int>(wParam));
    case PBM_GETPOS: return m_position;
    case PBM_SETSTEP: return std::exchange(m_step, static_cast<int>(wParam));
    case PBM_GETSTEP: return m_step;
    case PBM_STEPIT: return StepIt();
    case PBM_SETBARCOLOR: return exchange(m_barColor, lParam);
    case PBM_GETBARCOLOR: return static_cast<LRESULT>(m_barColor);
    case PBM_SETBKCOLOR: return exchange(m_backColor, lParam);
    case PBM_GETBKCOLOR: return static_cast<LRESULT>(m_backColor);
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font)); return 0;
    default: return Default(message, wParam, lParam);
  }
}

}  // namespace desktop
