// The kernels of drawing: every pixel written by an API call goes through one of these. They clip to
// the DC, convert colours for mono bitmaps and apply raster operations. Coordinates are those of the
// surface. The lock is held.
#pragma once

#include <cstdint>
#include <vector>

#include <windows.h>

#include "device_context.h"
#include "write_count.h"

namespace desktop {

// What a brush puts at each pixel, once resolved for a DC.
struct Paint {
  bool IsNone() const { return width == 0; }
  bool IsSolid() const { return width == 1 && height == 1 && !holes; }
  uint32_t At(int x, int y) const;
  // False where a transparent hatch leaves the pixel alone.
  bool Covers(int x, int y) const;

  int width = 0;
  int height = 0;
  bool holes = false;
  POINT origin{};               // where the pattern starts
  std::vector<uint32_t> words;  // width * height; top byte 1 marks a hole
};

// The word that a colour becomes on this DC: black or white on a mono bitmap.
uint32_t ColorWord(const DeviceContext& dc, COLORREF color);
Paint SolidPaint(uint32_t word);
// Nothing (IsNone) for a null brush or a bad handle.
Paint BrushPaint(const DeviceContext& dc, HBRUSH brush);

// The truth table of three operands that a SetROP2 code stands for, with the pen or brush as pattern.
BYTE TernaryFromRop2(int rop2);
constexpr BYTE TernaryFromRop(DWORD rop) { return static_cast<BYTE>(rop >> 16); }
constexpr bool UsesSource(BYTE rop) { return ((rop >> 2) & 0x33) != (rop & 0x33); }
constexpr bool UsesPattern(BYTE rop) { return (rop >> 4) != (rop & 0x0f); }

// One row: destination = rop(pattern, source, destination). Unused operands may be null; source may
// overlap destination only for a plain copy.
void RopRow(BYTE rop, uint32_t* destination, const uint32_t* source, const uint32_t* pattern, int count);

// Calls draw(const RECT&) for each piece of `area` that may be written.
template <typename Draw>
void ForEachPiece(DeviceContext& dc, const RECT& area, Draw draw) {
  for (const RECT& rect : dc.Clip().Rects()) {
    if (rect.top >= area.bottom) break;
    RECT piece{rect.left > area.left ? rect.left : area.left, rect.top > area.top ? rect.top : area.top,
               rect.right < area.right ? rect.right : area.right,
               rect.bottom < area.bottom ? rect.bottom : area.bottom};
    if (piece.left >= piece.right || piece.top >= piece.bottom) continue;
    CountWrite(dc.target.surface.get(), piece);
    draw(piece);
  }
}

// Fills a rectangle or region by a raster operation of pattern and destination.
void FillArea(DeviceContext& dc, const RECT& area, const Paint& paint, BYTE rop);
void FillArea(DeviceContext& dc, const Region& area, const Paint& paint, BYTE rop);

// A copy of pixels made ready for a destination DC.
struct Block {
  const uint32_t* row(int y) const { return words.data() + static_cast<size_t>(y - area.top) * Width(); }
  size_t Width() const { return static_cast<size_t>(area.right - area.left); }

  RECT area{};  // on the destination surface
  std::vector<uint32_t> words;
};

// Reads the source rectangle (either may be mirrored by a negative size) as it falls on the destination
// rectangle, clipped to both. Raw keeps the source's words; else mono and colour are converted.
struct BlitShape {
  int x, y, width, height;                          // destination, surface coordinates
  int sourceX, sourceY, sourceWidth, sourceHeight;  // source, surface coordinates
};
Block ReadBlock(DeviceContext& dc, DeviceContext& source, const BlitShape& shape, bool raw);

// Combines a block with the destination.
void PutBlock(DeviceContext& dc, const Block& block, const Paint& paint, BYTE rop);

}  // namespace desktop
