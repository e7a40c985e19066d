// The COMBOBOX control: a line with the choice, and a list that drops down from it.
#pragma once

#include <string>

#include "controls/list_box.h"

namespace desktop {

// The list of a combo box, "ComboLBox": it talks to its combo box.
class ComboList : public ListBox {
 public:
  using ListBox::ListBox;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
  void Tell(int code) override;
  HWND Owner() const override { return m_combo; }
  bool TakesFocus() const override { return false; }
  UINT OwnerDrawType() const override { return ODT_COMBOBOX; }

 private:
  HWND m_combo = nullptr;
};

class ComboBox : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  enum class Close { accept, cancel };

  // combo_box.cpp: messages
  LRESULT HandleCombo(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleGeometry(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleText(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnGetDlgCode(const MSG* key) const;
  LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnCommand(WPARAM wParam);
  LRESULT ForwardOwnerDraw(UINT message, LPARAM lParam) const;
  LRESULT ToList(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(m_list, message, wParam, lParam);
  }
  std::wstring TextOf(LRESULT index) const;
  DWORD Type() const { return Style() & 3; }
  bool HasEdit() const { return m_edit != nullptr; }
  bool HasStrings() const;
  bool IsOwnerDrawn() const { return (Style() & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0; }

  // combo_box_view.cpp: parts, dropping, painting
  bool OnCreate(const CREATESTRUCTW& create);
  void MeasureText();
  void MoveParts();
  int ClosedHeight() const;
  RECT TextRect() const;
  RECT ButtonRect() const;
  RECT DroppedRect() const;
  void DropDown();
  void CloseUp(Close how);
  void UpdateText();
  bool OnKey(WPARAM key);
  void OnListChoice();
  void OnFocus(bool gained);
  void Paint(HDC dc);
  void PaintChoice(HDC dc);

  HWND m_list = nullptr;
  HWND m_edit = nullptr;
  int m_textHeight = 17;
  int m_dropHeight = 0;
  int m_dropWidth = 0;
  bool m_listScrolls = false;
  bool m_dropped = false;
  bool m_focused = false;
  bool m_updating = false;     // the edit changes because of us
  bool m_movingByKey = false;  // the list changes because of a key while it is closed
};

}  // namespace desktop
