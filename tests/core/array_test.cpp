// The shared arrays: storage, handles and their required oddities.
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <vector>

#include "core/VornArray.h"

namespace {

struct Thing {
  int value;
};
using Things = TVornArray<Thing*>;

std::array<Thing, 64> g_things;

Thing* T(int i) { return &g_things[static_cast<std::size_t>(i)]; }

// An array of the first count things.
void Fill(Things& array, int count) {
  for (int i = 0; i < count; ++i) ASSERT_EQ(array.Add(T(i), nullptr), 1);
}

std::vector<int> Numbers(const Things& array) {
  std::vector<int> numbers;
  for (long i = 0; i < array.GetSize(); ++i) {
    numbers.push_back(static_cast<int>(array[i] - g_things.data()));
  }
  return numbers;
}

using Ints = std::vector<int>;

TEST(Array, FreshArrayHoldsNoBlock) {
  Things array;
  ASSERT_NE(array.m_pShared, nullptr);
  EXPECT_EQ(array.GetSize(), 0);
  EXPECT_EQ(array.Array(), nullptr);
  EXPECT_EQ(array.m_pShared->m_pBlock, nullptr);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 0);
  EXPECT_EQ(array.m_pShared->m_nRefCount, 1);
  EXPECT_EQ(array.GetGrowFactor(), 1.5f);
}

TEST(Array, GrowsToFiveThenByHalf) {
  Things array;
  const int expected[] = {5, 5, 5, 5, 5, 7, 7, 10, 10, 10, 15};
  for (int i = 0; i < 11; ++i) {
    array.Add(T(i), nullptr);
    EXPECT_EQ(array.m_pShared->m_nCapacity, expected[i]) << "after element " << i + 1;
  }
  EXPECT_EQ(array.m_pShared->m_pData, array.m_pShared->m_pBlock);
}

TEST(Array, GrowFactorBelowOneGrowsToWhatIsNeeded) {
  Things array;
  array.SetGrowFactor(0.1f);
  Fill(array, 6);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 6);
  array.SetGrowFactor(-3.0f);
  array.Add(T(6), nullptr);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 7);
  array.SetGrowFactor(std::numeric_limits<float>::quiet_NaN());
  array.Add(T(7), nullptr);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 8);
  EXPECT_EQ(Numbers(array), (Ints{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(Array, CapacityNeverFalls) {
  Things array;
  Fill(array, 8);
  array.RemoveAll();
  EXPECT_EQ(array.GetSize(), 0);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 10);
  array.Resize(0);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 10);
}

TEST(Array, AddTellsThePosition) {
  Things array;
  long index = -7;
  EXPECT_EQ(array.Add(T(0), &index), 1);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(array.Add(T(1), &index), 1);
  EXPECT_EQ(index, 1);
}

TEST(Array, AddsAnElementOfItself) {
  Things array;
  Fill(array, 5);
  array.Add(array[0], nullptr);  // the block moves while the argument lies in it
  EXPECT_EQ(Numbers(array), (Ints{0, 1, 2, 3, 4, 0}));
  array.Insert(array[5], 1);  // the argument moves up
  EXPECT_EQ(Numbers(array), (Ints{0, 0, 1, 2, 3, 4, 0}));
}

TEST(Array, PastTheEndGivesTheEmptyValue) {
  Things array;
  Fill(array, 2);
  EXPECT_EQ(array.GetAt(2), nullptr);
  array.SetEmptyData(T(9));
  EXPECT_EQ(array.GetAt(2), T(9));
  EXPECT_EQ(array[1000], T(9));
  EXPECT_EQ(&array.ElementAt(2), &array.m_pShared->m_EmptyData);
  EXPECT_EQ(array.GetAt(1), T(1));
}

TEST(Array, AssignmentShares) {
  Things a, b;
  Fill(b, 2);
  a = b;
  EXPECT_EQ(b.m_pShared->m_nRefCount, 2);
  a.Add(T(5), nullptr);
  EXPECT_EQ(Numbers(b), (Ints{0, 1, 5}));
  b.RemoveAt(0);
  EXPECT_EQ(Numbers(a), (Ints{1, 5}));
  a.SetGrowFactor(3.0f);
  EXPECT_EQ(b.GetGrowFactor(), 3.0f);
}

TEST(Array, SelfAssignmentDoesNothing) {
  Things a;
  Fill(a, 2);
  Things& same = a;
  a = same;
  EXPECT_EQ(a.m_pShared->m_nRefCount, 1);
  EXPECT_EQ(Numbers(a), (Ints{0, 1}));
}

TEST(Array, AssigningTheSharedStorageAgainKeepsIt) {
  Things a, b;
  Fill(a, 2);
  b = a;
  b = a;
  EXPECT_EQ(a.m_pShared->m_nRefCount, 2);
  EXPECT_EQ(Numbers(b), (Ints{0, 1}));
}

TEST(Array, SharedStorageOutlivesItsFirstHandle) {
  Things survivor;
  {
    Things first;
    Fill(first, 3);
    survivor = first;
  }
  EXPECT_EQ(survivor.m_pShared->m_nRefCount, 1);
  EXPECT_EQ(Numbers(survivor), (Ints{0, 1, 2}));
}

TEST(Array, CopyConstructionDoesNotShare) {
  Things a;
  Fill(a, 3);
  a.SetGrowFactor(2.0f);
  a.SetEmptyData(T(9));
  Things b(a);
  b.Add(T(7), nullptr);
  EXPECT_EQ(Numbers(a), (Ints{0, 1, 2}));
  EXPECT_EQ(Numbers(b), (Ints{0, 1, 2, 7}));
  EXPECT_EQ(b.GetGrowFactor(), 2.0f);
  EXPECT_NE(b.GetAt(99), T(9)) << "the empty value is not copied";
}

TEST(Array, AppendLeavesSharedStorageAlone) {
  Things a, b;
  Fill(a, 2);
  b = a;
  a += b;
  a += a;
  EXPECT_EQ(Numbers(a), (Ints{0, 1}));
  Things other;
  other.Add(T(8), nullptr);
  (a += other) += other;
  EXPECT_EQ(Numbers(b), (Ints{0, 1, 8, 8}));
}

TEST(Array, CopyAppendsEvenToItself) {
  Things a;
  Fill(a, 3);
  Things b;
  b.Add(T(9), nullptr);
  EXPECT_EQ(b.Copy(a), 1);
  EXPECT_EQ(Numbers(b), (Ints{9, 0, 1, 2}));
  EXPECT_EQ(a.Copy(a), 1);
  EXPECT_EQ(Numbers(a), (Ints{0, 1, 2, 0, 1, 2}));
}

TEST(Array, InsertPastTheEndAppends) {
  Things array;
  Fill(array, 3);
  EXPECT_EQ(array.Insert(T(9), 1000), 1);
  EXPECT_EQ(Numbers(array), (Ints{0, 1, 2, 9}));
  EXPECT_EQ(array.Insert(T(8), 1), 1);
  EXPECT_EQ(Numbers(array), (Ints{0, 8, 1, 2, 9}));
}

TEST(Array, InsertAtANegativeIndexIsRefused) {
  Things array;
  Fill(array, 3);
  EXPECT_EQ(array.Insert(T(9), -1), 0);
  EXPECT_EQ(Numbers(array), (Ints{0, 1, 2}));
}

TEST(Array, RemoveClipsItsRange) {
  Things array;
  Fill(array, 3);
  array.Remove(5, 1);
  array.Remove(3, 1);
  array.Remove(-1, 2);
  array.Remove(0, 0);
  array.Remove(0, -2);
  EXPECT_EQ(Numbers(array), (Ints{0, 1, 2}));
  array.Remove(1, 100);
  EXPECT_EQ(Numbers(array), (Ints{0}));
}

TEST(Array, RemoveMovesTheTailDown) {
  Things array;
  Fill(array, 6);
  array.Remove(1, 2);
  EXPECT_EQ(Numbers(array), (Ints{0, 3, 4, 5}));
  array.RemoveAt(3);
  array.RemoveAt(3);
  array.RemoveAt(-1);
  EXPECT_EQ(Numbers(array), (Ints{0, 3, 4}));
}

TEST(Array, RemoveByValueTakesTheFirstMatch) {
  Things array;
  Fill(array, 3);
  array.Add(T(1), nullptr);
  Thing* wanted = T(1);
  EXPECT_EQ(array.Remove(wanted), 1);
  EXPECT_EQ(Numbers(array), (Ints{0, 2, 1}));
  Thing* missing = T(9);
  EXPECT_EQ(array.Remove(missing), 0);
  EXPECT_EQ(array.GetSize(), 3);
}

TEST(Array, FindPointsIntoTheBlock) {
  Things array;
  Thing* wanted = T(2);
  EXPECT_EQ(array.Find(wanted), nullptr);
  Fill(array, 4);
  EXPECT_EQ(array.Find(wanted), array.Array() + 2);
  Thing* missing = T(9);
  EXPECT_EQ(array.Find(missing), nullptr);
}

// Elements that count as equal by their value.
class ByValue : public Things {
 public:
  int IsEqual(Thing*& a, Thing*& b) override { return a->value == b->value; }
  int IsLower(Thing*& a, Thing*& b) override { return a->value < b->value; }
};

TEST(Array, FindAndRemoveAskIsEqual) {
  Thing one{1}, other{1}, two{2};
  ByValue array;
  array.Add(&two, nullptr);
  array.Add(&one, nullptr);
  Thing* wanted = &other;
  EXPECT_EQ(array.Find(wanted), array.Array() + 1);
  EXPECT_EQ(array.Remove(wanted), 1);
  EXPECT_EQ(array.GetSize(), 1);
}

TEST(Array, ComparesAsUnsignedNumbers) {
  TVornArray<long long> array;
  long long minus = -1, one = 1;
  EXPECT_EQ(array.IsLower(one, minus), 1);
  EXPECT_EQ(array.IsLower(minus, one), 0);
  EXPECT_EQ(array.IsEqual(one, one), 1);
  EXPECT_EQ(array.IsEqual(one, minus), 0);
}

TEST(Array, ResizeUpwardsOnlyReserves) {
  Things array;
  Fill(array, 3);
  EXPECT_EQ(array.Resize(100), 1);
  EXPECT_EQ(array.GetSize(), 3);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 100);
  EXPECT_EQ(array.Resize(3), 1);
  EXPECT_EQ(array.GetSize(), 3);
}

TEST(Array, ResizeBelowOneRemovesAll) {
  Things array;
  Fill(array, 3);
  EXPECT_EQ(array.Resize(0), 1);
  EXPECT_EQ(array.GetSize(), 0);
  Fill(array, 3);
  EXPECT_EQ(array.Resize(-5), 1);
  EXPECT_EQ(array.GetSize(), 0);
}

TEST(Array, ResizeDownwardsTakesTheSurplusOffTwice) {
  Things array;
  Fill(array, 10);
  EXPECT_EQ(array.Resize(8), 1);
  EXPECT_EQ(array.GetSize(), 6);
  EXPECT_EQ(array[5], T(5));

  Things other;
  Fill(other, 10);
  EXPECT_EQ(other.Resize(3), 1);
  EXPECT_EQ(other.GetSize(), -4);
}

TEST(Array, NegativeSizeIsHarmless) {
  Things array;
  Fill(array, 10);
  array.Resize(3);
  ASSERT_EQ(array.GetSize(), -4);
  Thing* wanted = T(0);
  EXPECT_EQ(array.GetAt(0), nullptr);
  EXPECT_EQ(array.Find(wanted), nullptr);
  EXPECT_EQ(array.Remove(wanted), 0);
  EXPECT_EQ(array.Add(T(1), nullptr), 0) << "there is no place to store at";
  EXPECT_EQ(array.Resize(200), 1);
  array.Sort();
  Things copy(array);
  EXPECT_EQ(copy.GetSize(), 0);
  array.RemoveAll();
  EXPECT_EQ(array.GetSize(), 0);
  EXPECT_EQ(array.Add(T(1), nullptr), 1);
}

TEST(Array, WithoutStorageEverythingGivesNothing) {
  Things none{VornNoStorage()};
  Things some;
  Fill(some, 2);
  long index = -7;
  Thing* wanted = T(0);
  EXPECT_EQ(none.Add(T(0), &index), 0);
  EXPECT_EQ(index, -7);
  EXPECT_EQ(none.Insert(T(0), 0), 0);
  EXPECT_EQ(none.Remove(wanted), 0);
  none.Remove(0, 1);
  none.RemoveAt(0);
  none.RemoveAll();
  none.Sort();
  none.SetGrowFactor(2.0f);
  none.SetEmptyData(T(0));
  EXPECT_EQ(none.Find(wanted), nullptr);
  EXPECT_EQ(none.Array(), nullptr);
  EXPECT_EQ(none.GetSize(), 0);
  EXPECT_EQ(none.GetGrowFactor(), 0.0f);
  EXPECT_EQ(none.Resize(5), 0);
  EXPECT_EQ(none.Resize(0), 0);
  EXPECT_EQ(none.Copy(some), 0);
  EXPECT_EQ(some.Copy(none), 1);
  EXPECT_EQ(some.GetSize(), 2);
}

TEST(Array, WithoutStorageIsWhatAssignmentShares) {
  Things none{VornNoStorage()};
  Things some;
  Fill(some, 2);
  some = none;
  EXPECT_EQ(some.m_pShared, nullptr);
  EXPECT_EQ(none.ProvideStorage(), 1);
  const auto* storage = none.m_pShared;
  EXPECT_EQ(none.ProvideStorage(), 1);
  EXPECT_EQ(none.m_pShared, storage);
  EXPECT_EQ(none.Add(T(0), nullptr), 1);
}

TEST(Array, CopyOfAnArrayWithoutStorageHasStorage) {
  Things none{VornNoStorage()};
  Things copy(none);
  EXPECT_EQ(copy.Add(T(0), nullptr), 1);
}

// ---- Order of fields and of virtual operations ---------------------------------------------------------

TEST(Array, StorageKeepsItsLayout) {
  TVornSharedArray<Thing*>* storage = new TVornSharedArray<Thing*>;
  const auto offset = [&](const void* field) {
    return static_cast<const char*>(field) - reinterpret_cast<const char*>(storage);
  };
  EXPECT_EQ(offset(&storage->m_pData), 8);
  EXPECT_EQ(offset(&storage->m_pBlock), 16);
  EXPECT_EQ(offset(&storage->m_nCapacity), 24);
  EXPECT_EQ(offset(&storage->m_nSize), 28);
  EXPECT_EQ(offset(&storage->m_fGrowFactor), 32);
  EXPECT_EQ(offset(&storage->m_nRefCount), 36);
  EXPECT_EQ(offset(&storage->m_EmptyData), 40);
  EXPECT_EQ(sizeof(Things), 16u);
  unsigned bits;
  std::memcpy(&bits, &storage->m_fGrowFactor, sizeof(bits));
  EXPECT_EQ(bits, 0x3FC00000u);
  storage->Release();
}

// Overrides every virtual operation with one of its own number.
class Slots : public Things {
 public:
  int Add(Thing* const&, long*) override { return 1; }
  int Insert(Thing* const&, long) override { return 2; }
  int Remove(Thing*&) override { return 3; }
  void Remove(long, long) override { m_called = 4; }
  void RemoveAll() override { m_called = 5; }
  Thing** Find(Thing*&) override { return g_table + 6; }
  int IsLower(Thing*&, Thing*&) override { return 7; }
  int IsEqual(Thing*&, Thing*&) override { return 8; }
  int m_called = 0;
  static inline Thing* g_table[8];
};

TEST(Array, VirtualOperationsKeepTheirSlots) {
  Slots array;
  void** const table = *reinterpret_cast<void***>(&array);
  Thing* thing = T(0);
  using TakesItem = int (*)(Slots*, Thing**, void*);
  using TakesRange = void (*)(Slots*, long, long);
  EXPECT_EQ(reinterpret_cast<TakesItem>(table[0])(&array, &thing, nullptr), 1);
  EXPECT_EQ(reinterpret_cast<TakesItem>(table[1])(&array, &thing, nullptr), 2);
  EXPECT_EQ(reinterpret_cast<TakesItem>(table[2])(&array, &thing, nullptr), 3);
  reinterpret_cast<TakesRange>(table[3])(&array, 0, 0);
  EXPECT_EQ(array.m_called, 4);
  reinterpret_cast<void (*)(Slots*)>(table[4])(&array);
  EXPECT_EQ(array.m_called, 5);
  EXPECT_EQ(reinterpret_cast<Thing** (*)(Slots*, Thing**)>(table[5])(&array, &thing), Slots::g_table + 6);
  EXPECT_EQ(reinterpret_cast<TakesItem>(table[6])(&array, &thing, &thing), 7);
  EXPECT_EQ(reinterpret_cast<TakesItem>(table[7])(&array, &thing, &thing), 8);
}

// ---- Sort --------------------------------------------------------------------------------------------

TEST(ArraySort, OrdersEveryPermutationOfSixElements) {
  Ints numbers{0, 1, 2, 3, 4, 5};
  for (std::size_t count = 0; count <= numbers.size(); ++count) {
    Ints wanted(numbers.begin(), numbers.begin() + static_cast<long>(count));
    Ints order = wanted;
    do {
      Things array;
      for (int n : order) array.Add(T(n), nullptr);
      array.Sort();
      ASSERT_EQ(Numbers(array), wanted);
    } while (std::next_permutation(order.begin(), order.end()));
  }
}

TEST(ArraySort, OrdersLargeArraysAndKeepsEqualElements) {
  std::mt19937 random(7);
  for (int round = 0; round < 50; ++round) {
    TVornArray<long long> array;
    std::vector<long long> expected;
    for (int i = 0; i < 500; ++i) {
      const long long value = static_cast<long long>(random() % (round < 25 ? 1000000u : 20u));
      array.Add(value, nullptr);
      expected.push_back(value);
    }
    array.Sort();
    std::sort(expected.begin(), expected.end());
    ASSERT_TRUE(std::equal(expected.begin(), expected.end(), array.Array()));
  }
}

TEST(ArraySort, SurvivesAContradictoryOrder) {
  class Random : public Things {
   public:
    int IsLower(Thing*&, Thing*&) override { return static_cast<int>(m_random() & 1u); }
    std::mt19937 m_random{3};
  };
  for (int round = 0; round < 100; ++round) {
    Random array;
    Fill(array, 40);
    array.m_random.seed(static_cast<unsigned>(round));
    array.Sort();
    Ints all = Numbers(array);
    std::sort(all.begin(), all.end());
    for (int i = 0; i < 40; ++i) ASSERT_EQ(all[static_cast<std::size_t>(i)], i);
  }
}

TEST(ArraySort, MedianOrdersThreeAndPutsTheMiddleNextToLast) {
  Things array;
  for (int n : {9, 4, 5, 6, 1}) array.Add(T(n), nullptr);
  EXPECT_EQ(&array.median3(array.Array(), 0, 4), array.Array() + 3);
  EXPECT_EQ(Numbers(array), (Ints{1, 4, 6, 5, 9}));
}

}  // namespace
