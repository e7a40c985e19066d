// The lines of message maps. Above each: the prototype of its handler. Included by <afxwin.h>.
//
// A line calls the handler by name through a small function of its own, so the handler may be virtual,
// inherited or overloaded; a wrong prototype does not compile.
#pragma once

#include <afxpriv.h>
#include <afxwnd.h>

// Pseudo message of ON_WM_CTLCOLOR, for all of WM_CTLCOLORMSGBOX to WM_CTLCOLORSTATIC.
#define WM_CTLCOLOR 0x0019

namespace vornfw {

inline LRESULT Result(LRESULT value) { return value; }
inline LRESULT Result(HBRUSH brush) { return reinterpret_cast<LRESULT>(brush); }
inline LRESULT Result(HICON icon) { return reinterpret_cast<LRESULT>(icon); }

// Parameters of messages. Where a wrapper cannot be made the message ends with CMemoryException.
inline UINT LowWord(const Call& call) { return LOWORD(call.wParam); }
inline UINT HighWord(const Call& call) { return HIWORD(call.wParam); }
inline UINT KeyRepeat(const Call& call) { return LOWORD(call.lParam); }
inline UINT KeyFlags(const Call& call) { return HIWORD(call.lParam); }
inline short WheelDelta(const Call& call) { return static_cast<short>(HIWORD(call.wParam)); }
inline int SignedX(const Call& call) { return static_cast<short>(LOWORD(call.lParam)); }
inline int SignedY(const Call& call) { return static_cast<short>(HIWORD(call.lParam)); }
inline CPoint Point(const Call& call) { return CPoint(SignedX(call), SignedY(call)); }
template <class T>
T Pointer(const Call& call) {
  return reinterpret_cast<T>(call.lParam);
}
VORNFW_API CWnd* WindowFromParam(WPARAM param);
VORNFW_API CDC* DeviceContextFromParam(WPARAM param);
VORNFW_API CMenu* MenuFromParam(WPARAM param);
VORNFW_API CScrollBar* ScrollBarFromParam(LPARAM param);

// Runs an update handler's aftermath: zero when it asked for routing to go on.
VORNFW_API BOOL UpdateDone(CCmdUI* command);

}  // namespace vornfw

// A line for a message whose handler returns nothing, or the message's result.
#define VORNFW_VOID(message, handler)                                                                   \
  {message, 0, 0, 0, nullptr, [](CCmdTarget* pTarget, [[maybe_unused]] vornfw::Call& call) -> LRESULT { \
     static_cast<ThisClass*>(pTarget)->handler;                                                         \
     return 0;                                                                                          \
   }},
#define VORNFW_VALUE(message, handler)                                                                  \
  {message, 0, 0, 0, nullptr, [](CCmdTarget* pTarget, [[maybe_unused]] vornfw::Call& call) -> LRESULT { \
     return vornfw::Result(static_cast<ThisClass*>(pTarget)->handler);                                  \
   }},
// A line for a named handler.
#define VORNFW_HANDLER(message, code, id, lastId, registered, body)          \
  {message,                                                                  \
   code,                                                                     \
   id,                                                                       \
   lastId,                                                                   \
   registered,                                                               \
   [](CCmdTarget* pTarget, [[maybe_unused]] vornfw::Call& call) -> LRESULT { \
     auto* pThis = static_cast<ThisClass*>(pTarget);                         \
     body                                                                    \
   }},
#define VORNFW_MEMBER(returns, arguments, memberFxn) \
  (pThis->*static_cast<returns(ThisClass::*) arguments>(memberFxn))

// ---- Window messages ----------------------------------------------------------------------------

// void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized)
#define ON_WM_ACTIVATE()                                                                                   \
  VORNFW_VOID(WM_ACTIVATE,                                                                                 \
              OnActivate(vornfw::LowWord(call), vornfw::WindowFromParam(static_cast<WPARAM>(call.lParam)), \
                         static_cast<BOOL>(vornfw::HighWord(call))))

// void OnActivateApp(BOOL bActive, DWORD dwThreadID)
#define ON_WM_ACTIVATEAPP() \
  VORNFW_VOID(WM_ACTIVATEAPP, OnActivateApp(call.wParam != 0, static_cast<DWORD>(call.lParam)))

// void OnCancelMode()
#define ON_WM_CANCELMODE() VORNFW_VOID(WM_CANCELMODE, OnCancelMode())

// void OnCaptureChanged(CWnd* pWnd)
#define ON_WM_CAPTURECHANGED() \
  VORNFW_VOID(WM_CAPTURECHANGED, OnCaptureChanged(vornfw::WindowFromParam(static_cast<WPARAM>(call.lParam))))

// void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_CHAR()   \
  VORNFW_VOID(WM_CHAR, \
              OnChar(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), vornfw::KeyFlags(call)))

// void OnClose()
#define ON_WM_CLOSE() VORNFW_VOID(WM_CLOSE, OnClose())

// int OnCompareItem(int nIDCtl, LPCOMPAREITEMSTRUCT lpCompareItemStruct)
#define ON_WM_COMPAREITEM()    \
  VORNFW_VALUE(WM_COMPAREITEM, \
               OnCompareItem(static_cast<int>(call.wParam), vornfw::Pointer<LPCOMPAREITEMSTRUCT>(call)))

// void OnContextMenu(CWnd* pWnd, CPoint pos)
#define ON_WM_CONTEXTMENU() \
  VORNFW_VOID(WM_CONTEXTMENU, OnContextMenu(vornfw::WindowFromParam(call.wParam), vornfw::Point(call)))

// int OnCreate(LPCREATESTRUCTW lpCreateStruct)
#define ON_WM_CREATE() VORNFW_VALUE(WM_CREATE, OnCreate(vornfw::Pointer<LPCREATESTRUCTW>(call)))

// HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor); null: the default brush
#define ON_WM_CTLCOLOR()                                                                          \
  VORNFW_VALUE(WM_CTLCOLOR, OnCtlColor(vornfw::DeviceContextFromParam(call.wParam),               \
                                       vornfw::WindowFromParam(static_cast<WPARAM>(call.lParam)), \
                                       call.message - WM_CTLCOLORMSGBOX))

// void OnDeadChar(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_DEADCHAR()   \
  VORNFW_VOID(WM_DEADCHAR, \
              OnDeadChar(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), vornfw::KeyFlags(call)))

// void OnDeleteItem(int nIDCtl, LPDELETEITEMSTRUCT lpDeleteItemStruct)
#define ON_WM_DELETEITEM()   \
  VORNFW_VOID(WM_DELETEITEM, \
              OnDeleteItem(static_cast<int>(call.wParam), vornfw::Pointer<LPDELETEITEMSTRUCT>(call)))

// void OnDestroy()
#define ON_WM_DESTROY() VORNFW_VOID(WM_DESTROY, OnDestroy())

// void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct)
#define ON_WM_DRAWITEM() \
  VORNFW_VOID(WM_DRAWITEM, OnDrawItem(static_cast<int>(call.wParam), vornfw::Pointer<LPDRAWITEMSTRUCT>(call)))

// void OnEnable(BOOL bEnable)
#define ON_WM_ENABLE() VORNFW_VOID(WM_ENABLE, OnEnable(call.wParam != 0))

// void OnEndSession(BOOL bEnding)
#define ON_WM_ENDSESSION() VORNFW_VOID(WM_ENDSESSION, OnEndSession(call.wParam != 0))

// void OnEnterIdle(UINT nWhy, CWnd* pWho)
#define ON_WM_ENTERIDLE()                                               \
  VORNFW_VOID(WM_ENTERIDLE, OnEnterIdle(static_cast<UINT>(call.wParam), \
                                        vornfw::WindowFromParam(static_cast<WPARAM>(call.lParam))))

// void OnEnterMenuLoop(BOOL bIsTrackPopupMenu)
#define ON_WM_ENTERMENULOOP() VORNFW_VOID(WM_ENTERMENULOOP, OnEnterMenuLoop(call.wParam != 0))

// BOOL OnEraseBkgnd(CDC* pDC)
#define ON_WM_ERASEBKGND() \
  VORNFW_VALUE(WM_ERASEBKGND, OnEraseBkgnd(vornfw::DeviceContextFromParam(call.wParam)))

// void OnExitMenuLoop(BOOL bIsTrackPopupMenu)
#define ON_WM_EXITMENULOOP() VORNFW_VOID(WM_EXITMENULOOP, OnExitMenuLoop(call.wParam != 0))

// UINT OnGetDlgCode()
#define ON_WM_GETDLGCODE() VORNFW_VALUE(WM_GETDLGCODE, OnGetDlgCode())

// void OnGetMinMaxInfo(MINMAXINFO* lpMMI)
#define ON_WM_GETMINMAXINFO() \
  VORNFW_VOID(WM_GETMINMAXINFO, OnGetMinMaxInfo(vornfw::Pointer<MINMAXINFO*>(call)))

// void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
#define ON_WM_HSCROLL()                                                            \
  VORNFW_VOID(WM_HSCROLL, OnHScroll(vornfw::LowWord(call), vornfw::HighWord(call), \
                                    vornfw::ScrollBarFromParam(call.lParam)))

// void OnInitMenu(CMenu* pMenu)
#define ON_WM_INITMENU() VORNFW_VOID(WM_INITMENU, OnInitMenu(vornfw::MenuFromParam(call.wParam)))

// void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu)
#define ON_WM_INITMENUPOPUP()   \
  VORNFW_VOID(WM_INITMENUPOPUP, \
              OnInitMenuPopup(vornfw::MenuFromParam(call.wParam), LOWORD(call.lParam), HIWORD(call.lParam)))

// void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_KEYDOWN()   \
  VORNFW_VOID(WM_KEYDOWN, \
              OnKeyDown(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), vornfw::KeyFlags(call)))

// void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_KEYUP()   \
  VORNFW_VOID(WM_KEYUP, \
              OnKeyUp(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), vornfw::KeyFlags(call)))

// void OnKillFocus(CWnd* pNewWnd)
#define ON_WM_KILLFOCUS() VORNFW_VOID(WM_KILLFOCUS, OnKillFocus(vornfw::WindowFromParam(call.wParam)))

// void OnLButtonDblClk(UINT nFlags, CPoint point)
#define ON_WM_LBUTTONDBLCLK() \
  VORNFW_VOID(WM_LBUTTONDBLCLK, OnLButtonDblClk(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnLButtonDown(UINT nFlags, CPoint point)
#define ON_WM_LBUTTONDOWN() \
  VORNFW_VOID(WM_LBUTTONDOWN, OnLButtonDown(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnLButtonUp(UINT nFlags, CPoint point)
#define ON_WM_LBUTTONUP() \
  VORNFW_VOID(WM_LBUTTONUP, OnLButtonUp(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnMButtonDblClk(UINT nFlags, CPoint point)
#define ON_WM_MBUTTONDBLCLK() \
  VORNFW_VOID(WM_MBUTTONDBLCLK, OnMButtonDblClk(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnMButtonDown(UINT nFlags, CPoint point)
#define ON_WM_MBUTTONDOWN() \
  VORNFW_VOID(WM_MBUTTONDOWN, OnMButtonDown(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnMButtonUp(UINT nFlags, CPoint point)
#define ON_WM_MBUTTONUP() \
  VORNFW_VOID(WM_MBUTTONUP, OnMButtonUp(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnRButtonDblClk(UINT nFlags, CPoint point)
#define ON_WM_RBUTTONDBLCLK() \
  VORNFW_VOID(WM_RBUTTONDBLCLK, OnRButtonDblClk(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnRButtonDown(UINT nFlags, CPoint point)
#define ON_WM_RBUTTONDOWN() \
  VORNFW_VOID(WM_RBUTTONDOWN, OnRButtonDown(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnRButtonUp(UINT nFlags, CPoint point)
#define ON_WM_RBUTTONUP() \
  VORNFW_VOID(WM_RBUTTONUP, OnRButtonUp(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
#define ON_WM_MEASUREITEM()   \
  VORNFW_VOID(WM_MEASUREITEM, \
              OnMeasureItem(static_cast<int>(call.wParam), vornfw::Pointer<LPMEASUREITEMSTRUCT>(call)))

// LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu)
#define ON_WM_MENUCHAR()                                                              \
  VORNFW_VALUE(WM_MENUCHAR, OnMenuChar(vornfw::LowWord(call), vornfw::HighWord(call), \
                                       vornfw::MenuFromParam(static_cast<WPARAM>(call.lParam))))

// void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hMenu)
#define ON_WM_MENUSELECT()   \
  VORNFW_VOID(WM_MENUSELECT, \
              OnMenuSelect(vornfw::LowWord(call), vornfw::HighWord(call), vornfw::Pointer<HMENU>(call)))

// int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message)
#define ON_WM_MOUSEACTIVATE()                                                                               \
  VORNFW_VALUE(WM_MOUSEACTIVATE, OnMouseActivate(vornfw::WindowFromParam(call.wParam), LOWORD(call.lParam), \
                                                 HIWORD(call.lParam)))

// void OnMouseHover(UINT nFlags, CPoint point)
#define ON_WM_MOUSEHOVER() \
  VORNFW_VOID(WM_MOUSEHOVER, OnMouseHover(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnMouseLeave()
#define ON_WM_MOUSELEAVE() VORNFW_VOID(WM_MOUSELEAVE, OnMouseLeave())

// void OnMouseMove(UINT nFlags, CPoint point)
#define ON_WM_MOUSEMOVE() \
  VORNFW_VOID(WM_MOUSEMOVE, OnMouseMove(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt); pt on the screen
#define ON_WM_MOUSEWHEEL()    \
  VORNFW_VALUE(WM_MOUSEWHEEL, \
               OnMouseWheel(vornfw::LowWord(call), vornfw::WheelDelta(call), vornfw::Point(call)))

// void OnMouseHWheel(UINT nFlags, short zDelta, CPoint pt); pt on the screen
#define ON_WM_MOUSEHWHEEL()   \
  VORNFW_VOID(WM_MOUSEHWHEEL, \
              OnMouseHWheel(vornfw::LowWord(call), vornfw::WheelDelta(call), vornfw::Point(call)))

// void OnMove(int x, int y)
#define ON_WM_MOVE() VORNFW_VOID(WM_MOVE, OnMove(vornfw::SignedX(call), vornfw::SignedY(call)))

// void OnMoving(UINT nSide, LPRECT lpRect)
#define ON_WM_MOVING() \
  VORNFW_VOID(WM_MOVING, OnMoving(static_cast<UINT>(call.wParam), vornfw::Pointer<LPRECT>(call)))

// BOOL OnNcActivate(BOOL bActive)
#define ON_WM_NCACTIVATE() VORNFW_VALUE(WM_NCACTIVATE, OnNcActivate(call.wParam != 0))

// void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* lpncsp)
#define ON_WM_NCCALCSIZE() \
  VORNFW_VOID(WM_NCCALCSIZE, OnNcCalcSize(call.wParam != 0, vornfw::Pointer<NCCALCSIZE_PARAMS*>(call)))

// BOOL OnNcCreate(LPCREATESTRUCTW lpCreateStruct)
#define ON_WM_NCCREATE() VORNFW_VALUE(WM_NCCREATE, OnNcCreate(vornfw::Pointer<LPCREATESTRUCTW>(call)))

// void OnNcDestroy()
#define ON_WM_NCDESTROY() VORNFW_VOID(WM_NCDESTROY, OnNcDestroy())

// LRESULT OnNcHitTest(CPoint point)
#define ON_WM_NCHITTEST() VORNFW_VALUE(WM_NCHITTEST, OnNcHitTest(vornfw::Point(call)))

// void OnNcLButtonDblClk(UINT nHitTest, CPoint point)
#define ON_WM_NCLBUTTONDBLCLK() \
  VORNFW_VOID(WM_NCLBUTTONDBLCLK, OnNcLButtonDblClk(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcLButtonDown(UINT nHitTest, CPoint point)
#define ON_WM_NCLBUTTONDOWN() \
  VORNFW_VOID(WM_NCLBUTTONDOWN, OnNcLButtonDown(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcLButtonUp(UINT nHitTest, CPoint point)
#define ON_WM_NCLBUTTONUP() \
  VORNFW_VOID(WM_NCLBUTTONUP, OnNcLButtonUp(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcMButtonDblClk(UINT nHitTest, CPoint point)
#define ON_WM_NCMBUTTONDBLCLK() \
  VORNFW_VOID(WM_NCMBUTTONDBLCLK, OnNcMButtonDblClk(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcMButtonDown(UINT nHitTest, CPoint point)
#define ON_WM_NCMBUTTONDOWN() \
  VORNFW_VOID(WM_NCMBUTTONDOWN, OnNcMButtonDown(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcMButtonUp(UINT nHitTest, CPoint point)
#define ON_WM_NCMBUTTONUP() \
  VORNFW_VOID(WM_NCMBUTTONUP, OnNcMButtonUp(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcRButtonDblClk(UINT nHitTest, CPoint point)
#define ON_WM_NCRBUTTONDBLCLK() \
  VORNFW_VOID(WM_NCRBUTTONDBLCLK, OnNcRButtonDblClk(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcRButtonDown(UINT nHitTest, CPoint point)
#define ON_WM_NCRBUTTONDOWN() \
  VORNFW_VOID(WM_NCRBUTTONDOWN, OnNcRButtonDown(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcRButtonUp(UINT nHitTest, CPoint point)
#define ON_WM_NCRBUTTONUP() \
  VORNFW_VOID(WM_NCRBUTTONUP, OnNcRButtonUp(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcMouseHover(UINT nHitTest, CPoint point)
#define ON_WM_NCMOUSEHOVER() \
  VORNFW_VOID(WM_NCMOUSEHOVER, OnNcMouseHover(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcMouseLeave()
#define ON_WM_NCMOUSELEAVE() VORNFW_VOID(WM_NCMOUSELEAVE, OnNcMouseLeave())

// void OnNcMouseMove(UINT nHitTest, CPoint point)
#define ON_WM_NCMOUSEMOVE() \
  VORNFW_VOID(WM_NCMOUSEMOVE, OnNcMouseMove(static_cast<UINT>(call.wParam), vornfw::Point(call)))

// void OnNcPaint()
#define ON_WM_NCPAINT() VORNFW_VOID(WM_NCPAINT, OnNcPaint())

// void OnPaint()
#define ON_WM_PAINT() VORNFW_VOID(WM_PAINT, OnPaint())

// void OnParentNotify(UINT message, LPARAM lParam)
#define ON_WM_PARENTNOTIFY() VORNFW_VOID(WM_PARENTNOTIFY, OnParentNotify(vornfw::LowWord(call), call.lParam))

// HCURSOR OnQueryDragIcon()
#define ON_WM_QUERYDRAGICON() VORNFW_VALUE(WM_QUERYDRAGICON, OnQueryDragIcon())

// BOOL OnQueryEndSession()
#define ON_WM_QUERYENDSESSION() VORNFW_VALUE(WM_QUERYENDSESSION, OnQueryEndSession())

// BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
#define ON_WM_SETCURSOR()    \
  VORNFW_VALUE(WM_SETCURSOR, \
               OnSetCursor(vornfw::WindowFromParam(call.wParam), LOWORD(call.lParam), HIWORD(call.lParam)))

// void OnSetFocus(CWnd* pOldWnd)
#define ON_WM_SETFOCUS() VORNFW_VOID(WM_SETFOCUS, OnSetFocus(vornfw::WindowFromParam(call.wParam)))

// void OnSettingChange(UINT uFlags, LPCWSTR lpszSection)
#define ON_WM_SETTINGCHANGE()   \
  VORNFW_VOID(WM_SETTINGCHANGE, \
              OnSettingChange(static_cast<UINT>(call.wParam), vornfw::Pointer<LPCWSTR>(call)))

// void OnShowWindow(BOOL bShow, UINT nStatus)
#define ON_WM_SHOWWINDOW() \
  VORNFW_VOID(WM_SHOWWINDOW, OnShowWindow(call.wParam != 0, static_cast<UINT>(call.lParam)))

// void OnSize(UINT nType, int cx, int cy)
#define ON_WM_SIZE() \
  VORNFW_VOID(WM_SIZE, OnSize(static_cast<UINT>(call.wParam), LOWORD(call.lParam), HIWORD(call.lParam)))

// void OnSizing(UINT nSide, LPRECT lpRect)
#define ON_WM_SIZING() \
  VORNFW_VOID(WM_SIZING, OnSizing(static_cast<UINT>(call.wParam), vornfw::Pointer<LPRECT>(call)))

// void OnStyleChanged(int nStyleType, LPSTYLESTRUCT lpStyleStruct)
#define ON_WM_STYLECHANGED()   \
  VORNFW_VOID(WM_STYLECHANGED, \
              OnStyleChanged(static_cast<int>(call.wParam), vornfw::Pointer<LPSTYLESTRUCT>(call)))

// void OnStyleChanging(int nStyleType, LPSTYLESTRUCT lpStyleStruct)
#define ON_WM_STYLECHANGING()   \
  VORNFW_VOID(WM_STYLECHANGING, \
              OnStyleChanging(static_cast<int>(call.wParam), vornfw::Pointer<LPSTYLESTRUCT>(call)))

// void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_SYSCHAR()   \
  VORNFW_VOID(WM_SYSCHAR, \
              OnSysChar(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), vornfw::KeyFlags(call)))

// void OnSysColorChange()
#define ON_WM_SYSCOLORCHANGE() VORNFW_VOID(WM_SYSCOLORCHANGE, OnSysColorChange())

// void OnSysCommand(UINT nID, LPARAM lParam)
#define ON_WM_SYSCOMMAND() \
  VORNFW_VOID(WM_SYSCOMMAND, OnSysCommand(static_cast<UINT>(call.wParam), call.lParam))

// void OnSysDeadChar(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_SYSDEADCHAR()                                                                          \
  VORNFW_VOID(WM_SYSDEADCHAR, OnSysDeadChar(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), \
                                            vornfw::KeyFlags(call)))

// void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_SYSKEYDOWN()   \
  VORNFW_VOID(WM_SYSKEYDOWN, \
              OnSysKeyDown(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), vornfw::KeyFlags(call)))

// void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
#define ON_WM_SYSKEYUP()   \
  VORNFW_VOID(WM_SYSKEYUP, \
              OnSysKeyUp(static_cast<UINT>(call.wParam), vornfw::KeyRepeat(call), vornfw::KeyFlags(call)))

// void OnTimer(UINT_PTR nIDEvent)
#define ON_WM_TIMER() VORNFW_VOID(WM_TIMER, OnTimer(static_cast<UINT_PTR>(call.wParam)))

// void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
#define ON_WM_VSCROLL()                                                            \
  VORNFW_VOID(WM_VSCROLL, OnVScroll(vornfw::LowWord(call), vornfw::HighWord(call), \
                                    vornfw::ScrollBarFromParam(call.lParam)))

// void OnWindowPosChanged(WINDOWPOS* lpwndpos)
#define ON_WM_WINDOWPOSCHANGED() \
  VORNFW_VOID(WM_WINDOWPOSCHANGED, OnWindowPosChanged(vornfw::Pointer<WINDOWPOS*>(call)))

// void OnWindowPosChanging(WINDOWPOS* lpwndpos)
#define ON_WM_WINDOWPOSCHANGING() \
  VORNFW_VOID(WM_WINDOWPOSCHANGING, OnWindowPosChanging(vornfw::Pointer<WINDOWPOS*>(call)))

// ---- Messages of one's own ------------------------------------------------------------------------

// LRESULT memberFxn(WPARAM wParam, LPARAM lParam)
#define ON_MESSAGE(message, memberFxn)      \
  VORNFW_HANDLER(message, 0, 0, 0, nullptr, \
                 return VORNFW_MEMBER(LRESULT, (WPARAM, LPARAM), memberFxn)(call.wParam, call.lParam);)

// void memberFxn()
#define ON_MESSAGE_VOID(message, memberFxn) \
  VORNFW_HANDLER(message, 0, 0, 0, nullptr, VORNFW_MEMBER(void, (), memberFxn)(); return 0;)

// nMessageVariable: a UINT variable with the number of RegisterWindowMessage.
// LRESULT memberFxn(WPARAM wParam, LPARAM lParam)
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn) \
  VORNFW_HANDLER(0xC000, 0, 0, 0, &nMessageVariable,       \
                 return VORNFW_MEMBER(LRESULT, (WPARAM, LPARAM), memberFxn)(call.wParam, call.lParam);)

// In the map of a CWinThread, for messages posted to the thread: void memberFxn(WPARAM wParam, LPARAM lParam)
#define ON_THREAD_MESSAGE(message, memberFxn)                                                \
  VORNFW_HANDLER(message, 0, 0, 0, nullptr,                                                  \
                 VORNFW_MEMBER(void, (WPARAM, LPARAM), memberFxn)(call.wParam, call.lParam); \
                 return TRUE;)
#define ON_REGISTERED_THREAD_MESSAGE(nMessageVariable, memberFxn)                            \
  VORNFW_HANDLER(0xC000, 0, 0, 0, &nMessageVariable,                                         \
                 VORNFW_MEMBER(void, (WPARAM, LPARAM), memberFxn)(call.wParam, call.lParam); \
                 return TRUE;)

// ---- Commands -------------------------------------------------------------------------------------

// void memberFxn()
#define ON_COMMAND(id, memberFxn) \
  VORNFW_HANDLER(WM_COMMAND, CN_COMMAND, id, id, nullptr, VORNFW_MEMBER(void, (), memberFxn)(); return TRUE;)

// void memberFxn(UINT nID), for id to idLast
#define ON_COMMAND_RANGE(nIDFirst, nIDLast, memberFxn)               \
  VORNFW_HANDLER(WM_COMMAND, CN_COMMAND, nIDFirst, nIDLast, nullptr, \
                 VORNFW_MEMBER(void, (UINT), memberFxn)(call.id);    \
                 return TRUE;)

// BOOL memberFxn(UINT nID); 0 lets the command travel on
#define ON_COMMAND_EX(id, memberFxn) ON_COMMAND_EX_RANGE(id, id, memberFxn)
#define ON_COMMAND_EX_RANGE(nIDFirst, nIDLast, memberFxn)            \
  VORNFW_HANDLER(WM_COMMAND, CN_COMMAND, nIDFirst, nIDLast, nullptr, \
                 return VORNFW_MEMBER(BOOL, (UINT), memberFxn)(call.id);)

// void memberFxn(CCmdUI* pCmdUI)
#define ON_UPDATE_COMMAND_UI(id, memberFxn) ON_UPDATE_COMMAND_UI_RANGE(id, id, memberFxn)
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn)               \
  VORNFW_HANDLER(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, nullptr, \
                 auto* pCmdUI = static_cast<CCmdUI*>(call.extra);       \
                 VORNFW_MEMBER(void, (CCmdUI*), memberFxn)(pCmdUI); return vornfw::UpdateDone(pCmdUI);)
// The same for a control that asks for its own state.
#define ON_UPDATE_COMMAND_UI_REFLECT(memberFxn)                                     \
  VORNFW_HANDLER(WM_COMMAND + WM_REFLECT_BASE, CN_UPDATE_COMMAND_UI, 0, 0, nullptr, \
                 auto* pCmdUI = static_cast<CCmdUI*>(call.extra);                   \
                 VORNFW_MEMBER(void, (CCmdUI*), memberFxn)(pCmdUI); return vornfw::UpdateDone(pCmdUI);)

// ---- Control notifications ------------------------------------------------------------------------

// void memberFxn()
#define ON_CONTROL(wNotifyCode, id, memberFxn)                                \
  VORNFW_HANDLER(WM_COMMAND, static_cast<WORD>(wNotifyCode), id, id, nullptr, \
                 VORNFW_MEMBER(void, (), memberFxn)();                        \
                 return TRUE;)

// void memberFxn(UINT nID), for id to idLast
#define ON_CONTROL_RANGE(wNotifyCode, nIDFirst, nIDLast, memberFxn)                      \
  VORNFW_HANDLER(WM_COMMAND, static_cast<WORD>(wNotifyCode), nIDFirst, nIDLast, nullptr, \
                 VORNFW_MEMBER(void, (UINT), memberFxn)(call.id);                        \
                 return TRUE;)

// In the control's own map: void memberFxn(); the parent is not told
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                            \
  VORNFW_HANDLER(WM_COMMAND + WM_REFLECT_BASE, static_cast<WORD>(wNotifyCode), 0, 0, nullptr, \
                 VORNFW_MEMBER(void, (), memberFxn)();                                        \
                 return TRUE;)
// BOOL memberFxn(); 0: the parent is told as well
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                         \
  VORNFW_HANDLER(WM_COMMAND + WM_REFLECT_BASE, static_cast<WORD>(wNotifyCode), 0, 0, nullptr, \
                 return VORNFW_MEMBER(BOOL, (), memberFxn)();)

#define VORNFW_NOTIFY(message, code, id, idLast, body)                                    \
  VORNFW_HANDLER(message, static_cast<WORD>(static_cast<int>(code)), id, idLast, nullptr, \
                 auto* pNotify = static_cast<vornfw::Notification*>(call.extra);          \
                 body)

// Codes compare in their lower 16 bits. void memberFxn(NMHDR* pNMHDR, LRESULT* pResult)
#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                         \
  VORNFW_NOTIFY(WM_NOTIFY, wNotifyCode, id, id,                                                       \
                VORNFW_MEMBER(void, (NMHDR*, LRESULT*), memberFxn)(pNotify->header, pNotify->result); \
                return TRUE;)
// BOOL memberFxn(UINT nID, NMHDR* pNMHDR, LRESULT* pResult); 0 lets it travel on
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn) ON_NOTIFY_EX_RANGE(wNotifyCode, id, id, memberFxn)
#define ON_NOTIFY_EX_RANGE(wNotifyCode, nIDFirst, nIDLast, memberFxn)                                     \
  VORNFW_NOTIFY(WM_NOTIFY, wNotifyCode, nIDFirst, nIDLast,                                                \
                return VORNFW_MEMBER(BOOL, (UINT, NMHDR*, LRESULT*), memberFxn)(call.id, pNotify->header, \
                                                                                pNotify->result);)
// void memberFxn(UINT nID, NMHDR* pNMHDR, LRESULT* pResult), for id to idLast
#define ON_NOTIFY_RANGE(wNotifyCode, nIDFirst, nIDLast, memberFxn)                                         \
  VORNFW_NOTIFY(                                                                                           \
      WM_NOTIFY, wNotifyCode, nIDFirst, nIDLast,                                                           \
      VORNFW_MEMBER(void, (UINT, NMHDR*, LRESULT*), memberFxn)(call.id, pNotify->header, pNotify->result); \
      return TRUE;)
// In the control's own map: void memberFxn(NMHDR* pNMHDR, LRESULT* pResult); the parent is not told
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                     \
  VORNFW_NOTIFY(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0,                                       \
                VORNFW_MEMBER(void, (NMHDR*, LRESULT*), memberFxn)(pNotify->header, pNotify->result); \
                return TRUE;)
// BOOL memberFxn(NMHDR* pNMHDR, LRESULT* pResult); 0: the parent is told as well
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)  \
  VORNFW_NOTIFY(                                      \
      WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, \
      return VORNFW_MEMBER(BOOL, (NMHDR*, LRESULT*), memberFxn)(pNotify->header, pNotify->result);)

// ---- Messages that the parent gets and the control answers itself ---------------------------------

// HBRUSH CtlColor(CDC* pDC, UINT nCtlColor); null: the parent is asked
#define ON_WM_CTLCOLOR_REFLECT()              \
  VORNFW_VALUE(WM_CTLCOLOR + WM_REFLECT_BASE, \
               CtlColor(vornfw::DeviceContextFromParam(call.wParam), call.message - WM_CTLCOLORMSGBOX))

// void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
#define ON_WM_DRAWITEM_REFLECT() \
  VORNFW_VOID(WM_DRAWITEM + WM_REFLECT_BASE, DrawItem(vornfw::Pointer<LPDRAWITEMSTRUCT>(call)))

// void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct)
#define ON_WM_MEASUREITEM_REFLECT() \
  VORNFW_VOID(WM_MEASUREITEM + WM_REFLECT_BASE, MeasureItem(vornfw::Pointer<LPMEASUREITEMSTRUCT>(call)))

// void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct)
#define ON_WM_DELETEITEM_REFLECT() \
  VORNFW_VOID(WM_DELETEITEM + WM_REFLECT_BASE, DeleteItem(vornfw::Pointer<LPDELETEITEMSTRUCT>(call)))

// int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct)
#define ON_WM_COMPAREITEM_REFLECT() \
  VORNFW_VALUE(WM_COMPAREITEM + WM_REFLECT_BASE, CompareItem(vornfw::Pointer<LPCOMPAREITEMSTRUCT>(call)))

// void HScroll(UINT nSBCode, UINT nPos)
#define ON_WM_HSCROLL_REFLECT() \
  VORNFW_VOID(WM_HSCROLL + WM_REFLECT_BASE, HScroll(vornfw::LowWord(call), vornfw::HighWord(call)))

// void VScroll(UINT nSBCode, UINT nPos)
#define ON_WM_VSCROLL_REFLECT() \
  VORNFW_VOID(WM_VSCROLL + WM_REFLECT_BASE, VScroll(vornfw::LowWord(call), vornfw::HighWord(call)))

// ---- Names for the notifications of the standard controls: void memberFxn() -----------------------

#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)

#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)

#define ON_LBN_ERRSPACE(id, memberFxn) ON_CONTROL(LBN_ERRSPACE, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)

#define ON_CBN_ERRSPACE(id, memberFxn) ON_CONTROL(CBN_ERRSPACE, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)
