// Lines, shapes, brushes, edges, frames: every pixel.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/picture.h"
#include "support/text.h"

using namespace support;

namespace {

const COLORREF kBlack = RGB(0, 0, 0);
const COLORREF kRed = RGB(255, 0, 0);

}  // namespace

TEST(Draw, LinesEndBeforeTheirLastPoint) {
  Canvas dc(6, 4);
  Line(dc, 0, 0, 4, 0);
  Line(dc, 5, 3, 5, 0);
  Line(dc, 0, 3, 3, 3);
  EXPECT_ART(dc.Read(), R"(
      ####..
      .....#
      .....#
      ###..#)");
}

TEST(Draw, LinesOfNoLengthAreNothing) {
  Canvas dc(3, 1);
  Line(dc, 1, 0, 1, 0);
  EXPECT_ART(dc.Read(), "...");
}

TEST(Draw, DiagonalsStepEvenly) {
  Canvas dc(5, 5);
  Line(dc, 0, 0, 4, 4);
  EXPECT_ART(dc.Read(), R"(
      #....
      .#...
      ..#..
      ...#.
      .....)");
}

TEST(Draw, LineToMovesThePosition) {
  Canvas dc(5, 5);
  MoveToEx(dc, 1, 1, nullptr);
  LineTo(dc, 3, 2);
  POINT p = {};
  MoveToEx(dc, 0, 0, &p);
  EXPECT_EQ("3,2", Text(p));
}

TEST(Draw, DottedLinesAlternateInThrees) {
  Canvas dc(24, 1);
  SetBkMode(dc, TRANSPARENT);
  const With pen(dc, CreatePen(PS_DOT, 1, kBlack));
  Line(dc, 0, 0, 24, 0);
  EXPECT_ART(dc.Read(), "###...###...###...###...");
}

TEST(Draw, GapsShowTheBackgroundWhenOpaque) {
  Canvas dc(12, 1);
  SetBkMode(dc, OPAQUE);
  SetBkColor(dc, kRed);
  const With pen(dc, CreatePen(PS_DOT, 1, kBlack));
  Line(dc, 0, 0, 12, 0);
  EXPECT_ART(dc.Read(), "###rrr###rrr");
}

TEST(Draw, NullPenDrawsNothing) {
  Canvas dc(4, 3);
  const With pen(dc, GetStockObject(NULL_PEN));
  Line(dc, 0, 0, 4, 0);
  SelectObject(dc, GetStockObject(BLACK_BRUSH));
  Rectangle(dc, 0, 0, 4, 3);
  EXPECT_ART(dc.Read(), R"(
      ###.
      ###.
      ....)");
}

TEST(Draw, RectangleHasAFrameAndAFilling) {
  Canvas dc(6, 4);
  const With brush(dc, CreateSolidBrush(kRed));
  Rectangle(dc, 0, 0, 5, 4);
  EXPECT_ART(dc.Read(), R"(
      #####.
      #rrr#.
      #rrr#.
      #####.)");
}

TEST(Draw, WidePensGrowAroundTheLine) {
  Canvas dc(9, 5);
  const With pen(dc, CreatePen(PS_SOLID, 3, kBlack));
  Line(dc, 2, 2, 6, 2);
  const Picture picture = dc.Read();
  EXPECT_EQ(0u, picture.At(3, 1));
  EXPECT_EQ(0u, picture.At(3, 2));
  EXPECT_EQ(0u, picture.At(3, 3));
  EXPECT_EQ(0xFFFFFFu, picture.At(3, 0));
  EXPECT_EQ(0xFFFFFFu, picture.At(3, 4));
}

TEST(Draw, PolygonIsFilledAndClosed) {
  Canvas dc(7, 5);
  const With brush(dc, CreateSolidBrush(kRed));
  const POINT points[] = {{0, 0}, {6, 0}, {6, 4}, {0, 4}};
  Polygon(dc, points, 4);
  EXPECT_ART(dc.Read(), R"(
      #######
      #rrrrr#
      #rrrrr#
      #rrrrr#
      #######)");
}

TEST(Draw, SmallTrianglesLikeExpandButtons) {
  Canvas dc(7, 4);
  const With pen(dc, CreatePen(PS_SOLID, 1, kBlack));
  const With brush(dc, CreateSolidBrush(kBlack));
  const POINT points[] = {{0, 0}, {6, 0}, {3, 3}};
  Polygon(dc, points, 3);
  EXPECT_ART(dc.Read(), R"(
      #######
      .#####.
      ..###..
      ...#...)");
}

TEST(Draw, PolylineLeavesTheEndOut) {
  Canvas dc(5, 3);
  const POINT points[] = {{0, 0}, {4, 0}, {4, 2}};
  Polyline(dc, points, 3);
  EXPECT_ART(dc.Read(), R"(
      #####
      ....#
      .....)");
}

TEST(Draw, FillRectLeavesRightAndBottomOut) {
  Canvas dc(4, 3);
  const RECT r = {1, 1, 3, 2};
  FillRect(dc, &r, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  EXPECT_ART(dc.Read(), R"(
      ....
      .##.
      ....)");
}

TEST(Draw, FillRectTakesSystemColours) {
  Canvas dc(2, 1);
  const RECT r = {0, 0, 2, 1};
  FillRect(dc, &r, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
  EXPECT_ART(dc.Read(), "ff");
}

TEST(Draw, FrameRectIsOnePixelWide) {
  Canvas dc(5, 4);
  const RECT r = {0, 0, 5, 4};
  FrameRect(dc, &r, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  EXPECT_ART(dc.Read(), R"(
      #####
      #...#
      #...#
      #####)");
}

TEST(Draw, InvertRectTwiceIsNothing) {
  Canvas dc(4, 2);
  SetPixel(dc, 0, 0, kRed);
  const RECT r = {0, 0, 2, 2};
  InvertRect(dc, &r);
  EXPECT_ART(dc.Read(), "c#..\n##..");
  InvertRect(dc, &r);
  EXPECT_ART(dc.Read(), "r...\n....");
}

TEST(Draw, FocusRectIsDottedAndVanishesWhenRepeated) {
  Canvas dc(8, 6);
  const RECT r = {0, 0, 8, 6};
  DrawFocusRect(dc, &r);
  const Picture picture = dc.Read();
  // Every other pixel of the border, none inside.
  const int dots = picture.Count(0);
  EXPECT_EQ(12, dots);
  EXPECT_EQ(8 * 6 - 12, picture.Count(0xFFFFFF));
  for (int x = 0; x + 1 < 8; ++x) EXPECT_NE(picture.At(x, 0), picture.At(x + 1, 0));
  for (int y = 0; y + 1 < 6; ++y) EXPECT_NE(picture.At(0, y), picture.At(0, y + 1));
  EXPECT_EQ(0xFFFFFFu, picture.At(3, 3));
  DrawFocusRect(dc, &r);
  EXPECT_EQ(48, dc.Read().Count(0xFFFFFF));
}

TEST(Draw, RasterOperationsOfPens) {
  Canvas dc(4, 1, kRed);
  SetROP2(dc, R2_NOT);
  Line(dc, 0, 0, 1, 0);
  SetROP2(dc, R2_XORPEN);
  const With pen(dc, CreatePen(PS_SOLID, 1, RGB(255, 255, 0)));
  Line(dc, 1, 0, 2, 0);
  SetROP2(dc, R2_NOP);
  Line(dc, 2, 0, 3, 0);
  EXPECT_ART(dc.Read(), "cgrr");
}

TEST(Draw, HatchBrushesRepeatEveryEightPixels) {
  Canvas dc(16, 16);
  SetBkMode(dc, TRANSPARENT);
  const With brush(dc, CreateHatchBrush(HS_CROSS, kBlack));
  PatBlt(dc, 0, 0, 16, 16, PATCOPY);
  const Picture picture = dc.Read();
  EXPECT_EQ(picture.Part({0, 0, 8, 8}), picture.Part({8, 8, 16, 16}));
  EXPECT_EQ(15, picture.Part({0, 0, 8, 8}).Count(0));
}

TEST(Draw, PatternBrushesStartAtTheOrigin) {
  const WORD bits[] = {0xAAAA, 0x5555, 0xAAAA, 0x5555, 0xAAAA, 0x5555, 0xAAAA, 0x5555};
  const HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, bits);
  Canvas dc(6, 2);
  SetTextColor(dc, kRed);  // the zeros
  SetBkColor(dc, kBlack);  // the ones
  {
    const With brush(dc, CreatePatternBrush(bitmap));
    PatBlt(dc, 0, 0, 4, 2, PATCOPY);
  }
  EXPECT_ART(dc.Read(), R"(
      #r#r..
      r#r#..)");
  {
    SetBrushOrgEx(dc, 1, 0, nullptr);
    const With brush(dc, CreatePatternBrush(bitmap));
    PatBlt(dc, 0, 0, 4, 2, PATCOPY);
  }
  EXPECT_ART(dc.Read(), R"(
      r#r#..
      #r#r..)");
  DeleteObject(bitmap);
}

TEST(Draw, PatBltOperations) {
  Canvas dc(4, 1, kRed);
  const With brush(dc, CreateSolidBrush(RGB(0, 255, 0)));
  PatBlt(dc, 0, 0, 1, 1, PATCOPY);
  PatBlt(dc, 1, 0, 1, 1, PATINVERT);
  PatBlt(dc, 2, 0, 1, 1, DSTINVERT);
  PatBlt(dc, 3, 0, 1, 1, BLACKNESS);
  EXPECT_ART(dc.Read(), "gyc#");
}

TEST(Draw, EdgesRaisedAndSunken) {
  Canvas dc(12, 5, GetSysColor(COLOR_BTNFACE));
  RECT left = {0, 0, 6, 5};
  RECT right = {6, 0, 12, 5};
  DrawEdge(dc, &left, EDGE_RAISED, BF_RECT);
  DrawEdge(dc, &right, EDGE_SUNKEN, BF_RECT);
  EXPECT_ART(dc.Read(), R"(
      fffffkooooo.
      f...okokkkf.
      f.ffokokfff.
      fooookoffff.
      kkkkkk......)");
}

TEST(Draw, EdgeAdjustsTheRectangle) {
  Canvas dc(20, 20);
  RECT r = {0, 0, 20, 20};
  DrawEdge(dc, &r, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  EXPECT_EQ("2,2,18,18", Text(r));
  DrawEdge(dc, &r, BDR_SUNKENOUTER, BF_LEFT | BF_ADJUST);
  EXPECT_EQ("3,2,18,18", Text(r));
}

TEST(Draw, FrameControlButtonIsRaisedOrPushed) {
  Canvas dc(10, 8, kRed);
  RECT r = {0, 0, 10, 8};
  EXPECT_TRUE(DrawFrameControl(dc, &r, DFC_BUTTON, DFCS_BUTTONPUSH));
  const Picture raised = dc.Read();
  EXPECT_EQ(Rgb(GetSysColor(COLOR_3DDKSHADOW)), raised.At(9, 7));
  EXPECT_EQ(Rgb(GetSysColor(COLOR_BTNFACE)), raised.At(5, 4));
  EXPECT_TRUE(DrawFrameControl(dc, &r, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED));
  EXPECT_NE(raised, dc.Read());
}

TEST(Draw, FrameControlCheckBoxShowsItsState) {
  Canvas dc(13, 13);
  RECT r = {0, 0, 13, 13};
  DrawFrameControl(dc, &r, DFC_BUTTON, DFCS_BUTTONCHECK);
  const Picture off = dc.Read();
  DrawFrameControl(dc, &r, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED);
  const Picture on = dc.Read();
  EXPECT_EQ(0, off.Part({3, 3, 10, 10}).Count(0));
  EXPECT_GT(on.Part({3, 3, 10, 10}).Count(0), 10);
  EXPECT_EQ(Rgb(GetSysColor(COLOR_BTNSHADOW)), on.At(0, 0));
}

TEST(Draw, GradientRunsFromOneColourToTheOther) {
  Canvas dc(64, 2);
  TRIVERTEX vertices[2] = {{0, 0, 0xFF00, 0, 0, 0}, {64, 2, 0, 0, 0xFF00, 0}};
  GRADIENT_RECT mesh = {0, 1};
  ASSERT_TRUE(GradientFill(dc, vertices, 2, &mesh, 1, GRADIENT_FILL_RECT_H));
  const Picture picture = dc.Read();
  EXPECT_EQ(picture.At(10, 0), picture.At(10, 1));
  EXPECT_GT(picture.At(2, 0) >> 16, 0xF0u);
  EXPECT_GT(picture.At(61, 0) & 0xFF, 0xF0u);
  for (int x = 0; x + 1 < 64; ++x) EXPECT_GE(picture.At(x, 0) >> 16, picture.At(x + 1, 0) >> 16);
}

TEST(Draw, EllipseIsSymmetric) {
  Canvas dc(11, 9);
  const With brush(dc, CreateSolidBrush(kRed));
  Ellipse(dc, 0, 0, 11, 9);
  const Picture picture = dc.Read();
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 11; ++x) EXPECT_EQ(picture.At(x, y), picture.At(10 - x, y)) << x << "," << y;
  }
  EXPECT_EQ(0xFF0000u, picture.At(5, 4));
  EXPECT_EQ(0xFFFFFFu, picture.At(0, 0));
  EXPECT_EQ(0u, picture.At(5, 0));
}

TEST(Draw, SystemColourBrushesCannotBeSpoilt) {
  const HBRUSH brush = GetSysColorBrush(COLOR_BTNFACE);
  EXPECT_EQ(brush, GetSysColorBrush(COLOR_BTNFACE));
  DeleteObject(brush);
  Canvas dc(1, 1);
  const RECT r = {0, 0, 1, 1};
  FillRect(dc, &r, brush);
  EXPECT_ART(dc.Read(), "f");
}

TEST(Draw, DcPenAndBrushTakeTheirColours) {
  Canvas dc(3, 3);
  const With pen(dc, GetStockObject(DC_PEN));
  const With brush(dc, GetStockObject(DC_BRUSH));
  SetDCPenColor(dc, kRed);
  SetDCBrushColor(dc, RGB(0, 0, 255));
  Rectangle(dc, 0, 0, 3, 3);
  EXPECT_ART(dc.Read(), "rrr\nrbr\nrrr");
}

TEST(Draw, PenAndBrushTellHowTheyWereMade) {
  const HPEN pen = CreatePen(PS_DASH, 1, kRed);
  LOGPEN logPen = {};
  EXPECT_EQ(static_cast<int>(sizeof logPen), GetObjectW(pen, sizeof logPen, &logPen));
  EXPECT_EQ(static_cast<UINT>(PS_DASH), logPen.lopnStyle);
  EXPECT_EQ(kRed, logPen.lopnColor);
  DeleteObject(pen);
  const HBRUSH brush = CreateHatchBrush(HS_VERTICAL, kRed);
  LOGBRUSH logBrush = {};
  EXPECT_EQ(static_cast<int>(sizeof logBrush), GetObjectW(brush, sizeof logBrush, &logBrush));
  EXPECT_EQ(static_cast<UINT>(BS_HATCHED), logBrush.lbStyle);
  EXPECT_EQ(static_cast<ULONG_PTR>(HS_VERTICAL), logBrush.lbHatch);
  DeleteObject(brush);
}
