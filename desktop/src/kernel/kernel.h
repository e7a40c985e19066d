// What the parts of the kernel share.
#pragma once

#include <string>

#include <windows.h>

namespace desktop {

// The path of Linux that a path of the API means: '\' becomes '/', a drive letter is dropped, UTF-8.
std::string NativePath(LPCWSTR path);

// Text of the desktop (UTF-32) from and to UTF-8. Bytes that are not UTF-8 become U+FFFD.
std::wstring WideFromUtf8(const char* text, size_t length);
std::wstring WideFromUtf8(const std::string& text);
std::string Utf8FromWide(const wchar_t* text, size_t length);
std::string Utf8FromWide(const std::wstring& text);

// Text from a compiled resource: UTF-16, not aligned, length in 16-bit units.
std::wstring WideFromUtf16(const void* text, size_t length);

// Case by the Unicode tables, whatever the locale of the program.
wchar_t UpperCase(wchar_t character);
wchar_t LowerCase(wchar_t character);
bool EqualNoCase(const std::wstring& a, const std::wstring& b);

// Copies a text into the buffer of an API that answers with the length, or with the needed size
// (final zero included) when it does not fit.
DWORD CopyOut(const std::wstring& text, LPWSTR buffer, DWORD size);

// The error that an errno value stands for.
DWORD ErrorFromErrno(int error);

}  // namespace desktop
