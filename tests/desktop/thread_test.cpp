// Messages between threads.
#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/process.h"

using namespace support;

namespace {

// A thread with a window and a message loop, ended by WM_QUIT.
class WindowThread {
 public:
  explicit WindowThread(Handler handler) {
    std::atomic<HWND> made{nullptr};
    m_thread = std::thread([&made, handler] {
      PrepareThread();
      HostWindow host({.style = WS_POPUP, .handler = handler});
      made = host.Handle();
      MSG message;
      while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    });
    while (!made) std::this_thread::yield();
    window = made;
  }

  ~WindowThread() {
    PostThreadMessageW(GetWindowThreadProcessId(window, nullptr), WM_QUIT, 0, 0);
    // The thread may send messages to this one while it ends.
    while (IsWindow(window)) Pump();
    m_thread.join();
  }

  HWND window;

 private:
  std::thread m_thread;
};

}  // namespace

TEST(Thread, SentMessagesRunOnTheWindowsThread) {
  WindowThread other([](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_USER) return static_cast<LRESULT>(GetCurrentThreadId() + wParam);
    return std::nullopt;
  });
  const DWORD thread = GetWindowThreadProcessId(other.window, nullptr);
  EXPECT_NE(GetCurrentThreadId(), thread);
  EXPECT_EQ(static_cast<LRESULT>(thread + 5), SendMessageW(other.window, WM_USER, 5, 0));
}

TEST(Thread, PostedMessagesArriveInOrder) {
  std::atomic<int> last{0};
  std::atomic<bool> ordered{true};
  WindowThread other([&](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
    if (message != WM_USER) return std::nullopt;
    if (static_cast<int>(wParam) != last + 1) ordered = false;
    last = static_cast<int>(wParam);
    return 0;
  });
  for (int i = 1; i <= 100; ++i) PostMessageW(other.window, WM_USER, i, 0);
  SendMessageW(other.window, WM_NULL, 0, 0);
  while (last < 100) std::this_thread::yield();
  EXPECT_TRUE(ordered);
}

TEST(Thread, AWaitingSenderStillReceives) {
  int answered = 0;
  HostWindow mine({.style = WS_POPUP,
                   .handler = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
                     if (message != WM_USER + 1) return std::nullopt;
                     ++answered;
                     return static_cast<LRESULT>(wParam * 2);
                   }});
  const HWND back = mine;
  WindowThread other([back](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
    if (message != WM_USER) return std::nullopt;
    return SendMessageW(back, WM_USER + 1, wParam, 0) + 1;
  });
  EXPECT_EQ(21, SendMessageW(other.window, WM_USER, 10, 0));
  EXPECT_EQ(1, answered);
}

TEST(Thread, InSendMessageIsTrueOnlyAcrossThreads) {
  const Handler handler = [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_USER) return InSendMessage() ? 1 : 2;
    return std::nullopt;
  };
  WindowThread other(handler);
  HostWindow mine({.style = WS_POPUP, .handler = handler});
  EXPECT_EQ(1, SendMessageW(other.window, WM_USER, 0, 0));
  EXPECT_EQ(2, SendMessageW(mine, WM_USER, 0, 0));
}

TEST(Thread, ReplyMessageFreesTheSender) {
  std::atomic<bool> finish{false};
  std::atomic<bool> done{false};
  WindowThread other([&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message != WM_USER) return std::nullopt;
    ReplyMessage(33);
    while (!finish) std::this_thread::yield();
    done = true;
    return 44;
  });
  EXPECT_EQ(33, SendMessageW(other.window, WM_USER, 0, 0));
  EXPECT_FALSE(done);
  finish = true;
}

TEST(Thread, WindowsDieWithTheirThread) {
  std::atomic<HWND> made{nullptr};
  std::thread([&] {
    PrepareThread();
    made = CreateWindowExW(0, HostWindow::ClassName(0, COLOR_WINDOW).c_str(), L"", WS_POPUP, 0, 0, 10, 10,
                           nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  }).join();
  EXPECT_TRUE(PumpUntil([&] { return !IsWindow(made); }));
}

TEST(Thread, DestroyingAnotherThreadsWindowIsRefused) {
  WindowThread other([](HWND, UINT, WPARAM, LPARAM) { return std::optional<LRESULT>(); });
  EXPECT_FALSE(DestroyWindow(other.window));
  EXPECT_EQ(static_cast<DWORD>(ERROR_ACCESS_DENIED), GetLastError());
  EXPECT_TRUE(IsWindow(other.window));
}

TEST(Thread, EachHasAFocusOfItsOwn) {
  HostWindow mine;
  SetFocus(mine);
  std::atomic<HWND> seen{mine.Handle()};
  std::thread([&] { seen = GetFocus(); }).join();
  EXPECT_EQ(nullptr, seen.load());
  EXPECT_EQ(mine.Handle(), GetFocus());
}

TEST(Thread, PostedFromManyThreadsAllArrive) {
  std::atomic<int> count{0};
  HostWindow mine(
      {.style = WS_POPUP, .handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
         if (message != WM_USER) return std::nullopt;
         ++count;
         return 0;
       }});
  const HWND window = mine;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([window] {
      for (int n = 0; n < 50; ++n) PostMessageW(window, WM_USER, n, 0);
    });
  }
  for (std::thread& thread : threads) thread.join();
  Pump();
  EXPECT_EQ(200, count);
}

TEST(Thread, SendWithTimeoutGivesTheResult) {
  WindowThread other([](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_USER) return 12;
    return std::nullopt;
  });
  DWORD_PTR result = 0;
  EXPECT_NE(0, SendMessageTimeoutW(other.window, WM_USER, 0, 0, SMTO_NORMAL, 5000, &result));
  EXPECT_EQ(12u, result);
}
