// Rows of a known height, with empty labels of a colour of their own: each pixel of theirs is known.
#pragma once

#include <vector>

#include "tree/painted_tree.h"

namespace support {

// The labels' background.
inline constexpr COLORREF kPaper = RGB(250, 240, 220);

// Letters for the colours that rows are drawn in, whatever the system's are.
inline const Palette& RowPalette() {
  static const Palette palette = {{Rgb(::GetSysColor(COLOR_WINDOW)), '.'},
                                  {Rgb(::GetSysColor(COLOR_WINDOWTEXT)), '#'},
                                  {Rgb(kPaper), 'L'},
                                  {Rgb(SolidImages::ColorOf(0)), '0'},
                                  {Rgb(SolidImages::ColorOf(1)), '1'},
                                  {Rgb(SolidImages::ColorOf(2)), '2'}};
  return palette;
}

// Rows are 20 pixels high on every desktop: the images are, and labels are lower than that.
class TreeRow : public PaintedTree {
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
    ASSERT_EQ(HeightOf(tree, rows[0]), kHeight);
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
    return CaptureDc(dc, 2, 0, width, kHeight);
  }

  SolidImages heights{4, kHeight, 3};
  std::vector<CVornTreeItem*> rows;
};

}  // namespace support

#define EXPECT_ROW(picture, art) EXPECT_TRUE(support::LooksLike((picture), (art), support::RowPalette()))
