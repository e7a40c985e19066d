// Keys on their way to the focus, and what characters they make (US layout).
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

struct KeyInfo {
  BYTE key;
  BYTE scan;
  wchar_t plain;
  wchar_t shifted;
};

// Letters and digits are worked out; here is the rest.
constexpr KeyInfo kKeys[] = {
    {VK_BACK, 0x0e, 8, 8},
    {VK_TAB, 0x0f, 9, 9},
    {VK_RETURN, 0x1c, 13, 13},
    {VK_ESCAPE, 0x01, 27, 27},
    {VK_SPACE, 0x39, L' ', L' '},
    {VK_OEM_1, 0x27, L';', L':'},
    {VK_OEM_PLUS, 0x0d, L'=', L'+'},
    {VK_OEM_COMMA, 0x33, L',', L'<'},
    {VK_OEM_MINUS, 0x0c, L'-', L'_'},
    {VK_OEM_PERIOD, 0x34, L'.', L'>'},
    {VK_OEM_2, 0x35, L'/', L'?'},
    {VK_OEM_3, 0x29, L'`', L'~'},
    {VK_OEM_4, 0x1a, L'[', L'{'},
    {VK_OEM_5, 0x2b, L'\\', L'|'},
    {VK_OEM_6, 0x1b, L']', L'}'},
    {VK_OEM_7, 0x28, L'\'', L'"'},
    {VK_OEM_102, 0x56, L'\\', L'|'},
    {VK_MULTIPLY, 0x37, L'*', L'*'},
    {VK_ADD, 0x4e, L'+', L'+'},
    {VK_SUBTRACT, 0x4a, L'-', L'-'},
    {VK_DIVIDE, 0x35, L'/', L'/'},
    {VK_DECIMAL, 0x53, L'.', L'.'},
    {VK_NUMPAD0, 0x52, L'0', L'0'},
    {VK_NUMPAD1, 0x4f, L'1', L'1'},
    {VK_NUMPAD2, 0x50, L'2', L'2'},
    {VK_NUMPAD3, 0x51, L'3', L'3'},
    {VK_NUMPAD4, 0x4b, L'4', L'4'},
    {VK_NUMPAD5, 0x4c, L'5', L'5'},
    {VK_NUMPAD6, 0x4d, L'6', L'6'},
    {VK_NUMPAD7, 0x47, L'7', L'7'},
    {VK_NUMPAD8, 0x48, L'8', L'8'},
    {VK_NUMPAD9, 0x49, L'9', L'9'},
    {VK_SHIFT, 0x2a, 0, 0},
    {VK_LSHIFT, 0x2a, 0, 0},
    {VK_RSHIFT, 0x36, 0, 0},
    {VK_CONTROL, 0x1d, 0, 0},
    {VK_LCONTROL, 0x1d, 0, 0},
    {VK_RCONTROL, 0x1d, 0, 0},
    {VK_MENU, 0x38, 0, 0},
    {VK_LMENU, 0x38, 0, 0},
    {VK_RMENU, 0x38, 0, 0},
    {VK_CAPITAL, 0x3a, 0, 0},
    {VK_NUMLOCK, 0x45, 0, 0},
    {VK_SCROLL, 0x46, 0, 0},
    {VK_HOME, 0x47, 0, 0},
    {VK_UP, 0x48, 0, 0},
    {VK_PRIOR, 0x49, 0, 0},
    {VK_LEFT, 0x4b, 0, 0},
    {VK_CLEAR, 0x4c, 0, 0},
    {VK_RIGHT, 0x4d, 0, 0},
    {VK_END, 0x4f, 0, 0},
    {VK_DOWN, 0x50, 0, 0},
    {VK_NEXT, 0x51, 0, 0},
    {VK_INSERT, 0x52, 0, 0},
    {VK_DELETE, 0x53, 0, 0},
    {VK_F1, 0x3b, 0, 0},
    {VK_F2, 0x3c, 0, 0},
    {VK_F3, 0x3d, 0, 0},
    {VK_F4, 0x3e, 0, 0},
    {VK_F5, 0x3f, 0, 0},
    {VK_F6, 0x40, 0, 0},
    {VK_F7, 0x41, 0, 0},
    {VK_F8, 0x42, 0, 0},
    {VK_F9, 0x43, 0, 0},
    {VK_F10, 0x44, 0, 0},
    {VK_F11, 0x57, 0, 0},
    {VK_F12, 0x58, 0, 0},
    {VK_LWIN, 0x5b, 0, 0},
    {VK_RWIN, 0x5c, 0, 0},
    {VK_APPS, 0x5d, 0, 0},
    {VK_SNAPSHOT, 0x54, 0, 0},
    {VK_PAUSE, 0x45, 0, 0},
    {VK_CANCEL, 0x46, 3, 3},
};

constexpr char kLetterScans[] =
    "\x1e\x30\x2e\x20\x12\x21\x22\x23\x17\x24\x25\x26\x32\x31\x18\x19\x10\x13\x1f\x14\x16\x2f\x11\x2d\x15"
    "\x2c";
constexpr wchar_t kShiftedDigits[] = L")!@#$%^&*(";

bool Find(UINT key, KeyInfo& info) {
  if (key >= 'A' && key <= 'Z') {
    const auto letter = static_cast<wchar_t>(key);
    info = {static_cast<BYTE>(key), static_cast<BYTE>(kLetterScans[key - 'A']),
            static_cast<wchar_t>(letter + 32), letter};
    return true;
  }
  if (key >= '0' && key <= '9') {
    const int scan = key == '0' ? 0x0b : static_cast<int>(key - '1') + 2;
    info = {static_cast<BYTE>(key), static_cast<BYTE>(scan), static_cast<wchar_t>(key),
            kShiftedDigits[key - '0']};
    return true;
  }
  for (const KeyInfo& entry : kKeys) {
    if (entry.key != key) continue;
    info = entry;
    return true;
  }
  return false;
}

// What a key makes with Ctrl; 0 for nothing.
wchar_t ControlCharacter(UINT key, bool shift) {
  if (key >= 'A' && key <= 'Z') return static_cast<wchar_t>(key - 'A' + 1);
  switch (key) {
    case VK_OEM_4: return 27;
    case VK_OEM_5:
    case VK_OEM_102: return 28;
    case VK_OEM_6: return 29;
    case VK_RETURN: return 10;
    case VK_BACK: return 127;
    case VK_SPACE: return 32;
    case VK_ESCAPE: return 27;
    case VK_CANCEL: return 3;
    case '6': return shift ? 30 : 0;
    case VK_OEM_MINUS: return shift ? 31 : 0;
    default: return 0;
  }
}

wchar_t Character(UINT key, const BYTE* state) {
  KeyInfo info{};
  const bool shift = state[VK_SHIFT] & 0x80;
  const bool control = state[VK_CONTROL] & 0x80;
  const bool alt = state[VK_MENU] & 0x80;
  if (control && !alt) return ControlCharacter(key, shift);
  if (control || !Find(key, info) || !info.plain) return 0;
  const bool isLetter = key >= 'A' && key <= 'Z';
  const bool capitals = isLetter && (state[VK_CAPITAL] & 0x01);
  return shift != capitals ? info.shifted : info.plain;
}

UINT KeyOfScan(UINT scan) {
  for (UINT key = 'A'; key <= 'Z'; ++key)
    if (static_cast<BYTE>(kLetterScans[key - 'A']) == scan) return key;
  if (scan >= 2 && scan <= 11) return scan == 11 ? '0' : '1' + scan - 2;
  for (const KeyInfo& entry : kKeys)
    if (entry.scan == scan && !(entry.key >= VK_NUMPAD0 && entry.key <= VK_DIVIDE)) return entry.key;
  return 0;
}

bool HookRefuses(const MSG& msg, bool remove) {
  if (!HasHook(WH_KEYBOARD)) return false;
  return CallHooks(WH_KEYBOARD, remove ? HC_ACTION : HC_NOREMOVE, LOWORD(msg.wParam), msg.lParam) != 0;
}

// Half of a character beyond the first 65536 waits for the other half.
bool JoinSurrogates(wchar_t& ch) {
  WorldLock lock(WorldMutex());
  Queue& queue = *MyQueue();
  if (ch >= 0xD800 && ch < 0xDC00) {
    queue.highSurrogate = ch;
    return false;
  }
  if (ch >= 0xDC00 && ch < 0xE000 && queue.highSurrogate)
    ch = static_cast<wchar_t>(0x10000 + ((queue.highSurrogate - 0xD800) << 10) + (ch - 0xDC00));
  queue.highSurrogate = 0;
  return true;
}

}  // namespace

InputOutcome MakeKeyMessage(const InputEvent& event, MSG& msg, const Filter& filter) {
  const bool remove = filter.Removes();
  {
    WorldLock lock(WorldMutex());
    const Queue& queue = *MyQueue();
    msg = {queue.focus, event.message, event.wParam, event.lParam, event.time, event.point};
    if (!msg.hwnd) {
      // Without a focus the active window hears of keys, as system keys.
      msg.hwnd = queue.active;
      if (msg.message == WM_KEYDOWN || msg.message == WM_KEYUP) msg.message += WM_SYSKEYDOWN - WM_KEYDOWN;
    }
  }
  if (!msg.hwnd) {
    WorldLock lock(WorldMutex());
    ApplyKeys(*MyQueue(), event);
    return InputOutcome::drop;
  }
  if (!filter.Takes(msg.message) || !MatchesFilter(msg.hwnd, filter.window)) return InputOutcome::leave;
  if (remove) {
    WorldLock lock(WorldMutex());
    ApplyKeys(*MyQueue(), event);
  }
  if (HookRefuses(msg, remove)) return InputOutcome::drop;
  if (remove && msg.message == WM_KEYUP && msg.wParam == VK_APPS) {
    // The menu key asks for the context menu once the key itself has been seen.
    PostMessageW(msg.hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(msg.hwnd), -1);
  }
  return InputOutcome::deliver;
}

}  // namespace desktop

BOOL WINAPI TranslateMessage(const MSG* msg) {
  if (!msg || msg->message < WM_KEYFIRST || msg->message > WM_KEYLAST) return FALSE;
  if (msg->message != WM_KEYDOWN && msg->message != WM_SYSKEYDOWN) return TRUE;
  const UINT result = msg->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR;
  if (LOWORD(msg->wParam) == VK_PACKET) {
    auto ch = static_cast<wchar_t>(HIWORD(msg->lParam));
    if (JoinSurrogates(ch)) PostMessageW(msg->hwnd, result, static_cast<WPARAM>(ch), 1);
    return TRUE;
  }
  wchar_t ch;
  {
    WorldLock lock(WorldMutex());
    ch = Character(static_cast<UINT>(msg->wParam), MyQueue()->keys.data());
  }
  if (ch) PostMessageW(msg->hwnd, result, static_cast<WPARAM>(ch), msg->lParam);
  return TRUE;
}

int WINAPI ToUnicode(UINT key, UINT, const BYTE* state, LPWSTR buffer, int size, UINT) {
  if (!state || !buffer || size <= 0) return 0;
  const wchar_t ch = Character(key, state);
  if (!ch) return 0;
  buffer[0] = ch;
  if (size > 1) buffer[1] = 0;
  return 1;
}

UINT WINAPI MapVirtualKeyW(UINT code, UINT type) {
  KeyInfo info{};
  switch (type) {
    case MAPVK_VK_TO_VSC:
    case MAPVK_VK_TO_VSC_EX: return Find(code, info) ? info.scan : 0;
    case MAPVK_VSC_TO_VK: return KeyOfScan(code);
    case MAPVK_VSC_TO_VK_EX: {
      const UINT key = KeyOfScan(code);
      if (key == VK_SHIFT) return code == 0x36 ? VK_RSHIFT : VK_LSHIFT;
      if (key == VK_CONTROL) return VK_LCONTROL;
      return key == VK_MENU ? VK_LMENU : key;
    }
    case MAPVK_VK_TO_CHAR:
      if (!Find(code, info) || !info.plain) return 0;
      return static_cast<UINT>(std::towupper(static_cast<wint_t>(info.plain)));
    default: SetLastError(ERROR_INVALID_PARAMETER); return 0;
  }
}

SHORT WINAPI VkKeyScanW(WCHAR ch) {
  KeyInfo info{};
  for (UINT key = 1; key < 255; ++key) {
    if (key >= VK_NUMPAD0 && key <= VK_DIVIDE) continue;
    if (!Find(key, info) || !info.plain) continue;
    if (info.plain == ch) return static_cast<SHORT>(key);
    if (info.shifted == ch) return static_cast<SHORT>(key | 0x100);
  }
  for (UINT key = 'A'; key <= 'Z'; ++key)
    if (ControlCharacter(key, false) == ch) return static_cast<SHORT>(key | 0x200);
  return -1;
}

int WINAPI GetKeyNameTextW(LONG lParam, LPWSTR text, int size) {
  struct Name {
    BYTE scan;
    bool extended;
    const wchar_t* name;
  };
  static constexpr Name kNames[] = {
      {0x01, false, L"Esc"},      {0x0e, false, L"Backspace"},   {0x0f, false, L"Tab"},
      {0x1c, false, L"Enter"},    {0x1d, false, L"Ctrl"},        {0x1d, true, L"Right Ctrl"},
      {0x2a, false, L"Shift"},    {0x36, false, L"Right Shift"}, {0x38, false, L"Alt"},
      {0x38, true, L"Right Alt"}, {0x39, false, L"Space"},       {0x3a, false, L"Caps Lock"},
      {0x47, true, L"Home"},      {0x48, true, L"Up"},           {0x49, true, L"Page Up"},
      {0x4b, true, L"Left"},      {0x4d, true, L"Right"},        {0x4f, true, L"End"},
      {0x50, true, L"Down"},      {0x51, true, L"Page Down"},    {0x52, true, L"Insert"},
      {0x53, true, L"Delete"},    {0x5d, true, L"Application"},  {0x57, false, L"F11"},
      {0x58, false, L"F12"},
  };
  if (!text || size <= 0) return 0;
  const auto scan = static_cast<BYTE>(static_cast<DWORD>(lParam) >> 16);
  const bool extended = lParam & (1 << 24);
  std::wstring name;
  for (const Name& entry : kNames)
    if (entry.scan == scan && entry.extended == extended) name = entry.name;
  if (name.empty() && scan >= 0x3b && scan <= 0x44) name = L"F" + std::to_wstring(scan - 0x3b + 1);
  if (name.empty()) {
    const UINT ch = MapVirtualKeyW(KeyOfScan(scan), MAPVK_VK_TO_CHAR);
    if (ch) name.assign(1, static_cast<wchar_t>(ch));
  }
  const size_t length = std::min(name.size(), static_cast<size_t>(size) - 1);
  wmemcpy(text, name.c_str(), length);
  text[length] = 0;
  return static_cast<int>(length);
}
