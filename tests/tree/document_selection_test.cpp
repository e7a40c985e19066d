// Selection by documents: each document keeps a selection of its own, and one of them is active.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

class DocumentSelection : public testing::Test {
 protected:
  void SetUp() override { tree.EnableSelectionByDocuments(1); }
  void TearDown() override {
    EXPECT_EQ(CheckTree(tree), "");
    tree.log.Clear();
  }

  void Build(const std::string& scene) {
    tree.Build(scene);
    tree.log.Clear();
  }
  CVornTreeSelection& Manager() { return *tree.GetSelectionManager(); }
  CVornTreeMultiSelection& Documents() { return static_cast<CVornTreeMultiSelection&>(Manager()); }
  int Press(const std::string& label, int ctrl = 0, int shift = 0) {
    const CVornSelectionGuard keys(&Manager(), ctrl, shift);
    return Manager().OnLButtonDown(tree[label]);
  }
  int Key(const std::string& label, int shift = 0) {
    const CVornSelectionGuard keys(&Manager(), 0, shift);
    return Manager().OnKeyDown(tree[label], VK_DOWN);
  }
  long ListedCount() {
    CVornTreeItemArray items;
    tree.GetCurrentSelection(items);
    return items.GetSize();
  }
  void Refuse(const std::string& hook) {
    tree.answer = [hook](const std::string& asked, CVornTreeItem*, CVornTreeItem*) {
      return asked == hook ? 0 : 1;
    };
  }

  TestTree tree;
};

// --- Activation ------------------------------------------------------------------------------------

TEST_F(DocumentSelection, NothingIsActiveAtFirst) {
  Build("root [d1 [a]]");
  EXPECT_TRUE(Manager().IsKindOf(RUNTIME_CLASS(CVornTreeMultiSelection)));
  EXPECT_TRUE(Manager().IsKindOf(RUNTIME_CLASS(CVornTreeSelection)));
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 0);
  EXPECT_EQ(Manager().OnItemRemoved(nullptr), 0);
}

TEST_F(DocumentSelection, AClickInAnUntouchedDocumentActivatesItAndSelects) {
  Build("root [d1+ [a] d2+ [b]]");
  EXPECT_EQ(Press("a"), 1);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc - d1\nOnClearSelection a\nOnSelChanging - a\nOnSelChanged - a");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(Press("b"), 1);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnClearSelection b\nOnSelChanging - b\nOnSelChanged - b");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
}

TEST_F(DocumentSelection, AClickInTheActiveDocumentAsksForNoChange) {
  Build("root [d1+ [a b]]");
  Press("a");
  tree.log.Clear();
  Press("b");
  EXPECT_LOG(tree.log, "OnClearSelection b\nOnSelChanging a b\nOnSelChanged a b");
}

TEST_F(DocumentSelection, AClickLeavesTheSelectionOfTheDocumentLeft) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  Press("b");
  EXPECT_EQ(tree.Selected(), "a b") << "meant: only a key empties the document left";
  EXPECT_EQ(ListedCount(), 1) << "the active document alone answers";
  EXPECT_EQ(tree.GetSelectedItem(), tree["b"]);
}

TEST_F(DocumentSelection, ADocumentComesBackWithItsOwnPointers) {
  Build("root [d1+ [a a2] d2+ [b]]");
  Press("a");
  Press("b");
  const CVornSelectionGuard keys(&Manager(), 0, 1);
  Manager().OnLButtonDown(tree["a2"]);
  EXPECT_EQ(tree.Selected(), "a a2 b") << "the range goes from the document's own anchor";
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["a2"]);
}

TEST_F(DocumentSelection, ARefusedChangeLetsTheClickReachTheOldDocument) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  Refuse("OnChangeActiveDoc");
  EXPECT_EQ(Press("b"), 1);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnClearSelection b\nOnSelChanging a b\nOnSelChanged a b");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(tree.Selected(), "b") << "meant: an item of another document in the selection of this one";
  EXPECT_EQ(tree.GetSelectedItem(), tree["b"]);
}

TEST_F(DocumentSelection, ARefusedFirstChangeLeavesNobodyToReach) {
  Build("root [d1+ [a]]");
  Refuse("OnChangeActiveDoc");
  EXPECT_EQ(Press("a"), 0);
  EXPECT_EQ(Manager().OnLButtonUp(tree["a"]), 0);
  EXPECT_EQ(Manager().OnRButtonDown(tree["a"]), 0);
  EXPECT_EQ(Manager().OnRButtonUp(tree["a"]), 0);
  EXPECT_EQ(Manager().OnKeyDown(tree["a"], VK_DOWN), 0);
  EXPECT_EQ(Manager().OnKeyUp(tree["a"], VK_DOWN), 0);
  EXPECT_EQ(Manager().SelectItem(tree["a"], 0), 0);
  EXPECT_EQ(Manager().UnselectItem(tree["a"], 0), 0);
  EXPECT_EQ(Manager().OnItemAdded(tree["a"]), 0);
  EXPECT_EQ(Manager().OnItemRemoved(tree["a"]), 0);
  tree.ClearSelection(tree["a"]);
  EXPECT_EQ(tree.Selected(), "");
}

TEST_F(DocumentSelection, ADocumentItemLosesItsSelectionWithItsActivity) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("d1");
  Press("a", 1);
  ASSERT_EQ(tree.Selected(), "d1 a");
  tree.log.Clear();
  Press("b");
  EXPECT_LOG(tree.log, R"(
    OnChangeActiveDoc d1 d2
    OnSelChanged d1 -
    OnClearSelection b
    OnSelChanging - b
    OnSelChanged - b)");
  EXPECT_EQ(tree.Selected(), "a b");
}

TEST_F(DocumentSelection, TheEventsThatDoNothingActivateAllTheSame) {
  Build("root [d1+ [a] d2+ [b] d3+ [c]]");
  EXPECT_EQ(Manager().OnRButtonUp(tree["a"]), 1);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(Manager().OnKeyUp(tree["b"], VK_DOWN), 1);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
  EXPECT_EQ(Manager().OnLButtonUp(tree["c"]), 0);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d3"]);
  EXPECT_EQ(Manager().OnRButtonDown(tree["a"]), 1);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
}

TEST_F(DocumentSelection, WhatIsNoItemActivatesNothing) {
  Build("root [d1+ [a]]");
  CVornTreeItem* none = nullptr;
  CVornTreeItem* place = STI_LAST;
  CVornTreeItem* root = tree.GetRootItem();
  EXPECT_EQ(Documents().ActivateDocument(none), 0);
  EXPECT_EQ(Documents().ActivateDocument(place), 0);
  EXPECT_EQ(Documents().ActivateDocument(root), 0) << "the root is no document";
  EXPECT_EQ(Manager().OnLButtonDown(nullptr), 0);
  EXPECT_EQ(Manager().OnKeyDown(nullptr, VK_DOWN), 0);
  EXPECT_EQ(Manager().OnItemAdded(nullptr), 0);
  EXPECT_LOG(tree.log, "");
}

TEST_F(DocumentSelection, ActivateDocumentTellsWhetherItIsActiveNow) {
  Build("root [d1+ [a] d2]");
  CVornTreeItem* item = tree["a"];
  EXPECT_EQ(Documents().ActivateDocument(item), 1);
  EXPECT_EQ(Documents().ActivateDocument(item), 1) << "already";
  EXPECT_LOG(tree.log, "OnChangeActiveDoc - d1");
  item = tree["d2"];
  Refuse("OnChangeActiveDoc");
  EXPECT_EQ(Documents().ActivateDocument(item), 0);
}

// --- Keys ------------------------------------------------------------------------------------------

TEST_F(DocumentSelection, AKeyIntoAnotherDocumentEmptiesTheOneLeft) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  EXPECT_EQ(Key("d2"), 1);
  EXPECT_LOG(tree.log, R"(
    OnChangeActiveDoc d1 d2
    OnClearSelection d1
    OnSelChanging - d2
    OnClearSelection d2
    OnSelChanged - d2)");
  EXPECT_EQ(tree.Selected(), "d2");
}

TEST_F(DocumentSelection, AKeyWithShiftKeepsTheDocumentLeftAndHasNoAnchor) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  EXPECT_EQ(Key("b", 1), 1);
  EXPECT_LOG(tree.log,
             "OnChangeActiveDoc d1 d2\nOnMultiSelChanging - b\nOnClearSelection b\nOnMultiSelChanged - b");
  EXPECT_EQ(tree.Selected(), "a") << "from no anchor nothing is selected";
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]);
  EXPECT_EQ(tree.GetLastSelectedItem(), nullptr);
}

TEST_F(DocumentSelection, AFirstKeyHasNoDocumentToEmpty) {
  Build("root [d1+ [a]]");
  EXPECT_EQ(Key("a"), 1);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc - d1\nOnSelChanging - a\nOnClearSelection a\nOnSelChanged - a");
}

TEST_F(DocumentSelection, AKeyWhoseChangeIsRefusedEmptiesNothing) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  Refuse("OnChangeActiveDoc");
  EXPECT_EQ(Key("b"), 1) << "it reaches the old document";
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnSelChanging a b\nOnClearSelection b\nOnSelChanged a b");
}

// --- Forced keys -----------------------------------------------------------------------------------

TEST_F(DocumentSelection, ForcedKeysReachTheManagerOfTheDocument) {
  Build("root [d1+ [a b] d2+ [c d]]");
  Press("a");
  Press("b", 1);
  EXPECT_EQ(tree.Selected(), "a b");
  Press("c", 1);
  Press("d", 1);
  EXPECT_EQ(tree.Selected(), "a b c d");
  Press("c");
  EXPECT_EQ(tree.Selected(), "a b c d") << "on a selected item nothing yet";
  tree.Select(tree["a"], STSEL_ADD);
  tree.SelectItem(tree["d"]);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["d"]);
}

TEST_F(DocumentSelection, ReleasedKeysAreReleasedInTheDocument) {
  Build("root [d1+ [a b]]");
  Press("a", 1);
  Press("b");
  EXPECT_EQ(tree.Selected(), "b");
}

TEST_F(DocumentSelection, AnUpdateForcesTheOuterManager) {
  Build("root [d1+ [a b]]");
  tree.UpdateSelection(nullptr, STUS_CTRLON | STUS_SHIFTOFF);
  Manager().OnLButtonDown(tree["a"]);
  Manager().OnLButtonDown(tree["b"]);
  EXPECT_EQ(tree.Selected(), "a b");
  tree.UpdateSelection(nullptr, STUS_CTRLOFF);
  EXPECT_EQ(Manager().SetForceCtrl(0), 0);
  tree.UpdateSelection(nullptr, STUS_SHIFTON);
  EXPECT_EQ(Manager().GetForceShift(), 1);
}

TEST_F(DocumentSelection, AnEmptyTreeTakesNoUpdate) {
  tree.UpdateSelection(nullptr, STUS_CTRLON | STUS_SHIFTON);
  EXPECT_EQ(Manager().SetForceCtrl(0), 0);
  EXPECT_EQ(Manager().GetForceShift(), 0);
}

// --- Clearing --------------------------------------------------------------------------------------

TEST_F(DocumentSelection, AClearingActivatesAndClearsThatDocument) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  Press("b");
  tree.log.Clear();
  tree.ClearSelection(tree["a"]);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d2 d1\nOnClearSelection a");
  EXPECT_EQ(tree.Selected(), "b");
  tree.ClearSelection(nullptr);
  EXPECT_LOG(tree.log, "OnClearSelection -");
  EXPECT_EQ(tree.Selected(), "b") << "of the active document, which is empty";
}

TEST_F(DocumentSelection, AClearingOfAllDocumentsAsksNoMore) {
  Build("root [d1+ [a] d2+ [b] d3+ [c]]");
  for (const char* label : {"a", "b", "c"}) Press(label);
  tree.ModifySelectionType(0, STST_CLEARALLDOCS);
  tree.log.Clear();
  tree.ClearSelection(nullptr);
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_LOG(tree.log, "");
}

TEST_F(DocumentSelection, AClickWithTheBitClearsAllDocumentsThroughTheHook) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.ModifySelectionType(0, STST_CLEARALLDOCS);
  tree.log.Clear();
  Press("b");
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnClearSelection b\nOnSelChanging - b\nOnSelChanged - b");
  EXPECT_EQ(tree.Selected(), "b") << "the hook's own part cleared the other document";
}

TEST_F(DocumentSelection, AHostThatStopsTheClearingStopsTheBitAsWell) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.ModifySelectionType(0, STST_CLEARALLDOCS);
  Refuse("OnClearSelection");
  Press("b");
  EXPECT_EQ(tree.Selected(), "a b");
}

TEST_F(DocumentSelection, TheBitMeansNothingToAPlainManager) {
  tree.EnableSelectionByDocuments(0);
  Build("root [d1+ [a] d2+ [b]]");
  tree.ModifySelectionType(0, STST_CLEARALLDOCS);
  Press("a");
  tree.log.Clear();
  tree.ClearSelection(nullptr);
  EXPECT_LOG(tree.log, "OnClearSelection -");
  EXPECT_EQ(tree.Selected(), "");
}

// --- Items come and go -----------------------------------------------------------------------------

TEST_F(DocumentSelection, DeletingTheActiveDocumentLeavesNoneActive) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  tree.DeleteItem(tree["d1"]);
  EXPECT_LOG(tree.log, "OnDeleteItem d1");
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 0);
  Press("b");
  EXPECT_EQ(tree.GetSelectedItem(), tree["b"]);
}

TEST_F(DocumentSelection, DeletingAnotherDocumentActivatesItFirst) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  tree.DeleteItem(tree["d2"]);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnDeleteItem d2");
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
}

TEST_F(DocumentSelection, DeletingADocumentThatMayNotBecomeActive) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  Refuse("OnChangeActiveDoc");
  tree.DeleteItem(tree["d2"]);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnDeleteItem d2");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(tree.Selected(), "a");
}

TEST_F(DocumentSelection, DeletingAnItemBelowGoesToItsOwnDocumentsManager) {
  Build("root [d1+ [a a2] d2+ [b]]");
  Press("a");
  Press("a2", 1);
  Press("b");
  tree.log.Clear();
  tree.DeleteItem(tree["a"]);
  EXPECT_LOG(tree.log, "OnDeleteItem a");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]) << "nothing was activated for it";
  EXPECT_EQ(tree.Selected(), "a2 b");
}

TEST_F(DocumentSelection, EmptyingTheTreeLeavesNoDocument) {
  for (bool byItem : {true, false}) {
    Build("root [d1+ [a] d2+ [b]]");
    Press("a");
    Press("b");
    EXPECT_EQ(byItem ? tree.DeleteItem(tree.GetRootItem()) : tree.DeleteAllItems(STI_ROOT), 1);
    EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
    EXPECT_EQ(CheckTree(tree), "");
  }
}

TEST_F(DocumentSelection, OnItemRemovedOfADocumentDropsItsManager) {
  Build("root [d1+ [a] d2]");
  Press("a");
  EXPECT_EQ(Manager().OnItemRemoved(tree["d1"]), 1);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  EXPECT_EQ(tree.Selected(), "a") << "the flags stay";
  Press("a");
  EXPECT_EQ(ListedCount(), 0) << "a new manager knows nothing of them";
}

TEST_F(DocumentSelection, OnItemRemovedOfAnItemIsPassedOn) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  EXPECT_EQ(Manager().OnItemRemoved(tree["a"]), 1);
  EXPECT_EQ(Manager().OnItemRemoved(tree["b"]), 0);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]) << "it activates";
}

TEST_F(DocumentSelection, OnItemAddedActivates) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.ModifyItemState(tree["b"], 0, STIS_SELECTED);
  EXPECT_EQ(Manager().OnItemAdded(tree["b"]), 1);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
  EXPECT_EQ(ListedCount(), 1);
}

// --- Updating --------------------------------------------------------------------------------------

TEST_F(DocumentSelection, AnUpdateActivatesOrLeavesNoneActive) {
  Build("root [d1+ [a] d2+ [b]]");
  tree.UpdateSelection(tree["b"], STUS_ACTIVATE);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
  tree.UpdateSelection(nullptr, STUS_ACTIVATE);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
  tree.UpdateSelection(nullptr, STUS_NOACTIVE);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc - d2\nOnChangeActiveDoc d2 -");
  tree.UpdateSelection(nullptr, STUS_NOACTIVE);
  EXPECT_LOG(tree.log, "") << "none was active";
}

TEST_F(DocumentSelection, NoneActiveCanBeRefusedAndUnselectsTheDocumentItem) {
  Build("root [d1]");
  Press("d1");
  tree.log.Clear();
  Refuse("OnChangeActiveDoc");
  tree.UpdateSelection(nullptr, STUS_NOACTIVE);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 -");
  tree.answer = nullptr;
  tree.UpdateSelection(nullptr, STUS_NOACTIVE);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 -\nOnSelChanged d1 -");
  EXPECT_EQ(tree.Selected(), "");
}

TEST_F(DocumentSelection, AnUpdateOfAnItemNeedsNoActiveDocument) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.log.Clear();
  tree.ModifyItemState(tree["b"], 0, STIS_SELECTED);
  tree.UpdateSelection(tree["b"], STUS_ITEMADDED);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  tree.UpdateSelection(tree["b"], STUS_ITEMREMOVED);
  EXPECT_EQ(tree.Selected(), "a");
  tree.UpdateSelection(nullptr, STUS_ITEMADDED);
  EXPECT_LOG(tree.log, "");
}

TEST_F(DocumentSelection, ARebuildNeedsAnItem) {
  Build("root [d1+ [a] d2+ [b]]");
  for (const char* label : {"a", "b"}) tree.ModifyItemState(tree[label], 0, STIS_SELECTED);
  tree.UpdateSelection(nullptr, STUS_REBUILD);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr) << "the whole step is left out";
  tree.UpdateSelection(tree["b"], STUS_REBUILD);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
  EXPECT_EQ(ListedCount(), 1);
  tree.UpdateSelection(tree["a"], STUS_ACTIVATE);
  EXPECT_EQ(ListedCount(), 1) << "taken up in every document";
}

TEST_F(DocumentSelection, TurnedOnWithAFocusItTakesUpTheSelection) {
  tree.EnableSelectionByDocuments(0);
  Build("root [d1+ [a* b] d2+ [c*]]");
  EXPECT_EQ(tree.ModifySelectionType(0, STST_BYDOCUMENTS), unsigned{STST_SINGLE});
  EXPECT_LOG(tree.log, "OnChangeActiveDoc - d2");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
  EXPECT_EQ(ListedCount(), 1);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr) << "the pointers are not taken over";
}

TEST_F(DocumentSelection, TurnedOnWithoutAFocusItTakesUpNothing) {
  tree.EnableSelectionByDocuments(0);
  Build("root [d1+ [a]]");
  tree.ModifyItemState(tree["a"], 0, STIS_SELECTED);
  tree.EnableSelectionByDocuments(1);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  tree.UpdateSelection(tree["a"], STUS_ACTIVATE);
  EXPECT_EQ(ListedCount(), 0);
}

TEST_F(DocumentSelection, TurnedOffThePlainManagerTakesUpAllDocuments) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  Press("b");
  EXPECT_EQ(tree.ModifySelectionType(STST_BYDOCUMENTS, 0), unsigned{STST_SINGLE | STST_BYDOCUMENTS});
  EXPECT_EQ(ListedCount(), 2);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
}

// --- Draggable items -------------------------------------------------------------------------------

TEST_F(DocumentSelection, DraggableItemsAreThoseOfTheItemsDocument) {
  Build("root [d1+ [a b] d2+ [c]]");
  CVornTreeItemArray items;
  EXPECT_EQ(Manager().GetDraggableItems(STI_ROOT, items), 0) << "no document is active";
  Press("a");
  Press("b", 1);
  Press("c");
  EXPECT_EQ(Manager().GetDraggableItems(STI_ROOT, items), 1);
  ASSERT_EQ(items.GetSize(), 1) << "of the active document";
  EXPECT_EQ(items[0], tree["c"]);
  items.RemoveAll();
  EXPECT_EQ(Manager().GetDraggableItems(tree["b"], items), 1);
  EXPECT_EQ(items.GetSize(), 2) << "from the document down";
  items.RemoveAll();
  EXPECT_EQ(Manager().GetDraggableItems(nullptr, items), 1);
  EXPECT_EQ(items.GetSize(), 1);
}

// --- Hooks that change the ground ------------------------------------------------------------------

class ChangeOfDocument : public DocumentSelection {
 protected:
  // What the host does when it is asked for the change.
  void WhenAsked(std::function<void()> deed) {
    tree.answer = [this, deed](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
      if (hook != "OnChangeActiveDoc") return 1;
      tree.answer = nullptr;
      deed();
      return 1;
    };
  }
};

TEST_F(ChangeOfDocument, TheItemMayGo) {
  for (int event = 0; event < 4; ++event) {
    SCOPED_TRACE(event);
    Build("root [d1+ [a]]");
    CVornTreeItem* const item = tree["a"];
    WhenAsked([&] { tree.DeleteItem(item); });
    int result = -1;
    switch (event) {
      case 0: result = Manager().OnLButtonDown(item); break;
      case 1: result = Manager().OnRButtonDown(item); break;
      case 2: result = Manager().OnKeyDown(item, VK_DOWN); break;
      default: result = Manager().OnKeyUp(item, VK_DOWN);
    }
    EXPECT_EQ(result, 0);
    EXPECT_EQ(tree.Text(), "root [d1+]");
    tree.DeleteAllItems(STI_ROOT);
    tree.log.Clear();
  }
}

TEST_F(ChangeOfDocument, TheDocumentMayGo) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  WhenAsked([&] { tree.DeleteItem(tree["d2"]); });
  EXPECT_EQ(Press("b"), 0);
  EXPECT_EQ(tree.Text(), "root [d1+ [a*]]");
}

TEST_F(ChangeOfDocument, TheItemMayMoveToAnotherDocument) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  CVornTreeItem* const b = tree["b"];
  WhenAsked([&] { tree.MoveItem(tree["d1"], b, STI_LAST); });
  EXPECT_EQ(Manager().OnLButtonDown(b), 0);
  EXPECT_FALSE(tree.IsItemSelected(b));
  WhenAsked([&] { tree.MoveItem(tree["d2"], b, STI_LAST); });
  EXPECT_EQ(Manager().OnKeyDown(b, VK_DOWN), 0);
  EXPECT_FALSE(tree.IsItemSelected(b));
}

TEST_F(ChangeOfDocument, TheItemMayMoveWithinItsDocument) {
  Build("root [d1+ [a b]]");
  CVornTreeItem* const b = tree["b"];
  WhenAsked([&] { tree.MoveItem(tree["a"], b, STI_LAST); });
  EXPECT_EQ(Manager().OnLButtonDown(b), 1);
  EXPECT_TRUE(tree.IsItemSelected(b));
}

TEST_F(ChangeOfDocument, TheDocumentLeftMayGoBeforeAKeyEmptiesIt) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  WhenAsked([&] { tree.DeleteItem(tree["d1"]); });
  EXPECT_EQ(Key("b"), 1);
  EXPECT_EQ(tree.Text(), "root [d2+ [b*@]]");
}

TEST_F(ChangeOfDocument, TheManagerMayGo) {
  Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  WhenAsked([&] { tree.EnableSelectionByDocuments(0); });
  EXPECT_EQ(Manager().OnLButtonDown(tree["b"]), 0);
  EXPECT_FALSE(tree.IsSelectionByDocuments());
  EXPECT_EQ(tree.Selected(), "a");
}

TEST_F(ChangeOfDocument, AnotherDocumentMayBecomeActiveMeanwhile) {
  Build("root [d1+ [a] d2+ [b] d3+ [c]]");
  Press("a");
  WhenAsked([&] { tree.UpdateSelection(tree["c"], STUS_ACTIVATE); });
  EXPECT_EQ(Press("b"), 1);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]) << "the change that was asked for comes last";
}

}  // namespace
