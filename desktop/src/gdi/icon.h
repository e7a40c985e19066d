// Icons and cursors. All of it expects that the lock is held.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <windows.h>

namespace desktop {

// The pixels of an icon. Where the mask is set the image is combined with what lies below by XOR.
struct Icon {
  bool isIcon = true;  // else a cursor
  POINT hotSpot{};
  int width = 0;
  int height = 0;
  bool mono = false;            // made without a colour bitmap
  bool hasAlpha = false;        // the top byte of image is opacity
  bool shared = false;          // belongs to the desktop or a module: DestroyIcon leaves it alone
  std::vector<uint32_t> image;  // 0xAARRGGBB
  std::vector<uint8_t> mask;    // 1: transparent
};

Icon* FindIcon(HICON handle);
// A new handle; null when a failure was asked for or the table is full.
HICON AddIcon(std::unique_ptr<Icon> icon);
// Live icons and cursors that are not shared.
int LiveIcons();
// Frees all icons, shared ones too: their modules' tables are emptied by the same reset.
void ResetIcons();

}  // namespace desktop
