// The progress bar.
#pragma once

#include <utility>

#include "controls/control.h"

namespace desktop {

class ProgressBar : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  LRESULT SetRange(int low, int high);
  LRESULT SetPosition(long long position);
  LRESULT StepIt();
  void Paint(HDC dc);
  void Fill(HDC dc, const RECT& rect, COLORREF color) const;

  int m_low = 0;
  int m_high = 100;
  int m_position = 0;
  int m_step = 10;
  COLORREF m_barColor = 0xFF000000;
  COLORREF m_backColor = 0xFF000000;
};

}  // namespace desktop
