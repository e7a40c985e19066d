// CMenu.
#include "gdiobj_maps.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

using framework::HandleOf;

namespace {

using MenuOwners = framework::OwnerMap<CMenu, HMENU>;
using MenuTemporaries = framework::TemporaryTable<CMenu, HMENU, &CMenu::m_hMenu>;

MenuOwners& Owners() {
  static framework::Immortal<MenuOwners> owners;
  return *owners;
}

BOOL Keep(CMenu& menu, HMENU created) {
  if (created == nullptr) return FALSE;
  if (menu.Attach(created)) return TRUE;
  ::DestroyMenu(created);
  return FALSE;
}

}  // namespace

CMenu::CMenu() : m_hMenu(nullptr) {}
CMenu::~CMenu() { DestroyMenu(); }

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu) {
  if (hMenu == nullptr) return nullptr;
  if (CMenu* const owner = Owners().Find(hMenu)) return owner;
  auto* const table = framework::TableOfThread<MenuTemporaries>(framework::HandleKind::Menu);
  return table == nullptr ? nullptr : table->Get<CMenu>(hMenu);
}

CMenu* PASCAL CMenu::FromHandlePermanent(HMENU hMenu) {
  return hMenu == nullptr ? nullptr : Owners().Find(hMenu);
}

void PASCAL CMenu::DeleteTempMap() { framework::DeleteTemporaryOf(framework::HandleKind::Menu); }

BOOL CMenu::Attach(HMENU hMenu) {
  if (hMenu == nullptr || m_hMenu != nullptr) return FALSE;
  if (!Owners().Add(hMenu, this)) return FALSE;
  m_hMenu = hMenu;
  return TRUE;
}

HMENU CMenu::Detach() {
  const HMENU handle = m_hMenu;
  if (handle != nullptr) Owners().Remove(handle, this);
  m_hMenu = nullptr;
  return handle;
}

BOOL CMenu::CreateMenu() { return Keep(*this, ::CreateMenu()); }
BOOL CMenu::CreatePopupMenu() { return Keep(*this, ::CreatePopupMenu()); }

BOOL CMenu::LoadMenu(LPCWSTR lpszResourceName) {
  const HINSTANCE module = AfxFindResourceHandle(lpszResourceName, MAKEINTRESOURCEW(4) /* RT_MENU */);
  return Keep(*this, ::LoadMenuW(module, lpszResourceName));
}

BOOL CMenu::LoadMenu(UINT nIDResource) { return LoadMenu(MAKEINTRESOURCEW(nIDResource)); }

BOOL CMenu::LoadMenuIndirect(const void* lpMenuTemplate) {
  return Keep(*this, ::LoadMenuIndirectW(lpMenuTemplate));
}

BOOL CMenu::DestroyMenu() {
  const HMENU handle = Detach();
  return handle != nullptr && ::DestroyMenu(handle);
}

BOOL CMenu::DeleteMenu(UINT nPosition, UINT nFlags) { return ::DeleteMenu(m_hMenu, nPosition, nFlags); }
BOOL CMenu::RemoveMenu(UINT nPosition, UINT nFlags) { return ::RemoveMenu(m_hMenu, nPosition, nFlags); }

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect) {
  return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, HandleOf(pWnd), lpRect);
}

BOOL CMenu::TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm) {
  return ::TrackPopupMenuEx(m_hMenu, fuFlags, x, y, HandleOf(pWnd), lptpm);
}

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, LPCWSTR lpszNewItem) {
  return ::AppendMenuW(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCWSTR lpszNewItem) {
  return ::InsertMenuW(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCWSTR lpszNewItem) {
  return ::ModifyMenuW(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::InsertMenuItem(UINT uItem, LPMENUITEMINFOW lpMenuItemInfo, BOOL fByPos) {
  return ::InsertMenuItemW(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

BOOL CMenu::GetMenuItemInfo(UINT uItem, LPMENUITEMINFOW lpMenuItemInfo, BOOL fByPos) {
  return ::GetMenuItemInfoW(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

BOOL CMenu::SetMenuItemInfo(UINT uItem, LPMENUITEMINFOW lpMenuItemInfo, BOOL fByPos) {
  return ::SetMenuItemInfoW(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

UINT CMenu::CheckMenuItem(UINT nIDCheckItem, UINT nCheck) {
  return ::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck);
}

BOOL CMenu::CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags) {
  return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
}

UINT CMenu::EnableMenuItem(UINT nIDEnableItem, UINT nEnable) {
  return static_cast<UINT>(::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable));
}

BOOL CMenu::SetDefaultItem(UINT uItem, BOOL fByPos) {
  return ::SetMenuDefaultItem(m_hMenu, uItem, static_cast<UINT>(fByPos));
}

UINT CMenu::GetDefaultItem(UINT gmdiFlags, BOOL fByPos) {
  return ::GetMenuDefaultItem(m_hMenu, static_cast<UINT>(fByPos), gmdiFlags);
}

UINT CMenu::GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
UINT CMenu::GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }
UINT CMenu::GetMenuState(UINT nID, UINT nFlags) const { return ::GetMenuState(m_hMenu, nID, nFlags); }

int CMenu::GetMenuString(UINT nIDItem, LPWSTR lpString, int nMaxCount, UINT nFlags) const {
  return ::GetMenuStringW(m_hMenu, nIDItem, lpString, nMaxCount, nFlags);
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const {
  const int length = ::GetMenuStringW(m_hMenu, nIDItem, nullptr, 0, nFlags);
  ::GetMenuStringW(m_hMenu, nIDItem, rString.GetBuffer(length + 1), length + 1, nFlags);
  rString.ReleaseBuffer();
  return rString.GetLength();
}

CMenu* CMenu::GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }
void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}
void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}
