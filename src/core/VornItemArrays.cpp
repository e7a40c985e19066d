#include "VornItemArrays.h"

#include "TextCompare.h"
#include "../tree/VornTreeCtrl.h"
#include "../tree/model/VornTreeItem.h"

// ---- Plain -------------------------------------------------------------------------------------------

CVornTreeItemArray::CVornTreeItemArray() = default;

CVornTreeItemArray::CVornTreeItemArray(VornNoStorage none) : TVornArray(none) {}

CVornTreeItemArray::CVornTreeItemArray(const CVornTreeItemArray& source) = default;

CVornTreeItemArray& CVornTreeItemArray::operator=(const CVornTreeItemArray& source) = default;

// ---- By label ----------------------------------------------------------------------------------------

namespace {

// An element can outlive its item; a dead one has no label.
const wchar_t* LabelOf(const CVornTreeItem* item) { return IsItemValid(item) ? item->GetText() : L""; }

}  // namespace

CTreeItemNameArray::CTreeItemNameArray(unsigned int flags) : m_nFlags(flags) {}

CTreeItemNameArray::CTreeItemNameArray(const CTreeItemNameArray& source) = default;

CTreeItemNameArray& CTreeItemNameArray::operator=(const CTreeItemNameArray& source) = default;

bool CTreeItemNameArray::GetValue(CVornTreeItem*& item, const wchar_t*& value) {
  if (!IsItemValid(item)) return false;
  value = item->GetText();
  return true;
}

int CTreeItemNameArray::IsLowerAdv(CVornTreeItem*& item, const wchar_t*& value) {
  return vorn::CompareNoCase(LabelOf(item), value) < 0;
}

int CTreeItemNameArray::IsEqualAdv(CVornTreeItem*& item, const wchar_t*& value) {
  return vorn::CompareNoCase(LabelOf(item), value) == 0;
}

// ---- By the application's data -----------------------------------------------------------------------

CVornTreeItemUserArray::CVornTreeItemUserArray() = default;

CVornTreeItemUserArray::CVornTreeItemUserArray(const CVornTreeItemUserArray& source) = default;

CVornTreeItemUserArray& CVornTreeItemUserArray::operator=(const CVornTreeItemUserArray& source) = default;

void CVornTreeItemUserArray::SetCompare(CVornTreeCtrl* tree, CompareFunction compare, LPARAM param) {
  m_pTree = tree;
  m_pfnCompare = compare;
  m_lParam = param;
}

int CVornTreeItemUserArray::Add(CVornTreeItem* const& item, long* index) {
  return TVornSortedArray_ByData::Add(item, index);
}

int CVornTreeItemUserArray::Insert(CVornTreeItem* const& item, long index) {
  return TVornSortedArray_ByData::Insert(item, index);
}

CVornTreeItem** CVornTreeItemUserArray::Find(CVornTreeItem*& item) {
  return TVornSortedArray_ByData::Find(item);
}

int CVornTreeItemUserArray::Compare(CVornTreeItem* a, CVornTreeItem* b) const {
  return m_pfnCompare(static_cast<LPARAM>(m_pTree->GetItemData(a)),
                      static_cast<LPARAM>(m_pTree->GetItemData(b)), m_lParam);
}

int CVornTreeItemUserArray::IsLower(CVornTreeItem*& a, CVornTreeItem*& b) {
  if (!m_pfnCompare || !m_pTree) return TVornSortedArray_ByData::IsLower(a, b);
  return Compare(a, b) < 0;
}

int CVornTreeItemUserArray::IsEqual(CVornTreeItem*& a, CVornTreeItem*& b) {
  if (!m_pfnCompare || !m_pTree) return TVornSortedArray_ByData::IsEqual(a, b);
  return Compare(a, b) == 0;
}
