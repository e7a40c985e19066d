// CVornTreeCtrl: extents, and the two operations that turn a change into a new layout.
#include "../VornTreeCtrl.h"
#include "RowIndex.h"
#include "VornTreeOperations.h"

void CVornTreeCtrl::UpdateItem(CVornTreeItem* item, int updateNow) {
  if (m_nRedrawLock != 0 || !IsItemValid(item) || !::IsWindow(m_hWnd)) return;
  if (!IsDisplayItem(item)) return;
  CRect row = item->m_Rect;
  row.left = m_rcClient.left;
  row.right = m_rcClient.right;
  ::InvalidateRect(m_hWnd, row.IsRectEmpty() ? nullptr : static_cast<const RECT*>(row), TRUE);
  m_bNeedLayout = TRUE;
  if (updateNow) ::UpdateWindow(m_hWnd);
}

bool CVornTreeCtrl::OwnsThread() const {
  return m_hWnd == nullptr || ::GetWindowThreadProcessId(m_hWnd, nullptr) == ::GetCurrentThreadId();
}

void CVornTreeCtrl::UpdateTree() {
  if (m_nRedrawLock != 0) return;
  const bool hasWindow = ::IsWindow(m_hWnd) != FALSE;
  const bool ownThread = OwnsThread();
  if (hasWindow) ::GetClientRect(m_hWnd, m_rcClient);
  if (ownThread) {
    if (hasWindow) UpdateScrollBar();
  } else if (hasWindow) {
    ::PostMessageW(m_hWnd, kUpdateTreeMessage, 0, 0);
  }
  ++m_nRedrawLock;  // keeps the paint's own calls from coming back here
  m_bNeedLayout = FALSE;
  if (::IsWindow(m_hWnd)) {
    ::InvalidateRect(m_hWnd, nullptr, TRUE);
    if (ownThread) ::UpdateWindow(m_hWnd);
  }
  if (m_nRedrawLock > 0) --m_nRedrawLock;  // the end of the window, while it painted, has let go of it
}

void CVornTreeCtrl::CalcLayout() {
  if (!::IsWindow(m_hWnd)) return;
  ::GetClientRect(m_hWnd, m_rcClient);
  UpdateScrollBar();
}

void CVornTreeCtrl::InvalidateAll(bool erase) {
  if (::IsWindow(m_hWnd)) ::InvalidateRect(m_hWnd, nullptr, erase);
}

int CVornTreeCtrl::GetItemRect(CVornTreeItem* item, RECT* rect, int textOnly) {
  if (rect == nullptr) return 0;
  ::SetRectEmpty(rect);
  if (!IsItemValid(item) || !::IsWindow(m_hWnd) || !IsDisplayItem(item)) return 0;
  *rect = item->m_Rect;
  if (textOnly) return 1;
  rect->left = m_rcClient.left;
  rect->right = m_rcClient.right;
  return 1;
}

int CVornTreeCtrl::GetSize(int& cx, int& cy) {
  if (vorn::RowIndex* const rows = Rows()) {
    rows->GetExtent(cx, cy);
    return 1;
  }
  cx = cy = 0;
  for (CVornTreeItem* row = GetFirstVisibleItem(); row != nullptr; row = GetNextVisibleItem(row)) {
    cy += row->GetItemHeight();
    if (const int right = row->GetItemRight(); right > cx) cx = right;
  }
  return 1;
}
