// The caret, and what a thread's interface looks like from outside.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/text.h"

using namespace support;

TEST(Caret, HasAPlace) {
  HostWindow host;
  ASSERT_TRUE(CreateCaret(host, nullptr, 2, 10));
  EXPECT_TRUE(SetCaretPos(12, 34));
  POINT p = {};
  EXPECT_TRUE(GetCaretPos(&p));
  EXPECT_EQ("12,34", Text(p));
  EXPECT_TRUE(DestroyCaret());
}

TEST(Caret, HidingNests) {
  HostWindow host;
  CreateCaret(host, nullptr, 2, 10);
  EXPECT_TRUE(ShowCaret(host));
  EXPECT_TRUE(HideCaret(host));
  EXPECT_TRUE(HideCaret(host));
  EXPECT_TRUE(ShowCaret(host));
  EXPECT_TRUE(ShowCaret(host));
  DestroyCaret();
  EXPECT_FALSE(HideCaret(host));
}

TEST(Caret, IsOneForTheThread) {
  HostWindow first;
  HostWindow second({.x = 500});
  CreateCaret(first, nullptr, 1, 10);
  CreateCaret(second, nullptr, 1, 10);
  EXPECT_FALSE(HideCaret(first));
  EXPECT_TRUE(HideCaret(second));
  DestroyCaret();
}

TEST(Caret, GoesWithItsWindow) {
  HostWindow host;
  CreateCaret(host, nullptr, 1, 10);
  host.Destroy();
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  ASSERT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &info));
  EXPECT_EQ(nullptr, info.hwndCaret);
}

TEST(ThreadInfo, TellsFocusCaptureAndCaret) {
  HostWindow host;
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .x = 5, .y = 5, .cx = 50, .cy = 30, .parent = host});
  SetFocus(child);
  SetCapture(child);
  CreateCaret(child, nullptr, 2, 10);
  SetCaretPos(3, 4);
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  ASSERT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &info));
  EXPECT_EQ(host.Handle(), info.hwndActive);
  EXPECT_EQ(child.Handle(), info.hwndFocus);
  EXPECT_EQ(child.Handle(), info.hwndCapture);
  EXPECT_EQ(child.Handle(), info.hwndCaret);
  EXPECT_EQ("3,4,5,14", Text(info.rcCaret));
  ReleaseCapture();
  DestroyCaret();
}

TEST(ThreadInfo, KnowsWhoseWindowItIs) {
  HostWindow host({.style = WS_POPUP});
  DWORD process = 0;
  EXPECT_EQ(GetCurrentThreadId(), GetWindowThreadProcessId(host, &process));
  EXPECT_EQ(GetCurrentProcessId(), process);
  EXPECT_EQ(0u, GetWindowThreadProcessId(nullptr, nullptr));
}

TEST(CursorClip, KeepsTheCursorInside) {
  const RECT area = {100, 100, 200, 150};
  ASSERT_TRUE(ClipCursor(&area));
  SetCursorPos(500, 120);
  POINT p = {};
  GetCursorPos(&p);
  EXPECT_EQ("199,120", Text(p));
  EXPECT_TRUE(ClipCursor(nullptr));
  SetCursorPos(500, 120);
  GetCursorPos(&p);
  EXPECT_EQ("500,120", Text(p));
}

TEST(CursorShape, SettingGivesTheOldOne) {
  const HCURSOR cross = LoadCursorW(nullptr, IDC_CROSS);
  const HCURSOR wait = LoadCursorW(nullptr, IDC_WAIT);
  SetCursor(cross);
  EXPECT_EQ(cross, GetCursor());
  EXPECT_EQ(cross, SetCursor(wait));
  SetCursor(cross);
}

TEST(CursorShape, ShowCountsUpAndDown) {
  const int level = ShowCursor(TRUE);
  EXPECT_EQ(level - 1, ShowCursor(FALSE));
  EXPECT_EQ(level - 2, ShowCursor(FALSE));
  EXPECT_EQ(level - 1, ShowCursor(TRUE));
}
