// Case, lengths and copies of texts, and the C library's additions.
#include <clocale>
#include <cwctype>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include <strings.h>

#include <windows.h>

#include "kernel.h"

namespace {

// Unicode tables, whatever locale the program runs in.
locale_t UnicodeLocale() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return locale;
}

// CharUpperW takes a single character in place of a pointer.
template <typename Change>
LPWSTR ChangeCase(LPWSTR text, Change change) {
  const auto value = reinterpret_cast<ULONG_PTR>(text);
  if (value < 0x10000)
    return reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(change(static_cast<wchar_t>(value))));
  for (LPWSTR at = text; *at; ++at) *at = change(*at);
  return text;
}

template <typename Change>
DWORD ChangeCase(LPWSTR text, DWORD length, Change change) {
  if (!text) return 0;
  std::transform(text, text + length, text, change);
  return length;
}

bool IsAlpha(wchar_t character) { return iswalpha_l(static_cast<wint_t>(character), UnicodeLocale()) != 0; }

}  // namespace

namespace desktop {

wchar_t UpperCase(wchar_t character) {
  return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(character), UnicodeLocale()));
}

wchar_t LowerCase(wchar_t character) {
  return static_cast<wchar_t>(towlower_l(static_cast<wint_t>(character), UnicodeLocale()));
}

bool EqualNoCase(const std::wstring& a, const std::wstring& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return LowerCase(x) == LowerCase(y); });
}

DWORD CopyOut(const std::wstring& text, LPWSTR buffer, DWORD size) {
  const auto length = static_cast<DWORD>(text.size());
  if (!buffer || size <= length) return length + 1;
  text.copy(buffer, length);
  buffer[length] = 0;
  return length;
}

}  // namespace desktop

using desktop::LowerCase;
using desktop::UpperCase;

LPWSTR CharUpperW(LPWSTR text) { return ChangeCase(text, UpperCase); }

LPWSTR CharLowerW(LPWSTR text) { return ChangeCase(text, LowerCase); }

DWORD CharUpperBuffW(LPWSTR text, DWORD length) { return ChangeCase(text, length, UpperCase); }

DWORD CharLowerBuffW(LPWSTR text, DWORD length) { return ChangeCase(text, length, LowerCase); }

LPWSTR CharNextW(LPCWSTR text) { return const_cast<LPWSTR>(*text ? text + 1 : text); }

LPWSTR CharPrevW(LPCWSTR start, LPCWSTR current) {
  return const_cast<LPWSTR>(current > start ? current - 1 : start);
}

BOOL IsCharAlphaW(WCHAR character) { return IsAlpha(character); }

BOOL IsCharAlphaNumericW(WCHAR character) {
  return iswalnum_l(static_cast<wint_t>(character), UnicodeLocale()) != 0;
}

int lstrlenA(LPCSTR text) { return text ? static_cast<int>(strlen(text)) : 0; }

int lstrlenW(LPCWSTR text) { return text ? static_cast<int>(wcslen(text)) : 0; }

LPWSTR lstrcpyW(LPWSTR destination, LPCWSTR source) {
  return destination && source ? wcscpy(destination, source) : nullptr;
}

LPWSTR lstrcatW(LPWSTR destination, LPCWSTR source) {
  return destination && source ? wcscat(destination, source) : nullptr;
}

LPWSTR lstrcpynW(LPWSTR destination, LPCWSTR source, int maximum) {
  if (!destination || !source) return nullptr;
  if (maximum <= 0) return destination;
  const size_t length = wcsnlen(source, static_cast<size_t>(maximum) - 1);
  wmemcpy(destination, source, length);
  destination[length] = 0;
  return destination;
}

int MulDiv(int number, int numerator, int denominator) {
  if (denominator == 0) return -1;
  const long long product = static_cast<long long>(number) * numerator;
  const long long divisor = denominator;
  const bool negative = (product < 0) != (divisor < 0);
  const long long half = std::llabs(divisor) / 2;
  const long long quotient = (std::llabs(product) + half) / std::llabs(divisor);
  const long long result = negative ? -quotient : quotient;
  return result == static_cast<int>(result) ? static_cast<int>(result) : -1;
}

int _wcsicmp(const wchar_t* a, const wchar_t* b) { return _wcsnicmp(a, b, static_cast<size_t>(-1)); }

int _wcsnicmp(const wchar_t* a, const wchar_t* b, size_t maximum) {
  for (size_t i = 0; i < maximum; ++i) {
    const wchar_t x = LowerCase(a[i]);
    const wchar_t y = LowerCase(b[i]);
    if (x != y) return x < y ? -1 : 1;
    if (!x) break;
  }
  return 0;
}

int _stricmp(const char* a, const char* b) { return strcasecmp(a, b); }

wchar_t* _wcsdup(const wchar_t* text) { return text ? wcsdup(text) : nullptr; }

wchar_t* _wcslwr(wchar_t* text) { return CharLowerW(text); }

wchar_t* _wcsupr(wchar_t* text) { return CharUpperW(text); }

int _wtoi(const wchar_t* text) {
  const long long value = _wtoi64(text);
  return static_cast<int>(std::clamp<long long>(value, INT32_MIN, INT32_MAX));
}

long long _wtoi64(const wchar_t* text) { return text ? wcstoll(text, nullptr, 10) : 0; }

double _wtof(const wchar_t* text) { return text ? wcstod(text, nullptr) : 0; }

wchar_t* _itow(int value, wchar_t* buffer, int radix) {
  if (!buffer || radix < 2 || radix > 36) return nullptr;
  const bool negative = value < 0 && radix == 10;
  auto rest = negative ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
  const auto base = static_cast<unsigned>(radix);
  std::wstring digits;
  do {
    digits += L"0123456789abcdefghijklmnopqrstuvwxyz"[rest % base];
    rest /= base;
  } while (rest > 0);
  if (negative) digits += L'-';
  std::reverse_copy(digits.begin(), digits.end(), buffer);
  buffer[digits.size()] = 0;
  return buffer;
}
