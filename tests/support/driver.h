// Drives windows as a person does: through SendInput, at points of the screen.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

namespace support {

enum class Button { Left, Right, Middle };

// Keys held down around an action.
struct Keys {
  bool control = false;
  bool shift = false;
  bool alt = false;
};

// A point of a window's client area, on the screen.
POINT At(HWND window, int x, int y);
// The middle of a window, on the screen.
POINT MiddleOf(HWND window);

// The mouse. Each moves the cursor first, and lets messages run after every step.
void MoveTo(POINT screen);
void Press(POINT screen, Button button = Button::Left);
void Release(POINT screen, Button button = Button::Left);
// One click; never the second half of a double click.
void Click(POINT screen, Button button = Button::Left, Keys keys = {});
void DoubleClick(POINT screen, Button button = Button::Left, Keys keys = {});
// Presses at one point, moves in steps to the other, releases there.
void Drag(POINT from, POINT to, Button button = Button::Left, Keys keys = {});
// Turns the wheel by notches: away from the person is positive.
void Wheel(POINT screen, int notches, Keys keys = {});

// The keyboard. Keys go to the window with the focus.
void KeyDown(UINT virtualKey);
void KeyUp(UINT virtualKey);
void Key(UINT virtualKey, Keys keys = {});
// Types text as characters, of any language.
void Type(const std::wstring& text);

// The same events without letting messages run: for use from a timer, inside a modal loop.
void PostMouseMove(POINT screen);
void PostPress(POINT screen, Button button = Button::Left);
void PostRelease(POINT screen, Button button = Button::Left);
void PostKey(UINT virtualKey);

// Runs messages until none is left.
void Pump();
// Runs messages for a time, milliseconds; timers come due meanwhile.
void PumpFor(int milliseconds);
// Runs messages until the condition holds; false after the time.
bool PumpUntil(const std::function<bool()>& condition, int milliseconds = 2000);

// While one lives, messages that it takes are not dispatched by Pump and its kin: what an application's
// message loop does ahead of the dispatch. The innermost one counts.
class MessageFilter {
 public:
  explicit MessageFilter(std::function<bool(MSG& message)> taken);
  ~MessageFilter();
  MessageFilter(const MessageFilter&) = delete;
  MessageFilter& operator=(const MessageFilter&) = delete;

  // Of the innermost filter.
  static bool Takes(MSG& message);

 private:
  std::function<bool(MSG&)> m_taken;
  MessageFilter* m_outer;
};

// Calls back after a time from whatever message loop runs then: arm it before a menu, a dialog or a
// drag that has its own loop. Not called once the object is gone.
class Later {
 public:
  Later(int milliseconds, std::function<void()> action);
  ~Later();
  Later(const Later&) = delete;
  Later& operator=(const Later&) = delete;
  bool Done() const;

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace support
