// The loop of messages, idle time, message boxes, threads.
#include <afxpriv.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "support/driver.h"
#include "test_app.h"

namespace {

// Clears the test application's hooks at the end.
class CoreLoop : public testing::Test {
 protected:
  void TearDown() override {
    TheApp().m_onIdle = nullptr;
    TheApp().m_onTranslate = nullptr;
    TheApp().m_onMessageBox = nullptr;
    TheApp().m_pMainWnd = nullptr;
  }
};

class CLoopWnd : public CWnd {
 public:
  std::wstring m_log;

 protected:
  afx_msg LRESULT OnUser(WPARAM wParam, LPARAM) {
    m_log += static_cast<wchar_t>(wParam);
    return 0;
  }
  afx_msg void OnIdleUpdate() { m_log += L'u'; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CLoopWnd, CWnd)
  ON_MESSAGE(WM_APP, &CLoopWnd::OnUser)
  ON_MESSAGE_VOID(WM_IDLEUPDATECMDUI, &CLoopWnd::OnIdleUpdate)
END_MESSAGE_MAP()

bool Create(CLoopWnd& window) {
  return window.CreateEx(0, AfxRegisterWndClass(0), L"boucle", WS_POPUP | WS_VISIBLE, 10, 10, 100, 60,
                         nullptr, nullptr);
}

TEST_F(CoreLoop, WithoutAWindowItEndsAtOnce) { EXPECT_EQ(0, TheApp().Run()); }

TEST_F(CoreLoop, RunsMessagesAndReturnsTheExitCode) {
  CLoopWnd window;
  ASSERT_TRUE(Create(window));
  support::Pump();
  TheApp().m_pMainWnd = &window;
  window.PostMessage(WM_APP, L'a');
  window.PostMessage(WM_APP, L'b');
  TheApp().m_onIdle = [&](LONG count) {
    if (count == 1) AfxPostQuitMessage(7);
  };
  EXPECT_EQ(7, TheApp().Run());
  EXPECT_EQ(L"abu", window.m_log);
  window.DestroyWindow();
}

TEST_F(CoreLoop, DestroyingTheMainWindowEndsIt) {
  CLoopWnd window;
  ASSERT_TRUE(Create(window));
  TheApp().m_pMainWnd = &window;
  window.PostMessage(WM_CLOSE);
  EXPECT_EQ(0, TheApp().Run());
  EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST_F(CoreLoop, IdleCountsUpUntilNoMoreIsWanted) {
  CLoopWnd window;
  ASSERT_TRUE(Create(window));
  support::Pump();
  TheApp().m_pMainWnd = &window;
  std::vector<LONG> counts;
  TheApp().m_onIdle = [&](LONG count) { counts.push_back(count); };
  const support::Later again(30, [&] { window.PostMessage(WM_APP, L'x'); });
  const support::Later end(60, [] { AfxPostQuitMessage(0); });
  TheApp().Run();
  // Idle work starts anew after each message: none, the timer with its message, and so on.
  ASSERT_GE(counts.size(), 4u);
  EXPECT_EQ(0, counts[0]);
  EXPECT_EQ(1, counts[1]);
  EXPECT_EQ(0, counts[2]);
  for (const LONG count : counts) EXPECT_LT(count, 2);
  window.DestroyWindow();
}

TEST_F(CoreLoop, TranslatedMessagesAreNotDispatched) {
  CLoopWnd window;
  ASSERT_TRUE(Create(window));
  support::Pump();
  TheApp().m_pMainWnd = &window;
  TheApp().m_onTranslate = [](MSG* msg) { return msg->message == WM_APP && msg->wParam == L'b'; };
  for (const wchar_t letter : {L'a', L'b', L'c'}) window.PostMessage(WM_APP, letter);
  while (window.m_log != L"ac" && AfxPumpMessage()) {
  }
  EXPECT_EQ(L"ac", window.m_log);
  EXPECT_EQ(static_cast<UINT>(WM_APP), AfxGetCurrentMessage()->message);
  window.DestroyWindow();
}

TEST_F(CoreLoop, PaintingTimersAndAMouseAtRestAreNotIdleMessages) {
  MSG message = {};
  message.message = WM_PAINT;
  EXPECT_FALSE(AfxIsIdleMessage(&message));
  message.message = 0x0118;
  EXPECT_FALSE(AfxIsIdleMessage(&message));
  message.message = WM_KEYDOWN;
  EXPECT_TRUE(AfxIsIdleMessage(&message));
  message.message = WM_MOUSEMOVE;
  message.pt = {12345, 54321};
  EXPECT_TRUE(AfxIsIdleMessage(&message));
  EXPECT_FALSE(AfxIsIdleMessage(&message));
  message.pt.x = 0;
  EXPECT_TRUE(AfxIsIdleMessage(&message));
}

TEST_F(CoreLoop, AppExitClosesTheMainWindow) {
  CLoopWnd window;
  ASSERT_TRUE(Create(window));
  TheApp().m_pMainWnd = &window;
  EXPECT_TRUE(TheApp().OnCmdMsg(ID_APP_EXIT, CN_COMMAND, nullptr, nullptr));
  EXPECT_EQ(nullptr, window.m_hWnd);
  TheApp().m_pMainWnd = nullptr;
  MSG quit;
  while (::PeekMessageW(&quit, nullptr, 0, 0, PM_REMOVE)) {
  }
}

// ---- Exceptions in handlers --------------------------------------------------------------------------

TEST_F(CoreLoop, LostExceptionsAreReportedExceptTheUsers) {
  int boxes = 0;
  TheApp().m_onMessageBox = [&](LPCWSTR, UINT) {
    ++boxes;
    return IDOK;
  };
  CMemoryException memory(FALSE, L"mémoire");
  CUserException user(FALSE);
  MSG message = {};
  message.message = WM_COMMAND;
  EXPECT_EQ(TRUE, AfxProcessWndProcException(&memory, &message));
  EXPECT_EQ(1, boxes);
  AfxProcessWndProcException(&user, &message);
  EXPECT_EQ(1, boxes);
  message.message = WM_CREATE;
  EXPECT_EQ(-1, AfxProcessWndProcException(&memory, &message));
  EXPECT_EQ(1, boxes);
}

// ---- Message boxes -----------------------------------------------------------------------------------

TEST_F(CoreLoop, MessageBoxesGoThroughTheApplication) {
  CString shown;
  UINT shownType = 0;
  TheApp().m_onMessageBox = [&](LPCWSTR text, UINT type) {
    shown = text;
    shownType = type;
    return IDYES;
  };
  EXPECT_EQ(IDYES, AfxMessageBox(L"Question ?", MB_YESNO));
  EXPECT_STREQ(L"Question ?", shown);
  EXPECT_EQ(static_cast<UINT>(MB_YESNO), shownType);
  EXPECT_EQ(IDYES, AfxMessageBox(1000));
  EXPECT_STREQ(L"Éléments du programme", shown);
}

TEST_F(CoreLoop, TheBoxBearsTheApplicationsName) {
  std::wstring caption;
  const support::Later answer(50, [&] {
    wchar_t text[64] = L"";
    const HWND box = ::GetForegroundWindow();
    ::GetWindowTextW(box, text, 64);
    caption = text;
    ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
  });
  EXPECT_EQ(IDCANCEL, AfxMessageBox(L"Annuler ?", MB_OKCANCEL));
  EXPECT_EQ(L"Essais du cadre", caption);
}

// ---- Cursors -----------------------------------------------------------------------------------------

TEST_F(CoreLoop, TheWaitCursorNests) {
  const HCURSOR arrow = ::LoadCursorW(nullptr, IDC_ARROW);
  const HCURSOR wait = ::LoadCursorW(nullptr, IDC_WAIT);
  ::SetCursor(arrow);
  TheApp().DoWaitCursor(1);
  EXPECT_EQ(wait, ::GetCursor());
  TheApp().DoWaitCursor(1);
  TheApp().DoWaitCursor(-1);
  EXPECT_EQ(wait, ::GetCursor());
  ::SetCursor(arrow);
  TheApp().DoWaitCursor(0);
  EXPECT_EQ(wait, ::GetCursor());
  TheApp().DoWaitCursor(-1);
  EXPECT_EQ(arrow, ::GetCursor());
  EXPECT_NE(nullptr, TheApp().LoadStandardCursor(IDC_IBEAM));
  EXPECT_NE(nullptr, TheApp().LoadStandardIcon(IDI_APPLICATION));
  EXPECT_EQ(nullptr, TheApp().LoadCursor(12345));
  EXPECT_EQ(nullptr, TheApp().LoadIcon(12345));
}

// ---- Threads -----------------------------------------------------------------------------------------

// Waits for a thread that stays suspended or keeps its object.
DWORD ExitCodeOf(CWinThread* thread) {
  ::WaitForSingleObject(thread->m_hThread, 5000);
  DWORD code = 0;
  ::GetExitCodeThread(thread->m_hThread, &code);
  return code;
}

CWinThread* Begin(AFX_THREADPROC procedure, LPVOID parameter) {
  CWinThread* const thread =
      AfxBeginThread(procedure, parameter, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
  thread->m_bAutoDelete = FALSE;
  return thread;
}

TEST(CoreThread, RunsAFunction) {
  std::atomic<CWinThread*> seen = nullptr;
  const std::unique_ptr<CWinThread> thread(Begin(
      [](LPVOID p) -> UINT {
        *static_cast<std::atomic<CWinThread*>*>(p) = AfxGetThread();
        return 21;
      },
      &seen));
  EXPECT_EQ(nullptr, seen.load());
  thread->ResumeThread();
  EXPECT_EQ(21u, ExitCodeOf(thread.get()));
  EXPECT_EQ(thread.get(), seen.load());
  EXPECT_NE(::GetCurrentThreadId(), thread->m_nThreadID);
}

TEST(CoreThread, EndThreadDestroysLocals) {
  static std::atomic<int> destroyed;
  destroyed = 0;
  const std::unique_ptr<CWinThread> thread(Begin(
      [](LPVOID) -> UINT {
        struct Local {
          ~Local() { ++destroyed; }
        } local;
        AfxEndThread(5);
        return 1;
      },
      nullptr));
  thread->ResumeThread();
  EXPECT_EQ(5u, ExitCodeOf(thread.get()));
  EXPECT_EQ(1, destroyed);
}

class CLoopThread : public CWinThread {
  DECLARE_DYNCREATE(CLoopThread)

 public:
  CLoopThread() = default;
  std::atomic<int> m_received = 0;
  BOOL InitInstance() override { return TRUE; }

 protected:
  afx_msg void OnWork(WPARAM wParam, LPARAM) {
    m_received += static_cast<int>(wParam);
    AfxPostQuitMessage(m_received);
  }
  DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNCREATE(CLoopThread, CWinThread)

BEGIN_MESSAGE_MAP(CLoopThread, CWinThread)
  ON_THREAD_MESSAGE(WM_APP, &CLoopThread::OnWork)
END_MESSAGE_MAP()

TEST(CoreThread, ALoopTakesMessagesPostedToTheThread) {
  const std::unique_ptr<CLoopThread> thread(static_cast<CLoopThread*>(
      AfxBeginThread(RUNTIME_CLASS(CLoopThread), THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED)));
  thread->m_bAutoDelete = FALSE;
  thread->ResumeThread();
  while (!thread->PostThreadMessage(WM_APP, 33, 0)) ::Sleep(1);  // until its queue is there
  EXPECT_EQ(33u, ExitCodeOf(thread.get()));
  EXPECT_EQ(33, thread->m_received);
}

TEST(CoreThread, RefusesWhatIsNoThread) {
  EXPECT_THROW(AfxBeginThread(RUNTIME_CLASS(CObject)), CInvalidArgException*);
  EXPECT_THROW(AfxBeginThread(static_cast<AFX_THREADPROC>(nullptr), nullptr), CInvalidArgException*);
}

}  // namespace
