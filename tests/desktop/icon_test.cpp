// Icons, DrawState, image lists.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/picture.h"
#include "support/text.h"

using namespace support;

namespace {

const COLORREF kRed = RGB(255, 0, 0);
const COLORREF kBlue = RGB(0, 0, 255);
const COLORREF kMagenta = RGB(255, 0, 255);

// An icon of 4 x 2 pixels: red, blue, then two transparent columns.
HICON SmallIcon(bool icon = true) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  ICONINFO info = {};
  info.fIcon = icon;
  info.xHotspot = 1;
  info.yHotspot = 1;
  const WORD bits[] = {0x0030, 0x0030};
  info.hbmMask = CreateBitmap(4, 2, 1, 1, bits);
  info.hbmColor = CreateCompatibleBitmap(screen, 4, 2);
  const HGDIOBJ old = SelectObject(dc, info.hbmColor);
  for (int y = 0; y < 2; ++y) {
    SetPixel(dc, 0, y, kRed);
    SetPixel(dc, 1, y, kBlue);
    SetPixel(dc, 2, y, 0);
    SetPixel(dc, 3, y, 0);
  }
  SelectObject(dc, old);
  const HICON made = CreateIconIndirect(&info);
  DeleteObject(info.hbmMask);
  DeleteObject(info.hbmColor);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  return made;
}

// A bitmap of the screen's depth from one line of colours, repeated downwards.
HBITMAP Strip(std::initializer_list<COLORREF> colors, int height) {
  const HDC screen = GetDC(nullptr);
  const HDC dc = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, static_cast<int>(colors.size()), height);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  for (int y = 0; y < height; ++y) {
    int x = 0;
    for (const COLORREF color : colors) SetPixel(dc, x++, y, color);
  }
  SelectObject(dc, old);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  return bitmap;
}

// An image list of 2 x 2 pictures: red/transparent, blue/red, transparent/blue.
class Images {
 public:
  explicit Images(UINT flags = ILC_COLOR32 | ILC_MASK) {
    list = ImageList_Create(2, 2, flags, 0, 4);
    const HBITMAP bitmap = Strip({kRed, kMagenta, kBlue, kRed, kMagenta, kBlue}, 2);
    first = ImageList_AddMasked(list, bitmap, kMagenta);
    DeleteObject(bitmap);
  }
  ~Images() { ImageList_Destroy(list); }

  std::string Draw(int index, UINT style = ILD_TRANSPARENT) const {
    Canvas dc(2, 2);
    ImageList_Draw(list, index, dc, 0, 0, style);
    return ToArt(dc.Read());
  }

  HIMAGELIST list;
  int first;
};

}  // namespace

TEST(Icon, DrawsColoursThroughItsMask) {
  const HICON icon = SmallIcon();
  Canvas dc(5, 3);
  EXPECT_TRUE(DrawIconEx(dc, 1, 1, icon, 4, 2, 0, nullptr, DI_NORMAL));
  EXPECT_ART(dc.Read(), R"(
      .....
      .rb..
      .rb..)");
  DestroyIcon(icon);
}

TEST(Icon, InfoGivesCopiesOfItsBitmaps) {
  const HICON icon = SmallIcon();
  ICONINFO info = {};
  ASSERT_TRUE(GetIconInfo(icon, &info));
  EXPECT_TRUE(info.fIcon);
  BITMAP bitmap = {};
  GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
  EXPECT_EQ(4, bitmap.bmWidth);
  EXPECT_EQ(2, bitmap.bmHeight);
  GetObjectW(info.hbmMask, sizeof bitmap, &bitmap);
  EXPECT_EQ(1, bitmap.bmBitsPixel);
  EXPECT_EQ(2, bitmap.bmHeight);
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  Canvas dc(4, 1);
  EXPECT_TRUE(DrawIconEx(dc, 0, 0, icon, 4, 2, 0, nullptr, DI_NORMAL));
  EXPECT_ART(dc.Read(), "rb..");
  DestroyIcon(icon);
}

TEST(Icon, CursorsKeepTheirHotSpot) {
  const HICON cursor = SmallIcon(false);
  ICONINFO info = {};
  ASSERT_TRUE(GetIconInfo(cursor, &info));
  EXPECT_FALSE(info.fIcon);
  EXPECT_EQ(1u, info.xHotspot);
  EXPECT_EQ(1u, info.yHotspot);
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  DestroyCursor(cursor);
}

TEST(Icon, MaskAlone) {
  const HICON icon = SmallIcon();
  Canvas dc(4, 1, kRed);
  DrawIconEx(dc, 0, 0, icon, 4, 2, 0, nullptr, DI_MASK);
  EXPECT_ART(dc.Read(), "##..");
  DestroyIcon(icon);
}

TEST(Icon, Stretches) {
  const HICON icon = SmallIcon();
  Canvas dc(8, 4);
  DrawIconEx(dc, 0, 0, icon, 8, 4, 0, nullptr, DI_NORMAL);
  const Picture picture = dc.Read();
  EXPECT_EQ(0xFF0000u, picture.At(0, 0));
  EXPECT_EQ(0x0000FFu, picture.At(3, 3));
  EXPECT_EQ(0xFFFFFFu, picture.At(5, 0));
  DestroyIcon(icon);
}

TEST(Icon, DeadOnesAreRefused) {
  const HICON icon = SmallIcon();
  EXPECT_TRUE(DestroyIcon(icon));
  ICONINFO info = {};
  EXPECT_FALSE(GetIconInfo(icon, &info));
}

TEST(Icon, SystemPicturesLoad) {
  EXPECT_NE(nullptr, LoadCursorW(nullptr, IDC_ARROW));
  EXPECT_EQ(LoadCursorW(nullptr, IDC_ARROW), LoadCursorW(nullptr, IDC_ARROW));
  EXPECT_NE(LoadCursorW(nullptr, IDC_ARROW), LoadCursorW(nullptr, IDC_WAIT));
  EXPECT_NE(nullptr, LoadIconW(nullptr, IDI_APPLICATION));
}

TEST(StateDrawing, IconAsItIs) {
  const HICON icon = SmallIcon();
  Canvas dc(4, 2);
  EXPECT_TRUE(
      DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(icon), 0, 0, 0, 4, 2, DST_ICON | DSS_NORMAL));
  EXPECT_ART(dc.Read(), "rb..\nrb..");
  DestroyIcon(icon);
}

TEST(StateDrawing, DisabledIconLosesItsColours) {
  const HICON icon = SmallIcon();
  Canvas dc(8, 4, GetSysColor(COLOR_BTNFACE));
  EXPECT_TRUE(DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(icon), 0, 0, 0, 4, 2,
                         DST_ICON | DSS_DISABLED));
  const Picture picture = dc.Read();
  EXPECT_EQ(0, picture.Count(0xFF0000));
  EXPECT_GT(picture.Count(Rgb(GetSysColor(COLOR_BTNSHADOW))), 0);
  DestroyIcon(icon);
}

TEST(ImageList, CountsAndSizes) {
  Images images;
  EXPECT_EQ(0, images.first);
  EXPECT_EQ(3, ImageList_GetImageCount(images.list));
  int cx = 0;
  int cy = 0;
  EXPECT_TRUE(ImageList_GetIconSize(images.list, &cx, &cy));
  EXPECT_EQ(2, cx);
  EXPECT_EQ(2, cy);
}

TEST(ImageList, DrawsThroughItsMask) {
  Images images;
  EXPECT_EQ("r.\nr.\n", images.Draw(0));
  EXPECT_EQ("br\nbr\n", images.Draw(1));
  EXPECT_EQ(".b\n.b\n", images.Draw(2));
}

TEST(ImageList, BackgroundColourFills) {
  Images images;
  EXPECT_EQ(CLR_NONE, ImageList_GetBkColor(images.list));
  EXPECT_EQ(CLR_NONE, ImageList_SetBkColor(images.list, RGB(0, 255, 0)));
  EXPECT_EQ("rg\nrg\n", images.Draw(0, ILD_NORMAL));
  EXPECT_EQ("r.\nr.\n", images.Draw(0, ILD_TRANSPARENT));
}

TEST(ImageList, MaskCanBeDrawnAlone) {
  Images images;
  EXPECT_EQ("#.\n#.\n", images.Draw(0, ILD_MASK));
}

TEST(ImageList, RemovingMovesTheRest) {
  Images images;
  EXPECT_TRUE(ImageList_Remove(images.list, 0));
  EXPECT_EQ(2, ImageList_GetImageCount(images.list));
  EXPECT_EQ("br\nbr\n", images.Draw(0));
  EXPECT_FALSE(ImageList_Remove(images.list, 5));
  EXPECT_TRUE(ImageList_Remove(images.list, -1));
  EXPECT_EQ(0, ImageList_GetImageCount(images.list));
}

TEST(ImageList, ImageInfoTellsTheRectangle) {
  Images images;
  IMAGEINFO info = {};
  ASSERT_TRUE(ImageList_GetImageInfo(images.list, 1, &info));
  EXPECT_EQ(2, info.rcImage.right - info.rcImage.left);
  EXPECT_EQ(2, info.rcImage.bottom - info.rcImage.top);
  EXPECT_NE(nullptr, info.hbmImage);
  EXPECT_NE(nullptr, info.hbmMask);
  EXPECT_FALSE(ImageList_GetImageInfo(images.list, 3, &info));
  EXPECT_FALSE(ImageList_GetImageInfo(images.list, -1, &info));
}

TEST(ImageList, GivesIcons) {
  Images images;
  const HICON icon = ImageList_GetIcon(images.list, 2, ILD_TRANSPARENT);
  ASSERT_NE(nullptr, icon);
  Canvas dc(2, 2);
  DrawIconEx(dc, 0, 0, icon, 2, 2, 0, nullptr, DI_NORMAL);
  EXPECT_ART(dc.Read(), ".b\n.b");
  DestroyIcon(icon);
  EXPECT_EQ(nullptr, ImageList_GetIcon(images.list, 9, ILD_TRANSPARENT));
}

TEST(ImageList, TakesIcons) {
  const HIMAGELIST list = ImageList_Create(4, 2, ILC_COLOR32 | ILC_MASK, 0, 4);
  const HICON icon = SmallIcon();
  EXPECT_EQ(0, ImageList_ReplaceIcon(list, -1, icon));
  EXPECT_EQ(1, ImageList_ReplaceIcon(list, -1, icon));
  EXPECT_EQ(0, ImageList_ReplaceIcon(list, 0, icon));
  EXPECT_EQ(-1, ImageList_ReplaceIcon(list, 7, icon));
  Canvas dc(4, 2);
  ImageList_Draw(list, 1, dc, 0, 0, ILD_TRANSPARENT);
  EXPECT_ART(dc.Read(), "rb..\nrb..");
  DestroyIcon(icon);
  ImageList_Destroy(list);
}

TEST(ImageList, AddWithAMaskBitmap) {
  const HIMAGELIST list = ImageList_Create(2, 1, ILC_COLOR24 | ILC_MASK, 0, 4);
  const HBITMAP image = Strip({kRed, RGB(0, 0, 0)}, 1);
  const WORD bits[] = {0x0040};
  const HBITMAP mask = CreateBitmap(2, 1, 1, 1, bits);
  EXPECT_EQ(0, ImageList_Add(list, image, mask));
  DeleteObject(image);
  DeleteObject(mask);
  Canvas dc(2, 1);
  ImageList_Draw(list, 0, dc, 0, 0, ILD_TRANSPARENT);
  EXPECT_ART(dc.Read(), "r.");
  ImageList_Destroy(list);
}

TEST(ImageList, DuplicatesAreIndependent) {
  Images images;
  const HIMAGELIST copy = ImageList_Duplicate(images.list);
  ImageList_Remove(images.list, -1);
  EXPECT_EQ(3, ImageList_GetImageCount(copy));
  ImageList_Destroy(copy);
}

TEST(ImageList, BlendMixesWithTheHighlight) {
  Images images;
  Canvas dc(2, 2);
  ImageList_DrawEx(images.list, 1, dc, 0, 0, 0, 0, CLR_NONE, RGB(0, 255, 0), ILD_TRANSPARENT | ILD_BLEND50);
  const std::uint32_t pixel = dc.Read().At(1, 0);
  EXPECT_NE(0xFF0000u, pixel);
  EXPECT_GT(pixel >> 8 & 0xFF, 0x40u);
}

TEST(ImageList, BadListsFail) {
  int cx = 0;
  int cy = 0;
  EXPECT_FALSE(ImageList_GetIconSize(nullptr, &cx, &cy));
  EXPECT_EQ(0, ImageList_GetImageCount(nullptr));
  Canvas dc(2, 2);
  EXPECT_FALSE(ImageList_Draw(nullptr, 0, dc, 0, 0, ILD_NORMAL));
  Images images;
  EXPECT_FALSE(ImageList_Draw(images.list, 7, dc, 0, 0, ILD_NORMAL));
  EXPECT_EQ(4, dc.Read().Count(0xFFFFFF));
}

TEST(ImageDrag, ShowsMovesAndHides) {
  HostWindow host({.style = WS_POPUP | WS_VISIBLE, .x = 100, .y = 100, .cx = 30, .cy = 20});
  Pump();
  const HIMAGELIST list = ImageList_Create(4, 4, ILC_COLOR32 | ILC_MASK, 0, 1);
  const HBITMAP bitmap = Strip({kRed, kRed, kRed, kRed}, 4);
  ImageList_AddMasked(list, bitmap, kMagenta);
  DeleteObject(bitmap);
  const auto inked = [&] {
    GdiFlush();
    return Text(CaptureClient(host).Bounds(0xFFFFFF));
  };
  EXPECT_EQ("0,0,0,0", inked());
  EXPECT_TRUE(ImageList_BeginDrag(list, 0, 1, 1));
  EXPECT_FALSE(ImageList_BeginDrag(list, 0, 1, 1));
  EXPECT_TRUE(ImageList_DragEnter(host, 10, 8));
  EXPECT_EQ("9,7,13,11", inked());
  EXPECT_TRUE(ImageList_DragMove(20, 9));
  EXPECT_EQ("19,8,23,12", inked());
  EXPECT_TRUE(ImageList_DragShowNolock(FALSE));
  EXPECT_EQ("0,0,0,0", inked());
  EXPECT_TRUE(ImageList_DragShowNolock(TRUE));
  EXPECT_EQ("19,8,23,12", inked());
  EXPECT_TRUE(ImageList_DragLeave(host));
  EXPECT_EQ("0,0,0,0", inked());
  ImageList_EndDrag();
  EXPECT_TRUE(ImageList_BeginDrag(list, 0, 0, 0));
  ImageList_EndDrag();
  ImageList_Destroy(list);
}
