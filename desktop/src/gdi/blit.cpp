// Block transfers.
#include <algorithm>
#include <cstring>
#include <vector>

#include "../world.h"
#include "dib.h"
#include "paint.h"

namespace desktop {
namespace {

BlitShape ShapeOf(const DeviceContext& dc, const RECT& to, const DeviceContext* source, const RECT& from) {
  // RECT here holds x, y, width, height: sizes are kept apart from positions, which move with origins.
  POINT a = dc.ToSurface(to.left, to.top);
  POINT b = source ? source->ToSurface(from.left, from.top) : POINT{};
  const int kMost = 0x7ffff;
  auto size = [=](int value) { return std::clamp(value, -kMost, kMost); };
  return {a.x, a.y, size(to.right), size(to.bottom), b.x, b.y, size(from.right), size(from.bottom)};
}

bool SharePixels(const DeviceContext& a, const DeviceContext& b) {
  if (a.kind != b.kind) return false;
  if (a.kind == DeviceContext::Kind::Window) return a.target.surface == b.target.surface;
  return a.state.bitmap == b.state.bitmap;
}

// The straight way: same size, same colours, one clip rectangle at a time, no copy of the source.
bool CopyDirectly(DeviceContext& dc, DeviceContext& source, const BlitShape& shape, BYTE rop) {
  bool same = SharePixels(dc, source);
  if (UsesPattern(rop) || dc.IsMono() != source.IsMono() || shape.width <= 0 || shape.height <= 0)
    return false;
  if (same && (rop != 0xcc || !dc.Clip().IsRectangle())) return false;
  Canvas from(source);
  from.ReadOnly();
  Canvas to(dc);
  if (!from || !to) return true;
  int dx = shape.sourceX - shape.x;
  int dy = shape.sourceY - shape.y;
  RECT area{std::max(shape.x, -dx), std::max(shape.y, -dy),
            std::min(shape.x + shape.width, from.Pixels().width - dx),
            std::min(shape.y + shape.height, from.Pixels().height - dy)};
  ForEachPiece(dc, area, [&](const RECT& piece) {
    int rows = piece.bottom - piece.top;
    for (int i = 0; i < rows; ++i) {
      // Downward moves within one surface go from the last row up.
      int y = same && dy < 0 ? piece.bottom - 1 - i : piece.top + i;
      RopRow(rop, to.Pixels().row(y) + piece.left, from.Pixels().row(y + dy) + piece.left + dx, nullptr,
             piece.right - piece.left);
    }
  });
  return true;
}

BOOL Blit(HDC handle, const RECT& to, HDC sourceHandle, const RECT& from, DWORD code) {
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  BYTE rop = TernaryFromRop(code);
  if (!UsesSource(rop)) return PatBlt(handle, to.left, to.top, to.right, to.bottom, code);
  DeviceContext* source = FindDC(sourceHandle);
  if (!source) return FALSE;
  BlitShape shape = ShapeOf(*dc, to, source, from);
  bool sameSize = shape.width == shape.sourceWidth && shape.height == shape.sourceHeight;
  if (sameSize && CopyDirectly(*dc, *source, shape, rop)) return TRUE;
  Block block = ReadBlock(*dc, *source, shape, false);
  if (!block.words.empty()) PutBlock(*dc, block, BrushPaint(*dc, dc->state.brush), rop);
  return TRUE;
}

uint32_t BlendChannel(uint32_t source, uint32_t destination, uint32_t alpha, bool premultiplied) {
  uint32_t kept = (destination * (255 - alpha) + 127) / 255;
  uint32_t added = premultiplied ? source : (source * alpha + 127) / 255;
  return std::min<uint32_t>(255, kept + added);
}

uint32_t BlendWord(uint32_t source, uint32_t destination, BLENDFUNCTION blend) {
  uint32_t result = 0;
  uint32_t constant = blend.SourceConstantAlpha;
  bool perPixel = blend.AlphaFormat & AC_SRC_ALPHA;
  uint32_t alpha = perPixel ? ((source >> 24) * constant + 127) / 255 : constant;
  for (int shift = 0; shift < 32; shift += 8) {
    uint32_t channel = (source >> shift) & 0xff;
    if (perPixel) channel = (channel * constant + 127) / 255;
    result |= BlendChannel(channel, (destination >> shift) & 0xff, alpha, perPixel) << shift;
  }
  return result;
}

}  // namespace
}  // namespace desktop

using namespace desktop;

BOOL WINAPI PatBlt(HDC handle, int x, int y, int width, int height, DWORD code) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return FALSE;
  BYTE rop = TernaryFromRop(code);
  if (UsesSource(rop)) return FALSE;
  BlitShape shape = ShapeOf(*dc, {x, y, width, height}, nullptr, {});
  RECT area{shape.x, shape.y, shape.x + shape.width, shape.y + shape.height};
  // A negative size reaches to the left or up, the starting point included.
  if (shape.width < 0) area = {area.right + 1, area.top, area.left + 1, area.bottom};
  if (shape.height < 0) area = {area.left, area.bottom + 1, area.right, area.top + 1};
  FillArea(*dc, area, BrushPaint(*dc, dc->state.brush), rop);
  return TRUE;
}

BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                   DWORD rop) {
  WorldLock lock(WorldMutex());
  return Blit(dc, {x, y, width, height}, source, {sourceX, sourceY, width, height}, rop);
}

BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                       int sourceWidth, int sourceHeight, DWORD rop) {
  WorldLock lock(WorldMutex());
  return Blit(dc, {x, y, width, height}, source, {sourceX, sourceY, sourceWidth, sourceHeight}, rop);
}

BOOL WINAPI MaskBlt(HDC handle, int x, int y, int width, int height, HDC sourceHandle, int sourceX,
                    int sourceY, HBITMAP maskHandle, int maskX, int maskY, DWORD rop4) {
  WorldLock lock(WorldMutex());
  if (!maskHandle)
    return BitBlt(handle, x, y, width, height, sourceHandle, sourceX, sourceY, rop4 & 0xffffff);
  DeviceContext* dc = FindDC(handle);
  Bitmap* mask = FindBitmap(maskHandle);
  if (!dc || !mask || !mask->IsMono()) return FALSE;
  if (maskX < 0 || maskY < 0 || maskX + static_cast<long long>(width) > mask->width ||
      maskY + static_cast<long long>(height) > mask->height)
    return FALSE;
  // The mask as a region: white takes the foreground operation, black the background one.
  PixelView pixels = mask->View();
  std::vector<RECT> rows;
  POINT corner = dc->ToDevice(x, y);
  for (int row = 0; row < height; ++row) {
    for (int column = 0; column < width;) {
      int start = column;
      while (column < width && pixels.row(maskY + row)[maskX + column]) ++column;
      if (column > start)
        rows.push_back({corner.x + start, corner.y + row, corner.x + column, corner.y + row + 1});
      ++column;
    }
  }
  Region white = Region::FromRows(rows);
  Region black(RECT{corner.x, corner.y, corner.x + width, corner.y + height});
  black -= white;
  DcState kept = dc->state;
  BOOL done = TRUE;
  for (bool foreground : {true, false}) {
    Region area = foreground ? white : black;
    if (kept.hasClip) area &= kept.clip;
    dc->state.hasClip = true;
    dc->state.clip = area;
    dc->ClipChanged();
    DWORD rop = foreground ? rop4 & 0xffffff : (rop4 >> 8) & 0xff0000;
    done = BitBlt(handle, x, y, width, height, sourceHandle, sourceX, sourceY, rop) && done;
  }
  dc->state.hasClip = kept.hasClip;
  dc->state.clip = kept.clip;
  dc->ClipChanged();
  return done;
}

BOOL WINAPI GdiTransparentBlt(HDC handle, int x, int y, int width, int height, HDC sourceHandle, int sourceX,
                              int sourceY, int sourceWidth, int sourceHeight, UINT transparent) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  DeviceContext* source = FindDC(sourceHandle);
  if (!dc || !source || width < 0 || height < 0 || sourceWidth < 0 || sourceHeight < 0) return FALSE;
  BlitShape shape =
      ShapeOf(*dc, {x, y, width, height}, source, {sourceX, sourceY, sourceWidth, sourceHeight});
  Block block = ReadBlock(*dc, *source, shape, false);
  if (block.words.empty()) return TRUE;
  uint32_t hole = ToWord(transparent & 0xffffff);
  Canvas canvas(*dc);
  if (!canvas) return TRUE;
  ForEachPiece(*dc, block.area, [&](const RECT& piece) {
    for (int row = piece.top; row < piece.bottom; ++row) {
      const uint32_t* from = block.row(row) - block.area.left;
      uint32_t* to = canvas.Pixels().row(row);
      for (int column = piece.left; column < piece.right; ++column)
        if ((from[column] & 0xffffff) != hole) to[column] = from[column];
    }
  });
  return TRUE;
}

BOOL WINAPI TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                           int sourceWidth, int sourceHeight, UINT transparent) {
  return GdiTransparentBlt(dc, x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight,
                           transparent);
}

BOOL WINAPI GdiAlphaBlend(HDC handle, int x, int y, int width, int height, HDC sourceHandle, int sourceX,
                          int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  DeviceContext* source = FindDC(sourceHandle);
  if (!dc || !source || width < 0 || height < 0 || sourceWidth < 0 || sourceHeight < 0) return FALSE;
  if (blend.BlendOp != AC_SRC_OVER || sourceX < 0 || sourceY < 0) return FALSE;
  SIZE extent = source->Extent();
  if (static_cast<long long>(sourceX) + sourceWidth > extent.cx ||
      static_cast<long long>(sourceY) + sourceHeight > extent.cy)
    return FALSE;
  BlitShape shape =
      ShapeOf(*dc, {x, y, width, height}, source, {sourceX, sourceY, sourceWidth, sourceHeight});
  Block block = ReadBlock(*dc, *source, shape, source->IsMono() == dc->IsMono());
  if (block.words.empty()) return TRUE;
  Canvas canvas(*dc);
  if (!canvas) return TRUE;
  bool mono = dc->IsMono();
  ForEachPiece(*dc, block.area, [&](const RECT& piece) {
    for (int row = piece.top; row < piece.bottom; ++row) {
      const uint32_t* from = block.row(row) - block.area.left;
      uint32_t* to = canvas.Pixels().row(row);
      for (int column = piece.left; column < piece.right; ++column) {
        uint32_t word = BlendWord(from[column], to[column], blend);
        to[column] = mono ? NearestMono(word) : word;
      }
    }
  });
  return TRUE;
}

BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                       int sourceWidth, int sourceHeight, BLENDFUNCTION blend) {
  return GdiAlphaBlend(dc, x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight, blend);
}
