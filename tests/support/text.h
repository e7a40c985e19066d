// Small values as text, for one-line expectations.
#pragma once

#include <windows.h>

#include <string>

namespace support {

inline std::string Text(const POINT& p) { return std::to_string(p.x) + "," + std::to_string(p.y); }
inline std::string Text(const SIZE& s) { return std::to_string(s.cx) + "x" + std::to_string(s.cy); }
// left,top,right,bottom
inline std::string Text(const RECT& r) {
  return Text(POINT{r.left, r.top}) + "," + Text(POINT{r.right, r.bottom});
}

inline std::string WindowRectText(HWND window) {
  RECT r = {};
  GetWindowRect(window, &r);
  return Text(r);
}

inline std::string ClientSizeText(HWND window) {
  RECT r = {};
  GetClientRect(window, &r);
  return Text(SIZE{r.right, r.bottom});
}

inline std::wstring WindowText(HWND window) {
  wchar_t text[1024];
  return std::wstring(text, static_cast<std::size_t>(GetWindowTextW(window, text, 1024)));
}

}  // namespace support
