// What the framework's own files need of a CWnd's protected part. Private to the framework.
#pragma once

#include "afxpriv.h"
#include "afxwin.h"
#include "gdiobj_maps.h"

namespace vornfw {

struct WndAccess {
  static LRESULT WindowProc(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window.WindowProc(message, wParam, lParam);
  }
  static WNDPROC& FormerProcedure(CWnd& window) { return *window.GetSuperWndProcAddr(); }
  static void PostNcDestroy(CWnd& window) { window.PostNcDestroy(); }
  static const AFX_MSGMAP* MessageMap(const CWnd& window) { return window.GetMessageMap(); }
  static UINT& Flags(CWnd& window) { return window.m_nFlags; }
};

}  // namespace vornfw

namespace framework {

using vornfw::WndAccess;
using WindowOwners = OwnerMap<CWnd, HWND>;

WindowOwners& OwnersOfWindows();

// The temporary wrapper of a window as one of class Kind; null if memory is short.
using WindowTemporaries = TemporaryTable<CWnd, HWND, &CWnd::m_hWnd>;

// Puts the framework's procedure in front of the window's own, which the object keeps.
bool InstallProcedure(CWnd& window);

// Makes the next window that this thread creates pWnd's. False if the hook cannot be set.
bool BeginCreation(CWnd* pWnd);
// True if a window was created and taken over since.
bool EndCreation();

// Ends an exception: runs no code of the host.
inline void Discard(CException* exception) { exception->Delete(); }

// Runs function and gives its result, or failed if it throws.
template <class Function, class Result>
Result OrOnException(Function function, Result failed) {
  try {
    return function();
  } catch (CException* exception) {
    Discard(exception);
  } catch (...) {
  }
  return failed;
}

}  // namespace framework
