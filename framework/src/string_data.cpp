#include "string_data.h"

#include "afx.h"

namespace framework {

namespace {

struct EmptyStorage {
  CStringData data;
  wchar_t text[2];
};
// Statically initialised: strings are made by static initialisers anywhere.
constinit EmptyStorage g_empty = {{{2}, 0, 0}, {L'\0', L'\0'}};

}  // namespace

CStringData* EmptyStringData() noexcept { return &g_empty.data; }

CStringData* NewStringData(int capacity) {
  if (capacity < 0 || capacity > kMaxStringLength) AfxThrowMemoryException();
  const size_t bytes = sizeof(CStringData) + (static_cast<size_t>(capacity) + 1) * sizeof(wchar_t);
  void* const memory = ::operator new(bytes, std::nothrow);
  if (memory == nullptr) AfxThrowMemoryException();
  auto* const data = new (memory) CStringData{{1}, 0, capacity};
  data->Text()[0] = L'\0';
  return data;
}

CStringData* AddReference(CStringData* data) noexcept {
  if (data != EmptyStringData()) data->references.fetch_add(1, std::memory_order_relaxed);
  return data;
}

void Release(CStringData* data) noexcept {
  if (data == EmptyStringData()) return;
  // Whoever holds the only reference need not count down.
  if (!data->IsShared() || data->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    ::operator delete(data);
  }
}

void AppendNarrow(CString& target, LPCSTR text, int length) {
  if (length <= 0) return;
  const int wide = ::MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0);
  if (wide <= 0) return;
  const int before = target.GetLength();
  LPWSTR const buffer = target.GetBuffer(before + wide);
  ::MultiByteToWideChar(CP_ACP, 0, text, length, buffer + before, wide);
  target.ReleaseBufferSetLength(before + wide);
}

}  // namespace framework
