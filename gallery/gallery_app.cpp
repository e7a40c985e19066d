#include "gallery_app.h"

#include <VornComCtl.h>

#include "edit_menu.h"
#include "main_frame.h"
#include "resource.h"
#include "screenshot.h"

namespace {
CGalleryApp g_app;
}

BOOL CGalleryApp::InitInstance() {
  m_commandLine = ParseCommandLine(m_lpCmdLine);
  if (!AfxInitVornComCtl()) {
    AfxMessageBox(L"La bibliothèque VornComCtl n’a pas pu être initialisée.", MB_ICONSTOP);
    return FALSE;
  }
  VornTreeEditContextMenuSetCallback(&ShowEditMenu);
  auto* const frame = new CMainFrame(m_commandLine);  // deletes itself with its window
  if (!frame->LoadFrame(IDR_MAINFRAME)) return FALSE;
  m_pMainWnd = frame;
  frame->ShowWindow(m_nCmdShow);
  frame->UpdateWindow();
  frame->Start();
  return TRUE;
}

BOOL CGalleryApp::OnIdle(LONG lCount) {
  auto* const frame = DYNAMIC_DOWNCAST(CMainFrame, m_pMainWnd);
  const bool busy = frame != nullptr && frame->Idle();
  const BOOL more = CWinApp::OnIdle(lCount) || busy;
  if (more || m_commandLine.screenshot.IsEmpty() || m_pMainWnd == nullptr) return more;
  // Everything has been brought up to date; painted, it is what a person would see.
  m_pMainWnd->RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  m_failed = !SaveScreenshot(m_pMainWnd->m_hWnd, m_commandLine.screenshot);
  m_commandLine.screenshot.Empty();
  m_pMainWnd->PostMessage(WM_CLOSE);
  return FALSE;
}

int CGalleryApp::ExitInstance() {
  const int code = CWinApp::ExitInstance();
  return m_failed ? 1 : code;
}
