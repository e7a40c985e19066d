// Menus and accelerator tables from resources.
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/menu.h"
#include "kernel/resource.h"
#include "world.h"

namespace desktop {

namespace {

constexpr int kDeepest = 32;
constexpr UINT kExPopup = 0x01;
constexpr UINT kExLast = 0x80;

bool ReadItems(ResourceReader& reader, HMENU menu, int depth);

// A popup of either form: its items come right behind it.
bool ReadPopup(ResourceReader& reader, int depth, HMENU& popup,
               bool (*readItems)(ResourceReader&, HMENU, int)) {
  popup = CreatePopupMenu();
  if (popup && depth < kDeepest && readItems(reader, popup, depth + 1)) return true;
  if (popup) DestroyMenu(popup);
  return false;
}

bool ReadItems(ResourceReader& reader, HMENU menu, int depth) {
  for (;;) {
    const UINT flags = reader.U16();
    UINT_PTR id = flags & MF_POPUP ? 0 : reader.U16();
    const std::wstring text = reader.Text();
    if (reader.Failed()) return false;
    UINT kind = flags & ~static_cast<UINT>(MF_END);
    if (flags & MF_POPUP) {
      HMENU popup = nullptr;
      if (!ReadPopup(reader, depth, popup, ReadItems)) return false;
      id = reinterpret_cast<UINT_PTR>(popup);
    } else if (text.empty() && id == 0) {
      kind |= MF_SEPARATOR;
    }
    if (!AppendMenuW(menu, kind, id, text.c_str())) return false;
    if (flags & MF_END) return true;
  }
}

bool ReadItemsEx(ResourceReader& reader, HMENU menu, int depth) {
  for (;;) {
    reader.Align4();
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_ID | MIIM_TYPE;
    info.fType = reader.U32();
    info.fState = reader.U32();
    info.wID = reader.U32();
    const UINT flags = reader.U16();
    std::wstring text = reader.Text();
    if (text.empty()) info.fType |= MFT_SEPARATOR;
    info.dwTypeData = text.data();
    reader.Align4();
    if (flags & kExPopup) {
      reader.Skip(4);  // help id
      info.fMask |= MIIM_SUBMENU;
      if (!ReadPopup(reader, depth, info.hSubMenu, ReadItemsEx)) return false;
    }
    if (reader.Failed() || !InsertMenuItemW(menu, static_cast<UINT>(-1), TRUE, &info)) return false;
    if (flags & kExLast) return true;
  }
}

struct AccelTable {
  std::vector<ACCEL> entries;
};

struct AccelTables {
  std::map<HACCEL, AccelTable> tables;
  // Tables of resources are loaded once.
  std::map<const void*, HACCEL> loaded;
  ULONG_PTR next = 0x30000;
};

AccelTables& TheTables() {
  static auto& tables = *new AccelTables;
  return tables;
}

const RegisterReset g_reset(0, [] {
  TheTables().tables.clear();
  TheTables().loaded.clear();
});

HACCEL AddTable(std::vector<ACCEL> entries) {
  AccelTables& tables = TheTables();
  const auto handle = reinterpret_cast<HACCEL>(tables.next += 2);
  tables.tables[handle].entries = std::move(entries);
  return handle;
}

std::vector<ACCEL> ReadAccelerators(const ResourceBytes& bytes) {
  constexpr WORD kFlags = FVIRTKEY | FNOINVERT | FSHIFT | FCONTROL | FALT;
  constexpr WORD kLast = 0x80;
  std::vector<ACCEL> entries;
  ResourceReader reader(bytes.data, bytes.size);
  for (;;) {
    const WORD flags = reader.U16();
    ACCEL entry{static_cast<BYTE>(flags & kFlags), reader.U16(), 0};
    entry.cmd = reader.U16();
    reader.U16();
    if (reader.Failed()) return entries;
    entries.push_back(entry);
    if (flags & kLast) return entries;
  }
}

}  // namespace

std::vector<ACCEL> AcceleratorEntries(HACCEL table) {
  WorldLock lock(WorldMutex());
  const auto found = TheTables().tables.find(table);
  if (found != TheTables().tables.end()) return found->second.entries;
  SetLastError(ERROR_INVALID_ACCEL_HANDLE);
  return {};
}

}  // namespace desktop

using desktop::TheTables;
using desktop::WorldLock;
using desktop::WorldMutex;

HMENU LoadMenuIndirectW(const void* menuTemplate) {
  if (!menuTemplate) return nullptr;
  desktop::ResourceReader reader(menuTemplate, desktop::BytesFrom(menuTemplate));
  const WORD version = reader.U16();
  const WORD offset = reader.U16();
  reader.Skip(offset);
  if (version > 1) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  const HMENU menu = CreateMenu();
  if (!menu) return nullptr;
  const bool good =
      version == 0 ? desktop::ReadItems(reader, menu, 0) : desktop::ReadItemsEx(reader, menu, 0);
  if (good) return menu;
  DestroyMenu(menu);
  return nullptr;
}

HMENU LoadMenuW(HINSTANCE module, LPCWSTR name) {
  const auto bytes = desktop::LoadBytes(module, name, RT_MENU);
  return bytes.data ? LoadMenuIndirectW(bytes.data) : nullptr;
}

HACCEL LoadAcceleratorsW(HINSTANCE module, LPCWSTR name) {
  const auto bytes = desktop::LoadBytes(module, name, RT_ACCELERATOR);
  if (!bytes.data) return nullptr;
  WorldLock lock(WorldMutex());
  HACCEL& known = TheTables().loaded[bytes.data];
  if (!known || !TheTables().tables.count(known)) known = desktop::AddTable(desktop::ReadAccelerators(bytes));
  return known;
}

HACCEL CreateAcceleratorTableW(LPACCEL table, int count) {
  if (!table || count < 1) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  WorldLock lock(WorldMutex());
  if (desktop::FailsHere()) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  return desktop::AddTable({table, table + count});
}

int CopyAcceleratorTableW(HACCEL table, LPACCEL copy, int count) {
  const std::vector<ACCEL> entries = desktop::AcceleratorEntries(table);
  if (!copy) return static_cast<int>(entries.size());
  const size_t copied = std::min(entries.size(), static_cast<size_t>(std::max(count, 0)));
  std::copy_n(entries.begin(), copied, copy);
  return static_cast<int>(copied);
}

BOOL DestroyAcceleratorTable(HACCEL table) {
  WorldLock lock(WorldMutex());
  if (TheTables().tables.erase(table)) return TRUE;
  SetLastError(ERROR_INVALID_ACCEL_HANDLE);
  return FALSE;
}
