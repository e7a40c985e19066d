// Common controls: notifications, status bar, progress bar and image lists.
#pragma once

#include <windows.h>

#include "commctrl_imagelist.h"

#define ICC_BAR_CLASSES 0x4
#define ICC_PROGRESS_CLASS 0x20
#define ICC_WIN95_CLASSES 0xff
#define ICC_STANDARD_CLASSES 0x4000

struct INITCOMMONCONTROLSEX {
  DWORD dwSize;
  DWORD dwICC;
};
using LPINITCOMMONCONTROLSEX = INITCOMMONCONTROLSEX*;

DESKTOP_API void WINAPI InitCommonControls();
DESKTOP_API BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes);
// As TrackMouseEvent.
DESKTOP_API BOOL WINAPI _TrackMouseEvent(LPTRACKMOUSEEVENT request);

// ---- Subclassing by reference ----

using SUBCLASSPROC = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR data);
DESKTOP_API BOOL WINAPI SetWindowSubclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data);
DESKTOP_API BOOL WINAPI RemoveWindowSubclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id);
DESKTOP_API LRESULT WINAPI DefSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// ---- Notifications ----

#define NM_FIRST (0U - 0U)
#define NM_OUTOFMEMORY (NM_FIRST - 1)
#define NM_CLICK (NM_FIRST - 2)
#define NM_DBLCLK (NM_FIRST - 3)
#define NM_RETURN (NM_FIRST - 4)
#define NM_RCLICK (NM_FIRST - 5)
#define NM_RDBLCLK (NM_FIRST - 6)
#define NM_SETFOCUS (NM_FIRST - 7)
#define NM_KILLFOCUS (NM_FIRST - 8)
#define NM_HOVER (NM_FIRST - 13)
#define NM_KEYDOWN (NM_FIRST - 15)
#define NM_CHAR (NM_FIRST - 18)
#define TVN_FIRST (0U - 400U)
#define TTN_FIRST (0U - 520U)
#define TTN_GETDISPINFOW (TTN_FIRST - 10)
#define TTN_GETDISPINFO TTN_GETDISPINFOW
#define TTN_NEEDTEXTW TTN_GETDISPINFOW
#define TTN_NEEDTEXT TTN_GETDISPINFOW

// What an asker of a tooltip's text sends with TTN_NEEDTEXTW.
struct NMTTDISPINFOW {
  NMHDR hdr;
  LPWSTR lpszText;
  WCHAR szText[80];
  HINSTANCE hinst;
  UINT uFlags;
  LPARAM lParam;
};
using NMTTDISPINFO = NMTTDISPINFOW;
using LPNMTTDISPINFOW = NMTTDISPINFOW*;
using LPNMTTDISPINFO = NMTTDISPINFOW*;
using TOOLTIPTEXTW = NMTTDISPINFOW;
using TOOLTIPTEXT = NMTTDISPINFOW;

struct NMMOUSE {
  NMHDR hdr;
  DWORD_PTR dwItemSpec;
  DWORD_PTR dwItemData;
  POINT pt;
  LPARAM dwHitInfo;
};
using LPNMMOUSE = NMMOUSE*;

// ---- Styles of bars ----

#define CCS_TOP 0x1
#define CCS_NOMOVEY 0x2
#define CCS_BOTTOM 0x3
#define CCS_NORESIZE 0x4
#define CCS_NOPARENTALIGN 0x8
#define CCM_FIRST 0x2000
#define CCM_SETBKCOLOR (CCM_FIRST + 1)

// ---- Status bar ----

#define STATUSCLASSNAMEW L"msctls_statusbar32"
#define STATUSCLASSNAME STATUSCLASSNAMEW
#define SBARS_SIZEGRIP 0x100
#define SBT_NOBORDERS 0x100
#define SBT_POPOUT 0x200
#define SBT_OWNERDRAW 0x1000
#define SB_SETTEXTW (WM_USER + 11)
#define SB_SETTEXT SB_SETTEXTW
#define SB_GETTEXTW (WM_USER + 13)
#define SB_GETTEXT SB_GETTEXTW
#define SB_GETTEXTLENGTHW (WM_USER + 12)
#define SB_GETTEXTLENGTH SB_GETTEXTLENGTHW
#define SB_SETPARTS (WM_USER + 4)
#define SB_GETPARTS (WM_USER + 6)
#define SB_GETBORDERS (WM_USER + 7)
#define SB_SETMINHEIGHT (WM_USER + 8)
#define SB_SIMPLE (WM_USER + 9)
#define SB_GETRECT (WM_USER + 10)
#define SB_ISSIMPLE (WM_USER + 14)
#define SB_SETBKCOLOR CCM_SETBKCOLOR
#define SB_SIMPLEID 0xff
#define SBN_FIRST (0U - 880U)
#define SBN_SIMPLEMODECHANGE (SBN_FIRST - 0)

DESKTOP_API HWND WINAPI CreateStatusWindowW(LONG style, LPCWSTR text, HWND parent, UINT id);
#define CreateStatusWindow CreateStatusWindowW

// ---- Progress bar ----

#define PROGRESS_CLASSW L"msctls_progress32"
#define PROGRESS_CLASS PROGRESS_CLASSW
#define PBS_SMOOTH 0x1
#define PBS_VERTICAL 0x4
#define PBM_SETRANGE (WM_USER + 1)
#define PBM_SETPOS (WM_USER + 2)
#define PBM_DELTAPOS (WM_USER + 3)
#define PBM_SETSTEP (WM_USER + 4)
#define PBM_STEPIT (WM_USER + 5)
#define PBM_SETRANGE32 (WM_USER + 6)
#define PBM_GETRANGE (WM_USER + 7)
#define PBM_GETPOS (WM_USER + 8)
#define PBM_SETBARCOLOR (WM_USER + 9)
#define PBM_SETBKCOLOR CCM_SETBKCOLOR
#define PBM_GETSTEP (WM_USER + 13)
#define PBM_GETBKCOLOR (WM_USER + 14)
#define PBM_GETBARCOLOR (WM_USER + 15)

struct PBRANGE {
  int iLow;
  int iHigh;
};
using PPBRANGE = PBRANGE*;
