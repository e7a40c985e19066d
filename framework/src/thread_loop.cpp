// CWinThread: the loop of messages and idle work.
#include "afxpriv.h"
#include "afxwin.h"
#include "thread_state.h"

using framework::CurrentThread;

namespace {

// The system's own timer (caret, scrolling in menus); the headers do not name it.
constexpr UINT kSystemTimer = 0x0118;

// What a loop in a thread without an object does; an object adds its overrides.
BOOL PumpOne() {
  MSG& msg = CurrentThread().messageOfLoop;
  if (!::GetMessageW(&msg, nullptr, 0, 0)) return FALSE;
  if (AfxPreTranslateMessage(&msg)) return TRUE;
  ::TranslateMessage(&msg);
  ::DispatchMessageW(&msg);
  return TRUE;
}

BOOL MayLeadToIdle(const MSG& msg) {
  if (msg.message == WM_PAINT || msg.message == kSystemTimer) return FALSE;
  if (msg.message != WM_MOUSEMOVE && msg.message != WM_NCMOUSEMOVE) return TRUE;
  // The system repeats the move of a mouse at rest.
  framework::ThreadState& state = CurrentThread();
  if (msg.message == state.lastMouseMessage && msg.pt.x == state.lastMousePosition.x &&
      msg.pt.y == state.lastMousePosition.y) {
    return FALSE;
  }
  state.lastMousePosition = msg.pt;
  state.lastMouseMessage = msg.message;
  return TRUE;
}

void UpdateCommandsOf(CWnd* window) {
  if (window == nullptr || window->m_hWnd == nullptr || !window->IsWindowVisible()) return;
  ::SendMessageW(window->m_hWnd, WM_IDLEUPDATECMDUI, TRUE, 0);
  window->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE, 0, TRUE, TRUE);
}

// The thread's frames beside the main window: floating bars, further documents.
BOOL CALLBACK UpdateCommandsOfFrame(HWND handle, LPARAM mainWindow) {
  CWnd* const window = CWnd::FromHandlePermanent(handle);
  if (window == nullptr || handle == reinterpret_cast<HWND>(mainWindow)) return TRUE;
  if (window->IsKindOf(RUNTIME_CLASS(CFrameWnd))) UpdateCommandsOf(window);
  return TRUE;
}

LRESULT CALLBACK FilterHook(int code, WPARAM wParam, LPARAM lParam) {
  const framework::ThreadState& state = CurrentThread();
  if (code >= 0 && state.thread != nullptr &&
      state.thread->ProcessMessageFilter(code, reinterpret_cast<LPMSG>(lParam))) {
    return 1;
  }
  return ::CallNextHookEx(state.messageFilterHook, code, wParam, lParam);
}

}  // namespace

void framework::BeginMessageFilter() {
  ThreadState& state = CurrentThread();
  if (state.messageFilterHook != nullptr) return;
  state.messageFilterHook = ::SetWindowsHookExW(WH_MSGFILTER, &FilterHook, nullptr, ::GetCurrentThreadId());
}

void framework::EndMessageFilter() {
  ThreadState& state = CurrentThread();
  if (state.messageFilterHook != nullptr) ::UnhookWindowsHookEx(state.messageFilterHook);
  state.messageFilterHook = nullptr;
}

BOOL CWinThread::InitInstance() { return FALSE; }

int CWinThread::Run() {
  MSG& msg = CurrentThread().messageOfLoop;
  BOOL idle = TRUE;
  LONG idleCount = 0;
  for (;;) {
    while (idle && !::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
      if (!OnIdle(idleCount++)) idle = FALSE;
    }
    do {
      if (!PumpMessage()) return ExitInstance();
      if (IsIdleMessage(&msg)) {
        idle = TRUE;
        idleCount = 0;
      }
    } while (::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
  }
}

BOOL CWinThread::PumpMessage() { return PumpOne(); }

BOOL CWinThread::PreTranslateMessage(MSG* pMsg) {
  if (pMsg->hwnd == nullptr) {
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr) {
      for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry) {
        const UINT wanted = entry->pRegistered != nullptr ? *entry->pRegistered : entry->nMessage;
        if (wanted != pMsg->message || entry->nID != 0) continue;
        vornfw::Call call = {pMsg->message, pMsg->wParam, pMsg->lParam, 0, 0, nullptr, nullptr};
        entry->pfn(this, call);
        return TRUE;
      }
    }
    return FALSE;
  }
  CWnd* const mainWindow = GetMainWnd();
  const HWND top = mainWindow != nullptr ? mainWindow->m_hWnd : nullptr;
  if (CWnd::WalkPreTranslateTree(top, pMsg)) return TRUE;
  // Messages of other top-level windows, such as modeless dialogs, concern the main window as well.
  if (mainWindow == nullptr || ::IsChild(top, pMsg->hwnd) || top == pMsg->hwnd) return FALSE;
  CWnd* const window = CWnd::FromHandle(pMsg->hwnd);
  if (window == nullptr || window->GetTopLevelParent() == mainWindow) return FALSE;
  return mainWindow->PreTranslateMessage(pMsg);
}

BOOL CWinThread::OnIdle(LONG lCount) {
  if (lCount <= 0) {
    CWnd* const mainWindow = m_pMainWnd;
    UpdateCommandsOf(mainWindow);
    const HWND handle = mainWindow != nullptr ? mainWindow->m_hWnd : nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &UpdateCommandsOfFrame, reinterpret_cast<LPARAM>(handle));
  } else {
    // Nobody is in the middle of a message now: wrappers made along the way can go.
    AfxLockTempMaps();
    AfxUnlockTempMaps();
  }
  return lCount < 0;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg) { return MayLeadToIdle(*pMsg); }

int CWinThread::ExitInstance() {
  const MSG& msg = CurrentThread().messageOfLoop;
  return msg.message == WM_QUIT ? static_cast<int>(msg.wParam) : 0;
}

LRESULT CWinThread::ProcessWndProcException(CException*, const MSG* pMsg) {
  if (pMsg->message == WM_CREATE) return -1;
  // Else the window would ask to be painted, and fail, for ever.
  if (pMsg->message == WM_PAINT) ::ValidateRect(pMsg->hwnd, nullptr);
  return 0;
}

BOOL CWinThread::ProcessMessageFilter(int, LPMSG) { return FALSE; }

CWnd* CWinThread::GetMainWnd() { return m_pActiveWnd != nullptr ? m_pActiveWnd : m_pMainWnd; }

// ---- The steps for any thread --------------------------------------------------------------------------

MSG* AfxGetCurrentMessage() { return &CurrentThread().messageOfLoop; }

BOOL AfxPumpMessage() {
  CWinThread* const thread = CurrentThread().thread;
  return thread != nullptr ? thread->PumpMessage() : PumpOne();
}

BOOL AfxPreTranslateMessage(MSG* pMsg) {
  CWinThread* const thread = CurrentThread().thread;
  return thread != nullptr ? thread->PreTranslateMessage(pMsg) : CWnd::WalkPreTranslateTree(nullptr, pMsg);
}

BOOL AfxIsIdleMessage(MSG* pMsg) {
  CWinThread* const thread = CurrentThread().thread;
  return thread != nullptr ? thread->IsIdleMessage(pMsg) : MayLeadToIdle(*pMsg);
}

LRESULT AfxProcessWndProcException(CException* e, const MSG* pMsg) {
  CWinThread* const thread = CurrentThread().thread;
  if (thread != nullptr) return thread->ProcessWndProcException(e, pMsg);
  return CWinThread().ProcessWndProcException(e, pMsg);
}

void AfxPostQuitMessage(int nExitCode) { ::PostQuitMessage(nExitCode); }
