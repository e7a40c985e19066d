// CWnd: a window. Included by <afxwin.h>.
//
// A CWnd owns its window: destroying the object destroys the window, and a window that goes takes its
// handle out of the object. Wrappers that FromHandle makes for windows of others are temporary: they last
// until the thread is idle, and the window does not go with them.
//
// Functions without a comment forward to the API function of the same name with m_hWnd.
#pragma once

#include <afx.h>
#include <atltypes.h>
#include <afxtarget.h>

class CDC;
class CDataExchange;
class CFont;
class CFrameWnd;
class CMenu;
class CRgn;
class CScrollBar;
class CWinThread;
struct AFX_SIZEPARENTPARAMS;

namespace vornfw {
struct WndAccess;
}

class VORNFW_API CWnd : public CCmdTarget {
  DECLARE_DYNCREATE(CWnd)

 public:
  HWND m_hWnd;  // null without a window

  // Insert-after values for SetWindowPos.
  static const CWnd wndTop;
  static const CWnd wndBottom;
  static const CWnd wndTopMost;
  static const CWnd wndNoTopMost;

  CWnd();
  // Destroys the window if there still is one.
  ~CWnd() override;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  operator HWND() const { return m_hWnd; }
  HWND GetSafeHwnd() const { return m_hWnd; }
  BOOL operator==(const CWnd& wnd) const { return m_hWnd == wnd.m_hWnd; }
  BOOL operator!=(const CWnd& wnd) const { return m_hWnd != wnd.m_hWnd; }

  // --- The object of a window -------------------------------------------------------------------

  // The object of hWnd in this thread, else a temporary one. Null for a null handle, or out of memory.
  static CWnd* PASCAL FromHandle(HWND hWnd);
  // The object that owns hWnd in this thread, or null.
  static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
  static void PASCAL DeleteTempMap();
  // Takes hWndNew over without touching its window procedure. Returns 0 for a null handle, or when this
  // object or the window is attached already.
  BOOL Attach(HWND hWndNew);
  // Gives the window away and returns it.
  HWND Detach();
  // Takes over a window that exists and puts the framework's procedure ahead of its own.
  BOOL SubclassWindow(HWND hWnd);
  BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
  // Undoes SubclassWindow and gives the window away.
  HWND UnsubclassWindow();

  // --- Creation and destruction -----------------------------------------------------------------

  // Make a child window; a pop-up or overlapped one with CreateEx. Return 0 when PreCreateWindow, a
  // handler or the system refuses. The object has the window from its first message on.
  virtual BOOL Create(LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                      CWnd* pParentWnd, UINT nID, struct CCreateContext* pContext = nullptr);
  virtual BOOL CreateEx(DWORD dwExStyle, LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle,
                        const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
  BOOL CreateEx(DWORD dwExStyle, LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle, int x, int y,
                int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
  // Returns 0 when there is no window.
  virtual BOOL DestroyWindow();
  // The last chance to change style, class and place. 0 cancels. A null class becomes the framework's.
  virtual BOOL PreCreateWindow(CREATESTRUCTW& cs);
  // The window has just been attached, by creation or by subclassing.
  virtual void PreSubclassWindow();

  // --- State and text ---------------------------------------------------------------------------

  DWORD GetStyle() const;
  DWORD GetExStyle() const;
  // Removes and adds style bits; with nFlags also calls SetWindowPos with those and a frame change.
  // Returns 0 when nothing had to change.
  BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  static BOOL PASCAL ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
  static BOOL PASCAL ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
  CWnd* GetOwner() const;
  void SetOwner(CWnd* pOwnerWnd);
  int GetDlgCtrlID() const;
  int SetDlgCtrlID(int nID);
  CMenu* GetMenu() const;
  BOOL SetMenu(CMenu* pMenu);
  void DrawMenuBar();
  CMenu* GetSystemMenu(BOOL bRevert) const;
  BOOL IsWindowEnabled() const;
  BOOL EnableWindow(BOOL bEnable = TRUE);
  BOOL IsWindowVisible() const;
  BOOL IsIconic() const;
  BOOL IsZoomed() const;
  BOOL IsWindowUnicode() const;
  HICON SetIcon(HICON hIcon, BOOL bBigIcon);
  HICON GetIcon(BOOL bBigIcon) const;

  void SetWindowText(LPCWSTR lpszString);
  int GetWindowText(LPWSTR lpszStringBuf, int nMaxCount) const;
  void GetWindowText(CString& rString) const;
  int GetWindowTextLength() const;
  void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
  CFont* GetFont() const;

  // --- Messages ---------------------------------------------------------------------------------

  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  BOOL SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam);
  // To all children, and theirs with bDeep; only to windows with an object with bOnlyPerm.
  void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE,
                                BOOL bOnlyPerm = FALSE);
  // The message being handled in this thread, for a handler that wants the raw form.
  static const MSG* PASCAL GetCurrentMessage();
  // Ahead of TranslateMessage: nonzero when the message is dealt with.
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  // Offers pMsg to PreTranslateMessage of its window and of its parents, up to hWndStop.
  static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);

  // --- Place ------------------------------------------------------------------------------------

  void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
  void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
  BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
  BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const;
  BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl);
  void BringWindowToTop();
  void GetWindowRect(LPRECT lpRect) const;
  void GetClientRect(LPRECT lpRect) const;
  int SetWindowRgn(HRGN hRgn, BOOL bRedraw);
  int GetWindowRgn(HRGN hRgn) const;
  // In the middle of pAlternateOwner, or of the owner or parent, and within the screen's work area.
  void CenterWindow(CWnd* pAlternateOwner = nullptr);
  // Turns a client rectangle into the window rectangle around it.
  enum AdjustType { adjustBorder = 0, adjustOutside = 1 };
  virtual void CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType = adjustBorder);
  BOOL ShowWindow(int nCmdShow);
  void ClientToScreen(LPPOINT lpPoint) const;
  void ClientToScreen(LPRECT lpRect) const;
  void ScreenToClient(LPPOINT lpPoint) const;
  void ScreenToClient(LPRECT lpRect) const;
  void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const;
  void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const;

  // Lays out the control bars among the children nIDFirst to nIDLast, then gives nIDLeftOver the rest.
  // With reposQuery nothing moves and the rest is stored in lpRectParam; with reposExtra that
  // rectangle's edges are first taken off. bStretch: bars take the whole length.
  enum RepositionFlags { reposDefault = 0, reposQuery = 1, reposExtra = 2, reposNoPosLeftOver = 0x8000 };
  void RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlags = reposDefault,
                      LPRECT lpRectParam = nullptr, LPCRECT lpRectClient = nullptr, BOOL bStretch = TRUE);

  // --- Painting ---------------------------------------------------------------------------------

  CDC* BeginPaint(LPPAINTSTRUCT lpPaint);
  void EndPaint(LPPAINTSTRUCT lpPaint);
  CDC* GetDC();
  CDC* GetWindowDC();
  CDC* GetDCEx(CRgn* prgnClip, DWORD flags);
  int ReleaseDC(CDC* pDC);
  void UpdateWindow();
  void SetRedraw(BOOL bRedraw = TRUE);
  BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE);
  int GetUpdateRgn(CRgn* pRgn, BOOL bErase = FALSE);
  void Invalidate(BOOL bErase = TRUE);
  void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
  void InvalidateRgn(CRgn* pRgn, BOOL bErase = TRUE);
  void ValidateRect(LPCRECT lpRect);
  void ValidateRgn(CRgn* pRgn);
  BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                    UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
  BOOL LockWindowUpdate();
  void UnlockWindowUpdate();
  void Print(CDC* pDC, DWORD dwFlags) const;
  void PrintClient(CDC* pDC, DWORD dwFlags) const;

  // --- Timers, focus, capture -------------------------------------------------------------------

  UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse,
                    void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD) = nullptr);
  BOOL KillTimer(UINT_PTR nIDEvent);
  static CWnd* PASCAL GetActiveWindow();
  CWnd* SetActiveWindow();
  static CWnd* PASCAL GetForegroundWindow();
  BOOL SetForegroundWindow();
  static CWnd* PASCAL GetCapture();
  CWnd* SetCapture();
  static CWnd* PASCAL GetFocus();
  CWnd* SetFocus();
  static CWnd* PASCAL GetDesktopWindow();
  CWnd* GetLastActivePopup() const;
  void CreateCaret(CBitmap* pBitmap);
  void CreateSolidCaret(int nWidth, int nHeight);
  static CPoint PASCAL GetCaretPos();
  static void PASCAL SetCaretPos(POINT point);
  void HideCaret();
  void ShowCaret();

  // --- Relations --------------------------------------------------------------------------------

  CWnd* GetParent() const;
  CWnd* SetParent(CWnd* pWndNewParent);
  CWnd* GetAncestor(UINT gaFlags) const;
  CWnd* GetTopWindow() const;
  CWnd* GetWindow(UINT nCmd) const;
  CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const;
  BOOL IsChild(const CWnd* pWnd) const;
  CWnd* ChildWindowFromPoint(POINT point) const;
  CWnd* ChildWindowFromPoint(POINT point, UINT nFlags) const;
  static CWnd* PASCAL WindowFromPoint(POINT point);
  static CWnd* PASCAL FindWindow(LPCWSTR lpszClassName, LPCWSTR lpszWindowName);
  // The frame around this window, not the window itself; null if none.
  CFrameWnd* GetParentFrame() const;
  CFrameWnd* GetTopLevelFrame() const;
  // The first owner or parent that is no child; GetTopLevelOwner goes by owners alone.
  CWnd* GetTopLevelParent() const;
  CWnd* GetTopLevelOwner() const;
  CWnd* GetParentOwner() const;
  // Nonzero when the top-level parent is, or belongs to, the active one.
  BOOL IsTopParentActive() const;
  void ActivateTopParent();
  // A child, grandchild... with the id; only windows with an object with bOnlyPerm. Null if none.
  CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;

  // --- Children of a dialog ---------------------------------------------------------------------

  CWnd* GetDlgItem(int nID) const;
  void GetDlgItem(int nID, HWND* phWnd) const;
  UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const;
  void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE);
  int GetDlgItemText(int nID, LPWSTR lpStr, int nMaxCount) const;
  int GetDlgItemText(int nID, CString& rString) const;
  void SetDlgItemText(int nID, LPCWSTR lpszString);
  void CheckDlgButton(int nIDButton, UINT nCheck);
  void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
  int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const;
  UINT IsDlgButtonChecked(int nIDButton) const;
  LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
  CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
  // Moves data between controls and members through DoDataExchange. Returns 0 when a value was refused.
  BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
  // Brings the buttons of a dialog up to date through pTarget's update handlers.
  void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

  // --- Scrolling --------------------------------------------------------------------------------

  int GetScrollPos(int nBar) const;
  void GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const;
  int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE);
  void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
  BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
  BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
  int GetScrollLimit(int nBar);
  void ShowScrollBar(UINT nBar, BOOL bShow = TRUE);
  void EnableScrollBarCtrl(int nBar, BOOL bEnable = TRUE);
  BOOL EnableScrollBar(int nSBFlags, UINT nArrowFlags = ESB_ENABLE_BOTH);
  // The control that stands for the window's own bar; null here.
  virtual CScrollBar* GetScrollBarCtrl(int nBar) const;
  void ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect = nullptr, LPCRECT lpClipRect = nullptr);
  int ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* prgnUpdate,
                     LPRECT lpRectUpdate, UINT flags);

  // --- Modal loops ------------------------------------------------------------------------------

  int MessageBox(LPCWSTR lpszText, LPCWSTR lpszCaption = nullptr, UINT nType = MB_OK);
  // Runs messages until ContinueModal is 0; returns the result of EndModalLoop.
  int RunModalLoop(DWORD dwFlags = 0);
  virtual BOOL ContinueModal();
  virtual void EndModalLoop(int nResult);

  // --- Overridables -----------------------------------------------------------------------------

  // For messages outside of the dispatcher: lets a control answer its own notification.
  BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);
  static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);

 protected:
  // Every message of the window comes here first.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // Runs the handler of the message, if there is one: nonzero, and its result in *pResult.
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  // What happens to unhandled messages: the procedure of before SubclassWindow, or the system's.
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // The current message to DefWindowProc, unchanged.
  LRESULT Default();
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  // A notification that the parent sent back. Nonzero when handled here.
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  // The window is gone, and m_hWnd is null: the place for delete this.
  virtual void PostNcDestroy();
  virtual void DoDataExchange(CDataExchange* pDX);
  // The place where a subclassed window's former procedure is kept.
  virtual WNDPROC* GetSuperWndProcAddr();
  virtual void BeginModalState();
  virtual void EndModalState();
  virtual BOOL CheckAutoCenter();

  // Handlers that a class can put into its message map (see <afxmsg_.h>). These do what the system does by
  // default.
  afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
  afx_msg void OnActivateApp(BOOL bActive, DWORD dwThreadID);
  afx_msg void OnCancelMode();
  afx_msg void OnCaptureChanged(CWnd* pWnd);
  afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnClose();
  afx_msg int OnCompareItem(int nIDCtl, LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  afx_msg void OnContextMenu(CWnd* pWnd, CPoint pos);
  afx_msg int OnCreate(LPCREATESTRUCTW lpCreateStruct);
  afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
  afx_msg void OnDeadChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnDeleteItem(int nIDCtl, LPDELETEITEMSTRUCT lpDeleteItemStruct);
  afx_msg void OnDestroy();
  afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
  afx_msg void OnEnable(BOOL bEnable);
  afx_msg void OnEndSession(BOOL bEnding);
  afx_msg void OnEnterIdle(UINT nWhy, CWnd* pWho);
  afx_msg void OnEnterMenuLoop(BOOL bIsTrackPopupMenu);
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  afx_msg void OnExitMenuLoop(BOOL bIsTrackPopupMenu);
  afx_msg UINT OnGetDlgCode();
  afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
  afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg void OnInitMenu(CMenu* pMenu);
  afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnKillFocus(CWnd* pNewWnd);
  afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnMButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  afx_msg LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu);
  afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
  afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
  afx_msg void OnMouseHover(UINT nFlags, CPoint point);
  afx_msg void OnMouseHWheel(UINT nFlags, short zDelta, CPoint pt);
  afx_msg void OnMouseLeave();
  afx_msg void OnMouseMove(UINT nFlags, CPoint point);
  afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
  afx_msg void OnMove(int x, int y);
  afx_msg void OnMoving(UINT nSide, LPRECT lpRect);
  afx_msg BOOL OnNcActivate(BOOL bActive);
  afx_msg void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* lpncsp);
  afx_msg BOOL OnNcCreate(LPCREATESTRUCTW lpCreateStruct);
  // The window's last message: detaches the object and then runs PostNcDestroy.
  afx_msg void OnNcDestroy();
  afx_msg LRESULT OnNcHitTest(CPoint point);
  afx_msg void OnNcLButtonDblClk(UINT nHitTest, CPoint point);
  afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
  afx_msg void OnNcLButtonUp(UINT nHitTest, CPoint point);
  afx_msg void OnNcMButtonDblClk(UINT nHitTest, CPoint point);
  afx_msg void OnNcMButtonDown(UINT nHitTest, CPoint point);
  afx_msg void OnNcMButtonUp(UINT nHitTest, CPoint point);
  afx_msg void OnNcMouseHover(UINT nHitTest, CPoint point);
  afx_msg void OnNcMouseLeave();
  afx_msg void OnNcMouseMove(UINT nHitTest, CPoint point);
  afx_msg void OnNcPaint();
  afx_msg void OnNcRButtonDblClk(UINT nHitTest, CPoint point);
  afx_msg void OnNcRButtonDown(UINT nHitTest, CPoint point);
  afx_msg void OnNcRButtonUp(UINT nHitTest, CPoint point);
  afx_msg void OnPaint();
  afx_msg void OnPaletteChanged(CWnd* pFocusWnd);
  afx_msg void OnParentNotify(UINT message, LPARAM lParam);
  afx_msg HCURSOR OnQueryDragIcon();
  afx_msg BOOL OnQueryEndSession();
  afx_msg BOOL OnQueryNewPalette();
  afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
  afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnSettingChange(UINT uFlags, LPCWSTR lpszSection);
  afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnSizing(UINT nSide, LPRECT lpRect);
  afx_msg void OnStyleChanged(int nStyleType, LPSTYLESTRUCT lpStyleStruct);
  afx_msg void OnStyleChanging(int nStyleType, LPSTYLESTRUCT lpStyleStruct);
  afx_msg void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  // Tells the children, since the system tells top-level windows alone.
  afx_msg void OnSysColorChange();
  afx_msg void OnSysCommand(UINT nID, LPARAM lParam);
  afx_msg void OnSysDeadChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnTimer(UINT_PTR nIDEvent);
  afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
  afx_msg void OnWindowPosChanging(WINDOWPOS* lpwndpos);

  // For the insert-after values.
  explicit CWnd(HWND hWnd);

  WNDPROC m_pfnSuper;  // procedure of before, for a subclassed window
  HWND m_hWndOwner;    // set by SetOwner
  int m_nModalResult;  // of EndModalLoop
  UINT m_nFlags;       // WF_ bits

  DECLARE_MESSAGE_MAP()

  friend struct vornfw::WndAccess;
  friend class CCmdUI;
  friend class CDialog;
  friend class CFrameWnd;
  friend class CDataExchange;
};

// Bits of CWnd::m_nFlags.
#define WF_TEMPHIDE 0x0001       // hidden while the application is not active
#define WF_STAYDISABLED 0x0002   // do not enable when the modal state ends
#define WF_MODALLOOP 0x0004      // inside RunModalLoop
#define WF_CONTINUEMODAL 0x0008  // RunModalLoop goes on

// Flags of RunModalLoop.
#define MLF_NOIDLEMSG 0x0001   // no WM_ENTERIDLE to the parent
#define MLF_NOKICKIDLE 0x0002  // no WM_KICKIDLE to the window
#define MLF_SHOWONIDLE 0x0004  // show the window when its messages are done

// --- Classes and procedures ---------------------------------------------------------------------

// Registers a window class with the given traits under a name made of them, and returns that name; the same
// traits give the same name. Throws CResourceException when the class cannot be registered.
VORNFW_API LPCWSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                              HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);
// As RegisterClass, but a class that is registered already counts as success.
VORNFW_API BOOL AFXAPI AfxRegisterClass(WNDCLASSW* lpWndClass);

// The window procedure of every window of the framework. Lets no exception out.
VORNFW_API LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
VORNFW_API LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam = 0,
                                         LPARAM lParam = 0);
// The next window that this thread creates becomes pWnd's; to be paired, around the creation.
// AfxUnhookWindowCreate returns 0 when no window was created.
VORNFW_API void AFXAPI AfxHookWindowCreate(CWnd* pWnd);
VORNFW_API BOOL AFXAPI AfxUnhookWindowCreate();

// Keep this thread's temporary wrappers alive across idle time. Nested; the last unlock frees them when
// bDeleteTemps is set. Returns nonzero while still locked.
VORNFW_API void AFXAPI AfxLockTempMaps();
VORNFW_API BOOL AFXAPI AfxUnlockTempMaps(BOOL bDeleteTemps = TRUE);
