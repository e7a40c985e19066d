// Shortcuts: items that stand for another item of the same control.
#include <new>

#include "../VornTreeCtrl.h"
#include "TreeCheck.h"
#include "VornTreeItem.h"

namespace {

// The same in every language of the application.
constexpr const wchar_t* kShortcutLabel = L"Raccourci vers";

}  // namespace

// --- The item --------------------------------------------------------------------------------------

CVornTreeItem* CVornTreeItem::GetShortcutTarget() {
  if (!HasState(STIS_SHORTCUT)) return nullptr;
  if (!IsItemValid(m_pShortcutTarget)) {
    // The target is gone: an ordinary item from now on.
    m_nState &= ~static_cast<unsigned int>(STIS_SHORTCUT);
    m_pShortcutTarget = nullptr;
    NotifyUpdate();
  }
  return m_pShortcutTarget;
}

CVornTreeItem* CVornTreeItem::CreateShortcut() {
  if (m_pTree == nullptr) return nullptr;
  CVornTreeItem* shortcut = new CVornTreeItem(m_pTree);
  if (shortcut == nullptr) return nullptr;
  shortcut->Copy(this, false);
  SetSelected(false);  // on the target, without telling the selection; the copy keeps the bit
  shortcut->m_pShortcutTarget = this;
  shortcut->ModifyState(0, STIS_SHORTCUT);
  if (shortcut->GetShortcutTarget() == nullptr || !AddShortcut(shortcut)) {
    shortcut->m_pShortcutTarget = nullptr;
    delete shortcut;
    return nullptr;
  }
  shortcut->m_nData = 0;
  const CString targetText = shortcut->m_strText;
  shortcut->m_strText = kShortcutLabel;
  if (!targetText.IsEmpty()) {
    shortcut->m_strText += L' ';
    shortcut->m_strText += targetText;
  }
  shortcut->Remeasure();
  shortcut->ModifyState(0, STIS_NODROP);
  return shortcut;
}

int CVornTreeItem::AddShortcut(CVornTreeItem* shortcut) {
  if (shortcut == nullptr || shortcut->GetShortcutTarget() == nullptr) return 0;
  if (!m_Shortcuts.ProvideStorage() || !m_Shortcuts.Add(shortcut, nullptr)) return 0;
  shortcut->m_pShortcutTarget = this;
  return 1;
}

int CVornTreeItem::RemoveShortcut(CVornTreeItem* shortcut) {
  if (!IsItemValid(shortcut) || shortcut->GetShortcutTarget() == nullptr) return 0;
  return m_Shortcuts.Remove(shortcut);
}

// --- The control -----------------------------------------------------------------------------------

CVornTreeItem* CVornTreeCtrl::CreateShortcut(CVornTreeItem* target, CVornTreeItem* parent,
                                             CVornTreeItem* insertAfter) {
  const vorn::OperationCheck check(this);
  if (!IsOwnItem(target) || target == m_pRoot) return nullptr;
  CVornTreeItem* const requestedParent = parent;
  parent = ResolveRoot(parent);
  if (!IsOwnItem(parent)) return nullptr;
  SetRedraw(FALSE);
  CVornTreeItem* shortcut = nullptr;
  if (target->GetShortcutTarget() == nullptr && IsPlaceValid(requestedParent, insertAfter)) {
    shortcut = target->CreateShortcut();
    if (shortcut != nullptr) Place(shortcut, parent, insertAfter);
  }
  SetRedraw(TRUE);
  return shortcut;
}

CVornTreeItem* CVornTreeCtrl::GetShortcutItem(CVornTreeItem* item) {
  return IsItemValid(item) ? item->GetShortcutTarget() : nullptr;
}

int CVornTreeCtrl::GetShortcutItems(CVornTreeItem* item, CVornTreeItemArray& list) {
  // Emptied first, meant: with the item's own list as the argument, the item loses its list.
  list.RemoveAll();
  if (!IsItemValid(item)) return 0;
  if (!item->m_Shortcuts.ProvideStorage()) return 0;
  list = item->m_Shortcuts;
  return 1;
}

int CVornTreeCtrl::IsShortcutItemOf(CVornTreeItem* shortcut, CVornTreeItem* item) {
  return IsItemValid(shortcut) && IsItemValid(item) && shortcut->GetShortcutTarget() == item;
}
