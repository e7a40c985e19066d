// The library as a module of the program. Internal.
#pragma once

#include <afxwin.h>

namespace vorn {

// The library's own instance handle, whose resources it loads.
HINSTANCE ModuleInstance();

}  // namespace vorn
