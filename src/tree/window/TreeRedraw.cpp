// CVornTreeCtrl: redraw held back and released.
#include "../VornTreeCtrl.h"

namespace {

// One for all controls, meant: a second control that holds or releases inside the first one's call does
// nothing.
bool g_inSetRedraw = false;

class ReentryGuard {
 public:
  ReentryGuard() { g_inSetRedraw = true; }
  ~ReentryGuard() { g_inSetRedraw = false; }
};

}  // namespace

void CVornTreeCtrl::SetRedraw(int redraw) {
  if (g_inSetRedraw) return;
  const ReentryGuard guard;
  if (redraw) {
    ReleaseRedraw(redraw);
  } else {
    HoldRedraw();
  }
}

void CVornTreeCtrl::HoldRedraw() {
  const bool hasWindow = ::IsWindow(m_hWnd) != FALSE;
  if (m_nRedrawLock < 1 && hasWindow) {
    if (OwnsThread()) ::SendMessageW(m_hWnd, WM_SETREDRAW, FALSE, 0);
    m_nRedrawLock = 0;
    if (m_pRedrawDC == nullptr) m_pRedrawDC = new (std::nothrow) CDC;
    if (m_pRedrawDC != nullptr && m_pRedrawDC->GetSafeHdc() == nullptr) {
      m_pRedrawDC->Attach(::GetDC(m_hWnd));
    }
  }
  ++m_nRedrawLock;
}

void CVornTreeCtrl::ReleaseRedraw(int redraw) {
  if (--m_nRedrawLock > 0) return;
  if (!::IsWindow(m_hWnd)) {
    ReleaseRedrawDC();
    return;
  }
  if (OwnsThread()) ::SendMessageW(m_hWnd, WM_SETREDRAW, static_cast<WPARAM>(redraw), 0);
  m_nRedrawLock = 0;
  if (m_pRedrawDC == nullptr) return;  // nothing was ever held
  ReleaseRedrawDC();
  UpdateTree();
}

// The object stays for next time.
void CVornTreeCtrl::ReleaseRedrawDC() {
  if (m_pRedrawDC == nullptr || m_pRedrawDC->GetSafeHdc() == nullptr) return;
  ForgetHeldFont();
  HDC dc = m_pRedrawDC->Detach();
  ::ReleaseDC(::WindowFromDC(dc), dc);
}
