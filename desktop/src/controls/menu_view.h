// Menus on the screen: layout and painting.
#pragma once

#include "controls/menu.h"

namespace desktop {

// The font of menus; kept until a reset.
HFONT MenuFont();

// Lays out the items of a popup in its client area and says how large that is. Lock held.
SIZE LayOutPopup(Menu& menu);
// Lays out a bar over a width from a corner, and says how high it is. Lock held.
int LayOutBar(Menu& menu, POINT corner, int width);

// Paints a popup's client area; one item of it, or all of them. Lock not held.
void PaintPopup(HWND window, HDC dc, HMENU menu, int onlyItem);
// Paints an item of a bar into a DC of the whole window. Lock not held.
void PaintBarItem(HDC dc, HMENU menu, int item);

// The popup window class, "#32768".
LRESULT CALLBACK PopupProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Shows a popup with its corner at a point (shifted onto the screen), beside rect unless that is empty. Null
// when it cannot be made. Lock not held.
HWND ShowPopup(HMENU menu, HWND owner, POINT at, UINT flags, const RECT& beside);
// Takes it from the screen. Lock not held.
void HidePopup(HMENU menu);

}  // namespace desktop
