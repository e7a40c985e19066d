// Rows: hiding, locking, the walk, document mode.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

// All rows from the last one back.
std::string RowsBackward(TestTree& tree) {
  std::string rows;
  for (CVornTreeItem* row = tree.GetLastVisibleItem(tree.GetRootItem()); row != nullptr;
       row = tree.GetPrevVisibleItem(row)) {
    rows += (rows.empty() ? "" : " ") + tree.Name(row);
  }
  return rows;
}

TEST(Rows, OfAnEmptyTree) {
  TestTree tree;
  EXPECT_EQ(tree.GetFirstVisibleItem(), nullptr);
  EXPECT_EQ(tree.GetVisibleCount(), 0);
  EXPECT_EQ(tree.IsDisplayItem(tree.GetRootItem()), 0);
  EXPECT_EQ(tree.GetFirstDisplayItem(), nullptr);
  EXPECT_EQ(tree.GetLastDisplayItem(), nullptr);
  EXPECT_EQ(tree.GetNextVisibleItem(nullptr), nullptr);
  EXPECT_EQ(tree.GetPrevVisibleItem(nullptr), nullptr);
  EXPECT_EQ(tree.GetLastVisibleItem(nullptr), nullptr);
}

TEST(Rows, GoThroughExpandedItemsBothWays) {
  TestTree tree;
  tree.Build("root [a+ [a1+ [a11 a12] a2 [x]] b c+ [c1]]");
  EXPECT_EQ(tree.Rows(), "a a1 a11 a12 a2 b c c1");
  EXPECT_EQ(RowsBackward(tree), "c1 c b a2 a12 a11 a1 a");
  EXPECT_EQ(tree.GetVisibleCount(), 8);
  EXPECT_EQ(tree.GetVisibleChildCount(tree["a"]), 4u);
}

TEST(Rows, LeaveOutHiddenItemsWithAllBelow) {
  TestTree tree;
  tree.Build("root [a+! [a1] b+ [b1! b2!] c!]");
  EXPECT_EQ(tree.Rows(), "b");
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["c"]), tree["b"]);
}

TEST(Rows, FromACollapsedItemGoToItsSiblingAndOutOfAFold) {
  TestTree tree;
  tree.Build("root [a [a1 a2] b]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"]), tree["b"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a1"]), tree["a2"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a2"]), tree["b"]);
}

TEST(Rows, TheProtectedWalkStopsAtItsParentForOneStepOnly) {
  TestTree tree;
  tree.Build("root [a+ [a1+ [x] a2] b]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"], 1, tree["a"]), tree["a1"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"], 0, nullptr), tree["b"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"], 2, nullptr), tree["b"]) << "down with exactly 1 only";
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a2"], 1, tree["a"]), nullptr);
  tree.DeleteItem(tree["a2"]);
  tree.log.Clear();
  EXPECT_EQ(tree.GetNextVisibleItem(tree["x"], 1, tree["a"]), tree["b"])
      << "the stop is behind the first step";
}

TEST(Rows, AHiddenSiblingWithRowsIsLookedIntoOnTheWayBack) {
  TestTree tree;
  tree.Build("root [a+ [a1] b]");
  tree.SetItemVisibility(tree["a"], 0);
  EXPECT_EQ(tree.Rows(), "b");
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["b"]), tree["a1"]) << "meant: the sibling itself is not tested";
}

// --- Hiding and locking ----------------------------------------------------------------------------

TEST(SetItemVisibility, ReturnsTheEarlierVisibility) {
  TestTree tree;
  tree.Build("root [a b]");
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 0), 1);
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 0), 0);
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 1), 0);
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 1), 1);
  EXPECT_EQ(tree.SetItemVisibility(nullptr, 1), 0);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(SetItemVisibility, CountsInAllOpenAncestors) {
  TestTree tree;
  tree.Build("root [a+ [b+ [c+ [d e]]]]");
  tree.SetItemVisibility(tree["c"], 0);
  EXPECT_EQ(tree.GetVisibleCount(), 2);
  EXPECT_EQ(tree["b"]->m_nHiddenDescendants, 1);
  EXPECT_EQ(tree["a"]->m_nHiddenDescendants, 0) << "the parent only";
  tree.SetItemVisibility(tree["c"], 1);
  EXPECT_EQ(tree.GetVisibleCount(), 5);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(LockItemVisibility, ForcesHidingAndNeverShowing) {
  TestTree tree;
  tree.Build("root [a b!]");
  EXPECT_EQ(tree.LockItemVisibility(tree["a"], 0), 0);
  EXPECT_EQ(tree.Rows(), "");
  EXPECT_EQ(tree.ItemIsLockedVisibility(tree["a"]), 1);
  EXPECT_EQ(tree.UnlockItemVisibility(tree["a"]), 1);
  EXPECT_EQ(tree.Rows(), "a") << "what it was before the lock comes back";

  EXPECT_EQ(tree.LockItemVisibility(tree["b"], 1), 0);
  EXPECT_EQ(tree.Rows(), "a");
  EXPECT_EQ(tree.UnlockItemVisibility(tree["b"]), 1);
  EXPECT_EQ(tree.Rows(), "a");
  EXPECT_EQ(tree.UnlockItemVisibility(tree["b"]), 0);
  EXPECT_EQ(tree.LockItemVisibility(nullptr, 0), 0);
  EXPECT_EQ(tree.UnlockItemVisibility(nullptr), 0);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(LockItemVisibility, ASecondLockThatDiffersTakesEffect) {
  TestTree tree;
  tree.Build("root [a]");
  tree.LockItemVisibility(tree["a"], 1);
  EXPECT_EQ(tree.LockItemVisibility(tree["a"], 0), 1);
  EXPECT_EQ(tree.Rows(), "");
  EXPECT_EQ(tree.ItemIsLockedVisibility(tree["a"]), 1);
}

TEST(SetItemVisibility, OnALockedItemAnswersByTheFlagNotByTheWish) {
  TestTree tree;
  tree.Build("root [a]");
  tree.LockItemVisibility(tree["a"], 1);
  tree.SetItemVisibility(tree["a"], 0);
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 0), 1);
  EXPECT_EQ(tree.Rows(), "a");
}

TEST(GetHiddenItems, ListsTopmostOnesAndReturnsNothing) {
  TestTree tree;
  tree.Build("root [a! [a1!] b [b1!]]");
  CVornTreeItemArray items;
  items.Add(tree["b"], nullptr);
  EXPECT_EQ(tree.GetHiddenItems(items), 0);
  ASSERT_EQ(items.GetSize(), 3) << "not emptied first";
  EXPECT_EQ(items[1], tree["a"]);
  EXPECT_EQ(items[2], tree["b1"]);
}

// --- Document mode ---------------------------------------------------------------------------------

TEST(DocumentMode, ShowsWhatIsBelowTheActiveDocument) {
  TestTree tree;
  tree.Build("root [d1+ [a+ [a1] b] d2+ [c]]");
  tree.SelectItem(tree["b"]);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(tree.SetDocumentDisplay(1), 0);
  EXPECT_EQ(tree.Rows(), "a a1 b");
  EXPECT_EQ(tree.GetVisibleCount(), 3);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["b"]), nullptr) << "further documents follow";
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["a"]), nullptr);
  EXPECT_EQ(tree.ItemIsVisible(tree["d1"]), 0);
  EXPECT_EQ(tree.ItemIsVisible(tree["b"]), 1);
  EXPECT_EQ(tree.SetDocumentDisplay(0), 1);
  EXPECT_EQ(tree.Rows(), "d1 a a1 b d2 c");
  tree.log.Clear();
}

TEST(DocumentMode, OpensTheDocumentFirst) {
  TestTree tree;
  tree.Build("root [d1 [a]]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  tree.SetDocumentDisplay(1);
  EXPECT_TRUE(tree.IsItemExpanded(tree["d1"]));
  EXPECT_LOG(tree.log, "OnItemExpanding d1\nOnItemExpanded d1");
}

TEST(DocumentMode, OtherValuesThanOneDoLess) {
  TestTree tree;
  tree.Build("root [d1+ [a] d2+ [b]]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  tree.SetDocumentDisplay(2);
  EXPECT_EQ(tree.IsDisplayOnlyActiveDocument(), 2);
  EXPECT_EQ(tree.GetFirstVisibleItem(), tree["a"]);
  EXPECT_EQ(tree.GetVisibleCount(), 4) << "counts all";
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["a"]), tree["d1"]);
}

TEST(DocumentMode, WithoutAnActiveDocumentShowsNothing) {
  TestTree tree;
  tree.Build("root [d1+ [a]]");
  tree.SetDocumentDisplay(1);
  EXPECT_EQ(tree.Rows(), "");
  EXPECT_EQ(tree.GetVisibleCount(), 0);
}

}  // namespace
