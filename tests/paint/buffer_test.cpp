// CVornDC as a buffer, and straight on a window.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "VornComCtl.h"
#include "support/host_window.h"
#include "support/picture.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kWhite = RGB(255, 255, 255);

class BufferTest : public testing::Test {
 protected:
  CWnd* Wnd() { return CWnd::FromHandle(m_host); }
  CRect Client() {
    CRect client;
    ::GetClientRect(m_host, &client);
    return client;
  }
  COLORREF PixelAt(int x, int y) {
    const support::Picture picture = support::CaptureClient(m_host);
    const std::uint32_t rgb = picture.At(x, y);
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
  }
  // Paints the client white and leaves nothing to be painted.
  void Clear() {
    const HDC dc = ::GetDC(m_host);
    const CRect client = Client();
    ::FillRect(dc, &client, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
    ::ReleaseDC(m_host, dc);
    ::ValidateRect(m_host, nullptr);
  }
  void SetUp() override { Clear(); }

  // No erasing: what the buffer does not cover stays as it was.
  support::HostWindow m_host{{.cx = 60, .cy = 40, .background = -1}};
};

// ---- Buffered window paint ---------------------------------------------------------------------------

TEST_F(BufferTest, CoversTheInvalidArea) {
  const CRect invalid(5, 6, 25, 16);
  ::InvalidateRect(m_host, &invalid, FALSE);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(Wnd()), 1);
  EXPECT_EQ(*dc.GetClipRect(), invalid);
  EXPECT_EQ(dc.GetWindowOrg(), CPoint(5, 6)) << "the window's own coordinates";
  dc.FillBack(kRed);
  EXPECT_EQ(PixelAt(10, 10), kWhite) << "nothing reaches the window before the end";
  EXPECT_EQ(dc.EndPaint(nullptr), nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
  EXPECT_EQ(PixelAt(5, 6), kRed);
  EXPECT_EQ(PixelAt(24, 15), kRed);
  EXPECT_EQ(PixelAt(4, 6), kWhite);
  EXPECT_EQ(PixelAt(25, 15), kWhite);
  EXPECT_EQ(PixelAt(24, 16), kWhite);
  EXPECT_FALSE(::GetUpdateRect(m_host, nullptr, FALSE)) << "the paint is done";
}

TEST_F(BufferTest, DrawsWhereTheWindowWould) {
  const CRect invalid(20, 10, 40, 30);
  ::InvalidateRect(m_host, &invalid, FALSE);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(Wnd()), 1);
  dc.FillBack(kWhite);
  dc.FillSolidRect(CRect(22, 12, 24, 14), kBlue);
  dc.EndPaint(nullptr);
  const support::Picture picture = support::CaptureClient(m_host);
  EXPECT_EQ(picture.Count(support::Rgb(kBlue)), 4);
  EXPECT_EQ(PixelAt(22, 12), kBlue);
  EXPECT_EQ(PixelAt(23, 13), kBlue);
}

TEST_F(BufferTest, AnEmptyClipBoxOfAWindowMeansItsWholeClientArea) {
  ASSERT_FALSE(::GetUpdateRect(m_host, nullptr, FALSE));
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(Wnd()), 1);
  EXPECT_EQ(*dc.GetClipRect(), Client());
  BITMAP buffer{};
  ASSERT_TRUE(dc.GetCurrentBitmap()->GetBitmap(&buffer));
  EXPECT_EQ(buffer.bmWidth, Client().Width());
  EXPECT_EQ(buffer.bmHeight, Client().Height());
}

TEST_F(BufferTest, PaintsInAnswerToWmPaint) {
  m_host.SetHandler([](HWND window, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message != WM_PAINT) return std::nullopt;
    CVornDC dc;
    EXPECT_EQ(dc.BeginPaint(CWnd::FromHandle(window)), 1);
    dc.FillBack(kBlue);
    dc.EndPaint(nullptr);
    return 0;
  });
  ::InvalidateRect(m_host, nullptr, TRUE);
  ::UpdateWindow(m_host);
  EXPECT_EQ(PixelAt(0, 0), kBlue);
  EXPECT_EQ(PixelAt(59, 39), kBlue);
}

TEST_F(BufferTest, EndPaintWithARectangleCopiesOnlyThat) {
  ::InvalidateRect(m_host, nullptr, FALSE);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(Wnd()), 1);
  dc.FillBack(kRed);
  CRect part(10, 10, 20, 20);
  dc.EndPaint(&part);
  EXPECT_EQ(support::CaptureClient(m_host).Count(support::Rgb(kRed)), 100);
  EXPECT_EQ(PixelAt(10, 10), kRed);
  EXPECT_EQ(PixelAt(9, 9), kWhite);
  EXPECT_EQ(*dc.GetClipRect(), part);
}

TEST_F(BufferTest, AnObjectThatEndsWhilePaintingStillCopies) {
  ::InvalidateRect(m_host, nullptr, FALSE);
  {
    CVornDC dc;
    ASSERT_EQ(dc.BeginPaint(Wnd()), 1);
    dc.FillBack(kRed);
  }
  EXPECT_EQ(PixelAt(30, 20), kRed);
  EXPECT_FALSE(::GetUpdateRect(m_host, nullptr, FALSE));
}

TEST_F(BufferTest, WithoutAWindowThereIsNothingToPaint) {
  CVornDC dc;
  CWnd none;
  EXPECT_EQ(dc.BeginPaint(static_cast<CWnd*>(nullptr)), 0);
  EXPECT_EQ(dc.BeginPaint(&none), 0);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
  EXPECT_EQ(dc.EndPaint(nullptr), nullptr);
}

TEST_F(BufferTest, OneObjectPaintsManyTimes) {
  CVornDC dc;
  for (COLORREF color : {kRed, kBlue, kWhite, kRed}) {
    ::InvalidateRect(m_host, nullptr, FALSE);
    ASSERT_EQ(dc.BeginPaint(Wnd()), 1);
    dc.FillBack(color);
    dc.EndPaint(nullptr);
    EXPECT_EQ(PixelAt(30, 20), color);
  }
}

TEST_F(BufferTest, ASecondBeginPaintEndsTheFirst) {
  support::Canvas first(20, 20), second(20, 20);
  CDC* const firstDc = CDC::FromHandle(first);
  CDC* const secondDc = CDC::FromHandle(second);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(firstDc), 1);
  dc.FillBack(kRed);
  ASSERT_EQ(dc.BeginPaint(secondDc), 1);
  dc.FillBack(kBlue);
  dc.EndPaint(nullptr);
  EXPECT_EQ(first.Read().Count(support::Rgb(kRed)), 400);
  EXPECT_EQ(second.Read().Count(support::Rgb(kBlue)), 400);
}

// ---- Buffered paint on a context ---------------------------------------------------------------------

TEST_F(BufferTest, CoversTheClipBoxOfAContext) {
  support::Canvas canvas(30, 20);
  ::IntersectClipRect(canvas, 10, 5, 20, 15);
  CDC* const target = CDC::FromHandle(canvas);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(target), 1);
  EXPECT_EQ(*dc.GetClipRect(), CRect(10, 5, 20, 15));
  dc.FillBack(kRed);
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kRed)), 0);
  EXPECT_EQ(dc.EndPaint(nullptr), nullptr);
  const support::Picture picture = canvas.Read();
  EXPECT_EQ(picture.Count(support::Rgb(kRed)), 100);
  EXPECT_EQ(picture.At(10, 5), support::Rgb(kRed));
  EXPECT_EQ(picture.At(19, 14), support::Rgb(kRed));
  EXPECT_NE(target->GetSafeHdc(), nullptr) << "the context stays the caller's";
}

TEST_F(BufferTest, UsesTheLogicalCoordinatesOfAContext) {
  support::Canvas canvas(30, 20);
  ::SetWindowOrgEx(canvas, 100, 200, nullptr);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(CDC::FromHandle(canvas)), 1);
  EXPECT_EQ(*dc.GetClipRect(), CRect(100, 200, 130, 220));
  dc.FillBack(kWhite);
  dc.FillSolidRect(CRect(101, 202, 102, 203), kBlue);
  dc.EndPaint(nullptr);
  EXPECT_EQ(canvas.Read().At(1, 2), support::Rgb(kBlue));
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kBlue)), 1);
}

TEST_F(BufferTest, AnEmptyClipBoxOfAContextGivesAnEmptyBuffer) {
  support::Canvas canvas(30, 20);
  ::IntersectClipRect(canvas, 0, 0, 0, 0);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(CDC::FromHandle(canvas)), 1);
  EXPECT_TRUE(dc.GetClipRect()->IsRectEmpty());
  dc.EndPaint(nullptr);
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kWhite)), 600);
}

TEST_F(BufferTest, WithoutAContextThereIsNothingToPaint) {
  CVornDC dc;
  CDC none;
  EXPECT_EQ(dc.BeginPaint(static_cast<CDC*>(nullptr)), 0);
  EXPECT_EQ(dc.BeginPaint(&none), 0);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
}

// ---- SwapBuffers and FillBack ------------------------------------------------------------------------

TEST_F(BufferTest, SwapBuffersOfAnIdleObjectDoesNothing) {
  CVornDC dc;
  EXPECT_EQ(dc.SwapBuffers(), 0);
}

TEST_F(BufferTest, SwapBuffersCopiesAndLeavesThePaintOpen) {
  support::Canvas canvas(10, 10);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(CDC::FromHandle(canvas)), 1);
  dc.FillBack(kRed);
  EXPECT_EQ(dc.SwapBuffers(), 1);
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kRed)), 100);
  EXPECT_EQ(dc.SwapBuffers(), 0) << "the buffer is gone";
  EXPECT_NE(dc.GetSafeHdc(), nullptr);
  dc.EndPaint(nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kRed)), 100);
}

TEST_F(BufferTest, FillBackTakesTheClipBoxAsClipRectangle) {
  support::Canvas canvas(20, 20);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(CDC::FromHandle(canvas)), 1);
  *dc.GetClipRect() = CRect(1, 2, 3, 4);
  dc.FillBack(kRed);
  EXPECT_EQ(*dc.GetClipRect(), CRect(0, 0, 20, 20));
  dc.IntersectClipRect(0, 0, 10, 20);
  dc.FillBack(kBlue);
  EXPECT_EQ(*dc.GetClipRect(), CRect(0, 0, 10, 20));
  dc.EndPaint(nullptr);
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kBlue)), 200) << "and so only that is copied";
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kRed)), 0);
}

// ---- Straight on a window ----------------------------------------------------------------------------

TEST_F(BufferTest, AnAttachedWindowIsDrawnOnAtOnce) {
  CVornDC dc;
  ASSERT_EQ(dc.AttachWnd(Wnd()), 1);
  dc.FillSolidRect(CRect(0, 0, 10, 10), kRed);
  ::GdiFlush();
  EXPECT_EQ(PixelAt(5, 5), kRed);
  EXPECT_EQ(dc.DetachWnd(), 1);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
  EXPECT_EQ(dc.DetachWnd(), 0) << "there is no context any more";
}

TEST_F(BufferTest, EndPaintReturnsTheAttachedWindowOnce) {
  CVornDC dc;
  ASSERT_EQ(dc.AttachWnd(Wnd()), 1);
  EXPECT_EQ(dc.DetachWnd(), 1);
  CWnd* const attached = dc.EndPaint(nullptr);
  ASSERT_NE(attached, nullptr);
  EXPECT_EQ(attached->GetSafeHwnd(), m_host.Handle());
  EXPECT_EQ(dc.EndPaint(nullptr), nullptr);
}

TEST_F(BufferTest, AWindowThatIsStillAttachedIsLetGo) {
  {
    CVornDC dc;
    ASSERT_EQ(dc.AttachWnd(Wnd()), 1);
  }
  CVornDC dc;
  ASSERT_EQ(dc.AttachWnd(Wnd()), 1);
  EXPECT_NE(dc.EndPaint(nullptr), nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
}

TEST_F(BufferTest, NothingIsAttachedToNothing) {
  CVornDC dc;
  CWnd none;
  EXPECT_EQ(dc.AttachWnd(nullptr), 0);
  EXPECT_EQ(dc.AttachWnd(&none), 0);
  EXPECT_EQ(dc.DetachWnd(), 0);
  EXPECT_EQ(dc.EndPaint(nullptr), nullptr);
}

TEST_F(BufferTest, AnObjectIsUsedInOneWayAtATime) {
  support::Canvas canvas(10, 10);
  CVornDC dc;
  ASSERT_EQ(dc.AttachWnd(Wnd()), 1);
  const HDC attached = dc.GetSafeHdc();
  EXPECT_EQ(dc.AttachWnd(Wnd()), 0);
  EXPECT_EQ(dc.BeginPaint(CDC::FromHandle(canvas)), 0);
  EXPECT_EQ(dc.CreateBitmapCapture(5, 5), 0);
  EXPECT_EQ(dc.GetCapturedBitmap(), nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), attached);
  EXPECT_EQ(dc.DetachWnd(), 1);
  ASSERT_EQ(dc.BeginPaint(CDC::FromHandle(canvas)), 1);
  EXPECT_EQ(dc.DetachWnd(), 0);
  EXPECT_EQ(dc.AttachWnd(Wnd()), 0);
  dc.EndPaint(nullptr);
}

// ---- Run-time class ----------------------------------------------------------------------------------

TEST(VornDcClass, IsCreatedByItsRunTimeClass) {
  EXPECT_STREQ(RUNTIME_CLASS(CVornDC)->m_lpszClassName, "CVornDC");
  const std::unique_ptr<CObject> object(RUNTIME_CLASS(CVornDC)->CreateObject());
  ASSERT_NE(object, nullptr);
  EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CVornDC)));
  EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CDC)));
  EXPECT_EQ(object->GetRuntimeClass(), CVornDC::GetThisClass());
}

}  // namespace
