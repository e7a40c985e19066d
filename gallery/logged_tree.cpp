#include "logged_tree.h"

#include "french.h"

CString CLoggedTree::NameOf(CVornTreeItem* item) {
  if (item == nullptr) return L"aucun";
  if (item == STI_ROOT || item == GetRootItem()) return L"la racine";
  return french::Quoted(GetItemText(item));
}

void CLoggedTree::Log(LPCWSTR hook, CVornTreeItem* item) { m_log.Note(CString(hook) + L"  " + NameOf(item)); }

void CLoggedTree::Log(LPCWSTR hook, CVornTreeItem* first, CVornTreeItem* second) {
  m_log.Note(CString(hook) + L"  " + NameOf(first) + L", " + NameOf(second));
}

int CLoggedTree::OnSelChanging(CVornTreeItem* old, CVornTreeItem* item) {
  Log(L"OnSelChanging", old, item);
  return CVornTreeCtrl::OnSelChanging(old, item);
}

int CLoggedTree::OnSelChanged(CVornTreeItem* old, CVornTreeItem* item) {
  Log(L"OnSelChanged", old, item);
  return CVornTreeCtrl::OnSelChanged(old, item);
}

int CLoggedTree::OnMultiSelChanging(CVornTreeItem* old, CVornTreeItem* item) {
  Log(L"OnMultiSelChanging", old, item);
  return CVornTreeCtrl::OnMultiSelChanging(old, item);
}

int CLoggedTree::OnMultiSelChanged(CVornTreeItem* old, CVornTreeItem* item) {
  Log(L"OnMultiSelChanged", old, item);
  return CVornTreeCtrl::OnMultiSelChanged(old, item);
}

int CLoggedTree::OnItemIconClic(CVornTreeItem* item, int flags) {
  Log(flags != 0 ? L"OnItemIconClic (état)" : L"OnItemIconClic", item);
  return CVornTreeCtrl::OnItemIconClic(item, flags);
}

int CLoggedTree::OnItemExpanding(CVornTreeItem* item) {
  Log(L"OnItemExpanding", item);
  return CVornTreeCtrl::OnItemExpanding(item);
}

int CLoggedTree::OnItemExpanded(CVornTreeItem* item) {
  Log(L"OnItemExpanded", item);
  return CVornTreeCtrl::OnItemExpanded(item);
}

int CLoggedTree::OnItemDblClk(CVornTreeItem* item) {
  Log(L"OnItemDblClk", item);
  return CVornTreeCtrl::OnItemDblClk(item);
}

int CLoggedTree::OnBeginDrag(CVornTreeItem* item, const CPoint& point) {
  Log(L"OnBeginDrag", item);
  return CVornTreeCtrl::OnBeginDrag(item, point);
}

int CLoggedTree::OnDragOver(CVornTreeItem* item) {
  Log(L"OnDragOver", item);
  return CVornTreeCtrl::OnDragOver(item);
}

int CLoggedTree::OnBeginDrop(CVornTreeItemArray& items, CVornTreeItem* target, int copy, int flags) {
  Log(L"OnBeginDrop", target);
  return CVornTreeCtrl::OnBeginDrop(items, target, copy, flags);
}

int CLoggedTree::OnDrop(CVornTreeItem* item, CVornTreeItem* target) {
  Log(L"OnDrop", item, target);
  return CVornTreeCtrl::OnDrop(item, target);
}

int CLoggedTree::OnEndDrop() {
  m_log.Note(L"OnEndDrop");
  return CVornTreeCtrl::OnEndDrop();
}

void CLoggedTree::OnDeleteItem(CVornTreeItem* item) {
  Log(L"OnDeleteItem", item);
  CVornTreeCtrl::OnDeleteItem(item);
}

int CLoggedTree::OnBeginLabelEdit(CVornTreeItem* item) {
  Log(L"OnBeginLabelEdit", item);
  return CVornTreeCtrl::OnBeginLabelEdit(item);
}

int CLoggedTree::OnEndLabelEdit(CVornTreeItem* item, const wchar_t* text) {
  m_log.Note(L"OnEndLabelEdit  " + NameOf(item) + L", " + french::Quoted(text));
  return CVornTreeCtrl::OnEndLabelEdit(item, text);
}

int CLoggedTree::OnChecking(CVornTreeItem* item) {
  Log(L"OnChecking", item);
  return CVornTreeCtrl::OnChecking(item);
}

int CLoggedTree::OnChecked(CVornTreeItem* item) {
  Log(L"OnChecked", item);
  return CVornTreeCtrl::OnChecked(item);
}

int CLoggedTree::OnClearSelection(CVornTreeItem* item) {
  Log(L"OnClearSelection", item);
  return CVornTreeCtrl::OnClearSelection(item);
}

int CLoggedTree::OnChangeActiveDoc(CVornTreeItem* old, CVornTreeItem* item) {
  Log(L"OnChangeActiveDoc", old, item);
  return CVornTreeCtrl::OnChangeActiveDoc(old, item);
}

int CLoggedTree::OnDragAndDropFromTreeCtrl(int action, HWND source) {
  m_log.Note(L"OnDragAndDropFromTreeCtrl");
  return CVornTreeCtrl::OnDragAndDropFromTreeCtrl(action, source);
}

int CLoggedTree::OnSelectDropTargetFromTreeCtrl(NMDRAGANDDROP* info) {
  m_log.Note(L"OnSelectDropTargetFromTreeCtrl");
  return CVornTreeCtrl::OnSelectDropTargetFromTreeCtrl(info);
}

int CLoggedTree::OnDropFromTreeCtrl(NMDRAGANDDROP* info) {
  m_log.Note(L"OnDropFromTreeCtrl");
  return CVornTreeCtrl::OnDropFromTreeCtrl(info);
}
