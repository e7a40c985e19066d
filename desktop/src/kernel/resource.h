// Modules and the compiled resources that they carry.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

namespace desktop {

// A type or name of a resource: a number, or a text in capitals.
struct ResourceKey {
  WORD id = 0;
  std::wstring name;
  // From an argument of the API: an integer, "#123" or a name.
  static ResourceKey From(LPCWSTR name);
  friend bool operator==(const ResourceKey&, const ResourceKey&) = default;
};

struct ResourceRecord {
  ResourceKey type;
  ResourceKey name;
  WORD language = 0;
  const uint8_t* data = nullptr;
  DWORD size = 0;
};

struct Module {
  std::wstring name;  // without folder and extension
  std::string path;
  bool isProgram = false;
  bool isForeign = false;  // loaded from a shared library that is no module of the desktop
  void* library = nullptr;
  int references = 0;
  std::vector<ResourceRecord> resources;
};

// The module behind a handle; null: the program. Null if there is none. Lock held.
Module* ModuleFromHandle(HINSTANCE handle);

// From the address to the end of the resource of any module that it lies in, or unknown. Lock held.
size_t BytesInModules(const uint8_t* address, size_t unknown);

// Shared icons and cursors of a module that is going are not handed out again. Lock held.
void ForgetPicturesOf(HINSTANCE module);

// Reads a .res image; stops at the first record that does not fit. Lock not needed.
std::vector<ResourceRecord> ParseResources(const void* image, unsigned long long size);

// Bytes of a resource, checked against its end: reads beyond it give zeros and set failed.
class ResourceReader {
 public:
  ResourceReader(const void* data, size_t size) : m_data(static_cast<const uint8_t*>(data)), m_size(size) {}
  uint8_t U8() { return static_cast<uint8_t>(Read(1)); }
  uint16_t U16() { return static_cast<uint16_t>(Read(2)); }
  int16_t S16() { return static_cast<int16_t>(Read(2)); }
  uint32_t U32() { return Read(4); }
  // A text in 16-bit characters up to its zero.
  std::wstring Text();
  void Align4() { m_at = (m_at + 3) & ~size_t{3}; }
  void Skip(size_t bytes) { m_at += bytes; }
  size_t Position() const { return m_at; }
  const uint8_t* Here() const { return m_data + m_at; }
  bool Failed() const { return m_failed; }

 private:
  uint32_t Read(size_t bytes);

  const uint8_t* m_data;
  size_t m_size;
  size_t m_at = 0;
  bool m_failed = false;
};

struct ResourceBytes {
  const uint8_t* data = nullptr;
  size_t size = 0;
};
// The bytes of a resource of a module, empty if it has none (the error is set). Takes the lock.
ResourceBytes LoadBytes(HINSTANCE module, LPCWSTR name, LPCWSTR type);
// From an address inside the resources of any module to the end of that resource; far where the address is
// not known, as for a template in memory. Takes the lock.
size_t BytesFrom(const void* address);

}  // namespace desktop
