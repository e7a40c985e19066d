// Bitmaps, DIBs, blits.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "support/picture.h"
#include "support/text.h"

using namespace support;

namespace {

const COLORREF kRed = RGB(255, 0, 0);
const COLORREF kGreen = RGB(0, 255, 0);
const COLORREF kBlue = RGB(0, 0, 255);

// A DIB description with room for any colour table.
struct Info {
  BITMAPINFOHEADER header = {};
  RGBQUAD colors[256] = {};

  Info(int width, int height, int bits) {
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bits);
  }
  operator BITMAPINFO*() { return reinterpret_cast<BITMAPINFO*>(this); }
};

// A monochrome bitmap in a DC of its own; '1's are ones.
class Mono {
 public:
  Mono(int width, int height, const void* bits)
      : m_dc(CreateCompatibleDC(nullptr)), m_bitmap(CreateBitmap(width, height, 1, 1, bits)) {
    m_old = SelectObject(m_dc, m_bitmap);
  }
  ~Mono() {
    SelectObject(m_dc, m_old);
    DeleteObject(m_bitmap);
    DeleteDC(m_dc);
  }
  operator HDC() const { return m_dc; }

 private:
  HDC m_dc;
  HBITMAP m_bitmap;
  HGDIOBJ m_old;
};

}  // namespace

TEST(Bitmap, ObjectTellsItsShape) {
  const HBITMAP bitmap = CreateBitmap(5, 3, 1, 1, nullptr);
  BITMAP data = {};
  EXPECT_EQ(static_cast<int>(sizeof data), GetObjectW(bitmap, sizeof data, &data));
  EXPECT_EQ(5, data.bmWidth);
  EXPECT_EQ(3, data.bmHeight);
  EXPECT_EQ(1, data.bmBitsPixel);
  EXPECT_EQ(2, data.bmWidthBytes);
  EXPECT_EQ(nullptr, data.bmBits);
  DeleteObject(bitmap);
}

TEST(Bitmap, CompatibleWithAFreshMemoryDcIsMonochrome) {
  const HDC dc = CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = CreateCompatibleBitmap(dc, 4, 4);
  BITMAP data = {};
  GetObjectW(bitmap, sizeof data, &data);
  EXPECT_EQ(1, data.bmBitsPixel);
  DeleteObject(bitmap);
  DeleteDC(dc);
}

TEST(Bitmap, CompatibleWithTheScreenHasItsDepth) {
  const HDC screen = GetDC(nullptr);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 4, 4);
  BITMAP data = {};
  GetObjectW(bitmap, sizeof data, &data);
  EXPECT_EQ(GetDeviceCaps(screen, BITSPIXEL), data.bmBitsPixel);
  EXPECT_EQ(32, data.bmBitsPixel);
  DeleteObject(bitmap);
  ReleaseDC(nullptr, screen);
}

TEST(Bitmap, BitsGoInAndOut) {
  const BYTE bits[] = {0x12, 0x34, 0x56, 0x78};
  const HBITMAP bitmap = CreateBitmap(16, 2, 1, 1, bits);
  BYTE back[4] = {};
  EXPECT_EQ(4, GetBitmapBits(bitmap, 4, back));
  EXPECT_EQ(0, std::memcmp(bits, back, 4));
  const BYTE other[] = {9, 8, 7, 6};
  EXPECT_EQ(4, SetBitmapBits(bitmap, 4, other));
  GetBitmapBits(bitmap, 4, back);
  EXPECT_EQ(0, std::memcmp(other, back, 4));
  DeleteObject(bitmap);
}

TEST(Dib, SectionMemoryIsThePicture) {
  Info info(3, -2, 32);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &bits, nullptr, 0);
  ASSERT_NE(nullptr, bits);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  static_cast<DWORD*>(bits)[1] = 0xFF0000;
  EXPECT_EQ(kRed, GetPixel(dc, 1, 0));
  SetPixel(dc, 0, 1, kBlue);
  GdiFlush();
  EXPECT_EQ(0x0000FFu, static_cast<DWORD*>(bits)[3] & 0xFFFFFF);
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

TEST(Dib, PositiveHeightIsBottomUp) {
  Info info(1, 2, 32);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &bits, nullptr, 0);
  static_cast<DWORD*>(bits)[0] = 0xFF0000;
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  EXPECT_EQ(kRed, GetPixel(dc, 0, 1));
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

TEST(Dib, RoundTripsAtEveryDepth) {
  Canvas source(7, 2);
  SetPixel(source, 0, 0, RGB(0, 0, 0));
  SetPixel(source, 3, 1, RGB(0, 0, 0));
  SetPixel(source, 6, 1, RGB(0, 0, 0));
  const Picture before = source.Read();
  for (const int depth : {1, 4, 8, 16, 24, 32}) {
    Info info(7, 2, depth);
    std::vector<BYTE> bits(64);
    EXPECT_EQ(2, GetDIBits(source, source.Bitmap(), 0, 2, bits.data(), info, DIB_RGB_COLORS)) << depth;
    Canvas target(7, 2, kRed);
    EXPECT_EQ(2, SetDIBits(target, target.Bitmap(), 0, 2, bits.data(), info, DIB_RGB_COLORS)) << depth;
    EXPECT_EQ(before, target.Read()) << depth;
  }
}

TEST(Dib, TrueColoursSurvive) {
  Canvas source(2, 1);
  SetPixel(source, 0, 0, RGB(0x12, 0x34, 0x56));
  for (const int depth : {24, 32}) {
    Info info(2, 1, depth);
    BYTE bits[16] = {};
    GetDIBits(source, source.Bitmap(), 0, 1, bits, info, DIB_RGB_COLORS);
    EXPECT_EQ(0x56, bits[0]);
    EXPECT_EQ(0x34, bits[1]);
    EXPECT_EQ(0x12, bits[2]);
  }
}

TEST(Dib, HeaderAloneIsFilledIn) {
  Canvas source(9, 4);
  Info info(0, 0, 0);
  EXPECT_NE(0, GetDIBits(source, source.Bitmap(), 0, 0, nullptr, info, DIB_RGB_COLORS));
  EXPECT_EQ(9, info.header.biWidth);
  EXPECT_EQ(4, std::abs(info.header.biHeight));
  EXPECT_EQ(32, info.header.biBitCount);
}

TEST(Dib, ColourTablesMapPixels) {
  Info info(8, -1, 8);
  info.colors[5] = {0xFF, 0, 0, 0};  // blue
  info.colors[6] = {0, 0xFF, 0, 0};  // green
  const BYTE bits[8] = {5, 6, 5, 6, 0, 0, 0, 0};
  Canvas dc(4, 1);
  EXPECT_EQ(1, SetDIBitsToDevice(dc, 0, 0, 4, 1, 0, 0, 0, 1, bits, info, DIB_RGB_COLORS));
  EXPECT_ART(dc.Read(), "bgbg");
}

TEST(Dib, StretchesWhileSetting) {
  Info info(2, -1, 32);
  const DWORD bits[2] = {0xFF0000, 0x0000FF};
  Canvas dc(4, 2);
  StretchDIBits(dc, 0, 0, 4, 2, 0, 0, 2, 1, bits, info, DIB_RGB_COLORS, SRCCOPY);
  EXPECT_ART(dc.Read(), "rrbb\nrrbb");
}

TEST(Dib, SectionColourTableCanBeChanged) {
  Info info(4, -1, 8);
  info.colors[1] = {0xFF, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &bits, nullptr, 0);
  static_cast<BYTE*>(bits)[0] = 1;
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  EXPECT_EQ(kBlue, GetPixel(dc, 0, 0));
  const RGBQUAD red = {0, 0, 0xFF, 0};
  EXPECT_EQ(1u, SetDIBColorTable(dc, 1, 1, &red));
  EXPECT_EQ(kRed, GetPixel(dc, 0, 0));
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

TEST(Blt, RasterOperations) {
  Canvas source(1, 1, RGB(255, 255, 0));
  struct {
    DWORD rop;
    const char* art;
  } const cases[] = {{SRCCOPY, "y"},    {SRCPAINT, "."},   {SRCAND, "#"},    {SRCINVERT, "."},
                     {NOTSRCCOPY, "b"}, {MERGEPAINT, "b"}, {WHITENESS, "."}, {BLACKNESS, "#"},
                     {DSTINVERT, "y"},  {SRCERASE, "y"}};
  for (const auto& c : cases) {
    Canvas dc(1, 1, kBlue);
    BitBlt(dc, 0, 0, 1, 1, source, 0, 0, c.rop);
    EXPECT_TRUE(LooksLike(dc.Read(), c.art)) << std::hex << c.rop;
  }
}

TEST(Blt, MonochromeTakesTextAndBackgroundColours) {
  const WORD bits[] = {0x00A0};  // 1010
  const Mono mono(4, 1, bits);
  Canvas dc(4, 1);
  SetTextColor(dc, kBlue);
  SetBkColor(dc, kRed);
  BitBlt(dc, 0, 0, 4, 1, mono, 0, 0, SRCCOPY);
  EXPECT_ART(dc.Read(), "rbrb");
}

TEST(Blt, ColourToMonochromeComparesWithTheBackground) {
  Canvas source(4, 1);
  SetPixel(source, 1, 0, kRed);
  SetPixel(source, 2, 0, kBlue);
  SetBkColor(source, kRed);
  const Mono mono(4, 1, nullptr);
  BitBlt(mono, 0, 0, 4, 1, source, 0, 0, SRCCOPY);
  Canvas dc(4, 1);
  BitBlt(dc, 0, 0, 4, 1, mono, 0, 0, SRCCOPY);
  EXPECT_ART(dc.Read(), "#.##");
}

TEST(Blt, MaskedPictureByAndThenOr) {
  Canvas source(3, 1, RGB(0, 0, 0));
  SetPixel(source, 1, 0, kRed);
  const WORD bits[] = {0x00A0};  // 101: the middle is opaque
  const Mono mask(3, 1, bits);
  Canvas dc(3, 1, kGreen);
  BitBlt(dc, 0, 0, 3, 1, mask, 0, 0, SRCAND);
  BitBlt(dc, 0, 0, 3, 1, source, 0, 0, SRCPAINT);
  EXPECT_ART(dc.Read(), "grg");
}

TEST(Blt, OverlappingCopiesAreRight) {
  Canvas dc(5, 1);
  SetPixel(dc, 0, 0, kRed);
  SetPixel(dc, 1, 0, kGreen);
  SetPixel(dc, 2, 0, kBlue);
  BitBlt(dc, 1, 0, 3, 1, dc, 0, 0, SRCCOPY);
  EXPECT_ART(dc.Read(), "rrgb.");
  BitBlt(dc, 0, 0, 3, 1, dc, 1, 0, SRCCOPY);
  EXPECT_ART(dc.Read(), "rgbb.");
}

TEST(Blt, SourceOutsideLeavesTheTargetThere) {
  Canvas source(2, 2, kRed);
  Canvas dc(4, 2);
  BitBlt(dc, 0, 0, 4, 2, source, 1, 0, SRCCOPY);
  EXPECT_EQ(0xFF0000u, dc.Read().At(0, 0));
  EXPECT_EQ(0xFFFFFFu, dc.Read().At(3, 0));
}

TEST(Blt, OriginsOfBothSidesCount) {
  Canvas source(3, 1);
  SetPixel(source, 2, 0, kRed);
  SetViewportOrgEx(source, 1, 0, nullptr);
  Canvas dc(3, 1);
  SetViewportOrgEx(dc, -1, 0, nullptr);
  BitBlt(dc, 1, 0, 1, 1, source, 1, 0, SRCCOPY);
  EXPECT_ART(dc.Read(), "r..");
}

TEST(Blt, StretchRepeatsPixels) {
  Canvas source(2, 2);
  SetPixel(source, 0, 0, kRed);
  SetPixel(source, 1, 1, kBlue);
  Canvas dc(4, 4);
  SetStretchBltMode(dc, COLORONCOLOR);
  StretchBlt(dc, 0, 0, 4, 4, source, 0, 0, 2, 2, SRCCOPY);
  EXPECT_ART(dc.Read(), R"(
      rr..
      rr..
      ..bb
      ..bb)");
}

TEST(Blt, StretchMirrors) {
  Canvas source(3, 1);
  SetPixel(source, 0, 0, kRed);
  SetPixel(source, 2, 0, kBlue);
  Canvas dc(3, 1);
  SetStretchBltMode(dc, COLORONCOLOR);
  StretchBlt(dc, 2, 0, -3, 1, source, 0, 0, 3, 1, SRCCOPY);
  EXPECT_ART(dc.Read(), "b.r");
}

TEST(Blt, TransparentLeavesOneColourOut) {
  Canvas source(3, 1, RGB(255, 0, 255));
  SetPixel(source, 1, 0, kRed);
  Canvas dc(3, 1);
  EXPECT_TRUE(TransparentBlt(dc, 0, 0, 3, 1, source, 0, 0, 3, 1, RGB(255, 0, 255)));
  EXPECT_ART(dc.Read(), ".r.");
}

TEST(Blt, AlphaBlendMixes) {
  Canvas source(1, 1, RGB(200, 0, 0));
  Canvas dc(1, 1, RGB(0, 0, 200));
  const BLENDFUNCTION half = {AC_SRC_OVER, 0, 128, 0};
  EXPECT_TRUE(AlphaBlend(dc, 0, 0, 1, 1, source, 0, 0, 1, 1, half));
  const std::uint32_t pixel = dc.Read().At(0, 0);
  EXPECT_NEAR(100, static_cast<int>(pixel >> 16), 2);
  EXPECT_NEAR(100, static_cast<int>(pixel & 0xFF), 2);
  EXPECT_EQ(0u, pixel >> 8 & 0xFF);
}

TEST(Blt, AlphaBlendByPixelIsPremultiplied) {
  Info info(2, -1, 32);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &bits, nullptr, 0);
  static_cast<DWORD*>(bits)[0] = 0x00000000;
  static_cast<DWORD*>(bits)[1] = 0xFFFF0000;
  const HDC source = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(source, bitmap);
  Canvas dc(2, 1);
  const BLENDFUNCTION over = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  EXPECT_TRUE(AlphaBlend(dc, 0, 0, 2, 1, source, 0, 0, 2, 1, over));
  EXPECT_ART(dc.Read(), ".r");
  SelectObject(source, old);
  DeleteDC(source);
  DeleteObject(bitmap);
}

TEST(Blt, PixelOfAMonochromeDcIsBlackOrWhite) {
  const WORD bits[] = {0x0080};
  const Mono mono(2, 1, bits);
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), GetPixel(mono, 0, 0));
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 0, 0)), GetPixel(mono, 1, 0));
  SetPixel(mono, 1, 0, RGB(255, 255, 255));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), GetPixel(mono, 1, 0));
}
