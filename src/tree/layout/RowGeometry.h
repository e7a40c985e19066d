// How a row is cut into zones, left to right, from plain values. The one author of every offset that
// painting, hit testing, the label's right end and the edit box share. Internal.
//
// Painting and hit testing differ on purpose where hosts have come to rely on it; each difference is one of
// the branches of CutRow.
#pragma once

#include <windows.h>

namespace vorn {

inline constexpr int kRowMargin = 2;        // left and right of a row
inline constexpr int kCellWidth = 16;       // of a line's cell, of a check box, of any image in hit testing
inline constexpr int kCellMiddle = 7;       // x of a vertical line in its cell
inline constexpr int kImageGap = 2;         // behind the images
inline constexpr int kLabelMargins = 4;     // what a label's rectangle adds to the text's width
inline constexpr int kLabelIndent = 2;      // of the text in that rectangle
inline constexpr int kHitLabelMargins = 6;  // what hit testing adds instead: the gap is the label's

// Hit flags, see CVornTreeCtrl::HitTest.
enum : unsigned int {
  kHitImage = 0x0002,
  kHitLabel = 0x0004,
  kHitIndent = 0x0008,
  kHitButton = 0x0010,
  kHitRight = 0x0020,
  kHitCheckBox = 0x0040,
  kHitAbove = 0x0100,
  kHitBelow = 0x0200,
  kHitWindowRight = 0x0400,
  kHitWindowLeft = 0x0800,
  kHitStateImage = 0x1000,
};

struct RowShape {
  int level = 1;        // 1 for a top-level item
  int levelOffset = 0;  // 1 when only the active document is shown
  unsigned int style = 0;
  unsigned int indent = 0;  // pixels per level
  // Pixels that each takes, 0: it is not there. Painting knows the images' sizes, for all others each that
  // is there is as wide as a cell.
  int checkBox = 0;
  int stateImage = 0;
  int image = 0;
  int textWidth = 0;
};

// What a row is cut for.
enum class RowUse { Paint, PaintDragItem, PaintDragPlain, HitTest };

// The x at which each zone starts; it ends where the next one starts, also when it is empty.
struct RowZones {
  int start;       // behind the margin: the indentation
  int cell;        // the last column of the indentation: connector and button
  bool hasButton;  // that column is a button's, whether or not the item has children
  int checkBox;
  int stateImage;
  int image;
  int label;
  int end;  // of the label
};

// left: where the row begins.
RowZones CutRow(const RowShape& shape, int left, RowUse use);

// The zone, one of the hit flags, of a point with this x in a row that begins at left.
unsigned int HitRow(const RowShape& shape, int left, int x);

// The x of the end of the label, for the scroll range. Meant: the state image is not counted, and the
// level shows only behind a check box or an image.
int LabelRight(const RowShape& shape);

// The width of some levels of indentation. Stays in the range of drawing coordinates, whatever the indent.
int WidthOfLevels(unsigned int indent, int levels);

// Whether the style shows lines or buttons at the first level: it then has a column of its own.
bool HasRootColumn(unsigned int style);
// Whether it shows lines there.
bool HasLinesAtRoot(unsigned int style);

}  // namespace vorn
