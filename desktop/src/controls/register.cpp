// The classes of the standard controls.
#include "controls/controls.h"

#include "controls/button.h"
#include "controls/edit.h"
#include "controls/menu_view.h"
#include "controls/static.h"

namespace desktop {

void RegisterControlClasses() {
  constexpr int kPointer = sizeof(void*);
  RegisterControl(L"Button", CS_DBLCLKS | CS_VREDRAW | CS_HREDRAW | CS_PARENTDC, ControlProc<Button>,
                  kPointer, IDC_ARROW, nullptr);
  RegisterControl(L"Static", CS_DBLCLKS | CS_PARENTDC, ControlProc<Static>, kPointer, IDC_ARROW, nullptr);
  RegisterControl(L"#32770", CS_SAVEBITS | CS_DBLCLKS, DefDlgProcW, DLGWINDOWEXTRA, IDC_ARROW, nullptr);
  RegisterControl(MAKEINTATOM(32768), CS_DBLCLKS | CS_SAVEBITS, PopupProc, kPointer, IDC_ARROW,
                  GetSysColorBrush(COLOR_MENU));
  RegisterControl(L"Edit", CS_DBLCLKS, ControlProc<Edit>, kPointer, IDC_IBEAM, nullptr);
}

}  // namespace desktop
