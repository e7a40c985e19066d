// What every header of the framework builds on: the Win32 headers, the export mark, and method names
// that are free of the A/W macros.
#pragma once

#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include <cstddef>

#ifdef _WIN32
#ifdef VORNFW_BUILDING
#define VORNFW_API __declspec(dllexport)
#else
#define VORNFW_API __declspec(dllimport)
#endif
#define AFX_EXT_EXPORT __declspec(dllexport)
#define AFX_EXT_IMPORT __declspec(dllimport)
#else
#define VORNFW_API __attribute__((visibility("default")))
#define AFX_EXT_EXPORT __attribute__((visibility("default")))
#define AFX_EXT_IMPORT __attribute__((visibility("default")))
#endif

// AFX_EXT_CLASS exports from the extension module that defines _AFXEXT, and imports elsewhere.
#ifdef _AFXEXT
#define AFX_EXT_CLASS AFX_EXT_EXPORT
#else
#define AFX_EXT_CLASS AFX_EXT_IMPORT
#endif
#define AFX_EXT_API AFX_EXT_CLASS
#define AFX_EXT_DATA AFX_EXT_CLASS

#define AFXAPI
#define AFX_CDECL
#define AFX_DATA
#define AFX_DATADEF
#define afx_msg

#ifndef _AFX
#define _AFX 1
#endif
#ifndef _MFC_VER
#define _MFC_VER 0x0E00
#endif

#ifndef _T
#define _T(text) L##text
#endif
#ifndef _TEXT
#define _TEXT(text) L##text
#endif
#ifndef TEXT
#define TEXT(text) L##text
#endif

// Methods carry these names; as macros they would be renamed by the order of includes. The free
// functions keep both names, ::SendMessageW and ::SendMessage.
#undef AppendMenu
#undef CallWindowProc
#undef ChangeMenu
#undef CharLower
#undef CharUpper
#undef ChooseColor
#undef CompareString
#undef CopyFile
#undef CreateDialog
#undef CreateDialogIndirect
#undef CreateEvent
#undef CreateFile
#undef CreateFont
#undef CreateFontIndirect
#undef CreateMutex
#undef CreateSemaphore
#undef CreateWindow
#undef CreateWindowEx
#undef DefWindowProc
#undef DeleteFile
#undef DialogBox
#undef DispatchMessage
#undef DlgDirList
#undef DlgDirListComboBox
#undef DlgDirSelect
#undef DlgDirSelectComboBox
#undef DragQueryFile
#undef DrawState
#undef DrawText
#undef DrawTextEx
#undef EnumFonts
#undef ExtTextOut
#undef ExtractIcon
#undef FindFirstFile
#undef FindNextFile
#undef FindResource
#undef FindText
#undef FindWindow
#undef FindWindowEx
#undef FormatMessage
#undef GetCharABCWidths
#undef GetCharWidth
#undef GetClassInfo
#undef GetClassLong
#undef GetClassLongPtr
#undef GetClassName
#undef GetCurrentTime
#undef GetDlgItemText
#undef GetEnvironmentVariable
#undef GetFileTitle
#undef GetFirstChild
#undef GetGlyphOutline
#undef GetKeyNameText
#undef GetMenuItemInfo
#undef GetMenuString
#undef GetMessage
#undef GetModuleFileName
#undef GetModuleHandle
#undef GetNextSibling
#undef GetNextWindow
#undef GetObject
#undef GetOpenFileName
#undef GetOutlineTextMetrics
#undef GetPrevSibling
#undef GetPrivateProfileInt
#undef GetPrivateProfileString
#undef GetProfileInt
#undef GetProfileString
#undef GetProp
#undef GetSaveFileName
#undef GetTabbedTextExtent
#undef GetTextExtentPoint
#undef GetTextExtentPoint32
#undef GetTextFace
#undef GetTextMetrics
#undef GetWindowLong
#undef GetWindowLongPtr
#undef GetWindowText
#undef GetWindowTextLength
#undef GrayString
#undef InsertMenu
#undef InsertMenuItem
#undef IsDialogMessage
#undef LoadAccelerators
#undef LoadBitmap
#undef LoadCursor
#undef LoadIcon
#undef LoadImage
#undef LoadLibrary
#undef LoadMenu
#undef LoadMenuIndirect
#undef LoadString
#undef MessageBox
#undef ModifyMenu
#undef PeekMessage
#undef PostMessage
#undef PostThreadMessage
#undef PropertySheet
#undef RegisterClass
#undef RegisterClassEx
#undef RegisterWindowMessage
#undef RemoveProp
#undef ReplaceText
#undef SendDlgItemMessage
#undef SendMessage
#undef SendNotifyMessage
#undef SetDlgItemText
#undef SetMenuItemInfo
#undef SetProp
#undef SetWindowLong
#undef SetWindowLongPtr
#undef SetWindowText
#undef ShellExecute
#undef StartDoc
#undef SystemParametersInfo
#undef TabbedTextOut
#undef TextOut
#undef TranslateAccelerator
#undef UnregisterClass
#undef UpdateResource
#undef WinHelp
#undef WriteProfileString
#undef SubclassWindow
#undef Yield

#include "afxwapi_.h"
