// A wheel of colours under a moving lens: every move paints a small part, through a small buffer.
#include <algorithm>
#include <cmath>
#include <deque>

#include "page.h"

namespace {

constexpr int kSpokes = 36;
constexpr int kRings = 7;
constexpr int kLens = 34;  // radius, pixels
constexpr int kPanelWidth = 220;
constexpr size_t kHistory = 24;
constexpr double kTurn = 6.283185307179586;

POINT OnCircle(CPoint center, double radius, double turn) {
  return {static_cast<LONG>(std::lround(center.x + radius * std::cos(turn * kTurn))),
          static_cast<LONG>(std::lround(center.y + radius * std::sin(turn * kTurn)))};
}

class DrawingPage : public GalleryPage {
 public:
  CString Title() const override { return L"Dessin"; }
  CString Subtitle() const override {
    return L"Déplacez la souris sur la roue\u00A0: seule la loupe est repeinte";
  }

  void Paint(CDC& dc, const CRect& area, theme::Fonts& fonts) override {
    PaintWheel(dc, WheelArea(area));
    PaintPanel(dc, PanelArea(area), fonts);
  }

  CRect TrackMouse(CPoint point, const CRect& area) override {
    const CRect wheel = WheelArea(area);
    const CRect before = LensArea(wheel);
    m_lens = point;
    m_lensMoved = true;
    const CRect after = LensArea(wheel);
    return before == after ? CRect() : before | after;
  }

  CRect NotePaint(CSize buffer, const CRect& area) override {
    // The panel's own painting is no news, or it would never come to rest.
    const CRect panel = PanelArea(area);
    if (buffer == panel.Size()) return CRect();
    m_buffers.push_back(buffer);
    if (m_buffers.size() > kHistory) m_buffers.pop_front();
    return panel;
  }

 private:
  static CRect WheelArea(const CRect& area) {
    const int room = area.Width() > kPanelWidth * 2 ? area.Width() - kPanelWidth - 18 : area.Width();
    const int side = std::max(std::min(room, area.Height()), 0);
    return CRect(CPoint(area.left + (room - side) / 2, area.top + (area.Height() - side) / 2),
                 CSize(side, side));
  }

  // To the right of the wheel; nothing where there is no room.
  static CRect PanelArea(const CRect& area) {
    if (area.Width() <= kPanelWidth * 2) return CRect();
    return CRect(area.right - kPanelWidth, area.top, area.right, area.bottom);
  }

  CPoint LensCenter(const CRect& wheel) const {
    if (m_lensMoved) return m_lens;
    return CPoint(wheel.left + wheel.Width() * 68 / 100, wheel.top + wheel.Height() * 36 / 100);
  }

  CRect LensArea(const CRect& wheel) const {
    const CPoint center = LensCenter(wheel);
    CRect lens(center, CSize(1, 1));
    lens.InflateRect(kLens + 3, kLens + 3);
    return lens & wheel;
  }

  void PaintWheel(CDC& dc, const CRect& wheel) {
    const int radius = wheel.Width() / 2 - 2;
    if (radius < 20) return;
    const CPoint center = wheel.CenterPoint();
    PaintRings(dc, center, radius, 0);
    const CPoint lens = LensCenter(wheel);
    if (!wheel.PtInRect(lens)) return;
    const int saved = dc.SaveDC();
    CRgn disc;
    // Regions are in the device's units, the buffer's origin is not.
    CRect circle(lens.x - kLens, lens.y - kLens, lens.x + kLens + 1, lens.y + kLens + 1);
    CRect device(circle);
    dc.LPtoDP(device);
    disc.Attach(::CreateEllipticRgnIndirect(device));
    dc.SelectClipRgn(&disc, RGN_AND);
    PaintRings(dc, center, radius, 180);
    dc.RestoreDC(saved);
    PaintRim(dc, circle);
  }

  static void PaintRim(CDC& dc, const CRect& circle) {
    const theme::Selection noBrush(dc, *CGdiObject::FromHandle(::GetStockObject(NULL_BRUSH)));
    CPen rim(PS_SOLID, 3, theme::kCard);
    const theme::Selection selected(dc, rim);
    dc.Ellipse(circle);
  }

  // The wheel, turned by some degrees of hue.
  static void PaintRings(CDC& dc, CPoint center, int radius, int turnedBy) {
    const theme::Selection noPen(dc, *CGdiObject::FromHandle(::GetStockObject(NULL_PEN)));
    for (int ring = kRings; ring > 0; --ring) {
      const double outer = radius * static_cast<double>(ring) / kRings;
      for (int spoke = 0; spoke < kSpokes; ++spoke) {
        CBrush brush(theme::Hue(spoke * 360 / kSpokes + turnedBy, 98 - ring * 9));
        const theme::Selection selected(dc, brush);
        const double from = static_cast<double>(spoke) / kSpokes;
        const double step = 1.0 / kSpokes;
        const POINT slice[] = {{center.x, center.y},
                               OnCircle(center, outer, from),
                               OnCircle(center, outer, from + step / 2),
                               OnCircle(center, outer, from + step)};
        dc.Polygon(slice, 4);
      }
    }
    theme::Disc(dc, center, radius / 12, theme::kCard);
  }

  void PaintPanel(CDC& dc, const CRect& panel, theme::Fonts& fonts) {
    if (panel.IsRectEmpty()) return;
    theme::Card(dc, CRect(panel.left, panel.top, panel.right, panel.bottom - 1));
    CRect inside(panel);
    inside.DeflateRect(16, 14);
    inside.top += theme::Text(dc, fonts.heading, theme::kInk, L"Les tampons", inside) + 6;
    inside.top +=
        theme::Text(dc, fonts.body, theme::kMuted,
                    L"Surface des derniers tampons copiés à l’écran, en pixels.", inside, DT_WORDBREAK) +
        12;
    CRect last(inside);
    last.top = last.bottom - 18;
    PaintBars(dc, CRect(inside.left, inside.top, inside.right, last.top - 8));
    if (m_buffers.empty()) return;
    CString text;
    text.Format(L"%d × %d pixels", m_buffers.back().cx, m_buffers.back().cy);
    theme::Text(dc, fonts.strong, theme::kAccent, text, last);
  }

  void PaintBars(CDC& dc, const CRect& area) {
    dc.FillSolidRect(CRect(area.left, area.bottom - 1, area.right, area.bottom), theme::kLine);
    if (m_buffers.empty() || area.Height() < 20) return;
    double largest = 1;
    for (const CSize& size : m_buffers) largest = std::max(largest, Pixels(size));
    const int step = area.Width() / static_cast<int>(kHistory);
    int x = area.right - step * static_cast<int>(m_buffers.size());
    for (const CSize& size : m_buffers) {
      // By the square root, so that a lens can be seen beside a whole window.
      const int height =
          std::max(static_cast<int>(std::sqrt(Pixels(size) / largest) * (area.Height() - 2)), 2);
      const bool newest = &size == &m_buffers.back();
      dc.FillSolidRect(CRect(x, area.bottom - 1 - height, x + step - 2, area.bottom - 1),
                       newest ? theme::kAccent : theme::Mix(theme::kCard, theme::kAccent, 45));
      x += step;
    }
  }

  static double Pixels(const CSize& size) { return static_cast<double>(size.cx) * size.cy; }

  CPoint m_lens;
  bool m_lensMoved = false;
  std::deque<CSize> m_buffers;
};

}  // namespace

std::unique_ptr<GalleryPage> MakeDrawingPage() { return std::make_unique<DrawingPage>(); }
