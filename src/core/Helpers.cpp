// Free helpers that hosts call; nothing in the library depends on VornStrCmp's order.
#include "VornFunctions.h"

#include <afxwin.h>

#include <cctype>
#include <cwchar>

#include "WindowClasses.h"

namespace {

// The C library's narrow tolower and isdigit, which know nothing above one byte.
wchar_t NarrowToLower(wchar_t c) {
  const auto code = static_cast<unsigned int>(c);
  return code <= 0xFF ? static_cast<wchar_t>(std::tolower(static_cast<int>(code))) : c;
}

bool IsNarrowDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

}  // namespace

int VornStrCmp(const wchar_t* a, const wchar_t* b) {
  if (!a || !b) return -1;
  // Meant: there is no 0. The end of either text, so also equality, counts as lower.
  for (; *a && *b; ++a, ++b) {
    const wchar_t lowerA = NarrowToLower(*a);
    const wchar_t lowerB = NarrowToLower(*b);
    if (*a == *b || lowerA == lowerB) continue;
    if (IsNarrowDigit(*a) && IsNarrowDigit(*b)) return *a < *b ? -1 : 1;
    return lowerA < lowerB ? -1 : 1;
  }
  return -1;
}

int IsKeyPress(int virtualKey) { return ::GetAsyncKeyState(virtualKey) < 0; }

int VornIsApplicationActive(const CWnd* wnd) {
  const CWnd* const active = CWnd::FromHandle(::GetActiveWindow());
  if (!wnd || !wnd->GetSafeHwnd() || !active) return 0;
  return wnd->GetTopLevelParent()->GetSafeHwnd() == active->GetTopLevelParent()->GetSafeHwnd();
}

int VornIsTreeCtrlWindow(HWND hwnd) {
  wchar_t name[260];
  if (!hwnd || !::GetClassNameW(hwnd, name, static_cast<int>(std::size(name)))) return 0;
  return std::wcscmp(name, vorn::kTreeCtrlClass) == 0;
}

int VornWindowGetWorkingArea(RECT* rect) {
  if (!rect) return 0;
  rect->left = ::GetSystemMetrics(SM_XVIRTUALSCREEN);
  rect->top = ::GetSystemMetrics(SM_YVIRTUALSCREEN);
  rect->right = rect->left + ::GetSystemMetrics(SM_CXVIRTUALSCREEN);
  rect->bottom = rect->top + ::GetSystemMetrics(SM_CYVIRTUALSCREEN);
  return 1;
}
