// Image list queries that survive a stale or foreign handle. Internal.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace vorn {

// As the system's functions of the same name, but a failure or fault inside them counts as a failed
// query (false), and the outputs are then left alone. With the environment variable DISABLE_RD57362
// set, to any value, faults go on to the caller; it is looked at each time.
bool GuardedIconSize(HIMAGELIST list, SIZE* size);
bool GuardedImageInfo(HIMAGELIST list, int index, IMAGEINFO* info);

}  // namespace vorn
