// The STATIC control: text, pictures, frames.
#pragma once

#include "controls/control.h"

namespace desktop {

class Static : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  LRESULT OnCreate(const CREATESTRUCTW& create);
  void LoadPicture(LPCWSTR name, HINSTANCE module);
  HANDLE SetPicture(HANDLE picture);
  LRESULT SetImage(UINT type, HANDLE picture);
  HANDLE PictureIf(UINT type) const { return type == PictureType() ? m_picture : nullptr; }
  UINT PictureType() const;
  SIZE PictureSize() const;
  DWORD Type() const { return Style() & SS_TYPEMASK; }
  bool IsText() const;
  UINT TextFormat() const;

  void Paint(HDC dc);
  void PaintText(HDC dc, RECT rect);
  void PaintPicture(HDC dc, const RECT& rect, HBRUSH brush);
  void PaintFrame(HDC dc, RECT rect);

  HANDLE m_picture = nullptr;
  bool m_ownsPicture = false;
};

}  // namespace desktop
