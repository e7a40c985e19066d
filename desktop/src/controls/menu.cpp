// The table of menus; what a menu holds, item by item.
#include "controls/menu.h"

#include <algorithm>

#include "world.h"

namespace desktop {

namespace {

struct MenuTable {
  std::map<HMENU, std::unique_ptr<Menu>> menus;
  ULONG_PTR next = 0x20000;
};

MenuTable& TheMenus() {
  static auto& table = *new MenuTable;
  return table;
}

const RegisterReset g_reset(0, [] { TheMenus().menus.clear(); });
const RegisterCount g_count(Counted::menus, [] { return static_cast<int>(TheMenus().menus.size()); });

FoundItem FindById(Menu& menu, UINT id) {
  FoundItem popup;
  for (size_t i = 0; i < menu.items.size(); ++i) {
    const MenuItem& item = menu.items[i];
    if (Menu* submenu = item.submenu ? MenuFromHandle(item.submenu) : nullptr) {
      if (const FoundItem inner = FindById(*submenu, id)) return inner;
      // A popup itself is meant only when no command has this number.
      if (item.id == id && !popup) popup = {&menu, static_cast<int>(i)};
    } else if (item.id == id) {
      return {&menu, static_cast<int>(i)};
    }
  }
  return popup;
}

}  // namespace

Menu* MenuFromHandle(HMENU handle) {
  const auto found = TheMenus().menus.find(handle);
  return found == TheMenus().menus.end() ? nullptr : found->second.get();
}

Menu* MenuFromHandleOrError(HMENU handle) {
  Menu* menu = MenuFromHandle(handle);
  if (!menu) SetLastError(ERROR_INVALID_MENU_HANDLE);
  return menu;
}

Menu* NewMenu(bool popup) {
  if (FailsHere()) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  auto menu = std::make_unique<Menu>();
  MenuTable& table = TheMenus();
  menu->handle = reinterpret_cast<HMENU>(table.next += 2);
  menu->popup = popup;
  Menu* made = menu.get();
  table.menus[made->handle] = std::move(menu);
  return made;
}

void FreeMenu(HMENU handle) {
  const auto found = TheMenus().menus.find(handle);
  if (found == TheMenus().menus.end()) return;
  // Out of the table first: a menu that was put into itself ends here.
  const std::unique_ptr<Menu> menu = std::move(found->second);
  TheMenus().menus.erase(found);
  for (const MenuItem& item : menu->items)
    if (item.submenu) FreeMenu(item.submenu);
}

FoundItem FindMenuItem(HMENU handle, UINT item, UINT flags) {
  Menu* menu = MenuFromHandleOrError(handle);
  if (!menu) return {};
  if (flags & MF_BYPOSITION) {
    if (item < menu->items.size()) return {menu, static_cast<int>(item)};
  } else if (const FoundItem found = FindById(*menu, item)) {
    return found;
  }
  SetLastError(ERROR_MENU_ITEM_NOT_FOUND);
  return {};
}

}  // namespace desktop

using desktop::FindMenuItem;
using desktop::Menu;
using desktop::MenuFromHandleOrError;
using desktop::MenuItem;
using desktop::WorldLock;
using desktop::WorldMutex;

HMENU CreateMenu() {
  WorldLock lock(WorldMutex());
  const Menu* menu = desktop::NewMenu(false);
  return menu ? menu->handle : nullptr;
}

HMENU CreatePopupMenu() {
  WorldLock lock(WorldMutex());
  const Menu* menu = desktop::NewMenu(true);
  return menu ? menu->handle : nullptr;
}

BOOL DestroyMenu(HMENU menu) {
  WorldLock lock(WorldMutex());
  if (!MenuFromHandleOrError(menu)) return FALSE;
  desktop::FreeMenu(menu);
  return TRUE;
}

BOOL IsMenu(HMENU menu) {
  WorldLock lock(WorldMutex());
  return MenuFromHandleOrError(menu) != nullptr;
}

int GetMenuItemCount(HMENU menu) {
  WorldLock lock(WorldMutex());
  const Menu* found = MenuFromHandleOrError(menu);
  return found ? static_cast<int>(found->items.size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position) {
  WorldLock lock(WorldMutex());
  const auto item = FindMenuItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
  return !item || item->submenu ? static_cast<UINT>(-1) : item->id;
}

HMENU GetSubMenu(HMENU menu, int position) {
  WorldLock lock(WorldMutex());
  const auto item = FindMenuItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
  return item ? item->submenu : nullptr;
}

UINT GetMenuState(HMENU menu, UINT item, UINT flags) {
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, item, flags);
  if (!found) return static_cast<UINT>(-1);
  const UINT bits = found->type | found->state;
  const Menu* submenu = found->submenu ? desktop::MenuFromHandle(found->submenu) : nullptr;
  if (!found->submenu) return bits;
  if (!submenu) return static_cast<UINT>(-1);
  return (static_cast<UINT>(submenu->items.size()) << 8) | ((bits | MF_POPUP) & 0xFF);
}

int GetMenuStringW(HMENU menu, UINT item, LPWSTR text, int size, UINT flags) {
  WorldLock lock(WorldMutex());
  if (text && size) *text = 0;
  const auto found = FindMenuItem(menu, item, flags);
  if (!found || !found->hasText) return 0;
  if (!text || !size) return static_cast<int>(found->text.size());
  lstrcpynW(text, found->text.c_str(), size);
  return lstrlenW(text);
}

BOOL RemoveMenu(HMENU menu, UINT position, UINT flags) {
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, position, flags);
  if (!found) return FALSE;
  found.menu->items.erase(found.menu->items.begin() + found.position);
  found.menu->focused = -1;
  return TRUE;
}

BOOL DeleteMenu(HMENU menu, UINT position, UINT flags) {
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, position, flags);
  if (!found) return FALSE;
  if (found->submenu) desktop::FreeMenu(found->submenu);
  // The menu may have been its own submenu.
  return MenuFromHandleOrError(menu) ? RemoveMenu(menu, position, flags) : TRUE;
}

DWORD CheckMenuItem(HMENU menu, UINT item, UINT flags) {
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, item, flags);
  if (!found) return static_cast<DWORD>(-1);
  const UINT before = found->state & MF_CHECKED;
  found->state = (found->state & ~static_cast<UINT>(MF_CHECKED)) | (flags & MF_CHECKED);
  return before;
}

BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags) {
  constexpr UINT kBits = MF_GRAYED | MF_DISABLED;
  WorldLock lock(WorldMutex());
  const auto found = FindMenuItem(menu, item, flags);
  if (!found) return -1;
  const UINT before = found->state & kBits;
  found->state = (found->state & ~kBits) | (flags & kBits);
  return static_cast<BOOL>(before);
}

BOOL CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT check, UINT flags) {
  WorldLock lock(WorldMutex());
  const Menu* group = nullptr;
  bool done = false;
  for (UINT id = first; id <= last; ++id) {
    const auto found = FindMenuItem(menu, id, flags);
    if (!found || found->IsSeparator()) continue;
    // The first item found says in which menu the group lies.
    if (!group) group = found.menu;
    if (found.menu != group) continue;
    if (id == check) {
      found->type |= MFT_RADIOCHECK;
      found->state |= MFS_CHECKED;
      done = true;
    } else {
      found->state &= ~static_cast<UINT>(MFS_CHECKED);
    }
    if (id == last) break;
  }
  return done;
}

BOOL HiliteMenuItem(HWND window, HMENU menu, UINT item, UINT flags) {
  {
    WorldLock lock(WorldMutex());
    const auto found = FindMenuItem(menu, item, flags);
    if (!found) return FALSE;
    found->state = (found->state & ~static_cast<UINT>(MF_HILITE)) | (flags & MF_HILITE);
  }
  DrawMenuBar(window);
  return TRUE;
}

BOOL SetMenuDefaultItem(HMENU menu, UINT item, UINT byPosition) {
  WorldLock lock(WorldMutex());
  Menu* found = MenuFromHandleOrError(menu);
  if (!found) return FALSE;
  const bool none = item == static_cast<UINT>(-1);
  const auto isMeant = [&](const MenuItem& candidate, UINT position) {
    return byPosition ? position == item : candidate.id == item;
  };
  bool done = none;
  UINT position = 0;
  for (MenuItem& candidate : found->items) {
    candidate.state &= ~static_cast<UINT>(MFS_DEFAULT);
    if (!none && !done && isMeant(candidate, position)) {
      candidate.state |= MFS_DEFAULT;
      done = true;
    }
    ++position;
  }
  return done;
}

UINT GetMenuDefaultItem(HMENU menu, UINT byPosition, UINT flags) {
  constexpr auto kNone = static_cast<UINT>(-1);
  WorldLock lock(WorldMutex());
  const Menu* found = MenuFromHandleOrError(menu);
  if (!found) return kNone;
  const auto item = std::find_if(found->items.begin(), found->items.end(), [](const MenuItem& candidate) {
    return (candidate.state & MFS_DEFAULT) != 0;
  });
  if (item == found->items.end()) return kNone;
  if (!(flags & GMDI_USEDISABLED) && !item->IsEnabled()) return kNone;
  if ((flags & GMDI_GOINTOPOPUPS) && item->submenu) {
    const UINT inner = GetMenuDefaultItem(item->submenu, byPosition, flags);
    if (inner != kNone) return inner;
  }
  return byPosition ? static_cast<UINT>(item - found->items.begin()) : item->id;
}
