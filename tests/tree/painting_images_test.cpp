// Check box, images, the gap behind them, the shortcut's mark, and the label of a row.
#include "core/VornFunctions.h"
#include "tree/tree_row.h"

namespace {

using support::kPaper;
using support::Picture;
using support::Rgb;
using support::SolidImages;
using support::TreeRow;

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

}  // namespace
