#include <windows.h>

#include "support/process.h"

namespace support {
namespace {

BOOL CALLBACK DestroyOne(HWND window, LPARAM) {
  if (GetWindow(window, GW_OWNER) == nullptr) {
    DestroyWindow(window);
    return FALSE;
  }
  return TRUE;
}

void ReleaseInput() {
  ReleaseCapture();
  for (int key = 1; key < 256; ++key) {
    if (GetAsyncKeyState(key) >= 0) continue;
    if (key == VK_LBUTTON) mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    if (key == VK_RBUTTON) mouse_event(MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
    if (key == VK_MBUTTON) mouse_event(MOUSEEVENTF_MIDDLEUP, 0, 0, 0, 0);
    if (key > 6) keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
  }
}

}  // namespace

void CleanUpAfterTest() {
  ReleaseInput();
  constexpr int kEnough = 100;  // a window may refuse to go
  for (int i = 0; i < kEnough && !EnumThreadWindows(GetCurrentThreadId(), DestroyOne, 0); ++i) {
  }
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
  }
}

}  // namespace support
