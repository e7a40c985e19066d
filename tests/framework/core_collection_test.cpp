// Arrays, lists and maps.
#include <afxcoll.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

#define EXPECT_REFUSED(statement) EXPECT_THROW(statement, CInvalidArgException*)

// ---- Arrays ------------------------------------------------------------------------------------------

template <class Array>
std::vector<int> Values(const Array& array) {
  std::vector<int> values;
  for (INT_PTR i = 0; i < array.GetSize(); ++i) values.push_back(static_cast<int>(array.GetAt(i)));
  return values;
}

TEST(CoreArray, GrowsAndShrinks) {
  CArray<int> array;
  EXPECT_TRUE(array.IsEmpty());
  EXPECT_EQ(-1, array.GetUpperBound());
  EXPECT_EQ(nullptr, array.GetData());
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(i, array.Add(i * 2));
  EXPECT_EQ(1000, array.GetCount());
  EXPECT_EQ(1998, array[999]);
  array.SetSize(3);
  array.SetSize(5);
  EXPECT_EQ((std::vector<int>{0, 2, 4, 0, 0}), Values(array));
  array.FreeExtra();
  EXPECT_EQ(4, array.GetData()[2]);
  array.RemoveAll();
  EXPECT_EQ(0, array.GetSize());
}

TEST(CoreArray, InsertsRemovesAndGrowsAtAnIndex) {
  CArray<int> array;
  array.SetAtGrow(2, 7);
  EXPECT_EQ((std::vector<int>{0, 0, 7}), Values(array));
  array.InsertAt(1, 5, 2);
  EXPECT_EQ((std::vector<int>{0, 5, 5, 0, 7}), Values(array));
  array.InsertAt(6, 9);
  EXPECT_EQ((std::vector<int>{0, 5, 5, 0, 7, 0, 9}), Values(array));
  array.RemoveAt(0);
  array.RemoveAt(2, 4);
  EXPECT_EQ((std::vector<int>{5, 5, 9}.size() - 1), Values(array).size());
  EXPECT_EQ((std::vector<int>{5, 5}), Values(array));
  array.RemoveAt(2, 0);
  CArray<int> other;
  other.Add(1);
  other.Add(2);
  array.InsertAt(1, &other);
  EXPECT_EQ((std::vector<int>{5, 1, 2, 5}), Values(array));
  EXPECT_EQ(4, array.Append(other));
  array.Copy(other);
  EXPECT_EQ((std::vector<int>{1, 2}), Values(array));
}

TEST(CoreArray, RefusesIndexesOutside) {
  CArray<int> array;
  array.SetSize(3);
  EXPECT_REFUSED(array.GetAt(3));
  EXPECT_REFUSED(array[-1]);
  EXPECT_REFUSED(array.SetAt(3, 1));
  EXPECT_REFUSED(array.ElementAt(5));
  EXPECT_REFUSED(array.RemoveAt(2, 2));
  EXPECT_REFUSED(array.RemoveAt(4, 0));
  EXPECT_REFUSED(array.RemoveAt(-1));
  EXPECT_REFUSED(array.SetSize(-1));
  EXPECT_REFUSED(array.InsertAt(-1, 1));
  EXPECT_REFUSED(array.InsertAt(0, 1, 0));
  EXPECT_REFUSED(array.SetAtGrow(-1, 1));
  EXPECT_EQ(3, array.GetSize());
}

TEST(CoreArray, AddsItsOwnElements) {
  CStringArray array;
  array.Add(L"premier");
  for (int i = 0; i < 50; ++i) array.Add(array[0]);
  array.InsertAt(0, array[50]);
  EXPECT_EQ(52, array.GetSize());
  for (INT_PTR i = 0; i < array.GetSize(); ++i) EXPECT_STREQ(L"premier", array[i]);
}

TEST(CoreArray, RemovedElementsReleaseWhatTheyHeld) {
  CArray<std::shared_ptr<int>> array;
  const auto held = std::make_shared<int>(1);
  array.Add(held);
  array.Add(held);
  EXPECT_EQ(3, held.use_count());
  array.RemoveAt(0);
  EXPECT_EQ(2, held.use_count());
  array.SetSize(0);
  EXPECT_EQ(1, held.use_count());
}

TEST(CoreArray, HoldsFlagsToo) {
  CArray<bool, bool> flags;
  flags.Add(true);
  flags.Add(false);
  bool& flag = flags[1];
  flag = true;
  EXPECT_TRUE(flags[1]);
}

TEST(CoreArray, TypedPointers) {
  CTypedPtrArray<CPtrArray, int*> array;
  int a = 1;
  int b = 2;
  array.Add(&a);
  array.InsertAt(0, &b);
  array[1] = &b;
  EXPECT_EQ(&b, array.GetAt(1));
  array.SetAt(1, &a);
  EXPECT_EQ(1, *array[1]);
  EXPECT_REFUSED(array.GetAt(2));
}

TEST(CoreArray, FixedTypesKnowTheirClass) {
  CDWordArray numbers;
  numbers.Add(0xFFFFFFFF);
  EXPECT_EQ(0xFFFFFFFF, numbers[0]);
  EXPECT_TRUE(numbers.IsKindOf(RUNTIME_CLASS(CDWordArray)));
  EXPECT_FALSE(numbers.IsKindOf(RUNTIME_CLASS(CPtrArray)));
}

// ---- Lists -------------------------------------------------------------------------------------------

template <class List>
std::wstring Joined(const List& list) {
  std::wstring text;
  for (POSITION at = list.GetHeadPosition(); at != nullptr;) text += list.GetNext(at);
  return text;
}

TEST(CoreList, AddsAtBothEnds) {
  CStringList list;
  list.AddTail(L"b");
  list.AddHead(L"a");
  list.AddTail(L"c");
  EXPECT_EQ(L"abc", Joined(list));
  EXPECT_STREQ(L"a", list.GetHead());
  EXPECT_STREQ(L"c", list.GetTail());
  EXPECT_EQ(3, list.GetCount());
  std::wstring backwards;
  for (POSITION at = list.GetTailPosition(); at != nullptr;) backwards += list.GetPrev(at);
  EXPECT_EQ(L"cba", backwards);
}

TEST(CoreList, InsertsFindsAndRemoves) {
  CStringList list;
  const POSITION b = list.AddTail(L"b");
  list.InsertBefore(b, L"a");
  list.InsertAfter(b, L"d");
  list.InsertAfter(b, L"c");
  list.InsertBefore(nullptr, L"<");
  list.InsertAfter(nullptr, L">");
  EXPECT_EQ(L"<abcd>", Joined(list));
  EXPECT_EQ(b, list.Find(L"b"));
  EXPECT_EQ(nullptr, list.Find(L"b", b));
  EXPECT_EQ(b, list.FindIndex(2));
  EXPECT_EQ(nullptr, list.FindIndex(6));
  EXPECT_EQ(nullptr, list.FindIndex(-1));
  list.SetAt(b, L"B");
  list.RemoveAt(list.FindIndex(1));
  EXPECT_EQ(L"<Bcd>", Joined(list));
  EXPECT_STREQ(L"<", list.RemoveHead());
  EXPECT_STREQ(L">", list.RemoveTail());
  EXPECT_EQ(L"Bcd", Joined(list));
  CStringList other;
  other.AddTail(L"1");
  other.AddTail(L"2");
  list.AddHead(&other);
  list.AddTail(&other);
  EXPECT_EQ(L"12Bcd12", Joined(list));
  list.RemoveAll();
  EXPECT_TRUE(list.IsEmpty());
}

TEST(CoreList, AnElementMayBeRemovedDuringTheWalk) {
  CList<int, int> list;
  for (int i = 0; i < 10; ++i) list.AddTail(i);
  for (POSITION at = list.GetHeadPosition(); at != nullptr;) {
    const POSITION current = at;
    if (list.GetNext(at) % 2 == 0) list.RemoveAt(current);
  }
  EXPECT_EQ(5, list.GetCount());
  EXPECT_EQ(1, list.GetHead());
  EXPECT_EQ(9, list.GetTail());
}

TEST(CoreList, RefusesWhatIsNotThere) {
  CList<int, int> list;
  POSITION none = nullptr;
  EXPECT_REFUSED(list.GetHead());
  EXPECT_REFUSED(list.GetTail());
  EXPECT_REFUSED(list.RemoveHead());
  EXPECT_REFUSED(list.RemoveTail());
  EXPECT_REFUSED(list.GetNext(none));
  EXPECT_REFUSED(list.GetAt(nullptr));
  EXPECT_REFUSED(list.RemoveAt(nullptr));
  EXPECT_REFUSED(list.AddTail(&list));
}

TEST(CoreList, TypedPointers) {
  CTypedPtrList<CPtrList, int*> list;
  int a = 1;
  list.AddTail(&a);
  POSITION at = list.GetHeadPosition();
  EXPECT_EQ(&a, list.GetNext(at));
  EXPECT_EQ(&a, list.RemoveHead());
}

// ---- Maps --------------------------------------------------------------------------------------------

TEST(CoreMap, SetsLooksUpAndRemoves) {
  CMap<int, int, CString, LPCWSTR> map;
  map.SetAt(1, L"un");
  map[2] = L"deux";
  map[2] += L"!";
  CString value;
  EXPECT_TRUE(map.Lookup(2, value));
  EXPECT_STREQ(L"deux!", value);
  EXPECT_FALSE(map.Lookup(3, value));
  EXPECT_STREQ(L"deux!", value);
  EXPECT_STREQ(L"un", map.PLookup(1)->value);
  EXPECT_EQ(nullptr, map.PLookup(9));
  EXPECT_EQ(2, map.GetCount());
  EXPECT_TRUE(map.RemoveKey(1));
  EXPECT_FALSE(map.RemoveKey(1));
  EXPECT_TRUE(map[5].IsEmpty());
  EXPECT_EQ(2, map.GetSize());
}

TEST(CoreMap, StringsAreKeysByTheirText) {
  CMapStringToPtr map;
  int a = 0;
  CString key(L"clé");
  map.SetAt(key, &a);
  key += L"!";
  void* value = nullptr;
  EXPECT_TRUE(map.Lookup(L"clé", value));
  EXPECT_EQ(&a, value);
  EXPECT_FALSE(map.Lookup(key, value));
  CMap<CString, const CString&, int, int> numbers;
  numbers[L"a"] = 1;
  EXPECT_EQ(1, numbers.PLookup(L"a")->value);
  CMapStringToString texts;
  texts[L"a"] = L"b";
  EXPECT_STREQ(L"b", texts.PLookup(L"a")->value);
}

TEST(CoreMap, TheWalkMeetsEachPairOnceAndSurvivesRemoval) {
  CMapPtrToPtr map;
  map.InitHashTable(7);
  for (INT_PTR i = 1; i <= 100; ++i) map.SetAt(reinterpret_cast<void*>(i * 16), reinterpret_cast<void*>(i));
  std::set<void*> seen;
  for (POSITION at = map.GetStartPosition(); at != nullptr;) {
    void* key = nullptr;
    void* value = nullptr;
    map.GetNextAssoc(at, key, value);
    EXPECT_TRUE(seen.insert(key).second);
    if (seen.size() % 2 == 0) map.RemoveKey(key);
  }
  EXPECT_EQ(100u, seen.size());
  EXPECT_EQ(50, map.GetCount());
  int pairs = 0;
  for (const auto* pair = map.PGetFirstAssoc(); pair != nullptr; pair = map.PGetNextAssoc(pair)) ++pairs;
  EXPECT_EQ(50, pairs);
  map.RemoveAll();
  EXPECT_EQ(nullptr, map.GetStartPosition());
}

TEST(CoreMap, RefusesTheWalkPastTheEnd) {
  CMapPtrToPtr map;
  POSITION none = nullptr;
  void* key = nullptr;
  void* value = nullptr;
  EXPECT_REFUSED(map.GetNextAssoc(none, key, value));
  EXPECT_REFUSED(map.PGetNextAssoc(nullptr));
  EXPECT_REFUSED(map.InitHashTable(0));
}

TEST(CoreMap, TypedPointers) {
  CTypedPtrMap<CMapPtrToPtr, int*, CString*> map;
  int a = 0;
  CString text(L"x");
  map.SetAt(&a, &text);
  CString* found = nullptr;
  EXPECT_TRUE(map.Lookup(&a, found));
  EXPECT_EQ(&text, found);
  POSITION at = map.GetStartPosition();
  int* key = nullptr;
  map.GetNextAssoc(at, key, found);
  EXPECT_EQ(&a, key);
}

}  // namespace
