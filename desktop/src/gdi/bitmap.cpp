// Bitmaps: their pixels, and the calls that make and describe them.
#include "bitmap.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "../world.h"
#include "device_context.h"
#include "dib.h"

namespace desktop {
namespace {

constexpr int kMaxSide = 0x7fff;
constexpr long long kMaxPixels = 1LL << 27;

bool IsReasonable(long long width, long long height) {
  return width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide && width * height <= kMaxPixels;
}

// The rows of a bitmap that is no section, as GetBitmapBits gives them: padded to 16 bits, top first.
size_t BitmapPitch(int width, int bitCount) {
  return (static_cast<size_t>(width) * static_cast<size_t>(bitCount) + 15) / 16 * 2;
}

DibFormat PlainFormat(const Bitmap& bitmap) {
  DibFormat format;
  format.width = bitmap.width;
  format.height = bitmap.height;
  format.topDown = true;
  format.bitCount = bitmap.bitCount;
  if (format.bitCount == 16) {
    format.masks[0] = 0xf800;
    format.masks[1] = 0x07e0;
    format.masks[2] = 0x001f;
  }
  if (format.bitCount <= 8) format.colors = DefaultColors(format.bitCount);
  return format;
}

int RoundDepth(unsigned bits) {
  for (int depth : {1, 4, 8, 16, 24, 32}) {
    if (bits <= static_cast<unsigned>(depth)) return depth;
  }
  return 0;
}

}  // namespace

Bitmap::Bitmap(int w, int h, int depth) : GdiObject(OBJ_BITMAP), width(w), height(h), bitCount(depth) {
  words.resize(static_cast<size_t>(w) * static_cast<size_t>(h));
}

PixelView Bitmap::View() {
  if (!isSection) return {words.data(), width, width, height};
  size_t pitch = format.Pitch();
  if (format.IsNative()) {
    auto* first = reinterpret_cast<uint32_t*>(bits.data());
    ptrdiff_t stride = width;
    return format.topDown ? PixelView{first, stride, width, height}
                          : PixelView{first + stride * (height - 1), -stride, width, height};
  }
  words.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
  for (int y = 0; y < height; ++y) {
    auto stored = static_cast<size_t>(format.topDown ? y : height - 1 - y);
    DecodeRow(format, bits.data() + stored * pitch, 0, width, words.data() + static_cast<size_t>(y) * width);
  }
  return {words.data(), width, width, height};
}

void Bitmap::Written() {
  if (!isSection || format.IsNative()) return;
  // Only what changed is encoded, so that equal colours of a palette keep their indices.
  std::vector<uint32_t> before(static_cast<size_t>(width));
  for (int y = 0; y < height; ++y) {
    auto stored = static_cast<size_t>(format.topDown ? y : height - 1 - y);
    BYTE* row = bits.data() + stored * format.Pitch();
    const uint32_t* now = words.data() + static_cast<size_t>(y) * width;
    DecodeRow(format, row, 0, width, before.data());
    for (int x = 0; x < width; ++x) {
      if (now[x] != before[static_cast<size_t>(x)]) EncodePixel(format, now[x], x, row);
    }
  }
}

int Bitmap::Describe(int size, void* buffer) const {
  auto depth = static_cast<WORD>(bitCount);
  BITMAP record{0, width, height, static_cast<LONG>(BitmapPitch(width, bitCount)), 1, depth, nullptr};
  if (!buffer) return sizeof(record);
  if (!isSection)
    return size < static_cast<int>(sizeof(record)) ? 0 : DescribeAs(&record, sizeof(record), size, buffer);
  record.bmWidthBytes = static_cast<LONG>(format.Pitch());
  record.bmBits = const_cast<BYTE*>(bits.data());
  if (size < static_cast<int>(sizeof(DIBSECTION))) {
    return size < static_cast<int>(sizeof(record))
               ? 0
               : DescribeAs(&record, sizeof(record), sizeof(record), buffer);
  }
  DIBSECTION section{};
  section.dsBm = record;
  section.dsBmih.biSize = sizeof(BITMAPINFOHEADER);
  section.dsBmih.biWidth = width;
  section.dsBmih.biHeight = format.topDown ? -height : height;
  section.dsBmih.biPlanes = 1;
  section.dsBmih.biBitCount = depth;
  section.dsBmih.biSizeImage = static_cast<DWORD>(format.Size());
  if (bitCount == 16 || !(format.IsNative() || bitCount != 32)) {
    section.dsBmih.biCompression = BI_BITFIELDS;
    std::memcpy(section.dsBitfields, format.masks, sizeof(format.masks));
  }
  return DescribeAs(&section, sizeof(section), size, buffer);
}

HBITMAP MakeBitmap(int width, int height, int bitCount) {
  if (!IsReasonable(width, height)) return nullptr;
  return static_cast<HBITMAP>(AddObject(std::make_unique<Bitmap>(width, height, bitCount)));
}

}  // namespace desktop

using namespace desktop;

HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits) {
  WorldLock lock(WorldMutex());
  int depth = RoundDepth(bitsPerPixel);
  if (planes != 1 || !depth) return nullptr;
  if (width == 0 || height == 0) return FailsHere() ? nullptr : DefaultBitmap();
  HBITMAP bitmap = MakeBitmap(static_cast<int>(std::abs(static_cast<long long>(width))),
                              static_cast<int>(std::abs(static_cast<long long>(height))), depth);
  if (bitmap && bits) SetBitmapBits(bitmap, 0xffffffff, bits);
  return bitmap;
}

HBITMAP WINAPI CreateBitmapIndirect(const BITMAP* record) {
  if (!record) return nullptr;
  return CreateBitmap(record->bmWidth, record->bmHeight, record->bmPlanes, record->bmBitsPixel,
                      record->bmBits);
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC handle, int width, int height) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return nullptr;
  Bitmap* like = dc->kind == DeviceContext::Kind::Memory ? FindBitmap(dc->state.bitmap) : nullptr;
  return CreateBitmap(width, height, 1, static_cast<UINT>(like ? like->bitCount : 32), nullptr);
}

LONG WINAPI GetBitmapBits(HBITMAP handle, LONG size, LPVOID bits) {
  WorldLock lock(WorldMutex());
  Bitmap* bitmap = FindBitmap(handle);
  if (!bitmap) return 0;
  size_t pitch = BitmapPitch(bitmap->width, bitmap->bitCount);
  size_t total = pitch * static_cast<size_t>(bitmap->height);
  if (!bits) return static_cast<LONG>(total);
  if (size < 0) return 0;
  DibFormat format = bitmap->isSection ? bitmap->format : PlainFormat(*bitmap);
  PixelView view = bitmap->View();
  std::vector<BYTE> row(format.Pitch());
  size_t limit = std::min(total, static_cast<size_t>(size));
  size_t done = 0;
  for (int y = 0; done < limit; ++y) {
    EncodeRow(format, view.row(y), view.width, row.data());
    size_t count = std::min(pitch, limit - done);
    std::memcpy(static_cast<BYTE*>(bits) + done, row.data(), count);
    done += count;
  }
  return static_cast<LONG>(done);
}

LONG WINAPI SetBitmapBits(HBITMAP handle, DWORD size, const void* bits) {
  WorldLock lock(WorldMutex());
  Bitmap* bitmap = FindBitmap(handle);
  if (!bitmap || !bits) return 0;
  size_t pitch = BitmapPitch(bitmap->width, bitmap->bitCount);
  size_t limit = std::min(pitch * static_cast<size_t>(bitmap->height), size_t{size});
  DibFormat format = bitmap->isSection ? bitmap->format : PlainFormat(*bitmap);
  PixelView view = bitmap->View();
  std::vector<BYTE> row(format.Pitch());
  size_t done = 0;
  for (int y = 0; done < limit; ++y) {
    size_t count = std::min(pitch, limit - done);
    std::memcpy(row.data(), static_cast<const BYTE*>(bits) + done, count);
    auto pixels = static_cast<int>(
        std::min<size_t>(static_cast<size_t>(view.width), count * 8 / static_cast<size_t>(bitmap->bitCount)));
    DecodeRow(format, row.data(), 0, pixels, view.row(y));
    done += count;
  }
  bitmap->Written();
  return static_cast<LONG>(done);
}

BOOL WINAPI GetBitmapDimensionEx(HBITMAP handle, LPSIZE dimension) {
  WorldLock lock(WorldMutex());
  Bitmap* bitmap = FindBitmap(handle);
  if (!bitmap || !dimension) return FALSE;
  *dimension = bitmap->dimension;
  return TRUE;
}

BOOL WINAPI SetBitmapDimensionEx(HBITMAP handle, int width, int height, LPSIZE old) {
  WorldLock lock(WorldMutex());
  Bitmap* bitmap = FindBitmap(handle);
  if (!bitmap) return FALSE;
  SIZE before = std::exchange(bitmap->dimension, SIZE{width, height});
  if (old) *old = before;
  return TRUE;
}
