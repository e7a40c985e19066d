// Coordinates kept so far from the ends of the number range that sums of a few cannot overflow.
#pragma once

#include <algorithm>

#include <windows.h>

namespace desktop {

constexpr int Bounded(int value) {
  constexpr int kFar = 0x0fffffff;
  return std::clamp(value, -kFar, kFar);
}

constexpr RECT Bounded(const RECT& r) {
  return {Bounded(r.left), Bounded(r.top), Bounded(r.right), Bounded(r.bottom)};
}

}  // namespace desktop
