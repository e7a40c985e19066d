// The arrays of tree items: plain, by label, and by the application's data. None owns its items.
#pragma once

#include "VornComCtlApi.h"
#include "VornSortedArray.h"

class CVornTreeCtrl;
class CVornTreeItem;

// Items in the order in which they were added. An index past the end gives null.
class VORNCOMCTL_API CVornTreeItemArray : public TVornArray<CVornTreeItem*> {
 public:
  CVornTreeItemArray();
  explicit CVornTreeItemArray(VornNoStorage);
  // Copies the elements. There is no cheaper move: moving copies, or on assignment shares, too.
  CVornTreeItemArray(const CVornTreeItemArray& source);
  CVornTreeItemArray& operator=(const CVornTreeItemArray& source);
};

// Items in the order of their labels, letter case apart. AddByValue stores, Search and FindAdv take a
// label; a null label counts as an empty one.
class VORNCOMCTL_API CTreeItemNameArray : public TVornSortedArray_byValue<CVornTreeItem*, const wchar_t*> {
 public:
  explicit CTreeItemNameArray(unsigned int flags = 0);
  CTreeItemNameArray(const CTreeItemNameArray& source);
  CTreeItemNameArray& operator=(const CTreeItemNameArray& source);

  // The item's label, valid until it changes. false for an item that is not valid.
  bool GetValue(CVornTreeItem*& item, const wchar_t*& value) override;
  int IsLowerAdv(CVornTreeItem*& item, const wchar_t*& value) override;
  int IsEqualAdv(CVornTreeItem*& item, const wchar_t*& value) override;

 private:
  [[maybe_unused]] unsigned int m_nFlags;  // kept for callers that pass something; nothing reads it
};

// Items in the order that the application's compare function gives to their data. Without a function
// or a tree, in the order of their addresses.
class VORNCOMCTL_API CVornTreeItemUserArray : public TVornSortedArray_ByData<CVornTreeItem*> {
 public:
  // Below 0: an item with data1 comes before one with data2; 0: they count as the same item.
  using CompareFunction = int (*)(LPARAM data1, LPARAM data2, LPARAM param);

  CVornTreeItemUserArray();
  CVornTreeItemUserArray(const CVornTreeItemUserArray& source);
  CVornTreeItemUserArray& operator=(const CVornTreeItemUserArray& source);

  // How elements compare: tree is asked for their data, param is passed on with each comparison. To be
  // set while the array is empty.
  void SetCompare(CVornTreeCtrl* tree, CompareFunction compare, LPARAM param);

  int Add(CVornTreeItem* const& item, long* index) override;
  int Insert(CVornTreeItem* const& item, long index) override;
  CVornTreeItem** Find(CVornTreeItem*& item) override;
  int IsLower(CVornTreeItem*& a, CVornTreeItem*& b) override;
  int IsEqual(CVornTreeItem*& a, CVornTreeItem*& b) override;

 private:
  int Compare(CVornTreeItem* a, CVornTreeItem* b) const;

  LPARAM m_lParam = 0;
  CompareFunction m_pfnCompare = nullptr;
  CVornTreeCtrl* m_pTree = nullptr;
};
