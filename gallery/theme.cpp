#include "theme.h"

#include <algorithm>
#include <cmath>

namespace theme {

COLORREF Mix(COLORREF from, COLORREF to, int percent) {
  const auto channel = [&](int a, int b) { return a + (b - a) * percent / 100; };
  return RGB(channel(GetRValue(from), GetRValue(to)), channel(GetGValue(from), GetGValue(to)),
             channel(GetBValue(from), GetBValue(to)));
}

COLORREF Hue(int degrees, int brightness) {
  // Each channel is a trapezium over the wheel, a third of a turn apart.
  const auto channel = [&](int offset) {
    const int angle = ((degrees + offset) % 360 + 360) % 360;
    const int distance = std::abs(angle - 180);
    return std::clamp((distance - 60) * 255 / 60, 0, 255);
  };
  const COLORREF pure = RGB(channel(0), channel(240), channel(120));
  return brightness <= 50 ? Mix(kNight, pure, brightness * 2)
                          : Mix(pure, RGB(255, 255, 255), (brightness - 50) * 2);
}

Fonts::Fonts() {
  LOGFONTW font = {};
  ::GetObjectW(::GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
  const int height = std::max(std::abs(static_cast<int>(font.lfHeight)), 11);
  const auto create = [&](CFont& target, int percent, LONG weight, BYTE quality = DEFAULT_QUALITY) {
    font.lfHeight = -(height * percent / 100);
    font.lfWeight = weight;
    font.lfQuality = quality;
    target.CreateFontIndirect(&font);
  };
  create(body, 110, FW_NORMAL);
  create(strong, 110, FW_BOLD);
  create(heading, 130, FW_BOLD, ANTIALIASED_QUALITY);
  create(title, 215, FW_BOLD, ANTIALIASED_QUALITY);
}

int Text(CDC& dc, CFont& font, COLORREF color, const CString& text, const CRect& area, UINT format) {
  const Selection selection(dc, font);
  const COLORREF formerColor = dc.SetTextColor(color);
  const int formerMode = dc.SetBkMode(TRANSPARENT);
  CRect rect(area);
  const int height = dc.DrawText(text, rect, format | DT_NOPREFIX);
  dc.SetBkMode(formerMode);
  dc.SetTextColor(formerColor);
  return height;
}

void Gradient(CDC& dc, const CRect& area, COLORREF first, COLORREF last, bool vertical) {
  const auto vertex = [](int x, int y, COLORREF color) {
    return TRIVERTEX{x,
                     y,
                     static_cast<COLOR16>(GetRValue(color) << 8),
                     static_cast<COLOR16>(GetGValue(color) << 8),
                     static_cast<COLOR16>(GetBValue(color) << 8),
                     0};
  };
  TRIVERTEX corners[] = {vertex(area.left, area.top, first), vertex(area.right, area.bottom, last)};
  GRADIENT_RECT rect = {0, 1};
  ::GradientFill(dc, corners, 2, &rect, 1, vertical ? GRADIENT_FILL_RECT_V : GRADIENT_FILL_RECT_H);
}

void Rounded(CDC& dc, const CRect& area, int radius, COLORREF fill, COLORREF border) {
  CBrush brush(fill);
  CPen pen(PS_SOLID, 1, border);
  const Selection selectedBrush(dc, brush);
  const Selection selectedPen(dc, pen);
  dc.RoundRect(area, CPoint(radius * 2, radius * 2));
}

void Card(CDC& dc, const CRect& area) {
  // A hint of a shadow under the lower edge.
  CRect shadow(area);
  shadow.OffsetRect(0, 1);
  Rounded(dc, shadow, 6, kLine, kLine);
  Rounded(dc, area, 6, kCard, kLine);
}

void Disc(CDC& dc, CPoint center, int radius, COLORREF color) {
  CBrush brush(color);
  CPen pen(PS_SOLID, 1, color);
  const Selection selectedBrush(dc, brush);
  const Selection selectedPen(dc, pen);
  dc.Ellipse(center.x - radius, center.y - radius, center.x + radius + 1, center.y + radius + 1);
}

void Mark(CDC& dc, CPoint center, bool good) {
  Disc(dc, center, 8, good ? kGood : kBad);
  CPen pen(PS_SOLID, 2, RGB(255, 255, 255));
  const Selection selectedPen(dc, pen);
  if (good) {
    const POINT tick[] = {
        {center.x - 4, center.y}, {center.x - 1, center.y + 3}, {center.x + 4, center.y - 3}};
    dc.Polyline(tick, 3);
    return;
  }
  dc.MoveTo(center.x - 3, center.y - 3);
  dc.LineTo(center.x + 4, center.y + 4);
  dc.MoveTo(center.x + 3, center.y - 3);
  dc.LineTo(center.x - 4, center.y + 4);
}

void Sign(CDC& dc, CPoint corner, int size, COLORREF color) {
  const int unit = std::max(size / 8, 1);
  const auto box = [&](int x, int y) {
    return CRect(CPoint(corner.x + x * unit, corner.y + y * unit), CSize(unit * 2, unit * 2));
  };
  dc.FillSolidRect(box(0, 0), color);
  for (const int y : {3, 6}) {
    dc.FillSolidRect(box(4, y), color);
    const int middle = corner.y + y * unit + unit;
    dc.FillSolidRect(CRect(corner.x + unit, middle, corner.x + unit * 4, middle + 1), color);
  }
  dc.FillSolidRect(CRect(corner.x + unit, corner.y + unit * 2, corner.x + unit + 1, corner.y + unit * 7 + 1),
                   color);
}

}  // namespace theme
