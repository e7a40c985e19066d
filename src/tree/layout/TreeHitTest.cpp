// CVornTreeCtrl: from a point to a row and a zone of it.
#include <algorithm>
#include <climits>

#include "../VornTreeCtrl.h"
#include "../model/VornTreeItem.h"
#include "RowGeometry.h"

namespace {

// The flag for a point that is not in the window. Meant: top and bottom are compared with the point's x.
void SetOutsideFlag(const RECT& window, POINT screen, unsigned int* flags) {
  if (window.left >= screen.x) {
    *flags = vorn::kHitWindowLeft;
  } else if (window.right <= screen.x) {
    *flags = vorn::kHitWindowRight;
  }
  if (window.top >= screen.x) {
    *flags = vorn::kHitAbove;
  } else if (window.bottom <= screen.x) {
    *flags = vorn::kHitBelow;
  }
}

// Whether a client point is not in the window at all, for which the flags are set.
bool IsOutside(HWND hwnd, POINT point, unsigned int* flags) {
  CRect window;
  ::GetWindowRect(hwnd, window);
  ::ClientToScreen(hwnd, &point);
  if (window.PtInRect(point)) return false;
  SetOutsideFlag(window, point, flags);
  return true;
}

}  // namespace

vorn::RowShape CVornTreeCtrl::ShapeOf(const CVornTreeItem* item) const {
  vorn::RowShape shape;
  shape.level = item->m_nLevel;
  shape.levelOffset = m_bDisplayOnlyActiveDoc == 1 ? 1 : 0;
  shape.style = m_hWnd != nullptr ? static_cast<unsigned int>(::GetWindowLongW(m_hWnd, GWL_STYLE)) : 0;
  shape.indent = m_nIndent;
  // Meant: neither the lists nor their sizes nor which of the two images shows play a part.
  const bool hasCheckBox = item->HasExtFlag(STIX_CHECKBOX) || (shape.style & STS_CHECKBOXES) != 0;
  shape.checkBox = hasCheckBox ? vorn::kCellWidth : 0;
  shape.stateImage = item->m_nStateImage != -1 ? vorn::kCellWidth : 0;
  shape.image = item->HasExtFlag(STIX_HASIMAGE) ? vorn::kCellWidth : 0;
  shape.textWidth = item->m_nTextWidth;
  return shape;
}

CVornTreeItem* CVornTreeCtrl::HitTest(CPoint point, unsigned int* flags) {
  unsigned int ignored = 0;
  if (flags == nullptr) flags = &ignored;
  CRect row;
  if (!::GetClientRect(m_hWnd, row)) return nullptr;
  if (!row.PtInRect(point) && IsOutside(m_hWnd, point, flags)) return nullptr;
  CVornTreeItem* item = GetFirstDisplayItem();
  if (item == nullptr) return nullptr;
  const int height = m_rcClient.Height();
  const int rows = GetVisibleCount();
  const int left = row.left;
  row.OffsetRect(vorn::kRowMargin, 0);
  int sum = 0;
  for (int i = 0; height > 0 && i < rows && item != nullptr; ++i) {
    sum += item->GetItemHeight();
    row.top = item->m_Rect.top - 1;  // neighbours overlap; the earlier row wins
    row.bottom = item->m_Rect.bottom + 1;
    if (row.PtInRect(point)) {
      const long long x = static_cast<long long>(point.x) + GetScrollPos(SB_HORZ);
      *flags =
          vorn::HitRow(ShapeOf(item), left, static_cast<int>(std::clamp<long long>(x, INT_MIN, INT_MAX)));
      return item;
    }
    if (sum >= height) break;
    item = GetNextVisibleItem(item);
  }
  *flags = vorn::kHitBelow;
  return nullptr;
}
