// Dialogs: the keyboard, and the order of controls.
#include "controls/dialog.h"

#include <algorithm>
#include <cwctype>
#include <vector>

#include "kernel/kernel.h"

namespace desktop {

namespace {

bool IsUsable(HWND control) {
  const LONG style = GetWindowLongW(control, GWL_STYLE);
  return (style & WS_VISIBLE) && !(style & WS_DISABLED);
}

bool HasPages(HWND control) { return (GetWindowLongW(control, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0; }

// The controls in the order of the Tab key. Pages stand for the controls in them.
void CollectTabOrder(HWND parent, std::vector<HWND>& controls) {
  for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!HasPages(child))
      controls.push_back(child);
    else if (IsUsable(child))
      CollectTabOrder(child, controls);
  }
}

// The control of the dialog that a window is in: an inner part of a control stands for it.
HWND ControlOfDialog(HWND dialog, HWND window) {
  while (window && window != dialog) {
    const HWND parent = GetParent(window);
    if (parent == dialog || (parent && HasPages(parent))) return window;
    window = parent;
  }
  return nullptr;
}

template <typename Accept>
HWND NextInOrder(const std::vector<HWND>& order, HWND control, bool previous, Accept accept) {
  const auto count = static_cast<int>(order.size());
  const auto found = std::find(order.begin(), order.end(), control);
  int at = found == order.end() ? (previous ? count : -1) : static_cast<int>(found - order.begin());
  for (int step = 0; step < count; ++step) {
    at = ((at + (previous ? -1 : 1)) % count + count) % count;
    if (accept(order[static_cast<size_t>(at)])) return order[static_cast<size_t>(at)];
  }
  return found == order.end() ? nullptr : control;
}

// The letter behind the last single '&' of a text, in capitals, or 0.
wchar_t Mnemonic(HWND control) {
  wchar_t text[256];
  GetWindowTextW(control, text, 256);
  for (const wchar_t* at = text; *at; ++at) {
    if (*at != L'&') continue;
    if (at[1] != L'&') return UpperCase(at[1]);
    ++at;
  }
  return 0;
}

// Whether the letters of this control's text are meant for the keyboard.
bool OffersMnemonic(HWND control, LRESULT code) {
  if (!IsUsable(control) || (code & DLGC_WANTCHARS)) return false;
  const LONG style = GetWindowLongW(control, GWL_STYLE);
  const bool isGroup = (code & DLGC_STATIC) && (style & BS_TYPEMASK) == BS_GROUPBOX;
  return isGroup || !(code & DLGC_STATIC) || !(style & SS_NOPREFIX);
}

void ActivateByLetter(HWND dialog, const std::vector<HWND>& order, HWND control, LRESULT code) {
  if (code & DLGC_BUTTON) {
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), 1);
    if (IsWindow(control)) SendMessageW(control, BM_CLICK, 0, 0);
    return;
  }
  // A label stands for the control behind it.
  if (code & DLGC_STATIC)
    control = NextInOrder(order, control, false, [](HWND next) {
      return IsUsable(next) && !(SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_STATIC);
    });
  if (control) SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), 1);
}

bool HandleLetter(HWND dialog, HWND from, wchar_t letter) {
  std::vector<HWND> order;
  CollectTabOrder(dialog, order);
  const wchar_t wanted = UpperCase(letter);
  LRESULT code = 0;
  const HWND found = NextInOrder(order, ControlOfDialog(dialog, from), false, [&](HWND control) {
    code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    return OffersMnemonic(control, code) && Mnemonic(control) == wanted;
  });
  if (!found || Mnemonic(found) != wanted) return false;
  ActivateByLetter(dialog, order, found, SendMessageW(found, WM_GETDLGCODE, 0, 0));
  return true;
}

void MoveByArrow(HWND dialog, const MSG& message) {
  const bool previous = message.wParam == VK_LEFT || message.wParam == VK_UP;
  const HWND next = GetNextDlgGroupItem(dialog, message.hwnd, previous);
  if (!next) return;
  const LRESULT code = SendMessageW(next, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  if (code != (DLGC_BUTTON | DLGC_RADIOBUTTON)) {
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), 1);
    return;
  }
  SetFocus(next);
  const bool chooses = (GetWindowLongW(next, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
  if (chooses && SendMessageW(next, BM_GETCHECK, 0, 0) != BST_CHECKED) SendMessageW(next, BM_CLICK, 1, 0);
}

void SendCommand(HWND dialog, int id) {
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

void Confirm(HWND dialog) {
  const HWND focus = GetFocus();
  if (focus && IsChild(dialog, focus) && (SendMessageW(focus, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON)) {
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(focus), BN_CLICKED),
                 reinterpret_cast<LPARAM>(focus));
    return;
  }
  const LRESULT answer = SendMessageW(dialog, DM_GETDEFID, 0, 0);
  if (HIWORD(answer) != DC_HASDEFID) return SendCommand(dialog, IDOK);
  const HWND button = GetDlgItem(dialog, LOWORD(answer));
  if (!button || IsWindowEnabled(button)) SendCommand(dialog, LOWORD(answer));
}

bool HandleKey(HWND dialog, const MSG& message) {
  const LRESULT code =
      SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  if (code & DLGC_WANTMESSAGE) return false;
  switch (message.wParam) {
    case VK_TAB:
      if (code & DLGC_WANTTAB) return false;
      SendMessageW(dialog, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0, 0);
      return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
      if (code & DLGC_WANTARROWS) return false;
      MoveByArrow(dialog, message);
      return true;
    case VK_ESCAPE:
    case VK_CANCEL: SendCommand(dialog, IDCANCEL); return true;
    case VK_RETURN:
    case VK_EXECUTE: Confirm(dialog); return true;
    default: return false;
  }
}

bool HandleCharacter(HWND dialog, const MSG& message) {
  if (message.message == WM_CHAR) {
    const LRESULT code =
        SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if (code & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) return false;
    if (message.wParam == L'\t' && (code & DLGC_WANTTAB)) return false;
  }
  return HandleLetter(dialog, message.hwnd, static_cast<wchar_t>(message.wParam));
}

// A page of a larger dialog passes the keyboard on to it.
HWND OutermostDialog(HWND dialog) {
  for (;;) {
    const LONG style = GetWindowLongW(dialog, GWL_STYLE);
    const HWND parent = (style & WS_CHILD) && (style & DS_CONTROL) ? GetParent(dialog) : nullptr;
    if (!parent || !GetDialogState(parent)) return dialog;
    dialog = parent;
  }
}

}  // namespace

}  // namespace desktop

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
  if (!IsWindow(dialog)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  std::vector<HWND> order;
  desktop::CollectTabOrder(dialog, order);
  const HWND from = desktop::ControlOfDialog(dialog, control);
  return desktop::NextInOrder(order, from, previous != FALSE, [](HWND candidate) {
    return desktop::IsUsable(candidate) && (GetWindowLongW(candidate, GWL_STYLE) & WS_TABSTOP);
  });
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
  if (!IsWindow(dialog)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  const HWND from = desktop::ControlOfDialog(dialog, control);
  const HWND parent = from ? GetParent(from) : dialog;
  // A group reaches from a control that begins one up to the next that does.
  std::vector<HWND> group;
  bool holdsControl = from == nullptr;
  for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if ((GetWindowLongW(child, GWL_STYLE) & WS_GROUP) && !group.empty()) {
      if (holdsControl) break;
      group.clear();
    }
    group.push_back(child);
    holdsControl |= child == from;
  }
  return desktop::NextInOrder(group, from, previous != FALSE, desktop::IsUsable);
}

BOOL IsDialogMessageW(HWND dialog, tagMSG* message) {
  if (!message || !IsWindow(dialog) || dialog == GetDesktopWindow()) return FALSE;
  if (CallMsgFilterW(message, MSGF_DIALOGBOX)) return TRUE;
  if (message->hwnd != dialog && !IsChild(dialog, message->hwnd)) return FALSE;
  const HWND target = desktop::OutermostDialog(dialog);
  const bool isKey = message->message == WM_KEYDOWN;
  const bool isCharacter = message->message == WM_CHAR || message->message == WM_SYSCHAR;
  if (isKey && desktop::HandleKey(target, *message)) return TRUE;
  if (isCharacter && desktop::HandleCharacter(target, *message)) return TRUE;
  TranslateMessage(message);
  DispatchMessageW(message);
  return TRUE;
}
