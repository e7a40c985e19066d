// CFrameWnd: the window around an application's document, with menu, accelerators and bars.
// Included by <afxwin.h>.
#pragma once

#include <afxcoll.h>
#include <afxwnd.h>

class CControlBar;

// Frame styles beside the window styles.
#define FWS_ADDTOTITLE 0x00008000L  // the title is made of the application's and the document's
#define FWS_PREFIXTITLE 0x00004000L
#define FWS_SNAPTOBARS 0x00002000L  // as large as the bars inside

// What a frame's client window is made with; for hosts that pass it through.
struct CCreateContext {
  CRuntimeClass* m_pNewViewClass = nullptr;
  class CDocument* m_pCurrentDoc = nullptr;
  class CDocTemplate* m_pNewDocTemplate = nullptr;
  class CView* m_pLastView = nullptr;
  CFrameWnd* m_pCurrentFrame = nullptr;
};

class VORNFW_API CFrameWnd : public CWnd {
  DECLARE_DYNCREATE(CFrameWnd)

 public:
  static const CRect rectDefault;  // place and size by the system

  CFrameWnd();
  ~CFrameWnd() override;

  HACCEL m_hAccelTable;
  BOOL m_bAutoMenuEnable;  // commands without a handler are greyed
  BOOL m_bAutoDelete;      // the object deletes itself when its window is gone (default)

  // lpszMenuName is a menu resource, null for none.
  virtual BOOL Create(LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                      const RECT& rect = rectDefault, CWnd* pParentWnd = nullptr,
                      LPCWSTR lpszMenuName = nullptr, DWORD dwExStyle = 0,
                      CCreateContext* pContext = nullptr);
  // From the resources nIDResource: menu, accelerators, icon and title (string up to its first newline).
  virtual BOOL LoadFrame(UINT nIDResource, DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                         CWnd* pParentWnd = nullptr, CCreateContext* pContext = nullptr);
  BOOL LoadAccelTable(LPCWSTR lpszResourceName);

  // Lays the bars out around the client window (id AFX_IDW_PANE_FIRST).
  virtual void RecalcLayout(BOOL bNotify = TRUE);
  virtual void ActivateFrame(int nCmdShow = -1);
  // Where the text of a menu item or of the idle state goes.
  virtual CWnd* GetMessageBar();
  virtual void GetMessageString(UINT nID, CString& rMessage) const;
  void SetMessageText(LPCWSTR lpszText);
  void SetMessageText(UINT nID);
  BOOL IsTracking() const;
  CString GetTitle() const;
  void SetTitle(LPCWSTR lpszTitle);

  // Control bars.
  CControlBar* GetControlBar(UINT nID);
  // Shows or hides a bar; bDelay leaves the layout to the next idle time.
  void ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL bDelay);
  CPtrList m_listControlBars;

  BOOL PreTranslateMessage(MSG* pMsg) override;
  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

 protected:
  // Makes the client window. 0 stops the creation of the frame.
  virtual BOOL OnCreateClient(LPCREATESTRUCTW lpcs, CCreateContext* pContext);
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  void PostNcDestroy() override;
  int OnCreateHelper(LPCREATESTRUCTW lpcs, CCreateContext* pContext);
  LPCWSTR GetIconWndClass(DWORD dwDefaultStyle, UINT nIDResource);

  afx_msg int OnCreate(LPCREATESTRUCTW lpCreateStruct);
  afx_msg void OnDestroy();
  afx_msg void OnClose();
  afx_msg void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu);
  afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
  afx_msg LRESULT OnSetMessageString(WPARAM wParam, LPARAM lParam);
  afx_msg void OnIdleUpdateCmdUI();
  afx_msg void OnSize(UINT nType, int cx, int cy);

  UINT m_nIDTracking;     // command whose text is shown
  UINT m_nIDLastMessage;  // last one asked for by WM_SETMESSAGESTRING
  BOOL m_bInRecalcLayout;
  BOOL m_bLayoutWanted;  // at idle time
  CString m_strTitle;
  HMENU m_hMenuDefault;

  DECLARE_MESSAGE_MAP()
};
