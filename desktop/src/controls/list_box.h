// The LISTBOX control: rows of text, one or several of them selected, drawn here or by the owner.
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace desktop {

class ListBox : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
  // The list of a combo box tells the combo box instead of the parent.
  virtual void Tell(int code);
  virtual HWND Owner() const { return GetParent(Window()); }
  virtual bool TakesFocus() const { return true; }
  virtual UINT OwnerDrawType() const { return ODT_LISTBOX; }

 private:
  struct Row {
    std::wstring text;
    ULONG_PTR data = 0;
    bool selected = false;
  };

  LRESULT HandleList(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleSelection(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam);

  // list_box.cpp: rows
  int Count() const { return static_cast<int>(m_rows.size()); }
  bool IsRow(int index) const { return index >= 0 && index < Count(); }
  Row& At(int index) { return m_rows[static_cast<size_t>(index)]; }
  const Row& At(int index) const { return m_rows[static_cast<size_t>(index)]; }
  bool HasStrings() const;
  bool IsMultiple() const { return (Style() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }
  bool IsOwnerDrawn() const { return (Style() & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE)) != 0; }
  LRESULT Insert(int index, LPARAM text, bool sorted);
  int SortedPlace(LPARAM text) const;
  LRESULT Delete(int index);
  void Clear();
  LRESULT Find(int after, LPCWSTR text, bool exact) const;
  LRESULT GetText(int index, LPWSTR text) const;

  // list_box_view.cpp: what is seen, and what is selected
  int VisibleRows() const;
  RECT RowRect(int index) const;
  int RowAt(POINT point) const;
  void SetTop(int index);
  void Reveal(int index);
  void UpdateScrollBar();
  void OnScroll(int action, int position);
  bool SetCurrent(int index);
  void SelectRange(int first, int last, bool selected);
  void MoveCaret(int index, bool extend, bool tell);
  void Choose(int index, WPARAM keys);
  void OnKey(WPARAM key);
  void MeasureRows();
  void InvalidateRow(int index) const;
  void Paint(HDC dc);
  void PaintRow(HDC dc, int index);

  std::vector<Row> m_rows;
  int m_rowHeight = 16;
  int m_top = 0;
  int m_current = -1;  // of one selection
  int m_caret = 0;
  int m_anchor = -1;
  int m_extent = 0;  // width of the rows for scrolling sideways
  bool m_focused = false;
  bool m_tracking = false;
};

}  // namespace desktop
