// What the parts of the desktop share: the one lock, the failure points and the handle tables.
#pragma once

#include <mutex>

#include <windows.h>

namespace desktop {

// One lock guards all state of the desktop. Every API function takes it; no function of the
// desktop holds it while a window procedure, hook, timer procedure or callback of the host runs.
// Functions in this folder that are not API functions expect that the lock is held.
std::recursive_mutex& WorldMutex();
using WorldLock = std::lock_guard<std::recursive_mutex>;

// To be asked once by every API function that can fail for want of memory or handles (creation of
// windows, DCs, GDI objects, menus, image lists, timers, loading of resources...): true when a test
// has asked for this call to fail.
bool FailsHere();

}  // namespace desktop
