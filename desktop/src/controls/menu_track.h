// The menu loop: one at a time in a thread, from a popup or from a bar.
#pragma once

#include <vector>

#include "controls/menu.h"

namespace desktop {

class MenuLoop {
 public:
  // A popup that TrackPopupMenuEx shows (bar false), or the bar of a window.
  MenuLoop(HWND owner, HMENU top, UINT flags, bool bar)
      : m_owner(owner), m_top(top), m_flags(flags), m_bar(bar) {
    m_open.push_back(top);
  }

  MenuLoop(const MenuLoop&) = delete;
  MenuLoop& operator=(const MenuLoop&) = delete;
  ~MenuLoop();

  // What TrackPopupMenuEx answers: the command with TPM_RETURNCMD, else TRUE.
  BOOL RunPopup(POINT at, const RECT& exclude);
  void RunBarByMouse(POINT point);
  void RunBarByKey(wchar_t key);

  // The loop of this thread, or null.
  static MenuLoop* Current();
  void End() { m_ended = true; }

 private:
  enum class Step { first, last, next, previous };

  void Begin();
  void Finish();
  void Run();
  bool WaitForMessage(MSG& message);
  void Remove(const MSG& message) const;
  bool OnMouse(const MSG& message);
  void OnButtonDown(HMENU menu, POINT point, bool& remove);
  void OnButtonUp(HMENU menu, POINT point);
  void OnMouseMove(HMENU menu, POINT point);
  void OnKey(WPARAM key);
  void OnCharacter(wchar_t character);
  void KeyLeft();
  void KeyRight();
  void KeyEscape();

  HMENU Deepest() const { return m_open.back(); }
  bool InBar() const { return m_bar && m_open.size() == 1; }
  HMENU MenuAt(POINT point) const;
  int ItemAt(HMENU menu, POINT point) const;
  void Select(HMENU menu, int item, bool tell);
  void Move(HMENU menu, Step step);
  bool OpenSubmenu(HMENU menu, bool selectFirst);
  void CloseDownTo(size_t depth);
  void MoveInBar(bool forward);
  void Execute(HMENU menu);
  void Send(UINT message, WPARAM wParam, LPARAM lParam) const;
  void RepaintItem(HMENU menu, int item) const;

  MenuLoop* m_outer = nullptr;  // the loop that this one runs in, with TPM_RECURSE
  const HWND m_owner;
  const HMENU m_top;
  const UINT m_flags;
  const bool m_bar;
  std::vector<HMENU> m_open;  // from the top to the deepest one on the screen
  bool m_ended = false;
  bool m_idleSent = false;
  UINT m_result = 0;
  int m_pressedOpen = -1;  // the bar item whose popup the button opened just now
};

}  // namespace desktop
