// CVornTreeCtrl: the paint handler.
#include "../../options/VornTreeOptions.h"
#include "../../paint/VornTreeDC.h"
#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "../layout/VornTreeOperations.h"

BOOL CVornTreeCtrl::OnEraseBkgnd(CDC*) { return TRUE; }  // the paint covers all

void CVornTreeCtrl::OnPaint() {
  if (m_bNeedLayout) {
    { CPaintDC validate(this); }
    UpdateTree();
    return;
  }
  CVornTreeDC dc(this);
  if (!dc.BeginPaint(this)) return;
  dc.DrawBackground();
  const int position = GetScrollPos(SB_VERT);
  CVornTreeItem* first = GetFirstVisibleItem();
  if (position >= 1 && m_pRoot != nullptr) first = RowAt(position);
  m_pFirstDisplay = first;
  if (first == nullptr) {
    m_pLastDisplay = nullptr;
    m_nDisplayCount = 0;
  } else {
    DrawRows(dc, first);
  }
  dc.EndPaint(nullptr);
}

// Draws rows from first on down to the bottom of the window; a row that starts on the bottom edge counts.
void CVornTreeCtrl::DrawRows(CVornTreeDC& dc, CVornTreeItem* first) {
  CFont* const earlier = dc.SelectObject(CFont::FromHandle(reinterpret_cast<HFONT>(m_Font.GetSafeHandle())));
  const int earlierMode = dc.SetBkMode(TRANSPARENT);
  const int horizontal = GetScrollPos(SB_HORZ);
  CRect row(0, 0, m_rcClient.Width(), m_pOptions != nullptr ? m_pOptions->GetDefaultHeight() : 0);
  row.OffsetRect(horizontal > 0 ? -horizontal : 0, 0);
  const unsigned long style = GetStyle();
  const long levelOffset = m_bDisplayOnlyActiveDoc == 1 ? 1 : 0;
  const int limit = GetVisibleCount();
  CVornTreeItem* const focus = GetItemHasFocus();

  m_nDisplayCount = 0;
  for (CVornTreeItem* item = first;
       item != nullptr && row.top <= m_rcClient.bottom && m_nDisplayCount < limit;
       item = GetNextVisibleItem(item)) {
    m_pLastDisplay = item;
    dc.DrawItem(row, item, style, levelOffset);
    const bool framed = m_pSelection != nullptr && item == focus && IsFocusRectVisible();
    if (!IsItemValid(item)) break;  // the host was asked for colours and the like, and may do anything
    if (framed) dc.DrawFocusRect(CRect(item->m_Rect));
    ++m_nDisplayCount;
    row.OffsetRect(0, item->GetItemHeight());
  }
  dc.SetBkMode(earlierMode);
  if (earlier != nullptr) dc.SelectObject(earlier);
}
