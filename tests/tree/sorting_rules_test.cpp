// What sorting does to counts, selection and redraw, and what it leaves alone.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"
#include "tree/tree_access.h"

namespace {

using support::CheckTree;
using support::TestTree;

int ByData(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : a > b; }

TEST(SortChildren, HoldsRedrawWhileItCompares) {
  TestTree tree;
  tree.Build("root [1 2 3]");
  static TestTree* sorted;
  static int lock;
  sorted = &tree;
  lock = -1;
  STSORTCB sort{tree.GetRootItem(),
                [](LPARAM, LPARAM, LPARAM) {
                  lock = VornTreeAccess::RedrawLock(*sorted);
                  return -1;
                },
                0};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_EQ(lock, 1);
  EXPECT_EQ(VornTreeAccess::RedrawLock(tree), 0);
  EXPECT_EQ(tree.Text(), "root [1 2 3]") << "each was told to come behind";
}

TEST(SortChildren, AChildThatFallsOutStaysSelected) {
  TestTree tree;
  tree.EnableMultipleSelection(1);
  tree.Build("root [a* b*]");
  CVornTreeItem* const b = tree["b"];
  STSORTCB sort{tree.GetRootItem(), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_TRUE(tree.IsItemSelected(b));
  CVornTreeItemArray items;
  tree.GetCurrentSelection(items);
  EXPECT_EQ(items.GetSize(), 2) << "the selection is not told";
  EXPECT_EQ(tree.DeleteItem(b), 1) << "it is an item all the same, and can be deleted";
  tree.log.Clear();
}

TEST(SortChildren, ASubtreeThatFallsOutTakesItsCountsAlong) {
  TestTree tree;
  tree.Build("root [a+ [x] b+ [y z]]");
  CVornTreeItem* const b = tree["b"];
  STSORTCB sort{tree.GetRootItem(), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
  tree.SortChildren(&sort);
  EXPECT_EQ(tree.GetCount(), 2u);
  EXPECT_EQ(tree.GetVisibleCount(), 2);
  EXPECT_EQ(tree.GetChildCount(b), 2u);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(SortChildren, KeepsSubtreesOpenClosedAndHidden) {
  TestTree tree;
  tree.Build("root [p+ [c+ [1] b [2] a! [3]]]");
  unsigned data = 3;
  for (const char* label : {"c", "b", "a"}) tree.SetItemData(tree[label], data--);
  STSORTCB sort{tree["p"], ByData, 0};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_EQ(tree.Text(), "root [p+ [a! [3] b [2] c+ [1]]]");
  EXPECT_EQ(tree.Rows(), "p b c 1");
  EXPECT_EQ(tree.GetVisibleChildCount(tree["p"]), 3u);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(SortChildren, OfAClosedParentLeavesItWithoutRows) {
  TestTree tree;
  tree.Build("root [p [b a]]");
  EXPECT_TRUE(tree.SortChildrenByName(tree["p"]));
  EXPECT_EQ(tree.GetVisibleChildCount(tree["p"]), 0u);
  EXPECT_EQ(tree.GetChildCount(tree["p"]), 2u);
  EXPECT_EQ(tree.Rows(), "p");
  EXPECT_EQ(CheckTree(tree), "");
}

// The rows are counted afresh, the hidden ones are what unlinking and linking make of them.
TEST(SortChildren, OfHiddenChildrenNeedNotKeepTheHiddenCount) {
  TestTree tree;
  tree.Build("root [p+ [b+ [x y] a]]");
  tree.SetItemVisibility(tree["b"], 0);
  ASSERT_EQ(tree["p"]->m_nHiddenDescendants, 1);
  ASSERT_EQ(tree["b"]->m_nVisibleDescendants, 2);
  EXPECT_TRUE(tree.SortChildrenByName(tree["p"]));
  EXPECT_EQ(tree["p"]->m_nHiddenDescendants, -1) << "three off (item and two rows), one on again";
  EXPECT_EQ(tree["p"]->m_nVisibleDescendants, 1);
  EXPECT_EQ(CheckTree(tree, false), "");
}

TEST(SortChildren, AHostCanSortDownwardsByItsParameter) {
  TestTree tree;
  for (int value : {2, 3, 1}) {
    tree.InsertItem(std::to_wstring(value).c_str(), -1, -1, STI_ROOT, STI_LAST, static_cast<unsigned>(value));
  }
  STSORTCB sort{tree.GetRootItem(),
                [](LPARAM a, LPARAM b, LPARAM direction) { return static_cast<int>((a - b) * direction); },
                -1};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_EQ(tree.Text(), "root [3 2 1]");
}

TEST(SortChildrenByName, DoesNotGoDown) {
  TestTree tree;
  tree.Build("root [b [z y] a [x w]]");
  EXPECT_TRUE(tree.SortChildrenByName(tree.GetRootItem()));
  EXPECT_EQ(tree.Text(), "root [a [x w] b [z y]]");
}

TEST(SortChildrenByName, RefusesWhatIsNoParent) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItem* const dead = tree["a"];
  tree.DeleteItem(dead);
  tree.log.Clear();
  EXPECT_FALSE(tree.SortChildrenByName(dead));
  EXPECT_FALSE(tree.SortChildrenByName(STI_ROOT));
  EXPECT_FALSE(tree.SortChildrenByName(tree.GetRootItem())) << "no children";
}

}  // namespace
