// What a shortcut takes from its target, where it is put, and what the target's list is.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"
#include "tree/tree_access.h"

namespace {

using support::CheckTree;
using support::TestTree;

class ShortcutRules : public testing::Test {
 protected:
  ~ShortcutRules() override {
    EXPECT_EQ(CheckTree(tree, false), "");
    tree.log.Clear();
  }
  TestTree tree;
};

TEST_F(ShortcutRules, IsPlacedLikeAnInsertion) {
  tree.Build("root [t p [a b]]");
  CVornTreeItem* const t = tree["t"];
  CVornTreeItem* const p = tree["p"];
  EXPECT_EQ(tree.GetItemPosition(tree.CreateShortcut(t, p, STI_FIRST)), 1);
  EXPECT_EQ(tree.GetItemPosition(tree.CreateShortcut(t, p, STI_LAST)), 4);
  EXPECT_EQ(tree.GetItemPosition(tree.CreateShortcut(t, p, nullptr)), 5);
  EXPECT_EQ(tree.GetItemPosition(tree.CreateShortcut(t, p, tree["a"])), 3);
  EXPECT_EQ(tree.GetParentItem(tree.CreateShortcut(t, t, STI_LAST)), t) << "also below its target";
}

TEST_F(ShortcutRules, TakesStatesAndFlagsButNoChildren) {
  tree.Build("root [t+ [x]]");
  CVornTreeItem* const t = tree["t"];
  tree.SetCheckBox(t, 1);
  tree.ModifyItemState(t, 0, STIS_CHECKED | STIS_NODRAG);
  tree.SetItemTextColor(t, RGB(1, 2, 3));
  tree.SetItemBkColor(t, RGB(4, 5, 6));
  tree.SetItemImageState(t, 9);
  CVornTreeItem* const shortcut = tree.CreateShortcut(t, STI_ROOT, STI_LAST);
  EXPECT_EQ(tree.GetItemState(shortcut),
            unsigned{STIS_EXPANDED | STIS_CHECKED | STIS_NODRAG | STIS_SHORTCUT | STIS_NODROP});
  EXPECT_EQ(tree.GetCheckBox(shortcut), 1);
  EXPECT_EQ(tree.GetItemTextColor(shortcut), RGB(1, 2, 3));
  EXPECT_EQ(tree.GetItemBkColor(shortcut), RGB(4, 5, 6));
  int image = 0;
  tree.GetItemImageState(shortcut, image);
  EXPECT_EQ(image, 9);
  EXPECT_EQ(tree.GetChildItem(shortcut), nullptr);
  EXPECT_EQ(tree.GetChildCount(shortcut), 0u);
  EXPECT_EQ(shortcut->m_nLevel, 1);
}

TEST_F(ShortcutRules, OfAHiddenItemIsHidden) {
  tree.Build("root [t! u]");
  tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  EXPECT_EQ(tree.Rows(), "u");
  EXPECT_EQ(tree.GetVisibleCount(), 1);
}

TEST_F(ShortcutRules, HasNoFontOfItsOwn) {
  tree.Build("root [t]");
  LOGFONTW logFont{};
  logFont.lfHeight = -30;
  CFont font;
  font.CreateFontIndirect(&logFont);
  tree.SetItemFont(tree["t"], &font);
  EXPECT_EQ(tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST)->m_pFont, nullptr);
}

TEST_F(ShortcutRules, IsMeasuredWithItsOwnLabel) {
  tree.Build("root [t]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  const int width = shortcut->m_nTextWidth;
  EXPECT_EQ(shortcut->m_nHeight % 2, 0);
  tree.SetItemText(shortcut, L"Raccourci vers t");
  EXPECT_EQ(shortcut->m_nTextWidth, width);
}

TEST_F(ShortcutRules, OfWhatWasOneIsMade) {
  tree.Build("root [t u]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  EXPECT_EQ(tree.CreateShortcut(shortcut, STI_ROOT, STI_LAST), nullptr);
  // The list is the host's to change: the shortcut outlives its target.
  CVornTreeItemArray list;
  tree.GetShortcutItems(tree["t"], list);
  list.RemoveAll();
  tree.DeleteItem(tree["t"]);
  EXPECT_NE(tree.CreateShortcut(shortcut, STI_ROOT, STI_LAST), nullptr);
  EXPECT_EQ(tree.GetShortcutItem(shortcut), nullptr);
}

TEST_F(ShortcutRules, NoneIsMadeInABadPlaceAndNothingChanges) {
  tree.Build("root [t* p [a]]");
  tree.log.Clear();
  EXPECT_EQ(tree.CreateShortcut(tree["t"], STI_FIRST, STI_LAST), nullptr);
  EXPECT_EQ(tree.CreateShortcut(tree["t"], tree["t"], tree["a"]), nullptr);
  EXPECT_EQ(tree.Text(), "root [t*@ p [a]]");
  CVornTreeItemArray list;
  tree.GetShortcutItems(tree["t"], list);
  EXPECT_EQ(list.GetSize(), 0);
  EXPECT_EQ(VornTreeAccess::RedrawLock(tree), 0);
}

TEST_F(ShortcutRules, TheSentinelAsParentLeavesThePlaceUntested) {
  tree.Build("root [t p [a]]");
  EXPECT_NE(tree.CreateShortcut(tree["t"], STI_ROOT, tree["a"]), nullptr);
  EXPECT_EQ(tree.Text(), "root [t p [a] \"Raccourci vers t\"~]");
}

TEST_F(ShortcutRules, GoesWithoutAHook) {
  tree.Build("root [t p]");
  tree.CreateShortcut(tree["t"], tree["p"], STI_LAST);
  tree.DeleteItem(tree["t"]);
  EXPECT_LOG(tree.log, "OnDeleteItem t");
  EXPECT_EQ(tree.Text(), "root [p]");
}

TEST_F(ShortcutRules, ItsEndLeavesTheOthersInTheList) {
  tree.Build("root [t]");
  CVornTreeItem* const first = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  CVornTreeItem* const second = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  CVornTreeItem* const third = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  tree.DeleteItem(second);
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetShortcutItems(tree["t"], list), 1);
  ASSERT_EQ(list.GetSize(), 2);
  EXPECT_EQ(list[0], first);
  EXPECT_EQ(list[1], third);
}

TEST_F(ShortcutRules, TheListIsEmptiedFirstWhateverItShares) {
  tree.Build("root [t u]");
  tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetShortcutItems(tree["t"], list), 1);
  EXPECT_EQ(list.GetSize(), 1);
  EXPECT_EQ(tree.GetShortcutItems(tree["u"], list), 1);
  EXPECT_EQ(list.GetSize(), 0);
  EXPECT_EQ(tree.GetShortcutItems(tree["t"], list), 1);
  EXPECT_EQ(list.GetSize(), 0) << "the list of the first target was the one that was emptied";
  list.Add(tree["u"], nullptr);
  EXPECT_EQ(tree.GetShortcutItems(STI_ROOT, list), 0);
  EXPECT_EQ(list.GetSize(), 0) << "emptied also when there is no item";
}

TEST_F(ShortcutRules, MayBeMovedAndRenamedLikeAnyItem) {
  tree.Build("root [t p]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  EXPECT_EQ(tree.MoveItem(tree["p"], shortcut, STI_LAST), 1);
  EXPECT_EQ(tree.SetItemText(shortcut, L"s"), 1);
  CVornTreeItem* const below = tree.Add("below", shortcut);
  EXPECT_EQ(tree.GetShortcutItem(shortcut), tree["t"]);
  tree.DeleteItem(tree["t"]);
  EXPECT_FALSE(tree.IsExist(below, nullptr)) << "what hangs below it goes along";
  EXPECT_EQ(tree.Text(), "root [p]");
}

TEST_F(ShortcutRules, ASurvivorKeepsItsLabelAndCanTakeData) {
  tree.Build("root [t]");
  for (int i = 0; i < 3; ++i) tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  CVornTreeItem* const second = tree.GetNextItem(tree.GetNextItem(tree["t"]));
  tree.DeleteItem(tree["t"]);
  EXPECT_EQ(tree.GetItemState(second), unsigned{STIS_SHORTCUT | STIS_NODROP}) << "nobody asked yet";
  tree.SetItemData(second, 5);
  EXPECT_EQ(tree.GetItemData(second), 0u);
  EXPECT_EQ(tree.GetShortcutItem(second), nullptr);
  EXPECT_EQ(tree.GetItemState(second), unsigned{STIS_NODROP});
  tree.SetItemData(second, 5);
  EXPECT_EQ(tree.GetItemData(second), 5u);
  EXPECT_STREQ(tree.GetItemText(second), L"Raccourci vers t");
}

TEST_F(ShortcutRules, ThoseOfADeletedSubtreeGoFromOutsideIt) {
  tree.Build("root [a [t [u]] p]");
  tree.CreateShortcut(tree["t"], tree["p"], STI_LAST);
  tree.CreateShortcut(tree["u"], tree["p"], STI_LAST);
  tree.CreateShortcut(tree["p"], tree["u"], STI_LAST);
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(tree.Text(), "root [p]");
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetShortcutItems(tree["p"], list), 1);
  EXPECT_EQ(list.GetSize(), 0);
}

}  // namespace
