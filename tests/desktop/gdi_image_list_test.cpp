// Image lists: where images lie, how lists grow, overlays, blends, cursors over a drag.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdint>

#include "support/picture.h"

using namespace support;

namespace {

constexpr COLORREF kKey = RGB(255, 0, 255);

HBITMAP Plain(int width, int height, COLORREF color) {
  Canvas dc(1, 1);
  const HDC memory = CreateCompatibleDC(dc);
  const HBITMAP bitmap = CreateCompatibleBitmap(dc, width, height);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  const HBRUSH brush = CreateSolidBrush(color);
  const RECT all{0, 0, width, height};
  FillRect(memory, &all, brush);
  SetPixelV(memory, 0, 0, kKey);
  DeleteObject(brush);
  SelectObject(memory, old);
  DeleteDC(memory);
  return bitmap;
}

// A list of 4 x 4 images of one colour each, with a transparent corner.
class List {
 public:
  explicit List(int initial = 4, int grow = 4)
      : m_list(ImageList_Create(4, 4, ILC_COLOR32 | ILC_MASK, initial, grow)) {}
  ~List() { ImageList_Destroy(m_list); }
  List(const List&) = delete;
  List& operator=(const List&) = delete;

  operator HIMAGELIST() const { return m_list; }
  int Add(COLORREF color, int count = 1) {
    const HBITMAP bitmap = Plain(4 * count, 4, color);
    const int index = ImageList_AddMasked(m_list, bitmap, kKey);
    DeleteObject(bitmap);
    return index;
  }
  RECT Place(int index) const {
    IMAGEINFO info{};
    EXPECT_TRUE(ImageList_GetImageInfo(m_list, index, &info));
    return info.rcImage;
  }
  SIZE Strip(int index) const {
    IMAGEINFO info{};
    BITMAP record{};
    ImageList_GetImageInfo(m_list, index, &info);
    GetObjectW(info.hbmImage, sizeof record, &record);
    return {record.bmWidth, record.bmHeight};
  }

 private:
  HIMAGELIST m_list;
};

}  // namespace

TEST(GdiImageList, ImagesLieFourToARow) {
  List list;
  for (int i = 0; i < 6; ++i) EXPECT_EQ(i, list.Add(RGB(0, 0, 255)));
  EXPECT_EQ(12, list.Place(3).left);
  EXPECT_EQ(0, list.Place(3).top);
  EXPECT_EQ(0, list.Place(4).left);
  EXPECT_EQ(4, list.Place(4).top);
  EXPECT_EQ(8, list.Place(5).right);
  IMAGEINFO info{};
  EXPECT_FALSE(ImageList_GetImageInfo(list, 6, &info));
  EXPECT_FALSE(ImageList_GetImageInfo(list, -1, &info));
}

TEST(GdiImageList, StripsGrowByRows) {
  List list(4, 4);
  list.Add(RGB(0, 0, 255));
  EXPECT_EQ(16, list.Strip(0).cx);
  EXPECT_EQ(8, list.Strip(0).cy);
  for (int i = 1; i < 5; ++i) list.Add(RGB(0, 0, 255));
  EXPECT_EQ(12, list.Strip(0).cy);
}

TEST(GdiImageList, AWideBitmapIsManyImages) {
  List list;
  EXPECT_EQ(0, list.Add(RGB(0, 255, 0), 3));
  EXPECT_EQ(3, ImageList_GetImageCount(list));
  EXPECT_EQ(3, list.Add(RGB(0, 0, 255)));
}

TEST(GdiImageList, TheMaskedColourTurnsBlackInTheBitmap) {
  List list;
  const HBITMAP bitmap = Plain(4, 4, RGB(0, 255, 0));
  ImageList_AddMasked(list, bitmap, kKey);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  EXPECT_EQ(RGB(0, 0, 0), GetPixel(dc, 0, 0));
  EXPECT_EQ(RGB(0, 255, 0), GetPixel(dc, 1, 1));
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

TEST(GdiImageList, OverlaysLieOnTop) {
  List list;
  list.Add(RGB(0, 255, 0));
  const HBITMAP dot = Plain(4, 4, kKey);
  {
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = SelectObject(dc, dot);
    SetPixelV(dc, 3, 3, RGB(255, 0, 0));
    SelectObject(dc, old);
    DeleteDC(dc);
  }
  EXPECT_EQ(1, ImageList_AddMasked(list, dot, kKey));
  DeleteObject(dot);
  EXPECT_TRUE(ImageList_SetOverlayImage(list, 1, 2));
  EXPECT_FALSE(ImageList_SetOverlayImage(list, 1, 16));
  EXPECT_FALSE(ImageList_SetOverlayImage(list, 9, 1));
  Canvas dc(4, 4);
  EXPECT_TRUE(ImageList_Draw(list, 0, dc, 0, 0, ILD_TRANSPARENT | INDEXTOOVERLAYMASK(2)));
  EXPECT_TRUE(LooksLike(dc.Read(), R"(
    .ggg
    gggg
    gggg
    gggr)"));
}

TEST(GdiImageList, ResizingForgetsTheImages) {
  List list;
  list.Add(RGB(0, 255, 0));
  EXPECT_TRUE(ImageList_SetIconSize(list, 6, 5));
  EXPECT_EQ(0, ImageList_GetImageCount(list));
  int width = 0;
  int height = 0;
  EXPECT_TRUE(ImageList_GetIconSize(list, &width, &height));
  EXPECT_EQ(6, width);
  EXPECT_EQ(5, height);
}

TEST(GdiImageList, MergingCoversBothImages) {
  List list;
  list.Add(RGB(0, 255, 0));
  list.Add(RGB(0, 0, 255));
  const HIMAGELIST merged = ImageList_Merge(list, 0, list, 1, 3, 2);
  int width = 0;
  int height = 0;
  EXPECT_TRUE(ImageList_GetIconSize(merged, &width, &height));
  EXPECT_EQ(7, width);
  EXPECT_EQ(6, height);
  Canvas dc(7, 6);
  ImageList_Draw(merged, 0, dc, 0, 0, ILD_TRANSPARENT);
  EXPECT_TRUE(LooksLike(dc.Read(), R"(
    .ggg...
    gggg...
    ggggbbb
    gggbbbb
    ...bbbb
    ...bbbb)"));
  ImageList_Destroy(merged);
}

TEST(GdiImageList, ADragNeedsAnImage) {
  List list;
  list.Add(RGB(0, 255, 0));
  EXPECT_FALSE(ImageList_BeginDrag(nullptr, 0, 0, 0));
  EXPECT_FALSE(ImageList_BeginDrag(list, 5, 0, 0));
  EXPECT_EQ(nullptr, ImageList_GetDragImage(nullptr, nullptr));
  EXPECT_TRUE(ImageList_BeginDrag(list, 0, 2, 3));
  EXPECT_FALSE(ImageList_BeginDrag(list, 0, 2, 3));
  POINT position{};
  POINT hotSpot{};
  EXPECT_NE(nullptr, ImageList_GetDragImage(&position, &hotSpot));
  EXPECT_EQ(2, hotSpot.x);
  EXPECT_EQ(3, hotSpot.y);
  ImageList_EndDrag();
  EXPECT_EQ(nullptr, ImageList_GetDragImage(nullptr, nullptr));
}

TEST(GdiImageList, DeadListsFailQuietly) {
  const HIMAGELIST dead = ImageList_Create(4, 4, ILC_COLOR32, 1, 1);
  EXPECT_TRUE(ImageList_Destroy(dead));
  int width = 7;
  int height = 8;
  Canvas dc(4, 4);
  EXPECT_FALSE(ImageList_GetIconSize(nullptr, &width, &height));
  EXPECT_EQ(7, width);
  EXPECT_EQ(8, height);
  EXPECT_EQ(0, ImageList_GetImageCount(nullptr));
  EXPECT_FALSE(ImageList_Draw(nullptr, 0, dc, 0, 0, ILD_NORMAL));
  EXPECT_EQ(nullptr, ImageList_GetIcon(nullptr, 0, 0));
  EXPECT_EQ(CLR_NONE, ImageList_GetBkColor(nullptr));
  EXPECT_FALSE(ImageList_Destroy(nullptr));
}
