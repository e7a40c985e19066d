#include "world.h"

#include <algorithm>
#include <atomic>
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

bool AllocationFailsHere() {
  if (t_depth > 0) return false;
  const long seen = g_allocationsSeen.fetch_add(1, std::memory_order_relaxed) + 1;
  return seen == g_failingAllocation.load(std::memory_order_relaxed);
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
