// Pixels read back from windows, DCs and bitmaps, and compared as text.
//
//   EXPECT_ART(CaptureClient(window), R"(
//       ....
//       .##.
//       ....)");
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace support {

// 32-bit pixels, 0xRRGGBB, top row first.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  // A pixel; outside of the picture 0xFFFFFFFF.
  std::uint32_t At(int x, int y) const;
  Picture Part(const RECT& part) const;
  // How many pixels have the colour.
  int Count(std::uint32_t color) const;
  // The smallest rectangle with all pixels that are not of the colour; empty when all are.
  RECT Bounds(std::uint32_t background) const;
  bool operator==(const Picture&) const = default;
};

// The whole window with its frame; the client area alone.
Picture CaptureWindow(HWND window);
Picture CaptureClient(HWND window);
// A part of what a DC shows, in device units.
Picture CaptureDc(HDC dc, int x, int y, int width, int height);

// A COLORREF as a picture has it.
std::uint32_t Rgb(COLORREF color);

// Colours and the letters that stand for them.
using Palette = std::map<std::uint32_t, char>;
// '.' white, '#' black, r g b y c m the full colours, 'o' dark grey, 's' light grey, and of the
// system's colours 'f' button face, 'k' dark shadow, 'h' highlight.
const Palette& DefaultPalette();

// One line per row, one letter per pixel; '?' for a colour without a letter.
std::string ToArt(const Picture& picture, const Palette& palette = DefaultPalette());

// Compares; on failure both are shown and the picture is saved as PNG in the working directory.
testing::AssertionResult LooksLike(const Picture& picture, const std::string& art,
                                   const Palette& palette = DefaultPalette());

bool SavePng(const Picture& picture, const std::string& path);

// A memory DC on a 32-bit bitmap of its own, filled with a colour at first.
class Canvas {
 public:
  Canvas(int width, int height, COLORREF color = RGB(255, 255, 255));
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  operator HDC() const { return m_dc; }
  HBITMAP Bitmap() const { return m_bitmap; }
  Picture Read() const;

 private:
  int m_width;
  int m_height;
  HDC m_dc;
  HBITMAP m_bitmap;
  HGDIOBJ m_old;
};

// An object that is selected for the length of a scope, then deleted.
class With {
 public:
  With(HDC dc, HGDIOBJ object) : m_dc(dc), m_object(object), m_old(SelectObject(dc, object)) {}
  ~With() {
    SelectObject(m_dc, m_old);
    DeleteObject(m_object);
  }
  With(const With&) = delete;
  With& operator=(const With&) = delete;

 private:
  HDC m_dc;
  HGDIOBJ m_object;
  HGDIOBJ m_old;
};

// From one point to, but not with, the other, in the pen of the DC.
inline void Line(HDC dc, int x1, int y1, int x2, int y2) {
  MoveToEx(dc, x1, y1, nullptr);
  LineTo(dc, x2, y2);
}

}  // namespace support

#define EXPECT_ART(picture, art) EXPECT_TRUE(support::LooksLike((picture), (art)))
