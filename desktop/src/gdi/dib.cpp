#include "dib.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace desktop {
namespace {

constexpr LONG kMaxSide = 0x7fff;
constexpr DWORD kCoreHeaderSize = 12;

struct CoreHeader {
  DWORD size;
  WORD width;
  WORD height;
  WORD planes;
  WORD bitCount;
};

uint32_t ToWord(const RGBQUAD& color) {
  return (uint32_t{color.rgbRed} << 16) | (uint32_t{color.rgbGreen} << 8) | color.rgbBlue;
}

bool IsSupportedDepth(int bits) {
  return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

// Spreads the bits under a mask over 0..255.
uint32_t Expand(uint32_t value, uint32_t mask) {
  if (!mask) return 0;
  int shift = std::countr_zero(mask);
  uint64_t top = mask >> shift;
  return static_cast<uint32_t>((uint64_t{(value & mask) >> shift} * 255 + top / 2) / top);
}

uint32_t Shrink(uint32_t channel, uint32_t mask) {
  if (!mask) return 0;
  int shift = std::countr_zero(mask);
  int bits = std::bit_width(mask >> shift);
  uint32_t value = bits >= 8 ? channel << (bits - 8) : channel >> (8 - bits);
  return (value << shift) & mask;
}

uint32_t DecodeMasked(const DibFormat& format, uint32_t value) {
  return (Expand(value, format.masks[0]) << 16) | (Expand(value, format.masks[1]) << 8) |
         Expand(value, format.masks[2]);
}

uint32_t EncodeMasked(const DibFormat& format, uint32_t word) {
  return Shrink((word >> 16) & 0xff, format.masks[0]) | Shrink((word >> 8) & 0xff, format.masks[1]) |
         Shrink(word & 0xff, format.masks[2]);
}

unsigned NearestColor(const DibFormat& format, uint32_t word) {
  unsigned best = 0;
  int bestDistance = 0x7fffffff;
  for (size_t i = 0; i < format.colors.size(); ++i) {
    const RGBQUAD& color = format.colors[i];
    int red = static_cast<int>((word >> 16) & 0xff) - color.rgbRed;
    int green = static_cast<int>((word >> 8) & 0xff) - color.rgbGreen;
    int blue = static_cast<int>(word & 0xff) - color.rgbBlue;
    int distance = red * red + green * green + blue * blue;
    if (distance >= bestDistance) continue;
    best = static_cast<unsigned>(i);
    bestDistance = distance;
    if (distance == 0) break;
  }
  return best;
}

unsigned IndexAt(const BYTE* row, int bits, int x) {
  if (bits == 8) return row[x];
  if (bits == 4) return (row[x / 2] >> (x % 2 ? 0 : 4)) & 0xf;
  return (row[x / 8] >> (7 - x % 8)) & 1;
}

void SetIndex(BYTE* row, int bits, int x, unsigned index) {
  if (bits == 8) {
    row[x] = static_cast<BYTE>(index);
    return;
  }
  int perByte = 8 / bits;
  int shift = 8 - bits * (x % perByte + 1);
  unsigned mask = ((1u << bits) - 1) << shift;
  BYTE& byte = row[x / perByte];
  byte = static_cast<BYTE>((byte & ~mask) | ((index << shift) & mask));
}

// The masks of 16 and 32 bits: what the header says, or 5-5-5 and 8-8-8.
bool ReadMasks(const BITMAPINFO* info, DibFormat& format) {
  const BITMAPINFOHEADER& header = info->bmiHeader;
  if (header.biCompression == BI_RGB || header.biSize == kCoreHeaderSize) {
    if (format.bitCount == 16) {
      format.masks[0] = 0x7c00;
      format.masks[1] = 0x03e0;
      format.masks[2] = 0x001f;
    }
    return true;
  }
  if (header.biCompression != BI_BITFIELDS || (format.bitCount != 16 && format.bitCount != 32)) return false;
  // The masks follow the short header and are the next fields of the longer ones: the same place.
  std::memcpy(format.masks, reinterpret_cast<const BYTE*>(info) + sizeof(BITMAPINFOHEADER),
              sizeof(format.masks));
  return format.masks[0] && format.masks[1] && format.masks[2];
}

size_t ColorCount(const BITMAPINFOHEADER& header) {
  if (header.biBitCount > 8) return 0;
  size_t most = size_t{1} << header.biBitCount;
  return header.biClrUsed ? std::min<size_t>(header.biClrUsed, most) : most;
}

size_t ColorsOffset(const BITMAPINFOHEADER& header) {
  bool separateMasks = header.biSize == sizeof(BITMAPINFOHEADER) && header.biCompression == BI_BITFIELDS;
  return header.biSize + (separateMasks ? 3 * sizeof(DWORD) : 0);
}

void ReadColors(const BITMAPINFO* info, UINT usage, DibFormat& format) {
  const BITMAPINFOHEADER& header = info->bmiHeader;
  size_t count = ColorCount(header);
  format.colors.resize(size_t{1} << format.bitCount);
  if (usage == DIB_PAL_COLORS) {
    for (size_t i = 0; i < format.colors.size(); ++i) {
      auto grey = static_cast<BYTE>(i * 255 / (format.colors.size() - 1));
      format.colors[i] = {grey, grey, grey, 0};
    }
    return;
  }
  std::memcpy(format.colors.data(), reinterpret_cast<const BYTE*>(info) + ColorsOffset(header),
              count * sizeof(RGBQUAD));
}

std::optional<DibFormat> ReadCoreFormat(const BITMAPINFO* info) {
  CoreHeader header;
  std::memcpy(&header, info, sizeof(header));
  DibFormat format;
  format.width = header.width;
  format.height = header.height;
  format.bitCount = header.bitCount;
  if (!format.width || !format.height || !IsSupportedDepth(format.bitCount)) return {};
  ReadMasks(info, format);
  if (format.bitCount > 8) return format;
  format.colors.resize(size_t{1} << format.bitCount);
  const BYTE* triple = reinterpret_cast<const BYTE*>(info) + sizeof(header);
  for (RGBQUAD& color : format.colors) {
    color = {triple[0], triple[1], triple[2], 0};
    triple += 3;
  }
  return format;
}

}  // namespace

std::optional<DibFormat> ReadDibFormat(const BITMAPINFO* info, UINT usage) {
  if (!info) return {};
  const BITMAPINFOHEADER& header = info->bmiHeader;
  if (header.biSize == kCoreHeaderSize) return ReadCoreFormat(info);
  if (header.biSize < sizeof(BITMAPINFOHEADER) || !IsSupportedDepth(header.biBitCount)) return {};
  if (header.biWidth <= 0 || header.biWidth > kMaxSide) return {};
  if (header.biHeight == 0 || header.biHeight > kMaxSide || header.biHeight < -kMaxSide) return {};
  DibFormat format;
  format.width = header.biWidth;
  format.height = std::abs(header.biHeight);
  format.topDown = header.biHeight < 0;
  format.bitCount = header.biBitCount;
  if (!ReadMasks(info, format)) return {};
  if (format.bitCount <= 8) ReadColors(info, usage, format);
  return format;
}

size_t PackedPixelsOffset(const BITMAPINFO* info) {
  const BITMAPINFOHEADER& header = info->bmiHeader;
  if (header.biSize == kCoreHeaderSize) {
    CoreHeader core;
    std::memcpy(&core, info, sizeof(core));
    return sizeof(core) + (core.bitCount <= 8 ? (size_t{1} << core.bitCount) * 3 : 0);
  }
  size_t colors = header.biBitCount <= 8 ? ColorCount(header) : header.biClrUsed;
  return ColorsOffset(header) + colors * sizeof(RGBQUAD);
}

std::vector<RGBQUAD> DefaultColors(int bitCount) {
  if (bitCount == 1) return {{0, 0, 0, 0}, {255, 255, 255, 0}};
  // Blue, green, red, as in RGBQUAD.
  std::vector<RGBQUAD> colors = {{0, 0, 0, 0},       {0, 0, 128, 0},   {0, 128, 0, 0},   {0, 128, 128, 0},
                                 {128, 0, 0, 0},     {128, 0, 128, 0}, {128, 128, 0, 0}, {192, 192, 192, 0},
                                 {128, 128, 128, 0}, {0, 0, 255, 0},   {0, 255, 0, 0},   {0, 255, 255, 0},
                                 {255, 0, 0, 0},     {255, 0, 255, 0}, {255, 255, 0, 0}, {255, 255, 255, 0}};
  if (bitCount == 4) {
    std::swap(colors[7], colors[8]);
    return colors;
  }
  // 8 bits: the first and last of the sixteen at the ends, and a 6 x 6 x 6 cube between.
  std::vector<RGBQUAD> all(256);
  std::copy(colors.begin(), colors.begin() + 8, all.begin());
  std::copy(colors.begin() + 8, colors.end(), all.end() - 8);
  all[8] = {0xc0, 0xdc, 0xc0, 0};
  all[9] = {0xf0, 0xca, 0xa6, 0};
  all[246] = {0xf0, 0xfb, 0xff, 0};
  all[247] = {0xa4, 0xa0, 0xa0, 0};
  for (size_t i = 0; i < 216; ++i) {
    all[20 + i] = {static_cast<BYTE>(i / 36 * 51), static_cast<BYTE>(i / 6 % 6 * 51),
                   static_cast<BYTE>(i % 6 * 51), 0};
  }
  return all;
}

void DecodeRow(const DibFormat& format, const BYTE* row, int first, int count, uint32_t* words) {
  switch (format.bitCount) {
    case 32:
      if (format.IsNative()) {
        std::memcpy(words, row + static_cast<size_t>(first) * 4, static_cast<size_t>(count) * 4);
        return;
      }
      for (int i = 0; i < count; ++i) {
        uint32_t value;
        std::memcpy(&value, row + static_cast<size_t>(first + i) * 4, sizeof(value));
        words[i] = DecodeMasked(format, value);
      }
      return;
    case 24: {
      const BYTE* p = row + static_cast<size_t>(first) * 3;
      for (int i = 0; i < count; ++i, p += 3)
        words[i] = (uint32_t{p[2]} << 16) | (uint32_t{p[1]} << 8) | p[0];
      return;
    }
    case 16:
      for (int i = 0; i < count; ++i) {
        uint16_t value;
        std::memcpy(&value, row + static_cast<size_t>(first + i) * 2, sizeof(value));
        words[i] = DecodeMasked(format, value);
      }
      return;
    default:
      for (int i = 0; i < count; ++i)
        words[i] = ToWord(format.colors[IndexAt(row, format.bitCount, first + i)]);
  }
}

void EncodePixel(const DibFormat& format, uint32_t word, int x, BYTE* row) {
  auto index = static_cast<size_t>(x);
  switch (format.bitCount) {
    case 32: {
      uint32_t value = format.IsNative() ? word : EncodeMasked(format, word);
      std::memcpy(row + index * 4, &value, sizeof(value));
      return;
    }
    case 24:
      row[index * 3] = static_cast<BYTE>(word);
      row[index * 3 + 1] = static_cast<BYTE>(word >> 8);
      row[index * 3 + 2] = static_cast<BYTE>(word >> 16);
      return;
    case 16: {
      auto value = static_cast<uint16_t>(EncodeMasked(format, word));
      std::memcpy(row + index * 2, &value, sizeof(value));
      return;
    }
    default: SetIndex(row, format.bitCount, x, NearestColor(format, word & 0xffffff));
  }
}

void EncodeRow(const DibFormat& format, const uint32_t* words, int count, BYTE* row) {
  if (format.IsNative()) {
    std::memcpy(row, words, static_cast<size_t>(count) * 4);
    return;
  }
  for (int x = 0; x < count; ++x) EncodePixel(format, words[x], x, row);
}

}  // namespace desktop
