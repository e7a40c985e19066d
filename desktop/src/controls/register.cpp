// The classes of the standard controls.
#include <commctrl.h>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/controls.h"
#include "controls/edit.h"
#include "controls/list_box.h"
#include "controls/menu_view.h"
#include "controls/progress_bar.h"
#include "controls/scroll_bar_control.h"
#include "controls/static.h"
#include "controls/status_bar.h"

namespace desktop {

namespace {

HBRUSH ColorBrush(int color) { return reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(color + 1)); }

}  // namespace

void RegisterControlClasses() {
  constexpr int kPointer = sizeof(void*);
  constexpr UINT kRedraw = CS_VREDRAW | CS_HREDRAW;
  constexpr UINT kBoth = CS_DBLCLKS | CS_PARENTDC;
  RegisterControl(L"Button", kBoth | kRedraw, ControlProc<Button>, 20, IDC_ARROW, nullptr);
  RegisterControl(L"ComboBox", kBoth | kRedraw, ControlProc<ComboBox>, kPointer, IDC_ARROW, nullptr);
  RegisterControl(L"ComboLBox", CS_DBLCLKS | CS_SAVEBITS, ControlProc<ComboList>, kPointer, IDC_ARROW,
                  nullptr);
  RegisterControl(L"Edit", kBoth, ControlProc<Edit>, kPointer, IDC_IBEAM, nullptr);
  RegisterControl(L"ListBox", CS_DBLCLKS, ControlProc<ListBox>, kPointer, IDC_ARROW, nullptr);
  RegisterControl(L"ScrollBar", kBoth | kRedraw, ControlProc<ScrollBarControl>, 28, IDC_ARROW, nullptr);
  RegisterControl(L"Static", kBoth, ControlProc<Static>, 16, IDC_ARROW, nullptr);
  RegisterControl(L"#32770", CS_SAVEBITS | CS_DBLCLKS, DefDlgProcW, DLGWINDOWEXTRA, IDC_ARROW, nullptr);
  RegisterControl(MAKEINTATOM(32768), CS_DBLCLKS | CS_SAVEBITS | CS_DROPSHADOW, PopupProc, kPointer,
                  IDC_ARROW, ColorBrush(COLOR_MENU));
  RegisterControl(STATUSCLASSNAMEW, CS_GLOBALCLASS | CS_DBLCLKS | CS_VREDRAW, ControlProc<StatusBar>,
                  kPointer, IDC_ARROW, ColorBrush(COLOR_3DFACE));
  RegisterControl(PROGRESS_CLASSW, CS_GLOBALCLASS | kRedraw, ControlProc<ProgressBar>, kPointer, IDC_ARROW,
                  nullptr);
}

}  // namespace desktop
