// Window classes.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/host_window.h"

using namespace support;

namespace {

const HINSTANCE kModule = GetModuleHandleW(nullptr);

// A class for the length of a test.
class TestClass {
 public:
  explicit TestClass(const wchar_t* name, UINT style = 0, int extra = 0) : m_name(name) {
    WNDCLASSW type = {};
    type.lpfnWndProc = DefWindowProcW;
    type.style = style;
    type.hInstance = kModule;
    type.cbWndExtra = extra;
    type.cbClsExtra = 16;
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    type.lpszClassName = name;
    atom = RegisterClassW(&type);
  }
  ~TestClass() { UnregisterClassW(m_name, kModule); }

  ATOM atom;

 private:
  const wchar_t* m_name;
};

HWND Make(const wchar_t* type) {
  return CreateWindowExW(0, type, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, kModule, nullptr);
}

}  // namespace

TEST(Class, UnknownNameGivesNoWindow) { EXPECT_EQ(nullptr, Make(L"no such class")); }

TEST(Class, RegisteringTwiceFails) {
  TestClass first(L"vorn-class-a");
  EXPECT_NE(0, first.atom);
  WNDCLASSW again = {};
  again.lpfnWndProc = DefWindowProcW;
  again.hInstance = kModule;
  again.lpszClassName = L"VORN-class-A";
  EXPECT_EQ(0, RegisterClassW(&again));
  EXPECT_EQ(static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS), GetLastError());
}

TEST(Class, NamesAreFoundWithoutCaseAndByAtom) {
  TestClass type(L"vorn-class-b");
  const HWND byName = Make(L"Vorn-CLASS-b");
  ASSERT_NE(nullptr, byName);
  const HWND byAtom = Make(MAKEINTRESOURCEW(type.atom));
  ASSERT_NE(nullptr, byAtom);
  wchar_t name[64];
  EXPECT_EQ(12, GetClassNameW(byAtom, name, 64));
  EXPECT_STREQ(L"vorn-class-b", name);
  EXPECT_EQ(type.atom, GetClassLongPtrW(byName, GCW_ATOM));
  DestroyWindow(byName);
  DestroyWindow(byAtom);
}

TEST(Class, CannotBeUnregisteredWhileAWindowLives) {
  TestClass type(L"vorn-class-c");
  const HWND window = Make(L"vorn-class-c");
  EXPECT_FALSE(UnregisterClassW(L"vorn-class-c", kModule));
  EXPECT_EQ(static_cast<DWORD>(ERROR_CLASS_HAS_WINDOWS), GetLastError());
  DestroyWindow(window);
  EXPECT_TRUE(UnregisterClassW(L"vorn-class-c", kModule));
  EXPECT_FALSE(UnregisterClassW(L"vorn-class-c", kModule));
  EXPECT_EQ(static_cast<DWORD>(ERROR_CLASS_DOES_NOT_EXIST), GetLastError());
}

TEST(Class, InfoGivesBackWhatWasRegistered) {
  TestClass type(L"vorn-class-d", CS_DBLCLKS | CS_HREDRAW, 24);
  WNDCLASSW info = {};
  ASSERT_TRUE(GetClassInfoW(kModule, L"VORN-CLASS-D", &info));
  EXPECT_EQ(static_cast<UINT>(CS_DBLCLKS | CS_HREDRAW), info.style);
  EXPECT_EQ(24, info.cbWndExtra);
  EXPECT_EQ(reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1), info.hbrBackground);
  EXPECT_FALSE(GetClassInfoW(kModule, L"vorn-class-none", &info));
}

TEST(Class, SystemClassesAreKnownToAllModules) {
  WNDCLASSW info = {};
  EXPECT_TRUE(GetClassInfoW(nullptr, L"EDIT", &info));
  EXPECT_TRUE(GetClassInfoW(nullptr, L"Button", &info));
  EXPECT_TRUE(GetClassInfoW(nullptr, L"static", &info));
  EXPECT_TRUE(GetClassInfoW(nullptr, L"ListBox", &info));
}

TEST(Class, WindowExtraBytesStartAtZeroAndKeepValues) {
  TestClass type(L"vorn-class-e", 0, 16);
  const HWND window = Make(L"vorn-class-e");
  EXPECT_EQ(0, GetWindowLongPtrW(window, 8));
  EXPECT_EQ(0, SetWindowLongPtrW(window, 8, 0x123456789AB));
  EXPECT_EQ(0x123456789AB, SetWindowLongPtrW(window, 8, 5));
  EXPECT_EQ(5, GetWindowLongPtrW(window, 8));
  EXPECT_EQ(0, GetWindowLongPtrW(window, 0));
  DestroyWindow(window);
}

TEST(Class, AnIndexBeyondTheExtraBytesFails) {
  TestClass type(L"vorn-class-f", 0, 8);
  const HWND window = Make(L"vorn-class-f");
  SetLastError(0);
  EXPECT_EQ(0, GetWindowLongPtrW(window, 8));
  EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_INDEX), GetLastError());
  DestroyWindow(window);
}

TEST(Class, ClassLongsAreSharedByItsWindows) {
  TestClass type(L"vorn-class-g");
  const HWND first = Make(L"vorn-class-g");
  const HWND second = Make(L"vorn-class-g");
  const HCURSOR cursor = LoadCursorW(nullptr, IDC_CROSS);
  SetClassLongPtrW(first, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(cursor));
  EXPECT_EQ(reinterpret_cast<ULONG_PTR>(cursor), GetClassLongPtrW(second, GCLP_HCURSOR));
  EXPECT_EQ(16u, GetClassLongPtrW(second, GCL_CBCLSEXTRA));
  DestroyWindow(first);
  DestroyWindow(second);
}

TEST(Class, ClassNameIsCutToTheBuffer) {
  TestClass type(L"vorn-class-h");
  const HWND window = Make(L"vorn-class-h");
  wchar_t name[5] = L"....";
  EXPECT_EQ(4, GetClassNameW(window, name, 5));
  EXPECT_STREQ(L"vorn", name);
  DestroyWindow(window);
}

TEST(Class, ASubclassedProcedureIsCalledUntilRestored) {
  static int calls;
  calls = 0;
  HostWindow host;
  const auto mine = +[](HWND w, UINT m, WPARAM wp, LPARAM lp) -> LRESULT {
    if (m == WM_USER) return ++calls;
    return DefWindowProcW(w, m, wp, lp);
  };
  const LONG_PTR old = SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(mine));
  EXPECT_EQ(1, SendMessageW(host, WM_USER, 0, 0));
  SetWindowLongPtrW(host, GWLP_WNDPROC, old);
  EXPECT_EQ(0, SendMessageW(host, WM_USER, 0, 0));
  EXPECT_EQ(1, calls);
}
