#include "command_line.h"

#include <cstdlib>

namespace {

// Takes the next part off the text.
CString TakeWord(LPCWSTR& text) {
  text += std::wcsspn(text, L" \t");
  const bool quoted = *text == L'"';
  if (quoted) ++text;
  const int length = static_cast<int>(std::wcscspn(text, quoted ? L"\"" : L" \t"));
  CString word(text, length);
  text += length;
  if (quoted && *text == L'"') ++text;
  return word;
}

int Number(LPCWSTR text) { return static_cast<int>(std::wcstol(text, nullptr, 10)); }

}  // namespace

CommandLine ParseCommandLine(LPCWSTR arguments) {
  CommandLine result;
  LPCWSTR rest = arguments != nullptr ? arguments : L"";
  for (CString word = TakeWord(rest); !word.IsEmpty(); word = TakeWord(rest)) {
    if (word == L"--screenshot") {
      result.screenshot = TakeWord(rest);
    } else if (word == L"--page") {
      result.page = Number(TakeWord(rest)) - 1;
    } else if (word == L"--select") {
      result.selected = TakeWord(rest);
    } else if (word == L"--fill") {
      result.fill = Number(TakeWord(rest));
    } else if (word == L"--size") {
      const CString size = TakeWord(rest);
      result.size = CSize(Number(size), Number(size.Mid(size.Find(L'x') + 1)));
    } else {
      result.folder = word;
    }
  }
  return result;
}
