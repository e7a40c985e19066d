// The menu bar of a window, as the window part asks for it. Rectangles are in coordinates of the whole
// window (top left corner of its frame at 0, 0) unless it says otherwise.
#pragma once

#include <windows.h>

namespace desktop {

// Height in pixels of the bar when it is laid out over a width: one row of SM_CYMENU for each line of
// items, without the gap below. 0 without a menu. Lock held.
int MenuBarHeight(HMENU menu, int width);

// Paints the bar of the window into its frame. bar: the rectangle that MenuBarHeight gave room for; dc: of
// the whole window. Lock not held.
void PaintMenuBar(HWND window, HDC dc, const RECT& bar);

// WM_NCLBUTTONDOWN with HTMENU: runs the menu loop from the bar. point: on the screen. Lock not held.
void TrackMenuBarByMouse(HWND window, POINT point);

// WM_SYSCOMMAND with SC_KEYMENU: runs the menu loop from the bar; key is the letter of Alt+letter, or 0 for
// F10 and Alt alone, or a blank for the system menu. Lock not held.
void TrackMenuBarByKey(HWND window, WCHAR key);

// True while this thread runs a menu loop. Lock held.
bool MenuLoopRuns();

}  // namespace desktop
