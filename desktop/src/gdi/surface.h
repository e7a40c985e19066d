// Pixels: 32-bit 0x00RRGGBB words, top row first.
#pragma once

#include <cstdint>
#include <vector>

namespace desktop {

struct Surface {
  Surface(int w, int h) : width(w), height(h), pixels(static_cast<size_t>(w) * static_cast<size_t>(h)) {}
  uint32_t* row(int y) { return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width); }
  const uint32_t* row(int y) const {
    return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width);
  }
  int width;
  int height;
  std::vector<uint32_t> pixels;
};

}  // namespace desktop
