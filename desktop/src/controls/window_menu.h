// What the menu part asks of the window part: the menu that hangs on a window, and where its bar lies.
#pragma once

#include <windows.h>

namespace desktop {

// The menu of a window; null for a child window or none. Lock held.
HMENU WindowMenu(HWND window);
// Hangs a menu on a window without any message or layout. Lock held.
void SetWindowMenu(HWND window, HMENU menu);
// The bar's rectangle in coordinates of the whole window; empty without a bar. Lock held.
RECT MenuBarRect(HWND window);
// The window's system menu, or null when none was asked for yet. Lock held.
HMENU& WindowSystemMenu(HWND window);

}  // namespace desktop
