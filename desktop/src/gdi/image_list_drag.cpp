// Dragging an image over a window.
//
// One drag at a time for the whole desktop. While the picture shows, what lies below it is kept, and is put
// back before the picture moves, hides or leaves. Positions are relative to the corner of the window, its
// frame included.
#include <algorithm>
#include <vector>

#include "../world.h"
#include "image_list.h"
#include "paint.h"

namespace desktop {
namespace {

constexpr int kDragAlpha = 192;

struct Drag {
  HIMAGELIST list = nullptr;   // one image: the picture
  HIMAGELIST plain = nullptr;  // the picture before a cursor was merged into it, if one was
  POINT hotSpot{};
  POINT position{};
  HWND window = nullptr;
  bool shown = false;
  std::vector<uint32_t> below;  // what the shown picture covers
};

Drag& TheDrag() {
  static auto& drag = *new Drag;
  return drag;
}

// Calls use(dc, canvas, area of the picture on the surface) with the window's DC.
template <typename Use>
void WithWindow(const Drag& drag, const ImageList& list, Use use) {
  HDC handle = GetDCEx(drag.window, nullptr, DCX_WINDOW | DCX_CACHE | DCX_LOCKWINDOWUPDATE);
  DeviceContext* dc = FindDC(handle);
  if (!dc) return;
  {
    Canvas canvas(*dc);
    POINT corner = dc->ToSurface(drag.position.x - drag.hotSpot.x, drag.position.y - drag.hotSpot.y);
    if (canvas)
      use(*dc, canvas.Pixels(), RECT{corner.x, corner.y, corner.x + list.width, corner.y + list.height});
  }
  ReleaseDC(drag.window, handle);
}

void Show(Drag& drag) {
  ImageList* list = FindImageList(drag.list);
  if (!list) return;
  ImageStyle style{ILD_TRANSPARENT, CLR_NONE, CLR_NONE, kDragAlpha};
  drag.below.assign(static_cast<size_t>(list->width) * static_cast<size_t>(list->height), 0);
  WithWindow(drag, *list, [&](DeviceContext& dc, const PixelView& pixels, const RECT& area) {
    ImageSource source(*list, 0, style);
    ForEachPiece(dc, area, [&](const RECT& piece) {
      for (int y = piece.top; y < piece.bottom; ++y) {
        size_t kept = static_cast<size_t>(y - area.top) * static_cast<size_t>(list->width);
        for (int x = piece.left; x < piece.right; ++x) {
          uint32_t& word = pixels.row(y)[x];
          drag.below[kept + static_cast<size_t>(x - area.left)] = word;
          word = source.Over(x - area.left, y - area.top, word);
        }
      }
    });
  });
  drag.shown = true;
}

void Hide(Drag& drag) {
  drag.shown = false;
  ImageList* list = FindImageList(drag.list);
  if (!list || drag.below.empty()) return;
  WithWindow(drag, *list, [&](DeviceContext& dc, const PixelView& pixels, const RECT& area) {
    ForEachPiece(dc, area, [&](const RECT& piece) {
      for (int y = piece.top; y < piece.bottom; ++y) {
        size_t kept = static_cast<size_t>(y - area.top) * static_cast<size_t>(list->width);
        std::copy_n(drag.below.data() + kept + (piece.left - area.left), piece.right - piece.left,
                    pixels.row(y) + piece.left);
      }
    });
  });
  drag.below.clear();
}

}  // namespace

void ForgetDrag() { TheDrag() = {}; }

}  // namespace desktop

using namespace desktop;

BOOL WINAPI ImageList_BeginDrag(HIMAGELIST handle, int index, int hotX, int hotY) {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  ImageList* list = FindImageList(handle);
  if (FindImageList(drag.list) || !list || !list->IsValid(index)) return FALSE;
  std::unique_ptr<ImageList> picture = MakeImageList(list->width, list->height, list->flags, 1, 1);
  if (!picture) return FALSE;
  picture->count = 1;
  CopyCell(*picture, 0, *list, index);
  drag = {};
  drag.list = AddImageList(std::move(picture));
  drag.hotSpot = {hotX, hotY};
  return drag.list ? TRUE : FALSE;
}

void WINAPI ImageList_EndDrag() {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  if (drag.shown) Hide(drag);
  FreeImageList(drag.list);
  FreeImageList(drag.plain);
  drag = {};
}

BOOL WINAPI ImageList_DragShowNolock(BOOL show) {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  if (!FindImageList(drag.list) || drag.shown == (show != FALSE)) return FALSE;
  if (show) {
    Show(drag);
  } else {
    Hide(drag);
  }
  return TRUE;
}

BOOL WINAPI ImageList_DragEnter(HWND window, int x, int y) {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  if (!FindImageList(drag.list)) return FALSE;
  if (drag.shown) Hide(drag);
  drag.window = window ? window : GetDesktopWindow();
  drag.position = {x, y};
  return ImageList_DragShowNolock(TRUE);
}

BOOL WINAPI ImageList_DragLeave(HWND window) {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  if (!window) window = GetDesktopWindow();
  if (drag.window && drag.window != window) return FALSE;
  ImageList_DragShowNolock(FALSE);
  return TRUE;
}

BOOL WINAPI ImageList_DragMove(int x, int y) {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  if (!FindImageList(drag.list)) return FALSE;
  bool shown = drag.shown;
  if (shown) Hide(drag);
  drag.position = {x, y};
  if (shown) Show(drag);
  return TRUE;
}

BOOL WINAPI ImageList_SetDragCursorImage(HIMAGELIST handle, int index, int hotX, int hotY) {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  ImageList* cursor = FindImageList(handle);
  if (!FindImageList(drag.list) || !cursor || !cursor->IsValid(index)) return FALSE;
  bool shown = drag.shown;
  if (shown) Hide(drag);
  HIMAGELIST base = drag.plain ? drag.plain : drag.list;
  HIMAGELIST merged = ImageList_Merge(base, 0, handle, index, hotX, hotY);
  if (merged) {
    if (drag.plain) FreeImageList(drag.list);
    drag.plain = base;
    drag.list = merged;
  }
  if (shown) Show(drag);
  return merged ? TRUE : FALSE;
}

HIMAGELIST WINAPI ImageList_GetDragImage(POINT* position, POINT* hotSpot) {
  WorldLock lock(WorldMutex());
  Drag& drag = TheDrag();
  if (!FindImageList(drag.list)) return nullptr;
  if (position) *position = drag.position;
  if (hotSpot) *hotSpot = drag.hotSpot;
  return drag.list;
}
