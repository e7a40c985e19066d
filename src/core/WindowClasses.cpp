#include "WindowClasses.h"

#include <afxwin.h>

#include "Module.h"
#include "VornFunctions.h"

namespace {

int RegisterFor(HINSTANCE owner, unsigned int style, const wchar_t* className) {
  WNDCLASSW known{};
  if (::GetClassInfoW(owner, className, &known)) return 1;
  WNDCLASSW wanted{};
  wanted.style = style;
  wanted.lpfnWndProc = ::DefWindowProcW;
  wanted.hInstance = owner;
  wanted.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  wanted.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
  wanted.lpszClassName = className;
  return ::RegisterClassW(&wanted) != 0;
}

int Unregister(const wchar_t* className) {
  const BOOL ofLibrary = ::UnregisterClassW(className, vorn::ModuleInstance());
  const BOOL ofProgram = ::UnregisterClassW(className, AfxGetInstanceHandle());
  return ofLibrary || ofProgram;
}

}  // namespace

int AfxVornRegisterClass(unsigned int style, const wchar_t* className) {
  if (!className || !*className) return 0;
  // The class is the library's; but the framework and dialog templates name the program when they create a
  // window, so it is known there, too.
  const int forLibrary = RegisterFor(vorn::ModuleInstance(), style, className);
  const int forProgram = RegisterFor(AfxGetInstanceHandle(), style, className);
  return forLibrary && forProgram;
}

int AfxVornUnregisterClasses() {
  int result = Unregister(vorn::kToolTipClass);
  result |= Unregister(vorn::kBarClass);
  result |= Unregister(vorn::kReportWndClass);
  return result;
}
