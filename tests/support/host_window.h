// A window for a test: any style, any behaviour, gone at the end of the scope.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

namespace support {

class Recorder;

// Sees each message first. A value is the message's result; no value leaves it to DefWindowProc.
using Handler = std::function<std::optional<LRESULT>(HWND, UINT, WPARAM, LPARAM)>;

struct HostOptions {
  DWORD style = WS_POPUP | WS_VISIBLE;
  DWORD exStyle = 0;
  int x = 100;  // position and size as CreateWindowEx takes them, pixels
  int y = 100;
  int cx = 200;
  int cy = 120;
  HWND parent = nullptr;  // the parent of a child, the owner of any other window
  int id = 0;             // of a child
  const wchar_t* text = L"";
  UINT classStyle = 0;
  int background = COLOR_WINDOW;  // a system colour; -1: no class brush
  Handler handler = {};
  Recorder* log = nullptr;  // records every message from the first one on
  std::string name = "host";
};

class HostWindow {
 public:
  explicit HostWindow(HostOptions options = {});
  ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  // The handle; null once the window is destroyed.
  HWND Handle() const { return m_window; }
  operator HWND() const { return m_window; }

  void Destroy();
  void SetHandler(Handler handler) { m_options.handler = std::move(handler); }

  // The name of the class that such a window has, registered when needed.
  static std::wstring ClassName(UINT classStyle, int background);

 private:
  static LRESULT CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM);
  LRESULT Receive(HWND, UINT, WPARAM, LPARAM);
  void Forget();

  HostOptions m_options;
  HWND m_window = nullptr;
  HostWindow* m_next = nullptr;
};

}  // namespace support
