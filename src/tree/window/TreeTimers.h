// Timers on the control's window; each is killed before it acts. Internal.
#pragma once

#include <windows.h>

namespace vorn {

inline constexpr UINT_PTR kEditTimer = 1;          // the delayed label edit
inline constexpr UINT_PTR kAutoExpandTimer = 2;    // of a drop target
inline constexpr UINT_PTR kTypeAheadTimer = 3;     // empties the letters typed; nothing starts it
inline constexpr int kDefaultEditDuration = 1500;  // milliseconds

}  // namespace vorn
