#include "support/driver.h"

#include <cstdlib>
#include <utility>

namespace support {
namespace {

struct LastClick {
  bool any = false;
  POINT point = {};
  DWORD time = 0;
};
LastClick g_lastClick;

void Send(const INPUT& input) {
  INPUT copy = input;
  SendInput(1, &copy, sizeof copy);
}

void SendMouse(DWORD flags, DWORD data = 0) {
  INPUT input = {};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  input.mi.mouseData = data;
  Send(input);
}

bool IsExtended(UINT key) {
  switch (key) {
    case VK_PRIOR:
    case VK_NEXT:
    case VK_END:
    case VK_HOME:
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_INSERT:
    case VK_DELETE:
    case VK_APPS:
    case VK_DIVIDE: return true;
    default: return false;
  }
}

void SendKey(UINT key, bool up) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = static_cast<WORD>(key);
  if (up) input.ki.dwFlags |= KEYEVENTF_KEYUP;
  if (IsExtended(key)) input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
  Send(input);
}

void SendCharacter(wchar_t character, bool up) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = static_cast<WORD>(character);
  input.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0u);
  Send(input);
}

DWORD DownFlag(Button button) {
  if (button == Button::Right) return MOUSEEVENTF_RIGHTDOWN;
  return button == Button::Middle ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_LEFTDOWN;
}

DWORD UpFlag(Button button) {
  if (button == Button::Right) return MOUSEEVENTF_RIGHTUP;
  return button == Button::Middle ? MOUSEEVENTF_MIDDLEUP : MOUSEEVENTF_LEFTUP;
}

// Holds keys down while it lives.
class Held {
 public:
  explicit Held(Keys keys) : m_keys(keys) {
    if (m_keys.control) KeyDown(VK_CONTROL);
    if (m_keys.shift) KeyDown(VK_SHIFT);
    if (m_keys.alt) KeyDown(VK_MENU);
  }
  ~Held() {
    if (m_keys.alt) KeyUp(VK_MENU);
    if (m_keys.shift) KeyUp(VK_SHIFT);
    if (m_keys.control) KeyUp(VK_CONTROL);
  }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

 private:
  Keys m_keys;
};

// Lets the time of a double click pass where a new click would fall into it.
void AvoidDoubleClick(POINT point) {
  const DWORD passed = GetTickCount() - g_lastClick.time;
  const bool close = std::abs(point.x - g_lastClick.point.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                     std::abs(point.y - g_lastClick.point.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
  if (g_lastClick.any && close && passed <= GetDoubleClickTime()) {
    Sleep(GetDoubleClickTime() - passed + 20);
  }
}

void RememberClick(POINT point) { g_lastClick = {true, point, GetTickCount()}; }

DWORD Absolute(int coordinate, int extent) {
  return static_cast<DWORD>((coordinate * 65536LL + extent - 1) / extent);
}

}  // namespace

POINT At(HWND window, int x, int y) {
  POINT point = {x, y};
  ClientToScreen(window, &point);
  return point;
}

POINT MiddleOf(HWND window) {
  RECT r = {};
  GetWindowRect(window, &r);
  return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

void PostMouseMove(POINT screen) {
  INPUT input = {};
  input.type = INPUT_MOUSE;
  input.mi.dx = static_cast<LONG>(Absolute(screen.x, GetSystemMetrics(SM_CXSCREEN)));
  input.mi.dy = static_cast<LONG>(Absolute(screen.y, GetSystemMetrics(SM_CYSCREEN)));
  input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
  Send(input);
}

void PostPress(POINT screen, Button button) {
  PostMouseMove(screen);
  SendMouse(DownFlag(button));
}

void PostRelease(POINT screen, Button button) {
  PostMouseMove(screen);
  SendMouse(UpFlag(button));
}

void PostKey(UINT virtualKey) {
  SendKey(virtualKey, false);
  SendKey(virtualKey, true);
}

void MoveTo(POINT screen) {
  PostMouseMove(screen);
  Pump();
}

void Press(POINT screen, Button button) {
  MoveTo(screen);
  AvoidDoubleClick(screen);
  RememberClick(screen);
  SendMouse(DownFlag(button));
  Pump();
}

void Release(POINT screen, Button button) {
  MoveTo(screen);
  SendMouse(UpFlag(button));
  Pump();
}

void Click(POINT screen, Button button, Keys keys) {
  const Held held(keys);
  Press(screen, button);
  Release(screen, button);
}

void DoubleClick(POINT screen, Button button, Keys keys) {
  const Held held(keys);
  Press(screen, button);
  Release(screen, button);
  SendMouse(DownFlag(button));
  Pump();
  Release(screen, button);
}

void Drag(POINT from, POINT to, Button button, Keys keys) {
  constexpr int kSteps = 4;
  const Held held(keys);
  Press(from, button);
  for (int i = 1; i <= kSteps; ++i) {
    MoveTo({from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
  }
  Release(to, button);
}

void Wheel(POINT screen, int notches, Keys keys) {
  const Held held(keys);
  MoveTo(screen);
  SendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA));
  Pump();
}

void KeyDown(UINT virtualKey) {
  SendKey(virtualKey, false);
  Pump();
}

void KeyUp(UINT virtualKey) {
  SendKey(virtualKey, true);
  Pump();
}

void Key(UINT virtualKey, Keys keys) {
  const Held held(keys);
  KeyDown(virtualKey);
  KeyUp(virtualKey);
}

void Type(const std::wstring& text) {
  for (const wchar_t character : text) {
    SendCharacter(character, false);
    SendCharacter(character, true);
    Pump();
  }
}

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) return;
    if (MessageFilter::Takes(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void PumpFor(int milliseconds) {
  constexpr DWORD kSlice = 10;
  const DWORD start = GetTickCount();
  const DWORD length = static_cast<DWORD>(milliseconds);
  Pump();
  for (DWORD passed = 0; passed < length; passed = GetTickCount() - start) {
    Sleep(length - passed < kSlice ? length - passed : kSlice);
    Pump();
  }
}

bool PumpUntil(const std::function<bool()>& condition, int milliseconds) {
  const DWORD start = GetTickCount();
  Pump();
  while (!condition()) {
    if (GetTickCount() - start > static_cast<DWORD>(milliseconds)) return false;
    Sleep(5);
    Pump();
  }
  return true;
}

namespace {
thread_local MessageFilter* t_filter = nullptr;
}

MessageFilter::MessageFilter(std::function<bool(MSG&)> taken)
    : m_taken(std::move(taken)), m_outer(std::exchange(t_filter, this)) {}

MessageFilter::~MessageFilter() { t_filter = m_outer; }

bool MessageFilter::Takes(MSG& message) { return t_filter && t_filter->m_taken(message); }

struct Later::State {
  std::function<void()> action;
  UINT_PTR timer = 0;
  bool done = false;
  State* next = nullptr;

  static thread_local State* t_first;

  // Takes the one with the timer out of the list; null when there is none.
  static State* Take(UINT_PTR id) {
    State** link = &t_first;
    while (*link && (*link)->timer != id) link = &(*link)->next;
    State* const state = *link;
    if (state) *link = state->next;
    return state;
  }

  static void CALLBACK Due(HWND, UINT, UINT_PTR id, DWORD) {
    KillTimer(nullptr, id);
    State* const state = Take(id);
    if (!state) return;
    state->timer = 0;
    state->done = true;
    // A copy: the action may end the object.
    const std::function<void()> copy = state->action;
    copy();
  }
};

thread_local Later::State* Later::State::t_first = nullptr;

Later::Later(int milliseconds, std::function<void()> action) : m_state(std::make_unique<State>()) {
  m_state->action = std::move(action);
  m_state->timer = SetTimer(nullptr, 0, static_cast<UINT>(milliseconds), State::Due);
  m_state->next = State::t_first;
  State::t_first = m_state.get();
}

Later::~Later() {
  if (!m_state->timer) return;
  KillTimer(nullptr, m_state->timer);
  State::Take(m_state->timer);
}

bool Later::Done() const { return m_state->done; }

}  // namespace support
