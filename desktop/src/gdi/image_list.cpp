// Image lists: life, contents, geometry.
#include "image_list.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "../world.h"
#include "device_context.h"
#include "dib.h"
#include "handle_table.h"
#include "icon.h"
#include "window_dc.h"

namespace desktop {
namespace {

constexpr int kMaxSide = 0x4000;
constexpr int kMaxImages = 0x10000;

HandleTable<ImageList>& Lists() {
  static auto& table = *new HandleTable<ImageList>(3);
  return table;
}

int DepthOf(UINT flags) {
  switch (flags & ILC_COLORDDB) {
    case ILC_COLOR8: return 8;
    case ILC_COLOR16: return 16;
    case ILC_COLOR24: return 24;
    case ILC_COLOR32:
    case ILC_COLORDDB: return 32;
    default: return 4;
  }
}

int RowsFor(int capacity) { return (capacity + ImageList::kColumns - 1) / ImageList::kColumns; }

// A bitmap that only its list can free. Its pixels are stored at the depth that the list was asked for.
HBITMAP MakeStrip(int width, int height, int depth) {
  auto bitmap = std::make_unique<Bitmap>(depth == 1 || depth == 32 ? width : 0,
                                         depth == 1 || depth == 32 ? height : 0, depth);
  if (depth != 1 && depth != 32) {
    bitmap->width = width;
    bitmap->height = height;
    bitmap->isSection = true;
    bitmap->format.width = width;
    bitmap->format.height = height;
    bitmap->format.bitCount = depth;
    if (depth == 16) {
      bitmap->format.masks[0] = 0x7c00;
      bitmap->format.masks[1] = 0x03e0;
      bitmap->format.masks[2] = 0x001f;
    }
    if (depth <= 8) bitmap->format.colors = DefaultColors(depth);
    bitmap->bits.resize(bitmap->format.Size());
  }
  return static_cast<HBITMAP>(AddStockObject(std::move(bitmap)));
}

void CopyAll(HBITMAP to, HBITMAP from) {
  Bitmap* target = FindBitmap(to);
  Bitmap* source = FindBitmap(from);
  if (!target || !source) return;
  PixelView a = target->View();
  PixelView b = source->View();
  for (int y = 0; y < std::min(a.height, b.height); ++y)
    std::copy_n(b.row(y), std::min(a.width, b.width), a.row(y));
  target->Written();
}

bool MakeStrips(ImageList& list, int capacity) {
  int width = list.width * ImageList::kColumns;
  long long height = static_cast<long long>(RowsFor(capacity)) * list.height;
  if (height > 0x7fffff || static_cast<long long>(width) * height > (1LL << 26)) return false;
  HBITMAP image = MakeStrip(width, static_cast<int>(height), DepthOf(list.flags));
  HBITMAP mask = list.HasMask() ? MakeStrip(width, static_cast<int>(height), 1) : nullptr;
  if (!image || (list.HasMask() && !mask)) {
    FreeObject(image);
    FreeObject(mask);
    return false;
  }
  CopyAll(image, list.image);
  CopyAll(mask, list.mask);
  FreeObject(list.image);
  FreeObject(list.mask);
  list.image = image;
  list.mask = mask;
  list.capacity = capacity;
  return true;
}

// Copies a rectangle of a host's bitmap into a cell. Without a mask bitmap every pixel is opaque.
void StorePixels(ImageList& list, int index, Bitmap& bitmap, int left, Bitmap* mask) {
  Bitmap* target = FindBitmap(list.image);
  Bitmap* targetMask = FindBitmap(list.mask);
  if (!target) return;
  PixelView from = bitmap.View();
  PixelView to = target->View();
  PixelView maskFrom = mask ? mask->View() : PixelView{};
  PixelView maskTo = targetMask ? targetMask->View() : PixelView{};
  POINT cell = list.CellOf(index);
  bool keepsAlpha = bitmap.bitCount == 32 && target->bitCount == 32;
  for (int y = 0; y < list.height; ++y) {
    for (int x = 0; x < list.width; ++x) {
      bool inside = y < from.height && left + x < from.width;
      uint32_t word = inside ? from.row(y)[left + x] : 0;
      bool transparent =
          mask && y < maskFrom.height && left + x < maskFrom.width && (maskFrom.row(y)[left + x] & 0xffffff);
      if (!keepsAlpha) word &= 0xffffff;
      // Transparent pixels are black, so that the image can be put by AND and OR.
      to.row(cell.y + y)[cell.x + x] = transparent && list.HasMask() ? 0 : word;
      if (maskTo) maskTo.row(cell.y + y)[cell.x + x] = transparent ? 0xffffff : 0;
    }
  }
  target->Written();
}

void StoreIcon(ImageList& list, int index, const Icon& icon) {
  Bitmap* target = FindBitmap(list.image);
  Bitmap* targetMask = FindBitmap(list.mask);
  if (!target) return;
  PixelView to = target->View();
  PixelView maskTo = targetMask ? targetMask->View() : PixelView{};
  POINT cell = list.CellOf(index);
  bool keepsAlpha = icon.hasAlpha && target->bitCount == 32;
  for (int y = 0; y < list.height; ++y) {
    for (int x = 0; x < list.width; ++x) {
      auto from = static_cast<size_t>(y * icon.height / list.height) * static_cast<size_t>(icon.width) +
                  static_cast<size_t>(x * icon.width / list.width);
      bool transparent = icon.mask[from];
      uint32_t word = keepsAlpha ? icon.image[from] : icon.image[from] & 0xffffff;
      to.row(cell.y + y)[cell.x + x] = transparent && !keepsAlpha && maskTo ? 0 : word;
      if (maskTo) maskTo.row(cell.y + y)[cell.x + x] = transparent ? 0xffffff : 0;
    }
  }
  target->Written();
}

// Takes `count` places at the end; the first of them, or -1.
int Append(ImageList& list, int count) {
  if (list.count + count > kMaxImages || !GrowImageList(list, count)) return -1;
  int first = list.count;
  list.count += count;
  return first;
}

int AppendBitmap(ImageList& list, Bitmap& bitmap, Bitmap* mask) {
  int count = bitmap.width / list.width;
  int first = Append(list, count);
  for (int i = 0; first >= 0 && i < count; ++i) StorePixels(list, first + i, bitmap, i * list.width, mask);
  return first;
}

void SwapCells(ImageList& list, int a, int b) {
  for (HBITMAP handle : {list.image, list.mask}) {
    Bitmap* bitmap = FindBitmap(handle);
    if (!bitmap) continue;
    PixelView view = bitmap->View();
    POINT p = list.CellOf(a);
    POINT q = list.CellOf(b);
    for (int y = 0; y < list.height; ++y)
      std::swap_ranges(view.row(p.y + y) + p.x, view.row(p.y + y) + p.x + list.width,
                       view.row(q.y + y) + q.x);
    bitmap->Written();
  }
}

}  // namespace

ImageList::~ImageList() {
  FreeObject(image);
  FreeObject(mask);
}

bool ImageList::HasAlpha(int index) const {
  Bitmap* bitmap = FindBitmap(image);
  if (!bitmap || bitmap->bitCount != 32) return false;
  PixelView view = bitmap->View();
  POINT cell = CellOf(index);
  for (int y = 0; y < height; ++y) {
    const uint32_t* row = view.row(cell.y + y) + cell.x;
    if (std::any_of(row, row + width, [](uint32_t word) { return word >> 24; })) return true;
  }
  return false;
}

ImageList* FindImageList(HIMAGELIST handle) { return Lists().Find(handle); }

std::unique_ptr<ImageList> MakeImageList(int width, int height, UINT flags, int capacity, int grow) {
  if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide || capacity > kMaxImages)
    return nullptr;
  auto list = std::make_unique<ImageList>();
  list->width = width;
  list->height = height;
  list->flags = flags;
  list->grow = std::max(4, (std::clamp(grow, 0, 0x1000) + 3) & ~3);
  return MakeStrips(*list, std::max(1, capacity)) ? std::move(list) : nullptr;
}

HIMAGELIST AddImageList(std::unique_ptr<ImageList> list) {
  if (!list || FailsHere()) return nullptr;
  return static_cast<HIMAGELIST>(Lists().Add(std::move(list)));
}

bool GrowImageList(ImageList& list, int more) {
  if (list.count + more < list.capacity) return true;
  return MakeStrips(list, list.capacity + std::max(more, list.grow) + 1);
}

void CopyCell(ImageList& to, int toIndex, ImageList& from, int fromIndex) {
  HBITMAP pairs[][2] = {{to.image, from.image}, {to.mask, from.mask}};
  for (auto [target, source] : pairs) {
    Bitmap* a = FindBitmap(target);
    Bitmap* b = FindBitmap(source);
    if (!a || !b) continue;
    PixelView toView = a->View();
    PixelView fromView = b->View();
    POINT p = to.CellOf(toIndex);
    POINT q = from.CellOf(fromIndex);
    for (int y = 0; y < std::min(to.height, from.height); ++y)
      std::copy_n(fromView.row(q.y + y) + q.x, std::min(to.width, from.width), toView.row(p.y + y) + p.x);
    a->Written();
  }
}

void FreeImageList(HIMAGELIST handle) { Lists().Remove(handle); }

int LiveImageLists() { return Lists().LiveCount(); }

namespace {
const RegisterCount g_countImageLists(Counted::imageLists, LiveImageLists);
}

void ResetImageLists() {
  ForgetDrag();
  std::vector<void*> handles;
  Lists().ForEach([&](void* handle, ImageList&) { handles.push_back(handle); });
  for (void* handle : handles) Lists().Remove(handle);
}

}  // namespace desktop

using namespace desktop;

HIMAGELIST WINAPI ImageList_Create(int width, int height, UINT flags, int initial, int grow) {
  WorldLock lock(WorldMutex());
  if (initial < 0 || initial > kMaxImages) return nullptr;
  return AddImageList(MakeImageList(width, height, flags, initial + 1, grow));
}

BOOL WINAPI ImageList_Destroy(HIMAGELIST handle) {
  WorldLock lock(WorldMutex());
  if (!FindImageList(handle)) return FALSE;
  FreeImageList(handle);
  return TRUE;
}

int WINAPI ImageList_GetImageCount(HIMAGELIST handle) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  return list ? list->count : 0;
}

BOOL WINAPI ImageList_SetImageCount(HIMAGELIST handle, UINT count) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list || count > static_cast<UINT>(kMaxImages)) return FALSE;
  int wanted = static_cast<int>(count);
  if (wanted > list->count && !GrowImageList(*list, wanted - list->count)) return FALSE;
  list->count = wanted;
  return TRUE;
}

int WINAPI ImageList_Add(HIMAGELIST handle, HBITMAP imageHandle, HBITMAP maskHandle) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  Bitmap* bitmap = FindBitmap(imageHandle);
  if (!list || !bitmap) return -1;
  return AppendBitmap(*list, *bitmap, FindBitmap(maskHandle));
}

int WINAPI ImageList_AddMasked(HIMAGELIST handle, HBITMAP imageHandle, COLORREF maskColor) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  Bitmap* bitmap = FindBitmap(imageHandle);
  if (!list || !bitmap) return -1;
  PixelView view = bitmap->View();
  uint32_t hole = maskColor == CLR_DEFAULT ? view.row(0)[0] & 0xffffff : ToWord(maskColor & 0xffffff);
  Bitmap mask(bitmap->width, bitmap->height, 1);
  PixelView maskView = mask.View();
  for (int y = 0; y < view.height; ++y) {
    for (int x = 0; x < view.width; ++x) {
      uint32_t& word = view.row(y)[x];
      if ((word & 0xffffff) != hole) continue;
      maskView.row(y)[x] = 0xffffff;
      // The host's bitmap is blackened too, as documented.
      word = 0;
    }
  }
  bitmap->Written();
  return AppendBitmap(*list, *bitmap, &mask);
}

int WINAPI ImageList_ReplaceIcon(HIMAGELIST handle, int index, HICON iconHandle) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  Icon* icon = FindIcon(iconHandle);
  if (!list || !icon || index < -1 || index >= list->count) return -1;
  if (index == -1) index = Append(*list, 1);
  if (index >= 0) StoreIcon(*list, index, *icon);
  return index;
}

BOOL WINAPI ImageList_Replace(HIMAGELIST handle, int index, HBITMAP imageHandle, HBITMAP maskHandle) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  Bitmap* bitmap = FindBitmap(imageHandle);
  if (!list || !bitmap || !list->IsValid(index)) return FALSE;
  StorePixels(*list, index, *bitmap, 0, FindBitmap(maskHandle));
  return TRUE;
}

BOOL WINAPI ImageList_Remove(HIMAGELIST handle, int index) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list || (index != -1 && !list->IsValid(index))) return FALSE;
  if (index == -1) {
    list->count = 0;
    list->overlays = {};
    return TRUE;
  }
  for (int i = index; i + 1 < list->count; ++i) CopyCell(*list, i, *list, i + 1);
  --list->count;
  return TRUE;
}

BOOL WINAPI ImageList_Copy(HIMAGELIST toHandle, int to, HIMAGELIST fromHandle, int from, UINT flags) {
  WorldLock lock(WorldMutex());
  ImageList* target = FindImageList(toHandle);
  ImageList* source = FindImageList(fromHandle);
  if (!target || target != source || !target->IsValid(to) || !source->IsValid(from)) return FALSE;
  if (flags == ILCF_SWAP) {
    if (to != from) SwapCells(*target, to, from);
  } else {
    CopyCell(*target, to, *source, from);
  }
  return TRUE;
}

COLORREF WINAPI ImageList_SetBkColor(HIMAGELIST handle, COLORREF color) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  return list ? std::exchange(list->background, color) : CLR_NONE;
}

COLORREF WINAPI ImageList_GetBkColor(HIMAGELIST handle) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  return list ? list->background : CLR_NONE;
}

BOOL WINAPI ImageList_SetOverlayImage(HIMAGELIST handle, int index, int overlay) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list || overlay < 1 || overlay > ImageList::kOverlays) return FALSE;
  if (index != -1 && !list->IsValid(index)) return FALSE;
  list->overlays[static_cast<size_t>(overlay - 1)] = index + 1;
  return TRUE;
}

BOOL WINAPI ImageList_GetIconSize(HIMAGELIST handle, int* width, int* height) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list || !width || !height) return FALSE;
  *width = list->width;
  *height = list->height;
  return TRUE;
}

BOOL WINAPI ImageList_SetIconSize(HIMAGELIST handle, int width, int height) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list || width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide) return FALSE;
  // The images are gone: they were of another size.
  std::unique_ptr<ImageList> fresh = MakeImageList(width, height, list->flags, 1 + list->grow, list->grow);
  if (!fresh) return FALSE;
  std::swap(list->image, fresh->image);
  std::swap(list->mask, fresh->mask);
  list->width = width;
  list->height = height;
  list->capacity = fresh->capacity;
  list->count = 0;
  return TRUE;
}

BOOL WINAPI ImageList_GetImageInfo(HIMAGELIST handle, int index, IMAGEINFO* info) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list || !info || !list->IsValid(index)) return FALSE;
  POINT cell = list->CellOf(index);
  info->hbmImage = list->image;
  info->hbmMask = list->mask;
  info->rcImage = {cell.x, cell.y, cell.x + list->width, cell.y + list->height};
  return TRUE;
}

BOOL WINAPI ImageList_GetImageRect(HIMAGELIST handle, int index, RECT* rect) {
  IMAGEINFO info{};
  if (!rect || !ImageList_GetImageInfo(handle, index, &info)) return FALSE;
  *rect = info.rcImage;
  return TRUE;
}

HICON WINAPI ImageList_GetIcon(HIMAGELIST handle, int index, UINT) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list || !list->IsValid(index)) return nullptr;
  auto icon = std::make_unique<Icon>();
  icon->width = list->width;
  icon->height = list->height;
  icon->hotSpot = {list->width / 2, list->height / 2};
  icon->hasAlpha = list->HasAlpha(index);
  PixelView view = FindBitmap(list->image)->View();
  Bitmap* mask = FindBitmap(list->mask);
  POINT cell = list->CellOf(index);
  for (int y = 0; y < list->height; ++y) {
    const uint32_t* row = view.row(cell.y + y) + cell.x;
    icon->image.insert(icon->image.end(), row, row + list->width);
    for (int x = 0; x < list->width; ++x)
      icon->mask.push_back(mask && (mask->View().row(cell.y + y)[cell.x + x] & 0xffffff) ? 1 : 0);
  }
  return AddIcon(std::move(icon));
}

HIMAGELIST WINAPI ImageList_Duplicate(HIMAGELIST handle) {
  WorldLock lock(WorldMutex());
  ImageList* list = FindImageList(handle);
  if (!list) return nullptr;
  std::unique_ptr<ImageList> copy =
      MakeImageList(list->width, list->height, list->flags, list->capacity, list->grow);
  if (!copy) return nullptr;
  CopyAll(copy->image, list->image);
  CopyAll(copy->mask, list->mask);
  copy->count = list->count;
  copy->background = list->background;
  copy->overlays = list->overlays;
  return AddImageList(std::move(copy));
}

HIMAGELIST WINAPI ImageList_LoadImageW(HINSTANCE instance, LPCWSTR name, int width, int grow, COLORREF mask,
                                       UINT type, UINT flags) {
  HANDLE handle = LoadImageW(instance, name, type, 0, 0, flags);
  if (!handle) return nullptr;
  auto bitmap = static_cast<HBITMAP>(handle);
  BITMAP record{};
  if (type != IMAGE_BITMAP || !GetObjectW(bitmap, sizeof(record), &record)) {
    if (type != IMAGE_BITMAP) DestroyIcon(static_cast<HICON>(handle));
    return nullptr;
  }
  if (width == 0) width = record.bmHeight;
  int count = width > 0 ? record.bmWidth / width : 0;
  UINT kind = ILC_COLOR32 | (mask == CLR_NONE ? 0 : ILC_MASK);
  HIMAGELIST list = ImageList_Create(width, record.bmHeight, kind, count, grow);
  if (list && mask == CLR_NONE) ImageList_Add(list, bitmap, nullptr);
  if (list && mask != CLR_NONE) ImageList_AddMasked(list, bitmap, mask);
  DeleteObject(bitmap);
  return list;
}
