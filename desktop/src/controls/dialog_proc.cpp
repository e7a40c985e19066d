// Dialogs: the default procedure, the default button, the focus that comes back.
#include "controls/dialog.h"

#include <vector>

namespace desktop {

namespace {

bool HasCode(HWND control, LRESULT code) {
  return control && (SendMessageW(control, WM_GETDLGCODE, 0, 0) & code) != 0;
}

// All controls in order, with those of pages inside.
void Collect(HWND parent, std::vector<HWND>& controls) {
  for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    controls.push_back(child);
    if (GetWindowLongW(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) Collect(child, controls);
  }
}

HWND FindDefaultButton(HWND dialog) {
  std::vector<HWND> controls;
  Collect(dialog, controls);
  for (const HWND control : controls)
    if (HasCode(control, DLGC_DEFPUSHBUTTON)) return control;
  return nullptr;
}

void SetLook(HWND button, DWORD type) { SendMessageW(button, BM_SETSTYLE, type, TRUE); }

void SaveFocus(HWND dialog) {
  const HWND focus = GetFocus();
  if (!focus || !IsChild(dialog, focus)) return;
  ChangeDialogState(dialog, [=](DialogState& state) { state.focus = focus; });
}

void RestoreFocus(HWND dialog) {
  if (IsIconic(dialog)) return;
  const auto state = GetDialogState(dialog);
  if (!state || state->ended) return;
  HWND control = state->focus;
  if (!control || !IsWindow(control) || !IsChild(dialog, control) || !IsWindowVisible(control) ||
      !IsWindowEnabled(control)) {
    control = GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (!control) return;
    FocusControl(control);
  } else {
    SetFocus(control);
  }
  // Once is enough: from here on the focus is where the user puts it.
  ChangeDialogState(dialog, [](DialogState& changed) { changed.focus = nullptr; });
}

void SetDefaultId(HWND dialog, int id) {
  const HWND chosen = GetDlgItem(dialog, id);
  const HWND before = FindDefaultButton(dialog);
  ChangeDialogState(dialog, [=](DialogState& state) { state.defaultId = id; });
  if (before && before != chosen) SetLook(before, BS_PUSHBUTTON);
  if (HasCode(chosen, DLGC_UNDEFPUSHBUTTON)) SetLook(chosen, BS_DEFPUSHBUTTON);
}

LRESULT DefaultId(HWND dialog) {
  const auto state = GetDialogState(dialog);
  if (!state || state->ended) return 0;
  if (state->defaultId) return static_cast<DWORD>(MAKELONG(state->defaultId, DC_HASDEFID));
  const HWND button = FindDefaultButton(dialog);
  return button ? static_cast<DWORD>(MAKELONG(GetDlgCtrlID(button), DC_HASDEFID)) : 0;
}

LRESULT Erase(HWND dialog, HDC dc) {
  const auto param = reinterpret_cast<LPARAM>(dialog);
  auto* brush =
      reinterpret_cast<HBRUSH>(SendMessageW(dialog, WM_CTLCOLORDLG, reinterpret_cast<WPARAM>(dc), param));
  if (!brush)
    brush =
        reinterpret_cast<HBRUSH>(DefWindowProcW(dialog, WM_CTLCOLORDLG, reinterpret_cast<WPARAM>(dc), param));
  if (!brush) return 0;
  RECT rect{};
  GetClientRect(dialog, &rect);
  FillRect(dc, &rect, brush);
  return 1;
}

void NextControl(HWND dialog, WPARAM wParam, bool isControl) {
  const HWND control =
      isControl ? reinterpret_cast<HWND>(wParam) : GetNextDlgTabItem(dialog, GetFocus(), wParam != 0);
  if (control) FocusControl(control);
  UpdateDefaultButton(dialog, control);
}

LRESULT DefaultDialogMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND: return Erase(dialog, reinterpret_cast<HDC>(wParam));
    case WM_NCDESTROY: ForgetDialog(dialog); break;
    case WM_SHOWWINDOW:
      if (!wParam) SaveFocus(dialog);
      break;
    case WM_ACTIVATE:
      if (LOWORD(wParam))
        RestoreFocus(dialog);
      else
        SaveFocus(dialog);
      return 0;
    case WM_SETFOCUS: RestoreFocus(dialog); return 0;
    case DM_SETDEFID: SetDefaultId(dialog, static_cast<int>(wParam)); return 1;
    case DM_GETDEFID: return DefaultId(dialog);
    case WM_NEXTDLGCTL: NextControl(dialog, wParam, LOWORD(lParam) != 0); return 0;
    case WM_GETFONT: {
      const auto state = GetDialogState(dialog);
      return state ? reinterpret_cast<LRESULT>(state->font) : 0;
    }
    case WM_CLOSE:
      PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                   reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
      return 0;
    default: break;
  }
  return DefWindowProcW(dialog, message, wParam, lParam);
}

// The answer of a dialog procedure to these is the result itself.
bool AnswersDirectly(UINT message) {
  return (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) || message == WM_COMPAREITEM ||
         message == WM_VKEYTOITEM || message == WM_CHARTOITEM || message == WM_QUERYDRAGICON ||
         message == WM_INITDIALOG;
}

bool HasNoDefault(UINT message) {
  return message == WM_INITDIALOG || message == WM_VKEYTOITEM || message == WM_COMPAREITEM ||
         message == WM_CHARTOITEM;
}

}  // namespace

void UpdateDefaultButton(HWND dialog, HWND focused) {
  const auto state = GetDialogState(dialog);
  if (!state) return;
  const HWND before = FindDefaultButton(dialog);
  HWND wanted = state->defaultId ? GetDlgItem(dialog, state->defaultId) : nullptr;
  if (HasCode(focused, DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) wanted = focused;
  if (wanted == before) return;
  if (before) SetLook(before, BS_PUSHBUTTON);
  if (HasCode(wanted, DLGC_UNDEFPUSHBUTTON)) SetLook(wanted, BS_DEFPUSHBUTTON);
}

}  // namespace desktop

LRESULT DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  // A window of the class that no template has made is a dialog all the same.
  if (message == WM_NCCREATE) desktop::ChangeDialogState(dialog, [](desktop::DialogState&) {});
  const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrW(dialog, DWLP_DLGPROC));
  SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 0);
  const INT_PTR handled = procedure ? procedure(dialog, message, wParam, lParam) : 0;
  if (!handled && IsWindow(dialog)) {
    if (desktop::HasNoDefault(message)) return 0;
    return desktop::DefaultDialogMessage(dialog, message, wParam, lParam);
  }
  if (message == WM_NCDESTROY) desktop::ForgetDialog(dialog);
  if (desktop::AnswersDirectly(message)) return handled;
  return IsWindow(dialog) ? GetWindowLongPtrW(dialog, DWLP_MSGRESULT) : handled;
}
