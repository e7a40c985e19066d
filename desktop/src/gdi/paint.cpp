#include "paint.h"

#include <algorithm>
#include <cstring>

#include "bounded.h"
#include "dib.h"

namespace desktop {
namespace {

constexpr uint32_t kWhite = 0xffffff;
constexpr uint32_t kHole = 0x01000000;
constexpr int kHatchSide = 8;

int Wrap(long long value, int modulus) {
  auto rest = static_cast<int>(value % modulus);
  return rest < 0 ? rest + modulus : rest;
}

// One byte per row, leftmost pixel in the high bit.
const BYTE* HatchRows(ULONG_PTR hatch) {
  static const BYTE kRows[6][kHatchSide] = {
      {0x00, 0x00, 0x00, 0xff, 0x00, 0x00, 0x00, 0x00}, {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08},
      {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
      {0x08, 0x08, 0x08, 0xff, 0x08, 0x08, 0x08, 0x08}, {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81}};
  return kRows[hatch < 6 ? hatch : 0];
}

// A colour on a mono bitmap: black and white in the proportion of its lightness.
Paint DitheredPaint(uint32_t word) {
  static const BYTE kOrder[kHatchSide][kHatchSide] = {
      {0, 32, 8, 40, 2, 34, 10, 42},    {48, 16, 56, 24, 50, 18, 58, 26}, {12, 44, 4, 36, 14, 46, 6, 38},
      {60, 28, 52, 20, 62, 30, 54, 22}, {3, 35, 11, 43, 1, 33, 9, 41},    {51, 19, 59, 27, 49, 17, 57, 25},
      {15, 47, 7, 39, 13, 45, 5, 37},   {63, 31, 55, 23, 61, 29, 53, 21}};
  uint32_t light = 30 * ((word >> 16) & 0xff) + 59 * ((word >> 8) & 0xff) + 11 * (word & 0xff);
  uint32_t whites = (light * 64 + 12750) / 25500;
  if (whites == 0 || whites == 64) return SolidPaint(whites ? kWhite : 0);
  Paint paint;
  paint.width = paint.height = kHatchSide;
  for (const auto& row : kOrder) {
    for (BYTE rank : row) paint.words.push_back(rank < whites ? kWhite : 0);
  }
  return paint;
}

Paint SolidBrushPaint(const DeviceContext& dc, COLORREF color) {
  return dc.IsMono() ? DitheredPaint(ToWord(color & kWhite)) : SolidPaint(ColorWord(dc, color));
}

Paint HatchPaint(const DeviceContext& dc, const Brush& brush) {
  Paint paint;
  paint.width = paint.height = kHatchSide;
  paint.holes = dc.state.bkMode == TRANSPARENT;
  uint32_t line = ColorWord(dc, brush.color);
  uint32_t ground = paint.holes ? kHole : ColorWord(dc, dc.state.bkColor);
  const BYTE* rows = HatchRows(brush.hatch);
  for (int y = 0; y < kHatchSide; ++y) {
    for (int x = 0; x < kHatchSide; ++x) paint.words.push_back(rows[y] >> (7 - x) & 1 ? line : ground);
  }
  return paint;
}

Paint PatternPaint(const DeviceContext& dc, const Pattern& pattern) {
  Paint paint;
  paint.width = pattern.width;
  paint.height = pattern.height;
  paint.words = pattern.pixels;
  bool mono = dc.IsMono();
  if (pattern.mono && !mono) {
    uint32_t white = ColorWord(dc, dc.state.bkColor);
    uint32_t black = ColorWord(dc, dc.state.textColor);
    for (uint32_t& word : paint.words) word = word ? white : black;
  } else if (mono && !pattern.mono) {
    for (uint32_t& word : paint.words) word = NearestMono(word);
  } else {
    for (uint32_t& word : paint.words) word &= kWhite;
  }
  return paint;
}

template <typename Rule>
void EachSource(uint32_t* d, const uint32_t* s, int count, Rule rule) {
  for (int i = 0; i < count; ++i) d[i] = rule(s[i], d[i]) & kWhite;
}

void GeneralRow(BYTE rop, uint32_t* d, const uint32_t* s, const uint32_t* p, int count) {
  for (int i = 0; i < count; ++i) {
    uint32_t pattern = p ? p[i] : 0;
    uint32_t source = s ? s[i] : 0;
    uint32_t result = 0;
    for (unsigned term = 0; term < 8; ++term) {
      if (!(rop >> term & 1)) continue;
      result |= (term & 4 ? pattern : ~pattern) & (term & 2 ? source : ~source) & (term & 1 ? d[i] : ~d[i]);
    }
    d[i] = result & kWhite;
  }
}

void FillPieceSolid(const PixelView& pixels, const RECT& piece, uint32_t word, BYTE rop) {
  int count = piece.right - piece.left;
  if (rop == 0xf0) {
    for (int y = piece.top; y < piece.bottom; ++y) std::fill_n(pixels.row(y) + piece.left, count, word);
    return;
  }
  std::vector<uint32_t> pattern(static_cast<size_t>(count), word);
  for (int y = piece.top; y < piece.bottom; ++y)
    RopRow(rop, pixels.row(y) + piece.left, nullptr, pattern.data(), count);
}

void FillPiecePattern(const PixelView& pixels, const RECT& piece, const Paint& paint, BYTE rop) {
  int count = piece.right - piece.left;
  std::vector<uint32_t> pattern(static_cast<size_t>(count));
  for (int y = piece.top; y < piece.bottom; ++y) {
    const uint32_t* tile =
        paint.words.data() + static_cast<size_t>(Wrap(y - paint.origin.y, paint.height)) * paint.width;
    int column = Wrap(piece.left - paint.origin.x, paint.width);
    for (int i = 0; i < count; ++i) {
      pattern[static_cast<size_t>(i)] = tile[column];
      if (++column == paint.width) column = 0;
    }
    uint32_t* row = pixels.row(y) + piece.left;
    if (!paint.holes) {
      RopRow(rop, row, nullptr, pattern.data(), count);
      continue;
    }
    for (int i = 0; i < count; ++i) {
      const uint32_t* word = &pattern[static_cast<size_t>(i)];
      if (!(*word & kHole)) RopRow(rop, row + i, nullptr, word, 1);
    }
  }
}

void FillPiece(const PixelView& pixels, const RECT& piece, const Paint& paint, BYTE rop) {
  if (!UsesPattern(rop) || paint.IsNone() || paint.IsSolid()) {
    FillPieceSolid(pixels, piece, paint.IsNone() ? 0 : paint.words[0], rop);
  } else {
    FillPiecePattern(pixels, piece, paint, rop);
  }
}

}  // namespace

uint32_t Paint::At(int x, int y) const {
  return words[static_cast<size_t>(Wrap(y - origin.y, height)) * static_cast<size_t>(width) +
               static_cast<size_t>(Wrap(x - origin.x, width))];
}

bool Paint::Covers(int x, int y) const { return !holes || !(At(x, y) & kHole); }

uint32_t ColorWord(const DeviceContext& dc, COLORREF color) {
  uint32_t word = ToWord(color & kWhite);
  return dc.IsMono() ? NearestMono(word) : word;
}

Paint SolidPaint(uint32_t word) {
  Paint paint;
  paint.width = paint.height = 1;
  paint.words.push_back(word);
  return paint;
}

Paint BrushPaint(const DeviceContext& dc, HBRUSH handle) {
  Brush* brush = FindBrush(ResolveBrush(handle));
  if (!brush || brush->style == BS_NULL) return {};
  if (brush->systemColor >= 0) return SolidBrushPaint(dc, GetSysColor(brush->systemColor));
  if (brush->style == BS_SOLID)
    return SolidBrushPaint(dc, brush->usesDcColor ? dc.state.brushColor : brush->color);
  Paint paint = brush->style == BS_HATCHED ? HatchPaint(dc, *brush) : PatternPaint(dc, brush->pattern);
  paint.origin = {Bounded(dc.state.brushOrigin.x) + dc.target.origin.x,
                  Bounded(dc.state.brushOrigin.y) + dc.target.origin.y};
  return paint;
}

BYTE TernaryFromRop2(int rop2) {
  // Bits of (code - 1): result where pen and destination are 0 0, 0 1, 1 0, 1 1.
  unsigned table = static_cast<unsigned>(rop2 - 1) & 0xf;
  unsigned low = (table & 3) | ((table & 3) << 2);
  unsigned high = (table >> 2) | ((table >> 2) << 2);
  return static_cast<BYTE>(low | (high << 4));
}

void RopRow(BYTE rop, uint32_t* d, const uint32_t* s, const uint32_t* p, int count) {
  switch (rop) {
    case 0x00: std::fill_n(d, count, 0); return;
    case 0xff: std::fill_n(d, count, kWhite); return;
    case 0xaa: return;
    case 0xcc: std::memmove(d, s, static_cast<size_t>(count) * sizeof(uint32_t)); return;
    case 0xf0: std::memmove(d, p, static_cast<size_t>(count) * sizeof(uint32_t)); return;
    case 0x88: EachSource(d, s, count, [](uint32_t a, uint32_t b) { return a & b; }); return;
    case 0xee: EachSource(d, s, count, [](uint32_t a, uint32_t b) { return a | b; }); return;
    case 0x66: EachSource(d, s, count, [](uint32_t a, uint32_t b) { return a ^ b; }); return;
    case 0x33: EachSource(d, s, count, [](uint32_t a, uint32_t) { return ~a; }); return;
    case 0xbb: EachSource(d, s, count, [](uint32_t a, uint32_t b) { return ~a | b; }); return;
    case 0x44: EachSource(d, s, count, [](uint32_t a, uint32_t b) { return a & ~b; }); return;
    case 0x22: EachSource(d, s, count, [](uint32_t a, uint32_t b) { return ~a & b; }); return;
    case 0x55: EachSource(d, d, count, [](uint32_t a, uint32_t) { return ~a; }); return;
    case 0x5a: EachSource(d, p, count, [](uint32_t a, uint32_t b) { return a ^ b; }); return;
    case 0xa0: EachSource(d, p, count, [](uint32_t a, uint32_t b) { return a & b; }); return;
    case 0xfa: EachSource(d, p, count, [](uint32_t a, uint32_t b) { return a | b; }); return;
    default: GeneralRow(rop, d, s, p, count);
  }
}

void FillArea(DeviceContext& dc, const RECT& area, const Paint& paint, BYTE rop) {
  if (UsesPattern(rop) && paint.IsNone()) return;
  Canvas canvas(dc);
  if (!canvas) return;
  ForEachPiece(dc, area, [&](const RECT& piece) { FillPiece(canvas.Pixels(), piece, paint, rop); });
}

void FillArea(DeviceContext& dc, const Region& area, const Paint& paint, BYTE rop) {
  if (UsesPattern(rop) && paint.IsNone()) return;
  Canvas canvas(dc);
  if (!canvas) return;
  Region clipped = area;
  clipped &= dc.Clip();
  for (const RECT& piece : clipped.Rects()) {
    CountWrite(dc.target.surface.get(), piece);
    FillPiece(canvas.Pixels(), piece, paint, rop);
  }
}

void PutBlock(DeviceContext& dc, const Block& block, const Paint& paint, BYTE rop) {
  bool needsPattern = UsesPattern(rop);
  if (needsPattern && paint.IsNone()) return;
  Canvas canvas(dc);
  if (!canvas) return;
  std::vector<uint32_t> pattern(needsPattern ? block.Width() : 0);
  ForEachPiece(dc, block.area, [&](const RECT& piece) {
    int count = piece.right - piece.left;
    for (int y = piece.top; y < piece.bottom; ++y) {
      for (int i = 0; needsPattern && i < count; ++i)
        pattern[static_cast<size_t>(i)] = paint.At(piece.left + i, y) & kWhite;
      RopRow(rop, canvas.Pixels().row(y) + piece.left, block.row(y) + (piece.left - block.area.left),
             pattern.data(), count);
    }
  });
}

}  // namespace desktop
