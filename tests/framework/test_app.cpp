#include "test_app.h"

#include <cstdlib>

IMPLEMENT_DYNAMIC(CTestApp, CWinApp)

namespace {
CTestApp g_app;
}

CTestApp& TheApp() { return g_app; }

CTestApp::CTestApp() = default;

void CTestApp::UseFile(LPCWSTR path) {
  std::free(const_cast<LPWSTR>(m_pszRegistryKey));
  m_pszRegistryKey = nullptr;
  std::free(const_cast<LPWSTR>(m_pszProfileName));
  m_pszProfileName = ::_wcsdup(path);
}

BOOL CTestApp::OnIdle(LONG lCount) {
  if (m_onIdle) m_onIdle(lCount);
  return CWinApp::OnIdle(lCount);
}

BOOL CTestApp::PreTranslateMessage(MSG* pMsg) {
  if (m_onTranslate && m_onTranslate(pMsg)) return TRUE;
  return CWinApp::PreTranslateMessage(pMsg);
}

int CTestApp::DoMessageBox(LPCWSTR lpszPrompt, UINT nType, UINT nIDPrompt) {
  return m_onMessageBox ? m_onMessageBox(lpszPrompt, nType)
                        : CWinApp::DoMessageBox(lpszPrompt, nType, nIDPrompt);
}
