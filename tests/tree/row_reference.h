// What the rows of a tree must look like, pixel by pixel, drawn step by step with plain Win32 calls and
// independently of the library's painter. Labels are filled rectangles: it serves for empty ones.
#pragma once

#include <map>

#include "support/picture.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace support {

class RowReference {
 public:
  // Sizes and lists are those that the control has; null: none.
  struct Lists {
    CImageList* normal = nullptr;
    CImageList* checkBoxes = nullptr;
    CImageList* buttons = nullptr;
    CImageList* states = nullptr;
  };

  RowReference(TestTree& tree, unsigned style, int levelOffset, const Lists& lists);

  // The client area with its rows from first on.
  Picture Draw(CVornTreeItem* first, int scrollX, CSize client);
  // The rectangles of the labels, as the last Draw placed them.
  const std::map<CVornTreeItem*, CRect>& Labels() const { return m_labels; }

 private:
  void Row(HDC dc, CRect rect, CVornTreeItem* item);
  void BrotherLine(HDC dc, CRect& rect, CVornTreeItem* item);
  bool Connector(HDC dc, const CRect& cell, CVornTreeItem* item, int shown);
  void Button(HDC dc, const CRect& cell, bool expanded);
  void PlusOrMinus(HDC dc, CRect box, bool expanded);
  bool CheckBox(HDC dc, CRect& rect, CVornTreeItem* item);
  bool StateImage(HDC dc, CRect& rect, CVornTreeItem* item);
  bool Image(HDC dc, CRect& rect, CVornTreeItem* item);
  COLORREF LabelColor(CVornTreeItem* item);

  TestTree& m_tree;
  unsigned m_style;
  int m_offset;
  int m_indent;
  Lists m_lists;
  std::map<CVornTreeItem*, CRect> m_labels;
};

}  // namespace support
