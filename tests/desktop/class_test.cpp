#include <windows.h>

#include <gtest/gtest.h>

TEST(Class, UnknownNameGivesNoWindow) {
  EXPECT_EQ(nullptr, CreateWindowExW(0, L"no such class", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                     GetModuleHandleW(nullptr), nullptr));
  EXPECT_EQ(static_cast<DWORD>(ERROR_CANNOT_FIND_WND_CLASS), GetLastError());
}
