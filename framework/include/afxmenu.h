// CMenu: a menu. Included by <afxwin.h>.
//
// A CMenu owns its menu: the destructor destroys it, unless Detach took it away. Functions without a
// comment forward to the API function of the same name.
#pragma once

#include <afx.h>

class CWnd;

class VORNFW_API CMenu : public CObject {
  DECLARE_DYNCREATE(CMenu)

 public:
  HMENU m_hMenu;

  CMenu();
  ~CMenu() override;
  CMenu(const CMenu&) = delete;
  CMenu& operator=(const CMenu&) = delete;

  operator HMENU() const { return m_hMenu; }
  HMENU GetSafeHmenu() const { return m_hMenu; }
  BOOL operator==(const CMenu& menu) const { return m_hMenu == menu.m_hMenu; }
  BOOL operator!=(const CMenu& menu) const { return m_hMenu != menu.m_hMenu; }

  // The object of a handle: its owner or a temporary one. Null for a null handle.
  static CMenu* PASCAL FromHandle(HMENU hMenu);
  static CMenu* PASCAL FromHandlePermanent(HMENU hMenu);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HMENU hMenu);
  HMENU Detach();

  BOOL CreateMenu();
  BOOL CreatePopupMenu();
  // From the resources in force (AfxFindResourceHandle).
  BOOL LoadMenu(LPCWSTR lpszResourceName);
  BOOL LoadMenu(UINT nIDResource);
  BOOL LoadMenuIndirect(const void* lpMenuTemplate);
  BOOL DestroyMenu();

  BOOL DeleteMenu(UINT nPosition, UINT nFlags);
  BOOL RemoveMenu(UINT nPosition, UINT nFlags);
  // With TPM_RETURNCMD the chosen command, else nonzero on success. pWnd gets the messages.
  BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);
  BOOL TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm);

  BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCWSTR lpszNewItem = nullptr);
  BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCWSTR lpszNewItem = nullptr);
  BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCWSTR lpszNewItem = nullptr);
  BOOL InsertMenuItem(UINT uItem, LPMENUITEMINFOW lpMenuItemInfo, BOOL fByPos = FALSE);
  BOOL GetMenuItemInfo(UINT uItem, LPMENUITEMINFOW lpMenuItemInfo, BOOL fByPos = FALSE);
  BOOL SetMenuItemInfo(UINT uItem, LPMENUITEMINFOW lpMenuItemInfo, BOOL fByPos = FALSE);
  UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck);
  BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags);
  UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable);
  BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE);
  UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE);
  UINT GetMenuItemCount() const;
  UINT GetMenuItemID(int nPos) const;
  UINT GetMenuState(UINT nID, UINT nFlags) const;
  int GetMenuString(UINT nIDItem, LPWSTR lpString, int nMaxCount, UINT nFlags) const;
  int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
  CMenu* GetSubMenu(int nPos) const;

  // Owner-drawn items.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
};
