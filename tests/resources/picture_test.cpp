// Bitmaps and cursors.
#include <gtest/gtest.h>

#include "library.h"

namespace {

// A bitmap of the library, and its pixels.
class Picture {
 public:
  explicit Picture(int number) : m_bitmap(LoadBitmapW(Library(), MAKEINTRESOURCEW(number))) {
    m_dc = CreateCompatibleDC(nullptr);
    m_old = SelectObject(m_dc, m_bitmap);
  }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  ~Picture() {
    SelectObject(m_dc, m_old);
    DeleteDC(m_dc);
    DeleteObject(m_bitmap);
  }

  SIZE Size() const {
    BITMAP data{};
    if (GetObjectW(m_bitmap, sizeof data, &data) == 0) return {0, 0};
    return {data.bmWidth, data.bmHeight};
  }

  COLORREF At(int x, int y) const { return GetPixel(m_dc, x, y); }

  // How many pixels of the square image with this index are not of the transparent colour.
  int Drawn(int index, int size, COLORREF transparent) const {
    int drawn = 0;
    for (int y = 0; y < size; ++y) {
      for (int x = 0; x < size; ++x) drawn += At(index * size + x, y) != transparent;
    }
    return drawn;
  }

 private:
  HBITMAP m_bitmap;
  HDC m_dc;
  HGDIOBJ m_old;
};

constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kMagenta = RGB(255, 0, 255);

TEST(Bitmaps, ShortcutMarkIsOneImageOfSevenPixelsOnGreen) {
  const Picture picture(IDB_VORN_SHORTCUT);
  EXPECT_EQ(IDB_VORN_SHORTCUT, 130);
  EXPECT_EQ(picture.Size().cx, 7);
  EXPECT_EQ(picture.Size().cy, 7);
  EXPECT_EQ(picture.At(0, 0), kGreen);
  EXPECT_EQ(picture.Drawn(0, 7, kGreen), 7 * 7 - 4) << "a box with rounded corners";
}

TEST(Bitmaps, CheckBoxesAreEmptyAndCheckedOfSixteenPixels) {
  const Picture picture(IDB_VORN_CHECKBOXES);
  EXPECT_EQ(IDB_VORN_CHECKBOXES, 138);
  EXPECT_EQ(picture.Size().cx, 32);
  EXPECT_EQ(picture.Size().cy, 16);
  const int empty = picture.Drawn(0, 16, kMagenta);
  EXPECT_EQ(empty, 13 * 13 - 4);
  EXPECT_EQ(picture.Drawn(1, 16, kMagenta), empty) << "one outline";
  int different = 0;
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) different += picture.At(x, y) != picture.At(16 + x, y);
  }
  EXPECT_GE(different, 15) << "the check mark";
}

TEST(Bitmaps, ButtonsArePlusAndMinusOfNinePixels) {
  const Picture picture(IDB_VORN_BUTTONS);
  EXPECT_EQ(IDB_VORN_BUTTONS, 5002);
  EXPECT_EQ(picture.Size().cx, 18);
  EXPECT_EQ(picture.Size().cy, 9);
  const COLORREF ink = picture.At(4, 4);
  EXPECT_EQ(picture.At(4, 2), ink) << "the upright stroke of the plus";
  EXPECT_EQ(picture.At(9 + 4, 4), ink);
  EXPECT_NE(picture.At(9 + 4, 2), ink);
  EXPECT_EQ(picture.At(0, 0), kMagenta);
}

TEST(Bitmaps, BarButtonsAreThreeImagesOfTenPixelsWithAFreeEdge) {
  const Picture picture(IDB_VORN_BAR);
  EXPECT_EQ(picture.Size().cx, 30);
  EXPECT_EQ(picture.Size().cy, 10);
  for (int image = 0; image < 3; ++image) {
    EXPECT_GT(picture.Drawn(image, 10, kMagenta), 10);
    for (int i = 0; i < 10; ++i) {
      EXPECT_EQ(picture.At(image * 10 + i, 9), kMagenta);
      EXPECT_EQ(picture.At(image * 10 + 9, i), kMagenta);
    }
  }
}

TEST(Bitmaps, OtherNumbersGiveNone) { EXPECT_EQ(LoadBitmapW(Library(), MAKEINTRESOURCEW(131)), nullptr); }

struct CursorCase {
  int number;
  DWORD hotX, hotY;
};

class Cursors : public testing::TestWithParam<CursorCase> {};

TEST_P(Cursors, LoadsWithItsHotSpotAndAPicture) {
  const HCURSOR cursor = LoadCursorW(Library(), MAKEINTRESOURCEW(GetParam().number));
  ASSERT_NE(cursor, nullptr);
  ICONINFO info{};
  ASSERT_TRUE(GetIconInfo(cursor, &info));
  EXPECT_FALSE(info.fIcon);
  EXPECT_EQ(info.xHotspot, GetParam().hotX);
  EXPECT_EQ(info.yHotspot, GetParam().hotY);
  // Black and white: both masks in one bitmap, the transparent area above, the colours below.
  BITMAP mask{};
  ASSERT_NE(GetObjectW(info.hbmMask, sizeof mask, &mask), 0);
  EXPECT_EQ(mask.bmWidth, 32);
  EXPECT_EQ(mask.bmHeight, 64);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, info.hbmMask);
  int solid = 0;
  for (int y = 0; y < 32; ++y) {
    for (int x = 0; x < 32; ++x) solid += GetPixel(dc, x, y) == 0;
  }
  EXPECT_GT(solid, 80);
  EXPECT_LT(solid, 700);
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(info.hbmMask);
  if (info.hbmColor != nullptr) DeleteObject(info.hbmColor);
}

INSTANTIATE_TEST_SUITE_P(Library, Cursors,
                         testing::Values(CursorCase{5010, 0, 0}, CursorCase{5011, 0, 0},
                                         CursorCase{5012, 0, 0}, CursorCase{5013, 9, 9},
                                         CursorCase{5014, 0, 0}, CursorCase{5015, 9, 9}),
                         [](const auto& test) { return "Number" + std::to_string(test.param.number); });

}  // namespace
