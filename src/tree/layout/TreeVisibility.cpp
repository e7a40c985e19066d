// CVornTreeCtrl: which items are rows, the walk of the rows, hiding and locking, document mode.
#include "../../selection/VornTreeMultiSelection.h"
#include "../VornTreeCtrl.h"
#include "../model/TreeCheck.h"
#include "VornTreeOperations.h"

namespace {

// The mode that counts, steps back and indentation know; other values than 1 do less, meant.
constexpr int kOnlyActive = 1;

}  // namespace

// --- The walk of the rows --------------------------------------------------------------------------

CVornTreeItem* CVornTreeCtrl::GetFirstVisibleItem() const {
  if (!IsDocumentMode()) return m_pRoot != nullptr ? m_pRoot->GetFirstVisibleChild() : nullptr;
  CVornTreeItem* document = GetActiveDocItem();
  return IsItemValid(document) ? document->GetFirstVisibleChild() : nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetFirstDisplayItem() const {
  return IsItemValid(m_pFirstDisplay) ? m_pFirstDisplay : nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetLastDisplayItem() const {
  return IsItemValid(m_pLastDisplay) ? m_pLastDisplay : nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetNextVisibleItem(CVornTreeItem* item) const {
  if (!IsItemValid(item)) return nullptr;
  if (item->m_pFirstChild != nullptr && item->IsExpanded()) {
    if (CVornTreeItem* child = item->GetFirstVisibleChild()) return child;
  }
  if (CVornTreeItem* sibling = item->GetNextVisibleSibling()) return sibling;
  CVornTreeItem* parent = item->GetParentItem();
  if (parent == nullptr || (IsDocumentMode() && parent == GetActiveDocItem())) return nullptr;
  return GetNextVisibleItem(parent, 0, nullptr);
}

CVornTreeItem* CVornTreeCtrl::GetNextVisibleItem(CVornTreeItem* item, int descend,
                                                 CVornTreeItem* stopParent) const {
  if (!IsItemValid(item)) return nullptr;
  if (descend == 1 && item->m_pFirstChild != nullptr && item->IsExpanded()) {
    if (CVornTreeItem* child = item->GetFirstVisibleChild()) return child;
  }
  const CVornTreeItem* activeDocument = IsDocumentMode() ? GetActiveDocItem() : nullptr;
  while (true) {
    if (CVornTreeItem* sibling = item->GetNextVisibleSibling()) return sibling;
    CVornTreeItem* parent = item->GetParentItem();
    if (parent == nullptr || parent == stopParent) return nullptr;
    if (IsDocumentMode() && parent == activeDocument) return nullptr;
    item = parent;
    stopParent = nullptr;  // meant: the stop holds for the first step up only
  }
}

CVornTreeItem* CVornTreeCtrl::GetLastVisibleItem(CVornTreeItem* item) const {
  if (!IsItemValid(item)) return nullptr;
  while (item->m_nVisibleDescendants >= 1 && item->m_pLastChild != nullptr) {
    item = item->m_pLastChild;
    if (item->IsHidden()) return GetPrevVisibleItem(item);
  }
  return item->IsHidden() ? GetPrevVisibleItem(item) : item;
}

CVornTreeItem* CVornTreeCtrl::GetPrevVisibleItem(CVornTreeItem* item) const {
  if (!IsItemValid(item)) return nullptr;
  const bool onlyActive = m_bDisplayOnlyActiveDoc == kOnlyActive;
  CVornTreeItem* const activeDocument = onlyActive ? GetActiveDocItem() : nullptr;
  const CVornTreeOperations operations(const_cast<CVornTreeCtrl*>(this));
  while (item->m_pPrevSibling != nullptr) {
    item = item->m_pPrevSibling;
    if (onlyActive && operations.GetDocumentOf(item) != activeDocument) return nullptr;
    // As GetLastVisibleItem of the sibling. Meant: the sibling itself is not tested for being hidden
    // before its children are. Where this ends on a hidden item, the walk goes on from there.
    while (item->m_nVisibleDescendants >= 1 && item->m_pLastChild != nullptr) {
      item = item->m_pLastChild;
      if (item->IsHidden()) break;
    }
    if (!item->IsHidden()) return item;
  }
  CVornTreeItem* parent = item->m_pParent;
  if (parent == m_pRoot || (onlyActive && parent == activeDocument)) return nullptr;
  return parent;
}

int CVornTreeCtrl::GetVisibleCount() const {
  if (m_pRoot == nullptr) return 0;
  if (m_bDisplayOnlyActiveDoc != kOnlyActive) return m_pRoot->m_nVisibleDescendants;
  const CVornTreeItem* document = GetActiveDocItem();
  return IsItemValid(document) ? document->m_nVisibleDescendants : 0;
}

int CVornTreeCtrl::IsDisplayItem(CVornTreeItem* item) {
  CVornTreeItem* row = GetFirstDisplayItem();
  if (row == nullptr || item == nullptr) return 0;
  if (row == item) return 1;
  // The end is looked for behind the first row only: a list of one row holds all rows below it, meant.
  while ((row = GetNextVisibleItem(row)) != nullptr) {
    if (row == item) return 1;
    if (row == m_pLastDisplay) return 0;
  }
  return 0;
}

bool CVornTreeCtrl::IsInDisplayList(const CVornTreeItem* item) const {
  for (CVornTreeItem* row = GetFirstDisplayItem(); row != nullptr; row = GetNextVisibleItem(row)) {
    if (row == item) return true;
    if (row == m_pLastDisplay) return false;
  }
  return false;
}

// --- Hiding and locking ----------------------------------------------------------------------------

int CVornTreeCtrl::GetItemVisibility(CVornTreeItem* item) {
  return IsItemValid(item) ? item->GetVisibility() : 0;
}

int CVornTreeCtrl::ItemIsVisible(CVornTreeItem* item) {
  if (!IsItemValid(item) || item == m_pRoot) return 0;
  if (IsDocumentMode() && item->m_pParent == m_pRoot) return 0;
  return item->GetVisibility();
}

int CVornTreeCtrl::SetItemVisibility(CVornTreeItem* item, int visible) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  const bool needed = item->IsHidden() == (visible != 0);
  int before = visible;
  if (needed) {
    ++m_nRedrawLock;
    item->SetVisible(visible);
    --m_nRedrawLock;
    before = !visible;
  } else if (item->IsLockedVisibility()) {
    item->SetVisible(visible);  // records the wish
  }
  if (item->m_pParent != nullptr && item->m_pParent->IsExpanded()) UpdateTree();
  return before;
}

int CVornTreeCtrl::LockItemVisibility(CVornTreeItem* item, int visible) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  const int before = item->LockVisibility(visible);
  UpdateTree();
  return before;
}

int CVornTreeCtrl::UnlockItemVisibility(CVornTreeItem* item) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  const int before = item->UnlockVisibility();
  UpdateTree();
  return before;
}

int CVornTreeCtrl::ItemIsLockedVisibility(CVornTreeItem* item) {
  return IsItemValid(item) && item->IsLockedVisibility();
}

int CVornTreeCtrl::GetHiddenItems(CVornTreeItemArray& items) {
  CVornTreeOperations::Walk(m_pRoot, [&items](CVornTreeItem* item) {
    if (!item->IsHidden()) return 1;
    items.Add(item, nullptr);
    return 0;
  });
  return 0;  // always, meant
}

// --- Document mode ---------------------------------------------------------------------------------

CVornTreeItem* CVornTreeCtrl::GetActiveDocItem() const {
  if (m_pSelection == nullptr) return nullptr;
  if (const auto* manager = DYNAMIC_DOWNCAST(CVornTreeMultiSelection, m_pSelection)) {
    return manager->GetActiveDocument();
  }
  return CVornTreeOperations(const_cast<CVornTreeCtrl*>(this)).GetDocumentOf(GetItemHasFocus());
}

int CVornTreeCtrl::SetDocumentDisplay(int onlyActive) {
  const vorn::OperationCheck check(this);
  const int before = m_bDisplayOnlyActiveDoc;
  CVornTreeItem* document = GetActiveDocItem();
  if (!HasSelectionType(STST_BYDOCUMENTS)) {
    CVornTreeItem* item = GetLastSelectedItem();
    if (item == nullptr) item = GetItemHasFocus();
    document = CVornTreeOperations(this).GetDocumentOf(item);
  }
  SetRedraw(FALSE);
  if (IsItemValid(document) && onlyActive == kOnlyActive && !document->IsExpanded()) {
    Expand(document, STE_EXPAND);
  }
  m_bDisplayOnlyActiveDoc = onlyActive;
  OnRowsChanged();
  SetRedraw(TRUE);
  return before;
}
