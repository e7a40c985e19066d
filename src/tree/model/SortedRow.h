// A row of items that takes insertions anywhere and gives access by index, both without moving all that
// lies behind. Internal.
#pragma once

#include <cstddef>
#include <vector>

class CVornTreeItem;

namespace vorn {

class SortedRow {
 public:
  long GetSize() const { return m_size; }
  CVornTreeItem* At(long index) const;
  // Throws std::bad_alloc when memory is short, and then the row is as it was.
  void Insert(CVornTreeItem* item, long index);
  template <class Visit>
  void ForEach(Visit visit) const {
    for (const auto& block : m_blocks) {
      for (CVornTreeItem* item : block) visit(item);
    }
  }

 private:
  static constexpr size_t kFullBlock = 2048;

  // The block that holds index (or takes an insertion there), and the index within it.
  size_t Locate(long index, size_t* within) const;

  void Split(size_t block);

  std::vector<std::vector<CVornTreeItem*>> m_blocks;
  std::vector<long> m_starts;  // index of each block's first item
  long m_size = 0;
};

}  // namespace vorn
