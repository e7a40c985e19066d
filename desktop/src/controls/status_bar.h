// The status bar: a row of parts with text.
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace desktop {

class StatusBar : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Part {
    int right = -1;  // -1: to the end of the bar
    std::wstring text;
    UINT type = 0;  // SBT_
    LPARAM ownerData = 0;
  };

  LRESULT HandleBar(UINT message, WPARAM wParam, LPARAM lParam);
  void AdjustSize();
  bool SetParts(int count, const int* rights);
  bool SetText(WPARAM which, LPARAM text);
  Part* Find(int index);
  RECT PartRect(size_t index) const;
  int TextHeight() const;
  bool HasGrip() const;
  void Paint(HDC dc);
  void PaintPart(HDC dc, RECT rect, const Part& part, int index);

  std::vector<Part> m_parts{1};
  Part m_simplePart;
  bool m_simple = false;
  int m_minHeight = 0;
  COLORREF m_background = CLR_INVALID;
};

}  // namespace desktop
