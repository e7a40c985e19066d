// Timers. Nothing here depends on how long anything takes.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"

using namespace support;

TEST(Timer, RepeatsUntilKilled) {
  int count = 0;
  HostWindow host(
      {.style = WS_POPUP,
       .handler = [&](HWND window, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
         if (message != WM_TIMER) return std::nullopt;
         EXPECT_EQ(5u, wParam);
         if (++count == 3) KillTimer(window, 5);
         return 0;
       }});
  EXPECT_EQ(5u, SetTimer(host, 5, 15, nullptr));
  EXPECT_TRUE(PumpUntil([&] { return count == 3; }));
  PumpFor(60);
  EXPECT_EQ(3, count);
}

TEST(Timer, ShorterOnesComeFirst) {
  Recorder log;
  log.Only({WM_TIMER});
  HostWindow host({.style = WS_POPUP,
                   .handler = [](HWND window, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
                     if (message != WM_TIMER) return std::nullopt;
                     KillTimer(window, wParam);
                     return 0;
                   },
                   .log = &log});
  SetTimer(host, 1, 150, nullptr);
  SetTimer(host, 2, 30, nullptr);
  PumpFor(300);
  EXPECT_LOG(log, "host WM_TIMER 2\nhost WM_TIMER 1");
}

TEST(Timer, SettingAgainReplaces) {
  int count = 0;
  HostWindow host(
      {.style = WS_POPUP,
       .handler = [&](HWND window, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
         if (message != WM_TIMER) return std::nullopt;
         ++count;
         KillTimer(window, wParam);
         return 0;
       }});
  SetTimer(host, 1, 10, nullptr);
  SetTimer(host, 1, 40, nullptr);
  PumpFor(200);
  EXPECT_EQ(1, count);
  EXPECT_FALSE(KillTimer(host, 1));
}

TEST(Timer, KillingTellsWhetherItWasThere) {
  HostWindow host({.style = WS_POPUP});
  SetTimer(host, 1, 1000, nullptr);
  EXPECT_TRUE(KillTimer(host, 1));
  EXPECT_FALSE(KillTimer(host, 1));
  EXPECT_FALSE(KillTimer(host, 2));
}

TEST(Timer, CallbackTakesTheMessagesPlace) {
  static UINT_PTR seen;
  static HWND seenWindow;
  seen = 0;
  Recorder log;
  log.Only({WM_TIMER});
  HostWindow host({.style = WS_POPUP, .log = &log});
  SetTimer(host, 9, 10, [](HWND window, UINT message, UINT_PTR id, DWORD) {
    EXPECT_EQ(static_cast<UINT>(WM_TIMER), message);
    seen = id;
    seenWindow = window;
    KillTimer(window, id);
  });
  EXPECT_TRUE(PumpUntil([] { return seen != 0; }));
  EXPECT_EQ(9u, seen);
  EXPECT_EQ(host.Handle(), seenWindow);
  EXPECT_LOG(log, "");
}

TEST(Timer, ThreadTimersGetAnIdOfTheirOwn) {
  static int count;
  count = 0;
  const UINT_PTR id = SetTimer(nullptr, 0, 10, [](HWND window, UINT, UINT_PTR timer, DWORD) {
    EXPECT_EQ(nullptr, window);
    ++count;
    KillTimer(nullptr, timer);
  });
  EXPECT_NE(0u, id);
  EXPECT_TRUE(PumpUntil([] { return count == 1; }));
  EXPECT_FALSE(KillTimer(nullptr, id));
}

TEST(Timer, ItsMessagesDoNotPileUp) {
  int count = 0;
  HostWindow host(
      {.style = WS_POPUP, .handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
         if (message != WM_TIMER) return std::nullopt;
         ++count;
         return 0;
       }});
  SetTimer(host, 1, 50, nullptr);
  Sleep(330);
  Pump();
  EXPECT_EQ(1, count);
  KillTimer(host, 1);
}

TEST(Timer, GoesWithItsWindow) {
  HostWindow host({.style = WS_POPUP});
  SetTimer(host, 1, 10, nullptr);
  host.Destroy();
  Sleep(40);
  MSG message = {};
  EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
}

TEST(Timer, PostedMessagesComeBefore) {
  HostWindow host({.style = WS_POPUP});
  SetTimer(host, 1, 10, nullptr);
  Sleep(40);
  PostMessageW(host, WM_USER, 0, 0);
  MSG message = {};
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(static_cast<UINT>(WM_USER), message.message);
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(static_cast<UINT>(WM_TIMER), message.message);
  KillTimer(host, 1);
}

TEST(Timer, GetMessageWaitsForIt) {
  HostWindow host({.style = WS_POPUP});
  Pump();
  SetTimer(host, 77, 30, nullptr);
  MSG message = {};
  EXPECT_TRUE(GetMessageW(&message, host, WM_TIMER, WM_TIMER));
  EXPECT_EQ(77u, message.wParam);
  KillTimer(host, 77);
}

TEST(Timer, SleepPassesTime) {
  const DWORD before = GetTickCount();
  Sleep(50);
  EXPECT_GE(GetTickCount() - before, 30u);
}
