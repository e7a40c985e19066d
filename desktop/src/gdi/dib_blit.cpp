// Device-independent bits put straight on a DC.
#include <algorithm>

#include "../world.h"
#include "dib.h"
#include "paint.h"

namespace desktop {
namespace {

// The bits as a temporary memory DC, so that they go the way of every other source. Rows outside of
// [start, start + lines) stay black.
class DibSource {
 public:
  DibSource(const DibFormat& format, const void* bits, UINT start, UINT lines) {
    m_bitmap =
        static_cast<HBITMAP>(AddStockObject(std::make_unique<Bitmap>(format.width, format.height, 32)));
    Bitmap* bitmap = FindBitmap(m_bitmap);
    if (!bitmap) return;
    PixelView view = bitmap->View();
    for (UINT i = 0; i < lines && start + i < static_cast<UINT>(format.height); ++i) {
      int line = static_cast<int>(start + i);
      int y = format.topDown ? line : format.height - 1 - line;
      DecodeRow(format, static_cast<const BYTE*>(bits) + size_t{i} * format.Pitch(), 0, format.width,
                view.row(y));
    }
    m_dc.state.bitmap = m_bitmap;
  }
  ~DibSource() { FreeObject(m_bitmap); }
  DibSource(const DibSource&) = delete;
  DibSource& operator=(const DibSource&) = delete;

  explicit operator bool() const { return FindBitmap(m_bitmap) != nullptr; }
  DeviceContext& Dc() { return m_dc; }

 private:
  DeviceContext m_dc{DeviceContext::Kind::Memory};
  HBITMAP m_bitmap = nullptr;
};

void Put(DeviceContext& dc, DibSource& source, const BlitShape& shape, BYTE rop) {
  Block block = ReadBlock(dc, source.Dc(), shape, true);
  // Unlike a bitmap's, these colours go to a mono bitmap by nearness.
  if (dc.IsMono()) {
    for (uint32_t& word : block.words) word = NearestMono(word);
  }
  if (!block.words.empty()) PutBlock(dc, block, BrushPaint(dc, dc.state.brush), rop);
}

}  // namespace
}  // namespace desktop

using namespace desktop;

int WINAPI SetDIBitsToDevice(HDC handle, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                             UINT start, UINT lines, const void* bits, const BITMAPINFO* info, UINT usage) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  std::optional<DibFormat> format = ReadDibFormat(info, usage);
  if (!dc || !bits || !format) return 0;
  DibSource source(*format, bits, start, lines);
  if (!source) return 0;
  POINT to = dc->ToSurface(x, y);
  auto w = static_cast<int>(std::min<DWORD>(width, 0x7fff));
  auto h = static_cast<int>(std::min<DWORD>(height, 0x7fff));
  // The source rectangle is named by its lower left corner, and only its lines given are drawn.
  int firstRow = format->topDown ? static_cast<int>(start)
                                 : format->height - static_cast<int>(std::min<UINT>(start + lines, 0x7fff));
  int endRow = format->topDown ? static_cast<int>(std::min<UINT>(start + lines, 0x7fff))
                               : format->height - static_cast<int>(start);
  int top = format->height - sourceY - h;
  int skip = std::max({0, -top, firstRow - top});
  int rows = std::min({h, format->height - top, endRow - top}) - skip;
  if (rows <= 0) return 0;
  Put(*dc, source, {to.x, to.y + skip, w, rows, sourceX, top + skip, w, rows}, TernaryFromRop(SRCCOPY));
  return static_cast<int>(lines);
}

int WINAPI StretchDIBits(HDC handle, int x, int y, int width, int height, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, const void* bits, const BITMAPINFO* info,
                         UINT usage, DWORD rop) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  std::optional<DibFormat> format = ReadDibFormat(info, usage);
  if (!dc || !format) return 0;
  if (!UsesSource(TernaryFromRop(rop))) return PatBlt(handle, x, y, width, height, rop) ? format->height : 0;
  if (!bits) return 0;
  DibSource source(*format, bits, 0, static_cast<UINT>(format->height));
  if (!source) return 0;
  POINT to = dc->ToSurface(x, y);
  // Rows count from the bottom of a bottom-up DIB.
  int top = format->topDown ? sourceY : format->height - sourceY - sourceHeight;
  auto size = [](int value) { return std::clamp(value, -0x7fff, 0x7fff); };
  Put(*dc, source,
      {to.x, to.y, size(width), size(height), sourceX, top, size(sourceWidth), size(sourceHeight)},
      TernaryFromRop(rop));
  return format->height;
}
