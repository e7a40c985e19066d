// What opening and folding do to the counts, in the item and in its ancestors.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

class ExpansionCounts : public testing::Test {
 protected:
  void TearDown() override { tree.log.Clear(); }
  int RowsOf(const std::string& label) { return tree[label]->m_nVisibleDescendants; }

  TestTree tree;
};

TEST_F(ExpansionCounts, OpeningAddsToEveryOpenAncestor) {
  tree.Build("root [a+ [b+ [c [d e! f+ [g]]]]]");
  EXPECT_EQ(tree.Expand(tree["c"], STE_EXPAND), 1);
  EXPECT_EQ(RowsOf("c"), 3) << "d, f and what is below f";
  EXPECT_EQ(RowsOf("b"), 4);
  EXPECT_EQ(RowsOf("a"), 5);
  EXPECT_EQ(tree.GetVisibleCount(), 6);
  EXPECT_EQ(tree.Expand(tree["c"], STE_COLLAPSE), 1);
  EXPECT_EQ(RowsOf("c"), 0);
  EXPECT_EQ(RowsOf("a"), 2);
  EXPECT_EQ(RowsOf("f"), 1) << "what is below keeps its count";
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, AReopenedItemFindsItsDescendantsAsTheyWere) {
  tree.Build("root [a+ [b+ [c] d [e]]]");
  tree.Expand(tree["a"], STE_COLLAPSE);
  tree.Expand(tree["a"], STE_EXPAND);
  EXPECT_EQ(tree.Rows(), "a b c d");
  EXPECT_EQ(tree.GetVisibleCount(), 4);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, OpeningBelowAFoldedItemStaysThere) {
  tree.Build("root [a [b [c]]]");
  EXPECT_EQ(tree.Expand(tree["b"], STE_EXPAND), 1);
  EXPECT_EQ(RowsOf("b"), 1);
  EXPECT_EQ(RowsOf("a"), 0);
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, OpeningBelowAHiddenItemEndsThere) {
  tree.Build("root [a+! [b [c]] d]");
  EXPECT_EQ(tree.Expand(tree["b"], STE_EXPAND), 1);
  EXPECT_EQ(RowsOf("a"), 2);
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(CheckTree(tree), "");
  EXPECT_EQ(tree.Expand(tree["b"], STE_COLLAPSE), 1);
  EXPECT_EQ(RowsOf("a"), 1);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, FoldingAHiddenItemLeavesTheAncestorsAlone) {
  tree.Build("root [p+ [a+! [x y]]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSE), 1);
  EXPECT_FALSE(tree.IsItemExpanded(tree["a"]));
  EXPECT_EQ(RowsOf("a"), 0);
  EXPECT_EQ(RowsOf("p"), 0);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, OpeningAllAddsOnlyWhatIsNew) {
  tree.Build("root [p+ [a+ [b [x] c+ [y]]]]");
  ASSERT_EQ(RowsOf("a"), 3);
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 1);
  EXPECT_EQ(RowsOf("a"), 4);
  EXPECT_EQ(RowsOf("p"), 5);
  EXPECT_EQ(tree.GetVisibleCount(), 6);
  EXPECT_EQ(CheckTree(tree), "");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 1) << "again: it always goes on";
  EXPECT_EQ(tree.GetVisibleCount(), 6);
}

TEST_F(ExpansionCounts, OpeningAllBelowAFoldedItemStaysThere) {
  tree.Build("root [p [a [b [x]]]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 1);
  EXPECT_EQ(tree.Text(), "root [p [a+ [b+ [x]]]]");
  EXPECT_EQ(RowsOf("p"), 0);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, OpeningAllOfAnItemWithAnnouncedChildrenOnlyLeavesItClosed) {
  tree.Build("root [a#]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 1);
  EXPECT_FALSE(tree.IsItemExpanded(tree["a"]));
  EXPECT_LOG(tree.log, "OnItemExpanding a\nOnItemExpanded a");
}

TEST_F(ExpansionCounts, OpeningAllOfAHiddenItemLeavesItClosedAndCountsItInTheAncestors) {
  tree.Build("root [p+ [a! [b [x]] c]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 1);
  EXPECT_EQ(tree.Text(), "root [p+ [a! [b+ [x]] c]]");
  EXPECT_EQ(RowsOf("a"), 2) << "counted although it is closed";
  EXPECT_EQ(RowsOf("p"), 3) << "meant: the outermost item is not asked whether it is hidden";
}

TEST_F(ExpansionCounts, FoldingAllOfAHiddenItemIsTakenOffTheAncestorsAllTheSame) {
  tree.Build("root [p+ [a+! [x] b c]]");
  ASSERT_EQ(RowsOf("p"), 2);
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSEALL), 1);
  EXPECT_EQ(RowsOf("a"), 0);
  EXPECT_EQ(RowsOf("p"), 1) << "meant: the outermost item is not asked whether it is hidden";
}

TEST_F(ExpansionCounts, FoldingAllGoesIntoHiddenChildrenAndCountsThemNot) {
  tree.Build("root [p+ [a+ [b+! [x] c+ [y]]]]");
  ASSERT_EQ(RowsOf("p"), 3);
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSEALL), 1);
  EXPECT_EQ(tree.Text(), "root [p+ [a [b! [x] c [y]]]]");
  EXPECT_EQ(RowsOf("b"), 0);
  EXPECT_EQ(RowsOf("p"), 1);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, FoldingAllCountsAClosedChildForItselfOnly) {
  // A hidden child that was opened with all keeps a count while it is closed; shown, it is still closed.
  tree.Build("root [a+ [b! [x]]]");
  tree.Expand(tree["b"], STE_EXPANDALL);
  const int before = tree.GetVisibleCount();
  tree.SetItemVisibility(tree["b"], 1);
  const int shown = tree.GetVisibleCount();
  EXPECT_EQ(shown - before, 2) << "its count is taken as it stands";
  tree.Expand(tree["a"], STE_COLLAPSEALL);
  EXPECT_EQ(tree.GetVisibleCount(), shown - 1) << "meant: of a closed child only itself is taken off";
}

TEST_F(ExpansionCounts, FoldingAllStopsAtAWall) {
  tree.Build("root [a+ [b [c+ [x]]]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSEALL), 1);
  EXPECT_TRUE(tree.IsItemExpanded(tree["c"]));
  EXPECT_EQ(RowsOf("c"), 1);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, FoldingTheWholeTreeFoldsTheRoot) {
  tree.Build("root [a+ [b] c]");
  EXPECT_EQ(tree.Expand(STI_ROOT, STE_COLLAPSEALL), 1);
  EXPECT_EQ(tree.Rows(), "");
  EXPECT_EQ(tree.GetVisibleCount(), 0);
  EXPECT_EQ(tree.Expand(STI_ROOT, STE_EXPANDALL), 1);
  EXPECT_EQ(tree.Rows(), "a b c");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, WhatTheHookInsertsCountsOnce) {
  tree.Build("root [a# b]");
  tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
    if (hook == "OnItemExpanding") tree.Add("late", item);
    return 1;
  };
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 1);
  EXPECT_EQ(tree.Rows(), "a late b");
  EXPECT_EQ(CheckTree(tree), "");
}

// --- Codes -----------------------------------------------------------------------------------------

TEST_F(ExpansionCounts, FlagsBesideTheActionAreNoPartOfIt) {
  tree.Build("root [a [x]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND | STE_SCROLL), 1);
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND | STE_ANYWAY), 1) << "nothing to do";
  EXPECT_EQ(tree.Expand(tree["a"], 0x10000 | STE_COLLAPSE), 1) << "higher bits do not count";
  EXPECT_FALSE(tree.IsItemExpanded(tree["a"]));
  EXPECT_LOG(tree.log, R"(
    OnItemExpanding a
    OnItemExpanded a
    OnItemExpanding a
    OnItemExpanded a)");
}

TEST_F(ExpansionCounts, UnknownActionsOnAnOpenItem) {
  tree.Build("root [a+ [x]]");
  for (unsigned code : {0u, 6u, 0xFFu}) EXPECT_EQ(tree.Expand(tree["a"], code), 0);
  for (unsigned code : {0u, 6u, 0xFFu}) EXPECT_EQ(tree.Expand(tree["a"], code | STE_ANYWAY), 1);
  EXPECT_EQ(tree.Text(), "root [a+ [x]]");
  std::string hooks;
  for (int i = 0; i < 3; ++i) hooks += "OnItemExpanding a\nOnItemExpanded a\n";
  EXPECT_LOG(tree.log, hooks);
}

TEST_F(ExpansionCounts, AnUnknownActionCanBeRefused) {
  tree.Build("root [a [x]]");
  tree.answer = [](const std::string&, CVornTreeItem*, CVornTreeItem*) { return 0; };
  EXPECT_EQ(tree.Expand(tree["a"], 6 | STE_ANYWAY), 0);
  EXPECT_LOG(tree.log, "OnItemExpanding a");
}

TEST_F(ExpansionCounts, TheResultOfTheSecondHookIsIgnored) {
  tree.Build("root [a [x]]");
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnItemExpanded" ? 0 : 1;
  };
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 1);
  EXPECT_EQ(tree.Rows(), "a x");
}

TEST_F(ExpansionCounts, EveryRefusalLeavesTheCounts) {
  tree.Build("root [a+ [x [y]] b [z]]");
  tree.answer = [](const std::string&, CVornTreeItem*, CVornTreeItem*) { return 0; };
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSE), 0);
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSEALL), 0);
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 0);
  EXPECT_EQ(tree.Expand(tree["b"], STE_EXPAND), 0);
  EXPECT_EQ(tree.Text(), "root [a+ [x [y]] b [z]]");
  EXPECT_EQ(tree.GetVisibleCount(), 3);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ExpansionCounts, IsItemExpandedOfWhatIsNoItemIsFalse) {
  EXPECT_FALSE(tree.IsItemExpanded(nullptr));
  EXPECT_FALSE(tree.IsItemExpanded(STI_ROOT));
  EXPECT_TRUE(tree.IsItemExpanded(tree.GetRootItem()));
}

TEST_F(ExpansionCounts, FoldingTellsTheSelectionNothing) {
  tree.Build("root [a+ [b+ [c*]]]");
  tree.Expand(tree["a"], STE_COLLAPSEALL);
  EXPECT_LOG(tree.log, "OnItemExpanding a\nOnItemExpanded a");
  EXPECT_EQ(tree.GetSelectedItem(), tree["c"]);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["c"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["c"]), nullptr) << "the walk from there works";
}

}  // namespace
