#include "SortedRow.h"

#include <algorithm>

#include "WithMemory.h"

namespace vorn {

size_t SortedRow::Locate(long index, size_t* within) const {
  const auto after = std::upper_bound(m_starts.begin(), m_starts.end(), index);
  const size_t block = static_cast<size_t>(after - m_starts.begin()) - 1;
  *within = static_cast<size_t>(index - m_starts[block]);
  return block;
}

CVornTreeItem* SortedRow::At(long index) const {
  size_t within;
  const size_t block = Locate(index, &within);
  return m_blocks[block][within];
}

void SortedRow::Insert(CVornTreeItem* item, long index) {
  if (m_blocks.empty()) {
    m_starts.reserve(1);
    m_blocks.emplace_back();
    m_starts.push_back(0);
  }
  size_t within;
  size_t block = Locate(index, &within);
  std::vector<CVornTreeItem*>& items = m_blocks[block];
  items.insert(items.begin() + static_cast<std::ptrdiff_t>(within), item);
  ++m_size;
  for (size_t i = block + 1; i < m_starts.size(); ++i) ++m_starts[i];
  if (items.size() >= kFullBlock) Split(block);
}

// A block that cannot be split for lack of memory stays whole and goes on growing.
void SortedRow::Split(size_t block) {
  std::vector<CVornTreeItem*> rest;
  const long half = static_cast<long>(m_blocks[block].size() / 2);
  const bool hasRoom = RunWithMemory([&] {
    m_blocks.reserve(m_blocks.size() + 1);
    m_starts.reserve(m_starts.size() + 1);
    rest.assign(m_blocks[block].begin() + half, m_blocks[block].end());
  });
  if (!hasRoom) return;
  m_blocks[block].resize(static_cast<size_t>(half));
  const auto place = static_cast<std::ptrdiff_t>(block + 1);
  m_blocks.insert(m_blocks.begin() + place, std::move(rest));
  m_starts.insert(m_starts.begin() + place, m_starts[block] + half);
}

}  // namespace vorn
