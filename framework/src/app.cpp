// CWinApp: the application object, its names, its resources and its message boxes.
#include "afxwin.h"
#include "thread_state.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>

namespace {

// Hosts may replace these names, so they are allocated as the C library does.
void Replace(LPCWSTR& name, LPCWSTR text) {
  std::free(const_cast<LPWSTR>(name));
  name = text != nullptr ? ::_wcsdup(text) : nullptr;
}

CString ProgramPath() {
  wchar_t path[MAX_PATH + 1] = {};
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  return path;
}

// The file name without its folder and extension.
CString Stem(const CString& path) {
  const int slash =
      path.FindOneOf(L"\\/") < 0 ? -1 : std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/'));
  const CString file = path.Mid(slash + 1);
  const int dot = file.ReverseFind(L'.');
  return dot > 0 ? file.Left(dot) : file;
}

// The icon that goes with the buttons, where none was asked for.
UINT WithIcon(UINT type) {
  if ((type & MB_ICONMASK) != 0) return type;
  switch (type & MB_TYPEMASK) {
    case MB_YESNO:
    case MB_YESNOCANCEL: return type | MB_ICONQUESTION;
    case MB_OK:
    case MB_OKCANCEL:
    case MB_ABORTRETRYIGNORE:
    case MB_RETRYCANCEL: return type | MB_ICONEXCLAMATION;
    default: return type;
  }
}

}  // namespace

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

BEGIN_MESSAGE_MAP(CWinApp, CWinThread)
  ON_COMMAND(ID_APP_EXIT, &CWinApp::OnAppExit)
END_MESSAGE_MAP()

CWinApp::CWinApp(LPCWSTR lpszAppName)
    : m_hInstance(AfxGetStaticModuleState()->m_hCurrentInstanceHandle),
      m_hPrevInstance(nullptr),
      m_lpCmdLine(nullptr),
      m_nCmdShow(SW_SHOWDEFAULT),
      m_pszAppName(nullptr),
      m_pszExeName(nullptr),
      m_pszHelpFilePath(nullptr),
      m_pszProfileName(nullptr),
      m_pszRegistryKey(nullptr),
      m_nWaitCursorCount(0),
      m_hcurWaitCursorRestore(nullptr) {
  m_bAutoDelete = FALSE;
  m_hThread = ::GetCurrentThread();
  m_nThreadID = ::GetCurrentThreadId();
  FillNames(lpszAppName);
  AFX_MODULE_STATE* const state = AfxGetModuleState();
  state->m_pCurrentWinApp = this;
  state->m_lpszCurrentAppName = m_pszAppName;
  framework::CurrentThread().thread = this;
}

CWinApp::~CWinApp() {
  AFX_MODULE_STATE* const state = AfxGetStaticModuleState();
  if (state->m_lpszCurrentAppName == m_pszAppName) state->m_lpszCurrentAppName = nullptr;
  if (state->m_pCurrentWinApp == this) state->m_pCurrentWinApp = nullptr;
  for (LPCWSTR* name :
       {&m_pszAppName, &m_pszExeName, &m_pszHelpFilePath, &m_pszProfileName, &m_pszRegistryKey}) {
    Replace(*name, nullptr);
  }
}

// Here and not at the program's start: an application object is of use without AfxWinInit too.
void CWinApp::FillNames(LPCWSTR lpszAppName) {
  const CString path = ProgramPath();
  const CString stem = Stem(path);
  Replace(m_pszExeName, stem);
  CString title(lpszAppName);
  if (title.IsEmpty() && !title.LoadString(AFX_IDS_APP_TITLE)) title = stem;
  Replace(m_pszAppName, title);
  const int dot = path.ReverseFind(L'.');
  Replace(m_pszHelpFilePath, (dot > 0 ? path.Left(dot) : path) + L".HLP");
  Replace(m_pszProfileName, stem + L".INI");
}

void CWinApp::SetRegistryKey(LPCWSTR lpszRegistryKey) {
  ENSURE_ARG(lpszRegistryKey != nullptr && *lpszRegistryKey != L'\0');
  Replace(m_pszRegistryKey, lpszRegistryKey);
  Replace(m_pszProfileName, m_pszAppName);
}

void CWinApp::SetRegistryKey(UINT nIDRegistryKey) {
  CString key;
  ENSURE_ARG(key.LoadString(nIDRegistryKey));
  SetRegistryKey(key.GetString());
}

// ---- The life of the program -----------------------------------------------------------------------------

BOOL CWinApp::InitApplication() { return TRUE; }
BOOL CWinApp::InitInstance() { return TRUE; }

int CWinApp::Run() {
  // Nothing could ever end the loop of a program without a window.
  if (m_pMainWnd == nullptr) AfxPostQuitMessage(0);
  return CWinThread::Run();
}

BOOL CWinApp::OnIdle(LONG lCount) {
  CWinThread::OnIdle(lCount);
  return lCount < 1;  // once for the commands, once for the wrappers
}

int CWinApp::ExitInstance() { return CWinThread::ExitInstance(); }

LRESULT CWinApp::ProcessWndProcException(CException* e, const MSG* pMsg) {
  if (pMsg->message == WM_CREATE || pMsg->message == WM_PAINT) {
    return CWinThread::ProcessWndProcException(e, pMsg);
  }
  // The user has been told already when a user exception is thrown.
  if (!e->IsKindOf(RUNTIME_CLASS(CUserException))) e->ReportError(MB_ICONSTOP);
  return pMsg->message == WM_COMMAND;
}

void CWinApp::OnAppExit() {
  if (m_pMainWnd != nullptr) m_pMainWnd->SendMessage(WM_CLOSE);
}

void CWinApp::DoWaitCursor(int nCode) {
  m_nWaitCursorCount = std::max(m_nWaitCursorCount + nCode, 0);
  if (m_nWaitCursorCount == 0) {
    ::SetCursor(m_hcurWaitCursorRestore);
    return;
  }
  const HCURSOR former = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
  if (nCode > 0 && m_nWaitCursorCount == 1) m_hcurWaitCursorRestore = former;
}

// ---- Resources ---------------------------------------------------------------------------------------

HCURSOR CWinApp::LoadCursor(LPCWSTR lpszResourceName) const {
  return ::LoadCursorW(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}
HCURSOR CWinApp::LoadCursor(UINT nIDResource) const { return LoadCursor(MAKEINTRESOURCEW(nIDResource)); }
HCURSOR CWinApp::LoadStandardCursor(LPCWSTR lpszCursorName) const {
  return ::LoadCursorW(nullptr, lpszCursorName);
}
HCURSOR CWinApp::LoadOEMCursor(UINT nIDCursor) const {
  return ::LoadCursorW(nullptr, MAKEINTRESOURCEW(nIDCursor));
}
HICON CWinApp::LoadIcon(LPCWSTR lpszResourceName) const {
  return ::LoadIconW(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}
HICON CWinApp::LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCEW(nIDResource)); }
HICON CWinApp::LoadStandardIcon(LPCWSTR lpszIconName) const { return ::LoadIconW(nullptr, lpszIconName); }

// ---- Message boxes -----------------------------------------------------------------------------------

int CWinApp::DoMessageBox(LPCWSTR lpszPrompt, UINT nType, UINT) {
  CWnd* const mainWindow = AfxGetMainWnd();
  HWND owner = mainWindow != nullptr ? ::GetLastActivePopup(mainWindow->m_hWnd) : ::GetActiveWindow();
  if (owner != nullptr && !::IsWindowVisible(owner)) owner = nullptr;
  const int cursors = m_nWaitCursorCount;
  m_nWaitCursorCount = 0;
  const int answer = ::MessageBoxW(owner, lpszPrompt, AfxGetAppName(), WithIcon(nType));
  m_nWaitCursorCount = cursors;
  if (cursors > 0) DoWaitCursor(0);
  return answer;
}

int AfxMessageBox(LPCWSTR lpszText, UINT nType, UINT nIDHelp) {
  CWinApp* const app = AfxGetApp();
  if (app != nullptr) return app->DoMessageBox(lpszText, nType, nIDHelp);
  return ::MessageBoxW(::GetActiveWindow(), lpszText, AfxGetAppName(), WithIcon(nType));
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp) {
  CString text;
  text.LoadString(nIDPrompt);
  return AfxMessageBox(text.GetString(), nType, nIDHelp == static_cast<UINT>(-1) ? nIDPrompt : nIDHelp);
}

namespace {

CString Formatted(UINT id, LPCWSTR first, LPCWSTR second) {
  CString format;
  format.LoadString(id);
  CString result;
  for (int i = 0; i < format.GetLength(); ++i) {
    const wchar_t which = format[i] == L'%' ? format[i + 1] : L'\0';
    if (which == L'1' || (which == L'2' && second != nullptr)) {
      result += which == L'1' ? first : second;
      ++i;
    } else {
      result += format[i];
    }
  }
  return result;
}

}  // namespace

void AfxFormatString1(CString& rString, UINT nIDS, LPCWSTR lpsz1) {
  rString = Formatted(nIDS, lpsz1, nullptr);
}

void AfxFormatString2(CString& rString, UINT nIDS, LPCWSTR lpsz1, LPCWSTR lpsz2) {
  rString = Formatted(nIDS, lpsz1, lpsz2);
}

// ---- The program -------------------------------------------------------------------------------------

CWinApp* AfxGetApp() {
  CWinApp* const app = AfxGetModuleState()->m_pCurrentWinApp;
  return app != nullptr ? app : AfxGetStaticModuleState()->m_pCurrentWinApp;
}

CWnd* AfxGetMainWnd() {
  CWinThread* const thread = AfxGetThread();
  return thread != nullptr ? thread->GetMainWnd() : nullptr;
}

LPCWSTR AfxGetAppName() {
  const CWinApp* const app = AfxGetApp();
  if (app != nullptr && app->m_pszAppName != nullptr) return app->m_pszAppName;
  static const CString* const stem = new CString(Stem(ProgramPath()));
  return *stem;
}

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow) {
  AFX_MODULE_STATE* const state = AfxGetModuleState();
  state->m_hCurrentInstanceHandle = hInstance;
  state->m_hCurrentResourceHandle = hInstance;
  CWinApp* const app = AfxGetApp();
  if (app == nullptr) return TRUE;
  app->m_hInstance = hInstance;
  app->m_hPrevInstance = hPrevInstance;
  app->m_lpCmdLine = lpCmdLine;
  app->m_nCmdShow = nCmdShow;
  return TRUE;
}

namespace {

int RunToTheEnd(CWinApp* app) {
  if (app->InitInstance()) return app->Run();
  if (app->m_pMainWnd != nullptr) app->m_pMainWnd->DestroyWindow();
  return app->ExitInstance();
}

}  // namespace

int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow) {
  CWinApp* const app = AfxGetApp();
  if (app == nullptr || !AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow)) return -1;
  if (!app->InitApplication()) return -1;
  framework::BeginMessageFilter();
  const int exitCode = RunToTheEnd(app);
  framework::EndMessageFilter();
  return exitCode;
}
