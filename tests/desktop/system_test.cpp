// Clipboard, profile, registry, environment, memory, strings, metrics.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/host_window.h"

using namespace support;

namespace {

// A file name in the temporary directory, gone at the end of the test.
class TempFile {
 public:
  explicit TempFile(const wchar_t* name) {
    wchar_t directory[MAX_PATH];
    path = std::wstring(directory, GetTempPathW(MAX_PATH, directory)) + name;
    DeleteFileW(path.c_str());
  }
  ~TempFile() { DeleteFileW(path.c_str()); }

  std::wstring path;
};

std::wstring Read(const TempFile& file, const wchar_t* section, const wchar_t* key,
                  const wchar_t* fallback = L"none") {
  wchar_t text[128];
  const DWORD length = GetPrivateProfileStringW(section, key, fallback, text, 128, file.path.c_str());
  return std::wstring(text, length);
}

constexpr const wchar_t* kKey = L"Software\\VornConformance";

class Registry : public testing::Test {
 protected:
  Registry() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
    RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, &disposition);
  }
  ~Registry() override {
    RegCloseKey(key);
    RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
  }

  HKEY key = nullptr;
  DWORD disposition = 0;
};

}  // namespace

TEST(Clipboard, TextRoundTrip) {
  HostWindow host({.style = WS_POPUP});
  ASSERT_TRUE(OpenClipboard(host));
  EXPECT_EQ(host.Handle(), GetOpenClipboardWindow());
  EmptyClipboard();
  const wchar_t text[] = L"presse-papiers é";
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof text);
  std::memcpy(GlobalLock(memory), text, sizeof text);
  GlobalUnlock(memory);
  EXPECT_EQ(memory, SetClipboardData(CF_UNICODETEXT, memory));
  EXPECT_TRUE(CloseClipboard());
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  ASSERT_TRUE(OpenClipboard(host));
  const HANDLE data = GetClipboardData(CF_UNICODETEXT);
  EXPECT_STREQ(text, static_cast<const wchar_t*>(GlobalLock(data)));
  GlobalUnlock(data);
  EmptyClipboard();
  EXPECT_EQ(nullptr, GetClipboardData(CF_UNICODETEXT));
  CloseClipboard();
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
}

TEST(Clipboard, MustBeOpen) {
  EXPECT_FALSE(EmptyClipboard());
  EXPECT_EQ(nullptr, GetClipboardData(CF_UNICODETEXT));
  EXPECT_FALSE(CloseClipboard());
}

TEST(Clipboard, RegisteredFormatsHaveOneNumberPerName) {
  const UINT format = RegisterClipboardFormatW(L"Vorn format");
  EXPECT_GE(format, 0xC000u);
  EXPECT_EQ(format, RegisterClipboardFormatW(L"vorn FORMAT"));
}

TEST(Profile, WritesAndReads) {
  const TempFile file(L"vorn-profile-a.ini");
  EXPECT_EQ(L"none", Read(file, L"Section", L"Key"));
  EXPECT_TRUE(WritePrivateProfileStringW(L"Section", L"Key", L"value", file.path.c_str()));
  EXPECT_TRUE(WritePrivateProfileStringW(L"Other", L"Key", L"42", file.path.c_str()));
  EXPECT_EQ(L"value", Read(file, L"Section", L"Key"));
  EXPECT_EQ(L"value", Read(file, L"SECTION", L"kEY"));
  EXPECT_EQ(42u, GetPrivateProfileIntW(L"Other", L"Key", 7, file.path.c_str()));
  EXPECT_EQ(7u, GetPrivateProfileIntW(L"Other", L"None", 7, file.path.c_str()));
  EXPECT_EQ(0u, GetPrivateProfileIntW(L"Section", L"Key", 7, file.path.c_str()));
}

TEST(Profile, ReplacesAndDeletes) {
  const TempFile file(L"vorn-profile-b.ini");
  const wchar_t* path = file.path.c_str();
  WritePrivateProfileStringW(L"S", L"A", L"1", path);
  WritePrivateProfileStringW(L"S", L"B", L"2", path);
  WritePrivateProfileStringW(L"S", L"A", L"3", path);
  EXPECT_EQ(L"3", Read(file, L"S", L"A"));
  WritePrivateProfileStringW(L"S", L"A", nullptr, path);
  EXPECT_EQ(L"none", Read(file, L"S", L"A"));
  EXPECT_EQ(L"2", Read(file, L"S", L"B"));
  WritePrivateProfileStringW(L"S", nullptr, nullptr, path);
  EXPECT_EQ(L"none", Read(file, L"S", L"B"));
}

TEST(Profile, BlanksAndQuotesAreTakenOff) {
  const TempFile file(L"vorn-profile-c.ini");
  WritePrivateProfileStringW(L"S", L"A", L"  padded  ", file.path.c_str());
  EXPECT_EQ(L"padded", Read(file, L"S", L"A"));
  WritePrivateProfileStringW(L"S", L"B", L"\" quoted \"", file.path.c_str());
  EXPECT_EQ(L" quoted ", Read(file, L"S", L"B"));
}

TEST(Profile, ListsKeys) {
  const TempFile file(L"vorn-profile-d.ini");
  WritePrivateProfileStringW(L"S", L"One", L"1", file.path.c_str());
  WritePrivateProfileStringW(L"S", L"Two", L"2", file.path.c_str());
  wchar_t keys[32] = {};
  EXPECT_EQ(8u, GetPrivateProfileStringW(L"S", nullptr, L"", keys, 32, file.path.c_str()));
  EXPECT_STREQ(L"One", keys);
  EXPECT_STREQ(L"Two", keys + 4);
}

TEST(Profile, LongValuesAreCut) {
  const TempFile file(L"vorn-profile-e.ini");
  WritePrivateProfileStringW(L"S", L"A", L"abcdefgh", file.path.c_str());
  wchar_t text[4];
  EXPECT_EQ(3u, GetPrivateProfileStringW(L"S", L"A", L"", text, 4, file.path.c_str()));
  EXPECT_STREQ(L"abc", text);
}

TEST(Profile, WesternAccentsSurvive) {
  const TempFile file(L"vorn-profile-f.ini");
  WritePrivateProfileStringW(L"Préférences", L"Clé", L"Été à l'œil", file.path.c_str());
  EXPECT_EQ(L"Été à l'œil", Read(file, L"Préférences", L"Clé"));
}

TEST_F(Registry, CreatesOnce) {
  EXPECT_EQ(static_cast<DWORD>(REG_CREATED_NEW_KEY), disposition);
  HKEY again = nullptr;
  EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                           &again, &disposition));
  EXPECT_EQ(static_cast<DWORD>(REG_OPENED_EXISTING_KEY), disposition);
  RegCloseKey(again);
}

TEST_F(Registry, ValuesRoundTrip) {
  const DWORD number = 0x12345678;
  EXPECT_EQ(ERROR_SUCCESS,
            RegSetValueExW(key, L"Number", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4));
  const wchar_t text[] = L"été";
  EXPECT_EQ(ERROR_SUCCESS,
            RegSetValueExW(key, L"Text", 0, REG_SZ, reinterpret_cast<const BYTE*>(text), sizeof text));
  DWORD type = 0;
  DWORD value = 0;
  DWORD size = 4;
  EXPECT_EQ(ERROR_SUCCESS,
            RegQueryValueExW(key, L"NUMBER", nullptr, &type, reinterpret_cast<BYTE*>(&value), &size));
  EXPECT_EQ(static_cast<DWORD>(REG_DWORD), type);
  EXPECT_EQ(number, value);
  wchar_t back[8] = {};
  size = sizeof back;
  EXPECT_EQ(ERROR_SUCCESS,
            RegQueryValueExW(key, L"Text", nullptr, &type, reinterpret_cast<BYTE*>(back), &size));
  EXPECT_STREQ(text, back);
  EXPECT_EQ(sizeof text, size);
}

TEST_F(Registry, SmallBuffersAreRefused) {
  const BYTE data[8] = {};
  RegSetValueExW(key, L"Data", 0, REG_BINARY, data, 8);
  BYTE buffer[4];
  DWORD size = 4;
  EXPECT_EQ(ERROR_MORE_DATA, RegQueryValueExW(key, L"Data", nullptr, nullptr, buffer, &size));
  EXPECT_EQ(8u, size);
  EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Data", nullptr, nullptr, nullptr, &size));
  EXPECT_EQ(8u, size);
}

TEST_F(Registry, MissingThingsAreNotFound) {
  DWORD size = 0;
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegQueryValueExW(key, L"None", nullptr, nullptr, nullptr, &size));
  HKEY none = nullptr;
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegOpenKeyExW(key, L"None", 0, KEY_READ, &none));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteValueW(key, L"None"));
}

TEST_F(Registry, TreesAreDeletedWhole) {
  HKEY inner = nullptr;
  RegCreateKeyExW(key, L"A\\B\\C", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &inner, nullptr);
  RegCloseKey(inner);
  wchar_t name[16];
  DWORD size = 16;
  EXPECT_EQ(ERROR_SUCCESS, RegEnumKeyExW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr));
  EXPECT_STREQ(L"A", name);
  EXPECT_NE(ERROR_SUCCESS, RegDeleteKeyW(key, L"A"));
  EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(key, L"A"));
  size = 16;
  EXPECT_EQ(ERROR_NO_MORE_ITEMS, RegEnumKeyExW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr));
}

TEST(Environment, SetReadAndRemove) {
  wchar_t text[16] = L"";
  EXPECT_EQ(0u, GetEnvironmentVariableW(L"VORN_NO_SUCH", text, 16));
  EXPECT_EQ(static_cast<DWORD>(ERROR_ENVVAR_NOT_FOUND), GetLastError());
  EXPECT_TRUE(SetEnvironmentVariableW(L"VORN_TEST_A", L"value"));
  EXPECT_EQ(5u, GetEnvironmentVariableW(L"VORN_TEST_A", text, 16));
  EXPECT_STREQ(L"value", text);
  EXPECT_EQ(6u, GetEnvironmentVariableW(L"VORN_TEST_A", text, 3));
  EXPECT_EQ(6u, GetEnvironmentVariableW(L"VORN_TEST_A", nullptr, 0));
  EXPECT_TRUE(SetEnvironmentVariableW(L"VORN_TEST_A", nullptr));
  EXPECT_EQ(0u, GetEnvironmentVariableW(L"VORN_TEST_A", text, 16));
}

TEST(Memory, BadPointersAreFoundOut) {
  int there = 5;
  EXPECT_FALSE(IsBadReadPtr(&there, sizeof there));
  EXPECT_FALSE(IsBadWritePtr(&there, sizeof there));
  EXPECT_TRUE(IsBadReadPtr(nullptr, 1));
  EXPECT_TRUE(IsBadReadPtr(reinterpret_cast<void*>(static_cast<INT_PTR>(16)), 4));
  EXPECT_FALSE(IsBadReadPtr(nullptr, 0));
  EXPECT_EQ(5, there);
}

TEST(Memory, GlobalBlocks) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 100);
  EXPECT_GE(GlobalSize(memory), 100u);
  auto* bytes = static_cast<BYTE*>(GlobalLock(memory));
  ASSERT_NE(nullptr, bytes);
  EXPECT_EQ(0, bytes[99]);
  GlobalUnlock(memory);
  EXPECT_EQ(nullptr, GlobalFree(memory));
  void* const fixed = GlobalAlloc(GMEM_FIXED, 10);
  EXPECT_EQ(fixed, GlobalLock(fixed));
  GlobalFree(fixed);
}

TEST(Strings, ComparisonWithoutCase) {
  EXPECT_EQ(0, _wcsicmp(L"Hello", L"hELLO"));
  EXPECT_LT(_wcsicmp(L"abc", L"ABD"), 0);
  EXPECT_GT(_wcsicmp(L"b", L"A"), 0);
  EXPECT_LT(_wcsicmp(L"ab", L"abc"), 0);
  EXPECT_LT(_wcsicmp(L"_", L"a"), 0);
  EXPECT_EQ(0, _wcsnicmp(L"ABCx", L"abcy", 3));
}

TEST(Strings, ByteConversions) {
  char bytes[16];
  EXPECT_EQ(3, WideCharToMultiByte(CP_UTF8, 0, L"é", -1, bytes, 16, nullptr, nullptr));
  EXPECT_STREQ("\xC3\xA9", bytes);
  EXPECT_EQ(4, WideCharToMultiByte(CP_UTF8, 0, L"é€", 1, nullptr, 0, nullptr, nullptr) + 2);
  wchar_t wide[8];
  EXPECT_EQ(2, MultiByteToWideChar(CP_UTF8, 0, "\xE2\x82\xAC", -1, wide, 8));
  EXPECT_STREQ(L"€", wide);
  EXPECT_EQ(0, MultiByteToWideChar(CP_UTF8, 0, "abc", -1, wide, 2));
  EXPECT_EQ(static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER), GetLastError());
  EXPECT_EQ(2, MultiByteToWideChar(1252, 0, "\x9C", -1, wide, 8));
  EXPECT_STREQ(L"œ", wide);
}

TEST(Strings, UpperAndLower) {
  wchar_t text[] = L"Déjà VU";
  EXPECT_STREQ(L"DÉJÀ VU", CharUpperW(text));
  EXPECT_STREQ(L"déjà vu", CharLowerW(text));
  EXPECT_TRUE(IsCharAlphaW(L'é'));
  EXPECT_FALSE(IsCharAlphaW(L'1'));
}

TEST(Strings, NumbersScale) {
  EXPECT_EQ(50, MulDiv(100, 1, 2));
  EXPECT_EQ(2, MulDiv(3, 1, 2));  // rounded
  EXPECT_EQ(-1, MulDiv(1, 1, 0));
  EXPECT_EQ(-2, MulDiv(-3, 1, 2));
}

TEST(Strings, FormatAndCopy) {
  wchar_t text[32];
  EXPECT_EQ(8, wsprintfW(text, L"%d_%d_%s", 12, -3, L"ab"));
  EXPECT_STREQ(L"12_-3_ab", text);
  lstrcpynW(text, L"abcdef", 4);
  EXPECT_STREQ(L"abc", text);
}

TEST(System, MetricsOfTheClassicLook) {
  EXPECT_EQ(2, GetSystemMetrics(SM_CXEDGE));
  EXPECT_EQ(1, GetSystemMetrics(SM_CXBORDER));
  EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL));
  EXPECT_EQ(16, GetSystemMetrics(SM_CXSMICON));
  EXPECT_EQ(32, GetSystemMetrics(SM_CXICON));
  EXPECT_GE(GetSystemMetrics(SM_CXSCREEN), 640);
  EXPECT_EQ(0, GetSystemMetrics(-5));
}

TEST(System, ColoursOfTheClassicLook) {
  EXPECT_EQ(static_cast<DWORD>(RGB(0xD4, 0xD0, 0xC8)), GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(static_cast<DWORD>(RGB(255, 255, 255)), GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(static_cast<DWORD>(RGB(0x0A, 0x24, 0x6A)), GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(static_cast<DWORD>(RGB(0x80, 0x80, 0x80)), GetSysColor(COLOR_BTNSHADOW));
}

TEST(System, ParametersCanBeAsked) {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  EXPECT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0));
  EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), metrics.iScrollWidth);
  EXPECT_NE(0, metrics.lfMenuFont.lfHeight);
  RECT area = {};
  EXPECT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0));
  EXPECT_LE(area.right, GetSystemMetrics(SM_CXSCREEN));
  UINT lines = 0;
  EXPECT_TRUE(SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0));
  EXPECT_EQ(3u, lines);
}

TEST(System, MonitorsCoverTheScreen) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  const HMONITOR monitor = MonitorFromPoint({10, 10}, MONITOR_DEFAULTTONULL);
  ASSERT_TRUE(GetMonitorInfoW(monitor, &info));
  EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), info.rcMonitor.right);
  EXPECT_EQ(nullptr, MonitorFromPoint({-5000, -5000}, MONITOR_DEFAULTTONULL));
  EXPECT_EQ(monitor, MonitorFromPoint({-5000, -5000}, MONITOR_DEFAULTTONEAREST));
}

TEST(System, LastErrorIsTheThreads) {
  SetLastError(1234);
  EXPECT_EQ(1234u, GetLastError());
  SetLastError(0);
}
