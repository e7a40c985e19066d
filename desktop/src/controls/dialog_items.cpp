// Dialogs: texts, numbers and checks of their controls; dialog units.
#include <cwchar>
#include <cwctype>
#include <string>

#include "controls/control.h"
#include "controls/dialog.h"

UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int size) {
  if (text && size > 0) *text = 0;
  const HWND control = GetDlgItem(dialog, id);
  return control ? static_cast<UINT>(GetWindowTextW(control, text, size)) : 0;
}

BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text) {
  const HWND control = GetDlgItem(dialog, id);
  return control && SetWindowTextW(control, text);
}

UINT GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned) {
  if (translated) *translated = FALSE;
  wchar_t text[30];
  if (!GetDlgItemTextW(dialog, id, text, 30)) return 0;
  wchar_t* end = nullptr;
  const long long value = wcstoll(text, &end, 10);
  while (iswspace(static_cast<wint_t>(*end))) ++end;
  const bool inRange =
      isSigned ? value >= INT32_MIN && value <= INT32_MAX : value >= 0 && value <= UINT32_MAX;
  if (end == text || *end || !inRange) return 0;
  if (translated) *translated = TRUE;
  return static_cast<UINT>(value);
}

BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned) {
  const std::wstring text = isSigned ? std::to_wstring(static_cast<int>(value)) : std::to_wstring(value);
  return SetDlgItemTextW(dialog, id, text.c_str());
}

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND control = GetDlgItem(dialog, id);
  return control ? SendMessageW(control, message, wParam, lParam) : 0;
}

BOOL CheckDlgButton(HWND dialog, int id, UINT check) {
  const HWND control = GetDlgItem(dialog, id);
  if (control) SendMessageW(control, BM_SETCHECK, check, 0);
  return control != nullptr;
}

UINT IsDlgButtonChecked(HWND dialog, int id) {
  return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL CheckRadioButton(HWND dialog, int first, int last, int check) {
  if (!IsWindow(dialog)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    const int id = GetDlgCtrlID(child);
    if (id >= first && id <= last) SendMessageW(child, BM_SETCHECK, id == check, 0);
  }
  return TRUE;
}

BOOL MapDialogRect(HWND dialog, LPRECT rect) {
  const auto state = desktop::GetDialogState(dialog);
  if (!state || !state->units.cx) {
    SetLastError(IsWindow(dialog) ? ERROR_WINDOW_NOT_DIALOG : ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  rect->left = MulDiv(rect->left, state->units.cx, 4);
  rect->right = MulDiv(rect->right, state->units.cx, 4);
  rect->top = MulDiv(rect->top, state->units.cy, 8);
  rect->bottom = MulDiv(rect->bottom, state->units.cy, 8);
  return TRUE;
}

LONG GetDialogBaseUnits() {
  const desktop::ControlDC dc(nullptr, static_cast<HFONT>(GetStockObject(SYSTEM_FONT)));
  const SIZE units = desktop::LetterSize(dc);
  return MAKELONG(units.cx, units.cy);
}
