// CWnd: which object a window belongs to.
#include "wnd_access.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

using framework::OwnersOfWindows;
using framework::WindowTemporaries;
using framework::WndAccess;

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

namespace framework {

WindowOwners& OwnersOfWindows() {
  static Immortal<WindowOwners> owners;
  return *owners;
}

}  // namespace framework

CWnd::CWnd() : CWnd(nullptr) {}

CWnd::CWnd(HWND hWnd)
    : m_hWnd(hWnd), m_pfnSuper(nullptr), m_hWndOwner(nullptr), m_nModalResult(0), m_nFlags(0) {}

CWnd::~CWnd() {
  if (m_hWnd == nullptr || this == &wndBottom || this == &wndTopMost || this == &wndNoTopMost) return;
  CWnd::DestroyWindow();
  // A window of another thread cannot be destroyed here, but it must not find this object again.
  if (m_hWnd != nullptr) CWnd::Detach();
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd) {
  if (hWnd == nullptr) return nullptr;
  if (CWnd* const owner = OwnersOfWindows().Find(hWnd)) return owner;
  auto* const table = framework::TableOfThread<WindowTemporaries>(framework::HandleKind::Window);
  return table == nullptr ? nullptr : table->Get<CWnd>(hWnd);
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd) {
  return hWnd == nullptr ? nullptr : OwnersOfWindows().Find(hWnd);
}

void PASCAL CWnd::DeleteTempMap() { framework::DeleteTemporaryOf(framework::HandleKind::Window); }

BOOL CWnd::Attach(HWND hWndNew) {
  if (hWndNew == nullptr || m_hWnd != nullptr) return FALSE;
  if (FromHandlePermanent(hWndNew) != nullptr || !OwnersOfWindows().Add(hWndNew, this)) return FALSE;
  m_hWnd = hWndNew;
  return TRUE;
}

HWND CWnd::Detach() {
  const HWND handle = m_hWnd;
  if (handle != nullptr) OwnersOfWindows().Remove(handle, this);
  m_hWnd = nullptr;
  return handle;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
  if (!::IsWindow(hWnd) || !Attach(hWnd)) return FALSE;
  const bool done = framework::OrOnException(
      [this] {
        PreSubclassWindow();
        return m_hWnd != nullptr && framework::InstallProcedure(*this);
      },
      false);
  if (!done && m_hWnd == hWnd) Detach();
  return done;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
  const HWND control = ::GetDlgItem(framework::HandleOf(pParent), static_cast<int>(nID));
  return control != nullptr && SubclassWindow(control);
}

HWND CWnd::UnsubclassWindow() {
  if (m_hWnd == nullptr) return nullptr;
  WNDPROC& former = *GetSuperWndProcAddr();
  if (former != nullptr) ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former));
  former = nullptr;
  return Detach();
}

namespace framework {

bool InstallProcedure(CWnd& window) {
  ::SetLastError(ERROR_SUCCESS);
  const auto earlier = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(window.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
  if (earlier == nullptr) return ::GetLastError() == ERROR_SUCCESS && ::IsWindow(window.m_hWnd);
  WNDPROC& former = WndAccess::FormerProcedure(window);
  if (former == nullptr && earlier != &AfxWndProc) former = earlier;
  return true;
}

}  // namespace framework

WNDPROC* CWnd::GetSuperWndProcAddr() { return &m_pfnSuper; }
void CWnd::PreSubclassWindow() {}

// ---- Temporary wrappers --------------------------------------------------------------------------

void AFXAPI AfxLockTempMaps() { ++framework::CurrentThread().temporaryLock; }

BOOL AFXAPI AfxUnlockTempMaps(BOOL bDeleteTemps) {
  framework::ThreadState& state = framework::CurrentThread();
  if (state.temporaryLock > 0 && --state.temporaryLock == 0 && bDeleteTemps) {
    for (auto& table : state.tables) {
      if (table != nullptr) table->DeleteTemporary();
    }
  }
  return state.temporaryLock != 0;
}
