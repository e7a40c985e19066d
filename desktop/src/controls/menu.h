// Menus as data. All of it is guarded by the world's lock.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

namespace desktop {

struct MenuItem {
  UINT type = 0;   // MFT_
  UINT state = 0;  // MFS_
  UINT id = 0;
  HMENU submenu = nullptr;
  bool hasText = false;
  std::wstring text;
  HBITMAP checkedBitmap = nullptr;
  HBITMAP uncheckedBitmap = nullptr;
  HBITMAP bitmap = nullptr;
  ULONG_PTR data = 0;

  // Layout: in client coordinates of the popup window, or in coordinates of the whole window for a bar.
  RECT rect{};
  int tab = 0;  // where the part of the text behind a tabulator begins

  bool IsSeparator() const { return (type & MFT_SEPARATOR) != 0; }
  bool IsEnabled() const { return !(state & (MF_GRAYED | MF_DISABLED)); }
};

struct Menu {
  HMENU handle = nullptr;
  bool popup = false;
  bool system = false;  // a window's system menu
  std::vector<MenuItem> items;

  // While it is shown.
  HWND window = nullptr;  // the popup window; for a bar the window that it belongs to
  HWND owner = nullptr;   // who gets the messages
  int focused = -1;       // the item under the cursor
  SIZE size{};
};

// The menu behind a handle, or null; the second sets ERROR_INVALID_MENU_HANDLE.
Menu* MenuFromHandle(HMENU handle);
Menu* MenuFromHandleOrError(HMENU handle);
Menu* NewMenu(bool popup);
// Destroys a menu with its submenus.
void FreeMenu(HMENU handle);

// An item and the menu that it is in.
struct FoundItem {
  Menu* menu = nullptr;
  int position = -1;
  explicit operator bool() const { return menu != nullptr; }
  MenuItem& operator*() const { return menu->items[static_cast<size_t>(position)]; }
  MenuItem* operator->() const { return &**this; }
};
// By position, or by command through all submenus. Sets ERROR_MENU_ITEM_NOT_FOUND.
FoundItem FindMenuItem(HMENU menu, UINT item, UINT flags);

// The entries of an accelerator table; none, with an error, for a bad handle. Takes the lock.
std::vector<ACCEL> AcceleratorEntries(HACCEL table);

}  // namespace desktop
