// Numbers and words as French writes them. Blanks inside are no-break spaces.
#pragma once

#include <afxwin.h>

namespace french {

CString Number(long long value);  // 1 234 567
// "1 dossier", "2 dossiers"; zero takes the singular.
CString Count(long long number, LPCWSTR one, LPCWSTR many);
CString Quoted(LPCWSTR text);    // « text »
CString Seconds(double length);  // 0,84 s

}  // namespace french
