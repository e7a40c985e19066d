// The gallery's frame window: menu, pages, status bar.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "client_view.h"

class CMainFrame : public CFrameWnd {
  DECLARE_DYNAMIC(CMainFrame)

 public:
  explicit CMainFrame(const CommandLine& commandLine);

 protected:
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  afx_msg int OnCreate(LPCREATESTRUCTW lpCreateStruct);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnSize(UINT nType, int cx, int cy);
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

  CClientView m_view;
  CStatusBar m_statusBar;
  CSize m_size;
};
