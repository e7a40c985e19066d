#include "world.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <utility>
#include <vector>

#include "desktop/desktop.h"
#include "gdi/window_dc.h"
#include "user/live.h"

namespace desktop {

namespace {

thread_local int t_depth = 0;

std::atomic<long> g_callsSeen{0};
std::atomic<long> g_failingCall{0};
std::atomic<long> g_allocationsSeen{0};
std::atomic<long> g_failingAllocation{0};

std::vector<std::pair<int, ResetHook>>& ResetHooks() {
  static std::vector<std::pair<int, ResetHook>> hooks;
  return hooks;
}

std::vector<std::pair<Counted, CountHook>>& CountHooks() {
  static std::vector<std::pair<Counted, CountHook>> hooks;
  return hooks;
}

int CountOf(Counted what) {
  int count = 0;
  for (const auto& [kind, hook] : CountHooks())
    if (kind == what) count += hook();
  return count;
}

}  // namespace

void WorldMutexType::lock() {
  if (t_depth == 0) m_mutex.lock();
  ++t_depth;
}

void WorldMutexType::unlock() {
  if (--t_depth == 0) m_mutex.unlock();
}

int WorldMutexType::Depth() { return t_depth; }

WorldMutexType& WorldMutex() {
  // Never destroyed: threads and static objects of programs outlive any order of ours.
  static auto& mutex = *new WorldMutexType;
  return mutex;
}

bool FailsHere() {
  const long seen = g_callsSeen.fetch_add(1, std::memory_order_relaxed) + 1;
  return seen == g_failingCall.load(std::memory_order_relaxed);
}

void FailNthCall(long n) {
  g_callsSeen = 0;
  g_failingCall = n;
}

long CallsSeen() { return g_callsSeen; }

void FailNthAllocation(long n) {
  g_allocationsSeen = 0;
  g_failingAllocation = n;
}

long AllocationsSeen() { return g_allocationsSeen; }

namespace {

// The module that an address of code lies in; null if it is none.
const void* ModuleOf(const void* address) {
  Dl_info info = {};
  return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

// Whether the desktop itself asks for memory, straight or through the C++ library: outside of the lock
// its controls and its copies of texts do so too.
bool AsksForItself(const void* caller) {
  const void* const own = ModuleOf(reinterpret_cast<const void*>(&FailsHere));
  const void* const library = ModuleOf(reinterpret_cast<const void*>(&std::terminate));
  const void* module = ModuleOf(caller);
  if (module != library) return module == own;

  void* frames[32];
  const int count = backtrace(frames, 32);
  int i = 0;
  while (i < count && frames[i] != caller) ++i;
  while (i < count && (module = ModuleOf(frames[i])) == library) ++i;
  return i < count && module == own;
}

}  // namespace

bool AllocationFailsHere(const void* caller) {
  const long failing = g_failingAllocation.load(std::memory_order_relaxed);
  if (t_depth > 0 || failing == 0 || AsksForItself(caller)) return false;
  const long seen = g_allocationsSeen.fetch_add(1, std::memory_order_relaxed) + 1;
  return seen == failing;
}

RegisterReset::RegisterReset(int order, ResetHook hook) {
  auto& hooks = ResetHooks();
  const auto after = [](const auto& entry, int value) { return entry.first < value; };
  hooks.insert(std::lower_bound(hooks.begin(), hooks.end(), order + 1, after), {order, hook});
}

RegisterCount::RegisterCount(Counted what, CountHook hook) { CountHooks().emplace_back(what, hook); }

void Reset() {
  WorldLock lock(WorldMutex());
  for (const auto& [order, hook] : ResetHooks()) hook();
  ResetGdi();
  FailNthCall(0);
  FailNthAllocation(0);
}

LiveCounts CountLive() {
  WorldLock lock(WorldMutex());
  return {LiveWindows(), LiveGdiObjects(),        LiveDCs(),
          LiveTimers(),  CountOf(Counted::menus), LiveImageLists() + CountOf(Counted::imageLists)};
}

}  // namespace desktop
