// What the window part asks of menus, dialogs and controls.
#pragma once

#include <windows.h>

namespace desktop {

// Registers the classes of the standard controls, dialogs (#32770) and menus (#32768) as global classes.
// To be called when the table of window classes is set up anew, before the first look-up. Lock held.
void RegisterControlClasses();

// A window is gone: its menus are destroyed, and what remembered it forgets it. Lock held.
void ControlsForgetWindow(HWND window);

}  // namespace desktop
