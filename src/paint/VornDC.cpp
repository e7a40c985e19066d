#include "VornDC.h"

#include <memory>
#include <new>

IMPLEMENT_DYNCREATE(CVornDC, CDC)

CVornDC::CVornDC() = default;

CVornDC::~CVornDC() { EndPaint(nullptr); }

// ---- Buffered paint ----------------------------------------------------------------------------------

int CVornDC::BeginPaint(CWnd* pWnd) {
  if (!pWnd || !::IsWindow(pWnd->GetSafeHwnd())) return 0;
  if (m_bPainting) EndPaint(nullptr);
  try {
    m_pPaintDC = new (std::nothrow) CPaintDC(pWnd);
  } catch (CException* exception) {
    exception->Delete();  // the system has no context for us
  }
  if (!m_pPaintDC) return 0;
  const int kind = m_pPaintDC->GetClipBox(&m_rcClip);
  if (kind == ERROR || kind == NULLREGION || m_rcClip.IsRectEmpty()) pWnd->GetClientRect(&m_rcClip);
  if (BeginBuffer(m_pPaintDC)) return 1;
  delete m_pPaintDC;
  m_pPaintDC = nullptr;
  return 0;
}

int CVornDC::BeginPaint(CDC* pDC) {
  if (!pDC || !pDC->GetSafeHdc()) return 0;
  if (m_bPainting) EndPaint(nullptr);
  pDC->GetClipBox(&m_rcClip);
  if (!BeginBuffer(pDC)) return 0;
  m_pTargetDC = pDC;
  return 1;
}

// Makes this a memory context with a buffer as large as the clip rectangle.
int CVornDC::BeginBuffer(CDC* target) {
  if (m_hDC || !CreateCompatibleDC(target)) return 0;
  auto buffer = std::unique_ptr<CBitmap>(new (std::nothrow) CBitmap);
  if (!buffer || !buffer->CreateCompatibleBitmap(target, m_rcClip.Width(), m_rcClip.Height())) {
    DeleteDC();
    return 0;
  }
  m_hPrevious = ::SelectObject(m_hDC, buffer->GetSafeHandle());
  if (!m_hPrevious) {
    DeleteDC();
    return 0;
  }
  static_cast<void>(buffer.release());  // SwapBuffers finds it again in the context
  // Drawing uses the target's coordinates; only the clip area has pixels.
  SetWindowOrg(m_rcClip.TopLeft());
  m_bPainting = TRUE;
  return 1;
}

int CVornDC::SwapBuffers() {
  CDC* const target = m_pPaintDC ? m_pPaintDC : m_pTargetDC;
  if (!target || !m_bPainting || !m_hPrevious) return 0;
  const BOOL copied = target->BitBlt(m_rcClip.left, m_rcClip.top, m_rcClip.Width(), m_rcClip.Height(), this,
                                     m_rcClip.left, m_rcClip.top, SRCCOPY);
  // The bitmap that leaves the context is the buffer: nothing else keeps it. The paint stays open.
  delete CGdiObject::FromHandle(::SelectObject(m_hDC, m_hPrevious));
  m_hPrevious = nullptr;
  return copied ? 1 : 0;
}

CWnd* CVornDC::EndPaint(tagRECT* pRect) {
  if (pRect) m_rcClip = *pRect;
  CWnd* const attached = m_hAttachedWnd ? CWnd::FromHandle(m_hAttachedWnd) : nullptr;
  if (m_bPainting) SwapBuffers();
  m_pTargetDC = nullptr;
  delete m_pPaintDC;  // ends the system's paint cycle
  m_pPaintDC = nullptr;
  CloseContext();
  m_bPainting = FALSE;
  m_hAttachedWnd = nullptr;
  return attached;
}

// A context that a window lent goes back to it, any other is ours to delete, with the capture on it.
void CVornDC::CloseContext() {
  if (!m_hDC) return;
  if (m_hAttachedWnd && ::WindowFromDC(m_hDC) == m_hAttachedWnd) {
    DetachWnd();
    return;
  }
  DeleteDC();
  m_bmpCapture.DeleteObject();
  m_hCapturePrevious = nullptr;
}

void CVornDC::FillBack(unsigned long color) {
  GetClipBox(&m_rcClip);
  FillSolidRect(&m_rcClip, static_cast<COLORREF>(color));
}

// ---- Direct drawing ----------------------------------------------------------------------------------

int CVornDC::AttachWnd(CWnd* pWnd) {
  if (!pWnd || !::IsWindow(pWnd->GetSafeHwnd()) || m_hDC) return 0;
  m_hAttachedWnd = pWnd->GetSafeHwnd();
  const HDC dc = ::GetDC(m_hAttachedWnd);
  if (Attach(dc)) return 1;
  if (dc) ::ReleaseDC(m_hAttachedWnd, dc);
  m_hAttachedWnd = nullptr;
  return 0;
}

int CVornDC::DetachWnd() {
  if (!m_hAttachedWnd || !m_hDC || m_bPainting) return 0;
  return ::ReleaseDC(m_hAttachedWnd, Detach()) ? 1 : 0;
}

// ---- Capture -----------------------------------------------------------------------------------------

namespace {

// A header with room for the colours that GetDIBits writes behind it.
struct BitmapHeader {
  BITMAPINFOHEADER info{};
  RGBQUAD colors[256];

  BitmapHeader() { info.biSize = sizeof(info); }
  BITMAPINFO* Get() { return reinterpret_cast<BITMAPINFO*>(&info); }
};

// An independent bitmap with the same pixels, or null.
HBITMAP CopyBitmap(HDC dc, HBITMAP source) {
  BitmapHeader header;
  if (!::GetDIBits(dc, source, 0, 0, nullptr, header.Get(), DIB_RGB_COLORS)) return nullptr;
  const UINT lines = static_cast<UINT>(header.info.biHeight);
  const auto bits = std::unique_ptr<BYTE[]>(new (std::nothrow) BYTE[header.info.biSizeImage]);
  if (!bits || !::GetDIBits(dc, source, 0, lines, bits.get(), header.Get(), DIB_RGB_COLORS)) return nullptr;
  const HBITMAP copy = ::CreateBitmap(header.info.biWidth, header.info.biHeight, header.info.biPlanes,
                                      header.info.biBitCount, nullptr);
  if (!copy) return nullptr;
  if (::SetDIBits(dc, copy, 0, lines, bits.get(), header.Get(), DIB_RGB_COLORS)) return copy;
  ::DeleteObject(copy);
  return nullptr;
}

}  // namespace

int CVornDC::CreateBitmapCapture(int cx, int cy) {
  if (m_bmpCapture.GetSafeHandle()) CloseContext();
  if (m_hDC || cx < 0 || cy < 0) return 0;
  m_szCapture = CSize(cx, cy);
  if (!CreateCompatibleDC(nullptr)) return 0;
  const UINT planes = static_cast<UINT>(GetDeviceCaps(PLANES));
  const UINT bits = static_cast<UINT>(GetDeviceCaps(BITSPIXEL));
  if (m_bmpCapture.CreateBitmap(cx, cy, planes, bits, nullptr)) {
    m_hCapturePrevious = ::SelectObject(m_hDC, m_bmpCapture.GetSafeHandle());
    if (m_hCapturePrevious) return 1;
  }
  CloseContext();
  return 0;
}

CBitmap* CVornDC::GetCapturedBitmap() {
  if (!m_hDC || !m_bmpCapture.GetSafeHandle()) return nullptr;
  // A selected bitmap cannot be read.
  ::SelectObject(m_hDC, m_hCapturePrevious);
  const HBITMAP copy = CopyBitmap(m_hDC, m_bmpCapture);
  CBitmap* const wrapper = CBitmap::FromHandle(copy);
  if (copy && !wrapper) ::DeleteObject(copy);
  return wrapper;
}

CBitmap* CVornDC::GetDCCapture(CDC* pDC, const tagRECT& rect, tagPOINT* pOffset) {
  if (!pDC || m_hDC) return nullptr;
  CRect area(rect);
  if (pOffset) area.OffsetRect(*pOffset);
  if (area.Width() < 0 || area.Height() < 0) return nullptr;
  if (!CreateCompatibleDC(pDC)) return nullptr;
  auto copy = std::unique_ptr<CBitmap>(new (std::nothrow) CBitmap);
  bool done = false;
  if (copy && copy->CreateCompatibleBitmap(pDC, area.Width(), area.Height())) {
    const HGDIOBJ earlier = ::SelectObject(m_hDC, copy->GetSafeHandle());
    done = earlier && BitBlt(0, 0, area.Width(), area.Height(), pDC, area.left, area.top, SRCCOPY);
    if (earlier) ::SelectObject(m_hDC, earlier);
  }
  DeleteDC();
  return done ? copy.release() : nullptr;
}

CBitmap* CVornDC::GetWindowCapture(CWnd* pWnd, const tagRECT* pRect, tagPOINT* pOffset) {
  if (!pWnd || m_hDC || !::IsWindow(pWnd->GetSafeHwnd())) return nullptr;
  CRect area;
  if (pRect) {
    area = *pRect;
  } else {
    pWnd->GetWindowRect(&area);
  }
  try {
    CWindowDC dc(pWnd);
    return GetDCCapture(&dc, area, pOffset);
  } catch (CException* exception) {
    exception->Delete();  // the system has no context for us
    return nullptr;
  }
}
