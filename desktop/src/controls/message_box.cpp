// Message boxes: a dialog built for the text at hand.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/dialog.h"

namespace desktop {

namespace {

constexpr int kTextId = 0xFFFF;
constexpr int kIconId = 1088;
constexpr int kGap = 12;  // around and between the parts, in pixels
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;
constexpr int kButtonGap = 6;

struct Request {
  LPCWSTR text = L"";
  UINT type = MB_OK;
  std::vector<int> buttons;
};

std::vector<int> ButtonsOf(UINT type) {
  switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL: return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE: return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL: return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO: return {IDYES, IDNO};
    case MB_RETRYCANCEL: return {IDRETRY, IDCANCEL};
    default: return {IDOK};
  }
}

LPCWSTR TextOfButton(int id) {
  switch (id) {
    case IDCANCEL: return L"Cancel";
    case IDABORT: return L"&Abort";
    case IDRETRY: return L"&Retry";
    case IDIGNORE: return L"&Ignore";
    case IDYES: return L"&Yes";
    case IDNO: return L"&No";
    default: return L"OK";
  }
}

LPCWSTR IconOf(UINT type) {
  switch (type & MB_ICONMASK) {
    case MB_ICONHAND: return IDI_HAND;
    case MB_ICONQUESTION: return IDI_QUESTION;
    case MB_ICONEXCLAMATION: return IDI_EXCLAMATION;
    case MB_ICONASTERISK: return IDI_ASTERISK;
    default: return nullptr;
  }
}

HWND AddControl(HWND dialog, LPCWSTR className, LPCWSTR text, DWORD style, RECT place, int id) {
  const HWND control = CreateWindowExW(0, className, text, style | WS_CHILD | WS_VISIBLE, place.left,
                                       place.top, place.right - place.left, place.bottom - place.top, dialog,
                                       reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)), nullptr, nullptr);
  const LRESULT font = SendMessageW(dialog, WM_GETFONT, 0, 0);
  if (control && font) SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), 0);
  return control;
}

RECT MeasureText(HWND dialog, const std::wstring& text) {
  const ControlDC dc(dialog, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
  RECT rect{0, 0, GetSystemMetrics(SM_CXSCREEN) / 2, 0};
  if (!text.empty())
    DrawTextW(dc, text.c_str(), -1, &rect, DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
  return rect;
}

// Icon at the left, text beside it, buttons in a row below, all in the middle of the screen.
void LayOut(HWND dialog, const Request& request) {
  const LPCWSTR icon = IconOf(request.type);
  const int iconSize = icon ? GetSystemMetrics(SM_CXICON) : 0;
  const RECT text = MeasureText(dialog, request.text);
  const auto count = static_cast<int>(request.buttons.size());
  const int buttonsWidth = count * kButtonWidth + (count - 1) * kButtonGap;
  const int textLeft = kGap + (icon ? iconSize + kGap : 0);
  const int width = std::max<int>(textLeft + text.right + kGap, buttonsWidth + 2 * kGap);
  const int bodyHeight = std::max<int>(iconSize, text.bottom);
  const int buttonTop = kGap + bodyHeight + kGap;
  if (icon) {
    const HWND control = AddControl(dialog, L"Static", nullptr, SS_ICON,
                                    {kGap, kGap, kGap + iconSize, kGap + iconSize}, kIconId);
    SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, icon)), 0);
  }
  const int textTop = kGap + (bodyHeight - text.bottom) / 2;
  AddControl(dialog, L"Static", request.text, SS_NOPREFIX,
             {textLeft, textTop, textLeft + text.right, textTop + text.bottom}, kTextId);
  const int chosen = std::min<int>(static_cast<int>((request.type & MB_DEFMASK) >> 8), count - 1);
  int x = (width - buttonsWidth) / 2;
  for (int i = 0; i < count; ++i, x += kButtonWidth + kButtonGap)
    AddControl(dialog, L"Button", TextOfButton(request.buttons[static_cast<size_t>(i)]),
               WS_TABSTOP | (i == 0 ? WS_GROUP : 0) | (i == chosen ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
               {x, buttonTop, x + kButtonWidth, buttonTop + kButtonHeight},
               request.buttons[static_cast<size_t>(i)]);

  RECT frame{0, 0, width, buttonTop + kButtonHeight + kGap};
  AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(dialog, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongW(dialog, GWL_EXSTYLE)));
  const int cx = frame.right - frame.left;
  const int cy = frame.bottom - frame.top;
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  SetWindowPos(dialog, (request.type & (MB_TOPMOST | MB_SYSTEMMODAL)) ? HWND_TOPMOST : nullptr,
               (work.left + work.right - cx) / 2, (work.top + work.bottom - cy) / 2, cx, cy,
               SWP_NOACTIVATE | ((request.type & (MB_TOPMOST | MB_SYSTEMMODAL)) ? 0 : SWP_NOZORDER));
  const int defaultId = request.buttons[static_cast<size_t>(chosen)];
  ChangeDialogState(dialog, [=](DialogState& state) { state.defaultId = defaultId; });
  SetFocus(GetDlgItem(dialog, defaultId));
}

bool Offers(const Request& request, int id) {
  return std::find(request.buttons.begin(), request.buttons.end(), id) != request.buttons.end();
}

INT_PTR CALLBACK BoxProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      SetWindowLongPtrW(dialog, DWLP_USER, lParam);
      LayOut(dialog, *reinterpret_cast<const Request*>(lParam));
      return FALSE;
    case WM_COMMAND: {
      const auto* request = reinterpret_cast<const Request*>(GetWindowLongPtrW(dialog, DWLP_USER));
      const int id = LOWORD(wParam);
      if (Offers(*request, id)) EndDialog(dialog, id);
      // A box with nothing but OK is closed by Escape as well.
      else if (id == IDCANCEL && request->buttons.size() == 1)
        EndDialog(dialog, IDOK);
      return TRUE;
    }
    default: return FALSE;
  }
}

void Put(std::vector<WORD>& out, DWORD value) {
  out.push_back(LOWORD(value));
  out.push_back(HIWORD(value));
}

// A template without controls: they come when the text is measured.
std::vector<WORD> EmptyTemplate(const std::wstring& caption) {
  constexpr WORD kMessageFont = 0x7FFF;
  std::vector<WORD> out;
  Put(out, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_MODALFRAME | DS_SETFONT | DS_NOIDLEMSG |
               DS_ABSALIGN);
  Put(out, 0);
  out.insert(out.end(), {0, 0, 0, 100, 80, 0, 0});
  for (const wchar_t character : caption) out.push_back(static_cast<WORD>(character));
  out.insert(out.end(), {0, kMessageFont});
  return out;
}

}  // namespace

}  // namespace desktop

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
  if (owner && !IsWindow(owner)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  desktop::Request request;
  if (text) request.text = text;
  request.type = type;
  request.buttons = desktop::ButtonsOf(type);
  const std::vector<WORD> shape = desktop::EmptyTemplate(caption ? caption : L"Error");
  const INT_PTR result = DialogBoxIndirectParamW(nullptr, reinterpret_cast<LPCDLGTEMPLATE>(shape.data()),
                                                 owner, desktop::BoxProc, reinterpret_cast<LPARAM>(&request));
  return result < 0 ? 0 : static_cast<int>(result);
}

BOOL MessageBeep(UINT) { return TRUE; }
