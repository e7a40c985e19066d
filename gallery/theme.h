// The gallery's colours, fonts and pieces of drawing.
#pragma once

#include <afxwin.h>

namespace theme {

constexpr COLORREF kInk = RGB(24, 39, 58);
constexpr COLORREF kMuted = RGB(96, 112, 130);
constexpr COLORREF kPaper = RGB(245, 247, 250);
constexpr COLORREF kCard = RGB(255, 255, 255);
constexpr COLORREF kLine = RGB(214, 222, 232);
constexpr COLORREF kAccent = RGB(42, 125, 160);
constexpr COLORREF kAccentPale = RGB(222, 238, 245);
constexpr COLORREF kGood = RGB(46, 139, 87);
constexpr COLORREF kBad = RGB(178, 58, 58);
constexpr COLORREF kNight = RGB(16, 32, 51);
constexpr COLORREF kDusk = RGB(34, 66, 98);
constexpr COLORREF kNightText = RGB(190, 205, 220);

// A colour between two: 0 gives the first, 100 the second.
COLORREF Mix(COLORREF from, COLORREF to, int percent);
// A pure colour of the wheel, towards white from the middle: hue in degrees, brightness 0 to 100.
COLORREF Hue(int degrees, int brightness);

// The fonts, of the face that the system uses in its own windows.
class Fonts {
 public:
  Fonts();
  CFont body;
  CFont strong;
  CFont heading;
  CFont title;
};

// Selects an object and puts the former one back at the end of the scope.
class Selection {
 public:
  Selection(CDC& dc, CGdiObject& object) : m_dc(dc), m_former(::SelectObject(dc, object.GetSafeHandle())) {}
  ~Selection() { ::SelectObject(m_dc, m_former); }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  CDC& m_dc;
  HGDIOBJ m_former;
};

// One line of text, or several with DT_WORDBREAK; returns its height.
int Text(CDC& dc, CFont& font, COLORREF color, const CString& text, const CRect& area,
         UINT format = DT_SINGLELINE | DT_END_ELLIPSIS);
void Gradient(CDC& dc, const CRect& area, COLORREF first, COLORREF last, bool vertical);
// Rounded rectangles, filled; border may be the same colour.
void Rounded(CDC& dc, const CRect& area, int radius, COLORREF fill, COLORREF border);
void Card(CDC& dc, const CRect& area);
// A disc with a tick, or with a cross.
void Mark(CDC& dc, CPoint center, bool good);
void Disc(CDC& dc, CPoint center, int radius, COLORREF color);
// The library's sign: a small tree of three items, in a square of the size.
void Sign(CDC& dc, CPoint corner, int size, COLORREF color);

}  // namespace theme
