// Basic types of the Win32 API. LONG and DWORD have 32 bits, as on Windows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdarg>
#include <cstring>
#include <cstdlib>
#include <cwchar>
#include <cwctype>

#define WINAPI
#define CALLBACK
#define APIENTRY
#define WINAPIV
#define PASCAL
#define FAR
#define CONST const
#define __stdcall
#define __cdecl
#define __int64 long long
#define DESKTOP_API __attribute__((visibility("default")))

using BOOL = int;
using BYTE = unsigned char;
using CHAR = char;
using WCHAR = wchar_t;
using TCHAR = wchar_t;
using SHORT = short;
using USHORT = unsigned short;
using WORD = unsigned short;
using INT = int;
using UINT = unsigned int;
using LONG = int;
using ULONG = unsigned int;
using DWORD = unsigned int;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using DWORDLONG = unsigned long long;
using INT_PTR = long long;
using UINT_PTR = unsigned long long;
using LONG_PTR = long long;
using ULONG_PTR = unsigned long long;
using DWORD_PTR = unsigned long long;
using SIZE_T = unsigned long long;
using FLOAT = float;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HRESULT = int;
using ATOM = WORD;
using COLORREF = DWORD;
using LCID = DWORD;
using LANGID = WORD;
using ACCESS_MASK = DWORD;
using LONG32 = int;
using UINT8 = unsigned char;
using UINT16 = unsigned short;
using UINT32 = unsigned int;
using INT32 = int;
using UINT64 = unsigned long long;
using INT64 = long long;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using PBYTE = BYTE*;
using LPBYTE = BYTE*;
using PWORD = WORD*;
using LPWORD = WORD*;
using PDWORD = DWORD*;
using LPDWORD = DWORD*;
using PLONG = LONG*;
using LPLONG = LONG*;
using PINT = int*;
using LPINT = int*;
using PUINT = UINT*;
using PBOOL = BOOL*;
using LPBOOL = BOOL*;
using LPSTR = char*;
using LPCSTR = const char*;
using PSTR = char*;
using PCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using PWSTR = wchar_t*;
using PCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using LPCOLORREF = COLORREF*;

#define VOID void
#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif
#define MAX_PATH 260
#define CONST const

// Distinct handle types, as under STRICT.
#define DECLARE_HANDLE(name) \
  struct name##__ {          \
    int unused;              \
  };                         \
  using name = struct name##__*

using HANDLE = void*;
using HGDIOBJ = void*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HACCEL);
DECLARE_HANDLE(HHOOK);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HDWP);
DECLARE_HANDLE(HDESK);
DECLARE_HANDLE(HMONITOR);
DECLARE_HANDLE(HKL);
using HMODULE = HINSTANCE;
using HCURSOR = HICON;
using PHKEY = HKEY*;

struct tagPOINT {
  LONG x;
  LONG y;
};
using POINT = tagPOINT;
using PPOINT = POINT*;
using LPPOINT = POINT*;
using LPCPOINT = const POINT*;

struct tagPOINTS {
  SHORT x;
  SHORT y;
};
using POINTS = tagPOINTS;

struct tagSIZE {
  LONG cx;
  LONG cy;
};
using SIZE = tagSIZE;
using PSIZE = SIZE*;
using LPSIZE = SIZE*;
using SIZEL = SIZE;

struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using RECT = tagRECT;
using PRECT = RECT*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;
using RECTL = RECT;

using FARPROC = INT_PTR(CALLBACK*)();
using PROC = FARPROC;

#define LOWORD(l) (static_cast<WORD>(static_cast<DWORD_PTR>(l) & 0xffff))
#define HIWORD(l) (static_cast<WORD>((static_cast<DWORD_PTR>(l) >> 16) & 0xffff))
#define LOBYTE(w) (static_cast<BYTE>(static_cast<DWORD_PTR>(w) & 0xff))
#define HIBYTE(w) (static_cast<BYTE>((static_cast<DWORD_PTR>(w) >> 8) & 0xff))
#define MAKEWORD(a, b)                                                \
  (static_cast<WORD>((static_cast<BYTE>(static_cast<DWORD_PTR>(a))) | \
                     ((static_cast<WORD>(static_cast<BYTE>(static_cast<DWORD_PTR>(b)))) << 8)))
#define MAKELONG(a, b)                                                \
  (static_cast<LONG>((static_cast<WORD>(static_cast<DWORD_PTR>(a))) | \
                     ((static_cast<DWORD>(static_cast<WORD>(static_cast<DWORD_PTR>(b)))) << 16)))
#define MAKEWPARAM(l, h) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(l, h))))
#define MAKELPARAM(l, h) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(l, h))))
#define MAKELRESULT(l, h) (static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(l, h))))
#define UNREFERENCED_PARAMETER(p) (static_cast<void>(p))
