// CVornTreeCtrl: sorting of direct children.
//
// Both operations unlink every child and link it again in order. The counts of rows are built up afresh
// by the linking; the others are what the two operations make of them, meant.
#include <new>
#include <vector>

#include "../../core/VornSortedArray.h"
#include "../VornTreeCtrl.h"
#include "NameOrder.h"
#include "SortedRow.h"
#include "TreeCheck.h"
#include "VornTreeItem.h"

namespace {

// Unlinks each child in turn and hands it on. Children are read anew each time: what is called may
// have changed them.
template <class Take>
void TakeChildren(CVornTreeItem* parent, Take take) {
  while (CVornTreeItem* child = parent->m_pFirstChild) {
    child->Detach(false);
    take(child);
    if (!IsItemValid(parent)) return;
  }
}

}  // namespace

int CVornTreeCtrl::SortChildren(STSORTCB* sort) {
  const vorn::OperationCheck check(this);
  if (sort == nullptr || sort->lpfnCompare == nullptr || !IsOwnItem(sort->hParent)) return 0;
  CVornTreeItem* const parent = sort->hParent;
  if (parent->m_pFirstChild == nullptr) return 0;
  const auto compare = [sort](CVornTreeItem* element, CVornTreeItem* child) {
    // A comparison must not touch the tree; one that deletes items all the same gets no dead one.
    if (!IsItemValid(element) || !IsItemValid(child)) return 0;
    return sort->lpfnCompare(static_cast<LPARAM>(element->GetData()), static_cast<LPARAM>(child->GetData()),
                             sort->lParam);
  };
  SetRedraw(FALSE);
  vorn::SortedRow row;
  TakeChildren(parent, [&](CVornTreeItem* child) {
    long place = 0;
    if (row.GetSize() > 0) {
      const vorn::SearchResult result = vorn::BinarySearch(
          row.GetSize(), [&](long i) { return compare(row.At(i), child) < 0; },
          [&](long i) { return compare(row.At(i), child) == 0; });
      if (result.found) {  // an equal child falls out of the tree, meant
        m_arrFallen.Add(child, nullptr);
        return;
      }
      place = result.index;
    }
    row.Insert(child, place);
  });
  OnRowsChanged();
  if (IsItemValid(parent)) parent->m_nVisibleDescendants = 0;
  row.ForEach([parent](CVornTreeItem* child) {
    if (IsItemValid(parent) && IsItemValid(child)) parent->InsertAfter(child, nullptr);
  });
  SetRedraw(TRUE);
  return 1;
}

bool CVornTreeCtrl::SortChildrenByName(CVornTreeItem* parent) {
  const vorn::OperationCheck check(this);
  if (!IsOwnItem(parent) || parent->m_pFirstChild == nullptr) return false;
  std::vector<CVornTreeItem*> order;
  try {
    for (CVornTreeItem* child = parent->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      order.push_back(child);
    }
    order = vorn::OrderByName(order);
  } catch (const std::bad_alloc&) {
    return false;
  }
  SetRedraw(FALSE);
  OnRowsChanged();
  TakeChildren(parent, [](CVornTreeItem*) {});
  parent->m_nVisibleDescendants = 0;
  for (CVornTreeItem* child : order) parent->InsertAfter(child, nullptr);
  SetRedraw(TRUE);
  return true;
}
