// CWnd: parents, owners, frames, children, and the controls of a dialog.
#include "wnd_access.h"

using framework::HandleOf;

// ---- Parents and owners --------------------------------------------------------------------------

CWnd* CWnd::GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
CWnd* CWnd::SetParent(CWnd* pWndNewParent) {
  return FromHandle(::SetParent(m_hWnd, HandleOf(pWndNewParent)));
}
CWnd* CWnd::GetAncestor(UINT gaFlags) const { return FromHandle(::GetAncestor(m_hWnd, gaFlags)); }
CWnd* CWnd::GetTopWindow() const { return FromHandle(::GetTopWindow(m_hWnd)); }
CWnd* CWnd::GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
CWnd* CWnd::GetNextWindow(UINT nFlag) const { return FromHandle(::GetWindow(m_hWnd, nFlag)); }
BOOL CWnd::IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, HandleOf(pWnd)); }

CWnd* CWnd::ChildWindowFromPoint(POINT point) const {
  return FromHandle(::ChildWindowFromPoint(m_hWnd, point));
}

CWnd* CWnd::ChildWindowFromPoint(POINT point, UINT nFlags) const {
  return FromHandle(::ChildWindowFromPointEx(m_hWnd, point, nFlags));
}

CWnd* PASCAL CWnd::WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }

CWnd* PASCAL CWnd::FindWindow(LPCWSTR lpszClassName, LPCWSTR lpszWindowName) {
  return FromHandle(::FindWindowW(lpszClassName, lpszWindowName));
}

namespace {

// The parent of a child, the owner of a pop-up: the one set with SetOwner comes first.
HWND ParentOwnerOf(HWND window) {
  const CWnd* const object = CWnd::FromHandlePermanent(window);
  if (object != nullptr) return HandleOf(object->GetOwner());
  const bool isChild = (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
  return isChild ? ::GetParent(window) : ::GetWindow(window, GW_OWNER);
}

CFrameWnd* AsFrame(HWND window) { return DYNAMIC_DOWNCAST(CFrameWnd, CWnd::FromHandlePermanent(window)); }

}  // namespace

CFrameWnd* CWnd::GetParentFrame() const {
  for (HWND parent = ::GetParent(m_hWnd); parent != nullptr; parent = ::GetParent(parent)) {
    if (CFrameWnd* const frame = AsFrame(parent)) return frame;
  }
  return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const {
  CFrameWnd* frame = AsFrame(m_hWnd);
  if (frame == nullptr) frame = GetParentFrame();
  while (frame != nullptr) {
    CFrameWnd* const outer = frame->GetParentFrame();
    if (outer == nullptr) break;
    frame = outer;
  }
  return frame;
}

CWnd* CWnd::GetTopLevelParent() const {
  if (m_hWnd == nullptr) return nullptr;
  HWND top = m_hWnd;
  while (const HWND parent = ParentOwnerOf(top)) top = parent;
  return FromHandle(top);
}

CWnd* CWnd::GetTopLevelOwner() const {
  if (m_hWnd == nullptr) return nullptr;
  HWND top = m_hWnd;
  for (;;) {
    const bool isChild = (::GetWindowLongPtrW(top, GWL_STYLE) & WS_CHILD) != 0;
    const HWND owner = isChild ? ::GetParent(top) : ::GetWindow(top, GW_OWNER);
    if (owner == nullptr) return FromHandle(top);
    top = owner;
  }
}

CWnd* CWnd::GetParentOwner() const {
  HWND window = m_hWnd;
  while (window != nullptr && (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0) {
    window = ::GetParent(window);
  }
  return FromHandle(window);
}

BOOL CWnd::IsTopParentActive() const {
  const CWnd* const top = GetTopLevelParent();
  return top != nullptr && ::GetForegroundWindow() == ::GetLastActivePopup(top->m_hWnd);
}

void CWnd::ActivateTopParent() {
  const HWND active = ::GetForegroundWindow();
  if (active != nullptr && (active == m_hWnd || ::IsChild(active, m_hWnd))) return;
  if (CWnd* const top = GetTopLevelParent()) top->SetForegroundWindow();
}

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const {
  if (m_hWnd == nullptr) return nullptr;
  for (HWND child = ::GetTopWindow(m_hWnd); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    CWnd* const object = bOnlyPerm ? FromHandlePermanent(child) : FromHandle(child);
    if (object != nullptr && ::GetDlgCtrlID(child) == nID) return object;
  }
  for (HWND child = ::GetTopWindow(m_hWnd); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const CWnd* const object = FromHandle(child);
    if (CWnd* const found = object == nullptr ? nullptr : object->GetDescendantWindow(nID, bOnlyPerm)) {
      return found;
    }
  }
  return nullptr;
}

// ---- Controls of a dialog ------------------------------------------------------------------------

CWnd* CWnd::GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
void CWnd::GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }

UINT CWnd::GetDlgItemInt(int nID, BOOL* lpTrans, BOOL bSigned) const {
  return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
}

void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned) {
  ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned);
}

int CWnd::GetDlgItemText(int nID, LPWSTR lpStr, int nMaxCount) const {
  return static_cast<int>(::GetDlgItemTextW(m_hWnd, nID, lpStr, nMaxCount));
}

int CWnd::GetDlgItemText(int nID, CString& rString) const {
  rString.Empty();
  if (const CWnd* const control = GetDlgItem(nID)) control->GetWindowText(rString);
  return rString.GetLength();
}

void CWnd::SetDlgItemText(int nID, LPCWSTR lpszString) { ::SetDlgItemTextW(m_hWnd, nID, lpszString); }
void CWnd::CheckDlgButton(int nIDButton, UINT nCheck) { ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }

void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton) {
  ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const {
  for (int id = nIDFirstButton; id <= nIDLastButton; ++id) {
    if (IsDlgButtonChecked(id)) return id;
  }
  return 0;
}

UINT CWnd::IsDlgButtonChecked(int nIDButton) const { return ::IsDlgButtonChecked(m_hWnd, nIDButton); }

LRESULT CWnd::SendDlgItemMessage(int nID, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendDlgItemMessageW(m_hWnd, nID, message, wParam, lParam);
}

CWnd* CWnd::GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious) const {
  return FromHandle(::GetNextDlgGroupItem(m_hWnd, HandleOf(pWndCtl), bPrevious));
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious) const {
  return FromHandle(::GetNextDlgTabItem(m_hWnd, HandleOf(pWndCtl), bPrevious));
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
  if (m_hWnd == nullptr) return;
  CCmdUI state;
  for (HWND child = ::GetTopWindow(m_hWnd); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    CWnd* const control = FromHandle(child);
    if (control == nullptr) continue;
    state.m_nID = LOWORD(::GetDlgCtrlID(child));
    state.m_pOther = control;
    // A control may know its own state.
    const auto reflected = static_cast<int>(MAKELONG(0xFFFF, WM_COMMAND + WM_REFLECT_BASE));
    if (control->OnCmdMsg(0, reflected, &state, nullptr)) continue;
    if (OnCmdMsg(state.m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr)) continue;
    // Only push buttons are greyed for want of a handler.
    const auto code = ::SendMessageW(child, WM_GETDLGCODE, 0, 0);
    const auto style = ::GetWindowLongPtrW(child, GWL_STYLE) & 0x0F;
    const bool automatic = style == BS_AUTOCHECKBOX || style == BS_AUTO3STATE ||
                           style == BS_AUTORADIOBUTTON || style == BS_GROUPBOX;
    const bool isPush = (code & DLGC_BUTTON) != 0 && !automatic;
    state.DoUpdate(pTarget, bDisableIfNoHndler && isPush);
  }
}
