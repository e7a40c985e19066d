// Items as the API describes them: flags of the older functions, and MENUITEMINFOW.
#include "controls/menu.h"

#include <algorithm>

#include "world.h"

namespace desktop {

namespace {

constexpr UINT kTypeMask = MFT_STRING | MFT_OWNERDRAW | MFT_SEPARATOR | MFT_MENUBARBREAK | MFT_MENUBREAK |
                           MFT_RADIOCHECK | MFT_RIGHTJUSTIFY;
constexpr UINT kStateMask = MFS_GRAYED | MFS_CHECKED | MFS_HILITE | MFS_DEFAULT;
constexpr UINT kSizeWithoutBitmap = offsetof(MENUITEMINFOW, hbmpItem);

bool IsRightSize(const MENUITEMINFOW& info) {
  if (info.cbSize == sizeof(MENUITEMINFOW) || info.cbSize == kSizeWithoutBitmap) return true;
  SetLastError(ERROR_INVALID_PARAMETER);
  return false;
}

// MIIM_TYPE is the older form of MIIM_FTYPE, MIIM_STRING and MIIM_BITMAP together; the two do not mix.
bool IsRightMask(UINT mask) {
  if (!(mask & MIIM_TYPE) || !(mask & (MIIM_STRING | MIIM_FTYPE | MIIM_BITMAP))) return true;
  SetLastError(ERROR_INVALID_PARAMETER);
  return false;
}

void SetText(MenuItem& item, LPCWSTR text) {
  item.hasText = text != nullptr;
  item.text = text ? text : L"";
}

void SetType(MenuItem& item, const MENUITEMINFOW& info) {
  item.type = info.fType & kTypeMask;
  if (info.fMask & MIIM_TYPE) {
    if (item.type & (MFT_SEPARATOR | MFT_OWNERDRAW))
      SetText(item, nullptr);
    else
      SetText(item, info.dwTypeData);
  }
}

bool PointsAtItself(HMENU submenu, const Menu* menu, int depth = 0) {
  constexpr int kDeepest = 25;
  const Menu* inner = MenuFromHandle(submenu);
  if (!inner) return false;
  if (inner == menu || depth > kDeepest) return true;
  return std::any_of(inner->items.begin(), inner->items.end(), [&](const MenuItem& item) {
    return item.submenu && PointsAtItself(item.submenu, menu, depth + 1);
  });
}

bool SetSubmenu(const Menu& menu, MenuItem& item, HMENU submenu) {
  if (submenu && (!MenuFromHandleOrError(submenu) || PointsAtItself(submenu, &menu))) return false;
  if (submenu) MenuFromHandle(submenu)->popup = true;
  item.submenu = submenu;
  return true;
}

bool SetInfo(const Menu& menu, MenuItem& item, const MENUITEMINFOW& info) {
  if ((info.fMask & MIIM_SUBMENU) && !SetSubmenu(menu, item, info.hSubMenu)) return false;
  if (info.fMask & (MIIM_TYPE | MIIM_FTYPE)) SetType(item, info);
  if (info.fMask & MIIM_STRING) SetText(item, info.dwTypeData);
  if (info.fMask & MIIM_STATE) item.state = info.fState & kStateMask;
  if (info.fMask & MIIM_ID) item.id = info.wID;
  if (info.fMask & MIIM_CHECKMARKS) {
    item.checkedBitmap = info.hbmpChecked;
    item.uncheckedBitmap = info.hbmpUnchecked;
  }
  if (info.fMask & MIIM_DATA) item.data = info.dwItemData;
  if ((info.fMask & MIIM_BITMAP) && info.cbSize == sizeof(MENUITEMINFOW)) item.bitmap = info.hbmpItem;
  if (!item.hasText && !(item.type & MFT_OWNERDRAW) && !item.bitmap) item.type |= MFT_SEPARATOR;
  return true;
}

// The text with the rules for its length: cut to the buffer, or only counted without one.
void GetText(const MenuItem& item, MENUITEMINFOW& info) {
  if (!item.hasText) {
    if (info.dwTypeData && info.cch) *info.dwTypeData = 0;
    info.cch = 0;
    return;
  }
  const auto length = static_cast<UINT>(item.text.size());
  if (!info.dwTypeData || !info.cch) {
    info.cch = length;
    return;
  }
  lstrcpynW(info.dwTypeData, item.text.c_str(), static_cast<int>(info.cch));
  info.cch = std::min(info.cch - 1, length);
}

void GetInfo(const MenuItem& item, MENUITEMINFOW& info) {
  const bool hasBitmap = info.cbSize == sizeof(MENUITEMINFOW);
  if (info.fMask & (MIIM_TYPE | MIIM_FTYPE)) info.fType = item.type & kTypeMask;
  if ((info.fMask & (MIIM_TYPE | MIIM_BITMAP)) && hasBitmap) info.hbmpItem = item.bitmap;
  if ((info.fMask & MIIM_TYPE) && (item.type & (MFT_OWNERDRAW | MFT_SEPARATOR))) {
    info.dwTypeData = nullptr;
    info.cch = 0;
  } else if (info.fMask & (MIIM_TYPE | MIIM_STRING)) {
    GetText(item, info);
  }
  if (info.fMask & MIIM_STATE) info.fState = item.state & kStateMask;
  if (info.fMask & MIIM_ID) info.wID = item.id;
  if (info.fMask & MIIM_SUBMENU) info.hSubMenu = item.submenu;
  if (info.fMask & MIIM_CHECKMARKS) {
    info.hbmpChecked = item.checkedBitmap;
    info.hbmpUnchecked = item.uncheckedBitmap;
  }
  if (info.fMask & MIIM_DATA) info.dwItemData = item.data;
}

// The arguments of AppendMenuW and its like in the newer form.
MENUITEMINFOW InfoOf(UINT flags, UINT_PTR id, LPCWSTR text) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_STATE | MIIM_ID | MIIM_FTYPE;
  info.fType = flags & (MFT_OWNERDRAW | MFT_SEPARATOR | MFT_MENUBARBREAK | MFT_MENUBREAK);
  if (flags & MF_HELP) info.fType |= MFT_RIGHTJUSTIFY;
  info.fState = flags & (MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_HILITE);
  info.wID = static_cast<UINT>(id);
  if (flags & MF_POPUP) {
    info.fMask |= MIIM_SUBMENU;
    info.hSubMenu = reinterpret_cast<HMENU>(id);
  }
  if (flags & MF_OWNERDRAW) {
    info.fMask |= MIIM_DATA;
    info.dwItemData = reinterpret_cast<ULONG_PTR>(text);
  } else if (!(flags & MF_SEPARATOR)) {
    info.fMask |= MIIM_STRING;
    info.dwTypeData = const_cast<LPWSTR>(text);
  }
  return info;
}

// Where to insert: before an item, or at the end of the menu when it is not there.
FoundItem PlaceFor(HMENU handle, UINT item, bool byPosition) {
  Menu* menu = MenuFromHandleOrError(handle);
  if (!menu) return {};
  const FoundItem before = FindMenuItem(handle, item, byPosition ? MF_BYPOSITION : MF_BYCOMMAND);
  if (before) return before;
  return {menu, static_cast<int>(menu->items.size())};
}

bool Insert(const FoundItem& place, const MENUITEMINFOW& info) {
  MenuItem item;
  if (!SetInfo(*place.menu, item, info)) return false;
  if (item.IsSeparator()) item.state |= MFS_DISABLED;
  place.menu->items.insert(place.menu->items.begin() + place.position, std::move(item));
  return true;
}

}  // namespace

}  // namespace desktop

using desktop::FindMenuItem;
using desktop::WorldLock;
using desktop::WorldMutex;

BOOL InsertMenuItemW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info) {
  if (!desktop::IsRightSize(*info) || !desktop::IsRightMask(info->fMask)) return FALSE;
  WorldLock lock(WorldMutex());
  const auto place = desktop::PlaceFor(menu, item, byPosition != FALSE);
  return place && desktop::Insert(place, *info);
}

BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text) {
  WorldLock lock(WorldMutex());
  const auto place = desktop::PlaceFor(menu, position, (flags & MF_BYPOSITION) != 0);
  return place && desktop::Insert(place, desktop::InfoOf(flags, id, text));
}

BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
  return InsertMenuW(menu, static_cast<UINT>(-1), flags | MF_BYPOSITION, id, text);
}

BOOL ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text) {
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, position, flags);
  if (!found) return FALSE;
  desktop::MenuItem changed;
  if (!desktop::SetInfo(*found.menu, changed, desktop::InfoOf(flags, id, text))) return FALSE;
  const HMENU before = found->submenu;
  changed.checkedBitmap = found->checkedBitmap;
  changed.uncheckedBitmap = found->uncheckedBitmap;
  *found = std::move(changed);
  if (before && before != found->submenu) desktop::FreeMenu(before);
  return TRUE;
}

BOOL GetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPMENUITEMINFOW info) {
  if (!desktop::IsRightSize(*info) || !desktop::IsRightMask(info->fMask)) return FALSE;
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, item, byPosition ? MF_BYPOSITION : MF_BYCOMMAND);
  if (!found) return FALSE;
  desktop::GetInfo(*found, *info);
  return TRUE;
}

BOOL SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info) {
  if (!desktop::IsRightSize(*info) || !desktop::IsRightMask(info->fMask)) return FALSE;
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, item, byPosition ? MF_BYPOSITION : MF_BYCOMMAND);
  if (!found) return FALSE;
  desktop::MenuItem changed = *found;
  if (!desktop::SetInfo(*found.menu, changed, *info)) return FALSE;
  const HMENU before = found->submenu;
  *found = std::move(changed);
  if (before && before != found->submenu) desktop::FreeMenu(before);
  return TRUE;
}
