// The library's free functions: start-up, identity, module-wide settings and helpers.
#pragma once

#include "VornComCtlApi.h"
#include "VornTreeTracer.h"

class CVornTreeOptions;
class CWnd;

// Plain names, so that tools can look them up.
extern "C" {

// ---- Start-up ----------------------------------------------------------------------------------------

// Joins the library to the program's chain of resource modules and registers its window classes.
// Non-zero on success. May be called as often as one likes; every CVornTreeCtrl does it, too.
VORNCOMCTL_API int AfxInitVornComCtl();

// Registers a window class of the library's module with the arrow cursor and the button-face background,
// to be subclassed by the framework. style: CS_ bits. Non-zero when the class exists afterwards.
VORNCOMCTL_API int AfxVornRegisterClass(unsigned int style, const wchar_t* className);

// Unregisters the classes of tool tip, bar and report; the tree control's class stays. Non-zero when at
// least one of the three was taken off.
VORNCOMCTL_API int AfxVornUnregisterClasses();

// ---- Identity: static texts --------------------------------------------------------------------------

// Version, and machine, date and time of the build.
VORNCOMCTL_API const char* VORNCOMCTL_get_build_info();
VORNCOMCTL_API const char* VORNCOMCTL_get_module_description();
// which: 0 the description, 1 the version (with a leading blank), all else the build.
VORNCOMCTL_API const char* VORNCOMCTL_get_module_info(int which);
VORNCOMCTL_API const char* VornComCtl_get_revision();

// ---- Settings of the module, to be made at start-up --------------------------------------------------

// The options of the tree control that was last made, filled, focused or shown; null when there is none.
VORNCOMCTL_API CVornTreeOptions* AfxGetVornTreeOptions();

// What takes the place of the label edit's own context menu. Gets the window, the point of the menu and
// 0; returns a command id, or 0 for none. Null goes back to the edit's own menu.
VORNCOMCTL_API void VornTreeEditContextMenuSetCallback(unsigned int (*callback)(HWND, int, int, int));

// A text that stands for a backslash in stored labels, which paths use as separator. Shown labels have a
// backslash in its place, and label edits store it for each backslash. Null or an empty text: none.
VORNCOMCTL_API void VornTreeSetEncodedSequence(const wchar_t* sequence);

// ---- Helpers -----------------------------------------------------------------------------------------

// Whether the key (VK_ code) is down now.
VORNCOMCTL_API int IsKeyPress(int virtualKey);

// -1 or 1, and never 0: which of two texts comes first, letter case apart, looking at no more characters
// than the shorter one has. Texts that match so far, also equal ones, give -1. Null is an empty text.
VORNCOMCTL_API int VornStrCmp(const wchar_t* a, const wchar_t* b);

// Whether wnd and the active window have the same top-level ancestor. 0 for null.
VORNCOMCTL_API int VornIsApplicationActive(const CWnd* wnd);

// Whether the window is of the tree control's class, by name.
VORNCOMCTL_API int VornIsTreeCtrlWindow(HWND hwnd);

// Fills rect with the whole virtual desktop in screen coordinates, task bars included in spite of the
// name. 1, or 0 for null.
VORNCOMCTL_API int VornWindowGetWorkingArea(RECT* rect);

}  // extern "C"
