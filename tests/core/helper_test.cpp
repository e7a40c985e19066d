// The free helpers.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "VornComCtl.h"
#include "support/driver.h"
#include "support/host_window.h"

namespace {

// ---- VornStrCmp --------------------------------------------------------------------------------------

TEST(VornStrCmpTest, OrdersWithoutLetterCase) {
  EXPECT_EQ(VornStrCmp(L"B", L"a"), 1);
  EXPECT_EQ(VornStrCmp(L"a", L"B"), -1);
  EXPECT_EQ(VornStrCmp(L"abc", L"ABD"), -1);
  EXPECT_EQ(VornStrCmp(L"ABD", L"abc"), 1);
}

TEST(VornStrCmpTest, NeverSaysEqual) {
  EXPECT_EQ(VornStrCmp(L"same", L"same"), -1);
  EXPECT_EQ(VornStrCmp(L"same", L"SAME"), -1);
}

TEST(VornStrCmpTest, ABeginningGivesMinusOneInBothOrders) {
  EXPECT_EQ(VornStrCmp(L"rap", L"Rapport"), -1);
  EXPECT_EQ(VornStrCmp(L"Rapport", L"rap"), -1);
}

TEST(VornStrCmpTest, AnEmptyTextGivesMinusOneInBothOrders) {
  EXPECT_EQ(VornStrCmp(L"", L"z"), -1);
  EXPECT_EQ(VornStrCmp(L"z", L""), -1);
  EXPECT_EQ(VornStrCmp(L"", L""), -1);
  EXPECT_EQ(VornStrCmp(nullptr, L"z"), -1);
  EXPECT_EQ(VornStrCmp(L"z", nullptr), -1);
}

TEST(VornStrCmpTest, Digits) {
  EXPECT_EQ(VornStrCmp(L"item2", L"item3"), -1);
  EXPECT_EQ(VornStrCmp(L"item3", L"item2"), 1);
  EXPECT_EQ(VornStrCmp(L"item10", L"item2"), -1) << "digit by digit, not by number";
  EXPECT_EQ(VornStrCmp(L"item9", L"itema"), -1);
}

TEST(VornStrCmpTest, WideLettersMatchOnlyThemselves) {
  const wchar_t upper[] = {0x0416, 'b', 0};  // Cyrillic zhe
  const wchar_t lower[] = {0x0436, 'a', 0};
  EXPECT_EQ(VornStrCmp(upper, lower), -1);
  EXPECT_EQ(VornStrCmp(lower, upper), 1);
  EXPECT_EQ(VornStrCmp(upper, upper), -1);
}

TEST(VornStrCmpTest, LettersBetweenTheCasesCompareAsLowerCase) {
  EXPECT_EQ(VornStrCmp(L"Z", L"_"), 1);  // '_' lies between 'Z' and 'a'
  EXPECT_EQ(VornStrCmp(L"_", L"Z"), -1);
}

// ---- Keys and windows --------------------------------------------------------------------------------

TEST(IsKeyPressTest, TellsOfKeysThatAreDownNow) {
  support::HostWindow host;
  EXPECT_EQ(IsKeyPress(VK_SHIFT), 0);
  support::KeyDown(VK_SHIFT);
  EXPECT_NE(IsKeyPress(VK_SHIFT), 0);
  support::KeyUp(VK_SHIFT);
  EXPECT_EQ(IsKeyPress(VK_SHIFT), 0) << "a press in the past does not count";
  EXPECT_EQ(IsKeyPress(0), 0);
}

TEST(VornIsTreeCtrlWindowTest, OnlyTheExactClassName) {
  ASSERT_NE(AfxInitVornComCtl(), 0);
  const HINSTANCE library = ::GetModuleHandleW(L"VornComCtl");
  const struct {
    const wchar_t* name;
    bool isTree;
  } cases[] = {
      {L"VornLibrary::VornTreeCtrl", true},
      {L"VornLibrary::VornTreeCtrlEx", false},
      {L"VornLibrary::VornTree", false},
      {L"VornLibrary::VornBar", false},
  };
  for (const auto& one : cases) {
    ASSERT_NE(AfxVornRegisterClass(0, one.name), 0);
    const HWND window =
        ::CreateWindowExW(0, one.name, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, library, nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(VornIsTreeCtrlWindow(window) != 0, one.isTree);
    ::DestroyWindow(window);
    EXPECT_EQ(VornIsTreeCtrlWindow(window), 0) << "a window that is gone";
  }
  for (const HINSTANCE owner : {library, AfxGetInstanceHandle()}) {
    ::UnregisterClassW(L"VornLibrary::VornTreeCtrlEx", owner);
    ::UnregisterClassW(L"VornLibrary::VornTree", owner);
  }
  EXPECT_EQ(VornIsTreeCtrlWindow(nullptr), 0);
}

// Window classes are known without letter case, and the spelling of the registration is what counts.
TEST(VornIsTreeCtrlWindowTest, CaseMatters) {
  const HINSTANCE owner = ::GetModuleHandleW(L"VornFramework");  // one that has no such class yet
  WNDCLASSW info{};
  info.lpfnWndProc = ::DefWindowProcW;
  info.hInstance = owner;
  info.lpszClassName = L"vornlibrary::vorntreectrl";
  ASSERT_NE(::RegisterClassW(&info), 0);
  const HWND window =
      ::CreateWindowExW(0, info.lpszClassName, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, owner, nullptr);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(VornIsTreeCtrlWindow(window), 0);
  ::DestroyWindow(window);
  ::UnregisterClassW(info.lpszClassName, owner);
}

TEST(VornIsApplicationActiveTest, ComparesTopLevelAncestors) {
  support::HostWindow first({.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
  support::HostWindow child({.style = WS_CHILD | WS_VISIBLE, .cx = 50, .cy = 50, .parent = first});
  support::HostWindow second({.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
  const CWnd* const firstWnd = CWnd::FromHandle(first);
  const CWnd* const childWnd = CWnd::FromHandle(child);
  const CWnd* const secondWnd = CWnd::FromHandle(second);

  ::SetActiveWindow(first);
  EXPECT_NE(VornIsApplicationActive(firstWnd), 0);
  EXPECT_NE(VornIsApplicationActive(childWnd), 0);
  EXPECT_EQ(VornIsApplicationActive(secondWnd), 0);

  ::SetActiveWindow(second);
  EXPECT_EQ(VornIsApplicationActive(firstWnd), 0);
  EXPECT_EQ(VornIsApplicationActive(childWnd), 0);
  EXPECT_NE(VornIsApplicationActive(secondWnd), 0);
}

TEST(VornIsApplicationActiveTest, NothingIsActiveForNothing) {
  EXPECT_EQ(VornIsApplicationActive(nullptr), 0);
  CWnd none;
  support::HostWindow host({.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
  ::SetActiveWindow(host);
  EXPECT_EQ(VornIsApplicationActive(nullptr), 0);
  EXPECT_EQ(VornIsApplicationActive(&none), 0);
}

TEST(VornIsApplicationActiveTest, WithoutAnActiveWindowNothingIs) {
  support::HostWindow host({.style = WS_POPUP});  // not shown, so not active
  ASSERT_EQ(::GetActiveWindow(), nullptr);
  EXPECT_EQ(VornIsApplicationActive(CWnd::FromHandle(host)), 0);
}

TEST(VornWindowGetWorkingAreaTest, IsTheWholeVirtualDesktop) {
  RECT area{1, 2, 3, 4};
  EXPECT_EQ(VornWindowGetWorkingArea(&area), 1);
  EXPECT_EQ(area.left, ::GetSystemMetrics(SM_XVIRTUALSCREEN));
  EXPECT_EQ(area.top, ::GetSystemMetrics(SM_YVIRTUALSCREEN));
  EXPECT_EQ(area.right - area.left, ::GetSystemMetrics(SM_CXVIRTUALSCREEN));
  EXPECT_EQ(area.bottom - area.top, ::GetSystemMetrics(SM_CYVIRTUALSCREEN));
  EXPECT_GT(area.right, area.left);
  EXPECT_GT(area.bottom, area.top);
  EXPECT_EQ(VornWindowGetWorkingArea(nullptr), 0);
}

}  // namespace
