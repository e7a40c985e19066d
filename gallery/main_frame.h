// The gallery's frame window: menu, pages, status bar.
#pragma once

#include <afxcmn.h>
#include <afxext.h>
#include <afxwin.h>

#include "client_view.h"

class CMainFrame : public CFrameWnd {
  DECLARE_DYNAMIC(CMainFrame)

 public:
  explicit CMainFrame(const CommandLine& commandLine);

  // To be called once the frame is shown.
  void Start() { m_view.Start(); }
  // Work for idle time; true if there is more.
  bool Idle();
  CClientView& View() { return m_view; }

  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

 protected:
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  afx_msg int OnCreate(LPCREATESTRUCTW lpCreateStruct);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
  afx_msg void OnPage(UINT nID);
  afx_msg void OnUpdatePage(CCmdUI* pCmdUI);
  afx_msg void OnNextPage();
  afx_msg void OnPreviousPage();
  afx_msg void OnAbout();
  afx_msg void OnViewStatusBar();
  afx_msg void OnUpdateViewStatusBar(CCmdUI* pCmdUI);
  DECLARE_MESSAGE_MAP()

 private:
  void ShowPage(int page);
  void ShowText(int pane, const CString& text);
  void ShowProgress(int percent);

  CClientView m_view;
  CStatusBar m_statusBar;
  CProgressCtrl m_progress;  // over the last pane while there is something to show
  CSize m_size;
};
