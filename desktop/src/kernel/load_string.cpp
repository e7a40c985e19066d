// Texts of string tables.
#include <algorithm>
#include <map>
#include <string>

#include <windows.h>

#include "kernel.h"
#include "resource.h"
#include "world.h"

namespace {

using desktop::ResourceBytes;
using desktop::ResourceReader;

// Texts whose address was handed out, by the address of their source. A module's texts stay in place
// and alike for as long as it is loaded; so do these.
const std::wstring& KeptText(const uint8_t* source, const std::wstring& text) {
  static auto& kept = *new std::map<const uint8_t*, std::wstring>;
  desktop::WorldLock lock(desktop::WorldMutex());
  std::wstring& slot = kept[source];
  if (slot != text) slot = text;
  return slot;
}

}  // namespace

int LoadStringW(HINSTANCE module, UINT id, LPWSTR text, int size) {
  if (!text) return 0;
  // Texts come in blocks of 16.
  const ResourceBytes block = desktop::LoadBytes(module, MAKEINTRESOURCE(LOWORD(id >> 4) + 1), RT_STRING);
  if (!block.data) return 0;
  ResourceReader reader(block.data, block.size);
  for (UINT i = 0; i < (id & 15); ++i) reader.Skip(size_t{2} * reader.U16());
  size_t units = reader.U16();
  if (reader.Failed() || reader.Position() + 2 * units > block.size) units = 0;
  const std::wstring found = units ? desktop::WideFromUtf16(reader.Here(), units) : std::wstring();
  if (size == 0) {
    *reinterpret_cast<LPCWSTR*>(text) = KeptText(reader.Here(), found).c_str();
    return static_cast<int>(found.size());
  }
  if (size < 0) return 0;
  const size_t length = std::min(found.size(), static_cast<size_t>(size) - 1);
  found.copy(text, length);
  text[length] = 0;
  if (found.empty()) SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
  return static_cast<int>(length);
}
