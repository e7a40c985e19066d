// Comparison of texts in the order of words: letters decide first, then accents, then case, and at last
// hyphens and apostrophes, which do not count before.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "kernel.h"

namespace {

// Ranks of accents. Unaccented is 0.
enum Accent : uint8_t {
  kNone,
  kAcute,
  kGrave,
  kDot,
  kCircumflex,
  kDiaeresis,
  kCaron,
  kBreve,
  kMacron,
  kTilde,
  kRing,
  kOgonek,
  kCedilla,
  kDoubleAcute,
  kStroke
};

struct AccentedLetters {
  Accent accent;
  std::wstring_view letters;  // lower case, accented and plain by turns
};

constexpr AccentedLetters kAccented[] = {
    {kAcute, L"áaéeíióoúuýyćcńnśsźzĺlŕr"},
    {kGrave, L"àaèeìiòoùu"},
    {kDot, L"ċcėeġgżz"},
    {kCircumflex, L"âaêeîiôoûuĉcĝgĥhĵjŝsŵwŷy"},
    {kDiaeresis, L"äaëeïiöoüuÿy"},
    {kCaron, L"čcďděeňnřršsťtžz"},
    {kBreve, L"ăaĕeğgĭiŏoŭu"},
    {kMacron, L"āaēeīiōoūu"},
    {kTilde, L"ãañnõoĩiũu"},
    {kRing, L"åaůu"},
    {kOgonek, L"ąaęeįiųu"},
    {kCedilla, L"çcşsţtģgķkļlņnŗr"},
    {kDoubleAcute, L"őoűu"},
    {kStroke, L"øołlđdħhŧt"},
};

// Punctuation of ASCII and its neighbours in ascending order; it comes before digits and letters.
constexpr std::wstring_view kPunctuation =
    L"\x01\x02\x03\x04\x05\x06\x07\x08\x0e\x0f\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1a\x1b\x1c\x1d\x1e"
    L"\x1f\x7f'-\xad"
    L"\t\n\x0b\x0c\r "
    L"\xa0!\xa1\"#$%&()*,./:;?\xbf@[\\]^\xa8_`{|}~\xb4\xb8\xaf\xab\xbb+\xb1<=>\xd7\xf7\xa2\xa3\xa4\xa5"
    L"\x20ac\xa7\xa9\xac\xae\xb0\xb5\xb6\xb7\xa6";

struct Unit {
  uint32_t letter;
  uint8_t accent;
  bool capital;
};

struct Keys {
  std::vector<Unit> units;
  std::vector<std::pair<size_t, wchar_t>> marks;  // hyphens and apostrophes with their places
};

constexpr uint32_t kDigits = 0x1000;
constexpr uint32_t kLetters = 0x2000;

void AppendLetter(Keys& keys, wchar_t plain, Accent accent, bool capital) {
  keys.units.push_back({kLetters + static_cast<uint32_t>(plain), accent, capital});
}

// Two letters that are written as one.
bool AppendLigature(Keys& keys, wchar_t lower, bool capital) {
  std::wstring_view letters;
  if (lower == L'æ') letters = L"ae";
  if (lower == L'œ') letters = L"oe";
  if (lower == L'ß') letters = L"ss";
  for (const wchar_t letter : letters) AppendLetter(keys, letter, kNone, capital);
  return !letters.empty();
}

void AppendCharacter(Keys& keys, wchar_t character, bool marksCount) {
  const size_t punctuation = kPunctuation.find(character);
  if (!marksCount && (character == L'-' || character == L'\'' || character == L'\xad')) {
    keys.marks.emplace_back(keys.units.size(), character);
    return;
  }
  if (character == 0) return;
  if (punctuation != std::wstring_view::npos) {
    keys.units.push_back({static_cast<uint32_t>(punctuation) + 1, kNone, false});
    return;
  }
  if (character >= L'0' && character <= L'9') {
    keys.units.push_back({kDigits + static_cast<uint32_t>(character), kNone, false});
    return;
  }
  const wchar_t lower = desktop::LowerCase(character);
  const bool capital = lower != character;
  if (AppendLigature(keys, lower, capital)) return;
  for (const AccentedLetters& group : kAccented)
    for (size_t i = 0; i < group.letters.size(); i += 2)
      if (group.letters[i] == lower) return AppendLetter(keys, group.letters[i + 1], group.accent, capital);
  AppendLetter(keys, lower, kNone, capital);
}

Keys KeysOf(LPCWSTR text, size_t length, DWORD flags) {
  Keys keys;
  keys.units.reserve(length);
  for (size_t i = 0; i < length; ++i) AppendCharacter(keys, text[i], (flags & SORT_STRINGSORT) != 0);
  return keys;
}

template <typename Field>
int CompareLevel(const Keys& a, const Keys& b, Field field) {
  const size_t common = std::min(a.units.size(), b.units.size());
  for (size_t i = 0; i < common; ++i) {
    const auto x = field(a.units[i]);
    const auto y = field(b.units[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  return a.units.size() < b.units.size() ? -1 : a.units.size() > b.units.size() ? 1 : 0;
}

int Compare(const Keys& a, const Keys& b, DWORD flags) {
  int order = CompareLevel(a, b, [](const Unit& unit) { return unit.letter; });
  if (!order && !(flags & NORM_IGNORENONSPACE))
    order = CompareLevel(a, b, [](const Unit& unit) { return unit.accent; });
  if (!order && !(flags & NORM_IGNORECASE))
    order = CompareLevel(a, b, [](const Unit& unit) { return unit.capital; });
  if (!order && a.marks != b.marks) order = a.marks < b.marks ? -1 : 1;
  return order;
}

size_t LengthOf(LPCWSTR text, int length) { return length < 0 ? wcslen(text) : static_cast<size_t>(length); }

int CompareTexts(LPCWSTR a, LPCWSTR b, DWORD flags) {
  // Null sorts before any text.
  if (!a || !b) return a ? 1 : b ? -1 : 0;
  return CompareStringW(LOCALE_USER_DEFAULT, flags, a, -1, b, -1) - CSTR_EQUAL;
}

}  // namespace

int CompareStringW(LCID, DWORD flags, LPCWSTR a, int lengthA, LPCWSTR b, int lengthB) {
  if (!a || !b) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  if (flags & ~static_cast<DWORD>(NORM_IGNORECASE | NORM_IGNORENONSPACE | SORT_STRINGSORT)) {
    SetLastError(ERROR_INVALID_FLAGS);
    return 0;
  }
  return CSTR_EQUAL +
         Compare(KeysOf(a, LengthOf(a, lengthA), flags), KeysOf(b, LengthOf(b, lengthB), flags), flags);
}

int lstrcmpW(LPCWSTR a, LPCWSTR b) { return CompareTexts(a, b, 0); }

int lstrcmpiW(LPCWSTR a, LPCWSTR b) { return CompareTexts(a, b, NORM_IGNORECASE); }
