#include "support/host_window.h"

#include <unordered_map>

#include "support/recorder.h"

namespace support {
namespace {

// Windows receive messages on the thread that made them only.
thread_local std::unordered_map<HWND, HostWindow*> t_hosts;
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
  auto found = t_hosts.find(window);
  if (found == t_hosts.end()) {
    if (!t_creating) return DefWindowProcW(window, message, wParam, lParam);
    found = t_hosts.emplace(window, t_creating).first;
    t_creating->m_window = window;
    t_creating = nullptr;
  }
  return found->second->Receive(window, message, wParam, lParam);
}

LRESULT HostWindow::Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_options.log) m_options.log->RecordMessage(m_options.name, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    t_hosts.erase(window);
    m_window = nullptr;
  }
  if (m_options.handler) {
    // A copy: the handler may replace itself.
    const Handler handler = m_options.handler;
    if (const auto result = handler(window, message, wParam, lParam)) return *result;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace support
