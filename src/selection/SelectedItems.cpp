#include "SelectedItems.h"

#include <algorithm>
#include <functional>
#include <new>

namespace {

constexpr std::less<> kByAddress;

// false when memory is short: then the change has to be made at once.
bool Gather(std::vector<CVornTreeItem*>& list, CVornTreeItem* item) {
  try {
    list.push_back(item);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void SortOnce(std::vector<CVornTreeItem*>& items) {
  if (!std::is_sorted(items.begin(), items.end(), kByAddress)) {
    std::sort(items.begin(), items.end(), kByAddress);
  }
  items.erase(std::unique(items.begin(), items.end()), items.end());
}

}  // namespace

bool SelectedItems::IsLongAndOurs() const {
  return m_pShared != nullptr && m_pShared->m_nRefCount == 1 && m_pShared->m_nSize > kShortMove;
}

// Where an item is in the block, or belongs.
vorn::SearchResult SelectedItems::Place(const CVornTreeItem* item) const {
  const CVornTreeItem* const* const block = m_pShared->m_pData;
  return vorn::BinarySearch(
      m_pShared->m_nSize, [=](long i) { return kByAddress(block[i], item); },
      [=](long i) { return block[i] == item; });
}

int SelectedItems::Add(CVornTreeItem* const& item, long* index) {
  if (!m_dropped.empty() || index != nullptr) Settle();
  if (!IsLongAndOurs()) {
    Settle();
    return CVornTreeItemUserArray::Add(item, index);
  }
  CVornTreeItem* const added = item;
  const vorn::SearchResult place = Place(added);
  if (index != nullptr) *index = place.index;
  if (place.found) return 1;
  // With the room ready for all that is gathered, the merge cannot fail.
  const long long room = m_pShared->m_nSize + static_cast<long long>(m_added.size()) + 1;
  if (!m_pShared->Reserve(room)) return 0;
  if (index != nullptr || IsShortMove(place.index)) return m_pShared->Insert(added, place.index);
  if (Gather(m_added, added)) return 1;
  Settle();
  return CVornTreeItemUserArray::Add(added, nullptr);
}

CVornTreeItem** SelectedItems::Find(CVornTreeItem*& item) {
  Settle();
  return CVornTreeItemUserArray::Find(item);
}

void SelectedItems::Remove(long index, long count) {
  Settle();
  CVornTreeItemUserArray::Remove(index, count);
}

void SelectedItems::RemoveAll() {
  m_added.clear();
  m_dropped.clear();
  CVornTreeItemUserArray::RemoveAll();
}

void SelectedItems::Drop(CVornTreeItem* item) {
  if (!m_added.empty()) Settle();
  if (!IsLongAndOurs()) {
    if (CVornTreeItem** const place = Find(item)) RemoveAt(static_cast<long>(place - Array()));
    return;
  }
  const vorn::SearchResult place = Place(item);
  if (!place.found) return;
  if (!IsShortMove(place.index) && Gather(m_dropped, item)) return;
  CVornTreeItemUserArray::Remove(place.index, 1);
}

void SelectedItems::Settle() const {
  if (!m_added.empty()) MergeAdded();
  if (!m_dropped.empty()) SiftDropped();
}

// From the back: every element is moved once.
void SelectedItems::MergeAdded() const {
  SortOnce(m_added);
  CVornTreeItem** const block = m_pShared->m_pData;
  long stored = m_pShared->m_nSize;
  long added = static_cast<long>(m_added.size());
  long to = stored + added;
  m_pShared->m_nSize = static_cast<int>(to);
  while (added > 0) {
    CVornTreeItem* const item = m_added[static_cast<size_t>(added - 1)];
    if (stored > 0 && kByAddress(item, block[stored - 1])) {
      block[--to] = block[--stored];
    } else {
      block[--to] = item;
      --added;
    }
  }
  m_added.clear();
}

void SelectedItems::SiftDropped() const {
  SortOnce(m_dropped);
  CVornTreeItem** const begin = m_pShared->m_pData;
  CVornTreeItem** const end = begin + m_pShared->m_nSize;
  auto dropped = m_dropped.begin();
  CVornTreeItem** kept = begin;
  for (CVornTreeItem** at = begin; at != end; ++at) {
    while (dropped != m_dropped.end() && kByAddress(*dropped, *at)) ++dropped;
    const bool goes = dropped != m_dropped.end() && *dropped == *at;
    if (!goes) *kept++ = *at;
  }
  m_pShared->m_nSize = static_cast<int>(kept - begin);
  m_dropped.clear();
}
