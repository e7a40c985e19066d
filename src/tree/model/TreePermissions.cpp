// CVornTreeCtrl: permissions, the notification of the parent, and what the hooks do by default.
#include "../../selection/VornTreeMultiSelection.h"
#include "../VornTreeCtrl.h"
#include "VornTreeItem.h"

int CVornTreeCtrl::NotifyParent(unsigned int code, CVornTreeItem* item1, CVornTreeItem* item2) {
  NMSTREE notification{};
  notification.hdr.hwndFrom = m_hWnd;
  notification.hdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(m_hWnd));
  notification.hdr.code = code;
  notification.pItem1 = item1;
  notification.pItem2 = item2;
  notification.ptMouse = m_ptLastMouse;
  HWND parent = ::GetParent(m_hWnd);
  if (m_hWnd == nullptr || parent == nullptr) return 1;
  const LRESULT answer =
      ::SendMessageW(parent, WM_NOTIFY, notification.hdr.idFrom, reinterpret_cast<LPARAM>(&notification));
  return answer < 1 ? 1 : 0;
}

int CVornTreeCtrl::IsAllow(CVornTreeItem* item, unsigned long permission) {
  if (!IsItemValid(item)) return 1;
  const unsigned int asked = static_cast<unsigned int>(permission) & 0xFFFF0000u;
  const unsigned int state = item->GetState();
  bool single = true;
  switch (asked) {
    case STIS_NODELETE:
    case STIS_NODRAG:
    case STIS_NODROP:
    case STIS_NORENAME:
    case STIS_NODUPLICATE:
    case STIS_NOUPDATE:
      if (item->HasState(STIS_NOMODIFY)) return 0;
      break;
    case STIS_NOSELECT:
    case STIS_NOMODIFY: break;
    default: single = false;
  }
  if (asked == 0) return 1;
  if (!single && (state & asked) != 0) return 0;
  if (item->HasState(asked)) return 0;
  if ((asked & (STIS_NODRAG | STIS_NODROP)) == 0) return 1;
  // Children of an unmodifiable item are neither dragged away nor dropped on.
  return item->m_pParent != nullptr && item->m_pParent->HasState(STIS_NOMODIFY) ? 0 : 1;
}

void CVornTreeCtrl::InitializeItemFont(CVornTreeItem*) {}
int CVornTreeCtrl::OnSelChanging(CVornTreeItem*, CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnSelChanged(CVornTreeItem*, CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnMultiSelChanging(CVornTreeItem*, CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnMultiSelChanged(CVornTreeItem*, CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnItemIconClic(CVornTreeItem*, int) { return 1; }
int CVornTreeCtrl::OnItemExpanding(CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnItemExpanded(CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnItemDblClk(CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnBeginDrag(CVornTreeItem*, const CPoint&) { return 1; }
int CVornTreeCtrl::OnDragOver(CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnBeginDrop(CVornTreeItemArray&, CVornTreeItem*, int, int) { return 1; }
int CVornTreeCtrl::OnDrop(CVornTreeItem*, CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnEndDrop() { return 1; }
void CVornTreeCtrl::OnDeleteItem(CVornTreeItem*) {}
int CVornTreeCtrl::OnBeginLabelEdit(CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnEndLabelEdit(CVornTreeItem*, const wchar_t*) { return 1; }
int CVornTreeCtrl::OnChecking(CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnChecked(CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnChangeActiveDoc(CVornTreeItem*, CVornTreeItem*) { return 1; }
int CVornTreeCtrl::OnDragAndDropFromTreeCtrl(int, HWND) { return 1; }
int CVornTreeCtrl::OnSelectDropTargetFromTreeCtrl(NMDRAGANDDROP*) { return 0; }
int CVornTreeCtrl::OnDropFromTreeCtrl(NMDRAGANDDROP*) { return 1; }

int CVornTreeCtrl::OnClearSelection(CVornTreeItem* item) {
  if (HasSelectionType(STST_CLEARALLDOCS)) {
    if (auto* manager = DYNAMIC_DOWNCAST(CVornTreeMultiSelection, m_pSelection)) {
      manager->ClearAcrossDocuments(nullptr, item, 0);
    }
  }
  return 1;
}
