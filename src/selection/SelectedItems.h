// The selected items of a manager, by address. Internal.
//
// An ordered block takes and loses elements at the price of all that lies behind them: the range of a
// million items in any other order than that of their addresses would take minutes. So changes in the
// midst of a long block are gathered here, and go into it all at once when somebody looks. Whoever shares
// the storage looks all the time: then each change is carried out at once.
#pragma once

#include <vector>

#include "../core/VornItemArrays.h"

class VORNCOMCTL_API SelectedItems : public CVornTreeItemUserArray {
 public:
  SelectedItems() = default;
  SelectedItems(const SelectedItems&) = delete;
  SelectedItems& operator=(const SelectedItems&) = delete;

  // As the sorted array's own.
  int Add(CVornTreeItem* const& item, long* index) override;
  CVornTreeItem** Find(CVornTreeItem*& item) override;
  using CVornTreeItemUserArray::Remove;
  void Remove(long index, long count) override;
  void RemoveAll() override;

  // Takes an item out, if it is in. The item may be dead.
  void Drop(CVornTreeItem* item);

  // Carries out what was gathered.
  void Settle() const;

  // These look.
  long GetSize() const { return Settled().GetSize(); }
  CVornTreeItem** Array() const { return Settled().Array(); }
  CVornTreeItem*& operator[](long index) const { return Settled()[index]; }
  CVornTreeItem*& ElementAt(long index) { return (*this)[index]; }
  CVornTreeItem* GetAt(long index) { return (*this)[index]; }
  // The same list as an array that does not know of anything gathered.
  const CVornTreeItemUserArray& Settled() const {
    Settle();
    return *this;
  }

 private:
  // Elements that are moved at once rather than gathered.
  static constexpr long kShortMove = 2048;

  bool IsLongAndOurs() const;
  vorn::SearchResult Place(const CVornTreeItem* item) const;
  bool IsShortMove(long index) const { return m_pShared->m_nSize - index <= kShortMove; }
  void MergeAdded() const;
  void SiftDropped() const;

  // One of the two is empty at any time.
  mutable std::vector<CVornTreeItem*> m_added;
  mutable std::vector<CVornTreeItem*> m_dropped;
};
