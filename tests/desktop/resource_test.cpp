// Modules and their resources.
#include "resource.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>

#include "support/picture.h"
#include "support/text.h"

using namespace support;

namespace {

const HINSTANCE kModule = GetModuleHandleW(nullptr);

std::wstring Load(UINT id) {
  wchar_t text[128] = L"untouched";
  const int length = LoadStringW(kModule, id, text, 128);
  return std::wstring(text, static_cast<std::size_t>(length));
}

}  // namespace

TEST(Resource, StringsKeepTheirAccents) {
  EXPECT_EQ(L"Élément déplacé à l'œil", Load(IDS_HELLO));
  EXPECT_EQ(L"Une chaîne du bloc suivant", Load(IDS_LONG));
}

TEST(Resource, MissingStringsAreEmpty) {
  wchar_t text[8] = L"before";
  EXPECT_EQ(0, LoadStringW(kModule, IDS_EMPTY, text, 8));
  EXPECT_STREQ(L"", text);
  EXPECT_EQ(0, LoadStringW(kModule, 9999, text, 8));
}

TEST(Resource, StringsAreCutToTheBuffer) {
  wchar_t text[8];
  EXPECT_EQ(7, LoadStringW(kModule, IDS_HELLO, text, 8));
  EXPECT_STREQ(L"Élément", text);
}

TEST(Resource, DataIsFoundByNumberAndName) {
  const HRSRC byId = FindResourceW(kModule, MAKEINTRESOURCEW(IDR_DATA), MAKEINTRESOURCEW(10));
  ASSERT_NE(nullptr, byId);
  EXPECT_EQ(9u, SizeofResource(kModule, byId));
  const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(kModule, byId)));
  EXPECT_EQ(0, std::memcmp(bytes, "abc\x34\x12\xBC\x9A\x78\x56", 9));
  const HRSRC byName = FindResourceW(kModule, L"named", MAKEINTRESOURCEW(10));
  ASSERT_NE(nullptr, byName);
  EXPECT_EQ(7u, SizeofResource(kModule, byName));
  EXPECT_EQ(byId, FindResourceW(kModule, L"#40", L"#10"));
}

TEST(Resource, MissingOnesAreNotFound) {
  EXPECT_EQ(nullptr, FindResourceW(kModule, MAKEINTRESOURCEW(9999), MAKEINTRESOURCEW(10)));
  EXPECT_NE(static_cast<DWORD>(ERROR_SUCCESS), GetLastError());
  EXPECT_EQ(nullptr, FindResourceW(kModule, MAKEINTRESOURCEW(IDR_DATA), MAKEINTRESOURCEW(2)));
  EXPECT_EQ(nullptr, LoadBitmapW(kModule, MAKEINTRESOURCEW(9999)));
  EXPECT_EQ(nullptr, LoadMenuW(kModule, MAKEINTRESOURCEW(9999)));
  EXPECT_EQ(nullptr, LoadCursorW(kModule, MAKEINTRESOURCEW(9999)));
}

TEST(Resource, BitmapHasItsPixels) {
  const HBITMAP bitmap = LoadBitmapW(kModule, MAKEINTRESOURCEW(IDB_TEST));
  ASSERT_NE(nullptr, bitmap);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  EXPECT_ART(CaptureDc(dc, 0, 0, 4, 2), R"(
      ####
      rgb.)");
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

TEST(Resource, BitmapAsDibSection) {
  const HANDLE bitmap =
      LoadImageW(kModule, MAKEINTRESOURCEW(IDB_TEST), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
  ASSERT_NE(nullptr, bitmap);
  DIBSECTION section = {};
  EXPECT_EQ(static_cast<int>(sizeof section), GetObjectW(bitmap, sizeof section, &section));
  EXPECT_EQ(24, section.dsBm.bmBitsPixel);
  ASSERT_NE(nullptr, section.dsBm.bmBits);
  EXPECT_EQ(0xFF, static_cast<BYTE*>(section.dsBm.bmBits)[2]);
  DeleteObject(bitmap);
}

TEST(Resource, CursorKeepsItsHotSpot) {
  const HANDLE cursor = LoadImageW(kModule, MAKEINTRESOURCEW(IDC_TEST), IMAGE_CURSOR, 0, 0, 0);
  ASSERT_NE(nullptr, cursor);
  ICONINFO info = {};
  ASSERT_TRUE(GetIconInfo(static_cast<HICON>(cursor), &info));
  EXPECT_FALSE(info.fIcon);
  EXPECT_EQ(3u, info.xHotspot);
  EXPECT_EQ(5u, info.yHotspot);
  BITMAP mask = {};
  GetObjectW(info.hbmMask, sizeof mask, &mask);
  EXPECT_EQ(8, mask.bmWidth);
  DeleteObject(info.hbmMask);
  if (info.hbmColor) DeleteObject(info.hbmColor);
  DestroyCursor(static_cast<HCURSOR>(cursor));
}

TEST(Resource, SharedCursorsAreOne) {
  const HCURSOR first = LoadCursorW(kModule, MAKEINTRESOURCEW(IDC_TEST));
  EXPECT_NE(nullptr, first);
  EXPECT_EQ(first, LoadCursorW(kModule, MAKEINTRESOURCEW(IDC_TEST)));
}

TEST(Resource, IconDrawsThroughItsMask) {
  const HANDLE icon = LoadImageW(kModule, MAKEINTRESOURCEW(IDI_TEST), IMAGE_ICON, 8, 8, 0);
  ASSERT_NE(nullptr, icon);
  Canvas dc(8, 2);
  DrawIconEx(dc, 0, 0, static_cast<HICON>(icon), 8, 8, 0, nullptr, DI_NORMAL);
  EXPECT_ART(dc.Read(), "rrrr....\nrrrr....");
  DestroyIcon(static_cast<HICON>(icon));
}

TEST(Resource, MenuWithSubmenusAndStates) {
  const HMENU menu = LoadMenuW(kModule, MAKEINTRESOURCEW(IDM_TEST));
  ASSERT_NE(nullptr, menu);
  const HMENU file = GetSubMenu(menu, 0);
  EXPECT_EQ(4, GetMenuItemCount(file));
  wchar_t text[64];
  GetMenuStringW(file, ID_OPEN, text, 64, MF_BYCOMMAND);
  EXPECT_STREQ(L"&Ouvrir…\tCtrl+O", text);
  EXPECT_NE(0u, GetMenuState(file, 1, MF_BYPOSITION) & MF_SEPARATOR);
  EXPECT_NE(0u, GetMenuState(file, ID_CLOSE, MF_BYCOMMAND) & MF_GRAYED);
  EXPECT_NE(0u, GetMenuState(menu, ID_RECENT, MF_BYCOMMAND) & MF_CHECKED);
  GetMenuStringW(file, 3, text, 64, MF_BYPOSITION);
  EXPECT_STREQ(L"&Récents", text);
  DestroyMenu(menu);
}

TEST(Resource, AcceleratorsFromATable) {
  const HACCEL keys = LoadAcceleratorsW(kModule, MAKEINTRESOURCEW(IDR_KEYS));
  ASSERT_NE(nullptr, keys);
  ACCEL list[2] = {};
  EXPECT_EQ(2, CopyAcceleratorTableW(keys, list, 2));
  EXPECT_EQ(ID_OPEN, list[0].cmd);
  EXPECT_EQ('O', list[0].key);
  EXPECT_EQ(FCONTROL | FVIRTKEY, list[0].fVirt & (FCONTROL | FVIRTKEY | FALT | FSHIFT));
}

TEST(Module, TheProgramIsItsOwnModule) {
  wchar_t path[MAX_PATH] = L"";
  EXPECT_GT(GetModuleFileNameW(nullptr, path, MAX_PATH), 0u);
  EXPECT_NE(std::wstring::npos, std::wstring(path).find(L"desktop_tests"));
  EXPECT_EQ(nullptr, GetModuleHandleW(L"no such module"));
}

TEST(Module, FileNameIsCutToTheBuffer) {
  wchar_t path[5];
  EXPECT_EQ(5u, GetModuleFileNameW(nullptr, path, 5));
}

TEST(Module, UnknownLibrariesDoNotLoad) {
  EXPECT_EQ(nullptr, LoadLibraryW(L"no-such-library-at-all"));
  EXPECT_NE(static_cast<DWORD>(ERROR_SUCCESS), GetLastError());
}
