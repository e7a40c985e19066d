// A tree control that tells a log of every hook and leaves the answer to the library.
#pragma once

#include <VornComCtl.h>

#include "hook_log.h"

class CLoggedTree : public CVornTreeCtrl {
 public:
  explicit CLoggedTree(CHookLog& log) : m_log(log) {}

  int OnSelChanging(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnSelChanged(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnMultiSelChanging(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnMultiSelChanged(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnItemIconClic(CVornTreeItem* item, int flags) override;
  int OnItemExpanding(CVornTreeItem* item) override;
  int OnItemExpanded(CVornTreeItem* item) override;
  int OnItemDblClk(CVornTreeItem* item) override;
  int OnBeginDrag(CVornTreeItem* item, const CPoint& point) override;
  int OnDragOver(CVornTreeItem* item) override;
  int OnBeginDrop(CVornTreeItemArray& items, CVornTreeItem* target, int copy, int flags) override;
  int OnDrop(CVornTreeItem* item, CVornTreeItem* target) override;
  int OnEndDrop() override;
  void OnDeleteItem(CVornTreeItem* item) override;
  int OnBeginLabelEdit(CVornTreeItem* item) override;
  int OnEndLabelEdit(CVornTreeItem* item, const wchar_t* text) override;
  int OnChecking(CVornTreeItem* item) override;
  int OnChecked(CVornTreeItem* item) override;
  int OnClearSelection(CVornTreeItem* item) override;
  int OnChangeActiveDoc(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnDragAndDropFromTreeCtrl(int action, HWND source) override;
  int OnSelectDropTargetFromTreeCtrl(NMDRAGANDDROP* info) override;
  int OnDropFromTreeCtrl(NMDRAGANDDROP* info) override;

 protected:
  // What a person calls the item: its label in quotes, or a word for none and for the root.
  CString NameOf(CVornTreeItem* item);

 private:
  void Log(LPCWSTR hook, CVornTreeItem* item);
  void Log(LPCWSTR hook, CVornTreeItem* first, CVornTreeItem* second);

  CHookLog& m_log;
};
