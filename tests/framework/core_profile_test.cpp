// The application's profile, in a file and in the registry: one behaviour for both.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "test_app.h"

namespace {

enum class Store { File, Registry };

constexpr const wchar_t* kCompany = L"VornFrameworkTests";

class CoreProfile : public testing::TestWithParam<Store> {
 protected:
  void SetUp() override {
    if (GetParam() == Store::Registry) {
      TheApp().UseRegistry(kCompany);
      return;
    }
    wchar_t folder[MAX_PATH] = L"";
    wchar_t path[MAX_PATH] = L"";
    ASSERT_NE(0u, ::GetTempPathW(MAX_PATH, folder));
    ASSERT_NE(0u, ::GetTempFileNameW(folder, L"vfw", 0, path));
    m_path = path;
    TheApp().UseFile(path);
  }
  void TearDown() override {
    if (GetParam() == Store::Registry) {
      ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VornFrameworkTests");
    } else {
      ::DeleteFileW(m_path);
    }
    TheApp().UseFile(L"framework_tests.ini");
  }

  std::wstring Read(LPCWSTR section, LPCWSTR entry, LPCWSTR fallback = L"(none)") {
    return TheApp().GetProfileString(section, entry, fallback).GetString();
  }

  CString m_path;
};

TEST_P(CoreProfile, NumbersComeBack) {
  CWinApp& app = TheApp();
  EXPECT_EQ(7u, app.GetProfileInt(L"A", L"n", 7));
  EXPECT_TRUE(app.WriteProfileInt(L"A", L"n", 42));
  EXPECT_EQ(42u, app.GetProfileInt(L"A", L"n", 7));
  EXPECT_TRUE(app.WriteProfileInt(L"A", L"n", -3));
  EXPECT_EQ(-3, static_cast<int>(app.GetProfileInt(L"A", L"n", 7)));
  EXPECT_EQ(7u, app.GetProfileInt(L"B", L"n", 7));
}

TEST_P(CoreProfile, TextComesBack) {
  CWinApp& app = TheApp();
  EXPECT_EQ(L"(none)", Read(L"A", L"t"));
  EXPECT_TRUE(app.GetProfileString(L"A", L"t").IsEmpty());
  EXPECT_TRUE(app.WriteProfileString(L"A", L"t", L"255_0_128 été"));
  EXPECT_EQ(L"255_0_128 été", Read(L"A", L"t"));
  EXPECT_TRUE(app.WriteProfileString(L"A", L"t", L""));
  EXPECT_EQ(L"", Read(L"A", L"t"));
}

TEST_P(CoreProfile, LongTextIsNotCut) {
  const CString text(L'x', 3000);
  EXPECT_TRUE(TheApp().WriteProfileString(L"A", L"long", text));
  EXPECT_EQ(3000u, Read(L"A", L"long").size());
}

TEST_P(CoreProfile, NullValueDeletesTheEntry) {
  CWinApp& app = TheApp();
  app.WriteProfileString(L"A", L"one", L"1");
  app.WriteProfileString(L"A", L"two", L"2");
  EXPECT_TRUE(app.WriteProfileString(L"A", L"one", nullptr));
  EXPECT_EQ(L"(none)", Read(L"A", L"one"));
  EXPECT_EQ(L"2", Read(L"A", L"two"));
}

TEST_P(CoreProfile, NullEntryDeletesTheSection) {
  CWinApp& app = TheApp();
  app.WriteProfileString(L"A", L"one", L"1");
  app.WriteProfileString(L"B", L"one", L"1");
  EXPECT_TRUE(app.WriteProfileString(L"A", nullptr, nullptr));
  EXPECT_EQ(L"(none)", Read(L"A", L"one"));
  EXPECT_EQ(L"1", Read(L"B", L"one"));
}

TEST_P(CoreProfile, BytesComeBack) {
  CWinApp& app = TheApp();
  std::vector<BYTE> bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<BYTE>(i));
  EXPECT_TRUE(app.WriteProfileBinary(L"A", L"b", bytes.data(), 256));
  BYTE* data = nullptr;
  UINT size = 0;
  ASSERT_TRUE(app.GetProfileBinary(L"A", L"b", &data, &size));
  const std::unique_ptr<BYTE[]> owner(data);
  EXPECT_EQ(bytes, std::vector<BYTE>(data, data + size));
}

TEST_P(CoreProfile, MissingOrForeignBytesGiveNothing) {
  CWinApp& app = TheApp();
  BYTE byte = 0;
  BYTE* data = &byte;
  UINT size = 5;
  EXPECT_FALSE(app.GetProfileBinary(L"A", L"none", &data, &size));
  EXPECT_EQ(nullptr, data);
  EXPECT_EQ(0u, size);
  app.WriteProfileString(L"A", L"text", L"odd");
  EXPECT_FALSE(app.GetProfileBinary(L"A", L"text", &data, &size));
}

TEST_P(CoreProfile, HostileArgumentsAreRefused) {
  CWinApp& app = TheApp();
  EXPECT_EQ(3u, app.GetProfileInt(nullptr, L"n", 3));
  EXPECT_EQ(3u, app.GetProfileInt(L"A", nullptr, 3));
  EXPECT_STREQ(L"x", app.GetProfileString(nullptr, L"t", L"x"));
  EXPECT_FALSE(app.WriteProfileInt(nullptr, L"n", 3));
  EXPECT_FALSE(app.WriteProfileString(nullptr, L"n", L"x"));
  EXPECT_FALSE(app.WriteProfileBinary(L"A", L"b", nullptr, 3));
}

INSTANTIATE_TEST_SUITE_P(Stores, CoreProfile, testing::Values(Store::File, Store::Registry),
                         [](const auto& each) { return each.param == Store::File ? "File" : "Registry"; });

TEST(CoreProfileKeys, LieUnderCompanyAndApplication) {
  TheApp().UseFile(L"framework_tests.ini");
  EXPECT_EQ(nullptr, TheApp().GetAppRegistryKey());
  EXPECT_EQ(nullptr, TheApp().GetSectionKey(L"A"));
  TheApp().UseRegistry(kCompany);
  TheApp().WriteProfileInt(L"Section", L"n", 5);
  DWORD value = 0;
  DWORD size = sizeof value;
  HKEY key = nullptr;
  EXPECT_EQ(ERROR_SUCCESS,
            ::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\VornFrameworkTests\\Essais du cadre\\Section", 0,
                            KEY_READ, &key));
  EXPECT_EQ(ERROR_SUCCESS,
            ::RegQueryValueExW(key, L"n", nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size));
  EXPECT_EQ(5u, value);
  ::RegCloseKey(key);
  ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VornFrameworkTests");
  TheApp().UseFile(L"framework_tests.ini");
}

}  // namespace
