// Code pages, comparison and case of texts.
#pragma once

#include "windef.h"

#define CP_ACP 0
#define CP_UTF8 65001
#define MB_PRECOMPOSED 0x00000001
#define MB_ERR_INVALID_CHARS 0x00000008
#define WC_NO_BEST_FIT_CHARS 0x00000400
#define WC_ERR_INVALID_CHARS 0x00000080

#define LOCALE_SYSTEM_DEFAULT 0x0800
#define LOCALE_USER_DEFAULT 0x0400
#define LOCALE_INVARIANT 0x007F
#define LANG_NEUTRAL 0x00
#define LANG_ENGLISH 0x09
#define LANG_FRENCH 0x0c
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define MAKELANGID(primary, sub) \
  (static_cast<WORD>((static_cast<WORD>(sub) << 10) | static_cast<WORD>(primary)))

#define NORM_IGNORECASE 0x00000001
#define NORM_IGNORENONSPACE 0x00000002
#define SORT_STRINGSORT 0x00001000
#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

// Code pages CP_ACP (1252), 1252 and CP_UTF8.
DESKTOP_API int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int bytes, LPWSTR wide,
                                           int wideSize);
DESKTOP_API int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int length, LPSTR text,
                                           int size, LPCSTR defaultChar, LPBOOL usedDefault);
DESKTOP_API UINT WINAPI GetACP();
DESKTOP_API BOOL WINAPI IsDBCSLeadByte(BYTE byte);

// Word sort of the invariant locale: punctuation, digits, letters; case and accents decide last.
DESKTOP_API int WINAPI CompareStringW(LCID locale, DWORD flags, LPCWSTR a, int lengthA, LPCWSTR b,
                                      int lengthB);
#define CompareString CompareStringW

DESKTOP_API LPWSTR WINAPI CharUpperW(LPWSTR text);
DESKTOP_API LPWSTR WINAPI CharLowerW(LPWSTR text);
DESKTOP_API DWORD WINAPI CharUpperBuffW(LPWSTR text, DWORD length);
DESKTOP_API DWORD WINAPI CharLowerBuffW(LPWSTR text, DWORD length);
DESKTOP_API LPWSTR WINAPI CharNextW(LPCWSTR text);
DESKTOP_API LPWSTR WINAPI CharPrevW(LPCWSTR start, LPCWSTR current);
DESKTOP_API BOOL WINAPI IsCharAlphaW(WCHAR character);
DESKTOP_API BOOL WINAPI IsCharAlphaNumericW(WCHAR character);
#define CharUpper CharUpperW
#define CharLower CharLowerW
#define CharUpperBuff CharUpperBuffW
#define CharLowerBuff CharLowerBuffW
#define CharNext CharNextW
#define CharPrev CharPrevW
#define IsCharAlpha IsCharAlphaW
#define IsCharAlphaNumeric IsCharAlphaNumericW

// At most 1024 characters; %s and %c are wide, %S, %C, %hs and %hc narrow; no floating point.
DESKTOP_API int WINAPIV wsprintfW(LPWSTR buffer, LPCWSTR format, ...);
DESKTOP_API int WINAPI wvsprintfW(LPWSTR buffer, LPCWSTR format, va_list arguments);
#define wsprintf wsprintfW
#define wvsprintf wvsprintfW
