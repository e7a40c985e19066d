// The side door that counts writes to a window's pixels.
#include "gdi/write_count.h"

#include "desktop/desktop.h"
#include "user/user.h"

namespace desktop {

bool StartCountingWrites(HWND handle) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return false;
  POINT origin;
  const auto surface = SurfaceOf(window, &origin);
  RECT client = ClientInWindow(window);
  OffsetRect(&client, origin.x, origin.y);
  BeginWriteCount(surface, client);
  return true;
}

std::vector<unsigned> StopCountingWrites() {
  WorldLock lock(WorldMutex());
  return EndWriteCount();
}

}  // namespace desktop
