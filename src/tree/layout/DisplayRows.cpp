// Rows in the window: what fits, what shows, and how the view follows an item that opens.
#include "../VornTreeCtrl.h"
#include "VornTreeOperations.h"

int CVornTreeOperations::ClientHeight() const {
  RECT client{};
  ::GetClientRect(m_pTree->m_hWnd, &client);
  return client.bottom;
}

CVornTreeItem* CVornTreeOperations::FindFirstDisplayItem() const {
  int index = m_pTree->GetScrollPos(SB_VERT);
  if (index < 0) return nullptr;  // a host may store any position
  if (m_pTree->Rows() != nullptr) return m_pTree->RowAt(index);
  CVornTreeItem* first = m_pTree->GetFirstVisibleItem();
  if (first == nullptr) return nullptr;
  if (first->IsHidden()) return FindVisibleByIndex(&index, first->m_pNextSibling);
  if (index == 0) return first;
  --index;
  if (first->m_nVisibleDescendants > 0) {
    if (CVornTreeItem* below = FindVisibleByIndex(&index, first->m_pFirstChild)) return below;
  }
  return FindVisibleByIndex(&index, first->m_pNextSibling);
}

CVornTreeItem* CVornTreeOperations::FindLastDisplayItem() const {
  CVornTreeItem* row = FindFirstDisplayItem();
  if (row == nullptr) return nullptr;
  const int height = ClientHeight();
  CVornTreeItem* lastAdded = row;
  int sum = 0;
  while (row != nullptr && sum < height) {
    sum += row->GetItemHeight();
    lastAdded = row;
    row = m_pTree->GetNextVisibleItem(row);
  }
  CVornTreeItem* result = row != nullptr ? row : lastAdded;
  if (sum > height) {
    if (CVornTreeItem* prev = m_pTree->GetPrevVisibleItem(lastAdded)) return prev;
  }
  return result;
}

int CVornTreeOperations::CountDisplayItems() const {
  const CVornTreeItem* last = m_pTree->GetLastDisplayItem();
  int count = 0;
  for (CVornTreeItem* row = m_pTree->GetFirstDisplayItem(); row != nullptr;
       row = m_pTree->GetNextVisibleItem(row)) {
    ++count;
    if (row == last) return count;
  }
  return 0;
}

int CVornTreeOperations::CountPageItems() const {
  CVornTreeItem* row = m_pTree->GetFirstVisibleItem();
  if (row == nullptr || m_pTree->GetVisibleCount() == 0) return 0;
  const int height = ClientHeight();
  if (height < 1) return -1;
  int sum = 0, count = 0;
  while (row != nullptr) {
    sum += row->GetItemHeight();
    ++count;
    if (sum >= height) return count - 1;
    row = m_pTree->GetNextVisibleItem(row);
  }
  return count;
}

void CVornTreeOperations::ScrollAfterExpand(CVornTreeItem* item, unsigned int flags) const {
  if (m_pTree == nullptr || item == nullptr || !::IsWindow(m_pTree->m_hWnd)) return;
  CVornTreeItem* row = FindFirstDisplayItem();
  CVornTreeItem* last = FindLastDisplayItem();
  int position = m_pTree->GetScrollPos(SB_VERT);
  const int shown = CountDisplayItems();
  int above = 0, count = 0;
  while (row != nullptr && row != item) {
    above += row->GetItemHeight();
    if (++count >= shown) return;  // below the window
    row = m_pTree->GetNextVisibleItem(row);
  }
  if (row == item && count >= shown) return;
  if ((flags & STE_SCROLL) == 0) return;

  // One row down for each new row that overflows, until the item would leave the top.
  const int height = ClientHeight();
  int sum = above;
  bool pastLast = false;
  while (above > 0 && row != nullptr && last != nullptr) {
    sum += row->GetItemHeight();
    if (count >= shown) {
      above -= last->GetItemHeight();
      if (sum > height) ++position;
    }
    ++count;
    if (pastLast) {
      last = m_pTree->GetNextVisibleItem(last);
    } else {
      pastLast = last == row;
    }
    row = m_pTree->GetNextVisibleItem(row, 1, item);
  }
  m_pTree->SetScrollPos(SB_VERT, position, FALSE);
  m_pTree->ScrollToLevel(item, FALSE);
}
