// The BUTTON control: push buttons, check boxes, radio buttons, group boxes.
#pragma once

#include "controls/control.h"

namespace desktop {

class Button : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  enum class Kind { push, check, radio, group, ownerDraw };

  DWORD Type() const { return Style() & BS_TYPEMASK; }
  Kind GetKind() const;
  bool Is(UINT state) const { return (m_state & state) != 0; }
  LRESULT DlgCode() const;
  void SetState(UINT bits, bool on);
  void SetCheck(UINT check);
  void SetType(DWORD type, bool redraw);
  void Press();
  void Release(bool inside);
  void Click();
  void CheckByItself();
  void UncheckGroup() const;
  LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleButton(UINT message, WPARAM wParam, LPARAM lParam);

  void Paint(HDC dc, UINT action);
  void PaintPush(HDC dc);
  void PaintCheck(HDC dc);
  void PaintGroup(HDC dc);
  void PaintOwner(HDC dc, UINT action);
  void PaintLabel(HDC dc, RECT rect);
  UINT TextFormat() const;
  SIZE LabelSize(HDC dc) const;

  UINT m_state = BST_UNCHECKED;
  bool m_byMouse = false;  // pressed with the mouse, which is captured
  HANDLE m_image = nullptr;
  UINT m_imageType = IMAGE_BITMAP;
};

}  // namespace desktop
