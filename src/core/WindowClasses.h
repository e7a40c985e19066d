// The names under which the library's window classes are registered. Internal.
#pragma once

namespace vorn {

inline constexpr wchar_t kTreeCtrlClass[] = L"VornLibrary::VornTreeCtrl";
inline constexpr wchar_t kBarClass[] = L"VornLibrary::VornBar";
inline constexpr wchar_t kToolTipClass[] = L"VornLibrary::VornToolTip";
inline constexpr wchar_t kReportWndClass[] = L"VornLibrary::VornReportWnd";

}  // namespace vorn
