// LISTBOX: what is seen and what is selected.
#include <algorithm>

#include "controls/list_box.h"

namespace desktop {

int ListBox::VisibleRows() const { return std::max<int>(1, ClientRect().bottom / std::max(m_rowHeight, 1)); }

RECT ListBox::RowRect(int index) const {
  const int top = (index - m_top) * m_rowHeight;
  return {0, top, ClientRect().right, top + m_rowHeight};
}

int ListBox::RowAt(POINT point) const {
  const RECT client = ClientRect();
  if (!PtInRect(&client, point)) return -1;
  const int row = m_top + point.y / m_rowHeight;
  return IsRow(row) ? row : -1;
}

void ListBox::InvalidateRow(int index) const {
  if (!IsRow(index)) return;
  const RECT rect = RowRect(index);
  InvalidateRect(Window(), &rect, TRUE);
}

// Owner-drawn rows are as high as their owner wants, others as their text.
void ListBox::MeasureRows() {
  const ControlDC dc(Window(), m_font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  m_rowHeight = std::max<int>(metrics.tmHeight, 1);
  if (!(Style() & LBS_OWNERDRAWFIXED)) return;
  const UINT id = static_cast<UINT>(GetDlgCtrlID(Window()));
  MEASUREITEMSTRUCT measure{OwnerDrawType(), id, static_cast<UINT>(-1), 0, static_cast<UINT>(m_rowHeight), 0};
  SendMessageW(Owner(), WM_MEASUREITEM, id, reinterpret_cast<LPARAM>(&measure));
  m_rowHeight = std::max<int>(static_cast<int>(measure.itemHeight), 1);
}

void ListBox::UpdateScrollBar() {
  if (!(Style() & WS_VSCROLL) && Count() <= VisibleRows()) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  if (Style() & LBS_DISABLENOSCROLL) info.fMask |= SIF_DISABLENOSCROLL;
  info.nMax = std::max(Count() - 1, 0);
  info.nPage = static_cast<UINT>(VisibleRows());
  info.nPos = m_top;
  if (Style() & WS_VSCROLL) SetScrollInfo(Window(), SB_VERT, &info, TRUE);
}

void ListBox::SetTop(int index) {
  const int top = std::clamp(index, 0, std::max(Count() - VisibleRows(), 0));
  if (top == m_top) return;
  m_top = top;
  UpdateScrollBar();
  Invalidate();
}

void ListBox::Reveal(int index) {
  if (index < m_top) SetTop(index);
  if (index >= m_top + VisibleRows()) SetTop(index - VisibleRows() + 1);
}

void ListBox::OnScroll(int action, int position) {
  switch (action) {
    case SB_LINEUP: return SetTop(m_top - 1);
    case SB_LINEDOWN: return SetTop(m_top + 1);
    case SB_PAGEUP: return SetTop(m_top - VisibleRows());
    case SB_PAGEDOWN: return SetTop(m_top + VisibleRows());
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: return SetTop(position);
    case SB_TOP: return SetTop(0);
    case SB_BOTTOM: return SetTop(Count());
    default: return;
  }
}

bool ListBox::SetCurrent(int index) {
  const int before = m_current;
  m_current = index;
  if (index >= 0) {
    InvalidateRow(m_caret);
    m_caret = index;
  }
  if (before == index) return false;
  InvalidateRow(before);
  InvalidateRow(index);
  return true;
}

void ListBox::SelectRange(int first, int last, bool selected) {
  for (int i = std::max(first, 0); i <= std::min(last, Count() - 1); ++i) {
    if (At(i).selected == selected) continue;
    At(i).selected = selected;
    InvalidateRow(i);
  }
}

// The caret goes to a row, and the selection with it as the style has it.
void ListBox::MoveCaret(int index, bool extend, bool tell) {
  if (!IsRow(index)) return;
  InvalidateRow(m_caret);
  m_caret = index;
  InvalidateRow(index);
  if (Style() & LBS_EXTENDEDSEL) {
    if (!extend || m_anchor < 0) m_anchor = index;
    SelectRange(0, Count() - 1, false);
    SelectRange(std::min(m_anchor, index), std::max(m_anchor, index), true);
  } else if (!IsMultiple() && !(Style() & LBS_NOSEL)) {
    SetCurrent(index);
  }
  Reveal(index);
  if (tell) Tell(LBN_SELCHANGE);
}

void ListBox::Choose(int index, WPARAM keys) {
  if (Style() & LBS_EXTENDEDSEL) {
    if (!(keys & MK_CONTROL)) return MoveCaret(index, (keys & MK_SHIFT) != 0, false);
    InvalidateRow(m_caret);
    m_caret = m_anchor = index;
    return SelectRange(index, index, !At(index).selected);
  }
  if (Style() & LBS_MULTIPLESEL) {
    InvalidateRow(m_caret);
    m_caret = index;
    return SelectRange(index, index, !At(index).selected);
  }
  MoveCaret(index, false, false);
}

void ListBox::OnKey(WPARAM key) {
  int to = m_current < 0 && !IsMultiple() && key != VK_HOME && key != VK_END ? -1 : m_caret;
  const int last = Count() - 1;
  switch (key) {
    case VK_UP:
    case VK_LEFT: to = std::max(m_caret - 1, 0); break;
    case VK_DOWN:
    case VK_RIGHT: to = std::min(to + 1, last); break;
    case VK_PRIOR: to = std::max(m_caret - std::max(VisibleRows() - 1, 1), 0); break;
    case VK_NEXT: to = std::min(m_caret + std::max(VisibleRows() - 1, 1), last); break;
    case VK_HOME: to = 0; break;
    case VK_END: to = last; break;
    case VK_SPACE:
      if (!(Style() & LBS_MULTIPLESEL) || !IsRow(m_caret)) return;
      SelectRange(m_caret, m_caret, !At(m_caret).selected);
      return Tell(LBN_SELCHANGE);
    default: return;
  }
  MoveCaret(to, GetKeyState(VK_SHIFT) < 0, true);
}

void ListBox::PaintRow(HDC dc, int index) {
  const Row& row = At(index);
  RECT rect = RowRect(index);
  const bool selected = IsMultiple() ? row.selected : index == m_current;
  const bool focused = m_focused && index == m_caret;
  if (IsOwnerDrawn()) {
    const UINT id = static_cast<UINT>(GetDlgCtrlID(Window()));
    UINT state = selected ? ODS_SELECTED : 0u;
    if (focused) state |= ODS_FOCUS;
    if (!IsWindowEnabled(Window())) state |= ODS_DISABLED;
    DRAWITEMSTRUCT draw{
        OwnerDrawType(), id, static_cast<UINT>(index), ODA_DRAWENTIRE, state, Window(), dc, rect, row.data};
    const int saved = SaveDC(dc);
    SendMessageW(Owner(), WM_DRAWITEM, id, reinterpret_cast<LPARAM>(&draw));
    RestoreDC(dc, saved);
    return;
  }
  const int saved = SaveDC(dc);
  if (selected) {
    FillRect(dc, &rect, GetSysColorBrush(COLOR_HIGHLIGHT));
    SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
    SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
  }
  if (!IsWindowEnabled(Window())) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  ExtTextOutW(dc, rect.left + 1, rect.top, ETO_CLIPPED | (selected ? ETO_OPAQUE : 0), &rect, row.text.c_str(),
              static_cast<UINT>(row.text.size()), nullptr);
  RestoreDC(dc, saved);
  if (focused) DrawFocusRect(dc, &rect);
}

void ListBox::Paint(HDC dc) {
  const RECT client = ClientRect();
  const HBRUSH brush = AskColors(WM_CTLCOLORLISTBOX, dc);
  FillRect(dc, &client, brush);
  const int last = std::min(Count(), m_top + client.bottom / std::max(m_rowHeight, 1) + 1);
  // The owner that draws may change the list.
  for (int index = m_top; index < last && IsRow(index); ++index) PaintRow(dc, index);
}

}  // namespace desktop
