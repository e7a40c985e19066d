#include "WindowClasses.h"

#include <afxwin.h>

#include "Module.h"
#include "VornFunctions.h"

int AfxVornRegisterClass(unsigned int style, const wchar_t* className) {
  if (!className) return 0;
  const HINSTANCE module = vorn::ModuleInstance();
  WNDCLASSW known{};
  if (::GetClassInfoW(module, className, &known)) return 1;
  WNDCLASSW wanted{};
  wanted.style = style;
  wanted.lpfnWndProc = ::DefWindowProcW;
  wanted.hInstance = module;
  wanted.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  wanted.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
  wanted.lpszClassName = className;
  return ::RegisterClassW(&wanted) != 0;
}

int AfxVornUnregisterClasses() {
  const HINSTANCE module = vorn::ModuleInstance();
  int result = ::UnregisterClassW(vorn::kToolTipClass, module);
  result |= ::UnregisterClassW(vorn::kBarClass, module);
  result |= ::UnregisterClassW(vorn::kReportWndClass, module);
  return result;
}
