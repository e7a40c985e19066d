// CDC::DrawDragRect and the halftone brush: the frame that follows the pointer.
#include "gdiobj_maps.h"

#include <array>

using framework::HandleOf;

namespace {

// An 8 by 8 pattern of alternating pixels.
bool MakeHalftone(CBrush& brush) {
  std::array<WORD, 8> pattern;
  for (size_t row = 0; row < pattern.size(); ++row) {
    pattern[row] = row % 2 == 0 ? 0x5555 : 0xAAAA;
  }
  CBitmap bitmap;
  return bitmap.CreateBitmap(8, 8, 1, 1, pattern.data()) && brush.CreatePatternBrush(&bitmap);
}

// The part of rectangle that lies within size of its edges.
bool MakeFrame(CRgn& frame, LPCRECT rectangle, SIZE size) {
  CRect inner(rectangle);
  inner.DeflateRect(size);
  inner.IntersectRect(inner, rectangle);
  CRgn hole;
  if (!frame.CreateRectRgnIndirect(rectangle) || !hole.CreateRectRgnIndirect(&inner)) return false;
  return frame.CombineRgn(&frame, &hole, RGN_DIFF) != ERROR;
}

// Inverts region through brush.
void Invert(CDC& context, CRgn& region, CBrush* brush) {
  context.SelectClipRgn(&region);
  CRect box;
  if (context.GetClipBox(&box) > NULLREGION) {
    CBrush* const earlier = context.SelectObject(brush);
    context.PatBlt(box.left, box.top, box.Width(), box.Height(), PATINVERT);
    context.SelectObject(earlier);
  }
  context.SelectClipRgn(nullptr);
}

}  // namespace

CBrush* PASCAL CDC::GetHalftoneBrush() {
  // One for the process, never deleted.
  static framework::Immortal<CBrush> immortal;
  AfxLockGlobals(CRIT_REGCLASSLIST);
  CBrush* brush = &*immortal;
  if (::GetObjectType(brush->m_hObject) != OBJ_BRUSH) {
    brush->Detach();
    if (!MakeHalftone(*brush)) brush = nullptr;
  }
  AfxUnlockGlobals(CRIT_REGCLASSLIST);
  return brush;
}

void CDC::DrawDragRect(LPCRECT lpRect, SIZE size, LPCRECT lpRectLast, SIZE sizeLast, CBrush* pBrush,
                       CBrush* pBrushLast) {
  if (pBrush == nullptr) pBrush = GetHalftoneBrush();
  if (pBrushLast == nullptr) pBrushLast = pBrush;
  if (pBrush == nullptr) return;

  CRgn frame;
  if (!MakeFrame(frame, lpRect, size)) return;
  if (lpRectLast == nullptr) {
    Invert(*this, frame, pBrush);
    return;
  }

  CRgn frameLast;
  if (!MakeFrame(frameLast, lpRectLast, sizeLast)) return;
  if (HandleOf(pBrush) != HandleOf(pBrushLast)) {
    Invert(*this, frameLast, pBrushLast);
    Invert(*this, frame, pBrush);
    return;
  }
  // Where both frames lie nothing changes.
  CRgn changed;
  if (!changed.CreateRectRgn(0, 0, 0, 0)) return;
  changed.CombineRgn(&frameLast, &frame, RGN_XOR);
  Invert(*this, changed, pBrush);
}
