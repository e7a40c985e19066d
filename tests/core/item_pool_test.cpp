// The memory of items: dead slots stay readable, and wait before they are used again.
// The pool's source is part of this program: the library keeps its own to itself.
#include "core/ItemPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

namespace {

using vorn::ItemPool;

constexpr unsigned int kMagic = 0x19790316;

void* NewItem() {
  void* const slot = ItemPool::Allocate(ItemPool::kSlotSize);
  if (slot) std::memcpy(static_cast<char*>(slot) + ItemPool::kMagicOffset, &kMagic, sizeof(kMagic));
  return slot;
}

std::uintptr_t AddressOf(const void* p) { return reinterpret_cast<std::uintptr_t>(p); }

class ItemPoolTest : public testing::Test {
 protected:
  void TearDown() override {
    for (void* item : m_items) ItemPool::Free(item);
    EXPECT_EQ(ItemPool::LiveCount(), 0u);
    ItemPool::ReleaseIfUnused();
  }

  void* New() { return m_items.emplace_back(NewItem()); }

  std::vector<void*> m_items;
};

TEST_F(ItemPoolTest, ALivingItemHasItsMagicWord) {
  void* const item = New();
  ASSERT_NE(item, nullptr);
  EXPECT_TRUE(ItemPool::Contains(item));
  EXPECT_EQ(ItemPool::ReadMagic(item), kMagic);
  EXPECT_EQ(ItemPool::LiveCount(), 1u);
}

TEST_F(ItemPoolTest, ADeadSlotStaysReadableAndHasNone) {
  void* const item = NewItem();
  ItemPool::Free(item);
  EXPECT_TRUE(ItemPool::Contains(item));
  EXPECT_EQ(ItemPool::ReadMagic(item), 0u);
  EXPECT_EQ(ItemPool::LiveCount(), 0u);
}

TEST_F(ItemPoolTest, WhatIsNoSlotIsNotRead) {
  char* const item = static_cast<char*>(New());
  int local = 0;
  EXPECT_EQ(ItemPool::ReadMagic(nullptr), 0u);
  EXPECT_EQ(ItemPool::ReadMagic(&local), 0u);
  EXPECT_EQ(ItemPool::ReadMagic(item + 1), 0u);
  EXPECT_EQ(ItemPool::ReadMagic(item + 8), 0u);
  EXPECT_EQ(ItemPool::ReadMagic(item + ItemPool::kSlotSize), 0u) << "never handed out";
  EXPECT_EQ(ItemPool::ReadMagic(reinterpret_cast<void*>(0xFFFFFFFFFFFF0001ULL)), 0u);
  EXPECT_EQ(ItemPool::ReadMagic(reinterpret_cast<void*>(8)), 0u);
}

TEST_F(ItemPoolTest, AFreshSlotHasNoMagicWord) {
  void* const slot = m_items.emplace_back(ItemPool::Allocate(ItemPool::kSlotSize));
  EXPECT_EQ(ItemPool::ReadMagic(slot), 0u);
}

TEST_F(ItemPoolTest, OtherSizesAreRefused) {
  EXPECT_EQ(ItemPool::Allocate(ItemPool::kSlotSize - 1), nullptr);
  EXPECT_EQ(ItemPool::Allocate(ItemPool::kSlotSize + 1), nullptr);
  EXPECT_EQ(ItemPool::Allocate(0), nullptr);
}

TEST_F(ItemPoolTest, FreeIgnoresNull) {
  ItemPool::Free(nullptr);
  EXPECT_EQ(ItemPool::LiveCount(), 0u);
}

TEST_F(ItemPoolTest, SlotsDoNotOverlap) {
  for (int i = 0; i < 3000; ++i) New();
  std::vector<void*> sorted = m_items;
  std::sort(sorted.begin(), sorted.end());
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    ASSERT_GE(AddressOf(sorted[i]) - AddressOf(sorted[i - 1]), ItemPool::kSlotSize);
  }
  for (void* item : m_items) ASSERT_EQ(AddressOf(item) % alignof(void*), 0u);
}

TEST_F(ItemPoolTest, ADeadSlotWaitsBehindAQuarantine) {
  void* const stale = NewItem();
  ItemPool::Free(stale);
  for (std::size_t i = 0; i < ItemPool::kQuarantine; ++i) {
    ASSERT_NE(New(), stale);
    EXPECT_EQ(ItemPool::ReadMagic(stale), 0u);
  }
}

TEST_F(ItemPoolTest, SlotsAreReusedInTheOrderOfTheirDeaths) {
  constexpr std::size_t kMore = 100;
  std::vector<void*> dead;
  for (std::size_t i = 0; i < ItemPool::kQuarantine + kMore; ++i) dead.push_back(NewItem());
  std::shuffle(dead.begin(), dead.end(), std::mt19937(5));
  for (void* item : dead) ItemPool::Free(item);
  for (std::size_t i = 0; i < kMore; ++i) ASSERT_EQ(New(), dead[i]) << i;
  EXPECT_EQ(std::count(dead.begin(), dead.end(), New()), 0) << "the quarantine is full again";
}

TEST_F(ItemPoolTest, SteadyTurnoverNeedsNoMoreMemory) {
  std::vector<void*> seen;
  for (std::size_t i = 0; i < 4 * ItemPool::kQuarantine; ++i) {
    void* const item = NewItem();
    seen.push_back(item);
    ItemPool::Free(item);
  }
  std::sort(seen.begin(), seen.end());
  const auto different = std::unique(seen.begin(), seen.end()) - seen.begin();
  EXPECT_EQ(static_cast<std::size_t>(different), ItemPool::kQuarantine + 1);
}

TEST_F(ItemPoolTest, NoSlotLooksLikeAPlace) {
  for (int i = 0; i < 100000; ++i) ASSERT_FALSE(vorn::LooksLikePlace(AddressOf(New())));
}

TEST(ItemPoolPlaces, BitsSixteenToThirtyOneTellAPlace) {
  EXPECT_TRUE(vorn::LooksLikePlace(0xFFFFFFFFFFFF0001));
  EXPECT_TRUE(vorn::LooksLikePlace(0x00007ABCFFFF1230));
  EXPECT_TRUE(vorn::LooksLikePlace(0xFFFFFFFF));
  EXPECT_FALSE(vorn::LooksLikePlace(0xFFFFFFFFFFFE0001));
  EXPECT_FALSE(vorn::LooksLikePlace(0x00007ABC7FFFFFF8));
  EXPECT_FALSE(vorn::LooksLikePlace(0));
}

TEST(ItemPoolPlaces, CarvingStepsOverThem) {
  constexpr std::size_t kSize = 192;
  const std::uintptr_t end = 0x100100000;
  EXPECT_EQ(vorn::NextUsableSlot(0xFFFE0000, end, kSize), 0xFFFE0000u);
  std::uintptr_t first = 0xFFFEFF80;  // the slot behind it lies in the window of places
  EXPECT_EQ(vorn::NextUsableSlot(first, end, kSize), first);
  const std::uintptr_t next = vorn::NextUsableSlot(first + kSize, end, kSize);
  EXPECT_GE(next, 0x100000000u);
  EXPECT_LT(next, 0x100000000u + kSize);
  EXPECT_EQ((next - first) % kSize, 0u);
  EXPECT_EQ(vorn::NextUsableSlot(0xFFFF0000, 0x100000000, kSize), 0u) << "nothing but places";
  EXPECT_EQ(vorn::NextUsableSlot(0x1000, 0x1000 + kSize - 1, kSize), 0u) << "too short";
  EXPECT_EQ(vorn::NextUsableSlot(0x1000, 0x1000 + kSize, kSize), 0x1000u);
  EXPECT_EQ(vorn::NextUsableSlot(0x2000, 0x1000, kSize), 0u);
}

TEST_F(ItemPoolTest, MemoryGoesBackOnlyWhenNothingLives) {
  void* const item = New();
  void* const dead = NewItem();
  ItemPool::Free(dead);
  ItemPool::ReleaseIfUnused();
  EXPECT_EQ(ItemPool::ReadMagic(item), kMagic);
  EXPECT_TRUE(ItemPool::Contains(dead));
  ItemPool::Free(item);
  m_items.clear();
  ItemPool::ReleaseIfUnused();
  EXPECT_FALSE(ItemPool::Contains(item));
  EXPECT_FALSE(ItemPool::Contains(dead));
  EXPECT_NE(New(), nullptr) << "and the pool begins anew";
}

TEST_F(ItemPoolTest, ThreadsShareThePool) {
  std::vector<std::thread> threads;
  for (unsigned seed = 0; seed < 4; ++seed) {
    threads.emplace_back([seed] {
      std::mt19937 random(seed);
      std::vector<void*> mine;
      for (int i = 0; i < 20000; ++i) {
        if (mine.empty() || random() % 2) {
          mine.push_back(NewItem());
        } else {
          std::swap(mine[random() % mine.size()], mine.back());
          EXPECT_EQ(ItemPool::ReadMagic(mine.back()), kMagic);
          ItemPool::Free(mine.back());
          mine.pop_back();
        }
      }
      for (void* item : mine) ItemPool::Free(item);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(ItemPool::LiveCount(), 0u);
}

#ifdef VORN_POISONS_ITEMS
using ItemPoolDeathTest = ItemPoolTest;

TEST_F(ItemPoolDeathTest, AnyOtherUseOfADeadItemIsCaught) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  volatile char* const item = static_cast<char*>(NewItem());
  ItemPool::Free(const_cast<char*>(item));
  EXPECT_DEATH(item[0] = 1, "use-after-poison");
  EXPECT_DEATH(item[ItemPool::kMagicOffset - 1] = 1, "use-after-poison");
  EXPECT_DEATH(item[ItemPool::kMagicOffset + 4] = 1, "use-after-poison");
  EXPECT_EQ(ItemPool::ReadMagic(const_cast<char*>(item)), 0u);
}
#endif

}  // namespace
