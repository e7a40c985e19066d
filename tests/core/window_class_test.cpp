// The library's window classes.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "VornComCtl.h"

namespace {

HINSTANCE Library() { return ::GetModuleHandleW(L"VornComCtl"); }

struct Known {
  const wchar_t* name;
  UINT style;
};
const Known kClasses[] = {
    {L"VornLibrary::VornTreeCtrl", 0x080B},
    {L"VornLibrary::VornBar", 0x0008},
    {L"VornLibrary::VornToolTip", 0x0840},
    {L"VornLibrary::VornReportWnd", 0x0008},
};

// Known to the library and to the program alike.
bool Exists(const wchar_t* name) {
  WNDCLASSW info{};
  const bool toLibrary = ::GetClassInfoW(Library(), name, &info) != FALSE;
  const bool toProgram = ::GetClassInfoW(AfxGetInstanceHandle(), name, &info) != FALSE;
  EXPECT_EQ(toLibrary, toProgram);
  return toLibrary && toProgram;
}

TEST(WindowClasses, StartUpRegistersFour) {
  EXPECT_NE(AfxInitVornComCtl(), 0);
  const HINSTANCE owners[] = {Library(), AfxGetInstanceHandle()};
  for (int i = 0; i < 8; ++i) {
    const Known& known = kClasses[i / 2];
    const HINSTANCE owner = owners[i % 2];
    SCOPED_TRACE(known.style);
    WNDCLASSW info{};
    ASSERT_TRUE(::GetClassInfoW(owner, known.name, &info));
    EXPECT_EQ(info.style, known.style);
    EXPECT_EQ(info.cbClsExtra, 0);
    EXPECT_EQ(info.cbWndExtra, 0);
    EXPECT_EQ(info.hInstance, owner);
    EXPECT_EQ(info.hIcon, nullptr);
    EXPECT_EQ(info.hCursor, ::LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(info.hbrBackground, ::GetSysColorBrush(COLOR_BTNFACE));
    EXPECT_EQ(info.lpszMenuName, nullptr);
  }
  EXPECT_FALSE(Exists(L"VornLibrary::VornTreeEdit"));
}

TEST(WindowClasses, AClassThatExistsIsSuccess) {
  EXPECT_NE(AfxInitVornComCtl(), 0);
  for (const Known& known : kClasses) EXPECT_EQ(AfxVornRegisterClass(0, known.name), 1);
  WNDCLASSW info{};
  ::GetClassInfoW(Library(), kClasses[0].name, &info);
  EXPECT_EQ(info.style, 0x080Bu) << "the first registration stays";
}

TEST(WindowClasses, AnyClassCanBeRegistered) {
  const wchar_t name[] = L"VornTests::Class";
  EXPECT_FALSE(Exists(name));
  EXPECT_NE(AfxVornRegisterClass(CS_DBLCLKS, name), 0);
  EXPECT_TRUE(Exists(name));
  const HWND window =
      ::CreateWindowExW(0, name, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, Library(), nullptr);
  EXPECT_NE(window, nullptr);
  EXPECT_EQ(::SendMessageW(window, WM_USER, 1, 2), 0);
  ::DestroyWindow(window);
  EXPECT_TRUE(::UnregisterClassW(name, Library()));
  EXPECT_TRUE(::UnregisterClassW(name, AfxGetInstanceHandle()));
}

TEST(WindowClasses, AClassWithoutANameIsRefused) {
  EXPECT_EQ(AfxVornRegisterClass(0, nullptr), 0);
  EXPECT_EQ(AfxVornRegisterClass(0, L""), 0);
}

TEST(WindowClasses, UnregisteringLeavesTheTreeControl) {
  AfxInitVornComCtl();
  EXPECT_NE(AfxVornUnregisterClasses(), 0);
  EXPECT_TRUE(Exists(L"VornLibrary::VornTreeCtrl"));
  EXPECT_FALSE(Exists(L"VornLibrary::VornBar"));
  EXPECT_FALSE(Exists(L"VornLibrary::VornToolTip"));
  EXPECT_FALSE(Exists(L"VornLibrary::VornReportWnd"));
  EXPECT_EQ(AfxVornUnregisterClasses(), 0) << "none is left";
  EXPECT_NE(AfxInitVornComCtl(), 0);
  EXPECT_TRUE(Exists(L"VornLibrary::VornBar"));
}

TEST(WindowClasses, UnregisteringTellsWhetherAnyWent) {
  AfxInitVornComCtl();
  for (const HINSTANCE owner : {Library(), AfxGetInstanceHandle()}) {
    ::UnregisterClassW(L"VornLibrary::VornToolTip", owner);
    ::UnregisterClassW(L"VornLibrary::VornBar", owner);
  }
  EXPECT_NE(AfxVornUnregisterClasses(), 0);
}

TEST(WindowClasses, AClassInUseStays) {
  AfxInitVornComCtl();
  const HWND window = ::CreateWindowExW(0, L"VornLibrary::VornBar", L"", WS_POPUP, 0, 0, 10, 10, nullptr,
                                        nullptr, Library(), nullptr);
  ASSERT_NE(window, nullptr);
  AfxVornUnregisterClasses();
  WNDCLASSW info{};
  EXPECT_TRUE(::GetClassInfoW(Library(), L"VornLibrary::VornBar", &info));
  ::DestroyWindow(window);
  AfxVornUnregisterClasses();
  EXPECT_FALSE(Exists(L"VornLibrary::VornBar"));
}

TEST(WindowClasses, TheFrameworkCreatesWindowsOfThem) {
  AfxInitVornComCtl();
  for (const Known& known : kClasses) {
    CWnd window;
    EXPECT_TRUE(window.CreateEx(0, known.name, L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    window.DestroyWindow();
  }
}

}  // namespace
