// Position, size, visibility.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

// Records the messages about position of a window that is there already.
struct Positioned {
  Recorder log;
  HostWindow host;

  explicit Positioned(DWORD style = WS_POPUP)
      : host({.style = style, .x = 10, .y = 20, .cx = 100, .cy = 50, .log = &log}) {
    Pump();
    log.Clear();
    log.Only({WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_NCCALCSIZE, WM_MOVE, WM_SIZE, WM_SHOWWINDOW,
              WM_GETMINMAXINFO});
  }
};

}  // namespace

TEST(Position, SizingSendsItsMessagesInOrder) {
  Positioned p;
  SetWindowPos(p.host, nullptr, 10, 20, 120, 60, SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_LOG(p.log, R"(
      host WM_WINDOWPOSCHANGING
      host WM_NCCALCSIZE 1
      host WM_WINDOWPOSCHANGED
      host WM_SIZE 0 120x60)");
}

TEST(Position, MovingAlone) {
  Positioned p;
  SetWindowPos(p.host, nullptr, 30, 40, 0, 0, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
  EXPECT_LOG(p.log, R"(
      host WM_WINDOWPOSCHANGING
      ? host WM_NCCALCSIZE 1
      host WM_WINDOWPOSCHANGED
      host WM_MOVE 30,40)");
  EXPECT_EQ("30,40,130,90", WindowRectText(p.host));
}

TEST(Position, SamePlaceSendsNothingButTheQuestion) {
  Positioned p;
  SetWindowPos(p.host, nullptr, 10, 20, 100, 50, SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_LOG(p.log, "host WM_WINDOWPOSCHANGING");
}

TEST(Position, TheQuestionMayBeLeftOut) {
  Positioned p;
  SetWindowPos(p.host, nullptr, 30, 20, 100, 50, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
  EXPECT_LOG(p.log, R"(
      ? host WM_NCCALCSIZE 1
      host WM_WINDOWPOSCHANGED
      host WM_MOVE 30,20)");
}

TEST(Position, FrameChangedRecalculates) {
  Positioned p;
  SetWindowPos(p.host, nullptr, 0, 0, 0, 0,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE | SWP_FRAMECHANGED);
  EXPECT_LOG(p.log, R"(
      host WM_WINDOWPOSCHANGING
      host WM_NCCALCSIZE 1
      host WM_WINDOWPOSCHANGED)");
}

TEST(Position, TheQuestionMayChangeTheAnswer) {
  HostWindow host(
      {.style = WS_POPUP, .handler = [](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
         if (message != WM_WINDOWPOSCHANGING) return std::nullopt;
         reinterpret_cast<WINDOWPOS*>(lParam)->cx = 77;
         return 0;
       }});
  SetWindowPos(host, nullptr, 0, 0, 120, 60, SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ("0,0,77,60", WindowRectText(host));
}

TEST(Position, ShowingAndHiding) {
  Positioned p;
  EXPECT_FALSE(ShowWindow(p.host, SW_SHOWNA));
  EXPECT_LOG(p.log, R"(
      host WM_SHOWWINDOW 1
      host WM_WINDOWPOSCHANGING
      host WM_WINDOWPOSCHANGED)");
  EXPECT_TRUE(IsWindowVisible(p.host));
  EXPECT_TRUE(ShowWindow(p.host, SW_HIDE));
  EXPECT_LOG(p.log, R"(
      host WM_SHOWWINDOW 0
      host WM_WINDOWPOSCHANGING
      ? host WM_WINDOWPOSCHANGING
      host WM_WINDOWPOSCHANGED)");
  EXPECT_FALSE(IsWindowVisible(p.host));
}

TEST(Position, ShowingTwiceSendsNothing) {
  Positioned p(WS_POPUP | WS_VISIBLE);
  EXPECT_TRUE(ShowWindow(p.host, SW_SHOW));
  EXPECT_LOG(p.log, "");
}

TEST(Position, SwpShowWindowSendsNoShowMessage) {
  Positioned p;
  SetWindowPos(p.host, nullptr, 0, 0, 0, 0,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
  EXPECT_LOG(p.log, "host WM_WINDOWPOSCHANGING\nhost WM_WINDOWPOSCHANGED");
  EXPECT_TRUE(IsWindowVisible(p.host));
}

TEST(Position, VisibleMeansAllParentsToo) {
  HostWindow parent({.style = WS_POPUP});
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .parent = parent});
  EXPECT_FALSE(IsWindowVisible(child));
  EXPECT_NE(0u, GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE);
  ShowWindow(parent, SW_SHOW);
  EXPECT_TRUE(IsWindowVisible(child));
}

TEST(Position, ChildrenMoveWithTheirParent) {
  HostWindow parent({.style = WS_POPUP});
  HostWindow child({.style = WS_CHILD, .x = 1, .y = 2, .cx = 3, .cy = 4, .parent = parent});
  MoveWindow(parent, 50, 60, 70, 80, TRUE);
  EXPECT_EQ("51,62,54,66", WindowRectText(child));
}

TEST(Position, ChildrenMayOutgrowTheirParent) {
  HostWindow parent({.style = WS_POPUP, .cx = 50, .cy = 50});
  HostWindow child({.style = WS_CHILD, .x = -5, .y = -6, .cx = 200, .cy = 4, .parent = parent});
  EXPECT_EQ("95,94,295,98", WindowRectText(child));
}

TEST(Position, NegativeSizesBecomeZero) {
  HostWindow parent({.style = WS_POPUP});
  HostWindow child({.style = WS_CHILD, .x = 5, .y = 5, .cx = 10, .cy = 10, .parent = parent});
  SetWindowPos(child, nullptr, 5, 5, -10, -3, SWP_NOZORDER);
  EXPECT_EQ("0x0", ClientSizeText(child));
}

TEST(Position, OverlappedWindowsHaveAMinimum) {
  HostWindow host({.style = WS_OVERLAPPEDWINDOW, .cx = 300, .cy = 200});
  SetWindowPos(host, nullptr, 0, 0, 1, 1, SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
  RECT r = {};
  GetWindowRect(host, &r);
  EXPECT_EQ(GetSystemMetrics(SM_CXMINTRACK), r.right - r.left);
  EXPECT_EQ(GetSystemMetrics(SM_CYMINTRACK), r.bottom - r.top);
}

TEST(Position, DeferredMovesHappenAtTheEnd) {
  HostWindow parent({.style = WS_POPUP});
  HostWindow a({.style = WS_CHILD, .cx = 10, .cy = 10, .parent = parent});
  HostWindow b({.style = WS_CHILD, .cx = 10, .cy = 10, .parent = parent});
  HDWP batch = BeginDeferWindowPos(2);
  batch = DeferWindowPos(batch, a, nullptr, 1, 1, 20, 20, SWP_NOZORDER);
  batch = DeferWindowPos(batch, b, nullptr, 30, 1, 20, 20, SWP_NOZORDER);
  EXPECT_EQ("10x10", ClientSizeText(a));
  EXPECT_TRUE(EndDeferWindowPos(batch));
  EXPECT_EQ("101,101,121,121", WindowRectText(a));
  EXPECT_EQ("130,101,150,121", WindowRectText(b));
}

TEST(Position, MaximizedWindowRemembersItsPlace) {
  HostWindow host({.style = WS_OVERLAPPEDWINDOW, .x = 40, .y = 50, .cx = 300, .cy = 200});
  ShowWindow(host, SW_SHOWMAXIMIZED);
  EXPECT_TRUE(IsZoomed(host));
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof placement;
  ASSERT_TRUE(GetWindowPlacement(host, &placement));
  EXPECT_EQ(static_cast<UINT>(SW_SHOWMAXIMIZED), placement.showCmd);
  EXPECT_EQ("40,50,340,250", Text(placement.rcNormalPosition));
  ShowWindow(host, SW_RESTORE);
  EXPECT_FALSE(IsZoomed(host));
  EXPECT_EQ("40,50,340,250", WindowRectText(host));
}
