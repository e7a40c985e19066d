// The pixels of lines, edges and round shapes.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "support/picture.h"

using namespace support;

TEST(GdiShape, AlternatePenSetsEverySecondPixel) {
  Canvas dc(12, 4);
  const LOGBRUSH brush{BS_SOLID, RGB(255, 0, 0), 0};
  const With pen(dc, ExtCreatePen(PS_COSMETIC | PS_ALTERNATE, 1, &brush, 0, nullptr));
  Line(dc, 0, 0, 11, 0);
  Line(dc, 1, 1, 12, 1);
  Line(dc, 11, 3, 0, 3);
  EXPECT_TRUE(LooksLike(dc.Read(), R"(
    r.r.r.r.r.r.
    .r.r.r.r.r.r
    ............
    .r.r.r.r.r.r)"));
}

TEST(GdiShape, DashesGoOnRoundCorners) {
  Canvas dc(14, 10);
  SetBkMode(dc, TRANSPARENT);
  const With pen(dc, CreatePen(PS_DOT, 1, 0));
  const POINT points[] = {{1, 1}, {12, 1}, {12, 9}};
  Polyline(dc, points, 3);
  EXPECT_TRUE(LooksLike(dc.Read(), R"(
    ..............
    .###...###....
    ............#.
    ............#.
    ............#.
    ..............
    ..............
    ..............
    ............#.
    ..............)"));
}

TEST(GdiShape, RoundRectangleCutsItsCorners) {
  Canvas dc(14, 10);
  SelectObject(dc, GetStockObject(NULL_BRUSH));
  RoundRect(dc, 1, 1, 13, 9, 6, 6);
  EXPECT_TRUE(LooksLike(dc.Read(), R"(
    ..............
    ...########...
    ..#........#..
    .#..........#.
    .#..........#.
    .#..........#.
    .#..........#.
    ..#........#..
    ...########...
    ..............)"));
}

TEST(GdiShape, NullPenLeavesRectanglesOneSmaller) {
  Canvas dc(10, 6);
  SelectObject(dc, GetStockObject(NULL_PEN));
  SelectObject(dc, GetStockObject(BLACK_BRUSH));
  Rectangle(dc, 1, 1, 9, 5);
  EXPECT_TRUE(LooksLike(dc.Read(), R"(
    ..........
    .#######..
    .#######..
    .#######..
    ..........
    ..........)"));
}

TEST(GdiShape, NegativePatBltReachesBack) {
  Canvas dc(8, 6);
  PatBlt(dc, 6, 4, -4, -3, BLACKNESS);
  EXPECT_EQ(12, dc.Read().Count(0));
  EXPECT_EQ(0u, dc.Read().At(3, 2));
}

TEST(GdiShape, EveryEdgeHasItsColours) {
  struct Case {
    UINT edge;
    int outerLeftTop, outerRightBottom, innerLeftTop, innerRightBottom;
  };
  const Case cases[] = {{EDGE_RAISED, COLOR_3DLIGHT, COLOR_3DDKSHADOW, COLOR_3DHIGHLIGHT, COLOR_3DSHADOW},
                        {EDGE_SUNKEN, COLOR_3DSHADOW, COLOR_3DHIGHLIGHT, COLOR_3DDKSHADOW, COLOR_3DLIGHT},
                        {EDGE_ETCHED, COLOR_3DSHADOW, COLOR_3DHIGHLIGHT, COLOR_3DHIGHLIGHT, COLOR_3DSHADOW},
                        {EDGE_BUMP, COLOR_3DLIGHT, COLOR_3DDKSHADOW, COLOR_3DDKSHADOW, COLOR_3DLIGHT}};
  for (const Case& one : cases) {
    Canvas dc(8, 8);
    RECT r{0, 0, 8, 8};
    EXPECT_TRUE(DrawEdge(dc, &r, one.edge, BF_RECT | BF_ADJUST));
    EXPECT_EQ(2, r.left);
    EXPECT_EQ(6, r.bottom);
    EXPECT_EQ(GetSysColor(one.outerLeftTop), GetPixel(dc, 3, 0)) << one.edge;
    EXPECT_EQ(GetSysColor(one.innerLeftTop), GetPixel(dc, 1, 3)) << one.edge;
    EXPECT_EQ(GetSysColor(one.innerRightBottom), GetPixel(dc, 6, 3)) << one.edge;
    EXPECT_EQ(GetSysColor(one.outerRightBottom), GetPixel(dc, 3, 7)) << one.edge;
    // The right and bottom sides own the corners.
    EXPECT_EQ(GetSysColor(one.outerRightBottom), GetPixel(dc, 7, 0)) << one.edge;
  }
}

TEST(GdiShape, AnEdgeOfBothKindsIsRefused) {
  Canvas dc(8, 8);
  RECT r{0, 0, 8, 8};
  EXPECT_FALSE(DrawEdge(dc, &r, BDR_OUTER, BF_RECT | BF_MIDDLE));
  EXPECT_EQ(64, dc.Read().Count(0xffffff));
}

TEST(GdiShape, ScrollArrowsPointTheirWay) {
  Canvas dc(17, 17);
  RECT r{0, 0, 17, 17};
  EXPECT_TRUE(DrawFrameControl(dc, &r, DFC_SCROLL, DFCS_SCROLLDOWN));
  const std::uint32_t ink = Rgb(GetSysColor(COLOR_BTNTEXT));
  const Picture picture = dc.Read();
  for (int row = 0; row < 4; ++row) {
    const RECT line{0, 7 + row, 17, 8 + row};
    EXPECT_EQ(7 - 2 * row, picture.Part(line).Count(ink)) << row;
  }
}
