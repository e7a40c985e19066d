// CSize, CPoint and CRect.
#include <atltypes.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

std::string Text(const RECT& r) {
  std::ostringstream out;
  out << r.left << ',' << r.top << ' ' << r.right << ',' << r.bottom;
  return out.str();
}

#define EXPECT_RECT(l, t, r, b, rect) EXPECT_EQ(Text(CRect(l, t, r, b)), Text(rect))

TEST(CoreSize, Arithmetic) {
  CSize size(3, 4);
  size += CSize(1, 1);
  EXPECT_TRUE(CSize(4, 5) == size);
  EXPECT_TRUE(CSize(-4, -5) == -size);
  EXPECT_TRUE(CSize(3, 4) == size - CSize(1, 1));
  EXPECT_TRUE(CPoint(14, 25) == size + CPoint(10, 20));
  EXPECT_TRUE(CSize(-2, 3) == CSize(static_cast<DWORD>(MAKELONG(-2, 3))));
  EXPECT_RECT(4, 5, 14, 15, size + CRect(0, 0, 10, 10));
}

TEST(CorePoint, Arithmetic) {
  CPoint point(1, 2);
  point.Offset(10, 20);
  EXPECT_TRUE(CPoint(11, 22) == point);
  EXPECT_TRUE(CSize(1, 2) == point - CPoint(10, 20));
  EXPECT_TRUE(CPoint(12, 23) == point + CSize(1, 1));
  EXPECT_TRUE(CPoint(-11, -22) == -point);
  point -= CSize(11, 22);
  EXPECT_TRUE(CPoint() == point);
}

TEST(CorePoint, ComesSignedFromAMessage) {
  const CPoint point(static_cast<LPARAM>(MAKELONG(-5, 300)));
  EXPECT_EQ(-5, point.x);
  EXPECT_EQ(300, point.y);
}

TEST(CoreRect, Measures) {
  const CRect rect(10, 20, 110, 70);
  EXPECT_EQ(100, rect.Width());
  EXPECT_EQ(50, rect.Height());
  EXPECT_TRUE(CSize(100, 50) == rect.Size());
  EXPECT_TRUE(CPoint(60, 45) == rect.CenterPoint());
  EXPECT_TRUE(rect.PtInRect(CPoint(10, 20)));
  EXPECT_FALSE(rect.PtInRect(CPoint(110, 20)));
  EXPECT_FALSE(rect.PtInRect(CPoint(10, 70)));
  EXPECT_FALSE(rect.IsRectEmpty());
  EXPECT_TRUE(CRect(5, 5, 5, 9).IsRectEmpty());
  EXPECT_TRUE(CRect(5, 9, 8, 5).IsRectEmpty());
  EXPECT_TRUE(CRect().IsRectNull());
  EXPECT_FALSE(CRect(1, 1, 1, 1).IsRectNull());
}

TEST(CoreRect, CornersChangeInPlace) {
  CRect rect(1, 2, 3, 4);
  rect.TopLeft().x = 10;
  rect.BottomRight() += CSize(10, 10);
  EXPECT_RECT(10, 2, 13, 14, rect);
}

TEST(CoreRect, MovesAndGrows) {
  CRect rect(0, 0, 10, 10);
  rect.InflateRect(1, 2);
  EXPECT_RECT(-1, -2, 11, 12, rect);
  rect.DeflateRect(1, 2, 3, 4);
  EXPECT_RECT(0, 0, 8, 8, rect);
  rect.OffsetRect(5, 6);
  EXPECT_RECT(5, 6, 13, 14, rect);
  rect.MoveToXY(1, 1);
  EXPECT_RECT(1, 1, 9, 9, rect);
  rect.MoveToX(0);
  rect.MoveToY(2);
  EXPECT_RECT(0, 2, 8, 10, rect);
  CRect turned(9, 8, 1, 2);
  turned.NormalizeRect();
  EXPECT_RECT(1, 2, 9, 8, turned);
  turned.SwapLeftRight();
  EXPECT_RECT(9, 2, 1, 8, turned);
}

TEST(CoreRect, CombinesRectangles) {
  CRect rect;
  EXPECT_TRUE(rect.IntersectRect(CRect(0, 0, 10, 10), CRect(5, 5, 20, 20)));
  EXPECT_RECT(5, 5, 10, 10, rect);
  EXPECT_FALSE(rect.IntersectRect(CRect(0, 0, 5, 5), CRect(5, 5, 9, 9)));
  EXPECT_TRUE(rect.IsRectNull());
  EXPECT_TRUE(rect.UnionRect(CRect(0, 0, 2, 2), CRect(8, 8, 9, 9)));
  EXPECT_RECT(0, 0, 9, 9, rect);
  EXPECT_TRUE(rect.SubtractRect(CRect(0, 0, 9, 9), CRect(0, 0, 9, 4)));
  EXPECT_RECT(0, 4, 9, 9, rect);
  EXPECT_RECT(2, 2, 4, 4, CRect(0, 0, 4, 4) & CRect(2, 2, 9, 9));
  EXPECT_RECT(0, 0, 9, 9, CRect(0, 0, 4, 4) | CRect(2, 2, 9, 9));
  CRect self(0, 0, 10, 10);
  self &= CRect(5, 5, 20, 20);
  EXPECT_RECT(5, 5, 10, 10, self);
}

TEST(CoreRect, Operators) {
  const CRect rect(0, 0, 10, 10);
  EXPECT_RECT(1, 2, 11, 12, rect + CPoint(1, 2));
  EXPECT_RECT(-1, -2, 9, 8, rect - CSize(1, 2));
  const CRect margin(1, 2, 3, 4);
  EXPECT_RECT(-1, -2, 13, 14, rect + static_cast<LPCRECT>(margin));
  EXPECT_RECT(1, 2, 7, 6, rect - static_cast<LPCRECT>(margin));
  EXPECT_RECT(0, 0, 5, 5, rect.MulDiv(1, 2));
  EXPECT_RECT(3, 4, 8, 10, CRect(CPoint(3, 4), CSize(5, 6)));
}

}  // namespace
