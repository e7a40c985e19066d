#include "support/host_window.h"

#include "support/recorder.h"

namespace support {
namespace {

// The windows of this thread: they receive their messages here and nowhere else.
thread_local HostWindow* t_first = nullptr;
// Some messages come before the handle is known to anyone.
thread_local HostWindow* t_creating = nullptr;

}  // namespace

std::wstring HostWindow::ClassName(UINT classStyle, int background) {
  std::wstring name = L"vorn-host-" + std::to_wstring(classStyle) + L"-" + std::to_wstring(background);
  WNDCLASSW type = {};
  if (GetClassInfoW(GetModuleHandleW(nullptr), name.c_str(), &type)) return name;
  type = {};
  type.style = classStyle;
  type.lpfnWndProc = Procedure;
  type.hInstance = GetModuleHandleW(nullptr);
  type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  type.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(background + 1));
  type.lpszClassName = name.c_str();
  RegisterClassW(&type);
  return name;
}

HostWindow::HostWindow(HostOptions options) : m_options(std::move(options)) {
  const HostOptions& o = m_options;
  const std::wstring name = ClassName(o.classStyle, o.background);
  const HMENU menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(o.id));
  HostWindow* const outer = t_creating;
  t_creating = this;
  const HWND window = CreateWindowExW(o.exStyle, name.c_str(), o.text, o.style, o.x, o.y, o.cx, o.cy,
                                      o.parent, menu, GetModuleHandleW(nullptr), nullptr);
  t_creating = outer;
  m_window = window;
}

HostWindow::~HostWindow() {
  const Recorder::Mute mute;
  Destroy();
}

void HostWindow::Destroy() {
  if (m_window) DestroyWindow(m_window);
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  HostWindow* host = t_first;
  while (host && host->m_window != window) host = host->m_next;
  if (!host) {
    host = t_creating;
    if (!host) return DefWindowProcW(window, message, wParam, lParam);
    t_creating = nullptr;
    host->m_window = window;
    host->m_next = t_first;
    t_first = host;
  }
  return host->Receive(window, message, wParam, lParam);
}

void HostWindow::Forget() {
  HostWindow** link = &t_first;
  while (*link && *link != this) link = &(*link)->m_next;
  if (*link) *link = m_next;
  m_window = nullptr;
}

LRESULT HostWindow::Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_options.log) m_options.log->RecordMessage(m_options.name, message, wParam, lParam);
  if (message == WM_NCDESTROY) Forget();
  if (m_options.handler) {
    // A copy: the handler may replace itself.
    const Handler handler = m_options.handler;
    if (const auto result = handler(window, message, wParam, lParam)) return *result;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace support
