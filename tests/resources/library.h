// The module under test.
#ifndef VORNCOMCTL_TESTS_RESOURCES_LIBRARY_H
#define VORNCOMCTL_TESTS_RESOURCES_LIBRARY_H

#include <windows.h>

#include "resources/VornResource.h"

// The library's instance. Calls into the library, so that the linker keeps it.
HINSTANCE Library();

#endif
