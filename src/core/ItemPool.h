// The memory of tree items. Internal.
//
// A host may hand back an item that was deleted long ago. So that the question whether it still lives is
// always defined, items lie in slots that stay readable while the module is loaded: a dead slot keeps its
// magic word, cleared. Dead slots are used again in the order in which they died, and not before a
// number of younger ones has piled up behind them. In builds with the address sanitizer all of a dead
// slot but its magic word is poisoned, so that any other use of a dead item is caught.
#pragma once

#include <cstddef>
#include <cstdint>

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
  static bool Contains(const void* p) noexcept;

  // The magic word of the slot at p, which is 0 when it is dead; 0 for anything that is not a slot.
  static unsigned int ReadMagic(const void* p) noexcept;

  // Slots in use. A leak detector cannot see items that nobody deletes, this can.
  static std::size_t LiveCount() noexcept;

  // Gives all memory back, unless slots are in use. For the unloading of the module.
  static void ReleaseIfUnused() noexcept;
};

}  // namespace vorn
