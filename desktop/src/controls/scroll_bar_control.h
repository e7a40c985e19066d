// The SCROLLBAR control.
#pragma once

#include "controls/control.h"

namespace desktop {

class ScrollBarControl : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  enum class Part { none, lineBack, pageBack, thumb, pageOn, lineOn };
  // Lengths along the bar.
  struct Layout {
    int length;
    int arrow;
    int thumbBegin;
    int thumbEnd;  // thumbBegin when there is no room for a thumb
  };

  LRESULT HandleBar(UINT message, WPARAM wParam, LPARAM lParam);
  int SetInfo(const SCROLLINFO& info, bool redraw);
  BOOL GetInfo(SCROLLINFO& info) const;
  bool IsVertical() const { return (Style() & SBS_VERT) != 0; }
  int LastPosition() const;
  int Clamped(long long position) const;
  Layout LayOut() const;
  Part PartAt(const Layout& layout, int at) const;
  int Along(LPARAM point) const;
  RECT Span(int begin, int end) const;
  void Tell(int code, int position = 0) const;
  void Act(Part part) const;
  void OnDown(int at);
  void OnMove(int at);
  void OnUp();
  bool OnKey(WPARAM key) const;
  void Paint(HDC dc);

  int m_low = 0;
  int m_high = 0;
  int m_page = 0;
  int m_position = 0;
  UINT m_disabled = ESB_ENABLE_BOTH;
  Part m_pressed = Part::none;
  int m_grip = 0;   // where the thumb was taken, from its beginning
  int m_track = 0;  // the position that the thumb stands for while it is dragged
};

}  // namespace desktop
