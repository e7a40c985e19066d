// Between the text of the desktop (UTF-32) and bytes: UTF-8, code page 1252, UTF-16 of resources.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

#include "kernel.h"

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

// Code page 1252 from 0x80 to 0x9F. The five codes that have no character stand for themselves.
constexpr std::array<uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

wchar_t WideFrom1252(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? static_cast<wchar_t>(kWindows1252[byte - 0x80u]) : byte;
}

// The byte of a character, or -1.
int ByteOf1252(wchar_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<int>(character);
  const auto* found = std::find(kWindows1252.begin(), kWindows1252.end(), static_cast<uint32_t>(character));
  return found == kWindows1252.end() ? -1 : 0x80 + static_cast<int>(found - kWindows1252.begin());
}

// Decodes one character and moves on; false (and one byte taken) when the bytes are not UTF-8.
bool DecodeUtf8(const unsigned char*& at, const unsigned char* end, wchar_t& character) {
  const unsigned lead = *at++;
  if (lead < 0x80) {
    character = static_cast<wchar_t>(lead);
    return true;
  }
  const int trailing = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4 || end - at < trailing) return false;
  uint32_t code = lead & (0x3Fu >> trailing);
  for (int i = 0; i < trailing; ++i) {
    if ((at[i] & 0xC0) != 0x80) return false;
    code = code << 6 | (at[i] & 0x3Fu);
  }
  static constexpr uint32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  if (code < kSmallest[trailing] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return false;
  at += trailing;
  character = static_cast<wchar_t>(code);
  return true;
}

void AppendUtf8(std::string& out, wchar_t character) {
  const auto code = static_cast<uint32_t>(character);
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (code >> 18 & 7));
    out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

bool IsCharacter(wchar_t character) {
  const auto code = static_cast<uint32_t>(character);
  return code <= 0x10FFFF && (code < 0xD800 || code >= 0xE000);
}

bool DecodeAll(const char* text, size_t length, bool strict, std::wstring& out) {
  const auto* at = reinterpret_cast<const unsigned char*>(text);
  const auto* end = at + length;
  out.reserve(length);
  while (at != end) {
    wchar_t character = kReplacement;
    if (!DecodeUtf8(at, end, character)) {
      if (strict) return false;
      character = kReplacement;
    }
    out += character;
  }
  return true;
}

bool IsAnsi(UINT codePage) { return codePage == CP_ACP || codePage == 1252; }

// Writes the result of a conversion by the rules of both functions: size 0 asks for the length.
template <typename Char>
int Deliver(const std::basic_string<Char>& text, Char* buffer, int size) {
  const int length = static_cast<int>(text.size());
  if (size == 0) return length;
  if (length > size) {
    text.copy(buffer, static_cast<size_t>(size));
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  text.copy(buffer, text.size());
  return length;
}

int Refuse(DWORD error) {
  SetLastError(error);
  return 0;
}

}  // namespace

namespace desktop {

std::wstring WideFromUtf8(const char* text, size_t length) {
  std::wstring out;
  DecodeAll(text, length, false, out);
  return out;
}

std::wstring WideFromUtf8(const std::string& text) { return WideFromUtf8(text.data(), text.size()); }

std::string Utf8FromWide(const wchar_t* text, size_t length) {
  std::string out;
  out.reserve(length);
  for (size_t i = 0; i < length; ++i) AppendUtf8(out, IsCharacter(text[i]) ? text[i] : kReplacement);
  return out;
}

std::string Utf8FromWide(const std::wstring& text) { return Utf8FromWide(text.data(), text.size()); }

std::wstring WideFromUtf16(const void* text, size_t length) {
  std::wstring out;
  out.reserve(length);
  const auto* bytes = static_cast<const unsigned char*>(text);
  const auto unit = [&](size_t i) { return static_cast<uint32_t>(bytes[2 * i] | bytes[2 * i + 1] << 8); };
  for (size_t i = 0; i < length; ++i) {
    uint32_t code = unit(i);
    const bool high = code >= 0xD800 && code < 0xDC00;
    if (high && i + 1 < length && unit(i + 1) >= 0xDC00 && unit(i + 1) < 0xE000)
      code = 0x10000 + ((code - 0xD800) << 10) + (unit(++i) - 0xDC00);
    out += static_cast<wchar_t>(code);
  }
  return out;
}

}  // namespace desktop

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int bytes, LPWSTR wide, int wideSize) {
  if (!text || bytes == 0 || bytes < -1 || wideSize < 0 || (wideSize > 0 && !wide))
    return Refuse(ERROR_INVALID_PARAMETER);
  const size_t length = bytes == -1 ? strlen(text) + 1 : static_cast<size_t>(bytes);
  std::wstring out;
  if (IsAnsi(codePage)) {
    for (size_t i = 0; i < length; ++i) out += WideFrom1252(static_cast<unsigned char>(text[i]));
  } else if (codePage == CP_UTF8) {
    if (!DecodeAll(text, length, (flags & MB_ERR_INVALID_CHARS) != 0, out))
      return Refuse(ERROR_NO_UNICODE_TRANSLATION);
  } else {
    return Refuse(ERROR_INVALID_PARAMETER);
  }
  return Deliver(out, wide, wideSize);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int length, LPSTR text, int size,
                        LPCSTR defaultChar, LPBOOL usedDefault) {
  if (!wide || length == 0 || length < -1 || size < 0 || (size > 0 && !text))
    return Refuse(ERROR_INVALID_PARAMETER);
  const size_t count = length == -1 ? wcslen(wide) + 1 : static_cast<size_t>(length);
  std::string out;
  if (IsAnsi(codePage)) {
    bool replaced = false;
    for (size_t i = 0; i < count; ++i) {
      const int byte = ByteOf1252(wide[i]);
      replaced |= byte < 0;
      out += byte < 0 ? (defaultChar ? *defaultChar : '?') : static_cast<char>(byte);
    }
    if (usedDefault) *usedDefault = replaced;
  } else if (codePage == CP_UTF8) {
    if (defaultChar || usedDefault) return Refuse(ERROR_INVALID_PARAMETER);
    if ((flags & WC_ERR_INVALID_CHARS) && !std::all_of(wide, wide + count, IsCharacter))
      return Refuse(ERROR_NO_UNICODE_TRANSLATION);
    out = desktop::Utf8FromWide(wide, count);
  } else {
    return Refuse(ERROR_INVALID_PARAMETER);
  }
  return Deliver(out, text, size);
}

UINT GetACP() { return 1252; }

BOOL IsDBCSLeadByte(BYTE) { return FALSE; }
