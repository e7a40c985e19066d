// Dialogs and message boxes.
#pragma once

#include "windef.h"

#define DS_ABSALIGN 0x01
#define DS_LOCALEDIT 0x20
#define DS_SETFONT 0x40
#define DS_MODALFRAME 0x80
#define DS_NOIDLEMSG 0x100
#define DS_SETFOREGROUND 0x200
#define DS_3DLOOK 0x0004
#define DS_FIXEDSYS 0x0008
#define DS_NOFAILCREATE 0x0010
#define DS_CONTROL 0x0400
#define DS_CENTER 0x0800
#define DS_CENTERMOUSE 0x1000
#define DS_SHELLFONT (DS_SETFONT | DS_FIXEDSYS)

#define DM_GETDEFID (WM_USER + 0)
#define DM_SETDEFID (WM_USER + 1)
#define DM_REPOSITION (WM_USER + 2)
#define DC_HASDEFID 0x534B

#define DLGC_WANTARROWS 0x0001
#define DLGC_WANTTAB 0x0002
#define DLGC_WANTALLKEYS 0x0004
#define DLGC_WANTMESSAGE 0x0004
#define DLGC_HASSETSEL 0x0008
#define DLGC_DEFPUSHBUTTON 0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON 0x0040
#define DLGC_WANTCHARS 0x0080
#define DLGC_STATIC 0x0100
#define DLGC_BUTTON 0x2000

#define DLGWINDOWEXTRA 30
#define DWLP_MSGRESULT 0

#define MSGF_DIALOGBOX 0
#define MSGF_MENU 2
#define DWLP_DLGPROC (DWLP_MSGRESULT + sizeof(LRESULT))
#define DWLP_USER (DWLP_DLGPROC + sizeof(DLGPROC))

using DLGPROC = INT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

// The head of a DIALOG resource in its compiled form; what follows has 16-bit characters. The functions
// below take DIALOGEX resources as well.
#pragma pack(push, 2)
struct DLGTEMPLATE {
  DWORD style;
  DWORD dwExtendedStyle;
  WORD cdit;
  short x;
  short y;
  short cx;
  short cy;
};
struct DLGITEMTEMPLATE {
  DWORD style;
  DWORD dwExtendedStyle;
  short x;
  short y;
  short cx;
  short cy;
  WORD id;
};
#pragma pack(pop)
using LPDLGTEMPLATE = DLGTEMPLATE*;
using LPCDLGTEMPLATE = const DLGTEMPLATE*;
using LPDLGTEMPLATEW = DLGTEMPLATE*;
using LPCDLGTEMPLATEW = const DLGTEMPLATE*;

DESKTOP_API HWND WINAPI CreateDialogParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure,
                                           LPARAM param);
DESKTOP_API HWND WINAPI CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATE dialogTemplate,
                                                   HWND parent, DLGPROC procedure, LPARAM param);
DESKTOP_API INT_PTR WINAPI DialogBoxParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure,
                                           LPARAM param);
DESKTOP_API INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATE dialogTemplate,
                                                   HWND parent, DLGPROC procedure, LPARAM param);
DESKTOP_API BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
DESKTOP_API LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
DESKTOP_API BOOL WINAPI IsDialogMessageW(HWND dialog, tagMSG* message);
DESKTOP_API BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
DESKTOP_API LONG WINAPI GetDialogBaseUnits();
DESKTOP_API HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
DESKTOP_API HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);

DESKTOP_API UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int size);
DESKTOP_API BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
DESKTOP_API UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned);
DESKTOP_API BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
DESKTOP_API BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
DESKTOP_API BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check);
DESKTOP_API UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
DESKTOP_API LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam,
                                               LPARAM lParam);
#define CreateDialogParam CreateDialogParamW
#define CreateDialogIndirectParam CreateDialogIndirectParamW
#define DialogBoxParam DialogBoxParamW
#define DialogBoxIndirectParam DialogBoxIndirectParamW
#define CreateDialogW(module, name, parent, procedure) CreateDialogParamW(module, name, parent, procedure, 0)
#define CreateDialogIndirectW(module, dialogTemplate, parent, procedure) \
  CreateDialogIndirectParamW(module, dialogTemplate, parent, procedure, 0)
#define DialogBoxW(module, name, parent, procedure) DialogBoxParamW(module, name, parent, procedure, 0)
#define DialogBoxIndirectW(module, dialogTemplate, parent, procedure) \
  DialogBoxIndirectParamW(module, dialogTemplate, parent, procedure, 0)
#define CreateDialog CreateDialogW
#define CreateDialogIndirect CreateDialogIndirectW
#define DialogBox DialogBoxW
#define DialogBoxIndirect DialogBoxIndirectW
#define DefDlgProc DefDlgProcW
#define IsDialogMessage IsDialogMessageW
#define GetDlgItemText GetDlgItemTextW
#define SetDlgItemText SetDlgItemTextW
#define SendDlgItemMessage SendDlgItemMessageW

#define MB_OK 0x00000000
#define MB_OKCANCEL 0x00000001
#define MB_ABORTRETRYIGNORE 0x00000002
#define MB_YESNOCANCEL 0x00000003
#define MB_YESNO 0x00000004
#define MB_RETRYCANCEL 0x00000005
#define MB_ICONHAND 0x00000010
#define MB_ICONQUESTION 0x00000020
#define MB_ICONEXCLAMATION 0x00000030
#define MB_ICONASTERISK 0x00000040
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONSTOP MB_ICONHAND
#define MB_DEFBUTTON1 0x00000000
#define MB_DEFBUTTON2 0x00000100
#define MB_DEFBUTTON3 0x00000200
#define MB_DEFBUTTON4 0x00000300
#define MB_APPLMODAL 0x00000000
#define MB_SYSTEMMODAL 0x00001000
#define MB_TASKMODAL 0x00002000
#define MB_SETFOREGROUND 0x00010000
#define MB_TOPMOST 0x00040000
#define MB_RIGHT 0x00080000
#define MB_TYPEMASK 0x0000000F
#define MB_ICONMASK 0x000000F0
#define MB_DEFMASK 0x00000F00
#define MB_MODEMASK 0x00003000
#define MB_MISCMASK 0x0000C000

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8

DESKTOP_API int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
DESKTOP_API BOOL WINAPI MessageBeep(UINT type);
#define MessageBox MessageBoxW
