// The stored form of a backslash inside labels. Internal; hosts set it by VornTreeSetEncodedSequence.
#pragma once

#include <afx.h>

namespace vorn {

// A stored text to be shown: each occurrence of the sequence becomes a backslash. Without a sequence
// nothing changes.
void DecodeSequence(CString& text);

// A shown text to be stored: each backslash becomes the sequence. Without a sequence nothing changes.
void EncodeSequence(CString& text);

}  // namespace vorn
