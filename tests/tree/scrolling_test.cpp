// Scroll bars and positions: when bars show, their ranges, what each code and the wheel do, and bringing
// items into view. The vertical position is a row's index, the horizontal one is in pixels.
#include <map>
#include <random>

#include "support/driver.h"
#include "tree/painted_tree.h"

namespace {

using support::kLinesAndButtons;

// Counts paints, and lets the test give other answers than the bars'.
class ScrollTree : public support::TestTree {
 public:
  using CVornTreeCtrl::OnHScroll;
  using CVornTreeCtrl::OnMouseWheel;
  using CVornTreeCtrl::OnVScroll;

  int GetScrollInfo(int bar, SCROLLINFO* info, unsigned int mask) override {
    masks[bar] = mask;
    const int result = CVornTreeCtrl::GetScrollInfo(bar, info, mask);
    if (track >= 0) info->nTrackPos = track;
    return result;
  }
  int SetScrollPos(int bar, int pos, int redraw) override {
    set += (bar == SB_HORZ ? "H" : "V") + std::to_string(pos) + (redraw ? " " : "- ");
    return CVornTreeCtrl::SetScrollPos(bar, pos, redraw);
  }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_PAINT) ++paints;
    if (message == WM_VSCROLL)
      scrolls += std::to_string(LOWORD(wParam)) + ":" + std::to_string(HIWORD(wParam)) + " ";
    if (message == WM_SETREDRAW) ++redraws;
    return CVornTreeCtrl::WindowProc(message, wParam, lParam);
  }

  int paints = 0;
  int redraws = 0;
  int track = -1;
  std::string set;
  std::string scrolls;
  std::map<int, unsigned> masks;
};

class TreeScrolling : public support::PaintedTreeOf<ScrollTree> {
 protected:
  // A window that exactly that many rows fill, with count rows in it.
  void CreateRows(int count, int fitting, int cx = 200) {
    Create(0, cx, 100);
    Fill(count);
    height = support::HeightOf(tree, Row(0));
    Resize(cx, fitting * height);
    Reset();
  }
  void Reset() {
    tree.paints = 0;
    tree.redraws = 0;
    tree.set.clear();
    tree.scrolls.clear();
  }
  void Scroll(UINT message, UINT code, UINT pos = 0) {
    Reset();
    tree.SendMessage(message, MAKEWPARAM(code, pos), 0);
  }
  void MoveTo(int bar, int position) {
    tree.SetScrollPos(bar, position, TRUE);
    Repaint();
    Reset();
  }
  int Vertical() { return tree.GetScrollPos(SB_VERT); }
  int Horizontal() { return tree.GetScrollPos(SB_HORZ); }
  // A row whose label is much wider than any window here.
  CVornTreeItem* AddWideRow() { return tree.Add(std::string(120, 'W')); }

  int height = 0;
};

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

// --- The vertical codes ----------------------------------------------------------------------------

TEST_F(TreeScrolling, VerticalCodes) {
  CreateRows(100, 10);
  const int shown = tree.GetDisplayCount();
  EXPECT_EQ(shown, 11);
  const struct {
    UINT code;
    int from;
    UINT argument;
    const char* set;
  } cases[] = {
      {SB_LINEUP, 5, 0, "V4 "},          {SB_LINEUP, 0, 0, "V0 "},       {SB_LINEDOWN, 5, 0, "V6 "},
      {SB_LINEDOWN, 92, 0, "V93 "},  // the system limits it
      {SB_PAGEUP, 50, 0, "V40 "},        {SB_PAGEUP, 3, 0, "V0 "},       {SB_PAGEDOWN, 50, 0, "V60 "},
      {SB_THUMBPOSITION, 5, 33, "V33 "}, {SB_THUMBTRACK, 5, 34, "V34 "}, {SB_TOP, 5, 0, "V0 "},
      {SB_BOTTOM, 5, 0, "V100 "},
  };
  for (const auto& each : cases) {
    MoveTo(SB_VERT, each.from);
    ASSERT_EQ(Vertical(), each.from);
    Scroll(WM_VSCROLL, each.code, each.argument);
    EXPECT_EQ(tree.set, each.set) << each.code << " from " << each.from;
    EXPECT_EQ(tree.paints, 1) << "repainted at once";
    EXPECT_LE(Vertical(), 92);
  }
}

TEST_F(TreeScrolling, VerticalPagesNearTheEndAreLimitedToTheRange) {
  CreateRows(100, 10);
  MoveTo(SB_VERT, 92);
  EXPECT_EQ(tree.GetDisplayCount(), 8);
  Scroll(WM_VSCROLL, SB_PAGEDOWN);
  EXPECT_EQ(tree.set, "V99 ") << "by the rows drawn, less one";
  EXPECT_EQ(Vertical(), 92);
  Scroll(WM_VSCROLL, SB_PAGEUP);
  EXPECT_EQ(tree.set, "V85 ");
}

TEST_F(TreeScrolling, EndOfScrollOnTheVerticalBarRepaintsNothing) {
  CreateRows(100, 10);
  for (const UINT code : {8u, 9u, 200u}) {
    Scroll(WM_VSCROLL, code, 50);
    EXPECT_EQ(tree.paints, 0);
    EXPECT_EQ(tree.set, "");
  }
}

TEST_F(TreeScrolling, TheVerticalThumbsArgumentHasSixteenBits) {
  CreateRows(5, 2);
  SCROLLINFO info = Bar(SB_VERT);
  info.fMask = SIF_RANGE;
  info.nMax = 100000;
  tree.SetScrollInfo(SB_VERT, &info, TRUE);
  tree.track = 90000;
  Scroll(WM_VSCROLL, SB_THUMBTRACK, 40000);
  EXPECT_EQ(tree.set, "V40000 ") << "unsigned, and not the bar's own track position";
}

TEST_F(TreeScrolling, WithoutItsBarAMessageDoesNothing) {
  CreateRows(3, 10);
  for (const UINT code : {SB_LINEDOWN, SB_BOTTOM, SB_THUMBPOSITION, SB_ENDSCROLL}) {
    Scroll(WM_VSCROLL, code, 2);
    EXPECT_EQ(tree.set, "");
    EXPECT_EQ(tree.paints, 0);
    Scroll(WM_HSCROLL, code, 2);
    EXPECT_EQ(tree.set, "");
    EXPECT_EQ(tree.paints, 0);
  }
}

// --- The horizontal codes --------------------------------------------------------------------------

TEST_F(TreeScrolling, HorizontalCodes) {
  Create(0, 150, 160);
  AddWideRow();
  Show();
  const SCROLLINFO info = Bar(SB_HORZ);
  const int page = static_cast<int>(info.nPage), end = info.nMax - page;
  ASSERT_GT(end, 300);
  const struct {
    UINT code;
    int from;
    int to;
  } cases[] = {
      {SB_LINELEFT, 10, 6},
      {SB_LINELEFT, 2, -2},
      {SB_LINELEFT, 0, 0},
      {SB_LINERIGHT, 10, 14},
      {SB_LINERIGHT, end - 1, end + 3},
      {SB_LINERIGHT, end, end},
      {SB_PAGELEFT, 200, 200 - page},
      {SB_PAGELEFT, 10, 0},
      {SB_PAGERIGHT, 10, 10 + page},
      {SB_PAGERIGHT, end, end + page},
      {SB_LEFT, 50, 0},
      {SB_RIGHT, 50, info.nMax},
      {SB_ENDSCROLL, 50, 50},
      {77, 50, 50},
  };
  for (const auto& each : cases) {
    MoveTo(SB_HORZ, each.from);
    ASSERT_EQ(Horizontal(), each.from);
    Scroll(WM_HSCROLL, each.code);
    EXPECT_EQ(tree.set, "H" + std::to_string(each.to) + " ") << each.code << " from " << each.from;
    EXPECT_EQ(tree.paints, 1) << "also for a code without a meaning, meant";
  }
}

TEST_F(TreeScrolling, TheHorizontalThumbGoesByTheTrackPosition) {
  Create(0, 150, 160);
  AddWideRow();
  Show();
  tree.track = 77;
  Scroll(WM_HSCROLL, SB_THUMBTRACK, 33);
  EXPECT_EQ(tree.set, "H77 ");
  tree.track = 70001;
  Scroll(WM_HSCROLL, SB_THUMBPOSITION, 33);
  EXPECT_EQ(tree.set, "H70001 ") << "beyond 16 bits";
  EXPECT_EQ(tree.masks[SB_HORZ], 0x17u);
}

// --- The wheel -------------------------------------------------------------------------------------

TEST_F(TreeScrolling, TheWheelMovesOneRowForEachWholeNotch) {
  CreateRows(100, 10);
  const auto turn = [&](int delta) {
    MoveTo(SB_VERT, 20);
    tree.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), MAKELPARAM(150, 150));
    return Vertical();
  };
  EXPECT_EQ(turn(119), 20);
  EXPECT_EQ(turn(-119), 20);
  EXPECT_EQ(turn(120), 19);
  EXPECT_EQ(turn(-240), 22);
  EXPECT_EQ(turn(359), 18);
  EXPECT_EQ(tree.scrolls, "4:18 ") << "as a thumb position";
  EXPECT_EQ(tree.OnMouseWheel(0, 120, CPoint()), 1);
}

TEST_F(TreeScrolling, TheWheelStopsAtTheTop) {
  CreateRows(100, 10);
  MoveTo(SB_VERT, 1);
  tree.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 360), 0);
  EXPECT_EQ(tree.scrolls, "4:0 ");
  EXPECT_EQ(Vertical(), 0);
}

TEST_F(TreeScrolling, TheWheelLeavesTheTestOfTheBarToTheScrollHandler) {
  CreateRows(3, 10);
  tree.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
  EXPECT_EQ(tree.scrolls, "4:1 ");
  EXPECT_EQ(tree.set, "");
  EXPECT_EQ(Vertical(), 0);
}

TEST_F(TreeScrolling, ATurnOfTheRealWheelScrolls) {
  CreateRows(100, 10);
  tree.SetFocus();
  support::Wheel(support::At(tree, 20, 20), -3);
  EXPECT_EQ(Vertical(), 3);
  EXPECT_EQ(First(), "r3");
}

// --- A label edit ----------------------------------------------------------------------------------

TEST_F(TreeScrolling, EveryScrollClosesTheLabelEditIfTheBarIsShown) {
  CreateRows(100, 10);
  tree.recording = false;
  const struct {
    UINT message;
    UINT code;
    bool ends;
  } cases[] = {{WM_VSCROLL, SB_LINEUP, true},  // the position stays, and the edit ends all the same
               {WM_VSCROLL, SB_ENDSCROLL, true},
               {WM_HSCROLL, SB_LINERIGHT, false}};
  for (const auto& each : cases) {
    ASSERT_NE(tree.EditLabel(Row(1)), nullptr);
    Scroll(each.message, each.code);
    EXPECT_EQ(tree.GetEditControl() == nullptr, each.ends) << each.message << ' ' << each.code;
    tree.EndLabelEdit();
  }
}

// --- DoScroll --------------------------------------------------------------------------------------

TEST_F(TreeScrolling, DoScrollStepsByTwoAndPagesByPixels) {
  CreateRows(1000, 10);
  AddWideRow();
  Resize(150, 10 * height);
  CRect client;
  tree.GetClientRect(client);
  const auto from = [&](int bar, int position, UINT code, UINT pos = 0) {
    MoveTo(bar == SB_HORZ ? SB_HORZ : SB_VERT, position);
    tree.DoScroll(bar, code, pos);
    return tree.set;
  };
  EXPECT_EQ(from(SB_VERT, 500, SB_LINEUP), "V498 ");
  EXPECT_EQ(from(SB_VERT, 500, SB_LINEDOWN), "V502 ");
  EXPECT_EQ(from(SB_VERT, 500, SB_PAGEUP), "V" + std::to_string(500 - client.Height()) + " ")
      << "pixels on both bars, meant";
  EXPECT_EQ(from(SB_VERT, 500, SB_PAGEDOWN), "V" + std::to_string(500 + client.Height()) + " ");
  EXPECT_EQ(from(SB_VERT, 500, SB_THUMBPOSITION, 7), "V7 ");
  EXPECT_EQ(from(SB_VERT, 500, SB_THUMBTRACK, 8), "V8 ");
  EXPECT_EQ(from(SB_VERT, 500, SB_THUMBTRACK, 500), "") << "no way to go";
  EXPECT_EQ(from(SB_VERT, 500, SB_TOP), "");
  EXPECT_EQ(from(SB_VERT, 500, SB_BOTTOM), "");
  EXPECT_EQ(from(SB_VERT, 500, SB_ENDSCROLL), "");
  EXPECT_EQ(from(SB_VERT, 1, SB_LINEUP), "V0 ");
  EXPECT_EQ(from(SB_VERT, 0, SB_LINEUP), "") << "limited to where it is";
  EXPECT_EQ(from(SB_VERT, 0, SB_THUMBPOSITION, 0xFFFFFFFF), "") << "before the range";
  EXPECT_EQ(from(SB_VERT, 5, SB_THUMBPOSITION, 0x80000000), "V0 ");
  EXPECT_EQ(from(SB_VERT, 5, SB_THUMBPOSITION, 0x7FFFFFFF), "V1001 ");
  EXPECT_EQ(from(SB_HORZ, 300, SB_LINEUP), "H298 ");
  EXPECT_EQ(from(SB_HORZ, 300, SB_LINEDOWN), "H302 ");
  EXPECT_EQ(from(SB_HORZ, 300, SB_PAGEUP), "H" + std::to_string(300 - client.Width()) + " ");
  EXPECT_EQ(from(7, 500, SB_LINEUP), "V498 ") << "any other bar is the vertical one";
  EXPECT_EQ(tree.paints, 0) << "it repaints nothing";
}

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
