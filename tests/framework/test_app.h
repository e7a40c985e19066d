// The application object of the test program.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>
#include <vector>

class CTestApp : public CWinApp {
  DECLARE_DYNAMIC(CTestApp)

 public:
  CTestApp();

  // Called, while set, in place of the base's (message box) or before it.
  std::function<int(LPCWSTR text, UINT type)> m_onMessageBox;
  std::function<void(LONG count)> m_onIdle;
  std::function<BOOL(MSG* message)> m_onTranslate;

  // The profile's place, which is protected in a real application.
  void UseRegistry(LPCWSTR key) { SetRegistryKey(key); }
  // Back to a file; null is the name of before.
  void UseFile(LPCWSTR path);

  BOOL OnIdle(LONG lCount) override;
  BOOL PreTranslateMessage(MSG* pMsg) override;
  int DoMessageBox(LPCWSTR lpszPrompt, UINT nType, UINT nIDPrompt) override;
};

CTestApp& TheApp();
