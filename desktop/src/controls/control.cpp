#include "controls/control.h"

#include <map>

#include "controls/controls.h"
#include "world.h"

namespace desktop {

namespace {

std::map<HWND, std::shared_ptr<Control>>& Controls() {
  static auto& controls = *new std::map<HWND, std::shared_ptr<Control>>;
  return controls;
}

const RegisterReset g_reset(0, [] { Controls().clear(); });

}  // namespace

RECT Control::ClientRect() const {
  RECT rect{};
  GetClientRect(m_window, &rect);
  return rect;
}

void Control::Notify(int code) const {
  const HWND parent = GetParent(m_window);
  if (!parent) return;
  SendMessageW(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(m_window), code),
               reinterpret_cast<LPARAM>(m_window));
}

HBRUSH Control::AskColors(UINT message, HDC dc) const {
  const HWND parent = GetParent(m_window);
  const auto param = reinterpret_cast<LPARAM>(m_window);
  const auto wParam = reinterpret_cast<WPARAM>(dc);
  LRESULT brush = SendMessageW(parent ? parent : m_window, message, wParam, param);
  // A parent that answers nothing gets the standard colours.
  if (!brush) brush = DefWindowProcW(parent ? parent : m_window, message, wParam, param);
  return reinterpret_cast<HBRUSH>(brush);
}

std::wstring Control::WindowText() const {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(m_window)) + 1, 0);
  text.resize(static_cast<size_t>(GetWindowTextW(m_window, text.data(), static_cast<int>(text.size()))));
  return text;
}

void AttachControl(HWND window, std::shared_ptr<Control> control) {
  WorldLock lock(WorldMutex());
  Controls()[window] = std::move(control);
}

std::shared_ptr<Control> ControlOf(HWND window) {
  WorldLock lock(WorldMutex());
  const auto found = Controls().find(window);
  return found == Controls().end() ? nullptr : found->second;
}

void DetachControl(HWND window) {
  std::shared_ptr<Control> last;  // dies after the lock is released
  WorldLock lock(WorldMutex());
  const auto found = Controls().find(window);
  if (found == Controls().end()) return;
  last = std::move(found->second);
  Controls().erase(found);
}

ControlPaint::ControlPaint(HWND window, WPARAM dc, HFONT font) : m_window(window), m_begun(dc == 0) {
  m_dc = m_begun ? BeginPaint(window, &m_paint) : reinterpret_cast<HDC>(dc);
  m_saved = SaveDC(m_dc);
  if (font) SelectObject(m_dc, font);
}

ControlPaint::~ControlPaint() {
  if (m_saved) RestoreDC(m_dc, m_saved);
  if (m_begun) EndPaint(m_window, &m_paint);
}

SIZE LetterSize(HDC dc) {
  static constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  TEXTMETRICW metrics{};
  SIZE extent{};
  GetTextMetricsW(dc, &metrics);
  GetTextExtentPoint32W(dc, kLetters, 52, &extent);
  return {(extent.cx / 26 + 1) / 2, metrics.tmHeight};
}

void RegisterControl(LPCWSTR name, UINT style, WNDPROC procedure, int extra, LPCWSTR cursor,
                     HBRUSH background) {
  WNDCLASSEXW wc{};
  wc.cbSize = sizeof wc;
  wc.style = style;
  wc.lpfnWndProc = procedure;
  wc.cbWndExtra = extra;
  wc.hCursor = LoadCursorW(nullptr, cursor);
  wc.hbrBackground = background;
  wc.lpszClassName = name;
  RegisterClassExW(&wc);
}

}  // namespace desktop
