// CCmdUI: how a command looks in a menu or on a button.
#include "afxwin.h"

namespace {

bool IsButton(HWND window) {
  return (::SendMessageW(window, WM_GETDLGCODE, 0, 0) &
          (DLGC_BUTTON | DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

// A check drawn as a tick or as a dot.
void SetMenuMark(HMENU menu, UINT index, bool checked, bool asDot) {
  MENUITEMINFOW item = {};
  item.cbSize = sizeof(item);
  item.fMask = MIIM_FTYPE | MIIM_STATE;
  if (!::GetMenuItemInfoW(menu, index, TRUE, &item)) return;
  item.fType &= ~static_cast<UINT>(MFT_RADIOCHECK);
  if (asDot) item.fType |= MFT_RADIOCHECK;
  item.fState &= ~static_cast<UINT>(MFS_CHECKED);
  if (checked) item.fState |= MFS_CHECKED;
  ::SetMenuItemInfoW(menu, index, TRUE, &item);
}

}  // namespace

CCmdUI::CCmdUI()
    : m_nID(0),
      m_nIndex(0),
      m_pMenu(nullptr),
      m_pSubMenu(nullptr),
      m_pOther(nullptr),
      m_bEnableChanged(FALSE),
      m_bContinueRouting(FALSE),
      m_nIndexMax(0),
      m_pParentMenu(nullptr) {}

CCmdUI::~CCmdUI() = default;

void CCmdUI::Enable(BOOL bOn) {
  m_bEnableChanged = TRUE;
  if (m_pMenu != nullptr) {
    if (m_pSubMenu != nullptr) return;  // the item stands for a whole pop-up
    m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | static_cast<UINT>(bOn ? MF_ENABLED : MF_GRAYED));
    return;
  }
  if (m_pOther == nullptr) return;
  // The keyboard must not stay with a control that is about to be disabled.
  if (!bOn && ::GetFocus() == m_pOther->m_hWnd) {
    if (CWnd* const parent = m_pOther->GetParent()) {
      if (const HWND next = ::GetNextDlgTabItem(parent->m_hWnd, m_pOther->m_hWnd, FALSE)) ::SetFocus(next);
    }
  }
  m_pOther->EnableWindow(bOn);
}

void CCmdUI::SetCheck(int nCheck) {
  if (m_pMenu != nullptr) {
    if (m_pSubMenu == nullptr) SetMenuMark(m_pMenu->m_hMenu, m_nIndex, nCheck != 0, false);
    return;
  }
  if (m_pOther != nullptr && IsButton(m_pOther->m_hWnd)) {
    m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck));
  }
}

void CCmdUI::SetRadio(BOOL bOn) {
  SetCheck(bOn ? 1 : 0);
  if (m_pMenu != nullptr && m_pSubMenu == nullptr) SetMenuMark(m_pMenu->m_hMenu, m_nIndex, bOn, true);
}

void CCmdUI::SetText(LPCWSTR lpszText) {
  if (m_pMenu != nullptr) {
    if (m_pSubMenu != nullptr) return;
    MENUITEMINFOW item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STRING;
    item.dwTypeData = const_cast<LPWSTR>(lpszText);
    ::SetMenuItemInfoW(m_pMenu->m_hMenu, m_nIndex, TRUE, &item);
    return;
  }
  if (m_pOther == nullptr) return;
  CString earlier;
  m_pOther->GetWindowText(earlier);
  if (earlier != lpszText) m_pOther->SetWindowText(lpszText);  // no flicker for the same text
}

void CCmdUI::ContinueRouting() { m_bContinueRouting = TRUE; }

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
  constexpr UINT noCommand = 0xFFFF;
  if (pTarget == nullptr || m_nID == 0 || LOWORD(m_nID) == noCommand) return TRUE;

  m_bEnableChanged = FALSE;
  const BOOL handled = pTarget->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this, nullptr);
  if (bDisableIfNoHndler && !m_bEnableChanged) {
    AFX_CMDHANDLERINFO info = {};
    Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
  }
  return handled;
}

namespace vornfw {

BOOL UpdateDone(CCmdUI* command) {
  const BOOL done = !command->m_bContinueRouting;
  command->m_bContinueRouting = FALSE;
  return done;
}

}  // namespace vornfw
