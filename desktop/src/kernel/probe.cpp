// Whether memory may be read or written, asked of the system and never tried out.
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include <windows.h>

#include "world.h"

namespace {

using desktop::WorldLock;
using desktop::WorldMutex;

constexpr uintptr_t kPage = 4096;

// The kernel reads our memory when it writes to this file, and answers EFAULT where we could not.
int ProbeFile() {
  static const int file = memfd_create("probe", MFD_CLOEXEC);
  return file;
}

// Raw calls: the wrappers of the sanitizers would look at the memory themselves.
bool CanRead(uintptr_t address, size_t bytes) {
  return syscall(SYS_pwrite64, ProbeFile(), address, bytes, 0L) == static_cast<long>(bytes);
}

bool CanReadRange(uintptr_t first, uintptr_t last) {
  for (uintptr_t at = first;; at = (at | (kPage - 1)) + 1) {
    if (!CanRead(at, 1)) return false;
    if ((at | (kPage - 1)) >= last) return true;
  }
}

// A range of the process's memory map that may be written.
bool MapAllows(uintptr_t first, uintptr_t last, char wanted, int column) {
  FILE* maps = std::fopen("/proc/self/maps", "re");
  if (!maps) return false;
  unsigned long long begin = 0;
  unsigned long long end = 0;
  char rights[8] = {};
  bool covered = false;
  char line[512];
  while (!covered && std::fgets(line, sizeof line, maps)) {
    if (std::sscanf(line, "%llx-%llx %7s", &begin, &end, rights) != 3) continue;
    if (end <= first) continue;
    if (begin > first || rights[column] != wanted) break;
    covered = last < end;
    first = end;
  }
  std::fclose(maps);
  return covered;
}

// Splits a pointer and a length; false when there is nothing to check or the range wraps around.
bool RangeOf(const void* pointer, UINT_PTR bytes, uintptr_t& first, uintptr_t& last) {
  first = reinterpret_cast<uintptr_t>(pointer);
  last = first + (bytes - 1);
  return last >= first;
}

}  // namespace

BOOL IsBadReadPtr(const void* pointer, UINT_PTR bytes) {
  if (bytes == 0) return FALSE;
  uintptr_t first;
  uintptr_t last;
  if (!pointer || !RangeOf(pointer, bytes, first, last)) return TRUE;
  return !CanReadRange(first, last);
}

BOOL IsBadWritePtr(LPVOID pointer, UINT_PTR bytes) {
  if (bytes == 0) return FALSE;
  uintptr_t first;
  uintptr_t last;
  if (!pointer || !RangeOf(pointer, bytes, first, last)) return TRUE;
  return !MapAllows(first, last, 'w', 1);
}

BOOL IsBadCodePtr(FARPROC function) {
  return IsBadReadPtr(reinterpret_cast<const void*>(reinterpret_cast<uintptr_t>(function)), 1);
}

BOOL IsBadStringPtrW(LPCWSTR text, UINT_PTR maximum) {
  if (maximum == 0) return FALSE;
  if (!text) return TRUE;
  WorldLock lock(WorldMutex());  // one user of the probe file's contents at a time
  auto at = reinterpret_cast<uintptr_t>(text);
  WCHAR copy[64];
  while (maximum > 0) {
    const size_t toPageEnd = (kPage - at % kPage + sizeof(WCHAR) - 1) / sizeof(WCHAR);
    const size_t count = std::min({std::size(copy), static_cast<size_t>(maximum), toPageEnd});
    if (!CanRead(at, count * sizeof(WCHAR))) return TRUE;
    if (syscall(SYS_pread64, ProbeFile(), copy, count * sizeof(WCHAR), 0L) < 0) return TRUE;
    if (std::find(copy, copy + count, L'\0') != copy + count) return FALSE;
    at += count * sizeof(WCHAR);
    maximum -= count;
  }
  return FALSE;
}
