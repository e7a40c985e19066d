#include "edit_menu.h"

#include <afxwin.h>

#include "resource.h"

unsigned int ShowEditMenu(HWND box, int x, int y, int) {
  CMenu menu;
  if (!menu.LoadMenu(IDR_EDIT_CONTEXT)) return 0;
  if (x == -1 && y == -1) {
    // By key: under the box.
    CRect place;
    ::GetWindowRect(box, place);
    x = place.left;
    y = place.bottom;
  }
  const BOOL command =
      menu.GetSubMenu(0)->TrackPopupMenu(TPM_RETURNCMD | TPM_RIGHTBUTTON, x, y, CWnd::FromHandle(box));
  return static_cast<unsigned int>(command);
}
