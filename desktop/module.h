// How a shared library or program of the in-memory desktop becomes a module with resources.
// Called by the start-up code that the build adds to each; hosts have no need of it.
#pragma once

#include <windows.h>

namespace desktop {

// Makes a module known under its name. resources: a compiled .res image that stays in place while
// the module is loaded, or null. The program's own module is what GetModuleHandleW(nullptr) gives.
DESKTOP_API HINSTANCE RegisterModule(const char* name, bool isProgram, const void* resources,
                                     unsigned long long size);

// Forgets the module; its handle and its resources are invalid from here on.
DESKTOP_API void UnregisterModule(HINSTANCE module);

}  // namespace desktop
