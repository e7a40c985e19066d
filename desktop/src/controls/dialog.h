// Dialogs: templates, and what the desktop knows of a window that is one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

namespace desktop {

// A window class or a title of a template: a name, or a number ("#123").
struct TemplateItem {
  DWORD helpId = 0;
  DWORD style = 0;
  DWORD exStyle = 0;
  int x = 0, y = 0, cx = 0, cy = 0;  // in dialog units
  DWORD id = 0;
  std::wstring className;
  std::wstring title;
  std::vector<BYTE> data;  // with its length in front, as WM_CREATE gets it
};

struct TemplateFont {
  WORD points = 0;
  WORD weight = FW_DONTCARE;
  bool italic = false;
  BYTE charset = DEFAULT_CHARSET;
  std::wstring face;
};

struct DialogTemplate {
  DWORD helpId = 0;
  DWORD style = 0;
  DWORD exStyle = 0;
  int x = 0, y = 0, cx = 0, cy = 0;
  std::wstring menu;
  std::wstring className;
  std::wstring title;
  std::optional<TemplateFont> font;
  std::vector<TemplateItem> items;
};

// Reads a DIALOG or DIALOGEX resource. Nothing when it is damaged.
std::optional<DialogTemplate> ReadDialogTemplate(const void* data);

struct DialogState {
  HFONT font = nullptr;
  SIZE units{};  // width of 4 and height of 8 dialog units
  INT_PTR result = 0;
  int defaultId = 0;
  bool ended = false;
  bool ownerEnabled = false;  // the owner was enabled before, and shall be again
  HWND focus = nullptr;       // to come back to when the dialog is activated
};

// The state of a dialog, or nothing. Takes the lock.
std::optional<DialogState> GetDialogState(HWND dialog);
// Changes it; creates it when there is none and the window lives. Takes the lock.
template <typename Change>
void ChangeDialogState(HWND dialog, Change change);
DialogState* DialogStateOf(HWND dialog, bool create);  // lock held
void ForgetDialog(HWND dialog);                        // frees the font too. Takes the lock.

// Sets the focus on a control, with all its text selected.
void FocusControl(HWND control);
// Gives a push button that gets the focus the look of the default one, and takes it from the others.
void UpdateDefaultButton(HWND dialog, HWND focused);

}  // namespace desktop

#include "world.h"

template <typename Change>
void desktop::ChangeDialogState(HWND dialog, Change change) {
  WorldLock lock(WorldMutex());
  if (DialogState* state = DialogStateOf(dialog, true)) change(*state);
}
