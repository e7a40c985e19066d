// Drawing of images out of lists, and lists made of drawn images.
#include <algorithm>

#include "../world.h"
#include "dib.h"
#include "image_list.h"
#include "paint.h"

namespace desktop {
namespace {

uint32_t Mix(uint32_t source, uint32_t below, uint32_t alpha) {
  uint32_t result = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    uint32_t sum = ((source >> shift) & 0xff) * alpha + ((below >> shift) & 0xff) * (255 - alpha);
    result |= ((sum + 127) / 255) << shift;
  }
  return result;
}

// The pixels that a blend style recolours: every second one, or one in four.
bool IsBlended(UINT style, int x, int y) {
  if (style & ILD_BLEND50) return (x + y) % 2 != 0;
  if (style & ILD_BLEND25) return y % 2 == 0 && x % 2 == (y % 4 == 0 ? 0 : 1);
  return false;
}

void DrawCell(DeviceContext& dc, ImageList& list, int index, const RECT& area, POINT offset,
              const ImageStyle& style) {
  ImageSource source(list, index, style);
  Canvas canvas(dc);
  if (!canvas) return;
  bool mono = dc.IsMono();
  ForEachPiece(dc, area, [&](const RECT& piece) {
    for (int y = piece.top; y < piece.bottom; ++y) {
      uint32_t* row = canvas.Pixels().row(y);
      for (int x = piece.left; x < piece.right; ++x) {
        uint32_t word = source.Over(x - area.left + offset.x, y - area.top + offset.y, row[x]);
        row[x] = mono ? NearestMono(word) : word;
      }
    }
  });
}

// Size 0 means all that is left of the image.
int DrawnSize(int asked, int full, int offset) {
  int left = std::max(0, full - offset);
  return asked > 0 ? std::min(asked, left) : left;
}

BOOL DrawImage(const IMAGELISTDRAWPARAMS& params) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(params.himl);
  DeviceContext* dc = FindDC(params.hdcDst);
  if (!list || !dc || !list->IsValid(params.i) || params.xBitmap < 0 || params.yBitmap < 0) return FALSE;
  int width = DrawnSize(params.cx, list->width, params.xBitmap);
  int height = DrawnSize(params.cy, list->height, params.yBitmap);
  POINT corner = dc->ToSurface(params.x, params.y);
  RECT area{corner.x, corner.y, corner.x + width, corner.y + height};
  ImageStyle style{params.fStyle, params.rgbBk, params.rgbFg, 255};
  if (params.fState & ILS_ALPHA) style.alpha = static_cast<int>(params.Frame & 0xff);
  POINT offset{params.xBitmap, params.yBitmap};
  DrawCell(*dc, *list, params.i, area, offset, style);
  UINT overlay = (params.fStyle & ILD_OVERLAYMASK) >> 8;
  int overlayIndex = overlay ? list->overlays[overlay - 1] - 1 : -1;
  if (!list->IsValid(overlayIndex)) return TRUE;
  style.style = (style.style & ~static_cast<UINT>(ILD_OVERLAYMASK)) | ILD_TRANSPARENT;
  DrawCell(*dc, *list, overlayIndex, area, offset, style);
  return TRUE;
}

// Draws an image into the first cell of another list, keeping what is there where it is transparent.
void Stamp(ImageList& to, ImageList& from, int index, int dx, int dy) {
  Bitmap* target = FindBitmap(to.image);
  Bitmap* targetMask = FindBitmap(to.mask);
  Bitmap* source = FindBitmap(from.image);
  Bitmap* sourceMask = FindBitmap(from.mask);
  PixelView image = target->View();
  PixelView mask = targetMask->View();
  PixelView fromImage = source->View();
  POINT cell = from.CellOf(index);
  for (int y = std::max(0, -dy); y < from.height && y + dy < to.height; ++y) {
    for (int x = std::max(0, -dx); x < from.width && x + dx < to.width; ++x) {
      if (sourceMask && (sourceMask->View().row(cell.y + y)[cell.x + x] & 0xffffff)) continue;
      image.row(y + dy)[x + dx] = fromImage.row(cell.y + y)[cell.x + x];
      mask.row(y + dy)[x + dx] = 0;
    }
  }
  target->Written();
}

}  // namespace

ImageSource::ImageSource(ImageList& list, int index, const ImageStyle& style)
    : m_image(FindBitmap(list.image)->View()), m_cell(list.CellOf(index)), m_style(style) {
  if (Bitmap* mask = FindBitmap(list.mask)) m_mask = mask->View();
  m_hasAlpha = list.HasAlpha(index);
  COLORREF ground = style.background == CLR_DEFAULT ? list.background : style.background;
  m_fillsGround = !(style.style & ILD_TRANSPARENT) && ground != CLR_NONE;
  m_ground = ToWord(ground & 0xffffff);
  COLORREF blend = style.foreground == CLR_DEFAULT ? GetSysColor(COLOR_HIGHLIGHT) : style.foreground;
  m_blend = blend == CLR_NONE ? 0 : ToWord(blend & 0xffffff);
}

uint32_t ImageSource::Plain(int x, int y, uint32_t below) const {
  uint32_t word = m_image.row(m_cell.y + y)[m_cell.x + x];
  bool transparent = m_mask && (m_mask.row(m_cell.y + y)[m_cell.x + x] & 0xffffff);
  if (m_fillsGround) below = m_ground;
  if ((m_style.style & (ILD_MASK | ILD_IMAGE)) == ILD_MASK) return transparent ? below : 0;
  if (transparent && !m_hasAlpha) return below;
  if (IsBlended(m_style.style, x, y)) return m_blend;
  return m_hasAlpha ? Mix(word, below, word >> 24) : word & 0xffffff;
}

uint32_t ImageSource::Over(int x, int y, uint32_t below) const {
  uint32_t word = Plain(x, y, below);
  return m_style.alpha == 255 ? word : Mix(word, below, static_cast<uint32_t>(m_style.alpha));
}

}  // namespace desktop

using namespace desktop;

BOOL WINAPI ImageList_DrawIndirect(IMAGELISTDRAWPARAMS* params) {
  // The state fields came later than the first version of the record.
  constexpr DWORD kFirstVersion = offsetof(IMAGELISTDRAWPARAMS, fState);
  if (!params || params->cbSize < kFirstVersion) return FALSE;
  IMAGELISTDRAWPARAMS copy{};
  std::memcpy(&copy, params, std::min<size_t>(params->cbSize, sizeof(copy)));
  return DrawImage(copy);
}

BOOL WINAPI ImageList_DrawEx(HIMAGELIST list, int index, HDC dc, int x, int y, int width, int height,
                             COLORREF background, COLORREF foreground, UINT style) {
  IMAGELISTDRAWPARAMS params{};
  params.cbSize = sizeof(params);
  params.himl = list;
  params.i = index;
  params.hdcDst = dc;
  params.x = x;
  params.y = y;
  params.cx = width;
  params.cy = height;
  params.rgbBk = background;
  params.rgbFg = foreground;
  params.fStyle = style;
  return DrawImage(params);
}

BOOL WINAPI ImageList_Draw(HIMAGELIST list, int index, HDC dc, int x, int y, UINT style) {
  return ImageList_DrawEx(list, index, dc, x, y, 0, 0, CLR_DEFAULT, CLR_DEFAULT, style);
}

HIMAGELIST WINAPI ImageList_Merge(HIMAGELIST firstHandle, int firstIndex, HIMAGELIST secondHandle,
                                  int secondIndex, int dx, int dy) {
  WorldLock lock(WorldMutex());
  ImageList* first = FindImageList(firstHandle);
  ImageList* second = FindImageList(secondHandle);
  if (!first || !second || dx < -0x4000 || dx > 0x4000 || dy < -0x4000 || dy > 0x4000) return nullptr;
  int left = std::min(0, dx);
  int top = std::min(0, dy);
  int width = std::max(first->width, dx + second->width) - left;
  int height = std::max(first->height, dy + second->height) - top;
  std::unique_ptr<ImageList> merged = MakeImageList(width, height, ILC_COLOR32 | ILC_MASK, 1, 1);
  if (!merged) return nullptr;
  PixelView mask = FindBitmap(merged->mask)->View();
  for (int y = 0; y < height; ++y) std::fill_n(mask.row(y), width, 0xffffff);
  merged->count = 1;
  if (first->IsValid(firstIndex)) Stamp(*merged, *first, firstIndex, -left, -top);
  if (second->IsValid(secondIndex)) Stamp(*merged, *second, secondIndex, dx - left, dy - top);
  return AddImageList(std::move(merged));
}
