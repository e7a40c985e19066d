// The drawing object of the tree: what it refuses, and single rows drawn straight on the window.
#include "tree/tree_row.h"

namespace {

using support::kLinesAndButtons;
using support::kPaper;
using support::Picture;
using support::Rgb;
using support::TreeRow;

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
