// Edges of two rings: an outer and an inner one, each light on two sides and dark on the others.
#include <windows.h>

#include "../world.h"
#include "bounded.h"
#include "object.h"
#include "window_dc.h"

namespace desktop {
namespace {

// Colours of a ring at its left and top, and at its right and bottom.
struct RingColors {
  int leftTop;
  int rightBottom;
};

RingColors OuterColors(UINT edge, UINT flags) {
  if (flags & BF_MONO) return {COLOR_WINDOWFRAME, COLOR_WINDOWFRAME};
  if (flags & BF_FLAT) return {COLOR_3DSHADOW, COLOR_3DSHADOW};
  bool soft = flags & BF_SOFT;
  if (edge & BDR_RAISEDOUTER) return {soft ? COLOR_3DHIGHLIGHT : COLOR_3DLIGHT, COLOR_3DDKSHADOW};
  return {soft ? COLOR_3DDKSHADOW : COLOR_3DSHADOW, COLOR_3DHIGHLIGHT};
}

RingColors InnerColors(UINT edge, UINT flags) {
  if (flags & BF_MONO) return {COLOR_WINDOW, COLOR_WINDOW};
  if (flags & BF_FLAT) return {COLOR_3DFACE, COLOR_3DFACE};
  bool soft = flags & BF_SOFT;
  if (edge & BDR_RAISEDINNER) return {soft ? COLOR_3DLIGHT : COLOR_3DHIGHLIGHT, COLOR_3DSHADOW};
  return {soft ? COLOR_3DSHADOW : COLOR_3DDKSHADOW, COLOR_3DLIGHT};
}

void Fill(HDC dc, int left, int top, int right, int bottom, int color) {
  RECT rect{left, top, right, bottom};
  if (left < right && top < bottom) FillRect(dc, &rect, SystemColorBrush(color));
}

// The right and bottom sides own the corners that they share.
void DrawRing(HDC dc, const RECT& r, RingColors colors, UINT flags) {
  if (flags & BF_LEFT) Fill(dc, r.left, r.top, r.left + 1, r.bottom, colors.leftTop);
  if (flags & BF_TOP) Fill(dc, r.left, r.top, r.right, r.top + 1, colors.leftTop);
  if (flags & BF_RIGHT) Fill(dc, r.right - 1, r.top, r.right, r.bottom, colors.rightBottom);
  if (flags & BF_BOTTOM) Fill(dc, r.left, r.bottom - 1, r.right, r.bottom, colors.rightBottom);
}

void ShrinkBy(RECT& r, UINT flags) {
  if (flags & BF_LEFT) ++r.left;
  if (flags & BF_TOP) ++r.top;
  if (flags & BF_RIGHT) --r.right;
  if (flags & BF_BOTTOM) --r.bottom;
}

// One ring is drawn if its bits name one. Both bits at once are an error unless the edge is flat or mono,
// and nothing is drawn from there inwards.
bool DrawOneRing(HDC dc, RECT& rect, UINT bits, UINT both, RingColors colors, UINT flags, bool valid) {
  if (!bits) return valid;
  valid = valid && (bits != both || (flags & (BF_MONO | BF_FLAT)));
  if (valid) DrawRing(dc, rect, colors, flags);
  ShrinkBy(rect, flags);
  return valid;
}

}  // namespace
}  // namespace desktop

using namespace desktop;

BOOL WINAPI DrawEdge(HDC dc, LPRECT rect, UINT edge, UINT flags) {
  WorldLock lock(WorldMutex());
  if (GetObjectType(dc) != OBJ_DC && GetObjectType(dc) != OBJ_MEMDC) return FALSE;
  if (!rect || (flags & BF_DIAGONAL)) return FALSE;
  RECT inside = Bounded(*rect);
  bool valid = DrawOneRing(dc, inside, edge & BDR_OUTER, BDR_OUTER, OuterColors(edge, flags), flags, true);
  valid = DrawOneRing(dc, inside, edge & BDR_INNER, BDR_INNER, InnerColors(edge, flags), flags, valid);
  if (valid && (flags & BF_MIDDLE))
    Fill(dc, inside.left, inside.top, inside.right, inside.bottom,
         flags & BF_MONO ? COLOR_WINDOW : COLOR_3DFACE);
  if (flags & BF_ADJUST) *rect = inside;
  return valid ? TRUE : FALSE;
}
