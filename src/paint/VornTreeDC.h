// CVornTreeDC: draws the rows of a tree control.
//
// The control's paint handler draws a whole repaint through one of these; RedrawItem repaints a single
// row straight on the window; the drag code draws rows into bitmaps.
#pragma once

#include "../core/VornComCtlApi.h"
#include "../tree/VornTreeTypes.h"
#include "VornDC.h"

class CVornTreeCtrl;

namespace vorn {
struct RowShape;
}

// What a row is drawn for.
enum VornTreePaintMode {
  VornTreePaintNormal = 0,     // a repaint of the window; the item's rectangle is left where it was drawn
  VornTreePaintDragItem = 1,   // a drag image: no lines, buttons, selection colours or hot look
  VornTreePaintDragPlain = 2,  // a drag image without the indentation: no lines, buttons or hot look
  VornTreePaintRedraw = 3,     // one row; everything is drawn, the item's rectangle stays as it was
};

class VORNCOMCTL_API CVornTreeDC : public CVornDC {
  DECLARE_DYNAMIC(CVornTreeDC)

 public:
  // pTree may be null: the library's default colours then serve.
  explicit CVornTreeDC(CVornTreeCtrl* pTree);
  virtual ~CVornTreeDC();

  // Fills the whole buffer with the background colour.
  void DrawBackground();
  // Draws one row. rect: its left, top and right. style: the control's window style. levelOffset: 1 when
  // only the active document is shown, else 0. Nothing for a null item or a row without width.
  void DrawItem(const CRect& rect, CVornTreeItem* pItem, unsigned long style, long levelOffset);
  // Draws the lines of the ancestors that go on below this row, and moves pRect to the item's column.
  void DrawBrotherLine(CRect* pRect, CVornTreeItem* pItem, unsigned long style, long levelOffset);
  // kind: 1 for a collapsed item, 2 for an expanded one.
  void DrawItemButton(CRect* pRect, unsigned int kind, unsigned long style);
  // Each of the three returns 1 if it drew, and then moves pRect right by what it drew.
  int DrawCheckBox(CRect* pRect, CVornTreeItem* pItem, unsigned long style);
  int DrawImageState(CRect* pRect, CVornTreeItem* pItem);
  int DrawImage(CRect* pRect, CVornTreeItem* pItem, unsigned long style);
  // Draws the label and leaves its rectangle in pRect. 1.
  int DrawItemText(CRect* pRect, CVornTreeItem* pItem, unsigned long style);
  // Dotted lines from the middle of a cell. sides: 1 up, 2 left, 4 right, 8 down.
  void DrawVornLine(CRect* pRect, unsigned long color, unsigned long sides);

  VornTreePaintMode GetPaintMode() { return m_nPaintMode; }
  void SetPaintMode(VornTreePaintMode mode) { m_nPaintMode = mode; }

  // Repaints one row on the window. 0 if the item is not on screen.
  int RedrawItem(CVornTreeCtrl* pTree, CVornTreeItem* pItem);

 private:
  struct LabelColors {
    COLORREF back;
    COLORREF text;
  };

  bool IsForDrag() const {
    return m_nPaintMode == VornTreePaintDragItem || m_nPaintMode == VornTreePaintDragPlain;
  }
  void DrawRow(const CRect& rect, CVornTreeItem* pItem, unsigned long style, long levelOffset);
  void DrawConnector(const CRect& cell, CVornTreeItem* pItem, unsigned int style, bool isFirstLevel);
  vorn::RowShape ShapeOf(CVornTreeItem* pItem, unsigned int style, long levelOffset) const;
  int RowHeight(const CVornTreeItem* pItem) const;
  // Pixels that each takes in a row; 0: it is not drawn.
  int CheckBoxWidth(const CVornTreeItem* pItem, unsigned int style) const;
  int StateImageWidth(const CVornTreeItem* pItem) const;
  int ImageWidth(const CVornTreeItem* pItem) const;
  void DrawOwnButton(CRect box, unsigned int kind);
  void DrawShortcutMark(int x, int y);
  LabelColors ColorsOf(CVornTreeItem* pItem, unsigned int style, bool hot) const;
  bool IsHot(const CVornTreeItem* pItem, unsigned int style) const;

  // The order of the fields is fixed.
  CVornTreeCtrl* m_pTree;  // not owned
  VornTreePaintMode m_nPaintMode = VornTreePaintNormal;
  COLORREF m_clrText;
  COLORREF m_clrButtonFill;
  COLORREF m_clrLine;
  COLORREF m_clrBack;
};
