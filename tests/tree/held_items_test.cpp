// Selection managers hold items by address. Memory of items is used again, so nothing that is gone may stay.
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

long ListedCount(TestTree& tree) {
  CVornTreeItemArray items;
  tree.GetCurrentSelection(items);
  return items.GetSize();
}

class HeldItems : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(CheckTree(tree, false), "");
    tree.log.Clear();
  }
  int Press(const std::string& label, int ctrl = 0, int shift = 0) {
    const CVornSelectionGuard keys(tree.GetSelectionManager(), ctrl, shift);
    return tree.GetSelectionManager()->OnLButtonDown(tree[label]);
  }
  TestTree tree;
};

TEST_F(HeldItems, ADeniedItemThatWasRightClickedLeavesTheListWhenItGoes) {
  tree.Build("root [a b*]");
  tree.ModifyItemState(tree["a"], 0, STIS_NOSELECT);
  tree.GetSelectionManager()->OnRButtonDown(tree["a"]);
  ASSERT_EQ(ListedCount(tree), 1);
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(ListedCount(tree), 0);
}

TEST_F(HeldItems, TheTargetOfAShortcutLeavesTheListWhenItGoes) {
  tree.Build("root [a*]");
  tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  ASSERT_EQ(ListedCount(tree), 1) << "the selection is not told of the bit";
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(ListedCount(tree), 0);
}

TEST_F(HeldItems, AShortcutThatGoesWithItsTargetLeavesTheList) {
  tree.Build("root [a b]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  tree.SelectItem(shortcut);
  tree.SelectItem(tree["b"], 1);
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(tree.Text(), "root [b*@]");
  EXPECT_EQ(ListedCount(tree), 1);
}

TEST_F(HeldItems, AnItemOfAnotherDocumentLeavesTheListWhenItGoes) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a] d2+ [b]]");
  Press("a");
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnChangeActiveDoc" ? 0 : 1;
  };
  Press("b");
  ASSERT_EQ(ListedCount(tree), 1) << "in the selection of the first document";
  tree.DeleteItem(tree["b"]);
  EXPECT_EQ(ListedCount(tree), 0);
}

TEST_F(HeldItems, AnItemThatMovedToAnotherDocumentLeavesTheListWhenItGoes) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a] d2]");
  Press("a");
  tree.MoveItem(tree["d2"], tree["a"], STI_LAST);
  ASSERT_EQ(ListedCount(tree), 1);
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(ListedCount(tree), 0);
}

TEST_F(HeldItems, AnItemSelectedWhileItIsDeletedIsNotKept) {
  tree.Build("root [a [b]]");
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnDeleteItem") tree.SelectItem(tree["b"]);
    return 1;
  };
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(ListedCount(tree), 0);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
}

// What is saved for ranges outlives the selection; it must not come back as other items.
TEST_F(HeldItems, NewItemsInTheMemoryOfSavedOnesAreNotSelected) {
  constexpr int kMany = 6000;  // more than are kept from being used again
  const auto fill = [this] {
    for (int i = 0; i < kMany; ++i) tree.InsertItem(L"x", -1, -1);
  };
  tree.recording = false;
  tree.SetRedraw(FALSE);
  fill();
  CVornTreeSelection& manager = *tree.GetSelectionManager();
  manager.OnLButtonDown(tree.GetChildItem(STI_ROOT));
  {
    const CVornSelectionGuard keys(&manager, 0, 1);
    manager.OnLButtonDown(tree.GetLastChildItem(tree.GetRootItem()));
  }
  ASSERT_EQ(ListedCount(tree), kMany);
  tree.DeleteAllItems(STI_ROOT);
  fill();
  manager.OnLButtonDown(tree.GetChildItem(STI_ROOT));
  {
    const CVornSelectionGuard keys(&manager, 1, 1);
    manager.OnLButtonDown(tree.GetNextItem(tree.GetChildItem(STI_ROOT)));
  }
  EXPECT_EQ(ListedCount(tree), 2);
  tree.SetRedraw(TRUE);
}

TEST_F(HeldItems, ManyThatGoOneByOneAreLetGo) {
  constexpr int kMany = 500;
  tree.recording = false;
  tree.SetRedraw(FALSE);
  for (int i = 0; i < kMany; ++i) tree.InsertItem(L"x", -1, -1);
  CVornTreeSelection& manager = *tree.GetSelectionManager();
  manager.SelectRange(tree.GetChildItem(STI_ROOT), tree.GetLastChildItem(tree.GetRootItem()));
  for (CVornTreeItem* item = tree.GetChildItem(STI_ROOT); item != nullptr; item = tree.GetNextItem(item)) {
    tree.ModifyItemState(item, STIS_SELECTED, 0);  // the list is not told
  }
  while (CVornTreeItem* const item = tree.GetChildItem(STI_ROOT)) {
    tree.DeleteItem(item);
    ASSERT_EQ(CheckTree(tree), "");
  }
  EXPECT_EQ(ListedCount(tree), 0);
  tree.SetRedraw(TRUE);
}

// With much held, what is gone is let go once in a while; until then it is known to be gone.
TEST_F(HeldItems, OneOfManyThatIsGoneIsKnownAsSuch) {
  constexpr int kMany = 500;
  for (bool byDocuments : {false, true}) {
    tree.recording = false;
    tree.SetRedraw(FALSE);
    CVornTreeItem* const document = tree.InsertItem(L"d", -1, -1);
    for (int i = 0; i < kMany; ++i) tree.InsertItem(L"x", -1, -1, document);
    tree.Expand(document, STE_EXPAND);
    tree.EnableSelectionByDocuments(byDocuments);
    CVornTreeSelection& manager = *tree.GetSelectionManager();
    manager.OnLButtonDown(tree.GetChildItem(document));
    {
      const CVornSelectionGuard keys(&manager, 0, 1);
      manager.OnLButtonDown(tree.GetLastChildItem(document));
    }
    CVornTreeItem* const victim = tree.GetNextItem(tree.GetChildItem(document));
    tree.ModifyItemState(victim, STIS_SELECTED, 0);  // the list is not told
    tree.DeleteItem(victim);
    EXPECT_EQ(CheckTree(tree), "");
    tree.ClearSelection(document);
    EXPECT_EQ(tree.Selected(), "");
    if (!byDocuments) {
      manager.RestoreSelection();
      EXPECT_EQ(ListedCount(tree), kMany - 1);
    }
    tree.DeleteAllItems(STI_ROOT);
    EXPECT_EQ(ListedCount(tree), 0);
    tree.SetRedraw(TRUE);
  }
}

TEST_F(HeldItems, ARangeOfTheOuterManagerIsLetGoAsWell) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a b]]");
  tree.GetSelectionManager()->SelectRange(tree["a"], tree["b"]);
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(CheckTree(tree), "");
  tree.DeleteAllItems(STI_ROOT);
}

TEST_F(HeldItems, DocumentsThatGoTakeTheirManagersAlong) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a] d2+ [b] d3+ [c]]");
  for (const char* label : {"a", "b", "c"}) Press(label);
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnChangeActiveDoc" ? 0 : 1;
  };
  for (const char* label : {"d1", "d3", "d2"}) {
    tree.DeleteItem(tree[label]);
    EXPECT_EQ(CheckTree(tree), "");
  }
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
}

}  // namespace
