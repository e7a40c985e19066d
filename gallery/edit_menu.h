// The menu of the box in which labels are edited, in the gallery's own words.
#pragma once

#include <windows.h>

// Takes the place of the box's menu: see VornTreeEditContextMenuSetCallback.
unsigned int ShowEditMenu(HWND box, int x, int y, int reserved);
