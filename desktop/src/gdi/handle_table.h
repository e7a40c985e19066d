// Handles that name slots: 16 bits of slot, 12 bits of generation, 3 bits of table number. A slot
// is used again only after a thousand others, and then under another generation, so a stale handle fails.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace desktop {

template <typename Object>
class HandleTable {
 public:
  // number: 1 to 7, distinct for each table of the process.
  explicit HandleTable(unsigned number) : m_number(number) {}

  // The new handle; null when the table is full.
  void* Add(std::unique_ptr<Object> object) {
    size_t index = TakeSlot();
    if (index == kNoSlot) return nullptr;
    Slot& slot = m_slots[index];
    slot.object = std::move(object);
    ++m_live;
    return ToHandle(index, slot.generation);
  }

  // The object behind a handle; null for anything that is not a live handle of this table.
  Object* Find(const void* handle) const {
    auto value = reinterpret_cast<uintptr_t>(handle);
    size_t index = value & 0xffff;
    if (value >> 28 != m_number || index >= m_slots.size()) return nullptr;
    const Slot& slot = m_slots[index];
    return slot.generation == ((value >> 16) & kGenerationMask) ? slot.object.get() : nullptr;
  }

  // Takes the object out; its handle is dead from here on.
  std::unique_ptr<Object> Remove(const void* handle) {
    if (!Find(handle)) return nullptr;
    size_t index = reinterpret_cast<uintptr_t>(handle) & 0xffff;
    std::unique_ptr<Object> object = std::move(m_slots[index].object);
    Retire(index);
    return object;
  }

  template <typename Visit>
  void ForEach(Visit visit) {
    for (size_t i = 0; i < m_slots.size(); ++i) {
      if (m_slots[i].object) visit(ToHandle(i, m_slots[i].generation), *m_slots[i].object);
    }
  }

  int LiveCount() const { return m_live; }

 private:
  static constexpr size_t kNoSlot = ~size_t{0};
  static constexpr size_t kMaxSlots = 0x10000;
  static constexpr size_t kQuarantine = 1024;
  static constexpr unsigned kGenerationMask = 0xfff;

  struct Slot {
    std::unique_ptr<Object> object;
    unsigned generation = 1;
  };

  void* ToHandle(size_t index, unsigned generation) const {
    return reinterpret_cast<void*>((uintptr_t{m_number} << 28) | (uintptr_t{generation} << 16) | index);
  }

  size_t TakeSlot() {
    bool canGrow = m_slots.size() < kMaxSlots;
    if (m_free.size() > kQuarantine || (!canGrow && !m_free.empty())) {
      size_t index = m_free.front();
      m_free.pop_front();
      return index;
    }
    if (!canGrow) return kNoSlot;
    m_slots.emplace_back();
    return m_slots.size() - 1;
  }

  void Retire(size_t index) {
    unsigned& generation = m_slots[index].generation;
    generation = generation == kGenerationMask ? 1 : generation + 1;
    m_free.push_back(index);
    --m_live;
  }

  unsigned m_number;
  std::vector<Slot> m_slots;
  std::deque<size_t> m_free;
  int m_live = 0;
};

}  // namespace desktop
