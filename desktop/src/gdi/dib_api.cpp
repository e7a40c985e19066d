// Device-independent bitmaps: sections, and transfers to and from bitmaps.
#include <algorithm>
#include <cstring>

#include "../world.h"
#include "bitmap.h"
#include "bounded.h"
#include "device_context.h"
#include "dib.h"

namespace desktop {
namespace {

// The format that a header query reports for a bitmap.
void DescribeFormat(const Bitmap& bitmap, BITMAPINFO* info) {
  BITMAPINFOHEADER& header = info->bmiHeader;
  DWORD size = header.biSize;
  header = {};
  header.biSize = size;
  header.biWidth = bitmap.width;
  header.biHeight = bitmap.isSection && bitmap.format.topDown ? -bitmap.height : bitmap.height;
  header.biPlanes = 1;
  header.biBitCount = static_cast<WORD>(bitmap.bitCount);
  bool masked = bitmap.bitCount == 16 || bitmap.bitCount == 32;
  header.biCompression = masked && !bitmap.isSection ? BI_BITFIELDS : BI_RGB;
  DibFormat format = bitmap.format;
  format.width = bitmap.width;
  format.height = bitmap.height;
  format.bitCount = bitmap.bitCount;
  header.biSizeImage = static_cast<DWORD>(format.Size());
}

// Writes what GetDIBits tells besides the pixels: the image size, and the colours or masks.
void CompleteHeader(const Bitmap& bitmap, DibFormat& format, BITMAPINFO* info) {
  BITMAPINFOHEADER& header = info->bmiHeader;
  if (header.biSize < sizeof(BITMAPINFOHEADER)) return;
  header.biSizeImage = static_cast<DWORD>(format.Size());
  BYTE* after = reinterpret_cast<BYTE*>(info) + header.biSize;
  if (format.bitCount <= 8) {
    bool sameDepth = bitmap.isSection && bitmap.bitCount == format.bitCount;
    format.colors = sameDepth ? bitmap.format.colors : DefaultColors(format.bitCount);
    std::memcpy(after, format.colors.data(), format.colors.size() * sizeof(RGBQUAD));
    header.biClrUsed = 0;
  }
}

// GetDIBits takes the layout of pixels from the header but not its colours.
std::optional<DibFormat> RequestedFormat(BITMAPINFO* info) {
  BITMAPINFOHEADER& header = info->bmiHeader;
  if (header.biSize < sizeof(BITMAPINFOHEADER)) return ReadDibFormat(info, DIB_RGB_COLORS);
  if (header.biCompression == BI_BITFIELDS && (header.biBitCount == 16 || header.biBitCount == 32)) {
    // The masks are results here: the plain ones.
    const DWORD masks32[] = {0xff0000, 0xff00, 0xff};
    const DWORD masks16[] = {0xf800, 0x07e0, 0x001f};
    std::memcpy(reinterpret_cast<BYTE*>(info) + sizeof(BITMAPINFOHEADER),
                header.biBitCount == 32 ? masks32 : masks16, sizeof(masks32));
  }
  // Without its colours, which may not be there yet.
  struct {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256];
  } plain{};
  plain.header = header;
  if (header.biBitCount > 8) return ReadDibFormat(info, DIB_RGB_COLORS);
  plain.header.biSize = sizeof(BITMAPINFOHEADER);
  plain.header.biClrUsed = 0;
  return ReadDibFormat(reinterpret_cast<BITMAPINFO*>(&plain), DIB_RGB_COLORS);
}

// A format of the wrong height still names lines of the bitmap, counted from its bottom or top.
int SourceLine(const DibFormat& format, int line) { return format.topDown ? line : format.height - 1 - line; }

}  // namespace
}  // namespace desktop

using namespace desktop;

int WINAPI GetDIBits(HDC dc, HBITMAP handle, UINT start, UINT lines, LPVOID bits, LPBITMAPINFO info,
                     UINT usage) {
  WorldLock lock(WorldMutex());
  Bitmap* bitmap = FindBitmap(handle);
  if (!FindDC(dc) || !bitmap || !info || usage > DIB_PAL_COLORS) return 0;
  if (info->bmiHeader.biSize >= sizeof(BITMAPINFOHEADER) && info->bmiHeader.biBitCount == 0) {
    DescribeFormat(*bitmap, info);
    return bitmap->height;
  }
  std::optional<DibFormat> format = RequestedFormat(info);
  if (!format) return 0;
  CompleteHeader(*bitmap, *format, info);
  if (!bits) return 1;
  PixelView view = bitmap->View();
  UINT height = static_cast<UINT>(format->height);
  UINT count = start >= height ? 0 : std::min(lines, height - start);
  std::vector<uint32_t> row(static_cast<size_t>(format->width));
  for (UINT i = 0; i < count; ++i) {
    BYTE* out = static_cast<BYTE*>(bits) + size_t{i} * format->Pitch();
    int y = SourceLine(*format, static_cast<int>(start + i));
    // Lines count from the bottom of the bitmap even when the asked height differs from its own.
    if (!format->topDown) y += view.height - format->height;
    std::fill(row.begin(), row.end(), 0);
    if (y >= 0 && y < view.height) std::copy_n(view.row(y), std::min(view.width, format->width), row.data());
    EncodeRow(*format, row.data(), format->width, out);
  }
  return static_cast<int>(count);
}

int WINAPI SetDIBits(HDC, HBITMAP handle, UINT start, UINT lines, const void* bits, const BITMAPINFO* info,
                     UINT usage) {
  WorldLock lock(WorldMutex());
  Bitmap* bitmap = FindBitmap(handle);
  std::optional<DibFormat> format = ReadDibFormat(info, usage);
  if (!bitmap || !bits || !format) return 0;
  PixelView view = bitmap->View();
  UINT height = static_cast<UINT>(format->height);
  UINT count = start >= height ? 0 : std::min(lines, height - start);
  int width = std::min(view.width, format->width);
  std::vector<uint32_t> row(static_cast<size_t>(width));
  for (UINT i = 0; i < count; ++i) {
    int y = SourceLine(*format, static_cast<int>(start + i));
    if (!format->topDown) y += view.height - format->height;
    if (y < 0 || y >= view.height) continue;
    DecodeRow(*format, static_cast<const BYTE*>(bits) + size_t{i} * format->Pitch(), 0, width, row.data());
    if (bitmap->IsMono())
      for (uint32_t& word : row) word = NearestMono(word);
    std::copy_n(row.data(), width, view.row(y));
  }
  bitmap->Written();
  return static_cast<int>(count);
}

HBITMAP WINAPI CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD) {
  WorldLock lock(WorldMutex());
  if (bits) *bits = nullptr;
  std::optional<DibFormat> format = ReadDibFormat(info, usage);
  if (!format || section || usage > DIB_PAL_COLORS) return nullptr;
  if (static_cast<long long>(format->width) * format->height > (1LL << 27)) return nullptr;
  auto bitmap = std::make_unique<Bitmap>(0, 0, format->bitCount);
  bitmap->width = format->width;
  bitmap->height = format->height;
  bitmap->isSection = true;
  bitmap->bits.resize(format->Size());
  bitmap->format = std::move(*format);
  void* memory = bitmap->bits.data();
  auto handle = static_cast<HBITMAP>(AddObject(std::move(bitmap)));
  if (handle && bits) *bits = memory;
  return handle;
}

HBITMAP WINAPI CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                              const BITMAPINFO* info, UINT usage) {
  WorldLock lock(WorldMutex());
  if (!header || (init & CBM_INIT && (!bits || !info))) return nullptr;
  // A black and white DIB of two colours makes a mono bitmap only when no DC says otherwise.
  bool mono = !dc;
  HBITMAP bitmap =
      CreateBitmap(header->biWidth, std::abs(Bounded(header->biHeight)), 1, mono ? 1 : 32, nullptr);
  if (bitmap && (init & CBM_INIT))
    SetDIBits(dc, bitmap, 0, static_cast<UINT>(std::abs(Bounded(header->biHeight))), bits, info, usage);
  return bitmap;
}

UINT WINAPI GetDIBColorTable(HDC handle, UINT start, UINT count, RGBQUAD* colors) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  Bitmap* bitmap = dc ? FindBitmap(dc->state.bitmap) : nullptr;
  if (!bitmap || !bitmap->isSection || !colors) return 0;
  auto have = static_cast<UINT>(bitmap->format.colors.size());
  if (start >= have) return 0;
  count = std::min(count, have - start);
  std::copy_n(bitmap->format.colors.begin() + start, count, colors);
  return count;
}

UINT WINAPI SetDIBColorTable(HDC handle, UINT start, UINT count, const RGBQUAD* colors) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  Bitmap* bitmap = dc ? FindBitmap(dc->state.bitmap) : nullptr;
  if (!bitmap || !bitmap->isSection || !colors) return 0;
  auto have = static_cast<UINT>(bitmap->format.colors.size());
  if (start >= have) return 0;
  count = std::min(count, have - start);
  std::copy_n(colors, count, bitmap->format.colors.begin() + start);
  return count;
}
