// On the in-memory desktop: the whole screen.
#include <string>

#include "desktop/desktop.h"
#include "screenshot.h"

bool SaveScreenshot(HWND, const wchar_t* path) {
  const int size = ::WideCharToMultiByte(CP_UTF8, 0, path, -1, nullptr, 0, nullptr, nullptr);
  std::string name(static_cast<size_t>(size > 0 ? size : 1), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, path, -1, name.data(), size, nullptr, nullptr);
  return desktop::SaveScreenPng(name.c_str());
}
