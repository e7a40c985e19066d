// How a row is cut into zones, left to right, from plain values. The one author of every offset that
// painting, hit testing, the label's right end and the edit box share. Internal.
//
// The three cuts differ on purpose where hosts have come to rely on it; each difference stands here.
#pragma once

#include <windows.h>

namespace vorn {

inline constexpr int kRowMargin = 2;        // left and right of a row
inline constexpr int kCellWidth = 16;       // of a line's cell, and of each image in hit testing
inline constexpr int kCellMiddle = 7;       // x of a vertical line in its cell
inline constexpr int kImageGap = 2;         // behind the images
inline constexpr int kLabelMargins = 4;     // what a label's rectangle adds to the text's width
inline constexpr int kLabelIndent = 2;      // of the text in that rectangle
inline constexpr int kHitLabelMargins = 6;  // what hit testing adds instead

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
  int indent = 0;  // pixels per level
  bool hasCheckBox = false;
  bool hasStateImage = false;
  bool hasImage = false;
  int textWidth = 0;  // pixels
};

// A host's indent as rows use it: what no row could show is held back, so that sums of columns stay in range.
int UsableIndent(unsigned int indent, int level);

// Whether the style shows lines or buttons at the first level: it then has a column of its own.
bool HasRootColumn(unsigned int style);

// The zone of a point in a row. left: where the row begins. Zones are as wide as the cells, whatever the
// images' size, and one that was missed still takes its room.
unsigned int HitRow(const RowShape& shape, const RECT& row, POINT point);

// The x of the end of the label, for the scroll range. Meant: the state image is not counted, and the
// level shows only behind a check box or an image.
int LabelRight(const RowShape& shape);

// What a row is painted for.
enum class RowPurpose { Window, DragItem, DragPlain };

struct RowColumns {
  int ancestors;         // x of the cell of the first ancestor's line
  int cell;              // x of the connector's and button's cell
  bool hasButton;        // the cell is a button's column
  int content;           // x of what follows the cell, when the connector has its say (see below)
  int contentIfStepped;  // the same when the connector asks to step over the cell
};

// The columns of a row that is painted from left on.
RowColumns ColumnsOf(const RowShape& shape, int left, RowPurpose purpose);

}  // namespace vorn
