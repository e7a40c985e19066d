// The registry, in memory.
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "kernel.h"
#include "world.h"

namespace desktop {

namespace {

struct Value {
  std::wstring name;
  DWORD type = REG_NONE;
  std::vector<BYTE> data;
};

struct Key {
  std::wstring name;
  std::vector<std::shared_ptr<Key>> children;
  std::vector<Value> values;
  bool deleted = false;
};

using KeyPointer = std::shared_ptr<Key>;

struct Registry {
  std::map<ULONG_PTR, KeyPointer> roots;  // by the value of the predefined handle
  std::map<HKEY, KeyPointer> open;
  ULONG_PTR nextHandle = 0x1000;
};

Registry& TheRegistry() {
  static auto& registry = *new Registry;
  return registry;
}

const RegisterReset g_reset(0, [] { TheRegistry() = Registry(); });

KeyPointer FromHandle(HKEY handle) {
  const auto value = reinterpret_cast<ULONG_PTR>(handle);
  const auto low = static_cast<DWORD>(value);
  if (low >= 0x80000000u && low <= 0x80000003u) {
    KeyPointer& root = TheRegistry().roots[low];
    if (!root) root = std::make_shared<Key>();
    return root;
  }
  const auto found = TheRegistry().open.find(handle);
  return found == TheRegistry().open.end() ? nullptr : found->second;
}

HKEY Open(const KeyPointer& key) {
  Registry& registry = TheRegistry();
  const auto handle = reinterpret_cast<HKEY>(registry.nextHandle += 4);
  registry.open[handle] = key;
  return handle;
}

KeyPointer Child(const Key& key, const std::wstring& name) {
  const auto found = std::find_if(key.children.begin(), key.children.end(),
                                  [&](const KeyPointer& child) { return EqualNoCase(child->name, name); });
  return found == key.children.end() ? nullptr : *found;
}

std::vector<std::wstring> Split(LPCWSTR path) {
  std::vector<std::wstring> parts;
  for (LPCWSTR at = path ? path : L""; *at;) {
    const size_t length = wcscspn(at, L"\\");
    if (length) parts.emplace_back(at, length);
    at += length + (at[length] ? 1 : 0);
  }
  return parts;
}

KeyPointer Descend(KeyPointer key, LPCWSTR path) {
  for (const std::wstring& part : Split(path)) {
    key = Child(*key, part);
    if (!key) return nullptr;
  }
  return key;
}

KeyPointer DescendOrCreate(KeyPointer key, LPCWSTR path, bool& created) {
  created = false;
  for (const std::wstring& part : Split(path)) {
    KeyPointer child = Child(*key, part);
    if (!child) {
      created = true;
      child = std::make_shared<Key>();
      child->name = part;
      const auto behind = std::find_if(
          key->children.begin(), key->children.end(),
          [&](const KeyPointer& other) { return _wcsicmp(other->name.c_str(), part.c_str()) > 0; });
      key->children.insert(behind, child);
    }
    key = child;
  }
  return key;
}

std::vector<Value>::iterator FindValue(Key& key, LPCWSTR name) {
  return std::find_if(key.values.begin(), key.values.end(),
                      [&](const Value& value) { return EqualNoCase(value.name, name ? name : L""); });
}

void MarkDeleted(Key& key) {
  key.deleted = true;
  for (const KeyPointer& child : key.children) MarkDeleted(*child);
  key.children.clear();
  key.values.clear();
}

// Takes a key out of its parent.
LSTATUS Unlink(const KeyPointer& start, LPCWSTR path, bool withChildren) {
  const std::vector<std::wstring> parts = Split(path);
  if (parts.empty()) return ERROR_INVALID_PARAMETER;
  KeyPointer parent = start;
  for (size_t i = 0; i + 1 < parts.size(); ++i) {
    parent = Child(*parent, parts[i]);
    if (!parent) return ERROR_FILE_NOT_FOUND;
  }
  const KeyPointer key = Child(*parent, parts.back());
  if (!key) return ERROR_FILE_NOT_FOUND;
  if (!withChildren && !key->children.empty()) return ERROR_ACCESS_DENIED;
  parent->children.erase(std::find(parent->children.begin(), parent->children.end(), key));
  MarkDeleted(*key);
  return ERROR_SUCCESS;
}

// Hands out data of a value: type, size, bytes; ERROR_MORE_DATA when they do not fit.
LSTATUS Deliver(const Value& value, LPDWORD type, LPBYTE data, LPDWORD size) {
  if (type) *type = value.type;
  const auto needed = static_cast<DWORD>(value.data.size());
  if (!size) return data ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
  const bool fits = *size >= needed;
  *size = needed;
  if (!data) return ERROR_SUCCESS;
  if (!fits) return ERROR_MORE_DATA;
  std::copy(value.data.begin(), value.data.end(), data);
  return ERROR_SUCCESS;
}

LSTATUS DeliverName(const std::wstring& name, LPWSTR buffer, LPDWORD size) {
  if (*size <= name.size()) return ERROR_MORE_DATA;
  name.copy(buffer, name.size());
  buffer[name.size()] = 0;
  *size = static_cast<DWORD>(name.size());
  return ERROR_SUCCESS;
}

// Runs an operation on the key behind a handle, or says what is wrong with the handle.
template <typename Operation>
LSTATUS With(HKEY handle, Operation operation) {
  WorldLock lock(WorldMutex());
  const KeyPointer key = FromHandle(handle);
  if (!key) return ERROR_INVALID_HANDLE;
  if (key->deleted) return ERROR_KEY_DELETED;
  return operation(key);
}

}  // namespace

}  // namespace desktop

using desktop::KeyPointer;
using desktop::With;

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD, LPWSTR, DWORD, REGSAM, LPSECURITY_ATTRIBUTES,
                        PHKEY result, LPDWORD disposition) {
  if (!result) return ERROR_INVALID_PARAMETER;
  return With(key, [&](const KeyPointer& start) -> LSTATUS {
    bool created = false;
    *result = desktop::Open(desktop::DescendOrCreate(start, subKey, created));
    if (disposition) *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    return ERROR_SUCCESS;
  });
}

LSTATUS RegCreateKeyW(HKEY key, LPCWSTR subKey, PHKEY result) {
  return RegCreateKeyExW(key, subKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, result, nullptr);
}

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD, REGSAM, PHKEY result) {
  if (!result) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  return With(key, [&](const KeyPointer& start) -> LSTATUS {
    const KeyPointer found = desktop::Descend(start, subKey);
    if (!found) return ERROR_FILE_NOT_FOUND;
    *result = desktop::Open(found);
    return ERROR_SUCCESS;
  });
}

LSTATUS RegCloseKey(HKEY key) {
  desktop::WorldLock lock(desktop::WorldMutex());
  if (!desktop::FromHandle(key)) return ERROR_INVALID_HANDLE;
  desktop::TheRegistry().open.erase(key);
  return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
  return With(key, [&](const KeyPointer& found) -> LSTATUS {
    const auto value = desktop::FindValue(*found, name);
    return value == found->values.end() ? ERROR_FILE_NOT_FOUND : desktop::Deliver(*value, type, data, size);
  });
}

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size) {
  if (!data && size) return ERROR_NOACCESS;
  return With(key, [&](const KeyPointer& found) -> LSTATUS {
    auto value = desktop::FindValue(*found, name);
    if (value == found->values.end())
      value = found->values.insert(value, desktop::Value{name ? name : L"", REG_NONE, {}});
    value->type = type;
    value->data.assign(data, data + size);
    return ERROR_SUCCESS;
  });
}

LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name) {
  return With(key, [&](const KeyPointer& found) -> LSTATUS {
    const auto value = desktop::FindValue(*found, name);
    if (value == found->values.end()) return ERROR_FILE_NOT_FOUND;
    found->values.erase(value);
    return ERROR_SUCCESS;
  });
}

LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey) {
  if (!subKey) return ERROR_INVALID_PARAMETER;
  return With(key, [&](const KeyPointer& start) { return desktop::Unlink(start, subKey, false); });
}

LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR subKey) {
  return With(key, [&](const KeyPointer& start) -> LSTATUS {
    if (subKey && *subKey) return desktop::Unlink(start, subKey, true);
    desktop::MarkDeleted(*start);
    start->deleted = false;
    return ERROR_SUCCESS;
  });
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD, LPWSTR keyClass,
                      LPDWORD classSize, LPFILETIME lastWrite) {
  return With(key, [&](const KeyPointer& found) -> LSTATUS {
    if (index >= found->children.size()) return ERROR_NO_MORE_ITEMS;
    if (keyClass && classSize && *classSize) *keyClass = 0;
    if (classSize) *classSize = 0;
    if (lastWrite) *lastWrite = {};
    return desktop::DeliverName(found->children[index]->name, name, nameSize);
  });
}

LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD, LPDWORD type,
                      LPBYTE data, LPDWORD size) {
  return With(key, [&](const KeyPointer& found) -> LSTATUS {
    if (index >= found->values.size()) return ERROR_NO_MORE_ITEMS;
    const desktop::Value& value = found->values[index];
    const LSTATUS status = desktop::DeliverName(value.name, name, nameSize);
    return status == ERROR_SUCCESS ? desktop::Deliver(value, type, data, size) : status;
  });
}
