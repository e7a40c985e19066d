// CVornDC: an off-screen drawing surface.
//
// One object serves in one of four ways at a time:
//   BeginPaint(CWnd*) ... EndPaint                  in a paint handler: draw on a buffer, which EndPaint
//                                                   copies to the window in one go
//   BeginPaint(CDC*) ... EndPaint                   the same for any context, such as a frame's
//   AttachWnd ... DetachWnd                         draw on the window straight away
//   CreateBitmapCapture ... GetCapturedBitmap       draw on a bitmap and take a copy of it
// and GetDCCapture and GetWindowCapture copy what is on a context or window already.
//
//   void CPage::OnPaint() {
//     CVornDC dc;
//     if (!dc.BeginPaint(this)) return;
//     dc.FillBack(RGB(255, 255, 255));
//     ...
//     dc.EndPaint(nullptr);
//   }
//
// Failure is 0 or null, without a message, and leaves the object as if it were new.
#pragma once

#include <afxwin.h>

#include "../core/VornComCtlApi.h"

class VORNCOMCTL_API CVornDC : public CDC {
  DECLARE_DYNCREATE(CVornDC)

 public:
  CVornDC();
  // Ends a paint that is still open: the buffer reaches its target.
  virtual ~CVornDC();

  // Starts a paint of pWnd, in answer to WM_PAINT. The buffer covers the clip box, in the window's
  // client coordinates; the whole client area if the box is empty. 1, or 0: there is nothing to paint
  // on, and the paint cycle is over. A paint still open is ended first.
  int BeginPaint(CWnd* pWnd);

  // Starts a paint on a context of the caller's, which is kept until EndPaint. The buffer covers the
  // clip box, in the context's logical coordinates, also an empty one. 1, or 0.
  int BeginPaint(CDC* pDC);

  // Copies the buffer to its target and ends the paint. pRect: copy only this part; null for all.
  // Returns the window of AttachWnd, or null.
  CWnd* EndPaint(tagRECT* pRect);

  // Copies the buffer to its target and gives it up; EndPaint and the destructor do it. 1 if the copy was
  // made, 0 without an open paint.
  int SwapBuffers();

  // Fills the whole buffer. Sets the clip rectangle to the clip box of the buffer.
  void FillBack(unsigned long color);

  // The area of the buffer, in the target's coordinates: the address of the object's own field.
  CRect* GetClipRect() { return &m_rcClip; }

  // Draws on the window's client area from now on. 1, or 0.
  int AttachWnd(CWnd* pWnd);
  // Lets go of the window's context. EndPaint still returns the window. 1, or 0 without a window.
  int DetachWnd();

  // Draws on a bitmap of cx by cy pixels, in the format of the screen, from now on. 1, or 0. An earlier
  // capture is given up.
  int CreateBitmapCapture(int cx, int cy);
  int CreateBitmapCapture(const CSize& size) { return CreateBitmapCapture(size.cx, size.cy); }
  // A copy of what was drawn, or null. The object is a temporary one of the framework's; the bitmap
  // handle in it belongs to the caller.
  CBitmap* GetCapturedBitmap();

  // A copy of the pixels of rect (moved by *pOffset unless null) of a context, or null. The caller
  // deletes it. The object must be idle.
  CBitmap* GetDCCapture(CDC* pDC, const tagRECT& rect, tagPOINT* pOffset);
  // The same of a window, whose upper left corner is the origin of rect. A null pRect stands for the
  // window's rectangle on the screen, which *pOffset has to bring to the window's origin.
  CBitmap* GetWindowCapture(CWnd* pWnd, const tagRECT* pRect, tagPOINT* pOffset);

 private:
  int BeginBuffer(CDC* target);
  void CloseContext();

  CDC* m_pTargetDC = nullptr;     // of BeginPaint(CDC*); not owned
  CDC* m_pPaintDC = nullptr;      // of BeginPaint(CWnd*); owned
  HGDIOBJ m_hPrevious = nullptr;  // what the buffer took the place of
  CRect m_rcClip;
  BOOL m_bPainting = FALSE;
  HWND m_hAttachedWnd = nullptr;  // stays after DetachWnd
  CSize m_szCapture;
  CBitmap m_bmpCapture;
  HGDIOBJ m_hCapturePrevious = nullptr;  // what the capture took the place of
};
