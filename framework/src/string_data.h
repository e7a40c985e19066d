// The counted storage behind CString. Private to the framework.
#pragma once

#include "cstringt.h"

#include <atomic>

// Followed in memory by capacity + 1 characters.
struct CStringData {
  std::atomic<int> references;
  int length;
  int capacity;

  wchar_t* Text() { return reinterpret_cast<wchar_t*>(this + 1); }
  static CStringData* Of(LPCWSTR text) {
    return reinterpret_cast<CStringData*>(const_cast<LPWSTR>(text)) - 1;
  }
  bool IsShared() const { return references.load(std::memory_order_acquire) > 1; }
};

namespace framework {

// The storage of every empty string. It is never freed, and always counts as shared.
CStringData* EmptyStringData() noexcept;
// New storage with one reference and no text yet; raises the memory exception.
CStringData* NewStringData(int capacity);
CStringData* AddReference(CStringData* data) noexcept;
void Release(CStringData* data) noexcept;

// Lengths in characters that a string may have at most.
constexpr int kMaxStringLength = 0x3fffffff;

// Narrow text of the system's code page as wide text.
void AppendNarrow(CString& target, LPCSTR text, int length);

}  // namespace framework
