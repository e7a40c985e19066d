// Image lists. All of it expects that the lock is held.
//
// The pictures of a list lie four to a row in one bitmap, and their masks likewise in another; both grow by
// rows. The bitmaps belong to the list: DeleteObject leaves them alone.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include <windows.h>
#include <commctrl.h>

#include "bitmap.h"

namespace desktop {

struct ImageList {
  static constexpr int kColumns = 4;
  static constexpr int kOverlays = 15;

  ~ImageList();
  POINT CellOf(int index) const { return {index % kColumns * width, index / kColumns * height}; }
  bool HasMask() const { return flags & ILC_MASK; }
  bool IsValid(int index) const { return index >= 0 && index < count; }
  // True when the pixels of an image carry opacity.
  bool HasAlpha(int index) const;

  int width = 0;
  int height = 0;
  UINT flags = 0;
  int count = 0;
  int capacity = 0;
  int grow = 0;
  COLORREF background = CLR_NONE;
  std::array<int, kOverlays> overlays{};  // image index + 1
  HBITMAP image = nullptr;
  HBITMAP mask = nullptr;
};

ImageList* FindImageList(HIMAGELIST handle);
// A new list with bitmaps for `capacity` images; null on failure.
std::unique_ptr<ImageList> MakeImageList(int width, int height, UINT flags, int capacity, int grow);
HIMAGELIST AddImageList(std::unique_ptr<ImageList> list);
// Makes room for `more` images beyond the count. False when memory is refused.
bool GrowImageList(ImageList& list, int more);

// Copies one cell between lists (or within one).
void CopyCell(ImageList& to, int toIndex, ImageList& from, int fromIndex);

// How one image is drawn.
struct ImageStyle {
  UINT style = ILD_NORMAL;
  COLORREF background = CLR_DEFAULT;
  COLORREF foreground = CLR_DEFAULT;
  int alpha = 255;  // of the whole image over what lies below
};
// What the pixel (x, y) of an image makes of the pixel below it. View arguments are those of the list's
// bitmaps.
class ImageSource {
 public:
  ImageSource(ImageList& list, int index, const ImageStyle& style);
  uint32_t Over(int x, int y, uint32_t below) const;

 private:
  uint32_t Plain(int x, int y, uint32_t below) const;

  PixelView m_image;
  PixelView m_mask;
  POINT m_cell;
  ImageStyle m_style;
  bool m_hasAlpha;
  bool m_fillsGround;
  uint32_t m_ground = 0;
  uint32_t m_blend = 0;
};

// Frees all image lists and ends a drag.
void ResetImageLists();
// The drag's own picture is not the host's: it is freed here when the drag ends.
void FreeImageList(HIMAGELIST handle);
void ForgetDrag();

}  // namespace desktop
