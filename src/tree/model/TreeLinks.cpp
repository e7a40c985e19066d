// Linking and unlinking of items, with the counts that every ancestor keeps.
//
// The counts that an insertion adds and those that a detaching takes away are not mirror images:
// after a hide or a collapse they need not cancel. This is meant; nothing recomputes them.
#include <algorithm>

#include "../VornTreeCtrl.h"
#include "VornTreeItem.h"

namespace {

struct Counts {
  unsigned int total;
  int visible;
  int hidden;
};

// From start upward: rows and hidden items count up to the first ancestor that is hidden or closed,
// descendants count all the way.
void AddToAncestors(CVornTreeItem* start, Counts counts, int sign) {
  for (CVornTreeItem* item = start; item != nullptr; item = item->m_pParent) {
    if (item->IsExpanded()) {
      item->m_nVisibleDescendants += sign * counts.visible;
      item->m_nHiddenDescendants += sign * counts.hidden;
    }
    if (item->IsHidden() || !item->IsExpanded()) counts.visible = counts.hidden = 0;
    item->m_nDescendants += static_cast<unsigned int>(sign) * counts.total;
  }
}

// Counts a new child of parent in it and in all its ancestors.
void CountIn(CVornTreeItem* parent, const CVornTreeItem* item) {
  Counts counts{item->m_nDescendants + 1, 0, 0};
  if (parent->IsExpanded()) {
    counts.visible = item->IsHidden() ? 0 : item->m_nVisibleDescendants + 1;
    counts.hidden = item->m_nHiddenDescendants + (item->IsHidden() ? 1 : 0);
  }
  parent->m_nDescendants += counts.total;
  parent->m_nVisibleDescendants += counts.visible;
  parent->m_nHiddenDescendants += counts.hidden;
  if (parent->IsHidden()) counts.visible = 0;
  AddToAncestors(parent->m_pParent, counts, +1);
}

void LinkBetween(CVornTreeItem* parent, CVornTreeItem* prev, CVornTreeItem* item, CVornTreeItem* next) {
  item->m_pPrevSibling = prev;
  item->m_pNextSibling = next;
  (prev != nullptr ? prev->m_pNextSibling : parent->m_pFirstChild) = item;
  (next != nullptr ? next->m_pPrevSibling : parent->m_pLastChild) = item;
}

void Unlink(CVornTreeItem* item) {
  CVornTreeItem* parent = item->m_pParent;
  CVornTreeItem* prev = item->m_pPrevSibling;
  CVornTreeItem* next = item->m_pNextSibling;
  if (prev != nullptr) prev->m_pNextSibling = next;
  if (next != nullptr) next->m_pPrevSibling = prev;
  if (parent->m_pFirstChild == item) parent->m_pFirstChild = next;
  if (parent->m_pLastChild == item) parent->m_pLastChild = prev;
}

// The next item of top's subtree in pre-order, or null after the last.
CVornTreeItem* NextInSubtree(CVornTreeItem* item, const CVornTreeItem* top) {
  if (item->m_pFirstChild != nullptr) return item->m_pFirstChild;
  while (item != top && item->m_pNextSibling == nullptr) item = item->m_pParent;
  return item == top ? nullptr : item->m_pNextSibling;
}

void SetLevel(CVornTreeItem* item, int level) {
  if (item->m_nLevel == level) return;
  if (item->m_nLevel == -1) {
    item->m_nLevel = level;
    return;
  }
  item->m_nLevel = level;
  for (CVornTreeItem* below = NextInSubtree(item, item); below != nullptr;
       below = NextInSubtree(below, item)) {
    below->m_nLevel = below->m_pParent->m_nLevel + 1;
  }
}

// Levels of items in destruction. They tell those that are going already from all others, without a climb.
constexpr int kSortedOutLevel = -2;  // has sorted out its shortcuts: what is left of its list goes with it
constexpr int kDyingLevel = -3;      // its children go first

bool IsGoing(const CVornTreeItem* item) { return item->m_nLevel <= kSortedOutLevel; }

bool IsRoot(const CVornTreeItem* item) { return item->m_nLevel == 0 && item->m_pParent == nullptr; }

// Whether a shortcut takes itself out of the list of its target when it goes.
bool LeavesListOf(const CVornTreeItem* target, const CVornTreeItem* shortcut) {
  return shortcut->HasState(STIS_SHORTCUT) && shortcut->m_pShortcutTarget == target &&
         shortcut->m_Shortcuts.GetSize() == 0;
}

// What becomes of the shortcuts of an item that goes. Their list is walked from the front as often as it has
// entries now; each shortcut that goes moves those behind it one place forward under the walk, and the last
// one stays readable behind the end. So every other one is passed over and lives on as an ordinary item, but
// the last one goes when the walk ends on it. Meant. Leaves the list with those that go, the first to go at
// its end.
void SortOutShortcuts(CVornTreeItem* item) {
  item->m_nLevel = kSortedOutLevel;
  const long count = item->m_Shortcuts.GetSize();
  if (count == 0) {
    if (!item->HasState(STIS_SHORTCUT) || !IsItemValid(item->m_pShortcutTarget)) return;
    CVornTreeItem* shortcut = item;
    item->m_pShortcutTarget->m_Shortcuts.Remove(shortcut);
    return;
  }
  CVornTreeItem** const list = item->m_Shortcuts.Array();
  CVornTreeItem* const last = list[count - 1];
  long going = 0;
  long moved = 0;
  for (long i = 0; i < count; ++i) {
    CVornTreeItem* const shortcut = i + moved < count ? list[i + moved] : last;
    const bool isGone = going > 0 && list[going - 1] == shortcut;
    if (isGone || !IsItemValid(shortcut)) continue;
    list[going++] = shortcut;
    if (LeavesListOf(item, shortcut)) ++moved;
  }
  std::reverse(list, list + going);
  item->m_Shortcuts.Remove(going, count - going);
}

// Takes the next shortcut that goes out of its place and makes it the only child of the dying item, so
// that it is destroyed next. One that the item itself lies below is going already.
bool DrawInNextShortcut(CVornTreeItem* item) {
  while (const long count = item->m_Shortcuts.GetSize()) {
    CVornTreeItem* const shortcut = item->m_Shortcuts[count - 1];
    item->m_Shortcuts.RemoveAt(count - 1);
    if (!IsItemValid(shortcut) || IsGoing(shortcut) || IsRoot(shortcut)) continue;
    shortcut->Detach(false);
    LinkBetween(item, nullptr, shortcut, nullptr);
    shortcut->m_pParent = item;
    return true;
  }
  return false;
}

void ClearLinks(CVornTreeItem* item) {
  item->m_pParent = item->m_pPrevSibling = item->m_pNextSibling = nullptr;
  item->m_pFirstChild = item->m_pLastChild = nullptr;
  item->m_nLabelOffset = 0;
}

}  // namespace

// The last steps of linking a child.
void CVornTreeItem::Adopt(CVornTreeItem* item) {
  SetLevel(item, m_nLevel + 1);
  item->m_pParent = this;
  m_nState &= ~static_cast<unsigned int>(STIS_HASCHILDREN);
  if (m_pTree != nullptr) m_pTree->OnItemLinked(item);
  NotifyUpdate();
}

void CVornTreeItem::InsertAfter(CVornTreeItem* item, CVornTreeItem* after) {
  CountIn(this, item);
  if (after == STI_FIRST || m_pFirstChild == nullptr) {
    LinkBetween(this, nullptr, item, m_pFirstChild);
  } else if (after == nullptr || after == m_pLastChild) {
    LinkBetween(this, m_pLastChild, item, nullptr);
  } else {
    LinkBetween(this, after, item, after->m_pNextSibling);
  }
  Adopt(item);
}

void CVornTreeItem::InsertFirst(CVornTreeItem* item, CVornTreeItem* before) {
  CountIn(this, item);
  if (before == nullptr || before == m_pFirstChild) {
    LinkBetween(this, nullptr, item, m_pFirstChild);
  } else {
    LinkBetween(this, before->m_pPrevSibling, item, before);
  }
  Adopt(item);
}

void CVornTreeItem::Detach(bool destroy) {
  const bool isRoot = m_pTree != nullptr && m_pTree->m_pRoot == this;
  if (m_pParent == nullptr && m_pFirstChild == nullptr && !isRoot) return;
  if (m_pParent != nullptr) {
    if (m_pTree != nullptr) m_pTree->OnItemUnlinking(this);
    Unlink(this);
    Counts counts{m_nDescendants + 1, 1, m_nHiddenDescendants};
    if (IsHidden()) {
      counts.visible = 0;
      counts.hidden += m_nVisibleDescendants + 1;
    } else if (IsExpanded()) {
      counts.visible = m_nVisibleDescendants + 1;
    }
    AddToAncestors(m_pParent, counts, -1);
  }
  m_pParent = nullptr;
  m_nLabelOffset = 0;
  if (!destroy) {
    m_pPrevSibling = m_pNextSibling = nullptr;
    return;
  }
  if (m_pTree != nullptr) m_pTree->m_nDeaths += m_nDescendants + 1;
  DestroyChildren();
  m_pTree = nullptr;
}

void CVornTreeItem::DestroyChildren() {
  // Children go before their parent, first to last, and an item's shortcuts after its children. One
  // loop does it all, so that no depth of the tree is too great.
  const int level = m_nLevel;
  m_pParent = nullptr;
  CVornTreeItem* item = this;
  while (true) {
    while (item->m_pFirstChild != nullptr) {
      if (!IsGoing(item)) item->m_nLevel = kDyingLevel;
      item = item->m_pFirstChild;
    }
    if (item->m_nLevel != kSortedOutLevel) SortOutShortcuts(item);
    if (DrawInNextShortcut(item)) continue;
    if (item == this) break;
    CVornTreeItem* const parent = item->m_pParent;
    Unlink(item);
    ClearLinks(item);
    delete item;
    item = parent;
  }
  ClearLinks(this);
  m_nLevel = level;
}
