// The host's replacement of the label edit's context menu. Internal; hosts set it by
// VornTreeEditContextMenuSetCallback.
#pragma once

#include <windows.h>

namespace vorn {

bool HasEditContextMenu();

// Asks the host's callback for a command id; 0 for none, and without a callback.
unsigned int CallEditContextMenu(HWND window, int x, int y);

}  // namespace vorn
