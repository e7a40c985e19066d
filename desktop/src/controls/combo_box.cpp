// COMBOBOX: messages.
#include "controls/combo_box.h"

#include <commctrl.h>

#include <algorithm>

namespace desktop {

namespace {

constexpr int kListId = 1000;
constexpr int kEditId = 1001;

// What the edit of a combo box does: keys that move the choice or close the list go to the combo box.
LRESULT CALLBACK EditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR combo) {
  const HWND owner = reinterpret_cast<HWND>(combo);
  switch (message) {
    case WM_KEYDOWN: {
      const bool dropped = SendMessageW(owner, CB_GETDROPPEDSTATE, 0, 0) != 0;
      const bool moves = wParam == VK_UP || wParam == VK_DOWN || wParam == VK_PRIOR || wParam == VK_NEXT;
      const bool closes = dropped && (wParam == VK_RETURN || wParam == VK_ESCAPE);
      if (moves || closes || wParam == VK_F4) return SendMessageW(owner, message, wParam, lParam);
      break;
    }
    case WM_SYSKEYDOWN:
      if (wParam == VK_UP || wParam == VK_DOWN) return SendMessageW(owner, message, wParam, lParam);
      break;
    case WM_GETDLGCODE: {
      const auto* key = reinterpret_cast<const MSG*>(lParam);
      const bool closes =
          key && key->message == WM_KEYDOWN && (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE);
      if (closes && SendMessageW(owner, CB_GETDROPPEDSTATE, 0, 0))
        return DefSubclassProc(edit, message, wParam, lParam) | DLGC_WANTMESSAGE;
      break;
    }
    default: break;
  }
  return DefSubclassProc(edit, message, wParam, lParam);
}

// The message for the list that a message of a combo box stands for, or 0.
UINT ListMessage(UINT message) {
  switch (message) {
    case CB_ADDSTRING: return LB_ADDSTRING;
    case CB_INSERTSTRING: return LB_INSERTSTRING;
    case CB_DELETESTRING: return LB_DELETESTRING;
    case CB_GETCOUNT: return LB_GETCOUNT;
    case CB_GETCURSEL: return LB_GETCURSEL;
    case CB_GETLBTEXT: return LB_GETTEXT;
    case CB_GETLBTEXTLEN: return LB_GETTEXTLEN;
    case CB_FINDSTRING: return LB_FINDSTRING;
    case CB_FINDSTRINGEXACT: return LB_FINDSTRINGEXACT;
    case CB_GETITEMDATA: return LB_GETITEMDATA;
    case CB_SETITEMDATA: return LB_SETITEMDATA;
    case CB_GETTOPINDEX: return LB_GETTOPINDEX;
    case CB_SETTOPINDEX: return LB_SETTOPINDEX;
    case CB_GETHORIZONTALEXTENT: return LB_GETHORIZONTALEXTENT;
    case CB_SETHORIZONTALEXTENT: return LB_SETHORIZONTALEXTENT;
    default: return 0;
  }
}

}  // namespace

LRESULT ComboList::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCREATE:
      m_combo = static_cast<HWND>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
      break;
    // The focus stays with the combo box.
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    default: break;
  }
  return ListBox::Handle(message, wParam, lParam);
}

void ComboList::Tell(int code) {
  SendMessageW(m_combo, WM_COMMAND, MAKEWPARAM(kListId, code), reinterpret_cast<LPARAM>(Window()));
}

bool ComboBox::HasStrings() const { return !IsOwnerDrawn() || (Style() & CBS_HASSTRINGS); }

std::wstring ComboBox::TextOf(LRESULT index) const {
  const LRESULT length = HasStrings() ? ToList(LB_GETTEXTLEN, static_cast<WPARAM>(index)) : LB_ERR;
  if (length < 0) return {};
  std::wstring text(static_cast<size_t>(length) + 1, 0);
  ToList(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<size_t>(length));
  return text;
}

bool ComboBox::OnCreate(const CREATESTRUCTW& create) {
  const DWORD style = Style();
  MeasureText();
  m_dropHeight = std::max(create.cy - ClosedHeight(), 0);
  DWORD listStyle = LBS_NOTIFY | WS_CLIPSIBLINGS | (m_listScrolls ? WS_VSCROLL : 0u);
  if (style & CBS_SORT) listStyle |= LBS_SORT;
  if (style & CBS_HASSTRINGS || !IsOwnerDrawn()) listStyle |= LBS_HASSTRINGS;
  if (style & CBS_OWNERDRAWFIXED) listStyle |= LBS_OWNERDRAWFIXED;
  if (style & CBS_OWNERDRAWVARIABLE) listStyle |= LBS_OWNERDRAWVARIABLE;
  if (style & CBS_DISABLENOSCROLL) listStyle |= LBS_DISABLENOSCROLL;
  const bool simple = Type() == CBS_SIMPLE;
  listStyle |= simple ? WS_CHILD | WS_VISIBLE : WS_POPUP | WS_BORDER;
  const DWORD listExStyle = simple ? WS_EX_CLIENTEDGE : WS_EX_TOOLWINDOW | WS_EX_TOPMOST;
  m_list =
      CreateWindowExW(listExStyle, L"ComboLBox", nullptr, listStyle, 0, 0, create.cx, m_dropHeight, Window(),
                      simple ? reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(kListId)) : nullptr,
                      create.hInstance, Window());
  if (!m_list) return false;
  if (Type() != CBS_DROPDOWNLIST) {
    DWORD editStyle = WS_CHILD | WS_VISIBLE | ES_NOHIDESEL;
    if (style & CBS_AUTOHSCROLL) editStyle |= ES_AUTOHSCROLL;
    if (style & CBS_LOWERCASE) editStyle |= ES_LOWERCASE;
    if (style & CBS_UPPERCASE) editStyle |= ES_UPPERCASE;
    if (style & WS_DISABLED) editStyle |= WS_DISABLED;
    m_edit =
        CreateWindowExW(0, L"Edit", nullptr, editStyle, 0, 0, 1, 1, Window(),
                        reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(kEditId)), create.hInstance, nullptr);
    if (!m_edit) return false;
    SetWindowSubclass(m_edit, EditProc, 0, reinterpret_cast<DWORD_PTR>(Window()));
  }
  MoveParts();
  return true;
}

// What the owner of an owner-drawn list hears comes in the name of the combo box.
LRESULT ComboBox::ForwardOwnerDraw(UINT message, LPARAM lParam) const {
  const HWND parent = GetParent(Window());
  const auto id = static_cast<UINT>(GetDlgCtrlID(Window()));
  const auto forward = [&](auto& item) {
    auto named = item;
    named.CtlType = ODT_COMBOBOX;
    named.CtlID = id;
    if constexpr (requires { named.hwndItem; }) named.hwndItem = Window();
    const LRESULT result = SendMessageW(parent, message, id, reinterpret_cast<LPARAM>(&named));
    item = named;
    return result;
  };
  switch (message) {
    case WM_DRAWITEM: return forward(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    case WM_MEASUREITEM: {
      auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
      item.itemID = 0;
      return forward(item);
    }
    case WM_COMPAREITEM: return forward(*reinterpret_cast<COMPAREITEMSTRUCT*>(lParam));
    default: return forward(*reinterpret_cast<DELETEITEMSTRUCT*>(lParam));
  }
}

LRESULT ComboBox::OnCommand(WPARAM wParam) {
  const int code = HIWORD(wParam);
  if (LOWORD(wParam) == kListId) {
    if (code == LBN_SELCHANGE) OnListChoice();
    if (code == LBN_DBLCLK) Notify(CBN_DBLCLK);
    return 0;
  }
  switch (code) {
    case EN_SETFOCUS: OnFocus(true); return 0;
    case EN_KILLFOCUS: OnFocus(false); return 0;
    case EN_UPDATE:
      if (!m_updating) Notify(CBN_EDITUPDATE);
      return 0;
    case EN_CHANGE:
      if (m_updating) return 0;
      // What is typed is no choice of the list any more.
      ToList(LB_SETCURSEL, static_cast<WPARAM>(-1));
      Notify(CBN_EDITCHANGE);
      return 0;
    case EN_ERRSPACE: Notify(CBN_ERRSPACE); return 0;
    default: return 0;
  }
}

LRESULT ComboBox::HandleGeometry(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case CB_GETDROPPEDCONTROLRECT: *reinterpret_cast<RECT*>(lParam) = DroppedRect(); return TRUE;
    case CB_SETITEMHEIGHT:
      if (static_cast<int>(wParam) != -1) return ToList(LB_SETITEMHEIGHT, wParam, lParam);
      if (lParam < 1 || lParam > 255) return CB_ERR;
      m_textHeight = static_cast<int>(lParam);
      MoveParts();
      Invalidate();
      return 0;
    case CB_GETITEMHEIGHT:
      return static_cast<int>(wParam) == -1 ? m_textHeight : ToList(LB_GETITEMHEIGHT, wParam);
    case CB_GETDROPPEDWIDTH: return std::max<LRESULT>(m_dropWidth, ClientRect().right);
    case CB_SETDROPPEDWIDTH:
      m_dropWidth = static_cast<int>(wParam);
      return std::max<LRESULT>(m_dropWidth, ClientRect().right);
    case CB_GETDROPPEDSTATE: return m_dropped;
    case CB_SHOWDROPDOWN:
      if (Type() == CBS_SIMPLE) return TRUE;
      if (wParam && !m_dropped) DropDown();
      if (!wParam && m_dropped) CloseUp(Close::cancel);
      return TRUE;
    default: return 0;
  }
}

LRESULT ComboBox::HandleCombo(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const UINT list = ListMessage(message)) {
    const LRESULT result = ToList(list, wParam, lParam);
    if (message == CB_DELETESTRING) Invalidate();
    return result;
  }
  switch (message) {
    case CB_RESETCONTENT:
      ToList(LB_RESETCONTENT);
      if (HasEdit()) {
        m_updating = true;
        SetWindowTextW(m_edit, L"");
        m_updating = false;
      }
      Invalidate();
      return TRUE;
    case CB_SETCURSEL:
    case CB_SELECTSTRING: {
      const bool byText = message == CB_SELECTSTRING;
      const LRESULT result = ToList(byText ? LB_SELECTSTRING : LB_SETCURSEL, wParam, lParam);
      if (!byText || result != LB_ERR) UpdateText();
      return result;
    }
    case CB_GETEDITSEL: return HasEdit() ? SendMessageW(m_edit, EM_GETSEL, wParam, lParam) : CB_ERR;
    case CB_SETEDITSEL:
      if (!HasEdit()) return CB_ERR;
      SendMessageW(m_edit, EM_SETSEL, static_cast<WPARAM>(static_cast<short>(LOWORD(lParam))),
                   static_cast<short>(HIWORD(lParam)));
      return TRUE;
    case CB_LIMITTEXT:
      if (HasEdit()) SendMessageW(m_edit, EM_LIMITTEXT, wParam, 0);
      return TRUE;
    case CB_SETEXTENDEDUI:
    case CB_GETEXTENDEDUI: return 0;
    default: return HandleGeometry(message, wParam, lParam);
  }
}

LRESULT ComboBox::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN: return OnKey(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_SYSKEYDOWN:
      if (wParam != VK_UP && wParam != VK_DOWN) return Default(message, wParam, lParam);
      SendMessageW(Window(), CB_SHOWDROPDOWN, !m_dropped, 0);
      return 0;
    case WM_CHAR: {
      if (HasEdit()) return 0;
      m_movingByKey = true;
      SendMessageW(m_list, WM_CHAR, wParam, lParam);
      m_movingByKey = false;
      return 0;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      const POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
      const RECT button = ButtonRect();
      if (!m_focused) SetFocus(HasEdit() ? m_edit : Window());
      if (Type() == CBS_SIMPLE || (HasEdit() && !PtInRect(&button, point))) return 0;
      if (m_dropped)
        CloseUp(Close::cancel);
      else
        DropDown();
      return 0;
    }
    case WM_MOUSEWHEEL:
      if (m_dropped) return SendMessageW(m_list, message, wParam, lParam);
      return Default(message, wParam, lParam);
    default: return Default(message, wParam, lParam);
  }
}

LRESULT ComboBox::HandleText(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETTEXT: {
      if (!HasEdit()) return CB_ERR;
      m_updating = true;
      const LRESULT result = SendMessageW(m_edit, message, wParam, lParam);
      m_updating = false;
      return result;
    }
    case WM_GETTEXT:
      if (HasEdit()) return SendMessageW(m_edit, message, wParam, lParam);
      if (!wParam) return 0;
      lstrcpynW(reinterpret_cast<LPWSTR>(lParam), TextOf(ToList(LB_GETCURSEL)).c_str(),
                static_cast<int>(wParam));
      return lstrlenW(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXTLENGTH:
      if (HasEdit()) return SendMessageW(m_edit, message, wParam, lParam);
      return static_cast<LRESULT>(TextOf(ToList(LB_GETCURSEL)).size());
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR: return HasEdit() ? SendMessageW(m_edit, message, wParam, lParam) : 0;
    default: return HandleInput(message, wParam, lParam);
  }
}

LRESULT ComboBox::OnGetDlgCode(const MSG* key) const {
  const bool closes =
      key && key->message == WM_KEYDOWN && (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE);
  return DLGC_WANTARROWS | DLGC_WANTCHARS | (closes && m_dropped ? DLGC_WANTMESSAGE : 0);
}

LRESULT ComboBox::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= CB_GETEDITSEL && message <= CB_SETDROPPEDWIDTH) return HandleCombo(message, wParam, lParam);
  switch (message) {
    case WM_NCCREATE:
      // Border and scroll bar are for the list.
      m_listScrolls = (Style() & WS_VSCROLL) != 0;
      SetWindowLongW(Window(), GWL_STYLE,
                     static_cast<LONG>(Style() & ~DWORD{WS_BORDER | WS_HSCROLL | WS_VSCROLL}));
      return Default(message, wParam, lParam);
    case WM_CREATE: return OnCreate(*reinterpret_cast<const CREATESTRUCTW*>(lParam)) ? 0 : -1;
    case WM_DESTROY:
      if (m_list && IsWindow(m_list) && Type() != CBS_SIMPLE) DestroyWindow(m_list);
      return 0;
    case WM_SETFONT:
      m_font = reinterpret_cast<HFONT>(wParam);
      MeasureText();
      SendMessageW(m_list, WM_SETFONT, wParam, lParam);
      if (m_edit) SendMessageW(m_edit, WM_SETFONT, wParam, lParam);
      MoveParts();
      if (LOWORD(lParam)) Invalidate();
      return 0;
    case WM_GETFONT: return reinterpret_cast<LRESULT>(m_font);
    case WM_SIZE:
      if (m_list) MoveParts();
      return 0;
    case WM_SETFOCUS:
      if (HasEdit())
        SetFocus(m_edit);
      else
        OnFocus(true);
      return 0;
    case WM_KILLFOCUS:
      if (!HasEdit()) OnFocus(false);
      return 0;
    case WM_ENABLE:
      if (m_edit) EnableWindow(m_edit, wParam != 0);
      Invalidate();
      return 0;
    case WM_GETDLGCODE: return OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_COMMAND: return OnCommand(wParam);
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_COMPAREITEM:
    case WM_DELETEITEM: return ForwardOwnerDraw(message, lParam);
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC: return SendMessageW(GetParent(Window()), message, wParam, lParam);
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font)); return 0;
    default: return HandleText(message, wParam, lParam);
  }
}

}  // namespace desktop
