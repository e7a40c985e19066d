// CVornTreeCtrl: keys, and the search for the letters typed.
#include <cwctype>

#include "../../core/VornFunctions.h"
#include "../../edit/VornTreeEdit.h"
#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "../layout/VornTreeOperations.h"
#include "TreeTimers.h"
#include "TypeAhead.h"

namespace {

// The keys that the control takes ahead of the host.
bool IsTreeKey(WPARAM key) {
  switch (key) {
    case VK_ESCAPE:
    case VK_SPACE:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_END:
    case VK_HOME:
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_MULTIPLY:
    case VK_ADD:
    case VK_SUBTRACT:
    case VK_DIVIDE: return true;
    default: return false;
  }
}

}  // namespace

BOOL CVornTreeCtrl::PreTranslateMessage(MSG* message) {
  if (m_pEdit == nullptr && message->message == WM_CHAR) {
    if (OnTypeAhead(message->wParam, message->lParam)) return TRUE;
  }
  if (m_pEdit == nullptr && message->message == WM_KEYDOWN && IsTreeKey(message->wParam)) {
    OnKeyDown(static_cast<UINT>(message->wParam), LOWORD(message->lParam), HIWORD(message->lParam));
    return TRUE;
  }
  return CWnd::PreTranslateMessage(message);
}

UINT CVornTreeCtrl::OnGetDlgCode() { return DLGC_WANTALLKEYS | DLGC_WANTCHARS; }

void CVornTreeCtrl::OnKeyUp(UINT, UINT, UINT) {}

void CVornTreeCtrl::OnKeyDown(UINT key, UINT, UINT) {
  const HWND window = m_hWnd;
  ::KillTimer(window, vorn::kEditTimer);
  ::KillTimer(window, vorn::kTypeAheadTimer);
  const HWND focusWindow = ::GetFocus();
  CVornTreeItem* const focus = GetItemHasFocus();
  if (focus == nullptr) return;
  ActOnKey(key, focus);
  if (!::IsWindow(window)) return;
  ::InvalidateRect(window, nullptr, TRUE);
  // A hook that moved the focus meanwhile is overruled.
  if (::IsWindow(focusWindow)) ::SetFocus(focusWindow);
}

// Moves the focus to a row as the selection manager sees fit.
void CVornTreeCtrl::MoveTo(CVornTreeItem* item, UINT key) {
  if (m_pSelection != nullptr) m_pSelection->OnKeyDown(item, key);
}

void CVornTreeCtrl::ActOnKey(UINT key, CVornTreeItem* focus) {
  const bool ctrlAlone = IsKeyPress(VK_CONTROL) && !IsKeyPress(VK_SHIFT);
  switch (key) {
    case VK_ESCAPE: ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND, IDCANCEL, 0); return;
    case VK_SPACE: SetItemCheck(focus, !focus->IsChecked()); return;
    case VK_PRIOR:
    case VK_NEXT: MoveTo(PageFrom(focus, key == VK_NEXT), key); return;
    case VK_END:
      if (m_pRoot != nullptr) MoveTo(GetLastVisibleItem(m_pRoot), key);
      return;
    case VK_HOME:
      SetScrollPos(SB_HORZ, 0, TRUE);
      SetScrollPos(SB_VERT, 0, TRUE);
      MoveTo(GetFirstVisibleItem(), key);
      return;
    case VK_LEFT: FoldOrLeave(focus, key); return;
    case VK_RIGHT: OpenOrEnter(focus, key); return;
    case VK_UP:
      if (ctrlAlone) {
        MoveToFirstBrother(focus, key);
      } else {
        MoveTo(GetPrevVisibleItem(focus), key);
      }
      return;
    case VK_DOWN:
      if (ctrlAlone) {
        MoveToLastBrother(focus, key);
      } else {
        MoveTo(GetNextVisibleItem(focus), key);
      }
      return;
    case VK_ADD: Expand(focus, STE_EXPAND); return;
    case VK_SUBTRACT: Expand(focus, STE_COLLAPSE); return;
    case VK_MULTIPLY:
    case VK_DIVIDE: UnfoldAll(focus, key == VK_MULTIPLY); return;
    default: return;
  }
}

void CVornTreeCtrl::UnfoldAll(CVornTreeItem* focus, bool open) {
  const HWND window = m_hWnd;
  SetRedraw(FALSE);
  Expand(focus, open ? STE_EXPANDALL : STE_COLLAPSEALL);
  if (!open) {
    EnsureVisible(focus);
  } else if (IsItemValid(focus)) {
    CVornTreeOperations(this).ExpandAll(focus);
  }
  if (::IsWindow(window)) SetRedraw(TRUE);  // else its end has let go of the redraw
}

void CVornTreeCtrl::FoldOrLeave(CVornTreeItem* focus, UINT key) {
  if (focus->IsExpanded()) {
    Expand(focus, STE_COLLAPSE);
    return;
  }
  CVornTreeItem* const parent = focus->GetParentItem();
  if (ItemIsVisible(parent)) MoveTo(parent, key);
}

void CVornTreeCtrl::OpenOrEnter(CVornTreeItem* focus, UINT key) {
  if (focus->m_pFirstChild == nullptr) return;
  if (focus->IsExpanded()) {
    MoveTo(GetNextVisibleItem(focus), key);
  } else {
    Expand(focus, STE_EXPAND);
  }
}

// The first row under the parent, and from there the parent.
void CVornTreeCtrl::MoveToFirstBrother(CVornTreeItem* focus, UINT key) {
  CVornTreeItem* const parent = GetParentItem(focus);
  CVornTreeItem* const first = GetNextVisibleItem(parent, 1, nullptr);
  if (first != nullptr && first != focus) {
    MoveTo(first, key);
  } else if (parent != nullptr && ItemIsVisible(parent)) {
    MoveTo(parent, key);
  }
}

// The last row under the parent, and from there the row after it.
void CVornTreeCtrl::MoveToLastBrother(CVornTreeItem* focus, UINT key) {
  CVornTreeItem* const parent = GetParentItem(focus);
  CVornTreeItem* const last = GetLastVisibleItem(parent);
  if (last != nullptr && last != focus) {
    MoveTo(last, key);
  } else if (CVornTreeItem* const behind = GetNextVisibleItem(parent, 0, nullptr)) {
    MoveTo(behind, key);
  }
}

// The row a page away: one row less than the window shows, so that one stays in sight.
CVornTreeItem* CVornTreeCtrl::PageFrom(CVornTreeItem* item, bool forward) const {
  CVornTreeItem* reached = item;
  CVornTreeItem* row = item;
  for (int left = m_nDisplayCount; left > 0; --left) {
    reached = row;
    row = forward ? GetNextVisibleItem(row) : GetPrevVisibleItem(row);
    if (row == nullptr || (!forward && !row->GetVisibility())) break;
  }
  return reached;
}

// --- Type-ahead ------------------------------------------------------------------------------------

int CVornTreeCtrl::OnTypeAhead(unsigned __int64 character, __int64 lParam) {
  if (!m_bAutoSelection || m_pRoot == nullptr || m_pRoot->m_nDescendants == 0) return 0;
  if (character == 0 || lParam == 0) return 0;
  CVornTreeItem* const focus = GetItemHasFocus();
  if (focus == nullptr || !vorn::IsTypeAheadCharacter(static_cast<wchar_t>(character))) return 0;
  const vorn::TypeAheadStep step = vorn::AppendTypeAhead(static_cast<wchar_t>(character), ::GetTickCount());
  if (step == vorn::TypeAheadStep::Full) return 0;
  CVornTreeItem* start = step == vorn::TypeAheadStep::First ? GetNextVisibleItem(focus) : focus;
  const CVornTreeOperations operations(this);
  CVornTreeItem* found = operations.FindByPrefix(start, vorn::TypeAheadText());
  if (found == nullptr) found = operations.FindByPrefix(m_pRoot, vorn::TypeAheadText());
  if (found == nullptr) return 1;
  SelectItem(found, 0);
  EnsureVisible(found);
  return 1;
}

// --- Focus -----------------------------------------------------------------------------------------

void CVornTreeCtrl::OnSetFocus(CWnd* old) {
  MakeOptionsCurrent();
  CWnd::OnSetFocus(old);
  RepaintSelection();
}

// The colours of selected rows depend on the focus.
void CVornTreeCtrl::RepaintSelection() {
  if (GetLastSelectedItem() != nullptr) InvalidateAll(false);
}

void CVornTreeCtrl::OnKillFocus(CWnd* next) {
  CWnd::OnKillFocus(next);
  RepaintSelection();
  if (next != nullptr && next->GetSafeHwnd() == EditWindow()) return;
  ::KillTimer(m_hWnd, vorn::kEditTimer);
  if (m_pEdit != nullptr) m_pEdit->EndEdit(0);
}
