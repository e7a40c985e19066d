#include "SortedRow.h"

#include <algorithm>

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
    m_blocks.emplace_back();
    m_starts.push_back(0);
  }
  size_t within;
  size_t block = Locate(index, &within);
  std::vector<CVornTreeItem*>& items = m_blocks[block];
  items.insert(items.begin() + static_cast<std::ptrdiff_t>(within), item);
  ++m_size;
  for (size_t i = block + 1; i < m_starts.size(); ++i) ++m_starts[i];
  if (items.size() < kFullBlock) return;
  const long half = static_cast<long>(items.size() / 2);
  std::vector<CVornTreeItem*> rest(items.begin() + half, items.end());
  items.resize(static_cast<size_t>(half));
  const auto place = static_cast<std::ptrdiff_t>(block + 1);
  m_blocks.insert(m_blocks.begin() + place, std::move(rest));
  m_starts.insert(m_starts.begin() + place, m_starts[block] + half);
}

}  // namespace vorn
