// Ranges of addresses that are reserved first and given memory page by page.
#include <sys/mman.h>

#include <map>
#include <vector>

#include <windows.h>

#include <memoryapi.h>

#include "world.h"

#if defined(__SANITIZE_ADDRESS__)
#define VORN_TELLS_LEAK_DETECTOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VORN_TELLS_LEAK_DETECTOR 1
#endif
#endif
#ifdef VORN_TELLS_LEAK_DETECTOR
#include <sanitizer/lsan_interface.h>
#endif

namespace {

using desktop::WorldLock;
using desktop::WorldMutex;

constexpr SIZE_T kPage = 4096;
constexpr SIZE_T kGranularity = 64 * 1024;

struct Range {
  uintptr_t begin;
  SIZE_T size;
};

struct Reservation {
  SIZE_T size = 0;
  std::vector<Range> committed;
};

// By first address.
std::map<uintptr_t, Reservation>& Reservations() {
  static auto& reservations = *new std::map<uintptr_t, Reservation>;
  return reservations;
}

// What is stored in these pages may be all that points at a block of the heap.
void TellLeakDetector([[maybe_unused]] const Range& range, [[maybe_unused]] bool isUsed) {
#ifdef VORN_TELLS_LEAK_DETECTOR
  void* const begin = reinterpret_cast<void*>(range.begin);
  if (isUsed) {
    __lsan_register_root_region(begin, range.size);
  } else {
    __lsan_unregister_root_region(begin, range.size);
  }
#endif
}

void* Fail(DWORD error) {
  SetLastError(error);
  return nullptr;
}

// An address of one's own choice must be free.
void* Reserve(uintptr_t address, SIZE_T size) {
  const SIZE_T offset = address % kGranularity;
  void* const wanted = reinterpret_cast<void*>(address - offset);
  const SIZE_T rounded = (size + offset + kPage - 1) / kPage * kPage;
  if (rounded < size) return Fail(ERROR_NOT_ENOUGH_MEMORY);
  const int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | (address ? MAP_FIXED_NOREPLACE : 0);
  // Begins at a multiple of the granularity: the surplus in front and behind goes back.
  const SIZE_T mapped = address ? rounded : rounded + kGranularity;
  if (mapped < rounded) return Fail(ERROR_NOT_ENOUGH_MEMORY);
  void* const memory = mmap(wanted, mapped, PROT_NONE, flags, -1, 0);
  if (memory == MAP_FAILED) return Fail(address ? ERROR_INVALID_ADDRESS : ERROR_NOT_ENOUGH_MEMORY);
  const auto first = reinterpret_cast<uintptr_t>(memory);
  const uintptr_t begin = (first + kGranularity - 1) / kGranularity * kGranularity;
  if (begin > first) munmap(memory, begin - first);
  if (const SIZE_T behind = first + mapped - (begin + rounded)) {
    munmap(reinterpret_cast<void*>(begin + rounded), behind);
  }
  Reservations()[begin] = {rounded, {}};
  return reinterpret_cast<void*>(begin);
}

void* Commit(uintptr_t address, SIZE_T size) {
  const uintptr_t begin = address - address % kPage;
  const SIZE_T rounded = (address - begin + size + kPage - 1) / kPage * kPage;
  auto found = Reservations().upper_bound(begin);
  if (found == Reservations().begin()) return Fail(ERROR_INVALID_ADDRESS);
  auto& [base, reservation] = *--found;
  if (rounded > reservation.size || begin - base > reservation.size - rounded) {
    return Fail(ERROR_INVALID_ADDRESS);
  }
  void* const memory = reinterpret_cast<void*>(begin);
  if (mprotect(memory, rounded, PROT_READ | PROT_WRITE) != 0) return Fail(ERROR_NOT_ENOUGH_MEMORY);
  reservation.committed.push_back({begin, rounded});
  TellLeakDetector(reservation.committed.back(), true);
  return memory;
}

}  // namespace

LPVOID VirtualAlloc(LPVOID wanted, SIZE_T size, DWORD type, DWORD protection) {
  WorldLock lock(WorldMutex());
  const bool known = (type & ~static_cast<DWORD>(MEM_RESERVE | MEM_COMMIT)) == 0 && type != 0;
  if (size == 0 || !known || protection != PAGE_READWRITE) return Fail(ERROR_INVALID_PARAMETER);
  if (desktop::FailsHere()) return Fail(ERROR_NOT_ENOUGH_MEMORY);
  const auto address = reinterpret_cast<uintptr_t>(wanted);
  if ((type & MEM_RESERVE) == 0 && wanted) return Commit(address, size);
  void* const memory = Reserve(address, size);
  if (!memory || (type & MEM_COMMIT) == 0) return memory;
  if (Commit(wanted ? address : reinterpret_cast<uintptr_t>(memory), size)) return memory;
  VirtualFree(memory, 0, MEM_RELEASE);
  return Fail(ERROR_NOT_ENOUGH_MEMORY);
}

BOOL VirtualFree(LPVOID memory, SIZE_T size, DWORD type) {
  WorldLock lock(WorldMutex());
  if (type != MEM_RELEASE || size != 0) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  const auto found = Reservations().find(reinterpret_cast<uintptr_t>(memory));
  if (found == Reservations().end()) {
    SetLastError(ERROR_INVALID_ADDRESS);
    return FALSE;
  }
  for (const Range& range : found->second.committed) TellLeakDetector(range, false);
  munmap(memory, found->second.size);
  Reservations().erase(found);
  return TRUE;
}
