// A picture of a window, for the gallery's own page in the documentation.
#pragma once

#include <windows.h>

// Writes the window with its frame as a PNG file; false if that fails.
bool SaveScreenshot(HWND window, const wchar_t* path);
