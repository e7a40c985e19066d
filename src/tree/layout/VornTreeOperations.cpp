// Rows by index, documents, and the counts that visibility and expansion keep in the ancestors.
#include "VornTreeOperations.h"

#include <cwchar>

#include "../../core/TextCompare.h"
#include "../VornTreeCtrl.h"

namespace {

// Adds to the rows below start and below each of its ancestors, up to the first that is hidden or closed.
void AddRowsUpward(CVornTreeItem* start, int rows) {
  for (CVornTreeItem* item = start; item != nullptr; item = item->m_pParent) {
    if (item->IsExpanded()) item->m_nVisibleDescendants += rows;
    if (item->IsHidden() || !item->IsExpanded()) return;
  }
}

int RowsOfChildren(const CVornTreeItem* item) {
  int rows = 0;
  for (const CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
    if (!child->IsHidden()) rows += 1 + child->m_nVisibleDescendants;
  }
  return rows;
}

}  // namespace

CVornTreeItem* CVornTreeOperations::FindVisibleByIndex(int* index, CVornTreeItem* start) {
  if (start == nullptr) return nullptr;
  const CVornTreeItem* const above = start->m_pParent;
  CVornTreeItem* item = start;
  while (true) {
    if (!item->IsHidden()) {
      if (*index == 0) return item;
      --*index;
      if (item->m_nVisibleDescendants > 0 && item->m_pFirstChild != nullptr) {
        item = item->m_pFirstChild;
        continue;
      }
    }
    while (item->m_pNextSibling == nullptr) {
      item = item->m_pParent;
      if (item == above) return nullptr;
    }
    item = item->m_pNextSibling;
  }
}

CVornTreeItem* CVornTreeOperations::GetDocumentOf(CVornTreeItem* item) const {
  if (!IsItemValid(item) || item->m_pTree != m_pTree || item == m_pTree->m_pRoot) return nullptr;
  while (CVornTreeItem* parent = item->GetParentItem()) item = parent;
  return item;
}

CVornTreeItem* CVornTreeOperations::FindByPrefix(CVornTreeItem* start, const wchar_t* prefix) const {
  if (start == nullptr || prefix == nullptr || *prefix == L'\0') return nullptr;
  const size_t length = std::wcslen(prefix);
  CVornTreeItem* row = start == m_pTree->m_pRoot ? m_pTree->GetFirstVisibleItem() : start;
  while (row != nullptr && vorn::CompareNoCase(prefix, row->GetText(), length) != 0) {
    row = m_pTree->GetNextVisibleItem(row);
  }
  return row;
}

void CVornTreeOperations::OnItemVisibilityChanged(CVornTreeItem* item, int visible) const {
  CVornTreeItem* parent = item->m_pParent;
  if (parent == nullptr) return;
  if (m_pTree != nullptr) m_pTree->OnRowsChanged();
  const int sign = visible ? 1 : -1;
  const int rows = parent->IsExpanded() ? item->m_nVisibleDescendants + 1 : 0;
  parent->m_nHiddenDescendants -= sign;
  parent->m_nVisibleDescendants += sign * rows;
  if (parent->IsHidden() || !parent->IsExpanded()) return;
  AddRowsUpward(parent->m_pParent, sign * rows);
}

void CVornTreeOperations::ExpandCounts(CVornTreeItem* item) const {
  if (item->m_pFirstChild == nullptr) return;
  m_pTree->OnRowsChanged();
  const int rows = RowsOfChildren(item);
  item->m_nVisibleDescendants = rows;
  AddRowsUpward(item->m_pParent, item->IsHidden() ? 0 : rows);
}

void CVornTreeOperations::CollapseCounts(CVornTreeItem* item) const {
  if (item->m_pFirstChild == nullptr) return;
  m_pTree->OnRowsChanged();
  const int rows = RowsOfChildren(item);
  item->m_nVisibleDescendants = 0;
  AddRowsUpward(item->m_pParent, item->IsHidden() ? 0 : -rows);
}

void CVornTreeOperations::CollapseAll(CVornTreeItem* item) const {
  if (item->m_pFirstChild == nullptr || !item->IsExpanded()) return;
  m_pTree->OnRowsChanged();
  int rows = 0;
  for (const CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
    if (child->IsHidden()) continue;
    rows += 1 + (child->IsExpanded() ? child->m_nVisibleDescendants : 0);
  }
  Walk(item, [](CVornTreeItem* below) {
    if (below->m_pFirstChild == nullptr || !below->IsExpanded()) return 0;
    below->SetExpanded(false);
    below->m_nVisibleDescendants = 0;
    return 1;
  });
  AddRowsUpward(item->m_pParent, -rows);
}

void CVornTreeOperations::ExpandAll(CVornTreeItem* item) const {
  if (item->m_pFirstChild == nullptr) return;
  m_pTree->OnRowsChanged();
  const int before = item->m_nVisibleDescendants;
  // Down: open and start counting at 0. On the way up each item hands its rows to its parent.
  CVornTreeItem* at = item;
  while (true) {
    if (at->m_pFirstChild != nullptr) {
      // A hidden item stays closed, but what is below it is opened.
      if (!at->IsHidden()) at->SetExpanded(true);
      at->m_nVisibleDescendants = 0;
      at = at->m_pFirstChild;
      continue;
    }
    while (at != item) {
      CVornTreeItem* parent = at->m_pParent;
      if (!at->IsHidden()) parent->m_nVisibleDescendants += 1 + at->m_nVisibleDescendants;
      if (at->m_pNextSibling != nullptr) break;
      at = parent;
    }
    if (at == item) break;
    at = at->m_pNextSibling;
  }
  AddRowsUpward(item->m_pParent, item->m_nVisibleDescendants - before);
}

void CVornTreeOperations::ExpandParents(CVornTreeItem* item) const {
  constexpr long kItemDocumentAndRoot = 3;
  CVornTreeItemArray line;
  item->CollectAncestors(line);
  if (line.GetSize() < kItemDocumentAndRoot) return;
  for (long i = 1; i < line.GetSize(); ++i) m_pTree->Expand(line[i], STE_EXPAND);
}
