// The mouse: targets, buttons, capture, leaving.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

HostOptions Child(HWND parent, Recorder* log, const char* name) {
  return {.style = WS_CHILD | WS_VISIBLE,
          .x = 10,
          .y = 10,
          .cx = 50,
          .cy = 40,
          .parent = parent,
          .log = log,
          .name = name};
}

}  // namespace

TEST(Mouse, MessagesGoToTheChildUnderTheCursor) {
  Recorder log;
  log.Only({WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP});
  HostWindow host({.log = &log});
  HostWindow child(Child(host, &log, "child"));
  MoveTo(At(host, 5, 6));
  log.Clear();
  MoveTo(At(host, 20, 15));
  EXPECT_LOG(log, "child WM_MOUSEMOVE 10,5");
  Click(At(host, 8, 100));
  EXPECT_LOG(log, R"(
      host WM_MOUSEMOVE 8,100
      host WM_LBUTTONDOWN 8,100 L
      ? host WM_MOUSEMOVE 8,100 L
      host WM_LBUTTONUP 8,100)");
}

TEST(Mouse, CursorPositionIsTheScreens) {
  SetCursorPos(123, 45);
  POINT point = {};
  EXPECT_TRUE(GetCursorPos(&point));
  EXPECT_EQ("123,45", Text(point));
}

TEST(Mouse, CursorStaysOnTheScreen) {
  SetCursorPos(-50, 100000);
  POINT point = {};
  GetCursorPos(&point);
  EXPECT_EQ(Text(POINT{0, GetSystemMetrics(SM_CYSCREEN) - 1}), Text(point));
}

TEST(Mouse, ButtonsAndKeysAreInTheMessage) {
  Recorder log;
  log.Only({WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_LBUTTONUP});
  HostWindow host({.log = &log});
  Press(At(host, 50, 50));
  Press(At(host, 50, 50), Button::Right);
  Release(At(host, 50, 50), Button::Right);
  Release(At(host, 50, 50));
  EXPECT_LOG(log, R"(
      host WM_LBUTTONDOWN 50,50 L
      host WM_RBUTTONDOWN 50,50 LR
      host WM_RBUTTONUP 50,50 L
      host WM_LBUTTONUP 50,50)");
}

TEST(Mouse, DoubleClicksOnlyForClassesThatAsk) {
  Recorder log;
  log.Only({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK});
  HostWindow plain({.log = &log, .name = "plain"});
  DoubleClick(At(plain, 20, 20));
  EXPECT_LOG(log, R"(
      plain WM_LBUTTONDOWN 20,20 L
      plain WM_LBUTTONUP 20,20
      plain WM_LBUTTONDOWN 20,20 L
      plain WM_LBUTTONUP 20,20)");
  HostWindow asking({.x = 400, .classStyle = CS_DBLCLKS, .log = &log, .name = "asking"});
  DoubleClick(At(asking, 20, 20));
  EXPECT_LOG(log, R"(
      asking WM_LBUTTONDOWN 20,20 L
      asking WM_LBUTTONUP 20,20
      asking WM_LBUTTONDBLCLK 20,20 L
      asking WM_LBUTTONUP 20,20)");
}

TEST(Mouse, TwoClicksFarApartAreTwoClicks) {
  Recorder log;
  log.Only({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK});
  HostWindow host({.classStyle = CS_DBLCLKS, .log = &log});
  Click(At(host, 20, 20));
  Click(At(host, 60, 20));
  EXPECT_LOG(log, "host WM_LBUTTONDOWN 20,20 L\nhost WM_LBUTTONDOWN 60,20 L");
}

TEST(Mouse, TwoButtonsMakeNoDoubleClick) {
  Recorder log;
  log.Only({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN, WM_RBUTTONDBLCLK});
  HostWindow host({.classStyle = CS_DBLCLKS, .log = &log});
  Click(At(host, 20, 20));
  PostPress(At(host, 20, 20), Button::Right);
  PostRelease(At(host, 20, 20), Button::Right);
  Pump();
  EXPECT_LOG(log, "host WM_LBUTTONDOWN 20,20 L\nhost WM_RBUTTONDOWN 20,20 R");
}

TEST(Mouse, TheThirdClickStartsAnew) {
  Recorder log;
  log.Only({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK});
  HostWindow host({.classStyle = CS_DBLCLKS, .log = &log});
  for (int i = 0; i < 3; ++i) {
    PostPress(At(host, 30, 30));
    PostRelease(At(host, 30, 30));
    Pump();
  }
  EXPECT_LOG(log, R"(
      host WM_LBUTTONDOWN 30,30 L
      host WM_LBUTTONDBLCLK 30,30 L
      host WM_LBUTTONDOWN 30,30 L)");
}

TEST(Mouse, CaptureTakesAllMessages) {
  Recorder log;
  log.Only({WM_MOUSEMOVE, WM_LBUTTONUP, WM_CAPTURECHANGED});
  HostWindow host({.x = 200, .y = 200, .log = &log});
  Press(At(host, 20, 20));
  log.Clear();
  SetCapture(host);
  EXPECT_EQ(host.Handle(), GetCapture());
  MoveTo({150, 190});
  EXPECT_LOG(log, "host WM_MOUSEMOVE -50,-10 L");
  Release({150, 190});
  log.Clear();
  ReleaseCapture();
  EXPECT_LOG(log, "host WM_CAPTURECHANGED");
  EXPECT_EQ(nullptr, GetCapture());
  MoveTo({160, 190});
  EXPECT_LOG(log, "");
}

TEST(Mouse, CaptureChangesHands) {
  Recorder log;
  HWND next = nullptr;
  HostWindow a({.handler = [&](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
                  if (message == WM_CAPTURECHANGED) next = reinterpret_cast<HWND>(lParam);
                  return std::nullopt;
                },
                .log = &log,
                .name = "a"});
  HostWindow b({.x = 500, .log = &log, .name = "b"});
  log.Clear();
  log.Only({WM_CAPTURECHANGED});
  EXPECT_EQ(nullptr, SetCapture(a));
  EXPECT_EQ(a.Handle(), SetCapture(b));
  EXPECT_LOG(log, "a WM_CAPTURECHANGED");
  EXPECT_EQ(b.Handle(), next);
  ReleaseCapture();
  EXPECT_LOG(log, "b WM_CAPTURECHANGED");
}

TEST(Mouse, CaptureEndsWithItsWindow) {
  HostWindow host;
  SetCapture(host);
  host.Destroy();
  EXPECT_EQ(nullptr, GetCapture());
}

TEST(Mouse, LeavingIsToldOnce) {
  Recorder log;
  HostWindow host({.x = 200, .y = 200, .log = &log});
  HostWindow other({.x = 600, .y = 200});
  MoveTo(At(host, 20, 20));
  log.Clear();
  log.Only({WM_MOUSELEAVE});
  TRACKMOUSEEVENT track = {};
  track.cbSize = sizeof track;
  track.dwFlags = TME_LEAVE;
  track.hwndTrack = host;
  EXPECT_TRUE(TrackMouseEvent(&track));
  MoveTo(At(host, 30, 20));
  EXPECT_LOG(log, "");
  MoveTo(At(other, 30, 20));
  PumpUntil([&] { return !log.Text().empty(); });
  EXPECT_LOG(log, "host WM_MOUSELEAVE");
  MoveTo(At(host, 30, 20));
  MoveTo(At(other, 30, 20));
  PumpFor(100);
  EXPECT_LOG(log, "");
}

TEST(Mouse, WheelBubblesToTheParent) {
  Recorder log;
  log.Only({WM_MOUSEWHEEL});
  HostWindow host({.log = &log});
  HostWindow child(Child(host, &log, "child"));
  SetFocus(child);
  Wheel(At(child, 10, 10), 1);
  EXPECT_LOG(log, "child WM_MOUSEWHEEL 120\nhost WM_MOUSEWHEEL 120");
}

TEST(Mouse, SetCursorAsksTheParentFirst) {
  Recorder log;
  log.Only({WM_SETCURSOR});
  HostWindow host({.log = &log});
  HostWindow child(Child(host, &log, "child"));
  MoveTo(At(host, 5, 5));
  log.Clear();
  MoveTo(At(child, 10, 10));
  EXPECT_LOG(log, "child WM_SETCURSOR\nhost WM_SETCURSOR");
}

TEST(Mouse, TheClassCursorIsSet) {
  HostWindow host;
  SetCursor(nullptr);
  MoveTo(At(host, 10, 10));
  EXPECT_EQ(LoadCursorW(nullptr, IDC_ARROW), GetCursor());
}

TEST(Mouse, ClicksActivateFirst) {
  Recorder log;
  HostWindow first({.x = 100, .log = &log, .name = "first"});
  HostWindow second({.x = 500, .log = &log, .name = "second"});
  Pump();
  log.Clear();
  log.Only({WM_MOUSEACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_LBUTTONDOWN});
  Click(At(first, 10, 10));
  EXPECT_LOG(log, R"(
      first WM_MOUSEACTIVATE 1 WM_LBUTTONDOWN
      second WM_ACTIVATE 0
      first WM_ACTIVATE 2
      second WM_KILLFOCUS
      first WM_SETFOCUS
      first WM_LBUTTONDOWN 10,10 L)");
}

TEST(Mouse, AChildAsksItsParentAboutActivation) {
  Recorder log;
  HostWindow host({.log = &log});
  HostWindow child(Child(host, &log, "child"));
  Pump();
  log.Clear();
  log.Only({WM_MOUSEACTIVATE, WM_LBUTTONDOWN});
  Click(At(child, 10, 10));
  EXPECT_LOG(log, R"(
      child WM_MOUSEACTIVATE 1 WM_LBUTTONDOWN
      host WM_MOUSEACTIVATE 1 WM_LBUTTONDOWN
      child WM_LBUTTONDOWN 10,10 L)");
}

TEST(Mouse, ActivationMayBeRefusedOrEaten) {
  LRESULT answer = MA_NOACTIVATE;
  Recorder log;
  HostWindow quiet({.x = 100,
                    .handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                      if (message == WM_MOUSEACTIVATE) return answer;
                      return std::nullopt;
                    },
                    .log = &log});
  HostWindow active({.x = 500});
  log.Clear();
  log.Only({WM_LBUTTONDOWN, WM_ACTIVATE});
  Click(At(quiet, 10, 10));
  EXPECT_LOG(log, "host WM_LBUTTONDOWN 10,10 L");
  EXPECT_EQ(active.Handle(), GetActiveWindow());
  answer = MA_NOACTIVATEANDEAT;
  Click(At(quiet, 40, 10));
  EXPECT_LOG(log, "");
}

TEST(Mouse, ParentHearsOfClicksOnItsChildren) {
  Recorder log;
  HostWindow host({.log = &log});
  HostWindow child(Child(host, &log, "child"));
  log.Clear();
  log.Only({WM_PARENTNOTIFY, WM_LBUTTONDOWN});
  Click(At(child, 10, 10));
  EXPECT_LOG(log, "host WM_PARENTNOTIFY WM_LBUTTONDOWN\nchild WM_LBUTTONDOWN 10,10 L");
}

TEST(Mouse, ContextMenuFollowsTheRightButton) {
  Recorder log;
  HostWindow host({.x = 200, .y = 100, .log = &log});
  HostWindow child(Child(host, &log, "child"));
  Pump();
  log.Clear();
  log.Only({WM_RBUTTONUP, WM_CONTEXTMENU});
  Click(At(child, 5, 6), Button::Right);
  EXPECT_LOG(log, R"(
      child WM_RBUTTONUP 5,6
      child WM_CONTEXTMENU 215,116
      host WM_CONTEXTMENU 215,116)");
}

TEST(Mouse, ContextMenuOfTheKeyboardHasNoPlace) {
  Recorder log;
  HostWindow host({.log = &log});
  SetFocus(host);
  log.Clear();
  log.Only({WM_CONTEXTMENU});
  Key(VK_APPS);
  EXPECT_LOG(log, "host WM_CONTEXTMENU -1,-1");
}

TEST(Mouse, AsyncStateKnowsButtons) {
  HostWindow host;
  Press(At(host, 10, 10));
  EXPECT_LT(GetAsyncKeyState(VK_LBUTTON), 0);
  EXPECT_LT(GetKeyState(VK_LBUTTON), 0);
  Release(At(host, 10, 10));
  EXPECT_GE(GetAsyncKeyState(VK_LBUTTON), 0);
}

TEST(Mouse, MessagePositionIsWhereItHappened) {
  DWORD position = 0;
  HostWindow host({.handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_LBUTTONDOWN) position = GetMessagePos();
    return std::nullopt;
  }});
  Click(At(host, 33, 44));
  EXPECT_EQ(133, LOWORD(position));
  EXPECT_EQ(144, HIWORD(position));
}
