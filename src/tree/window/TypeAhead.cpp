#include "TypeAhead.h"

#include <cctype>
#include <cwchar>

namespace vorn {

namespace {

constexpr size_t kBufferSize = 32;
constexpr DWORD kPause = 800;  // milliseconds

wchar_t g_typeAhead[kBufferSize];
DWORD g_typeAheadTick;

bool IsBetween(wchar_t c, wchar_t first, wchar_t last) { return c >= first && c <= last; }

}  // namespace

bool IsTypeAheadCharacter(wchar_t c) {
  constexpr wchar_t kLastNarrow = 0xFF;
  return (c <= kLastNarrow && std::isalnum(static_cast<unsigned char>(c))) || c == 0x21 ||
         IsBetween(c, 0x23, 0x26) || IsBetween(c, 0x28, 0x2F) || IsBetween(c, 0x3C, 0x40) ||
         IsBetween(c, 0x5B, 0x60) || c == 0x7B || IsBetween(c, 0x7D, 0x7E);
}

TypeAheadStep AppendTypeAhead(wchar_t character, DWORD tick) {
  const DWORD since = tick - g_typeAheadTick;
  g_typeAheadTick = tick;
  if (since >= kPause) ClearTypeAhead();
  size_t length = std::wcslen(g_typeAhead);
  if (length + 2 >= kBufferSize) return TypeAheadStep::Full;
  if (length == 1 && g_typeAhead[0] == L' ') length = 0;  // only a host could have put it there
  g_typeAhead[length] = character;
  g_typeAhead[length + 1] = L'\0';
  return length == 0 ? TypeAheadStep::First : TypeAheadStep::Next;
}

const wchar_t* TypeAheadText() { return g_typeAhead; }

void ClearTypeAhead() { g_typeAhead[0] = L'\0'; }

}  // namespace vorn
