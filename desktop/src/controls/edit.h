// The EDIT control, of one or of many lines.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "controls/control.h"

namespace desktop {

class Edit : public Control {
 public:
  using Control::Control;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // A line on the screen. Hard ones end with "\r\n" or "\n", the others where the text was wrapped.
  struct Line {
    size_t begin;
    size_t length;  // without its end
    size_t ending;  // length of its end
    int width;
  };
  struct Selection {
    size_t low;
    size_t high;
  };
  enum class Limit { ignored, honored };
  enum class Undo { kept, forgotten };

  // edit.cpp: messages
  LRESULT HandleEdit(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleQuery(UINT message, WPARAM wParam, LPARAM lParam);
  bool OnCreate(const CREATESTRUCTW& create);
  void OnSetText(LPCWSTR text);
  void OnSetFont(HFONT font, bool redraw);
  void OnSetFocus();
  void OnKillFocus();
  LRESULT OnGetDlgCode(const MSG* message) const;
  LRESULT GetSel(DWORD* start, DWORD* end) const;
  LRESULT GetText(size_t size, LPWSTR buffer) const;
  void SetReadOnly(bool readOnly);

  // edit_input.cpp: keys and mouse
  void OnKeyDown(int key);
  void OnChar(wchar_t character);
  void OnLeftDown(WPARAM keys, POINT point);
  void OnDoubleClick();
  void OnMouseMove(POINT point);
  void OnLeftUp();
  void OnTimer();
  void OnContextMenu(POINT point);
  void MoveCaret(size_t to, bool extend);
  void MoveByLine(int lines, bool extend);
  void DeleteKey(bool shift, bool control);
  void BackKey();
  size_t Previous(size_t at) const;
  size_t Next(size_t at) const;
  size_t WordLeft(size_t at) const;
  size_t WordRight(size_t at) const;

  // edit_text.cpp: text, selection, undo, clipboard
  void Replace(const std::wstring& text, Undo undo, Limit limit, bool update);
  void ClearSelection(Undo undo) { Replace({}, undo, Limit::ignored, true); }
  void RecordDeletion(size_t at, const std::wstring& deleted);
  void RecordInsertion(size_t at, size_t length);
  bool FitsNot() const;
  void SetSelection(size_t start, size_t end);
  void SetSelectionByMessage(long long start, long long end);
  void DoUndo();
  void ForgetUndo();
  void Copy() const;
  void Cut();
  void Paste();
  std::wstring Adapted(std::wstring text) const;
  Selection Sel() const { return {std::min(m_start, m_end), std::max(m_start, m_end)}; }

  // edit_layout.cpp: lines, positions, scrolling
  void SetFormatRect(const RECT& rect);
  void ResetFormatRect();
  void SetMargins(UINT action, WORD left, WORD right);
  void BuildLines();
  void BreakParagraph(HDC dc, size_t begin, size_t end, size_t ending);
  size_t FitPrefix(HDC dc, size_t begin, size_t end) const;
  int Width(HDC dc, size_t begin, size_t length) const;
  int Width(size_t begin, size_t length) const;
  std::wstring Shown(size_t begin, size_t length) const;
  size_t LineOf(size_t index) const;
  POINT PositionOf(size_t index) const;
  size_t IndexAt(POINT point) const;
  size_t IndexInLine(const Line& line, int x) const;
  int VisibleLines() const;
  void ScrollCaret();
  void ScrollCaretSingle();
  void ScrollCaretMulti();
  bool ScrollBy(int dx, int dy);
  LRESULT OnScrollMessage(int action);
  void OnScrollBar(int bar, int action, int position);
  void UpdateScrollBars();
  void PlaceCaret() const;

  // edit_paint.cpp
  void Paint(HDC dc);
  void PaintLine(HDC dc, size_t line);
  int PaintPart(HDC dc, POINT at, size_t begin, size_t end, bool selected);
  void InvalidateText() const;

  bool IsMultiline() const { return (m_style & ES_MULTILINE) != 0; }
  bool IsReadOnly() const { return (m_style & ES_READONLY) != 0; }
  bool Wraps() const { return IsMultiline() && !(m_style & (ES_AUTOHSCROLL | WS_HSCROLL)); }

  DWORD m_style = 0;
  bool m_border = false;  // drawn by the control itself
  std::wstring m_text;
  size_t m_limit = 30000;
  wchar_t m_password = 0;
  bool m_modified = false;
  bool m_focused = false;
  bool m_capturing = false;

  size_t m_start = 0;  // of the selection: where it began
  size_t m_end = 0;    // and where the caret is

  std::wstring m_undoText;  // what was deleted at m_undoPosition
  size_t m_undoPosition = 0;
  size_t m_undoInserted = 0;  // how much was inserted there

  RECT m_format{};
  int m_leftMargin = 0;
  int m_rightMargin = 0;
  int m_lineHeight = 1;
  int m_letterWidth = 1;
  int m_tabWidth = 32;
  std::vector<Line> m_lines;
  size_t m_firstLine = 0;  // of many lines: the first one shown
  size_t m_firstChar = 0;  // of one line: the first character shown
  int m_shift = 0;         // of many lines: pixels scrolled to the right
};

}  // namespace desktop
