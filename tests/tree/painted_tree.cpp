#include "tree/painted_tree.h"

#include <algorithm>
#include <cstdio>

namespace support {

std::string ZoneText(TestTree& tree, int x, int y) {
  unsigned int flags = 0;
  CVornTreeItem* const item = tree.HitTest(CPoint(x, y), &flags);
  char zone[16];
  std::snprintf(zone, sizeof(zone), " 0x%04X", flags);
  return tree.Name(item) + zone;
}

int HeightOf(CVornTreeCtrl& tree, const CVornTreeItem* item) {
  SIZE images{};
  tree.GetImageSize(STIL_NORMAL, &images);
  return std::max<int>(item->m_nHeight, images.cy);
}

COLORREF SolidImages::ColorOf(int image) { return RGB(200 - 30 * image, 40 + 50 * image, 90); }

SolidImages::SolidImages(int cx, int cy, int count) {
  constexpr COLORREF kMask = RGB(255, 0, 255);
  list.Create(cx, cy, ILC_COLOR24 | ILC_MASK, count, 1);
  CClientDC screen(nullptr);
  for (int i = 0; i < count; ++i) {
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&screen, cx, cy);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CBitmap* const earlier = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, cx, cy, ColorOf(i));
    dc.SetPixelV(0, 0, kMask);
    dc.SelectObject(earlier);  // a bitmap that is selected cannot be added
    ::ImageList_AddMasked(list.GetSafeHandle(), static_cast<HBITMAP>(bitmap.GetSafeHandle()), kMask);
  }
}

namespace {

int TextHeightOf(const CFont& font) {
  const Canvas canvas(1, 1);
  const HGDIOBJ earlier = ::SelectObject(canvas, font.GetSafeHandle());
  SIZE size{};
  ::GetTextExtentPoint32W(canvas, L"X", 1, &size);
  ::SelectObject(canvas, earlier);
  return size.cy;
}

}  // namespace

std::unique_ptr<CFont> FontOfHeight(int pixels) {
  // Each face has its own steps.
  for (const wchar_t* face :
       {L"Tahoma", L"Arial", L"Courier New", L"Times New Roman", L"Marlett", L"Symbol"}) {
    for (int height = -60; height < 60; ++height) {
      auto font = std::make_unique<CFont>();
      LOGFONTW wanted{};
      wanted.lfHeight = height;
      wanted.lfQuality = NONANTIALIASED_QUALITY;
      wcscpy(wanted.lfFaceName, face);
      if (height != 0 && font->CreateFontIndirect(&wanted) && TextHeightOf(*font) == pixels) return font;
    }
  }
  return nullptr;
}

}  // namespace support
