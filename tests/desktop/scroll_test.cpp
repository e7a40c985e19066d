// Scroll bars of windows, and scrolling pixels.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/picture.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

SCROLLINFO Info(int low, int high, UINT page, int pos) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMin = low;
  info.nMax = high;
  info.nPage = page;
  info.nPos = pos;
  return info;
}

// "min..max page pos"
std::string Bar(HWND window, int bar) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  if (!GetScrollInfo(window, bar, &info)) return "none";
  return std::to_string(info.nMin) + ".." + std::to_string(info.nMax) + " " + std::to_string(info.nPage) +
         " " + std::to_string(info.nPos);
}

bool Has(HWND window, DWORD style) { return (GetWindowLongW(window, GWL_STYLE) & style) != 0; }

}  // namespace

TEST(ScrollBar, InfoRoundTrip) {
  HostWindow host({.style = WS_POPUP | WS_VSCROLL});
  SCROLLINFO info = Info(0, 100, 10, 20);
  EXPECT_EQ(20, SetScrollInfo(host, SB_VERT, &info, FALSE));
  EXPECT_EQ("0..100 10 20", Bar(host, SB_VERT));
}

TEST(ScrollBar, PositionIsKeptInTheRange) {
  HostWindow host({.style = WS_POPUP | WS_VSCROLL});
  SCROLLINFO info = Info(0, 100, 10, 500);
  EXPECT_EQ(91, SetScrollInfo(host, SB_VERT, &info, FALSE));
  info.nPos = -3;
  EXPECT_EQ(0, SetScrollInfo(host, SB_VERT, &info, FALSE));
  info = Info(0, 100, 0, 500);
  EXPECT_EQ(100, SetScrollInfo(host, SB_VERT, &info, FALSE));
}

TEST(ScrollBar, PageIsKeptInTheRange) {
  HostWindow host({.style = WS_POPUP | WS_VSCROLL});
  SCROLLINFO info = Info(0, 9, 50, 0);
  info.fMask |= SIF_DISABLENOSCROLL;
  SetScrollInfo(host, SB_VERT, &info, FALSE);
  EXPECT_EQ("0..9 10 0", Bar(host, SB_VERT));
}

TEST(ScrollBar, OnlyTheMaskedPartsAreSet) {
  HostWindow host({.style = WS_POPUP | WS_VSCROLL});
  SCROLLINFO info = Info(0, 100, 10, 20);
  SetScrollInfo(host, SB_VERT, &info, FALSE);
  info = Info(7, 8, 9, 30);
  info.fMask = SIF_POS;
  EXPECT_EQ(30, SetScrollInfo(host, SB_VERT, &info, FALSE));
  EXPECT_EQ("0..100 10 30", Bar(host, SB_VERT));
}

TEST(ScrollBar, NothingToScrollTakesTheBarAway) {
  HostWindow host({.style = WS_POPUP | WS_VSCROLL, .cx = 100, .cy = 100});
  const int bar = GetSystemMetrics(SM_CXVSCROLL);
  EXPECT_EQ(Text(SIZE{100 - bar, 100}), ClientSizeText(host));
  SCROLLINFO info = Info(0, 9, 10, 0);
  SetScrollInfo(host, SB_VERT, &info, TRUE);
  EXPECT_FALSE(Has(host, WS_VSCROLL));
  EXPECT_EQ("100x100", ClientSizeText(host));
  info = Info(0, 10, 10, 0);
  SetScrollInfo(host, SB_VERT, &info, TRUE);
  EXPECT_TRUE(Has(host, WS_VSCROLL));
  EXPECT_EQ(Text(SIZE{100 - bar, 100}), ClientSizeText(host));
}

TEST(ScrollBar, ComingAndGoingTellsTheWindowInsideTheCall) {
  Recorder log;
  HostWindow host({.cx = 100, .cy = 100, .log = &log});
  Pump();
  log.Clear();
  log.Only({WM_SIZE, WM_NCCALCSIZE});
  SCROLLINFO info = Info(0, 100, 10, 0);
  SetScrollInfo(host, SB_VERT, &info, TRUE);
  const std::string size = Text(SIZE{100 - GetSystemMetrics(SM_CXVSCROLL), 100});
  EXPECT_LOG(log, "host WM_NCCALCSIZE 1\nhost WM_SIZE 0 " + size);
}

TEST(ScrollBar, MayBeDisabledInstead) {
  HostWindow host({.style = WS_POPUP | WS_VSCROLL, .cx = 100, .cy = 100});
  SCROLLINFO info = Info(0, 9, 10, 0);
  info.fMask |= SIF_DISABLENOSCROLL;
  SetScrollInfo(host, SB_VERT, &info, TRUE);
  EXPECT_TRUE(Has(host, WS_VSCROLL));
}

TEST(ScrollBar, OldCallsSeeTheSameValues) {
  HostWindow host({.style = WS_POPUP | WS_HSCROLL});
  SetScrollRange(host, SB_HORZ, 3, 30, FALSE);
  EXPECT_EQ(3, SetScrollPos(host, SB_HORZ, 12, FALSE));
  EXPECT_EQ(12, GetScrollPos(host, SB_HORZ));
  int low = 0;
  int high = 0;
  GetScrollRange(host, SB_HORZ, &low, &high);
  EXPECT_EQ(3, low);
  EXPECT_EQ(30, high);
  EXPECT_EQ("3..30 0 12", Bar(host, SB_HORZ));
}

TEST(ScrollBar, ShowScrollBarAddsAndRemoves) {
  HostWindow host({.style = WS_POPUP, .cx = 100, .cy = 100});
  ShowScrollBar(host, SB_BOTH, TRUE);
  EXPECT_TRUE(Has(host, WS_VSCROLL));
  EXPECT_TRUE(Has(host, WS_HSCROLL));
  const int bar = GetSystemMetrics(SM_CXVSCROLL);
  EXPECT_EQ(Text(SIZE{100 - bar, 100 - bar}), ClientSizeText(host));
  ShowScrollBar(host, SB_VERT, FALSE);
  EXPECT_FALSE(Has(host, WS_VSCROLL));
  EXPECT_TRUE(Has(host, WS_HSCROLL));
}

TEST(ScrollBar, ClicksSendScrollMessages) {
  Recorder log;
  HostWindow host(
      {.style = WS_POPUP | WS_VISIBLE | WS_VSCROLL, .x = 100, .y = 100, .cx = 100, .cy = 200, .log = &log});
  SCROLLINFO info = Info(0, 100, 10, 50);
  SetScrollInfo(host, SB_VERT, &info, TRUE);
  Pump();
  log.Clear();
  log.Only({WM_VSCROLL});
  // The loop of the scroll bar ends with the release: it must be on its way before the press.
  const auto click = [](int y) {
    PostMouseMove({195, y});
    PostPress({195, y});
    PostRelease({195, y});
    PumpFor(30);
  };
  click(105);
  EXPECT_LOG(log, "host WM_VSCROLL 0 0\nhost WM_VSCROLL 8 0");
  click(295);
  EXPECT_LOG(log, "host WM_VSCROLL 1 0\nhost WM_VSCROLL 8 0");
  click(125);
  EXPECT_LOG(log, "host WM_VSCROLL 2 0\nhost WM_VSCROLL 8 0");
  click(275);
  EXPECT_LOG(log, "host WM_VSCROLL 3 0\nhost WM_VSCROLL 8 0");
}

TEST(ScrollWindow, MovesPixelsAndInvalidatesTheGap) {
  HostWindow host({.cx = 6, .cy = 4});
  UpdateWindow(host);
  {
    const HDC dc = GetDC(host);
    SetPixel(dc, 1, 0, RGB(255, 0, 0));
    SetPixel(dc, 4, 3, RGB(0, 0, 255));
    ReleaseDC(host, dc);
  }
  ScrollWindow(host, 0, 2, nullptr, nullptr);
  RECT r = {};
  EXPECT_TRUE(GetUpdateRect(host, &r, FALSE));
  EXPECT_EQ("0,0,6,2", Text(r));
  ValidateRect(host, nullptr);
  const Picture picture = CaptureClient(host);
  EXPECT_EQ(0xFF0000u, picture.At(1, 2));
  EXPECT_EQ(0, picture.Count(0x0000FF));
}

TEST(ScrollWindow, MovesTheInvalidArea) {
  HostWindow host({.cx = 40, .cy = 40});
  UpdateWindow(host);
  const RECT part = {10, 10, 20, 20};
  InvalidateRect(host, &part, FALSE);
  ScrollWindow(host, 0, -5, nullptr, nullptr);
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  GetUpdateRgn(host, region, FALSE);
  EXPECT_TRUE(PtInRegion(region, 12, 6));
  EXPECT_TRUE(PtInRegion(region, 0, 38));
  EXPECT_FALSE(PtInRegion(region, 12, 25));
  DeleteObject(region);
}

TEST(ScrollWindow, WholeClientMovesChildren) {
  HostWindow host({.cx = 40, .cy = 40});
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .x = 5, .y = 6, .cx = 10, .cy = 10, .parent = host});
  Pump();
  ScrollWindow(host, 3, 4, nullptr, nullptr);
  EXPECT_EQ("108,110,118,120", WindowRectText(child));
}

TEST(ScrollWindow, ExReportsTheUpdatedArea) {
  HostWindow host({.cx = 40, .cy = 40});
  UpdateWindow(host);
  RECT updated = {};
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  EXPECT_NE(ERROR, ScrollWindowEx(host, -10, 0, nullptr, nullptr, region, &updated, SW_INVALIDATE));
  EXPECT_EQ("30,0,40,40", Text(updated));
  RECT box = {};
  GetRgnBox(region, &box);
  EXPECT_EQ("30,0,40,40", Text(box));
  DeleteObject(region);
}

TEST(ScrollWindow, ClipKeepsTheRest) {
  HostWindow host({.cx = 6, .cy = 3});
  UpdateWindow(host);
  {
    const HDC dc = GetDC(host);
    for (int x = 0; x < 6; ++x) SetPixel(dc, x, 0, RGB(255, 0, 0));
    ReleaseDC(host, dc);
  }
  const RECT clip = {2, 0, 4, 3};
  ScrollWindowEx(host, 0, 1, nullptr, &clip, nullptr, nullptr, 0);
  const Picture picture = CaptureClient(host);
  EXPECT_EQ(0xFF0000u, picture.At(0, 0));
  EXPECT_EQ(0xFFFFFFu, picture.At(0, 1));
  EXPECT_EQ(0xFF0000u, picture.At(2, 1));
  EXPECT_EQ(0xFF0000u, picture.At(5, 0));
}
