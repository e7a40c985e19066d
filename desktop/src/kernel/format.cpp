// Formatted text as Windows reads formats: %s and %c are wide in a wide format.
#include <algorithm>
#include <cstdarg>
#include <cwchar>
#include <string>
#include <vector>

#include <windows.h>

#include "kernel.h"

namespace {

// One conversion of a format: "%-08.3I64d" as flags and width up to the length prefix, prefix, letter.
struct Conversion {
  std::wstring head;  // '%', flags, width, precision
  std::wstring length;
  wchar_t letter = 0;
};

// Reads the conversion at a '%' and moves behind it.
Conversion ReadConversion(const wchar_t*& at) {
  Conversion conversion;
  conversion.head = *at++;
  while (*at && wcschr(L"-+ #0123456789.*", *at)) conversion.head += *at++;
  if (wcsncmp(at, L"I64", 3) == 0 || wcsncmp(at, L"I32", 3) == 0) {
    conversion.length = at[1] == L'6' ? L"ll" : L"";
    at += 3;
  } else if (*at == L'I') {
    conversion.length = L"ll";
    ++at;
  } else {
    while (*at && wcschr(L"hlLwzjt", *at)) conversion.length += *at++;
  }
  if (*at) conversion.letter = *at++;
  return conversion;
}

// The same conversion for the C library of Linux.
std::wstring Translate(const Conversion& conversion) {
  std::wstring length = conversion.length;
  wchar_t letter = conversion.letter;
  switch (letter) {
    case L's':
    case L'c': length = length == L"h" ? L"" : L"l"; break;
    case L'S':
    case L'C':
      length = length == L"l" || length == L"w" ? L"l" : L"";
      letter = letter == L'S' ? L's' : L'c';
      break;
    case L'd':
    case L'i':
    case L'u':
    case L'x':
    case L'X':
    case L'o':
      // A long has 32 bits on Windows.
      if (length == L"l") length.clear();
      break;
    case L'p': return L"%016llX";
    default: break;
  }
  return conversion.head + length + letter;
}

std::wstring TranslateFormat(const wchar_t* format) {
  std::wstring out;
  while (*format) {
    if (*format != L'%') {
      out += *format++;
    } else if (format[1] == L'%') {
      out += L"%%";
      format += 2;
    } else {
      const Conversion conversion = ReadConversion(format);
      if (conversion.letter) out += Translate(conversion);
    }
  }
  return out;
}

// The whole formatted text; the C library cannot tell how long it will be.
bool FormatAll(const wchar_t* format, va_list arguments, std::wstring& out) {
  constexpr size_t kLargest = size_t{1} << 24;
  const std::wstring translated = TranslateFormat(format);
  for (size_t size = 256; size <= kLargest; size *= 4) {
    out.resize(size);
    va_list copy;
    va_copy(copy, arguments);
    const int length = vswprintf(out.data(), size, translated.c_str(), copy);
    va_end(copy);
    if (length < 0) continue;
    out.resize(static_cast<size_t>(length));
    return true;
  }
  return false;
}

}  // namespace

int _vsnwprintf(wchar_t* buffer, size_t size, const wchar_t* format, va_list arguments) {
  std::wstring text;
  if (!FormatAll(format, arguments, text)) return -1;
  // No final zero when the text fills the buffer, as the C library of Windows has it.
  text.copy(buffer, size);
  if (text.size() < size) buffer[text.size()] = 0;
  return text.size() > size ? -1 : static_cast<int>(text.size());
}

int _snwprintf(wchar_t* buffer, size_t size, const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int length = _vsnwprintf(buffer, size, format, arguments);
  va_end(arguments);
  return length;
}

int _vscwprintf(const wchar_t* format, va_list arguments) {
  std::wstring text;
  return FormatAll(format, arguments, text) ? static_cast<int>(text.size()) : -1;
}

int _scwprintf(const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int length = _vscwprintf(format, arguments);
  va_end(arguments);
  return length;
}

int wvsprintfW(LPWSTR buffer, LPCWSTR format, va_list arguments) {
  constexpr size_t kLongest = 1023;
  std::wstring text;
  if (!FormatAll(format, arguments, text)) return 0;
  const size_t length = std::min(text.size(), kLongest);
  text.copy(buffer, length);
  buffer[length] = 0;
  return static_cast<int>(length);
}

int wsprintfW(LPWSTR buffer, LPCWSTR format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int length = wvsprintfW(buffer, format, arguments);
  va_end(arguments);
  return length;
}
