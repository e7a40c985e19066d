// Scroll bars: when they show, and their ranges. The vertical position is a row's index, the horizontal one
// is in pixels.
#include "tree/scroll_tree.h"

namespace {

using support::ScrollTree;
using support::TreeScrolling;

// --- Which bars, and their ranges ------------------------------------------------------------------

TEST_F(TreeScrolling, WhenAllRowsFitThereAreNoBarsAndBothPositionsAreZero) {
  Create(0, 200, 160);
  Fill(3);
  EXPECT_FALSE(HasBar(SB_VERT));
  EXPECT_FALSE(HasBar(SB_HORZ));
  EXPECT_EQ(Vertical(), 0);
  EXPECT_EQ(Horizontal(), 0);
  EXPECT_EQ(First(), "r0");
  const SCROLLINFO vertical = Bar(SB_VERT), horizontal = Bar(SB_HORZ);
  EXPECT_EQ(vertical.nMax, 160);
  EXPECT_EQ(vertical.nPage, 161u);
  EXPECT_EQ(horizontal.nMax, 200);
  EXPECT_EQ(horizontal.nPage, 201u);
}

TEST_F(TreeScrolling, AHiddenBarsPositionIsZeroAndTheFirstRowIsAtTheTop) {
  CreateRows(30, 5);
  AddWideRow();
  Resize(120, 5 * height);
  MoveTo(SB_VERT, 12);
  MoveTo(SB_HORZ, 50);
  ASSERT_EQ(First(), "r12");
  ASSERT_EQ(Horizontal(), 50);
  tree.DeleteItem(tree[std::string(120, 'W')]);
  EXPECT_FALSE(HasBar(SB_HORZ));
  EXPECT_EQ(Horizontal(), 0);
  EXPECT_TRUE(HasBar(SB_VERT));
  EXPECT_EQ(Vertical(), 12);
  Resize(200, 40 * height);
  EXPECT_FALSE(HasBar(SB_VERT));
  EXPECT_EQ(Vertical(), 0);
  EXPECT_EQ(First(), "r0");
  EXPECT_EQ(CRect(Row(0)->m_Rect).top, 0);
  tree.SetRedraw(FALSE);
  EXPECT_EQ(Vertical(), 0) << "stored as well";
  EXPECT_EQ(Horizontal(), 0);
  tree.SetRedraw(TRUE);
}

TEST_F(TreeScrolling, ABarThatGoesMakesTheRootsFirstChildTheFirstRowIfThatIsOne) {
  CreateRows(30, 5);
  MoveTo(SB_VERT, 3);
  tree.SetRedraw(FALSE);
  for (int i = 29; i >= 4; --i) tree.DeleteItem(Row(i));
  tree.SetRedraw(TRUE);
  EXPECT_FALSE(HasBar(SB_VERT));
  EXPECT_EQ(First(), "r0");
  tree.SetItemVisibility(Row(0), 0);
  EXPECT_EQ(First(), "r1") << "the hidden one is asked for, and the paint finds the first row";
  EXPECT_EQ(Vertical(), 0);
}

TEST_F(TreeScrolling, ABarThatGoesInDocumentModeMakesTheDocumentsFirstRowTheFirst) {
  CreateRows(3, 5);
  tree.recording = false;
  tree.SetRedraw(FALSE);
  for (int i = 0; i < 20; ++i) tree.Add("child" + std::to_string(i), Row(1));
  tree.Expand(Row(1), STE_EXPAND);
  tree.SetRedraw(TRUE);
  tree.SelectItem(tree["child4"]);
  tree.SetDocumentDisplay(1);
  ASSERT_TRUE(HasBar(SB_VERT));
  EXPECT_EQ(Bar(SB_VERT).nMax, 20) << "the rows of the document alone";
  MoveTo(SB_VERT, 8);
  EXPECT_EQ(First(), "child8");
  Resize(200, 30 * height);
  EXPECT_FALSE(HasBar(SB_VERT));
  EXPECT_EQ(First(), "child0");
  EXPECT_EQ(tree.GetDisplayCount(), 20);
}

TEST_F(TreeScrolling, TheVerticalRangeIsTheRowCountItself) {
  CreateRows(100, 10);
  const SCROLLINFO info = Bar(SB_VERT);
  EXPECT_EQ(info.nMin, 0);
  EXPECT_EQ(info.nMax, 100);
  EXPECT_EQ(info.nPage, 9u) << "one row short of what fits";
  Scroll(WM_VSCROLL, SB_BOTTOM);
  EXPECT_EQ(Vertical(), 92);
  EXPECT_EQ(tree.GetDisplayCount(), 8) << "and two rows of blank, meant";
}

TEST_F(TreeScrolling, TheHorizontalRangeEndsFourPixelsBehindTheWidestLabel) {
  CreateRows(3, 10, 120);
  CVornTreeItem* const wide = AddWideRow();
  Show();
  ASSERT_TRUE(HasBar(SB_HORZ));
  const int thickness = ::GetSystemMetrics(SM_CXVSCROLL);
  const SCROLLINFO info = Bar(SB_HORZ);
  EXPECT_EQ(info.nMin, 0);
  EXPECT_EQ(info.nMax, wide->m_nLabelOffset + 4);
  EXPECT_EQ(info.nPage, static_cast<UINT>(120 - thickness)) << "less the other bar's thickness, meant";
}

TEST_F(TreeScrolling, BarsAndRangesInWindowsOfAllSizes) {
  Create(0, 200, 160);
  Fill(4);
  CVornTreeItem* const wide = tree.Add("a label of some width");
  const int bar = ::GetSystemMetrics(SM_CXVSCROLL), lying = ::GetSystemMetrics(SM_CYHSCROLL);
  const int tall = 5 * support::HeightOf(tree, wide), broad = wide->m_nLabelOffset + 2;
  for (int width : {bar - 1, bar, bar + 1, broad - 1, broad, broad + bar - 1, broad + bar, 300}) {
    for (int high : {lying - 1, lying, lying + 1, tall - 1, tall, tall + lying - 1, tall + lying, 300}) {
      SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(high));
      // Without a bar from before: its thickness would be off the client area that the rule starts from.
      Resize(600, 400);
      tree.SetRedraw(FALSE);
      tree.MoveWindow(20, 20, width, high);
      tree.CalcLayout();
      bool across = width < broad, down = high < tall;
      if (across && high - lying < tall) down = true;
      if (down && width - bar < broad) across = true;
      if (width <= bar) across = false;
      if (high <= lying) down = false;
      EXPECT_EQ(HasBar(SB_HORZ), across);
      EXPECT_EQ(HasBar(SB_VERT), down);
      EXPECT_EQ(Bar(SB_HORZ).nMax, across ? broad + 2 : width);
      EXPECT_EQ(static_cast<int>(Bar(SB_HORZ).nPage), across ? width - bar : width + 1);
      EXPECT_EQ(Bar(SB_VERT).nMax, down ? 5 : high);
      EXPECT_EQ(static_cast<int>(Bar(SB_VERT).nPage) == high + 1, !down);
      tree.SetRedraw(TRUE);
    }
  }
}

TEST_F(TreeScrolling, TheVerticalBarEatsIntoTheWidthAndBringsTheHorizontalOne) {
  Create(0, 300, 160);
  Fill(4);
  CVornTreeItem* const wide = tree.Add("a label of some width");
  const int broad = wide->m_nLabelOffset + 2;
  const int tall = 5 * support::HeightOf(tree, wide);
  Resize(broad + 1, tall + 1);
  EXPECT_FALSE(HasBar(SB_VERT));
  EXPECT_FALSE(HasBar(SB_HORZ));
  Resize(broad + 1, tall - 1);
  EXPECT_TRUE(HasBar(SB_VERT));
  EXPECT_TRUE(HasBar(SB_HORZ));
}

TEST_F(TreeScrolling, ANarrowWindowNeverHasAHorizontalBar) {
  Create(0, 200, 160);
  AddWideRow();
  EXPECT_TRUE(HasBar(SB_HORZ));
  Resize(::GetSystemMetrics(SM_CXVSCROLL), 160);
  EXPECT_FALSE(HasBar(SB_HORZ));
}

TEST_F(TreeScrolling, AHorizontalPositionIsLimitedToWhatTheRangeLeaves) {
  Create(0, 120, 160);
  CVornTreeItem* const wide = AddWideRow();
  Show();
  MoveTo(SB_HORZ, 100000);
  const int end = Bar(SB_HORZ).nMax - static_cast<int>(Bar(SB_HORZ).nPage);
  tree.CalcLayout();
  EXPECT_EQ(Horizontal(), end);
  tree.SetItemText(wide, std::wstring(40, L'W').c_str());
  const SCROLLINFO info = Bar(SB_HORZ);
  EXPECT_EQ(info.nMax, wide->m_nLabelOffset + 4);
  EXPECT_EQ(Horizontal(), info.nMax - static_cast<int>(info.nPage));
}

TEST_F(TreeScrolling, AVerticalPositionBehindTheRangeComesBackByAPage) {
  CreateRows(60, 10);
  MoveTo(SB_VERT, 50);
  tree.SetRedraw(FALSE);
  for (int i = 59; i >= 30; --i) tree.DeleteItem(Row(i));
  tree.SetRedraw(TRUE);
  EXPECT_EQ(Bar(SB_VERT).nMax, 30);
  EXPECT_EQ(Vertical(), 30 - 9);
}

TEST_F(TreeScrolling, UpdateScrollBarAsksForRangeAndPosition) {
  CreateRows(30, 5);
  tree.masks.clear();
  tree.UpdateScrollBar();
  EXPECT_EQ(tree.masks[SB_HORZ], 5u);
  EXPECT_EQ(tree.masks[SB_VERT], 5u);
}

TEST_F(TreeScrolling, UpdateScrollBarRefreshesTheDisplayListOnly) {
  CreateRows(30, 5);
  const int drawn = tree.GetDisplayCount();
  tree.SetScrollPos(SB_VERT, 7, FALSE);
  tree.UpdateScrollBar();
  EXPECT_EQ(First(), "r7");
  EXPECT_EQ(tree.Name(tree.GetLastDisplayItem()), "r12") << "the row behind the last that fits exactly";
  EXPECT_EQ(tree.GetDisplayCount(), drawn);
}

TEST_F(TreeScrolling, WithoutAWindowNothingHappens) {
  ScrollTree windowless;
  CVornTreeItem* const item = windowless.Add("x");
  windowless.UpdateScrollBar();
  windowless.DoScroll(SB_VERT, SB_LINEDOWN, 0);
  EXPECT_EQ(windowless.EnsureVisible(item), 0);
  EXPECT_EQ(windowless.SetFirstVisible(item), 0);
  EXPECT_EQ(windowless.GetScrollPos(SB_VERT), 0);
}

// --- What fits -------------------------------------------------------------------------------------

TEST_F(TreeScrolling, RowsOfAPageAreCountedFromTheFirstRowOfAll) {
  CreateRows(30, 5);
  const auto page = [&] { return static_cast<int>(Bar(SB_VERT).nPage); };
  EXPECT_EQ(page(), 4) << "5 fill the window exactly";
  Resize(200, 5 * height + 1);
  EXPECT_EQ(page(), 5);
  Resize(200, 5 * height - 1);
  EXPECT_EQ(page(), 4);
  // The rows at the present position play no part.
  const auto large = support::FontOfHeight(40);
  ASSERT_NE(large, nullptr);
  tree.SetItemFont(Row(20), large.get());
  MoveTo(SB_VERT, 20);
  tree.CalcLayout();
  EXPECT_EQ(page(), 4);
  tree.SetItemFont(Row(0), large.get());
  tree.CalcLayout();
  int sum = 42, rows = 1;
  for (; sum < 5 * height - 1; sum += height) ++rows;
  EXPECT_EQ(page(), rows - 1);
}

TEST_F(TreeScrolling, TheLastDisplayItemIsTheOneBehindRowsThatFitExactly) {
  CreateRows(30, 5);
  const auto last = [&] {
    tree.UpdateScrollBar();
    return tree.Name(tree.GetLastDisplayItem());
  };
  EXPECT_EQ(last(), "r5");
  Resize(200, 5 * height - 1);
  EXPECT_EQ(last(), "r3") << "the one before the row that is cut";
  Resize(200, 5 * height + 1);
  EXPECT_EQ(last(), "r4");
  MoveTo(SB_VERT, 10);
  EXPECT_EQ(last(), "r14");
  tree.SetScrollPos(SB_VERT, 25, FALSE);
  EXPECT_EQ(last(), "r29") << "the end of the list";
  tree.SetScrollPos(SB_VERT, 0, FALSE);
  const auto large = support::FontOfHeight(40);
  ASSERT_NE(large, nullptr);
  tree.SetItemFont(Row(0), large.get());
  Resize(200, 30);
  EXPECT_EQ(last(), "r1") << "there is none before the row that is cut";
}

}  // namespace
