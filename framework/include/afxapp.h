// Threads and the application. Included by <afxwin.h>.
#pragma once

#include "afxtarget.h"
#include "afxstat_.h"

class CWinApp;
class CWinThread;
class CWnd;

// ---- CWinThread --------------------------------------------------------------------------------------

typedef UINT (*AFX_THREADPROC)(LPVOID);

// A thread that the framework knows: one with a loop of messages (override InitInstance), or one that
// runs a function.
class VORNFW_API CWinThread : public CCmdTarget {
  DECLARE_DYNAMIC(CWinThread)

 public:
  CWinThread();
  CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam);
  ~CWinThread() override;

  CWnd* m_pMainWnd;    // its destruction ends the loop
  CWnd* m_pActiveWnd;  // main window of an embedding, else null
  BOOL m_bAutoDelete;  // the object deletes itself when the thread ends
  HANDLE m_hThread;
  DWORD m_nThreadID;

  operator HANDLE() const { return m_hThread; }
  // Starts the thread of an object made by the host. CREATE_SUSPENDED waits for ResumeThread.
  BOOL CreateThread(DWORD dwCreateFlags = 0, UINT nStackSize = 0,
                    LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);
  DWORD ResumeThread() { return ::ResumeThread(m_hThread); }
  BOOL PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // FALSE ends the thread at once.
  virtual BOOL InitInstance();
  // The loop: idle work while nothing waits, then messages until WM_QUIT. Returns ExitInstance().
  virtual int Run();
  // Nonzero: the message has been dealt with and is not dispatched.
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  // Waits for one message and handles it; FALSE for WM_QUIT.
  virtual BOOL PumpMessage();
  // Called while no message waits, with a count from 0 since the last one; nonzero asks for more.
  virtual BOOL OnIdle(LONG lCount);
  // FALSE for messages after which idle work would be wasted (mouse at rest, caret, WM_PAINT).
  virtual BOOL IsIdleMessage(MSG* pMsg);
  // The exit code: the wParam of WM_QUIT.
  virtual int ExitInstance();
  // An exception that a handler let pass; the result becomes the message's. The caller deletes e.
  virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
  // Sees messages of dialogs, menus and scroll bars in their own loops (MSGF_ codes).
  virtual BOOL ProcessMessageFilter(int code, LPMSG lpMsg);
  virtual CWnd* GetMainWnd();
  virtual void Delete();

  DECLARE_MESSAGE_MAP()

 private:
  static DWORD WINAPI Entry(LPVOID pThread);
  DWORD RunHere();

  AFX_THREADPROC m_pfnThreadProc;
  LPVOID m_pThreadParams;
  BOOL m_bOwnsHandle;
};

// Start a thread of a function, or of a class derived from CWinThread. Null if the system refuses. All run
// at the normal priority: nPriority is not used.
VORNFW_API CWinThread* AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam,
                                      int nPriority = THREAD_PRIORITY_NORMAL, UINT nStackSize = 0,
                                      DWORD dwCreateFlags = 0,
                                      LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);
VORNFW_API CWinThread* AfxBeginThread(CRuntimeClass* pThreadClass, int nPriority = THREAD_PRIORITY_NORMAL,
                                      UINT nStackSize = 0, DWORD dwCreateFlags = 0,
                                      LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);
// Ends the calling thread, which AfxBeginThread or CreateThread started; local objects are destroyed.
VORNFW_API void AfxEndThread(UINT nExitCode, BOOL bDelete = TRUE);

VORNFW_API CWinThread* AfxGetThread();
VORNFW_API MSG* AfxGetCurrentMessage();
// The loop's steps for the calling thread, through its CWinThread if it has one.
VORNFW_API BOOL AfxPumpMessage();
VORNFW_API BOOL AfxPreTranslateMessage(MSG* pMsg);
VORNFW_API BOOL AfxIsIdleMessage(MSG* pMsg);
VORNFW_API LRESULT AfxProcessWndProcException(CException* e, const MSG* pMsg);
VORNFW_API void AfxPostQuitMessage(int nExitCode);

// ---- CWinApp -----------------------------------------------------------------------------------------

// The application: one static object per program.
class VORNFW_API CWinApp : public CWinThread {
  DECLARE_DYNAMIC(CWinApp)

 public:
  // Without a name the title is string AFX_IDS_APP_TITLE, or else the program's file name.
  explicit CWinApp(LPCWSTR lpszAppName = nullptr);
  ~CWinApp() override;

  HINSTANCE m_hInstance;
  HINSTANCE m_hPrevInstance;
  LPWSTR m_lpCmdLine;  // without the program's name
  int m_nCmdShow;
  // Allocated with malloc (_wcsdup): a host that replaces one frees the former with free.
  LPCWSTR m_pszAppName;
  LPCWSTR m_pszExeName;
  LPCWSTR m_pszHelpFilePath;
  LPCWSTR m_pszProfileName;  // the .ini file, or with a registry key the subkey
  LPCWSTR m_pszRegistryKey;  // null: the profile is a file

  HCURSOR LoadCursor(LPCWSTR lpszResourceName) const;
  HCURSOR LoadCursor(UINT nIDResource) const;
  HCURSOR LoadStandardCursor(LPCWSTR lpszCursorName) const;  // IDC_ARROW and so on
  HCURSOR LoadOEMCursor(UINT nIDCursor) const;
  HICON LoadIcon(LPCWSTR lpszResourceName) const;
  HICON LoadIcon(UINT nIDResource) const;
  HICON LoadStandardIcon(LPCWSTR lpszIconName) const;  // IDI_APPLICATION and so on

  // The profile. A null section is refused.
  UINT GetProfileInt(LPCWSTR lpszSection, LPCWSTR lpszEntry, int nDefault);
  BOOL WriteProfileInt(LPCWSTR lpszSection, LPCWSTR lpszEntry, int nValue);
  CString GetProfileString(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPCWSTR lpszDefault = nullptr);
  // A null value deletes the entry, a null entry the whole section.
  BOOL WriteProfileString(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPCWSTR lpszValue);
  // *ppData is allocated with new[] and becomes the caller's; FALSE leaves null and 0.
  BOOL GetProfileBinary(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPBYTE* ppData, UINT* pBytes);
  BOOL WriteProfileBinary(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPBYTE pData, UINT nBytes);
  // The keys behind the profile, null without a registry key; the caller closes them.
  HKEY GetAppRegistryKey();
  HKEY GetSectionKey(LPCWSTR lpszSection);

  virtual BOOL InitApplication();
  BOOL InitInstance() override;
  int Run() override;
  BOOL OnIdle(LONG lCount) override;
  int ExitInstance() override;
  LRESULT ProcessWndProcException(CException* e, const MSG* pMsg) override;
  // Every AfxMessageBox comes through here.
  virtual int DoMessageBox(LPCWSTR lpszPrompt, UINT nType, UINT nIDPrompt);
  // 1 shows the hourglass, -1 takes it back, 0 shows it again if it is due.
  virtual void DoWaitCursor(int nCode);

  DECLARE_MESSAGE_MAP()

 protected:
  // Moves the profile to HKEY_CURRENT_USER\Software\<key>\<application>.
  void SetRegistryKey(LPCWSTR lpszRegistryKey);
  void SetRegistryKey(UINT nIDRegistryKey);
  afx_msg void OnAppExit();

 private:
  void FillNames(LPCWSTR lpszAppName);

  int m_nWaitCursorCount;
  HCURSOR m_hcurWaitCursorRestore;
};

VORNFW_API CWinApp* AfxGetApp();
VORNFW_API CWnd* AfxGetMainWnd();
VORNFW_API LPCWSTR AfxGetAppName();
VORNFW_API int AfxMessageBox(LPCWSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
// The text is a string resource.
VORNFW_API int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));
// Replaces %1 (and %2) in a text, which may be a string resource.
VORNFW_API void AfxFormatString1(CString& rString, UINT nIDS, LPCWSTR lpsz1);
VORNFW_API void AfxFormatString2(CString& rString, UINT nIDS, LPCWSTR lpsz1, LPCWSTR lpsz2);

// Readies the framework for a program with an entry of its own; TRUE on success.
VORNFW_API BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow);
// The whole program: AfxWinInit, InitInstance, Run, ExitInstance of the application object.
VORNFW_API int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow);
