// Windows, messages, input, painting of windows, scroll bars, timers and hooks.
#pragma once

#include "windef.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser_constants.h"
#include "winuser_drawing.h"

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using DLGPROC = INT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using TIMERPROC = void(CALLBACK*)(HWND, UINT, UINT_PTR, DWORD);
using WNDENUMPROC = BOOL(CALLBACK*)(HWND, LPARAM);
using HOOKPROC = LRESULT(CALLBACK*)(int, WPARAM, LPARAM);
using PROPENUMPROCW = BOOL(CALLBACK*)(HWND, LPCWSTR, HANDLE);
using PROPENUMPROCEXW = BOOL(CALLBACK*)(HWND, LPWSTR, HANDLE, ULONG_PTR);
using MONITORENUMPROC = BOOL(CALLBACK*)(HMONITOR, HDC, LPRECT, LPARAM);
using SENDASYNCPROC = void(CALLBACK*)(HWND, UINT, ULONG_PTR, LRESULT);

#define GET_WHEEL_DELTA_WPARAM(wp) (static_cast<short>(HIWORD(wp)))
#define GET_KEYSTATE_WPARAM(wp) (LOWORD(wp))
#define GET_XBUTTON_WPARAM(wp) (HIWORD(wp))
#define GET_NCHITTEST_WPARAM(wp) (static_cast<short>(LOWORD(wp)))
#define GET_SC_WPARAM(wp) (static_cast<int>(wp) & 0xFFF0)
#define POINTSTOPOINT(pt, pts) ((pt).x = (pts).x, (pt).y = (pts).y)
#define MAKEPOINTS(l) (*reinterpret_cast<POINTS*>(&(l)))

// Classes

struct tagWNDCLASSW {
  UINT style;
  WNDPROC lpfnWndProc;
  int cbClsExtra;
  int cbWndExtra;
  HINSTANCE hInstance;
  HICON hIcon;
  HCURSOR hCursor;
  HBRUSH hbrBackground;
  LPCWSTR lpszMenuName;
  LPCWSTR lpszClassName;
};
using WNDCLASSW = tagWNDCLASSW;
using LPWNDCLASSW = WNDCLASSW*;
using WNDCLASS = WNDCLASSW;

struct tagWNDCLASSEXW {
  UINT cbSize;
  UINT style;
  WNDPROC lpfnWndProc;
  int cbClsExtra;
  int cbWndExtra;
  HINSTANCE hInstance;
  HICON hIcon;
  HCURSOR hCursor;
  HBRUSH hbrBackground;
  LPCWSTR lpszMenuName;
  LPCWSTR lpszClassName;
  HICON hIconSm;
};
using WNDCLASSEXW = tagWNDCLASSEXW;
using LPWNDCLASSEXW = WNDCLASSEXW*;
using WNDCLASSEX = WNDCLASSEXW;

DESKTOP_API ATOM WINAPI RegisterClassW(const WNDCLASSW* wc);
DESKTOP_API ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* wc);
DESKTOP_API BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE instance);
DESKTOP_API BOOL WINAPI GetClassInfoW(HINSTANCE instance, LPCWSTR name, LPWNDCLASSW wc);
DESKTOP_API BOOL WINAPI GetClassInfoExW(HINSTANCE instance, LPCWSTR name, LPWNDCLASSEXW wc);
DESKTOP_API int WINAPI GetClassNameW(HWND window, LPWSTR name, int size);
DESKTOP_API ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index);
DESKTOP_API ULONG_PTR WINAPI SetClassLongPtrW(HWND window, int index, LONG_PTR value);
DESKTOP_API DWORD WINAPI GetClassLongW(HWND window, int index);
DESKTOP_API DWORD WINAPI SetClassLongW(HWND window, int index, LONG value);
DESKTOP_API WORD WINAPI GetClassWord(HWND window, int index);

// Windows

struct tagCREATESTRUCTW {
  LPVOID lpCreateParams;
  HINSTANCE hInstance;
  HMENU hMenu;
  HWND hwndParent;
  int cy;
  int cx;
  int y;
  int x;
  LONG style;
  LPCWSTR lpszName;
  LPCWSTR lpszClass;
  DWORD dwExStyle;
};
using CREATESTRUCTW = tagCREATESTRUCTW;
using LPCREATESTRUCTW = CREATESTRUCTW*;
using CREATESTRUCT = CREATESTRUCTW;
using LPCREATESTRUCT = CREATESTRUCTW*;

struct tagCBT_CREATEWNDW {
  CREATESTRUCTW* lpcs;
  HWND hwndInsertAfter;
};
using CBT_CREATEWNDW = tagCBT_CREATEWNDW;
using LPCBT_CREATEWNDW = CBT_CREATEWNDW*;
using CBT_CREATEWND = CBT_CREATEWNDW;
using LPCBT_CREATEWND = CBT_CREATEWNDW*;

struct tagCBTACTIVATESTRUCT {
  BOOL fMouse;
  HWND hWndActive;
};
using CBTACTIVATESTRUCT = tagCBTACTIVATESTRUCT;
using LPCBTACTIVATESTRUCT = CBTACTIVATESTRUCT*;

struct tagSTYLESTRUCT {
  DWORD styleOld;
  DWORD styleNew;
};
using STYLESTRUCT = tagSTYLESTRUCT;
using LPSTYLESTRUCT = STYLESTRUCT*;

struct tagWINDOWPOS {
  HWND hwnd;
  HWND hwndInsertAfter;
  int x;
  int y;
  int cx;
  int cy;
  UINT flags;
};
using WINDOWPOS = tagWINDOWPOS;
using LPWINDOWPOS = WINDOWPOS*;
using PWINDOWPOS = WINDOWPOS*;

struct tagNCCALCSIZE_PARAMS {
  RECT rgrc[3];
  PWINDOWPOS lppos;
};
using NCCALCSIZE_PARAMS = tagNCCALCSIZE_PARAMS;
using LPNCCALCSIZE_PARAMS = NCCALCSIZE_PARAMS*;

struct tagWINDOWPLACEMENT {
  UINT length;
  UINT flags;
  UINT showCmd;
  POINT ptMinPosition;
  POINT ptMaxPosition;
  RECT rcNormalPosition;
};
#define WPF_SETMINPOSITION 0x0001
#define WPF_RESTORETOMAXIMIZED 0x0002
#define WPF_ASYNCWINDOWPLACEMENT 0x0004
using WINDOWPLACEMENT = tagWINDOWPLACEMENT;
using LPWINDOWPLACEMENT = WINDOWPLACEMENT*;

struct tagMINMAXINFO {
  POINT ptReserved;
  POINT ptMaxSize;
  POINT ptMaxPosition;
  POINT ptMinTrackSize;
  POINT ptMaxTrackSize;
};
using MINMAXINFO = tagMINMAXINFO;
using LPMINMAXINFO = MINMAXINFO*;

struct tagCOPYDATASTRUCT {
  ULONG_PTR dwData;
  DWORD cbData;
  PVOID lpData;
};
using COPYDATASTRUCT = tagCOPYDATASTRUCT;

struct tagNMHDR {
  HWND hwndFrom;
  UINT_PTR idFrom;
  UINT code;
};
using NMHDR = tagNMHDR;
using LPNMHDR = NMHDR*;

DESKTOP_API HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                                        int y, int width, int height, HWND parent, HMENU menu,
                                        HINSTANCE instance, LPVOID param);
#define CreateWindowW(c, t, s, x, y, w, h, p, m, i, l) CreateWindowExW(0, c, t, s, x, y, w, h, p, m, i, l)
DESKTOP_API BOOL WINAPI DestroyWindow(HWND window);
DESKTOP_API BOOL WINAPI IsWindow(HWND window);
DESKTOP_API BOOL WINAPI IsWindowUnicode(HWND window);
DESKTOP_API BOOL WINAPI IsWindowVisible(HWND window);
DESKTOP_API BOOL WINAPI IsWindowEnabled(HWND window);
DESKTOP_API BOOL WINAPI IsIconic(HWND window);
DESKTOP_API BOOL WINAPI IsZoomed(HWND window);
DESKTOP_API BOOL WINAPI IsChild(HWND parent, HWND window);
DESKTOP_API BOOL WINAPI ShowWindow(HWND window, int command);
DESKTOP_API BOOL WINAPI ShowOwnedPopups(HWND owner, BOOL show);
DESKTOP_API BOOL WINAPI OpenIcon(HWND window);
DESKTOP_API BOOL WINAPI CloseWindow(HWND window);
DESKTOP_API BOOL WINAPI EnableWindow(HWND window, BOOL enable);
DESKTOP_API BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
DESKTOP_API BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int cx, int cy, UINT flags);
DESKTOP_API HDWP WINAPI BeginDeferWindowPos(int count);
DESKTOP_API HDWP WINAPI DeferWindowPos(HDWP info, HWND window, HWND after, int x, int y, int cx, int cy,
                                       UINT flags);
DESKTOP_API BOOL WINAPI EndDeferWindowPos(HDWP info);
DESKTOP_API BOOL WINAPI BringWindowToTop(HWND window);
DESKTOP_API BOOL WINAPI GetWindowPlacement(HWND window, WINDOWPLACEMENT* placement);
DESKTOP_API BOOL WINAPI SetWindowPlacement(HWND window, const WINDOWPLACEMENT* placement);
DESKTOP_API LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
DESKTOP_API LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
DESKTOP_API LONG WINAPI GetWindowLongW(HWND window, int index);
DESKTOP_API LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);
DESKTOP_API HWND WINAPI SetParent(HWND window, HWND parent);
DESKTOP_API HWND WINAPI GetParent(HWND window);
DESKTOP_API HWND WINAPI GetAncestor(HWND window, UINT what);
DESKTOP_API HWND WINAPI GetWindow(HWND window, UINT relation);
DESKTOP_API HWND WINAPI GetTopWindow(HWND parent);
#define GetNextWindow(window, relation) GetWindow(window, relation)
DESKTOP_API HWND WINAPI GetLastActivePopup(HWND owner);
DESKTOP_API HWND WINAPI GetDesktopWindow();
DESKTOP_API HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title);
DESKTOP_API HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR title);
DESKTOP_API BOOL WINAPI EnumWindows(WNDENUMPROC proc, LPARAM param);
DESKTOP_API BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM param);
DESKTOP_API BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC proc, LPARAM param);
DESKTOP_API DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);
DESKTOP_API HWND WINAPI WindowFromPoint(POINT point);
DESKTOP_API HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point);
DESKTOP_API HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags);
DESKTOP_API HWND WINAPI RealChildWindowFromPoint(HWND parent, POINT point);
DESKTOP_API int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
DESKTOP_API BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
DESKTOP_API BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
DESKTOP_API BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
DESKTOP_API BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
DESKTOP_API BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu);
DESKTOP_API BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);
DESKTOP_API HWND WINAPI GetDlgItem(HWND parent, int id);
DESKTOP_API int WINAPI GetDlgCtrlID(HWND window);
DESKTOP_API BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
DESKTOP_API int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size);
DESKTOP_API int WINAPI GetWindowTextLengthW(HWND window);
DESKTOP_API int WINAPI InternalGetWindowText(HWND window, LPWSTR text, int size);
DESKTOP_API int WINAPI SetWindowRgn(HWND window, HRGN region, BOOL redraw);
DESKTOP_API int WINAPI GetWindowRgn(HWND window, HRGN region);
DESKTOP_API BOOL WINAPI SetLayeredWindowAttributes(HWND window, COLORREF key, BYTE alpha, DWORD flags);
DESKTOP_API BOOL WINAPI GetLayeredWindowAttributes(HWND window, COLORREF* key, BYTE* alpha, DWORD* flags);
DESKTOP_API BOOL WINAPI FlashWindow(HWND window, BOOL invert);

// Properties: names are compared without case; atoms serve as names too.
DESKTOP_API BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE data);
DESKTOP_API HANDLE WINAPI GetPropW(HWND window, LPCWSTR name);
DESKTOP_API HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name);
DESKTOP_API BOOL WINAPI SetPropA(HWND window, LPCSTR name, HANDLE data);
DESKTOP_API HANDLE WINAPI GetPropA(HWND window, LPCSTR name);
DESKTOP_API HANDLE WINAPI RemovePropA(HWND window, LPCSTR name);
DESKTOP_API int WINAPI EnumPropsW(HWND window, PROPENUMPROCW proc);
DESKTOP_API int WINAPI EnumPropsExW(HWND window, PROPENUMPROCEXW proc, LPARAM param);

// Messages

struct tagMSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};
using MSG = tagMSG;
using PMSG = MSG*;
using LPMSG = MSG*;

DESKTOP_API LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
DESKTOP_API LRESULT WINAPI CallWindowProcW(WNDPROC proc, HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam);
DESKTOP_API LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
DESKTOP_API LRESULT WINAPI SendMessageTimeoutW(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                               UINT flags, UINT timeout, DWORD_PTR* result);
DESKTOP_API BOOL WINAPI SendNotifyMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
DESKTOP_API BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
DESKTOP_API BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);
DESKTOP_API void WINAPI PostQuitMessage(int exitCode);
DESKTOP_API BOOL WINAPI GetMessageW(LPMSG msg, HWND window, UINT first, UINT last);
DESKTOP_API BOOL WINAPI PeekMessageW(LPMSG msg, HWND window, UINT first, UINT last, UINT remove);
DESKTOP_API BOOL WINAPI WaitMessage();
DESKTOP_API DWORD WINAPI MsgWaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL waitAll,
                                                   DWORD milliseconds, DWORD wakeMask);
DESKTOP_API DWORD WINAPI MsgWaitForMultipleObjectsEx(DWORD count, const HANDLE* handles, DWORD milliseconds,
                                                     DWORD wakeMask, DWORD flags);
DESKTOP_API BOOL WINAPI TranslateMessage(const MSG* msg);
DESKTOP_API LRESULT WINAPI DispatchMessageW(const MSG* msg);
DESKTOP_API BOOL WINAPI ReplyMessage(LRESULT result);
DESKTOP_API BOOL WINAPI InSendMessage();
DESKTOP_API DWORD WINAPI InSendMessageEx(LPVOID reserved);
DESKTOP_API DWORD WINAPI GetQueueStatus(UINT flags);
DESKTOP_API BOOL WINAPI GetInputState();
DESKTOP_API LONG WINAPI GetMessageTime();
DESKTOP_API DWORD WINAPI GetMessagePos();
DESKTOP_API LPARAM WINAPI GetMessageExtraInfo();
DESKTOP_API LPARAM WINAPI SetMessageExtraInfo(LPARAM param);
DESKTOP_API UINT WINAPI RegisterWindowMessageW(LPCWSTR name);

DESKTOP_API UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT elapse, TIMERPROC proc);
DESKTOP_API BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Hooks

struct tagMOUSEHOOKSTRUCT {
  POINT pt;
  HWND hwnd;
  UINT wHitTestCode;
  ULONG_PTR dwExtraInfo;
};
using MOUSEHOOKSTRUCT = tagMOUSEHOOKSTRUCT;
using LPMOUSEHOOKSTRUCT = MOUSEHOOKSTRUCT*;

struct tagCWPSTRUCT {
  LPARAM lParam;
  WPARAM wParam;
  UINT message;
  HWND hwnd;
};
using CWPSTRUCT = tagCWPSTRUCT;
using LPCWPSTRUCT = CWPSTRUCT*;

struct tagCWPRETSTRUCT {
  LRESULT lResult;
  LPARAM lParam;
  WPARAM wParam;
  UINT message;
  HWND hwnd;
};
using CWPRETSTRUCT = tagCWPRETSTRUCT;
using LPCWPRETSTRUCT = CWPRETSTRUCT*;

// Hooks are of one thread each (thread id 0 means the calling thread's queue in this process).
DESKTOP_API HHOOK WINAPI SetWindowsHookExW(int id, HOOKPROC proc, HINSTANCE module, DWORD thread);
DESKTOP_API BOOL WINAPI UnhookWindowsHookEx(HHOOK hook);
DESKTOP_API LRESULT WINAPI CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);
DESKTOP_API BOOL WINAPI CallMsgFilterW(LPMSG msg, int code);

// Painting

struct tagPAINTSTRUCT {
  HDC hdc;
  BOOL fErase;
  RECT rcPaint;
  BOOL fRestore;
  BOOL fIncUpdate;
  BYTE rgbReserved[32];
};
using PAINTSTRUCT = tagPAINTSTRUCT;
using LPPAINTSTRUCT = PAINTSTRUCT*;

DESKTOP_API HDC WINAPI GetDC(HWND window);
DESKTOP_API HDC WINAPI GetDCEx(HWND window, HRGN clip, DWORD flags);
DESKTOP_API HDC WINAPI GetWindowDC(HWND window);
DESKTOP_API int WINAPI ReleaseDC(HWND window, HDC dc);
DESKTOP_API HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT ps);
DESKTOP_API BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* ps);
DESKTOP_API BOOL WINAPI UpdateWindow(HWND window);
DESKTOP_API BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
DESKTOP_API BOOL WINAPI InvalidateRgn(HWND window, HRGN region, BOOL erase);
DESKTOP_API BOOL WINAPI ValidateRect(HWND window, const RECT* rect);
DESKTOP_API BOOL WINAPI ValidateRgn(HWND window, HRGN region);
DESKTOP_API BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
DESKTOP_API BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL erase);
DESKTOP_API int WINAPI GetUpdateRgn(HWND window, HRGN region, BOOL erase);
DESKTOP_API int WINAPI ExcludeUpdateRgn(HDC dc, HWND window);
DESKTOP_API BOOL WINAPI LockWindowUpdate(HWND window);

// Scrolling

struct tagSCROLLINFO {
  UINT cbSize;
  UINT fMask;
  int nMin;
  int nMax;
  UINT nPage;
  int nPos;
  int nTrackPos;
};
using SCROLLINFO = tagSCROLLINFO;
using LPSCROLLINFO = SCROLLINFO*;
using LPCSCROLLINFO = const SCROLLINFO*;

#define CCHILDREN_SCROLLBAR 5
struct tagSCROLLBARINFO {
  DWORD cbSize;
  RECT rcScrollBar;
  int dxyLineButton;
  int xyThumbTop;
  int xyThumbBottom;
  int reserved;
  DWORD rgstate[CCHILDREN_SCROLLBAR + 1];
};
using SCROLLBARINFO = tagSCROLLBARINFO;
using PSCROLLBARINFO = SCROLLBARINFO*;

DESKTOP_API int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw);
DESKTOP_API BOOL WINAPI GetScrollInfo(HWND window, int bar, LPSCROLLINFO info);
DESKTOP_API int WINAPI SetScrollPos(HWND window, int bar, int pos, BOOL redraw);
DESKTOP_API int WINAPI GetScrollPos(HWND window, int bar);
DESKTOP_API BOOL WINAPI SetScrollRange(HWND window, int bar, int low, int high, BOOL redraw);
DESKTOP_API BOOL WINAPI GetScrollRange(HWND window, int bar, LPINT low, LPINT high);
DESKTOP_API BOOL WINAPI GetScrollBarInfo(HWND window, LONG object, PSCROLLBARINFO info);
DESKTOP_API BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show);
DESKTOP_API BOOL WINAPI EnableScrollBar(HWND window, UINT bar, UINT arrows);
DESKTOP_API BOOL WINAPI ScrollWindow(HWND window, int dx, int dy, const RECT* rect, const RECT* clip);
DESKTOP_API int WINAPI ScrollWindowEx(HWND window, int dx, int dy, const RECT* rect, const RECT* clip,
                                      HRGN update, LPRECT updateRect, UINT flags);
DESKTOP_API BOOL WINAPI ScrollDC(HDC dc, int dx, int dy, const RECT* rect, const RECT* clip, HRGN update,
                                 LPRECT updateRect);

// Input

struct tagMOUSEINPUT {
  LONG dx;
  LONG dy;
  DWORD mouseData;
  DWORD dwFlags;
  DWORD time;
  ULONG_PTR dwExtraInfo;
};
using MOUSEINPUT = tagMOUSEINPUT;

struct tagKEYBDINPUT {
  WORD wVk;
  WORD wScan;
  DWORD dwFlags;
  DWORD time;
  ULONG_PTR dwExtraInfo;
};
using KEYBDINPUT = tagKEYBDINPUT;

struct tagHARDWAREINPUT {
  DWORD uMsg;
  WORD wParamL;
  WORD wParamH;
};
using HARDWAREINPUT = tagHARDWAREINPUT;

struct tagINPUT {
  DWORD type;
  union {
    MOUSEINPUT mi;
    KEYBDINPUT ki;
    HARDWAREINPUT hi;
  };
};
using INPUT = tagINPUT;
using LPINPUT = INPUT*;

struct tagTRACKMOUSEEVENT {
  DWORD cbSize;
  DWORD dwFlags;
  HWND hwndTrack;
  DWORD dwHoverTime;
};
using TRACKMOUSEEVENT = tagTRACKMOUSEEVENT;
using LPTRACKMOUSEEVENT = TRACKMOUSEEVENT*;

struct tagGUITHREADINFO {
  DWORD cbSize;
  DWORD flags;
  HWND hwndActive;
  HWND hwndFocus;
  HWND hwndCapture;
  HWND hwndMenuOwner;
  HWND hwndMoveSize;
  HWND hwndCaret;
  RECT rcCaret;
};
using GUITHREADINFO = tagGUITHREADINFO;
using PGUITHREADINFO = GUITHREADINFO*;

DESKTOP_API UINT WINAPI SendInput(UINT count, LPINPUT inputs, int size);
DESKTOP_API void WINAPI mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, ULONG_PTR extra);
DESKTOP_API void WINAPI keybd_event(BYTE key, BYTE scan, DWORD flags, ULONG_PTR extra);
DESKTOP_API SHORT WINAPI GetKeyState(int key);
DESKTOP_API SHORT WINAPI GetAsyncKeyState(int key);
DESKTOP_API BOOL WINAPI GetKeyboardState(PBYTE state);
DESKTOP_API BOOL WINAPI SetKeyboardState(LPBYTE state);
DESKTOP_API UINT WINAPI MapVirtualKeyW(UINT code, UINT type);
DESKTOP_API SHORT WINAPI VkKeyScanW(WCHAR ch);
DESKTOP_API int WINAPI ToUnicode(UINT key, UINT scan, const BYTE* state, LPWSTR buffer, int size, UINT flags);
DESKTOP_API int WINAPI GetKeyNameTextW(LONG lParam, LPWSTR text, int size);
DESKTOP_API BOOL WINAPI GetCursorPos(LPPOINT point);
DESKTOP_API BOOL WINAPI SetCursorPos(int x, int y);
DESKTOP_API BOOL WINAPI ClipCursor(const RECT* rect);
DESKTOP_API BOOL WINAPI GetClipCursor(LPRECT rect);
DESKTOP_API HCURSOR WINAPI SetCursor(HCURSOR cursor);
DESKTOP_API HCURSOR WINAPI GetCursor();
DESKTOP_API int WINAPI ShowCursor(BOOL show);
DESKTOP_API HWND WINAPI SetCapture(HWND window);
DESKTOP_API HWND WINAPI GetCapture();
DESKTOP_API BOOL WINAPI ReleaseCapture();
DESKTOP_API BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT event);
DESKTOP_API BOOL WINAPI DragDetect(HWND window, POINT point);
DESKTOP_API UINT WINAPI GetDoubleClickTime();
DESKTOP_API BOOL WINAPI SetDoubleClickTime(UINT milliseconds);
DESKTOP_API BOOL WINAPI SwapMouseButton(BOOL swap);

DESKTOP_API HWND WINAPI SetFocus(HWND window);
DESKTOP_API HWND WINAPI GetFocus();
DESKTOP_API HWND WINAPI SetActiveWindow(HWND window);
DESKTOP_API HWND WINAPI GetActiveWindow();
DESKTOP_API BOOL WINAPI SetForegroundWindow(HWND window);
DESKTOP_API HWND WINAPI GetForegroundWindow();
DESKTOP_API BOOL WINAPI GetGUIThreadInfo(DWORD thread, PGUITHREADINFO info);

DESKTOP_API BOOL WINAPI CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
DESKTOP_API BOOL WINAPI DestroyCaret();
DESKTOP_API BOOL WINAPI ShowCaret(HWND window);
DESKTOP_API BOOL WINAPI HideCaret(HWND window);
DESKTOP_API BOOL WINAPI SetCaretPos(int x, int y);
DESKTOP_API BOOL WINAPI GetCaretPos(LPPOINT point);
DESKTOP_API UINT WINAPI GetCaretBlinkTime();
DESKTOP_API BOOL WINAPI SetCaretBlinkTime(UINT milliseconds);

// Metrics and monitors

struct tagNONCLIENTMETRICSW {
  UINT cbSize;
  int iBorderWidth;
  int iScrollWidth;
  int iScrollHeight;
  int iCaptionWidth;
  int iCaptionHeight;
  LOGFONTW lfCaptionFont;
  int iSmCaptionWidth;
  int iSmCaptionHeight;
  LOGFONTW lfSmCaptionFont;
  int iMenuWidth;
  int iMenuHeight;
  LOGFONTW lfMenuFont;
  LOGFONTW lfStatusFont;
  LOGFONTW lfMessageFont;
  int iPaddedBorderWidth;
};
using NONCLIENTMETRICSW = tagNONCLIENTMETRICSW;
using NONCLIENTMETRICS = NONCLIENTMETRICSW;

struct tagMONITORINFO {
  DWORD cbSize;
  RECT rcMonitor;
  RECT rcWork;
  DWORD dwFlags;
};
using MONITORINFO = tagMONITORINFO;
using LPMONITORINFO = MONITORINFO*;
#define MONITORINFOF_PRIMARY 0x00000001
#define MONITOR_DEFAULTTONULL 0x00000000
#define MONITOR_DEFAULTTOPRIMARY 0x00000001
#define MONITOR_DEFAULTTONEAREST 0x00000002

DESKTOP_API int WINAPI GetSystemMetrics(int index);
DESKTOP_API DWORD WINAPI GetSysColor(int index);
DESKTOP_API HBRUSH WINAPI GetSysColorBrush(int index);
DESKTOP_API BOOL WINAPI SetSysColors(int count, const INT* elements, const COLORREF* values);
DESKTOP_API BOOL WINAPI SystemParametersInfoW(UINT action, UINT param, PVOID data, UINT winIni);
DESKTOP_API HMONITOR WINAPI MonitorFromWindow(HWND window, DWORD flags);
DESKTOP_API HMONITOR WINAPI MonitorFromPoint(POINT point, DWORD flags);
DESKTOP_API HMONITOR WINAPI MonitorFromRect(LPCRECT rect, DWORD flags);
DESKTOP_API BOOL WINAPI GetMonitorInfoW(HMONITOR monitor, LPMONITORINFO info);
DESKTOP_API BOOL WINAPI EnumDisplayMonitors(HDC dc, LPCRECT clip, MONITORENUMPROC proc, LPARAM param);

// Rectangles

DESKTOP_API BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
DESKTOP_API BOOL WINAPI SetRectEmpty(LPRECT rect);
DESKTOP_API BOOL WINAPI CopyRect(LPRECT to, const RECT* from);
DESKTOP_API BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy);
DESKTOP_API BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy);
DESKTOP_API BOOL WINAPI IntersectRect(LPRECT to, const RECT* a, const RECT* b);
DESKTOP_API BOOL WINAPI UnionRect(LPRECT to, const RECT* a, const RECT* b);
DESKTOP_API BOOL WINAPI SubtractRect(LPRECT to, const RECT* a, const RECT* b);
DESKTOP_API BOOL WINAPI EqualRect(const RECT* a, const RECT* b);
DESKTOP_API BOOL WINAPI IsRectEmpty(const RECT* rect);
DESKTOP_API BOOL WINAPI PtInRect(const RECT* rect, POINT point);

// The names without a letter.
#define RegisterClass RegisterClassW
#define RegisterClassEx RegisterClassExW
#define UnregisterClass UnregisterClassW
#define GetClassInfo GetClassInfoW
#define GetClassInfoEx GetClassInfoExW
#define GetClassName GetClassNameW
#define GetClassLongPtr GetClassLongPtrW
#define SetClassLongPtr SetClassLongPtrW
#define GetClassLong GetClassLongW
#define SetClassLong SetClassLongW
#define CreateWindowEx CreateWindowExW
#define CreateWindow CreateWindowW
#define GetWindowLongPtr GetWindowLongPtrW
#define SetWindowLongPtr SetWindowLongPtrW
#define GetWindowLong GetWindowLongW
#define SetWindowLong SetWindowLongW
#define FindWindow FindWindowW
#define FindWindowEx FindWindowExW
#define SetWindowText SetWindowTextW
#define GetWindowText GetWindowTextW
#define GetWindowTextLength GetWindowTextLengthW
#define SetProp SetPropW
#define GetProp GetPropW
#define RemoveProp RemovePropW
#define EnumProps EnumPropsW
#define EnumPropsEx EnumPropsExW
#define DefWindowProc DefWindowProcW
#define CallWindowProc CallWindowProcW
#define SendMessage SendMessageW
#define SendMessageTimeout SendMessageTimeoutW
#define SendNotifyMessage SendNotifyMessageW
#define PostMessage PostMessageW
#define PostThreadMessage PostThreadMessageW
#define GetMessage GetMessageW
#define PeekMessage PeekMessageW
#define DispatchMessage DispatchMessageW
#define RegisterWindowMessage RegisterWindowMessageW
#define SetWindowsHookEx SetWindowsHookExW
#define CallMsgFilter CallMsgFilterW
#define MapVirtualKey MapVirtualKeyW
#define VkKeyScan VkKeyScanW
#define GetKeyNameText GetKeyNameTextW
#define SystemParametersInfo SystemParametersInfoW
#define GetMonitorInfo GetMonitorInfoW

#include "winuser_controls.h"
