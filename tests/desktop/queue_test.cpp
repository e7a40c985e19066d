// The message queue: what comes first, what filters let through.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"

using namespace support;

namespace {

// The next message without taking anything else; 0 when there is none.
UINT Next(HWND window = nullptr, UINT first = 0, UINT last = 0) {
  MSG message = {};
  return PeekMessageW(&message, window, first, last, PM_REMOVE) ? message.message : 0;
}

}  // namespace

TEST(Queue, PostedMessagesKeepTheirOrder) {
  HostWindow host({.style = WS_POPUP});
  PostMessageW(host, WM_USER + 2, 0, 0);
  PostMessageW(host, WM_USER + 1, 0, 0);
  PostMessageW(nullptr, WM_USER + 3, 0, 0);
  EXPECT_EQ(WM_USER + 2u, Next());
  EXPECT_EQ(WM_USER + 1u, Next());
  EXPECT_EQ(WM_USER + 3u, Next());
  EXPECT_EQ(0u, Next());
}

TEST(Queue, SentMessagesAreNotQueued) {
  Recorder log;
  log.Only({WM_USER, WM_USER + 1});
  HostWindow host({.style = WS_POPUP,
                   .handler = [](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
                     if (message == WM_USER) return static_cast<LRESULT>(wParam) + lParam;
                     return std::nullopt;
                   },
                   .log = &log});
  PostMessageW(host, WM_USER + 1, 0, 0);
  EXPECT_EQ(7, SendMessageW(host, WM_USER, 3, 4));
  Pump();
  EXPECT_LOG(log, "host WM_USER+0 3 4\nhost WM_USER+1 0 0");
}

TEST(Queue, FilterByRange) {
  HostWindow host({.style = WS_POPUP});
  PostMessageW(host, WM_USER + 1, 0, 0);
  PostMessageW(host, WM_USER + 5, 0, 0);
  EXPECT_EQ(WM_USER + 5u, Next(nullptr, WM_USER + 2, WM_USER + 9));
  EXPECT_EQ(0u, Next(nullptr, WM_USER + 2, WM_USER + 9));
  EXPECT_EQ(WM_USER + 1u, Next());
}

TEST(Queue, FilterByWindowTakesItsChildrenToo) {
  HostWindow a({.style = WS_POPUP});
  HostWindow b({.style = WS_POPUP});
  HostWindow child({.style = WS_CHILD, .parent = b});
  PostMessageW(a, WM_USER + 1, 0, 0);
  PostMessageW(child, WM_USER + 2, 0, 0);
  EXPECT_EQ(WM_USER + 2u, Next(b));
  EXPECT_EQ(0u, Next(b));
  EXPECT_EQ(WM_USER + 1u, Next(a));
}

TEST(Queue, FilterForThreadMessages) {
  HostWindow host({.style = WS_POPUP});
  PostMessageW(host, WM_USER + 1, 0, 0);
  PostThreadMessageW(GetCurrentThreadId(), WM_USER + 2, 0, 0);
  EXPECT_EQ(WM_USER + 2u, Next(reinterpret_cast<HWND>(static_cast<INT_PTR>(-1))));
  EXPECT_EQ(WM_USER + 1u, Next());
}

TEST(Queue, PeekingMayLeaveTheMessage) {
  HostWindow host({.style = WS_POPUP});
  PostMessageW(host, WM_USER + 1, 7, 8);
  MSG message = {};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
  EXPECT_EQ(host.Handle(), message.hwnd);
  EXPECT_EQ(7u, message.wParam);
  EXPECT_EQ(8, message.lParam);
  EXPECT_EQ(WM_USER + 1u, Next());
  EXPECT_EQ(0u, Next());
}

TEST(Queue, QuitComesAfterPostedMessages) {
  HostWindow host({.style = WS_POPUP});
  PostQuitMessage(42);
  PostMessageW(host, WM_USER, 0, 0);
  EXPECT_EQ(static_cast<UINT>(WM_USER), Next());
  MSG message = {};
  EXPECT_EQ(0, GetMessageW(&message, nullptr, 0, 0));
  EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message);
  EXPECT_EQ(42u, message.wParam);
  EXPECT_EQ(0u, Next());
}

TEST(Queue, PaintComesLast) {
  HostWindow host;
  Pump();
  InvalidateRect(host, nullptr, TRUE);
  PostMessageW(host, WM_USER, 0, 0);
  EXPECT_EQ(static_cast<UINT>(WM_USER), Next());
  EXPECT_EQ(static_cast<UINT>(WM_PAINT), Next(host, WM_PAINT, WM_PAINT));
}

TEST(Queue, PaintStaysUntilValidated) {
  HostWindow host;
  Pump();
  InvalidateRect(host, nullptr, TRUE);
  EXPECT_EQ(static_cast<UINT>(WM_PAINT), Next(host, WM_PAINT, WM_PAINT));
  EXPECT_EQ(static_cast<UINT>(WM_PAINT), Next(host, WM_PAINT, WM_PAINT));
  ValidateRect(host, nullptr);
  EXPECT_EQ(0u, Next(host, WM_PAINT, WM_PAINT));
}

TEST(Queue, PostedMessagesOfADeadWindowAreGone) {
  HostWindow host({.style = WS_POPUP});
  PostMessageW(host, WM_USER, 0, 0);
  host.Destroy();
  EXPECT_EQ(0u, Next(nullptr, WM_USER, WM_USER));
}

TEST(Queue, DispatchCallsTheProcedureWithTheMessage) {
  Recorder log;
  log.Only({WM_USER});
  HostWindow host({.style = WS_POPUP, .log = &log});
  MSG message = {};
  message.hwnd = host;
  message.message = WM_USER;
  message.wParam = 5;
  message.lParam = 6;
  DispatchMessageW(&message);
  EXPECT_LOG(log, "host WM_USER+0 5 6");
}

TEST(Queue, RegisteredMessagesHaveOneNumberPerName) {
  const UINT first = RegisterWindowMessageW(L"vorn test message");
  EXPECT_GE(first, 0xC000u);
  EXPECT_EQ(first, RegisterWindowMessageW(L"vorn test message"));
  EXPECT_NE(first, RegisterWindowMessageW(L"vorn other message"));
}

TEST(Queue, StatusTellsWhatIsWaiting) {
  HostWindow host({.style = WS_POPUP});
  Pump();
  PostMessageW(host, WM_USER, 0, 0);
  EXPECT_NE(0u, HIWORD(GetQueueStatus(QS_POSTMESSAGE)) & QS_POSTMESSAGE);
  Next();
  EXPECT_EQ(0u, HIWORD(GetQueueStatus(QS_POSTMESSAGE)) & QS_POSTMESSAGE);
}

TEST(Queue, PostingToAnUnknownWindowFails) {
  EXPECT_FALSE(PostMessageW(reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7ffff0)), WM_USER, 0, 0));
  EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE), GetLastError());
}

TEST(Queue, WaitEndsWhenAMessageIsThere) {
  HostWindow host({.style = WS_POPUP});
  Pump();
  EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT));
  PostMessageW(host, WM_USER, 0, 0);
  EXPECT_EQ(static_cast<DWORD>(WAIT_OBJECT_0),
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 1000, QS_ALLINPUT));
}

TEST(Queue, BroadcastReachesTopLevelWindows) {
  Recorder log;
  const UINT message = RegisterWindowMessageW(L"vorn broadcast");
  log.Only({message});
  HostWindow top({.style = WS_POPUP, .log = &log, .name = "top"});
  HostWindow child({.style = WS_CHILD, .parent = top, .log = &log, .name = "child"});
  PostMessageW(HWND_BROADCAST, message, 0, 0);
  Pump();
  EXPECT_EQ(1u, SplitLines(log.Text()).size());
  log.Clear();
}
