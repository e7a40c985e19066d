// Selection by documents: each top-level item has a selection of its own, one document is active.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

class Documents : public testing::Test {
 protected:
  Documents() {
    tree.EnableMultipleSelection(1);
    tree.EnableSelectionByDocuments(1);
    tree.Build("root [d1+ [a b] d2+ [c d]]");
  }
  ~Documents() override { tree.log.Clear(); }

  CVornTreeSelection& Manager() { return *tree.GetSelectionManager(); }
  void Press(const std::string& label) {
    Manager().OnLButtonDown(tree[label]);
    Manager().OnLButtonUp(tree[label]);
  }

  TestTree tree;
};

TEST_F(Documents, AFirstClickActivatesAndSelects) {
  Press("b");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(tree.GetSelectedItem(), tree["b"]);
  EXPECT_LOG(tree.log, R"(
    OnChangeActiveDoc - d1
    OnClearSelection b
    OnSelChanging - b
    OnSelChanged - b)");
}

TEST_F(Documents, AClickIntoAnotherKeepsTheOneLeft) {
  Press("a");
  Press("c");
  EXPECT_EQ(tree.Selected(), "a c");
  EXPECT_EQ(tree.GetSelectedItem(), tree["c"]);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 1);
  EXPECT_EQ(items.GetSize(), 1) << "answers for the active document only";
}

TEST_F(Documents, AKeyIntoAnotherEmptiesTheOneLeft) {
  Press("b");
  Manager().OnKeyDown(tree["c"], VK_DOWN);
  EXPECT_EQ(tree.Selected(), "c");
}

TEST_F(Documents, AKeyWithShiftKeepsTheOneLeftAndSelectsFromNoAnchor) {
  Press("b");
  const CVornSelectionGuard keys(&Manager(), 0, 1);
  Manager().OnKeyDown(tree["c"], VK_DOWN);
  EXPECT_EQ(tree.Selected(), "b") << "the new document has no anchor yet";
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
}

TEST_F(Documents, ARefusedChangeReachesTheManagerThatStayed) {
  Press("a");
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnChangeActiveDoc" ? 0 : 1;
  };
  Press("c");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(tree.Selected(), "c");
  EXPECT_EQ(tree.GetSelectedItem(), tree["c"]) << "an item of a foreign document, meant";
}

TEST_F(Documents, DeletingTheActiveOneLeavesNone) {
  Press("a");
  tree.DeleteItem(tree["d1"]);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 0);
  Press("c");
  EXPECT_EQ(tree.GetSelectedItem(), tree["c"]);
}

TEST_F(Documents, ADocumentSelectedItselfLosesThatWhenItIsLeft) {
  Press("d1");
  EXPECT_TRUE(tree.IsItemSelected(tree["d1"]));
  Press("c");
  EXPECT_FALSE(tree.IsItemSelected(tree["d1"]));
}

TEST_F(Documents, ClearAllClearsEachWithoutFurtherAsking) {
  Press("a");
  Press("c");
  tree.ModifySelectionType(0, STST_CLEARALLDOCS);
  tree.log.Clear();
  tree.ClearSelection(nullptr);
  EXPECT_EQ(tree.Selected(), "");
}

TEST_F(Documents, LeavingTheModeRebuildsFromTheFlags) {
  Press("a");
  Press("c");
  tree.ModifySelectionType(STST_BYDOCUMENTS, 0);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 1);
  EXPECT_EQ(items.GetSize(), 2);
}

TEST_F(Documents, CanAllBeMadeInactive) {
  Press("a");
  tree.log.Clear();
  tree.UpdateSelection(nullptr, STUS_NOACTIVE);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 -");
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  tree.UpdateSelection(tree["c"], STUS_ACTIVATE);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
}

TEST_F(Documents, ForcedKeysReachTheDocumentsManager) {
  Press("a");
  const CVornSelectionGuard keys(&Manager(), 1, 0);
  Press("b");
  EXPECT_EQ(tree.Selected(), "a b");
}

TEST_F(Documents, DraggableItemsAreThoseOfOneDocument) {
  Press("a");
  Press("c");
  CVornTreeItemArray items;
  EXPECT_EQ(Manager().GetDraggableItems(STI_ROOT, items), 1);
  ASSERT_EQ(items.GetSize(), 1);
  EXPECT_EQ(items[0], tree["c"]);
  EXPECT_EQ(Manager().GetDraggableItems(tree["a"], items), 1);
  EXPECT_EQ(items[1], tree["a"]);
}

TEST_F(Documents, AHookThatMovesTheItemStopsTheClick) {
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnChangeActiveDoc") tree.MoveItem(tree["d2"], tree["a"], STI_LAST);
    return 1;
  };
  EXPECT_EQ(Manager().OnLButtonDown(tree["a"]), 0);
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(CheckTree(tree), "");
}

}  // namespace
