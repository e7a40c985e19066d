// A row as a whole: its columns, lines and connector. Button, images and label are in TreeRowParts.cpp.
#include "VornTreeDC.h"

#include "../tree/VornTreeCtrl.h"
#include "../tree/layout/RowGeometry.h"
#include "../tree/model/VornTreeItem.h"

namespace {

enum Side : unsigned long { kUp = 1, kLeft = 2, kRight = 4, kDown = 8 };

COLORREF Complement(COLORREF color) { return ~color & 0x00FFFFFF; }

vorn::RowUse UseOf(VornTreePaintMode mode) {
  if (mode == VornTreePaintDragPlain) return vorn::RowUse::PaintDragPlain;
  return mode == VornTreePaintDragItem ? vorn::RowUse::PaintDragItem : vorn::RowUse::Paint;
}

// Calls plot for every second position from low to high, both included, that middle is one of; left out
// are those that a clip from clipLow to clipHigh hides anyway.
template <class Plot>
void EverySecond(int middle, int low, int high, int clipLow, int clipHigh, Plot plot) {
  if (low < clipLow) low = clipLow;
  if (high >= clipHigh) high = clipHigh - 1;
  for (int at = low + ((middle - low) & 1); at <= high; at += 2) plot(at);
}

}  // namespace

IMPLEMENT_DYNAMIC(CVornTreeDC, CVornDC)

CVornTreeDC::CVornTreeDC(CVornTreeCtrl* pTree) : m_pTree(pTree) {
  m_clrText =
      pTree != nullptr ? static_cast<COLORREF>(pTree->GetTextColor()) : ::GetSysColor(COLOR_WINDOWTEXT);
  m_clrLine = ::GetSysColor(COLOR_WINDOWTEXT);
  m_clrBack = pTree != nullptr ? static_cast<COLORREF>(pTree->GetBkColor()) : ::GetSysColor(COLOR_WINDOW);
  m_clrButtonFill = Complement(m_clrLine);
  if (m_clrButtonFill == m_clrLine) m_clrButtonFill = m_clrBack;
}

CVornTreeDC::~CVornTreeDC() = default;

void CVornTreeDC::DrawBackground() { FillBack(m_clrBack); }

// --- Lines -----------------------------------------------------------------------------------------

// Every second pixel, starting at the middle in each direction, so that the dots of neighbouring rows
// join up.
void CVornTreeDC::DrawVornLine(CRect* pRect, unsigned long color, unsigned long sides) {
  if (m_nPaintMode == VornTreePaintDragItem || pRect == nullptr) return;
  const COLORREF line = static_cast<COLORREF>(color);
  const int x = pRect->left + vorn::kCellMiddle;
  const int y = pRect->top - 1 + pRect->Height() / 2;
  CRect clip;
  GetClipBox(clip);
  const auto down = [&](int low, int high) {
    if (x < clip.left || x >= clip.right) return;
    EverySecond(y, low, high, clip.top, clip.bottom, [&](int at) { SetPixelV(x, at, line); });
  };
  const auto across = [&](int low, int high) {
    EverySecond(x, low, high, clip.left, clip.right, [&](int at) { SetPixelV(at, y, line); });
  };
  if (sides & kUp) down(pRect->top, y);
  if (sides & kDown) down(y, pRect->bottom);
  if (sides & kLeft) across(pRect->left, x);
  if (sides & kRight) across(x, pRect->right);
}

void CVornTreeDC::DrawBrotherLine(CRect* pRect, CVornTreeItem* pItem, unsigned long style, long levelOffset) {
  if (pRect == nullptr || !IsItemValid(pItem)) return;
  const unsigned int bits = static_cast<unsigned int>(style);
  const unsigned int indent = m_pTree != nullptr ? m_pTree->GetIndent() : 0;
  const int level = pItem->m_nLevel;
  const int rootColumn = vorn::HasLinesAtRoot(bits) ? 0 : vorn::WidthOfLevels(indent, 1);
  pRect->OffsetRect(-rootColumn, 0);
  // From the item's own column back to the first one, for the ancestors are met in that order.
  const int first = pRect->left;
  const CVornTreeItem* ancestor = pItem;
  for (int k = level - 1; k >= 1; --k) {
    while (ancestor != nullptr && ancestor->m_nLevel > k + levelOffset) ancestor = ancestor->m_pParent;
    if (ancestor == nullptr) break;
    const bool goesOn = ancestor->GetNextVisibleSibling() != nullptr;
    if (!goesOn || !(bits & STS_HASLINES) || (k == 1 && !(bits & STS_LINESATROOT))) continue;
    const int left = first + vorn::WidthOfLevels(indent, k - 1);
    CRect cell(left, pRect->top, left + vorn::kCellWidth, pRect->bottom);
    DrawVornLine(&cell, m_clrLine, kUp | kDown);
  }
  if (level >= 2) pRect->OffsetRect(vorn::WidthOfLevels(indent, level - 2), 0);
  pRect->OffsetRect(rootColumn, 0);
}

void CVornTreeDC::DrawConnector(const CRect& cell, CVornTreeItem* pItem, unsigned int style,
                                bool isFirstLevel) {
  if (IsForDrag()) return;
  const bool hasLines = isFirstLevel ? vorn::HasLinesAtRoot(style) : (style & STS_HASLINES) != 0;
  if (!hasLines) return;
  const bool hasNext = pItem->GetNextVisibleSibling() != nullptr;
  const bool hasPrev = pItem->GetPrevVisibleSibling() != nullptr;
  unsigned long sides = kRight;
  if (hasPrev || !isFirstLevel) sides |= kUp;
  if (hasNext) sides |= kDown;
  CRect rect = cell;
  DrawVornLine(&rect, m_clrLine, sides);
}

// --- The row ---------------------------------------------------------------------------------------

vorn::RowShape CVornTreeDC::ShapeOf(CVornTreeItem* pItem, unsigned int style, long levelOffset) const {
  vorn::RowShape shape;
  shape.level = pItem->m_nLevel;
  shape.levelOffset = static_cast<int>(levelOffset);
  shape.style = style;
  shape.indent = m_pTree != nullptr ? m_pTree->GetIndent() : 0;
  shape.checkBox = CheckBoxWidth(pItem, style);
  shape.stateImage = StateImageWidth(pItem);
  shape.image = ImageWidth(pItem);
  shape.textWidth = pItem->m_nTextWidth;
  return shape;
}

// The height of the row: of the window's paint as it is now, else as it was there.
int CVornTreeDC::RowHeight(const CVornTreeItem* pItem) const {
  return m_nPaintMode == VornTreePaintNormal ? pItem->GetItemHeight() : CRect(pItem->m_Rect).Height();
}

void CVornTreeDC::DrawItem(const CRect& rect, CVornTreeItem* pItem, unsigned long style, long levelOffset) {
  if (!IsItemValid(pItem) || rect.Width() <= 2 * vorn::kRowMargin) return;
  try {
    DrawRow(rect, pItem, style, levelOffset);
  } catch (CException* exception) {
    exception->Delete();  // short of memory or objects: this row is not whole, the others may be
  }
}

void CVornTreeDC::DrawRow(const CRect& rect, CVornTreeItem* pItem, unsigned long style, long levelOffset) {
  const unsigned int bits = static_cast<unsigned int>(style);
  const vorn::RowZones zones =
      vorn::CutRow(ShapeOf(pItem, bits, levelOffset), rect.left, UseOf(m_nPaintMode));
  CRect item(zones.start, rect.top, zones.end, rect.top + RowHeight(pItem));

  if (m_nPaintMode != VornTreePaintDragPlain) {
    CRect ancestors = item;
    DrawBrotherLine(&ancestors, pItem, style, levelOffset);
  }
  const int indent = m_pTree != nullptr ? vorn::WidthOfLevels(m_pTree->GetIndent(), 1) : 0;
  CRect cell(zones.cell, item.top, zones.cell + indent, item.bottom);
  DrawConnector(cell, pItem, bits, pItem->m_nLevel == 1);
  if (zones.hasButton && !IsForDrag() && pItem->HasVisibleChild()) {
    cell.right = cell.left + vorn::kCellWidth;
    DrawItemButton(&cell, pItem->IsExpanded() ? 2 : 1, style);
  }

  item.left = zones.checkBox;
  DrawCheckBox(&item, pItem, style);
  DrawImageState(&item, pItem);
  DrawImage(&item, pItem, style);
  item.left = zones.label;
  DrawItemText(&item, pItem, style);
  if (m_nPaintMode == VornTreePaintNormal) pItem->m_Rect = item;
}

int CVornTreeDC::RedrawItem(CVornTreeCtrl* pTree, CVornTreeItem* pItem) {
  if (pTree == nullptr || pItem == nullptr) return 0;
  CRect row;
  if (!pTree->GetItemRect(pItem, row, 0) || !AttachWnd(pTree)) return 0;
  CRect client;
  pTree->GetClientRect(client);
  SetWindowOrg(0, 0);
  row.OffsetRect(-pTree->GetScrollPos(SB_HORZ), 0);
  IntersectClipRect(client);
  IntersectClipRect(row);
  m_nPaintMode = VornTreePaintRedraw;
  FillSolidRect(row, static_cast<COLORREF>(pTree->GetBkColor()));
  DrawItem(row, pItem, pTree->GetStyle(), 0);
  ::ExtSelectClipRgn(GetSafeHdc(), nullptr, RGN_COPY);
  return DetachWnd();
}
