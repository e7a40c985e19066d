// From a point to a row and a zone of it: by the rules, and against what the paint shows.
#include <cstdio>
#include <random>

#include "tree/painted_tree.h"

namespace {

using support::kLinesAndButtons;
using support::SolidImages;

class TreeHitTest : public support::PaintedTree {
 protected:
  void Build(unsigned style, const std::string& scene, int cx = 200, int cy = 160) {
    Create(style, cx, cy);
    tree.Build(scene);
    Show();
  }
  int Middle(const std::string& label) {
    const CRect rect(tree[label]->m_Rect);
    return (rect.top + rect.bottom) / 2;
  }
  // The zones of a row from left to right, each with where it starts: "0x0008@2 0x0010@22 0x0004@42".
  std::string Zones(const std::string& label, int from = 0, int to = 200) {
    std::string text, last;
    for (int x = from; x < to; ++x) {
      unsigned int flags = 0;
      CVornTreeItem* const item = tree.HitTest(CPoint(x, Middle(label)), &flags);
      char zone[16];
      std::snprintf(zone, sizeof(zone), "0x%04X", flags);
      if (item != tree[label] && item != nullptr) return "another row";
      if (zone == last) continue;
      last = zone;
      text += (text.empty() ? "" : " ") + last + "@" + std::to_string(x);
    }
    return text;
  }
  int Width(const std::string& label) { return tree[label]->m_nTextWidth; }
  // "0x0004@left 0x0020@right": the label and what is right of it.
  std::string LabelFrom(const std::string& label, int left) {
    return "0x0004@" + std::to_string(left) + " 0x0020@" + std::to_string(left + 6 + Width(label));
  }
};

// --- Rows ------------------------------------------------------------------------------------------

TEST_F(TreeHitTest, InAnEmptyTreeTheFlagsStayAsTheyWere) {
  Create(kLinesAndButtons);
  unsigned int flags = 0xABCD;
  EXPECT_EQ(tree.HitTest(CPoint(10, 10), &flags), nullptr);
  EXPECT_EQ(flags, 0xABCDu);
  EXPECT_EQ(tree.HitTest(CPoint(10, 10), nullptr), nullptr);
}

TEST_F(TreeHitTest, UnderTheLastRowIsBelow) {
  Build(kLinesAndButtons, "root [a b]");
  EXPECT_EQ(Zone(50, LabelOf("b").bottom + 1), "- 0x0200") << "one line more belongs to the row";
  EXPECT_EQ(Zone(50, 159), "- 0x0200");
}

TEST_F(TreeHitTest, NeighboursOverlapAndTheEarlierRowWins) {
  Build(kLinesAndButtons, "root [a b]");
  const int line = LabelOf("b").top;
  ASSERT_EQ(LabelOf("a").bottom, line);
  EXPECT_EQ(Zone(190, line), "a 0x0020") << "the top line of b";
  EXPECT_EQ(Zone(190, line + 1), "b 0x0020");
  EXPECT_EQ(Zone(190, LabelOf("b").bottom), "b 0x0020") << "and one below the last row";
}

TEST_F(TreeHitTest, TheMarginAtTheLeftBelongsToNoRow) {
  Build(kLinesAndButtons, "root [a]");
  EXPECT_EQ(Zone(0, 5), "- 0x0200");
  EXPECT_EQ(Zone(1, 5), "- 0x0200");
  EXPECT_EQ(Zone(2, 5), "a 0x0010");
}

TEST_F(TreeHitTest, RowsOutOfTheWindowAreNotHit) {
  Create(0, 200, 60);
  Fill(30);
  EXPECT_EQ(Zone(150, 30).substr(0, 2), "r1");
  tree.SetScrollPos(SB_VERT, 10);
  Repaint();
  EXPECT_EQ(Zone(150, 30).substr(0, 3), "r11");
}

TEST_F(TreeHitTest, TheFlagsPointerMayBeNull) {
  Build(kLinesAndButtons, "root [a]");
  EXPECT_EQ(tree.HitTest(CPoint(50, 5), nullptr), tree["a"]);
  EXPECT_EQ(tree.HitTest(CPoint(50, 150), nullptr), nullptr);
  EXPECT_EQ(tree.HitTest(CPoint(-500, -500), nullptr), nullptr);
}

TEST_F(TreeHitTest, TheZoneReplacesWhatTheCallerHadInItsVariable) {
  Build(kLinesAndButtons, "root [a]");
  for (const unsigned before : {0u, 1u, 0xFFFFu}) {
    unsigned int flags = before;
    EXPECT_EQ(tree.HitTest(CPoint(30, 5), &flags), tree["a"]);
    EXPECT_EQ(flags, 0x0004u);
    tree.HitTest(CPoint(30, 150), &flags);
    EXPECT_EQ(flags, 0x0200u);
  }
}

TEST_F(TreeHitTest, RowsAreWhereTheLastPaintPutThem) {
  Build(kLinesAndButtons, "root [a b]");
  tree.SetRedraw(FALSE);
  tree.Add("c", STI_ROOT, STI_FIRST);
  EXPECT_EQ(Zone(190, 5), "a 0x0020");
  tree.SetRedraw(TRUE);
  EXPECT_EQ(Zone(190, 5), "c 0x0020");
}

// A control whose window is all frame.
class FlatTree : public support::TestTree {
 public:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    const LRESULT result = TestTree::WindowProc(message, wParam, lParam);
    if (message == WM_NCCALCSIZE && flat) {
      RECT* const client = reinterpret_cast<RECT*>(lParam);
      client->bottom = client->top;
    }
    return result;
  }
  bool flat = false;
};

class FlatTreeHitTest : public support::PaintedTreeOf<FlatTree> {};

TEST_F(FlatTreeHitTest, AWindowWithoutHeightHasEverythingBelow) {
  Create(kLinesAndButtons);
  tree.Build("root [a b]");
  Show();
  tree.flat = true;
  tree.SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
  Show();
  EXPECT_EQ(Zone(50, 5), "- 0x0200");
}

TEST_F(TreeHitTest, WithoutAWindowNothingIsHit) {
  support::TestTree windowless;
  windowless.Add("x");
  unsigned int flags = 7;
  EXPECT_EQ(windowless.HitTest(CPoint(5, 5), &flags), nullptr);
  EXPECT_EQ(flags, 7u);
}

// --- Out of the window -----------------------------------------------------------------------------

TEST_F(TreeHitTest, OutOfTheWindowTopAndBottomAreComparedWithTheX) {
  Build(0, "root [a]", 200, 160);
  CRect window;
  tree.GetWindowRect(window);
  const auto at = [&](int x, int y) { return Zone(x - window.left, y - window.top); };
  // The window is moved so that x alone decides.
  ::SetWindowPos(*host, nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  tree.GetWindowRect(window);
  ASSERT_EQ(window, CRect(320, 220, 520, 380));
  EXPECT_EQ(at(319, 300), "- 0x0800") << "left; x between top and bottom";
  EXPECT_EQ(at(221, 300), "- 0x0800");
  EXPECT_EQ(at(220, 300), "- 0x0100") << "left of the window, but x is not right of its top";
  EXPECT_EQ(at(100, 300), "- 0x0100");
  EXPECT_EQ(at(520, 300), "- 0x0200") << "right of the window, and x is right of its bottom";
  EXPECT_EQ(at(350, 100), "- 0x0000") << "above, but neither: x lies between top and bottom";
  EXPECT_EQ(at(400, 100), "- 0x0200") << "above, and told as below";
  EXPECT_EQ(at(350, 500), "- 0x0000") << "below";
  EXPECT_EQ(at(380, 500), "- 0x0200");
  // Further down than it is wide: the right side can be seen alone.
  ::SetWindowPos(*host, nullptr, 10, 400, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  tree.GetWindowRect(window);
  ASSERT_EQ(window, CRect(30, 420, 230, 580));
  EXPECT_EQ(at(300, 500), "- 0x0100") << "right of the window, and x is left of its top";
  EXPECT_EQ(at(450, 500), "- 0x0400");
  EXPECT_EQ(at(100, 10), "- 0x0100") << "really above";
}

// --- Zones -----------------------------------------------------------------------------------------

TEST_F(TreeHitTest, AFirstLevelRowWithoutAStylePairStartsAtTheMargin) {
  Build(0, "root [a]");
  for (const unsigned style : {0u, 1u, 2u, 3u, 4u, 0x800u, 0x801u, 0x802u, 0x803u}) {
    tree.ModifyStyle(0x807, style);
    EXPECT_EQ(Zones("a"), "0x0200@0 " + LabelFrom("a", 2)) << style;
  }
}

TEST_F(TreeHitTest, AFirstLevelRowWithAStylePairHasAColumn) {
  Build(0, "root [a]");
  for (const unsigned style : {5u, 6u, 7u, 0x804u, 0x805u, 0x806u, 0x807u}) {
    tree.ModifyStyle(0x807, style);
    const std::string column = style & 0x801 ? "0x0010@2 " : "0x0008@2 ";
    EXPECT_EQ(Zones("a"), "0x0200@0 " + column + LabelFrom("a", 22)) << style;
  }
}

TEST_F(TreeHitTest, TheButtonIsTheLastIndentWhetherOrNotThereAreChildren) {
  Build(kLinesAndButtons, "root [a+ [b+ [c]]]");
  EXPECT_EQ(Zones("a"), "0x0200@0 0x0010@2 " + LabelFrom("a", 22));
  EXPECT_EQ(Zones("b"), "0x0200@0 0x0008@2 0x0010@22 " + LabelFrom("b", 42));
  EXPECT_EQ(Zones("c"), "0x0200@0 0x0008@2 0x0010@42 " + LabelFrom("c", 62));
  tree.ModifyStyle(kLinesAndButtons, STS_HASBUTTONS);
  EXPECT_EQ(Zones("a"), "0x0200@0 " + LabelFrom("a", 2));
  EXPECT_EQ(Zones("c"), "0x0200@0 0x0008@2 0x0010@22 " + LabelFrom("c", 42));
  tree.ModifyStyle(STS_HASBUTTONS, STS_HASLINES);
  EXPECT_EQ(Zones("c"), "0x0200@0 0x0008@2 " + LabelFrom("c", 42)) << "no buttons in this style";
}

TEST_F(TreeHitTest, ExtrasAreSixteenWideWhateverTheImagesSize) {
  Build(0, "root [a]");
  SolidImages images(30, 12, 2), states(9, 9, 2);
  tree.SetImageList(&images.list, STIL_NORMAL);
  tree.SetImageList(&states.list, STIL_STATE);
  CVornTreeItem* const item = tree["a"];
  tree.SetItemImage(item, 0, 0);
  Show();
  EXPECT_EQ(Zones("a"), "0x0200@0 0x0002@2 " + LabelFrom("a", 18));
  tree.SetItemImageState(item, 1);
  EXPECT_EQ(Zones("a"), "0x0200@0 0x1000@2 0x0002@18 " + LabelFrom("a", 34));
  tree.SetCheckBox(item, 1);
  EXPECT_EQ(Zones("a"), "0x0200@0 0x0040@2 0x1000@18 0x0002@34 " + LabelFrom("a", 50));
  tree.SetItemImage(item, -1, -1);
  EXPECT_EQ(Zones("a"), "0x0200@0 0x0040@2 0x1000@18 " + LabelFrom("a", 34));
  tree.SetItemImageState(item, -1);
  EXPECT_EQ(Zones("a"), "0x0200@0 0x0040@2 " + LabelFrom("a", 18));
  tree.SetCheckBox(item, 0);
  tree.ModifyStyle(0, STS_CHECKBOXES);
  EXPECT_EQ(Zones("a"), "0x0200@0 0x0040@2 " + LabelFrom("a", 18));
}

TEST_F(TreeHitTest, AnImageCountsIfEitherOfTheTwoIsSet) {
  Build(0, "root [a]");
  tree.SetItemImage(tree["a"], -1, 0);
  Show();
  EXPECT_EQ(LabelOf("a").left, 2) << "not selected: none is drawn";
  EXPECT_EQ(Zones("a"), "0x0200@0 0x0002@2 " + LabelFrom("a", 18));
}

TEST_F(TreeHitTest, TheHorizontalPositionIsAddedToThePoint) {
  Build(kLinesAndButtons, "root [a]", 100, 160);
  tree.SetItemText(tree["a"], std::wstring(60, L'W').c_str());
  Show();
  ASSERT_TRUE(HasBar(SB_HORZ));
  tree.SetScrollPos(SB_HORZ, 30);
  Repaint();
  unsigned int flags = 0;
  EXPECT_NE(tree.HitTest(CPoint(10, 5), &flags), nullptr);
  EXPECT_EQ(flags, 0x0004u) << "10 counts as 40";
  tree.SetScrollPos(SB_HORZ, 0);
  Repaint();
  tree.HitTest(CPoint(10, 5), &flags);
  EXPECT_EQ(flags, 0x0010u);
}

TEST_F(TreeHitTest, DocumentModeTakesALevelOffTheIndentationAlone) {
  Build(kLinesAndButtons, "root [a+ [b+ [c]]]");
  tree.SelectItem(tree["b"]);
  tree.SetDocumentDisplay(1);
  Show();
  EXPECT_EQ(Zones("b"), "0x0200@0 0x0010@2 " + LabelFrom("b", 22));
  EXPECT_EQ(Zones("c"), "0x0200@0 0x0008@2 0x0010@22 " + LabelFrom("c", 42));
  tree.ModifyStyle(kLinesAndButtons, 0);
  Show();
  EXPECT_EQ(Zones("b"), "0x0200@0 " + LabelFrom("b", 2)) << "an indentation of no width";
  EXPECT_EQ(Zones("c"), "0x0200@0 0x0008@2 " + LabelFrom("c", 22));
  tree.SetDocumentDisplay(2);
  Show();
  EXPECT_EQ(Zones("c"), "0x0200@0 0x0008@2 " + LabelFrom("c", 42)) << "only the value 1 does";
}

TEST_F(TreeHitTest, FarToTheRightIsStillTheRow) {
  Build(kLinesAndButtons, "root [a]", 600);
  EXPECT_EQ(Zone(599, 5), "a 0x0020");
}

// --- Against the paint -----------------------------------------------------------------------------

// With images of 16 pixels and all lists there, zones and paint agree but for what is stated in Expected.
class TreeHitAgainstPaint : public TreeHitTest {
 protected:
  int Random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

  void RandomTree(unsigned style) {
    tree.SetRedraw(FALSE);
    tree.DeleteAllItems(STI_ROOT);
    tree.ModifyStyle(0x0A07, style);
    std::vector<CVornTreeItem*> items{nullptr};
    for (int i = 0; i < 14; ++i) {
      CVornTreeItem* const parent = items[static_cast<std::size_t>(Random(static_cast<int>(items.size())))];
      CVornTreeItem* const item = tree.Add("item" + std::to_string(i), parent == nullptr ? STI_ROOT : parent);
      items.push_back(item);
      if (Random(3) == 0) tree.SetCheckBox(item, 1);
      if (Random(3) == 0) tree.SetItemImageState(item, Random(2));
      if (Random(2) == 0) tree.SetItemImage(item, 0, 0);
      tree.SetItemBkColor(item, kLabel);
    }
    for (CVornTreeItem* item : items) {
      if (item != nullptr) tree.Expand(item, STE_EXPAND);
    }
    tree.SetRedraw(TRUE);
  }
  // What the paint shows at a point of a row's middle: by the colour of the image or label there.
  unsigned Painted(const support::Picture& picture, const CRect& label, int x, int y) {
    const std::uint32_t color = picture.At(x, y);
    if (x >= label.left && x < label.right) return 0x0004;
    if (x >= label.right) return 0x0020;
    if (color == support::Rgb(SolidImages::ColorOf(0))) return 0x0002;
    if (color == support::Rgb(SolidImages::ColorOf(1))) return 0x1000;
    if (color == support::Rgb(SolidImages::ColorOf(2))) return 0x0040;
    return 0x0008;
  }

  static constexpr COLORREF kLabel = RGB(255, 255, 0);
  std::mt19937 m_random{42};
};

// One image of a colour: all images of a list look alike.
class OneColour {
 public:
  OneColour(int which, int count) {
    list.Create(16, 16, ILC_COLOR24, count, 1);
    CClientDC screen(nullptr);
    for (int i = 0; i < count; ++i) {
      CBitmap bitmap;
      bitmap.CreateCompatibleBitmap(&screen, 16, 16);
      CDC dc;
      dc.CreateCompatibleDC(&screen);
      CBitmap* const earlier = dc.SelectObject(&bitmap);
      dc.FillSolidRect(0, 0, 16, 16, SolidImages::ColorOf(which));
      dc.SelectObject(earlier);
      ::ImageList_Add(list.GetSafeHandle(), static_cast<HBITMAP>(bitmap.GetSafeHandle()), nullptr);
    }
  }
  CImageList list;
};

TEST_F(TreeHitAgainstPaint, EveryPixelOfEveryRowIsInTheZoneThatIsPaintedThere) {
  Create(0, 400, 400);
  OneColour images(0, 2), states(1, 2), boxes(2, 2);
  tree.SetImageList(&images.list, STIL_NORMAL);
  tree.SetImageList(&states.list, STIL_STATE);
  tree.SetImageList(&boxes.list, STIL_CHECKBOX);
  for (const unsigned style : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 0x201u, 0x205u, 0x207u, 0x800u, 0x804u}) {
    RandomTree(style);
    const support::Picture picture = Look();
    for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr;
         row = tree.GetNextVisibleItem(row)) {
      const CRect label(row->m_Rect);
      const int y = (label.top + label.bottom) / 2;
      const bool extras = row->m_nStateImage != -1 || row->m_nExtFlags != 0 || (style & STS_CHECKBOXES);
      for (int x = 2; x < 400; ++x) {
        unsigned int flags = 0;
        ASSERT_EQ(tree.HitTest(CPoint(x, y), &flags), row);
        unsigned expected = Painted(picture, label, x, y);
        // The gap of two pixels before the label is the label's in hit testing; without a gap the
        // label's zone is two pixels longer than what is painted.
        if (extras && x >= label.left - 2 && x < label.left) expected = 0x0004;
        if (!extras && x >= label.right && x < label.right + 2) expected = 0x0004;
        // The column of the button is its zone, drawn or not.
        if (expected == 0x0008 && flags == 0x0010) expected = 0x0010;
        ASSERT_EQ(flags, expected) << tree.Name(row) << " at " << x << " style " << std::hex << style;
      }
    }
  }
}

TEST_F(TreeHitAgainstPaint, EveryLineOfARowIsItsOwnButTheTopOneOfALaterRow) {
  Create(0, 400, 400);
  RandomTree(kLinesAndButtons);
  bool first = true;
  for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr; row = tree.GetNextVisibleItem(row)) {
    const CRect label(row->m_Rect);
    for (int y = label.top + (first ? 0 : 1); y <= label.bottom; ++y) {
      ASSERT_EQ(tree.HitTest(CPoint(300, y), nullptr), row);
    }
    first = false;
  }
}

TEST_F(TreeHitAgainstPaint, ButtonsThatAreDrawnLieInTheirZone) {
  Create(0, 400, 400);
  RandomTree(kLinesAndButtons);
  int seen = 0;
  for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr; row = tree.GetNextVisibleItem(row)) {
    if (row->m_pFirstChild == nullptr) continue;
    ++seen;
    const int left = 2 + (row->m_nLevel - 1) * 20, top = row->m_Rect.top;
    const int middle = top - 1 + (row->m_Rect.bottom - top) / 2;
    for (int x = left + 7 - 4; x <= left + 7 + 4; ++x) {
      for (int y = middle - 4; y <= middle + 4; ++y) {
        unsigned int flags = 0;
        ASSERT_EQ(tree.HitTest(CPoint(x, y), &flags), row);
        ASSERT_EQ(flags, 0x0010u);
      }
    }
  }
  EXPECT_GT(seen, 0);
}

// In document mode without a first-level column the paint steps over the connector's cell and the hit test
// does not: the zones lie an indent further left than what is painted, meant.
TEST_F(TreeHitAgainstPaint, InDocumentModeWithoutAColumnTheZonesLieAnIndentFurtherLeft) {
  Build(0, "root [a+ [b+ [c]]]");
  tree.SelectItem(tree["b"]);
  tree.SetDocumentDisplay(1);
  Show();
  EXPECT_EQ(LabelOf("b").left, 2 + 20);
  EXPECT_EQ(Zones("b"), "0x0200@0 " + LabelFrom("b", 2));
  EXPECT_EQ(LabelOf("c").left, 2 + 40);
  EXPECT_EQ(Zones("c"), "0x0200@0 0x0008@2 " + LabelFrom("c", 22));
}

}  // namespace
