// Shortcuts, and what becomes of them when their target goes.
#include <string>
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::Narrow;
using support::TestTree;

TEST(CreateShortcut, LooksLikeItsTarget) {
  TestTree tree;
  CVornTreeItem* const target = tree.InsertItem(L"Rapport", 3, 4, STI_ROOT, STI_LAST, 99);
  CVornTreeItem* const shortcut = tree.CreateShortcut(target, STI_ROOT, STI_LAST);
  ASSERT_NE(shortcut, nullptr);
  EXPECT_STREQ(tree.GetItemText(shortcut), L"Raccourci vers Rapport");
  int image = 0, selected = 0;
  tree.GetItemImage(shortcut, image, selected);
  EXPECT_EQ(image, 3);
  EXPECT_EQ(selected, 4);
  EXPECT_EQ(tree.GetItemData(shortcut), 0u);
  EXPECT_EQ(tree.GetItemState(shortcut), unsigned{STIS_SHORTCUT | STIS_NODROP});
  EXPECT_EQ(tree.GetShortcutItem(shortcut), target);
  EXPECT_EQ(tree.GetShortcutItem(target), nullptr);
  EXPECT_TRUE(tree.IsShortcutItemOf(shortcut, target));
  EXPECT_FALSE(tree.IsShortcutItemOf(target, shortcut));
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(CreateShortcut, OfAnEmptyLabelHasTheBareText) {
  TestTree tree;
  CVornTreeItem* const target = tree.Add("");
  EXPECT_STREQ(tree.GetItemText(tree.CreateShortcut(target, STI_ROOT, STI_FIRST)), L"Raccourci vers");
}

TEST(CreateShortcut, OfTheRootOrAShortcutOrInABadPlaceIsNull) {
  TestTree tree;
  tree.Build("root [a [a1] b]");
  EXPECT_EQ(tree.CreateShortcut(tree.GetRootItem(), STI_ROOT, STI_LAST), nullptr);
  EXPECT_EQ(tree.CreateShortcut(STI_ROOT, STI_ROOT, STI_LAST), nullptr);
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, nullptr);
  EXPECT_EQ(tree.CreateShortcut(shortcut, STI_ROOT, STI_LAST), nullptr);
  EXPECT_EQ(tree.CreateShortcut(tree["a"], tree["b"], tree["a1"]), nullptr);
  EXPECT_EQ(tree.CreateShortcut(tree["a"], nullptr, STI_LAST), nullptr);
  EXPECT_EQ(tree.GetCount(), 4u);
}

TEST(CreateShortcut, UnselectsTheTargetWithoutTellingTheSelection) {
  TestTree tree;
  tree.Build("root [a*]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  EXPECT_FALSE(tree.IsItemSelected(tree["a"]));
  EXPECT_TRUE(tree.IsItemSelected(shortcut)) << "the copy holds the bit as it was";
  CVornTreeItemArray selected;
  EXPECT_EQ(tree.GetCurrentSelection(selected), 1);
  EXPECT_EQ(selected[0], tree["a"]);
}

TEST(Shortcut, KeepsNoData) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  tree.SetItemData(shortcut, 5);
  EXPECT_EQ(tree.GetItemData(shortcut), 0u);
}

TEST(GetShortcutItems, SharesTheItemsOwnList) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetShortcutItems(tree["a"], list), 1);
  EXPECT_EQ(list.GetSize(), 0);
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  ASSERT_EQ(list.GetSize(), 1) << "later changes show";
  EXPECT_EQ(list[0], shortcut);
  CVornTreeItemArray other;
  EXPECT_EQ(tree.GetShortcutItems(nullptr, other), 0);
  EXPECT_EQ(tree.GetShortcutItems(tree["a"], list), 1);
  EXPECT_EQ(list.GetSize(), 0) << "emptied first: the item has lost its list";
}

TEST(Shortcut, ThatGoesLeavesItsTarget) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  CVornTreeItemArray list;
  tree.GetShortcutItems(tree["a"], list);
  tree.DeleteItem(shortcut);
  tree.log.Clear();
  EXPECT_EQ(list.GetSize(), 0);
  EXPECT_EQ(tree.Text(), "root [a]");
}

// Which of n shortcuts, counted from 1, outlive their target.
std::string Survivors(int count) {
  TestTree tree;
  tree.Build("root [target place]");
  std::vector<CVornTreeItem*> shortcuts;
  for (int i = 1; i <= count; ++i) {
    shortcuts.push_back(tree.CreateShortcut(tree["target"], tree["place"], STI_LAST));
    tree.SetItemText(shortcuts.back(), std::to_wstring(i).c_str());
  }
  tree.DeleteItem(tree["target"]);
  EXPECT_LOG(tree.log, "OnDeleteItem target");
  std::string survivors;
  for (CVornTreeItem* item = tree.GetChildItem(tree["place"]); item != nullptr;
       item = tree.GetNextItem(item)) {
    survivors += Narrow(tree.GetItemText(item));
    EXPECT_EQ(tree.GetShortcutItem(item), nullptr);
    EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_NODROP}) << "an ordinary item from then on";
  }
  EXPECT_EQ(CheckTree(tree), "");
  return survivors;
}

TEST(Shortcuts, SomeOutliveTheirTarget) {
  EXPECT_EQ(Survivors(1), "");
  EXPECT_EQ(Survivors(2), "");
  EXPECT_EQ(Survivors(3), "2");
  EXPECT_EQ(Survivors(4), "2");
  EXPECT_EQ(Survivors(5), "24");
  EXPECT_EQ(Survivors(6), "24");
}

TEST(Shortcuts, AmongSiblingsAndDescendantsBreakNoWalk) {
  TestTree tree;
  tree.Build("root [p [t [t1 [t2]] u] q]");
  for (const char* target : {"t", "t1", "t2", "u", "p"}) {
    for (const char* place : {"p", "t", "t1", "t2", "q"}) {
      ASSERT_NE(tree.CreateShortcut(tree[target], tree[place], STI_FIRST), nullptr);
      ASSERT_NE(tree.CreateShortcut(tree[target], tree[place], STI_LAST), nullptr);
    }
  }
  ASSERT_EQ(CheckTree(tree), "");
  tree.DeleteItem(tree["t1"]);
  EXPECT_EQ(CheckTree(tree), "");
  tree.DeleteItem(tree["p"]);
  EXPECT_EQ(CheckTree(tree), "");
  tree.DeleteAllItems(STI_ROOT);
  EXPECT_EQ(tree.GetCount(), 0u);
  tree.log.Clear();
}

TEST(Shortcuts, ATargetBelowItsOwnShortcutTakesItAlong) {
  TestTree tree;
  tree.Build("root [t]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  ASSERT_EQ(tree.MoveItem(shortcut, tree["t"], STI_LAST), 1);
  tree.DeleteItem(tree["t"]);
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_EQ(CheckTree(tree), "");
  tree.log.Clear();
}

}  // namespace
