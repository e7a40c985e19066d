// The drawing half of <winuser.h>: rectangles, edges, controls, formatted text, icons and cursors.
#pragma once

#include "windef.h"

// DrawEdge.
#define BDR_RAISEDOUTER 0x0001
#define BDR_SUNKENOUTER 0x0002
#define BDR_RAISEDINNER 0x0004
#define BDR_SUNKENINNER 0x0008
#define BDR_OUTER (BDR_RAISEDOUTER | BDR_SUNKENOUTER)
#define BDR_INNER (BDR_RAISEDINNER | BDR_SUNKENINNER)
#define BDR_RAISED (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define BDR_SUNKEN (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_RAISED (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define EDGE_SUNKEN (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_ETCHED (BDR_SUNKENOUTER | BDR_RAISEDINNER)
#define EDGE_BUMP (BDR_RAISEDOUTER | BDR_SUNKENINNER)
#define BF_LEFT 0x0001
#define BF_TOP 0x0002
#define BF_RIGHT 0x0004
#define BF_BOTTOM 0x0008
#define BF_TOPLEFT (BF_TOP | BF_LEFT)
#define BF_TOPRIGHT (BF_TOP | BF_RIGHT)
#define BF_BOTTOMLEFT (BF_BOTTOM | BF_LEFT)
#define BF_BOTTOMRIGHT (BF_BOTTOM | BF_RIGHT)
#define BF_RECT (BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM)
#define BF_DIAGONAL 0x0010
#define BF_MIDDLE 0x0800
#define BF_SOFT 0x1000
#define BF_ADJUST 0x2000
#define BF_FLAT 0x4000
#define BF_MONO 0x8000

// DrawFrameControl.
#define DFC_CAPTION 1
#define DFC_MENU 2
#define DFC_SCROLL 3
#define DFC_BUTTON 4
#define DFC_POPUPMENU 5
#define DFCS_CAPTIONCLOSE 0x0000
#define DFCS_CAPTIONMIN 0x0001
#define DFCS_CAPTIONMAX 0x0002
#define DFCS_CAPTIONRESTORE 0x0003
#define DFCS_CAPTIONHELP 0x0004
#define DFCS_MENUARROW 0x0000
#define DFCS_MENUCHECK 0x0001
#define DFCS_MENUBULLET 0x0002
#define DFCS_MENUARROWRIGHT 0x0004
#define DFCS_SCROLLUP 0x0000
#define DFCS_SCROLLDOWN 0x0001
#define DFCS_SCROLLLEFT 0x0002
#define DFCS_SCROLLRIGHT 0x0003
#define DFCS_SCROLLCOMBOBOX 0x0005
#define DFCS_SCROLLSIZEGRIP 0x0008
#define DFCS_SCROLLSIZEGRIPRIGHT 0x0010
#define DFCS_BUTTONCHECK 0x0000
#define DFCS_BUTTONRADIOIMAGE 0x0001
#define DFCS_BUTTONRADIOMASK 0x0002
#define DFCS_BUTTONRADIO 0x0004
#define DFCS_BUTTON3STATE 0x0008
#define DFCS_BUTTONPUSH 0x0010
#define DFCS_INACTIVE 0x0100
#define DFCS_PUSHED 0x0200
#define DFCS_CHECKED 0x0400
#define DFCS_TRANSPARENT 0x0800
#define DFCS_HOT 0x1000
#define DFCS_ADJUSTRECT 0x2000
#define DFCS_FLAT 0x4000
#define DFCS_MONO 0x8000

// DrawText.
#define DT_TOP 0x00000000
#define DT_LEFT 0x00000000
#define DT_CENTER 0x00000001
#define DT_RIGHT 0x00000002
#define DT_VCENTER 0x00000004
#define DT_BOTTOM 0x00000008
#define DT_WORDBREAK 0x00000010
#define DT_SINGLELINE 0x00000020
#define DT_EXPANDTABS 0x00000040
#define DT_TABSTOP 0x00000080
#define DT_NOCLIP 0x00000100
#define DT_EXTERNALLEADING 0x00000200
#define DT_CALCRECT 0x00000400
#define DT_NOPREFIX 0x00000800
#define DT_INTERNAL 0x00001000
#define DT_EDITCONTROL 0x00002000
#define DT_PATH_ELLIPSIS 0x00004000
#define DT_END_ELLIPSIS 0x00008000
#define DT_MODIFYSTRING 0x00010000
#define DT_RTLREADING 0x00020000
#define DT_WORD_ELLIPSIS 0x00040000
#define DT_NOFULLWIDTHCHARBREAK 0x00080000
#define DT_HIDEPREFIX 0x00100000
#define DT_PREFIXONLY 0x00200000

// DrawState.
#define DST_COMPLEX 0x0000
#define DST_TEXT 0x0001
#define DST_PREFIXTEXT 0x0002
#define DST_ICON 0x0003
#define DST_BITMAP 0x0004
#define DSS_NORMAL 0x0000
#define DSS_UNION 0x0010
#define DSS_DISABLED 0x0020
#define DSS_DEFAULT 0x0040
#define DSS_MONO 0x0080
#define DSS_HIDEPREFIX 0x0200
#define DSS_PREFIXONLY 0x0400
#define DSS_RIGHT 0x8000

#define DI_MASK 0x0001
#define DI_IMAGE 0x0002
#define DI_NORMAL 0x0003
#define DI_COMPAT 0x0004
#define DI_DEFAULTSIZE 0x0008
#define DI_NOMIRROR 0x0010

struct tagDRAWTEXTPARAMS {
  UINT cbSize;
  int iTabLength;
  int iLeftMargin;
  int iRightMargin;
  UINT uiLengthDrawn;
};
using DRAWTEXTPARAMS = tagDRAWTEXTPARAMS;
using LPDRAWTEXTPARAMS = DRAWTEXTPARAMS*;

struct _ICONINFO {
  BOOL fIcon;
  DWORD xHotspot;
  DWORD yHotspot;
  HBITMAP hbmMask;
  HBITMAP hbmColor;
};
using ICONINFO = _ICONINFO;
using PICONINFO = ICONINFO*;

using DRAWSTATEPROC = BOOL(CALLBACK*)(HDC, LPARAM, WPARAM, int, int);
using GRAYSTRINGPROC = BOOL(CALLBACK*)(HDC, LPARAM, int);

// Rectangles. A brush may be a system colour index plus one.
DESKTOP_API int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
DESKTOP_API int WINAPI FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
DESKTOP_API BOOL WINAPI InvertRect(HDC dc, const RECT* rect);
DESKTOP_API BOOL WINAPI DrawFocusRect(HDC dc, const RECT* rect);
DESKTOP_API BOOL WINAPI DrawEdge(HDC dc, LPRECT rect, UINT edge, UINT flags);
DESKTOP_API BOOL WINAPI DrawFrameControl(HDC dc, LPRECT rect, UINT type, UINT state);

// Text.
DESKTOP_API int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, LPRECT rect, UINT format);
DESKTOP_API int WINAPI DrawTextExW(HDC dc, LPWSTR text, int length, LPRECT rect, UINT format,
                                   LPDRAWTEXTPARAMS params);
DESKTOP_API LONG WINAPI TabbedTextOutW(HDC dc, int x, int y, LPCWSTR text, int length, int tabCount,
                                       const INT* tabs, int tabOrigin);
DESKTOP_API DWORD WINAPI GetTabbedTextExtentW(HDC dc, LPCWSTR text, int length, int tabCount,
                                              const INT* tabs);
DESKTOP_API BOOL WINAPI GrayStringW(HDC dc, HBRUSH brush, GRAYSTRINGPROC output, LPARAM data, int length,
                                    int x, int y, int width, int height);
DESKTOP_API BOOL WINAPI DrawStateW(HDC dc, HBRUSH brush, DRAWSTATEPROC proc, LPARAM data, WPARAM extra, int x,
                                   int y, int width, int height, UINT flags);

// Icons and cursors.
DESKTOP_API HICON WINAPI CreateIcon(HINSTANCE instance, int width, int height, BYTE planes, BYTE bitsPerPixel,
                                    const BYTE* andBits, const BYTE* xorBits);
DESKTOP_API HCURSOR WINAPI CreateCursor(HINSTANCE instance, int hotX, int hotY, int width, int height,
                                        const void* andBits, const void* xorBits);
DESKTOP_API HICON WINAPI CreateIconIndirect(PICONINFO info);
DESKTOP_API HICON WINAPI CreateIconFromResource(PBYTE bits, DWORD size, BOOL isIcon, DWORD version);
DESKTOP_API HICON WINAPI CreateIconFromResourceEx(PBYTE bits, DWORD size, BOOL isIcon, DWORD version,
                                                  int width, int height, UINT flags);
DESKTOP_API int WINAPI LookupIconIdFromDirectoryEx(PBYTE directory, BOOL isIcon, int width, int height,
                                                   UINT flags);
DESKTOP_API HICON WINAPI CopyIcon(HICON icon);
DESKTOP_API BOOL WINAPI DestroyIcon(HICON icon);
DESKTOP_API BOOL WINAPI DestroyCursor(HCURSOR cursor);
DESKTOP_API BOOL WINAPI GetIconInfo(HICON icon, PICONINFO info);
DESKTOP_API BOOL WINAPI DrawIcon(HDC dc, int x, int y, HICON icon);
DESKTOP_API BOOL WINAPI DrawIconEx(HDC dc, int x, int y, HICON icon, int width, int height, UINT frame,
                                   HBRUSH flickerFree, UINT flags);

#define CopyCursor(cursor) ((HCURSOR)CopyIcon((HICON)(cursor)))
#define DrawText DrawTextW
#define DrawTextEx DrawTextExW
#define DrawState DrawStateW
#define GetTabbedTextExtent GetTabbedTextExtentW
#define GrayString GrayStringW
#define TabbedTextOut TabbedTextOutW
