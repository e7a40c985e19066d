// The item as a shortcut, and as the target of shortcuts.
#include <memory>

#include "../VornTreeCtrl.h"
#include "VornTreeItem.h"
#include "WithMemory.h"

namespace {

// The same in every language of the application.
constexpr const wchar_t* kShortcutLabel = L"Raccourci vers";

}  // namespace

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
  std::unique_ptr<CVornTreeItem> shortcut(new CVornTreeItem(m_pTree));
  if (shortcut == nullptr) return nullptr;
  const bool filled = vorn::RunWithMemory([&] {
    shortcut->Copy(this, false);
    shortcut->m_strText = kShortcutLabel;
    if (!m_strText.IsEmpty()) {
      shortcut->m_strText += L' ';
      shortcut->m_strText += m_strText;
    }
    shortcut->Remeasure();
  });
  if (!filled) return nullptr;
  shortcut->m_pShortcutTarget = this;
  shortcut->ModifyState(0, STIS_SHORTCUT | STIS_NODROP);
  if (!AddShortcut(shortcut.get())) return nullptr;
  SetSelected(false);  // on the target, without telling the selection; the copy keeps the bit
  return shortcut.release();
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
