// Frames, edges, styles.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/picture.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

std::string ClientOf(DWORD style, DWORD exStyle = 0) {
  HostWindow host({.style = style, .exStyle = exStyle, .cx = 200, .cy = 100});
  return ClientSizeText(host);
}

std::string Less(int dx, int dy) { return Text(SIZE{200 - dx, 100 - dy}); }

}  // namespace

TEST(NonClient, SizesOfFrames) {
  const int bar = GetSystemMetrics(SM_CXVSCROLL);
  EXPECT_EQ(Less(0, 0), ClientOf(WS_POPUP));
  EXPECT_EQ(Less(2, 2), ClientOf(WS_POPUP | WS_BORDER));
  EXPECT_EQ(Less(4, 4), ClientOf(WS_POPUP, WS_EX_CLIENTEDGE));
  EXPECT_EQ(Less(2, 2), ClientOf(WS_POPUP, WS_EX_STATICEDGE));
  EXPECT_EQ(Less(6, 6), ClientOf(WS_POPUP | WS_BORDER, WS_EX_CLIENTEDGE));
  EXPECT_EQ(Less(bar, 0), ClientOf(WS_POPUP | WS_VSCROLL));
  EXPECT_EQ(Less(0, GetSystemMetrics(SM_CYHSCROLL)), ClientOf(WS_POPUP | WS_HSCROLL));
  EXPECT_EQ(Less(bar + 4, 4), ClientOf(WS_POPUP | WS_VSCROLL, WS_EX_CLIENTEDGE));
}

TEST(NonClient, SizesOfCaptions) {
  const int frame = GetSystemMetrics(SM_CXFRAME);
  const int fixed = GetSystemMetrics(SM_CXDLGFRAME);
  const int caption = GetSystemMetrics(SM_CYCAPTION);
  EXPECT_EQ(Less(2 * frame, 2 * frame + caption), ClientOf(WS_OVERLAPPEDWINDOW));
  EXPECT_EQ(Less(2 * fixed, 2 * fixed + caption), ClientOf(WS_POPUP | WS_CAPTION));
  EXPECT_EQ(Less(2 * fixed, 2 * fixed + GetSystemMetrics(SM_CYSMCAPTION)),
            ClientOf(WS_POPUP | WS_CAPTION, WS_EX_TOOLWINDOW));
}

TEST(NonClient, AdjustWindowRectIsTheInverse) {
  struct {
    DWORD style;
    DWORD exStyle;
  } const cases[] = {{WS_POPUP | WS_BORDER, 0},
                     {WS_OVERLAPPEDWINDOW, 0},
                     {WS_POPUP | WS_CAPTION, WS_EX_CLIENTEDGE},
                     {WS_POPUP | WS_DLGFRAME, 0},
                     {WS_POPUP | WS_THICKFRAME, WS_EX_TOOLWINDOW}};
  for (const auto& c : cases) {
    RECT r = {0, 0, 300, 200};
    AdjustWindowRectEx(&r, c.style, FALSE, c.exStyle);
    HostWindow host({.style = c.style, .exStyle = c.exStyle, .cx = r.right - r.left, .cy = r.bottom - r.top});
    EXPECT_EQ("300x200", ClientSizeText(host)) << std::hex << c.style;
  }
}

TEST(NonClient, AdjustWindowRectLeavesScrollBarsOut) {
  RECT r = {0, 0, 100, 100};
  AdjustWindowRect(&r, WS_POPUP | WS_VSCROLL | WS_HSCROLL, FALSE);
  EXPECT_EQ("0,0,100,100", Text(r));
}

TEST(NonClient, ClientOriginIsInsideTheFrame) {
  HostWindow host({.style = WS_POPUP, .exStyle = WS_EX_CLIENTEDGE});
  POINT origin = {0, 0};
  ClientToScreen(host, &origin);
  EXPECT_EQ("102,102", Text(origin));
}

TEST(NonClient, TheOwnCalculationIsUsed) {
  HostWindow host({.style = WS_POPUP,
                   .cx = 100,
                   .cy = 100,
                   .handler = [](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
                     if (message != WM_NCCALCSIZE) return std::nullopt;
                     InflateRect(reinterpret_cast<RECT*>(lParam), -7, -9);
                     return 0;
                   }});
  EXPECT_EQ("86x82", ClientSizeText(host));
}

TEST(NonClient, ClientEdgeIsDrawnSunken) {
  HostWindow host({.style = WS_POPUP | WS_VISIBLE,
                   .exStyle = WS_EX_CLIENTEDGE,
                   .cx = 8,
                   .cy = 7,
                   .background = COLOR_WINDOW});
  Pump();
  EXPECT_ART(CaptureWindow(host), R"(
      ooooooo.
      okkkkkf.
      ok....f.
      ok....f.
      ok....f.
      offffff.
      ........)");
}

TEST(NonClient, StaticEdgeIsThin) {
  HostWindow host({.style = WS_POPUP | WS_VISIBLE,
                   .exStyle = WS_EX_STATICEDGE,
                   .cx = 6,
                   .cy = 5,
                   .background = COLOR_BTNFACE});
  Pump();
  EXPECT_ART(CaptureWindow(host), R"(
      ooooo.
      offff.
      offff.
      offff.
      ......)");
}

TEST(NonClient, BorderIsABlackLine) {
  HostWindow host({.style = WS_POPUP | WS_VISIBLE | WS_BORDER, .cx = 6, .cy = 4});
  Pump();
  EXPECT_ART(CaptureWindow(host), R"(
      ######
      #....#
      #....#
      ######)");
}

TEST(NonClient, HitTestsOfAFrame) {
  HostWindow host(
      {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_VSCROLL, .x = 100, .y = 100, .cx = 200, .cy = 150});
  const auto hit = [&](int x, int y) {
    return static_cast<int>(SendMessageW(host, WM_NCHITTEST, 0, MAKELPARAM(x, y)));
  };
  EXPECT_EQ(HTTOPLEFT, hit(101, 101));
  EXPECT_EQ(HTLEFT, hit(101, 180));
  EXPECT_EQ(HTBOTTOMRIGHT, hit(298, 248));
  EXPECT_EQ(HTCAPTION, hit(200, 110));
  EXPECT_EQ(HTCLIENT, hit(150, 180));
  EXPECT_EQ(HTVSCROLL, hit(290, 180));
  EXPECT_EQ(HTNOWHERE, hit(99, 180));
}

TEST(Style, ChangeIsAnnouncedBeforeAndAfter) {
  Recorder log;
  HostWindow host({.style = WS_POPUP, .log = &log});
  log.Clear();
  log.Except({WM_GETMINMAXINFO});
  SetWindowLongW(host, GWL_STYLE, static_cast<LONG>(WS_POPUP | WS_BORDER));
  EXPECT_LOG(log, "host WM_STYLECHANGING\nhost WM_STYLECHANGED");
}

TEST(Style, ChangeMayBeCorrected) {
  HostWindow host({.style = WS_POPUP,
                   .handler = [](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
                     if (message != WM_STYLECHANGING || static_cast<int>(wParam) != GWL_STYLE) {
                       return std::nullopt;
                     }
                     reinterpret_cast<STYLESTRUCT*>(lParam)->styleNew |= WS_TABSTOP;
                     return 0;
                   }});
  SetWindowLongW(host, GWL_STYLE, static_cast<LONG>(WS_POPUP | WS_BORDER));
  EXPECT_EQ(WS_POPUP | WS_BORDER | WS_TABSTOP,
            static_cast<DWORD>(GetWindowLongW(host, GWL_STYLE)) & (WS_POPUP | WS_BORDER | WS_TABSTOP));
}

TEST(Style, LayoutFollowsWhenTheFrameIsChanged) {
  HostWindow host({.style = WS_POPUP, .cx = 100, .cy = 100});
  const LONG_PTR old = SetWindowLongPtrW(host, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
  EXPECT_EQ(0, old & WS_EX_CLIENTEDGE);
  EXPECT_EQ("100x100", ClientSizeText(host));
  SetWindowPos(host, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  EXPECT_EQ("96x96", ClientSizeText(host));
}

TEST(Style, OverlappedWindowsGetACaption) {
  HostWindow host({.style = WS_OVERLAPPED});
  EXPECT_EQ(static_cast<DWORD>(WS_CAPTION | WS_CLIPSIBLINGS),
            static_cast<DWORD>(GetWindowLongW(host, GWL_STYLE)) & (WS_CAPTION | WS_CLIPSIBLINGS));
}

TEST(Style, WindowTextTravelsByMessages) {
  HostWindow host({.style = WS_POPUP, .text = L"été"});
  EXPECT_EQ(3, GetWindowTextLengthW(host));
  EXPECT_EQ(L"été", WindowText(host));
  EXPECT_TRUE(SetWindowTextW(host, L"déjà vu"));
  wchar_t cut[5];
  EXPECT_EQ(4, GetWindowTextW(host, cut, 5));
  EXPECT_STREQ(L"déjà", cut);
  EXPECT_EQ(7, SendMessageW(host, WM_GETTEXTLENGTH, 0, 0));
  SetWindowTextW(host, nullptr);
  EXPECT_EQ(0, GetWindowTextLengthW(host));
}
