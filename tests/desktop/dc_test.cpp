// Device contexts: state, origins, clipping, regions, selecting objects.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/host_window.h"
#include "support/picture.h"
#include "support/text.h"

using namespace support;

namespace {

const COLORREF kBlack = RGB(0, 0, 0);

std::string ClipBox(HDC dc) {
  RECT r = {};
  GetClipBox(dc, &r);
  return Text(r);
}

void Fill(HDC dc, const RECT& r, COLORREF color) {
  const HBRUSH brush = CreateSolidBrush(color);
  FillRect(dc, &r, brush);
  DeleteObject(brush);
}

std::string RegionBox(HRGN region) {
  RECT r = {};
  GetRgnBox(region, &r);
  return Text(r);
}

}  // namespace

TEST(Dc, SaveAndRestoreNest) {
  Canvas dc(10, 10);
  SetTextColor(dc, RGB(1, 2, 3));
  EXPECT_EQ(1, SaveDC(dc));
  SetTextColor(dc, RGB(4, 5, 6));
  SetBkMode(dc, TRANSPARENT);
  EXPECT_EQ(2, SaveDC(dc));
  SetTextColor(dc, RGB(7, 8, 9));
  EXPECT_TRUE(RestoreDC(dc, -1));
  EXPECT_EQ(RGB(4, 5, 6), GetTextColor(dc));
  EXPECT_TRUE(RestoreDC(dc, 1));
  EXPECT_EQ(RGB(1, 2, 3), GetTextColor(dc));
  EXPECT_EQ(OPAQUE, GetBkMode(dc));
  EXPECT_FALSE(RestoreDC(dc, -1));
  EXPECT_FALSE(RestoreDC(dc, 3));
}

TEST(Dc, SaveCoversObjectsOriginsAndClipping) {
  Canvas dc(20, 20);
  const HGDIOBJ brush = GetCurrentObject(dc, OBJ_BRUSH);
  SaveDC(dc);
  SelectObject(dc, GetStockObject(GRAY_BRUSH));
  SetViewportOrgEx(dc, 3, 4, nullptr);
  IntersectClipRect(dc, 0, 0, 5, 5);
  MoveToEx(dc, 7, 8, nullptr);
  EXPECT_EQ("0,0,5,5", ClipBox(dc));
  RestoreDC(dc, -1);
  EXPECT_EQ(brush, GetCurrentObject(dc, OBJ_BRUSH));
  EXPECT_EQ("0,0,20,20", ClipBox(dc));
  POINT p = {};
  GetViewportOrgEx(dc, &p);
  EXPECT_EQ("0,0", Text(p));
  GetCurrentPositionEx(dc, &p);
  EXPECT_EQ("0,0", Text(p));
}

TEST(Dc, NewMemoryDcHasOneBlackAndWhitePixel) {
  const HDC dc = CreateCompatibleDC(nullptr);
  EXPECT_EQ("0,0,1,1", ClipBox(dc));
  BITMAP bitmap = {};
  EXPECT_NE(0, GetObjectW(GetCurrentObject(dc, OBJ_BITMAP), sizeof bitmap, &bitmap));
  EXPECT_EQ(1, bitmap.bmBitsPixel);
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 0, 0)), GetTextColor(dc));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), GetBkColor(dc));
  EXPECT_EQ(OPAQUE, GetBkMode(dc));
  EXPECT_EQ(R2_COPYPEN, GetROP2(dc));
  EXPECT_EQ(MM_TEXT, GetMapMode(dc));
  DeleteDC(dc);
}

TEST(Dc, SelectGivesBackTheOldObject) {
  Canvas dc(4, 4);
  const HPEN pen = CreatePen(PS_SOLID, 1, kBlack);
  const HGDIOBJ old = SelectObject(dc, pen);
  EXPECT_EQ(GetStockObject(BLACK_PEN), old);
  EXPECT_EQ(pen, GetCurrentObject(dc, OBJ_PEN));
  EXPECT_EQ(pen, SelectObject(dc, old));
  DeleteObject(pen);
}

TEST(Dc, ABitmapIsInOneDcOnly) {
  const HDC a = CreateCompatibleDC(nullptr);
  const HDC b = CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
  const HGDIOBJ old = SelectObject(a, bitmap);
  EXPECT_NE(nullptr, old);
  EXPECT_EQ(nullptr, SelectObject(b, bitmap));
  SelectObject(a, old);
  EXPECT_NE(nullptr, SelectObject(b, bitmap));
  DeleteDC(b);
  DeleteDC(a);
  EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(Dc, NothingButItsKindCanBeSelected) {
  Canvas dc(4, 4);
  EXPECT_EQ(nullptr, SelectObject(dc, nullptr));
  const HPEN pen = CreatePen(PS_SOLID, 1, kBlack);
  DeleteObject(pen);
  EXPECT_EQ(nullptr, SelectObject(dc, pen));
}

TEST(Dc, ObjectTypesAreKnown) {
  Canvas dc(4, 4);
  EXPECT_EQ(static_cast<DWORD>(OBJ_MEMDC), GetObjectType(static_cast<HDC>(dc)));
  EXPECT_EQ(static_cast<DWORD>(OBJ_BITMAP), GetObjectType(dc.Bitmap()));
  EXPECT_EQ(static_cast<DWORD>(OBJ_PEN), GetObjectType(GetStockObject(WHITE_PEN)));
  EXPECT_EQ(static_cast<DWORD>(OBJ_BRUSH), GetObjectType(GetStockObject(WHITE_BRUSH)));
  EXPECT_EQ(static_cast<DWORD>(OBJ_FONT), GetObjectType(GetStockObject(SYSTEM_FONT)));
  EXPECT_EQ(0u, GetObjectType(nullptr));
}

TEST(Dc, StockObjectsSurviveDeletion) {
  const HGDIOBJ brush = GetStockObject(WHITE_BRUSH);
  EXPECT_TRUE(DeleteObject(brush));
  EXPECT_EQ(static_cast<DWORD>(OBJ_BRUSH), GetObjectType(brush));
}

TEST(Dc, OriginsShiftWhatIsDrawn) {
  Canvas dc(4, 3);
  SetViewportOrgEx(dc, 2, 1, nullptr);
  SetPixel(dc, 0, 0, kBlack);
  SetWindowOrgEx(dc, 1, 1, nullptr);
  SetPixel(dc, 0, 0, RGB(255, 0, 0));
  EXPECT_ART(dc.Read(), R"(
      .r..
      ..#.
      ....)");
  POINT old = {};
  OffsetViewportOrgEx(dc, 5, 6, &old);
  EXPECT_EQ("2,1", Text(old));
  GetViewportOrgEx(dc, &old);
  EXPECT_EQ("7,7", Text(old));
}

TEST(Dc, PointsConvertBothWays) {
  Canvas dc(10, 10);
  SetViewportOrgEx(dc, 3, 4, nullptr);
  SetWindowOrgEx(dc, 10, 20, nullptr);
  POINT p = {12, 25};
  LPtoDP(dc, &p, 1);
  EXPECT_EQ("5,9", Text(p));
  DPtoLP(dc, &p, 1);
  EXPECT_EQ("12,25", Text(p));
}

TEST(Clip, IntersectAndExclude) {
  Canvas dc(10, 10);
  EXPECT_EQ(SIMPLEREGION, IntersectClipRect(dc, 2, 2, 8, 8));
  EXPECT_EQ("2,2,8,8", ClipBox(dc));
  EXPECT_EQ(COMPLEXREGION, ExcludeClipRect(dc, 3, 3, 5, 5));
  EXPECT_EQ("2,2,8,8", ClipBox(dc));
  EXPECT_EQ(NULLREGION, IntersectClipRect(dc, 20, 20, 30, 30));
  EXPECT_EQ(NULLREGION, [&] {
    RECT r;
    return GetClipBox(dc, &r);
  }());
  SelectClipRgn(dc, nullptr);
  EXPECT_EQ("0,0,10,10", ClipBox(dc));
}

TEST(Clip, BoxIsInLogicalUnits) {
  Canvas dc(10, 10);
  SetViewportOrgEx(dc, 2, 3, nullptr);
  EXPECT_EQ("-2,-3,8,7", ClipBox(dc));
  IntersectClipRect(dc, 0, 0, 4, 4);
  EXPECT_EQ("0,0,4,4", ClipBox(dc));
  SetViewportOrgEx(dc, 0, 0, nullptr);
  EXPECT_EQ("2,3,6,7", ClipBox(dc));
}

TEST(Clip, RegionsAreInDeviceUnits) {
  Canvas dc(10, 10);
  SetViewportOrgEx(dc, 2, 3, nullptr);
  const HRGN region = CreateRectRgn(4, 4, 6, 6);
  SelectClipRgn(dc, region);
  DeleteObject(region);
  EXPECT_EQ("2,1,4,3", ClipBox(dc));
}

TEST(Clip, ModesOfCombining) {
  Canvas dc(10, 10);
  const HRGN left = CreateRectRgn(0, 0, 5, 10);
  const HRGN top = CreateRectRgn(0, 0, 10, 5);
  ExtSelectClipRgn(dc, left, RGN_COPY);
  ExtSelectClipRgn(dc, top, RGN_AND);
  EXPECT_EQ("0,0,5,5", ClipBox(dc));
  ExtSelectClipRgn(dc, top, RGN_OR);
  EXPECT_EQ("0,0,10,5", ClipBox(dc));
  ExtSelectClipRgn(dc, left, RGN_DIFF);
  EXPECT_EQ("5,0,10,5", ClipBox(dc));
  ExtSelectClipRgn(dc, nullptr, RGN_COPY);
  EXPECT_EQ("0,0,10,10", ClipBox(dc));
  DeleteObject(left);
  DeleteObject(top);
}

TEST(Clip, GetClipRgnTellsWhetherThereIsOne) {
  Canvas dc(10, 10);
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  EXPECT_EQ(0, GetClipRgn(dc, region));
  IntersectClipRect(dc, 1, 2, 3, 4);
  EXPECT_EQ(1, GetClipRgn(dc, region));
  EXPECT_EQ("1,2,3,4", RegionBox(region));
  DeleteObject(region);
}

TEST(Clip, DrawingStaysInside) {
  Canvas dc(5, 3);
  IntersectClipRect(dc, 1, 1, 3, 2);
  Fill(dc, {0, 0, 5, 3}, kBlack);
  EXPECT_ART(dc.Read(), R"(
      .....
      .##..
      .....)");
}

TEST(Clip, VisibilityOfPointsAndRectangles) {
  Canvas dc(10, 10);
  IntersectClipRect(dc, 2, 2, 5, 5);
  EXPECT_TRUE(PtVisible(dc, 2, 2));
  EXPECT_FALSE(PtVisible(dc, 5, 5));
  const RECT touching = {4, 4, 9, 9};
  const RECT outside = {5, 5, 9, 9};
  EXPECT_TRUE(RectVisible(dc, &touching));
  EXPECT_FALSE(RectVisible(dc, &outside));
}

TEST(Clip, PixelsOutsideAreInvalid) {
  Canvas dc(3, 1);
  EXPECT_EQ(CLR_INVALID, GetPixel(dc, 3, 0));
  EXPECT_EQ(CLR_INVALID, GetPixel(dc, -1, 0));
  IntersectClipRect(dc, 1, 0, 2, 1);
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), GetPixel(dc, 1, 0));
  SetPixel(dc, 0, 0, kBlack);
  SetPixel(dc, 1, 0, kBlack);
  EXPECT_ART(dc.Read(), ".#.");
}

TEST(Clip, WindowDcCoversTheFrame) {
  HostWindow host({.style = WS_POPUP | WS_VISIBLE, .exStyle = WS_EX_CLIENTEDGE, .cx = 30, .cy = 20});
  HDC dc = GetWindowDC(host);
  EXPECT_EQ("0,0,30,20", ClipBox(dc));
  ReleaseDC(host, dc);
  dc = GetDC(host);
  EXPECT_EQ("0,0,26,16", ClipBox(dc));
  EXPECT_EQ(host.Handle(), WindowFromDC(dc));
  EXPECT_EQ(1, ReleaseDC(host, dc));
}

TEST(Clip, HiddenWindowsShowNothing) {
  HostWindow host({.style = WS_POPUP});
  const HDC dc = GetDC(host);
  EXPECT_EQ("0,0,0,0", ClipBox(dc));
  ReleaseDC(host, dc);
}

TEST(Clip, ParentsCutTheirChildrensDcs) {
  HostWindow host({.cx = 50, .cy = 50});
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .x = 30, .y = -10, .cx = 100, .cy = 30, .parent = host});
  const HDC dc = GetDC(child);
  EXPECT_EQ("0,10,20,30", ClipBox(dc));
  ReleaseDC(child, dc);
}

TEST(Region, Combinations) {
  const HRGN a = CreateRectRgn(0, 0, 10, 10);
  const HRGN b = CreateRectRgn(5, 5, 15, 15);
  const HRGN r = CreateRectRgn(0, 0, 0, 0);
  EXPECT_EQ(SIMPLEREGION, CombineRgn(r, a, b, RGN_AND));
  EXPECT_EQ("5,5,10,10", RegionBox(r));
  EXPECT_EQ(COMPLEXREGION, CombineRgn(r, a, b, RGN_OR));
  EXPECT_EQ("0,0,15,15", RegionBox(r));
  EXPECT_TRUE(PtInRegion(r, 14, 14));
  EXPECT_FALSE(PtInRegion(r, 14, 2));
  EXPECT_EQ(COMPLEXREGION, CombineRgn(r, a, b, RGN_XOR));
  EXPECT_FALSE(PtInRegion(r, 7, 7));
  EXPECT_EQ(COMPLEXREGION, CombineRgn(r, a, b, RGN_DIFF));
  EXPECT_FALSE(PtInRegion(r, 12, 12));
  EXPECT_EQ(SIMPLEREGION, CombineRgn(r, a, nullptr, RGN_COPY));
  EXPECT_TRUE(EqualRgn(r, a));
  EXPECT_EQ(NULLREGION, CombineRgn(r, a, a, RGN_DIFF));
  EXPECT_EQ(NULLREGION, [&] {
    RECT box;
    return GetRgnBox(r, &box);
  }());
  DeleteObject(a);
  DeleteObject(b);
  DeleteObject(r);
}

TEST(Region, OffsetAndHit) {
  const HRGN a = CreateRectRgn(10, 10, 0, 0);  // put in order
  EXPECT_EQ("0,0,10,10", RegionBox(a));
  EXPECT_EQ(SIMPLEREGION, OffsetRgn(a, 3, -2));
  EXPECT_EQ("3,-2,13,8", RegionBox(a));
  const RECT touching = {12, 7, 20, 20};
  const RECT apart = {13, 8, 20, 20};
  EXPECT_TRUE(RectInRegion(a, &touching));
  EXPECT_FALSE(RectInRegion(a, &apart));
  SetRectRgn(a, 1, 1, 2, 2);
  EXPECT_EQ("1,1,2,2", RegionBox(a));
  DeleteObject(a);
}

TEST(Region, FillsAndFrames) {
  Canvas dc(6, 4);
  const HRGN region = CreateRectRgn(0, 0, 5, 4);
  FillRgn(dc, region, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
  FrameRgn(dc, region, red, 1, 1);
  EXPECT_ART(dc.Read(), R"(
      rrrrr.
      r###r.
      r###r.
      rrrrr.)");
  DeleteObject(red);
  DeleteObject(region);
}

TEST(Rect, Arithmetic) {
  RECT r = {};
  const RECT a = {0, 0, 10, 10};
  const RECT b = {5, 5, 15, 15};
  const RECT apart = {20, 20, 30, 30};
  EXPECT_TRUE(IntersectRect(&r, &a, &b));
  EXPECT_EQ("5,5,10,10", Text(r));
  EXPECT_FALSE(IntersectRect(&r, &a, &apart));
  EXPECT_EQ("0,0,0,0", Text(r));
  EXPECT_TRUE(UnionRect(&r, &a, &b));
  EXPECT_EQ("0,0,15,15", Text(r));
  const RECT empty = {7, 7, 7, 9};
  EXPECT_TRUE(UnionRect(&r, &a, &empty));
  EXPECT_EQ("0,0,10,10", Text(r));
  const RECT right = {5, -5, 15, 15};
  EXPECT_TRUE(SubtractRect(&r, &a, &right));
  EXPECT_EQ("0,0,5,10", Text(r));
  EXPECT_TRUE(SubtractRect(&r, &a, &b));
  EXPECT_EQ("0,0,10,10", Text(r));
  EXPECT_TRUE(IsRectEmpty(&empty));
  EXPECT_TRUE(PtInRect(&a, {0, 0}));
  EXPECT_FALSE(PtInRect(&a, {10, 5}));
}
