// The entry of a program that has only an application object.
#include "afxwin.h"

namespace {

// What follows the program's name on the command line.
LPWSTR Arguments(LPWSTR line) {
  const bool quoted = *line == L'"';
  if (quoted) ++line;
  const wchar_t* const stops = quoted ? L"\"" : L" \t";
  line += std::wcscspn(line, stops);
  if (quoted && *line == L'"') ++line;
  return line + std::wcsspn(line, L" \t");
}

}  // namespace

int main() {
  // Window functions take SW_SHOWDEFAULT for what the program was started with.
  return AfxWinMain(::GetModuleHandleW(nullptr), nullptr, Arguments(::GetCommandLineW()), SW_SHOWDEFAULT);
}
