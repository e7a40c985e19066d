// What the rest of the desktop asks of menus, dialogs and controls.
#pragma once

#include <windows.h>

namespace desktop {

// Registers the classes of the standard controls, dialogs (#32770) and menus (#32768) as global classes.
// To be called when the table of window classes is set up anew, before the first look-up. Lock held.
void RegisterControlClasses();

// Menus and accelerator tables alive.
int LiveMenus();
// Frees menus, accelerator tables and the clipboard, for a reset of the desktop. Lock held.
void ResetControls();

// A window is gone: the clipboard and menus forget it. Lock held.
void ControlsForgetWindow(HWND window);

}  // namespace desktop
