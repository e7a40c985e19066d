// The commands of the tree's page that act on items.
#include "folder_dialog.h"
#include "resource.h"
#include "tree_pane.h"

namespace {
constexpr int kMillion = 1000000;
}

void CTreePane::OnOpen() {
  CFolderDialog dialog(m_tree.FolderPath(), this);
  if (dialog.DoModal() == IDOK && !OpenFolder(dialog.Path())) {
    AfxMessageBox(L"Ce dossier n’a pas pu être lu.\n\n" + Subtitle(), MB_ICONEXCLAMATION);
  }
}

void CTreePane::OnRefresh() {
  const CWaitCursor wait;
  m_tree.RefreshFolder(Current());
}

void CTreePane::OnRename() { m_tree.EditLabel(Current()); }

// The tree alone changes: nothing is deleted on the disk.
void CTreePane::OnDelete() {
  CVornTreeItem* const item = Current();
  if (!m_tree.CanDeleteItem(item)) return;
  CVornTreeItem* next = m_tree.GetNextItem(item);
  if (next == nullptr) next = m_tree.GetPrevItem(item);
  if (next == nullptr) next = m_tree.GetParentItem(item);
  m_tree.DeleteItem(item);
  if (next != m_tree.GetRootItem()) m_tree.SelectItem(next);
}

void CTreePane::OnToggle() { m_tree.Expand(Current(), STE_TOGGLE); }
void CTreePane::OnExpandAll() { m_tree.Expand(Current(), STE_EXPANDALL); }
void CTreePane::OnCollapseAll() { m_tree.Expand(Current(), STE_COLLAPSEALL); }

void CTreePane::OnCheck() {
  m_tree.SetItemCheck(Current(), !m_tree.GetItemCheck(Current()));
  m_tree.Invalidate(FALSE);
}

void CTreePane::OnFavourite() { m_tree.AddFavourite(Current()); }

void CTreePane::OnSort() {
  m_tree.FillAll();
  m_tree.SortChildrenByName(Current());
  m_tree.Invalidate(FALSE);
}

void CTreePane::OnHide() { m_tree.SetItemVisibility(Current(), 0); }
void CTreePane::OnShowHidden() { m_tree.ShowHiddenItems(); }

void CTreePane::OnFill() { Fill(kMillion); }

void CTreePane::OnCancelFill() {
  if (!m_fill.IsRunning()) return;
  m_fill.Cancel();
  m_state = L"Remplissage interrompu";
}

// ---- What is possible now ----------------------------------------------------------------------------

void CTreePane::OnUpdateFolder(CCmdUI* ui) { ui->Enable(m_tree.KindOf(Current()) == ItemKind::kFolder); }
void CTreePane::OnUpdateRename(CCmdUI* ui) { ui->Enable(Current() && m_tree.CanRenameItem(Current())); }
void CTreePane::OnUpdateDelete(CCmdUI* ui) { ui->Enable(Current() && m_tree.CanDeleteItem(Current())); }
void CTreePane::OnUpdateParent(CCmdUI* ui) { ui->Enable(m_tree.ItemHasChildren(Current())); }
void CTreePane::OnUpdateItem(CCmdUI* ui) { ui->Enable(Current() != nullptr); }

void CTreePane::OnUpdateCheck(CCmdUI* ui) {
  ui->Enable(m_tree.GetCheckBox(Current()) || (Current() && m_tree.IsActiveStyle(STS_CHECKBOXES)));
  ui->SetCheck(m_tree.GetItemCheck(Current()));
}

void CTreePane::OnUpdateFill(CCmdUI* ui) { ui->Enable(!m_fill.IsRunning()); }
void CTreePane::OnUpdateCancelFill(CCmdUI* ui) { ui->Enable(m_fill.IsRunning()); }
