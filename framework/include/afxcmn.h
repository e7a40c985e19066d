// Wrappers of the common controls: image lists, progress and status bars.
#pragma once

#include <afxwin.h>

// A list of pictures of one size. A CImageList owns its list: the destructor destroys it, unless Detach
// took it away. Functions without a comment forward to ImageList_ and their name.
class VORNFW_API CImageList : public CObject {
  DECLARE_DYNCREATE(CImageList)

 public:
  HIMAGELIST m_hImageList;

  CImageList();
  ~CImageList() override;
  CImageList(const CImageList&) = delete;
  CImageList& operator=(const CImageList&) = delete;

  operator HIMAGELIST() const { return m_hImageList; }
  HIMAGELIST GetSafeHandle() const { return m_hImageList; }

  // The object of a handle: its owner or a temporary one. Null for a null handle.
  static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
  static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HIMAGELIST hImageList);
  HIMAGELIST Detach();

  BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
  // From a bitmap resource; images are cx wide and crMask is transparent.
  BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
  BOOL Create(LPCWSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
  // A copy of one image of each, merged, the second at (dx, dy).
  BOOL Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx, int dy);
  // A copy.
  BOOL Create(CImageList* pImageList);
  BOOL DeleteImageList();

  int GetImageCount() const;
  BOOL SetImageCount(UINT uNewCount);
  // The index of the first new image, or -1.
  int Add(CBitmap* pbmImage, CBitmap* pbmMask);
  int Add(CBitmap* pbmImage, COLORREF crMask);
  int Add(HICON hIcon);
  BOOL Remove(int nImage);
  BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask);
  int Replace(int nImage, HICON hIcon);
  HICON ExtractIcon(int nImage);
  BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
  BOOL DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle);
  BOOL DrawIndirect(IMAGELISTDRAWPARAMS* pimldp);
  COLORREF SetBkColor(COLORREF cr);
  COLORREF GetBkColor() const;
  BOOL SetOverlayImage(int nImage, int nOverlay);
  BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const;
  BOOL Copy(int iDst, int iSrc, UINT uFlags = ILCF_MOVE);
  BOOL Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags = ILCF_MOVE);

  // Dragging: one image at a time.
  BOOL BeginDrag(int nImage, CPoint ptHotSpot);
  static void PASCAL EndDrag();
  static BOOL PASCAL DragMove(CPoint pt);
  BOOL SetDragCursorImage(int nDrag, CPoint ptHotSpot);
  static BOOL PASCAL DragShowNolock(BOOL bShow);
  static CImageList* PASCAL GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot);
  // In coordinates of pWndLock's whole window; null is the screen.
  static BOOL PASCAL DragEnter(CWnd* pWndLock, CPoint point);
  static BOOL PASCAL DragLeave(CWnd* pWndLock);
};

class VORNFW_API CProgressCtrl : public CWnd {
  DECLARE_DYNAMIC(CProgressCtrl)

 public:
  CProgressCtrl();
  ~CProgressCtrl() override;
  using CWnd::Create;
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // Each setter returns the earlier value where it returns one.
  void SetRange(short nLower, short nUpper);
  void SetRange32(int nLower, int nUpper);
  void GetRange(int& nLower, int& nUpper) const;
  int SetPos(int nPos);
  int OffsetPos(int nPos);
  int GetPos() const;
  int SetStep(int nStep);
  int StepIt();
};

class VORNFW_API CStatusBarCtrl : public CWnd {
  DECLARE_DYNAMIC(CStatusBarCtrl)

 public:
  CStatusBarCtrl();
  ~CStatusBarCtrl() override;
  using CWnd::Create;
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  BOOL SetText(LPCWSTR lpszText, int nPane, int nType);
  int GetText(LPWSTR lpszText, int nPane, int* pType = nullptr) const;
  CString GetText(int nPane, int* pType = nullptr) const;
  int GetTextLength(int nPane, int* pType = nullptr) const;
  // Right edges of the panes in pixels; -1 reaches the end.
  BOOL SetParts(int nParts, int* pWidths);
  int GetParts(int nParts, int* pParts) const;
  BOOL GetBorders(int* pBorders) const;
  void SetMinHeight(int nMin);
  BOOL SetSimple(BOOL bSimple = TRUE);
  BOOL IsSimple() const;
  BOOL GetRect(int nPane, LPRECT lpRect) const;
};
