// What each code of the bars and the wheel do.
#include "support/driver.h"
#include "tree/scroll_tree.h"

namespace {

using support::TreeScrolling;

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

}  // namespace
