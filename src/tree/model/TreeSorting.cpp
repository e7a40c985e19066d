// CVornTreeCtrl: sorting of direct children.
//
// Both operations unlink every child and link it again in order. The counts of rows are built up afresh
// by the linking; the others are what the two operations make of them, meant.
#include <vector>

#include "../../core/VornSortedArray.h"
#include "NameOrder.h"
#include "RedrawHold.h"
#include "SortedRow.h"
#include "TreeCheck.h"
#include "VornTreeItem.h"
#include "WithMemory.h"

namespace {

// Unlinks each child in turn and hands it on, until take gives false. Children are read anew each time:
// what is called may have changed them.
template <class Take>
void TakeChildren(CVornTreeItem* parent, Take take) {
  while (CVornTreeItem* child = parent->m_pFirstChild) {
    child->Detach(false);
    if (!take(child) || !IsItemValid(parent)) return;
  }
}

// Links an unlinked child at the end. A comparison must not touch the tree; one that did so all the same
// may have given the child another place, or none that is left.
void Append(CVornTreeItem* parent, CVornTreeItem* child) {
  if (!IsItemValid(parent) || !IsItemValid(child)) return;
  if (child->m_pParent != nullptr || parent->IsDescendantOf(child)) return;
  parent->InsertAfter(child, nullptr);
}

}  // namespace

int CVornTreeCtrl::SortChildren(STSORTCB* hostsRecord) {
  const vorn::OperationCheck check(this);
  if (hostsRecord == nullptr) return 0;
  const STSORTCB sort = *hostsRecord;
  if (sort.lpfnCompare == nullptr || !IsOwnItem(sort.hParent)) return 0;
  CVornTreeItem* const parent = sort.hParent;
  if (parent->m_pFirstChild == nullptr) return 0;
  const auto compare = [&sort](CVornTreeItem* element, CVornTreeItem* child) {
    if (!IsItemValid(element) || !IsItemValid(child)) return 0;  // one that the comparison deleted
    return sort.lpfnCompare(static_cast<LPARAM>(element->GetData()), static_cast<LPARAM>(child->GetData()),
                            sort.lParam);
  };
  const vorn::RedrawHold hold(this);
  vorn::SortedRow row;
  CVornTreeItem* unplaced = nullptr;
  TakeChildren(parent, [&](CVornTreeItem* child) {
    long place = 0;
    if (row.GetSize() > 0) {
      const vorn::SearchResult result = vorn::BinarySearch(
          row.GetSize(), [&](long i) { return compare(row.At(i), child) < 0; },
          [&](long i) { return compare(row.At(i), child) == 0; });
      if (result.found) {  // an equal child falls out of the tree, meant
        m_arrFallen.Add(child, nullptr);
        return true;
      }
      place = result.index;
    }
    if (vorn::RunWithMemory([&] { row.Insert(child, place); })) return true;
    unplaced = child;
    return false;
  });
  OnRowsChanged();
  if (unplaced == nullptr && IsItemValid(parent)) parent->m_nVisibleDescendants = 0;
  row.ForEach([parent](CVornTreeItem* child) { Append(parent, child); });
  // Without memory the rest stays in front, and nothing is lost.
  if (unplaced != nullptr) Append(parent, unplaced);
  return unplaced == nullptr;
}

bool CVornTreeCtrl::SortChildrenByName(CVornTreeItem* parent) {
  const vorn::OperationCheck check(this);
  if (!IsOwnItem(parent) || parent->m_pFirstChild == nullptr) return false;
  std::vector<CVornTreeItem*> order;
  const bool ordered = vorn::RunWithMemory([&] {
    for (CVornTreeItem* child = parent->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      order.push_back(child);
    }
    order = vorn::OrderByName(order);
  });
  if (!ordered) return false;
  const vorn::RedrawHold hold(this);
  OnRowsChanged();
  TakeChildren(parent, [](CVornTreeItem*) { return true; });
  parent->m_nVisibleDescendants = 0;
  for (CVornTreeItem* child : order) parent->InsertAfter(child, nullptr);
  return true;
}
