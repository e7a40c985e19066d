// EDIT: painting.
#include <algorithm>

#include "controls/edit.h"

namespace desktop {

void Edit::InvalidateText() const { InvalidateRect(Window(), nullptr, TRUE); }

void Edit::Paint(HDC dc) {
  const bool enabled = IsWindowEnabled(Window()) != FALSE;
  RECT client = ClientRect();
  const HBRUSH brush = AskColors(!enabled || IsReadOnly() ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT, dc);
  FillRect(dc, &client, brush);
  if (m_border) FrameRect(dc, &client, GetSysColorBrush(COLOR_WINDOWFRAME));
  if (!enabled) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  // Text may reach into the margins when it is scrolled, but not over the edge.
  IntersectClipRect(dc, m_format.left, m_format.top, m_format.right, m_format.bottom);
  const size_t first = IsMultiline() ? m_firstLine : 0;
  const size_t last = std::min(m_lines.size(), first + static_cast<size_t>(VisibleLines()) + 1);
  for (size_t line = first; line < last; ++line) PaintLine(dc, line);
}

// Up to three parts: before, in and behind the selection.
void Edit::PaintLine(HDC dc, size_t at) {
  const Line& line = m_lines[at];
  const size_t begin = IsMultiline() ? line.begin : m_firstChar;
  const size_t end = line.begin + line.length;
  const bool showsSelection = m_focused || (m_style & ES_NOHIDESEL);
  const Selection range = showsSelection ? Sel() : Selection{0, 0};
  const size_t low = std::clamp(range.low, begin, end);
  const size_t high = std::clamp(range.high, begin, end);
  POINT point = PositionOf(begin);
  point.x += PaintPart(dc, point, begin, low, false);
  point.x += PaintPart(dc, point, low, high, true);
  PaintPart(dc, point, high, end, false);
}

int Edit::PaintPart(HDC dc, POINT at, size_t begin, size_t end, bool selected) {
  if (begin >= end) return 0;
  const int saved = SaveDC(dc);
  if (selected) {
    SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
    SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    SetBkMode(dc, OPAQUE);
  }
  const std::wstring text = Shown(begin, end - begin);
  const int count = static_cast<int>(text.size());
  int width = 0;
  if (IsMultiline()) {
    const int origin = m_format.left - m_shift;
    width = LOWORD(TabbedTextOutW(dc, at.x, at.y, text.c_str(), count, 1, &m_tabWidth, origin));
  } else {
    TextOutW(dc, at.x, at.y, text.c_str(), count);
    width = Width(dc, begin, end - begin);
  }
  RestoreDC(dc, saved);
  return width;
}

}  // namespace desktop
