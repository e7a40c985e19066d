// Menus that hang on windows: bars, and system menus.
#include "controls/menu_bar.h"

#include <algorithm>

#include "controls/controls.h"
#include "controls/menu_track.h"
#include "controls/menu_view.h"
#include "controls/window_menu.h"
#include "world.h"

namespace desktop {

namespace {

// Lays out the bar where the window has it, for painting, hits and GetMenuItemRect. Lock held.
Menu* LaidOutBar(HWND window) {
  Menu* menu = MenuFromHandle(WindowMenu(window));
  if (!menu) return nullptr;
  const RECT bar = MenuBarRect(window);
  menu->window = window;
  menu->owner = window;
  LayOutBar(*menu, {bar.left, bar.top}, bar.right - bar.left);
  return menu;
}

void Relayout(HWND window) {
  SetWindowPos(window, nullptr, 0, 0, 0, 0,
               SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

bool IsChildWindow(HWND window) {
  return (GetWindowLongW(window, GWL_STYLE) & (WS_CHILD | static_cast<LONG>(WS_POPUP))) == WS_CHILD;
}

void AppendSystemItem(HMENU menu, UINT command, LPCWSTR text, bool enabled) {
  AppendMenuW(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED, command, text);
}

HMENU MakeSystemMenu(HWND window) {
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  const HMENU menu = CreatePopupMenu();
  if (!menu) return nullptr;
  const bool restorable = (style & (WS_MINIMIZE | WS_MAXIMIZE)) != 0;
  AppendSystemItem(menu, SC_RESTORE, L"&Restore", restorable);
  AppendSystemItem(menu, SC_MOVE, L"&Move", !(style & WS_MAXIMIZE));
  AppendSystemItem(menu, SC_SIZE, L"&Size", (style & WS_THICKFRAME) && !restorable);
  AppendSystemItem(menu, SC_MINIMIZE, L"Mi&nimize", (style & WS_MINIMIZEBOX) && !(style & WS_MINIMIZE));
  AppendSystemItem(menu, SC_MAXIMIZE, L"Ma&ximize", (style & WS_MAXIMIZEBOX) && !(style & WS_MAXIMIZE));
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  AppendSystemItem(menu, SC_CLOSE, L"&Close\tAlt+F4", true);
  SetMenuDefaultItem(menu, SC_CLOSE, FALSE);
  if (Menu* made = MenuFromHandle(menu)) made->system = true;
  return menu;
}

// The system menu drops from the left end of the caption.
void TrackSystemMenu(HWND window) {
  const HMENU menu = GetSystemMenu(window, FALSE);
  if (!menu) return;
  RECT frame{};
  GetWindowRect(window, &frame);
  POINT at{frame.left, frame.top};
  POINT client{};
  if (!IsIconic(window) && ClientToScreen(window, &client)) at = client;
  MenuLoop(window, menu, 0, false).RunPopup(at, {});
}

}  // namespace

int MenuBarHeight(HMENU handle, int width) {
  const Menu* menu = MenuFromHandle(handle);
  if (!menu) return 0;
  Menu copy = *menu;
  return LayOutBar(copy, {0, 0}, width);
}

void PaintMenuBar(HWND window, HDC dc, const RECT& bar) {
  HMENU handle = nullptr;
  int count = 0;
  {
    WorldLock lock(WorldMutex());
    const Menu* menu = LaidOutBar(window);
    if (!menu) return;
    handle = menu->handle;
    count = static_cast<int>(menu->items.size());
  }
  FillRect(dc, &bar, GetSysColorBrush(COLOR_MENU));
  for (int i = 0; i < count; ++i) PaintBarItem(dc, handle, i);
}

void TrackMenuBarByMouse(HWND window, POINT point) {
  HMENU menu = nullptr;
  {
    WorldLock lock(WorldMutex());
    if (const Menu* bar = LaidOutBar(window)) menu = bar->handle;
  }
  if (!menu || MenuLoop::Current()) return;
  // A press on the caption's icon is for the system menu.
  if (MenuItemFromPoint(window, menu, point) < 0) return TrackSystemMenu(window);
  MenuLoop(window, menu, 0, true).RunBarByMouse(point);
}

void TrackMenuBarByKey(HWND window, WCHAR key) {
  if (MenuLoop::Current()) return;
  HMENU menu = nullptr;
  {
    WorldLock lock(WorldMutex());
    if (const Menu* bar = LaidOutBar(window)) menu = bar->handle;
  }
  const bool hasItems = menu && GetMenuItemCount(menu) > 0;
  if (key == L' ' || (!hasItems && !key)) return TrackSystemMenu(window);
  if (hasItems) MenuLoop(window, menu, 0, true).RunBarByKey(key);
}

void ControlsForgetWindow(HWND window) {
  if (const HMENU menu = WindowMenu(window)) FreeMenu(menu);
  SetWindowMenu(window, nullptr);
  HMENU& system = WindowSystemMenu(window);
  if (system) FreeMenu(system);
  system = nullptr;
}

}  // namespace desktop

using desktop::MenuFromHandle;
using desktop::WorldLock;
using desktop::WorldMutex;

HMENU GetMenu(HWND window) {
  WorldLock lock(WorldMutex());
  if (IsWindow(window)) return desktop::WindowMenu(window);
  SetLastError(ERROR_INVALID_WINDOW_HANDLE);
  return nullptr;
}

BOOL SetMenu(HWND window, HMENU menu) {
  if (menu && !IsMenu(menu)) return FALSE;
  if (!IsWindow(window)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (desktop::IsChildWindow(window)) return FALSE;
  {
    WorldLock lock(WorldMutex());
    desktop::SetWindowMenu(window, menu);
  }
  desktop::Relayout(window);
  return TRUE;
}

BOOL DrawMenuBar(HWND window) {
  if (!IsWindow(window)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (!desktop::IsChildWindow(window)) desktop::Relayout(window);
  return TRUE;
}

HMENU GetSystemMenu(HWND window, BOOL revert) {
  WorldLock lock(WorldMutex());
  if (!IsWindow(window)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  HMENU& menu = desktop::WindowSystemMenu(window);
  if (revert) {
    if (menu) desktop::FreeMenu(menu);
    menu = nullptr;
    return nullptr;
  }
  if (!(GetWindowLongW(window, GWL_STYLE) & WS_SYSMENU)) return nullptr;
  if (!menu || !MenuFromHandle(menu)) menu = desktop::MakeSystemMenu(window);
  return menu;
}

BOOL GetMenuItemRect(HWND window, HMENU handle, UINT item, LPRECT rect) {
  WorldLock lock(WorldMutex());
  const auto found = desktop::FindMenuItem(handle, item, MF_BYPOSITION);
  if (!found) return FALSE;
  const bool isBar = window && desktop::WindowMenu(window) == handle;
  if (isBar) desktop::LaidOutBar(window);
  const HWND shown = isBar ? window : found.menu->window;
  if (!shown) return FALSE;
  RECT frame{};
  GetWindowRect(shown, &frame);
  *rect = found->rect;
  OffsetRect(rect, frame.left, frame.top);
  return TRUE;
}

int MenuItemFromPoint(HWND window, HMENU menu, POINT point) {
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    RECT rect{};
    if (GetMenuItemRect(window, menu, static_cast<UINT>(i), &rect) && PtInRect(&rect, point)) return i;
  }
  return -1;
}
