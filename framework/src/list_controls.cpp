// The controls with a list: list box and combo box.
#include "afxwin.h"

IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

namespace {

LRESULT Ask(const CWnd& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return ::SendMessageW(control.m_hWnd, message, wParam, lParam);
}

int AskNumber(const CWnd& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return static_cast<int>(Ask(control, message, wParam, lParam));
}

int AskNumber(const CWnd& control, UINT message, int index, LPARAM lParam = 0) {
  return AskNumber(control, message, static_cast<WPARAM>(index), lParam);
}

LPARAM Param(const void* pointer) { return reinterpret_cast<LPARAM>(pointer); }

// The text of an item; empty for an index out of range.
void ItemText(const CWnd& control, UINT askLength, UINT askText, int index, CString& text) {
  text.Empty();
  const int length = AskNumber(control, askLength, index);
  if (length <= 0) return;
  AskNumber(control, askText, index, Param(text.GetBuffer(length + 1)));
  text.ReleaseBuffer();
}

// Hands the messages of an owner-drawn control to its overridables.
template <class Control>
bool OwnerDrawn(Control& control, UINT message, LPARAM lParam, LRESULT* result) {
  switch (message) {
    case WM_DRAWITEM: control.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)); return true;
    case WM_MEASUREITEM: control.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)); return true;
    case WM_DELETEITEM: control.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)); return true;
    case WM_COMPAREITEM: {
      const int order = control.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
      if (result != nullptr) *result = order;
      return true;
    }
    default: return false;
  }
}

}  // namespace

// ---- CListBox ----------------------------------------------------------------------------------

CListBox::CListBox() = default;
CListBox::~CListBox() { CWnd::DestroyWindow(); }

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(L"LISTBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

int CListBox::GetCount() const { return AskNumber(*this, LB_GETCOUNT); }
int CListBox::GetTopIndex() const { return AskNumber(*this, LB_GETTOPINDEX); }
int CListBox::SetTopIndex(int nIndex) { return AskNumber(*this, LB_SETTOPINDEX, nIndex); }
int CListBox::GetSel(int nIndex) const { return AskNumber(*this, LB_GETSEL, nIndex); }
int CListBox::GetTextLen(int nIndex) const { return AskNumber(*this, LB_GETTEXTLEN, nIndex); }
int CListBox::GetItemHeight(int nIndex) const { return AskNumber(*this, LB_GETITEMHEIGHT, nIndex); }
int CListBox::GetCurSel() const { return AskNumber(*this, LB_GETCURSEL); }
int CListBox::SetCurSel(int nSelect) { return AskNumber(*this, LB_SETCURSEL, nSelect); }
int CListBox::GetSelCount() const { return AskNumber(*this, LB_GETSELCOUNT); }

DWORD_PTR CListBox::GetItemData(int nIndex) const {
  return static_cast<DWORD_PTR>(Ask(*this, LB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
}
int CListBox::SetItemData(int nIndex, DWORD_PTR dwItemData) {
  return AskNumber(*this, LB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData));
}
void* CListBox::GetItemDataPtr(int nIndex) const { return reinterpret_cast<void*>(GetItemData(nIndex)); }
int CListBox::SetItemDataPtr(int nIndex, void* pData) {
  return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
}
int CListBox::GetItemRect(int nIndex, LPRECT lpRect) const {
  return AskNumber(*this, LB_GETITEMRECT, nIndex, Param(lpRect));
}
int CListBox::GetText(int nIndex, LPWSTR lpszBuffer) const {
  return AskNumber(*this, LB_GETTEXT, nIndex, Param(lpszBuffer));
}
void CListBox::GetText(int nIndex, CString& rString) const {
  ItemText(*this, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}
int CListBox::SetItemHeight(int nIndex, UINT cyItemHeight) {
  return AskNumber(*this, LB_SETITEMHEIGHT, nIndex, MAKELPARAM(cyItemHeight, 0));
}
int CListBox::SetSel(int nIndex, BOOL bSelect) {
  return AskNumber(*this, LB_SETSEL, static_cast<WPARAM>(bSelect), nIndex);
}
int CListBox::GetSelItems(int nMaxItems, LPINT rgIndex) const {
  return AskNumber(*this, LB_GETSELITEMS, nMaxItems, Param(rgIndex));
}
int CListBox::AddString(LPCWSTR lpszItem) { return AskNumber(*this, LB_ADDSTRING, 0, Param(lpszItem)); }
int CListBox::DeleteString(UINT nIndex) {
  return AskNumber(*this, LB_DELETESTRING, static_cast<WPARAM>(nIndex));
}
int CListBox::InsertString(int nIndex, LPCWSTR lpszItem) {
  return AskNumber(*this, LB_INSERTSTRING, nIndex, Param(lpszItem));
}
void CListBox::ResetContent() { Ask(*this, LB_RESETCONTENT); }
int CListBox::FindString(int nStartAfter, LPCWSTR lpszItem) const {
  return AskNumber(*this, LB_FINDSTRING, nStartAfter, Param(lpszItem));
}
int CListBox::FindStringExact(int nIndexStart, LPCWSTR lpszFind) const {
  return AskNumber(*this, LB_FINDSTRINGEXACT, nIndexStart, Param(lpszFind));
}
int CListBox::SelectString(int nStartAfter, LPCWSTR lpszItem) {
  return AskNumber(*this, LB_SELECTSTRING, nStartAfter, Param(lpszItem));
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CListBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  return OwnerDrawn(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

// ---- CComboBox ---------------------------------------------------------------------------------

CComboBox::CComboBox() = default;
CComboBox::~CComboBox() { CWnd::DestroyWindow(); }

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(L"COMBOBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::GetCount() const { return AskNumber(*this, CB_GETCOUNT); }
int CComboBox::GetCurSel() const { return AskNumber(*this, CB_GETCURSEL); }
int CComboBox::SetCurSel(int nSelect) { return AskNumber(*this, CB_SETCURSEL, nSelect); }
int CComboBox::GetLBTextLen(int nIndex) const { return AskNumber(*this, CB_GETLBTEXTLEN, nIndex); }
int CComboBox::GetItemHeight(int nIndex) const { return AskNumber(*this, CB_GETITEMHEIGHT, nIndex); }
int CComboBox::GetTopIndex() const { return AskNumber(*this, CB_GETTOPINDEX); }
int CComboBox::SetTopIndex(int nIndex) { return AskNumber(*this, CB_SETTOPINDEX, nIndex); }
int CComboBox::GetDroppedWidth() const { return AskNumber(*this, CB_GETDROPPEDWIDTH); }

DWORD_PTR CComboBox::GetItemData(int nIndex) const {
  return static_cast<DWORD_PTR>(Ask(*this, CB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
}
int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData) {
  return AskNumber(*this, CB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData));
}
void* CComboBox::GetItemDataPtr(int nIndex) const { return reinterpret_cast<void*>(GetItemData(nIndex)); }
int CComboBox::SetItemDataPtr(int nIndex, void* pData) {
  return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
}
int CComboBox::GetLBText(int nIndex, LPWSTR lpszText) const {
  return AskNumber(*this, CB_GETLBTEXT, nIndex, Param(lpszText));
}
void CComboBox::GetLBText(int nIndex, CString& rString) const {
  ItemText(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}
int CComboBox::SetItemHeight(int nIndex, UINT cyItemHeight) {
  return AskNumber(*this, CB_SETITEMHEIGHT, nIndex, MAKELPARAM(cyItemHeight, 0));
}
DWORD CComboBox::GetEditSel() const { return static_cast<DWORD>(Ask(*this, CB_GETEDITSEL)); }
BOOL CComboBox::SetEditSel(int nStartChar, int nEndChar) {
  return AskNumber(*this, CB_SETEDITSEL, 0, MAKELPARAM(nStartChar, nEndChar));
}
BOOL CComboBox::LimitText(int nMaxChars) { return AskNumber(*this, CB_LIMITTEXT, nMaxChars); }
BOOL CComboBox::GetDroppedState() const { return AskNumber(*this, CB_GETDROPPEDSTATE); }
void CComboBox::ShowDropDown(BOOL bShowIt) { AskNumber(*this, CB_SHOWDROPDOWN, bShowIt); }
void CComboBox::GetDroppedControlRect(LPRECT lprect) const {
  Ask(*this, CB_GETDROPPEDCONTROLRECT, 0, Param(lprect));
}
int CComboBox::SetDroppedWidth(UINT nWidth) {
  return AskNumber(*this, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(nWidth));
}
BOOL CComboBox::GetExtendedUI() const { return AskNumber(*this, CB_GETEXTENDEDUI); }
int CComboBox::SetExtendedUI(BOOL bExtended) { return AskNumber(*this, CB_SETEXTENDEDUI, bExtended); }
int CComboBox::AddString(LPCWSTR lpszString) { return AskNumber(*this, CB_ADDSTRING, 0, Param(lpszString)); }
int CComboBox::DeleteString(UINT nIndex) {
  return AskNumber(*this, CB_DELETESTRING, static_cast<WPARAM>(nIndex));
}
int CComboBox::InsertString(int nIndex, LPCWSTR lpszString) {
  return AskNumber(*this, CB_INSERTSTRING, nIndex, Param(lpszString));
}
void CComboBox::ResetContent() { Ask(*this, CB_RESETCONTENT); }
int CComboBox::FindString(int nStartAfter, LPCWSTR lpszString) const {
  return AskNumber(*this, CB_FINDSTRING, nStartAfter, Param(lpszString));
}
int CComboBox::FindStringExact(int nIndexStart, LPCWSTR lpszFind) const {
  return AskNumber(*this, CB_FINDSTRINGEXACT, nIndexStart, Param(lpszFind));
}
int CComboBox::SelectString(int nStartAfter, LPCWSTR lpszString) {
  return AskNumber(*this, CB_SELECTSTRING, nStartAfter, Param(lpszString));
}
void CComboBox::Clear() { Ask(*this, WM_CLEAR); }
void CComboBox::Copy() { Ask(*this, WM_COPY); }
void CComboBox::Cut() { Ask(*this, WM_CUT); }
void CComboBox::Paste() { Ask(*this, WM_PASTE); }

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  return OwnerDrawn(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
