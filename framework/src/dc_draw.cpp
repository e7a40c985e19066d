// CDC: lines, areas, pictures, text.
#include "gdiobj_maps.h"

#include <cwchar>

using framework::HandleOf;
using framework::TypedHandleOf;

// ---- Areas ---------------------------------------------------------------------------------------

BOOL CDC::FillRgn(CRgn* pRgn, CBrush* pBrush) {
  return ::FillRgn(m_hDC, TypedHandleOf<HRGN>(pRgn), TypedHandleOf<HBRUSH>(pBrush));
}

BOOL CDC::FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight) {
  return ::FrameRgn(m_hDC, TypedHandleOf<HRGN>(pRgn), TypedHandleOf<HBRUSH>(pBrush), nWidth, nHeight);
}

BOOL CDC::InvertRgn(CRgn* pRgn) { return ::InvertRgn(m_hDC, TypedHandleOf<HRGN>(pRgn)); }
BOOL CDC::PaintRgn(CRgn* pRgn) { return ::PaintRgn(m_hDC, TypedHandleOf<HRGN>(pRgn)); }
void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush) {
  ::FillRect(m_hDC, lpRect, TypedHandleOf<HBRUSH>(pBrush));
}
void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush) {
  ::FrameRect(m_hDC, lpRect, TypedHandleOf<HBRUSH>(pBrush));
}
void CDC::InvertRect(LPCRECT lpRect) { ::InvertRect(m_hDC, lpRect); }

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr) {
  // Opaque text without text: needs no brush, and is exactly the colour.
  const COLORREF earlier = ::SetBkColor(m_hDC, clr);
  ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
  if (earlier != CLR_INVALID) ::SetBkColor(m_hDC, earlier);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr) {
  FillSolidRect(CRect(CPoint(x, y), CSize(cx, cy)), clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight) {
  Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
             clrTopLeft, clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight) {
  FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
  FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
  FillSolidRect(x + cx, y, -1, cy, clrBottomRight);
  FillSolidRect(x, y + cy, cx, -1, clrBottomRight);
}

BOOL CDC::DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) {
  return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags);
}

BOOL CDC::DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState) {
  return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
}

void CDC::DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }

// ---- Lines and figures ---------------------------------------------------------------------------

CPoint CDC::GetCurrentPosition() const {
  CPoint position;
  ::GetCurrentPositionEx(m_hAttribDC, &position);
  return position;
}

CPoint CDC::MoveTo(int x, int y) {
  CPoint earlier;
  if (m_hAttribDC != m_hDC && m_hDC != nullptr) ::MoveToEx(m_hDC, x, y, &earlier);
  if (m_hAttribDC != nullptr) ::MoveToEx(m_hAttribDC, x, y, &earlier);
  return earlier;
}

CPoint CDC::MoveTo(POINT point) { return MoveTo(point.x, point.y); }

BOOL CDC::LineTo(int x, int y) {
  if (m_hAttribDC != nullptr && m_hAttribDC != m_hDC) ::MoveToEx(m_hAttribDC, x, y, nullptr);
  return ::LineTo(m_hDC, x, y);
}

BOOL CDC::LineTo(POINT point) { return LineTo(point.x, point.y); }
BOOL CDC::Polyline(const POINT* lpPoints, int nCount) { return ::Polyline(m_hDC, lpPoints, nCount); }
BOOL CDC::Polygon(const POINT* lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }
BOOL CDC::Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
BOOL CDC::Ellipse(LPCRECT lpRect) {
  return Ellipse(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}
BOOL CDC::Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
BOOL CDC::Rectangle(LPCRECT lpRect) {
  return Rectangle(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}
BOOL CDC::RoundRect(int x1, int y1, int x2, int y2, int x3, int y3) {
  return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
}
BOOL CDC::RoundRect(LPCRECT lpRect, POINT point) {
  return RoundRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, point.x, point.y);
}

// ---- Pictures ------------------------------------------------------------------------------------

BOOL CDC::DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }
BOOL CDC::DrawIcon(POINT point, HICON hIcon) { return DrawIcon(point.x, point.y, hIcon); }

BOOL CDC::DrawState(CPoint pt, CSize size, HBITMAP hBitmap, UINT nFlags, HBRUSH hBrush) {
  return ::DrawStateW(m_hDC, hBrush, nullptr, reinterpret_cast<LPARAM>(hBitmap), 0, pt.x, pt.y, size.cx,
                      size.cy, nFlags | DST_BITMAP);
}

BOOL CDC::DrawState(CPoint pt, CSize size, CBitmap* pBitmap, UINT nFlags, CBrush* pBrush) {
  return DrawState(pt, size, TypedHandleOf<HBITMAP>(pBitmap), nFlags, TypedHandleOf<HBRUSH>(pBrush));
}

BOOL CDC::DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush) {
  return ::DrawStateW(m_hDC, hBrush, nullptr, reinterpret_cast<LPARAM>(hIcon), 0, pt.x, pt.y, size.cx,
                      size.cy, nFlags | DST_ICON);
}

BOOL CDC::DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, CBrush* pBrush) {
  return DrawState(pt, size, hIcon, nFlags, TypedHandleOf<HBRUSH>(pBrush));
}

BOOL CDC::DrawState(CPoint pt, CSize size, LPCWSTR lpszText, UINT nFlags, BOOL bPrefixText, int nTextLen,
                    HBRUSH hBrush) {
  return ::DrawStateW(m_hDC, hBrush, nullptr, reinterpret_cast<LPARAM>(lpszText),
                      static_cast<WPARAM>(nTextLen), pt.x, pt.y, size.cx, size.cy,
                      nFlags | static_cast<UINT>(bPrefixText ? DST_PREFIXTEXT : DST_TEXT));
}

BOOL CDC::DrawState(CPoint pt, CSize size, LPCWSTR lpszText, UINT nFlags, BOOL bPrefixText, int nTextLen,
                    CBrush* pBrush) {
  return DrawState(pt, size, lpszText, nFlags, bPrefixText, nTextLen, TypedHandleOf<HBRUSH>(pBrush));
}

BOOL CDC::PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop) {
  return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop) {
  return ::BitBlt(m_hDC, x, y, nWidth, nHeight, HandleOf(pSrcDC), xSrc, ySrc, dwRop);
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                     int nSrcHeight, DWORD dwRop) {
  return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, HandleOf(pSrcDC), xSrc, ySrc, nSrcWidth, nSrcHeight,
                      dwRop);
}

BOOL CDC::TransparentBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc,
                         int nSrcWidth, int nSrcHeight, UINT crTransparent) {
  return ::TransparentBlt(m_hDC, x, y, nWidth, nHeight, HandleOf(pSrcDC), xSrc, ySrc, nSrcWidth, nSrcHeight,
                          crTransparent);
}

BOOL CDC::AlphaBlend(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                     int nSrcHeight, BLENDFUNCTION blend) {
  return ::AlphaBlend(m_hDC, x, y, nWidth, nHeight, HandleOf(pSrcDC), xSrc, ySrc, nSrcWidth, nSrcHeight,
                      blend);
}

COLORREF CDC::GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
COLORREF CDC::GetPixel(POINT point) const { return GetPixel(point.x, point.y); }
COLORREF CDC::SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
COLORREF CDC::SetPixel(POINT point, COLORREF crColor) { return SetPixel(point.x, point.y, crColor); }
BOOL CDC::SetPixelV(int x, int y, COLORREF crColor) { return ::SetPixelV(m_hDC, x, y, crColor); }
BOOL CDC::SetPixelV(POINT point, COLORREF crColor) { return SetPixelV(point.x, point.y, crColor); }

BOOL CDC::ScrollDC(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* pRgnUpdate,
                   LPRECT lpRectUpdate) {
  return ::ScrollDC(m_hDC, dx, dy, lpRectScroll, lpRectClip, TypedHandleOf<HRGN>(pRgnUpdate), lpRectUpdate);
}

// ---- Text ----------------------------------------------------------------------------------------

BOOL CDC::TextOut(int x, int y, LPCWSTR lpszString, int nCount) {
  return ::TextOutW(m_hDC, x, y, lpszString, nCount);
}

BOOL CDC::TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCWSTR lpszString, UINT nCount,
                     LPINT lpDxWidths) {
  return ::ExtTextOutW(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths) {
  return ExtTextOut(x, y, nOptions, lpRect, str, static_cast<UINT>(str.GetLength()), lpDxWidths);
}

int CDC::DrawText(LPCWSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat) {
  return ::DrawTextW(m_hDC, lpszString, nCount, lpRect, nFormat);
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat) {
  // With DT_MODIFYSTRING the system writes into the text, which may be shared.
  if ((nFormat & DT_MODIFYSTRING) == 0) return DrawText(str, str.GetLength(), lpRect, nFormat);
  constexpr int roomForEllipsis = 4;
  CString copy(str);
  const int result =
      DrawText(copy.GetBuffer(str.GetLength() + roomForEllipsis), str.GetLength(), lpRect, nFormat);
  copy.ReleaseBuffer();
  return result;
}

CSize CDC::GetTextExtent(LPCWSTR lpszString, int nCount) const {
  CSize size;
  ::GetTextExtentPoint32W(m_hAttribDC, lpszString, nCount, &size);
  return size;
}

CSize CDC::GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }

CSize CDC::GetOutputTextExtent(LPCWSTR lpszString, int nCount) const {
  CSize size;
  ::GetTextExtentPoint32W(m_hDC, lpszString, nCount, &size);
  return size;
}

CSize CDC::GetOutputTextExtent(const CString& str) const { return GetOutputTextExtent(str, str.GetLength()); }
UINT CDC::GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }

UINT CDC::SetTextAlign(UINT nFlags) {
  UINT earlier = GDI_ERROR;
  if (m_hDC != nullptr && m_hDC != m_hAttribDC) earlier = ::SetTextAlign(m_hDC, nFlags);
  if (m_hAttribDC != nullptr) earlier = ::SetTextAlign(m_hAttribDC, nFlags);
  return earlier;
}

int CDC::GetTextFace(int nCount, LPWSTR lpszFacename) const {
  return ::GetTextFaceW(m_hAttribDC, nCount, lpszFacename);
}

int CDC::GetTextFace(CString& rString) const {
  constexpr int longestName = 256;
  const int length = ::GetTextFaceW(m_hAttribDC, longestName, rString.GetBuffer(longestName));
  rString.ReleaseBuffer();
  return length;
}

BOOL CDC::GetTextMetrics(TEXTMETRICW* lpMetrics) const { return ::GetTextMetricsW(m_hAttribDC, lpMetrics); }
BOOL CDC::GetOutputTextMetrics(TEXTMETRICW* lpMetrics) const { return ::GetTextMetricsW(m_hDC, lpMetrics); }
