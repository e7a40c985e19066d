// CVornTreeCtrl: the control's side of the selection.
#include "../tree/VornTreeCtrl.h"
#include "../tree/layout/VornTreeOperations.h"
#include "../tree/model/TreeCheck.h"
#include "VornTreeMultiSelection.h"

// --- Selecting -------------------------------------------------------------------------------------

int CVornTreeCtrl::Select(CVornTreeItem* item, unsigned int code) {
  const vorn::OperationCheck check(this);
  switch (code) {
    case STSEL_FIRSTVISIBLE: SetFirstVisible(item); return 1;
    case STSEL_DROPHILITE: return 0;  // without a drag there is no drop target to set
    case STSEL_SELECTFIRSTVISIBLE: return SelectSetFirstVisible(item);
    default: break;
  }
  if (m_pSelection == nullptr) return 0;
  switch (code) {
    case STSEL_SELECT: m_pSelection->SelectItem(item, 0); return 0;
    case STSEL_ADD: {
      const CVornSelectionGuard guard(m_pSelection, 1, m_pSelection->GetForceShift());
      m_pSelection->SelectItem(item, 0);
      return 0;
    }
    case STSEL_UNSELECT: m_pSelection->UnselectItem(item, 0); return 0;
    case STSEL_UNSELECTWITHSHORTCUTS: m_pSelection->UnselectItem(item, 1); return 0;
    default: return 0;
  }
}

int CVornTreeCtrl::SelectItem(CVornTreeItem* item, int keepOthers) {
  const vorn::OperationCheck check(this);
  CVornTreeItem* const active = GetActiveDocItem();
  CVornTreeItem* const document = CVornTreeOperations(this).GetDocumentOf(item);
  if (IsItemValid(active) && document != nullptr && document != active && !GetItemVisibility(document)) {
    return 1;  // claims success, meant
  }
  if (!IsOwnItem(item) || m_pSelection == nullptr) return 0;
  const int changed = m_pSelection->SelectItem(item, keepOthers);
  if (changed && HasSelectionType(STST_ENSUREVISIBLE)) EnsureVisible(item);
  if (::IsWindow(m_hWnd)) {
    ::ValidateRect(m_hWnd, nullptr);
    ::InvalidateRect(m_hWnd, nullptr, TRUE);
  }
  return 1;
}

int CVornTreeCtrl::UnselectItem(CVornTreeItem* item) {
  const vorn::OperationCheck check(this);
  if (m_pSelection != nullptr) m_pSelection->UnselectItem(item, 0);
  return 0;  // always, meant
}

void CVornTreeCtrl::ClearSelection(CVornTreeItem* item) {
  const vorn::OperationCheck check(this);
  if (m_pSelection == nullptr) return;
  item = ResolveRoot(item);
  m_pSelection->ClearSelection(IsItemValid(item) ? item : nullptr, 1);
}

void CVornTreeCtrl::UpdateSelection(CVornTreeItem* item, unsigned int flags) {
  const vorn::OperationCheck check(this);
  if (m_pSelection != nullptr) m_pSelection->UpdateSelection(flags, item);
}

int CVornTreeCtrl::SelectSetFirstVisible(CVornTreeItem* item) {
  const vorn::OperationCheck check(this);
  if (!IsOwnItem(item)) return 0;
  if (m_pSelection != nullptr) m_pSelection->SelectItem(item, 0);
  SetFirstVisible(item);
  return 1;
}

// Looking through all that the managers hold costs time: with much held it is done once in a while, but
// always before the memory of a dead item can be used again. Until then a dead item is known as such.
void CVornTreeCtrl::ForgetDeadItems() {
  if (m_pSelection == nullptr || m_nDeaths == 0) return;
  constexpr size_t kHeldPerDeath = 64;
  constexpr size_t kMostDeaths = vorn::ItemPool::kQuarantine / 2;
  auto* const byDocuments = DYNAMIC_DOWNCAST(CVornTreeMultiSelection, m_pSelection);
  if (m_nDeaths < kMostDeaths) {
    const long few = static_cast<long>(m_nDeaths * kHeldPerDeath);
    if (byDocuments != nullptr ? byDocuments->HoldsMoreInAll(few) : m_pSelection->HoldsMore(few)) return;
  }
  m_nDeaths = 0;
  if (byDocuments != nullptr) {
    byDocuments->ForgetDeadInAll();
  } else {
    m_pSelection->ForgetDead();
  }
}

// --- Asking ----------------------------------------------------------------------------------------

CVornTreeItem* CVornTreeCtrl::GetSelectedItem() { return GetLastSelectedItem(); }

CVornTreeItem* CVornTreeCtrl::GetLastSelectedItem() {
  return m_pSelection != nullptr ? m_pSelection->GetLastSelectedItem() : nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetItemHasFocus() const {
  return m_pSelection != nullptr ? m_pSelection->GetItemHasFocus() : nullptr;
}

int CVornTreeCtrl::GetCurrentSelection(CVornTreeItemArray& items) {
  return m_pSelection != nullptr ? m_pSelection->GetCurrentSelection(items) : 0;
}

// --- The type of selection -------------------------------------------------------------------------

unsigned int CVornTreeCtrl::ModifySelectionType(unsigned int remove, unsigned int add) {
  const vorn::OperationCheck check(this);
  const unsigned int before = m_nSelectionType;
  CVornTreeItem* const focus = GetItemHasFocus();
  m_nSelectionType = (m_nSelectionType & ~remove) | add;
  const bool classChanges = ((before ^ m_nSelectionType) & STST_BYDOCUMENTS) != 0;
  if (classChanges) {
    ReplaceSelectionManager(focus, true);
  } else if (m_pSelection == nullptr) {
    ReplaceSelectionManager(focus, false);
  }
  return before;
}

void CVornTreeCtrl::ReplaceSelectionManager(CVornTreeItem* focus, bool rebuild) {
  delete m_pSelection;
  m_pSelection = nullptr;
  if (HasSelectionType(STST_BYDOCUMENTS)) {
    m_pSelection = new (std::nothrow) CVornTreeMultiSelection(this);
  } else {
    m_pSelection = new (std::nothrow) CVornTreeSelection(this);
  }
  if (rebuild && m_pSelection != nullptr) m_pSelection->UpdateSelection(STUS_REBUILD, focus);
}

void CVornTreeCtrl::SetSelectionTypeBit(unsigned int bit, int enable) {
  if (enable == 1) {
    ModifySelectionType(0, bit);
  } else {
    ModifySelectionType(bit, 0);
  }
}

void CVornTreeCtrl::EnableMultipleSelection(int enable) {
  if (enable == 1) {
    ModifySelectionType(STST_SINGLE, STST_MULTIPLE);
  } else {
    ModifySelectionType(STST_MULTIPLE, STST_SINGLE);
  }
}

void CVornTreeCtrl::EnableSelectionByDocuments(int enable) { SetSelectionTypeBit(STST_BYDOCUMENTS, enable); }

void CVornTreeCtrl::EnableClearSelectionWithEmptyArea(int enable) {
  SetSelectionTypeBit(STST_CLEARONEMPTY, enable);
}
