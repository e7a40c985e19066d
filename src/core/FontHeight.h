// The row height that goes with a font. Internal.
#pragma once

#include <cstdlib>

#include <windows.h>

namespace vorn {

// In pixels: the font's nominal height and a margin; a font that leaves its height open gives 20.
inline int HeightOfFont(const LOGFONTW& font) {
  constexpr int kMargin = 4, kHeightWhenOpen = 20;
  return font.lfHeight == 0 ? kHeightWhenOpen : std::abs(static_cast<int>(font.lfHeight)) + kMargin;
}

}  // namespace vorn
