// The memory of tree items. Internal.
//
// A host may hand back an item that was deleted long ago. So that the question whether it still lives is
// always defined, items lie in slots that stay readable while the module is loaded: a dead slot keeps its
// magic word, cleared. Dead slots are used again in the order in which they died, and not before a
// number of younger ones has piled up behind them. In builds with the address sanitizer all of a dead
// slot but its magic word is poisoned, so that any other use of a dead item is caught.
//
// Slots are cut from one large range of addresses that is reserved beforehand and given memory as it is
// needed: items made one after another have rising addresses, and whether a pointer is a slot is told by
// two comparisons and a division.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#define VORN_POISONS_ITEMS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VORN_POISONS_ITEMS 1
#endif
#endif

namespace vorn {

// Pointers with all of bits 16 to 31 set are places (STI_ROOT, STI_FIRST, STI_LAST) and never items.
constexpr bool LooksLikePlace(std::uintptr_t address) { return ((address >> 16) & 0xFFFF) == 0xFFFF; }

// The first slot of size bytes, counted on from first, that fits in front of end and does not look like
// a place; 0 if there is none.
constexpr std::uintptr_t NextUsableSlot(std::uintptr_t first, std::uintptr_t end, std::size_t size) {
  for (; first < end && end - first >= size; first += size) {
    if (!LooksLikePlace(first)) return first;
  }
  return 0;
}

// One pool serves all items of the module, from any thread.
class ItemPool {
 public:
  // The shape of a slot, which is that of an item. Poisoning goes by eight bytes, so there the magic word
  // has eight of its own.
#ifdef VORN_POISONS_ITEMS
  static constexpr std::size_t kMagicAlignment = 8;
  static constexpr std::size_t kMagicOffset = 192;
  static constexpr std::size_t kSlotSize = 200;
#else
  static constexpr std::size_t kMagicAlignment = 4;
  static constexpr std::size_t kMagicOffset = 188;
  static constexpr std::size_t kSlotSize = 192;
#endif

  // How many younger dead slots a dead slot waits for before it is used again.
  static constexpr std::size_t kQuarantine = 4096;

  // A slot with undefined content, or null when memory is short or size is not that of a slot.
  static void* Allocate(std::size_t size) noexcept;

  // Takes a slot back and clears its magic word. Null is ignored.
  static void Free(void* slot) noexcept;

  // Whether a slot that was handed out at least once begins at p, living or dead.
  static bool Contains(const void* p) noexcept {
    const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(p);
    if (LooksLikePlace(address)) return false;
    const std::uintptr_t used = s_first.used.load(std::memory_order_acquire);
    const std::uintptr_t offset = address - s_first.begin.load(std::memory_order_relaxed);
    if (offset < used) return offset % kSlotSize == 0;
    return s_regionCount.load(std::memory_order_acquire) > 1 && IsInLaterRegion(address);
  }

  // A number for tables of slots, counted from 0 upward; kNoNumber for a few that have none.
  static constexpr std::size_t kNoNumber = static_cast<std::size_t>(-1);
  static std::size_t NumberOf(const void* slot) noexcept {
    const std::uintptr_t offset =
        reinterpret_cast<std::uintptr_t>(slot) - s_first.begin.load(std::memory_order_relaxed);
    return offset < s_first.used.load(std::memory_order_relaxed) ? offset / kSlotSize : kNoNumber;
  }

  // The magic word of the slot at p, which is 0 when it is dead; 0 for anything that is not a slot.
  static unsigned int ReadMagic(const void* p) noexcept {
    unsigned int magic = 0;
    if (Contains(p)) std::memcpy(&magic, static_cast<const char*>(p) + kMagicOffset, sizeof(magic));
    return magic;
  }

  // Slots in use. A leak detector cannot see items that nobody deletes, this can.
  static std::size_t LiveCount() noexcept;

  // Gives all memory back, unless slots are in use. For the unloading of the module.
  static void ReleaseIfUnused() noexcept;

  // A range of addresses. Ranges are only ever added, so that a reader needs no lock.
  struct Region {
    std::atomic<std::uintptr_t> begin{0};
    std::atomic<std::uintptr_t> used{0};  // bytes from begin on that were handed out at least once
    std::uintptr_t committed = 0;         // bytes that have memory
    std::uintptr_t size = 0;
  };

 private:
  static bool IsInLaterRegion(std::uintptr_t address) noexcept;
  static void* TakeFresh() noexcept;

  // One is enough for 40 million items.
  static Region s_first;
  static std::atomic<std::size_t> s_regionCount;
};

}  // namespace vorn
