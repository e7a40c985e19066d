#include "ItemPool.h"

#include <algorithm>
#include <thread>

#include <windows.h>

#include <memoryapi.h>

#ifdef VORN_POISONS_ITEMS
#include <sanitizer/asan_interface.h>
#endif

namespace vorn {

namespace {

#ifdef VORN_POISONS_ITEMS
void Poison(std::uintptr_t memory, std::size_t size) {
  ASAN_POISON_MEMORY_REGION(reinterpret_cast<void*>(memory), size);
}
void Unpoison(std::uintptr_t memory, std::size_t size) {
  ASAN_UNPOISON_MEMORY_REGION(reinterpret_cast<void*>(memory), size);
}
#define VORN_TOUCHES_DEAD __attribute__((no_sanitize_address))
#else
void Poison(std::uintptr_t, std::size_t) {}
void Unpoison(std::uintptr_t, std::size_t) {}
#define VORN_TOUCHES_DEAD
#endif

constexpr std::size_t kWordSize = sizeof(unsigned int);

// What is asked for as a range of addresses, and what will do where addresses are short.
constexpr std::size_t kLargeRegion = std::size_t{8} << 30;
constexpr std::size_t kSmallestRegion = std::size_t{1} << 20;
constexpr std::size_t kMostRegions = 256;

// Memory comes in steps of this size at first, later of a part of what there is, so that little lies idle.
constexpr std::size_t kSmallestStep = 64 * 1024;
constexpr std::size_t kStepPart = 8;

using Region = vorn::ItemPool::Region;

// Dead slots, oldest first, linked through a word of theirs beside the magic word: one line of the
// processor's cache is touched and not two.
constexpr std::size_t kLinkOffset = 176;
constinit void* g_oldestDead = nullptr;
constinit void* g_newestDead = nullptr;
constinit std::size_t g_deadCount = 0;

constinit Region g_later[kMostRegions - 1];

// Changed under the lock, read without.
constinit std::atomic<std::size_t> g_liveCount{0};

void ChangeLiveCount(std::ptrdiff_t by) {
  const std::size_t count = g_liveCount.load(std::memory_order_relaxed);
  g_liveCount.store(count + static_cast<std::size_t>(by), std::memory_order_relaxed);
}

void** LinkOf(void* slot) { return reinterpret_cast<void**>(static_cast<char*>(slot) + kLinkOffset); }
VORN_TOUCHES_DEAD void SetNext(void* slot, void* next) { *LinkOf(slot) = next; }
VORN_TOUCHES_DEAD void* GetNext(void* slot) { return *LinkOf(slot); }

// Held for a few instructions at a time, so waiting is spinning.
class PoolLock {
 public:
  PoolLock() {
    while (s_busy.test_and_set(std::memory_order_acquire)) std::this_thread::yield();
  }
  ~PoolLock() { s_busy.clear(std::memory_order_release); }
  PoolLock(const PoolLock&) = delete;
  PoolLock& operator=(const PoolLock&) = delete;

 private:
  static constinit inline std::atomic_flag s_busy;
};

std::size_t RoundUp(std::size_t size) { return (size + kSmallestStep - 1) / kSmallestStep * kSmallestStep; }

void* Ask(std::uintptr_t address, std::size_t size, DWORD type) {
  return ::VirtualAlloc(reinterpret_cast<void*>(address), size, type, PAGE_READWRITE);
}

// Behind the earlier range if it may be: then later items go on having higher addresses.
bool ReserveRegion(Region& region, std::uintptr_t wanted) {
  for (std::size_t size = kLargeRegion; size >= kSmallestRegion; size /= 2) {
    void* memory = wanted ? Ask(wanted, size, MEM_RESERVE) : nullptr;
    if (!memory) memory = Ask(0, size, MEM_RESERVE);
    if (!memory) continue;
    region.size = size;
    region.committed = 0;
    region.used.store(0, std::memory_order_relaxed);
    region.begin.store(reinterpret_cast<std::uintptr_t>(memory), std::memory_order_relaxed);
    return true;
  }
  return false;
}

// Provides memory up to an offset. It is poisoned until slots are taken.
bool Commit(Region& region, std::uintptr_t end) {
  if (end <= region.committed) return true;
  const std::size_t missing = RoundUp(end - region.committed);
  const std::size_t part = std::max(missing, RoundUp(region.committed / kStepPart));
  const std::uintptr_t begin = region.begin + region.committed;
  for (std::size_t step : {part, missing}) {
    step = std::min(step, region.size - region.committed);
    if (!Ask(begin, step, MEM_COMMIT)) continue;
    Poison(begin, step);
    region.committed += step;
    return true;
  }
  return false;
}

void* TakeOldestDead() {
  void* const slot = g_oldestDead;
  g_oldestDead = GetNext(slot);
  --g_deadCount;
  Unpoison(reinterpret_cast<std::uintptr_t>(slot), ItemPool::kSlotSize);
  return slot;
}

// A slot of the region that was never handed out; null when it is full or memory is short.
void* TakeFrom(Region& region) {
  const std::uintptr_t begin = region.begin;
  const std::uintptr_t slot = NextUsableSlot(begin + region.used, begin + region.size, ItemPool::kSlotSize);
  if (!slot) return nullptr;
  const std::uintptr_t end = slot + ItemPool::kSlotSize - begin;
  if (!Commit(region, end)) return nullptr;
  Unpoison(slot, ItemPool::kSlotSize);
  region.used.store(end, std::memory_order_release);
  return reinterpret_cast<void*>(slot);
}

}  // namespace

constinit Region ItemPool::s_first;
constinit std::atomic<std::size_t> ItemPool::s_regionCount{0};

bool ItemPool::IsInLaterRegion(std::uintptr_t address) noexcept {
  const std::size_t later = s_regionCount.load(std::memory_order_acquire) - 1;
  for (std::size_t i = 0; i < later; ++i) {
    const std::uintptr_t used = g_later[i].used.load(std::memory_order_acquire);
    const std::uintptr_t offset = address - g_later[i].begin.load(std::memory_order_relaxed);
    if (offset < used) return offset % kSlotSize == 0;
  }
  return false;
}

void* ItemPool::TakeFresh() noexcept {
  const std::size_t count = s_regionCount.load(std::memory_order_relaxed);
  std::uintptr_t behind = 0;
  if (count > 0) {
    Region& newest = count == 1 ? s_first : g_later[count - 2];
    if (void* const slot = TakeFrom(newest)) return slot;
    behind = newest.begin + newest.size;
    // A region that has room left has met with a want of memory.
    if (NextUsableSlot(newest.begin + newest.used, behind, kSlotSize)) return nullptr;
  }
  if (count == kMostRegions) return nullptr;
  Region& region = count == 0 ? s_first : g_later[count - 1];
  if (!ReserveRegion(region, behind)) return nullptr;
  s_regionCount.store(count + 1, std::memory_order_release);
  return TakeFrom(region);
}

void* ItemPool::Allocate(std::size_t size) noexcept {
  if (size != kSlotSize) return nullptr;
  PoolLock lock;
  void* const slot = g_deadCount > kQuarantine ? TakeOldestDead() : TakeFresh();
  if (slot) ChangeLiveCount(1);
  return slot;
}

void ItemPool::Free(void* slot) noexcept {
  if (!slot) return;
  const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(slot);
  PoolLock lock;
  std::memset(static_cast<char*>(slot) + kMagicOffset, 0, kWordSize);
  SetNext(slot, nullptr);
  Poison(address, kMagicOffset);
  Poison(address + kMagicOffset + kWordSize, kSlotSize - kMagicOffset - kWordSize);
  if (g_deadCount > 0) {
    SetNext(g_newestDead, slot);
  } else {
    g_oldestDead = slot;
  }
  g_newestDead = slot;
  ++g_deadCount;
  ChangeLiveCount(-1);
}

std::size_t ItemPool::LiveCount() noexcept { return g_liveCount.load(std::memory_order_relaxed); }

void ItemPool::ReleaseIfUnused() noexcept {
  PoolLock lock;
  if (LiveCount() > 0) return;
  const std::size_t count = s_regionCount.exchange(0, std::memory_order_acq_rel);
  for (std::size_t i = 0; i < count; ++i) {
    Region& region = i == 0 ? s_first : g_later[i - 1];
    const std::uintptr_t begin = region.begin;
    region.used.store(0, std::memory_order_release);
    Unpoison(begin, region.committed);
    ::VirtualFree(reinterpret_cast<void*>(begin), 0, MEM_RELEASE);
  }
  g_oldestDead = g_newestDead = nullptr;
  g_deadCount = 0;
}

}  // namespace vorn
