// A standard control in a host window.
#pragma once

#include <windows.h>

#include <string>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"

namespace support {

// The log has what the parent is told.
class Control {
 public:
  Control(const wchar_t* type, DWORD style, const wchar_t* text = L"") : m_host({.log = &log}) {
    window =
        CreateWindowExW(0, type, text, WS_CHILD | WS_VISIBLE | style, 10, 10, 150, 60, m_host,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(7)), GetModuleHandleW(nullptr), nullptr);
    SetFocus(window);
    Pump();
    log.Clear();
    log.Only({WM_COMMAND});
  }
  ~Control() {
    const Recorder::Mute mute;
    DestroyWindow(window);
  }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window, message, wParam, lParam);
  }
  LRESULT SendText(UINT message, WPARAM wParam, const wchar_t* text) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(text));
  }

  Recorder log;
  HWND window;

 private:
  HostWindow m_host;
};

// A notification of the control to its parent, in the log.
inline std::string Told(int code) { return "host WM_COMMAND 7 " + std::to_string(code) + "\n"; }

}  // namespace support
