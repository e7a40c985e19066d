// The classes of the standard controls.
#include <commctrl.h>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/controls.h"
#include "controls/edit.h"
#include "controls/list_box.h"
#include "controls/menu_view.h"
#include "controls/progress_bar.h"
#include "controls/static.h"
#include "controls/status_bar.h"

namespace desktop {

void RegisterControlClasses() {
  constexpr int kPointer = sizeof(void*);
  constexpr UINT kRedraw = CS_VREDRAW | CS_HREDRAW;
  RegisterControl(L"Button", CS_DBLCLKS | kRedraw | CS_PARENTDC, ControlProc<Button>, kPointer, IDC_ARROW,
                  nullptr);
  RegisterControl(L"ComboBox", CS_DBLCLKS | kRedraw | CS_PARENTDC, ControlProc<ComboBox>, kPointer, IDC_ARROW,
                  nullptr);
  RegisterControl(L"ComboLBox", CS_DBLCLKS | CS_SAVEBITS, ControlProc<ComboList>, kPointer, IDC_ARROW,
                  nullptr);
  RegisterControl(L"Edit", CS_DBLCLKS | CS_PARENTDC, ControlProc<Edit>, kPointer, IDC_IBEAM, nullptr);
  RegisterControl(L"ListBox", CS_DBLCLKS, ControlProc<ListBox>, kPointer, IDC_ARROW, nullptr);
  RegisterControl(L"Static", CS_DBLCLKS | CS_PARENTDC, ControlProc<Static>, kPointer, IDC_ARROW, nullptr);
  RegisterControl(L"#32770", CS_SAVEBITS | CS_DBLCLKS, DefDlgProcW, DLGWINDOWEXTRA, IDC_ARROW, nullptr);
  RegisterControl(MAKEINTATOM(32768), CS_DBLCLKS | CS_SAVEBITS, PopupProc, kPointer, IDC_ARROW,
                  GetSysColorBrush(COLOR_MENU));
  RegisterControl(STATUSCLASSNAMEW, CS_DBLCLKS | kRedraw, ControlProc<StatusBar>, kPointer, IDC_ARROW,
                  GetSysColorBrush(COLOR_3DFACE));
  RegisterControl(PROGRESS_CLASSW, kRedraw, ControlProc<ProgressBar>, kPointer, IDC_ARROW, nullptr);
}

}  // namespace desktop
