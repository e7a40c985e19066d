// Icons and cursors: creation, description, drawing.
#include "icon.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "../world.h"
#include "bitmap.h"
#include "dib.h"
#include "handle_table.h"
#include "paint.h"
#include "window_dc.h"

namespace desktop {
namespace {

constexpr uint32_t kWhite = 0xffffff;

HandleTable<Icon>& Icons() {
  static auto& table = *new HandleTable<Icon>(2);
  return table;
}

size_t PixelCount(const Icon& icon) {
  return static_cast<size_t>(icon.width) * static_cast<size_t>(icon.height);
}

void CopyWords(const PixelView& view, int firstRow, int rows, std::vector<uint32_t>& words) {
  for (int y = firstRow; y < firstRow + rows; ++y)
    words.insert(words.end(), view.row(y), view.row(y) + view.width);
}

// The opacity of the image says what is transparent once any of it is not zero.
void DetectAlpha(Icon& icon) {
  icon.hasAlpha = std::any_of(icon.image.begin(), icon.image.end(), [](uint32_t word) { return word >> 24; });
}

std::unique_ptr<Icon> IconFromBitmaps(const ICONINFO& info) {
  Bitmap* mask = FindBitmap(info.hbmMask);
  Bitmap* color = info.hbmColor ? FindBitmap(info.hbmColor) : nullptr;
  if (!mask || (info.hbmColor && !color)) return nullptr;
  auto icon = std::make_unique<Icon>();
  icon->isIcon = info.fIcon != FALSE;
  icon->mono = !color;
  icon->width = color ? color->width : mask->width;
  icon->height = color ? color->height : mask->height / 2;
  if (icon->width <= 0 || icon->height <= 0) return nullptr;
  PixelView maskView = mask->View();
  if (color) {
    CopyWords(color->View(), 0, icon->height, icon->image);
    if (color->bitCount == 32) DetectAlpha(*icon);
  } else {
    CopyWords(maskView, icon->height, icon->height, icon->image);
  }
  icon->mask.resize(PixelCount(*icon));
  for (int y = 0; y < std::min(icon->height, maskView.height); ++y) {
    for (int x = 0; x < std::min(icon->width, maskView.width); ++x)
      icon->mask[static_cast<size_t>(y) * icon->width + x] = (maskView.row(y)[x] & kWhite) ? 1 : 0;
  }
  icon->hotSpot = info.fIcon ? POINT{icon->width / 2, icon->height / 2}
                             : POINT{static_cast<LONG>(info.xHotspot), static_cast<LONG>(info.yHotspot)};
  return icon;
}

// A mask, with the image below it for an icon that has no colours.
HBITMAP MaskBitmap(const Icon& icon) {
  HBITMAP handle = MakeBitmap(icon.width, icon.mono ? 2 * icon.height : icon.height, 1);
  if (!handle) return nullptr;
  std::vector<uint32_t>& words = FindBitmap(handle)->words;
  size_t count = PixelCount(icon);
  for (size_t i = 0; i < count; ++i) words[i] = icon.mask[i] ? kWhite : 0;
  for (size_t i = 0; icon.mono && i < count; ++i) words[count + i] = icon.image[i] & kWhite;
  return handle;
}

HBITMAP ColorBitmap(const Icon& icon) {
  HBITMAP handle = MakeBitmap(icon.width, icon.height, 32);
  if (handle) FindBitmap(handle)->words = icon.image;
  return handle;
}

uint32_t Over(uint32_t source, uint32_t below) {
  uint32_t alpha = source >> 24;
  uint32_t result = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    uint32_t channel = ((source >> shift) & 0xff) * alpha + ((below >> shift) & 0xff) * (255 - alpha);
    result |= ((channel + 127) / 255) << shift;
  }
  return result;
}

// What an icon's pixel makes of the pixel below it.
uint32_t Combine(const Icon& icon, size_t index, uint32_t below, UINT flags) {
  uint32_t image = icon.image[index];
  uint32_t mask = icon.mask[index] ? kWhite : 0;
  switch (flags & DI_NORMAL) {
    case DI_MASK: return mask;
    case DI_IMAGE: return image & kWhite;
    default: return icon.hasAlpha ? Over(image, below) : ((below & mask) ^ image) & kWhite;
  }
}

}  // namespace

HICON AddIcon(std::unique_ptr<Icon> icon) {
  if (FailsHere()) return nullptr;
  return static_cast<HICON>(Icons().Add(std::move(icon)));
}

Icon* FindIcon(HICON handle) { return Icons().Find(handle); }

int LiveIcons() {
  int count = 0;
  Icons().ForEach([&](void*, Icon& icon) { count += icon.shared ? 0 : 1; });
  return count;
}

void ResetIcons() {
  std::vector<void*> handles;
  Icons().ForEach([&](void* handle, Icon&) { handles.push_back(handle); });
  for (void* handle : handles) Icons().Remove(handle);
}

void ShareIcon(HICON handle) {
  WorldLock lock(WorldMutex());
  if (Icon* icon = FindIcon(handle)) icon->shared = true;
}

void DrawIconOnSurface(HICON handle, Surface& surface, int x, int y) {
  Icon* icon = FindIcon(handle);
  if (!icon) return;
  for (int j = std::max(0, -y); j < icon->height && y + j < surface.height; ++j) {
    for (int i = std::max(0, -x); i < icon->width && x + i < surface.width; ++i) {
      uint32_t& word = surface.row(y + j)[x + i];
      word = Combine(*icon, static_cast<size_t>(j) * icon->width + i, word, DI_NORMAL);
    }
  }
}

}  // namespace desktop

using namespace desktop;

HICON WINAPI CreateIconIndirect(PICONINFO info) {
  WorldLock lock(WorldMutex());
  if (!info) return nullptr;
  std::unique_ptr<Icon> icon = IconFromBitmaps(*info);
  return icon ? AddIcon(std::move(icon)) : nullptr;
}

HICON WINAPI CreateIcon(HINSTANCE, int width, int height, BYTE planes, BYTE bitsPerPixel, const BYTE* andBits,
                        const BYTE* xorBits) {
  WorldLock lock(WorldMutex());
  if (!andBits || !xorBits || width <= 0 || height <= 0) return nullptr;
  HBITMAP mask = CreateBitmap(width, height, 1, 1, andBits);
  HBITMAP color = CreateBitmap(width, height, planes, bitsPerPixel, xorBits);
  ICONINFO info{TRUE, 0, 0, mask, color};
  HICON icon = mask && color ? CreateIconIndirect(&info) : nullptr;
  DeleteObject(mask);
  DeleteObject(color);
  return icon;
}

HCURSOR WINAPI CreateCursor(HINSTANCE, int hotX, int hotY, int width, int height, const void* andBits,
                            const void* xorBits) {
  WorldLock lock(WorldMutex());
  if (!andBits || !xorBits || width <= 0 || height <= 0) return nullptr;
  // One bitmap with the mask above the image.
  size_t bytes = static_cast<size_t>((width + 15) / 16 * 2) * static_cast<size_t>(height);
  std::vector<BYTE> both(bytes * 2);
  std::memcpy(both.data(), andBits, bytes);
  std::memcpy(both.data() + bytes, xorBits, bytes);
  HBITMAP mask = CreateBitmap(width, 2 * height, 1, 1, both.data());
  ICONINFO info{FALSE, static_cast<DWORD>(hotX), static_cast<DWORD>(hotY), mask, nullptr};
  HICON cursor = mask ? CreateIconIndirect(&info) : nullptr;
  DeleteObject(mask);
  return cursor;
}

HICON WINAPI CopyIcon(HICON handle) {
  WorldLock lock(WorldMutex());
  Icon* icon = FindIcon(handle);
  if (!icon) return nullptr;
  auto copy = std::make_unique<Icon>(*icon);
  copy->shared = false;
  return AddIcon(std::move(copy));
}

BOOL WINAPI DestroyIcon(HICON handle) {
  WorldLock lock(WorldMutex());
  Icon* icon = FindIcon(handle);
  if (!icon) return FALSE;
  if (!icon->shared) Icons().Remove(handle);
  return TRUE;
}

BOOL WINAPI DestroyCursor(HCURSOR cursor) { return DestroyIcon(cursor); }

BOOL WINAPI GetIconInfo(HICON handle, PICONINFO info) {
  WorldLock lock(WorldMutex());
  Icon* icon = FindIcon(handle);
  if (!icon || !info) return FALSE;
  HBITMAP mask = MaskBitmap(*icon);
  HBITMAP color = mask && !icon->mono ? ColorBitmap(*icon) : nullptr;
  if (!mask || (!icon->mono && !color)) {
    DeleteObject(mask);
    return FALSE;
  }
  *info = {icon->isIcon, static_cast<DWORD>(icon->hotSpot.x), static_cast<DWORD>(icon->hotSpot.y), mask,
           color};
  return TRUE;
}

BOOL WINAPI DrawIconEx(HDC dcHandle, int x, int y, HICON handle, int width, int height, UINT,
                       HBRUSH flickerFree, UINT flags) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(dcHandle);
  Icon* icon = FindIcon(handle);
  if (!dc || !icon) return FALSE;
  bool defaultSize = flags & DI_DEFAULTSIZE;
  if (width == 0)
    width = defaultSize ? GetSystemMetrics(icon->isIcon ? SM_CXICON : SM_CXCURSOR) : icon->width;
  if (height == 0)
    height = defaultSize ? GetSystemMetrics(icon->isIcon ? SM_CYICON : SM_CYCURSOR) : icon->height;
  if (width < 0 || height < 0 || !(flags & DI_NORMAL)) return FALSE;
  POINT corner = dc->ToSurface(x, y);
  RECT area{corner.x, corner.y, corner.x + std::min(width, 0x7fff), corner.y + std::min(height, 0x7fff)};
  Paint ground = BrushPaint(*dc, flickerFree);
  if (!ground.IsNone()) FillArea(*dc, area, ground, 0xf0);
  Canvas canvas(*dc);
  if (!canvas) return TRUE;
  bool mono = dc->IsMono();
  ForEachPiece(*dc, area, [&](const RECT& piece) {
    for (int row = piece.top; row < piece.bottom; ++row) {
      auto sourceRow = static_cast<size_t>(static_cast<long long>(row - area.top) * icon->height / height);
      uint32_t* words = canvas.Pixels().row(row);
      for (int column = piece.left; column < piece.right; ++column) {
        auto sourceColumn =
            static_cast<size_t>(static_cast<long long>(column - area.left) * icon->width / width);
        uint32_t word =
            Combine(*icon, sourceRow * static_cast<size_t>(icon->width) + sourceColumn, words[column], flags);
        words[column] = mono ? NearestMono(word) : word;
      }
    }
  });
  return TRUE;
}

BOOL WINAPI DrawIcon(HDC dc, int x, int y, HICON icon) {
  return DrawIconEx(dc, x, y, icon, 0, 0, 0, nullptr, DI_NORMAL | DI_COMPAT | DI_DEFAULTSIZE);
}
