// Walks of the tree and the counts that go with visibility and expansion.
//
// Holds nothing but the control it works for, so each use makes its own.
#pragma once

#include "../model/VornTreeItem.h"

class CVornTreeOperations {
 public:
  explicit CVornTreeOperations(CVornTreeCtrl* tree) : m_pTree(tree) {}

  // Pre-order walk of item and all below it. visit(item) gives 0 to leave out what is below. The walk
  // must not change links. 1, or 0 for a null item.
  template <class Visit>
  static int Walk(CVornTreeItem* item, Visit visit);

  // The row with this index, counted from start over its subtree, its next siblings and theirs. *index
  // goes down by the rows passed. Null when they run out.
  static CVornTreeItem* FindVisibleByIndex(int* index, CVornTreeItem* start);

  // The document of an item: the ancestor, or the item itself, whose parent is the root. Null for an
  // invalid item, one of another control, and for the root.
  CVornTreeItem* GetDocumentOf(CVornTreeItem* item) const;

  // The first row from start on (the root: of all) whose label begins with prefix, letter case apart.
  CVornTreeItem* FindByPrefix(CVornTreeItem* start, const wchar_t* prefix) const;

  // --- Counts ---
  void OnItemVisibilityChanged(CVornTreeItem* item, int visible) const;
  void ExpandCounts(CVornTreeItem* item) const;
  void CollapseCounts(CVornTreeItem* item) const;
  // Open or close an item with all below it. A collapsed item is a wall for the closing.
  void ExpandAll(CVornTreeItem* item) const;
  void CollapseAll(CVornTreeItem* item) const;
  // Opens all that is above an item.
  void ExpandParents(CVornTreeItem* item) const;

  // --- The window's slice of the rows; nothing without a window ---
  // The row at the vertical scroll position.
  CVornTreeItem* FindFirstDisplayItem() const;
  CVornTreeItem* FindLastDisplayItem() const;
  // Rows from the first to the last of the display list.
  int CountDisplayItems() const;
  // Rows that fit, from the first row of all.
  int CountPageItems() const;
  // Moves the view so that the new rows of an opened item show.
  void ScrollAfterExpand(CVornTreeItem* item, unsigned int flags) const;

 private:
  int ClientHeight() const;

  CVornTreeCtrl* m_pTree;
};

template <class Visit>
int CVornTreeOperations::Walk(CVornTreeItem* item, Visit visit) {
  if (item == nullptr) return 0;
  CVornTreeItem* at = item;
  bool down = visit(at) != 0;
  while (true) {
    if (down && at->m_pFirstChild != nullptr) {
      at = at->m_pFirstChild;
    } else {
      while (at != item && at->m_pNextSibling == nullptr) at = at->m_pParent;
      if (at == item) return 1;
      at = at->m_pNextSibling;
    }
    down = visit(at) != 0;
  }
}
