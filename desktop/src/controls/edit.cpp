// EDIT: its messages.
#include "controls/edit.h"

#include <algorithm>

namespace desktop {

namespace {

POINT PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

bool Edit::OnCreate(const CREATESTRUCTW& create) {
  m_style = Style();
  if (m_style & (ES_CENTER | ES_RIGHT)) m_style &= ~static_cast<DWORD>(IsMultiline() ? ES_AUTOHSCROLL : 0);
  if (m_style & ES_MULTILINE) m_style &= ~static_cast<DWORD>(ES_PASSWORD);
  if (m_style & ES_PASSWORD) m_password = L'*';
  // A thin border is drawn inside the client area, unless there is a sunken edge around it.
  m_border = (m_style & WS_BORDER) && !(create.dwExStyle & WS_EX_CLIENTEDGE);
  if (m_style & WS_BORDER)
    SetWindowLongW(Window(), GWL_STYLE, static_cast<LONG>(Style() & ~DWORD{WS_BORDER}));
  return DefWindowProcW(Window(), WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&create)) != 0;
}

void Edit::OnSetText(LPCWSTR text) {
  const bool focused = m_focused;
  m_start = 0;
  m_end = m_text.size();
  m_firstChar = 0;
  // One line tells its parent; many lines do not.
  m_text.clear();
  m_end = 0;
  ForgetUndo();
  if (text && *text) Replace(text, Undo::forgotten, Limit::ignored, false);
  m_start = m_end = 0;
  m_firstChar = m_firstLine = 0;
  m_shift = 0;
  m_modified = false;
  BuildLines();
  UpdateScrollBars();
  m_focused = focused;
  ScrollCaret();
  if (!IsMultiline()) Notify(EN_UPDATE);
  InvalidateText();
  if (!IsMultiline()) Notify(EN_CHANGE);
}

void Edit::OnSetFont(HFONT font, bool redraw) {
  m_font = font;
  {
    const ControlDC dc(Window(), m_font);
    const SIZE letter = LetterSize(dc);
    m_lineHeight = letter.cy;
    m_letterWidth = letter.cx;
    m_tabWidth = 8 * letter.cx;
  }
  if (font) SetMargins(EC_LEFTMARGIN | EC_RIGHTMARGIN, EC_USEFONTINFO, EC_USEFONTINFO);
  ResetFormatRect();
  if (redraw) InvalidateText();
  if (!m_focused) return;
  DestroyCaret();
  CreateCaret(Window(), nullptr, 1, m_lineHeight);
  PlaceCaret();
  ShowCaret(Window());
}

void Edit::OnSetFocus() {
  m_focused = true;
  if (m_start != m_end && !(m_style & ES_NOHIDESEL)) InvalidateText();
  if (!IsMultiline()) {
    // One line shows at once what the focus changes.
    const ControlDC dc(Window(), m_font);
    Paint(dc);
  }
  CreateCaret(Window(), nullptr, 1, m_lineHeight);
  PlaceCaret();
  ShowCaret(Window());
  Notify(EN_SETFOCUS);
}

void Edit::OnKillFocus() {
  m_focused = false;
  DestroyCaret();
  if (m_start != m_end && !(m_style & ES_NOHIDESEL)) InvalidateText();
  Notify(EN_KILLFOCUS);
}

LRESULT Edit::OnGetDlgCode(const MSG* message) const {
  LRESULT code = DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
  if (IsMultiline()) code |= DLGC_WANTALLKEYS;
  if (!message || message->message != WM_KEYDOWN) return code;
  const auto key = message->wParam;
  // A dialog keeps Tab, Enter and Escape unless the control wants them.
  if (key == VK_TAB || key == VK_ESCAPE || (key == VK_RETURN && !(m_style & ES_WANTRETURN)))
    code &= ~LRESULT{DLGC_WANTALLKEYS};
  return code;
}

LRESULT Edit::GetSel(DWORD* start, DWORD* end) const {
  const Selection range = Sel();
  if (start) *start = static_cast<DWORD>(range.low);
  if (end) *end = static_cast<DWORD>(range.high);
  if (range.high > 0xFFFF) return -1;
  return static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(range.low, range.high)));
}

LRESULT Edit::GetText(size_t size, LPWSTR buffer) const {
  if (!size || !buffer) return 0;
  const size_t length = std::min(m_text.size(), size - 1);
  m_text.copy(buffer, length);
  buffer[length] = 0;
  return static_cast<LRESULT>(length);
}

void Edit::SetReadOnly(bool readOnly) {
  DWORD style = Style();
  style = readOnly ? style | ES_READONLY : style & ~DWORD{ES_READONLY};
  m_style = readOnly ? m_style | ES_READONLY : m_style & ~DWORD{ES_READONLY};
  SetWindowLongW(Window(), GWL_STYLE, static_cast<LONG>(style));
  InvalidateText();
}

LRESULT Edit::HandleQuery(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto index = static_cast<size_t>(wParam);
  switch (message) {
    case EM_GETLINECOUNT: return static_cast<LRESULT>(m_lines.size());
    case EM_LINEINDEX: {
      if (!IsMultiline()) return static_cast<int>(wParam) > 0 ? -1 : 0;
      const size_t line = static_cast<int>(wParam) == -1 ? LineOf(m_end) : index;
      return line < m_lines.size() ? static_cast<LRESULT>(m_lines[line].begin) : -1;
    }
    case EM_LINELENGTH: {
      if (!IsMultiline()) return static_cast<LRESULT>(m_text.size());
      if (static_cast<int>(wParam) != -1) {
        if (index > m_text.size()) return 0;
        return static_cast<LRESULT>(m_lines[LineOf(index)].length);
      }
      // What is not selected on the lines that the selection touches.
      const Selection range = Sel();
      const Line& last = m_lines[LineOf(range.high)];
      return static_cast<LRESULT>(range.low - m_lines[LineOf(range.low)].begin + last.begin + last.length -
                                  range.high);
    }
    case EM_LINEFROMCHAR:
      if (!IsMultiline()) return 0;
      return static_cast<LRESULT>(LineOf(static_cast<int>(wParam) == -1 ? Sel().low : index));
    case EM_GETLINE: {
      const size_t number = IsMultiline() ? index : 0;
      if (number >= m_lines.size()) return 0;
      auto* buffer = reinterpret_cast<LPWSTR>(lParam);
      const Line& line = m_lines[number];
      const size_t size = *reinterpret_cast<const WORD*>(buffer);
      const size_t length = std::min(line.length, size);
      m_text.copy(buffer, length, line.begin);
      if (length < size) buffer[length] = 0;
      return static_cast<LRESULT>(length);
    }
    case EM_POSFROMCHAR: {
      if (index >= m_text.size()) return -1;
      const POINT at = PositionOf(index);
      return MAKELONG(static_cast<short>(at.x), static_cast<short>(at.y));
    }
    case EM_CHARFROMPOS: {
      const RECT client = ClientRect();
      const POINT point = PointOf(lParam);
      if (!PtInRect(&client, point)) return -1;
      const size_t at = IndexAt(point);
      return MAKELONG(static_cast<WORD>(at), static_cast<WORD>(LineOf(at)));
    }
    case EM_GETRECT: *reinterpret_cast<RECT*>(lParam) = m_format; return 0;
    case EM_GETMARGINS: return MAKELONG(m_leftMargin, m_rightMargin);
    case EM_GETFIRSTVISIBLELINE: return static_cast<LRESULT>(IsMultiline() ? m_firstLine : m_firstChar);
    case EM_GETLIMITTEXT: return static_cast<LRESULT>(m_limit);
    case EM_GETPASSWORDCHAR: return static_cast<LRESULT>(m_password);
    case EM_GETMODIFY: return m_modified;
    case EM_CANUNDO: return m_undoInserted || !m_undoText.empty();
    default: return 0;
  }
}

LRESULT Edit::HandleEdit(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case EM_GETSEL: return GetSel(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
    case EM_SETSEL:
      SetSelectionByMessage(static_cast<int>(wParam), static_cast<int>(lParam));
      ScrollCaret();
      return 1;
    case EM_REPLACESEL:
      if (lParam)
        Replace(reinterpret_cast<LPCWSTR>(lParam), wParam ? Undo::kept : Undo::forgotten, Limit::ignored,
                true);
      return 1;
    case EM_SETRECT:
    case EM_SETRECTNP:
      if (!IsMultiline()) return 0;
      if (lParam)
        SetFormatRect(*reinterpret_cast<const RECT*>(lParam));
      else
        ResetFormatRect();
      if (message == EM_SETRECT) InvalidateText();
      return 0;
    case EM_SETMARGINS: SetMargins(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)); return 0;
    case EM_SCROLL: return OnScrollMessage(static_cast<int>(wParam));
    case EM_LINESCROLL:
      if (!IsMultiline()) return FALSE;
      ScrollBy(static_cast<int>(wParam) * m_letterWidth, static_cast<int>(lParam));
      return TRUE;
    case EM_SCROLLCARET: ScrollCaret(); return 1;
    case EM_SETMODIFY: m_modified = wParam != 0; return 0;
    case EM_LIMITTEXT:
      m_limit = wParam ? std::min<size_t>(wParam, 0x7FFFFFFE) : (IsMultiline() ? 0xFFFFFFFF : 0x7FFFFFFE);
      return 0;
    case WM_UNDO:
    case EM_UNDO: {
      const bool can = m_undoInserted || !m_undoText.empty();
      DoUndo();
      return can || !IsMultiline();
    }
    case EM_EMPTYUNDOBUFFER: ForgetUndo(); return 0;
    case EM_SETPASSWORDCHAR:
      if (IsMultiline()) return 0;
      m_password = static_cast<wchar_t>(wParam);
      BuildLines();
      InvalidateText();
      return 0;
    case EM_SETREADONLY: SetReadOnly(wParam != 0); return 1;
    default: return HandleQuery(message, wParam, lParam);
  }
}

LRESULT Edit::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN: OnKeyDown(static_cast<int>(wParam)); return 0;
    case WM_CHAR: OnChar(static_cast<wchar_t>(wParam)); return 0;
    case WM_LBUTTONDOWN: OnLeftDown(wParam, PointOf(lParam)); return 0;
    case WM_LBUTTONDBLCLK: OnDoubleClick(); return 0;
    case WM_MOUSEMOVE: OnMouseMove(PointOf(lParam)); return 0;
    case WM_LBUTTONUP: OnLeftUp(); return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != Window()) m_capturing = false;
      return 0;
    case WM_TIMER: OnTimer(); return 0;
    case WM_CONTEXTMENU: OnContextMenu(PointOf(lParam)); return 0;
    case WM_MOUSEWHEEL: {
      if (!IsMultiline()) return Default(message, wParam, lParam);
      const int lines = -3 * GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA;
      ScrollBy(0, std::min(lines, std::max(0, static_cast<int>(m_lines.size()) - VisibleLines() -
                                                  static_cast<int>(m_firstLine))));
      return 0;
    }
    default: return Default(message, wParam, lParam);
  }
}

LRESULT Edit::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= EM_GETSEL && message <= EM_CHARFROMPOS) return HandleEdit(message, wParam, lParam);
  switch (message) {
    case WM_NCCREATE: return OnCreate(*reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_CREATE: {
      OnSetFont(nullptr, false);
      const auto* name = reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName;
      if (name && *name) Replace(name, Undo::forgotten, Limit::ignored, false);
      m_start = m_end = 0;
      m_firstChar = m_firstLine = 0;
      ScrollCaret();
      return 0;
    }
    case WM_SETTEXT: OnSetText(reinterpret_cast<LPCWSTR>(lParam)); return TRUE;
    case WM_GETTEXT: return GetText(wParam, reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return static_cast<LRESULT>(m_text.size());
    case WM_SETFONT: OnSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0); return 0;
    case WM_GETFONT: return reinterpret_cast<LRESULT>(m_font);
    case WM_SIZE:
      if (wParam == SIZE_RESTORED || wParam == SIZE_MAXIMIZED) {
        ResetFormatRect();
        InvalidateText();
      }
      return 0;
    case WM_STYLECHANGED:
      if (wParam == static_cast<WPARAM>(GWL_STYLE)) {
        constexpr DWORD kFollowed = ES_LOWERCASE | ES_UPPERCASE | ES_NUMBER | ES_WANTRETURN | ES_NOHIDESEL;
        const DWORD now = reinterpret_cast<const STYLESTRUCT*>(lParam)->styleNew;
        m_style = (m_style & ~kFollowed) | (now & kFollowed);
      }
      return 0;
    case WM_SETFOCUS: OnSetFocus(); return 0;
    case WM_KILLFOCUS: OnKillFocus(); return 0;
    case WM_ENABLE: InvalidateText(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font)); return 0;
    case WM_GETDLGCODE: return OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_CUT: Cut(); return 0;
    case WM_COPY: Copy(); return 0;
    case WM_PASTE: Paste(); return 0;
    case WM_CLEAR:
      if (!IsReadOnly()) ClearSelection(Undo::kept);
      return 0;
    case WM_UNDO: return HandleEdit(EM_UNDO, 0, 0);
    case WM_HSCROLL: OnScrollBar(SB_HORZ, LOWORD(wParam), static_cast<short>(HIWORD(wParam))); return 0;
    case WM_VSCROLL: OnScrollBar(SB_VERT, LOWORD(wParam), static_cast<short>(HIWORD(wParam))); return 0;
    default: return HandleInput(message, wParam, lParam);
  }
}

}  // namespace desktop
