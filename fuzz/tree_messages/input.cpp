// Events of the mouse and the keyboard, as from the devices.
#include <iterator>

#include "scene.h"

namespace fuzz {

namespace {

constexpr WORD kModifiers[] = {VK_SHIFT, VK_CONTROL};
constexpr WORD kKeys[] = {VK_UP,    VK_DOWN, VK_LEFT,   VK_RIGHT,    VK_HOME,   VK_END,
                          VK_PRIOR, VK_NEXT, VK_ADD,    VK_SPACE,    VK_F2,     VK_RETURN,
                          VK_TAB,   VK_BACK, VK_ESCAPE, VK_SUBTRACT, VK_DELETE, 'A',
                          'D',      'T',     'U',       VK_MULTIPLY};

void Key(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof(input));
}

void Mouse(DWORD flags, DWORD data = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  input.mi.mouseData = data;
  SendInput(1, &input, sizeof(input));
}

void Character(wchar_t character) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = static_cast<WORD>(character);
  input.ki.dwFlags = KEYEVENTF_UNICODE;
  SendInput(1, &input, sizeof(input));
}

void MoveTo(Scene& scene, const Step& step) {
  POINT point = scene.Point(step.second, step.third);
  if (scene.tree.GetSafeHwnd() != nullptr) ::ClientToScreen(scene.tree, &point);
  SetCursorPos(point.x, point.y);
}

}  // namespace

void MakeInput(Scene& scene, const Step& step) {
  constexpr DWORD kButtons[] = {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP,     MOUSEEVENTF_RIGHTDOWN,
                                MOUSEEVENTF_RIGHTUP,  MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP};
  ++scene.sent;
  switch (step.first % 8) {
    case 0: MoveTo(scene, step); break;
    case 1: Mouse(kButtons[step.second % std::size(kButtons)]); break;
    case 2:
      MoveTo(scene, step);
      Mouse(MOUSEEVENTF_LEFTDOWN);
      Mouse(MOUSEEVENTF_LEFTUP);
      break;
    case 3: Mouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(static_cast<int8_t>(step.second) * 30)); break;
    case 4:
    case 5:
      Key(kKeys[step.second % std::size(kKeys)], 0);
      Key(kKeys[step.second % std::size(kKeys)], KEYEVENTF_KEYUP);
      break;
    case 6: Key(kModifiers[step.second % 2], step.third % 2 ? KEYEVENTF_KEYUP : 0); break;
    default:
      if (const wchar_t* const text = scene.Text(step.second)) Character(text[0]);
      break;
  }
}

void ReleaseAllKeys() {
  for (const WORD key : kModifiers) Key(key, KEYEVENTF_KEYUP);
  for (const DWORD button : {MOUSEEVENTF_LEFTUP, MOUSEEVENTF_RIGHTUP, MOUSEEVENTF_MIDDLEUP}) Mouse(button);
}

}  // namespace fuzz
