// CVornTreeCtrl: opening and closing the label edit.
#include "../core/EncodedSequence.h"
#include "../tree/VornTreeCtrl.h"
#include "../tree/model/VornTreeItem.h"
#include "../tree/window/TreeTimers.h"
#include "VornTreeEdit.h"

CEdit* CVornTreeCtrl::GetEditControl() { return m_pEdit; }

HWND CVornTreeCtrl::EditWindow() const { return m_pEdit != nullptr ? m_pEdit->GetSafeHwnd() : nullptr; }

int CVornTreeCtrl::BeginLabelEdit(CVornTreeItem* item) {
  if (!IsAllow(item, STIS_NORENAME)) return 0;
  CVornTreeItem* const parent = IsItemValid(item) ? item->m_pParent : nullptr;
  if (!IsAllow(parent, STIS_NOMODIFY)) return 0;
  return OnBeginLabelEdit(item) ? 1 : 0;
}

CEdit* CVornTreeCtrl::EditLabel(CVornTreeItem* item) {
  const HWND window = m_hWnd;
  if (!::IsWindow(window)) return nullptr;
  ::KillTimer(window, vorn::kEditTimer);
  if (!IsOwnItem(item)) return nullptr;
  if (m_pEdit != nullptr) EndLabelEdit();
  if (!BeginLabelEdit(item) || !::IsWindow(window) || !IsItemValid(item)) return nullptr;
  EnsureVisible(item);
  ::RedrawWindow(window, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
  if (!::IsWindow(window) || !IsItemValid(item) || m_pEdit != nullptr) return nullptr;

  constexpr int kSlack = 10;
  constexpr unsigned int kEditId = 61440;
  CRect box = item->m_Rect;
  box.right = box.right + kSlack < m_rcClient.right ? box.right + kSlack : m_rcClient.right;
  if (box.left < m_rcClient.left) box.left = m_rcClient.left;
  CVornTreeEdit* const edit = new (std::nothrow) CVornTreeEdit(item);
  m_pEdit = edit;
  if (edit == nullptr) return nullptr;
  const int made = edit->Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, box, this, kEditId);
  if (m_pEdit != edit) return nullptr;  // the host has ended it meanwhile
  if (!made) {
    // A box that lost its item while it was made; one without a window stays.
    if (edit->GetSafeHwnd() != nullptr) EndLabelEdit();
    return nullptr;
  }
  ::SetFocus(edit->GetSafeHwnd());
  return m_pEdit;
}

int CVornTreeCtrl::EndLabelEdit() {
  CVornTreeEdit* const edit = m_pEdit;
  if (edit == nullptr) return 0;
  const HWND window = m_hWnd;
  m_pEdit = nullptr;  // before anything that could come back here
  // From here on its loss of the focus ends nothing: the hook may have opened another edit.
  edit->MarkEnding();
  int changed = 0;
  CVornTreeItem* const item = edit->GetItem();
  if (IsItemValid(item) && !edit->IsCancelled() && edit->GetSafeHwnd() != nullptr) {
    CString text;
    edit->GetWindowText(text);
    if (OnEndLabelEdit(item, text) && IsItemValid(item)) {
      vorn::EncodeSequence(text);
      item->SetText(text);
      changed = 1;
    }
  }
  edit->DestroyWindow();
  delete edit;
  if (!::IsWindow(window)) return changed;
  ::InvalidateRect(window, nullptr, TRUE);
  if (m_pEdit == nullptr) ::SetFocus(window);
  return changed;
}

int CVornTreeCtrl::IsTreeCtrlEditMessage(unsigned int message, unsigned __int64 wParam, __int64 lParam) {
  const HWND edit = EditWindow();
  if (edit == nullptr || ::GetFocus() != edit) return 0;
  ::SendMessageW(edit, message, wParam, lParam);
  return 1;
}
