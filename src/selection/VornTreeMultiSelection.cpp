#include "../tree/model/TreeCheck.h"
#include "VornTreeMultiSelection.h"

#include "../tree/VornTreeCtrl.h"
#include "../tree/layout/VornTreeOperations.h"
#include "ManagerWatch.h"

using vorn::ManagerWatch;

IMPLEMENT_DYNAMIC(CVornTreeMultiSelection, CVornTreeSelection)

CVornTreeMultiSelection::CVornTreeMultiSelection(CVornTreeCtrl* tree) : CVornTreeSelection(tree) {}

CVornTreeMultiSelection::~CVornTreeMultiSelection() { m_arrDocuments.RemoveAllDocuments(); }

CVornTreeItem* CVornTreeMultiSelection::DocumentOf(CVornTreeItem* item) const {
  return IsOwn(item) ? CVornTreeOperations(m_pTree).GetDocumentOf(item) : nullptr;
}

void CVornTreeMultiSelection::ForgetDeadInAll() {
  if (!IsItemValid(m_pActiveDoc)) {
    m_pActiveDoc = nullptr;
    m_pActiveManager = nullptr;
  }
  ForgetDead();  // ranges that the host asked this object for, past the documents
  m_arrDocuments.RemoveDeadDocuments();
  for (long i = 0; i < m_arrDocuments.GetSize(); ++i) m_arrDocuments[i]->pManager->ForgetDead();
}

bool CVornTreeMultiSelection::HoldsMoreInAll(long than) const {
  than -= m_arrDocuments.GetSize() + GetHeldCount();
  for (long i = 0; than >= 0 && i < m_arrDocuments.GetSize(); ++i) {
    than -= m_arrDocuments[i]->pManager->GetHeldCount();
  }
  return than < 0;
}

// --- The active document ---------------------------------------------------------------------------

// A document item that is selected in its own right loses that when its document is no longer active.
void CVornTreeMultiSelection::ReleaseOldDocument() {
  CVornTreeItem* const old = m_pActiveDoc;
  if (IsItemValid(old) && m_pActiveManager != nullptr && old->IsSelected()) {
    m_pActiveManager->UnselectItem(old, 0);
  }
}

int CVornTreeMultiSelection::ActivateDocument(CVornTreeItem*& item) {
  const vorn::OperationCheck check(m_pTree);
  ManagerWatch alive(this);
  m_bDocChanged = FALSE;
  ReadModifiers();
  CVornTreeItem* const document = DocumentOf(item);
  if (document == nullptr) return 0;
  if (document == m_pActiveDoc) return 1;
  if (m_arrDocuments.FindOrCreateManager(m_pTree, document) == nullptr) return 0;
  if (!m_pTree->OnChangeActiveDoc(m_pActiveDoc, document)) return 0;
  if (!alive) return 0;
  m_bDocChanged = TRUE;
  ReleaseOldDocument();
  if (!alive) return 0;
  // The hooks may have removed the document, and its manager with it.
  CVornTreeSelection* manager = m_arrDocuments.FindOrCreateManager(m_pTree, document);
  if (manager == nullptr) return 0;
  m_pActiveDoc = document;
  m_pActiveManager = manager;
  ReadModifiers();
  return 1;
}

void CVornTreeMultiSelection::DeactivateAll() {
  ManagerWatch alive(this);
  if (IsItemValid(m_pActiveDoc) && !m_pTree->OnChangeActiveDoc(m_pActiveDoc, nullptr)) return;
  if (!alive) return;
  m_bDocChanged = TRUE;
  ReleaseOldDocument();
  if (!alive) return;
  m_pActiveDoc = nullptr;
  m_pActiveManager = nullptr;
}

void CVornTreeMultiSelection::ReadModifiers() {
  CVornTreeSelection::ReadModifiers();
  if (m_pActiveManager == nullptr) return;
  m_pActiveManager->SetForceCtrl(m_bForceCtrl);
  m_pActiveManager->SetForceShift(m_bForceShift);
}

// --- Routing ---------------------------------------------------------------------------------------

// Whether the document could be activated is not asked: after a refusal the call reaches the manager of
// the document that stayed active, meant.
template <class Pass>
int CVornTreeMultiSelection::Route(CVornTreeItem* item, Pass pass) {
  ManagerWatch alive(this);
  CVornTreeItem* const document = DocumentOf(item);
  ActivateDocument(item);
  if (!alive || m_pActiveManager == nullptr) return 0;
  if (!IsItemValid(item) || DocumentOf(item) != document) return 0;
  return pass(*m_pActiveManager);
}

int CVornTreeMultiSelection::OnLButtonDown(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  return Route(item, [item](CVornTreeSelection& manager) { return manager.OnLButtonDown(item); });
}

int CVornTreeMultiSelection::OnLButtonUp(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  return Route(item, [item](CVornTreeSelection& manager) { return manager.OnLButtonUp(item); });
}

int CVornTreeMultiSelection::OnRButtonDown(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  return Route(item, [item](CVornTreeSelection& manager) { return manager.OnRButtonDown(item); });
}

int CVornTreeMultiSelection::OnRButtonUp(CVornTreeItem* item) {
  return Route(item, [item](CVornTreeSelection& manager) { return manager.OnRButtonUp(item); });
}

int CVornTreeMultiSelection::OnKeyUp(CVornTreeItem* item, unsigned int key) {
  return Route(item, [=](CVornTreeSelection& manager) { return manager.OnKeyUp(item, key); });
}

int CVornTreeMultiSelection::OnKeyDown(CVornTreeItem* item, unsigned int key) {
  const vorn::OperationCheck check(m_pTree);
  if (item == nullptr) return 0;
  ManagerWatch alive(this);
  CVornTreeSelection* const earlier = m_pActiveManager;
  CVornTreeItem* const earlierDocument = m_pActiveDoc;
  CVornTreeItem* const document = DocumentOf(item);
  ActivateDocument(item);
  if (!alive) return 0;
  if (m_bDocChanged && earlier != nullptr && m_arrDocuments.HasManager(earlier)) {
    ReadModifiers();
    if (!m_bShift) ClearAcrossDocuments(earlier, earlierDocument, 0);
  }
  if (!alive || m_pActiveManager == nullptr) return 0;
  if (!IsItemValid(item) || DocumentOf(item) != document) return 0;
  return m_pActiveManager->OnKeyDown(item, key);
}

// --- The host's wishes -----------------------------------------------------------------------------

int CVornTreeMultiSelection::OnItemAdded(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (item == nullptr) return 0;
  ManagerWatch alive(this);
  ActivateDocument(item);
  return alive && m_pActiveManager != nullptr ? m_pActiveManager->OnItemAdded(item) : 0;
}

int CVornTreeMultiSelection::SelectItem(CVornTreeItem* item, int keepOthers) {
  const vorn::OperationCheck check(m_pTree);
  ManagerWatch alive(this);
  ActivateDocument(item);
  return alive && m_pActiveManager != nullptr ? m_pActiveManager->SelectItem(item, keepOthers) : 0;
}

int CVornTreeMultiSelection::UnselectItem(CVornTreeItem* item, int shortcutsToo) {
  const vorn::OperationCheck check(m_pTree);
  ManagerWatch alive(this);
  ActivateDocument(item);
  return alive && m_pActiveManager != nullptr ? m_pActiveManager->UnselectItem(item, shortcutsToo) : 0;
}

int CVornTreeMultiSelection::OnItemRemoved(CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (!IsItemValid(item)) return 0;
  ManagerWatch alive(this);
  const bool isDocument = item->IsTopLevelItem() != 0;
  const bool activated = ActivateDocument(item) != 0;
  if (!alive) return 0;
  if (activated && isDocument) {
    m_pActiveDoc = nullptr;
    m_pActiveManager = nullptr;
    m_arrDocuments.RemoveDocument(item);
    return 1;
  }
  return m_pActiveManager != nullptr ? m_pActiveManager->OnItemRemoved(item) : 0;
}

void CVornTreeMultiSelection::ClearSelection(CVornTreeItem* item, int resetLast) {
  const vorn::OperationCheck check(m_pTree);
  ManagerWatch alive(this);
  ActivateDocument(item);
  if (alive) ClearAcrossDocuments(m_pActiveManager, item, resetLast);
}

void CVornTreeMultiSelection::ClearAcrossDocuments(CVornTreeSelection* manager, CVornTreeItem* item,
                                                   int resetLast) {
  const vorn::OperationCheck check(m_pTree);
  if (!m_pTree->HasSelectionType(STST_CLEARALLDOCS)) {
    if (manager != nullptr) manager->ClearSelection(item, resetLast);
    return;
  }
  // No hook is asked in this loop: the array stays as it is.
  for (long i = 0; i < m_arrDocuments.GetSize(); ++i) {
    CVornTreeSelection* const each = m_arrDocuments[i]->pManager;
    if (each == nullptr) continue;
    each->m_bInClear = TRUE;
    each->ClearSelection(item, resetLast);
    each->m_bInClear = FALSE;
  }
}

// --- Updating --------------------------------------------------------------------------------------

void CVornTreeMultiSelection::Rebuild(CVornTreeItem* item) {
  if (!IsItemValid(item)) return;
  for (CVornTreeItem* document = m_pTree->m_pRoot->m_pFirstChild; document != nullptr;
       document = document->m_pNextSibling) {
    CVornTreeSelection* const manager = m_arrDocuments.FindOrCreateManager(m_pTree, document);
    if (manager == nullptr) continue;
    CVornTreeOperations::Walk(document, [manager](CVornTreeItem* below) {
      manager->UpdateSelection(STUS_ITEMADDED, below);
      return 1;
    });
  }
  ActivateDocument(item);
}

void CVornTreeMultiSelection::UpdateSelection(unsigned int flags, CVornTreeItem* item) {
  const vorn::OperationCheck check(m_pTree);
  if (m_pTree->m_pRoot == nullptr || m_pTree->m_pRoot->m_pFirstChild == nullptr) return;
  if (flags & (STUS_CTRLON | STUS_CTRLOFF)) SetForceCtrl((flags & STUS_CTRLON) != 0);
  if (flags & (STUS_SHIFTON | STUS_SHIFTOFF)) SetForceShift((flags & STUS_SHIFTON) != 0);
  if (flags & STUS_REBUILD) {
    Rebuild(item);
  } else if (flags & STUS_ACTIVATE) {
    if (IsItemValid(item)) ActivateDocument(item);
  } else if (flags & STUS_NOACTIVE) {
    DeactivateAll();
  } else if (flags & (STUS_ITEMADDED | STUS_ITEMREMOVED)) {
    // The document need not be the active one.
    CVornTreeSelection* const manager = m_arrDocuments.FindOrCreateManager(m_pTree, DocumentOf(item));
    if (manager != nullptr) manager->UpdateSelection(flags, item);
  }
}

// --- Answers for the active document ---------------------------------------------------------------

int CVornTreeMultiSelection::GetCurrentSelection(CVornTreeItemArray& items) {
  return m_pActiveManager != nullptr ? m_pActiveManager->GetCurrentSelection(items) : 0;
}

CVornTreeItem* CVornTreeMultiSelection::GetItemHasFocus() {
  return m_pActiveManager != nullptr ? m_pActiveManager->GetItemHasFocus() : nullptr;
}

CVornTreeItem* CVornTreeMultiSelection::GetLastSelectedItem() {
  return m_pActiveManager != nullptr ? m_pActiveManager->GetLastSelectedItem() : nullptr;
}

int CVornTreeMultiSelection::GetDraggableItems(CVornTreeItem* item, CVornTreeItemArray& items) {
  if (m_pActiveDoc == nullptr || m_pActiveManager == nullptr) return 0;
  CVornTreeItem* document = item == STI_ROOT ? nullptr : DocumentOf(item);
  if (document == nullptr) document = m_pActiveDoc;
  return CVornTreeSelection::GetDraggableItems(document, items);
}
