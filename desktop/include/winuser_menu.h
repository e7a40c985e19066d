// Menus and accelerator tables.
#pragma once

#include "windef.h"

#define MF_INSERT 0x00000000
#define MF_CHANGE 0x00000080
#define MF_APPEND 0x00000100
#define MF_DELETE 0x00000200
#define MF_REMOVE 0x00001000
#define MF_BYCOMMAND 0x00000000
#define MF_BYPOSITION 0x00000400
#define MF_SEPARATOR 0x00000800
#define MF_ENABLED 0x00000000
#define MF_GRAYED 0x00000001
#define MF_DISABLED 0x00000002
#define MF_UNCHECKED 0x00000000
#define MF_CHECKED 0x00000008
#define MF_USECHECKBITMAPS 0x00000200
#define MF_STRING 0x00000000
#define MF_OWNERDRAW 0x00000100
#define MF_POPUP 0x00000010
#define MF_MENUBARBREAK 0x00000020
#define MF_MENUBREAK 0x00000040
#define MF_UNHILITE 0x00000000
#define MF_HILITE 0x00000080
#define MF_DEFAULT 0x00001000
#define MF_SYSMENU 0x00002000
#define MF_HELP 0x00004000
#define MF_RIGHTJUSTIFY 0x00004000
#define MF_MOUSESELECT 0x00008000
#define MF_END 0x00000080

#define MFT_STRING MF_STRING
#define MFT_OWNERDRAW MF_OWNERDRAW
#define MFT_MENUBARBREAK MF_MENUBARBREAK
#define MFT_MENUBREAK MF_MENUBREAK
#define MFT_RADIOCHECK 0x00000200
#define MFT_SEPARATOR MF_SEPARATOR
#define MFT_RIGHTJUSTIFY MF_RIGHTJUSTIFY
#define MFS_GRAYED 0x00000003
#define MFS_DISABLED MFS_GRAYED
#define MFS_CHECKED MF_CHECKED
#define MFS_HILITE MF_HILITE
#define MFS_ENABLED MF_ENABLED
#define MFS_UNCHECKED MF_UNCHECKED
#define MFS_UNHILITE MF_UNHILITE
#define MFS_DEFAULT MF_DEFAULT

#define MIIM_STATE 0x00000001
#define MIIM_ID 0x00000002
#define MIIM_SUBMENU 0x00000004
#define MIIM_CHECKMARKS 0x00000008
#define MIIM_TYPE 0x00000010
#define MIIM_DATA 0x00000020
#define MIIM_STRING 0x00000040
#define MIIM_BITMAP 0x00000080
#define MIIM_FTYPE 0x00000100

#define TPM_LEFTBUTTON 0x0000
#define TPM_RIGHTBUTTON 0x0002
#define TPM_LEFTALIGN 0x0000
#define TPM_CENTERALIGN 0x0004
#define TPM_RIGHTALIGN 0x0008
#define TPM_TOPALIGN 0x0000
#define TPM_VCENTERALIGN 0x0010
#define TPM_BOTTOMALIGN 0x0020
#define TPM_HORIZONTAL 0x0000
#define TPM_VERTICAL 0x0040
#define TPM_NONOTIFY 0x0080
#define TPM_RETURNCMD 0x0100
#define TPM_RECURSE 0x0001
#define TPM_WORKAREA 0x10000

#define GMDI_USEDISABLED 0x0001
#define GMDI_GOINTOPOPUPS 0x0002

#define MNC_IGNORE 0
#define MNC_CLOSE 1
#define MNC_EXECUTE 2
#define MNC_SELECT 3

#define HBMMENU_CALLBACK (reinterpret_cast<HBITMAP>(static_cast<LONG_PTR>(-1)))

struct MENUITEMINFOW {
  UINT cbSize;
  UINT fMask;
  UINT fType;
  UINT fState;
  UINT wID;
  HMENU hSubMenu;
  HBITMAP hbmpChecked;
  HBITMAP hbmpUnchecked;
  ULONG_PTR dwItemData;
  LPWSTR dwTypeData;
  UINT cch;
  HBITMAP hbmpItem;
};
using MENUITEMINFO = MENUITEMINFOW;
using LPMENUITEMINFOW = MENUITEMINFOW*;
using LPCMENUITEMINFOW = const MENUITEMINFOW*;
using LPMENUITEMINFO = MENUITEMINFOW*;

struct TPMPARAMS {
  UINT cbSize;
  RECT rcExclude;
};
using LPTPMPARAMS = TPMPARAMS*;

DESKTOP_API HMENU WINAPI CreateMenu();
DESKTOP_API HMENU WINAPI CreatePopupMenu();
// Also destroys its submenus.
DESKTOP_API BOOL WINAPI DestroyMenu(HMENU menu);
DESKTOP_API BOOL WINAPI IsMenu(HMENU menu);
DESKTOP_API HMENU WINAPI LoadMenuW(HINSTANCE module, LPCWSTR name);
// Takes a resource in its compiled (16-bit characters) form, such as LockResource gives.
DESKTOP_API HMENU WINAPI LoadMenuIndirectW(const void* menuTemplate);

DESKTOP_API BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text);
DESKTOP_API BOOL WINAPI InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text);
DESKTOP_API BOOL WINAPI ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text);
DESKTOP_API BOOL WINAPI RemoveMenu(HMENU menu, UINT position, UINT flags);
DESKTOP_API BOOL WINAPI DeleteMenu(HMENU menu, UINT position, UINT flags);
DESKTOP_API BOOL WINAPI InsertMenuItemW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info);
DESKTOP_API BOOL WINAPI GetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPMENUITEMINFOW info);
DESKTOP_API BOOL WINAPI SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info);
DESKTOP_API DWORD WINAPI CheckMenuItem(HMENU menu, UINT item, UINT flags);
DESKTOP_API BOOL WINAPI CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT check, UINT flags);
DESKTOP_API BOOL WINAPI EnableMenuItem(HMENU menu, UINT item, UINT flags);
DESKTOP_API BOOL WINAPI HiliteMenuItem(HWND window, HMENU menu, UINT item, UINT flags);
DESKTOP_API BOOL WINAPI SetMenuDefaultItem(HMENU menu, UINT item, UINT byPosition);
DESKTOP_API UINT WINAPI GetMenuDefaultItem(HMENU menu, UINT byPosition, UINT flags);
DESKTOP_API UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags);
DESKTOP_API int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR text, int size, UINT flags);
DESKTOP_API UINT WINAPI GetMenuItemID(HMENU menu, int position);
DESKTOP_API int WINAPI GetMenuItemCount(HMENU menu);
DESKTOP_API HMENU WINAPI GetSubMenu(HMENU menu, int position);
DESKTOP_API BOOL WINAPI GetMenuItemRect(HWND window, HMENU menu, UINT item, LPRECT rect);
DESKTOP_API int WINAPI MenuItemFromPoint(HWND window, HMENU menu, POINT point);

DESKTOP_API HMENU WINAPI GetMenu(HWND window);
DESKTOP_API BOOL WINAPI SetMenu(HWND window, HMENU menu);
DESKTOP_API BOOL WINAPI DrawMenuBar(HWND window);
DESKTOP_API HMENU WINAPI GetSystemMenu(HWND window, BOOL revert);

DESKTOP_API BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                                       const RECT* rect);
DESKTOP_API BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner,
                                         LPTPMPARAMS params);
DESKTOP_API BOOL WINAPI EndMenu();
#define LoadMenu LoadMenuW
#define LoadMenuIndirect LoadMenuIndirectW
#define AppendMenu AppendMenuW
#define InsertMenu InsertMenuW
#define ModifyMenu ModifyMenuW
#define InsertMenuItem InsertMenuItemW
#define GetMenuItemInfo GetMenuItemInfoW
#define SetMenuItemInfo SetMenuItemInfoW
#define GetMenuString GetMenuStringW

// ---- Accelerators ----

#define FVIRTKEY TRUE
#define FNOINVERT 0x02
#define FSHIFT 0x04
#define FCONTROL 0x08
#define FALT 0x10

struct ACCEL {
  BYTE fVirt;
  WORD key;
  WORD cmd;
};
using LPACCEL = ACCEL*;

struct tagMSG;
DESKTOP_API HACCEL WINAPI LoadAcceleratorsW(HINSTANCE module, LPCWSTR name);
DESKTOP_API HACCEL WINAPI CreateAcceleratorTableW(LPACCEL table, int count);
DESKTOP_API int WINAPI CopyAcceleratorTableW(HACCEL table, LPACCEL copy, int count);
DESKTOP_API BOOL WINAPI DestroyAcceleratorTable(HACCEL table);
DESKTOP_API int WINAPI TranslateAcceleratorW(HWND window, HACCEL table, tagMSG* message);
#define LoadAccelerators LoadAcceleratorsW
#define CreateAcceleratorTable CreateAcceleratorTableW
#define CopyAcceleratorTable CopyAcceleratorTableW
#define TranslateAccelerator TranslateAcceleratorW
