#include "gallery_app.h"

#include <VornComCtl.h>

#include "main_frame.h"
#include "resource.h"
#include "screenshot.h"

namespace {
CGalleryApp g_app;
}

BOOL CGalleryApp::InitInstance() {
  m_commandLine = ParseCommandLine(m_lpCmdLine);
  if (!AfxInitVornComCtl()) {
    AfxMessageBox(L"La bibliothèque VornComCtl n'a pas pu être initialisée.", MB_ICONSTOP);
    return FALSE;
  }
  auto* const frame = new CMainFrame(m_commandLine);  // deletes itself with its window
  if (!frame->LoadFrame(IDR_MAINFRAME)) return FALSE;
  m_pMainWnd = frame;
  frame->ShowWindow(m_nCmdShow);
  frame->UpdateWindow();
  return TRUE;
}

BOOL CGalleryApp::OnIdle(LONG lCount) {
  const BOOL more = CWinApp::OnIdle(lCount);
  if (more || m_commandLine.screenshot.IsEmpty() || m_pMainWnd == nullptr) return more;
  // Everything has been painted and brought up to date: this is what a person would see.
  m_failed = !SaveScreenshot(m_pMainWnd->m_hWnd, m_commandLine.screenshot);
  m_commandLine.screenshot.Empty();
  m_pMainWnd->PostMessage(WM_CLOSE);
  return FALSE;
}

int CGalleryApp::ExitInstance() {
  const int code = CWinApp::ExitInstance();
  return m_failed ? 1 : code;
}
