// Blocks of memory behind handles and pointers.
#include <cstdlib>
#include <cstring>
#include <unordered_map>

#include <windows.h>

#include "world.h"

namespace {

using desktop::WorldLock;
using desktop::WorldMutex;

struct Block {
  void* data = nullptr;
  SIZE_T size = 0;
  bool movable = false;
  unsigned locks = 0;
};

// By handle. The handle of a fixed block is its address, that of a movable one is the address of a
// small block of its own, so that it never looks like data.
std::unordered_map<const void*, Block>& Blocks() {
  static auto& blocks = *new std::unordered_map<const void*, Block>;
  return blocks;
}

Block* Find(const void* handle) {
  const auto found = Blocks().find(handle);
  if (found != Blocks().end()) return &found->second;
  SetLastError(ERROR_INVALID_HANDLE);
  return nullptr;
}

void* Allocate(SIZE_T bytes, bool zero) {
  const SIZE_T size = bytes ? bytes : 1;
  return zero ? std::calloc(1, size) : std::malloc(size);
}

void* AllocateBlock(UINT flags, SIZE_T bytes) {
  WorldLock lock(WorldMutex());
  const bool zero = (flags & GMEM_ZEROINIT) != 0;
  const bool movable = (flags & GMEM_MOVEABLE) != 0;
  void* data = movable && bytes == 0 ? nullptr : Allocate(bytes, zero);
  void* handle = movable ? std::malloc(1) : data;
  if (!handle || (!data && bytes)) {
    std::free(data);
    if (movable) std::free(handle);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  Blocks()[handle] = {data, bytes, movable, 0};
  return handle;
}

bool FreeBlock(const void* handle) {
  WorldLock lock(WorldMutex());
  const Block* block = Find(handle);
  if (!block) return false;
  if (block->movable) std::free(const_cast<void*>(handle));
  std::free(block->data);
  Blocks().erase(handle);
  return true;
}

// Gives a block another size. A fixed block may move only when mayMove.
void* ResizeBlock(void* handle, SIZE_T bytes, bool zero, bool mayMove) {
  WorldLock lock(WorldMutex());
  Block* block = Find(handle);
  if (!block) return nullptr;
  if (!block->movable && !mayMove && bytes > block->size) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  void* data = std::realloc(block->data, bytes ? bytes : 1);
  if (!data) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  if (zero && bytes > block->size)
    std::memset(static_cast<char*>(data) + block->size, 0, bytes - block->size);
  Block changed = *block;
  changed.data = data;
  changed.size = bytes;
  if (block->movable) {
    *block = changed;
    return handle;
  }
  Blocks().erase(handle);
  Blocks()[data] = changed;
  return data;
}

void* LockBlock(void* handle) {
  WorldLock lock(WorldMutex());
  Block* block = Find(handle);
  if (!block) return nullptr;
  if (block->movable && block->data) ++block->locks;
  return block->data;
}

BOOL UnlockBlock(void* handle, BOOL answerForFixed) {
  WorldLock lock(WorldMutex());
  Block* block = Find(handle);
  if (!block) return FALSE;
  if (!block->movable) return answerForFixed;
  if (block->locks == 0) {
    SetLastError(ERROR_NOT_LOCKED);
    return FALSE;
  }
  SetLastError(NO_ERROR);
  return --block->locks > 0;
}

SIZE_T SizeOfBlock(const void* handle) {
  WorldLock lock(WorldMutex());
  const Block* block = Find(handle);
  return block ? block->size : 0;
}

void* Reallocate(void* handle, SIZE_T bytes, UINT flags) {
  return ResizeBlock(handle, bytes, (flags & GMEM_ZEROINIT) != 0, (flags & GMEM_MOVEABLE) != 0);
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) { return AllocateBlock(flags, bytes); }

HGLOBAL GlobalReAlloc(HGLOBAL memory, SIZE_T bytes, UINT flags) { return Reallocate(memory, bytes, flags); }

LPVOID GlobalLock(HGLOBAL memory) { return LockBlock(memory); }

BOOL GlobalUnlock(HGLOBAL memory) { return UnlockBlock(memory, TRUE); }

SIZE_T GlobalSize(HGLOBAL memory) { return SizeOfBlock(memory); }

UINT GlobalFlags(HGLOBAL memory) {
  WorldLock lock(WorldMutex());
  const Block* block = Find(memory);
  return block ? block->locks & 0xFFu : GMEM_INVALID_HANDLE;
}

HGLOBAL GlobalHandle(LPCVOID pointer) {
  WorldLock lock(WorldMutex());
  for (const auto& [handle, block] : Blocks())
    if (handle == pointer || (pointer && block.data == pointer)) return const_cast<void*>(handle);
  SetLastError(ERROR_INVALID_HANDLE);
  return nullptr;
}

HGLOBAL GlobalFree(HGLOBAL memory) { return !memory || FreeBlock(memory) ? nullptr : memory; }

HLOCAL LocalAlloc(UINT flags, SIZE_T bytes) { return AllocateBlock(flags, bytes); }

HLOCAL LocalReAlloc(HLOCAL memory, SIZE_T bytes, UINT flags) { return Reallocate(memory, bytes, flags); }

LPVOID LocalLock(HLOCAL memory) { return LockBlock(memory); }

BOOL LocalUnlock(HLOCAL memory) { return UnlockBlock(memory, FALSE); }

SIZE_T LocalSize(HLOCAL memory) { return SizeOfBlock(memory); }

HLOCAL LocalFree(HLOCAL memory) { return !memory || FreeBlock(memory) ? nullptr : memory; }

HANDLE GetProcessHeap() { return reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(0x10000)); }

LPVOID HeapAlloc(HANDLE, DWORD flags, SIZE_T bytes) {
  return AllocateBlock(flags & HEAP_ZERO_MEMORY ? GPTR : GMEM_FIXED, bytes);
}

LPVOID HeapReAlloc(HANDLE, DWORD flags, LPVOID memory, SIZE_T bytes) {
  return ResizeBlock(memory, bytes, (flags & HEAP_ZERO_MEMORY) != 0, true);
}

SIZE_T HeapSize(HANDLE, DWORD, LPCVOID memory) {
  WorldLock lock(WorldMutex());
  const Block* block = Find(memory);
  return block ? block->size : static_cast<SIZE_T>(-1);
}

BOOL HeapFree(HANDLE, DWORD, LPVOID memory) { return !memory || FreeBlock(memory); }
