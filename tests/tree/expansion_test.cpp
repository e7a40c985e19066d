// Opening and folding: codes, hooks, counts, walls, hidden items, hostile hooks.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

TEST(Expand, OpensAndFoldsWithBothHooks) {
  TestTree tree;
  tree.Build("root [a [a1 a2] b]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 1);
  EXPECT_EQ(tree.Rows(), "a a1 a2 b");
  EXPECT_EQ(tree.Expand(tree["a"], STE_TOGGLE), 1);
  EXPECT_EQ(tree.Rows(), "a b");
  EXPECT_EQ(tree.Expand(tree["a"], STE_TOGGLE), 1);
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSE), 1);
  std::string hooks;
  for (int i = 0; i < 4; ++i) hooks += "OnItemExpanding a\nOnItemExpanded a\n";
  EXPECT_LOG(tree.log, hooks);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(Expand, OfALeafCallsNoHook) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 0);
  EXPECT_EQ(tree.Expand(nullptr, STE_EXPAND), 0);
}

TEST(Expand, WithNothingToDoSucceedsWithoutAHook) {
  TestTree tree;
  tree.Build("root [a+ [a1] b [b1]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 1);
  EXPECT_EQ(tree.Expand(tree["b"], STE_COLLAPSE), 1);
}

TEST(Expand, CollapseAllOnACollapsedItemRunsTheHooks) {
  TestTree tree;
  tree.Build("root [a [a1+ [x]]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSEALL), 1);
  EXPECT_LOG(tree.log, "OnItemExpanding a\nOnItemExpanded a");
  EXPECT_EQ(tree.Text(), "root [a [a1+ [x]]]");
}

TEST(Expand, UnknownActionsNeedTheirFlag) {
  TestTree tree;
  tree.Build("root [a [a1]]");
  EXPECT_EQ(tree.Expand(tree["a"], 6), 0);
  EXPECT_EQ(tree.Expand(tree["a"], 0), 0);
  EXPECT_EQ(tree.Expand(tree["a"], 6 | STE_ANYWAY), 1);
  EXPECT_LOG(tree.log, "OnItemExpanding a\nOnItemExpanded a");
  EXPECT_EQ(tree.Text(), "root [a [a1]]");
}

TEST(Expand, AVetoLeavesAllAsItWas) {
  TestTree tree;
  tree.Build("root [a [a1]]");
  tree.answer = [](const std::string&, CVornTreeItem*, CVornTreeItem*) { return 0; };
  EXPECT_EQ(tree.Expand(tree["a"], STE_TOGGLE), 0);
  EXPECT_LOG(tree.log, "OnItemExpanding a");
  EXPECT_EQ(tree.Text(), "root [a [a1]]");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(Expand, AnnouncedChildrenThatDoNotComeLeaveNoRows) {
  TestTree tree;
  tree.Build("root [a#]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 1);
  tree.log.Clear();
  EXPECT_TRUE(tree.IsItemExpanded(tree["a"]));
  EXPECT_EQ(tree.GetVisibleChildCount(tree["a"]), 0u);
}

TEST(Expand, TheHookIsThePlaceToInsertChildren) {
  TestTree tree;
  tree.Build("root [a# b]");
  tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
    if (hook == "OnItemExpanding") {
      tree.Add("a1", item);
      tree.Add("a2", item);
    }
    return 1;
  };
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 1);
  tree.log.Clear();
  EXPECT_EQ(tree.Rows(), "a a1 a2 b");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(Expand, AHiddenItemCountsForItselfOnly) {
  TestTree tree;
  tree.Build("root [a! [a1 a2] b]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 1);
  tree.log.Clear();
  EXPECT_TRUE(tree.IsItemExpanded(tree["a"]));
  EXPECT_EQ(tree["a"]->m_nVisibleDescendants, 2);
  EXPECT_EQ(tree.GetVisibleCount(), 1);
}

TEST(Expand, ExpandAllOpensAllButHiddenItems) {
  TestTree tree;
  tree.Build("root [a [b! [c [d]] e [f]]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPANDALL), 1);
  EXPECT_LOG(tree.log, "OnItemExpanding a\nOnItemExpanded a");
  EXPECT_EQ(tree.Text(), "root [a+ [b! [c+ [d]] e+ [f]]]");
  EXPECT_EQ(tree["b"]->m_nVisibleDescendants, 2) << "counted all the same";
  EXPECT_EQ(tree.Rows(), "a e f");
  EXPECT_EQ(tree.GetVisibleCount(), 3);
}

TEST(Expand, CollapseAllStopsAtWhatIsCollapsed) {
  TestTree tree;
  tree.Build("root [a+ [b+ [c+ [d]] e [f+ [g]]]]");
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSEALL), 1);
  tree.log.Clear();
  EXPECT_EQ(tree.Text(), "root [a [b [c [d]] e [f+ [g]]]]") << "what is below a collapsed item stays open";
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(Expand, FoldingLeavesTheSelectionAlone) {
  TestTree tree;
  tree.Build("root [a+ [a1] b]");
  tree.SelectItem(tree["a1"]);
  tree.log.Clear();
  EXPECT_EQ(tree.Expand(tree["a"], STE_COLLAPSE), 1);
  EXPECT_LOG(tree.log, "OnItemExpanding a\nOnItemExpanded a");
  EXPECT_EQ(tree.GetSelectedItem(), tree["a1"]);
  EXPECT_TRUE(tree.IsItemSelected(tree["a1"]));
  EXPECT_EQ(tree.GetItemHasFocus(), tree["a1"]);
}

TEST(Expand, TheRootByItsSentinel) {
  TestTree tree;
  tree.Build("root [a [b]]");
  EXPECT_EQ(tree.Expand(STI_ROOT, STE_EXPANDALL), 1);
  tree.log.Clear();
  EXPECT_EQ(tree.Rows(), "a b");
}

// --- Hooks that do as they like ----------------------------------------------------------------------

TEST(ExpandHook, MayDeleteTheItemBeforeOrAfter) {
  for (const char* when : {"OnItemExpanding", "OnItemExpanded"}) {
    for (unsigned code : {STE_EXPAND, STE_EXPANDALL, STE_COLLAPSEALL}) {
      TestTree tree;
      tree.Build("root [a [a1 [x]] b]");
      tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
        if (hook == when) tree.DeleteItem(item);
        return 1;
      };
      tree.Expand(tree["a"], code);
      EXPECT_EQ(tree.Text(), "root [b]") << when << code;
      EXPECT_EQ(CheckTree(tree), "");
      tree.log.Clear();
    }
  }
}

TEST(ExpandHook, MayDeleteAllOrMoveOrExpandItself) {
  TestTree tree;
  tree.Build("root [a [a1 [x]] b [c]]");
  int depth = 0;
  tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
    if (hook == "OnItemExpanding" && depth++ == 0) tree.Expand(item, STE_EXPAND);
    return 1;
  };
  EXPECT_EQ(tree.Expand(tree["a"], STE_EXPAND), 1);
  EXPECT_EQ(CheckTree(tree), "") << "opened twice, counted once";
  EXPECT_EQ(tree.Rows(), "a a1 b");

  tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
    if (hook == "OnItemExpanding") tree.MoveItem(tree["a1"], item, STI_LAST);
    return 1;
  };
  tree.Expand(tree["b"], STE_EXPAND);
  EXPECT_EQ(CheckTree(tree), "");

  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnItemExpanding") tree.DeleteAllItems(STI_ROOT);
    return 1;
  };
  tree.Expand(tree["a1"], STE_EXPAND);
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_EQ(CheckTree(tree), "");
  tree.log.Clear();
}

// --- Depth -----------------------------------------------------------------------------------------

// A chain is joined out of two halves, so that linking costs n log n and not the square.
CVornTreeItem* Chain(TestTree& tree, int count, CVornTreeItem** bottom) {
  if (count == 1) {
    *bottom = tree.InsertItem(L"", -1, -1);
    return *bottom;
  }
  CVornTreeItem *upperBottom, *lowerBottom;
  CVornTreeItem* const upper = Chain(tree, count / 2, &upperBottom);
  CVornTreeItem* const lower = Chain(tree, count - count / 2, &lowerBottom);
  tree.MoveItem(upperBottom, lower, STI_LAST);
  *bottom = lowerBottom;
  return upper;
}

TEST(Depth, AChainOfManyItemsNeedsNoDeepStack) {
  constexpr int kCount = 100000;
  TestTree tree;
  tree.SetRedraw(FALSE);
  CVornTreeItem* bottom = nullptr;
  CVornTreeItem* const top = Chain(tree, kCount, &bottom);
  ASSERT_EQ(tree.GetCount(), static_cast<unsigned>(kCount));
  EXPECT_EQ(bottom->m_nLevel, kCount);
  EXPECT_EQ(tree.Expand(top, STE_EXPANDALL), 1);
  EXPECT_EQ(tree.GetVisibleCount(), kCount);
  EXPECT_EQ(tree.GetLastVisibleItem(tree.GetRootItem()), bottom);
  int rows = 0;
  for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr; row = tree.GetNextVisibleItem(row))
    ++rows;
  EXPECT_EQ(rows, kCount);
  CVornTreeItemArray hidden;
  tree.GetHiddenItems(hidden);
  EXPECT_TRUE(tree.SortChildrenByName(top));
  EXPECT_EQ(tree.SelectItem(bottom), 1);
  EXPECT_EQ(tree.Expand(top, STE_COLLAPSEALL), 1);
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(tree.DeleteItem(top), 1);
  EXPECT_EQ(tree.GetCount(), 0u);
  tree.SetRedraw(TRUE);
  tree.log.Clear();
}

}  // namespace
