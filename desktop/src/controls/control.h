// The ground of the standard controls: an object for each window, and what all of them need.
#pragma once

#include <memory>
#include <string>

#include <windows.h>

namespace desktop {

// One control. Its window may die in any message that it sends out; the object lives on until the call
// into it is over, and calls on the dead window fail without harm.
class Control {
 public:
  explicit Control(HWND window) : m_window(window) {}
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;

 protected:
  HWND Window() const { return m_window; }
  DWORD Style() const { return static_cast<DWORD>(GetWindowLongW(m_window, GWL_STYLE)); }
  DWORD ExStyle() const { return static_cast<DWORD>(GetWindowLongW(m_window, GWL_EXSTYLE)); }
  RECT ClientRect() const;
  // WM_COMMAND to the parent.
  void Notify(int code) const;
  // WM_CTLCOLOR...: asks the parent for colours and brush of a DC.
  HBRUSH AskColors(UINT message, HDC dc) const;
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const {
    return DefWindowProcW(m_window, message, wParam, lParam);
  }
  std::wstring WindowText() const;
  void Invalidate(bool erase = true) const { InvalidateRect(m_window, nullptr, erase); }

  // WM_SETFONT and WM_GETFONT.
  HFONT m_font = nullptr;

 private:
  const HWND m_window;
};

// Remembers a control for its window until WM_NCDESTROY or a reset. Takes the lock.
void AttachControl(HWND window, std::shared_ptr<Control> control);
std::shared_ptr<Control> ControlOf(HWND window);
void DetachControl(HWND window);

// The window procedure of a class of controls.
template <typename T>
LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  std::shared_ptr<Control> control = ControlOf(window);
  if (!control && message == WM_NCCREATE) {
    control = std::make_shared<T>(window);
    AttachControl(window, control);
  }
  if (!control) return DefWindowProcW(window, message, wParam, lParam);
  const LRESULT result = control->Handle(message, wParam, lParam);
  if (message == WM_NCDESTROY) DetachControl(window);
  return result;
}

// A DC of a window's client area with a font in it (null: the font of the system).
class ControlDC {
 public:
  ControlDC(HWND window, HFONT font) : m_window(window), m_dc(GetDC(window)) { Select(font); }
  ControlDC(const ControlDC&) = delete;
  ControlDC& operator=(const ControlDC&) = delete;
  ~ControlDC() {
    if (m_before) SelectObject(m_dc, m_before);
    ReleaseDC(m_window, m_dc);
  }
  operator HDC() const { return m_dc; }

 private:
  void Select(HFONT font) {
    if (font) m_before = SelectObject(m_dc, font);
  }
  const HWND m_window;
  const HDC m_dc;
  HGDIOBJ m_before = nullptr;
};

// Paints in WM_PAINT, into the DC of wParam if there is one, and keeps its font and colours as they were.
class ControlPaint {
 public:
  ControlPaint(HWND window, WPARAM dc, HFONT font);
  ControlPaint(const ControlPaint&) = delete;
  ControlPaint& operator=(const ControlPaint&) = delete;
  ~ControlPaint();
  operator HDC() const { return m_dc; }

 private:
  const HWND m_window;
  PAINTSTRUCT m_paint{};
  bool m_begun = false;
  HDC m_dc = nullptr;
  int m_saved = 0;
};

// The average width of the letters of the DC's font, from which the dialog unit is taken, and its height.
SIZE LetterSize(HDC dc);

// Registers a class of controls. extra: bytes of a window.
void RegisterControl(LPCWSTR name, UINT style, WNDPROC procedure, int extra, LPCWSTR cursor,
                     HBRUSH background);

}  // namespace desktop
