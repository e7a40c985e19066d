// The arrays when memory is short. This program has a nothrow operator new of its own that can be told to
// fail.
#include <gtest/gtest.h>

#include <array>
#include <new>

#include "core/VornSortedArray.h"

namespace {

int g_failAt = 0;  // the nth nothrow allocation from now fails; 0: none

bool FailsHere() { return g_failAt > 0 && --g_failAt == 0; }

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return FailsHere() ? nullptr : ::operator new(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return FailsHere() ? nullptr : ::operator new[](size);
}

namespace {

struct Thing {
  int value;
};

std::array<Thing, 32> g_things;
Thing* T(int i) { return &g_things[static_cast<std::size_t>(i)]; }

using Plain = TVornArray<Thing*>;
using Sorted = TVornSortedArray_byValue<Thing*, int>;

// Makes the nth nothrow allocation in the scope fail, and tells at its end whether one did.
class FailNth {
 public:
  explicit FailNth(int n) { g_failAt = n; }
  ~FailNth() {
    EXPECT_EQ(g_failAt, 0) << "fewer allocations than expected";
    g_failAt = 0;
  }
};

TEST(ArrayMemory, WithoutMemoryAHandleHasNoStorageAndStaysSo) {
  g_failAt = 1;
  Plain array;
  EXPECT_EQ(g_failAt, 0);
  EXPECT_EQ(array.m_pShared, nullptr);
  long index = -7;
  EXPECT_EQ(array.Add(T(0), &index), 0);
  EXPECT_EQ(array.Insert(T(0), 0), 0);
  EXPECT_EQ(array.GetSize(), 0);
  EXPECT_EQ(array.Resize(3), 0);
  EXPECT_EQ(array.Array(), nullptr);
}

TEST(ArrayMemory, AddKeepsWhatIsThere) {
  Plain array;
  for (int i = 0; i < 5; ++i) array.Add(T(i), nullptr);
  {
    FailNth fail(1);
    EXPECT_EQ(array.Add(T(5), nullptr), 0);
  }
  EXPECT_EQ(array.GetSize(), 5);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 5);
  EXPECT_EQ(array[4], T(4));
  EXPECT_EQ(array.Add(T(5), nullptr), 1);
}

TEST(ArrayMemory, AddStillTellsThePosition) {
  Plain array;
  long index = -7;
  FailNth fail(1);
  EXPECT_EQ(array.Add(T(0), &index), 0);
  EXPECT_EQ(index, 0);
}

TEST(ArrayMemory, AppendLeavesTheTargetAsItWas) {
  Plain source;
  for (int i = 0; i < 8; ++i) source.Add(T(i), nullptr);
  Plain target;
  target.Add(T(9), nullptr);
  {
    FailNth fail(1);
    target += source;
  }
  EXPECT_EQ(target.GetSize(), 1);
  {
    FailNth fail(1);
    EXPECT_EQ(target.Copy(source), 0);
  }
  EXPECT_EQ(target.GetSize(), 1);
  EXPECT_EQ(target[0], T(9));
}

TEST(ArrayMemory, CopyConstructionGivesAnEmptyArray) {
  Plain source;
  source.Add(T(0), nullptr);
  {
    FailNth fail(1);
    Plain copy(source);
    EXPECT_EQ(copy.m_pShared, nullptr);
  }
  FailNth fail(2);
  Plain copy(source);
  EXPECT_NE(copy.m_pShared, nullptr);
  EXPECT_EQ(copy.GetSize(), 0);
}

TEST(ArrayMemory, ResizeReportsAFailedReservation) {
  Plain array;
  array.Add(T(0), nullptr);
  FailNth fail(1);
  EXPECT_EQ(array.Resize(100), 0);
  EXPECT_EQ(array.GetSize(), 1);
}

TEST(ArrayMemory, MoreThanCanBeCountedIsRefused) {
  Plain array;
  array.Add(T(0), nullptr);
  EXPECT_EQ(array.m_pShared->Reserve(1LL << 31), 0);
  EXPECT_EQ(array.m_pShared->m_nCapacity, 5);
}

TEST(ArrayMemory, ProvideStorageReportsFailure) {
  Plain array{VornNoStorage()};
  FailNth fail(1);
  EXPECT_EQ(array.ProvideStorage(), 0);
}

TEST(ArrayMemory, SortWithoutMemoryForItsCopyChangesNothing) {
  // The copy needs storage and a block: either may be what is missing.
  for (int n : {1, 2}) {
    Sorted array;
    array.Add(T(2), nullptr);
    array.Insert(T(1), 1);
    ASSERT_EQ(array.m_bSorted, 0);
    {
      FailNth fail(n);
      EXPECT_EQ(array.Sort(), 0);
    }
    EXPECT_EQ(array.GetSize(), 2);
    EXPECT_EQ(array.m_bSorted, 0);
    {
      FailNth fail(n);
      EXPECT_FALSE(array.SortByValue());
    }
    EXPECT_EQ(array.GetSize(), 2);
  }
}

TEST(ArrayMemory, SortedAddReportsFailure) {
  Sorted array;
  long index = -7;
  FailNth fail(1);
  EXPECT_EQ(array.Add(T(0), &index), 0);
  EXPECT_EQ(array.GetSize(), 0);
}

}  // namespace
