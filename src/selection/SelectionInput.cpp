// The selection manager: what clicks and keys do.
//
// In all of this 'old' is the anchor on entry, and a veto ends the operation with the focus moved.
#include "../core/VornFunctions.h"
#include "../options/VornTreeOptions.h"
#include "../tree/VornTreeCtrl.h"
#include "../tree/model/TreeCheck.h"
#include "../tree/model/VornTreeItem.h"
#include "ManagerWatch.h"
#include "VornTreeSelection.h"

using vorn::ManagerWatch;

namespace {

constexpr UINT_PTR kEditTimer = 1;          // the delayed label edit
constexpr int kDefaultEditDuration = 1500;  // milliseconds

}  // namespace

void CVornTreeSelection::ReadModifiers() {
  m_bCtrl = m_bForceCtrl;
  m_bShift = m_bForceShift;
  if (!m_pTree->IsMultipleSelection()) return;
  m_bCtrl = m_bCtrl || IsKeyPress(VK_CONTROL);
  m_bShift = m_bShift || IsKeyPress(VK_SHIFT);
}

void CVornTreeSelection::StopEditTimer() {
  if (m_pTree->m_hWnd != nullptr) ::KillTimer(m_pTree->m_hWnd, kEditTimer);
}

// --- Left button -----------------------------------------------------------------------------------

int CVornTreeSelection::OnLButtonDown(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (!IsOwn(item)) return 0;
  ReadModifiers();
  ManagerWatch alive(this);
  const bool allowed = m_pTree->CanSelectItem(item) != 0;
  if (!alive || !IsItemValid(item)) return 0;
  if (m_bShift && GetLastSelectedItem() != nullptr) return ClickRange(item);
  if (!item->IsSelected()) return m_bCtrl ? ClickAdd(item, allowed) : ClickOnly(item, allowed);
  // On a selected item the release decides.
  if (!m_bCtrl && !VornIsApplicationActive(AfxGetMainWnd())) return 0;
  m_bPendingUp = TRUE;
  SetFocusItem(item);
  return 0;
}

int CVornTreeSelection::ClickRange(CVornTreeItem* item) {
  ManagerWatch alive(this);
  CVornTreeItem* const old = GetLastSelectedItem();
  const bool keepSaved = m_bCtrl != FALSE;
  SetRangeMode(1);
  const bool agreed = m_pTree->OnMultiSelChanging(old, item) != 0;
  if (!alive) return 0;
  if (!agreed) {
    SetFocusItem(item);
    return 0;
  }
  ClearSelection(item, 0);
  if (alive && keepSaved) RestoreSelection();
  if (alive) SelectRange(old, item);
  if (!alive) return 0;
  if (!keepSaved) SaveSelection();
  m_pTree->OnMultiSelChanged(old, item);
  if (!alive) return 0;
  SetRangeMode(0);
  SetFocusItem(item);
  return 1;
}

int CVornTreeSelection::ClickAdd(CVornTreeItem* item, bool allowed) {
  ManagerWatch alive(this);
  CVornTreeItem* const old = GetLastSelectedItem();
  const bool agreed = allowed && m_pTree->OnSelChanging(old, item);
  if (!alive) return 0;
  if (!agreed || !IsItemValid(item)) {
    SetFocusItem(item);
    m_arrSaved.Remove(item);
    return 0;
  }
  Take(item);
  m_pTree->OnSelChanged(old, item);
  if (!alive) return 0;
  SetAnchor(item);
  SaveSelection();
  SetFocusItem(item);
  return 1;
}

int CVornTreeSelection::ClickOnly(CVornTreeItem* item, bool allowed) {
  ManagerWatch alive(this);
  CVornTreeItem* const old = GetLastSelectedItem();
  // Before any hook that may veto: a veto leaves an empty selection, meant.
  ClearSelection(item, 0);
  if (!alive) return 0;
  const bool agreed = m_pTree->OnSelChanging(old, item) != 0;
  if (!alive) return 0;
  StopEditTimer();
  if (!agreed) {
    SetFocusItem(item);
    return 0;
  }
  if (allowed && IsItemValid(item)) Take(item);
  m_pTree->OnSelChanged(old, item);
  if (!alive) return 0;
  SetAnchor(item);
  SetFocusItem(item);
  return 1;
}

int CVornTreeSelection::OnLButtonUp(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (!m_bPendingUp || item == nullptr) return 0;
  m_bPendingUp = FALSE;
  if (!IsOwn(item)) return 0;
  ReadModifiers();
  return m_bCtrl ? ReleaseToggle(item) : ReleaseOnly(item);
}

int CVornTreeSelection::ReleaseToggle(CVornTreeItem* item) {
  ManagerWatch alive(this);
  CVornTreeItem* const old = GetLastSelectedItem();
  const bool agreed = m_pTree->OnSelChanging(old, item) != 0;
  if (!alive) return 0;
  if (agreed) {
    if (IsItemValid(item)) item->SetSelected(false);
    Drop(item);
    m_pTree->OnSelChanged(old, item);
    if (!alive) return 0;
    if (m_pLastSelected == item) m_pLastSelected = nullptr;
  }
  SetFocusItem(item);
  return agreed ? 1 : 0;
}

int CVornTreeSelection::ReleaseOnly(CVornTreeItem* item) {
  ManagerWatch alive(this);
  const bool focusIsSelected = m_pFocus != nullptr && Contains(m_pFocus);
  if (!focusIsSelected && IsItemValid(m_pFocus)) m_pFocus->SetSelected(false);
  if (focusIsSelected && m_arrSelected.GetSize() == 1 && m_arrSelected[0] == GetLastSelectedItem()) {
    // A click on the sole selected item: its label may be meant.
    if (m_pTree->IsActiveStyle(STS_EDITLABELS)) {
      CVornTreeOptions* options = AfxGetVornTreeOptions();
      const int duration = options != nullptr ? options->GetLabelEditDuration() : kDefaultEditDuration;
      ::SetTimer(m_pTree->m_hWnd, kEditTimer, static_cast<UINT>(duration), nullptr);
    }
    return 0;
  }
  ClearSelection(item, 0);
  // The hooks are told no old item here, meant.
  if (alive && m_pTree->CanSelectItem(item) && alive && m_pTree->OnSelChanging(nullptr, item) == 1) {
    if (alive && IsItemValid(item)) {
      Take(item);
      m_pTree->OnSelChanged(nullptr, item);
    }
  }
  if (!alive) return 0;
  SetAnchor(item);
  if (::IsWindow(m_pTree->m_hWnd)) ::InvalidateRect(m_pTree->m_hWnd, nullptr, TRUE);
  SetFocusItem(item);
  return 1;
}

// --- Right button ----------------------------------------------------------------------------------

int CVornTreeSelection::OnRButtonDown(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (!IsOwn(item)) return 0;
  ManagerWatch alive(this);
  CVornTreeItem* const old = GetLastSelectedItem();
  StopEditTimer();
  const bool agreed = m_pTree->OnSelChanging(old, item) != 0;
  if (!alive) return 0;
  SetFocusItem(item);
  if (!agreed) return 0;
  if (IsItemValid(item) && !item->IsSelected()) {
    ClearSelection(item, 0);
    if (alive && m_pTree->CanSelectItem(item) && IsItemValid(item)) item->SetSelected(true);
  }
  if (!alive) return 0;
  if (IsItemValid(item)) Add(item);  // in every case, also when it was denied, meant
  m_pTree->OnSelChanged(old, item);
  if (!alive) return 0;
  SetAnchor(item);
  return 1;
}

int CVornTreeSelection::OnRButtonUp(CVornTreeItem*) { return 1; }

// --- Keys ------------------------------------------------------------------------------------------

int CVornTreeSelection::OnKeyDown(CVornTreeItem* item, unsigned int) {
  const vorn::OperationCheck check(m_pTree);
  ReadModifiers();
  if (!IsOwn(item)) return 0;
  ManagerWatch alive(this);
  if (!(m_bShift ? KeyRange(item) : KeyOnly(item))) return 0;
  m_pTree->EnsureVisible(item);
  if (alive) SetFocusItem(item);
  return 1;
}

// 0 on a veto.
int CVornTreeSelection::KeyRange(CVornTreeItem* item) {
  ManagerWatch alive(this);
  CVornTreeItem* const old = GetLastSelectedItem();
  const bool keep = m_bCtrl != FALSE;
  const bool agreed = m_pTree->OnMultiSelChanging(old, item) != 0;
  if (!alive) return 0;
  if (!agreed) {
    SetFocusItem(item);
    return 0;
  }
  SetRangeMode(1);
  if (!keep) ClearSelection(item, 0);
  if (alive) SelectRange(old, item);
  if (alive) SetRangeMode(0);
  if (alive) m_pTree->OnMultiSelChanged(old, item);
  return alive ? 1 : 0;
}

// 0 on a veto.
int CVornTreeSelection::KeyOnly(CVornTreeItem* item) {
  ManagerWatch alive(this);
  CVornTreeItem* const old = GetLastSelectedItem();
  const bool allowed = m_pTree->CanSelectItem(item) != 0;
  if (!alive) return 0;
  const bool agreed = m_pTree->OnSelChanging(old, item) != 0;
  if (!alive) return 0;
  if (!agreed) {
    SetFocusItem(item);
    return 0;
  }
  ClearSelection(item, 0);
  if (!alive) return 0;
  if (allowed && IsItemValid(item)) Take(item);
  m_pTree->OnSelChanged(old, item);
  if (!alive) return 0;
  SetAnchor(item);
  return 1;
}

int CVornTreeSelection::OnKeyUp(CVornTreeItem*, unsigned int) { return 1; }
