// The switches of the tree's page: styles, selection, spacing, log. Each entry of the menu shows the
// tree's own state, which is read anew whenever the menu opens.
#include "resource.h"
#include "tree_pane.h"

namespace {

DWORD BitOf(UINT id) { return DWORD{1} << (id - ID_STYLE_FIRST); }

}  // namespace

void CTreePane::OnStyle(UINT id) { m_tree.SwitchStyle(BitOf(id), !m_tree.IsActiveStyle(BitOf(id))); }
void CTreePane::OnUpdateStyle(CCmdUI* ui) { ui->SetCheck(m_tree.IsActiveStyle(BitOf(ui->m_nID))); }

void CTreePane::OnDisabled() {
  m_tree.EnableWindow(!m_tree.IsWindowEnabled());
  m_tree.Invalidate(FALSE);
}

void CTreePane::OnUpdateDisabled(CCmdUI* ui) { ui->SetCheck(!m_tree.IsWindowEnabled()); }

bool CTreePane::IsSelectionOn(UINT id) {
  switch (id) {
    case ID_SELECTION_SINGLE: return m_tree.IsMultipleSelection() == 0;
    case ID_SELECTION_MULTIPLE: return m_tree.IsMultipleSelection() != 0;
    case ID_SELECTION_DOCUMENTS: return m_tree.IsSelectionByDocuments() != 0;
    case ID_SELECTION_ENSURE_VISIBLE: return (m_tree.GetSelectionType() & STST_ENSUREVISIBLE) != 0;
    case ID_SELECTION_CLEAR_ON_EMPTY: return m_tree.IsClearSelectionWithEmptyArea() != 0;
    case ID_SELECTION_CLEAR_ALL: return (m_tree.GetSelectionType() & STST_CLEARALLDOCS) != 0;
    case ID_SELECTION_ONLY_ACTIVE: return m_tree.IsDisplayOnlyActiveDocument() != 0;
    case ID_SELECTION_TYPE_AHEAD: return m_tree.IsAutoSelectionEnabled() != 0;
    default: return m_tree.IsFocusRectVisible();
  }
}

void CTreePane::OnSelection(UINT id) {
  const bool on = !IsSelectionOn(id);
  const auto switchType = [&](unsigned int bit) { m_tree.ModifySelectionType(on ? 0 : bit, on ? bit : 0); };
  switch (id) {
    case ID_SELECTION_SINGLE: m_tree.EnableMultipleSelection(0); break;
    case ID_SELECTION_MULTIPLE: m_tree.EnableMultipleSelection(1); break;
    case ID_SELECTION_DOCUMENTS: m_tree.EnableSelectionByDocuments(on); break;
    case ID_SELECTION_ENSURE_VISIBLE: switchType(STST_ENSUREVISIBLE); break;
    case ID_SELECTION_CLEAR_ON_EMPTY: m_tree.EnableClearSelectionWithEmptyArea(on); break;
    case ID_SELECTION_CLEAR_ALL: switchType(STST_CLEARALLDOCS); break;
    case ID_SELECTION_ONLY_ACTIVE: m_tree.SetDocumentDisplay(on); break;
    case ID_SELECTION_TYPE_AHEAD: m_tree.EnableAutoSelection(on); break;
    default: m_tree.SetFocusRectVisible(on); break;
  }
  m_tree.Invalidate(FALSE);
}

void CTreePane::OnUpdateSelection(CCmdUI* ui) {
  const bool on = IsSelectionOn(ui->m_nID);
  if (ui->m_nID <= ID_SELECTION_MULTIPLE) return ui->SetRadio(on);
  ui->SetCheck(on);
  // Only the active document can be shown alone.
  if (ui->m_nID == ID_SELECTION_ONLY_ACTIVE) ui->Enable(on || m_tree.IsSelectionByDocuments());
}

void CTreePane::OnSpacing(UINT id) {
  m_tree.SwitchSpacing(static_cast<CVornTreeCtrl::ItemSpacing>(id - ID_SPACING_FIRST));
}

void CTreePane::OnUpdateSpacing(CCmdUI* ui) {
  ui->SetRadio(static_cast<int>(ui->m_nID - ID_SPACING_FIRST) == m_tree.Spacing());
}

void CTreePane::OnLogPause() {
  m_log.Pause(!m_log.IsPaused());
  m_pause.SetCheck(m_log.IsPaused());
}

void CTreePane::OnUpdateLogPause(CCmdUI* ui) { ui->SetCheck(m_log.IsPaused()); }
void CTreePane::OnLogClear() { m_log.Clear(); }
