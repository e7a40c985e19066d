// A tree control whose host answers its hooks with anything, and does anything inside them.
#pragma once

#include <afxwin.h>

#include <functional>

#include "VornComCtl.h"

namespace fuzz {

class HostileTree : public CVornTreeCtrl {
 public:
  // What every hook answers. May do anything but delete this object.
  std::function<int()> answer;

  // What hosts reach by deriving.
  using CVornTreeCtrl::CalcLayout;
  using CVornTreeCtrl::DetachImageList;
  using CVornTreeCtrl::DoScroll;
  using CVornTreeCtrl::EndLabelEdit;
  using CVornTreeCtrl::GetItemSize;
  using CVornTreeCtrl::GetSize;
  using CVornTreeCtrl::LoadConfiguration;
  using CVornTreeCtrl::NotifyParent;
  using CVornTreeCtrl::OnTypeAhead;
  using CVornTreeCtrl::UpdateItem;
  using CVornTreeCtrl::UpdateScrollBar;
  using CVornTreeCtrl::UpdateTree;

  void InitializeItemFont(CVornTreeItem* item) override;
  int IsAllow(CVornTreeItem* item, unsigned long permission) override;
  int OnSelChanging(CVornTreeItem*, CVornTreeItem*) override { return Answer(); }
  int OnSelChanged(CVornTreeItem*, CVornTreeItem*) override { return Answer(); }
  int OnMultiSelChanging(CVornTreeItem*, CVornTreeItem*) override { return Answer(); }
  int OnMultiSelChanged(CVornTreeItem*, CVornTreeItem*) override { return Answer(); }
  int OnItemIconClic(CVornTreeItem*, int) override { return Answer(); }
  int OnItemExpanding(CVornTreeItem*) override { return Answer(); }
  int OnItemExpanded(CVornTreeItem*) override { return Answer(); }
  int OnItemDblClk(CVornTreeItem*) override { return Answer(); }
  int OnBeginDrag(CVornTreeItem*, const CPoint&) override { return Answer(); }
  int OnDragOver(CVornTreeItem*) override { return Answer(); }
  int OnBeginDrop(CVornTreeItemArray&, CVornTreeItem*, int, int) override { return Answer(); }
  int OnDrop(CVornTreeItem*, CVornTreeItem*) override { return Answer(); }
  int OnEndDrop() override { return Answer(); }
  void OnDeleteItem(CVornTreeItem*) override { Answer(); }
  int OnBeginLabelEdit(CVornTreeItem*) override { return Answer(); }
  int OnEndLabelEdit(CVornTreeItem*, const wchar_t*) override { return Answer(); }
  int OnChecking(CVornTreeItem*) override { return Answer(); }
  int OnChecked(CVornTreeItem*) override { return Answer(); }
  int OnClearSelection(CVornTreeItem* item) override;
  int OnChangeActiveDoc(CVornTreeItem*, CVornTreeItem*) override { return Answer(); }

 private:
  int Answer() { return answer ? answer() : 1; }
};

}  // namespace fuzz
