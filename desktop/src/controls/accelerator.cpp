// Keys that stand for commands.
#include <algorithm>

#include "controls/menu.h"
#include "world.h"

namespace desktop {

namespace {

bool IsDown(int key) { return GetKeyState(key) < 0; }

bool Matches(const ACCEL& entry, const MSG& message) {
  const bool isCharacter = message.message == WM_CHAR || message.message == WM_SYSCHAR;
  if (entry.key != LOWORD(message.wParam)) return false;
  if (isCharacter)
    return !(entry.fVirt & FVIRTKEY) && ((entry.fVirt & FALT) != 0) == (message.message == WM_SYSCHAR);
  if (!(entry.fVirt & FVIRTKEY)) return false;
  BYTE modifiers = 0;
  if (IsDown(VK_SHIFT)) modifiers |= FSHIFT;
  if (IsDown(VK_CONTROL)) modifiers |= FCONTROL;
  if (IsDown(VK_MENU)) modifiers |= FALT;
  return (entry.fVirt & (FSHIFT | FCONTROL | FALT)) == modifiers;
}

// Where the command is in the menus of a window: the item, and the popup that it is in.
struct Place {
  HMENU bar = nullptr;
  HMENU popup = nullptr;
  int popupPosition = 0;
  UINT state = 0;
  bool system = false;
};

// The item of a menu or of its submenus. position: of the popup in the menu on top.
bool FindIn(HMENU menu, UINT command, Place& place) {
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    const HMENU submenu = GetSubMenu(menu, i);
    if (submenu) {
      const bool found = FindIn(submenu, command, place);
      if (found) place.popupPosition = i;
      if (found) return true;
    } else if (GetMenuItemID(menu, i) == command) {
      place.popup = menu;
      place.state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
      return true;
    }
  }
  return false;
}

bool FindCommand(HWND window, UINT command, Place& place) {
  const HMENU system =
      (GetWindowLongW(window, GWL_STYLE) & WS_SYSMENU) ? GetSystemMenu(window, FALSE) : nullptr;
  if (system && FindIn(system, command, place)) {
    place.bar = system;
    place.system = true;
    return true;
  }
  const bool child = (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) != 0;
  const HMENU menu = child ? nullptr : GetMenu(window);
  place.bar = menu;
  return menu && FindIn(menu, command, place);
}

// Menus bring themselves up to date before a command of theirs is taken; a greyed one is not.
void Carry(HWND window, const ACCEL& entry) {
  Place place;
  if (!IsWindowEnabled(window) || GetCapture()) return;
  const bool found = FindCommand(window, entry.cmd, place);
  if (found && !IsIconic(window)) {
    SendMessageW(window, WM_INITMENU, reinterpret_cast<WPARAM>(place.bar), 0);
    if (place.popup != place.bar)
      SendMessageW(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(place.popup),
                   MAKELPARAM(place.popupPosition, place.system));
    FindCommand(window, entry.cmd, place);
    if (place.popup != place.bar || place.system)
      SendMessageW(window, WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(place.popup),
                   MAKELPARAM(0, place.system ? MF_SYSMENU : 0));
  }
  if (found && (place.state & (MF_GRAYED | MF_DISABLED))) return;
  if (found && place.system)
    SendMessageW(window, WM_SYSCOMMAND, entry.cmd, 0x00010000);
  else
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(entry.cmd, 1), 0);
}

}  // namespace

}  // namespace desktop

int TranslateAcceleratorW(HWND window, HACCEL table, tagMSG* message) {
  if (!message || !IsWindow(window)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  const UINT kind = message->message;
  if (kind != WM_KEYDOWN && kind != WM_SYSKEYDOWN && kind != WM_CHAR && kind != WM_SYSCHAR) return 0;
  const std::vector<ACCEL> entries = desktop::AcceleratorEntries(table);
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [=](const ACCEL& entry) { return desktop::Matches(entry, *message); });
  if (found == entries.end()) return 0;
  desktop::Carry(window, *found);
  return 1;
}
