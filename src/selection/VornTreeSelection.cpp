// The selection manager: what it holds, ranges, clearing, and the host's wishes. Input is in
// SelectionInput.cpp.
#include "../tree/model/TreeCheck.h"
#include "VornTreeSelection.h"

#include "../tree/VornTreeCtrl.h"
#include "../tree/layout/VornTreeOperations.h"
#include "ManagerWatch.h"

namespace vorn {

namespace {

thread_local ManagerWatch* g_innermost = nullptr;

}  // namespace

ManagerWatch::ManagerWatch(const CVornTreeSelection* manager) : m_pManager(manager), m_pOuter(g_innermost) {
  if (m_pOuter != nullptr) m_pOuter->m_pInner = this;
  g_innermost = this;
}

// A host's guard need not end in the order of the others.
ManagerWatch::~ManagerWatch() {
  (m_pInner != nullptr ? m_pInner->m_pOuter : g_innermost) = m_pOuter;
  if (m_pOuter != nullptr) m_pOuter->m_pInner = m_pInner;
}

void ManagerWatch::Forget(const CVornTreeSelection* manager) {
  for (ManagerWatch* watch = g_innermost; watch != nullptr; watch = watch->m_pOuter) {
    if (watch->m_pManager == manager) watch->m_pManager = nullptr;
  }
}

}  // namespace vorn

using vorn::ManagerWatch;

IMPLEMENT_DYNAMIC(CVornTreeSelection, CObject)

CVornTreeSelection::CVornTreeSelection(CVornTreeCtrl* tree) : m_pTree(tree) {}

CVornTreeSelection::~CVornTreeSelection() { ManagerWatch::Forget(this); }

// --- The index -------------------------------------------------------------------------------------

bool CVornTreeSelection::IsOwn(const CVornTreeItem* item) const { return m_pTree->IsOwnItem(item); }

void CVornTreeSelection::SetFocusItem(CVornTreeItem* item) { m_pFocus = IsItemValid(item) ? item : nullptr; }

void CVornTreeSelection::SetAnchor(CVornTreeItem* item) {
  m_pLastSelected = IsItemValid(item) ? item : nullptr;
}

bool CVornTreeSelection::Contains(CVornTreeItem* item) { return m_arrSelected.Find(item) != nullptr; }

void CVornTreeSelection::Add(CVornTreeItem* item) { m_arrSelected.Add(item, nullptr); }

void CVornTreeSelection::Take(CVornTreeItem* item) {
  item->SetSelected(true);
  Add(item);
}

void CVornTreeSelection::Drop(CVornTreeItem* item) { m_arrSelected.Drop(item); }

void CVornTreeSelection::SaveSelection() {
  m_arrSaved.RemoveAll();
  m_arrSaved.Copy(m_arrSelected.Settled());
}

int CVornTreeSelection::OnItemAdded(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (IsOwn(item) && item->IsSelected()) Add(item);
  return 1;
}

int CVornTreeSelection::OnItemRemoved(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  int removed = 0;
  if (IsOwn(item) && item->IsSelected()) {
    Drop(item);
    item->SetSelected(false);
    removed = 1;
  }
  if (m_pFocus == item) m_pFocus = nullptr;
  if (m_pLastSelected == item || !IsItemValid(m_pLastSelected)) m_pLastSelected = nullptr;
  return removed;
}

int CVornTreeSelection::GetCurrentSelection(CVornTreeItemArray& items) {
  if (m_arrSelected.GetSize() == 0) {
    items.RemoveAll();
    return 0;
  }
  static_cast<TVornArray<CVornTreeItem*>&>(items) = m_arrSelected.Settled();
  return 1;
}

CVornTreeItem* CVornTreeSelection::GetItemHasFocus() {
  if (!IsItemValid(m_pFocus)) m_pFocus = nullptr;
  return m_pFocus;
}

CVornTreeItem* CVornTreeSelection::GetLastSelectedItem() {
  if (!IsItemValid(m_pLastSelected)) m_pLastSelected = nullptr;
  return m_pLastSelected;
}

// --- Items that are gone ---------------------------------------------------------------------------

namespace {

void DropDead(TVornArray<CVornTreeItem*>& items) {
  CVornTreeItem** const list = items.Array();
  const long count = items.GetSize();
  long kept = 0;
  for (long i = 0; i < count; ++i) {
    if (IsItemValid(list[i])) list[kept++] = list[i];
  }
  items.Remove(kept, count - kept);
}

}  // namespace

void CVornTreeSelection::ForgetDead() {
  GetItemHasFocus();
  GetLastSelectedItem();
  m_arrSelected.Settle();
  DropDead(m_arrSelected);
  DropDead(m_arrSaved);
}

// --- The host's wishes -----------------------------------------------------------------------------

int CVornTreeSelection::SelectItem(CVornTreeItem* item, int keepOthers) {
  const vorn::OperationCheck check(m_pTree);
  if (!IsOwn(item)) return 0;
  CVornTreeItem* const old = GetLastSelectedItem();
  ManagerWatch alive(this);
  const bool agreed =
      !item->IsSelected() && m_pTree->CanSelectItem(item) && alive && m_pTree->OnSelChanging(old, item);
  if (!alive || !IsItemValid(item)) return 0;
  if (!agreed) {
    SetFocusItem(item);  // all the same
    SetAnchor(item);
    return 0;
  }
  ReadModifiers();
  if (!m_bCtrl && !keepOthers) ClearSelection(nullptr, 0);
  if (!alive || !IsItemValid(item)) return 0;
  Take(item);
  m_pTree->OnSelChanged(old, item);
  if (!alive) return 0;
  SetFocusItem(item);
  SetAnchor(item);
  return 1;
}

int CVornTreeSelection::UnselectItem(CVornTreeItem* item, int shortcutsToo) {
  const vorn::OperationCheck check(m_pTree);
  if (!IsOwn(item)) return 0;
  ManagerWatch alive(this);
  OnItemRemoved(item);
  m_pTree->OnSelChanged(item, nullptr);
  if (!shortcutsToo) return 1;
  // OnItemRemoved runs no hook, so the list stays as it is under this loop.
  for (long i = 0; alive && IsItemValid(item) && i < item->m_Shortcuts.GetSize(); ++i) {
    OnItemRemoved(item->m_Shortcuts[i]);
  }
  return 1;
}

void CVornTreeSelection::UpdateSelection(unsigned int flags, CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (flags & STUS_REBUILD) {
    CVornTreeOperations::Walk(m_pTree->m_pRoot, [this](CVornTreeItem* below) {
      UpdateSelection(STUS_ITEMADDED, below);
      return 1;
    });
  }
  if (flags & (STUS_CTRLON | STUS_CTRLOFF)) m_bForceCtrl = (flags & STUS_CTRLON) != 0;
  if (flags & (STUS_SHIFTON | STUS_SHIFTOFF)) m_bForceShift = (flags & STUS_SHIFTON) != 0;
  if (!IsItemValid(item)) return;
  if (flags & STUS_ITEMADDED) {
    OnItemAdded(item);
  } else if (flags & STUS_ITEMREMOVED) {
    OnItemRemoved(item);
  }
}

// --- Clearing and ranges ---------------------------------------------------------------------------

void CVornTreeSelection::ClearSelection(CVornTreeItem* item, int resetLast) {
  const vorn::OperationCheck check(m_pTree);
  ManagerWatch alive(this);
  if (!m_bInClear && !m_pTree->OnClearSelection(item)) return;
  if (!alive || m_arrSelected.GetSize() == 0) return;
  for (long i = 0; i < m_arrSelected.GetSize(); ++i) {
    if (IsItemValid(m_arrSelected[i])) m_arrSelected[i]->SetSelected(false);
  }
  m_arrSelected.RemoveAll();
  if (resetLast) m_pLastSelected = nullptr;
}

void CVornTreeSelection::RestoreSelection() {
  const vorn::OperationCheck check(m_pTree);
  ManagerWatch alive(this);
  ClearSelection(nullptr, 0);
  if (!alive) return;
  for (long i = 0; i < m_arrSaved.GetSize(); ++i) {
    if (IsItemValid(m_arrSaved[i])) Take(m_arrSaved[i]);
  }
}

void CVornTreeSelection::SetRangeMode(int) {}

void CVornTreeSelection::SelectRange(CVornTreeItem* from, CVornTreeItem* to) {
  const vorn::OperationCheck check(m_pTree);
  ManagerWatch alive(this);
  CVornTreeItem* row = IsOwn(from) && IsOwn(to) ? GetFirstInOrder(from, to) : nullptr;
  if (row == nullptr) {
    const bool single = from == to && IsOwn(from) && !from->IsSelected();
    if (single && m_pTree->CanSelectItem(from) && alive && IsItemValid(from)) Take(from);
    return;
  }
  CVornTreeItem* const last = row == from ? to : from;
  while (row != nullptr) {
    if (!row->IsSelected() && m_pTree->OnSelChanging(nullptr, row)) {
      if (!alive || !IsItemValid(row)) return;
      if (m_pTree->CanSelectItem(row) && alive && IsItemValid(row)) Take(row);
      if (alive && IsItemValid(row)) m_pTree->OnSelChanged(nullptr, row);
    }
    if (!alive || !IsItemValid(row) || row == last) return;
    row = m_pTree->GetNextVisibleItem(row);
  }
}

namespace {

long DepthOf(const CVornTreeItem* item) {
  long depth = 0;
  for (; item->m_pParent != nullptr; item = item->m_pParent) ++depth;
  return depth;
}

// Whether a comes before its sibling b: looks both ways from a, so the cost is their distance.
bool IsBefore(const CVornTreeItem* a, const CVornTreeItem* b) {
  const CVornTreeItem *forward = a, *backward = a;
  while (forward != nullptr || backward != nullptr) {
    if (forward == b) return true;
    if (backward == b) return false;
    if (forward != nullptr) forward = forward->m_pNextSibling;
    if (backward != nullptr) backward = backward->m_pPrevSibling;
  }
  return true;
}

}  // namespace

CVornTreeItem* CVornTreeSelection::GetFirstInOrder(CVornTreeItem* a, CVornTreeItem* b) {
  if (!IsItemValid(a) || !IsItemValid(b) || a == b) return nullptr;
  CVornTreeItem *branchA = a, *branchB = b;
  long depthA = DepthOf(a), depthB = DepthOf(b);
  const bool shorterIsA = depthA < depthB;
  for (; depthA > depthB; --depthA) branchA = branchA->m_pParent;
  for (; depthB > depthA; --depthB) branchB = branchB->m_pParent;
  if (branchA == branchB) return shorterIsA ? a : b;  // an ancestor comes first
  while (branchA->m_pParent != branchB->m_pParent) {
    branchA = branchA->m_pParent;
    branchB = branchB->m_pParent;
  }
  if (branchA->m_pParent == nullptr) return nullptr;
  return IsBefore(branchA, branchB) ? a : b;
}

int CVornTreeSelection::GetDraggableItems(CVornTreeItem* item, CVornTreeItemArray& items) {
  if (item == STI_ROOT) item = m_pTree->m_pRoot;
  if (!IsOwn(item)) return 0;
  ManagerWatch alive(this);
  CVornTreeItem* at = item;
  while (true) {
    const bool draggable = m_pTree->IsAllow(at, STIS_NODRAG) && IsItemValid(at) && at->IsSelected();
    if (!alive || !IsItemValid(at) || !IsItemValid(item)) return 1;
    if (draggable) items.Add(at, nullptr);
    if (!draggable && at->m_pFirstChild != nullptr && at->m_nVisibleDescendants >= 1) {
      at = at->m_pFirstChild;  // hidden or not, meant
      continue;
    }
    // Asking for permission may have moved at elsewhere: then there is no way back to item.
    while (at != nullptr && at != item && at->GetNextVisibleSibling() == nullptr) at = at->m_pParent;
    if (at == nullptr || at == item) return 1;
    at = at->GetNextVisibleSibling();
  }
}

// --- Forced keys -----------------------------------------------------------------------------------

int CVornTreeSelection::SetForceCtrl(int force) {
  const int before = m_bForceCtrl;
  m_bForceCtrl = force;
  return before;
}

int CVornTreeSelection::SetForceShift(int force) {
  const int before = m_bForceShift;
  m_bForceShift = force;
  return before;
}

CVornSelectionGuard::CVornSelectionGuard(CVornTreeSelection* manager, int ctrl, int shift)
    : m_pManager(manager), m_alive(manager), m_bCtrl(0), m_bShift(0) {
  if (manager == nullptr) return;
  m_bCtrl = manager->SetForceCtrl(ctrl);
  m_bShift = manager->SetForceShift(shift);
}

CVornSelectionGuard::~CVornSelectionGuard() {
  if (!m_alive) return;
  m_pManager->SetForceCtrl(m_bCtrl);
  m_pManager->SetForceShift(m_bShift);
}
