// BUTTON: state and messages.
#include "controls/button.h"

namespace desktop {

Button::Kind Button::GetKind() const {
  switch (Type()) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE: return Kind::check;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON: return Kind::radio;
    case BS_GROUPBOX: return Kind::group;
    case BS_OWNERDRAW: return Kind::ownerDraw;
    default: return Kind::push;
  }
}

LRESULT Button::DlgCode() const {
  switch (GetKind()) {
    case Kind::push:
      return DLGC_BUTTON | (Type() == BS_DEFPUSHBUTTON ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    case Kind::radio: return DLGC_BUTTON | DLGC_RADIOBUTTON;
    case Kind::group: return DLGC_STATIC;
    default: return DLGC_BUTTON;
  }
}

void Button::SetState(UINT bits, bool on) {
  const UINT before = m_state;
  m_state = on ? m_state | bits : m_state & ~bits;
  if (before == m_state) return;
  if (GetKind() == Kind::ownerDraw) {
    const HDC dc = GetDC(Window());
    if (m_font) SelectObject(dc, m_font);
    PaintOwner(dc, bits == BST_FOCUS ? ODA_FOCUS : ODA_SELECT);
    ReleaseDC(Window(), dc);
    return;
  }
  Invalidate(false);
}

void Button::SetCheck(UINT check) {
  const Kind kind = GetKind();
  if (kind != Kind::check && kind != Kind::radio) return;
  const bool threeState = Type() == BS_3STATE || Type() == BS_AUTO3STATE;
  if (check > BST_INDETERMINATE) check = BST_INDETERMINATE;
  if (!threeState && check == BST_INDETERMINATE) check = BST_CHECKED;
  if (kind == Kind::radio) {
    // The chosen one of a group is where the Tab key goes.
    const DWORD style = check ? Style() | WS_TABSTOP : Style() & ~DWORD{WS_TABSTOP};
    SetWindowLongW(Window(), GWL_STYLE, static_cast<LONG>(style));
  }
  constexpr UINT kMask = BST_CHECKED | BST_INDETERMINATE;
  if ((m_state & kMask) == check) return;
  m_state = (m_state & ~kMask) | check;
  Invalidate(false);
}

void Button::SetType(DWORD type, bool redraw) {
  SetWindowLongW(Window(), GWL_STYLE,
                 static_cast<LONG>((Style() & ~DWORD{BS_TYPEMASK}) | (type & BS_TYPEMASK)));
  if (redraw) Invalidate();
}

void Button::Press() {
  SetState(BST_PUSHED, true);
  if (Style() & BS_NOTIFY) Notify(BN_HILITE);
}

void Button::CheckByItself() {
  switch (Type()) {
    case BS_AUTOCHECKBOX: SetCheck(Is(BST_CHECKED) ? BST_UNCHECKED : BST_CHECKED); break;
    case BS_AUTO3STATE: SetCheck(Is(BST_INDETERMINATE) ? BST_UNCHECKED : (m_state & BST_CHECKED) + 1); break;
    case BS_AUTORADIOBUTTON: UncheckGroup(); break;
    default: break;
  }
}

// Checks this one of its group and no other.
void Button::UncheckGroup() const {
  const HWND parent = GetParent(Window());
  HWND other = Window();
  do {
    if (other != Window() && (SendMessageW(other, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) &&
        (GetWindowLongW(other, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON)
      SendMessageW(other, BM_SETCHECK, BST_UNCHECKED, 0);
    other = GetNextDlgGroupItem(parent, other, FALSE);
  } while (other && other != Window());
  SendMessageW(Window(), BM_SETCHECK, BST_CHECKED, 0);
}

// The button comes up again: a click when the mouse is still over it.
void Button::Release(bool inside) {
  if (!Is(BST_PUSHED)) {
    if (m_byMouse && GetCapture() == Window()) ReleaseCapture();
    m_byMouse = false;
    return;
  }
  SetState(BST_PUSHED, false);
  if (Style() & BS_NOTIFY) Notify(BN_UNHILITE);
  if (inside) CheckByItself();
  if (m_byMouse && GetCapture() == Window()) ReleaseCapture();
  m_byMouse = false;
  if (inside) Notify(BN_CLICKED);
}

void Button::Click() {
  SendMessageW(Window(), WM_LBUTTONDOWN, 0, 0);
  SendMessageW(Window(), WM_LBUTTONUP, 0, 0);
}

LRESULT Button::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
  const RECT client = ClientRect();
  const POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
  const bool inside = PtInRect(&client, point) != FALSE;
  switch (message) {
    case WM_LBUTTONDBLCLK:
      if ((Style() & BS_NOTIFY) || GetKind() == Kind::radio || GetKind() == Kind::ownerDraw) {
        Notify(BN_DOUBLECLICKED);
        return 0;
      }
      [[fallthrough]];
    case WM_LBUTTONDOWN:
      if (GetKind() == Kind::group) return 0;
      SetFocus(Window());
      SetCapture(Window());
      m_byMouse = true;
      Press();
      return 0;
    case WM_LBUTTONUP: Release(inside); return 0;
    case WM_MOUSEMOVE:
      if ((wParam & MK_LBUTTON) && m_byMouse && GetCapture() == Window()) SetState(BST_PUSHED, inside);
      return 0;
    case WM_CAPTURECHANGED:
      if (m_byMouse && reinterpret_cast<HWND>(lParam) != Window()) {
        m_byMouse = false;
        SetState(BST_PUSHED, false);
      }
      return 0;
    case WM_KEYDOWN:
      if (wParam == VK_SPACE && !Is(BST_PUSHED)) Press();
      return 0;
    case WM_KEYUP:
      if (wParam == VK_SPACE) Release(true);
      return 0;
    default: return Default(message, wParam, lParam);
  }
}

LRESULT Button::HandleButton(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case BM_GETCHECK: return m_state & (BST_CHECKED | BST_INDETERMINATE);
    case BM_SETCHECK: SetCheck(static_cast<UINT>(wParam)); return 0;
    case BM_GETSTATE: return m_state;
    case BM_SETSTATE: SetState(BST_PUSHED, wParam != 0); return 0;
    case BM_SETSTYLE: SetType(static_cast<DWORD>(wParam), LOWORD(lParam) != 0); return 0;
    case BM_CLICK: Click(); return 0;
    case BM_GETIMAGE: return wParam == m_imageType ? reinterpret_cast<LRESULT>(m_image) : 0;
    case BM_SETIMAGE: {
      if (wParam != IMAGE_BITMAP && wParam != IMAGE_ICON) return 0;
      const HANDLE before = m_image;
      m_image = reinterpret_cast<HANDLE>(lParam);
      m_imageType = static_cast<UINT>(wParam);
      Invalidate();
      return reinterpret_cast<LRESULT>(before);
    }
    default: return 0;
  }
}

LRESULT Button::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= BM_GETCHECK && message <= BM_SETIMAGE) return HandleButton(message, wParam, lParam);
  switch (message) {
    case WM_GETDLGCODE: return DlgCode();
    case WM_NCHITTEST: return GetKind() == Kind::group ? HTTRANSPARENT : Default(message, wParam, lParam);
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font), ODA_DRAWENTIRE); return 0;
    case WM_ENABLE:
      if (!wParam && m_byMouse) ReleaseCapture();
      Invalidate();
      return 0;
    case WM_SETTEXT: {
      const LRESULT result = Default(message, wParam, lParam);
      Invalidate();
      return result;
    }
    case WM_SETFONT:
      m_font = reinterpret_cast<HFONT>(wParam);
      if (LOWORD(lParam)) Invalidate();
      return 0;
    case WM_GETFONT: return reinterpret_cast<LRESULT>(m_font);
    case WM_SETFOCUS:
      SetState(BST_FOCUS, true);
      if (Style() & BS_NOTIFY) Notify(BN_SETFOCUS);
      return 0;
    case WM_KILLFOCUS:
      if (m_byMouse && GetCapture() == Window()) ReleaseCapture();
      SetState(BST_PUSHED, false);
      SetState(BST_FOCUS, false);
      if (Style() & BS_NOTIFY) Notify(BN_KILLFOCUS);
      return 0;
    case WM_SYSCOLORCHANGE: Invalidate(); return 0;
    default: return HandleInput(message, wParam, lParam);
  }
}

}  // namespace desktop
