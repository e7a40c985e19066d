// Control bars: windows that a frame lays out along its edges.
#pragma once

#include <afxwin.h>

#include <vector>

class CDockBar;
class CDockContext;

// Styles of bars: sides where they lie (CBRS_ALIGN_), sides with a line (CBRS_BORDER_), and more.
#define CBRS_ALIGN_LEFT 0x1000L
#define CBRS_ALIGN_TOP 0x2000L
#define CBRS_ALIGN_RIGHT 0x4000L
#define CBRS_ALIGN_BOTTOM 0x8000L
#define CBRS_ALIGN_ANY 0xF000L
#define CBRS_BORDER_LEFT 0x0100L
#define CBRS_BORDER_TOP 0x0200L
#define CBRS_BORDER_RIGHT 0x0400L
#define CBRS_BORDER_BOTTOM 0x0800L
#define CBRS_BORDER_ANY 0x0F00L
#define CBRS_TOOLTIPS 0x0010L
#define CBRS_FLYBY 0x0020L
#define CBRS_FLOAT_MULTI 0x0040L
#define CBRS_BORDER_3D 0x0080L
#define CBRS_HIDE_INPLACE 0x0008L
#define CBRS_SIZE_DYNAMIC 0x0004L
#define CBRS_SIZE_FIXED 0x0002L
#define CBRS_FLOATING 0x0001L
#define CBRS_GRIPPER 0x00400000L
#define CBRS_ORIENT_HORZ (CBRS_ALIGN_TOP | CBRS_ALIGN_BOTTOM)
#define CBRS_ORIENT_VERT (CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT)
#define CBRS_ORIENT_ANY (CBRS_ORIENT_HORZ | CBRS_ORIENT_VERT)
#define CBRS_ALL 0x0040FFFFL
#define CBRS_NOALIGN 0x00000000L
#define CBRS_LEFT (CBRS_ALIGN_LEFT | CBRS_BORDER_RIGHT)
#define CBRS_TOP (CBRS_ALIGN_TOP | CBRS_BORDER_BOTTOM)
#define CBRS_RIGHT (CBRS_ALIGN_RIGHT | CBRS_BORDER_LEFT)
#define CBRS_BOTTOM (CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP)

// What CalcDynamicLayout is asked for.
#define LM_STRETCH 0x01   // fill the length of the frame
#define LM_HORZ 0x02      // horizontal (else vertical)
#define LM_MRUWIDTH 0x04  // the width used last
#define LM_HORZDOCK 0x08  // size when docked at top or bottom
#define LM_VERTDOCK 0x10  // size when docked at left or right
#define LM_LENGTHY 0x20   // nLength is a height (else a width)
#define LM_COMMIT 0x40    // nLength becomes the width used last

// Parameters of WM_SIZEPARENT: each bar takes its part off rect.
struct AFX_SIZEPARENTPARAMS {
  HDWP hDWP;       // null: only ask
  RECT rect;       // what is left of the parent's client area
  SIZE sizeTotal;  // what the bars took
  BOOL bStretch;
};

namespace vornfw {
// Adds the placing of hWnd at rectangle (parent coordinates) to the layout under way; a window
// that lies there already is left alone.
VORNFW_API void RepositionWindow(AFX_SIZEPARENTPARAMS* layout, HWND hWnd, LPCRECT rectangle);
}  // namespace vornfw

class VORNFW_API CControlBar : public CWnd {
  DECLARE_DYNAMIC(CControlBar)

 public:
  CControlBar();
  ~CControlBar() override;

  int GetCount() const { return m_nCount; }
  DWORD GetBarStyle() const { return m_dwStyle; }
  // CBRS_ bits; the bar is laid out again when they change.
  void SetBarStyle(DWORD dwStyle);
  void SetBorders(LPCRECT lpRect);
  void SetBorders(int cxLeft = 0, int cyTop = 0, int cxRight = 0, int cyBottom = 0);
  CRect GetBorders() const { return CRect(m_cxLeftBorder, m_cyTopBorder, m_cxRightBorder, m_cyBottomBorder); }
  // The frame around the bar, floating or not.
  CFrameWnd* GetDockingFrame() const;
  BOOL IsFloating() const;

  BOOL m_bAutoDelete;
  DWORD m_dwStyle;
  DWORD m_dwDockStyle;
  CFrameWnd* m_pDockSite;  // frame the bar belongs to
  CDockBar* m_pDockBar;    // dock bar it lies in now
  CDockContext* m_pDockContext;

  // The size the bar wants, docked and in all modes. bStretch: as long as the frame.
  virtual CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz);
  virtual CSize CalcDynamicLayout(int nLength, DWORD nMode);
  // At idle time: bring the items up to date.
  virtual void OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) = 0;
  virtual void OnBarStyleChange(DWORD dwOldStyle, DWORD dwNewStyle);
  virtual BOOL IsDockBar() const;
  // Shown, or about to be.
  virtual BOOL IsVisible() const;
  virtual void DelayShow(BOOL bShow);

  BOOL PreTranslateMessage(MSG* pMsg) override;

  // Draw or take off the lines of m_dwStyle; rect is in window coordinates and gets smaller.
  virtual void DrawBorders(CDC* pDC, CRect& rect);
  virtual void DoPaint(CDC* pDC);
  void CalcInsideRect(CRect& rect, BOOL bHorz) const;

  enum StateFlags { delayHide = 1, delayShow = 2, tempHide = 4, statusSet = 8 };

 protected:
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  void PostNcDestroy() override;

  afx_msg int OnCreate(LPCREATESTRUCTW lpcs);
  afx_msg void OnDestroy();
  afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
  afx_msg LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
  afx_msg void OnLButtonDown(UINT nFlags, CPoint pt);
  afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT nMsg);
  afx_msg void OnPaint();
  afx_msg void OnTimer(UINT_PTR nIDEvent);
  afx_msg void OnWindowPosChanging(WINDOWPOS* lpWndPos);

  int m_cxLeftBorder, m_cxRightBorder;
  int m_cyTopBorder, m_cyBottomBorder;
  UINT m_nMRUWidth;
  int m_nCount;
  UINT m_nStateFlags;

  DECLARE_MESSAGE_MAP()

  friend class CFrameWnd;
  friend class CDockBar;
};

// A line of panes at the foot of a frame, over the system's status bar control.
class VORNFW_API CStatusBar : public CControlBar {
  DECLARE_DYNAMIC(CStatusBar)

 public:
  CStatusBar();
  ~CStatusBar() override;

  using CControlBar::Create;
  using CControlBar::CreateEx;
  BOOL Create(CWnd* pParentWnd, DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM,
              UINT nID = AFX_IDW_STATUS_BAR);
  BOOL CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle = 0, DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM,
                UINT nID = AFX_IDW_STATUS_BAR);
  // One pane per id. The first one takes what is left when its id is 0 (ID_SEPARATOR); the others are as
  // wide as the string resource of their id.
  BOOL SetIndicators(const UINT* lpIDArray, int nIDCount);

  // Panes by index from 0. An index out of range gives -1, 0 or nothing.
  int CommandToIndex(UINT nIDFind) const;
  UINT GetItemID(int nIndex) const;
  void GetItemRect(int nIndex, LPRECT lpRect) const;
  void GetPaneText(int nIndex, CString& rString) const;
  CString GetPaneText(int nIndex) const;
  BOOL SetPaneText(int nIndex, LPCWSTR lpszNewText, BOOL bUpdate = TRUE);
  // cxWidth in pixels, without the border.
  void GetPaneInfo(int nIndex, UINT& nID, UINT& nStyle, int& cxWidth) const;
  void SetPaneInfo(int nIndex, UINT nID, UINT nStyle, int cxWidth);

  CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz) override;
  void OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) override;

 protected:
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  // The system's control draws itself.
  afx_msg void OnPaint();
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg LRESULT OnSetText(WPARAM wParam, LPARAM lParam);

 private:
  struct Pane {
    UINT id;
    UINT style;
    int width;
    CString text;
  };
  bool IsPane(int index) const;
  void PlacePanes();
  void ShowPane(int index);

  std::vector<Pane> m_panes;

  DECLARE_MESSAGE_MAP()
};

// Styles of panes.
#define SBPS_NORMAL 0x0000
#define SBPS_DISABLED 0x0400
#define SBPS_STRETCH 0x0800
#define SBPS_POPOUT 0x0200
#define SBPS_NOBORDERS 0x0100
