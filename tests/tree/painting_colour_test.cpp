// The colours of a label: every rank of the table, in every paint mode, with and without the focus.
#include <set>

#include "tree/painted_tree.h"

namespace {

using support::Picture;
using support::Rgb;

constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kOwnBack = RGB(250, 240, 200);
constexpr COLORREF kOwnText = RGB(120, 10, 10);
constexpr unsigned kSelected = STIS_SELECTED, kDropTarget = STIS_DROPHILITED, kHot = STIS_HOT;

class TreeColours : public support::PaintedTree {
 protected:
  void SetUp() override {
    Create(STS_HOTTRACK);
    // Without antialiasing a label has two colours and no more.
    font = support::FontOfHeight(18);
    ASSERT_NE(font, nullptr);
    tree.SetFont(font.get(), FALSE);
    tree.SetFocusRectVisible(false);
    tree.Build("root [HHH other]");
    item = tree["HHH"];
    Show();
  }
  // "back text" of the item's label on the screen.
  std::set<std::uint32_t> Colors() {
    Repaint();
    return ColorsIn(Look().Part(LabelOf(item)));
  }
  static std::set<std::uint32_t> ColorsIn(const Picture& picture) {
    return {picture.pixels.begin(), picture.pixels.end()};
  }
  static std::set<std::uint32_t> Pair(COLORREF back, COLORREF text) { return {Rgb(back), Rgb(text)}; }
  static std::set<std::uint32_t> SystemPair(int back, int text) {
    return Pair(::GetSysColor(back), ::GetSysColor(text));
  }
  // The colours with which the item is drawn in a paint mode.
  std::set<std::uint32_t> ColorsInMode(VornTreePaintMode mode) {
    Repaint();
    CRect label(item->m_Rect);
    CVornTreeDC dc(&tree);
    EXPECT_EQ(dc.CreateBitmapCapture(200, 40), 1);
    dc.SetPaintMode(mode);
    dc.FillSolidRect(CRect(0, 0, 200, 40), RGB(1, 2, 3));
    dc.DrawItem(CRect(0, 0, 200, 40), item, tree.GetStyle(), 0);
    EXPECT_EQ(label, CRect(item->m_Rect)) << "only a paint of the window moves it";
    return ColorsIn(support::CaptureDc(dc, 2, 0, label.Width(), label.Height()));
  }
  void Focus(bool on) {
    if (on) {
      tree.SetFocus();
    } else {
      ::SetFocus(*host);
    }
    ASSERT_EQ(::GetFocus() == tree.GetSafeHwnd(), on);
  }
  void Mark(unsigned state, bool on = true) { tree.ModifyItemState(item, on ? 0 : state, on ? state : 0); }

  std::unique_ptr<CFont> font;
  CVornTreeItem* item = nullptr;
};

TEST_F(TreeColours, AnOrdinaryItemHasTheWindowsColours) {
  EXPECT_EQ(Colors(), SystemPair(COLOR_WINDOW, COLOR_WINDOWTEXT));
}

TEST_F(TreeColours, TheItemsOwnColoursComeBeforeTheControls) {
  tree.SetBkColor(RGB(10, 20, 30));
  tree.SetTextColor(RGB(200, 210, 220));
  EXPECT_EQ(Colors(), Pair(RGB(10, 20, 30), RGB(200, 210, 220)));
  tree.SetItemBkColor(item, kOwnBack);
  EXPECT_EQ(Colors(), Pair(kOwnBack, RGB(200, 210, 220)));
  tree.SetItemTextColor(item, kOwnText);
  EXPECT_EQ(Colors(), Pair(kOwnBack, kOwnText));
  tree.SetItemBkColor(item, ST_CLR_NONE);
  EXPECT_EQ(Colors(), Pair(RGB(10, 20, 30), kOwnText));
  tree.SetItemTextColor(item, ST_CLR_NONE);
  tree.SetBkColor(ST_CLR_NONE);
  tree.SetTextColor(ST_CLR_NONE);
  EXPECT_EQ(Colors(), SystemPair(COLOR_WINDOW, COLOR_WINDOWTEXT));
}

TEST_F(TreeColours, SelectedOrDropTargetWithTheFocusIsHighlighted) {
  Focus(true);
  for (const unsigned state : {kSelected, kDropTarget, kSelected | kDropTarget}) {
    Mark(state);
    for (const unsigned style : {0u, static_cast<unsigned>(STS_SHOWSELALWAYS)}) {
      tree.ModifyStyle(STS_SHOWSELALWAYS, style);
      EXPECT_EQ(Colors(), SystemPair(COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT)) << state;
    }
    Mark(state, false);
  }
  Mark(kSelected);
  tree.SetHighLightColor(kOwnBack);
  tree.SetTextHighLightColor(kOwnText);
  EXPECT_EQ(Colors(), Pair(kOwnBack, kOwnText));
}

TEST_F(TreeColours, HighlightedItemsDoNotShowTheirOwnColours) {
  Focus(true);
  tree.SetItemBkColor(item, kOwnBack);
  tree.SetItemTextColor(item, kOwnText);
  Mark(kSelected);
  EXPECT_EQ(Colors(), SystemPair(COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT));
}

TEST_F(TreeColours, WithoutTheFocusThereIsNoHighlightAtAll) {
  Focus(false);
  tree.SetItemBkColor(item, kOwnBack);
  for (const unsigned state : {kSelected, kDropTarget}) {
    Mark(state);
    EXPECT_EQ(Colors(), Pair(kOwnBack, ::GetSysColor(COLOR_WINDOWTEXT))) << state;
    Mark(state, false);
  }
}

TEST_F(TreeColours, AHotItemThatIsSelectedIsNotBlueWithoutTheFocus) {
  Focus(false);
  Mark(kSelected | kHot);
  EXPECT_EQ(Colors(), SystemPair(COLOR_WINDOW, COLOR_WINDOWTEXT));
  Mark(kSelected, false);
  EXPECT_EQ(Colors(), Pair(::GetSysColor(COLOR_WINDOW), kBlue));
}

TEST_F(TreeColours, WithoutTheFocusTheStyleKeepsTheHighlight) {
  Focus(false);
  tree.ModifyStyle(0, STS_SHOWSELALWAYS);
  for (const unsigned state : {kSelected, kDropTarget}) {
    Mark(state | kHot);
    EXPECT_EQ(Colors(), SystemPair(COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT)) << state;
    Mark(state, false);
  }
}

TEST_F(TreeColours, HotIsBlueAndUnderlined) {
  tree.SetItemText(item, L"llllll");  // no letter with a line across
  const CRect label = LabelOf(item);
  const Picture cold = Look().Part(label);
  Mark(kHot);
  tree.SetItemBkColor(item, kOwnBack);
  EXPECT_EQ(Colors(), Pair(kOwnBack, kBlue));
  // The line under the text is the longest row of text colour there is, and was not there before.
  const auto longest = [](const Picture& picture, COLORREF color) {
    int most = 0;
    for (int y = 0; y < picture.height; ++y) {
      const RECT row{0, y, picture.width, y + 1};
      most = std::max(most, picture.Part(row).Count(Rgb(color)));
    }
    return most;
  };
  EXPECT_GE(longest(Look().Part(label), kBlue), item->m_nTextWidth - 4);
  EXPECT_LT(longest(cold, ::GetSysColor(COLOR_WINDOWTEXT)), item->m_nTextWidth - 4);
  EXPECT_EQ(LabelOf(item), label) << "the label stays as wide as it was measured";
}

TEST_F(TreeColours, HotNeedsTheStyle) {
  Mark(kHot);
  tree.ModifyStyle(STS_HOTTRACK, 0);
  EXPECT_EQ(Colors(), SystemPair(COLOR_WINDOW, COLOR_WINDOWTEXT));
}

TEST_F(TreeColours, ADisabledControlIsGreyAlsoOnSelectedAndHotRows) {
  Focus(true);
  tree.ModifyStyle(0, STS_SHOWSELALWAYS);
  tree.EnableWindow(FALSE);
  for (const unsigned state : {0u, kSelected, kDropTarget, kSelected | kHot}) {
    Mark(state);
    EXPECT_EQ(Colors(), SystemPair(COLOR_WINDOW, COLOR_GRAYTEXT)) << state;
    Mark(state, false);
  }
  tree.SetItemBkColor(item, kOwnBack);
  tree.SetItemTextColor(item, kOwnText);
  EXPECT_EQ(Colors(), Pair(kOwnBack, ::GetSysColor(COLOR_GRAYTEXT)));
  tree.EnableWindow(TRUE);
  EXPECT_EQ(Colors(), Pair(kOwnBack, kOwnText));
}

TEST_F(TreeColours, ADraggedItemHasNoSelectionColoursAndNoHotLook) {
  Focus(true);
  tree.SetItemBkColor(item, kOwnBack);
  Mark(kSelected | kDropTarget | kHot);
  EXPECT_EQ(ColorsInMode(VornTreePaintDragItem), Pair(kOwnBack, ::GetSysColor(COLOR_WINDOWTEXT)));
}

TEST_F(TreeColours, APlainDraggedItemKeepsTheSelectionColoursButNotTheHotLook) {
  Focus(true);
  Mark(kHot);
  EXPECT_EQ(ColorsInMode(VornTreePaintDragPlain), SystemPair(COLOR_WINDOW, COLOR_WINDOWTEXT));
  Mark(kSelected);
  EXPECT_EQ(ColorsInMode(VornTreePaintDragPlain), SystemPair(COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT));
}

TEST_F(TreeColours, ARedrawnItemLooksAsInAPaint) {
  Focus(true);
  Mark(kHot);
  EXPECT_EQ(ColorsInMode(VornTreePaintRedraw), Pair(::GetSysColor(COLOR_WINDOW), kBlue));
  Mark(kSelected);
  EXPECT_EQ(ColorsInMode(VornTreePaintRedraw), SystemPair(COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT));
}

TEST_F(TreeColours, TextThatWouldVanishTurnsWhiteOnDarkAndBlackOnLight) {
  const struct {
    COLORREF both;
    COLORREF shown;
  } cases[] = {
      {RGB(0, 0, 0), RGB(255, 255, 255)},       {RGB(255, 255, 255), RGB(0, 0, 0)},
      {RGB(127, 127, 128), RGB(255, 255, 255)},  // 382
      {RGB(128, 127, 128), RGB(0, 0, 0)},        // 383
      {RGB(255, 127, 0), RGB(255, 255, 255)},   {RGB(0, 128, 255), RGB(0, 0, 0)},
  };
  for (const auto& each : cases) {
    tree.SetItemBkColor(item, each.both);
    tree.SetItemTextColor(item, each.both);
    EXPECT_EQ(Colors(), Pair(each.both, each.shown)) << std::hex << each.both;
  }
  // The rule holds for the selection's colours too.
  Focus(true);
  Mark(kSelected);
  tree.SetHighLightColor(RGB(20, 20, 20));
  tree.SetTextHighLightColor(RGB(20, 20, 20));
  EXPECT_EQ(Colors(), Pair(RGB(20, 20, 20), RGB(255, 255, 255)));
  // One step apart is left alone.
  tree.SetTextHighLightColor(RGB(20, 20, 21));
  EXPECT_EQ(Colors(), Pair(RGB(20, 20, 20), RGB(20, 20, 21)));
}

TEST_F(TreeColours, TheGreyTextDefaultIsTheHighlightColour) {
  EXPECT_EQ(tree.GetGrayTextColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(tree.GetShowAlwaysColor(), ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(TreeColours, ALosingOfTheFocusRepaintsTheSelection) {
  Focus(true);
  tree.SelectItem(item);
  ::UpdateWindow(tree);
  Focus(false);
  ::UpdateWindow(tree);
  EXPECT_EQ(ColorsIn(Look().Part(LabelOf(item))), SystemPair(COLOR_WINDOW, COLOR_WINDOWTEXT));
  Focus(true);
  ::UpdateWindow(tree);
  EXPECT_EQ(ColorsIn(Look().Part(LabelOf(item))), SystemPair(COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT));
}

}  // namespace
