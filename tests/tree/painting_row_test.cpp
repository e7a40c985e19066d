// The lines and buttons of a row: the connector's whole table, the ancestors' lines, plus and minus.
#include "tree/tree_row.h"

namespace {

using support::kLinesAndButtons;
using support::kPaper;
using support::Picture;
using support::Rgb;
using support::RowPalette;
using support::SolidImages;
using support::TreeRow;

// --- The connector's table -------------------------------------------------------------------------

TEST_F(TreeRow, FirstLevelWithoutBothLineStylesDrawsNothingAndTakesNoStep) {
  Start(STS_HASLINES, "root [a b]");
  for (const unsigned style : {0u, 0u + STS_HASLINES, 0u + STS_LINESATROOT, 0u + STS_HASBUTTONS}) {
    tree.ModifyStyle(7, style);
    Show();
    for (int row = 0; row < 2; ++row) {
      const Picture picture = PictureOf(row);
      EXPECT_EQ(picture.Part(RECT{0, 0, 6, kHeight}).Count(Rgb(kPaper)), 6 * kHeight) << style;
      EXPECT_EQ(picture.Count(Rgb(::GetSysColor(COLOR_WINDOW))), 20 * kHeight) << style;
    }
  }
}

constexpr const char* kEmptyLine = "....................LLLLLL\n";

// 20 rows of a cell with an empty label behind it, given the lines that are not empty.
std::string CellArt(const std::map<int, std::string>& lines) {
  std::string art;
  for (int y = 0; y < 20; ++y) {
    const auto found = lines.find(y);
    art += found == lines.end() ? kEmptyLine : found->second + "LLLLLL\n";
  }
  return art;
}

// The dots of a cell: up, down and across from the middle, which lies at (7, 9).
std::string ConnectorArt(bool up, bool down, bool across = true) {
  std::map<int, std::string> lines;
  const std::string dot = ".......#............";
  for (int y = 1; y < 9; y += 2) {
    if (up) lines[y] = dot;
  }
  for (int y = 11; y < 20; y += 2) {
    if (down) lines[y] = dot;
  }
  lines[9] = across ? ".......#.#.#.#.#.#.#" : dot;
  return CellArt(lines);
}

TEST_F(TreeRow, FirstLevelAloneHasALineAcrossOnly) {
  Start(STS_HASLINES | STS_LINESATROOT, "root [a]");
  EXPECT_ROW(PictureOf(0), ConnectorArt(false, false));
}

TEST_F(TreeRow, FirstLevelWithBrothersHasLinesToThem) {
  Start(STS_HASLINES | STS_LINESATROOT, "root [a b c]");
  EXPECT_ROW(PictureOf(0), ConnectorArt(false, true));
  EXPECT_ROW(PictureOf(1), ConnectorArt(true, true));
  EXPECT_ROW(PictureOf(2), ConnectorArt(true, false));
}

TEST_F(TreeRow, HiddenBrothersDoNotCount) {
  Start(STS_HASLINES | STS_LINESATROOT, "root [h! a i! b j!]");
  EXPECT_ROW(PictureOf(0), ConnectorArt(false, true));
  EXPECT_ROW(PictureOf(1), ConnectorArt(true, false));
}

TEST_F(TreeRow, DeeperLevelWithoutLinesStepsAllTheSame) {
  Start(0, "root [a+ [b c]]");
  EXPECT_ROW(PictureOf(1), CellArt({}));
  EXPECT_ROW(PictureOf(2), CellArt({}));
}

TEST_F(TreeRow, DeeperLevelHasALineUpAlwaysAndDownForANextBrother) {
  Start(STS_HASLINES, "root [a+ [b c d]]");
  EXPECT_ROW(PictureOf(1), ConnectorArt(true, true));
  EXPECT_ROW(PictureOf(2), ConnectorArt(true, true));
  EXPECT_ROW(PictureOf(3), ConnectorArt(true, false));
}

TEST_F(TreeRow, DraggedRowsHaveNoLinesButTakeTheStep) {
  Start(kLinesAndButtons, "root [a b+ [c]]");
  for (const VornTreePaintMode mode : {VornTreePaintDragItem, VornTreePaintDragPlain}) {
    EXPECT_ROW(Drawn(rows[0], mode, 26), CellArt({})) << "first level";
    EXPECT_ROW(Drawn(rows[1], mode, 26), CellArt({})) << "no button either";
  }
  // The third row is a level deeper, which only the plain mode leaves out.
  EXPECT_EQ(Drawn(rows[2], VornTreePaintDragItem, 60).Bounds(Rgb(::GetSysColor(COLOR_WINDOW))).left, 40);
  EXPECT_EQ(Drawn(rows[2], VornTreePaintDragPlain, 60).Bounds(Rgb(::GetSysColor(COLOR_WINDOW))).left, 20);
}

TEST_F(TreeRow, DraggedFirstLevelRowsWithoutBothLineStylesTakeNoStep) {
  Start(STS_HASLINES, "root [a+ [b]]");
  for (const VornTreePaintMode mode : {VornTreePaintDragItem, VornTreePaintDragPlain}) {
    EXPECT_EQ(Drawn(rows[0], mode, 60).Bounds(Rgb(::GetSysColor(COLOR_WINDOW))).left, 0);
    EXPECT_EQ(Drawn(rows[1], mode, 60).Bounds(Rgb(::GetSysColor(COLOR_WINDOW))).left, 20);
  }
}

TEST_F(TreeRow, AncestorsThatGoOnHaveALineBesideTheirDescendants) {
  Start(STS_HASLINES | STS_LINESATROOT, "root [a+ [b+ [c] d] e]");
  const Picture c = PictureOf(2, 60);
  EXPECT_ROW(c.Part(RECT{0, 0, 20, kHeight}),
             ToArt(PictureOf(3, 60).Part(RECT{0, 0, 20, kHeight}), RowPalette()));
  for (int y = 1; y < kHeight; y += 2) {
    EXPECT_EQ(c.At(7, y), Rgb(::GetSysColor(COLOR_WINDOWTEXT))) << "a goes on, " << y;
    EXPECT_EQ(c.At(27, y), Rgb(::GetSysColor(COLOR_WINDOWTEXT))) << "b goes on, " << y;
    EXPECT_EQ(c.At(47, y) == Rgb(::GetSysColor(COLOR_WINDOWTEXT)), y <= 9) << "c is the last, " << y;
    EXPECT_EQ(c.At(7, y - 1), Rgb(::GetSysColor(COLOR_WINDOW)));
  }
}

TEST_F(TreeRow, TheFirstLevelsLineNeedsItsStyle) {
  Start(STS_HASLINES, "root [a+ [b+ [c] d] e]");
  const Picture c = PictureOf(2, 60);
  for (int y = 1; y < kHeight; y += 2) {
    EXPECT_EQ(c.At(7, y), Rgb(::GetSysColor(COLOR_WINDOWTEXT))) << "b goes on";
    EXPECT_NE(c.At(27, y) == Rgb(::GetSysColor(COLOR_WINDOWTEXT)), y > 9) << "c itself";
  }
}

TEST_F(TreeRow, TheDotsOfNeighbouringRowsJoinUp) {
  Start(STS_HASLINES | STS_LINESATROOT, "root [a b c]");
  const Picture picture = Look();
  for (int y = 9; y <= 2 * kHeight + 9; ++y) {
    EXPECT_EQ(picture.At(9, y) == Rgb(::GetSysColor(COLOR_WINDOWTEXT)), y % 2 == 1) << y;
  }
}

// --- DrawVornLine ----------------------------------------------------------------------------------

class VornLine : public testing::Test {
 protected:
  static Picture Lines(unsigned long sides, VornTreePaintMode mode = VornTreePaintNormal) {
    CVornTreeDC dc(nullptr);
    EXPECT_EQ(dc.CreateBitmapCapture(16, 12), 1);
    dc.FillSolidRect(CRect(0, 0, 16, 12), RGB(255, 255, 255));
    dc.SetPaintMode(mode);
    CRect cell(1, 1, 13, 9);
    dc.DrawVornLine(&cell, RGB(255, 0, 0), sides);
    EXPECT_EQ(cell, CRect(1, 1, 13, 9));
    return support::CaptureDc(dc, 0, 0, 16, 12);
  }
  static int Dots(const Picture& picture) { return picture.Count(0xFF0000); }
};

TEST_F(VornLine, RunsFromTheMiddleToEachSideBothEndsIncluded) {
  EXPECT_ART(Lines(15), R"(
    ................
    ................
    ........r.......
    ................
    ..r.r.r.r.r.r...
    ................
    ........r.......
    ................
    ........r.......
    ................
    ................
    ................)");
}

TEST_F(VornLine, EachSideHasItsBit) {
  const Picture up = Lines(1), left = Lines(2), right = Lines(4), down = Lines(8);
  EXPECT_EQ(up.Bounds(0xFFFFFF).top, 2);
  EXPECT_EQ(Dots(up), 2);
  EXPECT_EQ(left.Bounds(0xFFFFFF).left, 2);
  EXPECT_EQ(Dots(left), 4);
  EXPECT_EQ(right.Bounds(0xFFFFFF).right, 13);
  EXPECT_EQ(Dots(right), 3);
  EXPECT_EQ(down.Bounds(0xFFFFFF).bottom, 9);
  EXPECT_EQ(Dots(down), 3);
  EXPECT_EQ(Dots(Lines(0)), 0);
}

TEST_F(VornLine, IsNotDrawnForADraggedItem) {
  EXPECT_EQ(Dots(Lines(15, VornTreePaintDragItem)), 0);
  EXPECT_EQ(Dots(Lines(15, VornTreePaintDragPlain)), 9);
  EXPECT_EQ(Dots(Lines(15, VornTreePaintRedraw)), 9);
}

TEST_F(VornLine, TheMiddleIsCutTowardsZero) {
  // 9 high: the middle is 1 - 1 + 4; an empty cell has its middle above itself and no line up.
  CVornTreeDC dc(nullptr);
  ASSERT_EQ(dc.CreateBitmapCapture(16, 12), 1);
  dc.FillSolidRect(CRect(0, 0, 16, 12), RGB(255, 255, 255));
  CRect cell(0, 1, 16, 10);
  dc.DrawVornLine(&cell, RGB(255, 0, 0), 4);
  EXPECT_EQ(support::CaptureDc(dc, 0, 0, 16, 12).Bounds(0xFFFFFF).top, 4);
}

// --- Buttons ---------------------------------------------------------------------------------------

TEST_F(TreeRow, AFoldedItemHasAPlusAndAnOpenOneAMinus) {
  Start(STS_HASBUTTONS | STS_LINESATROOT, "root [a [x] b+ [c] d]");
  EXPECT_ROW(PictureOf(0), CellArt({{5, "...#########........"},
                                    {6, "...#.......#........"},
                                    {7, "...#...#...#........"},
                                    {8, "...#...#...#........"},
                                    {9, "...#.#####.#........"},
                                    {10, "...#...#...#........"},
                                    {11, "...#...#...#........"},
                                    {12, "...#.......#........"},
                                    {13, "...#########........"}}));
  EXPECT_ROW(PictureOf(1), CellArt({{5, "...#########........"},
                                    {6, "...#.......#........"},
                                    {7, "...#.......#........"},
                                    {8, "...#.......#........"},
                                    {9, "...#.#####.#........"},
                                    {10, "...#.......#........"},
                                    {11, "...#.......#........"},
                                    {12, "...#.......#........"},
                                    {13, "...#########........"}}));
  EXPECT_ROW(PictureOf(3), CellArt({})) << "d has no children, but takes the column";
}

TEST_F(TreeRow, TheButtonWipesTheLinesUnderIt) {
  Start(kLinesAndButtons, "root [a [x] b]");
  EXPECT_ROW(PictureOf(0), CellArt({{5, "...#########........"},
                                    {6, "...#.......#........"},
                                    {7, "...#...#...#........"},
                                    {8, "...#...#...#........"},
                                    {9, "...#.#####.#.#.#.#.#"},
                                    {10, "...#...#...#........"},
                                    {11, "...#...#...#........"},
                                    {12, "...#.......#........"},
                                    {13, "...#########........"},
                                    {15, ".......#............"},
                                    {17, ".......#............"},
                                    {19, ".......#............"}}));
}

TEST_F(TreeRow, AButtonStandsForChildrenThatShowOrAreAnnounced) {
  Start(STS_HASBUTTONS | STS_LINESATROOT, "root [a [x!] b# c [x! y]]");
  const auto hasButton = [&](int row) {
    return PictureOf(row, 20).Count(Rgb(::GetSysColor(COLOR_WINDOWTEXT))) > 0;
  };
  EXPECT_FALSE(hasButton(0)) << "all children are hidden";
  EXPECT_TRUE(hasButton(1));
  EXPECT_TRUE(hasButton(2));
}

TEST_F(TreeRow, FirstLevelButtonsNeedTheFirstLevelStyle) {
  Start(STS_HASBUTTONS, "root [a+ [b [x]]]");
  EXPECT_EQ(LabelOf(rows[0]).left, 2) << "no column";
  EXPECT_EQ(PictureOf(0, 60).Count(Rgb(::GetSysColor(COLOR_WINDOWTEXT))), 0);
  EXPECT_EQ(LabelOf(rows[1]).left, 22);
  EXPECT_GT(PictureOf(1, 20).Count(Rgb(::GetSysColor(COLOR_WINDOWTEXT))), 0);
}

TEST_F(TreeRow, AButtonIsDrawnOnTheControlsBackground) {
  Start(STS_IMAGEBUTTONS | STS_LINESATROOT | STS_HASLINES, "root [a [x] b]");
  const SolidImages buttons(6, 6, 2);
  tree.SetImageList(const_cast<CImageList*>(&buttons.list), STIL_BUTTON);
  tree.SetBkColor(RGB(10, 200, 30));
  Repaint();
  const Picture picture = PictureOf(0, 20);
  // The box is (-3, -3, 4, 4) around (7, 9): the image at its top left, and paper on what is left over.
  EXPECT_EQ(picture.Part(RECT{4, 6, 11, 13}).Count(Rgb(SolidImages::ColorOf(0))), 6 * 6 - 1);
  EXPECT_EQ(picture.Part(RECT{4, 6, 11, 13}).Count(Rgb(RGB(10, 200, 30))), 7 * 7 - 6 * 6 + 1);
}

TEST_F(TreeRow, ImageButtonsAreTheFirstImageFoldedAndTheSecondOpen) {
  Start(STS_IMAGEBUTTONS | STS_LINESATROOT, "root [a [x] b+ [c]]");
  const SolidImages buttons(8, 6, 2);
  tree.SetImageList(const_cast<CImageList*>(&buttons.list), STIL_BUTTON);
  Repaint();
  for (int row = 0; row < 2; ++row) {
    const Picture picture = PictureOf(row, 20);
    EXPECT_EQ(picture.Count(Rgb(SolidImages::ColorOf(row))), 8 * 6 - 1) << "one pixel of each is masked";
    const RECT bounds = picture.Bounds(Rgb(::GetSysColor(COLOR_WINDOW)));
    EXPECT_EQ(CRect(bounds), CRect(7 - 4, 9 - 3, 7 - 4 + 8, 9 - 3 + 6));
  }
}

TEST_F(TreeRow, ImageButtonsOfAnySizeAreWipedForThirtyThreePixelsAtMost) {
  Start(STS_IMAGEBUTTONS | STS_LINESATROOT, "root [a [x]]");
  const SolidImages buttons(40, 4, 2);
  tree.SetImageList(const_cast<CImageList*>(&buttons.list), STIL_BUTTON);
  Repaint();
  EXPECT_EQ(PictureOf(0, 20).Part(RECT{0, 7, 20, 11}).Count(Rgb(SolidImages::ColorOf(0))), 20 * 4)
      << "it starts 16 to the left of the middle, and not 20";
}

TEST_F(TreeRow, WithoutItsStyleTheButtonListIsNotUsed) {
  Start(STS_HASBUTTONS | STS_LINESATROOT, "root [a [x]]");
  const SolidImages buttons(9, 9, 2);
  tree.SetImageList(const_cast<CImageList*>(&buttons.list), STIL_BUTTON);
  Repaint();
  EXPECT_EQ(PictureOf(0, 20).Count(Rgb(SolidImages::ColorOf(0))), 0);
}

TEST_F(TreeRow, WithoutAListTheImageStyleDrawsPlusAndMinus) {
  Start(STS_IMAGEBUTTONS | STS_LINESATROOT, "root [a [x]]");
  tree.DetachImageList(STIL_BUTTON);
  Repaint();
  EXPECT_EQ(PictureOf(0, 20).Count(Rgb(::GetSysColor(COLOR_WINDOWTEXT))), 4 * 8 + 9);
}

}  // namespace
