// CVornTreeCtrl: insertion, removal and moving of items.
#include "../../options/VornTreeOptions.h"
#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "../layout/VornTreeOperations.h"
#include "TreeCheck.h"
#include "VornTreeItem.h"
#include "WithMemory.h"

using vorn::RunWithMemory;

// Links and selections of two controls must never mix: an item of another one counts as no item
// wherever something would be changed.
bool CVornTreeCtrl::IsOwnItem(const CVornTreeItem* item) const {
  return IsItemValid(item) && item->m_pTree == this;
}

// The place is not compared with the parent when the parent is asked for as STI_ROOT or null.
bool CVornTreeCtrl::IsPlaceValid(CVornTreeItem* requestedParent, CVornTreeItem* insertAfter) const {
  if (insertAfter == STI_FIRST || insertAfter == STI_LAST || insertAfter == nullptr) return true;
  if (!IsOwnItem(insertAfter)) return false;
  return requestedParent == nullptr || requestedParent == STI_ROOT ||
         insertAfter->m_pParent == requestedParent;
}

void CVornTreeCtrl::Place(CVornTreeItem* item, CVornTreeItem* parent, CVornTreeItem* insertAfter) {
  if (insertAfter == STI_FIRST) {
    parent->InsertFirst(item, nullptr);
    return;
  }
  // A place that was let through although it lies under another parent means the end.
  const bool behind = insertAfter != STI_LAST && insertAfter != nullptr && insertAfter->m_pParent == parent;
  parent->InsertAfter(item, behind ? insertAfter : nullptr);
}

CVornTreeItem* CVornTreeCtrl::InsertItem(const wchar_t* text, int image, int selectedImage,
                                         CVornTreeItem* parent, CVornTreeItem* insertAfter,
                                         unsigned __int64 data) {
  const vorn::OperationCheck check(this);
  if (m_pOptions == nullptr) return nullptr;
  CVornTreeItem* const requestedParent = parent;
  parent = ResolveRoot(parent);
  if (!IsOwnItem(parent)) return nullptr;
  MakeOptionsCurrent();

  CVornTreeItem* item = new CVornTreeItem(this);
  if (item == nullptr) return nullptr;
  item->m_nHeight = m_pOptions->GetDefaultHeight();
  item->SetImages(image, selectedImage);
  item->SetData(data);
  if (!IsPlaceValid(requestedParent, insertAfter)) {
    delete item;
    return nullptr;
  }
  const unsigned int announced = parent->GetState() & STIS_HASCHILDREN;
  Place(item, parent, insertAfter);
  InitializeItemFont(item);
  if (!IsItemValid(item)) return nullptr;
  if (!RunWithMemory([&] { item->SetText(text); })) {
    ForgetSubtree(item);
    item->Detach(true);
    delete item;
    if (IsItemValid(parent) && parent->m_pFirstChild == nullptr) parent->ModifyState(0, announced);
    return nullptr;
  }
  m_bNeedLayout = TRUE;
  parent = item->m_pParent;
  if (parent == nullptr || !parent->IsExpanded() || m_nRedrawLock != 0) return item;
  ShowInsertion(item, parent);
  return IsItemValid(item) ? item : nullptr;
}

// Lays out after an insertion under an open parent, and repaints if the new row shows.
void CVornTreeCtrl::ShowInsertion(CVornTreeItem* item, CVornTreeItem* parent) {
  CVornTreeItem* prev = GetPrevVisibleItem(item);
  CVornTreeItem* next = GetNextVisibleItem(item);
  const bool hasWindow = ::IsWindow(m_hWnd) != FALSE;
  const bool ownThread = OwnsThread();
  if (hasWindow) ::GetClientRect(m_hWnd, m_rcClient);
  if (ownThread) {
    CalcLayout();
  } else if (hasWindow) {
    ::PostMessageW(m_hWnd, kUpdateTreeMessage, 0, 0);
  }
  ++m_nRedrawLock;
  m_bNeedLayout = FALSE;
  const bool isOpen = IsItemValid(parent) && parent->IsExpanded();
  const bool shows = prev != nullptr || next != nullptr ? IsDisplayItem(prev) || IsDisplayItem(next) : isOpen;
  if (hasWindow && ::IsWindow(m_hWnd) && shows) {
    ::InvalidateRect(m_hWnd, nullptr, TRUE);
    if (ownThread) ::UpdateWindow(m_hWnd);
  }
  --m_nRedrawLock;
}

CVornTreeItem* CVornTreeCtrl::InsertItem(STINSERTSTRUCT* insert) {
  const vorn::OperationCheck check(this);
  if (insert == nullptr) return nullptr;
  const STITEM record = insert->item;  // hooks may change the host's
  CString text;
  if ((record.mask & STIF_TEXT) && record.cchTextMax >= 1 && record.pszText != nullptr) {
    const int length = static_cast<int>(wcsnlen(record.pszText, record.cchTextMax));
    if (!RunWithMemory([&] { text = CString(record.pszText, length); })) return nullptr;
  }
  const int image = record.mask & STIF_IMAGE ? record.iImage : -1;
  const int selectedImage = record.mask & STIF_SELECTEDIMAGE ? record.iSelectedImage : -1;
  const LPARAM data = record.mask & STIF_PARAM ? record.lParam : 0;
  CVornTreeItem* item = InsertItem(text, image, selectedImage, insert->hParent, insert->hInsertAfter,
                                   static_cast<unsigned __int64>(data));
  if (item == nullptr) return nullptr;

  const bool hold = IsInDisplayList(GetPrevVisibleItem(item)) || IsDisplayItem(GetNextVisibleItem(item));
  if (hold) SetRedraw(FALSE);
  if (record.mask & STIF_STATE) {
    ApplyState(item, record);
    const bool hide = (record.stateMask & STIS_HIDDEN) && record.state > 127;  // any higher bit, meant
    if (hide && IsItemValid(item)) SetItemVisibility(item, 0);
  }
  if ((record.mask & STIF_CHILDREN) && record.cChildren == 1 && IsItemValid(item)) {
    item->ModifyState(0, STIS_HASCHILDREN);
  }
  if (hold) SetRedraw(TRUE);
  return IsItemValid(item) ? item : nullptr;
}

// State bits of a record can only be turned on, and only these three.
void CVornTreeCtrl::ApplyState(CVornTreeItem* item, const STITEM& record) {
  const unsigned int on = record.state & record.stateMask;
  if (on & STIS_SELECTED) SelectItem(item, 1);
  if (on & STIS_EXPANDED) Expand(item, STE_EXPAND);
  if (on & STIS_CHECKED) SetItemCheck(item, 1);
}

// Takes every item of a subtree out of the selection.
void CVornTreeCtrl::ForgetSubtree(CVornTreeItem* item) {
  CVornTreeOperations::Walk(item, [this](CVornTreeItem* below) {
    if (m_pSelection != nullptr) m_pSelection->UpdateSelection(STUS_ITEMREMOVED, below);
    return 1;
  });
}

int CVornTreeCtrl::DeleteItem(CVornTreeItem* item) {
  const vorn::OperationCheck check(this);
  if (!IsOwnItem(item)) return 0;
  if (item == m_pRoot) return EmptyTree();
  m_pFirstDisplay = m_pLastDisplay = nullptr;
  const bool isDocument = item->IsTopLevelItem() != 0;
  SetRedraw(FALSE);
  ForgetSubtree(item);
  if (isDocument && m_pSelection != nullptr) m_pSelection->OnItemRemoved(item);
  if (IsItemValid(item)) OnDeleteItem(item);
  if (IsItemValid(item)) {
    // The host may have selected below the item meanwhile.
    ForgetSubtree(item);
    item->Detach(true);
    delete item;
  }
  ForgetDeadItems();
  m_pFirstDisplay = m_pLastDisplay = nullptr;
  m_bNeedLayout = TRUE;
  SetRedraw(TRUE);
  return 1;
}

int CVornTreeCtrl::EmptyTree() {
  CVornTreeItem* document = m_pSelection != nullptr ? GetActiveDocItem() : nullptr;
  if (!DeleteAllItems(STI_ROOT)) return 0;
  if (m_pSelection != nullptr && GetActiveDocItem() != nullptr) m_pSelection->OnItemRemoved(document);
  return 1;
}

int CVornTreeCtrl::DeleteAllItems(CVornTreeItem* parent) {
  const vorn::OperationCheck check(this);
  if (parent == nullptr || m_pSelection == nullptr) return 0;
  parent = ResolveRoot(parent);
  if (!IsOwnItem(parent)) return 0;
  OnDeleteItem(parent == m_pRoot ? STI_ROOT : parent);
  m_pFirstDisplay = m_pLastDisplay = nullptr;
  if (!IsItemValid(parent)) return 1;
  SetRedraw(FALSE);
  OnRowsChanged();
  // Read anew each time: a sibling, or the parent, may be a shortcut of the one that goes, and go with it.
  // No hook runs in here.
  while (IsItemValid(parent) && parent->m_pLastChild != nullptr) {
    CVornTreeItem* const child = parent->m_pLastChild;
    ForgetSubtree(child);
    child->Detach(true);
    delete child;
  }
  ForgetDeadItems();
  m_bNeedLayout = TRUE;
  SetRedraw(TRUE);
  return 1;
}

int CVornTreeCtrl::MoveItem(CVornTreeItem* parent, CVornTreeItem* item, CVornTreeItem* insertAfter) {
  const vorn::OperationCheck check(this);
  parent = ResolveRoot(parent);
  if (!IsOwnItem(parent) || !IsOwnItem(item)) return 0;
  if (insertAfter != STI_FIRST && insertAfter != STI_LAST) {
    if (!IsOwnItem(insertAfter) || insertAfter->m_pParent != parent) return 0;
  }
  // Below itself there is no place: the subtree would hang on nothing.
  if (parent->IsDescendantOf(item)) return 0;
  if (insertAfter == item) insertAfter = item->m_pPrevSibling != nullptr ? item->m_pPrevSibling : STI_FIRST;
  item->Detach(false);
  Place(item, parent, insertAfter);
  InvalidateAll();
  return 1;
}

CVornTreeItem* CVornTreeCtrl::SetItemFamily(CVornTreeItem* item, CVornTreeItem* parent,
                                            CVornTreeItem* insertAfter) {
  const vorn::OperationCheck check(this);
  // An item that has a place already would hang on two.
  const bool isLoose = IsOwnItem(item) && item != m_pRoot && item->m_pParent == nullptr;
  if (!isLoose) return nullptr;
  if (!IsPlaceValid(parent, insertAfter)) {
    delete item;
    return nullptr;
  }
  CVornTreeItem* resolved = parent == nullptr ? m_pRoot : ResolveRoot(parent);
  if (!IsOwnItem(resolved) || resolved->IsDescendantOf(item)) return nullptr;
  Place(item, resolved, insertAfter);
  return item;
}
