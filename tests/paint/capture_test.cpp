// CVornDC as a maker of pictures: of what was drawn, of a context, of a window.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>

#include "VornComCtl.h"
#include "support/host_window.h"
#include "support/picture.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kWhite = RGB(255, 255, 255);

CSize SizeOf(HBITMAP bitmap) {
  BITMAP info{};
  EXPECT_TRUE(::GetObjectW(bitmap, sizeof(info), &info));
  return CSize(info.bmWidth, info.bmHeight);
}

support::Picture Read(HBITMAP bitmap) {
  const CSize size = SizeOf(bitmap);
  const HDC dc = ::CreateCompatibleDC(nullptr);
  const HGDIOBJ old = ::SelectObject(dc, bitmap);
  EXPECT_NE(old, nullptr) << "still selected elsewhere";
  support::Picture picture = support::CaptureDc(dc, 0, 0, size.cx, size.cy);
  ::SelectObject(dc, old);
  ::DeleteDC(dc);
  return picture;
}

// The bitmap of a capture, which the caller owns, out of its temporary object.
HBITMAP Take(CVornDC& dc) {
  CBitmap* const bitmap = dc.GetCapturedBitmap();
  return bitmap ? static_cast<HBITMAP>(bitmap->GetSafeHandle()) : nullptr;
}

// ---- Capture of what is drawn ------------------------------------------------------------------------

TEST(Capture, GivesACopyOfWhatWasDrawn) {
  CVornDC dc;
  ASSERT_EQ(dc.CreateBitmapCapture(8, 6), 1);
  dc.FillSolidRect(CRect(0, 0, 8, 6), kWhite);
  dc.FillSolidRect(CRect(2, 1, 4, 3), kRed);
  const HBITMAP bitmap = Take(dc);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(SizeOf(bitmap), CSize(8, 6));
  const support::Picture picture = Read(bitmap);
  EXPECT_EQ(picture.Count(support::Rgb(kRed)), 4);
  EXPECT_EQ(picture.At(2, 1), support::Rgb(kRed));
  EXPECT_EQ(picture.At(3, 2), support::Rgb(kRed));
  EXPECT_EQ(picture.At(0, 0), support::Rgb(kWhite));
  ::DeleteObject(bitmap);
}

TEST(Capture, TheCopyOutlivesTheObject) {
  HBITMAP bitmap = nullptr;
  {
    CVornDC dc;
    ASSERT_EQ(dc.CreateBitmapCapture(CSize(4, 4)), 1);
    dc.FillSolidRect(CRect(0, 0, 4, 4), kBlue);
    bitmap = Take(dc);
  }
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(Read(bitmap).Count(support::Rgb(kBlue)), 16);
  ::DeleteObject(bitmap);
}

TEST(Capture, CanBeTakenAgain) {
  CVornDC dc;
  ASSERT_EQ(dc.CreateBitmapCapture(4, 4), 1);
  dc.FillSolidRect(CRect(0, 0, 4, 4), kBlue);
  const HBITMAP first = Take(dc);
  const HBITMAP second = Take(dc);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_TRUE(Read(first) == Read(second));
  ::DeleteObject(first);
  ::DeleteObject(second);
}

TEST(Capture, ANewCaptureReplacesTheOld) {
  CVornDC dc;
  ASSERT_EQ(dc.CreateBitmapCapture(4, 4), 1);
  ASSERT_EQ(dc.CreateBitmapCapture(5, 3), 1);
  dc.FillSolidRect(CRect(0, 0, 5, 3), kRed);
  const HBITMAP bitmap = Take(dc);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(SizeOf(bitmap), CSize(5, 3));
  EXPECT_EQ(Read(bitmap).Count(support::Rgb(kRed)), 15);
  ::DeleteObject(bitmap);
}

TEST(Capture, EndPaintGivesTheContextUp) {
  CVornDC dc;
  ASSERT_EQ(dc.CreateBitmapCapture(4, 4), 1);
  EXPECT_EQ(dc.EndPaint(nullptr), nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
  EXPECT_EQ(dc.GetCapturedBitmap(), nullptr);
  ASSERT_EQ(dc.CreateBitmapCapture(2, 2), 1);
}

TEST(Capture, WithoutAContextThereIsNoBitmap) {
  CVornDC dc;
  EXPECT_EQ(dc.GetCapturedBitmap(), nullptr);
  EXPECT_EQ(dc.CreateBitmapCapture(-1, 4), 0);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
  EXPECT_EQ(dc.GetCapturedBitmap(), nullptr);
  ASSERT_EQ(dc.CreateBitmapCapture(4, 4), 1) << "a failure leaves the object as new";
}

// ---- Capture of a context ----------------------------------------------------------------------------

TEST(DcCapture, CopiesTheRectangle) {
  support::Canvas canvas(20, 20);
  CDC* const source = CDC::FromHandle(canvas);
  source->FillSolidRect(CRect(5, 5, 8, 8), kRed);
  CVornDC dc;
  const std::unique_ptr<CBitmap> bitmap(dc.GetDCCapture(source, CRect(5, 5, 15, 10), nullptr));
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr) << "the object is idle again";
  EXPECT_EQ(SizeOf(*bitmap), CSize(10, 5));
  const support::Picture picture = Read(*bitmap);
  EXPECT_EQ(picture.Count(support::Rgb(kRed)), 9);
  EXPECT_EQ(picture.At(0, 0), support::Rgb(kRed));
}

TEST(DcCapture, TheOffsetMovesTheRectangle) {
  support::Canvas canvas(20, 20);
  CDC* const source = CDC::FromHandle(canvas);
  source->FillSolidRect(CRect(5, 5, 8, 8), kRed);
  CVornDC dc;
  POINT offset{-100, -50};
  const CRect rect(105, 55, 108, 58);
  const std::unique_ptr<CBitmap> bitmap(dc.GetDCCapture(source, rect, &offset));
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(Read(*bitmap).Count(support::Rgb(kRed)), 9);
  EXPECT_EQ(rect, CRect(105, 55, 108, 58)) << "the argument stays";
}

TEST(DcCapture, ABusyObjectGivesNothingAndKeepsItsContext) {
  support::Canvas canvas(20, 20), other(20, 20);
  CVornDC dc;
  ASSERT_EQ(dc.BeginPaint(CDC::FromHandle(canvas)), 1);
  const HDC context = dc.GetSafeHdc();
  EXPECT_EQ(dc.GetDCCapture(CDC::FromHandle(other), CRect(0, 0, 5, 5), nullptr), nullptr);
  support::HostWindow host;
  EXPECT_EQ(dc.GetWindowCapture(CWnd::FromHandle(host), nullptr, nullptr), nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), context);
  dc.EndPaint(nullptr);
}

TEST(DcCapture, BadArgumentsGiveNothing) {
  support::Canvas canvas(20, 20);
  CVornDC dc;
  CDC none;
  EXPECT_EQ(dc.GetDCCapture(nullptr, CRect(0, 0, 5, 5), nullptr), nullptr);
  EXPECT_EQ(dc.GetDCCapture(&none, CRect(0, 0, 5, 5), nullptr), nullptr);
  EXPECT_EQ(dc.GetDCCapture(CDC::FromHandle(canvas), CRect(5, 5, 2, 9), nullptr), nullptr);
  EXPECT_EQ(dc.GetSafeHdc(), nullptr);
}

// ---- Capture of a window -----------------------------------------------------------------------------

class WindowCapture : public testing::Test {
 protected:
  void SetUp() override {
    const HDC dc = ::GetDC(m_host);
    CDC* const wrapped = CDC::FromHandle(dc);
    wrapped->FillSolidRect(CRect(0, 0, 40, 30), kWhite);
    wrapped->FillSolidRect(CRect(10, 10, 12, 13), kRed);
    ::ReleaseDC(m_host, dc);
    ::ValidateRect(m_host, nullptr);
  }

  CWnd* Wnd() { return CWnd::FromHandle(m_host); }

  // A window with no frame: its origin is that of the client area.
  support::HostWindow m_host{{.x = 50, .y = 60, .cx = 40, .cy = 30, .background = -1}};
};

TEST_F(WindowCapture, CopiesAPart) {
  CVornDC dc;
  const RECT part{9, 9, 13, 14};
  const std::unique_ptr<CBitmap> bitmap(dc.GetWindowCapture(Wnd(), &part, nullptr));
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(SizeOf(*bitmap), CSize(4, 5));
  EXPECT_EQ(Read(*bitmap).Count(support::Rgb(kRed)), 6);
}

TEST_F(WindowCapture, WithoutARectangleTheOffsetBringsTheWindowToItsOrigin) {
  CVornDC dc;
  CRect window;
  ::GetWindowRect(m_host, &window);
  POINT offset{-window.left, -window.top};
  const std::unique_ptr<CBitmap> bitmap(dc.GetWindowCapture(Wnd(), nullptr, &offset));
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(SizeOf(*bitmap), CSize(40, 30));
  const support::Picture picture = Read(*bitmap);
  EXPECT_EQ(picture.Count(support::Rgb(kRed)), 6);
  EXPECT_EQ(picture.At(10, 10), support::Rgb(kRed));
}

TEST_F(WindowCapture, IncludesTheFrame) {
  support::HostWindow framed({.style = WS_POPUP | WS_VISIBLE | WS_BORDER, .cx = 30, .cy = 20});
  CVornDC dc;
  const RECT all{0, 0, 30, 20};
  const std::unique_ptr<CBitmap> bitmap(dc.GetWindowCapture(CWnd::FromHandle(framed), &all, nullptr));
  ASSERT_NE(bitmap, nullptr);
  EXPECT_TRUE(Read(*bitmap) == support::CaptureWindow(framed));
}

TEST_F(WindowCapture, WithoutAWindowThereIsNothing) {
  CVornDC dc;
  CWnd none;
  const RECT part{0, 0, 4, 4};
  EXPECT_EQ(dc.GetWindowCapture(nullptr, &part, nullptr), nullptr);
  EXPECT_EQ(dc.GetWindowCapture(&none, &part, nullptr), nullptr);
}

}  // namespace
