// The Win32 API of the in-memory desktop: the documented names, on plain Linux.
// Only what is implemented is declared. WCHAR is wchar_t (32 bits here).
#pragma once

#include "windef.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"
#include "winnls.h"
#include "winreg.h"
