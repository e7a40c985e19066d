// A row as a whole: its columns, lines and connector. Button, images and label are in TreeRowParts.cpp.
#include "VornTreeDC.h"

#include <algorithm>

#include "../tree/VornTreeCtrl.h"
#include "../tree/layout/RowGeometry.h"
#include "../tree/model/VornTreeItem.h"

namespace {

enum Side : unsigned long { kUp = 1, kLeft = 2, kRight = 4, kDown = 8 };

constexpr unsigned int kLinesAtRoot = STS_HASLINES | STS_LINESATROOT;

bool HasLinesAtRoot(unsigned int style) { return (style & kLinesAtRoot) == kLinesAtRoot; }

COLORREF Complement(COLORREF color) { return ~color & 0x00FFFFFF; }

vorn::RowPurpose PurposeOf(VornTreePaintMode mode) {
  if (mode == VornTreePaintDragPlain) return vorn::RowPurpose::DragPlain;
  return mode == VornTreePaintDragItem ? vorn::RowPurpose::DragItem : vorn::RowPurpose::Window;
}

// Every second place from one on to another; those before low cannot be seen and are passed over.
template <typename Set>
void DotsOn(int from, int to, int low, Set set) {
  if (from < low) from += (low - from + 1) / 2 * 2;
  for (int at = from; at <= to; at += 2) set(at);
}

// The same downwards; those beyond high cannot be seen.
template <typename Set>
void DotsBack(int from, int to, int high, Set set) {
  if (from > high) from -= (from - high + 1) / 2 * 2;
  for (int at = from; at >= to; at -= 2) set(at);
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
  ::GetClipBox(m_hDC, &clip);
  const auto across = [&](int at) { SetPixelV(at, y, line); };
  const auto along = [&](int at) { SetPixelV(x, at, line); };
  if (sides & kUp) DotsBack(y, std::max(pRect->top, clip.top), clip.bottom, along);
  if (sides & kDown) DotsOn(y, std::min(pRect->bottom, clip.bottom), clip.top, along);
  if (sides & kLeft) DotsBack(x, std::max(pRect->left, clip.left), clip.right, across);
  if (sides & kRight) DotsOn(x, std::min(pRect->right, clip.right), clip.left, across);
}

void CVornTreeDC::DrawBrotherLine(CRect* pRect, CVornTreeItem* pItem, unsigned long style, long levelOffset) {
  if (pRect == nullptr || !IsItemValid(pItem)) return;
  const unsigned int bits = static_cast<unsigned int>(style);
  const int level = pItem->m_nLevel;
  const int indent = m_pTree != nullptr ? vorn::UsableIndent(m_pTree->GetIndent(), level) : 0;
  const bool linesAtRoot = HasLinesAtRoot(bits);
  if (!linesAtRoot) pRect->OffsetRect(-indent, 0);
  // From the item's own column back to the first one, for the ancestors are met in that order.
  const int first = pRect->left;
  const CVornTreeItem* ancestor = pItem;
  for (int k = level - 1; k >= 1; --k) {
    while (ancestor != nullptr && ancestor->m_nLevel > k + levelOffset) ancestor = ancestor->m_pParent;
    if (ancestor == nullptr) break;
    const bool goesOn = ancestor->GetNextVisibleSibling() != nullptr;
    if (!goesOn || !(bits & STS_HASLINES) || (k == 1 && !(bits & STS_LINESATROOT))) continue;
    const int left = first + (k - 1) * indent;
    CRect cell(left, pRect->top, left + vorn::kCellWidth, pRect->bottom);
    DrawVornLine(&cell, m_clrLine, kUp | kDown);
  }
  if (level >= 2) pRect->OffsetRect((level - 2) * indent, 0);
  if (!linesAtRoot) pRect->OffsetRect(indent, 0);
}

bool CVornTreeDC::StepsOverCell(unsigned int style, bool isFirstLevel) const {
  return !isFirstLevel || HasLinesAtRoot(style);
}

void CVornTreeDC::DrawConnector(const CRect& cell, CVornTreeItem* pItem, unsigned int style,
                                bool isFirstLevel) {
  if (IsForDrag()) return;
  const bool hasLines = isFirstLevel ? HasLinesAtRoot(style) : (style & STS_HASLINES) != 0;
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

void CVornTreeDC::DrawItem(const CRect& rect, CVornTreeItem* pItem, unsigned long style, long levelOffset) {
  if (!IsItemValid(pItem)) return;
  CRect line(rect.left + vorn::kRowMargin, rect.top, rect.right - vorn::kRowMargin, rect.bottom);
  if (line.Width() <= 0) return;

  const unsigned int bits = static_cast<unsigned int>(style);
  vorn::RowShape shape;
  shape.level = pItem->m_nLevel;
  shape.levelOffset = static_cast<int>(levelOffset);
  shape.style = bits;
  shape.indent = m_pTree != nullptr ? vorn::UsableIndent(m_pTree->GetIndent(), shape.level) : 0;
  const vorn::RowColumns columns = vorn::ColumnsOf(shape, rect.left, PurposeOf(m_nPaintMode));

  const bool keepsPlace = m_nPaintMode != VornTreePaintNormal;
  CRect item(0, 0, pItem->m_nTextWidth + vorn::kLabelMargins, pItem->GetItemHeight());
  if (keepsPlace) {
    item = pItem->m_Rect;
    item.left = 0;
    item.right = line.right;
    item.OffsetRect(0, -item.top);
  }
  item.OffsetRect(line.left, line.top);
  if (m_nPaintMode != VornTreePaintDragPlain) {
    CRect ancestors = item;
    DrawBrotherLine(&ancestors, pItem, style, levelOffset);
  }

  CRect cell(columns.cell, item.top, columns.cell + shape.indent, item.bottom);
  const bool isFirstLevel = pItem->m_nLevel == 1;
  DrawConnector(cell, pItem, bits, isFirstLevel);
  if (columns.hasButton) {
    cell.right = cell.left + vorn::kCellWidth;
    const bool canOpen = pItem->HasVisibleChild() || pItem->HasState(STIS_HASCHILDREN);
    if (canOpen && !IsForDrag()) DrawItemButton(&cell, pItem->IsExpanded() ? 2 : 1, style);
  }
  const int left = StepsOverCell(bits, isFirstLevel) ? columns.contentIfStepped : columns.content;
  item.OffsetRect(left - item.left, 0);

  int drawn = DrawCheckBox(&item, pItem, style);
  drawn |= DrawImageState(&item, pItem);
  drawn |= DrawImage(&item, pItem, style);
  if (drawn) item.OffsetRect(vorn::kImageGap, 0);
  DrawItemText(&item, pItem, style);
  if (!keepsPlace) pItem->m_Rect = item;
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
