#include "GuardedImageList.h"

#include <cstdlib>

#include "FaultGuard.h"

namespace vorn {

namespace {

bool IsGuarded() { return std::getenv("DISABLE_RD57362") == nullptr; }

}  // namespace

bool GuardedIconSize(HIMAGELIST list, SIZE* size) {
  int cx = 0, cy = 0;
  const auto query = [&] { return ::ImageList_GetIconSize(list, &cx, &cy) != FALSE; };
  if (!(IsGuarded() ? CallGuarded(query) : query())) return false;
  *size = SIZE{cx, cy};
  return true;
}

bool GuardedImageInfo(HIMAGELIST list, int index, IMAGEINFO* info) {
  const auto query = [&] { return ::ImageList_GetImageInfo(list, index, info) != FALSE; };
  return IsGuarded() ? CallGuarded(query) : query();
}

}  // namespace vorn
