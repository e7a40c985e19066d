// Dialogs: birth, modal loop, end.
#include "controls/dialog.h"

#include <algorithm>
#include <map>

#include "controls/control.h"
#include "kernel/resource.h"

namespace desktop {

namespace {

std::map<HWND, DialogState>& Dialogs() {
  static auto& dialogs = *new std::map<HWND, DialogState>;
  return dialogs;
}

// The fonts go with all other graphics objects.
const RegisterReset g_reset(0, [] { Dialogs().clear(); });

constexpr int kUseDefault = -32768;

HFONT MakeFont(const TemplateFont& font) {
  if (font.face.empty()) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
  }
  LOGFONTW wanted{};
  const HDC screen = GetDC(nullptr);
  wanted.lfHeight = -MulDiv(font.points, GetDeviceCaps(screen, LOGPIXELSY), 72);
  ReleaseDC(nullptr, screen);
  wanted.lfWeight = font.weight;
  wanted.lfItalic = font.italic;
  wanted.lfCharSet = font.charset;
  wanted.lfPitchAndFamily = FF_DONTCARE;
  lstrcpynW(wanted.lfFaceName, font.face.c_str(), LF_FACESIZE);
  return CreateFontIndirectW(&wanted);
}

SIZE UnitsOf(HFONT font) {
  const ControlDC dc(nullptr, font);
  return LetterSize(dc);
}

// The one that is disabled while a modal dialog of this owner is open.
HWND TopLevelOwner(HWND owner) {
  while (owner && (GetWindowLongW(owner, GWL_STYLE) & (WS_CHILD | static_cast<LONG>(WS_POPUP))) == WS_CHILD) {
    const HWND parent = GetParent(owner);
    if (!parent || parent == GetDesktopWindow()) break;
    owner = parent;
  }
  return owner;
}

// A dialog being made.
struct Birth {
  HINSTANCE module = nullptr;
  HWND owner = nullptr;
  DLGPROC procedure = nullptr;
  LPARAM param = 0;
  DialogTemplate shape;
  HFONT font = nullptr;
  SIZE units{};

  int X(int value) const { return MulDiv(value, units.cx, 4); }
  int Y(int value) const { return MulDiv(value, units.cy, 8); }
};

void FixStyles(DialogTemplate& shape) {
  if (shape.style & DS_MODALFRAME) shape.exStyle |= WS_EX_DLGMODALFRAME;
  if ((shape.style & DS_CONTROL) || !(shape.style & WS_CHILD)) shape.exStyle |= WS_EX_CONTROLPARENT;
  if (shape.style & DS_CONTROL) shape.style &= ~DWORD{WS_CAPTION | WS_SYSMENU};
  shape.style |= DS_3DLOOK;
}

// Where the window goes, from where its client area shall go.
RECT PlaceOf(const Birth& birth, bool hasMenu) {
  const DialogTemplate& shape = birth.shape;
  RECT rect{0, 0, birth.X(shape.cx), birth.Y(shape.cy)};
  AdjustWindowRectEx(&rect, shape.style, hasMenu, shape.exStyle);
  const SIZE size{rect.right - rect.left, rect.bottom - rect.top};
  if (shape.x == kUseDefault) return {CW_USEDEFAULT, CW_USEDEFAULT, size.cx, size.cy};
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  POINT at{};
  if (shape.style & DS_CENTER) {
    at = {(work.left + work.right - size.cx) / 2, (work.top + work.bottom - size.cy) / 2};
  } else {
    at = {rect.left + birth.X(shape.x), rect.top + birth.Y(shape.y)};
    if (!(shape.style & (WS_CHILD | DS_ABSALIGN)) && birth.owner) ClientToScreen(birth.owner, &at);
  }
  if (!(shape.style & WS_CHILD)) {
    // The whole of it on the screen, if that can be.
    at.x = std::max(std::min(at.x, work.right - size.cx), work.left);
    at.y = std::max(std::min(at.y, work.bottom - size.cy), work.top);
  }
  return {at.x, at.y, size.cx, size.cy};
}

LPCWSTR NullIfEmpty(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

bool MakeControl(const Birth& birth, HWND dialog, const TemplateItem& item) {
  const LPVOID data = item.data.empty() ? nullptr : const_cast<BYTE*>(item.data.data());
  const HWND control = CreateWindowExW(
      item.exStyle | WS_EX_NOPARENTNOTIFY, item.className.c_str(), item.title.c_str(), item.style | WS_CHILD,
      birth.X(item.x), birth.Y(item.y), birth.X(item.cx), birth.Y(item.cy), dialog,
      reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(item.id)), birth.module, data);
  if (!control) return (birth.shape.style & DS_NOFAILCREATE) != 0;
  if (birth.font) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(birth.font), 0);
  if (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) {
    // The last one that says that it is the default is.
    const auto state = GetDialogState(dialog);
    const HWND before = state && state->defaultId ? GetDlgItem(dialog, state->defaultId) : nullptr;
    if (before) SendMessageW(before, BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    ChangeDialogState(dialog, [&](DialogState& changed) { changed.defaultId = GetDlgCtrlID(control); });
  }
  return true;
}

HWND FirstControl(HWND dialog) {
  const HWND control = GetNextDlgTabItem(dialog, nullptr, FALSE);
  return control ? control : GetNextDlgGroupItem(dialog, nullptr, FALSE);
}

void Initialise(const Birth& birth, HWND dialog) {
  const DWORD style = birth.shape.style;
  const HWND first = FirstControl(dialog);
  const bool wantsFocus =
      SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), birth.param) != 0;
  if (wantsFocus && IsWindow(dialog) && (!(style & DS_CONTROL) || (style & WS_VISIBLE))) {
    // The order of controls may have changed meanwhile.
    if (const HWND control = FirstControl(dialog))
      FocusControl(control);
    else if (!(style & WS_CHILD))
      SetFocus(dialog);
  }
  if ((style & WS_VISIBLE) && IsWindow(dialog) && !(GetWindowLongW(dialog, GWL_STYLE) & WS_VISIBLE))
    ShowWindow(dialog, SW_SHOWNORMAL);
}

HWND MakeWindow(const Birth& birth) {
  const DialogTemplate& shape = birth.shape;
  const HMENU menu = shape.menu.empty() ? nullptr : LoadMenuW(birth.module, shape.menu.c_str());
  const RECT place = PlaceOf(birth, menu != nullptr);
  const LPCWSTR className = shape.className.empty() ? L"#32770" : shape.className.c_str();
  const HWND dialog = CreateWindowExW(shape.exStyle, className, NullIfEmpty(shape.title),
                                      shape.style & ~DWORD{WS_VISIBLE}, place.left, place.top, place.right,
                                      place.bottom, birth.owner, menu, birth.module, nullptr);
  if (!dialog && menu) DestroyMenu(menu);
  return dialog;
}

HWND CreateFromTemplate(Birth birth, bool modal) {
  FixStyles(birth.shape);
  HWND disabled = nullptr;
  if (modal && birth.owner) {
    birth.owner = TopLevelOwner(birth.owner);
    if (IsWindowEnabled(birth.owner)) {
      disabled = birth.owner;
      EnableWindow(disabled, FALSE);
    }
  }
  if (birth.shape.font) birth.font = MakeFont(*birth.shape.font);
  birth.units = UnitsOf(birth.font);
  const HWND dialog = MakeWindow(birth);
  if (!dialog) {
    if (birth.font) DeleteObject(birth.font);
    if (disabled) EnableWindow(disabled, TRUE);
    return nullptr;
  }
  ChangeDialogState(dialog, [&](DialogState& state) {
    state.font = birth.font;
    state.units = birth.units;
    state.ownerEnabled = disabled != nullptr;
  });
  SetWindowLongPtrW(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(birth.procedure));
  if (birth.font) SendMessageW(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(birth.font), 0);
  const bool complete =
      std::all_of(birth.shape.items.begin(), birth.shape.items.end(),
                  [&](const auto& item) { return IsWindow(dialog) && MakeControl(birth, dialog, item); });
  if (complete) {
    Initialise(birth, dialog);
    return dialog;
  }
  if (disabled) EnableWindow(disabled, TRUE);
  if (IsWindow(dialog)) DestroyWindow(dialog);
  return nullptr;
}

HWND CreateFrom(HINSTANCE module, const void* data, HWND owner, DLGPROC procedure, LPARAM param, bool modal) {
  auto shape = ReadDialogTemplate(data);
  if (!shape) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  Birth birth;
  birth.module = module;
  birth.owner = owner;
  birth.procedure = procedure;
  birth.param = param;
  birth.shape = std::move(*shape);
  return CreateFromTemplate(std::move(birth), modal);
}

bool HasEnded(HWND dialog) {
  const auto state = GetDialogState(dialog);
  return !state || state->ended;
}

// Waits for a message. The dialog shows itself at the latest when there is none for the first time.
bool NextMessage(HWND dialog, MSG& message, bool& shown) {
  if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return message.message != WM_QUIT;
  if (!shown) {
    shown = true;
    ShowWindow(dialog, SW_SHOWNORMAL);
  }
  const HWND owner = GetWindow(dialog, GW_OWNER);
  if (owner && !(GetWindowLongW(dialog, GWL_STYLE) & DS_NOIDLEMSG))
    SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(dialog));
  return GetMessageW(&message, nullptr, 0, 0) > 0;
}

INT_PTR RunModal(HWND dialog) {
  bool shown = false;
  while (!HasEnded(dialog)) {
    MSG message{};
    if (!NextMessage(dialog, message, shown)) {
      // The quit is for the loop outside.
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    if (!IsWindow(dialog)) return 0;
    if (HasEnded(dialog)) break;
    if (!IsDialogMessageW(dialog, &message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    if (!shown && message.message == WM_TIMER && IsWindow(dialog) && !HasEnded(dialog)) {
      shown = true;
      ShowWindow(dialog, SW_SHOWNORMAL);
    }
  }
  const auto state = GetDialogState(dialog);
  if (!state) return 0;
  const HWND owner = GetWindow(dialog, GW_OWNER);
  if (!state->ended && state->ownerEnabled && owner) EnableWindow(owner, TRUE);
  DestroyWindow(dialog);
  return state->result;
}

}  // namespace

DialogState* DialogStateOf(HWND dialog, bool create) {
  const auto found = Dialogs().find(dialog);
  if (found != Dialogs().end()) return &found->second;
  return create && IsWindow(dialog) ? &Dialogs()[dialog] : nullptr;
}

std::optional<DialogState> GetDialogState(HWND dialog) {
  WorldLock lock(WorldMutex());
  const DialogState* state = DialogStateOf(dialog, false);
  if (!state) return {};
  return *state;
}

void ForgetDialog(HWND dialog) {
  WorldLock lock(WorldMutex());
  const auto found = Dialogs().find(dialog);
  if (found == Dialogs().end()) return;
  if (found->second.font) DeleteObject(found->second.font);
  Dialogs().erase(found);
}

void FocusControl(HWND control) {
  if (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) SendMessageW(control, EM_SETSEL, 0, -1);
  SetFocus(control);
}

}  // namespace desktop

HWND CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATE dialogTemplate, HWND parent,
                                DLGPROC procedure, LPARAM param) {
  return desktop::CreateFrom(module, dialogTemplate, parent, procedure, param, false);
}

HWND CreateDialogParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure, LPARAM param) {
  const auto bytes = desktop::LoadBytes(module, name, RT_DIALOG);
  return bytes.data ? desktop::CreateFrom(module, bytes.data, parent, procedure, param, false) : nullptr;
}

INT_PTR DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATE dialogTemplate, HWND parent,
                                DLGPROC procedure, LPARAM param) {
  if (parent && !IsWindow(parent)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  const HWND dialog = desktop::CreateFrom(module, dialogTemplate, parent, procedure, param, true);
  return dialog ? desktop::RunModal(dialog) : -1;
}

INT_PTR DialogBoxParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure, LPARAM param) {
  const auto bytes = desktop::LoadBytes(module, name, RT_DIALOG);
  if (!bytes.data) return -1;
  return DialogBoxIndirectParamW(module, reinterpret_cast<LPCDLGTEMPLATE>(bytes.data), parent, procedure,
                                 param);
}

BOOL EndDialog(HWND dialog, INT_PTR result) {
  const auto state = desktop::GetDialogState(dialog);
  if (!state) {
    SetLastError(IsWindow(dialog) ? ERROR_WINDOW_NOT_DIALOG : ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  desktop::ChangeDialogState(dialog, [=](desktop::DialogState& changed) {
    changed.result = result;
    changed.ended = true;
  });
  const HWND owner = GetWindow(dialog, GW_OWNER);
  // First the owner, so that it can be activated when the dialog goes.
  if (state->ownerEnabled && owner) EnableWindow(owner, TRUE);
  SetWindowPos(dialog, nullptr, 0, 0, 0, 0,
               SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
  if (GetActiveWindow() == dialog && owner) SetActiveWindow(owner);
  // The loop may be waiting.
  PostMessageW(dialog, WM_NULL, 0, 0);
  return TRUE;
}
