// CDialog: boxes from templates.
#include "wnd_access.h"

using framework::HandleOf;
using framework::OrOnException;

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
  ON_COMMAND(IDOK, &CDialog::OnOK)
  ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
  ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
END_MESSAGE_MAP()

CDialog::CDialog() : CDialog(static_cast<LPCWSTR>(nullptr), nullptr) {}

CDialog::CDialog(LPCWSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_lpDialogTemplate(nullptr), m_pParentWnd(pParentWnd) {}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(MAKEINTRESOURCEW(nIDTemplate), pParentWnd) {}

CDialog::~CDialog() = default;

// ---- Creation ------------------------------------------------------------------------------------

namespace {

// The dialog procedure of every CDialog: the window procedure has had the message already.
INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM, LPARAM) {
  if (message != WM_INITDIALOG) return FALSE;
  CDialog* const dialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(window));
  if (dialog == nullptr) return TRUE;
  // The system calls here: no exception may leave.
  constexpr int failed = -1;
  const int result = OrOnException([dialog] { return dialog->OnInitDialog(); }, failed);
  if (result == failed && CWnd::FromHandlePermanent(window) == dialog) dialog->EndDialog(failed);
  return result != FALSE;
}

// A template of the resources, and the module that it lies in.
struct Template {
  HINSTANCE module;
  const DLGTEMPLATE* data;
};

Template LoadTemplate(LPCWSTR name) {
  const LPCWSTR dialogType = MAKEINTRESOURCEW(5);
  const HINSTANCE module = AfxFindResourceHandle(name, dialogType);
  const HRSRC resource = ::FindResourceW(module, name, dialogType);
  if (resource == nullptr) return {module, nullptr};
  return {module, static_cast<const DLGTEMPLATE*>(::LockResource(::LoadResource(module, resource)))};
}

}  // namespace

HWND CDialog::FindOwner() const {
  HWND owner = HandleOf(m_pParentWnd != nullptr ? m_pParentWnd : AfxGetMainWnd());
  while (owner != nullptr && (::GetWindowLongPtrW(owner, GWL_STYLE) & WS_CHILD) != 0) {
    owner = ::GetParent(owner);
  }
  // A box above the main window is itself the one to belong to.
  return m_pParentWnd == nullptr && owner != nullptr ? ::GetLastActivePopup(owner) : owner;
}

BOOL CDialog::CreateFromTemplate(const DLGTEMPLATE* pTemplate, HWND hWndOwner, HINSTANCE hInst) {
  if (pTemplate == nullptr || m_hWnd != nullptr) return FALSE;
  if (!framework::BeginCreation(this)) return FALSE;
  const HWND created = ::CreateDialogIndirectParamW(hInst, pTemplate, hWndOwner, &DialogProc, 0);
  if (!framework::EndCreation()) PostNcDestroy();
  return created != nullptr;
}

BOOL CDialog::Create(LPCWSTR lpszTemplateName, CWnd* pParentWnd) {
  m_lpszTemplateName = lpszTemplateName;
  const Template found = LoadTemplate(lpszTemplateName);
  m_pParentWnd = pParentWnd != nullptr ? pParentWnd : AfxGetMainWnd();
  return CreateFromTemplate(found.data, HandleOf(m_pParentWnd), found.module);
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd) {
  return Create(MAKEINTRESOURCEW(nIDTemplate), pParentWnd);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* lpDialogTemplate, CWnd* pParentWnd) {
  m_pParentWnd = pParentWnd != nullptr ? pParentWnd : AfxGetMainWnd();
  return CreateFromTemplate(lpDialogTemplate, HandleOf(m_pParentWnd), AfxGetInstanceHandle());
}

BOOL CDialog::InitModalIndirect(const DLGTEMPLATE* lpDialogTemplate, CWnd* pParentWnd) {
  m_lpDialogTemplate = lpDialogTemplate;
  if (m_pParentWnd == nullptr) m_pParentWnd = pParentWnd;
  return TRUE;
}

// ---- The modal run -------------------------------------------------------------------------------

INT_PTR CDialog::DoModal() {
  constexpr int failed = -1;
  const Template found = m_lpDialogTemplate != nullptr ? Template{AfxGetInstanceHandle(), m_lpDialogTemplate}
                                                       : LoadTemplate(m_lpszTemplateName);
  if (found.data == nullptr || m_hWnd != nullptr) return failed;

  const HWND owner = FindOwner();
  const bool disabled = owner != nullptr && owner != ::GetDesktopWindow() && ::IsWindowEnabled(owner);
  if (disabled) ::EnableWindow(owner, FALSE);
  m_nModalResult = failed;
  // From now on, so that OnInitDialog may end the dialog.
  m_nFlags |= WF_CONTINUEMODAL;

  OrOnException(
      [&] {
        if (!CreateFromTemplate(found.data, owner, found.module)) return false;
        if ((m_nFlags & WF_CONTINUEMODAL) == 0) return true;
        constexpr DWORD silent = 0x0100;  // DS_NOIDLEMSG
        RunModalLoop(MLF_SHOWONIDLE | ((GetStyle() & silent) != 0 ? MLF_NOIDLEMSG : 0));
        return true;
      },
      false);

  m_nFlags &= ~static_cast<UINT>(WF_CONTINUEMODAL | WF_MODALLOOP);
  if (m_hWnd != nullptr) {
    SetWindowPos(nullptr, 0, 0, 0, 0,
                 SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
  }
  if (disabled) ::EnableWindow(owner, TRUE);
  if (owner != nullptr && ::GetActiveWindow() == m_hWnd) ::SetActiveWindow(owner);
  DestroyWindow();
  return m_nModalResult;
}

void CDialog::EndDialog(int nResult) {
  if ((m_nFlags & (WF_MODALLOOP | WF_CONTINUEMODAL)) != 0) EndModalLoop(nResult);
  if (m_hWnd != nullptr) ::EndDialog(m_hWnd, nResult);
}

// ---- Messages ------------------------------------------------------------------------------------

void CDialog::PreInitDialog() {}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
  PreInitDialog();
  const bool wasVisible = (GetStyle() & WS_VISIBLE) != 0;
  CRect before;
  GetWindowRect(&before);
  const HWND window = m_hWnd;
  const LRESULT result = Default();
  if (FromHandlePermanent(window) != this) return result;

  // A box that nobody has placed or shown yet goes to the middle.
  CRect after;
  GetWindowRect(&after);
  const bool untouched = !wasVisible && (GetStyle() & WS_VISIBLE) == 0 && before == after;
  if (untouched && (GetStyle() & WS_CHILD) == 0 && CheckAutoCenter()) CenterWindow();
  return result;
}

BOOL CDialog::CheckAutoCenter() {
  const DLGTEMPLATE* const found = m_lpDialogTemplate != nullptr   ? m_lpDialogTemplate
                                   : m_lpszTemplateName != nullptr ? LoadTemplate(m_lpszTemplateName).data
                                                                   : nullptr;
  if (found == nullptr) return TRUE;
  // Extended templates begin with 1 and 0xFFFF, help id, extended style, style; then the count and the place.
  const auto* const words = reinterpret_cast<const WORD*>(found);
  const bool extended = words[0] == 1 && words[1] == 0xFFFF;
  const DWORD style = extended ? words[6] | static_cast<DWORD>(words[7]) << 16 : found->style;
  const bool atOrigin = extended ? words[9] == 0 && words[10] == 0 : found->x == 0 && found->y == 0;
  constexpr DWORD placed = DS_CENTER | 0x1000 /* DS_CENTERMOUSE */ | DS_ABSALIGN;
  return (style & placed) == 0 && atOrigin;
}

BOOL CDialog::OnInitDialog() {
  if (UpdateData(FALSE)) return TRUE;
  EndDialog(-1);
  return FALSE;
}

void CDialog::OnOK() {
  if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

BOOL CDialog::PreTranslateMessage(MSG* pMsg) {
  if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
  // The keys of the frames come first: the dialog would take them.
  for (CFrameWnd* frame = GetTopLevelFrame(); frame != nullptr; frame = frame->GetParentFrame()) {
    if (frame->PreTranslateMessage(pMsg)) return TRUE;
  }
  const bool key = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
  const bool mouse = pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST;
  return (key || mouse) && m_hWnd != nullptr && ::IsDialogMessageW(m_hWnd, pMsg);
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  // Only commands travel on, not the ids of controls.
  const bool command = nCode == CN_COMMAND || static_cast<UINT>(nCode) == CN_UPDATE_COMMAND_UI;
  if (!command || (nID & 0x8000) == 0 || nID >= 0xF000) return FALSE;
  if (CWnd* const parent = GetParent()) {
    if (parent->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  }
  CWinThread* const thread = AfxGetThread();
  return thread != nullptr && thread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

// ---- Small forwards ------------------------------------------------------------------------------

void CDialog::MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }
void CDialog::NextDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 0, 0); }
void CDialog::PrevDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 1, 0); }

void CDialog::GotoDlgCtrl(CWnd* pWndCtrl) {
  ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(HandleOf(pWndCtrl)), 1);
}

void CDialog::SetDefID(UINT nID) { SendMessage(DM_SETDEFID, nID); }
DWORD CDialog::GetDefID() const { return static_cast<DWORD>(::SendMessageW(m_hWnd, DM_GETDEFID, 0, 0)); }
