// Icons and cursors from the bits that resources hold.
#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

#include "../world.h"
#include "dib.h"
#include "icon.h"

namespace desktop {
namespace {

constexpr size_t kGroupHeaderSize = 6;
constexpr size_t kGroupEntrySize = 14;

WORD WordAt(const BYTE* bytes) { return static_cast<WORD>(bytes[0] | (bytes[1] << 8)); }

struct Parts {
  DibFormat color;
  const BYTE* colorBits = nullptr;
  const BYTE* maskBits = nullptr;  // null when an alpha channel replaces it
  size_t maskPitch = 0;
};

// An icon image is a DIB of double height: the colours and then the mask, both from the bottom up.
std::optional<Parts> Split(const BYTE* bytes, size_t size) {
  if (size < sizeof(BITMAPINFOHEADER)) return {};
  const auto* info = reinterpret_cast<const BITMAPINFO*>(bytes);
  if (info->bmiHeader.biSize < sizeof(BITMAPINFOHEADER)) return {};
  size_t offset = PackedPixelsOffset(info);
  if (offset > size) return {};
  std::optional<DibFormat> format = ReadDibFormat(info, DIB_RGB_COLORS);
  if (!format || format->topDown || format->height < 2) return {};
  format->height /= 2;
  if (size - offset < format->Size()) return {};
  Parts parts{*format, bytes + offset, nullptr, 0};
  DibFormat mask;
  mask.width = format->width;
  mask.height = format->height;
  mask.bitCount = 1;
  if (size - offset - format->Size() >= mask.Size()) {
    parts.maskBits = parts.colorBits + format->Size();
    parts.maskPitch = mask.Pitch();
  }
  return parts;
}

// Two other colours than black and white make a coloured picture.
bool IsBlackAndWhite(const DibFormat& format) {
  if (format.bitCount != 1) return false;
  return std::all_of(format.colors.begin(), format.colors.end(), [](const RGBQUAD& color) {
    int sum = color.rgbRed + color.rgbGreen + color.rgbBlue;
    return sum == 0 || sum == 3 * 0xff;
  });
}

std::unique_ptr<Icon> ReadIcon(const Parts& parts) {
  auto icon = std::make_unique<Icon>();
  int width = icon->width = parts.color.width;
  int height = icon->height = parts.color.height;
  auto count = static_cast<size_t>(width) * static_cast<size_t>(height);
  icon->image.resize(count);
  icon->mask.resize(count);
  icon->mono = IsBlackAndWhite(parts.color);
  for (int y = 0; y < height; ++y) {
    auto stored = static_cast<size_t>(height - 1 - y);
    size_t row = static_cast<size_t>(y) * static_cast<size_t>(width);
    DecodeRow(parts.color, parts.colorBits + stored * parts.color.Pitch(), 0, width,
              icon->image.data() + row);
    for (int x = 0; parts.maskBits && x < width; ++x) {
      BYTE byte = parts.maskBits[stored * parts.maskPitch + static_cast<size_t>(x / 8)];
      icon->mask[row + static_cast<size_t>(x)] = byte >> (7 - x % 8) & 1;
    }
  }
  if (parts.color.bitCount == 32) {
    icon->hasAlpha = std::any_of(icon->image.begin(), icon->image.end(), [](uint32_t w) { return w >> 24; });
  }
  if (icon->mono) {
    for (uint32_t& word : icon->image) word = NearestMono(word);
  }
  return icon;
}

// The same picture at another size, by nearest pixels.
void Resize(Icon& icon, int width, int height) {
  std::vector<uint32_t> image;
  std::vector<uint8_t> mask;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      auto from = static_cast<size_t>(static_cast<long long>(y) * icon.height / height) *
                      static_cast<size_t>(icon.width) +
                  static_cast<size_t>(static_cast<long long>(x) * icon.width / width);
      image.push_back(icon.image[from]);
      mask.push_back(icon.mask[from]);
    }
  }
  icon.hotSpot = {static_cast<LONG>(static_cast<long long>(icon.hotSpot.x) * width / icon.width),
                  static_cast<LONG>(static_cast<long long>(icon.hotSpot.y) * height / icon.height)};
  icon.width = width;
  icon.height = height;
  icon.image = std::move(image);
  icon.mask = std::move(mask);
}

}  // namespace
}  // namespace desktop

using namespace desktop;

HICON WINAPI CreateIconFromResourceEx(PBYTE bits, DWORD size, BOOL isIcon, DWORD, int width, int height,
                                      UINT flags) {
  WorldLock lock(WorldMutex());
  if (!bits || width < 0 || height < 0) return nullptr;
  const BYTE* bytes = bits;
  size_t left = size;
  POINT hotSpot{};
  if (!isIcon) {
    // A cursor's image follows its hot spot.
    if (left < 4) return nullptr;
    hotSpot = {WordAt(bytes), WordAt(bytes + 2)};
    bytes += 4;
    left -= 4;
  }
  std::optional<Parts> parts = Split(bytes, left);
  if (!parts) return nullptr;
  std::unique_ptr<Icon> icon = ReadIcon(*parts);
  icon->isIcon = isIcon != FALSE;
  icon->hotSpot = isIcon ? POINT{icon->width / 2, icon->height / 2} : hotSpot;
  if (flags & LR_DEFAULTSIZE) {
    if (!width) width = GetSystemMetrics(isIcon ? SM_CXICON : SM_CXCURSOR);
    if (!height) height = GetSystemMetrics(isIcon ? SM_CYICON : SM_CYCURSOR);
  }
  int newWidth = width ? width : icon->width;
  int newHeight = height ? height : icon->height;
  if (newWidth > 0x1000 || newHeight > 0x1000) return nullptr;
  if (newWidth != icon->width || newHeight != icon->height) Resize(*icon, newWidth, newHeight);
  return AddIcon(std::move(icon));
}

HICON WINAPI CreateIconFromResource(PBYTE bits, DWORD size, BOOL isIcon, DWORD version) {
  return CreateIconFromResourceEx(bits, size, isIcon, version, 0, 0, LR_DEFAULTSIZE);
}

int WINAPI LookupIconIdFromDirectoryEx(PBYTE directory, BOOL isIcon, int width, int height, UINT) {
  if (!directory) return 0;
  int count = WordAt(directory + 4);
  if (WordAt(directory) != 0 || WordAt(directory + 2) != (isIcon ? 1 : 2)) return 0;
  if (!width) width = GetSystemMetrics(isIcon ? SM_CXICON : SM_CXCURSOR);
  if (!height) height = GetSystemMetrics(isIcon ? SM_CYICON : SM_CYCURSOR);
  int best = 0;
  long long bestScore = -1;
  for (int i = 0; i < count; ++i) {
    const BYTE* entry = directory + kGroupHeaderSize + static_cast<size_t>(i) * kGroupEntrySize;
    // Cursors hold 16-bit sizes, the height of colours and mask together.
    int w = isIcon ? (entry[0] ? entry[0] : 256) : WordAt(entry);
    int h = isIcon ? (entry[1] ? entry[1] : 256) : WordAt(entry + 2) / 2;
    long long score =
        (std::abs(w - width) + std::abs(h - height)) * 64LL + (32 - std::min<int>(32, WordAt(entry + 6)));
    if (bestScore >= 0 && score >= bestScore) continue;
    bestScore = score;
    best = WordAt(entry + 12);
  }
  return best;
}
