// CWnd: modal loops and the exchange of dialog data.
#include "wnd_access.h"

using framework::CurrentThread;

int CWnd::RunModalLoop(DWORD dwFlags) {
  const bool showOnIdle = (dwFlags & MLF_SHOWONIDLE) != 0 && (GetStyle() & WS_VISIBLE) == 0;
  const HWND parent = ::GetParent(m_hWnd);
  m_nFlags |= WF_MODALLOOP | WF_CONTINUEMODAL;
  MSG& message = *AfxGetCurrentMessage();
  bool show = showOnIdle;
  bool idle = true;
  LONG idleCount = 0;

  while (ContinueModal()) {
    while (idle && !::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
      if (show) {
        ShowWindow(SW_SHOWNORMAL);
        UpdateWindow();
        show = false;
      }
      if ((dwFlags & MLF_NOIDLEMSG) == 0 && parent != nullptr && idleCount == 0) {
        ::SendMessageW(parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
      }
      const bool kick = (dwFlags & MLF_NOKICKIDLE) == 0;
      if (!kick || !SendMessage(WM_KICKIDLE, MSGF_DIALOGBOX, idleCount++)) idle = false;
      if (!ContinueModal()) break;
    }
    if (!ContinueModal()) break;
    do {
      if (!AfxPumpMessage()) {
        AfxPostQuitMessage(0);  // the loop around this one has to end too
        EndModalLoop(-1);
        break;
      }
      if (show && (message.message == WM_SYSKEYDOWN || message.message == WM_SYSCHAR)) {
        ShowWindow(SW_SHOWNORMAL);
        UpdateWindow();
        show = false;
      }
      if (!ContinueModal()) break;
      if (AfxIsIdleMessage(&message)) {
        idle = true;
        idleCount = 0;
      }
    } while (::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
  }
  m_nFlags &= ~static_cast<UINT>(WF_MODALLOOP | WF_CONTINUEMODAL);
  return m_nModalResult;
}

BOOL CWnd::ContinueModal() { return (m_nFlags & WF_CONTINUEMODAL) != 0; }

void CWnd::EndModalLoop(int nResult) {
  m_nModalResult = nResult;
  if (!ContinueModal()) return;
  m_nFlags &= ~static_cast<UINT>(WF_CONTINUEMODAL);
  PostMessage(WM_NULL);  // the loop may be waiting
}

void CWnd::BeginModalState() { ::EnableWindow(m_hWnd, FALSE); }
void CWnd::EndModalState() { ::EnableWindow(m_hWnd, TRUE); }
BOOL CWnd::CheckAutoCenter() { return TRUE; }

// ---- Data exchange -------------------------------------------------------------------------------

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
  if (m_hWnd == nullptr) return FALSE;
  CDataExchange exchange(this, bSaveAndValidate);
  // While controls are filled they notify, which must not read them back half-filled.
  const HWND earlier = CurrentThread().exchangingDialog;
  CurrentThread().exchangingDialog = m_hWnd;
  const bool done = framework::OrOnException(
      [&] {
        DoDataExchange(&exchange);
        return true;
      },
      false);
  CurrentThread().exchangingDialog = earlier;
  return done;
}
