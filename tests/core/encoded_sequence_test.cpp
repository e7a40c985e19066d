// The text that stands for a backslash in stored labels.
#include "core/EncodedSequence.h"

#include <gtest/gtest.h>

#include <string>

#include "core/VornFunctions.h"

namespace {

std::wstring Decoded(const wchar_t* text) {
  CString copy = text;
  vorn::DecodeSequence(copy);
  return copy.GetString();
}

std::wstring Encoded(const wchar_t* text) {
  CString copy = text;
  vorn::EncodeSequence(copy);
  return copy.GetString();
}

class EncodedSequence : public testing::Test {
 protected:
  void TearDown() override { VornTreeSetEncodedSequence(nullptr); }
};

TEST_F(EncodedSequence, WithoutOneNothingIsReplaced) {
  EXPECT_EQ(Decoded(L"a%bs;b"), L"a%bs;b");
  EXPECT_EQ(Encoded(L"a\\b"), L"a\\b");
}

TEST_F(EncodedSequence, EveryOccurrenceIsReplacedBothWays) {
  VornTreeSetEncodedSequence(L"%bs;");
  EXPECT_EQ(Decoded(L"%bs;a%bs;%bs;b%bs;"), L"\\a\\\\b\\");
  EXPECT_EQ(Encoded(L"\\a\\\\b\\"), L"%bs;a%bs;%bs;b%bs;");
  EXPECT_EQ(Decoded(L"%bs"), L"%bs");
  EXPECT_EQ(Decoded(L""), L"");
  EXPECT_EQ(Encoded(L"none"), L"none");
}

TEST_F(EncodedSequence, IsACopyOfTheArgument) {
  wchar_t text[] = L"##";
  VornTreeSetEncodedSequence(text);
  text[0] = L'x';
  EXPECT_EQ(Decoded(L"a##b"), L"a\\b");
}

TEST_F(EncodedSequence, ANewOneReplacesTheOld) {
  VornTreeSetEncodedSequence(L"##");
  VornTreeSetEncodedSequence(L"@@");
  EXPECT_EQ(Decoded(L"a##b@@c"), L"a##b\\c");
}

TEST_F(EncodedSequence, NullOrEmptyTakesTheOldOneAway) {
  for (const wchar_t* none : {static_cast<const wchar_t*>(nullptr), L""}) {
    VornTreeSetEncodedSequence(L"##");
    VornTreeSetEncodedSequence(none);
    EXPECT_EQ(Decoded(L"a##b"), L"a##b");
    EXPECT_EQ(Encoded(L"a\\b"), L"a\\b");
    // Again, and a new one after it: nothing is freed twice.
    VornTreeSetEncodedSequence(none);
    VornTreeSetEncodedSequence(L"@@");
    EXPECT_EQ(Decoded(L"a@@b"), L"a\\b");
  }
}

TEST_F(EncodedSequence, MayHoldABackslashItself) {
  VornTreeSetEncodedSequence(L"\\\\");
  EXPECT_EQ(Decoded(L"a\\\\b"), L"a\\b");
  EXPECT_EQ(Encoded(L"a\\b"), L"a\\\\b");
}

}  // namespace
