// Counts of how often the pixels of a surface were in the area of an operation that writes, for the side
// door of desktop.h. The lock is held.
#pragma once

#include <memory>
#include <vector>

#include <windows.h>

#include "surface.h"

namespace desktop {

// From now on writes to this part of the surface count; all counts are 0.
void BeginWriteCount(std::shared_ptr<const Surface> surface, const RECT& part);
// Row by row; nothing counts any more.
std::vector<unsigned> EndWriteCount();

// Whether anything counts.
extern bool g_countsWrites;
void CountWriteOn(const Surface* surface, const RECT& piece);
inline void CountWrite(const Surface* surface, const RECT& piece) {
  if (g_countsWrites) CountWriteOn(surface, piece);
}

}  // namespace desktop
