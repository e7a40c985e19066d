#include "support/picture.h"

#include <cstdio>
#include <fstream>
#include <string>

#include "support/host_window.h"

using support::Canvas;
using support::Picture;

TEST(Picture, ShowsPixelsAsLetters) {
  Canvas canvas(4, 3);
  SetPixel(canvas, 1, 1, RGB(0, 0, 0));
  SetPixel(canvas, 2, 1, RGB(255, 0, 0));
  SetPixel(canvas, 3, 2, RGB(1, 2, 3));
  EXPECT_ART(canvas.Read(), R"(
      ....
      .#r.
      ...?)");
}

TEST(Picture, ADifferenceIsShownAndSaved) {
  Canvas canvas(2, 1);
  const testing::AssertionResult result = support::LooksLike(canvas.Read(), ".#");
  EXPECT_FALSE(result);
  const std::string file = "failed-Picture.ADifferenceIsShownAndSaved.png";
  EXPECT_TRUE(std::ifstream(file).good());
  std::remove(file.c_str());
}

TEST(Picture, BoundsAndCountsAndParts) {
  const Picture picture{3, 2, {0, 0, 7, 0, 7, 7}};
  const RECT bounds = picture.Bounds(0);
  EXPECT_EQ(1, bounds.left);
  EXPECT_EQ(0, bounds.top);
  EXPECT_EQ(3, bounds.right);
  EXPECT_EQ(2, bounds.bottom);
  EXPECT_EQ(3, picture.Count(7));
  EXPECT_EQ((Picture{2, 1, {7, 7}}), picture.Part({1, 1, 3, 2}));
  EXPECT_EQ(0xFFFFFFFFu, picture.At(3, 0));
}

TEST(Picture, ReadsAWindow) {
  support::HostWindow host({.cx = 6, .cy = 4, .background = COLOR_WINDOW});
  UpdateWindow(host);
  const HDC dc = GetDC(host);
  SetPixel(dc, 2, 1, RGB(0, 0, 255));
  ReleaseDC(host, dc);
  EXPECT_ART(support::CaptureClient(host), R"(
      ......
      ..b...
      ......
      ......)");
}
