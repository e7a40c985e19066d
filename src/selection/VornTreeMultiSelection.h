// The manager of a control whose documents (top-level items) each have a selection of their own.
//
// It decides nothing itself: it finds the document of an item, makes it the active one, and passes the
// operation on to that document's manager. It answers questions for the active document only.
#pragma once

#include "VornSelectionArray.h"
#include "VornTreeSelection.h"

class VORNCOMCTL_API CVornTreeMultiSelection : public CVornTreeSelection {
  DECLARE_DYNAMIC(CVornTreeMultiSelection)

 public:
  explicit CVornTreeMultiSelection(CVornTreeCtrl* tree);
  virtual ~CVornTreeMultiSelection();

  int OnItemAdded(CVornTreeItem* item) override;
  // A document that goes takes its manager with it, and leaves none active.
  int OnItemRemoved(CVornTreeItem* item) override;
  int SelectItem(CVornTreeItem* item, int keepOthers) override;
  int UnselectItem(CVornTreeItem* item, int shortcutsToo) override;
  int OnLButtonDown(CVornTreeItem* item) override;
  int OnLButtonUp(CVornTreeItem* item) override;
  int OnRButtonDown(CVornTreeItem* item) override;
  int OnRButtonUp(CVornTreeItem* item) override;
  // A key that leads into another document empties the one left, unless Shift is down.
  int OnKeyDown(CVornTreeItem* item, unsigned int key) override;
  int OnKeyUp(CVornTreeItem* item, unsigned int key) override;
  void ClearSelection(CVornTreeItem* item, int resetLast) override;
  void UpdateSelection(unsigned int flags, CVornTreeItem* item) override;
  int GetCurrentSelection(CVornTreeItemArray& items) override;
  int GetDraggableItems(CVornTreeItem* item, CVornTreeItemArray& items) override;
  void ReadModifiers() override;
  CVornTreeItem* GetItemHasFocus() override;
  CVornTreeItem* GetLastSelectedItem() override;

  // Makes the document of an item the active one. Hook: OnChangeActiveDoc, which may refuse. 1 if it is
  // active now.
  int ActivateDocument(CVornTreeItem*& item);
  // Clears one manager or, with STST_CLEARALLDOCS, those of all documents without asking.
  void ClearAcrossDocuments(CVornTreeSelection* manager, CVornTreeItem* item, int resetLast);
  // The active document, possibly gone by now; null for none.
  CVornTreeItem* GetActiveDocument() const { return m_pActiveDoc; }
  CVornTreeSelection* GetActiveManager() const { return m_pActiveManager; }

  // As ForgetDead and HoldsMore, for all documents; a document that is gone takes its manager with it.
  void ForgetDeadInAll();
  bool HoldsMoreInAll(long than) const;

 private:
  friend class vorn::TreeWalker;

  template <class Pass>
  int Route(CVornTreeItem* item, Pass pass);
  CVornTreeItem* DocumentOf(CVornTreeItem* item) const;
  void ReleaseOldDocument();
  void Rebuild(CVornTreeItem* item);
  void DeactivateAll();

  // The order of the fields is fixed.
  CVornTreeItem* m_pActiveDoc = nullptr;           // not owned
  CVornTreeSelection* m_pActiveManager = nullptr;  // owned by the array
  CVornSelectionArray m_arrDocuments;
  BOOL m_bDocChanged = FALSE;  // by the last ActivateDocument
};
