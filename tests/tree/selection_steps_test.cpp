// The plain selection manager, operation by operation: what each changes, tells and gives back.
#include <memory>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

class SelectionSteps : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(CheckTree(tree), "");
    tree.log.Clear();
  }

  CVornTreeSelection& Manager() { return *tree.GetSelectionManager(); }
  int Press(const std::string& label, int ctrl = 0, int shift = 0) {
    const CVornSelectionGuard keys(&Manager(), ctrl, shift);
    return Manager().OnLButtonDown(tree[label]);
  }
  int Release(const std::string& label, int ctrl = 0) {
    const CVornSelectionGuard keys(&Manager(), ctrl, 0);
    return Manager().OnLButtonUp(tree[label]);
  }
  // The labels of what the manager lists, in tree order.
  std::string Listed() {
    CVornTreeItemArray items;
    tree.GetCurrentSelection(items);
    std::string labels;
    for (CVornTreeItem* item = tree.GetRootItem()->m_pFirstChild; item != nullptr; item = Next(item)) {
      for (long i = 0; i < items.GetSize(); ++i) {
        if (items[i] == item) labels += (labels.empty() ? "" : " ") + tree.Name(item);
      }
    }
    return labels;
  }
  void Refuse(const std::string& hook) {
    tree.answer = [hook](const std::string& asked, CVornTreeItem*, CVornTreeItem*) {
      return asked == hook ? 0 : 1;
    };
  }

  TestTree tree;

 private:
  CVornTreeItem* Next(CVornTreeItem* item) {
    if (item->m_pFirstChild != nullptr) return item->m_pFirstChild;
    while (item != nullptr && item->m_pNextSibling == nullptr) item = item->m_pParent;
    return item != nullptr ? item->m_pNextSibling : nullptr;
  }
};

// --- A new manager ---------------------------------------------------------------------------------

TEST_F(SelectionSteps, ANewManagerHoldsNothing) {
  CVornTreeSelection manager(&tree);
  EXPECT_TRUE(manager.IsKindOf(RUNTIME_CLASS(CVornTreeSelection)));
  EXPECT_EQ(manager.GetItemHasFocus(), nullptr);
  EXPECT_EQ(manager.GetLastSelectedItem(), nullptr);
  EXPECT_EQ(manager.GetForceShift(), 0);
  EXPECT_EQ(manager.SetForceCtrl(0), 0);
  CVornTreeItemArray items;
  items.Add(nullptr, nullptr);
  EXPECT_EQ(manager.GetCurrentSelection(items), 0);
  EXPECT_EQ(items.GetSize(), 0) << "emptied";
}

TEST_F(SelectionSteps, TheEndOfAManagerLeavesItemsAndFlags) {
  tree.Build("root [a]");
  {
    CVornTreeSelection manager(&tree);
    manager.SelectItem(tree["a"], 0);
  }
  EXPECT_EQ(tree.Text(), "root [a*]");
  EXPECT_EQ(Listed(), "");
}

// --- Items come and go -----------------------------------------------------------------------------

TEST_F(SelectionSteps, OnItemAddedTakesUpWhatCarriesTheFlag) {
  tree.Build("root [a b]");
  tree.ModifyItemState(tree["a"], 0, STIS_SELECTED);
  EXPECT_EQ(Manager().OnItemAdded(tree["a"]), 1);
  EXPECT_EQ(Manager().OnItemAdded(tree["a"]), 1);
  EXPECT_EQ(Manager().OnItemAdded(tree["b"]), 1);
  EXPECT_EQ(Manager().OnItemAdded(nullptr), 1);
  EXPECT_EQ(Listed(), "a");
  EXPECT_EQ(tree.GetSelectedItem(), nullptr) << "the pointers stay";
}

TEST_F(SelectionSteps, OnItemRemovedForgetsTheItemEverywhere) {
  tree.Build("root [a* b*]");
  EXPECT_EQ(Manager().OnItemRemoved(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [a b*@]");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["b"]);
  EXPECT_EQ(Manager().OnItemRemoved(tree["a"]), 0) << "it was not selected any more";
  EXPECT_EQ(Manager().OnItemRemoved(tree["b"]), 1);
  EXPECT_EQ(tree.GetLastSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
  EXPECT_EQ(Manager().OnItemRemoved(nullptr), 0);
  EXPECT_EQ(Listed(), "");
}

TEST_F(SelectionSteps, OnItemRemovedOfAnItemThatOnlyHasTheFocus) {
  tree.Build("root [a* b]");
  Refuse("OnSelChanging");
  Press("b", 1);
  ASSERT_EQ(tree.GetItemHasFocus(), tree["b"]);
  EXPECT_EQ(Manager().OnItemRemoved(tree["b"]), 0);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]);
}

// --- By the host's wish ----------------------------------------------------------------------------

TEST_F(SelectionSteps, SelectItemOfASelectedItemMovesThePointersOnly) {
  tree.Build("root [a* b*]");
  EXPECT_EQ(Manager().SelectItem(tree["a"], 0), 0);
  EXPECT_LOG(tree.log, "");
  EXPECT_EQ(tree.Text(), "root [a*@ b*]");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]);
  EXPECT_EQ(Manager().SelectItem(nullptr, 0), 0);
}

TEST_F(SelectionSteps, SelectItemWithForcedCtrlKeepsTheOthers) {
  tree.Build("root [a* b]");
  const CVornSelectionGuard keys(&Manager(), 1, 0);
  EXPECT_EQ(Manager().SelectItem(tree["b"], 0), 1);
  EXPECT_EQ(Listed(), "a b");
  EXPECT_LOG(tree.log, "OnSelChanging a b\nOnSelChanged a b");
}

TEST_F(SelectionSteps, SelectItemGoesOnAfterARefusedClearing) {
  tree.Build("root [a* b]");
  Refuse("OnClearSelection");
  EXPECT_EQ(Manager().SelectItem(tree["b"], 0), 1);
  EXPECT_EQ(Listed(), "a b");
}

TEST_F(SelectionSteps, SelectItemOfADeniedItemAsksNoHook) {
  tree.Build("root [a* b]");
  tree.ModifyItemState(tree["b"], 0, STIS_NOSELECT);
  EXPECT_EQ(tree.SelectItem(tree["b"]), 1);
  EXPECT_LOG(tree.log, "");
  EXPECT_EQ(Listed(), "a");
  EXPECT_EQ(tree.GetSelectedItem(), tree["b"]);
}

TEST_F(SelectionSteps, AnUnmodifiableItemCanStillBeSelected) {
  tree.Build("root [a]");
  tree.ModifyItemState(tree["a"], 0, STIS_NOMODIFY);
  EXPECT_EQ(Manager().SelectItem(tree["a"], 0), 1);
}

TEST_F(SelectionSteps, UnselectItemOfAnItemThatIsNotSelectedTellsAllTheSame) {
  tree.Build("root [a* b]");
  EXPECT_EQ(Manager().UnselectItem(tree["b"], 0), 1);
  EXPECT_LOG(tree.log, "OnSelChanged b -");
  EXPECT_EQ(Manager().UnselectItem(nullptr, 0), 0);
  EXPECT_EQ(Listed(), "a");
}

TEST_F(SelectionSteps, UnselectItemAsksForNoConsent) {
  tree.Build("root [a*]");
  Refuse("OnSelChanging");
  EXPECT_EQ(Manager().UnselectItem(tree["a"], 0), 1);
  EXPECT_LOG(tree.log, "OnSelChanged a -");
  EXPECT_EQ(tree.Text(), "root [a]");
}

TEST_F(SelectionSteps, UnselectItemTellsOnceForAllItsShortcuts) {
  tree.Build("root [a]");
  CVornTreeItem* const first = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  CVornTreeItem* const second = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  for (CVornTreeItem* item : {tree["a"], first, second}) tree.SelectItem(item, 1);
  tree.log.Clear();
  EXPECT_EQ(Manager().UnselectItem(tree["a"], 1), 1);
  EXPECT_LOG(tree.log, "OnSelChanged a -");
  EXPECT_FALSE(tree.IsItemSelected(first));
  EXPECT_FALSE(tree.IsItemSelected(second));
  EXPECT_EQ(tree.GetSelectedItem(), nullptr) << "the anchor was a shortcut";
}

TEST_F(SelectionSteps, UnselectItemWithoutTheShortcutsLeavesThem) {
  tree.Build("root [a]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  tree.SelectItem(tree["a"]);
  tree.SelectItem(shortcut, 1);
  EXPECT_EQ(Manager().UnselectItem(tree["a"], 0), 1);
  EXPECT_TRUE(tree.IsItemSelected(shortcut));
}

TEST_F(SelectionSteps, ClearSelectionOfTheManagerCanKeepTheAnchor) {
  tree.Build("root [a* b]");
  Manager().ClearSelection(tree["b"], 0);
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["a"]) << "the focus stays in any case";
  EXPECT_LOG(tree.log, "OnClearSelection b");
  Manager().ClearSelection(nullptr, 1);
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]) << "nothing was selected";
}

TEST_F(SelectionSteps, ClearSelectionOfTheControlResetsTheAnchorAndKeepsTheFocus) {
  tree.Build("root [a*]");
  tree.ClearSelection(STI_FIRST);
  EXPECT_LOG(tree.log, "OnClearSelection -");
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["a"]);
}

TEST_F(SelectionSteps, GetCurrentSelectionIntoAListThatSharesIt) {
  tree.Build("root [a* b*]");
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 1);
  EXPECT_EQ(tree.GetCurrentSelection(items), 1);
  EXPECT_EQ(items.GetSize(), 2);
}

// --- A press ---------------------------------------------------------------------------------------

TEST_F(SelectionSteps, APressSelectsAtOnce) {
  tree.Build("root [a* b* c]");
  EXPECT_EQ(Press("c"), 1);
  EXPECT_EQ(Listed(), "c");
  EXPECT_EQ(Release("c"), 0) << "nothing was waiting";
}

TEST_F(SelectionSteps, APressAfterARefusedClearingAdds) {
  tree.Build("root [a* b]");
  Refuse("OnClearSelection");
  EXPECT_EQ(Press("b"), 1);
  EXPECT_EQ(Listed(), "a b");
}

TEST_F(SelectionSteps, APressOnASelectedItemChangesNothingYet) {
  tree.Build("root [a* b*]");
  EXPECT_EQ(Press("a", 1), 0);
  EXPECT_LOG(tree.log, "");
  EXPECT_EQ(tree.Text(), "root [a*@ b*]");
}

TEST_F(SelectionSteps, APressOnASelectedItemOfAnInactiveApplicationWaitsForNothing) {
  tree.Build("root [a* b*]");
  EXPECT_EQ(Press("a"), 0);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]) << "not even the focus moves";
  EXPECT_EQ(Release("a"), 0);
  EXPECT_EQ(Listed(), "a b");
}

TEST_F(SelectionSteps, APressOnWhatIsNoItem) {
  tree.Build("root [a*]");
  for (CVornTreeItem* item : {static_cast<CVornTreeItem*>(nullptr), STI_ROOT, STI_FIRST, STI_LAST}) {
    EXPECT_EQ(Manager().OnLButtonDown(item), 0);
    EXPECT_EQ(Manager().OnRButtonDown(item), 0);
    EXPECT_EQ(Manager().OnKeyDown(item, VK_DOWN), 0);
    EXPECT_EQ(Manager().OnLButtonUp(item), 0);
  }
  EXPECT_EQ(tree.Text(), "root [a*@]");
}

TEST_F(SelectionSteps, ACtrlPressThatIsRefusedTakesTheItemOutOfTheSavedSelection) {
  tree.Build("root [a b c d]");
  Press("a");
  Press("c", 1);
  Press("a", 1);
  Release("a", 1);
  ASSERT_EQ(Listed(), "c") << "a is still in the saved selection";
  Refuse("OnSelChanging");
  EXPECT_EQ(Press("a", 1), 0);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["a"]);
  tree.answer = nullptr;
  EXPECT_EQ(Press("d", 1, 1), 1);
  EXPECT_EQ(Listed(), "c d");
}

TEST_F(SelectionSteps, WhatACtrlPressSavedComesBackWithCtrlAndShift) {
  tree.Build("root [a b c d]");
  Press("a");
  Press("c", 1);
  Press("a", 1);
  Release("a", 1);
  EXPECT_EQ(Press("d", 1, 1), 1);
  EXPECT_EQ(Listed(), "a c d") << "the release does not save";
}

TEST_F(SelectionSteps, ARangeWithoutCtrlIsSaved) {
  tree.Build("root [a b c d e]");
  Press("a");
  Press("b", 0, 1);
  Press("d", 1);
  Press("e", 1, 1);
  EXPECT_EQ(Listed(), "a b d e");
}

TEST_F(SelectionSteps, ARangeWithCtrlIsNotSaved) {
  tree.Build("root [a b c d]");
  Press("a");
  Press("a", 1);
  Press("b", 1);
  Press("d", 1, 1);
  EXPECT_EQ(Listed(), "a b c d");
  Press("b", 1, 1);
  EXPECT_EQ(Listed(), "a b");
}

TEST_F(SelectionSteps, ARefusedClearingInARangeKeepsWhatWasSelected) {
  tree.Build("root [a b c d]");
  Press("d");
  Press("b", 1);
  Refuse("OnClearSelection");
  EXPECT_EQ(Press("a", 0, 1), 1);
  EXPECT_EQ(Listed(), "a b d");
  EXPECT_EQ(Press("c", 1, 1), 1);
  EXPECT_EQ(Listed(), "a b c d");
}

TEST_F(SelectionSteps, ARangeUpwardsTellsItsRowsFromTheTop) {
  tree.Build("root [a b c]");
  Press("c");
  tree.log.Clear();
  Press("a", 0, 1);
  EXPECT_LOG(tree.log, R"(
    OnMultiSelChanging c a
    OnClearSelection a
    OnSelChanging - a
    OnSelChanged - a
    OnSelChanging - b
    OnSelChanged - b
    OnSelChanging - c
    OnSelChanged - c
    OnMultiSelChanged c a)");
}

TEST_F(SelectionSteps, AShiftPressOnTheAnchorSelectsItWithoutAHook) {
  tree.Build("root [a b]");
  Press("a");
  Press("b", 1);
  Press("a", 1);
  Release("a", 1);
  ASSERT_EQ(tree.GetLastSelectedItem(), tree["b"]);
  tree.log.Clear();
  EXPECT_EQ(Press("b", 0, 1), 1);
  EXPECT_LOG(tree.log, "OnMultiSelChanging b b\nOnClearSelection b\nOnMultiSelChanged b b");
  EXPECT_EQ(Listed(), "b");
}

TEST_F(SelectionSteps, AShiftPressOnADeniedAnchorSelectsNothing) {
  tree.Build("root [a b]");
  tree.ModifyItemState(tree["a"], 0, STIS_NOSELECT);
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  EXPECT_EQ(Press("a", 0, 1), 1);
  EXPECT_EQ(Listed(), "");
}

TEST_F(SelectionSteps, ADeniedRowInARangeIsToldOfButNotSelected) {
  tree.Build("root [a b c]");
  tree.ModifyItemState(tree["b"], 0, STIS_NOSELECT);
  Press("a");
  tree.log.Clear();
  Press("c", 0, 1);
  EXPECT_LOG(tree.log, R"(
    OnMultiSelChanging a c
    OnClearSelection c
    OnSelChanging - a
    OnSelChanged - a
    OnSelChanging - b
    OnSelChanged - b
    OnSelChanging - c
    OnSelChanged - c
    OnMultiSelChanged a c)");
  EXPECT_EQ(Listed(), "a c");
}

TEST_F(SelectionSteps, AVetoedRowInARangeIsSkippedAndTheWalkGoesOn) {
  tree.Build("root [a b c]");
  Press("a");
  tree.log.Clear();
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem* item) {
    return hook == "OnSelChanging" && item == tree["b"] ? 0 : 1;
  };
  Press("c", 0, 1);
  EXPECT_EQ(Listed(), "a c");
  EXPECT_LOG(tree.log, R"(
    OnMultiSelChanging a c
    OnClearSelection c
    OnSelChanging - a
    OnSelChanged - a
    OnSelChanging - b
    OnSelChanging - c
    OnSelChanged - c
    OnMultiSelChanged a c)");
}

TEST_F(SelectionSteps, ASelectedRowInARangeIsNotAskedFor) {
  tree.Build("root [a b c]");
  Press("b");
  Press("a", 1);
  tree.log.Clear();
  Manager().SelectRange(tree["a"], tree["c"]);
  EXPECT_LOG(tree.log, "OnSelChanging - c\nOnSelChanged - c");
}

TEST_F(SelectionSteps, ARangeThroughAnAncestor) {
  tree.Build("root [a+ [b c] d]");
  Manager().SelectRange(tree["c"], tree["a"]);
  EXPECT_EQ(Listed(), "a b c");
}

TEST_F(SelectionSteps, ARangeAcrossAFoldedBranchLeavesItsRowsOut) {
  tree.Build("root [a b [x y] c! d]");
  Manager().SelectRange(tree["d"], tree["a"]);
  EXPECT_EQ(Listed(), "a b d");
}

TEST_F(SelectionSteps, ARangeThatDoesNotMeetItsEndGoesToTheLastRow) {
  tree.Build("root [a b [x] c]");
  Manager().SelectRange(tree["a"], tree["x"]);
  EXPECT_EQ(Listed(), "a b c") << "the end lies in a fold";
}

TEST_F(SelectionSteps, ARangeWithoutAnEndIsNone) {
  tree.Build("root [a b]");
  Manager().SelectRange(nullptr, tree["b"]);
  Manager().SelectRange(tree["a"], nullptr);
  Manager().SelectRange(nullptr, nullptr);
  Manager().SetRangeMode(1);
  EXPECT_EQ(Listed(), "");
  EXPECT_LOG(tree.log, "");
}

TEST_F(SelectionSteps, RestoreSelectionBringsBackWhatWasSaved) {
  tree.Build("root [a b c]");
  Press("a");
  Press("b", 1);
  Press("c");
  ASSERT_EQ(Listed(), "c");
  Manager().RestoreSelection();
  EXPECT_EQ(Listed(), "a b");
  EXPECT_EQ(tree.Selected(), "a b");
}

TEST_F(SelectionSteps, RestoreSelectionOfNothingClears) {
  tree.Build("root [a*]");
  Manager().RestoreSelection();
  EXPECT_LOG(tree.log, "OnClearSelection -");
  EXPECT_EQ(Listed(), "");
}

// --- A release -------------------------------------------------------------------------------------

TEST_F(SelectionSteps, AReleaseOfNothingKeepsThePressWaiting) {
  tree.Build("root [a* b*]");
  Press("a", 1);
  EXPECT_EQ(Manager().OnLButtonUp(nullptr), 0);
  EXPECT_EQ(Release("a", 1), 1);
  EXPECT_EQ(Listed(), "b");
}

TEST_F(SelectionSteps, AReleaseOnWhatIsNoItemEndsTheWaiting) {
  tree.Build("root [a* b*]");
  Press("a", 1);
  EXPECT_EQ(Manager().OnLButtonUp(STI_LAST), 0);
  EXPECT_EQ(Release("a", 1), 0);
  EXPECT_EQ(Listed(), "a b");
}

TEST_F(SelectionSteps, AReleaseWithoutAFocusSelectsTheItem) {
  tree.Build("root [a* b*]");
  Press("a", 1);
  Manager().OnItemRemoved(tree["a"]);
  ASSERT_EQ(tree.GetItemHasFocus(), nullptr);
  EXPECT_EQ(Release("b"), 1);
  EXPECT_EQ(Listed(), "b");
}

TEST_F(SelectionSteps, ARefusedCtrlReleaseKeepsTheItemSelected) {
  tree.Build("root [a* b*]");
  Press("a", 1);
  Refuse("OnSelChanging");
  EXPECT_EQ(Release("a", 1), 0);
  EXPECT_EQ(tree.Text(), "root [a*@ b*]");
  EXPECT_LOG(tree.log, "OnSelChanging b a");
}

TEST_F(SelectionSteps, ACtrlReleaseOfAnotherItemThanTheAnchorKeepsTheAnchor) {
  tree.Build("root [a* b*]");
  Press("a", 1);
  EXPECT_EQ(Release("a", 1), 1);
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["b"]);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["a"]);
}

TEST_F(SelectionSteps, AReleaseOnOneOfSeveralLeavesThatAloneAndTellsNoOldItem) {
  tree.Build("root [a* b* c*]");
  Press("b", 1);
  EXPECT_EQ(Release("b"), 1);
  EXPECT_EQ(Listed(), "b");
  EXPECT_LOG(tree.log, "OnClearSelection b\nOnSelChanging - b\nOnSelChanged - b");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["b"]);
}

TEST_F(SelectionSteps, AReleaseNeedsAnAnswerOfExactlyOne) {
  tree.Build("root [a* b*]");
  Press("a", 1);
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnSelChanging" ? 2 : 1;
  };
  EXPECT_EQ(Release("a"), 1);
  EXPECT_EQ(Listed(), "");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]) << "the anchor moves all the same";
  EXPECT_LOG(tree.log, "OnClearSelection a\nOnSelChanging - a");
}

TEST_F(SelectionSteps, AReleaseOnADeniedItemSelectsNothing) {
  tree.Build("root [a* b*]");
  Press("a", 1);
  tree.ModifyItemState(tree["a"], 0, STIS_NOSELECT);
  EXPECT_EQ(Release("a"), 1);
  EXPECT_EQ(Listed(), "");
  EXPECT_LOG(tree.log, "OnClearSelection a");
  EXPECT_EQ(tree.GetItemHasFocus(), tree["a"]);
}

TEST_F(SelectionSteps, AReleaseWhoseFocusIsNotListedTakesItsFlag) {
  tree.Build("root [a* b* c]");
  tree.ModifyItemState(tree["c"], 0, STIS_SELECTED);
  Press("c", 1);
  ASSERT_EQ(tree.GetItemHasFocus(), tree["c"]);
  Refuse("OnClearSelection");
  EXPECT_EQ(Release("a"), 1);
  EXPECT_FALSE(tree.IsItemSelected(tree["c"]));
}

TEST_F(SelectionSteps, AReleaseOnTheSoleSelectedItemChangesNothing) {
  tree.Build("root [a* b]");
  Press("a", 1);
  EXPECT_EQ(Release("a"), 0);
  EXPECT_LOG(tree.log, "");
  EXPECT_EQ(tree.Text(), "root [a*@ b]");
}

TEST_F(SelectionSteps, AReleaseOnASoleSelectedItemThatIsNotTheAnchorSelectsItAnew) {
  tree.Build("root [a* b]");
  tree.ModifyItemState(tree["b"], 0, STIS_NOSELECT);
  tree.SelectItem(tree["b"]);
  Press("a", 1);
  EXPECT_EQ(Release("a"), 1);
  EXPECT_LOG(tree.log, "OnClearSelection a\nOnSelChanging - a\nOnSelChanged - a");
}

// --- The right button ------------------------------------------------------------------------------

TEST_F(SelectionSteps, ARightPressOnASelectedItemIsToldAndMovesTheAnchor) {
  tree.Build("root [a* b*]");
  EXPECT_EQ(Manager().OnRButtonDown(tree["a"]), 1);
  EXPECT_LOG(tree.log, "OnSelChanging b a\nOnSelChanged b a");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]);
  EXPECT_EQ(Listed(), "a b") << "it is in the list once";
}

TEST_F(SelectionSteps, ARightPressOnAnotherItemReplacesTheSelection) {
  tree.Build("root [a* b* c]");
  EXPECT_EQ(Manager().OnRButtonDown(tree["c"]), 1);
  EXPECT_LOG(tree.log, "OnSelChanging b c\nOnClearSelection c\nOnSelChanged b c");
  EXPECT_EQ(Listed(), "c");
  EXPECT_EQ(tree.Selected(), "c");
}

TEST_F(SelectionSteps, TheOtherEventsHaveNoEffect) {
  tree.Build("root [a* b]");
  EXPECT_EQ(Manager().OnRButtonUp(tree["b"]), 1);
  EXPECT_EQ(Manager().OnKeyUp(tree["b"], VK_DOWN), 1);
  EXPECT_EQ(Manager().OnRButtonUp(nullptr), 1);
  EXPECT_EQ(Manager().OnKeyUp(nullptr, 0), 1);
  EXPECT_EQ(tree.Text(), "root [a*@ b]");
}

// --- Keys ------------------------------------------------------------------------------------------

TEST_F(SelectionSteps, AKeyToADeniedItemEmptiesTheSelectionAndMovesOn) {
  tree.Build("root [a* b]");
  tree.ModifyItemState(tree["b"], 0, STIS_NOSELECT);
  EXPECT_EQ(Manager().OnKeyDown(tree["b"], VK_DOWN), 1);
  EXPECT_LOG(tree.log, "OnSelChanging a b\nOnClearSelection b\nOnSelChanged a b");
  EXPECT_EQ(Listed(), "");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["b"]);
}

TEST_F(SelectionSteps, AKeyToASelectedItemSelectsItAnew) {
  tree.Build("root [a* b*]");
  EXPECT_EQ(Manager().OnKeyDown(tree["a"], VK_UP), 1);
  EXPECT_LOG(tree.log, "OnSelChanging b a\nOnClearSelection a\nOnSelChanged b a");
  EXPECT_EQ(Listed(), "a");
}

TEST_F(SelectionSteps, AShiftKeyWithoutAnAnchorSelectsNothing) {
  tree.Build("root [a b]");
  const CVornSelectionGuard keys(&Manager(), 0, 1);
  EXPECT_EQ(Manager().OnKeyDown(tree["b"], VK_DOWN), 1);
  EXPECT_LOG(tree.log, "OnMultiSelChanging - b\nOnClearSelection b\nOnMultiSelChanged - b");
  EXPECT_EQ(Listed(), "");
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]);
  EXPECT_EQ(tree.GetLastSelectedItem(), nullptr) << "the anchor does not move";
}

TEST_F(SelectionSteps, ARefusedShiftKeyMovesTheFocus) {
  tree.Build("root [a* b]");
  Refuse("OnMultiSelChanging");
  const CVornSelectionGuard keys(&Manager(), 0, 1);
  EXPECT_EQ(Manager().OnKeyDown(tree["b"], VK_DOWN), 0);
  EXPECT_LOG(tree.log, "OnMultiSelChanging a b");
  EXPECT_EQ(tree.Text(), "root [a* b@]");
}

TEST_F(SelectionSteps, AShiftKeyDoesNotSave) {
  tree.Build("root [a b c d]");
  Press("a");
  {
    const CVornSelectionGuard keys(&Manager(), 0, 1);
    Manager().OnKeyDown(tree["c"], VK_DOWN);
  }
  ASSERT_EQ(Listed(), "a b c");
  Press("d", 1, 1);
  EXPECT_EQ(Listed(), "a b c d") << "the range of the click, nothing else";
  Press("b", 1, 1);
  EXPECT_EQ(Listed(), "a b");
}

// --- Guards ----------------------------------------------------------------------------------------

TEST_F(SelectionSteps, GuardsMayEndInAnyOrderAndOutliveTheirManager) {
  tree.Build("root [a]");
  auto first = std::make_unique<CVornSelectionGuard>(&Manager(), 1, 0);
  auto second = std::make_unique<CVornSelectionGuard>(&Manager(), 0, 1);
  auto third = std::make_unique<CVornSelectionGuard>(&Manager(), 1, 1);
  second.reset();
  EXPECT_EQ(Manager().GetForceShift(), 0) << "as it was before the second";
  first.reset();
  tree.EnableSelectionByDocuments(1);
  third.reset();
  EXPECT_EQ(Manager().SetForceCtrl(0), 0);
  EXPECT_EQ(Manager().GetForceShift(), 0);
}

// --- Draggable items -------------------------------------------------------------------------------

class Draggable : public SelectionSteps {
 protected:
  std::string From(CVornTreeItem* item) {
    CVornTreeItemArray items;
    result = Manager().GetDraggableItems(item, items);
    std::string labels;
    for (long i = 0; i < items.GetSize(); ++i) labels += (labels.empty() ? "" : " ") + tree.Name(items[i]);
    return labels;
  }
  int result = -1;
};

TEST_F(Draggable, DoNotLieInAFold) {
  tree.Build("root [a [x*] b+ [y*]]");
  EXPECT_EQ(From(STI_ROOT), "y");
  EXPECT_EQ(result, 1);
  EXPECT_EQ(From(tree.GetRootItem()), "y");
  EXPECT_EQ(From(tree["a"]), "") << "no rows below it";
  EXPECT_EQ(result, 1);
}

TEST_F(Draggable, AreTheTopmostOfEachBranch) {
  tree.Build("root [a+* [x*] b+ [y+ [z*]]]");
  EXPECT_EQ(From(STI_ROOT), "a z");
  EXPECT_EQ(From(tree["x"]), "x") << "a start of its own";
}

TEST_F(Draggable, AFirstChildIsTakenHiddenOrNotUnlikeTheOthers) {
  tree.Build("root [a+ [x* y* z* w*]]");
  tree.SetItemVisibility(tree["x"], 0);
  tree.SetItemVisibility(tree["z"], 0);
  EXPECT_EQ(From(STI_ROOT), "x y w");
}

TEST_F(Draggable, ADeniedItemGivesWayToWhatIsBelow) {
  tree.Build("root [a+* [x*] b*]");
  tree.ModifyItemState(tree["a"], 0, STIS_NODRAG);
  EXPECT_EQ(From(STI_ROOT), "x b");
  tree.ModifyItemState(tree["a"], 0, STIS_NOMODIFY);
  EXPECT_EQ(From(STI_ROOT), "b") << "it keeps its children, too";
}

TEST_F(Draggable, AreAppended) {
  tree.Build("root [a*]");
  CVornTreeItemArray items;
  items.Add(tree["a"], nullptr);
  Manager().GetDraggableItems(STI_ROOT, items);
  EXPECT_EQ(items.GetSize(), 2);
  EXPECT_EQ(Manager().GetDraggableItems(STI_LAST, items), 0);
  EXPECT_EQ(items.GetSize(), 2);
}

// --- Updating --------------------------------------------------------------------------------------

TEST_F(SelectionSteps, ARebuildTakesUpEveryFlag) {
  tree.Build("root [a [x] b! [y]]");
  for (const char* label : {"x", "b", "y"}) tree.ModifyItemState(tree[label], 0, STIS_SELECTED);
  tree.UpdateSelection(nullptr, STUS_REBUILD);
  EXPECT_EQ(Listed(), "x b y");
}

TEST_F(SelectionSteps, AnUpdateForcesOnBeforeOff) {
  tree.UpdateSelection(nullptr, STUS_CTRLON | STUS_CTRLOFF);
  EXPECT_EQ(Manager().SetForceCtrl(0), 1);
  tree.UpdateSelection(nullptr, STUS_SHIFTON | STUS_CTRLON);
  tree.UpdateSelection(nullptr, STUS_CTRLOFF);
  EXPECT_EQ(Manager().SetForceCtrl(0), 0);
  EXPECT_EQ(Manager().GetForceShift(), 1) << "each key for itself";
}

TEST_F(SelectionSteps, AnUpdateTakesUpRatherThanForgets) {
  tree.Build("root [a]");
  tree.ModifyItemState(tree["a"], 0, STIS_SELECTED);
  tree.UpdateSelection(tree["a"], STUS_ITEMADDED | STUS_ITEMREMOVED);
  EXPECT_EQ(Listed(), "a");
  tree.UpdateSelection(nullptr, STUS_ITEMADDED);
  tree.UpdateSelection(STI_ROOT, STUS_ITEMREMOVED);
  tree.UpdateSelection(tree["a"], STUS_ACTIVATE | STUS_NOACTIVE);
  EXPECT_EQ(Listed(), "a") << "what only documents know is passed over";
}

// --- The control's side ----------------------------------------------------------------------------

TEST_F(SelectionSteps, TypesComeAndGoByTheirBits) {
  EXPECT_EQ(tree.ModifySelectionType(0, 0), unsigned{STST_SINGLE});
  EXPECT_EQ(tree.ModifySelectionType(STST_SINGLE, STST_SINGLE | STST_CLEARALLDOCS), unsigned{STST_SINGLE});
  EXPECT_EQ(tree.GetSelectionType(), unsigned{STST_SINGLE | STST_CLEARALLDOCS}) << "removed before added";
  EXPECT_EQ(tree.ModifySelectionType(STST_SINGLE | STST_CLEARALLDOCS, 0),
            unsigned{STST_SINGLE | STST_CLEARALLDOCS});
  EXPECT_EQ(tree.GetSelectionType(), 0u);
  EXPECT_EQ(tree.IsSingleSelection(), 0);
  EXPECT_EQ(tree.IsMultipleSelection(), 0);
  tree.EnableMultipleSelection(1);
  EXPECT_EQ(tree.IsMultipleSelection(), 1);
  EXPECT_EQ(tree.IsSingleSelection(), 0);
  tree.EnableMultipleSelection(0);
  EXPECT_EQ(tree.IsSingleSelection(), 1);
}

TEST_F(SelectionSteps, OnlyAnArgumentOfOneTurnsOn) {
  for (int other : {0, 2, -1}) {
    tree.EnableMultipleSelection(1);
    tree.EnableClearSelectionWithEmptyArea(1);
    tree.EnableSelectionByDocuments(1);
    EXPECT_EQ(tree.GetSelectionType(), unsigned{STST_MULTIPLE | STST_CLEARONEMPTY | STST_BYDOCUMENTS});
    EXPECT_EQ(tree.IsClearSelectionWithEmptyArea(), 1);
    EXPECT_EQ(tree.IsSelectionByDocuments(), 1);
    tree.EnableMultipleSelection(other);
    tree.EnableClearSelectionWithEmptyArea(other);
    tree.EnableSelectionByDocuments(other);
    EXPECT_EQ(tree.GetSelectionType(), unsigned{STST_SINGLE});
  }
}

TEST_F(SelectionSteps, AutoSelectionIsAStoredSwitch) {
  EXPECT_EQ(tree.IsAutoSelectionEnabled(), 1);
  EXPECT_EQ(tree.EnableAutoSelection(0), 1);
  EXPECT_EQ(tree.IsAutoSelectionEnabled(), 0);
  EXPECT_EQ(tree.EnableAutoSelection(5), 0);
  EXPECT_EQ(tree.IsAutoSelectionEnabled(), 5);
}

TEST_F(SelectionSteps, SelectOfAHiddenDocumentWithoutAnActiveOneSelects) {
  tree.Build("root [d1! [a]]");
  EXPECT_EQ(tree.SelectItem(tree["a"]), 1);
  EXPECT_EQ(Listed(), "a");
}

TEST_F(SelectionSteps, SelectOfAHiddenDocumentThatIsTheActiveOneSelects) {
  tree.Build("root [d1+ [a* b]]");
  tree.SetItemVisibility(tree["d1"], 0);
  EXPECT_EQ(tree.SelectItem(tree["b"]), 1);
  EXPECT_EQ(Listed(), "b");
}

TEST_F(SelectionSteps, SelectOfADocumentWhoseLockWishesItHiddenClaimsSuccess) {
  tree.Build("root [d1+ [a*] d2+ [b]]");
  tree.LockItemVisibility(tree["d2"], 1);
  tree.SetItemVisibility(tree["d2"], 0);
  EXPECT_EQ(tree.SelectItem(tree["b"]), 1);
  EXPECT_EQ(Listed(), "a");
}

TEST_F(SelectionSteps, SelectByCodeWithCtrlForcedLeavesTheForcesAsTheyWere) {
  tree.Build("root [a* b]");
  Manager().SetForceShift(1);
  EXPECT_EQ(tree.Select(tree["b"], STSEL_ADD), 0);
  EXPECT_EQ(Manager().GetForceShift(), 1);
  EXPECT_EQ(Manager().SetForceCtrl(0), 0);
  EXPECT_EQ(Listed(), "a b");
}

TEST_F(SelectionSteps, SelectByCodeOfNothing) {
  tree.Build("root [a*]");
  EXPECT_EQ(tree.Select(nullptr, STSEL_FIRSTVISIBLE), 1) << "always";
  for (unsigned code : {STSEL_DROPHILITE, STSEL_SELECTFIRSTVISIBLE, STSEL_SELECT, STSEL_ADD, STSEL_UNSELECT,
                        STSEL_UNSELECTWITHSHORTCUTS}) {
    EXPECT_EQ(tree.Select(nullptr, code), 0);
  }
  EXPECT_LOG(tree.log, "");
  EXPECT_EQ(Listed(), "a");
}

TEST_F(SelectionSteps, ItemsOfAnotherControlAreLeftAlone) {
  TestTree other;
  other.Build("root [x* y]");
  CVornTreeItem* const x = other["x"];
  tree.Build("root [a*]");
  EXPECT_EQ(tree.SelectItem(other["y"]), 0);
  for (unsigned code : {STSEL_SELECT, STSEL_ADD, STSEL_UNSELECT, STSEL_UNSELECTWITHSHORTCUTS}) {
    EXPECT_EQ(tree.Select(other["y"], code), 0);
    EXPECT_EQ(tree.Select(x, code), 0);
  }
  EXPECT_EQ(tree.UnselectItem(x), 0);
  tree.UpdateSelection(x, STUS_ITEMADDED);
  tree.UpdateSelection(x, STUS_ITEMREMOVED);
  EXPECT_EQ(Manager().OnLButtonDown(x), 0);
  EXPECT_EQ(Manager().OnLButtonDown(other["y"]), 0);
  EXPECT_EQ(Manager().OnRButtonDown(x), 0);
  EXPECT_EQ(Manager().OnKeyDown(x, VK_DOWN), 0);
  CVornTreeItemArray items;
  EXPECT_EQ(Manager().GetDraggableItems(x, items), 0);
  EXPECT_EQ(other.Text(), "root [x*@ y]");
  EXPECT_EQ(tree.Text(), "root [a*@]");
  EXPECT_EQ(CheckTree(other), "");
}

}  // namespace
