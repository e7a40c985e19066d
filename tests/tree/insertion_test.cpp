// Insertion, removal and moving: places, counts, levels, the order of the hooks, bad places.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

// --- Places ----------------------------------------------------------------------------------------

TEST(InsertItem, PlacesFirstLastBehindAndByNull) {
  TestTree tree;
  CVornTreeItem* const b = tree.Add("b");
  tree.Add("a", STI_ROOT, STI_FIRST);
  tree.Add("d", STI_ROOT, STI_LAST);
  tree.Add("c", STI_ROOT, b);
  tree.Add("e", STI_ROOT, nullptr);
  EXPECT_EQ(tree.Text(), "root [a b c d e]");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(InsertItem, ThreeArgumentsAppendAtTheTop) {
  TestTree tree;
  EXPECT_NE(tree.InsertItem(L"a", -1, -1), nullptr);
  EXPECT_NE(tree.InsertItem(L"b", -1, -1), nullptr);
  EXPECT_EQ(tree.Text(), "root [a b]");
}

TEST(InsertItem, BehindAnItemOfAnotherParentGivesNull) {
  TestTree tree;
  tree.Build("root [a [a1] b]");
  EXPECT_EQ(tree.Add("x", tree["b"], tree["a1"]), nullptr);
  EXPECT_EQ(tree.Text(), "root [a [a1] b]");
  EXPECT_EQ(tree.GetCount(), 3u);
}

TEST(InsertItem, WithAnInvalidParentGivesNull) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItem* const dead = tree.Add("x");
  tree.DeleteItem(dead);
  tree.log.Clear();
  for (CVornTreeItem* parent : {dead, STI_FIRST, STI_LAST, static_cast<CVornTreeItem*>(nullptr)}) {
    EXPECT_EQ(tree.Add("y", parent), nullptr);
  }
  EXPECT_EQ(tree.Add("y", STI_ROOT, dead), nullptr);
  EXPECT_EQ(tree.Text(), "root [a]");
}

TEST(InsertItem, RefusesAnItemOfAnotherControl) {
  TestTree tree, other;
  CVornTreeItem* const foreign = other.Add("foreign");
  EXPECT_EQ(tree.Add("x", foreign), nullptr);
  EXPECT_EQ(tree.Add("x", STI_ROOT, foreign), nullptr);
  EXPECT_EQ(tree.MoveItem(STI_ROOT, foreign, STI_LAST), 0);
  EXPECT_EQ(tree.DeleteItem(foreign), 0);
  EXPECT_EQ(other.Text(), "root [foreign]");
  EXPECT_EQ(tree.GetCount(), 0u);
}

TEST(InsertItem, ANullTextLeavesTheLabelEmpty) {
  TestTree tree;
  CVornTreeItem* const item = tree.InsertItem(nullptr, -1, -1);
  ASSERT_NE(item, nullptr);
  EXPECT_STREQ(tree.GetItemText(item), L"");
}

TEST(InsertItem, UnderACollapsedParentAddsNoRow) {
  TestTree tree;
  tree.Build("root [a]");
  tree.Add("a1", tree["a"]);
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(tree.GetChildCount(tree["a"]), 1u);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(InsertItem, KeepsDataAndImages) {
  TestTree tree;
  CVornTreeItem* const item = tree.InsertItem(L"x", 2, 5, STI_ROOT, STI_LAST, 0xFEDCBA9876543210ULL);
  int image = 0, selected = 0;
  tree.GetItemImage(item, image, selected);
  EXPECT_EQ(image, 2);
  EXPECT_EQ(selected, 5);
  EXPECT_EQ(tree.GetItemData(item), 0xFEDCBA9876543210ULL);
}

// --- The record form -------------------------------------------------------------------------------

TEST(InsertRecord, NullGivesNull) {
  TestTree tree;
  EXPECT_EQ(tree.InsertItem(static_cast<STINSERTSTRUCT*>(nullptr)), nullptr);
}

TEST(InsertRecord, TakesSoManyCharacters) {
  TestTree tree;
  wchar_t text[] = L"abcdef";
  STINSERTSTRUCT insert{};
  insert.hParent = STI_ROOT;
  insert.item.mask = STIF_TEXT;
  insert.item.pszText = text;
  insert.item.cchTextMax = 3;
  EXPECT_STREQ(tree.GetItemText(tree.InsertItem(&insert)), L"abc");
  insert.item.cchTextMax = 0;
  EXPECT_STREQ(tree.GetItemText(tree.InsertItem(&insert)), L"");
  insert.item.cchTextMax = 3;
  insert.item.pszText = nullptr;
  EXPECT_STREQ(tree.GetItemText(tree.InsertItem(&insert)), L"");
}

TEST(InsertRecord, ImageAloneLeavesTheSelectedImageOpen) {
  TestTree tree;
  STINSERTSTRUCT insert{};
  insert.hParent = STI_ROOT;
  insert.item.mask = STIF_IMAGE;
  insert.item.iImage = 4;
  insert.item.iSelectedImage = 7;
  int image = 0, selected = 0;
  tree.GetItemImage(tree.InsertItem(&insert), image, selected);
  EXPECT_EQ(image, 4);
  EXPECT_EQ(selected, -1);
}

TEST(InsertRecord, AppliesSelectionAndCheckByBothMasks) {
  TestTree tree;
  STINSERTSTRUCT insert{};
  insert.hParent = STI_ROOT;
  insert.item.mask = STIF_STATE;
  insert.item.stateMask = STIS_SELECTED | STIS_NODELETE;
  insert.item.state = STIS_SELECTED | STIS_NODELETE;
  CVornTreeItem* const item = tree.InsertItem(&insert);
  EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_SELECTED}) << "permission bits are not taken";
  insert.item.stateMask = 0;
  EXPECT_EQ(tree.GetItemState(tree.InsertItem(&insert)), 0u);
  tree.log.Clear();
}

TEST(InsertRecord, HidesForAnyHigherBit) {
  TestTree tree;
  STINSERTSTRUCT insert{};
  insert.hParent = STI_ROOT;
  insert.item.mask = STIF_STATE;
  insert.item.stateMask = STIS_HIDDEN;
  insert.item.state = STIS_BOLD;
  EXPECT_EQ(tree.GetItemVisibility(tree.InsertItem(&insert)), 0);
  insert.item.state = STIS_SHORTCUT;  // below 128
  EXPECT_EQ(tree.GetItemVisibility(tree.InsertItem(&insert)), 1);
}

// --- Removal ---------------------------------------------------------------------------------------

TEST(DeleteItem, RunsOneHookForTheWholeSubtree) {
  TestTree tree;
  tree.Build("root [a+ [a1+ [a11] a2] b]");
  bool linked = false;
  tree.answer = [&](const std::string&, CVornTreeItem* item, CVornTreeItem*) {
    linked = tree.GetItemPosition(item) == 1;
    return 0;  // cannot refuse
  };
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_LOG(tree.log, "OnDeleteItem a");
  EXPECT_TRUE(linked);
  EXPECT_EQ(tree.Text(), "root [b]");
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(DeleteItem, AsksNoPermission) {
  TestTree tree;
  tree.Build("root [a]");
  tree.ModifyItemState(tree["a"], 0, STIS_NODELETE);
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_LOG(tree.log, "OnDeleteItem a");
}

TEST(DeleteItem, OfTheRootEmptiesTheTree) {
  TestTree tree;
  tree.Build("root [a [a1] b]");
  EXPECT_EQ(tree.DeleteItem(tree.GetRootItem()), 1);
  EXPECT_LOG(tree.log, "OnDeleteItem root");
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_NE(tree.GetRootItem(), nullptr);
}

TEST(DeleteItem, OfAnActiveDocumentHandsTheActivityOnFirst) {
  TestTree tree;
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [a+ [a1] b+ [b1]]");
  tree.SelectItem(tree["a1"]);
  tree.log.Clear();
  bool active = true;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnDeleteItem") active = tree.GetActiveDocItem() != nullptr;
    return 1;
  };
  tree.DeleteItem(tree["a"]);
  EXPECT_FALSE(active);
  EXPECT_LOG(tree.log, "OnDeleteItem a");
}

TEST(DeleteAllItems, OfNullGivesNothing) {
  TestTree tree;
  EXPECT_EQ(tree.DeleteAllItems(nullptr), 0);
}

TEST(DeleteAllItems, OnAnEmptyTreeStillTells) {
  TestTree tree;
  std::string told;
  tree.answer = [&](const std::string&, CVornTreeItem* item, CVornTreeItem*) {
    told = item == STI_ROOT ? "STI_ROOT" : "an item";
    return 1;
  };
  EXPECT_EQ(tree.DeleteAllItems(STI_ROOT), 1);
  EXPECT_EQ(told, "STI_ROOT");
  EXPECT_LOG(tree.log, "OnDeleteItem root");
}

TEST(DeleteAllItems, TellsBeforeTheSelectionGoesAndKeepsTheParent) {
  TestTree tree;
  tree.Build("root [a+ [a1* a2] b]");
  std::string selected;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnDeleteItem") selected = tree.Selected();
    return 1;
  };
  EXPECT_EQ(tree.DeleteAllItems(tree["a"]), 1);
  EXPECT_EQ(selected, "a1");
  EXPECT_LOG(tree.log, "OnDeleteItem a");
  EXPECT_EQ(tree.Text(), "root [a+ b]");
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(CheckTree(tree), "");
}

// --- Moving ----------------------------------------------------------------------------------------

TEST(MoveItem, RenumbersTheLevelsOfTheSubtree) {
  TestTree tree;
  tree.Build("root [a [a1 [a11]] b [b1]]");
  EXPECT_EQ(tree.MoveItem(tree["b1"], tree["a1"], STI_LAST), 1);
  EXPECT_EQ(tree.Text(), "root [a b [b1 [a1 [a11]]]]");
  EXPECT_EQ(tree["a11"]->m_nLevel, 4);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(MoveItem, BehindAnItemOfAnotherParentChangesNothing) {
  TestTree tree;
  tree.Build("root [a [a1] b [b1]]");
  EXPECT_EQ(tree.MoveItem(tree["a"], tree["b1"], tree["b"]), 0);
  EXPECT_EQ(tree.MoveItem(STI_ROOT, tree["b1"], tree["a1"]), 0);
  EXPECT_EQ(tree.Text(), "root [a [a1] b [b1]]");
}

TEST(MoveItem, WithNullAsThePlaceGivesNothingWhileInsertionAppends) {
  TestTree tree;
  tree.Build("root [a b]");
  EXPECT_EQ(tree.MoveItem(STI_ROOT, tree["a"], nullptr), 0);
  EXPECT_EQ(tree.Text(), "root [a b]");
}

TEST(MoveItem, BelowItselfGivesNothing) {
  TestTree tree;
  tree.Build("root [a [a1]]");
  EXPECT_EQ(tree.MoveItem(tree["a1"], tree["a"], STI_LAST), 0);
  EXPECT_EQ(tree.MoveItem(tree["a"], tree["a"], STI_LAST), 0);
  EXPECT_EQ(tree.MoveItem(tree["a"], tree.GetRootItem(), STI_LAST), 0);
  EXPECT_EQ(tree.Text(), "root [a [a1]]");
}

TEST(MoveItem, BehindItselfStaysWhereItIs) {
  TestTree tree;
  tree.Build("root [a b c]");
  EXPECT_EQ(tree.MoveItem(STI_ROOT, tree["b"], tree["b"]), 1);
  EXPECT_EQ(tree.MoveItem(STI_ROOT, tree["a"], tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [a b c]");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(MoveItem, CallsNoHookAndKeepsTheSelection) {
  TestTree tree;
  tree.Build("root [a+ [a1*] b+ [b1]]");
  EXPECT_EQ(tree.MoveItem(tree["b"], tree["a1"], STI_FIRST), 1);
  EXPECT_EQ(tree.Text(), "root [a+ b+ [a1*@ b1]]");
  EXPECT_EQ(tree.Rows(), "a b a1 b1");
}

TEST(SetItemFamily, LinksOrDeletes) {
  TestTree tree;
  tree.Build("root [a [a1] b]");
  // An item that fell out of a sort is an unlinked one.
  STSORTCB sort{tree.GetRootItem(), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
  CVornTreeItem* const b = tree["b"];
  tree.SortChildren(&sort);
  EXPECT_EQ(tree.Text(), "root [a [a1]]");
  EXPECT_EQ(tree.SetItemFamily(b, tree["a"], tree["a1"]), b);
  EXPECT_EQ(tree.Text(), "root [a [a1 b]]");
  EXPECT_EQ(tree.SetItemFamily(nullptr, tree["a"], tree["a"]), nullptr);
  EXPECT_EQ(CheckTree(tree), "");
}

// --- Counts that do not cancel ---------------------------------------------------------------------

TEST(Counts, OfHiddenItemsNeedNotCancel) {
  TestTree tree;
  tree.Build("root [a+ [a1 a2]]");
  CVornTreeItem* const a1 = tree["a1"];
  tree.SetItemVisibility(a1, 0);
  EXPECT_EQ(tree["a"]->m_nHiddenDescendants, 1);
  tree.DeleteItem(a1);
  tree.log.Clear();
  EXPECT_EQ(tree["a"]->m_nHiddenDescendants, 0);
  EXPECT_EQ(tree.GetRootItem()->m_nHiddenDescendants, -1) << "hiding told the parent only, removal tells all";
}

}  // namespace
