// CVornTreeCtrl: opening and folding.
#include "../VornTreeCtrl.h"
#include "../model/TreeCheck.h"
#include "VornTreeOperations.h"

int CVornTreeCtrl::Expand(CVornTreeItem* item, unsigned int code) {
  const vorn::OperationCheck check(this);
  unsigned int action = code & STE_ACTIONMASK;
  unsigned int flags = code & STE_FLAGMASK;
  item = ResolveRoot(item);
  if (!IsOwnItem(item) || !item->HasChildren()) return 0;
  if (action == STE_TOGGLE) action = item->IsExpanded() ? STE_COLLAPSE : STE_EXPAND;
  if (action != STE_COLLAPSEALL && action != STE_EXPANDALL) {
    const unsigned int present = item->IsExpanded() ? STE_EXPAND : STE_COLLAPSE;
    const unsigned int other = item->IsExpanded() ? STE_COLLAPSE : STE_EXPAND;
    if (action == present) return 1;
    if (action != other && (flags & STE_ANYWAY) == 0) return 0;
  }
  if (m_nExpandGuard && (IsActiveStyle(STS_SCROLLONEXPAND) || IsActiveStyle(STS_SCROLLONEXPANDALT))) {
    flags |= STE_SCROLL;
  }
  if (!OnItemExpanding(item)) return 0;
  if (!IsItemValid(item)) return 0;
  ApplyExpansion(item, action, flags);
  if (IsItemValid(item)) OnItemExpanded(item);
  return 1;
}

void CVornTreeCtrl::ApplyExpansion(CVornTreeItem* item, unsigned int action, unsigned int flags) {
  const CVornTreeOperations operations(this);
  switch (action) {
    case STE_COLLAPSE:
      if (!item->IsExpanded()) return;  // the hook has done it
      item->SetExpanded(false);
      operations.CollapseCounts(item);
      UpdateTree();
      return;
    case STE_EXPAND:
      if (item->IsExpanded()) return;  // the hook has done it
      item->SetExpanded(true);
      operations.ExpandCounts(item);
      if (!IsDragInProgress()) operations.ScrollAfterExpand(item, flags);
      UpdateTree();
      return;
    case STE_COLLAPSEALL:
    case STE_EXPANDALL:
      SetRedraw(FALSE);
      if (action == STE_EXPANDALL) {
        operations.ExpandAll(item);
      } else {
        operations.CollapseAll(item);
      }
      SetRedraw(TRUE);
      return;
    default: return;
  }
}
