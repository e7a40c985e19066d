// The arrays of items: plain, by label, by the application's data.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "VornComCtl.h"

namespace {

// Addresses that are never read.
CVornTreeItem* Item(int i) {
  return reinterpret_cast<CVornTreeItem*>(0x1000 + 16 * static_cast<long long>(i));
}

template <class Array>
std::vector<CVornTreeItem*> Items(const Array& array) {
  return {array.Array(), array.Array() + array.GetSize()};
}

TEST(ItemArray, AFreshArrayGivesNullPastTheEnd) {
  CVornTreeItemArray array;
  EXPECT_EQ(array.GetAt(0), nullptr);
  EXPECT_EQ(array[5], nullptr);
  CTreeItemNameArray names;
  EXPECT_EQ(names.GetAt(0), nullptr);
  CVornTreeItemUserArray users;
  EXPECT_EQ(users.GetAt(0), nullptr);
}

TEST(ItemArray, MoveConstructionCopies) {
  CVornTreeItemArray source;
  source.Add(Item(1), nullptr);
  CVornTreeItemArray moved(static_cast<CVornTreeItemArray&&>(source));
  moved.Add(Item(2), nullptr);
  EXPECT_EQ(Items(source), (std::vector{Item(1)}));
  EXPECT_EQ(Items(moved), (std::vector{Item(1), Item(2)}));
}

TEST(ItemArray, MoveAssignmentShares) {
  CVornTreeItemArray source, target;
  source.Add(Item(1), nullptr);
  target = static_cast<CVornTreeItemArray&&>(source);
  target.Add(Item(2), nullptr);
  EXPECT_EQ(Items(source), (std::vector{Item(1), Item(2)}));

  CTreeItemNameArray names, otherNames;
  otherNames = static_cast<CTreeItemNameArray&&>(names);
  EXPECT_EQ(otherNames.m_pShared, names.m_pShared);
}

TEST(ItemArray, PlainAndUserArraysKeepTheirLayout) {
  EXPECT_EQ(sizeof(CVornTreeItemArray), 16u);
  EXPECT_EQ(sizeof(CTreeItemNameArray), 48u);
  EXPECT_EQ(sizeof(CVornTreeItemUserArray), 56u);
}

TEST(UserArray, WithoutTreeOrCompareOrdersByAddress) {
  static int calls;
  calls = 0;
  const auto compare = [](LPARAM, LPARAM, LPARAM) { return ++calls; };
  CVornTreeItemUserArray array;
  for (int round = 0; round < 2; ++round) {
    for (int i : {3, 1, 2, 1}) array.Add(Item(i), nullptr);
    EXPECT_EQ(Items(array), (std::vector{Item(1), Item(2), Item(3)}));
    CVornTreeItem* wanted = Item(2);
    EXPECT_EQ(array.Find(wanted), array.Array() + 1);
    array.RemoveAll();
    array.SetCompare(nullptr, compare, 7);  // a function alone is not enough
  }
  EXPECT_EQ(calls, 0);
}

TEST(UserArray, InsertOutOfOrderLosesAllAtTheNextAdd) {
  CVornTreeItemUserArray array;
  for (int i : {1, 2, 3}) array.Add(Item(i), nullptr);
  EXPECT_EQ(array.Insert(Item(9), 0), 1);
  EXPECT_EQ(array.m_bSorted, 0);
  EXPECT_EQ(array.Add(Item(5), nullptr), 1);
  EXPECT_EQ(Items(array), (std::vector{Item(5)}));
}

TEST(UserArray, CopiesAreSortedTheSameWay) {
  CVornTreeItemUserArray array;
  for (int i : {2, 1}) array.Add(Item(i), nullptr);
  CVornTreeItemUserArray copy(array);
  CVornTreeItemUserArray shared;
  shared = array;
  copy.Add(Item(3), nullptr);
  EXPECT_EQ(array.GetSize(), 2);
  shared.Add(Item(0), nullptr);
  EXPECT_EQ(Items(array), (std::vector{Item(0), Item(1), Item(2)}));
}

TEST(NameArray, WhatIsNoItemHasNoName) {
  CTreeItemNameArray names;
  CVornTreeItem* none = nullptr;
  const wchar_t* value = L"untouched";
  EXPECT_FALSE(names.GetValue(none, value));
  EXPECT_STREQ(value, L"untouched");
  EXPECT_FALSE(names.AddByValue(none, nullptr));
  CVornTreeItem* place = STI_ROOT;
  EXPECT_FALSE(names.AddByValue(place, nullptr));
  EXPECT_EQ(names.GetSize(), 0);
}

TEST(NameArray, TheFlagsAreStoredUnread) {
  CTreeItemNameArray flagged(7);
  EXPECT_EQ(flagged.GetSize(), 0);
  EXPECT_EQ(flagged.m_bSorted, 1);
}

// ---- With living items -------------------------------------------------------------------------------

class ItemArrayTest : public testing::Test {
 protected:
  CVornTreeItem* New(const wchar_t* text, unsigned __int64 data = 0) {
    return m_tree.InsertItem(text, -1, -1, STI_ROOT, STI_LAST, data);
  }

  // The labels of the elements, each followed by its data.
  template <class Array>
  std::wstring Text(const Array& array) {
    std::wstring text;
    for (long i = 0; i < array.GetSize(); ++i) {
      text += (i ? L" " : L"") + std::wstring(m_tree.GetItemText(array[i])) +
              std::to_wstring(m_tree.GetItemData(array[i]));
    }
    return text;
  }

  CVornTreeCtrl m_tree;
};

using NameArrayTest = ItemArrayTest;

TEST_F(NameArrayTest, OrdersByLabelWithoutLetterCase) {
  CTreeItemNameArray names;
  for (const wchar_t* label : {L"b", L"D", L"a", L"C"}) {
    CVornTreeItem* item = New(label);
    EXPECT_TRUE(names.AddByValue(item, nullptr));
  }
  EXPECT_EQ(Text(names), L"a0 b0 C0 D0");
}

TEST_F(NameArrayTest, EqualLabelsAreKeptTheNewerInFront) {
  CTreeItemNameArray names;
  CVornTreeItem* first = New(L"A", 1);
  CVornTreeItem* second = New(L"a", 2);
  long index = -1;
  EXPECT_TRUE(names.AddByValue(first, &index));
  EXPECT_TRUE(names.AddByValue(second, &index));
  EXPECT_EQ(index, 0);
  EXPECT_EQ(Text(names), L"a2 A1");
}

TEST_F(NameArrayTest, FindsByLabel) {
  CTreeItemNameArray names;
  for (const wchar_t* label : {L"b", L"d"}) {
    CVornTreeItem* item = New(label);
    names.AddByValue(item, nullptr);
  }
  long index = -1;
  EXPECT_TRUE(names.Search(L"D", &index));
  EXPECT_EQ(index, 1);
  EXPECT_FALSE(names.Search(L"c", &index));
  EXPECT_EQ(index, 1);
  EXPECT_FALSE(names.Search(static_cast<const wchar_t*>(nullptr), &index)) << "an empty label";
  EXPECT_EQ(index, 0);
  const wchar_t* wanted = L"B";
  EXPECT_EQ(names.FindAdv(wanted), names.Array());
  wanted = L"bb";
  EXPECT_EQ(names.FindAdv(wanted), nullptr);
}

TEST_F(NameArrayTest, GetValueGivesTheStoredLabel) {
  CTreeItemNameArray names;
  CVornTreeItem* item = New(L"label");
  const wchar_t* value = nullptr;
  EXPECT_TRUE(names.GetValue(item, value));
  EXPECT_STREQ(value, L"label");
}

TEST_F(NameArrayTest, AnElementThatDiedHasNoLabel) {
  CTreeItemNameArray names;
  CVornTreeItem* item = New(L"gone");
  names.AddByValue(item, nullptr);
  m_tree.DeleteItem(item);
  EXPECT_FALSE(names.Search(L"gone", nullptr));
  EXPECT_TRUE(names.Search(L"", nullptr));
}

using UserArrayTest = ItemArrayTest;

int ByData(LPARAM data1, LPARAM data2, LPARAM) { return data1 < data2 ? -1 : data1 > data2; }

TEST_F(UserArrayTest, OrdersByTheFunctionAndDropsEquals) {
  CVornTreeItemUserArray array;
  array.SetCompare(&m_tree, ByData, 0);
  for (unsigned data : {3u, 1u, 2u, 1u}) array.Add(New(L"i", data), nullptr);
  EXPECT_EQ(Text(array), L"i1 i2 i3");
  CVornTreeItem* alike = New(L"other", 2);
  EXPECT_EQ(array.Find(alike), array.Array() + 1);
  long index = -1;
  EXPECT_EQ(array.Search(alike, &index), 1);
  EXPECT_EQ(index, 1);
}

TEST_F(UserArrayTest, TheFunctionGetsElementThenSearchedAndTheParameter) {
  struct Call {
    LPARAM data1, data2, param;
  };
  static std::vector<Call> calls;
  calls.clear();
  CVornTreeItemUserArray array;
  array.SetCompare(
      &m_tree,
      [](LPARAM data1, LPARAM data2, LPARAM param) {
        calls.push_back({data1, data2, param});
        return -1;
      },
      4711);
  array.Add(New(L"element", 1), nullptr);
  EXPECT_TRUE(calls.empty());
  array.Search(New(L"searched", 2), nullptr);
  ASSERT_FALSE(calls.empty());
  for (const Call& call : calls) {
    EXPECT_EQ(call.data1, 1);
    EXPECT_EQ(call.data2, 2);
    EXPECT_EQ(call.param, 4711);
  }
}

TEST_F(UserArrayTest, AssignmentTakesTheComparisonAlong) {
  CVornTreeItemUserArray array, shared;
  array.SetCompare(&m_tree, ByData, 0);
  array.Add(New(L"i", 5), nullptr);
  shared = array;
  shared.Add(New(L"i", 9), nullptr);
  shared.Add(New(L"i", 1), nullptr);
  EXPECT_EQ(Text(array), L"i1 i5 i9");
  CVornTreeItemUserArray copy(array);
  copy.Add(New(L"i", 3), nullptr);
  EXPECT_EQ(Text(copy), L"i1 i3 i5 i9");
}

}  // namespace
