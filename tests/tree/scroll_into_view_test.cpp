// Stored positions, and bringing items into view.
#include "tree/scroll_tree.h"

namespace {

using support::kLinesAndButtons;
using support::ScrollTree;
using support::TreeScrolling;

// --- Stored positions ------------------------------------------------------------------------------

TEST_F(TreeScrolling, WhileRedrawIsHeldThePositionIsWhatWasLastStored) {
  CreateRows(100, 10);
  MoveTo(SB_VERT, 12);
  tree.SetRedraw(FALSE);
  EXPECT_EQ(Vertical(), 12);
  tree.CWnd::SetScrollPos(SB_VERT, 30, FALSE);
  EXPECT_EQ(Vertical(), 12);
  tree.SetScrollPos(SB_VERT, 5000, FALSE);
  EXPECT_EQ(Vertical(), 5000) << "as given, without the range's limit";
  tree.SetScrollPos(SB_HORZ, 77, FALSE);
  EXPECT_EQ(Horizontal(), 77);
  EXPECT_EQ(Vertical(), 5000);
  tree.SetScrollPos(SB_VERT, 12, FALSE);
  tree.SetRedraw(TRUE);
  EXPECT_EQ(Vertical(), 12);
}

TEST_F(TreeScrolling, SetScrollPosReturnsTheBarsEarlierPosition) {
  CreateRows(100, 10);
  MoveTo(SB_VERT, 12);
  EXPECT_EQ(tree.SetScrollPos(SB_VERT, 20, TRUE), 12);
  EXPECT_EQ(tree.SetScrollPos(SB_VERT, 0, TRUE), 20);
}

// --- EnsureVisible ---------------------------------------------------------------------------------

TEST_F(TreeScrolling, EnsureVisibleRefusesNothingToShow) {
  CreateRows(30, 5);
  EXPECT_EQ(tree.EnsureVisible(nullptr), 0);
  EXPECT_EQ(tree.EnsureVisible(STI_ROOT), 0);
  ScrollTree other;
  EXPECT_EQ(tree.EnsureVisible(other.Add("x")), 0);
  EXPECT_EQ(tree.set, "");
}

TEST_F(TreeScrolling, EnsureVisibleOpensTheParents) {
  Create(kLinesAndButtons, 200, 160);
  tree.Build("root [a [b [c [d]]] e]");
  EXPECT_EQ(tree.EnsureVisible(tree["d"]), 1);
  EXPECT_EQ(tree.Rows(), "a b c d e");
  EXPECT_LOG(tree.log, R"(
    OnItemExpanding c
    OnItemExpanded c
    OnItemExpanding b
    OnItemExpanded b
    OnItemExpanding a
    OnItemExpanded a)");
}

TEST_F(TreeScrolling, EnsureVisibleOfWhatIsVisibleInvalidatesNothing) {
  CreateRows(30, 5);
  for (const int row : {0, 2, 4}) {
    EXPECT_EQ(tree.EnsureVisible(Row(row)), 1);
    EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
    EXPECT_EQ(tree.set, "");
  }
}

TEST_F(TreeScrolling, EnsureVisibleOfTheRowBelowTheWindowGoesTwoPositionsDown) {
  CreateRows(100, 10);
  // The last display item is the row behind those that fit; the one after it is out of the window.
  Resize(200, 10 * height + 1);
  Reset();
  EXPECT_EQ(tree.EnsureVisible(Row(10)), 1);
  EXPECT_EQ(tree.set, "V2 ") << "one further than needed, meant";
  EXPECT_TRUE(::GetUpdateRect(tree, nullptr, FALSE));
}

TEST_F(TreeScrolling, EnsureVisibleFurtherDownStopsAtTheBottom) {
  CreateRows(100, 10);
  EXPECT_EQ(tree.EnsureVisible(Row(50)), 1);
  EXPECT_EQ(Vertical(), 50 - 10 + 1);
  Show();
  EXPECT_EQ(First(), "r41");
  EXPECT_LE(LabelOf(Row(50)).bottom, 10 * height);
  EXPECT_EQ(tree.EnsureVisible(Row(99)), 1);
  Show();
  EXPECT_LE(LabelOf(Row(99)).bottom, 10 * height);
}

TEST_F(TreeScrolling, EnsureVisibleOfARowAboveMakesItTheFirst) {
  CreateRows(100, 10);
  MoveTo(SB_VERT, 40);
  EXPECT_EQ(tree.EnsureVisible(Row(33)), 1);
  EXPECT_EQ(tree.set, "V33 ");
  ::UpdateWindow(tree);
  EXPECT_EQ(First(), "r33");
}

TEST_F(TreeScrolling, EnsureVisibleOfAHiddenItemRepaintsOnly) {
  CreateRows(30, 5);
  tree.SetItemVisibility(Row(20), 0);
  Reset();
  EXPECT_EQ(tree.EnsureVisible(Row(20)), 1);
  EXPECT_EQ(tree.set, "");
  EXPECT_TRUE(::GetUpdateRect(tree, nullptr, FALSE));
}

TEST_F(TreeScrolling, EnsureVisibleAlsoMovesAcross) {
  Create(kLinesAndButtons, 120, 100);
  CVornTreeItem* parent = STI_ROOT;
  tree.SetRedraw(FALSE);
  for (int level = 1; level <= 12; ++level) {
    parent = tree.Add("level" + std::to_string(level), parent);
    tree.Expand(parent, STE_EXPAND);
  }
  CVornTreeItem* const deepest = tree.Add("deepest", parent);
  AddWideRow();
  for (int i = 0; i < 12; ++i) tree.recording = false;
  for (CVornTreeItem* each = tree["level1"]; each != deepest; each = each->m_pFirstChild) {
    tree.Expand(each, STE_EXPAND);
  }
  tree.SetRedraw(TRUE);
  tree.log.Clear();
  ASSERT_TRUE(HasBar(SB_HORZ));
  MoveTo(SB_HORZ, 500);
  EXPECT_EQ(tree.EnsureVisible(deepest), 1);
  EXPECT_EQ(Horizontal(), 20 * 12) << "the item's level, in indents";
}

TEST_F(TreeScrolling, EnsureVisibleStopsWhenAHookDestroysTheWindow) {
  Create(kLinesAndButtons, 200, 100);
  tree.Build("root [a [b [c]]]");
  CVornTreeItem* const item = tree["c"];
  tree.recording = false;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnItemExpanded") tree.DestroyWindow();
    return 1;
  };
  EXPECT_EQ(tree.EnsureVisible(item), 0);
  EXPECT_EQ(tree.GetSafeHwnd(), nullptr);
}

TEST_F(TreeScrolling, EnsureVisibleStopsWhenAHookDeletesTheItem) {
  Create(kLinesAndButtons, 200, 100);
  tree.Build("root [a [b [c]]]");
  CVornTreeItem* const item = tree["c"];
  tree.recording = false;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnItemExpanding" && tree["c"] != nullptr) tree.DeleteItem(item);
    return 1;
  };
  EXPECT_EQ(tree.EnsureVisible(item), 0);
  tree.answer = nullptr;
}

// --- SetFirstVisible -------------------------------------------------------------------------------

TEST_F(TreeScrolling, SetFirstVisibleOfTheFirstRowLeavesTheLockAlone) {
  CreateRows(30, 5);
  EXPECT_EQ(tree.SetFirstVisible(Row(0)), 1);
  EXPECT_EQ(tree.redraws, 0);
  EXPECT_EQ(tree.set, "");
}

TEST_F(TreeScrolling, SetFirstVisibleGoesDownAndUp) {
  CreateRows(100, 10);
  EXPECT_EQ(tree.SetFirstVisible(Row(30)), 1);
  EXPECT_EQ(Vertical(), 30);
  EXPECT_EQ(First(), "r30");
  EXPECT_EQ(tree.redraws, 2) << "held and released";
  EXPECT_EQ(tree.SetFirstVisible(Row(12)), 1);
  EXPECT_EQ(Vertical(), 12);
  EXPECT_EQ(First(), "r12");
}

TEST_F(TreeScrolling, SetFirstVisibleOpensTheParents) {
  CreateRows(40, 10);
  tree.Add("child", Row(20));
  tree.recording = false;
  EXPECT_EQ(tree.SetFirstVisible(tree["child"]), 1);
  EXPECT_TRUE(tree.IsItemExpanded(Row(20)));
  EXPECT_EQ(First(), "child");
}

TEST_F(TreeScrolling, SetFirstVisibleFailsOnAnEmptyDisplayListAndOnInvalidItems) {
  CreateRows(30, 5);
  EXPECT_EQ(tree.SetFirstVisible(nullptr), 0);
  EXPECT_EQ(tree.SetFirstVisible(STI_ROOT), 0);
  ScrollTree other;
  EXPECT_EQ(tree.SetFirstVisible(other.Add("x")), 0);
  tree.SetRedraw(FALSE);
  tree.DeleteItem(Row(3));  // which forgets the display list
  EXPECT_EQ(tree.SetFirstVisible(Row(5)), 0);
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.SetFirstVisible(Row(5)), 1);
}

TEST_F(TreeScrolling, SetFirstVisibleOfAHiddenItemScrollsNothing) {
  CreateRows(40, 5);
  tree.SetItemVisibility(Row(20), 0);
  Reset();
  EXPECT_EQ(tree.SetFirstVisible(Row(20)), 1);
  EXPECT_EQ(tree.set, "");
  EXPECT_EQ(Vertical(), 0);
}

// --- Resizing --------------------------------------------------------------------------------------

TEST_F(TreeScrolling, AResizeLaysOutBeforeAndAfter) {
  CreateRows(20, 30);
  ASSERT_FALSE(HasBar(SB_VERT));
  tree.MoveWindow(20, 20, 200, 5 * height);
  EXPECT_TRUE(HasBar(SB_VERT));
  EXPECT_EQ(Bar(SB_VERT).nMax, 20);
  Reset();
  tree.SetWindowPos(nullptr, 30, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  EXPECT_EQ(tree.set, "");
  tree.SetRedraw(FALSE);
  tree.MoveWindow(20, 20, 200, 40 * height);
  EXPECT_TRUE(HasBar(SB_VERT)) << "no layout while redraw is held";
  tree.SetRedraw(TRUE);
  EXPECT_FALSE(HasBar(SB_VERT));
}

}  // namespace
