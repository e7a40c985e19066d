// Bitmaps: 32-bit words like those of a surface, whatever the depth that the host sees.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <windows.h>

#include "object.h"

namespace desktop {

// A rectangle of pixels in someone's memory; rows may run upwards (negative stride, in words).
struct PixelView {
  uint32_t* row(int y) const { return base + static_cast<ptrdiff_t>(y) * stride; }
  explicit operator bool() const { return base != nullptr; }

  uint32_t* base = nullptr;
  ptrdiff_t stride = 0;
  int width = 0;
  int height = 0;
};

// How the pixels of a DIB are stored.
struct DibFormat {
  int width = 0;
  int height = 0;  // positive
  bool topDown = false;
  int bitCount = 32;
  uint32_t masks[3] = {0xff0000, 0xff00, 0xff};  // red, green, blue; 16 and 32 bits
  std::vector<RGBQUAD> colors;                   // 1, 4 and 8 bits

  size_t Pitch() const { return (static_cast<size_t>(width) * static_cast<size_t>(bitCount) + 31) / 32 * 4; }
  size_t Size() const { return Pitch() * static_cast<size_t>(height); }
  // True when stored words are surface words.
  bool IsNative() const {
    return bitCount == 32 && masks[0] == 0xff0000 && masks[1] == 0xff00 && masks[2] == 0xff;
  }
};

struct Bitmap : GdiObject {
  Bitmap(int w, int h, int depth);
  int Describe(int size, void* buffer) const override;

  bool IsMono() const { return bitCount == 1 && !isSection; }
  // The pixels. For a section of another format they are decoded from the host's bits; Written()
  // must follow a change.
  PixelView View();
  void Written();

  int width;
  int height;
  int bitCount;
  bool isSection = false;
  DibFormat format;             // of a section
  std::vector<BYTE> bits;       // of a section: what the host sees
  std::vector<uint32_t> words;  // else the pixels; for a section of a foreign format a decoded copy
  SIZE dimension{};
  HDC selectedInto = nullptr;  // at most one DC at a time
};

Bitmap* FindBitmap(HGDIOBJ handle);

// A new bitmap without asking for a failure; 1 or 32 bits. Null if the size is unreasonable.
HBITMAP MakeBitmap(int width, int height, int bitCount);

}  // namespace desktop
