// A tree control whose hooks are recorded and answered by the test, scenes from one line of text, and
// the state of a tree as one line of text.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "VornComCtl.h"
#include "support/recorder.h"

namespace support {

// Marks: + expanded, ! hidden, * selected, @ focus, = checked, ~ shortcut, # announced children.
//
//   TestTree tree;
//   tree.Build("root [a+ [a1 a2] b]");
//   tree.SelectItem(tree["a1"]);
//   EXPECT_LOG(tree.log, "OnSelChanging - a1\nOnSelChanged - a1");
class TestTree : public CVornTreeCtrl {
 public:
  // What a hook answers; unset: 1 (0 for OnSelectDropTargetFromTreeCtrl). Runs inside the hook and may do
  // anything.
  using Answer = std::function<int(const std::string& hook, CVornTreeItem* first, CVornTreeItem* second)>;

  TestTree() = default;

  // Adds the items of a scene below the root. Expands, hides, checks and selects by the marks. Nothing is
  // recorded meanwhile.
  void Build(const std::string& scene);
  // The first item with this label, anywhere; null if there is none.
  CVornTreeItem* operator[](const std::string& label);
  // The whole tree in the notation of Build.
  std::string Text();
  // The labels of all rows, with blanks between them.
  std::string Rows();
  // The labels of the selected items in tree order.
  std::string Selected();
  // Adds one item.
  CVornTreeItem* Add(const std::string& label, CVornTreeItem* parent = STI_ROOT,
                     CVornTreeItem* after = STI_LAST);
  // The label of an item; "-" for null, "root" for the root, "?" for any other invalid one.
  std::string Name(CVornTreeItem* item);

  Answer answer;
  Recorder log;
  bool recording = true;

  // What hosts reach by deriving.
  using CVornTreeCtrl::BeginLabelEdit;
  using CVornTreeCtrl::CalcLayout;
  using CVornTreeCtrl::DetachImageList;
  using CVornTreeCtrl::DoScroll;
  using CVornTreeCtrl::EndLabelEdit;
  using CVornTreeCtrl::GetItemSize;
  using CVornTreeCtrl::GetNextVisibleItem;
  using CVornTreeCtrl::GetSize;
  using CVornTreeCtrl::LoadConfiguration;
  using CVornTreeCtrl::NotifyParent;
  using CVornTreeCtrl::OnTypeAhead;
  using CVornTreeCtrl::SetItemFamily;
  using CVornTreeCtrl::UpdateItem;
  using CVornTreeCtrl::UpdateScrollBar;
  using CVornTreeCtrl::UpdateTree;

  int OnSelChanging(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnSelChanged(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnMultiSelChanging(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnMultiSelChanged(CVornTreeItem* old, CVornTreeItem* item) override;
  int OnItemIconClic(CVornTreeItem* item, int flags) override;
  int OnItemExpanding(CVornTreeItem* item) override;
  int OnItemExpanded(CVornTreeItem* item) override;
  int OnItemDblClk(CVornTreeItem* item) override;
  void OnDeleteItem(CVornTreeItem* item) override;
  int OnBeginLabelEdit(CVornTreeItem* item) override;
  int OnEndLabelEdit(CVornTreeItem* item, const wchar_t* text) override;
  int OnChecking(CVornTreeItem* item) override;
  int OnChecked(CVornTreeItem* item) override;
  int OnClearSelection(CVornTreeItem* item) override;
  int OnChangeActiveDoc(CVornTreeItem* old, CVornTreeItem* item) override;

 private:
  int Told(const std::string& hook, CVornTreeItem* first);
  int Told(const std::string& hook, CVornTreeItem* first, CVornTreeItem* second);
  int Answered(const std::string& hook, CVornTreeItem* first, CVornTreeItem* second);
};

// The first thing that is wrong with a tree's links, levels and descendant counts or with what its selection
// managers hold, or an empty text.
// exactRows: also the counts of rows, which some operations are meant to leave inexact.
std::string CheckTree(CVornTreeCtrl& tree, bool exactRows = true);

std::string Narrow(const wchar_t* text);
std::wstring Wide(const std::string& text);

}  // namespace support
