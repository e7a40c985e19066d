#include "tree/row_reference.h"

#include "tree/painted_tree.h"

namespace support {

namespace {

constexpr int kUp = 1, kDown = 8, kAcross = 4;

bool Has(const CVornTreeItem* item, unsigned bit) { return (item->m_nState & bit) != 0; }
bool HasNext(const CVornTreeItem* item) {
  for (item = item->m_pNextSibling; item != nullptr; item = item->m_pNextSibling) {
    if (!Has(item, STIS_HIDDEN)) return true;
  }
  return false;
}
bool HasPrev(const CVornTreeItem* item) {
  for (item = item->m_pPrevSibling; item != nullptr; item = item->m_pPrevSibling) {
    if (!Has(item, STIS_HIDDEN)) return true;
  }
  return false;
}
bool CanOpen(const CVornTreeItem* item) {
  if (Has(item, STIS_HASCHILDREN)) return true;
  const CVornTreeItem* child = item->m_pFirstChild;
  return child != nullptr && (!Has(child, STIS_HIDDEN) || HasNext(child));
}

POINT Middle(const CRect& rect) { return {rect.left + 7, rect.top - 1 + (rect.bottom - rect.top) / 2}; }

void Dots(HDC dc, const CRect& rect, int sides) {
  const COLORREF color = ::GetSysColor(COLOR_WINDOWTEXT);
  const POINT middle = Middle(rect);
  for (int y = middle.y; (sides & kUp) && y >= rect.top; y -= 2) ::SetPixelV(dc, middle.x, y, color);
  for (int y = middle.y; (sides & kDown) && y <= rect.bottom; y += 2) ::SetPixelV(dc, middle.x, y, color);
  for (int x = middle.x; (sides & kAcross) && x <= rect.right; x += 2) ::SetPixelV(dc, x, middle.y, color);
}

void Solid(HDC dc, const CRect& rect, COLORREF color) {
  const HBRUSH brush = ::CreateSolidBrush(color);
  ::FillRect(dc, rect, brush);
  ::DeleteObject(brush);
}

CSize SizeOf(CImageList* list) {
  int cx = 0, cy = 0;
  ::ImageList_GetIconSize(list->GetSafeHandle(), &cx, &cy);
  return {cx, cy};
}

}  // namespace

RowReference::RowReference(TestTree& tree, unsigned style, int levelOffset, const Lists& lists)
    : m_tree(tree),
      m_style(style),
      m_offset(levelOffset),
      m_indent(static_cast<int>(tree.GetIndent())),
      m_lists(lists) {}

Picture RowReference::Draw(CVornTreeItem* first, int scrollX, CSize client) {
  m_labels.clear();
  const Canvas canvas(client.cx, client.cy, static_cast<COLORREF>(m_tree.GetBkColor()));
  CRect rect(-scrollX, 0, client.cx - scrollX, 0);
  for (CVornTreeItem* item = first; item != nullptr && rect.top <= client.cy;
       item = m_tree.GetNextVisibleItem(item)) {
    Row(canvas, rect, item);
    rect.OffsetRect(0, HeightOf(m_tree, item));
  }
  return canvas.Read();
}

void RowReference::Row(HDC dc, CRect rect, CVornTreeItem* item) {
  const int shown = item->m_nLevel - m_offset;
  CRect line(rect.left + 2, rect.top, rect.right - 2, rect.top);
  if (line.Width() <= 0) return;
  CRect place(line.TopLeft(), CSize(item->m_nTextWidth + 4, HeightOf(m_tree, item)));
  line = place;
  BrotherLine(dc, line, item);
  place.MoveToX(line.left);
  const unsigned linesAtRoot = STS_HASLINES | STS_LINESATROOT,
                 buttonsAtRoot = STS_HASBUTTONS | STS_LINESATROOT,
                 imagesAtRoot = STS_IMAGEBUTTONS | STS_LINESATROOT;
  const bool extra = (m_style & linesAtRoot) == linesAtRoot || (m_style & imagesAtRoot) == imagesAtRoot ||
                     (m_style & buttonsAtRoot) == buttonsAtRoot;
  if (extra && shown > 1 && m_offset == 0) place.OffsetRect(m_indent, 0);

  CRect cell = place;
  cell.right = cell.left + m_indent;
  const bool step = Connector(dc, cell, item, shown);
  const bool noButtons = (m_style & (STS_HASBUTTONS | STS_IMAGEBUTTONS)) == 0;
  if (noButtons || (shown <= 1 && (m_style & STS_LINESATROOT) == 0)) {
    if (step) place.OffsetRect(m_indent, 0);
  } else {
    cell.right = cell.left + 16;
    if (CanOpen(item)) Button(dc, cell, Has(item, STIS_EXPANDED));
    place.OffsetRect(m_indent, 0);
  }
  bool any = CheckBox(dc, place, item);
  any = StateImage(dc, place, item) || any;
  any = Image(dc, place, item) || any;
  if (any) place.OffsetRect(2, 0);
  place.right = place.left + item->m_nTextWidth + 4;
  Solid(dc, place, LabelColor(item));
  m_labels[item] = place;
}

void RowReference::BrotherLine(HDC dc, CRect& rect, CVornTreeItem* item) {
  const bool both = (m_style & 6) == 6;
  if (!both) rect.OffsetRect(-m_indent, 0);
  if (item->m_nLevel >= 2) {
    for (int k = 1; k <= item->m_nLevel - 1; ++k) {
      const CVornTreeItem* ancestor = item;
      while (ancestor->m_nLevel != k + m_offset) ancestor = ancestor->m_pParent;
      if (HasNext(ancestor) && (m_style & 2) && (k != 1 || (m_style & 4))) {
        Dots(dc, CRect(rect.left, rect.top, rect.left + 16, rect.bottom), kUp | kDown);
      }
      if (k < item->m_nLevel - 1) rect.OffsetRect(m_indent, 0);
    }
  }
  if (!both) rect.OffsetRect(m_indent, 0);
}

bool RowReference::Connector(HDC dc, const CRect& cell, CVornTreeItem* item, int shown) {
  if (shown == 1 - m_offset) {
    if ((m_style & 6) != 6) return false;
    Dots(dc, cell, kAcross | (HasNext(item) ? kDown : 0) | (HasPrev(item) ? kUp : 0));
    return true;
  }
  if (m_style & 2) Dots(dc, cell, kAcross | kUp | (HasNext(item) ? kDown : 0));
  return true;
}

void RowReference::Button(HDC dc, const CRect& cell, bool expanded) {
  CRect box(-4, -4, 5, 5);
  const bool fromList = m_lists.buttons != nullptr && (m_style & STS_IMAGEBUTTONS) != 0;
  if (fromList) {
    const CSize size = SizeOf(m_lists.buttons);
    const int cx = size.cx / 2 > 16 ? 16 : size.cx / 2, cy = size.cy / 2 > 16 ? 16 : size.cy / 2;
    box.SetRect(-cx, -cy, cx + 1, cy + 1);
  }
  box.OffsetRect(Middle(cell));
  Solid(dc, box, static_cast<COLORREF>(m_tree.GetBkColor()));
  if (fromList) {
    ::ImageList_Draw(m_lists.buttons->GetSafeHandle(), expanded ? 1 : 0, dc, box.left, box.top,
                     ILD_TRANSPARENT);
  } else {
    PlusOrMinus(dc, box, expanded);
  }
}

void RowReference::PlusOrMinus(HDC dc, CRect box, bool expanded) {
  const COLORREF color = ::GetSysColor(COLOR_WINDOWTEXT);
  const COLORREF fill = RGB(255 - GetRValue(color), 255 - GetGValue(color), 255 - GetBValue(color));
  Solid(dc, box, color);
  box.DeflateRect(1, 1);
  Solid(dc, box, fill);
  box.DeflateRect(1, 1);
  const int x = box.left + 2, y = box.top + 2;
  for (int i = 0; i < 5; ++i) {
    if (!expanded) ::SetPixelV(dc, x, box.top + i, color);
    ::SetPixelV(dc, box.left + i, y, color);
  }
}

bool RowReference::CheckBox(HDC dc, CRect& rect, CVornTreeItem* item) {
  if (m_lists.checkBoxes == nullptr) return false;
  if (!(item->m_nExtFlags & 0x200) && !(m_style & 0x200)) return false;
  const int y = rect.top + (rect.Height() - 16) / 2;
  ::ImageList_Draw(m_lists.checkBoxes->GetSafeHandle(), Has(item, STIS_CHECKED) ? 1 : 0, dc, rect.left, y,
                   ILD_TRANSPARENT);
  rect.OffsetRect(16, 0);
  return true;
}

bool RowReference::StateImage(HDC dc, CRect& rect, CVornTreeItem* item) {
  if (m_lists.states == nullptr || item->m_nStateImage == -1) return false;
  const CSize size = SizeOf(m_lists.states);
  const int y = rect.top + (rect.Height() - size.cy) / 2;
  ::ImageList_Draw(m_lists.states->GetSafeHandle(), item->m_nStateImage, dc, rect.left, y, ILD_TRANSPARENT);
  rect.OffsetRect(size.cx, 0);
  return true;
}

bool RowReference::Image(HDC dc, CRect& rect, CVornTreeItem* item) {
  if (m_lists.normal == nullptr) return false;
  const bool selected = Has(item, STIS_SELECTED);
  if (selected && item->m_nSelectedImage == -1) return false;
  if (!selected && item->m_nImage == -1) return false;
  const bool opened = (m_style & 0x100) != 0 && Has(item, STIS_EXPANDED);
  const int index = selected || opened ? item->m_nSelectedImage : item->m_nImage;
  const CSize size = SizeOf(m_lists.normal);
  const int y = rect.top + (rect.Height() - size.cy) / 2;
  ::ImageList_Draw(m_lists.normal->GetSafeHandle(), index, dc, rect.left, y, ILD_TRANSPARENT);
  rect.OffsetRect(size.cx, 0);
  return true;
}

COLORREF RowReference::LabelColor(CVornTreeItem* item) {
  const COLORREF own =
      item->m_clrBk != ST_CLR_NONE ? item->m_clrBk : static_cast<COLORREF>(m_tree.GetBkColor());
  if (m_style & WS_DISABLED) return own;
  if (!Has(item, STIS_SELECTED) && !Has(item, STIS_DROPHILITED)) return own;
  if (::GetFocus() != m_tree.GetSafeHwnd() && (m_style & STS_SHOWSELALWAYS) == 0) return own;
  return static_cast<COLORREF>(m_tree.GetHighlightColor());
}

}  // namespace support
