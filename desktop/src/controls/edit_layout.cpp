// EDIT: the formatting rectangle, lines, positions of characters, scrolling.
#include <algorithm>

#include "controls/edit.h"

namespace desktop {

// Between the edge of the control and its text lies a gap; the margins of the font come on top of it.
void Edit::SetFormatRect(const RECT& rect) {
  m_format = rect;
  const auto shrink = [this](int gap) {
    m_format.left += gap;
    m_format.right -= gap;
    if (m_format.bottom - m_format.top < m_lineHeight + 2 * gap) return;
    m_format.top += gap;
    m_format.bottom -= gap;
  };
  if (ExStyle() & WS_EX_CLIENTEDGE)
    shrink(1);
  else if (m_border)
    shrink(GetSystemMetrics(SM_CXBORDER) + 1);
  m_format.left += m_leftMargin;
  m_format.right -= m_rightMargin;

  m_format.right = std::max(m_format.right, m_format.left + m_letterWidth);
  const int lines = IsMultiline() ? VisibleLines() : 1;
  m_format.bottom = std::min(m_format.top + lines * m_lineHeight, ClientRect().bottom);
  BuildLines();
  PlaceCaret();
}

void Edit::ResetFormatRect() {
  SetFormatRect(ClientRect());
  UpdateScrollBars();
}

void Edit::SetMargins(UINT action, WORD left, WORD right) {
  const ControlDC dc(Window(), m_font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  int fontMargin = 0;
  if (metrics.tmPitchAndFamily & (TMPF_VECTOR | TMPF_TRUETYPE)) {
    fontMargin = m_letterWidth / 2;
    const RECT client = ClientRect();
    // A narrow control keeps what it has.
    if (!IsRectEmpty(&client) && client.right < 2 * fontMargin + 2 * m_letterWidth) fontMargin = -1;
  }
  const auto resolve = [=](WORD value, int current) {
    if (value != EC_USEFONTINFO) return static_cast<int>(value);
    return fontMargin < 0 ? current : fontMargin;
  };
  if (action & EC_LEFTMARGIN) m_leftMargin = resolve(left, m_leftMargin);
  if (action & EC_RIGHTMARGIN) m_rightMargin = resolve(right, m_rightMargin);
  if (action & (EC_LEFTMARGIN | EC_RIGHTMARGIN)) ResetFormatRect();
}

int Edit::VisibleLines() const {
  return std::max<int>(1, (m_format.bottom - m_format.top) / std::max(m_lineHeight, 1));
}

std::wstring Edit::Shown(size_t begin, size_t length) const {
  return m_password ? std::wstring(length, m_password) : m_text.substr(begin, length);
}

int Edit::Width(HDC dc, size_t begin, size_t length) const {
  if (length == 0) return 0;
  const std::wstring text = Shown(begin, length);
  const int count = static_cast<int>(length);
  if (IsMultiline() && text.find(L'\t') != std::wstring::npos)
    return LOWORD(GetTabbedTextExtentW(dc, text.c_str(), count, 1, &m_tabWidth));
  SIZE extent{};
  GetTextExtentPoint32W(dc, text.c_str(), count, &extent);
  return extent.cx;
}

int Edit::Width(size_t begin, size_t length) const {
  const ControlDC dc(Window(), m_font);
  return Width(dc, begin, length);
}

void Edit::BuildLines() {
  const ControlDC dc(Window(), m_font);
  m_lines.clear();
  if (!IsMultiline()) {
    m_lines.push_back({0, m_text.size(), 0, Width(dc, 0, m_text.size())});
    m_firstChar = std::min(m_firstChar, m_text.size());
    return;
  }
  size_t begin = 0;
  for (;;) {
    const size_t feed = m_text.find(L'\n', begin);
    if (feed == std::wstring::npos) break;
    const size_t ending = feed > begin && m_text[feed - 1] == L'\r' ? 2 : 1;
    BreakParagraph(dc, begin, feed + 1 - ending, ending);
    begin = feed + 1;
  }
  BreakParagraph(dc, begin, m_text.size(), 0);
  m_firstLine = std::min(m_firstLine, m_lines.size() - 1);
}

// One paragraph as one line, or as many as it takes to wrap it.
void Edit::BreakParagraph(HDC dc, size_t begin, size_t end, size_t ending) {
  while (Wraps()) {
    const size_t fits = FitPrefix(dc, begin, end);
    if (begin + fits >= end) break;
    m_lines.push_back({begin, fits, 0, Width(dc, begin, fits)});
    begin += fits;
  }
  m_lines.push_back({begin, end - begin, ending, Width(dc, begin, end - begin)});
}

// How many characters go on one line: up to the last blank that fits, and it goes too.
size_t Edit::FitPrefix(HDC dc, size_t begin, size_t end) const {
  const int room = m_format.right - m_format.left;
  const size_t total = end - begin;
  if (Width(dc, begin, total) <= room) return total;
  size_t fits = 0;
  size_t tooMany = total;
  while (tooMany - fits > 1) {
    const size_t middle = (fits + tooMany) / 2;
    (Width(dc, begin, middle) <= room ? fits : tooMany) = middle;
  }
  fits = std::max<size_t>(fits, 1);
  if (m_text[begin + fits] == L' ') return fits + 1;
  const size_t blank = m_text.rfind(L' ', begin + fits - 1);
  return blank == std::wstring::npos || blank < begin ? fits : blank + 1 - begin;
}

size_t Edit::LineOf(size_t index) const {
  size_t line = 0;
  while (line + 1 < m_lines.size() && m_lines[line + 1].begin <= index) ++line;
  return line;
}

// Left edge of a character, in client coordinates.
POINT Edit::PositionOf(size_t index) const {
  const ControlDC dc(Window(), m_font);
  index = std::min(index, m_text.size());
  const size_t at = LineOf(index);
  const Line& line = m_lines[at];
  const int room = m_format.right - m_format.left;
  int x = m_format.left;
  if (IsMultiline()) {
    x += Width(dc, line.begin, std::min(index - line.begin, line.length)) - m_shift;
  } else if (index < m_firstChar) {
    x -= Width(dc, index, m_firstChar - index);
  } else {
    x += Width(dc, m_firstChar, index - m_firstChar);
  }
  if (m_firstChar == 0 && m_shift == 0 && line.width < room) {
    if (m_style & ES_RIGHT) x += room - line.width;
    if (m_style & ES_CENTER) x += (room - line.width) / 2;
  }
  const int row = static_cast<int>(at) - static_cast<int>(IsMultiline() ? m_firstLine : 0);
  return {x, m_format.top + row * m_lineHeight};
}

// The gap between characters that is nearest to a point.
size_t Edit::IndexAt(POINT point) const {
  size_t row = 0;
  if (IsMultiline()) {
    const int below = (point.y - m_format.top) / std::max(m_lineHeight, 1) - (point.y < m_format.top ? 1 : 0);
    const int wanted = static_cast<int>(m_firstLine) + below;
    row = static_cast<size_t>(std::clamp(wanted, 0, static_cast<int>(m_lines.size()) - 1));
  }
  return IndexInLine(m_lines[row], point.x);
}

size_t Edit::IndexInLine(const Line& line, int x) const {
  const ControlDC dc(Window(), m_font);
  const size_t first = IsMultiline() ? line.begin : m_firstChar;
  const size_t end = line.begin + line.length;
  const int origin = PositionOf(first).x;
  if (!IsMultiline() && x < origin) {
    size_t index = first;
    while (index > 0 && origin - Width(dc, index, first - index) > x) --index;
    return index;
  }
  int before = 0;
  for (size_t index = first; index < end; ++index) {
    const int after = Width(dc, first, index + 1 - first);
    if (x < origin + (before + after + 1) / 2) return index;
    before = after;
  }
  return end;
}

void Edit::PlaceCaret() const {
  if (!m_focused) return;
  const POINT at = PositionOf(m_end);
  SetCaretPos(at.x, at.y);
}

void Edit::ScrollCaret() {
  if (m_lines.empty()) return;
  if (IsMultiline())
    ScrollCaretMulti();
  else if (m_style & ES_AUTOHSCROLL)
    ScrollCaretSingle();
  PlaceCaret();
}

// When the caret leaves the line at one side, it comes back a third of the width inside.
void Edit::ScrollCaretSingle() {
  const size_t before = m_firstChar;
  const int width = m_format.right - m_format.left;
  int x = PositionOf(m_end).x;
  if (x < m_format.left) {
    const int goal = m_format.left + width / 3;
    while (m_firstChar > 0 && x < goal) {
      --m_firstChar;
      x = PositionOf(m_end).x;
    }
  } else if (x > m_format.right) {
    const int goal = m_format.right - width / 3;
    while (m_firstChar < m_text.size() && x > goal && PositionOf(m_text.size()).x > m_format.right) {
      ++m_firstChar;
      x = PositionOf(m_end).x;
    }
  }
  if (before != m_firstChar) InvalidateText();
}

void Edit::ScrollCaretMulti() {
  const int line = static_cast<int>(LineOf(m_end));
  const int first = static_cast<int>(m_firstLine);
  int dy = 0;
  if (line < first) dy = line - first;
  if (line >= first + VisibleLines()) dy = line - VisibleLines() + 1 - first;
  int dx = 0;
  if (!Wraps()) {
    const int x = PositionOf(m_end).x;
    const int third = (m_format.right - m_format.left) / 3;
    if (x < m_format.left) dx = x - m_format.left - third;
    if (x > m_format.right) dx = x - m_format.right + third;
  }
  ScrollBy(dx, dy);
}

bool Edit::ScrollBy(int dx, int dy) {
  const int lastLine = static_cast<int>(m_lines.size()) - 1;
  const auto line =
      static_cast<size_t>(std::clamp(static_cast<int>(m_firstLine) + dy, 0, std::max(lastLine, 0)));
  const int shift = std::max(m_shift + dx, 0);
  if (line == m_firstLine && shift == m_shift) return false;
  const bool down = line != m_firstLine;
  m_firstLine = line;
  m_shift = shift;
  UpdateScrollBars();
  InvalidateText();
  PlaceCaret();
  Notify(down ? EN_VSCROLL : EN_HSCROLL);
  return true;
}

// EM_SCROLL: the answer tells by how many lines.
LRESULT Edit::OnScrollMessage(int action) {
  if (!IsMultiline()) return FALSE;
  int dy = 0;
  switch (action) {
    case SB_LINEUP: dy = -1; break;
    case SB_LINEDOWN: dy = 1; break;
    case SB_PAGEUP: dy = -VisibleLines(); break;
    case SB_PAGEDOWN: dy = VisibleLines(); break;
    default: return FALSE;
  }
  const int last = static_cast<int>(m_lines.size()) - VisibleLines();
  const int first = static_cast<int>(m_firstLine);
  dy = std::clamp(first + dy, 0, std::max(last, first)) - first;
  if (dy) ScrollBy(0, dy);
  return MAKELONG(dy, TRUE);
}

void Edit::OnScrollBar(int bar, int action, int position) {
  if (!IsMultiline()) return;
  if (bar == SB_VERT && action <= SB_PAGEDOWN) {
    OnScrollMessage(action);
    return;
  }
  if (bar == SB_VERT) {
    if (action == SB_THUMBPOSITION || action == SB_THUMBTRACK)
      ScrollBy(0, position - static_cast<int>(m_firstLine));
    if (action == SB_TOP) ScrollBy(0, -static_cast<int>(m_firstLine));
    if (action == SB_BOTTOM) ScrollBy(0, static_cast<int>(m_lines.size()));
    return;
  }
  const int third = (m_format.right - m_format.left) / 3;
  switch (action) {
    case SB_LINELEFT: ScrollBy(-m_letterWidth, 0); break;
    case SB_LINERIGHT: ScrollBy(m_letterWidth, 0); break;
    case SB_PAGELEFT: ScrollBy(-third, 0); break;
    case SB_PAGERIGHT: ScrollBy(third, 0); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: ScrollBy(position - m_shift, 0); break;
    default: break;
  }
}

void Edit::UpdateScrollBars() {
  if (!IsMultiline() || !(m_style & (WS_VSCROLL | WS_HSCROLL))) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_PAGE | SIF_POS | SIF_RANGE | SIF_DISABLENOSCROLL;
  if (m_style & WS_VSCROLL) {
    info.nMax = static_cast<int>(m_lines.size()) - 1;
    info.nPage = static_cast<UINT>(VisibleLines());
    info.nPos = static_cast<int>(m_firstLine);
    SetScrollInfo(Window(), SB_VERT, &info, TRUE);
  }
  if (m_style & WS_HSCROLL) {
    info.nMax = 0;
    for (const Line& line : m_lines) info.nMax = std::max(info.nMax, line.width);
    info.nPage = static_cast<UINT>(m_format.right - m_format.left);
    info.nPos = m_shift;
    SetScrollInfo(Window(), SB_HORZ, &info, TRUE);
  }
}

}  // namespace desktop
