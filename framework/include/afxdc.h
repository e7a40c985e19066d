// CDC and its relatives: device contexts. Included by <afxwin.h>.
//
// A CDC draws on m_hDC and asks m_hAttribDC for attributes; usually both are one handle. Functions
// without a comment forward to the API function of the same name: same units, same results. Those that
// change an attribute do it on both handles, and those that ask, ask m_hAttribDC.
#pragma once

#include <afxgdi.h>

class CMenu;
class CWnd;

class VORNFW_API CDC : public CObject {
  DECLARE_DYNCREATE(CDC)

 public:
  HDC m_hDC;        // output
  HDC m_hAttribDC;  // attributes
  BOOL m_bPrinting;

  CDC();
  // Deletes the context, if it still has one.
  ~CDC() override;
  CDC(const CDC&) = delete;
  CDC& operator=(const CDC&) = delete;

  operator HDC() const { return m_hDC; }
  HDC GetSafeHdc() const { return m_hDC; }

  // The object of a handle: its owner or a temporary one. Null for a null handle.
  static CDC* PASCAL FromHandle(HDC hDC);
  static void PASCAL DeleteTempMap();
  // Takes hDC over, for output and attributes. Returns 0 if it is null or there is one already.
  BOOL Attach(HDC hDC);
  // Gives the output handle away and drops both.
  HDC Detach();
  virtual void SetAttribDC(HDC hDC);
  virtual void SetOutputDC(HDC hDC);
  virtual void ReleaseAttribDC();
  virtual void ReleaseOutputDC();
  BOOL IsPrinting() const { return m_bPrinting; }
  // The window drawn on, or null.
  CWnd* GetWindow() const;

  BOOL CreateDC(LPCWSTR lpszDriverName, LPCWSTR lpszDeviceName, LPCWSTR lpszOutput, const void* lpInitData);
  BOOL CreateIC(LPCWSTR lpszDriverName, LPCWSTR lpszDeviceName, LPCWSTR lpszOutput, const void* lpInitData);
  // A memory context like pDC, or like the screen when null.
  BOOL CreateCompatibleDC(CDC* pDC);
  BOOL DeleteDC();

  virtual int SaveDC();
  virtual BOOL RestoreDC(int nSavedDC);
  int GetDeviceCaps(int nIndex) const;
  CPoint GetBrushOrg() const;
  CPoint SetBrushOrg(int x, int y);
  CPoint SetBrushOrg(POINT point);

  // The objects selected now.
  CPen* GetCurrentPen() const;
  CBrush* GetCurrentBrush() const;
  CFont* GetCurrentFont() const;
  CBitmap* GetCurrentBitmap() const;

  // Each returns the object that was selected before, as FromHandle finds it, or null on failure.
  virtual CGdiObject* SelectStockObject(int nIndex);
  CPen* SelectObject(CPen* pPen);
  CBrush* SelectObject(CBrush* pBrush);
  virtual CFont* SelectObject(CFont* pFont);
  CBitmap* SelectObject(CBitmap* pBitmap);
  // For a region: the kind of the new clip region.
  int SelectObject(CRgn* pRgn);
  CGdiObject* SelectObject(CGdiObject* pObject);

  COLORREF GetNearestColor(COLORREF crColor) const;
  COLORREF GetBkColor() const;
  int GetBkMode() const;
  int GetROP2() const;
  int GetStretchBltMode() const;
  COLORREF GetTextColor() const;
  virtual COLORREF SetBkColor(COLORREF crColor);
  int SetBkMode(int nBkMode);
  int SetROP2(int nDrawMode);
  int SetStretchBltMode(int nStretchMode);
  virtual COLORREF SetTextColor(COLORREF crColor);

  int GetMapMode() const;
  CPoint GetViewportOrg() const;
  virtual int SetMapMode(int nMapMode);
  virtual CPoint SetViewportOrg(int x, int y);
  CPoint SetViewportOrg(POINT point);
  virtual CPoint OffsetViewportOrg(int nWidth, int nHeight);
  CSize GetViewportExt() const;
  virtual CSize SetViewportExt(int cx, int cy);
  CSize SetViewportExt(SIZE size);
  CPoint GetWindowOrg() const;
  CPoint SetWindowOrg(int x, int y);
  CPoint SetWindowOrg(POINT point);
  CPoint OffsetWindowOrg(int nWidth, int nHeight);
  CSize GetWindowExt() const;
  virtual CSize SetWindowExt(int cx, int cy);
  CSize SetWindowExt(SIZE size);
  void DPtoLP(LPPOINT lpPoints, int nCount = 1) const;
  void DPtoLP(LPRECT lpRect) const;
  void LPtoDP(LPPOINT lpPoints, int nCount = 1) const;
  void LPtoDP(LPRECT lpRect) const;

  BOOL FillRgn(CRgn* pRgn, CBrush* pBrush);
  BOOL FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight);
  BOOL InvertRgn(CRgn* pRgn);
  BOOL PaintRgn(CRgn* pRgn);

  // Clipping: each returns the kind of the region (ERROR 0, NULLREGION 1, ...).
  virtual int GetClipBox(LPRECT lpRect) const;
  virtual BOOL PtVisible(int x, int y) const;
  BOOL PtVisible(POINT point) const;
  virtual BOOL RectVisible(LPCRECT lpRect) const;
  int SelectClipRgn(CRgn* pRgn);
  int SelectClipRgn(CRgn* pRgn, int nMode);
  int ExcludeClipRect(int x1, int y1, int x2, int y2);
  int ExcludeClipRect(LPCRECT lpRect);
  int ExcludeUpdateRgn(CWnd* pWnd);
  int IntersectClipRect(int x1, int y1, int x2, int y2);
  int IntersectClipRect(LPCRECT lpRect);
  int OffsetClipRgn(int x, int y);
  int OffsetClipRgn(SIZE size);

  CPoint GetCurrentPosition() const;
  CPoint MoveTo(int x, int y);
  CPoint MoveTo(POINT point);
  BOOL LineTo(int x, int y);
  BOOL LineTo(POINT point);
  BOOL Polyline(const POINT* lpPoints, int nCount);
  BOOL Polygon(const POINT* lpPoints, int nCount);
  BOOL Ellipse(int x1, int y1, int x2, int y2);
  BOOL Ellipse(LPCRECT lpRect);
  BOOL Rectangle(int x1, int y1, int x2, int y2);
  BOOL Rectangle(LPCRECT lpRect);
  BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3);
  BOOL RoundRect(LPCRECT lpRect, POINT point);

  void FillRect(LPCRECT lpRect, CBrush* pBrush);
  void FrameRect(LPCRECT lpRect, CBrush* pBrush);
  void InvertRect(LPCRECT lpRect);
  // Fill with one plain colour; the background colour is as before afterwards.
  void FillSolidRect(LPCRECT lpRect, COLORREF clr);
  void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
  // A frame of one pixel, upper left sides and lower right sides in two colours.
  void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
  void Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight);
  BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags);
  BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState);
  void DrawFocusRect(LPCRECT lpRect);
  // Moves a tracking frame: inverts what changed between the last frame and the new one, so that one
  // call erases the one and draws the other. No last frame (null) draws, an empty size erases. The
  // brushes are the halftone brush when null.
  void DrawDragRect(LPCRECT lpRect, SIZE size, LPCRECT lpRectLast, SIZE sizeLast, CBrush* pBrush = nullptr,
                    CBrush* pBrushLast = nullptr);
  BOOL DrawIcon(int x, int y, HICON hIcon);
  BOOL DrawIcon(POINT point, HICON hIcon);
  BOOL DrawState(CPoint pt, CSize size, HBITMAP hBitmap, UINT nFlags, HBRUSH hBrush = nullptr);
  BOOL DrawState(CPoint pt, CSize size, CBitmap* pBitmap, UINT nFlags, CBrush* pBrush = nullptr);
  BOOL DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush = nullptr);
  BOOL DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, CBrush* pBrush);
  BOOL DrawState(CPoint pt, CSize size, LPCWSTR lpszText, UINT nFlags, BOOL bPrefixText = TRUE,
                 int nTextLen = 0, HBRUSH hBrush = nullptr);
  BOOL DrawState(CPoint pt, CSize size, LPCWSTR lpszText, UINT nFlags, BOOL bPrefixText, int nTextLen,
                 CBrush* pBrush);

  BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop);
  BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop);
  BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                  int nSrcHeight, DWORD dwRop);
  BOOL TransparentBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                      int nSrcHeight, UINT crTransparent);
  BOOL AlphaBlend(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                  int nSrcHeight, BLENDFUNCTION blend);
  COLORREF GetPixel(int x, int y) const;
  COLORREF GetPixel(POINT point) const;
  COLORREF SetPixel(int x, int y, COLORREF crColor);
  COLORREF SetPixel(POINT point, COLORREF crColor);
  BOOL SetPixelV(int x, int y, COLORREF crColor);
  BOOL SetPixelV(POINT point, COLORREF crColor);

  virtual BOOL TextOut(int x, int y, LPCWSTR lpszString, int nCount);
  BOOL TextOut(int x, int y, const CString& str);
  virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCWSTR lpszString, UINT nCount,
                          LPINT lpDxWidths);
  BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths);
  virtual int DrawText(LPCWSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat);
  int DrawText(const CString& str, LPRECT lpRect, UINT nFormat);
  // Sizes of text in logical units, in the current font.
  CSize GetTextExtent(LPCWSTR lpszString, int nCount) const;
  CSize GetTextExtent(const CString& str) const;
  CSize GetOutputTextExtent(LPCWSTR lpszString, int nCount) const;
  CSize GetOutputTextExtent(const CString& str) const;
  UINT GetTextAlign() const;
  UINT SetTextAlign(UINT nFlags);
  int GetTextFace(int nCount, LPWSTR lpszFacename) const;
  int GetTextFace(CString& rString) const;
  BOOL GetTextMetrics(TEXTMETRICW* lpMetrics) const;
  BOOL GetOutputTextMetrics(TEXTMETRICW* lpMetrics) const;
  BOOL ScrollDC(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* pRgnUpdate,
                LPRECT lpRectUpdate);

  // A brush of alternating pixels; never deleted by the caller. Null when it cannot be made.
  static CBrush* PASCAL GetHalftoneBrush();
};

// A context of a window's client area, with the update region, from BeginPaint to EndPaint: to be used
// in OnPaint alone. The constructor throws CResourceException when there is no context.
class VORNFW_API CPaintDC : public CDC {
  DECLARE_DYNAMIC(CPaintDC)

 public:
  explicit CPaintDC(CWnd* pWnd);
  ~CPaintDC() override;

  PAINTSTRUCT m_ps;

 protected:
  HWND m_hWnd;
};

// A context of a window's client area (of the screen for a null window).
// The constructor throws CResourceException when there is no context.
class VORNFW_API CClientDC : public CDC {
  DECLARE_DYNAMIC(CClientDC)

 public:
  explicit CClientDC(CWnd* pWnd);
  ~CClientDC() override;

 protected:
  HWND m_hWnd;
};

// A context of a whole window, frame included (of the screen for a null window).
// The constructor throws CResourceException when there is no context.
class VORNFW_API CWindowDC : public CDC {
  DECLARE_DYNAMIC(CWindowDC)

 public:
  explicit CWindowDC(CWnd* pWnd);
  ~CWindowDC() override;

 protected:
  HWND m_hWnd;
};
