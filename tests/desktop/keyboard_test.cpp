// Keys, characters, key states.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"

using namespace support;

namespace {

struct Keyed {
  Recorder log;
  HostWindow host;

  explicit Keyed(Handler handler = {}) : host({.handler = std::move(handler), .log = &log}) {
    SetFocus(host);
    Pump();
    log.Clear();
    log.Only({WM_KEYDOWN, WM_KEYUP, WM_CHAR, WM_SYSKEYDOWN, WM_SYSKEYUP, WM_SYSCHAR});
  }
};

}  // namespace

TEST(Keyboard, ALetterIsAKeyAndACharacter) {
  Keyed k;
  Key('A');
  EXPECT_LOG(k.log, R"(
      host WM_KEYDOWN A
      host WM_CHAR 'a'
      host WM_KEYUP A)");
}

TEST(Keyboard, ShiftMakesCapitals) {
  Keyed k;
  Key('A', {.shift = true});
  EXPECT_LOG(k.log, R"(
      host WM_KEYDOWN SHIFT
      host WM_KEYDOWN A
      host WM_CHAR 'A'
      host WM_KEYUP A
      host WM_KEYUP SHIFT)");
}

TEST(Keyboard, ControlMakesControlCharacters) {
  Keyed k;
  Key('C', {.control = true});
  EXPECT_LOG(k.log, R"(
      host WM_KEYDOWN CONTROL
      host WM_KEYDOWN C
      host WM_CHAR 0x3
      host WM_KEYUP C
      host WM_KEYUP CONTROL)");
}

TEST(Keyboard, KeysWithoutACharacter) {
  Keyed k;
  Key(VK_LEFT);
  Key(VK_F2);
  Key(VK_DELETE);
  EXPECT_LOG(k.log, R"(
      host WM_KEYDOWN LEFT
      host WM_KEYUP LEFT
      host WM_KEYDOWN F2
      host WM_KEYUP F2
      host WM_KEYDOWN DEL
      host WM_KEYUP DEL)");
}

TEST(Keyboard, KeysThatAreTheirOwnCharacter) {
  Keyed k;
  Key(VK_RETURN);
  Key(VK_TAB);
  Key(VK_ESCAPE);
  Key(VK_BACK);
  Key(VK_SPACE);
  EXPECT_LOG(k.log, R"(
      host WM_KEYDOWN RETURN
      host WM_CHAR 0xd
      host WM_KEYUP RETURN
      host WM_KEYDOWN TAB
      host WM_CHAR 0x9
      host WM_KEYUP TAB
      host WM_KEYDOWN ESC
      host WM_CHAR 0x1b
      host WM_KEYUP ESC
      host WM_KEYDOWN BACK
      host WM_CHAR 0x8
      host WM_KEYUP BACK
      host WM_KEYDOWN SPACE
      host WM_CHAR ' '
      host WM_KEYUP SPACE)");
}

TEST(Keyboard, AltMakesSystemKeys) {
  Keyed k([](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_SYSCHAR || message == WM_SYSKEYUP) return 0;
    return std::nullopt;
  });
  Key('X', {.alt = true});
  EXPECT_LOG(k.log, R"(
      host WM_SYSKEYDOWN ALT
      host WM_SYSKEYDOWN X
      host WM_SYSCHAR 'x'
      host WM_SYSKEYUP X
      ? host WM_KEYUP ALT
      ? host WM_SYSKEYUP ALT)");
}

TEST(Keyboard, UnicodeInputNeedsNoKey) {
  Keyed k;
  k.log.Only({WM_CHAR});
  Type(L"é€");
  EXPECT_LOG(k.log, "host WM_CHAR 0xe9\nhost WM_CHAR 0x20ac");
}

TEST(Keyboard, RepeatIsMarkedByThePreviousState) {
  std::vector<bool> previous;
  Keyed k([&](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
    if (message == WM_KEYDOWN) previous.push_back((lParam & 1 << 30) != 0);
    return std::nullopt;
  });
  k.log.Only({WM_NULL});
  KeyDown(VK_DOWN);
  KeyDown(VK_DOWN);
  KeyUp(VK_DOWN);
  KeyDown(VK_DOWN);
  KeyUp(VK_DOWN);
  EXPECT_EQ((std::vector<bool>{false, true, false}), previous);
}

TEST(Keyboard, ExtendedKeysSaySo) {
  std::vector<bool> extended;
  Keyed k([&](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
    if (message == WM_KEYDOWN) extended.push_back((lParam & 1 << 24) != 0);
    return std::nullopt;
  });
  k.log.Only({WM_NULL});
  Key(VK_HOME);
  Key(VK_BACK);
  EXPECT_EQ((std::vector<bool>{true, false}), extended);
}

TEST(Keyboard, NoFocusMeansTheActiveWindowGetsSystemKeys) {
  Keyed k;
  SetFocus(nullptr);
  Key('A');
  EXPECT_LOG(k.log, R"(
      host WM_SYSKEYDOWN A
      host WM_SYSCHAR 'a'
      host WM_SYSKEYUP A)");
}

TEST(Keyboard, StateFollowsTheMessages) {
  int seen = -1;
  Keyed k([&](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_KEYDOWN && wParam == 'A') seen = GetKeyState(VK_CONTROL) < 0;
    return std::nullopt;
  });
  k.log.Only({WM_NULL});
  PostKey('A');
  INPUT control = {};
  control.type = INPUT_KEYBOARD;
  control.ki.wVk = VK_CONTROL;
  SendInput(1, &control, sizeof control);
  // The key is down, but the message of the letter was made before.
  EXPECT_LT(GetAsyncKeyState(VK_CONTROL), 0);
  EXPECT_GE(GetKeyState(VK_CONTROL), 0);
  Pump();
  EXPECT_EQ(0, seen);
  EXPECT_LT(GetKeyState(VK_CONTROL), 0);
  KeyUp(VK_CONTROL);
  EXPECT_GE(GetKeyState(VK_CONTROL), 0);
  EXPECT_GE(GetAsyncKeyState(VK_CONTROL), 0);
}

TEST(Keyboard, KeyStateToggles) {
  Keyed k;
  k.log.Only({WM_NULL});
  const int before = GetKeyState('Q') & 1;
  Key('Q');
  EXPECT_EQ(1 - before, GetKeyState('Q') & 1);
  Key('Q');
  EXPECT_EQ(before, GetKeyState('Q') & 1);
}

TEST(Keyboard, StateTableCanBeReadAndSet) {
  BYTE keys[256] = {};
  ASSERT_TRUE(GetKeyboardState(keys));
  keys[VK_SHIFT] = 0x80;
  SetKeyboardState(keys);
  EXPECT_LT(GetKeyState(VK_SHIFT), 0);
  EXPECT_GE(GetAsyncKeyState(VK_SHIFT), 0);
  keys[VK_SHIFT] = 0;
  SetKeyboardState(keys);
  EXPECT_GE(GetKeyState(VK_SHIFT), 0);
}

TEST(Keyboard, CharacterOfAKey) {
  EXPECT_EQ(static_cast<UINT>('A'), MapVirtualKeyW('A', MAPVK_VK_TO_CHAR));
  EXPECT_EQ('A', LOBYTE(VkKeyScanW(L'a')));
  EXPECT_EQ(0, HIBYTE(VkKeyScanW(L'a')));
  EXPECT_EQ('A', LOBYTE(VkKeyScanW(L'A')));
  EXPECT_EQ(1, HIBYTE(VkKeyScanW(L'A')));
}

TEST(Keyboard, TranslateMessagePostsTheCharacterInFront) {
  Recorder log;
  log.Only({WM_CHAR, WM_USER});
  HostWindow host({.log = &log});
  MSG key = {};
  key.hwnd = host;
  key.message = WM_KEYDOWN;
  key.wParam = 'Z';
  key.lParam = 1;
  PostMessageW(host, WM_USER, 0, 0);
  EXPECT_TRUE(TranslateMessage(&key));
  key.message = WM_USER;
  EXPECT_FALSE(TranslateMessage(&key));
  Pump();
  EXPECT_LOG(log, "host WM_USER+0 0 0\nhost WM_CHAR 'z'");
}
