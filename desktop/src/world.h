// What the parts of the desktop share: the one lock, the failure points and the handle tables.
#pragma once

#include <mutex>

#include <windows.h>

namespace desktop {

// A recursive mutex that knows how deep the calling thread holds it.
class WorldMutexType {
 public:
  void lock();
  void unlock();
  // For a wait on a condition: the lock must be held once, by the calling thread.
  std::mutex& native() { return m_mutex; }
  static int Depth();

 private:
  std::mutex m_mutex;
};

// One lock guards all state of the desktop. Every API function takes it; no function of the
// desktop holds it while a window procedure, hook, timer procedure or callback of the host runs.
// Functions in this folder that are not API functions expect that the lock is held.
WorldMutexType& WorldMutex();
using WorldLock = std::lock_guard<WorldMutexType>;

// To be asked once by every API function that can fail for want of memory or handles (creation of
// windows, DCs, GDI objects, menus, image lists, timers, loading of resources...): true when a test
// has asked for this call to fail.
bool FailsHere();

// What a part has to do when the desktop is reset, and what it adds to the counts of live objects.
// The parts register themselves from static objects; resets run in ascending order: controls and
// menus first (0), then windows (100), then drawing (200).
using ResetHook = void (*)();
struct RegisterReset {
  RegisterReset(int order, ResetHook hook);
};
enum class Counted { menus, imageLists };
using CountHook = int (*)();
struct RegisterCount {
  RegisterCount(Counted what, CountHook hook);
};

}  // namespace desktop
