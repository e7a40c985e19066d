// Synthetic input: what moves the cursor and presses keys, and whose queue sees it.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

struct Device {
  POINT cursor{0, 0};
  RECT clip{0, 0, 0, 0};
  bool clipped = false;
  std::array<BYTE, 256> keys{};  // 0x80 down, 0x01 toggled, 0x40 pressed since the last look
  bool altAlone = false;         // Alt is down and no other key came since
  unsigned long long nextId = 1;
};

Device& TheDevice() {
  static auto& device = *new Device;
  return device;
}

void PressKey(std::array<BYTE, 256>& keys, int key, bool down) {
  BYTE& state = keys[static_cast<size_t>(key)];
  if (!down) {
    state &= 0x7f;
    return;
  }
  if (!(state & 0x80)) state ^= 0x01;
  state |= 0x80 | 0x40;
}

// Left and right keys and the key without a side go together.
void PressWithSides(std::array<BYTE, 256>& keys, int key, bool down) {
  PressKey(keys, key, down);
  const auto merge = [&keys](int left, int right, int both) {
    const bool any = (keys[static_cast<size_t>(left)] | keys[static_cast<size_t>(right)]) & 0x80;
    if (any != ((keys[static_cast<size_t>(both)] & 0x80) != 0)) PressKey(keys, both, any);
  };
  if (key == VK_LSHIFT || key == VK_RSHIFT) merge(VK_LSHIFT, VK_RSHIFT, VK_SHIFT);
  if (key == VK_LCONTROL || key == VK_RCONTROL) merge(VK_LCONTROL, VK_RCONTROL, VK_CONTROL);
  if (key == VK_LMENU || key == VK_RMENU) merge(VK_LMENU, VK_RMENU, VK_MENU);
}

bool Down(int key) { return TheDevice().keys[static_cast<size_t>(key)] & 0x80; }

WPARAM ButtonFlags() {
  WPARAM flags = 0;
  if (Down(VK_LBUTTON)) flags |= MK_LBUTTON;
  if (Down(VK_RBUTTON)) flags |= MK_RBUTTON;
  if (Down(VK_MBUTTON)) flags |= MK_MBUTTON;
  if (Down(VK_XBUTTON1)) flags |= MK_XBUTTON1;
  if (Down(VK_XBUTTON2)) flags |= MK_XBUTTON2;
  if (Down(VK_SHIFT)) flags |= MK_SHIFT;
  if (Down(VK_CONTROL)) flags |= MK_CONTROL;
  return flags;
}

std::shared_ptr<Queue> MouseQueue(POINT point) {
  const auto& foreground = ForegroundQueue();
  if (foreground && foreground->capture) return foreground;
  for (const auto& queue : AllQueues())
    if (queue->capture) return queue;
  const Window* window = WindowAtQuietly(point);
  return window ? window->queue : nullptr;
}

// No event, but the keys as programs see them change all the same.
void ApplyWithoutQueue(const InputEvent& event) {
  const auto& queue = ForegroundQueue();
  if (queue) ApplyKeys(*queue, event);
}

void Enqueue(const std::shared_ptr<Queue>& queue, InputEvent event) {
  if (!queue) return ApplyWithoutQueue(event);
  event.id = TheDevice().nextId++;
  event.time = event.time ? event.time : ClockTicks();
  const bool isMove = event.message == WM_MOUSEMOVE;
  if (isMove && !queue->input.empty() && queue->input.back().message == WM_MOUSEMOVE) {
    // A move that nobody has read yet only gets another place.
    InputEvent& last = queue->input.back();
    event.id = last.id;
    last = event;
  } else {
    queue->input.push_back(event);
  }
  const bool isMouse = event.message >= WM_MOUSEFIRST && event.message <= WM_MOUSELAST;
  SetChanged(*queue, isMove ? QS_MOUSEMOVE : isMouse ? QS_MOUSEBUTTON : QS_KEY);
}

void EnqueueMouse(UINT message, WORD data, BYTE button, bool down, DWORD time, ULONG_PTR extra) {
  Device& device = TheDevice();
  if (button) PressKey(device.keys, button, down);
  InputEvent event;
  event.message = message;
  event.wParam = static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(ButtonFlags(), data)));
  event.lParam = down;
  event.key = button;
  event.point = device.cursor;
  event.time = time;
  event.extra = extra;
  Enqueue(MouseQueue(device.cursor), event);
}

void MoveTo(int x, int y, DWORD time, ULONG_PTR extra) {
  Device& device = TheDevice();
  const RECT bounds = device.clipped ? device.clip : RECT{0, 0, Metric(SM_CXSCREEN), Metric(SM_CYSCREEN)};
  device.cursor.x = std::clamp(x, bounds.left, std::max(bounds.left, bounds.right - 1));
  device.cursor.y = std::clamp(y, bounds.top, std::max(bounds.top, bounds.bottom - 1));
  EnqueueMouse(WM_MOUSEMOVE, 0, 0, false, time, extra);
}

void DoMouse(const MOUSEINPUT& in) {
  const POINT cursor = TheDevice().cursor;
  const auto data = static_cast<WORD>(in.mouseData);
  if (in.dwFlags & MOUSEEVENTF_MOVE) {
    POINT to{cursor.x + Near(in.dx), cursor.y + Near(in.dy)};
    if (in.dwFlags & MOUSEEVENTF_ABSOLUTE) {
      to.x = static_cast<int>((static_cast<long long>(in.dx) * Metric(SM_CXSCREEN)) >> 16);
      to.y = static_cast<int>((static_cast<long long>(in.dy) * Metric(SM_CYSCREEN)) >> 16);
    }
    const bool only = !(in.dwFlags & ~(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE));
    if (only || to.x != cursor.x || to.y != cursor.y) MoveTo(to.x, to.y, in.time, in.dwExtraInfo);
  }
  const auto press = [&in](DWORD flag, UINT message, BYTE button, bool down, WORD word) {
    if (in.dwFlags & flag) EnqueueMouse(message, word, button, down, in.time, in.dwExtraInfo);
  };
  press(MOUSEEVENTF_LEFTDOWN, WM_LBUTTONDOWN, VK_LBUTTON, true, 0);
  press(MOUSEEVENTF_LEFTUP, WM_LBUTTONUP, VK_LBUTTON, false, 0);
  press(MOUSEEVENTF_RIGHTDOWN, WM_RBUTTONDOWN, VK_RBUTTON, true, 0);
  press(MOUSEEVENTF_RIGHTUP, WM_RBUTTONUP, VK_RBUTTON, false, 0);
  press(MOUSEEVENTF_MIDDLEDOWN, WM_MBUTTONDOWN, VK_MBUTTON, true, 0);
  press(MOUSEEVENTF_MIDDLEUP, WM_MBUTTONUP, VK_MBUTTON, false, 0);
  press(MOUSEEVENTF_WHEEL, WM_MOUSEWHEEL, 0, false, data);
  press(MOUSEEVENTF_HWHEEL, WM_MOUSEHWHEEL, 0, false, data);
  const BYTE button = data == XBUTTON2 ? VK_XBUTTON2 : VK_XBUTTON1;
  press(MOUSEEVENTF_XDOWN, WM_XBUTTONDOWN, button, true, data);
  press(MOUSEEVENTF_XUP, WM_XBUTTONUP, button, false, data);
}

BYTE SideOf(int key, UINT scan, bool extended) {
  switch (key) {
    case VK_SHIFT: return scan == 0x36 ? VK_RSHIFT : VK_LSHIFT;
    case VK_CONTROL: return extended ? VK_RCONTROL : VK_LCONTROL;
    case VK_MENU: return extended ? VK_RMENU : VK_LMENU;
    default: return static_cast<BYTE>(key);
  }
}

WPARAM WithoutSide(BYTE key) {
  switch (key) {
    case VK_LSHIFT:
    case VK_RSHIFT: return VK_SHIFT;
    case VK_LCONTROL:
    case VK_RCONTROL: return VK_CONTROL;
    case VK_LMENU:
    case VK_RMENU: return VK_MENU;
    default: return key;
  }
}

// WM_SYSKEY... for keys with Alt (not with Ctrl too), for F10 and for Alt itself when nothing else came.
UINT KeyMessage(WPARAM key, bool up) {
  Device& device = TheDevice();
  const UINT plain = up ? WM_KEYUP : WM_KEYDOWN;
  const UINT system = up ? WM_SYSKEYUP : WM_SYSKEYDOWN;
  const bool control = Down(VK_CONTROL);
  const bool alt = Down(VK_MENU);
  if (key == VK_MENU) {
    if (up) {
      const bool alone = device.altAlone;
      device.altAlone = false;
      return alone ? system : plain;
    }
    if (control) return plain;
    device.altAlone = true;
    return system;
  }
  if (key == VK_CONTROL) {
    device.altAlone = false;
    return up && alt ? system : plain;
  }
  device.altAlone = false;
  if (key == VK_F10) return control ? plain : system;
  return alt && !control ? system : plain;
}

void DoUnicode(const KEYBDINPUT& in) {
  const bool up = in.dwFlags & KEYEVENTF_KEYUP;
  InputEvent event;
  event.message = up ? WM_KEYUP : WM_KEYDOWN;
  event.wParam = VK_PACKET;
  event.lParam = static_cast<LPARAM>((static_cast<DWORD>(in.wScan) << 16) | 1);
  event.key = VK_PACKET;
  event.point = TheDevice().cursor;
  event.time = in.time;
  event.extra = in.dwExtraInfo;
  Enqueue(ForegroundQueue(), event);
}

void DoKey(const KEYBDINPUT& in) {
  if (in.dwFlags & KEYEVENTF_UNICODE) return DoUnicode(in);
  Device& device = TheDevice();
  const bool up = in.dwFlags & KEYEVENTF_KEYUP;
  const bool extended = in.dwFlags & KEYEVENTF_EXTENDEDKEY;
  UINT key = in.wVk;
  if (in.dwFlags & KEYEVENTF_SCANCODE) key = MapVirtualKeyW(in.wScan, MAPVK_VSC_TO_VK);
  const BYTE exact = SideOf(static_cast<int>(key), in.wScan, extended);
  const bool wasDown = Down(exact);
  const bool altBefore = Down(VK_MENU);
  InputEvent event;
  event.wParam = WithoutSide(exact);
  event.message = KeyMessage(event.wParam, up);
  PressWithSides(device.keys, exact, !up);
  const bool altNow = Down(VK_MENU) || (event.message == WM_SYSKEYUP && altBefore && event.wParam == VK_MENU);
  DWORD bits = 1 | (static_cast<DWORD>(in.wScan & 0xff) << 16);
  if (extended) bits |= 1u << 24;
  if (event.message == WM_SYSKEYDOWN || event.message == WM_SYSKEYUP) {
    if (altNow && event.wParam != VK_F10) bits |= 1u << 29;
    if (event.wParam == VK_MENU && up) bits &= ~(1u << 29);
  }
  if (wasDown || up) bits |= 1u << 30;
  if (up) bits |= 1u << 31;
  event.lParam = static_cast<LPARAM>(bits);
  event.key = exact;
  event.point = device.cursor;
  event.time = in.time;
  event.extra = in.dwExtraInfo;
  Enqueue(ForegroundQueue(), event);
}

}  // namespace

POINT CursorPos() { return TheDevice().cursor; }
BYTE AsyncKey(int key) { return TheDevice().keys[static_cast<size_t>(key)]; }
std::array<BYTE, 256>& AsyncKeys() { return TheDevice().keys; }

void ApplyKeys(Queue& queue, const InputEvent& event) {
  if (!event.key || event.key == VK_PACKET) return;
  const bool isMouse = event.message >= WM_MOUSEFIRST && event.message <= WM_MOUSELAST;
  const bool down = isMouse ? event.lParam != 0 : !(event.lParam & 0x80000000);
  PressWithSides(queue.keys, event.key, down);
}

void ResetInput() {
  const unsigned long long id = TheDevice().nextId;
  TheDevice() = {};
  TheDevice().nextId = id;
}

}  // namespace desktop

UINT WINAPI SendInput(UINT count, LPINPUT inputs, int size) {
  if (size != sizeof(INPUT) || !count || !inputs) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  WorldLock lock(WorldMutex());
  MyQueue();
  for (UINT i = 0; i < count; ++i) {
    if (inputs[i].type == INPUT_MOUSE) DoMouse(inputs[i].mi);
    if (inputs[i].type == INPUT_KEYBOARD) DoKey(inputs[i].ki);
  }
  return count;
}

void WINAPI mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, ULONG_PTR extra) {
  WorldLock lock(WorldMutex());
  DoMouse({static_cast<LONG>(dx), static_cast<LONG>(dy), data, flags, 0, extra});
}

void WINAPI keybd_event(BYTE key, BYTE scan, DWORD flags, ULONG_PTR extra) {
  WorldLock lock(WorldMutex());
  DoKey({key, scan, flags, 0, extra});
}

BOOL WINAPI GetCursorPos(LPPOINT point) {
  if (!point) {
    SetLastError(ERROR_NOACCESS);
    return FALSE;
  }
  WorldLock lock(WorldMutex());
  *point = TheDevice().cursor;
  return TRUE;
}

BOOL WINAPI SetCursorPos(int x, int y) {
  WorldLock lock(WorldMutex());
  MoveTo(x, y, 0, 0);
  return TRUE;
}

BOOL WINAPI ClipCursor(const RECT* rect) {
  WorldLock lock(WorldMutex());
  Device& device = TheDevice();
  const RECT screen{0, 0, Metric(SM_CXSCREEN), Metric(SM_CYSCREEN)};
  device.clipped = rect && IntersectRect(&device.clip, rect, &screen);
  if (!device.clipped || PtInRect(&device.clip, device.cursor)) return TRUE;
  MoveTo(device.cursor.x, device.cursor.y, 0, 0);
  return TRUE;
}

BOOL WINAPI GetClipCursor(LPRECT rect) {
  if (!rect) return FALSE;
  WorldLock lock(WorldMutex());
  *rect = TheDevice().clipped ? TheDevice().clip : RECT{0, 0, Metric(SM_CXSCREEN), Metric(SM_CYSCREEN)};
  return TRUE;
}

SHORT WINAPI GetAsyncKeyState(int key) {
  if (key < 0 || key > 255) return 0;
  WorldLock lock(WorldMutex());
  BYTE& state = TheDevice().keys[static_cast<size_t>(key)];
  const int result = (state & 0x80 ? 0x8000 : 0) | (state & 0x40 ? 1 : 0);
  state &= static_cast<BYTE>(~0x40);
  return static_cast<SHORT>(result);
}

SHORT WINAPI GetKeyState(int key) {
  if (key < 0 || key > 255) return 0;
  WorldLock lock(WorldMutex());
  const BYTE state = MyQueue()->keys[static_cast<size_t>(key)];
  // The high byte is the sign of the low one, as programs have come to expect.
  return static_cast<SHORT>((state & 0x80 ? 0xff80 : 0) | (state & 0x01));
}

BOOL WINAPI GetKeyboardState(PBYTE state) {
  if (!state) return FALSE;
  WorldLock lock(WorldMutex());
  const auto& keys = MyQueue()->keys;
  for (size_t i = 0; i < keys.size(); ++i) state[i] = keys[i] & 0x81;
  return TRUE;
}

BOOL WINAPI SetKeyboardState(LPBYTE state) {
  if (!state) return FALSE;
  WorldLock lock(WorldMutex());
  std::copy(state, state + 256, MyQueue()->keys.begin());
  return TRUE;
}
