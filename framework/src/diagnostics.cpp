// Tracing and assertions.
#include "afx.h"

#include <cstdio>
#include <cstdlib>

void AfxTrace(LPCWSTR pszFormat, ...) {
  CString text;
  va_list args;
  va_start(args, pszFormat);
  text.FormatV(pszFormat, args);
  va_end(args);
  ::OutputDebugStringW(text);
}

BOOL AfxAssertFailedLine(LPCSTR lpszFileName, int nLine) {
  CString text;
  text.Format(L"%S(%d): assertion failed\n", lpszFileName, nLine);
  ::OutputDebugStringW(text);
  std::fprintf(stderr, "%s(%d): assertion failed\n", lpszFileName, nLine);
  std::fflush(stderr);
  return TRUE;
}

void AfxDebugBreak() { std::abort(); }

// Other memory cannot be asked about by documented means; null and absurd sizes can.
BOOL AfxIsValidAddress(const void* lp, UINT_PTR, BOOL) { return lp != nullptr; }

BOOL AfxIsValidString(LPCWSTR lpsz, int) { return lpsz != nullptr; }
