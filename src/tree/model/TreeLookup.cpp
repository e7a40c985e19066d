// CVornTreeCtrl: finding items by relation, label, path and data. Nothing here changes anything.
#include "../../core/TextCompare.h"
#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "VornTreeItem.h"

CVornTreeItem* CVornTreeCtrl::GetNextItem(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->m_pNextSibling : nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetPrevItem(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->m_pPrevSibling : nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetNextItem(CVornTreeItem* item, unsigned int code) const {
  switch (code) {
    case STGN_ROOT: return m_pRoot;
    case STGN_NEXT: return GetNextItem(item);
    case STGN_PREVIOUS: return GetPrevItem(item);
    case STGN_PARENT: return GetParentItem(item);
    case STGN_CHILD: return GetChildItem(item);
    case STGN_FIRSTVISIBLE: return GetFirstDisplayItem();
    case STGN_NEXTVISIBLE: return GetNextVisibleItem(item);
    case STGN_PREVIOUSVISIBLE: return GetPrevVisibleItem(item);
    case STGN_DROPHILITE: return DropHighlight();
    case STGN_CARET: return m_pSelection != nullptr ? m_pSelection->GetLastSelectedItem() : nullptr;
    default: return nullptr;  // STGN_LASTVISIBLE among them: its answer is always null, meant
  }
}

CVornTreeItem* CVornTreeCtrl::GetChildItem(CVornTreeItem* item) const {
  item = ResolveRoot(item);
  return IsItemValid(item) ? item->m_pFirstChild : nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetLastChildItem(CVornTreeItem* item) const {
  if (!IsItemValid(item)) return nullptr;
  return item->m_pLastChild != nullptr ? item->m_pLastChild : item;
}

CVornTreeItem* CVornTreeCtrl::GetParentItem(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->m_pParent : nullptr;
}

int CVornTreeCtrl::GetParentList(CVornTreeItem* item, CVornTreeItemArray& list) {
  if (!IsItemValid(item)) return 0;
  if (item == m_pRoot) return 1;  // nothing above it, and it is not listed itself
  for (; item != nullptr; item = item->GetParentItem()) list.Add(item, nullptr);
  return 1;
}

unsigned int CVornTreeCtrl::GetChildCount(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->m_nDescendants : 0;
}

unsigned int CVornTreeCtrl::GetVisibleChildCount(CVornTreeItem* item) const {
  return IsItemValid(item) ? static_cast<unsigned int>(item->m_nVisibleDescendants) : 0;
}

unsigned int CVornTreeCtrl::GetCount() { return m_pRoot != nullptr ? m_pRoot->m_nDescendants : 0; }

CVornTreeItem* CVornTreeCtrl::GetItemFromName(const wchar_t* name, CVornTreeItem* parent,
                                              unsigned __int64 data) {
  if (name == nullptr || *name == L'\0') return nullptr;
  if (!IsItemValid(parent)) parent = m_pRoot;
  if (parent == nullptr) return nullptr;
  for (CVornTreeItem* child = parent->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
    if (data != 0 && child->m_nData != data) continue;
    if (vorn::CompareNoCase(child->GetText(), name) == 0) return child;
  }
  return nullptr;
}

CVornTreeItem* CVornTreeCtrl::GetItemFromFullPathName(const wchar_t* path, unsigned __int64 data) {
  if (m_pRoot == nullptr || path == nullptr || *path == L'\0') return nullptr;
  CVornTreeItem* current = m_pRoot;
  while (*path != L'\0' && current != nullptr) {
    const size_t length = wcscspn(path, L"\\");
    const bool isLast = path[length] == L'\0';
    if (length != 0) {
      const CString segment(path, static_cast<int>(length));
      current = GetItemFromName(segment, current, isLast ? data : 0);
    }
    path += isLast ? length : length + 1;
  }
  return current == m_pRoot ? nullptr : current;
}

CVornTreeItem* CVornTreeCtrl::GetItemFromItemData(unsigned __int64 data, CVornTreeItem* parent) {
  if (data == 0) return nullptr;
  if (!IsItemValid(parent)) parent = m_pRoot;
  if (parent == nullptr) return nullptr;
  CVornTreeItem* child = parent->m_pFirstChild;
  while (child != nullptr && child->m_nData != data) child = child->m_pNextSibling;
  return child;
}

CVornTreeItem* CVornTreeCtrl::GetItemFromItemDatas(unsigned __int64* datas, int count) {
  if (datas == nullptr || count < 1 || m_pRoot == nullptr) return nullptr;
  CVornTreeItem* item = m_pRoot->m_pFirstChild;
  int matched = 0;
  while (item != nullptr) {
    if (item->m_nData != datas[matched]) {
      item = item->m_pNextSibling;  // no way back up: the first match on each level decides
      continue;
    }
    if (++matched == count) return item;
    item = item->m_pFirstChild;
  }
  return nullptr;
}

int CVornTreeCtrl::GetItemFullText(CVornTreeItem* item, CString& text) {
  CVornTreeItemArray line;
  if (!GetParentList(item, line)) return 0;
  text.Empty();
  for (long i = line.GetSize() - 1; i >= 0; --i) {
    const wchar_t* label = line[i]->GetText();
    if (*label == L'\0') {
      text.Empty();
      return 0;
    }
    text += L'\\';
    text += label;
  }
  return !text.IsEmpty();
}

long CVornTreeCtrl::GetItemPosition(CVornTreeItem* item) {
  if (!IsItemValid(item) || item->m_pParent == nullptr) return 0;
  long position = 1;
  for (const CVornTreeItem* before = item->m_pPrevSibling; before != nullptr;
       before = before->m_pPrevSibling) {
    ++position;
  }
  return position;
}

int CVornTreeCtrl::IsExist(CVornTreeItem* item, CVornTreeItem* parent) const {
  if (!IsItemValid(item)) return 0;
  return parent == nullptr || parent == STI_ROOT || item->m_pParent == parent;
}

int CVornTreeCtrl::IsParentItemOf(CVornTreeItem* parent, CVornTreeItem* item) {
  return IsItemValid(parent) && IsItemValid(item) && item->IsDescendantOf(parent);
}

int CVornTreeCtrl::ItemHasChildren(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->HasChildren() : 0;
}
