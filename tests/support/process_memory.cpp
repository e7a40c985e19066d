// The in-memory desktop: each process has its own, and it counts what is alive.
#include <windows.h>

#include "desktop/desktop.h"
#include "support/process.h"

namespace support {

void PrepareProcess() {}

void PrepareThread() {}

Alive CountAlive() {
  const desktop::LiveCounts live = desktop::CountLive();
  return {live.windows, live.gdiObjects, live.dcs, live.timers, live.menus, live.imageLists};
}

}  // namespace support
