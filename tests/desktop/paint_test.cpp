// Update regions, erasing, painting.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/picture.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

std::string UpdateRect(HWND window) {
  RECT r = {};
  return GetUpdateRect(window, &r, FALSE) ? Text(r) : "none";
}

// Paints the clip box in a colour and notes what BeginPaint said.
class Painter {
 public:
  explicit Painter(Recorder& log, COLORREF color = RGB(255, 0, 0)) : m_log(log), m_color(color) {}

  std::optional<LRESULT> operator()(HWND window, UINT message, WPARAM, LPARAM) const {
    if (message == WM_ERASEBKGND) m_log.Note("erase");
    if (message != WM_PAINT) return std::nullopt;
    PAINTSTRUCT ps;
    const HDC dc = BeginPaint(window, &ps);
    m_log.Note("paint " + Text(ps.rcPaint) + (ps.fErase ? " erase" : ""));
    const HBRUSH brush = CreateSolidBrush(m_color);
    const RECT all = {-1000, -1000, 1000, 1000};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    EndPaint(window, &ps);
    return 0;
  }

 private:
  Recorder& m_log;
  COLORREF m_color;
};

HostOptions Small(Handler handler, int cx = 10, int cy = 6) {
  return {.cx = cx, .cy = cy, .handler = std::move(handler)};
}

}  // namespace

TEST(Paint, InvalidRectanglesAddUp) {
  HostWindow host;
  UpdateWindow(host);
  EXPECT_EQ("none", UpdateRect(host));
  const RECT a = {1, 2, 10, 12};
  const RECT b = {20, 4, 30, 8};
  InvalidateRect(host, &a, FALSE);
  InvalidateRect(host, &b, FALSE);
  EXPECT_EQ("1,2,30,12", UpdateRect(host));
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  EXPECT_EQ(COMPLEXREGION, GetUpdateRgn(host, region, FALSE));
  EXPECT_TRUE(PtInRegion(region, 25, 5));
  EXPECT_FALSE(PtInRegion(region, 15, 5));
  DeleteObject(region);
  ValidateRect(host, &a);
  EXPECT_EQ("20,4,30,8", UpdateRect(host));
}

TEST(Paint, InvalidAreaIsCutToTheClientArea) {
  HostWindow host({.cx = 50, .cy = 40});
  UpdateWindow(host);
  const RECT wide = {-10, 30, 500, 500};
  InvalidateRect(host, &wide, FALSE);
  EXPECT_EQ("0,30,50,40", UpdateRect(host));
}

TEST(Paint, HiddenWindowsHaveNoUpdateRegion) {
  HostWindow host({.style = WS_POPUP});
  InvalidateRect(host, nullptr, TRUE);
  EXPECT_EQ("none", UpdateRect(host));
}

TEST(Paint, BeginPaintErasesOnceAndValidates) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  UpdateWindow(host);
  log.Clear();
  InvalidateRect(host, nullptr, TRUE);
  UpdateWindow(host);
  EXPECT_LOG(log, "erase\npaint 0,0,10,6");
  EXPECT_EQ("none", UpdateRect(host));
  UpdateWindow(host);
  EXPECT_LOG(log, "");
}

TEST(Paint, EraseIsKeptFromAnyOfTheInvalidations) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  UpdateWindow(host);
  log.Clear();
  const RECT part = {0, 0, 3, 3};
  InvalidateRect(host, &part, TRUE);
  InvalidateRect(host, nullptr, FALSE);
  UpdateWindow(host);
  EXPECT_LOG(log, "erase\npaint 0,0,10,6");
}

TEST(Paint, WithoutEraseThePixelsStay) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  UpdateWindow(host);
  log.Clear();
  InvalidateRect(host, nullptr, FALSE);
  UpdateWindow(host);
  EXPECT_LOG(log, "paint 0,0,10,6");
}

TEST(Paint, AWindowWithoutBrushKeepsTheEraseFlag) {
  Recorder log;
  HostOptions options = Small(Painter(log));
  options.background = -1;
  HostWindow host(options);
  UpdateWindow(host);
  log.Clear();
  InvalidateRect(host, nullptr, TRUE);
  UpdateWindow(host);
  EXPECT_LOG(log, "erase\npaint 0,0,10,6 erase");
}

TEST(Paint, TheDcIsClippedToTheUpdateRegion) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  UpdateWindow(host);
  const RECT part = {2, 1, 5, 3};
  {
    const HDC dc = GetDC(host);
    const RECT all = {0, 0, 10, 6};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    ReleaseDC(host, dc);
  }
  InvalidateRect(host, &part, TRUE);
  UpdateWindow(host);
  log.Clear();
  EXPECT_ART(CaptureClient(host), R"(
      ..........
      ..rrr.....
      ..rrr.....
      ..........
      ..........
      ..........)");
}

TEST(Paint, ClipChildrenSparesThem) {
  Recorder log;
  HostOptions options = Small(Painter(log));
  options.style |= WS_CLIPCHILDREN;
  HostWindow host(options);
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .x = 2, .y = 1, .cx = 3, .cy = 2, .parent = host});
  Pump();
  InvalidateRect(host, nullptr, TRUE);
  Pump();
  log.Clear();
  EXPECT_ART(CaptureClient(host), R"(
      rrrrrrrrrr
      rr...rrrrr
      rr...rrrrr
      rrrrrrrrrr
      rrrrrrrrrr
      rrrrrrrrrr)");
}

TEST(Paint, WithoutClipChildrenTheParentInvalidatesThem) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  HostOptions options = Small(Painter(log, RGB(0, 0, 255)), 3, 2);
  options.style = WS_CHILD | WS_VISIBLE;
  options.x = 2;
  options.y = 1;
  options.parent = host;
  HostWindow child(options);
  Pump();
  log.Clear();
  InvalidateRect(host, nullptr, TRUE);
  EXPECT_EQ("0,0,3,2", UpdateRect(child));
  Pump();
  EXPECT_LOG(log, "erase\npaint 0,0,10,6\nerase\npaint 0,0,3,2");
  EXPECT_EQ(6, CaptureClient(host).Count(0x0000FF));
}

TEST(Paint, ClipSiblingsSparesTheOnesAbove) {
  Recorder log;
  HostWindow host({.cx = 8, .cy = 3});
  HostOptions options = Small(Painter(log, RGB(0, 0, 255)), 3, 2);
  options.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
  options.parent = host;
  options.x = 1;
  options.y = 0;
  HostWindow above(options);
  options.handler = Painter(log, RGB(255, 0, 0));
  options.x = 3;
  options.y = 1;
  HostWindow below(options);
  Pump();
  InvalidateRect(below, nullptr, TRUE);
  Pump();
  log.Clear();
  EXPECT_ART(CaptureClient(host), R"(
      .bbb....
      .bbbrr..
      ...rrr..)");
}

TEST(Paint, RedrawWindowAtOnce) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  Pump();
  log.Clear();
  RedrawWindow(host, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_LOG(log, "paint 0,0,10,6");
  RedrawWindow(host, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW);
  EXPECT_LOG(log, "erase");
  EXPECT_EQ("0,0,10,6", UpdateRect(host));
  RedrawWindow(host, nullptr, nullptr, RDW_VALIDATE);
  EXPECT_EQ("none", UpdateRect(host));
}

TEST(Paint, RedrawWindowWithAllChildren) {
  HostWindow host({.cx = 50, .cy = 50});
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .x = 5, .y = 5, .cx = 10, .cy = 10, .parent = host});
  Pump();
  RedrawWindow(host, nullptr, nullptr, RDW_INVALIDATE | RDW_NOCHILDREN);
  EXPECT_EQ("none", UpdateRect(child));
  RedrawWindow(host, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  EXPECT_EQ("0,0,10,10", UpdateRect(child));
  RedrawWindow(host, nullptr, nullptr, RDW_VALIDATE | RDW_ALLCHILDREN);
  EXPECT_EQ("none", UpdateRect(child));
}

TEST(Paint, InternalPaintComesWithoutAnInvalidArea) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  Pump();
  log.Clear();
  RedrawWindow(host, nullptr, nullptr, RDW_INTERNALPAINT);
  Pump();
  EXPECT_LOG(log, "paint 0,0,0,0");
}

TEST(Paint, SetRedrawStopsPainting) {
  Recorder log;
  HostWindow host(Small(Painter(log)));
  Pump();
  log.Clear();
  SendMessageW(host, WM_SETREDRAW, FALSE, 0);
  EXPECT_EQ(0u, GetWindowLongW(host, GWL_STYLE) & WS_VISIBLE);
  InvalidateRect(host, nullptr, TRUE);
  Pump();
  EXPECT_LOG(log, "");
  SendMessageW(host, WM_SETREDRAW, TRUE, 0);
  EXPECT_NE(0u, GetWindowLongW(host, GWL_STYLE) & WS_VISIBLE);
  InvalidateRect(host, nullptr, TRUE);
  Pump();
  EXPECT_LOG(log, "erase\npaint 0,0,10,6");
}

TEST(Paint, NotHandledIsValidatedByDefault) {
  HostWindow host;
  Pump();
  InvalidateRect(host, nullptr, TRUE);
  UpdateWindow(host);
  EXPECT_EQ("none", UpdateRect(host));
}

TEST(Paint, ClassBrushErases) {
  HostWindow host({.cx = 4, .cy = 2, .background = COLOR_BTNFACE});
  UpdateWindow(host);
  EXPECT_ART(CaptureClient(host), "ffff\nffff");
}

TEST(Paint, UncoveredAreaIsInvalid) {
  HostWindow host({.cx = 50, .cy = 50});
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .x = 5, .y = 6, .cx = 10, .cy = 10, .parent = host});
  Pump();
  ShowWindow(child, SW_HIDE);
  EXPECT_EQ("5,6,15,16", UpdateRect(host));
}

TEST(Paint, MovedChildUncoversItsOldPlace) {
  HostWindow host({.cx = 50, .cy = 50});
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .x = 5, .y = 6, .cx = 10, .cy = 10, .parent = host});
  Pump();
  MoveWindow(child, 25, 6, 10, 10, FALSE);
  Pump();
  MoveWindow(child, 5, 6, 10, 10, TRUE);
  EXPECT_EQ("25,6,35,16", UpdateRect(host));
}

TEST(Paint, GrowingInvalidatesTheNewPart) {
  HostWindow host({.cx = 50, .cy = 50});
  UpdateWindow(host);
  SetWindowPos(host, nullptr, 0, 0, 60, 50, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ("50,0,60,50", UpdateRect(host));
}

TEST(Paint, RedrawClassesInvalidateAll) {
  HostWindow host({.cx = 50, .cy = 50, .classStyle = CS_HREDRAW});
  UpdateWindow(host);
  SetWindowPos(host, nullptr, 0, 0, 60, 50, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ("0,0,60,50", UpdateRect(host));
}

TEST(Paint, ParentPaintsBeforeItsChildren) {
  Recorder log;
  HostOptions options = Small(Painter(log), 30, 30);
  HostWindow host(options);
  options.style = WS_CHILD | WS_VISIBLE;
  options.parent = host;
  options.x = 2;
  options.y = 2;
  options.cx = 5;
  options.cy = 5;
  HostWindow child(options);
  Pump();
  log.Clear();
  RedrawWindow(host, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  Pump();
  EXPECT_LOG(log, "erase\npaint 0,0,30,30\nerase\npaint 0,0,5,5");
}

TEST(Paint, ExcludedUpdateRegionIsClippedAway) {
  HostWindow host({.cx = 20, .cy = 10});
  UpdateWindow(host);
  const RECT part = {0, 0, 5, 10};
  InvalidateRect(host, &part, FALSE);
  const HDC dc = GetDC(host);
  EXPECT_NE(ERROR, ExcludeUpdateRgn(dc, host));
  RECT box = {};
  GetClipBox(dc, &box);
  EXPECT_EQ("5,0,20,10", Text(box));
  ReleaseDC(host, dc);
}
