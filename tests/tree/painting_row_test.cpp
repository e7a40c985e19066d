// The parts of one row: connector and its table, buttons, images and the gap behind them, shortcut mark,
// label; and the paint modes in which a row is drawn elsewhere than in a paint of the window.
#include "core/VornFunctions.h"
#include "tree/painted_tree.h"

namespace {

using support::kLinesAndButtons;
using support::Palette;
using support::Picture;
using support::Rgb;
using support::SolidImages;

constexpr COLORREF kPaper = RGB(250, 240, 220);

// Letters for the colours that rows are drawn in, whatever the system's are.
const Palette& RowPalette() {
  static const Palette palette = {{Rgb(::GetSysColor(COLOR_WINDOW)), '.'},
                                  {Rgb(::GetSysColor(COLOR_WINDOWTEXT)), '#'},
                                  {Rgb(kPaper), 'L'},
                                  {Rgb(SolidImages::ColorOf(0)), '0'},
                                  {Rgb(SolidImages::ColorOf(1)), '1'},
                                  {Rgb(SolidImages::ColorOf(2)), '2'}};
  return palette;
}

#define EXPECT_ROW(picture, art) EXPECT_TRUE(support::LooksLike((picture), (art), RowPalette()))

// Rows are 20 pixels high on every desktop: the images are, and labels are lower than that.
class TreeRow : public support::PaintedTree {
 protected:
  static constexpr int kHeight = 20;

  void Start(unsigned style, const std::string& scene) {
    Create(style, 120, 160);
    tree.SetImageList(&heights.list, STIL_NORMAL);
    tree.Build(scene);
    for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr;
         row = tree.GetNextVisibleItem(row)) {
      rows.push_back(row);
    }
    tree.SetRedraw(FALSE);
    for (CVornTreeItem* row : rows) {
      tree.SetItemText(row, L"");
      tree.SetItemBkColor(row, kPaper);
    }
    tree.SetRedraw(TRUE);
    Show();
    ASSERT_EQ(support::HeightOf(tree, rows[0]), kHeight);
  }
  // The pixels of a row, from its left margin on.
  Picture PictureOf(int row, int width = 26) {
    return Look().Part(RECT{2, row * kHeight, 2 + width, (row + 1) * kHeight});
  }
  // Draws a row in a paint mode into a picture.
  Picture Drawn(CVornTreeItem* item, VornTreePaintMode mode, int width, long levelOffset = 0) {
    CVornTreeDC dc(&tree);
    EXPECT_EQ(dc.CreateBitmapCapture(width + 20, kHeight), 1);
    dc.FillSolidRect(CRect(0, 0, width + 20, kHeight), ::GetSysColor(COLOR_WINDOW));
    dc.SetPaintMode(mode);
    EXPECT_EQ(dc.GetPaintMode(), mode);
    dc.DrawItem(CRect(0, 0, width + 20, kHeight), item, tree.GetStyle(), levelOffset);
    return support::CaptureDc(dc, 2, 0, width, kHeight);
  }

  SolidImages heights{4, kHeight, 3};
  std::vector<CVornTreeItem*> rows;
};

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

// --- Check box, state image, image -----------------------------------------------------------------

TEST_F(TreeRow, WithoutExtrasThereIsNoGapBeforeTheLabel) {
  Start(0, "root [a]");
  EXPECT_EQ(LabelOf(rows[0]).left, 2);
}

TEST_F(TreeRow, EachExtraTakesItsRoomAndOneGapFollowsAll) {
  Start(0, "root [a]");
  const SolidImages states(10, 6, 3);
  tree.SetImageList(const_cast<CImageList*>(&states.list), STIL_STATE);
  CVornTreeItem* const item = rows[0];
  const auto left = [&] {
    Show();
    return LabelOf(item).left;
  };
  tree.SetCheckBox(item, 1);
  EXPECT_EQ(left(), 2 + 16 + 2);
  tree.SetItemImageState(item, 1);
  EXPECT_EQ(left(), 2 + 16 + 10 + 2);
  tree.SetItemImage(item, 0, 1);
  EXPECT_EQ(left(), 2 + 16 + 10 + 4 + 2);
  tree.SetCheckBox(item, 0);
  EXPECT_EQ(left(), 2 + 10 + 4 + 2);
  tree.SetItemImageState(item, -1);
  EXPECT_EQ(left(), 2 + 4 + 2);
  tree.ModifyStyle(0, STS_CHECKBOXES);
  EXPECT_EQ(left(), 2 + 16 + 4 + 2);
}

TEST_F(TreeRow, ExtrasAreCentredCheckBoxesForAHeightOfSixteen) {
  Start(STS_CHECKBOXES, "root [a=]");
  const SolidImages boxes(12, 12, 2), states(10, 6, 3);
  tree.SetImageList(const_cast<CImageList*>(&boxes.list), STIL_CHECKBOX);
  tree.SetImageList(const_cast<CImageList*>(&states.list), STIL_STATE);
  tree.SetItemImageState(rows[0], 2);
  Show();
  const Picture picture = PictureOf(0, 40);
  const auto place = [&](int image) {
    Picture only = picture;
    for (std::uint32_t& pixel : only.pixels) pixel = pixel == Rgb(SolidImages::ColorOf(image)) ? 1 : 0;
    return CRect(only.Bounds(0));
  };
  EXPECT_EQ(place(1), CRect(0, 2, 12, 14)) << "checked, at (20 - 16) / 2";
  EXPECT_EQ(place(2), CRect(16, 7, 26, 13));
}

TEST_F(TreeRow, TheCheckBoxFollowsTheMark) {
  Start(STS_CHECKBOXES, "root [a= b]");
  const SolidImages boxes(16, 16, 2);
  tree.SetImageList(const_cast<CImageList*>(&boxes.list), STIL_CHECKBOX);
  Repaint();
  EXPECT_EQ(PictureOf(0, 16).Count(Rgb(SolidImages::ColorOf(1))), 255);
  EXPECT_EQ(PictureOf(1, 16).Count(Rgb(SolidImages::ColorOf(0))), 255);
}

TEST_F(TreeRow, WithoutTheirListExtrasTakeNoRoom) {
  Start(STS_CHECKBOXES, "root [a]");
  tree.SetItemImageState(rows[0], 0);
  tree.SetItemImage(rows[0], 0, 0);
  tree.DetachImageList(STIL_CHECKBOX);
  tree.DetachImageList(STIL_NORMAL);
  Show();
  EXPECT_EQ(LabelOf(rows[0]).left, 2);
}

TEST_F(TreeRow, AStateImageNeedsTheButtonList) {
  // The state list is asked for through the button list's presence.
  Start(0, "root [a]");
  const SolidImages states(10, 6, 3);
  tree.SetImageList(const_cast<CImageList*>(&states.list), STIL_STATE);
  tree.SetItemImageState(rows[0], 0);
  Show();
  EXPECT_EQ(LabelOf(rows[0]).left, 2 + 10 + 2);
  tree.DetachImageList(STIL_BUTTON);
  Show();
  EXPECT_EQ(LabelOf(rows[0]).left, 2);
}

TEST_F(TreeRow, TheImageIsTheSelectedOneForASelectedAndWithTheStyleForAnOpenItem) {
  Start(STS_SHOWSELALWAYS, "root [a+ [b]]");
  tree.SetItemImage(rows[0], 0, 1);
  tree.SetItemImage(rows[1], 0, 1);
  const auto image = [&](int row) {
    Show();
    const Picture picture = Look().Part(RECT{0, row * kHeight, LabelOf(rows[row]).left, (row + 1) * kHeight});
    return picture.Count(Rgb(SolidImages::ColorOf(1))) > 0   ? 1
           : picture.Count(Rgb(SolidImages::ColorOf(0))) > 0 ? 0
                                                             : -1;
  };
  EXPECT_EQ(image(0), 0);
  EXPECT_EQ(image(1), 0);
  tree.ModifyStyle(0, STS_EXPANDEDIMAGE);
  EXPECT_EQ(image(0), 1) << "open";
  EXPECT_EQ(image(1), 0);
  tree.ModifyItemState(rows[1], 0, STIS_SELECTED);
  EXPECT_EQ(image(1), 1);
  tree.SetItemImage(rows[1], 0, -1);
  EXPECT_EQ(image(1), -1) << "selected, without a selected image";
  EXPECT_EQ(LabelOf(rows[1]).left, 22) << "and without its room";
  tree.ModifyItemState(rows[1], STIS_SELECTED, 0);
  EXPECT_EQ(image(1), 0);
  tree.SetItemImage(rows[1], -1, 0);
  EXPECT_EQ(image(1), -1);
  EXPECT_EQ(LabelOf(rows[1]).left, 22);
}

TEST_F(TreeRow, AnOpenItemWithoutASelectedImageKeepsTheRoomOfOne) {
  Start(STS_EXPANDEDIMAGE, "root [a+ [b]]");
  tree.SetItemImage(rows[0], 0, -1);
  Show();
  EXPECT_EQ(LabelOf(rows[0]).left, 2 + 4 + 2) << "index -1 is drawn as nothing";
  EXPECT_EQ(PictureOf(0, 4).Count(Rgb(SolidImages::ColorOf(0))), 0);
}

// --- Shortcuts -------------------------------------------------------------------------------------

TEST_F(TreeRow, AShortcutHasTheMarkInTheCornerOfItsImage) {
  Start(0, "root [a]");
  const SolidImages images(12, kHeight, 2);
  tree.SetImageList(const_cast<CImageList*>(&images.list), STIL_NORMAL);
  tree.SetItemImage(rows[0], 0, 0);
  CVornTreeItem* const shortcut = tree.CreateShortcut(rows[0], STI_ROOT, STI_LAST);
  ASSERT_NE(shortcut, nullptr);
  Show();
  const Picture plain = PictureOf(0, 12), marked = PictureOf(1, 12);
  RECT different{100, 100, 0, 0};
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < 12; ++x) {
      if (plain.At(x, y) == marked.At(x, y)) continue;
      different = {std::min<int>(different.left, x), std::min<int>(different.top, y),
                   std::max<int>(different.right, x + 1), std::max<int>(different.bottom, y + 1)};
    }
  }
  EXPECT_FALSE(::IsRectEmpty(&different)) << "there is a mark";
  const CRect corner(0, kHeight - 7, 7, kHeight);
  EXPECT_EQ(CRect(different) & corner, CRect(different));
}

TEST_F(TreeRow, AShortcutWhoseTargetDiedTurnsOrdinaryWhenItIsDrawn) {
  Start(0, "root [a b]");
  // Of three shortcuts the second outlives the target.
  for (int i = 0; i < 3; ++i) ASSERT_NE(tree.CreateShortcut(rows[0], STI_ROOT, STI_LAST), nullptr);
  tree.DeleteItem(rows[0]);
  CVornTreeItem* const survivor = tree.GetRootItem()->m_pLastChild;
  ASSERT_NE(survivor, rows[1]);
  ASSERT_NE(survivor->m_nState & STIS_SHORTCUT, 0u);
  Repaint();
  EXPECT_NE(survivor->m_nState & STIS_SHORTCUT, 0u) << "nobody asked: it has no image";
  tree.SetItemImage(survivor, 0, 0);
  Repaint();
  EXPECT_EQ(survivor->m_nState & STIS_SHORTCUT, 0u);
  EXPECT_EQ(survivor->m_pShortcutTarget, nullptr);
}

// --- Label -----------------------------------------------------------------------------------------

TEST_F(TreeRow, AnEmptyLabelStillFillsItsRectangle) {
  Start(0, "root [a]");
  EXPECT_EQ(rows[0]->m_nTextWidth, 2);
  EXPECT_EQ(LabelOf(rows[0]), CRect(2, 0, 2 + 6, kHeight));
  EXPECT_EQ(Look().Count(Rgb(kPaper)), 6 * kHeight);
}

TEST_F(TreeRow, TheEncodedSequenceShowsAsABackslash) {
  Start(0, "root [a b]");
  VornTreeSetEncodedSequence(L"%5C");
  tree.SetItemText(rows[0], L"x%5Cy%5C");
  VornTreeSetEncodedSequence(nullptr);
  tree.SetItemText(rows[1], L"x\\y\\");
  EXPECT_EQ(rows[0]->m_nTextWidth, rows[1]->m_nTextWidth);
  VornTreeSetEncodedSequence(L"%5C");
  Show();
  EXPECT_EQ(PictureOf(0, 100), PictureOf(1, 100));
  VornTreeSetEncodedSequence(nullptr);
  Show();
  EXPECT_NE(PictureOf(0, 100), PictureOf(1, 100));
}

TEST_F(TreeRow, TheTextIsDrawnTwoPixelsInsideTheLabel) {
  Start(0, "root [a]");
  tree.SetItemText(rows[0], L"HHHH");
  Show();
  const CRect label = LabelOf(rows[0]);
  const Picture picture = Look().Part(label);
  const RECT text = picture.Bounds(Rgb(kPaper));
  EXPECT_GE(text.left, 2);
  EXPECT_LE(text.left, 4);
  EXPECT_LE(text.right, 2 + rows[0]->m_nTextWidth - 2 + 1);
  // Ampersands are letters here.
  tree.SetItemText(rows[0], L"&H");
  const int width = rows[0]->m_nTextWidth;
  tree.SetItemText(rows[0], L"H");
  EXPECT_LT(rows[0]->m_nTextWidth, width);
}

TEST_F(TreeRow, EveryPixelOfTheLabelsFrameIsItsBackground) {
  Start(0, "root [a]");
  tree.SetItemText(rows[0], L"text");
  Show();
  const CRect label = LabelOf(rows[0]);
  const Picture picture = Look().Part(label);
  EXPECT_EQ(label.Width(), rows[0]->m_nTextWidth + 4);
  for (int x = 0; x < picture.width; ++x) {
    EXPECT_EQ(picture.At(x, 0), Rgb(kPaper));
    EXPECT_EQ(picture.At(x, picture.height - 1), Rgb(kPaper));
  }
  for (int y = 0; y < picture.height; ++y) EXPECT_EQ(picture.At(picture.width - 1, y), Rgb(kPaper));
}

// --- The object ------------------------------------------------------------------------------------

TEST_F(TreeRow, ARowTooNarrowForAnythingKeepsItsOldPlace) {
  Start(0, "root [a]");
  const CRect before(rows[0]->m_Rect);
  CVornTreeDC dc(&tree);
  ASSERT_EQ(dc.CreateBitmapCapture(50, 50), 1);
  dc.DrawItem(CRect(10, 30, 14, 50), rows[0], tree.GetStyle(), 0);
  EXPECT_EQ(CRect(rows[0]->m_Rect), before);
  dc.DrawItem(CRect(10, 30, 15, 50), rows[0], tree.GetStyle(), 0);
  EXPECT_EQ(CRect(rows[0]->m_Rect), CRect(12, 30, 18, 50)) << "one pixel is enough";
}

TEST_F(TreeRow, NullAndDeadItemsAreNotDrawn) {
  Start(0, "root [a b]");
  tree.DeleteItem(rows[0]);
  CVornTreeDC dc(&tree);
  ASSERT_EQ(dc.CreateBitmapCapture(50, 50), 1);
  dc.FillSolidRect(CRect(0, 0, 50, 50), kPaper);
  CRect rect(0, 0, 50, 50);
  for (CVornTreeItem* item : {static_cast<CVornTreeItem*>(nullptr), rows[0]}) {
    dc.DrawItem(rect, item, 0xFFFF, 0);
    EXPECT_EQ(dc.DrawCheckBox(&rect, item, 0xFFFF), 0);
    EXPECT_EQ(dc.DrawImageState(&rect, item), 0);
    EXPECT_EQ(dc.DrawImage(&rect, item, 0xFFFF), 0);
    EXPECT_EQ(dc.DrawItemText(&rect, item, 0xFFFF), 1);
    dc.DrawBrotherLine(&rect, item, 0xFFFF, 0);
  }
  EXPECT_EQ(support::CaptureDc(dc, 0, 0, 50, 50).Count(Rgb(kPaper)), 50 * 50);
}

TEST_F(TreeRow, TheBackgroundIsTheControlsOrTheSystems) {
  Start(0, "root [a]");
  tree.SetBkColor(RGB(1, 2, 3));
  CVornTreeDC own(&tree);
  ASSERT_EQ(own.CreateBitmapCapture(8, 8), 1);
  own.DrawBackground();
  EXPECT_EQ(support::CaptureDc(own, 0, 0, 8, 8).Count(Rgb(RGB(1, 2, 3))), 64);
  CVornTreeDC without(nullptr);
  ASSERT_EQ(without.CreateBitmapCapture(8, 8), 1);
  without.DrawBackground();
  EXPECT_EQ(support::CaptureDc(without, 0, 0, 8, 8).Count(Rgb(::GetSysColor(COLOR_WINDOW))), 64);
}

TEST_F(TreeRow, TheClassKnowsItselfAtRunTime) {
  CVornTreeDC dc(nullptr);
  EXPECT_TRUE(dc.IsKindOf(RUNTIME_CLASS(CVornDC)));
  EXPECT_STREQ(dc.GetRuntimeClass()->m_lpszClassName, "CVornTreeDC");
  EXPECT_EQ(dc.GetPaintMode(), VornTreePaintNormal);
}

// --- RedrawItem ------------------------------------------------------------------------------------

TEST_F(TreeRow, RedrawItemPaintsOneRowAsItStands) {
  Start(kLinesAndButtons, "root [a+ [b] c]");
  const Picture whole = Look();
  CClientDC(&tree).FillSolidRect(CRect(0, 0, 200, 200), RGB(255, 0, 255));
  CVornTreeDC dc(&tree);
  const CRect before(rows[1]->m_Rect);
  EXPECT_EQ(dc.RedrawItem(&tree, rows[1]), 1);
  EXPECT_EQ(dc.GetPaintMode(), VornTreePaintRedraw);
  EXPECT_EQ(CRect(rows[1]->m_Rect), before);
  const Picture after = Look();
  for (int y = 0; y < after.height; ++y) {
    for (int x = 0; x < after.width; ++x) {
      const bool inRow = y >= kHeight && y < 2 * kHeight;
      // The dots that the neighbours draw beyond their own rows are theirs.
      ASSERT_EQ(after.At(x, y), inRow ? whole.At(x, y) : 0xFF00FF) << x << ' ' << y;
    }
  }
}

TEST_F(TreeRow, RedrawItemRefusesWhatIsNotOnTheScreen) {
  Start(kLinesAndButtons, "root [a [b] c]");
  CVornTreeDC dc(&tree);
  EXPECT_EQ(dc.RedrawItem(nullptr, rows[0]), 0);
  EXPECT_EQ(dc.RedrawItem(&tree, nullptr), 0);
  EXPECT_EQ(dc.RedrawItem(&tree, rows[0]->m_pFirstChild), 0) << "folded away";
  EXPECT_EQ(dc.GetPaintMode(), VornTreePaintNormal);
  tree.recording = false;
  tree.DestroyWindow();
  EXPECT_EQ(dc.RedrawItem(&tree, rows[0]), 0);
}

TEST_F(TreeRow, RedrawItemMovesARowByTheHorizontalPositionAndLeavesTheRightEdge) {
  Start(kLinesAndButtons, "root [a]");
  tree.SetItemText(rows[0], std::wstring(60, L'W').c_str());
  Resize(100, 160);
  ASSERT_TRUE(HasBar(SB_HORZ));
  tree.SetScrollPos(SB_HORZ, 30);
  Repaint();
  const Picture whole = Look();
  CClientDC(&tree).FillSolidRect(CRect(0, 0, 200, 200), RGB(255, 0, 255));
  CVornTreeDC dc(&tree);
  EXPECT_EQ(dc.RedrawItem(&tree, rows[0]), 1);
  const Picture after = Look();
  EXPECT_EQ(after.Part(RECT{0, 0, 70, kHeight}), whole.Part(RECT{0, 0, 70, kHeight}));
  EXPECT_EQ(after.Part(RECT{70, 0, 100, kHeight}).Count(0xFF00FF), 30 * kHeight)
      << "the rectangle as wide as the window has moved with the row, meant";
}

TEST_F(TreeRow, RedrawItemTakesNoLevelOffInDocumentMode) {
  Start(kLinesAndButtons, "root [a+ [b c]]");
  tree.SelectItem(rows[1]);
  tree.SetDocumentDisplay(1);
  tree.SetFocusRectVisible(false);
  Show();
  EXPECT_EQ(LabelOf(rows[1]).left, 22);
  CVornTreeDC dc(&tree);
  EXPECT_EQ(dc.RedrawItem(&tree, rows[1]), 1);
  const Picture row = Look().Part(RECT{0, 0, 100, kHeight});
  EXPECT_EQ(row.At(42, 0), Rgb(kPaper)) << "drawn a column further right than the paint draws it, meant";
  EXPECT_NE(row.At(22, 0), Rgb(kPaper));
  EXPECT_EQ(LabelOf(rows[1]).left, 22);
}

}  // namespace
