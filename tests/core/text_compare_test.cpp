// Comparison of labels without letter case.
#include "core/TextCompare.h"

#include <gtest/gtest.h>

namespace {

using vorn::CompareNoCase;

TEST(TextCompare, LetterCaseMakesNoDifference) {
  EXPECT_EQ(CompareNoCase(L"Rapport", L"rAPPORT"), 0);
  EXPECT_LT(CompareNoCase(L"a", L"B"), 0);
  EXPECT_GT(CompareNoCase(L"b", L"A"), 0);
}

TEST(TextCompare, AShorterTextComesFirst) {
  EXPECT_LT(CompareNoCase(L"rap", L"Rapport"), 0);
  EXPECT_GT(CompareNoCase(L"Rapport", L"rap"), 0);
  EXPECT_LT(CompareNoCase(L"", L"a"), 0);
}

TEST(TextCompare, NullIsAnEmptyText) {
  EXPECT_EQ(CompareNoCase(nullptr, L""), 0);
  EXPECT_LT(CompareNoCase(nullptr, L"a"), 0);
  EXPECT_GT(CompareNoCase(L"a", nullptr), 0);
}

TEST(TextCompare, LooksAtNoMoreThanCountCharacters) {
  EXPECT_EQ(CompareNoCase(L"abcX", L"ABCy", 3), 0);
  EXPECT_NE(CompareNoCase(L"abcX", L"ABCy", 4), 0);
  EXPECT_EQ(CompareNoCase(L"a", L"b", 0), 0);
  EXPECT_EQ(CompareNoCase(L"ab", L"AB", 100), 0);
}

}  // namespace
