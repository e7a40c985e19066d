#include "EncodedSequence.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "VornFunctions.h"

// A heap copy that lives until it is replaced; nothing frees it at unload.
static wchar_t* gEncodedSequence = nullptr;

static wchar_t* Duplicate(const wchar_t* text) {
  const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
  wchar_t* const copy = static_cast<wchar_t*>(std::malloc(size));
  if (copy) std::memcpy(copy, text, size);
  return copy;
}

void VornTreeSetEncodedSequence(const wchar_t* sequence) {
  // An empty argument installs nothing, and what was set before is gone all the same.
  wchar_t* const copy = sequence && *sequence ? Duplicate(sequence) : nullptr;
  std::free(gEncodedSequence);
  gEncodedSequence = copy;
}

namespace vorn {

void DecodeSequence(CString& text) {
  if (gEncodedSequence) text.Replace(gEncodedSequence, L"\\");
}

void EncodeSequence(CString& text) {
  if (gEncodedSequence) text.Replace(L"\\", gEncodedSequence);
}

}  // namespace vorn
