#include "ItemPool.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <new>
#include <thread>

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

// The first chunk has this size; later ones a quarter of all before, so that there are few of them and
// little lies idle.
constexpr std::size_t kSmallestChunk = 64 * 1024;
constexpr std::size_t kMostChunks = 128;

struct Chunk {
  std::uintptr_t begin = 0;
  std::uintptr_t end = 0;
  std::atomic<std::uintptr_t> used{0};  // slots below were handed out at least once
};

// Chunks are only ever added, so that a reader needs no lock.
constinit Chunk g_chunks[kMostChunks];
constinit std::atomic<std::size_t> g_chunkCount{0};
constinit std::size_t g_totalSize = 0;

// Dead slots, oldest first, linked through a word of theirs beside the magic word: one line of the
// processor's cache is touched and not two.
constexpr std::size_t kLinkOffset = 176;
constinit void* g_oldestDead = nullptr;
constinit void* g_newestDead = nullptr;
constinit std::size_t g_deadCount = 0;

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

bool AddChunk() {
  const std::size_t count = g_chunkCount.load(std::memory_order_relaxed);
  if (count == kMostChunks) return false;
  const std::size_t size = std::max(kSmallestChunk, g_totalSize / 4);
  void* const memory = ::operator new(size, std::nothrow);
  if (!memory) return false;
  Chunk& chunk = g_chunks[count];
  chunk.begin = reinterpret_cast<std::uintptr_t>(memory);
  chunk.end = chunk.begin + size;
  chunk.used.store(chunk.begin, std::memory_order_relaxed);
  Poison(chunk.begin, size);
  g_totalSize += size;
  g_chunkCount.store(count + 1, std::memory_order_release);
  return true;
}

void* TakeFresh() {
  for (;;) {
    const std::size_t count = g_chunkCount.load(std::memory_order_relaxed);
    if (count > 0) {
      Chunk& newest = g_chunks[count - 1];
      const std::uintptr_t slot = NextUsableSlot(newest.used, newest.end, ItemPool::kSlotSize);
      if (slot) {
        Unpoison(slot, ItemPool::kSlotSize);
        std::memset(reinterpret_cast<char*>(slot) + ItemPool::kMagicOffset, 0, kWordSize);
        newest.used.store(slot + ItemPool::kSlotSize, std::memory_order_release);
        return reinterpret_cast<void*>(slot);
      }
    }
    if (!AddChunk()) return nullptr;
  }
}

void* TakeOldestDead() {
  void* const slot = g_oldestDead;
  g_oldestDead = GetNext(slot);
  --g_deadCount;
  Unpoison(reinterpret_cast<std::uintptr_t>(slot), ItemPool::kSlotSize);
  return slot;
}

// Items that are asked for one after another mostly lie in one chunk.
constinit std::atomic<std::size_t> g_lastFound{0};

const Chunk* ChunkOf(std::uintptr_t address) {
  const auto holds = [address](const Chunk& chunk) { return chunk.begin <= address && address < chunk.end; };
  const std::size_t count = g_chunkCount.load(std::memory_order_acquire);
  const std::size_t last = g_lastFound.load(std::memory_order_relaxed);
  if (last < count && holds(g_chunks[last])) return &g_chunks[last];
  for (std::size_t i = count; i-- > 0;) {
    if (!holds(g_chunks[i])) continue;
    g_lastFound.store(i, std::memory_order_relaxed);
    return &g_chunks[i];
  }
  return nullptr;
}

}  // namespace

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

bool ItemPool::Contains(const void* p) noexcept {
  const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(p);
  const Chunk* const chunk = LooksLikePlace(address) ? nullptr : ChunkOf(address);
  return chunk && address < chunk->used.load(std::memory_order_acquire) &&
         (address - chunk->begin) % kSlotSize == 0;
}

unsigned int ItemPool::ReadMagic(const void* p) noexcept {
  if (!Contains(p)) return 0;
  unsigned int magic;
  std::memcpy(&magic, static_cast<const char*>(p) + kMagicOffset, kWordSize);
  return magic;
}

std::size_t ItemPool::LiveCount() noexcept { return g_liveCount.load(std::memory_order_relaxed); }

void ItemPool::ReleaseIfUnused() noexcept {
  PoolLock lock;
  if (LiveCount() > 0) return;
  const std::size_t count = g_chunkCount.exchange(0, std::memory_order_acq_rel);
  for (std::size_t i = 0; i < count; ++i) {
    Unpoison(g_chunks[i].begin, g_chunks[i].end - g_chunks[i].begin);
    ::operator delete(reinterpret_cast<void*>(g_chunks[i].begin));
  }
  g_totalSize = 0;
  g_oldestDead = g_newestDead = nullptr;
  g_deadCount = 0;
}

}  // namespace vorn
