// The selection manager: decides what a click, a key or a host call does to the selection.
//
// A control owns one manager and sends all input through it. STIS_SELECTED in an item is the truth;
// the manager keeps an index of the same set, the focus item, and the anchor of ranges. Hooks may veto
// a change of the selection; the focus moves all the same.
//
// Hooks may delete items or put another manager in the place of this one: every operation looks again
// after each hook, and stops where its ground is gone.
#pragma once

#include "../core/VornComCtlApi.h"
#include "../core/VornItemArrays.h"
#include "../tree/VornTreeTypes.h"
#include "ManagerWatch.h"
#include "SelectedItems.h"

class CVornTreeCtrl;

namespace vorn {
class TreeWalker;
}

class VORNCOMCTL_API CVornTreeSelection : public CObject {
  DECLARE_DYNAMIC(CVornTreeSelection)

 public:
  explicit CVornTreeSelection(CVornTreeCtrl* tree);
  virtual ~CVornTreeSelection();

  // --- Virtual operations; the order of the slots is fixed ---

  // Takes up an item that carries STIS_SELECTED. 1.
  virtual int OnItemAdded(CVornTreeItem* item);
  // An item goes, or leaves the selection: forgets it everywhere. 1 if it was selected.
  virtual int OnItemRemoved(CVornTreeItem* item);
  // Selects by the host's wish. 1 if the selection changed; the pointers move in any case.
  virtual int SelectItem(CVornTreeItem* item, int keepOthers);
  virtual int UnselectItem(CVornTreeItem* item, int shortcutsToo);
  // Input on a row. 1 if the selection changed.
  virtual int OnLButtonDown(CVornTreeItem* item);
  virtual int OnLButtonUp(CVornTreeItem* item);
  virtual int OnRButtonDown(CVornTreeItem* item);
  virtual int OnRButtonUp(CVornTreeItem* item);
  // item: the row that the key leads to. key is not used.
  virtual int OnKeyDown(CVornTreeItem* item, unsigned int key);
  virtual int OnKeyUp(CVornTreeItem* item, unsigned int key);
  // Brackets the work on a range; empty.
  virtual void SetRangeMode(int on);
  // Adds the rows from one item through the other. OnSelChanging and OnSelChanged run for each row.
  virtual void SelectRange(CVornTreeItem* from, CVornTreeItem* to);
  // item: for whom OnClearSelection is asked. resetLast: the anchor goes too, if anything was selected.
  virtual void ClearSelection(CVornTreeItem* item, int resetLast);
  // flags: STUS_ bits.
  virtual void UpdateSelection(unsigned int flags, CVornTreeItem* item);
  // Makes items share the list of selected items. 0 and an empty array if there are none.
  virtual int GetCurrentSelection(CVornTreeItemArray& items);
  // Appends the topmost selected rows of each branch that may be dragged. 0 for an invalid item.
  virtual int GetDraggableItems(CVornTreeItem* item, CVornTreeItemArray& items);
  // Puts back the selection kept for ranges with Ctrl and Shift.
  virtual void RestoreSelection();
  // Reads Ctrl and Shift: the keyboard in multiple selection, and what is forced.
  virtual void ReadModifiers();
  virtual CVornTreeItem* GetItemHasFocus();
  virtual CVornTreeItem* GetLastSelectedItem();

  // --- The rest ---

  // Counts a key as down; each returns the earlier value.
  int SetForceCtrl(int force);
  int SetForceShift(int force);
  int GetForceCtrl() const { return m_bForceCtrl; }
  int GetForceShift() const { return m_bForceShift; }

  // The one of two items that comes higher in the tree; an ancestor comes before what is below it. Null
  // for the same item, for an invalid one, and for items of different trees.
  static CVornTreeItem* GetFirstInOrder(CVornTreeItem* a, CVornTreeItem* b);

  // Lets go of items that are gone. Without this the memory of one could come to be that of another item,
  // which would then seem to be selected.
  void ForgetDead();
  // How many items ForgetDead looks at, about, and whether there are more than so many.
  long GetHeldCount() const {
    return m_arrSelected.CVornTreeItemUserArray::GetSize() + m_arrSaved.GetSize();  // leaves gathered ones
  }
  bool HoldsMore(long than) const { return GetHeldCount() > than; }

 protected:
  friend class CVornTreeMultiSelection;
  friend class vorn::TreeWalker;

  bool IsOwn(const CVornTreeItem* item) const;
  // Null for an item that a hook has deleted.
  void SetFocusItem(CVornTreeItem* item);
  void SetAnchor(CVornTreeItem* item);
  bool Contains(CVornTreeItem* item);
  void Add(CVornTreeItem* item);
  // Sets the flag and stores the item, if it is still there.
  void Take(CVornTreeItem* item);
  void Drop(CVornTreeItem* item);
  void SaveSelection();
  void StopEditTimer();
  int ClickRange(CVornTreeItem* item);
  int ClickAdd(CVornTreeItem* item, bool allowed);
  int ClickOnly(CVornTreeItem* item, bool allowed);
  int ReleaseToggle(CVornTreeItem* item);
  int ReleaseOnly(CVornTreeItem* item);
  int KeyRange(CVornTreeItem* item);
  int KeyOnly(CVornTreeItem* item);

  // The order of the fields is fixed.
  CVornTreeCtrl* m_pTree;                    // not owned
  CVornTreeItem* m_pLastSelected = nullptr;  // anchor of ranges
  CVornTreeItem* m_pFocus = nullptr;
  BOOL m_bShift = FALSE;
  BOOL m_bCtrl = FALSE;
  BOOL m_bPendingUp = FALSE;      // a press on a selected item waits for the release
  BOOL m_bInClear = FALSE;        // ClearSelection does not ask OnClearSelection
  SelectedItems m_arrSelected;    // by address
  CVornTreeItemArray m_arrSaved;  // for ranges with Ctrl and Shift
  BOOL m_bForceShift = FALSE;
  BOOL m_bForceCtrl = FALSE;
};

// Forces Ctrl and Shift of a manager while both live. A null manager makes it do nothing.
class VORNCOMCTL_API CVornSelectionGuard {
 public:
  CVornSelectionGuard(CVornTreeSelection* manager, int ctrl, int shift);
  ~CVornSelectionGuard();
  CVornSelectionGuard(const CVornSelectionGuard&) = delete;
  CVornSelectionGuard& operator=(const CVornSelectionGuard&) = delete;

 private:
  CVornTreeSelection* m_pManager;
  vorn::ManagerWatch m_alive;
  int m_bCtrl;
  int m_bShift;
};
