// Replaces operator new, so that a test can make the nth allocation of the program fail.
#include <cstdlib>
#include <new>

#include "desktop/desktop.h"

namespace {

void* Allocate(std::size_t size, const void* caller) noexcept {
  if (desktop::AllocationFailsHere(caller)) return nullptr;
  return std::malloc(size ? size : 1);
}

void* AllocateAligned(std::size_t size, std::size_t alignment, const void* caller) noexcept {
  if (desktop::AllocationFailsHere(caller)) return nullptr;
  return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}

void* OrThrow(void* memory) {
  if (!memory) throw std::bad_alloc();
  return memory;
}

}  // namespace

#define CALLER __builtin_return_address(0)

void* operator new(std::size_t size) { return OrThrow(Allocate(size, CALLER)); }
void* operator new[](std::size_t size) { return OrThrow(Allocate(size, CALLER)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size, CALLER); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size, CALLER); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return OrThrow(AllocateAligned(size, static_cast<std::size_t>(alignment), CALLER));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return OrThrow(AllocateAligned(size, static_cast<std::size_t>(alignment), CALLER));
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
