#include "RowGeometry.h"

#include <algorithm>

#include "../VornTreeTypes.h"

namespace vorn {

namespace {

constexpr bool HasAll(unsigned int style, unsigned int bits) { return (style & bits) == bits; }

}  // namespace

int UsableIndent(unsigned int indent, int level) {
  constexpr unsigned int kFarthest = 1u << 28;
  return static_cast<int>(std::min(indent, kFarthest / static_cast<unsigned int>(std::max(level, 1))));
}

bool HasRootColumn(unsigned int style) {
  return HasAll(style, STS_HASLINES | STS_LINESATROOT) || HasAll(style, STS_HASBUTTONS | STS_LINESATROOT) ||
         HasAll(style, STS_IMAGEBUTTONS | STS_LINESATROOT);
}

unsigned int HitRow(const RowShape& shape, const RECT& row, POINT point) {
  RECT zone = row;
  zone.right = zone.left;
  const auto next = [&](int width) {
    zone.left = zone.right;
    zone.right += width;
    return ::PtInRect(&zone, point) != FALSE;
  };
  const bool rootColumn = HasRootColumn(shape.style);
  if (shape.level > 1 || rootColumn) {
    const int depth = shape.level - shape.levelOffset;
    if (next(shape.indent * (rootColumn ? depth : depth - 1))) {
      // The button's column is there whether or not the item has children.
      zone.left = zone.right - shape.indent;
      const bool hasButtons = (shape.style & (STS_HASBUTTONS | STS_IMAGEBUTTONS)) != 0;
      return hasButtons && ::PtInRect(&zone, point) ? kHitButton : kHitIndent;
    }
  }
  if (shape.hasCheckBox && next(kCellWidth)) return kHitCheckBox;
  if (shape.hasStateImage && next(kCellWidth)) return kHitStateImage;
  if (shape.hasImage && next(kCellWidth)) return kHitImage;
  return next(kHitLabelMargins + shape.textWidth) ? kHitLabel : kHitRight;
}

int LabelRight(const RowShape& shape) {
  int left = kRowMargin, right = 0;
  bool gap = false;
  if (shape.level > 1 || HasRootColumn(shape.style)) {
    right = shape.indent * shape.level + left + shape.indent;
    left += shape.indent;
    gap = true;
  } else if (shape.style & (STS_HASBUTTONS | STS_IMAGEBUTTONS)) {
    left += shape.indent;
    right += shape.indent;
  }
  if (shape.hasCheckBox) {
    left = right;
    right = left + kCellWidth;
    gap = true;
  }
  if (shape.hasImage) {
    left = right + kImageGap;
  } else if (gap) {
    left += kImageGap;
  }
  return left + shape.textWidth;
}

RowColumns ColumnsOf(const RowShape& shape, int left, RowPurpose purpose) {
  const bool plain = purpose == RowPurpose::DragPlain;
  const int shown = shape.level - shape.levelOffset;
  const bool linesAtRoot = HasAll(shape.style, STS_HASLINES | STS_LINESATROOT);
  const bool buttons = (shape.style & (STS_HASBUTTONS | STS_IMAGEBUTTONS)) != 0;

  RowColumns columns{};
  int x = left + kRowMargin;
  columns.ancestors = linesAtRoot ? x : x - shape.indent;
  if (!plain && shape.level >= 2) x += (shape.level - 2) * shape.indent;
  if (!plain && HasRootColumn(shape.style) && shown > 1 && shape.levelOffset == 0) x += shape.indent;
  columns.cell = x;
  columns.hasButton = buttons && (shown > 1 || (shape.style & STS_LINESATROOT) != 0);
  columns.contentIfStepped = x + shape.indent;
  columns.content = columns.hasButton ? columns.contentIfStepped : x;
  return columns;
}

}  // namespace vorn
