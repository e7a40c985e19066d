// The formats of device-independent bitmaps: 1, 4, 8, 16, 24 and 32 bits per pixel, uncompressed.
#pragma once

#include <optional>

#include <windows.h>

#include "bitmap.h"

namespace desktop {

// What a BITMAPINFO (or BITMAPCOREINFO, or a longer header) describes. Nothing if it is malformed,
// compressed or unreasonably large. With usage DIB_PAL_COLORS the colours are a grey ramp.
std::optional<DibFormat> ReadDibFormat(const BITMAPINFO* info, UINT usage);

// Where the pixels of a packed DIB (header, colours, pixels) start, in bytes from the header.
size_t PackedPixelsOffset(const BITMAPINFO* info);

// The colours that a DIB of 1, 4 or 8 bits gets from the system.
std::vector<RGBQUAD> DefaultColors(int bitCount);

// One stored row to surface words and back; `first` and `count` are in pixels. Words of formats
// without an alpha channel get 0 in the top byte.
void DecodeRow(const DibFormat& format, const BYTE* row, int first, int count, uint32_t* words);
void EncodeRow(const DibFormat& format, const uint32_t* words, int count, BYTE* row);
// Encodes one pixel.
void EncodePixel(const DibFormat& format, uint32_t word, int x, BYTE* row);

constexpr uint32_t ToWord(COLORREF color) {
  return ((color & 0xff) << 16) | (color & 0xff00) | ((color >> 16) & 0xff);
}
constexpr COLORREF ToColor(uint32_t word) { return ToWord(word); }
// Black or white, whichever is nearer.
constexpr uint32_t NearestMono(uint32_t word) {
  uint32_t light = 30 * ((word >> 16) & 0xff) + 59 * ((word >> 8) & 0xff) + 11 * (word & 0xff);
  return light >= 12800 ? 0xffffff : 0;
}

}  // namespace desktop
