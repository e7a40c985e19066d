// Pictures of the screen and of windows, and the reset of everything.
#include <png.h>

#include <algorithm>
#include <cstdio>

#include "desktop/desktop.h"
#include "user/user.h"

namespace desktop {

namespace {

// The part of a top-level window that shows, in its own coordinates.
Region ShapeOf(const Window* window) {
  Region region(RECT{0, 0, window->Width(), window->Height()});
  if (window->shape) region &= *window->shape;
  return region;
}

uint32_t Blend(uint32_t below, uint32_t above, unsigned alpha) {
  uint32_t result = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const unsigned a = (above >> shift) & 0xff;
    const unsigned b = (below >> shift) & 0xff;
    result |= ((a * alpha + b * (255 - alpha)) / 255) << shift;
  }
  return result;
}

void PutWindow(Surface& screen, const Window* window) {
  if (!window->surface) return;
  const Surface& own = *window->surface;
  Region region = ShapeOf(window);
  region &= Region(RECT{0, 0, own.width, own.height});
  region.Offset(window->rect.left, window->rect.top);
  region &= Region(RECT{0, 0, screen.width, screen.height});
  const unsigned alpha = window->layerFlags & LWA_ALPHA ? window->layerAlpha : 255;
  const COLORREF key = window->layerKey;
  const uint32_t keyPixel = (key & 0xff) << 16 | (key & 0xff00) | (key >> 16 & 0xff);
  for (const RECT& rect : region.Rects()) {
    for (int y = rect.top; y < rect.bottom; ++y) {
      const uint32_t* from = own.row(y - window->rect.top) - window->rect.left;
      uint32_t* to = screen.row(y);
      for (int x = rect.left; x < rect.right; ++x) {
        const uint32_t pixel = from[x] & 0xffffff;
        if ((window->layerFlags & LWA_COLORKEY) && pixel == keyPixel) continue;
        to[x] = alpha == 255 ? pixel : Blend(to[x], pixel, alpha);
      }
    }
  }
}

Surface ComposeScreen() {
  Surface screen(Metric(SM_CXSCREEN), Metric(SM_CYSCREEN));
  const COLORREF color = SystemColor(COLOR_BACKGROUND);
  const uint32_t back = (color & 0xff) << 16 | (color & 0xff00) | (color >> 16 & 0xff);
  std::fill(screen.pixels.begin(), screen.pixels.end(), back);
  for (const Window* window = DesktopWindow()->lastChild; window; window = window->above)
    if ((window->style & WS_VISIBLE) && !(window->style & WS_MINIMIZE)) PutWindow(screen, window);
  return screen;
}

bool WritePng(const Surface& picture, RECT part, const char* path) {
  const RECT all{0, 0, picture.width, picture.height};
  if (!path || !IntersectRect(&part, &part, &all)) return false;
  const int width = part.right - part.left;
  std::vector<unsigned char> bytes;
  bytes.reserve(static_cast<size_t>(width) * static_cast<size_t>(part.bottom - part.top) * 3);
  for (int y = part.top; y < part.bottom; ++y) {
    for (int x = part.left; x < part.right; ++x) {
      const uint32_t pixel = picture.row(y)[x];
      bytes.insert(bytes.end(), {static_cast<unsigned char>(pixel >> 16),
                                 static_cast<unsigned char>(pixel >> 8), static_cast<unsigned char>(pixel)});
    }
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(part.bottom - part.top);
  image.format = PNG_FORMAT_RGB;
  return png_image_write_to_file(&image, path, 0, bytes.data(), width * 3, nullptr) != 0;
}

// In the order in which one thing lets go of the other.
void ResetUser() {
  ResetTracking();
  ResetQueues();
  for (Window* window : AllWindows())
    if (!window->parent || !window->parent->parent) window->surface.reset();
  std::vector<HWND> handles;
  for (Window* window : AllWindows()) handles.push_back(window->handle);
  for (HWND handle : handles)
    if (Window* window = FromHandle(handle)) DestroyQuietly(window);
  ResetWindowTable();
  ResetClasses();
  ResetDCs();
  ResetInput();
  ResetMetrics();
  ResetClock();
}

const RegisterReset g_reset(100, ResetUser);

}  // namespace

bool SaveScreenPng(const char* path) {
  WorldLock lock(WorldMutex());
  const Surface screen = ComposeScreen();
  return WritePng(screen, {0, 0, screen.width, screen.height}, path);
}

bool SaveWindowPng(HWND handle, const char* path) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return false;
  POINT origin;
  const auto surface = SurfaceOf(window, &origin);
  return WritePng(*surface, {origin.x, origin.y, origin.x + window->Width(), origin.y + window->Height()},
                  path);
}

}  // namespace desktop
