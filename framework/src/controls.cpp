// The standard controls without a list: static text, button, edit, scroll bar; progress and status bar.
#include "afxcmn.h"
#include "gdiobj_maps.h"

#include <cstring>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)
IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)
IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)

namespace {

// Asks a control.
LRESULT Ask(const CWnd& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return ::SendMessageW(control.m_hWnd, message, wParam, lParam);
}

int AskNumber(const CWnd& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return static_cast<int>(Ask(control, message, wParam, lParam));
}

LPARAM Param(const void* pointer) { return reinterpret_cast<LPARAM>(pointer); }

template <class Handle>
Handle AskHandle(const CWnd& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return reinterpret_cast<Handle>(Ask(control, message, wParam, lParam));
}

}  // namespace

// ---- CStatic -------------------------------------------------------------------------------------

CStatic::CStatic() = default;
CStatic::~CStatic() { CWnd::DestroyWindow(); }

BOOL CStatic::Create(LPCWSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(L"STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
}

HICON CStatic::SetIcon(HICON hIcon) {
  return AskHandle<HICON>(*this, STM_SETICON, reinterpret_cast<WPARAM>(hIcon));
}
HICON CStatic::GetIcon() const { return AskHandle<HICON>(*this, STM_GETICON); }
HBITMAP CStatic::SetBitmap(HBITMAP hBitmap) {
  return AskHandle<HBITMAP>(*this, STM_SETIMAGE, IMAGE_BITMAP, Param(hBitmap));
}
HBITMAP CStatic::GetBitmap() const { return AskHandle<HBITMAP>(*this, STM_GETIMAGE, IMAGE_BITMAP); }
HCURSOR CStatic::SetCursor(HCURSOR hCursor) {
  return AskHandle<HCURSOR>(*this, STM_SETIMAGE, IMAGE_CURSOR, Param(hCursor));
}
HCURSOR CStatic::GetCursor() { return AskHandle<HCURSOR>(*this, STM_GETIMAGE, IMAGE_CURSOR); }
void CStatic::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

// ---- CButton -------------------------------------------------------------------------------------

CButton::CButton() = default;
CButton::~CButton() { CWnd::DestroyWindow(); }

BOOL CButton::Create(LPCWSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(L"BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
}

UINT CButton::GetState() const { return static_cast<UINT>(Ask(*this, BM_GETSTATE)); }
void CButton::SetState(BOOL bHighlight) { Ask(*this, BM_SETSTATE, static_cast<WPARAM>(bHighlight)); }
int CButton::GetCheck() const { return AskNumber(*this, BM_GETCHECK); }
void CButton::SetCheck(int nCheck) { Ask(*this, BM_SETCHECK, static_cast<WPARAM>(nCheck)); }
UINT CButton::GetButtonStyle() const { return GetStyle() & 0xFF; }
void CButton::SetButtonStyle(UINT nStyle, BOOL bRedraw) { Ask(*this, BM_SETSTYLE, nStyle, bRedraw); }
HICON CButton::SetIcon(HICON hIcon) { return AskHandle<HICON>(*this, BM_SETIMAGE, IMAGE_ICON, Param(hIcon)); }
HICON CButton::GetIcon() const { return AskHandle<HICON>(*this, BM_GETIMAGE, IMAGE_ICON); }
HBITMAP CButton::SetBitmap(HBITMAP hBitmap) {
  return AskHandle<HBITMAP>(*this, BM_SETIMAGE, IMAGE_BITMAP, Param(hBitmap));
}
HBITMAP CButton::GetBitmap() const { return AskHandle<HBITMAP>(*this, BM_GETIMAGE, IMAGE_BITMAP); }
void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

// ---- CEdit ---------------------------------------------------------------------------------------

CEdit::CEdit() = default;
CEdit::~CEdit() { CWnd::DestroyWindow(); }

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(L"EDIT", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CEdit::CanUndo() const { return AskNumber(*this, EM_CANUNDO); }
int CEdit::GetLineCount() const { return AskNumber(*this, EM_GETLINECOUNT); }
BOOL CEdit::GetModify() const { return AskNumber(*this, EM_GETMODIFY); }
void CEdit::SetModify(BOOL bModified) { Ask(*this, EM_SETMODIFY, static_cast<WPARAM>(bModified)); }
void CEdit::GetRect(LPRECT lpRect) const { Ask(*this, EM_GETRECT, 0, Param(lpRect)); }
void CEdit::SetRect(LPCRECT lpRect) { Ask(*this, EM_SETRECT, 0, Param(lpRect)); }
void CEdit::SetRectNP(LPCRECT lpRect) { Ask(*this, EM_SETRECTNP, 0, Param(lpRect)); }
DWORD CEdit::GetSel() const { return static_cast<DWORD>(Ask(*this, EM_GETSEL)); }

void CEdit::GetSel(int& nStartChar, int& nEndChar) const {
  DWORD first = 0;
  DWORD last = 0;
  Ask(*this, EM_GETSEL, reinterpret_cast<WPARAM>(&first), Param(&last));
  nStartChar = static_cast<int>(first);
  nEndChar = static_cast<int>(last);
}

void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll) {
  SetSel(static_cast<short>(LOWORD(dwSelection)), static_cast<short>(HIWORD(dwSelection)), bNoScroll);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll) {
  Ask(*this, EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
  if (!bNoScroll) Ask(*this, EM_SCROLLCARET);
}

void CEdit::ReplaceSel(LPCWSTR lpszNewText, BOOL bCanUndo) {
  Ask(*this, EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), Param(lpszNewText));
}

int CEdit::GetLine(int nIndex, LPWSTR lpszBuffer, int nMaxLength) const {
  // The first word of the buffer says how much it holds.
  const auto room = static_cast<WORD>(nMaxLength);
  std::memcpy(lpszBuffer, &room, sizeof(room));
  return AskNumber(*this, EM_GETLINE, static_cast<WPARAM>(nIndex), Param(lpszBuffer));
}

int CEdit::LineFromChar(int nIndex) const {
  return AskNumber(*this, EM_LINEFROMCHAR, static_cast<WPARAM>(nIndex));
}
int CEdit::LineIndex(int nLine) const { return AskNumber(*this, EM_LINEINDEX, static_cast<WPARAM>(nLine)); }
int CEdit::LineLength(int nLine) const { return AskNumber(*this, EM_LINELENGTH, static_cast<WPARAM>(nLine)); }
void CEdit::LineScroll(int nLines, int nChars) {
  Ask(*this, EM_LINESCROLL, static_cast<WPARAM>(nChars), nLines);
}
int CEdit::GetFirstVisibleLine() const { return AskNumber(*this, EM_GETFIRSTVISIBLELINE); }
void CEdit::LimitText(int nChars) { Ask(*this, EM_LIMITTEXT, static_cast<WPARAM>(nChars)); }
void CEdit::SetLimitText(UINT nMax) { Ask(*this, EM_LIMITTEXT, nMax); }
UINT CEdit::GetLimitText() const { return static_cast<UINT>(Ask(*this, EM_GETLIMITTEXT)); }

void CEdit::SetMargins(UINT nLeft, UINT nRight) {
  Ask(*this, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
}

DWORD CEdit::GetMargins() const { return static_cast<DWORD>(Ask(*this, EM_GETMARGINS)); }
void CEdit::SetPasswordChar(WCHAR ch) { Ask(*this, EM_SETPASSWORDCHAR, static_cast<WPARAM>(ch)); }
WCHAR CEdit::GetPasswordChar() const { return static_cast<WCHAR>(Ask(*this, EM_GETPASSWORDCHAR)); }
BOOL CEdit::SetReadOnly(BOOL bReadOnly) {
  return AskNumber(*this, EM_SETREADONLY, static_cast<WPARAM>(bReadOnly));
}
BOOL CEdit::Undo() { return AskNumber(*this, EM_UNDO); }
void CEdit::EmptyUndoBuffer() { Ask(*this, EM_EMPTYUNDOBUFFER); }
void CEdit::Clear() { Ask(*this, WM_CLEAR); }
void CEdit::Copy() { Ask(*this, WM_COPY); }
void CEdit::Cut() { Ask(*this, WM_CUT); }
void CEdit::Paste() { Ask(*this, WM_PASTE); }

// ---- CScrollBar ----------------------------------------------------------------------------------

CScrollBar::CScrollBar() = default;
CScrollBar::~CScrollBar() { CWnd::DestroyWindow(); }

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(L"SCROLLBAR", nullptr, dwStyle, rect, pParentWnd, nID);
}

int CScrollBar::GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
int CScrollBar::SetScrollPos(int nPos, BOOL bRedraw) { return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }

void CScrollBar::GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const {
  ::GetScrollRange(m_hWnd, SB_CTL, lpMinPos, lpMaxPos);
}

void CScrollBar::SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw) {
  ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
}

void CScrollBar::ShowScrollBar(BOOL bShow) { ::ShowScrollBar(m_hWnd, SB_CTL, bShow); }
BOOL CScrollBar::EnableScrollBar(UINT nArrowFlags) { return ::EnableScrollBar(m_hWnd, SB_CTL, nArrowFlags); }

BOOL CScrollBar::SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw) {
  return CWnd::SetScrollInfo(SB_CTL, lpScrollInfo, bRedraw);
}

BOOL CScrollBar::GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask) {
  return CWnd::GetScrollInfo(SB_CTL, lpScrollInfo, nMask);
}

int CScrollBar::GetScrollLimit() { return CWnd::GetScrollLimit(SB_CTL); }

// ---- CProgressCtrl -------------------------------------------------------------------------------

namespace {

bool LoadControls(DWORD classes) {
  INITCOMMONCONTROLSEX wanted = {};
  wanted.dwSize = sizeof(wanted);
  wanted.dwICC = classes;
  return ::InitCommonControlsEx(&wanted) != FALSE;
}

}  // namespace

CProgressCtrl::CProgressCtrl() = default;
CProgressCtrl::~CProgressCtrl() { CWnd::DestroyWindow(); }

BOOL CProgressCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return LoadControls(ICC_PROGRESS_CLASS) &&
         CWnd::Create(PROGRESS_CLASSW, nullptr, dwStyle, rect, pParentWnd, nID);
}

void CProgressCtrl::SetRange(short nLower, short nUpper) {
  Ask(*this, PBM_SETRANGE, 0, MAKELPARAM(nLower, nUpper));
}

void CProgressCtrl::SetRange32(int nLower, int nUpper) {
  Ask(*this, PBM_SETRANGE32, static_cast<WPARAM>(nLower), nUpper);
}

void CProgressCtrl::GetRange(int& nLower, int& nUpper) const {
  nLower = AskNumber(*this, PBM_GETRANGE, TRUE);
  nUpper = AskNumber(*this, PBM_GETRANGE, FALSE);
}

int CProgressCtrl::SetPos(int nPos) { return AskNumber(*this, PBM_SETPOS, static_cast<WPARAM>(nPos)); }
int CProgressCtrl::OffsetPos(int nPos) { return AskNumber(*this, PBM_DELTAPOS, static_cast<WPARAM>(nPos)); }
int CProgressCtrl::GetPos() const { return AskNumber(*this, PBM_GETPOS); }
int CProgressCtrl::SetStep(int nStep) { return AskNumber(*this, PBM_SETSTEP, static_cast<WPARAM>(nStep)); }
int CProgressCtrl::StepIt() { return AskNumber(*this, PBM_STEPIT); }

// ---- CStatusBarCtrl ------------------------------------------------------------------------------

CStatusBarCtrl::CStatusBarCtrl() = default;
CStatusBarCtrl::~CStatusBarCtrl() { CWnd::DestroyWindow(); }

BOOL CStatusBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return LoadControls(ICC_BAR_CLASSES) &&
         CWnd::Create(STATUSCLASSNAMEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CStatusBarCtrl::SetText(LPCWSTR lpszText, int nPane, int nType) {
  return AskNumber(*this, SB_SETTEXTW, static_cast<WPARAM>(nPane | nType), Param(lpszText));
}

int CStatusBarCtrl::GetText(LPWSTR lpszText, int nPane, int* pType) const {
  const LRESULT answer = Ask(*this, SB_GETTEXTW, static_cast<WPARAM>(nPane), Param(lpszText));
  if (pType != nullptr) *pType = HIWORD(answer);
  return LOWORD(answer);
}

CString CStatusBarCtrl::GetText(int nPane, int* pType) const {
  CString text;
  GetText(text.GetBuffer(GetTextLength(nPane) + 1), nPane, pType);
  text.ReleaseBuffer();
  return text;
}

int CStatusBarCtrl::GetTextLength(int nPane, int* pType) const {
  const LRESULT answer = Ask(*this, SB_GETTEXTLENGTHW, static_cast<WPARAM>(nPane));
  if (pType != nullptr) *pType = HIWORD(answer);
  return LOWORD(answer);
}

BOOL CStatusBarCtrl::SetParts(int nParts, int* pWidths) {
  return AskNumber(*this, SB_SETPARTS, static_cast<WPARAM>(nParts), Param(pWidths));
}

int CStatusBarCtrl::GetParts(int nParts, int* pParts) const {
  return AskNumber(*this, SB_GETPARTS, static_cast<WPARAM>(nParts), Param(pParts));
}

BOOL CStatusBarCtrl::GetBorders(int* pBorders) const {
  return AskNumber(*this, SB_GETBORDERS, 0, Param(pBorders));
}
void CStatusBarCtrl::SetMinHeight(int nMin) { Ask(*this, SB_SETMINHEIGHT, static_cast<WPARAM>(nMin)); }
BOOL CStatusBarCtrl::SetSimple(BOOL bSimple) {
  return AskNumber(*this, SB_SIMPLE, static_cast<WPARAM>(bSimple));
}
BOOL CStatusBarCtrl::IsSimple() const { return AskNumber(*this, SB_ISSIMPLE); }

BOOL CStatusBarCtrl::GetRect(int nPane, LPRECT lpRect) const {
  return AskNumber(*this, SB_GETRECT, static_cast<WPARAM>(nPane), Param(lpRect));
}
