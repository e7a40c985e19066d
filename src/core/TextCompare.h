// Comparison of labels without letter case. Internal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cwctype>

namespace vorn {

// Compares by towlower of each character, at most count of them: below 0, 0 or above 0. A null text is
// an empty one.
inline int CompareNoCase(const wchar_t* a, const wchar_t* b, std::size_t count = SIZE_MAX) {
  if (!a) a = L"";
  if (!b) b = L"";
  for (; count > 0; ++a, ++b, --count) {
    const std::wint_t lowerA = std::towlower(static_cast<std::wint_t>(*a));
    const std::wint_t lowerB = std::towlower(static_cast<std::wint_t>(*b));
    if (lowerA != lowerB) return lowerA < lowerB ? -1 : 1;
    if (*a == 0) return 0;
  }
  return 0;
}

}  // namespace vorn
