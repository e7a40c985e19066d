// The export mark of the library's public classes and functions.
#pragma once

#include <afx.h>

#ifdef VORNCOMCTL_BUILDING
#define VORNCOMCTL_API AFX_EXT_EXPORT
#else
#define VORNCOMCTL_API AFX_EXT_IMPORT
#endif
