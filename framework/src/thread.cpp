// CWinThread: starting and ending threads.
#include "afxwin.h"
#include "thread_state.h"

namespace {

// Unwinds a thread that asked for its end; caught where the thread began. No CException, so that no
// handler on the way takes it for an error.
struct EndOfThread {
  UINT exitCode;
  bool deleteObject;
};

}  // namespace

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

BEGIN_MESSAGE_MAP(CWinThread, CCmdTarget)
END_MESSAGE_MAP()

CWinThread::CWinThread() : CWinThread(nullptr, nullptr) {}

CWinThread::CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam)
    : m_pMainWnd(nullptr),
      m_pActiveWnd(nullptr),
      m_bAutoDelete(TRUE),
      m_hThread(nullptr),
      m_nThreadID(0),
      m_pfnThreadProc(pfnThreadProc),
      m_pThreadParams(pParam),
      m_bOwnsHandle(FALSE) {}

CWinThread::~CWinThread() {
  if (m_bOwnsHandle) ::CloseHandle(m_hThread);
  framework::ThreadState* const state = framework::CurrentThreadIfAny();
  if (state != nullptr && state->thread == this) state->thread = nullptr;
}

BOOL CWinThread::CreateThread(DWORD dwCreateFlags, UINT nStackSize, LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  if (m_hThread != nullptr) return FALSE;
  // Suspended in any case: the members must be there before the thread reads them or ends.
  m_hThread = ::CreateThread(lpSecurityAttrs, nStackSize, &CWinThread::Entry, this,
                             dwCreateFlags | CREATE_SUSPENDED, &m_nThreadID);
  if (m_hThread == nullptr) return FALSE;
  m_bOwnsHandle = TRUE;
  if ((dwCreateFlags & CREATE_SUSPENDED) == 0) ::ResumeThread(m_hThread);
  return TRUE;
}

DWORD WINAPI CWinThread::Entry(LPVOID pThread) {
  auto* const thread = static_cast<CWinThread*>(pThread);
  framework::CurrentThread().thread = thread;
  return thread->RunHere();
}

DWORD CWinThread::RunHere() {
  EndOfThread end = {0, true};
  framework::BeginMessageFilter();
  try {
    if (m_pfnThreadProc != nullptr) {
      end.exitCode = m_pfnThreadProc(m_pThreadParams);
    } else if (InitInstance()) {
      end.exitCode = static_cast<UINT>(Run());
    } else {
      end.exitCode = static_cast<UINT>(ExitInstance());
    }
  } catch (const EndOfThread& asked) {
    end = asked;
  }
  framework::EndMessageFilter();
  framework::CurrentThread().thread = nullptr;
  if (end.deleteObject) Delete();
  return end.exitCode;
}

BOOL CWinThread::PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::PostThreadMessageW(m_nThreadID, message, wParam, lParam);
}

void CWinThread::Delete() {
  if (m_bAutoDelete) delete this;
}

namespace {

CWinThread* Start(CWinThread* thread, UINT stackSize, DWORD flags, LPSECURITY_ATTRIBUTES attributes) {
  if (thread->CreateThread(flags, stackSize, attributes)) return thread;
  thread->Delete();
  return nullptr;
}

}  // namespace

CWinThread* AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam, int, UINT nStackSize,
                           DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  ENSURE_ARG(pfnThreadProc != nullptr);
  return Start(new CWinThread(pfnThreadProc, pParam), nStackSize, dwCreateFlags, lpSecurityAttrs);
}

CWinThread* AfxBeginThread(CRuntimeClass* pThreadClass, int, UINT nStackSize, DWORD dwCreateFlags,
                           LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  ENSURE_ARG(pThreadClass != nullptr && pThreadClass->IsDerivedFrom(RUNTIME_CLASS(CWinThread)));
  auto* const thread = static_cast<CWinThread*>(pThreadClass->CreateObject());
  if (thread == nullptr) AfxThrowMemoryException();
  return Start(thread, nStackSize, dwCreateFlags, lpSecurityAttrs);
}

void AfxEndThread(UINT nExitCode, BOOL bDelete) { throw EndOfThread{nExitCode, bDelete != FALSE}; }

CWinThread* AfxGetThread() {
  // The program's first thread belongs to the application object.
  CWinThread* const thread = framework::CurrentThread().thread;
  return thread != nullptr ? thread : AfxGetApp();
}
