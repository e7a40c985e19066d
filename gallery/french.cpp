#include "french.h"

namespace french {

CString Number(long long value) {
  CString digits;
  digits.Format(L"%I64d", value);
  const int first = value < 0 ? 1 : 0;
  for (int at = digits.GetLength() - 3; at > first; at -= 3) digits.Insert(at, L'\u00A0');
  return digits;
}

CString Count(long long number, LPCWSTR one, LPCWSTR many) {
  return Number(number) + L'\u00A0' + (number >= -1 && number <= 1 ? one : many);
}

CString Quoted(LPCWSTR text) { return CString(L"«\u00A0") + text + L"\u00A0»"; }

CString Seconds(double length) {
  CString text;
  text.Format(L"%.2f\u00A0s", length);
  text.Replace(L'.', L',');
  return text;
}

}  // namespace french
