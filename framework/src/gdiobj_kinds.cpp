// Pens, brushes, fonts, bitmaps, palettes.
#include "gdiobj_maps.h"

#include <cstdlib>

IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CPalette, CGdiObject)

using framework::GdiObjectOf;
using framework::HandleOf;
using framework::TypedHandleOf;

namespace {

// Takes a new handle over. One that cannot be kept is freed at once.
BOOL Keep(CGdiObject& object, HGDIOBJ created) {
  if (created == nullptr) return FALSE;
  if (object.Attach(created)) return TRUE;
  ::DeleteObject(created);
  return FALSE;
}

void OrThrow(BOOL made) {
  if (!made) AfxThrowResourceException();
}

}  // namespace

// ---- CPen ----------------------------------------------------------------------------------------

CPen* PASCAL CPen::FromHandle(HPEN hPen) { return GdiObjectOf<CPen>(hPen); }
CPen::CPen() = default;
CPen::~CPen() = default;

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor) { OrThrow(CreatePen(nPenStyle, nWidth, crColor)); }

CPen::CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle) {
  OrThrow(CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle));
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, COLORREF crColor) {
  return Keep(*this, ::CreatePen(nPenStyle, nWidth, crColor));
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount,
                     const DWORD* lpStyle) {
  return Keep(*this, ::ExtCreatePen(static_cast<DWORD>(nPenStyle), static_cast<DWORD>(nWidth), pLogBrush,
                                    static_cast<DWORD>(nStyleCount), lpStyle));
}

BOOL CPen::CreatePenIndirect(LOGPEN* lpLogPen) { return Keep(*this, ::CreatePenIndirect(lpLogPen)); }
CPen::operator HPEN() const { return static_cast<HPEN>(m_hObject); }
int CPen::GetLogPen(LOGPEN* pLogPen) { return GetObject(sizeof(LOGPEN), pLogPen); }

// ---- CBrush --------------------------------------------------------------------------------------

CBrush* PASCAL CBrush::FromHandle(HBRUSH hBrush) { return GdiObjectOf<CBrush>(hBrush); }
CBrush::CBrush() = default;
CBrush::~CBrush() = default;
CBrush::CBrush(COLORREF crColor) { OrThrow(CreateSolidBrush(crColor)); }
CBrush::CBrush(int nIndex, COLORREF crColor) { OrThrow(CreateHatchBrush(nIndex, crColor)); }
CBrush::CBrush(CBitmap* pBitmap) { OrThrow(CreatePatternBrush(pBitmap)); }

BOOL CBrush::CreateSolidBrush(COLORREF crColor) { return Keep(*this, ::CreateSolidBrush(crColor)); }

BOOL CBrush::CreateHatchBrush(int nIndex, COLORREF crColor) {
  return Keep(*this, ::CreateHatchBrush(nIndex, crColor));
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH* lpLogBrush) {
  return Keep(*this, ::CreateBrushIndirect(lpLogBrush));
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap) {
  return Keep(*this, ::CreatePatternBrush(TypedHandleOf<HBITMAP>(pBitmap)));
}

BOOL CBrush::CreateSysColorBrush(int nIndex) { return Attach(::GetSysColorBrush(nIndex)); }
CBrush::operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
int CBrush::GetLogBrush(LOGBRUSH* pLogBrush) { return GetObject(sizeof(LOGBRUSH), pLogBrush); }

// ---- CFont ---------------------------------------------------------------------------------------

CFont* PASCAL CFont::FromHandle(HFONT hFont) { return GdiObjectOf<CFont>(hFont); }
CFont::CFont() = default;
CFont::~CFont() = default;

BOOL CFont::CreateFontIndirect(const LOGFONTW* lpLogFont) {
  return Keep(*this, ::CreateFontIndirectW(lpLogFont));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                       BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision,
                       BYTE nClipPrecision, BYTE nQuality, BYTE nPitchAndFamily, LPCWSTR lpszFacename) {
  return Keep(*this, ::CreateFontW(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline,
                                   cStrikeOut, nCharSet, nOutPrecision, nClipPrecision, nQuality,
                                   nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCWSTR lpszFaceName, CDC* pDC) {
  LOGFONTW description = {};
  description.lfHeight = nPointSize;
  description.lfCharSet = DEFAULT_CHARSET;
  if (lpszFaceName != nullptr) {
    std::wcsncpy(description.lfFaceName, lpszFaceName, LF_FACESIZE - 1);
  }
  return CreatePointFontIndirect(&description, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONTW* lpLogFont, CDC* pDC) {
  const HDC screen = pDC == nullptr ? ::GetDC(nullptr) : nullptr;
  const HDC device = pDC == nullptr ? screen : pDC->m_hAttribDC;
  if (device == nullptr) return FALSE;

  constexpr int tenthsOfPointsPerInch = 720;
  LOGFONTW description = *lpLogFont;
  POINT height = {0,
                  ::MulDiv(::GetDeviceCaps(device, LOGPIXELSY), description.lfHeight, tenthsOfPointsPerInch)};
  ::DPtoLP(device, &height, 1);
  POINT origin = {0, 0};
  ::DPtoLP(device, &origin, 1);
  description.lfHeight = -std::abs(height.y - origin.y);
  if (screen != nullptr) ::ReleaseDC(nullptr, screen);
  return CreateFontIndirect(&description);
}

CFont::operator HFONT() const { return static_cast<HFONT>(m_hObject); }
int CFont::GetLogFont(LOGFONTW* pLogFont) { return GetObject(sizeof(LOGFONTW), pLogFont); }

// ---- CBitmap -------------------------------------------------------------------------------------

CBitmap* PASCAL CBitmap::FromHandle(HBITMAP hBitmap) { return GdiObjectOf<CBitmap>(hBitmap); }
CBitmap::CBitmap() = default;
CBitmap::~CBitmap() = default;

BOOL CBitmap::LoadBitmap(LPCWSTR lpszResourceName) {
  const HINSTANCE module = AfxFindResourceHandle(lpszResourceName, MAKEINTRESOURCEW(2) /* RT_BITMAP */);
  return Keep(*this, ::LoadBitmapW(module, lpszResourceName));
}

BOOL CBitmap::LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCEW(nIDResource)); }

BOOL CBitmap::LoadOEMBitmap(UINT nIDBitmap) {
  return Keep(*this, ::LoadBitmapW(nullptr, MAKEINTRESOURCEW(nIDBitmap)));
}

BOOL CBitmap::CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits) {
  return Keep(*this, ::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
}

BOOL CBitmap::CreateBitmapIndirect(BITMAP* lpBitmap) { return Keep(*this, ::CreateBitmapIndirect(lpBitmap)); }

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) {
  return Keep(*this, ::CreateCompatibleBitmap(HandleOf(pDC), nWidth, nHeight));
}

CBitmap::operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
int CBitmap::GetBitmap(BITMAP* pBitMap) { return GetObject(sizeof(BITMAP), pBitMap); }

DWORD CBitmap::SetBitmapBits(DWORD dwCount, const void* lpBits) {
  return static_cast<DWORD>(::SetBitmapBits(*this, dwCount, lpBits));
}

DWORD CBitmap::GetBitmapBits(DWORD dwCount, LPVOID lpBits) const {
  return static_cast<DWORD>(::GetBitmapBits(*this, static_cast<LONG>(dwCount), lpBits));
}

CSize CBitmap::SetBitmapDimension(int nWidth, int nHeight) {
  CSize earlier;
  ::SetBitmapDimensionEx(*this, nWidth, nHeight, &earlier);
  return earlier;
}

CSize CBitmap::GetBitmapDimension() const {
  CSize size;
  ::GetBitmapDimensionEx(*this, &size);
  return size;
}

// ---- CPalette ------------------------------------------------------------------------------------

CPalette* PASCAL CPalette::FromHandle(HPALETTE hPalette) { return GdiObjectOf<CPalette>(hPalette); }
CPalette::CPalette() = default;
CPalette::~CPalette() = default;
CPalette::operator HPALETTE() const { return static_cast<HPALETTE>(m_hObject); }
