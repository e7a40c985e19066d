// Pens and brushes: creation and description.
#include <algorithm>
#include <cstring>

#include "../world.h"
#include "bitmap.h"
#include "bounded.h"
#include "object.h"

namespace desktop {

int Pen::Describe(int size, void* buffer) const {
  if (type == OBJ_PEN) {
    LOGPEN record{style, {width, 0}, color};
    // The extended record is allowed as a buffer too; a smaller one is refused.
    if (buffer && size < static_cast<int>(sizeof(record))) return 0;
    return DescribeAs(&record, sizeof(record), size, buffer);
  }
  EXTLOGPEN record{};
  record.elpPenStyle = style;
  record.elpWidth = static_cast<DWORD>(width);
  record.elpBrushStyle = BS_SOLID;
  record.elpColor = color;
  record.elpNumEntries = static_cast<DWORD>(dashes.size());
  size_t header = offsetof(EXTLOGPEN, elpStyleEntry);
  std::vector<BYTE> bytes(header + dashes.size() * sizeof(DWORD));
  std::memcpy(bytes.data(), &record, header);
  if (!dashes.empty()) std::memcpy(bytes.data() + header, dashes.data(), dashes.size() * sizeof(DWORD));
  int needed = static_cast<int>(bytes.size());
  if (buffer && size < needed) return 0;
  return DescribeAs(bytes.data(), needed, size, buffer);
}

int Brush::Describe(int size, void* buffer) const {
  LOGBRUSH record{style, color, hatch};
  return DescribeAs(&record, sizeof(record), size, buffer);
}

namespace {

HBRUSH MakeBrush(UINT style, COLORREF color, ULONG_PTR hatch) {
  auto brush = std::make_unique<Brush>();
  brush->style = style;
  brush->color = color & 0xffffff;
  brush->hatch = hatch;
  return static_cast<HBRUSH>(AddObject(std::move(brush)));
}

}  // namespace
}  // namespace desktop

using namespace desktop;

HPEN WINAPI CreatePen(int style, int width, COLORREF color) {
  WorldLock lock(WorldMutex());
  if (style == PS_NULL) return static_cast<HPEN>(GetStockObject(NULL_PEN));
  auto pen = std::make_unique<Pen>();
  pen->style = style < PS_SOLID || style > PS_INSIDEFRAME ? PS_SOLID : static_cast<DWORD>(style);
  pen->width = std::abs(Bounded(width));
  pen->color = color & 0xffffff;
  return static_cast<HPEN>(AddObject(std::move(pen)));
}

HPEN WINAPI CreatePenIndirect(const LOGPEN* pen) {
  return pen ? CreatePen(static_cast<int>(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor) : nullptr;
}

HPEN WINAPI ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count, const DWORD* pattern) {
  WorldLock lock(WorldMutex());
  DWORD line = style & PS_STYLE_MASK;
  bool geometric = (style & PS_TYPE_MASK) == PS_GEOMETRIC;
  if (!brush || line > PS_ALTERNATE) return nullptr;
  if ((line == PS_USERSTYLE) != (count > 0) || (count > 0 && !pattern) || count > 16) return nullptr;
  if (geometric && line == PS_ALTERNATE) return nullptr;
  if (!geometric && (width != 1 || brush->lbStyle != BS_SOLID || line == PS_INSIDEFRAME)) return nullptr;
  if (line == PS_NULL) return static_cast<HPEN>(GetStockObject(NULL_PEN));
  auto pen = std::make_unique<Pen>();
  pen->type = OBJ_EXTPEN;
  pen->style = style;
  pen->width = static_cast<int>(std::min<DWORD>(width, 0x7fff));
  pen->color = brush->lbColor & 0xffffff;
  if (count > 0) pen->dashes.assign(pattern, pattern + count);
  return static_cast<HPEN>(AddObject(std::move(pen)));
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color) {
  WorldLock lock(WorldMutex());
  return MakeBrush(BS_SOLID, color, 0);
}

HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF color) {
  WorldLock lock(WorldMutex());
  if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS) return nullptr;
  return MakeBrush(BS_HATCHED, color, static_cast<ULONG_PTR>(hatch));
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP handle) {
  WorldLock lock(WorldMutex());
  Bitmap* bitmap = FindBitmap(handle);
  if (!bitmap) return nullptr;
  auto brush = std::make_unique<Brush>();
  brush->style = BS_PATTERN;
  brush->hatch = reinterpret_cast<ULONG_PTR>(handle);
  Pattern& pattern = brush->pattern;
  pattern.width = bitmap->width;
  pattern.height = bitmap->height;
  pattern.mono = bitmap->IsMono();
  PixelView view = bitmap->View();
  for (int y = 0; y < view.height; ++y)
    pattern.pixels.insert(pattern.pixels.end(), view.row(y), view.row(y) + view.width);
  return static_cast<HBRUSH>(AddObject(std::move(brush)));
}

HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH* brush) {
  WorldLock lock(WorldMutex());
  if (!brush) return nullptr;
  switch (brush->lbStyle) {
    case BS_SOLID: return CreateSolidBrush(brush->lbColor);
    case BS_HATCHED: return CreateHatchBrush(static_cast<int>(brush->lbHatch), brush->lbColor);
    case BS_PATTERN: return CreatePatternBrush(reinterpret_cast<HBITMAP>(brush->lbHatch));
    case BS_NULL: return MakeBrush(BS_NULL, 0, 0);
    default: return nullptr;
  }
}
