// The cursors and icons that belong to the system.
#pragma once

#include <windows.h>

namespace desktop {

// Null for an id that the system has not.
HCURSOR MakeSystemCursor(WORD id);
HICON MakeSystemIcon(WORD id);

}  // namespace desktop
