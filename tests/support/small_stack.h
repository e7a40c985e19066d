// Work on a stack too small for what recurses with its input.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>

namespace support {

inline constexpr SIZE_T kSmallStack = 1024 * 1024;  // bytes

// Runs work to its end on a thread with a small stack. A recursion as deep as a large input is overflows it
// and ends the program.
inline void RunOnSmallStack(std::function<void()> work) {
  const LPTHREAD_START_ROUTINE run = [](LPVOID param) -> DWORD {
    (*static_cast<std::function<void()>*>(param))();
    return 7;
  };
  HANDLE thread =
      ::CreateThread(nullptr, kSmallStack, run, &work, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  ASSERT_NE(thread, nullptr);
  ::WaitForSingleObject(thread, INFINITE);
  DWORD code = 0;
  ::GetExitCodeThread(thread, &code);
  EXPECT_EQ(code, 7u);
  ::CloseHandle(thread);
}

// Deep and wide enough, and still done in seconds where every step is watched.
#ifdef VORN_SANITIZERS
inline constexpr int kManyItems = 200000;
#else
inline constexpr int kManyItems = 1000000;
#endif

}  // namespace support
