#include "RowIndex.h"

#include <algorithm>
#include <new>

#include "../../core/ItemPool.h"
#include "../model/VornTreeItem.h"

namespace vorn {

namespace {

bool IsOpen(const CVornTreeItem* item) { return item->m_pFirstChild != nullptr && item->IsExpanded(); }

}  // namespace

// --- Building --------------------------------------------------------------------------------------

void RowIndex::Clear() {
  m_blocks.clear();
  m_order.clear();
  m_extents.clear();
  m_count = 0;
}

bool RowIndex::Prepare(CVornTreeItem* root) {
  m_changes = 0;
  if (m_state != State::Stale) return m_state == State::Ready;
  m_state = State::Inexact;
  try {
    Clear();
    if (Build(root)) m_state = State::Ready;
  } catch (const std::bad_alloc&) {
    m_state = State::Stale;
  }
  if (m_state != State::Ready) Clear();
  return m_state == State::Ready;
}

// false when the counts are not exact: a closed item that counts rows, an open one that counts others than
// it has, a hidden one that counts any (the walk backward would enter it).
bool RowIndex::Build(CVornTreeItem* root) {
  if (!IsOpen(root)) return root->m_nVisibleDescendants == 0;
  std::vector<int> before = {0};  // rows before those of each open item on the way down
  CVornTreeItem* item = root->m_pFirstChild;
  while (true) {
    const bool isRow = !item->IsHidden();
    if (isRow) Append(item);
    if (isRow && IsOpen(item)) {
      before.push_back(m_count);
      item = item->m_pFirstChild;
      continue;
    }
    if (item->m_nVisibleDescendants != 0) return false;
    while (item->m_pNextSibling == nullptr) {
      item = item->m_pParent;
      if (item->m_nVisibleDescendants != m_count - before.back()) return false;
      if (item == root) return true;
      before.pop_back();
    }
    item = item->m_pNextSibling;
  }
}

void RowIndex::Append(CVornTreeItem* item) {
  if (m_order.empty() || m_extents.back().count == static_cast<int>(kFreshBlock)) AddBlock(m_order.size());
  BlockAt(m_order.size() - 1).rows.push_back(item);
  NoteBlock(item, m_order.back());
  ++m_extents.back().count;
  ++m_count;
}

void RowIndex::NoteBlock(const CVornTreeItem* item, unsigned number) {
  const size_t slot = ItemPool::NumberOf(item);
  if (slot == ItemPool::kNoNumber) throw std::bad_alloc();  // beyond all bounds
  if (slot >= m_blockOf.size()) m_blockOf.resize(slot + slot / 8 + 1);
  m_blockOf[slot] = number;
}

void RowIndex::AddBlock(size_t ordinal) {
  auto block = std::make_unique<Block>();
  block->ordinal = ordinal;
  block->rows.reserve(kFullBlock);
  m_blocks.push_back(std::move(block));
  m_order.insert(m_order.begin() + static_cast<std::ptrdiff_t>(ordinal),
                 static_cast<unsigned>(m_blocks.size() - 1));
  m_extents.insert(m_extents.begin() + static_cast<std::ptrdiff_t>(ordinal), Extent{});
}

void RowIndex::Renumber(size_t first) {
  for (size_t i = first; i < m_order.size(); ++i) BlockAt(i).ordinal = i;
}

// --- Answers ---------------------------------------------------------------------------------------

CVornTreeItem* RowIndex::At(int index) const {
  if (index < 0 || index >= m_count) return nullptr;
  size_t ordinal = 0;
  while (index >= m_extents[ordinal].count) index -= m_extents[ordinal++].count;
  return BlockAt(ordinal).rows[static_cast<size_t>(index)];
}

const RowIndex::Block* RowIndex::BlockOf(const CVornTreeItem* item, size_t* within) const {
  const size_t slot = ItemPool::NumberOf(item);
  if (slot >= m_blockOf.size() || m_blockOf[slot] >= m_blocks.size()) return nullptr;
  const Block* const block = m_blocks[m_blockOf[slot]].get();
  const auto found = std::find(block->rows.begin(), block->rows.end(), item);
  if (found == block->rows.end()) return nullptr;
  *within = static_cast<size_t>(found - block->rows.begin());
  return block;
}

int RowIndex::IndexOf(const CVornTreeItem* item) const {
  size_t within;
  const Block* const block = BlockOf(item, &within);
  if (block == nullptr) return -1;
  int index = static_cast<int>(within);
  for (size_t i = 0; i < block->ordinal; ++i) index += m_extents[i].count;
  return index;
}

void RowIndex::Measure(size_t ordinal) {
  Extent& extent = m_extents[ordinal];
  extent.height = extent.widest = 0;
  for (CVornTreeItem* row : BlockAt(ordinal).rows) {
    extent.height += row->GetItemHeight();
    extent.widest = std::max(extent.widest, row->GetItemRight());
  }
  extent.known = true;
}

void RowIndex::GetExtent(int& widest, int& height) {
  widest = height = 0;
  for (size_t i = 0; i < m_extents.size(); ++i) {
    if (!m_extents[i].known) Measure(i);
    height += m_extents[i].height;
    widest = std::max(widest, m_extents[i].widest);
  }
}

// --- News ------------------------------------------------------------------------------------------

// false: it has become stale.
bool RowIndex::CountChange() {
  if (m_state == State::Ready && ++m_changes <= kMostChanges) return true;
  m_state = State::Stale;
  return false;
}

// The number that a new child of an open item gets. -1: not known.
int RowIndex::PlaceFor(const CVornTreeItem* root, const CVornTreeItem* item) const {
  const CVornTreeItem* before = item->GetPrevVisibleSibling();
  if (before == nullptr) return item->m_pParent == root ? 0 : IndexOf(item->m_pParent) + 1;
  const int index = IndexOf(before);
  return index < 0 ? -1 : index + 1 + before->m_nVisibleDescendants;
}

void RowIndex::OnLinked(CVornTreeItem* root, CVornTreeItem* item) {
  const CVornTreeItem* const parent = item->m_pParent;
  const bool parentShows = parent == root || IndexOf(parent) >= 0;
  if (!parentShows || item->m_nVisibleDescendants != 0 || IsOpen(item)) {
    SetStale();
    return;
  }
  if (item->IsHidden() || !parent->IsExpanded() || !CountChange()) return;
  const int place = PlaceFor(root, item);
  if (place < 0 || place > m_count) {
    SetStale();
    return;
  }
  try {
    Insert(item, place);
  } catch (const std::bad_alloc&) {
    SetStale();
  }
}

void RowIndex::OnUnlinking(CVornTreeItem* root, CVornTreeItem* item) {
  const int index = IndexOf(item);
  if (index >= 0) {
    const int rows = 1 + item->m_nVisibleDescendants;
    if (rows < 1 || rows > m_count - index) {
      SetStale();
    } else if (CountChange()) {
      Remove(index, rows);
    }
    return;
  }
  // What is no row and hangs on a row changes nothing; with anything else counts may move.
  const CVornTreeItem* const parent = item->m_pParent;
  if (parent != root && IndexOf(parent) < 0) SetStale();
}

void RowIndex::OnResized(const CVornTreeItem* item) {
  size_t within;
  if (const Block* const block = BlockOf(item, &within)) m_extents[block->ordinal].known = false;
}

void RowIndex::OnAllResized() {
  for (Extent& extent : m_extents) extent.known = false;
}

void RowIndex::Split(size_t ordinal) {
  AddBlock(ordinal + 1);
  std::vector<CVornTreeItem*>& rows = BlockAt(ordinal).rows;
  std::vector<CVornTreeItem*>& moved = BlockAt(ordinal + 1).rows;
  const size_t half = rows.size() / 2;
  moved.assign(rows.begin() + static_cast<std::ptrdiff_t>(half), rows.end());
  rows.resize(half);
  for (CVornTreeItem* row : moved) NoteBlock(row, m_order[ordinal + 1]);
  m_extents[ordinal] = Extent{static_cast<int>(half), 0, 0, false};
  m_extents[ordinal + 1].count = static_cast<int>(moved.size());
  Renumber(ordinal + 1);
}

void RowIndex::Insert(CVornTreeItem* item, int index) {
  if (m_order.empty()) AddBlock(0);
  size_t ordinal = 0;
  while (index > m_extents[ordinal].count) index -= m_extents[ordinal++].count;
  if (BlockAt(ordinal).rows.size() == kFullBlock) {
    Split(ordinal);
    if (index > m_extents[ordinal].count) index -= m_extents[ordinal++].count;
  }
  std::vector<CVornTreeItem*>& rows = BlockAt(ordinal).rows;
  rows.insert(rows.begin() + index, item);
  NoteBlock(item, m_order[ordinal]);
  m_extents[ordinal].known = false;
  ++m_extents[ordinal].count;
  ++m_count;
}

void RowIndex::Remove(int index, int count) {
  size_t ordinal = 0;
  while (index >= m_extents[ordinal].count) index -= m_extents[ordinal++].count;
  m_count -= count;
  bool emptied = false;
  for (; count > 0 && ordinal < m_order.size(); ++ordinal, index = 0) {
    Extent& extent = m_extents[ordinal];
    std::vector<CVornTreeItem*>& rows = BlockAt(ordinal).rows;
    const int here = std::min(count, extent.count - index);
    rows.erase(rows.begin() + index, rows.begin() + index + here);
    extent.count -= here;
    extent.known = false;
    count -= here;
    emptied = emptied || extent.count == 0;
  }
  if (!emptied) return;
  size_t kept = 0;
  for (size_t i = 0; i < m_order.size(); ++i) {
    if (m_extents[i].count == 0) {
      std::vector<CVornTreeItem*>().swap(BlockAt(i).rows);
      continue;
    }
    m_order[kept] = m_order[i];
    m_extents[kept++] = m_extents[i];
  }
  m_order.resize(kept);
  m_extents.resize(kept);
  Renumber(0);
}

}  // namespace vorn
