// Compiled resources: finding, locking, enumerating.
#include "resource.h"

#include <algorithm>
#include <string>
#include <vector>

#include "kernel.h"
#include "world.h"

namespace desktop {

namespace {

constexpr size_t kSmallestHeader = 32;
// A template in memory has no known end: its counts and zeros end it.
constexpr size_t kUnknownSize = 1u << 30;

ResourceKey ReadKey(ResourceReader& reader) {
  ResourceKey key;
  const uint16_t first = reader.U16();
  if (first == 0xFFFF) {
    key.id = reader.U16();
    return key;
  }
  if (first == 0) return key;
  key.name = UpperCase(static_cast<wchar_t>(first)) + reader.Text();
  std::transform(key.name.begin(), key.name.end(), key.name.begin(), UpperCase);
  return key;
}

const ResourceRecord* Find(const Module& module, LPCWSTR type, LPCWSTR name, WORD language) {
  const ResourceKey typeKey = ResourceKey::From(type);
  const ResourceKey nameKey = ResourceKey::From(name);
  const ResourceRecord* any = nullptr;
  bool typeKnown = false;
  for (const ResourceRecord& record : module.resources) {
    if (record.type != typeKey) continue;
    typeKnown = true;
    if (record.name != nameKey) continue;
    if (record.language == language) return &record;
    if (!any) any = &record;
  }
  if (!any) SetLastError(typeKnown ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND);
  return any;
}

// The record behind a handle, checked: handles are addresses of records.
const ResourceRecord* RecordFromHandle(HINSTANCE moduleHandle, HRSRC handle) {
  const Module* module = ModuleFromHandle(moduleHandle);
  if (!module) return nullptr;
  const auto* record = reinterpret_cast<const ResourceRecord*>(handle);
  for (const ResourceRecord& known : module->resources)
    if (&known == record) return record;
  return nullptr;
}

}  // namespace

ResourceKey ResourceKey::From(LPCWSTR name) {
  ResourceKey key;
  if (IS_INTRESOURCE(name)) {
    key.id = LOWORD(reinterpret_cast<ULONG_PTR>(name));
    return key;
  }
  if (*name == L'#') {
    key.id = static_cast<WORD>(wcstoul(name + 1, nullptr, 10));
    return key;
  }
  key.name = name;
  std::transform(key.name.begin(), key.name.end(), key.name.begin(), UpperCase);
  return key;
}

uint32_t ResourceReader::Read(size_t bytes) {
  if (m_at > m_size || m_size - m_at < bytes) {
    m_failed = true;
    m_at = m_size;
    return 0;
  }
  uint32_t value = 0;
  for (size_t i = 0; i < bytes; ++i) value |= static_cast<uint32_t>(m_data[m_at + i]) << (8 * i);
  m_at += bytes;
  return value;
}

std::wstring ResourceReader::Text() {
  const size_t begin = m_at;
  while (U16() != 0) {
  }
  const size_t units = m_failed ? (m_size - std::min(begin, m_size)) / 2 : (m_at - begin) / 2 - 1;
  return WideFromUtf16(m_data + begin, units);
}

std::vector<ResourceRecord> ParseResources(const void* image, unsigned long long size) {
  std::vector<ResourceRecord> records;
  const auto* bytes = static_cast<const uint8_t*>(image);
  size_t at = 0;
  while (at + kSmallestHeader <= size) {
    ResourceReader reader(bytes + at, size - at);
    const uint32_t dataSize = reader.U32();
    const uint32_t headerSize = reader.U32();
    ResourceRecord record;
    record.type = ReadKey(reader);
    record.name = ReadKey(reader);
    reader.Align4();
    reader.Skip(4 + 2);
    record.language = reader.U16();
    if (reader.Failed() || headerSize < kSmallestHeader || size - at < headerSize ||
        size - at - headerSize < dataSize)
      break;
    record.data = bytes + at + headerSize;
    record.size = dataSize;
    if (dataSize > 0) records.push_back(std::move(record));
    at = (at + headerSize + dataSize + 3) & ~size_t{3};
  }
  return records;
}

ResourceBytes LoadBytes(HINSTANCE module, LPCWSTR name, LPCWSTR type) {
  const HRSRC resource = FindResourceW(module, name, type);
  if (!resource) return {};
  return {static_cast<const uint8_t*>(LockResource(LoadResource(module, resource))),
          SizeofResource(module, resource)};
}

size_t BytesFrom(const void* address) {
  WorldLock lock(WorldMutex());
  return BytesInModules(static_cast<const uint8_t*>(address), kUnknownSize);
}

}  // namespace desktop

using desktop::Module;
using desktop::ModuleFromHandle;
using desktop::RecordFromHandle;
using desktop::ResourceRecord;
using desktop::WorldLock;
using desktop::WorldMutex;

HRSRC FindResourceExW(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language) {
  WorldLock lock(WorldMutex());
  const Module* found = ModuleFromHandle(module);
  if (!found) {
    SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return nullptr;
  }
  return reinterpret_cast<HRSRC>(const_cast<ResourceRecord*>(desktop::Find(*found, type, name, language)));
}

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type) {
  return FindResourceExW(module, type, name, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL));
}

HGLOBAL LoadResource(HMODULE module, HRSRC resource) {
  WorldLock lock(WorldMutex());
  if (!resource) return nullptr;
  if (desktop::FailsHere()) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  const ResourceRecord* record = RecordFromHandle(module, resource);
  if (!record) {
    SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return nullptr;
  }
  return const_cast<uint8_t*>(record->data);
}

LPVOID LockResource(HGLOBAL data) { return data; }

BOOL FreeResource(HGLOBAL) { return FALSE; }

DWORD SizeofResource(HMODULE module, HRSRC resource) {
  WorldLock lock(WorldMutex());
  const ResourceRecord* record = RecordFromHandle(module, resource);
  return record ? record->size : 0;
}

BOOL EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW callback, LONG_PTR param) {
  std::vector<desktop::ResourceKey> names;
  {
    WorldLock lock(WorldMutex());
    const Module* found = ModuleFromHandle(module);
    const auto wanted = desktop::ResourceKey::From(type);
    if (found)
      for (const ResourceRecord& record : found->resources)
        if (record.type == wanted && std::find(names.begin(), names.end(), record.name) == names.end())
          names.push_back(record.name);
  }
  if (names.empty()) {
    SetLastError(ERROR_RESOURCE_TYPE_NOT_FOUND);
    return FALSE;
  }
  for (auto& name : names) {
    LPWSTR argument = name.name.empty() ? MAKEINTRESOURCE(name.id) : name.name.data();
    if (!callback(module, type, argument, param)) return FALSE;
  }
  return TRUE;
}
