// CString::Format: Windows' wide format language.
#include <afx.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

template <class... Args>
std::wstring Format(LPCWSTR format, Args... args) {
  CString text;
  text.Format(format, args...);
  return std::wstring(text.GetString(), text.GetString() + text.GetLength());
}

TEST(CoreFormat, PlainText) {
  EXPECT_EQ(L"100 % été", Format(L"100 %% été"));
  EXPECT_EQ(L"", Format(L""));
}

TEST(CoreFormat, Integers) {
  EXPECT_EQ(L"-5", Format(L"%d", -5));
  EXPECT_EQ(L"-2147483648", Format(L"%i", INT_MIN));
  EXPECT_EQ(L"4294967295", Format(L"%u", ~0U));
  EXPECT_EQ(L"ff FF 377", Format(L"%x %X %o", 255, 255, 255));
  EXPECT_EQ(L"0xff 0XFF 0377 0", Format(L"%#x %#X %#o %#x", 255, 255, 255, 0));
  EXPECT_EQ(L"+5|-5| 5", Format(L"%+d|%+d|% d", 5, -5, 5));
}

TEST(CoreFormat, WidthAndPrecision) {
  EXPECT_EQ(L"[   42][42   ][00042]", Format(L"[%5d][%-5d][%05d]", 42, 42, 42));
  EXPECT_EQ(L"[-0042][+0042]", Format(L"[%05d][%+05d]", -42, 42));
  EXPECT_EQ(L"[  007]", Format(L"[%5.3d]", 7));
  EXPECT_EQ(L"[]", Format(L"[%.0d]", 0));
  EXPECT_EQ(L"[   42][42   ]", Format(L"[%*d][%*d]", 5, 42, -5, 42));
  EXPECT_EQ(L"[ab]", Format(L"[%.*s]", 2, L"abcd"));
  EXPECT_EQ(L"[00ff][0x00ff]", Format(L"[%04x][%#06x]", 255, 255));
}

TEST(CoreFormat, LongIsOf32BitsAndI64Of64) {
  EXPECT_EQ(L"-7", Format(L"%ld", static_cast<LONG>(-7)));
  EXPECT_EQ(L"4294967295", Format(L"%lu", static_cast<DWORD>(0xFFFFFFFF)));
  EXPECT_EQ(L"-9223372036854775808", Format(L"%I64d", static_cast<long long>(LLONG_MIN)));
  EXPECT_EQ(L"18446744073709551615", Format(L"%I64u", ~0ULL));
  EXPECT_EQ(L"123456789012", Format(L"%lld", 123456789012LL));
  EXPECT_EQ(L"7", Format(L"%I32d", 7));
  EXPECT_EQ(L"123456789012 deadbeefcafe", Format(L"%Id %zx", 123456789012LL, 0xdeadbeefcafeULL));
}

TEST(CoreFormat, ShortSizesCutTheValue) {
  EXPECT_EQ(L"-1 65535", Format(L"%hd %hu", 0x1FFFF, 0x1FFFF));
  EXPECT_EQ(L"-1 255", Format(L"%hhd %hhu", 0x1FF, 0x1FF));
}

TEST(CoreFormat, TextIsWideAndCapitalSNarrow) {
  EXPECT_EQ(L"été", Format(L"%s", L"été"));
  EXPECT_EQ(L"abc abc", Format(L"%S %hs", "abc", "abc"));
  EXPECT_EQ(L"été été", Format(L"%ls %ws", L"été", L"été"));
  EXPECT_EQ(L"[  ab][ab  ]", Format(L"[%4s][%-4s]", L"ab", L"ab"));
  EXPECT_EQ(L"[  ab]", Format(L"[%4.2S]", "abcd"));
  EXPECT_EQ(L"(null) (null)", Format(L"%s %S", static_cast<LPCWSTR>(nullptr), static_cast<LPCSTR>(nullptr)));
}

TEST(CoreFormat, TextWithoutANullIsReadToThePrecision) {
  const wchar_t wide[] = {L'a', L'b', L'c'};
  const char narrow[] = {'x', 'y', 'z'};
  EXPECT_EQ(L"abc xyz", Format(L"%.3s %.3S", wide, narrow));
}

TEST(CoreFormat, Characters) {
  EXPECT_EQ(L"é", Format(L"%c", L'é'));
  EXPECT_EQ(L"a a", Format(L"%C %hc", 'a', 'a'));
  EXPECT_EQ(std::wstring(L"a\0b", 3), Format(L"a%cb", 0));
}

TEST(CoreFormat, Reals) {
  EXPECT_EQ(L"3.141593", Format(L"%f", 3.14159265));
  EXPECT_EQ(L"-3.14", Format(L"%.2f", -3.14159265));
  EXPECT_EQ(L"[  1.50][1.50  ][001.50][+1.50]",
            Format(L"[%6.2f][%-6.2f][%06.2f][%+.2f]", 1.5, 1.5, 1.5, 1.5));
  EXPECT_EQ(L"1.500000e+10 1.5E-07", Format(L"%e %G", 1.5e10, 1.5e-7));
  EXPECT_EQ(L"0.0001 1e-05", Format(L"%g %g", 0.0001, 0.00001));
  EXPECT_EQ(L"2.", Format(L"%#.0f", 2.0));
  EXPECT_EQ(L"1.50", Format(L"%.2Lf", 1.5L));
  EXPECT_EQ(L"[  -inf]", Format(L"[%06f]", -INFINITY));
}

TEST(CoreFormat, PointersAreSixteenDigits) {
  EXPECT_EQ(L"00000000DEADBEEF", Format(L"%p", reinterpret_cast<void*>(0xDEADBEEF)));
}

TEST(CoreFormat, UnknownDirectivesStayAsTheyAre) {
  EXPECT_EQ(L"%y 5", Format(L"%y %d", 5));
  EXPECT_EQ(L"a", Format(L"a%"));
}

TEST(CoreFormat, AbsurdWidthsAreLimited) { EXPECT_EQ(0x100000u, Format(L"%999999999999d", 1).size()); }

TEST(CoreFormat, ArgumentsMayPointIntoTheTarget) {
  CString text(L"abc");
  text.Format(L"<%s>", text.GetString());
  EXPECT_STREQ(L"<abc>", text);
  text.AppendFormat(L"%s", text.GetString());
  EXPECT_STREQ(L"<abc><abc>", text);
}

TEST(CoreFormat, FormatsComeFromResources) {
  CString text;
  text.Format(1001, 3, L"dix");
  EXPECT_STREQ(L"3 lignes sur dix", text);
  text.AppendFormat(1001, 4, L"!");
  EXPECT_STREQ(L"3 lignes sur dix4 lignes sur !", text);
  EXPECT_THROW(text.Format(1999), CInvalidArgException*);
}

}  // namespace
