// Drawing objects, device contexts, image lists, menus: owners, wrappers, selection.
#include <afxcmn.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include <thread>

#include "test_app.h"

namespace {

TEST(WndGdi, AnObjectOwnsItsHandle) {
  HGDIOBJ handle = nullptr;
  {
    CPen pen;
    EXPECT_FALSE(pen.DeleteObject());
    ASSERT_TRUE(pen.CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
    EXPECT_FALSE(pen.CreatePen(PS_SOLID, 1, RGB(0, 0, 0))) << "it has a handle already";
    handle = pen.m_hObject;
    EXPECT_EQ(&pen, CPen::FromHandle(pen));
    EXPECT_EQ(static_cast<CGdiObject*>(&pen), CGdiObject::FromHandle(handle));
    LOGPEN description = {};
    EXPECT_NE(0, pen.GetLogPen(&description));
    EXPECT_EQ(static_cast<COLORREF>(RGB(1, 2, 3)), description.lopnColor);
  }
  EXPECT_EQ(0u, ::GetObjectType(handle));
}

TEST(WndGdi, DetachGivesTheHandleAway) {
  CBrush brush(RGB(9, 9, 9));
  const HGDIOBJ handle = brush.Detach();
  EXPECT_EQ(nullptr, brush.m_hObject);
  EXPECT_EQ(static_cast<UINT>(OBJ_BRUSH), ::GetObjectType(handle));
  CBrush other;
  EXPECT_FALSE(other.Attach(nullptr));
  EXPECT_TRUE(other.Attach(handle));
  EXPECT_FALSE(other.Attach(handle));
}

TEST(WndGdi, TemporaryWrappersHaveTheRightClass) {
  AfxLockTempMaps();
  const HBITMAP bitmap = ::CreateBitmap(4, 4, 1, 1, nullptr);
  const HFONT font = static_cast<HFONT>(::GetStockObject(SYSTEM_FONT));
  EXPECT_EQ(nullptr, CFont::FromHandle(nullptr));
  EXPECT_TRUE(CGdiObject::FromHandle(bitmap)->IsKindOf(RUNTIME_CLASS(CBitmap)));
  EXPECT_TRUE(CGdiObject::FromHandle(font)->IsKindOf(RUNTIME_CLASS(CFont)));
  EXPECT_EQ(CBitmap::FromHandle(bitmap), CGdiObject::FromHandle(bitmap));
  AfxUnlockTempMaps();
  EXPECT_EQ(static_cast<UINT>(OBJ_BITMAP), ::GetObjectType(bitmap)) << "the wrapper did not own it";
  ::DeleteObject(bitmap);
}

TEST(WndGdi, AnObjectMayGoOnAnotherThread) {
  auto* const brush = new CBrush(RGB(1, 1, 1));
  const HBRUSH handle = *brush;
  std::thread([&] {
    EXPECT_NE(brush, CBrush::FromHandle(handle)) << "its owner is another thread's";
    delete brush;
  }).join();
  CBrush next(RGB(2, 2, 2));
  EXPECT_EQ(&next, CBrush::FromHandle(next));
}

TEST(WndGdi, ConstructorsThrowWhenThereIsNoObject) {
  CBitmap none;
  EXPECT_THROW(
      {
        try {
          CBrush brush(&none);
        } catch (CResourceException* e) {
          e->Delete();
          throw 1;
        }
      },
      int);
}

TEST(WndGdi, RegionsCombine) {
  CRgn a;
  CRgn b;
  CRgn result;
  ASSERT_TRUE(a.CreateRectRgn(0, 0, 10, 10));
  ASSERT_TRUE(b.CreateRectRgnIndirect(CRect(5, 0, 15, 10)));
  ASSERT_TRUE(result.CreateRectRgn(0, 0, 0, 0));
  EXPECT_EQ(SIMPLEREGION, result.CombineRgn(&a, &b, RGN_AND));
  CRect box;
  result.GetRgnBox(&box);
  EXPECT_EQ(CRect(5, 0, 10, 10), box);
  EXPECT_TRUE(result.PtInRegion(CPoint(6, 3)));
  EXPECT_FALSE(result.PtInRegion(4, 3));
  EXPECT_EQ(NULLREGION, result.CombineRgn(&a, &a, RGN_XOR));
}

TEST(WndGdi, PointFontsGoByTheResolution) {
  CFont font;
  ASSERT_TRUE(font.CreatePointFont(90, L"Tahoma"));
  LOGFONTW description = {};
  ASSERT_NE(0, font.GetLogFont(&description));
  CDC screen;
  ASSERT_TRUE(screen.Attach(::GetDC(nullptr)));
  EXPECT_EQ(-::MulDiv(screen.GetDeviceCaps(LOGPIXELSY), 9, 72), description.lfHeight);
  ::ReleaseDC(nullptr, screen.Detach());
}

// ---- Device contexts -----------------------------------------------------------------------------

// A memory context with a picture of its own.
class WndDc : public testing::Test {
 protected:
  void SetUp() override {
    const HDC screen = ::GetDC(nullptr);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 40, 30);
    ::ReleaseDC(nullptr, screen);
    ASSERT_TRUE(m_bitmap.Attach(bitmap));
    ASSERT_TRUE(m_dc.CreateCompatibleDC(nullptr));
    m_earlier = m_dc.SelectObject(&m_bitmap);
    ASSERT_NE(nullptr, m_earlier);
    m_dc.FillSolidRect(0, 0, 40, 30, RGB(255, 255, 255));
  }
  void TearDown() override { m_dc.SelectObject(m_earlier); }

  CBitmap m_bitmap;
  CDC m_dc;
  CBitmap* m_earlier = nullptr;
};

TEST_F(WndDc, SelectionGivesBackTheObjectOfBefore) {
  CPen red(PS_SOLID, 1, RGB(255, 0, 0));
  CPen green(PS_SOLID, 1, RGB(0, 255, 0));
  CPen* const stock = m_dc.SelectObject(&red);
  ASSERT_NE(nullptr, stock);
  EXPECT_EQ(&red, m_dc.GetCurrentPen());
  EXPECT_EQ(&red, m_dc.SelectObject(&green));
  EXPECT_EQ(static_cast<CGdiObject*>(&green), m_dc.SelectObject(static_cast<CGdiObject*>(&red)));
  EXPECT_EQ(nullptr, m_dc.SelectObject(static_cast<CPen*>(nullptr)));
  EXPECT_EQ(&red, m_dc.SelectObject(stock));
  EXPECT_EQ(&m_bitmap, m_dc.GetCurrentBitmap());
  EXPECT_NE(nullptr, m_dc.SelectStockObject(NULL_BRUSH));
  CRgn clip;
  ASSERT_TRUE(clip.CreateRectRgn(0, 0, 5, 5));
  EXPECT_EQ(SIMPLEREGION, m_dc.SelectObject(&clip));
  EXPECT_EQ(SIMPLEREGION, m_dc.SelectClipRgn(nullptr));
}

TEST_F(WndDc, FillSolidRectKeepsTheBackgroundColour) {
  m_dc.SetBkColor(RGB(1, 2, 3));
  m_dc.FillSolidRect(CRect(2, 3, 4, 5), RGB(255, 0, 0));
  EXPECT_EQ(static_cast<COLORREF>(RGB(1, 2, 3)), m_dc.GetBkColor());
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 0, 0)), m_dc.GetPixel(2, 3));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 0, 0)), m_dc.GetPixel(3, 4));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), m_dc.GetPixel(4, 4));
}

TEST_F(WndDc, Draw3dRectHasTwoColours) {
  m_dc.Draw3dRect(CRect(5, 5, 15, 12), RGB(10, 0, 0), RGB(0, 20, 0));
  EXPECT_EQ(static_cast<COLORREF>(RGB(10, 0, 0)), m_dc.GetPixel(5, 5));
  EXPECT_EQ(static_cast<COLORREF>(RGB(10, 0, 0)), m_dc.GetPixel(13, 5));
  EXPECT_EQ(static_cast<COLORREF>(RGB(10, 0, 0)), m_dc.GetPixel(5, 10));
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 20, 0)), m_dc.GetPixel(14, 5));
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 20, 0)), m_dc.GetPixel(5, 11));
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 20, 0)), m_dc.GetPixel(14, 11));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), m_dc.GetPixel(6, 6));
}

TEST_F(WndDc, StateIsSavedAndRestored) {
  const int saved = m_dc.SaveDC();
  ASSERT_NE(0, saved);
  m_dc.SetTextColor(RGB(7, 7, 7));
  m_dc.SetWindowOrg(3, 4);
  EXPECT_EQ(CPoint(3, 4), m_dc.GetWindowOrg());
  EXPECT_TRUE(m_dc.RestoreDC(saved));
  EXPECT_EQ(CPoint(0, 0), m_dc.GetWindowOrg());
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 0, 0)), m_dc.GetTextColor());
}

TEST_F(WndDc, TheWindowOriginMovesCoordinates) {
  EXPECT_EQ(CPoint(0, 0), m_dc.SetWindowOrg(CPoint(10, 20)));
  m_dc.SetPixel(10, 20, RGB(0, 0, 255));
  CRect rect(10, 20, 12, 23);
  m_dc.LPtoDP(&rect);
  EXPECT_EQ(CRect(0, 0, 2, 3), rect);
  m_dc.DPtoLP(&rect);
  EXPECT_EQ(CRect(10, 20, 12, 23), rect);
  m_dc.SetWindowOrg(0, 0);
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 0, 255)), m_dc.GetPixel(0, 0));
}

TEST_F(WndDc, ClippingReportsItsKind) {
  EXPECT_EQ(SIMPLEREGION, m_dc.IntersectClipRect(CRect(0, 0, 10, 10)));
  CRect box;
  EXPECT_EQ(SIMPLEREGION, m_dc.GetClipBox(&box));
  EXPECT_EQ(CRect(0, 0, 10, 10), box);
  EXPECT_EQ(COMPLEXREGION, m_dc.ExcludeClipRect(2, 2, 4, 4));
  EXPECT_FALSE(m_dc.PtVisible(3, 3));
  EXPECT_TRUE(m_dc.RectVisible(CRect(0, 0, 5, 5)));
  EXPECT_NE(ERROR, m_dc.SelectClipRgn(nullptr));
}

TEST_F(WndDc, ATrackingFrameErasesItself) {
  const CSize thick(2, 2);
  const CSize none(0, 0);
  const CRect place(5, 5, 25, 20);
  CBrush* const white = CBrush::FromHandle(static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
  m_dc.DrawDragRect(place, thick, nullptr, none, white);
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 0, 0)), m_dc.GetPixel(5, 5));
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 0, 0)), m_dc.GetPixel(24, 18));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), m_dc.GetPixel(10, 10)) << "the middle stays";

  const CRect moved(8, 8, 28, 23);
  m_dc.DrawDragRect(moved, thick, place, thick, white);
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), m_dc.GetPixel(5, 5));
  EXPECT_EQ(static_cast<COLORREF>(RGB(0, 0, 0)), m_dc.GetPixel(8, 9));
  m_dc.DrawDragRect(moved, none, moved, thick, white);
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x) {
      ASSERT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), m_dc.GetPixel(x, y)) << x << "," << y;
    }
  }
  EXPECT_NE(nullptr, CDC::GetHalftoneBrush());
  EXPECT_EQ(CDC::GetHalftoneBrush(), CDC::GetHalftoneBrush());
}

TEST_F(WndDc, TextHasTheSameSizeAsTheSystemSays) {
  const CString text(L"Élément");
  SIZE wanted = {};
  ::GetTextExtentPoint32W(m_dc.m_hDC, text, text.GetLength(), &wanted);
  EXPECT_EQ(CSize(wanted), m_dc.GetTextExtent(text));
  EXPECT_EQ(CSize(wanted), m_dc.GetOutputTextExtent(text));
  CRect rect;
  EXPECT_EQ(wanted.cy, m_dc.DrawText(text, &rect, DT_CALCRECT | DT_SINGLELINE));
  EXPECT_EQ(wanted.cx, rect.Width());
}

TEST(WndDcHandles, AttributesMayComeFromAnotherContext) {
  CDC dc;
  ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
  EXPECT_FALSE(dc.CreateCompatibleDC(nullptr)) << "it has one already";
  EXPECT_EQ(&dc, CDC::FromHandle(dc.m_hDC));
  const HDC other = ::CreateCompatibleDC(nullptr);
  dc.SetAttribDC(other);
  dc.SetTextColor(RGB(5, 6, 7));
  EXPECT_EQ(static_cast<COLORREF>(RGB(5, 6, 7)), ::GetTextColor(other));
  EXPECT_EQ(static_cast<COLORREF>(RGB(5, 6, 7)), ::GetTextColor(dc.m_hDC));
  dc.ReleaseAttribDC();
  ::DeleteDC(other);
  const HDC handle = dc.m_hDC;
  EXPECT_TRUE(dc.DeleteDC());
  EXPECT_EQ(nullptr, dc.m_hDC);
  EXPECT_FALSE(dc.DeleteDC());
  EXPECT_EQ(nullptr, dc.SelectStockObject(NULL_PEN));
  EXPECT_EQ(0u, ::GetObjectType(handle));
}

TEST(WndDcHandles, ContextsOfWindowsGoBack) {
  CWnd window;
  ASSERT_TRUE(window.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 40),
                              nullptr, 0));
  {
    CClientDC client(&window);
    EXPECT_EQ(window.m_hWnd, ::WindowFromDC(client.m_hDC));
    EXPECT_EQ(&window, client.GetWindow());
    CWindowDC whole(&window);
    EXPECT_NE(nullptr, whole.m_hDC);
  }
  window.Invalidate();
  {
    CPaintDC paint(&window);
    EXPECT_EQ(CRect(0, 0, 50, 40), CRect(paint.m_ps.rcPaint));
  }
  EXPECT_FALSE(window.GetUpdateRect(nullptr));
  CDC* const dc = window.GetDC();
  ASSERT_NE(nullptr, dc);
  EXPECT_EQ(1, window.ReleaseDC(dc));
}

// ---- Image lists ---------------------------------------------------------------------------------

TEST(WndImageList, ImagesAreAddedCountedAndDrawn) {
  CImageList list;
  ASSERT_TRUE(list.Create(8, 8, ILC_COLOR24 | ILC_MASK, 1, 2));
  EXPECT_FALSE(list.Create(8, 8, ILC_COLOR24, 1, 1)) << "it has one already";
  EXPECT_EQ(&list, CImageList::FromHandle(list.m_hImageList));

  CClientDC screen(nullptr);
  CBitmap strip;
  ASSERT_TRUE(strip.CreateCompatibleBitmap(&screen, 16, 8));
  CDC dc;
  ASSERT_TRUE(dc.CreateCompatibleDC(&screen));
  CBitmap* const earlier = dc.SelectObject(&strip);
  dc.FillSolidRect(0, 0, 8, 8, RGB(255, 0, 0));
  dc.FillSolidRect(8, 0, 8, 8, RGB(255, 0, 255));
  dc.SelectObject(earlier);
  EXPECT_EQ(0, list.Add(&strip, RGB(255, 0, 255)));
  EXPECT_EQ(2, list.GetImageCount());

  CBitmap canvas;
  ASSERT_TRUE(canvas.CreateCompatibleBitmap(&screen, 16, 8));
  dc.SelectObject(&canvas);
  dc.FillSolidRect(0, 0, 16, 8, RGB(255, 255, 255));
  EXPECT_TRUE(list.Draw(&dc, 0, CPoint(0, 0), ILD_NORMAL));
  EXPECT_TRUE(list.Draw(&dc, 1, CPoint(8, 0), ILD_TRANSPARENT));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 0, 0)), dc.GetPixel(3, 3));
  EXPECT_EQ(static_cast<COLORREF>(RGB(255, 255, 255)), dc.GetPixel(11, 3)) << "transparent";
  dc.SelectObject(earlier);

  IMAGEINFO info = {};
  EXPECT_TRUE(list.GetImageInfo(1, &info));
  EXPECT_EQ(8, info.rcImage.right - info.rcImage.left);
  CImageList copy;
  ASSERT_TRUE(copy.Create(&list));
  EXPECT_EQ(2, copy.GetImageCount());
  EXPECT_TRUE(copy.Remove(-1));
  EXPECT_EQ(0, copy.GetImageCount());
  EXPECT_TRUE(list.DeleteImageList());
  EXPECT_FALSE(list.DeleteImageList());
}

TEST(WndImageList, OneImageIsDraggedAtATime) {
  CImageList list;
  ASSERT_TRUE(list.Create(8, 8, ILC_COLOR24 | ILC_MASK, 1, 1));
  ASSERT_TRUE(list.SetImageCount(1));
  CWnd window;
  ASSERT_TRUE(window.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 40),
                              nullptr, 0));
  EXPECT_TRUE(list.BeginDrag(0, CPoint(1, 1)));
  EXPECT_FALSE(list.BeginDrag(0, CPoint(1, 1)));
  EXPECT_TRUE(CImageList::DragEnter(&window, CPoint(5, 5)));
  EXPECT_TRUE(CImageList::DragMove(CPoint(6, 6)));
  EXPECT_TRUE(CImageList::DragShowNolock(FALSE));
  EXPECT_TRUE(CImageList::DragLeave(&window));
  CImageList::EndDrag();
}

// ---- Menus ---------------------------------------------------------------------------------------

TEST(WndMenu, ItemsComeAndGo) {
  CMenu menu;
  ASSERT_TRUE(menu.CreatePopupMenu());
  EXPECT_FALSE(menu.CreateMenu()) << "it has one already";
  EXPECT_EQ(&menu, CMenu::FromHandle(menu));
  EXPECT_TRUE(menu.AppendMenu(MF_STRING, 1, L"Copier"));
  EXPECT_TRUE(menu.InsertMenu(0, MF_BYPOSITION | MF_STRING, 2, L"Déplacer"));
  EXPECT_TRUE(menu.AppendMenu(MF_SEPARATOR));
  EXPECT_EQ(3u, menu.GetMenuItemCount());
  EXPECT_EQ(2u, menu.GetMenuItemID(0));
  CString text;
  EXPECT_EQ(8, menu.GetMenuString(2, text, MF_BYCOMMAND));
  EXPECT_STREQ(L"Déplacer", text);
  EXPECT_TRUE(menu.ModifyMenu(1, MF_BYCOMMAND | MF_STRING, 1, L"Coller"));
  menu.GetMenuString(1, text, MF_BYCOMMAND);
  EXPECT_STREQ(L"Coller", text);
  menu.EnableMenuItem(1, MF_BYCOMMAND | MF_GRAYED);
  EXPECT_TRUE(menu.GetMenuState(1, MF_BYCOMMAND) & MF_GRAYED);
  menu.CheckMenuItem(2, MF_BYCOMMAND | MF_CHECKED);
  EXPECT_TRUE(menu.GetMenuState(2, MF_BYCOMMAND) & MF_CHECKED);
  EXPECT_TRUE(menu.SetDefaultItem(2));
  EXPECT_EQ(2u, menu.GetDefaultItem(0));
  EXPECT_TRUE(menu.DeleteMenu(1, MF_BYCOMMAND));
  EXPECT_EQ(2u, menu.GetMenuItemCount());
}

TEST(WndMenu, SubmenusGoWithTheirMenu) {
  CMenu menu;
  ASSERT_TRUE(menu.CreateMenu());
  CMenu popup;
  ASSERT_TRUE(popup.CreatePopupMenu());
  popup.AppendMenu(MF_STRING, 7, L"x");
  const HMENU handle = popup.Detach();
  ASSERT_TRUE(menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(handle), L"Fichier"));
  ASSERT_NE(nullptr, menu.GetSubMenu(0));
  EXPECT_EQ(handle, menu.GetSubMenu(0)->m_hMenu);
  EXPECT_EQ(nullptr, menu.GetSubMenu(1));
  EXPECT_TRUE(menu.DestroyMenu());
  EXPECT_FALSE(::IsMenu(handle));
  EXPECT_FALSE(menu.DestroyMenu());
}

}  // namespace
