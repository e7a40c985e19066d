// Menus and accelerators.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

// A popup menu: Copy (1), a separator, Paste (2, grey), More > (Deep (31)).
class Menu {
 public:
  Menu() : handle(CreatePopupMenu()), more(CreatePopupMenu()) {
    AppendMenuW(handle, MF_STRING, 1, L"&Copy");
    AppendMenuW(handle, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(handle, MF_STRING | MF_GRAYED, 2, L"&Paste");
    AppendMenuW(more, MF_STRING, 31, L"Deep");
    AppendMenuW(handle, MF_POPUP, reinterpret_cast<UINT_PTR>(more), L"&More");
    AppendMenuW(handle, MF_STRING, 4, L"&Quit");
  }
  ~Menu() { DestroyMenu(handle); }

  HMENU handle;
  HMENU more;
};

std::wstring ItemText(HMENU menu, UINT item, UINT flags) {
  wchar_t text[64] = L"";
  const int length = GetMenuStringW(menu, item, text, 64, flags);
  return std::wstring(text, static_cast<std::size_t>(length));
}

// Runs the menu, answered by keys that are on their way already.
UINT Track(HMENU menu, HWND owner, std::initializer_list<UINT> keys, UINT flags = TPM_RETURNCMD) {
  const std::vector<UINT> list = keys;
  const Later answer(50, [&list] {
    for (const UINT key : list) PostKey(key);
  });
  return static_cast<UINT>(TrackPopupMenu(menu, flags, 150, 150, 0, owner, nullptr));
}

}  // namespace

TEST(Menu, KeepsItsItems) {
  const Menu menu;
  EXPECT_EQ(5, GetMenuItemCount(menu.handle));
  EXPECT_EQ(1u, GetMenuItemID(menu.handle, 0));
  EXPECT_EQ(0u, GetMenuItemID(menu.handle, 1));
  EXPECT_EQ(static_cast<UINT>(-1), GetMenuItemID(menu.handle, 3));
  EXPECT_EQ(menu.more, GetSubMenu(menu.handle, 3));
  EXPECT_EQ(nullptr, GetSubMenu(menu.handle, 0));
  EXPECT_EQ(L"&Copy", ItemText(menu.handle, 1, MF_BYCOMMAND));
  EXPECT_EQ(L"&More", ItemText(menu.handle, 3, MF_BYPOSITION));
  EXPECT_EQ(L"", ItemText(menu.handle, 99, MF_BYCOMMAND));
}

TEST(Menu, StateBits) {
  const Menu menu;
  EXPECT_EQ(static_cast<UINT>(MF_SEPARATOR), GetMenuState(menu.handle, 1, MF_BYPOSITION) & MF_SEPARATOR);
  EXPECT_NE(0u, GetMenuState(menu.handle, 2, MF_BYCOMMAND) & MF_GRAYED);
  const UINT popup = GetMenuState(menu.handle, 3, MF_BYPOSITION);
  EXPECT_NE(0u, popup & MF_POPUP);
  EXPECT_EQ(1u, popup >> 8);
  EXPECT_EQ(static_cast<UINT>(-1), GetMenuState(menu.handle, 99, MF_BYCOMMAND));
}

TEST(Menu, CheckingAndEnablingGiveTheOldState) {
  const Menu menu;
  EXPECT_EQ(static_cast<DWORD>(MF_UNCHECKED), CheckMenuItem(menu.handle, 1, MF_CHECKED));
  EXPECT_EQ(static_cast<DWORD>(MF_CHECKED), CheckMenuItem(menu.handle, 1, MF_UNCHECKED));
  EXPECT_EQ(static_cast<DWORD>(-1), CheckMenuItem(menu.handle, 99, MF_CHECKED));
  EXPECT_EQ(MF_GRAYED, EnableMenuItem(menu.handle, 2, MF_ENABLED));
  EXPECT_EQ(MF_ENABLED, EnableMenuItem(menu.handle, 2, MF_GRAYED));
  EXPECT_EQ(-1, EnableMenuItem(menu.handle, 99, MF_GRAYED));
}

TEST(Menu, CommandsAreFoundInSubmenus) {
  const Menu menu;
  EXPECT_EQ(L"Deep", ItemText(menu.handle, 31, MF_BYCOMMAND));
  EXPECT_EQ(static_cast<DWORD>(MF_UNCHECKED), CheckMenuItem(menu.handle, 31, MF_CHECKED));
  EXPECT_NE(0u, GetMenuState(menu.more, 31, MF_BYCOMMAND) & MF_CHECKED);
}

TEST(Menu, InsertsModifiesAndDeletes) {
  const Menu menu;
  EXPECT_TRUE(InsertMenuW(menu.handle, 2, MF_BYCOMMAND | MF_STRING, 7, L"Cut"));
  EXPECT_EQ(7u, GetMenuItemID(menu.handle, 2));
  EXPECT_TRUE(InsertMenuW(menu.handle, 0, MF_BYPOSITION | MF_STRING, 8, L"First"));
  EXPECT_EQ(8u, GetMenuItemID(menu.handle, 0));
  EXPECT_TRUE(ModifyMenuW(menu.handle, 8, MF_BYCOMMAND | MF_STRING, 9, L"Premier"));
  EXPECT_EQ(L"Premier", ItemText(menu.handle, 9, MF_BYCOMMAND));
  EXPECT_TRUE(DeleteMenu(menu.handle, 9, MF_BYCOMMAND));
  EXPECT_FALSE(DeleteMenu(menu.handle, 9, MF_BYCOMMAND));
  EXPECT_EQ(6, GetMenuItemCount(menu.handle));
}

TEST(Menu, RemovingKeepsTheSubmenu) {
  const Menu menu;
  EXPECT_TRUE(RemoveMenu(menu.handle, 3, MF_BYPOSITION));
  EXPECT_TRUE(IsMenu(menu.more));
  EXPECT_TRUE(DestroyMenu(menu.more));
  EXPECT_FALSE(IsMenu(menu.more));
}

TEST(Menu, DestroyingTakesSubmenusAlong) {
  HMENU inner = nullptr;
  {
    const Menu menu;
    inner = menu.more;
    EXPECT_TRUE(IsMenu(inner));
  }
  EXPECT_FALSE(IsMenu(inner));
  EXPECT_EQ(-1, GetMenuItemCount(inner));
}

TEST(Menu, ItemInfoRoundTrip) {
  const Menu menu;
  MENUITEMINFOW info = {};
  info.cbSize = sizeof info;
  info.fMask = MIIM_DATA | MIIM_STATE | MIIM_ID;
  info.dwItemData = 0x123456789;
  info.fState = MFS_CHECKED | MFS_DEFAULT;
  info.wID = 50;
  ASSERT_TRUE(SetMenuItemInfoW(menu.handle, 0, TRUE, &info));
  MENUITEMINFOW back = {};
  wchar_t text[16] = L"";
  back.cbSize = sizeof back;
  back.fMask = MIIM_DATA | MIIM_STATE | MIIM_ID | MIIM_STRING;
  back.dwTypeData = text;
  back.cch = 16;
  ASSERT_TRUE(GetMenuItemInfoW(menu.handle, 50, FALSE, &back));
  EXPECT_EQ(0x123456789u, back.dwItemData);
  EXPECT_EQ(static_cast<UINT>(MFS_CHECKED | MFS_DEFAULT), back.fState);
  EXPECT_EQ(5u, back.cch);
  EXPECT_STREQ(L"&Copy", text);
  EXPECT_EQ(50u, GetMenuDefaultItem(menu.handle, FALSE, 0));
}

TEST(Menu, RadioItemsExcludeEachOther) {
  const Menu menu;
  CheckMenuItem(menu.handle, 1, MF_CHECKED);
  EXPECT_TRUE(CheckMenuRadioItem(menu.handle, 1, 4, 4, MF_BYCOMMAND));
  EXPECT_EQ(0u, GetMenuState(menu.handle, 1, MF_BYCOMMAND) & MF_CHECKED);
  EXPECT_NE(0u, GetMenuState(menu.handle, 4, MF_BYCOMMAND) & MF_CHECKED);
}

TEST(Menu, BarTakesRoomFromTheClient) {
  const HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_STRING, 1, L"Item");
  HostWindow host({.style = WS_POPUP | WS_CAPTION, .cx = 300, .cy = 200});
  RECT before = {};
  RECT after = {};
  GetClientRect(host, &before);
  EXPECT_TRUE(SetMenu(host, bar));
  GetClientRect(host, &after);
  EXPECT_EQ(GetSystemMetrics(SM_CYMENU), before.bottom - after.bottom);
  EXPECT_EQ(bar, GetMenu(host));
  EXPECT_TRUE(SetMenu(host, nullptr));
  DestroyMenu(bar);
}

TEST(MenuLoop, ChoosesByKeys) {
  const Menu menu;
  HostWindow host;
  EXPECT_EQ(1u, Track(menu.handle, host, {VK_DOWN, VK_RETURN}));
  EXPECT_EQ(4u, Track(menu.handle, host, {VK_UP, VK_RETURN}));
  EXPECT_EQ(4u, Track(menu.handle, host, {'Q'}));
  EXPECT_EQ(31u, Track(menu.handle, host, {'M', VK_RETURN}));
}

TEST(MenuLoop, EscapeChoosesNothing) {
  const Menu menu;
  HostWindow host;
  EXPECT_EQ(0u, Track(menu.handle, host, {VK_ESCAPE}));
}

TEST(MenuLoop, GreyItemsCannotBeChosen) {
  const Menu menu;
  HostWindow host;
  EXPECT_EQ(0u, Track(menu.handle, host, {VK_DOWN, VK_DOWN, VK_RETURN, VK_ESCAPE, VK_ESCAPE}));
}

TEST(MenuLoop, TellsItsOwner) {
  const Menu menu;
  Recorder log;
  HostWindow host({.log = &log});
  Pump();
  log.Clear();
  log.Only(
      {WM_ENTERMENULOOP, WM_INITMENU, WM_INITMENUPOPUP, WM_UNINITMENUPOPUP, WM_EXITMENULOOP, WM_COMMAND});
  EXPECT_EQ(1u, Track(menu.handle, host, {VK_DOWN, VK_RETURN}, 0));
  Pump();
  EXPECT_LOG(log, R"(
      host WM_ENTERMENULOOP
      host WM_INITMENU
      host WM_INITMENUPOPUP
      host WM_UNINITMENUPOPUP
      host WM_EXITMENULOOP
      host WM_COMMAND 1 0)");
}

TEST(MenuLoop, ReturningTheCommandSendsNone) {
  const Menu menu;
  Recorder log;
  HostWindow host({.log = &log});
  Pump();
  log.Clear();
  log.Only({WM_COMMAND, WM_INITMENU});
  EXPECT_EQ(1u, Track(menu.handle, host, {VK_DOWN, VK_RETURN}, TPM_RETURNCMD | TPM_NONOTIFY));
  Pump();
  EXPECT_LOG(log, "");
}

TEST(MenuLoop, EndMenuFromATimer) {
  const Menu menu;
  HostWindow host;
  const Later end(60, [] { EndMenu(); });
  EXPECT_EQ(0, TrackPopupMenu(menu.handle, TPM_RETURNCMD, 150, 150, 0, host, nullptr));
  EXPECT_TRUE(end.Done());
}

TEST(MenuLoop, ClickOutsideEndsIt) {
  const Menu menu;
  HostWindow host;
  MoveTo({50, 500});
  const Later click(60, [] {
    PostPress({50, 500});
    PostRelease({50, 500});
  });
  EXPECT_EQ(0, TrackPopupMenu(menu.handle, TPM_RETURNCMD, 150, 150, 0, host, nullptr));
  Pump();
}

TEST(MenuLoop, ClickOnAnItemChoosesIt) {
  const Menu menu;
  HostWindow host;
  MoveTo({50, 500});
  const Later click(60, [&] {
    RECT r = {};
    GetMenuItemRect(nullptr, menu.handle, 0, &r);
    const POINT point = {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
    PostPress(point);
    PostRelease(point);
  });
  EXPECT_EQ(1, TrackPopupMenu(menu.handle, TPM_RETURNCMD, 150, 150, 0, host, nullptr));
  Pump();
}

TEST(Accelerator, TurnsKeysIntoCommands) {
  ACCEL keys[] = {{FVIRTKEY | FCONTROL, 'K', 100}, {FVIRTKEY, VK_F5, 101}};
  const HACCEL table = CreateAcceleratorTableW(keys, 2);
  ASSERT_NE(nullptr, table);
  EXPECT_EQ(2, CopyAcceleratorTableW(table, nullptr, 0));
  Recorder log;
  HostWindow host({.log = &log});
  log.Clear();
  log.Only({WM_COMMAND});
  MSG message = {};
  message.hwnd = host;
  message.message = WM_KEYDOWN;
  message.wParam = VK_F5;
  EXPECT_NE(0, TranslateAcceleratorW(host, table, &message));
  EXPECT_LOG(log, "host WM_COMMAND 101 1");
  message.wParam = 'K';
  EXPECT_EQ(0, TranslateAcceleratorW(host, table, &message));
  KeyDown(VK_CONTROL);
  EXPECT_NE(0, TranslateAcceleratorW(host, table, &message));
  KeyUp(VK_CONTROL);
  EXPECT_LOG(log, "host WM_COMMAND 100 1");
  EXPECT_TRUE(DestroyAcceleratorTable(table));
}
