// CVornTreeCtrl: shortcuts, items that stand for another item of the same control.
#include "RedrawHold.h"
#include "TreeCheck.h"
#include "VornTreeItem.h"

CVornTreeItem* CVornTreeCtrl::CreateShortcut(CVornTreeItem* target, CVornTreeItem* parent,
                                             CVornTreeItem* insertAfter) {
  const vorn::OperationCheck check(this);
  if (!IsOwnItem(target) || target == m_pRoot) return nullptr;
  CVornTreeItem* const requestedParent = parent;
  parent = ResolveRoot(parent);
  if (!IsOwnItem(parent)) return nullptr;
  const vorn::RedrawHold hold(this);
  if (target->GetShortcutTarget() != nullptr || !IsPlaceValid(requestedParent, insertAfter)) return nullptr;
  CVornTreeItem* const shortcut = target->CreateShortcut();
  if (shortcut != nullptr) Place(shortcut, parent, insertAfter);
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
