// The arrays of items, as far as they go without items.
#include <afxwin.h>

#include <gtest/gtest.h>

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
  CVornTreeItemArray moved(std::move(source));
  moved.Add(Item(2), nullptr);
  EXPECT_EQ(Items(source), (std::vector{Item(1)}));  // NOLINT(bugprone-use-after-move): meant
  EXPECT_EQ(Items(moved), (std::vector{Item(1), Item(2)}));
}

TEST(ItemArray, MoveAssignmentShares) {
  CVornTreeItemArray source, target;
  source.Add(Item(1), nullptr);
  target = std::move(source);
  target.Add(Item(2), nullptr);
  EXPECT_EQ(Items(source), (std::vector{Item(1), Item(2)}));  // NOLINT(bugprone-use-after-move): meant

  CTreeItemNameArray names, otherNames;
  otherNames = std::move(names);
  EXPECT_EQ(otherNames.m_pShared, names.m_pShared);  // NOLINT(bugprone-use-after-move): meant
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

}  // namespace
