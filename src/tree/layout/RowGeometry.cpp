#include "RowGeometry.h"

#include "../VornTreeTypes.h"

namespace vorn {

namespace {

constexpr bool HasAll(unsigned int style, unsigned int bits) { return (style & bits) == bits; }

constexpr bool HasButtons(unsigned int style) { return (style & (STS_HASBUTTONS | STS_IMAGEBUTTONS)) != 0; }

// Columns of indentation: those left of the cell, and whether the cell itself takes room.
struct Columns {
  int beforeCell;
  bool cellTakesRoom;
};

Columns PaintedColumns(const RowShape& shape, RowUse use, bool hasButton) {
  int before = 0;
  if (use != RowUse::PaintDragPlain) {
    const int shown = shape.level - shape.levelOffset;
    if (shape.level >= 2) before = shape.level - 2;
    if (HasRootColumn(shape.style) && shown > 1 && shape.levelOffset == 0) ++before;
  }
  // A connector steps over its cell, and at the first level only where lines are shown.
  return {before, hasButton || shape.level != 1 || HasLinesAtRoot(shape.style)};
}

// Meant: without a first-level column the level offset takes a column off here that painting steps over.
Columns HitColumns(const RowShape& shape) {
  const bool rootColumn = HasRootColumn(shape.style);
  if (shape.level <= 1 && !rootColumn) return {0, false};
  const int depth = shape.level - shape.levelOffset;
  const int columns = rootColumn ? depth : depth - 1;
  return {columns - 1, columns > 0};
}

}  // namespace

bool HasLinesAtRoot(unsigned int style) { return HasAll(style, STS_HASLINES | STS_LINESATROOT); }

bool HasRootColumn(unsigned int style) {
  return HasLinesAtRoot(style) || HasAll(style, STS_HASBUTTONS | STS_LINESATROOT) ||
         HasAll(style, STS_IMAGEBUTTONS | STS_LINESATROOT);
}

int WidthOfLevels(unsigned int indent, int levels) {
  constexpr long long kWidest = 1 << 26;
  const long long width = static_cast<long long>(indent) * levels;
  if (width > kWidest) return static_cast<int>(kWidest);
  return width < -kWidest ? static_cast<int>(-kWidest) : static_cast<int>(width);
}

RowZones CutRow(const RowShape& shape, int left, RowUse use) {
  const bool painted = use != RowUse::HitTest;
  RowZones zones{};
  zones.start = left + kRowMargin;
  zones.hasButton = HasButtons(shape.style) &&
                    (shape.level - shape.levelOffset > 1 || (shape.style & STS_LINESATROOT) != 0);
  const Columns columns = painted ? PaintedColumns(shape, use, zones.hasButton) : HitColumns(shape);
  zones.cell = zones.start;
  if (columns.beforeCell > 0) zones.cell += WidthOfLevels(shape.indent, columns.beforeCell);
  zones.checkBox = zones.cell;
  if (columns.cellTakesRoom) zones.checkBox += WidthOfLevels(shape.indent, 1);

  zones.stateImage = zones.checkBox + shape.checkBox;
  zones.image = zones.stateImage + shape.stateImage;
  zones.label = zones.image + shape.image;
  const bool hasImages = zones.label != zones.checkBox;
  if (painted && hasImages) zones.label += kImageGap;
  zones.end = zones.label + shape.textWidth + (painted ? kLabelMargins : kHitLabelMargins);
  return zones;
}

unsigned int HitRow(const RowShape& shape, int left, int x) {
  const RowZones zones = CutRow(shape, left, RowUse::HitTest);
  if (x < zones.start || x >= zones.end) return kHitRight;
  if (x < zones.checkBox) return zones.hasButton && x >= zones.cell ? kHitButton : kHitIndent;
  if (x < zones.stateImage) return kHitCheckBox;
  if (x < zones.image) return kHitStateImage;
  return x < zones.label ? kHitImage : kHitLabel;
}

int LabelRight(const RowShape& shape) {
  int left = kRowMargin, right = 0;
  bool gap = false;
  if (shape.level > 1 || HasRootColumn(shape.style)) {
    right = WidthOfLevels(shape.indent, shape.level) + left + WidthOfLevels(shape.indent, 1);
    left += WidthOfLevels(shape.indent, 1);
    gap = true;
  } else if (HasButtons(shape.style)) {
    left += WidthOfLevels(shape.indent, 1);
    right += WidthOfLevels(shape.indent, 1);
  }
  if (shape.checkBox != 0) {
    left = right;
    right = left + kCellWidth;
    gap = true;
  }
  if (shape.image != 0) {
    left = right + kImageGap;
  } else if (gap) {
    left += kImageGap;
  }
  return left + shape.textWidth;
}

}  // namespace vorn
