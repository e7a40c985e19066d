// The standard controls: static text, button, edit, list box, combo box, scroll bar.
// Included by <afxwin.h>.
//
// Functions without a comment send the message of their name to the control and return its result.
#pragma once

#include <afxwnd.h>

class CBitmap;

class VORNFW_API CStatic : public CWnd {
  DECLARE_DYNAMIC(CStatic)

 public:
  CStatic();
  ~CStatic() override;
  using CWnd::Create;
  virtual BOOL Create(LPCWSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);

  HICON SetIcon(HICON hIcon);
  HICON GetIcon() const;
  HBITMAP SetBitmap(HBITMAP hBitmap);
  HBITMAP GetBitmap() const;
  HCURSOR SetCursor(HCURSOR hCursor);
  HCURSOR GetCursor();

  // Owner-drawn (SS_OWNERDRAW).
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class VORNFW_API CButton : public CWnd {
  DECLARE_DYNAMIC(CButton)

 public:
  CButton();
  ~CButton() override;
  using CWnd::Create;
  virtual BOOL Create(LPCWSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  UINT GetState() const;
  void SetState(BOOL bHighlight);
  int GetCheck() const;
  void SetCheck(int nCheck);
  UINT GetButtonStyle() const;
  void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);
  HICON SetIcon(HICON hIcon);
  HICON GetIcon() const;
  HBITMAP SetBitmap(HBITMAP hBitmap);
  HBITMAP GetBitmap() const;

  // Owner-drawn (BS_OWNERDRAW).
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class VORNFW_API CEdit : public CWnd {
  DECLARE_DYNAMIC(CEdit)

 public:
  CEdit();
  ~CEdit() override;
  using CWnd::Create;
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  BOOL CanUndo() const;
  int GetLineCount() const;
  BOOL GetModify() const;
  void SetModify(BOOL bModified = TRUE);
  void GetRect(LPRECT lpRect) const;
  void SetRect(LPCRECT lpRect);
  void SetRectNP(LPCRECT lpRect);
  DWORD GetSel() const;
  void GetSel(int& nStartChar, int& nEndChar) const;
  void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
  void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
  void ReplaceSel(LPCWSTR lpszNewText, BOOL bCanUndo = FALSE);
  int GetLine(int nIndex, LPWSTR lpszBuffer, int nMaxLength) const;
  int LineFromChar(int nIndex = -1) const;
  int LineIndex(int nLine = -1) const;
  int LineLength(int nLine = -1) const;
  void LineScroll(int nLines, int nChars = 0);
  int GetFirstVisibleLine() const;
  void LimitText(int nChars = 0);
  void SetLimitText(UINT nMax);
  UINT GetLimitText() const;
  void SetMargins(UINT nLeft, UINT nRight);
  DWORD GetMargins() const;
  void SetPasswordChar(WCHAR ch);
  WCHAR GetPasswordChar() const;
  BOOL SetReadOnly(BOOL bReadOnly = TRUE);
  BOOL Undo();
  void EmptyUndoBuffer();
  void Clear();
  void Copy();
  void Cut();
  void Paste();
};

class VORNFW_API CListBox : public CWnd {
  DECLARE_DYNAMIC(CListBox)

 public:
  CListBox();
  ~CListBox() override;
  using CWnd::Create;
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetCount() const;
  int GetTopIndex() const;
  int SetTopIndex(int nIndex);
  DWORD_PTR GetItemData(int nIndex) const;
  int SetItemData(int nIndex, DWORD_PTR dwItemData);
  void* GetItemDataPtr(int nIndex) const;
  int SetItemDataPtr(int nIndex, void* pData);
  int GetItemRect(int nIndex, LPRECT lpRect) const;
  int GetSel(int nIndex) const;
  int GetText(int nIndex, LPWSTR lpszBuffer) const;
  void GetText(int nIndex, CString& rString) const;
  int GetTextLen(int nIndex) const;
  int GetItemHeight(int nIndex) const;
  int SetItemHeight(int nIndex, UINT cyItemHeight);
  int GetCurSel() const;
  int SetCurSel(int nSelect);
  int SetSel(int nIndex, BOOL bSelect = TRUE);
  int GetSelCount() const;
  int GetSelItems(int nMaxItems, LPINT rgIndex) const;
  int AddString(LPCWSTR lpszItem);
  int DeleteString(UINT nIndex);
  int InsertString(int nIndex, LPCWSTR lpszItem);
  void ResetContent();
  int FindString(int nStartAfter, LPCWSTR lpszItem) const;
  int FindStringExact(int nIndexStart, LPCWSTR lpszFind) const;
  int SelectString(int nStartAfter, LPCWSTR lpszItem);

  // Owner-drawn.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class VORNFW_API CComboBox : public CWnd {
  DECLARE_DYNAMIC(CComboBox)

 public:
  CComboBox();
  ~CComboBox() override;
  using CWnd::Create;
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetCount() const;
  int GetCurSel() const;
  int SetCurSel(int nSelect);
  DWORD_PTR GetItemData(int nIndex) const;
  int SetItemData(int nIndex, DWORD_PTR dwItemData);
  void* GetItemDataPtr(int nIndex) const;
  int SetItemDataPtr(int nIndex, void* pData);
  int GetLBText(int nIndex, LPWSTR lpszText) const;
  void GetLBText(int nIndex, CString& rString) const;
  int GetLBTextLen(int nIndex) const;
  int GetItemHeight(int nIndex) const;
  int SetItemHeight(int nIndex, UINT cyItemHeight);
  int GetTopIndex() const;
  int SetTopIndex(int nIndex);
  DWORD GetEditSel() const;
  BOOL SetEditSel(int nStartChar, int nEndChar);
  BOOL LimitText(int nMaxChars);
  BOOL GetDroppedState() const;
  void ShowDropDown(BOOL bShowIt = TRUE);
  void GetDroppedControlRect(LPRECT lprect) const;
  int GetDroppedWidth() const;
  int SetDroppedWidth(UINT nWidth);
  BOOL GetExtendedUI() const;
  int SetExtendedUI(BOOL bExtended = TRUE);
  int AddString(LPCWSTR lpszString);
  int DeleteString(UINT nIndex);
  int InsertString(int nIndex, LPCWSTR lpszString);
  void ResetContent();
  int FindString(int nStartAfter, LPCWSTR lpszString) const;
  int FindStringExact(int nIndexStart, LPCWSTR lpszFind) const;
  int SelectString(int nStartAfter, LPCWSTR lpszString);
  void Clear();
  void Copy();
  void Cut();
  void Paste();

  // Owner-drawn.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class VORNFW_API CScrollBar : public CWnd {
  DECLARE_DYNAMIC(CScrollBar)

 public:
  CScrollBar();
  ~CScrollBar() override;
  using CWnd::Create;
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetScrollPos() const;
  int SetScrollPos(int nPos, BOOL bRedraw = TRUE);
  void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const;
  void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
  void ShowScrollBar(BOOL bShow = TRUE);
  BOOL EnableScrollBar(UINT nArrowFlags = ESB_ENABLE_BOTH);
  BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
  BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
  int GetScrollLimit();
};
