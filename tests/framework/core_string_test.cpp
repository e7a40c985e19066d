// CString: values, storage, searching, cutting, changing.
#include <afx.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

std::wstring Text(const CString& text) {
  return std::wstring(text.GetString(), text.GetString() + text.GetLength());
}

// Runs the action; true if it raised the invalid-argument exception.
template <class Action>
bool Refuses(Action action) {
  try {
    action();
  } catch (CInvalidArgException* e) {
    e->Delete();
    return true;
  }
  return false;
}

TEST(CoreString, IsEmptyAtFirst) {
  const CString text;
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_EQ(0, text.GetLength());
  EXPECT_EQ(L'\0', *text.GetString());
}

TEST(CoreString, ComesFromWideNarrowAndRepeatedCharacters) {
  EXPECT_EQ(L"été", Text(L"été"));
  EXPECT_EQ(L"abc", Text("abc"));
  EXPECT_EQ(L"ab", Text(CString(L"abc", 2)));
  EXPECT_EQ(L"ab", Text(CString("abc", 2)));
  EXPECT_EQ(L"xxx", Text(CString(L'x', 3)));
  EXPECT_EQ(L"zz", Text(CString('z', 2)));
  EXPECT_EQ(L"", Text(CString(L'x', -1)));
  EXPECT_EQ(L"", Text(static_cast<LPCWSTR>(nullptr)));
  EXPECT_EQ(L"", Text(static_cast<LPCSTR>(nullptr)));
}

TEST(CoreString, NarrowTextIsOfTheSystemsCodePage) {
  const char acute[] = {static_cast<char>(0xE9), 't', static_cast<char>(0xE9), '\0'};
  wchar_t expected[8] = {};
  ::MultiByteToWideChar(CP_ACP, 0, acute, -1, expected, 8);
  EXPECT_EQ(std::wstring(expected), Text(acute));
}

TEST(CoreString, CopiesShareUntilOneChanges) {
  CString a(L"partagé");
  CString b(a);
  EXPECT_EQ(a.GetString(), b.GetString());
  b.SetAt(0, L'P');
  EXPECT_NE(a.GetString(), b.GetString());
  EXPECT_EQ(L"partagé", Text(a));
  EXPECT_EQ(L"Partagé", Text(b));
}

TEST(CoreString, MovedFromIsEmptyOrSwapped) {
  CString a(L"texte");
  const CString b(std::move(a));
  EXPECT_EQ(L"texte", Text(b));
  EXPECT_TRUE(a.IsEmpty());
}

TEST(CoreString, AssignsFromItsOwnText) {
  CString text(L"abcdef");
  text = text.GetString() + 2;
  EXPECT_EQ(L"cdef", Text(text));
  text = *&text;
  EXPECT_EQ(L"cdef", Text(text));
}

TEST(CoreString, AppendsItself) {
  CString text(L"ab");
  for (int i = 0; i < 6; ++i) text += text;
  EXPECT_EQ(128, text.GetLength());
  text = L"abcdef";
  text.FreeExtra();
  text.Append(text.GetString() + 3, 3);
  EXPECT_EQ(L"abcdefdef", Text(text));
}

TEST(CoreString, Concatenates) {
  const CString a(L"a");
  EXPECT_EQ(L"ab", Text(a + L"b"));
  EXPECT_EQ(L"ba", Text(L"b" + a));
  EXPECT_EQ(L"aa", Text(a + a));
  EXPECT_EQ(L"ac", Text(a + L'c'));
  EXPECT_EQ(L"ca", Text(L'c' + a));
  CString sum;
  sum += L"x";
  sum += L'y';
  sum += "z";
  sum += 'w';
  sum += a;
  EXPECT_EQ(L"xyzwa", Text(sum));
}

TEST(CoreString, KeepsEmbeddedNulls) {
  const CString text(L"a\0b", 3);
  EXPECT_EQ(3, text.GetLength());
  EXPECT_EQ(std::wstring(L"a\0b!", 4), Text(text + L"!"));
}

TEST(CoreString, BufferIsWrittenAndReleased) {
  CString text(L"abc");
  LPWSTR buffer = text.GetBuffer(10);
  EXPECT_STREQ(L"abc", buffer);
  std::wcscpy(buffer, L"0123456");
  text.ReleaseBuffer();
  EXPECT_EQ(L"0123456", Text(text));
  text.GetBuffer(4);
  text.ReleaseBuffer(2);
  EXPECT_EQ(L"01", Text(text));
  text.GetBufferSetLength(5)[4] = L'e';
  EXPECT_EQ(5, text.GetLength());
  EXPECT_EQ(L'e', text[4]);
}

TEST(CoreString, BufferOfASharedStringIsItsOwn) {
  const CString a(L"abc");
  CString b(a);
  b.GetBuffer()[0] = L'x';
  b.ReleaseBuffer();
  EXPECT_EQ(L"abc", Text(a));
  EXPECT_EQ(L"xbc", Text(b));
}

TEST(CoreString, RefusesPositionsOutside) {
  CString text(L"abc");
  EXPECT_TRUE(Refuses([&] { text.GetAt(-1); }));
  EXPECT_TRUE(Refuses([&] { text.GetAt(4); }));
  EXPECT_EQ(L'\0', text[3]);
  EXPECT_TRUE(Refuses([&] { text.SetAt(3, L'x'); }));
  EXPECT_TRUE(Refuses([&] { text.ReleaseBufferSetLength(text.GetAllocLength() + 1); }));
  EXPECT_TRUE(Refuses([&] { text.Truncate(-1); }));
}

TEST(CoreString, Compares) {
  EXPECT_EQ(0, CString(L"a").Compare(L"a"));
  EXPECT_LT(CString(L"a").Compare(L"b"), 0);
  EXPECT_GT(CString(L"b").Compare(L"B"), 0);
  EXPECT_EQ(0, CString(L"Arbre").CompareNoCase(L"aRBRE"));
  EXPECT_LT(CString(L"ab").CompareNoCase(L"AC"), 0);
  EXPECT_GT(CString(L"abc").CompareNoCase(L"AB"), 0);
  EXPECT_EQ(0, CString().Compare(nullptr));
  EXPECT_TRUE(CString(L"a") == L"a");
  EXPECT_TRUE(L"a" == CString(L"a"));
  EXPECT_TRUE(CString(L"a") != L"b");
  EXPECT_TRUE(L"a" < CString(L"b"));
  EXPECT_TRUE(CString(L"b") >= CString(L"a"));
}

TEST(CoreString, CollatesLettersWhateverTheirCase) {
  EXPECT_LT(CString(L"a").Collate(L"B"), 0);
  EXPECT_EQ(0, CString(L"ABC").CollateNoCase(L"abc"));
  EXPECT_EQ(0, CString(L"abc").Collate(L"abc"));
}

TEST(CoreString, CutsAndClips) {
  const CString text(L"0123456789");
  EXPECT_EQ(L"789", Text(text.Mid(7)));
  EXPECT_EQ(L"34", Text(text.Mid(3, 2)));
  EXPECT_EQ(L"89", Text(text.Mid(8, 20)));
  EXPECT_EQ(L"", Text(text.Mid(20, 2)));
  EXPECT_EQ(L"01", Text(text.Mid(-4, 2)));
  EXPECT_EQ(L"", Text(text.Mid(2, -1)));
  EXPECT_EQ(L"012", Text(text.Left(3)));
  EXPECT_EQ(L"", Text(text.Left(-3)));
  EXPECT_EQ(L"0123456789", Text(text.Left(30)));
  EXPECT_EQ(L"89", Text(text.Right(2)));
  EXPECT_EQ(L"0123456789", Text(text.Right(30)));
  EXPECT_EQ(L"0123", Text(text.SpanIncluding(L"3210")));
  EXPECT_EQ(L"01234", Text(text.SpanExcluding(L"85")));
}

TEST(CoreString, Finds) {
  const CString text(L"abcabc");
  EXPECT_EQ(1, text.Find(L'b'));
  EXPECT_EQ(4, text.Find(L'b', 2));
  EXPECT_EQ(-1, text.Find(L'b', 5));
  EXPECT_EQ(-1, text.Find(L'b', 6));
  EXPECT_EQ(-1, text.Find(L'b', -1));
  EXPECT_EQ(3, text.Find(L"abc", 1));
  EXPECT_EQ(-1, text.Find(L"abd"));
  EXPECT_EQ(2, text.Find(L"", 2));
  EXPECT_EQ(5, text.ReverseFind(L'c'));
  EXPECT_EQ(-1, text.ReverseFind(L'z'));
  EXPECT_EQ(1, text.FindOneOf(L"zcb"));
  EXPECT_EQ(-1, text.FindOneOf(L"xyz"));
}

TEST(CoreString, ChangesCaseOfAccentedLettersToo) {
  EXPECT_EQ(L"ÉTÉ À PARIS", Text(CString(L"été à Paris").MakeUpper()));
  EXPECT_EQ(L"été", Text(CString(L"ÉTÉ").MakeLower()));
  EXPECT_EQ(L"cba", Text(CString(L"abc").MakeReverse()));
  EXPECT_EQ(L"", Text(CString().MakeUpper()));
}

TEST(CoreString, Trims) {
  EXPECT_EQ(L"a b", Text(CString(L" \t\r\na b \n").Trim()));
  EXPECT_EQ(L"a b \n", Text(CString(L" \ta b \n").TrimLeft()));
  EXPECT_EQ(L" a", Text(CString(L" a \n").TrimRight()));
  EXPECT_EQ(L"ab", Text(CString(L"..ab..").Trim(L'.')));
  EXPECT_EQ(L"b.a", Text(CString(L"a.ab.a.").TrimLeft(L"a.").TrimRight(L".")));
  EXPECT_EQ(L"", Text(CString(L"   ").Trim()));
}

TEST(CoreString, InsertsAndDeletesWithClipping) {
  CString text(L"ad");
  EXPECT_EQ(4, text.Insert(1, L"bc"));
  EXPECT_EQ(L"abcd", Text(text));
  EXPECT_EQ(5, text.Insert(99, L'e'));
  EXPECT_EQ(6, text.Insert(-5, L'>'));
  EXPECT_EQ(L">abcde", Text(text));
  EXPECT_EQ(4, text.Delete(1, 2));
  EXPECT_EQ(L">cde", Text(text));
  EXPECT_EQ(2, text.Delete(2, 99));
  EXPECT_EQ(2, text.Delete(2));
  EXPECT_EQ(2, text.Delete(0, 0));
  EXPECT_EQ(1, text.Delete(-1, 1));
  EXPECT_EQ(L"c", Text(text));
}

TEST(CoreString, Replaces) {
  CString text(L"a\\b\\c");
  EXPECT_EQ(2, text.Replace(L"\\", L"<sep>"));
  EXPECT_EQ(L"a<sep>b<sep>c", Text(text));
  EXPECT_EQ(2, text.Replace(L"<sep>", L""));
  EXPECT_EQ(L"abc", Text(text));
  EXPECT_EQ(0, text.Replace(L"x", L"y"));
  EXPECT_EQ(0, text.Replace(L"", L"y"));
  EXPECT_EQ(1, text.Replace(L"b", nullptr));
  EXPECT_EQ(2, CString(L"aXbX").Replace(L'X', L'y'));
  CString overlapping(L"aaa");
  EXPECT_EQ(1, overlapping.Replace(L"aa", L"b"));
  EXPECT_EQ(L"ba", Text(overlapping));
  CString removing(L"a-b-c");
  EXPECT_EQ(2, removing.Remove(L'-'));
  EXPECT_EQ(L"abc", Text(removing));
}

TEST(CoreString, TokenizesToTheEnd) {
  const CString text(L"%First Second#Third");
  std::vector<std::wstring> tokens;
  int at = 0;
  for (CString token = text.Tokenize(L"% #", at); at != -1; token = text.Tokenize(L"% #", at)) {
    tokens.push_back(Text(token));
  }
  EXPECT_EQ((std::vector<std::wstring>{L"First", L"Second", L"Third"}), tokens);
  EXPECT_EQ(-1, at);
  EXPECT_TRUE(Refuses([&] { text.Tokenize(L"%", at); }));
}

TEST(CoreString, CopiesInOtherThreadsStayWhole) {
  const CString shared(L"commun à tous");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&shared] {
      for (int round = 0; round < 500; ++round) {
        CString copy(shared);
        copy += L"!";
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(L"commun à tous", Text(shared));
}

TEST(CoreString, ReadsTheEnvironment) {
  ::SetEnvironmentVariableW(L"CORE_STRING_TEST", L"valeur");
  CString value;
  EXPECT_TRUE(value.GetEnvironmentVariable(L"CORE_STRING_TEST"));
  EXPECT_EQ(L"valeur", Text(value));
  ::SetEnvironmentVariableW(L"CORE_STRING_TEST", nullptr);
  EXPECT_FALSE(value.GetEnvironmentVariable(L"CORE_STRING_TEST"));
  EXPECT_TRUE(value.IsEmpty());
}

}  // namespace
