// What the person at the screen changes about the whole tree, and the tree's own keys and menu.
#include <afxres.h>

#include "gallery_tree.h"
#include "resource.h"

namespace {

// Of all items, parents first. The item's children must stay where they are during visit.
template <class Visit>
void ForEachItem(CVornTreeCtrl& tree, Visit visit) {
  CVornTreeItem* item = tree.GetChildItem(STI_ROOT);
  while (item != nullptr) {
    visit(item);
    CVornTreeItem* next = tree.GetChildItem(item);
    while (next == nullptr && item != nullptr && item != tree.GetRootItem()) {
      next = tree.GetNextItem(item);
      item = tree.GetParentItem(item);
    }
    item = next;
  }
}

}  // namespace

void CGalleryTree::MeasureAll() {
  const CWaitCursor wait;
  SetRedraw(FALSE);
  ForEachItem(*this, [this](CVornTreeItem* item) {
    const CString text = GetItemText(item);
    SetItemText(item, text);
  });
  SetRedraw(TRUE);
}

void CGalleryTree::SwitchStyle(DWORD bits, bool on) {
  // The places of labels depend on these.
  constexpr DWORD kShape =
      STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT | STS_CHECKBOXES | STS_IMAGEBUTTONS;
  ModifyStyle(on ? 0 : bits, on ? bits : 0);
  if ((bits & kShape) != 0) MeasureAll();
  UpdateTree();
}

void CGalleryTree::SwitchSpacing(ItemSpacing spacing) {
  m_spacing = spacing;
  SetItemSpacing(spacing);
  MeasureAll();
}

void CGalleryTree::ShowHiddenItems() {
  CVornTreeItemArray hidden;
  GetHiddenItems(hidden);
  SetRedraw(FALSE);
  for (int i = 0; i < hidden.GetSize(); ++i) SetItemVisibility(hidden.GetAt(i), 1);
  SetRedraw(TRUE);
}

int CGalleryTree::SelectionCount() {
  CVornTreeItemArray selected;
  GetCurrentSelection(selected);
  return static_cast<int>(selected.GetSize());
}

// ---- Keys and menu -----------------------------------------------------------------------------------

void CGalleryTree::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  // Not an accelerator: the box of a label edit wants the key for itself.
  if (key == VK_DELETE) {
    GetTopLevelFrame()->PostMessage(WM_COMMAND, ID_TREE_DELETE);
    return;
  }
  CLoggedTree::OnKeyDown(key, repeat, flags);
}

void CGalleryTree::OnKeyUp(UINT key, UINT repeat, UINT flags) {
  // The control keeps key releases to itself, and with them the system's answer to this one.
  if (key == VK_APPS) {
    SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_hWnd), -1);
    return;
  }
  CLoggedTree::OnKeyUp(key, repeat, flags);
}

void CGalleryTree::OnContextMenu(CWnd*, CPoint point) {
  if (point.x == -1 && point.y == -1) {
    // By key: under the label of the row that has the focus.
    CRect row;
    if (!GetItemRect(GetItemHasFocus(), row, TRUE)) GetClientRect(row);
    point = CPoint(row.left + GetIndent(), row.bottom);
    ClientToScreen(&point);
  }
  CMenu menu;
  if (!menu.LoadMenu(IDR_TREE_CONTEXT)) return;
  // The frame brings the entries up to date and gets the command.
  menu.GetSubMenu(0)->TrackPopupMenu(TPM_RIGHTBUTTON, point.x, point.y, GetTopLevelFrame());
}
