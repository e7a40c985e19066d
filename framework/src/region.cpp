// CRgn: regions.
#include "gdiobj_maps.h"

IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

using framework::TypedHandleOf;

CRgn* PASCAL CRgn::FromHandle(HRGN hRgn) { return framework::GdiObjectOf<CRgn>(hRgn); }
CRgn::CRgn() = default;
CRgn::~CRgn() = default;
CRgn::operator HRGN() const { return static_cast<HRGN>(m_hObject); }

BOOL CRgn::CreateRectRgn(int x1, int y1, int x2, int y2) {
  const HRGN created = ::CreateRectRgn(x1, y1, x2, y2);
  if (created == nullptr) return FALSE;
  if (Attach(created)) return TRUE;
  ::DeleteObject(created);
  return FALSE;
}

BOOL CRgn::CreateRectRgnIndirect(LPCRECT lpRect) {
  return CreateRectRgn(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

void CRgn::SetRectRgn(int x1, int y1, int x2, int y2) { ::SetRectRgn(*this, x1, y1, x2, y2); }

void CRgn::SetRectRgn(LPCRECT lpRect) {
  SetRectRgn(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CRgn::CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode) {
  return ::CombineRgn(*this, TypedHandleOf<HRGN>(pRgn1), TypedHandleOf<HRGN>(pRgn2), nCombineMode);
}

int CRgn::CopyRgn(const CRgn* pRgnSrc) {
  return ::CombineRgn(*this, TypedHandleOf<HRGN>(pRgnSrc), nullptr, RGN_COPY);
}

BOOL CRgn::EqualRgn(const CRgn* pRgn) const { return ::EqualRgn(*this, TypedHandleOf<HRGN>(pRgn)); }
int CRgn::OffsetRgn(int x, int y) { return ::OffsetRgn(*this, x, y); }
int CRgn::OffsetRgn(POINT point) { return OffsetRgn(point.x, point.y); }
int CRgn::GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox(*this, lpRect); }
BOOL CRgn::PtInRegion(int x, int y) const { return ::PtInRegion(*this, x, y); }
BOOL CRgn::PtInRegion(POINT point) const { return PtInRegion(point.x, point.y); }
BOOL CRgn::RectInRegion(LPCRECT lpRect) const { return ::RectInRegion(*this, lpRect); }
