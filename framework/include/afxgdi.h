// The drawing objects: pens, brushes, fonts, bitmaps, palettes and regions.
// Included by <afxwin.h>.
//
// An object owns its handle: the destructor deletes it, unless Detach took it away. Wrappers that
// FromHandle makes for handles of others are temporary: they last until the thread is idle and never
// delete the handle.
#pragma once

#include <afx.h>
#include <atltypes.h>

class CBitmap;
class CDC;

// Base of the drawing objects.
class VORNFW_API CGdiObject : public CObject {
  DECLARE_DYNCREATE(CGdiObject)

 public:
  HGDIOBJ m_hObject;

  CGdiObject();
  ~CGdiObject() override;
  CGdiObject(const CGdiObject&) = delete;
  CGdiObject& operator=(const CGdiObject&) = delete;

  operator HGDIOBJ() const { return m_hObject; }
  HGDIOBJ GetSafeHandle() const { return m_hObject; }

  // The object of a handle: the one that owns it, or else a temporary one. Null for a null handle.
  static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);
  static void PASCAL DeleteTempMap();
  // Takes hObject over. Returns 0 if it is null or this object has a handle already.
  BOOL Attach(HGDIOBJ hObject);
  // Gives the handle away and returns it.
  HGDIOBJ Detach();
  // Deletes the handle. Returns 0 if there was none.
  BOOL DeleteObject();

  int GetObject(int nCount, LPVOID lpObject) const;
  UINT GetObjectType() const;
  BOOL CreateStockObject(int nIndex);
  BOOL UnrealizeObject();

  BOOL operator==(const CGdiObject& obj) const { return m_hObject == obj.m_hObject; }
};

class VORNFW_API CPen : public CGdiObject {
  DECLARE_DYNAMIC(CPen)

 public:
  static CPen* PASCAL FromHandle(HPEN hPen);

  CPen();
  // These throw CResourceException when the pen cannot be made.
  CPen(int nPenStyle, int nWidth, COLORREF crColor);
  CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
       const DWORD* lpStyle = nullptr);
  ~CPen() override;

  BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor);
  BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
                 const DWORD* lpStyle = nullptr);
  BOOL CreatePenIndirect(LOGPEN* lpLogPen);

  operator HPEN() const;
  int GetLogPen(LOGPEN* pLogPen);
};

class VORNFW_API CBrush : public CGdiObject {
  DECLARE_DYNAMIC(CBrush)

 public:
  static CBrush* PASCAL FromHandle(HBRUSH hBrush);

  CBrush();
  // These throw CResourceException when the brush cannot be made.
  explicit CBrush(COLORREF crColor);
  CBrush(int nIndex, COLORREF crColor);
  explicit CBrush(CBitmap* pBitmap);
  ~CBrush() override;

  BOOL CreateSolidBrush(COLORREF crColor);
  BOOL CreateHatchBrush(int nIndex, COLORREF crColor);
  BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush);
  BOOL CreatePatternBrush(CBitmap* pBitmap);
  BOOL CreateSysColorBrush(int nIndex);

  operator HBRUSH() const;
  int GetLogBrush(LOGBRUSH* pLogBrush);
};

class VORNFW_API CFont : public CGdiObject {
  DECLARE_DYNAMIC(CFont)

 public:
  static CFont* PASCAL FromHandle(HFONT hFont);

  CFont();
  ~CFont() override;

  BOOL CreateFontIndirect(const LOGFONTW* lpLogFont);
  BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                  BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                  BYTE nQuality, BYTE nPitchAndFamily, LPCWSTR lpszFacename);
  // nPointSize in tenths of a point, on pDC (the screen when null).
  BOOL CreatePointFont(int nPointSize, LPCWSTR lpszFaceName, CDC* pDC = nullptr);
  BOOL CreatePointFontIndirect(const LOGFONTW* lpLogFont, CDC* pDC = nullptr);

  operator HFONT() const;
  // Returns 0 on failure.
  int GetLogFont(LOGFONTW* pLogFont);
};

class VORNFW_API CBitmap : public CGdiObject {
  DECLARE_DYNAMIC(CBitmap)

 public:
  static CBitmap* PASCAL FromHandle(HBITMAP hBitmap);

  CBitmap();
  ~CBitmap() override;

  // From the resources in force (AfxFindResourceHandle).
  BOOL LoadBitmap(LPCWSTR lpszResourceName);
  BOOL LoadBitmap(UINT nIDResource);
  BOOL LoadOEMBitmap(UINT nIDBitmap);
  BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits);
  BOOL CreateBitmapIndirect(BITMAP* lpBitmap);
  BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);

  operator HBITMAP() const;
  int GetBitmap(BITMAP* pBitMap);
  DWORD SetBitmapBits(DWORD dwCount, const void* lpBits);
  DWORD GetBitmapBits(DWORD dwCount, LPVOID lpBits) const;
  CSize SetBitmapDimension(int nWidth, int nHeight);
  CSize GetBitmapDimension() const;
};

class VORNFW_API CPalette : public CGdiObject {
  DECLARE_DYNAMIC(CPalette)

 public:
  static CPalette* PASCAL FromHandle(HPALETTE hPalette);

  CPalette();
  ~CPalette() override;

  operator HPALETTE() const;
};

// A set of pixels. The combining functions return SIMPLEREGION, COMPLEXREGION, NULLREGION or ERROR.
class VORNFW_API CRgn : public CGdiObject {
  DECLARE_DYNAMIC(CRgn)

 public:
  static CRgn* PASCAL FromHandle(HRGN hRgn);

  CRgn();
  ~CRgn() override;

  operator HRGN() const;

  BOOL CreateRectRgn(int x1, int y1, int x2, int y2);
  BOOL CreateRectRgnIndirect(LPCRECT lpRect);

  void SetRectRgn(int x1, int y1, int x2, int y2);
  void SetRectRgn(LPCRECT lpRect);
  int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode);
  int CopyRgn(const CRgn* pRgnSrc);
  BOOL EqualRgn(const CRgn* pRgn) const;
  int OffsetRgn(int x, int y);
  int OffsetRgn(POINT point);
  int GetRgnBox(LPRECT lpRect) const;
  BOOL PtInRegion(int x, int y) const;
  BOOL PtInRegion(POINT point) const;
  BOOL RectInRegion(LPCRECT lpRect) const;
};
