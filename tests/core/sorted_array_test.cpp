// The sorted arrays: order, search by element and by value, and what a broken order does.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

#include "core/VornSortedArray.h"

namespace {

struct Thing {
  int value;
};

std::array<Thing, 256> MakeThings() {
  std::array<Thing, 256> things;
  for (std::size_t i = 0; i < things.size(); ++i) things[i].value = static_cast<int>(i);
  return things;
}

std::array<Thing, 256> g_things = MakeThings();

Thing* T(int i) { return &g_things[static_cast<std::size_t>(i)]; }

using Plain = TVornSortedArray_byValue<Thing*, int>;
using Ints = std::vector<int>;

template <class Array>
Ints Values(const Array& array) {
  Ints values;
  for (long i = 0; i < array.GetSize(); ++i) values.push_back(array[i]->value);
  return values;
}

// Things by their value.
class ByValue : public Plain {
 public:
  bool GetValue(Thing*& thing, int& value) override {
    value = thing->value;
    return true;
  }
  int IsLowerAdv(Thing*& thing, int& value) override { return thing->value < value; }
  int IsEqualAdv(Thing*& thing, int& value) override { return thing->value == value; }
};

int CompareThings(void** a, void** b) {
  return (*reinterpret_cast<Thing**>(a))->value - (*reinterpret_cast<Thing**>(b))->value;
}

int CompareReversed(void** a, void** b) { return CompareThings(b, a); }

int CompareWithValue(void** thing, void** value) {
  return (*reinterpret_cast<Thing**>(thing))->value - *reinterpret_cast<int*>(value);
}

TEST(SortedArray, AddsInOrderOfAddresses) {
  Plain array;
  long index = -1;
  EXPECT_EQ(array.Add(T(5), &index), 1);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(array.Add(T(9), &index), 1);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(array.Add(T(1), &index), 1);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(array.Add(T(7), nullptr), 1);
  EXPECT_EQ(Values(array), (Ints{1, 5, 7, 9}));
}

TEST(SortedArray, AddOfAnEqualItemReturnsOneAndStoresNothing) {
  Plain array;
  array.Add(T(1), nullptr);
  array.Add(T(2), nullptr);
  long index = -1;
  EXPECT_EQ(array.Add(T(2), &index), 1);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(array.GetSize(), 2);
}

TEST(SortedArray, OrdersRandomAdds) {
  std::mt19937 random(11);
  for (int round = 0; round < 20; ++round) {
    Plain array;
    Ints expected;
    for (int i = 0; i < 100; ++i) {
      const int value = static_cast<int>(random() % 200);
      array.Add(T(value), nullptr);
      expected.push_back(value);
    }
    std::sort(expected.begin(), expected.end());
    expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
    ASSERT_EQ(Values(array), expected);
  }
}

TEST(SortedArray, SearchFindsOrTellsThePlace) {
  Plain array;
  long index = -1;
  EXPECT_EQ(array.Search(T(3), &index), 0);
  EXPECT_EQ(index, 0);
  for (int i : {2, 4, 6, 8}) array.Add(T(i), nullptr);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(array.Search(T(2 * i + 2), &index), 1);
    EXPECT_EQ(index, i);
    EXPECT_EQ(array.Search(T(2 * i + 1), &index), 0);
    EXPECT_EQ(index, i);
  }
  EXPECT_EQ(array.Search(T(9), &index), 0);
  EXPECT_EQ(index, 4);
  EXPECT_EQ(array.Search(T(2), nullptr), 1);
}

TEST(SortedArray, InsertOfAnEqualItemStoresNothing) {
  Plain array;
  array.Add(T(1), nullptr);
  EXPECT_EQ(array.Insert(T(1), 0), 1);
  EXPECT_EQ(array.GetSize(), 1);
  EXPECT_EQ(array.m_bSorted, 1);
}

TEST(SortedArray, InsertAtTheSortedPlaceKeepsTheOrder) {
  Plain array;
  for (int i : {1, 3, 5}) array.Add(T(i), nullptr);
  EXPECT_EQ(array.Insert(T(2), 1), 1);
  EXPECT_EQ(array.m_bSorted, 1);
  EXPECT_EQ(Values(array), (Ints{1, 2, 3, 5}));
  // Meant: another number for the same place counts as breaking the order.
  EXPECT_EQ(array.Insert(T(6), 1000), 1);
  EXPECT_EQ(Values(array), (Ints{1, 2, 3, 5, 6}));
  EXPECT_EQ(array.m_bSorted, 0);
}

// An array whose order an Insert has broken.
void Break(Plain& array) {
  for (int i : {2, 4, 6}) array.Add(T(i), nullptr);
  ASSERT_EQ(array.Insert(T(8), 0), 1);
  ASSERT_EQ(array.m_bSorted, 0);
  ASSERT_EQ(Values(array), (Ints{8, 2, 4, 6}));
}

TEST(SortedArray, SearchEmptiesAnArrayOfBrokenOrder) {
  Plain array;
  Break(array);
  long index = -1;
  array.Search(T(4), &index);
  EXPECT_EQ(array.GetSize(), 0);
  EXPECT_EQ(array.m_bSorted, 1);
}

TEST(SortedArray, SearchThatEmptiesTellsOfTheElementsThatWere) {
  Plain array;
  Break(array);
  long index = -1;
  EXPECT_EQ(array.Search(T(4), &index), 1);
  EXPECT_EQ(index, 2);
  EXPECT_EQ(array.GetSize(), 0);
}

TEST(SortedArray, AddEmptiesAnArrayOfBrokenOrderAndStoresItsOwn) {
  Plain array;
  Break(array);
  long index = -1;
  EXPECT_EQ(array.Add(T(5), &index), 1);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(Values(array), (Ints{5}));
  EXPECT_EQ(array.m_bSorted, 1);

  Plain other;
  Break(other);
  EXPECT_EQ(other.Add(T(4), &index), 1);
  EXPECT_EQ(Values(other), (Ints{4}));
}

TEST(SortedArray, SortEmptiesAnArrayOfBrokenOrder) {
  Plain array;
  Break(array);
  EXPECT_EQ(array.Sort(), 1);
  EXPECT_EQ(array.GetSize(), 0);
  EXPECT_EQ(array.m_bSorted, 1);

  Plain other;
  Break(other);
  EXPECT_TRUE(other.SortByValue());
  EXPECT_EQ(other.GetSize(), 0);
}

TEST(SortedArray, SortLeavesASortedArrayAlone) {
  Plain array;
  for (int i : {3, 1, 2}) array.Add(T(i), nullptr);
  EXPECT_EQ(array.Sort(), 1);
  EXPECT_TRUE(array.SortByValue());
  EXPECT_EQ(Values(array), (Ints{1, 2, 3}));
}

TEST(SortedArray, BrokenOrderEmptiesEveryHandleOfTheStorage) {
  Plain array, other;
  Break(array);
  other = array;
  EXPECT_EQ(other.m_bSorted, 0);
  array.Search(T(4), nullptr);
  EXPECT_EQ(other.GetSize(), 0);
}

TEST(SortedArray, CompareFunctionDecides) {
  Plain array;
  EXPECT_EQ(array.m_pfnCompare, nullptr);
  EXPECT_EQ(array.m_pfnCompareAdv, nullptr);
  array.SetCompare(CompareReversed);
  for (int i : {1, 3, 2}) array.Add(T(i), nullptr);
  EXPECT_EQ(Values(array), (Ints{3, 2, 1}));
  Thing two{2};
  long index = -1;
  EXPECT_EQ(array.Search(&two, &index), 1);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(array.Add(&two, nullptr), 1);
  EXPECT_EQ(array.GetSize(), 3);
}

TEST(SortedArray, AssignmentCopiesSortedMarkAndCompareFunctions) {
  Plain array;
  array.SetCompare(CompareReversed);
  array.SetCompareAdv(CompareWithValue);
  array.Add(T(1), nullptr);
  array.Insert(T(2), 1);
  ASSERT_EQ(array.m_bSorted, 0);
  Plain assigned;
  assigned = array;
  Plain copied(array);
  for (const Plain* other : {&assigned, &copied}) {
    EXPECT_EQ(other->m_bSorted, 0);
    EXPECT_EQ(other->m_pfnCompare, &CompareReversed);
    EXPECT_EQ(other->m_pfnCompareAdv, &CompareWithValue);
    EXPECT_EQ(Values(*other), (Ints{1, 2}));
  }
  EXPECT_EQ(assigned.m_pShared, array.m_pShared);
  EXPECT_NE(copied.m_pShared, array.m_pShared);
}

TEST(SortedArray, SelfAssignmentKeepsAll) {
  Plain array;
  array.Add(T(1), nullptr);
  Plain& same = array;
  array = same;
  EXPECT_EQ(Values(array), (Ints{1}));
}

// ---- By value ----------------------------------------------------------------------------------------

TEST(SortedArrayByValue, WithoutAValueNothingIsAdded) {
  Plain array;
  Thing* thing = T(1);
  long index = -7;
  EXPECT_FALSE(array.AddByValue(thing, &index));
  EXPECT_EQ(index, -7);
  EXPECT_EQ(array.GetSize(), 0);
}

TEST(SortedArrayByValue, EqualValuesAreKept) {
  Thing first{5}, second{5}, third{5};
  ByValue array;
  long index = -1;
  for (Thing* thing : {T(9), &first, T(1), &second, &third}) EXPECT_TRUE(array.AddByValue(thing, &index));
  EXPECT_EQ(Values(array), (Ints{1, 5, 5, 5, 9}));
}

TEST(SortedArrayByValue, ANewEqualGoesInFrontOfTheOneFound) {
  Thing first{5}, second{5};
  ByValue array;
  Thing* thing = &first;
  long index = -1;
  EXPECT_TRUE(array.AddByValue(thing, &index));
  EXPECT_EQ(index, 0);
  thing = &second;
  EXPECT_TRUE(array.AddByValue(thing, &index));
  EXPECT_EQ(index, 0);
  EXPECT_EQ(array[0], &second);
  EXPECT_EQ(array[1], &first);
}

TEST(SortedArrayByValue, SearchByValue) {
  ByValue array;
  long index = -7;
  EXPECT_FALSE(array.Search(3, &index));
  EXPECT_EQ(index, -7) << "an empty array leaves it alone";
  for (int i : {2, 4, 6}) {
    Thing* thing = T(i);
    array.AddByValue(thing, nullptr);
  }
  EXPECT_TRUE(array.Search(4, &index));
  EXPECT_EQ(index, 1);
  EXPECT_FALSE(array.Search(5, &index));
  EXPECT_EQ(index, 2);
  EXPECT_FALSE(array.Search(7, &index));
  EXPECT_EQ(index, 3);
}

TEST(SortedArrayByValue, FindAdvPointsIntoTheBlock) {
  ByValue array;
  int wanted = 4;
  EXPECT_EQ(array.FindAdv(wanted), nullptr);
  for (int i : {2, 4, 6}) {
    Thing* thing = T(i);
    array.AddByValue(thing, nullptr);
  }
  EXPECT_EQ(array.FindAdv(wanted), array.Array() + 1);
  wanted = 5;
  EXPECT_EQ(array.FindAdv(wanted), nullptr);
}

TEST(SortedArrayByValue, SearchEmptiesAnArrayOfBrokenOrderFirst) {
  ByValue array;
  for (int i : {2, 4, 6}) array.Add(T(i), nullptr);
  array.Insert(T(8), 0);
  ASSERT_EQ(array.m_bSorted, 0);
  long index = -7;
  EXPECT_FALSE(array.Search(4, &index));
  EXPECT_EQ(index, -7);
  EXPECT_EQ(array.GetSize(), 0);
}

TEST(SortedArrayByValue, AddByValueEmptiesAnArrayOfBrokenOrder) {
  ByValue array;
  for (int i : {2, 4, 6}) array.Add(T(i), nullptr);
  array.Insert(T(8), 0);
  Thing* thing = T(5);
  long index = -7;
  EXPECT_TRUE(array.AddByValue(thing, &index));
  EXPECT_EQ(index, 0);
  EXPECT_EQ(Values(array), (Ints{5}));
}

TEST(SortedArrayByValue, WithoutACompareFunctionNothingIsLowerOrEqual) {
  Plain array;
  array.Add(T(1), nullptr);
  Thing* thing = T(1);
  int value = 1;
  EXPECT_EQ(array.IsLowerAdv(thing, value), 0);
  EXPECT_EQ(array.IsEqualAdv(thing, value), 0);
  EXPECT_EQ(array.FindAdv(value), nullptr);
}

TEST(SortedArrayByValue, EqualityAsksTheCompareFunctionForLower) {
  Plain array;
  array.SetCompareAdv(CompareWithValue);
  Thing* thing = T(3);
  int lower = 2, same = 3, higher = 4;
  EXPECT_EQ(array.IsLowerAdv(thing, higher), 1);
  EXPECT_EQ(array.IsEqualAdv(thing, higher), 1);
  EXPECT_EQ(array.IsLowerAdv(thing, same), 0);
  EXPECT_EQ(array.IsEqualAdv(thing, same), 0);
  EXPECT_EQ(array.IsLowerAdv(thing, lower), 0);
  EXPECT_EQ(array.IsEqualAdv(thing, lower), 0);
}

TEST(SortedArrayByValue, AContradictoryCompareStaysInsideTheBlock) {
  Plain array;
  array.SetCompareAdv(CompareWithValue);  // elements in front of the value count as equal to it
  for (int i : {1, 2, 3}) array.Add(T(i), nullptr);
  int beyond = 100;
  long index = -1;
  EXPECT_TRUE(array.Search(beyond, &index));
  EXPECT_EQ(index, 3);
  Thing** const found = array.FindAdv(beyond);
  EXPECT_EQ(found, array.Array() + 2);
}

TEST(SortedArrayByValue, WithoutStorageNothingIsFoundOrAdded) {
  ByValue array;
  array.m_pShared->Release();
  array.m_pShared = nullptr;
  Thing* thing = T(1);
  long index = -7;
  EXPECT_EQ(array.Add(T(1), &index), 0);
  EXPECT_EQ(array.Insert(T(1), 0), 0);
  EXPECT_FALSE(array.AddByValue(thing, &index));
  EXPECT_EQ(array.Search(T(1), &index), 0);
  EXPECT_EQ(index, 0);
  index = -7;
  EXPECT_FALSE(array.Search(1, &index));
  EXPECT_EQ(index, -7);
  int value = 1;
  EXPECT_EQ(array.FindAdv(value), nullptr);
}

// ---- By data -----------------------------------------------------------------------------------------

using ByData = TVornSortedArray_ByData<Thing*>;

TEST(SortedArrayByData, FindSearchesInOrder) {
  ByData array;
  Thing* wanted = T(4);
  EXPECT_EQ(array.Find(wanted), nullptr);
  for (int i : {6, 2, 4, 4}) array.Add(T(i), nullptr);
  EXPECT_EQ(Values(array), (Ints{2, 4, 6}));
  EXPECT_EQ(array.Find(wanted), array.Array() + 1);
  wanted = T(5);
  EXPECT_EQ(array.Find(wanted), nullptr);
}

TEST(SortedArrayByData, BrokenOrderIsLostAtTheNextSearch) {
  for (int how = 0; how < 4; ++how) {
    ByData array;
    for (int i : {2, 4, 6}) array.Add(T(i), nullptr);
    array.Insert(T(8), 0);
    ASSERT_EQ(array.m_bSorted, 0);
    long index = -1;
    Thing* four = T(4);
    switch (how) {
      case 0: EXPECT_EQ(array.Search(four, &index), 1) << "tells of the elements that were"; break;
      case 1: EXPECT_EQ(array.Find(four), nullptr); break;
      case 2: EXPECT_EQ(array.Sort(), 1); break;
      case 3: EXPECT_EQ(array.Add(T(4), &index), 1); break;
    }
    EXPECT_EQ(Values(array), how == 3 ? Ints{4} : Ints{});
    EXPECT_EQ(array.m_bSorted, 1);
  }
}

TEST(SortedArrayByData, AssignmentSharesAndCopiesTheMark) {
  ByData array, other;
  array.Add(T(2), nullptr);
  array.Insert(T(1), 1);
  other = array;
  EXPECT_EQ(other.m_bSorted, 0);
  EXPECT_EQ(other.m_pShared, array.m_pShared);
  EXPECT_EQ(ByData(array).m_bSorted, 0);
  EXPECT_EQ(array.m_pSpare, nullptr);
}

// ---- Order of fields and of virtual operations -------------------------------------------------------

template <class Array>
std::ptrdiff_t Offset(const Array& array, const void* field) {
  return static_cast<const char*>(field) - reinterpret_cast<const char*>(&array);
}

TEST(SortedArray, KeepsItsLayout) {
  Plain array;
  EXPECT_EQ(Offset(array, &array.m_pShared), 8);
  EXPECT_EQ(Offset(array, &array.m_bSorted), 16);
  EXPECT_EQ(Offset(array, &array.m_pfnCompare), 24);
  EXPECT_EQ(Offset(array, &array.m_pfnCompareAdv), 32);
  EXPECT_EQ(sizeof(array), 40u);
  ByData data;
  EXPECT_EQ(Offset(data, &data.m_bSorted), 16);
  EXPECT_EQ(Offset(data, &data.m_pSpare), 24);
}

// Overrides what it appends with one of its own number.
class Slots : public Plain {
 public:
  bool AddByValue(Thing*&, long*) override { return m_answer == 8; }
  bool GetValue(Thing*&, int&) override { return m_answer == 9; }
  Thing** FindAdv(int&) override { return m_answer == 10 ? &m_thing : nullptr; }
  int IsLowerAdv(Thing*&, int&) override { return 11; }
  int IsEqualAdv(Thing*&, int&) override { return 12; }
  int m_answer = 0;
  Thing* m_thing = nullptr;
};

TEST(SortedArray, AppendsItsVirtualOperationsInOrder) {
  Slots array;
  void** const table = *reinterpret_cast<void***>(&array);
  Thing* thing = T(0);
  int value = 0;
  array.m_answer = 8;
  EXPECT_TRUE(reinterpret_cast<bool (*)(Slots*, Thing**, long*)>(table[8])(&array, &thing, nullptr));
  array.m_answer = 9;
  EXPECT_TRUE(reinterpret_cast<bool (*)(Slots*, Thing**, int*)>(table[9])(&array, &thing, &value));
  array.m_answer = 10;
  EXPECT_EQ(reinterpret_cast<Thing** (*)(Slots*, int*)>(table[10])(&array, &value), &array.m_thing);
  EXPECT_EQ(reinterpret_cast<int (*)(Slots*, Thing**, int*)>(table[11])(&array, &thing, &value), 11);
  EXPECT_EQ(reinterpret_cast<int (*)(Slots*, Thing**, int*)>(table[12])(&array, &thing, &value), 12);
}

}  // namespace
