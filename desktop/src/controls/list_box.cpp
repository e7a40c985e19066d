// LISTBOX: rows and messages.
#include "controls/list_box.h"

#include <algorithm>

#include "kernel/kernel.h"

namespace desktop {

void ListBox::Tell(int code) {
  if (Style() & LBS_NOTIFY) Notify(code);
}

bool ListBox::HasStrings() const { return !IsOwnerDrawn() || (Style() & LBS_HASSTRINGS); }

// The first row that comes behind the text.
int ListBox::SortedPlace(LPARAM text) const {
  if (HasStrings()) {
    const auto* wanted = reinterpret_cast<LPCWSTR>(text);
    const auto behind = std::find_if(m_rows.begin(), m_rows.end(), [=](const Row& row) {
      return lstrcmpiW(row.text.c_str(), wanted ? wanted : L"") > 0;
    });
    return static_cast<int>(behind - m_rows.begin());
  }
  // Rows without text are compared by the owner.
  for (int i = 0; i < Count(); ++i) {
    const UINT id = static_cast<UINT>(GetDlgCtrlID(Window()));
    COMPAREITEMSTRUCT compare{OwnerDrawType(),
                              id,
                              Window(),
                              static_cast<UINT>(i),
                              At(i).data,
                              static_cast<UINT>(-1),
                              static_cast<ULONG_PTR>(text),
                              LOCALE_USER_DEFAULT};
    if (SendMessageW(Owner(), WM_COMPAREITEM, id, reinterpret_cast<LPARAM>(&compare)) > 0) return i;
  }
  return Count();
}

LRESULT ListBox::Insert(int index, LPARAM text, bool sorted) {
  if (sorted && (Style() & LBS_SORT)) index = SortedPlace(text);
  if (index == -1) index = Count();
  if (index < 0 || index > Count()) return LB_ERR;
  Row row;
  if (HasStrings())
    row.text = text ? reinterpret_cast<LPCWSTR>(text) : L"";
  else
    row.data = static_cast<ULONG_PTR>(text);
  m_rows.insert(m_rows.begin() + index, std::move(row));
  if (m_current >= index) ++m_current;
  UpdateScrollBar();
  Invalidate();
  return index;
}

LRESULT ListBox::Delete(int index) {
  if (!IsRow(index)) return LB_ERR;
  // Whoever draws rows, or has hung data on them, hears of their end.
  if (IsOwnerDrawn() || At(index).data) {
    const UINT id = static_cast<UINT>(GetDlgCtrlID(Window()));
    DELETEITEMSTRUCT gone{OwnerDrawType(), id, static_cast<UINT>(index), Window(), At(index).data};
    SendMessageW(Owner(), WM_DELETEITEM, id, reinterpret_cast<LPARAM>(&gone));
    if (!IsRow(index)) return LB_ERR;
  }
  m_rows.erase(m_rows.begin() + index);
  if (m_current == index) m_current = -1;
  if (m_current > index) --m_current;
  m_caret = std::clamp(m_caret, 0, std::max(Count() - 1, 0));
  SetTop(std::min(m_top, std::max(Count() - VisibleRows(), 0)));
  UpdateScrollBar();
  Invalidate();
  return Count();
}

void ListBox::Clear() {
  while (Count() > 0 && IsWindow(Window()) && (IsOwnerDrawn() || At(Count() - 1).data)) {
    const int before = Count();
    Delete(before - 1);
    if (Count() >= before) break;
  }
  m_rows.clear();
  m_top = 0;
  m_current = -1;
  m_caret = 0;
  m_anchor = -1;
  UpdateScrollBar();
  Invalidate();
}

LRESULT ListBox::Find(int after, LPCWSTR text, bool exact) const {
  if (!text || !HasStrings()) return LB_ERR;
  const std::wstring wanted = text;
  for (int step = 1; step <= Count(); ++step) {
    const int index = (std::max(after, -1) + step) % Count();
    const std::wstring& row = At(index).text;
    if (EqualNoCase(exact ? row : row.substr(0, wanted.size()), wanted)) return index;
  }
  return LB_ERR;
}

LRESULT ListBox::GetText(int index, LPWSTR text) const {
  if (!IsRow(index)) return LB_ERR;
  if (!HasStrings()) {
    *reinterpret_cast<ULONG_PTR*>(text) = At(index).data;
    return sizeof(DWORD);
  }
  wcscpy(text, At(index).text.c_str());
  return static_cast<LRESULT>(At(index).text.size());
}

LRESULT ListBox::HandleSelection(UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  const auto selected = [this] {
    return std::count_if(m_rows.begin(), m_rows.end(), [](const Row& row) { return row.selected; });
  };
  switch (message) {
    case LB_SETCURSEL:
      if (IsMultiple() || index < -1 || index >= Count()) return LB_ERR;
      SetCurrent(index);
      if (index >= 0) Reveal(index);
      return index < 0 ? LB_ERR : index;
    case LB_GETCURSEL: return IsMultiple() ? m_caret : m_current;
    case LB_GETSEL:
      if (!IsRow(index)) return LB_ERR;
      return IsMultiple() ? At(index).selected : index == m_current;
    case LB_SETSEL:
      if (!IsMultiple()) return LB_ERR;
      if (static_cast<int>(lParam) == -1)
        SelectRange(0, Count() - 1, wParam != 0);
      else if (!IsRow(static_cast<int>(lParam)))
        return LB_ERR;
      else
        SelectRange(static_cast<int>(lParam), static_cast<int>(lParam), wParam != 0);
      return LB_OKAY;
    case LB_GETSELCOUNT: return IsMultiple() ? static_cast<LRESULT>(selected()) : LB_ERR;
    case LB_GETSELITEMS: {
      if (!IsMultiple()) return LB_ERR;
      int stored = 0;
      for (int i = 0; i < Count() && stored < index; ++i)
        if (At(i).selected) reinterpret_cast<int*>(lParam)[stored++] = i;
      return stored;
    }
    case LB_SELITEMRANGE:
    case LB_SELITEMRANGEEX: {
      if (!IsMultiple()) return LB_ERR;
      const bool ex = message == LB_SELITEMRANGEEX;
      const int first = ex ? index : LOWORD(lParam);
      const int last = ex ? static_cast<int>(lParam) : HIWORD(lParam);
      SelectRange(std::min(first, last), std::max(first, last), ex ? first <= last : wParam != 0);
      return LB_OKAY;
    }
    case LB_SELECTSTRING: {
      const LRESULT found = Find(index, reinterpret_cast<LPCWSTR>(lParam), false);
      if (found != LB_ERR) SetCurrent(static_cast<int>(found));
      return found;
    }
    case LB_SETANCHORINDEX: m_anchor = index; return LB_OKAY;
    case LB_GETANCHORINDEX: return m_anchor;
    case LB_SETCARETINDEX:
      if (!IsRow(index)) return LB_ERR;
      MoveCaret(index, false, false);
      return LB_OKAY;
    case LB_GETCARETINDEX: return m_caret;
    default: return 0;
  }
}

LRESULT ListBox::HandleList(UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  switch (message) {
    case LB_ADDSTRING: return Insert(-1, lParam, true);
    case LB_INSERTSTRING: return Insert(index, lParam, false);
    case LB_DELETESTRING: return Delete(index);
    case LB_RESETCONTENT: Clear(); return 0;
    case LB_GETCOUNT: return Count();
    case LB_GETTEXT: return GetText(index, reinterpret_cast<LPWSTR>(lParam));
    case LB_GETTEXTLEN:
      if (!IsRow(index)) return LB_ERR;
      return HasStrings() ? static_cast<LRESULT>(At(index).text.size()) : static_cast<LRESULT>(sizeof(DWORD));
    case LB_GETITEMDATA: return IsRow(index) ? static_cast<LRESULT>(At(index).data) : LB_ERR;
    case LB_SETITEMDATA:
      if (!IsRow(index)) return LB_ERR;
      At(index).data = static_cast<ULONG_PTR>(lParam);
      if (IsOwnerDrawn()) InvalidateRow(index);
      return TRUE;
    case LB_FINDSTRING: return Find(index, reinterpret_cast<LPCWSTR>(lParam), false);
    case LB_FINDSTRINGEXACT: return Find(index, reinterpret_cast<LPCWSTR>(lParam), true);
    case LB_GETTOPINDEX: return m_top;
    case LB_SETTOPINDEX:
      if (!IsRow(index)) return LB_ERR;
      SetTop(index);
      return LB_OKAY;
    case LB_GETITEMRECT:
      *reinterpret_cast<RECT*>(lParam) = RowRect(index);
      return IsRow(index) || index == 0 ? LB_OKAY : LB_ERR;
    case LB_GETITEMHEIGHT: return m_rowHeight;
    case LB_SETITEMHEIGHT:
      if (lParam < 1 || lParam > 255) return LB_ERR;
      m_rowHeight = static_cast<int>(lParam);
      UpdateScrollBar();
      Invalidate();
      return LB_OKAY;
    case LB_ITEMFROMPOINT: {
      const POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
      const RECT client = ClientRect();
      const int row = std::clamp(m_top + point.y / m_rowHeight, 0, std::max(Count() - 1, 0));
      return MAKELONG(row, PtInRect(&client, point) && RowAt(point) >= 0 ? 0 : 1);
    }
    case LB_GETHORIZONTALEXTENT: return m_extent;
    case LB_SETHORIZONTALEXTENT: m_extent = index; return 0;
    default: return HandleSelection(message, wParam, lParam);
  }
}

LRESULT ListBox::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
  switch (message) {
    case WM_LBUTTONDOWN:
      if (!m_focused && TakesFocus()) SetFocus(Window());
      m_tracking = true;
      SetCapture(Window());
      if (RowAt(point) >= 0) Choose(RowAt(point), wParam);
      return 0;
    case WM_MOUSEMOVE:
      if (m_tracking && RowAt(point) >= 0 && RowAt(point) != m_caret) MoveCaret(RowAt(point), true, false);
      return 0;
    case WM_LBUTTONUP:
      if (!m_tracking) return 0;
      m_tracking = false;
      if (GetCapture() == Window()) ReleaseCapture();
      Tell(LBN_SELCHANGE);
      return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != Window()) m_tracking = false;
      return 0;
    case WM_LBUTTONDBLCLK: Tell(LBN_DBLCLK); return 0;
    case WM_KEYDOWN: OnKey(wParam); return 0;
    case WM_CHAR: {
      const wchar_t text[] = {static_cast<wchar_t>(wParam), 0};
      const LRESULT found = Find(m_caret, text, false);
      if (found == LB_ERR) return 0;
      MoveCaret(static_cast<int>(found), false, true);
      return 0;
    }
    case WM_MOUSEWHEEL:
      if (!(Style() & WS_VSCROLL)) return Default(message, wParam, lParam);
      SetTop(m_top - 3 * GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA);
      return 0;
    case WM_VSCROLL: OnScroll(LOWORD(wParam), static_cast<short>(HIWORD(wParam))); return 0;
    default: return Default(message, wParam, lParam);
  }
}

LRESULT ListBox::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= LB_ADDSTRING && message <= LB_ITEMFROMPOINT) return HandleList(message, wParam, lParam);
  switch (message) {
    case WM_CREATE:
      if (Style() & LBS_EXTENDEDSEL) m_anchor = 0;
      MeasureRows();
      UpdateScrollBar();
      return 0;
    case WM_DESTROY: Clear(); return 0;
    case WM_SETFONT:
      m_font = reinterpret_cast<HFONT>(wParam);
      MeasureRows();
      UpdateScrollBar();
      if (LOWORD(lParam)) Invalidate();
      return 0;
    case WM_GETFONT: return reinterpret_cast<LRESULT>(m_font);
    case WM_SIZE:
      UpdateScrollBar();
      SetTop(m_top);
      return 0;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font)); return 0;
    case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFOCUS:
      m_focused = true;
      InvalidateRow(m_caret);
      Tell(LBN_SETFOCUS);
      return 0;
    case WM_KILLFOCUS:
      m_focused = false;
      InvalidateRow(m_caret);
      Tell(LBN_KILLFOCUS);
      return 0;
    case WM_ENABLE: Invalidate(); return 0;
    case WM_SETREDRAW: {
      const LRESULT result = Default(message, wParam, lParam);
      if (wParam) Invalidate();
      return result;
    }
    default: return HandleInput(message, wParam, lParam);
  }
}

}  // namespace desktop
