// EDIT: keys and mouse.
#include <algorithm>

#include "controls/edit.h"

namespace desktop {

namespace {

constexpr UINT_PTR kScrollTimer = 0x10;
constexpr UINT kScrollInterval = 100;

bool IsDown(int key) { return GetKeyState(key) < 0; }

}  // namespace

// A line end counts as one step.
size_t Edit::Previous(size_t at) const {
  if (at == 0) return 0;
  const bool overLineEnd = IsMultiline() && at > 1 && m_text[at - 1] == L'\n' && m_text[at - 2] == L'\r';
  return at - (overLineEnd ? 2 : 1);
}

size_t Edit::Next(size_t at) const {
  if (at >= m_text.size()) return m_text.size();
  const bool overLineEnd =
      IsMultiline() && m_text[at] == L'\r' && at + 1 < m_text.size() && m_text[at + 1] == L'\n';
  return at + (overLineEnd ? 2 : 1);
}

size_t Edit::WordLeft(size_t at) const {
  if (m_password) return 0;
  while (at > 0 && iswspace(static_cast<wint_t>(m_text[at - 1]))) --at;
  while (at > 0 && !iswspace(static_cast<wint_t>(m_text[at - 1]))) --at;
  return at;
}

size_t Edit::WordRight(size_t at) const {
  const size_t length = m_text.size();
  if (m_password) return length;
  while (at < length && !iswspace(static_cast<wint_t>(m_text[at]))) ++at;
  while (at < length && iswspace(static_cast<wint_t>(m_text[at]))) ++at;
  return at;
}

void Edit::MoveCaret(size_t to, bool extend) {
  SetSelection(extend ? m_start : to, to);
  ScrollCaret();
}

void Edit::MoveByLine(int lines, bool extend) {
  const POINT at = PositionOf(m_end);
  const int line = static_cast<int>(LineOf(m_end));
  const int target = std::clamp(line + lines, 0, static_cast<int>(m_lines.size()) - 1);
  if (target != line) MoveCaret(IndexInLine(m_lines[static_cast<size_t>(target)], at.x), extend);
}

void Edit::DeleteKey(bool shift, bool control) {
  if (IsReadOnly() || (shift && control)) return;
  if (m_start != m_end) return shift ? Cut() : ClearSelection(Undo::kept);
  size_t to = Next(m_end);
  if (shift) to = Previous(m_end);
  if (control) {
    const Line& line = m_lines[LineOf(m_end)];
    to = std::max(line.begin + line.length, m_end);
  }
  SetSelection(m_end, to);
  ClearSelection(Undo::kept);
}

void Edit::BackKey() {
  if (IsReadOnly()) return;
  if (m_start == m_end) SetSelection(m_end, Previous(m_end));
  ClearSelection(Undo::kept);
}

void Edit::OnKeyDown(int key) {
  if (IsDown(VK_MENU)) return;
  const bool shift = IsDown(VK_SHIFT);
  const bool control = IsDown(VK_CONTROL);
  const Line& line = m_lines[LineOf(m_end)];
  const bool many = IsMultiline();
  switch (key) {
    case VK_UP:
      if (many) return MoveByLine(-1, shift);
      [[fallthrough]];
    case VK_LEFT: return MoveCaret(control ? WordLeft(m_end) : Previous(m_end), shift);
    case VK_DOWN:
      if (many) return MoveByLine(1, shift);
      [[fallthrough]];
    case VK_RIGHT: return MoveCaret(control ? WordRight(m_end) : Next(m_end), shift);
    case VK_HOME: return MoveCaret(many && control ? 0 : line.begin, shift);
    case VK_END: return MoveCaret(many && control ? m_text.size() : line.begin + line.length, shift);
    case VK_PRIOR:
      if (many) MoveByLine(-std::max(VisibleLines() - 1, 1), shift);
      return;
    case VK_NEXT:
      if (many) MoveByLine(std::max(VisibleLines() - 1, 1), shift);
      return;
    case VK_DELETE: return DeleteKey(shift, control);
    case VK_INSERT:
      if (shift) return Paste();
      if (control) Copy();
      return;
    default: return;
  }
}

void Edit::OnChar(wchar_t character) {
  constexpr wchar_t kControlC = 3;
  constexpr wchar_t kControlV = 22;
  constexpr wchar_t kControlX = 24;
  constexpr wchar_t kControlZ = 26;
  const bool control = IsDown(VK_CONTROL);
  switch (character) {
    case L'\r':
      // Shift and the style both ask for a line end where the dialog would take the key.
      if (!IsMultiline()) return;
      [[fallthrough]];
    case L'\n':
      if (IsMultiline() && !IsReadOnly()) Replace(L"\r\n", Undo::kept, Limit::honored, true);
      return;
    case L'\t':
      if (IsMultiline() && !IsReadOnly()) Replace(L"\t", Undo::kept, Limit::honored, true);
      return;
    case L'\b':
      if (!control) BackKey();
      return;
    case kControlC: return Copy();
    case kControlV: return Paste();
    case kControlX: return Cut();
    case kControlZ: return DoUndo();
    default: break;
  }
  if ((m_style & ES_NUMBER) && (character < L'0' || character > L'9')) {
    MessageBeep(MB_ICONEXCLAMATION);
    return;
  }
  if (IsReadOnly() || character < L' ' || character == 127) return;
  Replace(std::wstring(1, character), Undo::kept, Limit::honored, true);
}

void Edit::OnLeftDown(WPARAM keys, POINT point) {
  m_capturing = true;
  SetCapture(Window());
  const size_t index = IndexAt(point);
  SetSelection((keys & MK_SHIFT) ? m_start : index, index);
  ScrollCaret();
  if (!m_focused) SetFocus(Window());
}

// The word at the caret, which the first click has put there, with the blanks behind it.
void Edit::OnDoubleClick() {
  m_capturing = true;
  SetCapture(Window());
  size_t begin = m_end;
  if (m_password) return SetSelection(0, m_text.size());
  while (begin > 0 && !iswspace(static_cast<wint_t>(m_text[begin - 1]))) --begin;
  SetSelection(begin, WordRight(begin));
  ScrollCaret();
}

void Edit::OnMouseMove(POINT point) {
  if (!m_capturing || GetCapture() != Window()) return;
  const RECT client = ClientRect();
  if (PtInRect(&client, point))
    KillTimer(Window(), kScrollTimer);
  else
    SetTimer(Window(), kScrollTimer, kScrollInterval, nullptr);
  SetSelection(m_start, IndexAt(point));
  ScrollCaret();
}

void Edit::OnLeftUp() {
  if (!m_capturing) return;
  m_capturing = false;
  KillTimer(Window(), kScrollTimer);
  if (GetCapture() == Window()) ReleaseCapture();
}

// The mouse is held outside: the selection goes on that way.
void Edit::OnTimer() {
  POINT point{};
  GetCursorPos(&point);
  ScreenToClient(Window(), &point);
  OnMouseMove(point);
}

void Edit::OnContextMenu(POINT point) {
  const HMENU menu = CreatePopupMenu();
  if (!menu) return;
  const Selection range = Sel();
  const bool selected = range.low != range.high;
  const bool writable = !IsReadOnly();
  const auto add = [menu](UINT command, LPCWSTR text, bool enabled) {
    AppendMenuW(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED, command, text);
  };
  add(EM_UNDO, L"&Undo", writable && (!m_undoText.empty() || m_undoInserted));
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  add(WM_CUT, L"Cu&t", writable && selected && !m_password);
  add(WM_COPY, L"&Copy", selected && !m_password);
  add(WM_PASTE, L"&Paste", writable && IsClipboardFormatAvailable(CF_UNICODETEXT));
  add(WM_CLEAR, L"&Delete", writable && selected);
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  add(EM_SETSEL, L"Select &All", range.high - range.low < m_text.size());
  if (point.x == -1 && point.y == -1) {
    const RECT client = ClientRect();
    point = {client.right / 2, client.bottom / 2};
    ClientToScreen(Window(), &point);
  }
  if (!m_focused) SetFocus(Window());
  const auto command = static_cast<UINT>(TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD,
                                                        point.x, point.y, 0, Window(), nullptr));
  DestroyMenu(menu);
  if (command) SendMessageW(Window(), command, 0, command == EM_SETSEL ? -1 : 0);
}

}  // namespace desktop
