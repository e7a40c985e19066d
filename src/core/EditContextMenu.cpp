#include "EditContextMenu.h"

#include "VornFunctions.h"

static unsigned int (*gEditContextMenuCallback)(HWND, int, int, int) = nullptr;

void VornTreeEditContextMenuSetCallback(unsigned int (*callback)(HWND, int, int, int)) {
  gEditContextMenuCallback = callback;
}

namespace vorn {

bool HasEditContextMenu() { return gEditContextMenuCallback != nullptr; }

unsigned int CallEditContextMenu(HWND window, int x, int y) {
  return gEditContextMenuCallback ? gEditContextMenuCallback(window, x, y, 0) : 0;
}

}  // namespace vorn
