// The lives of graphics objects: selection, late deletion, dead and wrong handles.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

#include "support/picture.h"

using namespace support;

TEST(GdiObject, ADeletedPenLivesUntilItIsDeselected) {
  Canvas dc(10, 3);
  const HPEN pen = CreatePen(PS_SOLID, 1, RGB(255, 0, 0));
  const HGDIOBJ old = SelectObject(dc, pen);
  EXPECT_TRUE(DeleteObject(pen));
  MoveToEx(dc, 0, 1, nullptr);
  LineTo(dc, 5, 1);
  EXPECT_EQ(RGB(255, 0, 0), GetPixel(dc, 2, 1));
  EXPECT_EQ(pen, SelectObject(dc, old));
  EXPECT_EQ(0u, GetObjectType(pen));
  EXPECT_EQ(nullptr, SelectObject(dc, pen));
}

TEST(GdiObject, SavedStatesBringTheirObjectsBack) {
  Canvas dc(4, 4);
  const HBRUSH brush = CreateSolidBrush(RGB(0, 0, 255));
  const HGDIOBJ old = SelectObject(dc, brush);
  SaveDC(dc);
  SelectObject(dc, old);
  EXPECT_TRUE(RestoreDC(dc, -1));
  EXPECT_EQ(brush, GetCurrentObject(dc, OBJ_BRUSH));
  PatBlt(dc, 0, 0, 4, 4, PATCOPY);
  EXPECT_EQ(RGB(0, 0, 255), GetPixel(dc, 1, 1));
  SelectObject(dc, old);
  EXPECT_TRUE(DeleteObject(brush));
  EXPECT_EQ(0u, GetObjectType(brush));
}

TEST(GdiObject, ABitmapIsInOneDcOnly) {
  const HDC first = CreateCompatibleDC(nullptr);
  const HDC second = CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = CreateBitmap(4, 4, 1, 1, nullptr);
  const HGDIOBJ old = SelectObject(first, bitmap);
  EXPECT_NE(nullptr, old);
  EXPECT_EQ(nullptr, SelectObject(second, bitmap));
  EXPECT_EQ(bitmap, SelectObject(first, bitmap));
  SelectObject(first, old);
  EXPECT_EQ(old, SelectObject(second, bitmap));
  DeleteDC(second);
  // The DC took its hold with it.
  EXPECT_EQ(old, SelectObject(first, bitmap));
  DeleteDC(first);
  EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(GdiObject, StockObjectsSurviveDeletion) {
  const HGDIOBJ brush = GetStockObject(GRAY_BRUSH);
  EXPECT_TRUE(DeleteObject(brush));
  EXPECT_EQ(static_cast<DWORD>(OBJ_BRUSH), GetObjectType(brush));
  EXPECT_EQ(brush, GetStockObject(GRAY_BRUSH));
  EXPECT_EQ(nullptr, GetStockObject(9));
  EXPECT_EQ(nullptr, GetStockObject(1000));
}

TEST(GdiObject, HandlesComeBackLateIfEver) {
  std::set<HGDIOBJ> seen;
  for (int i = 0; i < 200; ++i) {
    const HBRUSH brush = CreateSolidBrush(RGB(i, 0, 0));
    EXPECT_TRUE(seen.insert(brush).second);
    DeleteObject(brush);
    EXPECT_FALSE(DeleteObject(brush));
  }
}

TEST(GdiObject, WrongHandlesFail) {
  const auto garbage = reinterpret_cast<HDC>(static_cast<std::uintptr_t>(0x1234));
  for (HDC dc : {static_cast<HDC>(nullptr), garbage}) {
    RECT box{};
    SIZE size{};
    EXPECT_EQ(CLR_INVALID, GetPixel(dc, 0, 0));
    EXPECT_EQ(CLR_INVALID, SetTextColor(dc, 0));
    EXPECT_EQ(0, SetBkMode(dc, TRANSPARENT));
    EXPECT_EQ(nullptr, SelectObject(dc, GetStockObject(BLACK_PEN)));
    EXPECT_FALSE(LineTo(dc, 5, 5));
    EXPECT_FALSE(Rectangle(dc, 0, 0, 5, 5));
    EXPECT_EQ(ERROR, GetClipBox(dc, &box));
    EXPECT_EQ(0, SaveDC(dc));
    EXPECT_FALSE(RestoreDC(dc, 1));
    EXPECT_FALSE(GetTextExtentPoint32W(dc, L"x", 1, &size));
    EXPECT_FALSE(TextOutW(dc, 0, 0, L"x", 1));
    EXPECT_FALSE(BitBlt(dc, 0, 0, 5, 5, dc, 0, 0, SRCCOPY));
    EXPECT_FALSE(DeleteDC(dc));
  }
}

TEST(GdiObject, AnEmptyBitmapIsTheFreshOne) {
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ fresh = GetCurrentObject(dc, OBJ_BITMAP);
  EXPECT_EQ(fresh, CreateBitmap(0, 7, 1, 32, nullptr));
  BITMAP record{};
  EXPECT_NE(0, GetObjectW(fresh, sizeof record, &record));
  EXPECT_EQ(1, record.bmWidth);
  EXPECT_EQ(1, record.bmHeight);
  EXPECT_EQ(1, record.bmBitsPixel);
  DeleteDC(dc);
}
