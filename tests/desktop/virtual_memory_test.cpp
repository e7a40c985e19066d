// Addresses that are reserved first and given memory later.
#include <windows.h>

#include <memoryapi.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace {

constexpr SIZE_T kGranularity = 64 * 1024;
constexpr SIZE_T kPage = 4096;
constexpr SIZE_T kLarge = 256 * 1024 * 1024;

char* ReserveLarge() {
  return static_cast<char*>(VirtualAlloc(nullptr, kLarge, MEM_RESERVE, PAGE_READWRITE));
}

TEST(VirtualMemory, AReservationBeginsAtAMultipleOfTheGranularity) {
  char* const memory = ReserveLarge();
  ASSERT_NE(nullptr, memory);
  EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(memory) % kGranularity);
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
}

TEST(VirtualMemory, ReservedPagesCannotBeReadAndCommittedOnesAreZero) {
  char* const memory = ReserveLarge();
  ASSERT_NE(nullptr, memory);
  EXPECT_TRUE(IsBadReadPtr(memory, 1));
  EXPECT_EQ(memory, VirtualAlloc(memory, kGranularity, MEM_COMMIT, PAGE_READWRITE));
  EXPECT_FALSE(IsBadWritePtr(memory, kGranularity));
  EXPECT_TRUE(IsBadReadPtr(memory + kGranularity, 1));
  EXPECT_EQ(0, memory[0]);
  EXPECT_EQ(0, memory[kGranularity - 1]);
  memory[1] = 7;
  EXPECT_EQ(memory, VirtualAlloc(memory, 2 * kGranularity, MEM_COMMIT, PAGE_READWRITE));
  EXPECT_EQ(7, memory[1]) << "what was committed keeps its content";
  memory[2 * kGranularity - 1] = 8;
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
  EXPECT_TRUE(IsBadReadPtr(memory, 1));
}

TEST(VirtualMemory, CommittingTakesWholePages) {
  char* const memory = ReserveLarge();
  ASSERT_NE(nullptr, memory);
  EXPECT_EQ(memory + kPage, VirtualAlloc(memory + kPage + 10, 1, MEM_COMMIT, PAGE_READWRITE));
  EXPECT_TRUE(IsBadReadPtr(memory, 1));
  EXPECT_FALSE(IsBadReadPtr(memory + kPage, kPage));
  EXPECT_TRUE(IsBadReadPtr(memory + 2 * kPage, 1));
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
}

TEST(VirtualMemory, WithoutAnAddressCommittingReservesToo) {
  char* const memory = static_cast<char*>(VirtualAlloc(nullptr, 10, MEM_COMMIT, PAGE_READWRITE));
  ASSERT_NE(nullptr, memory);
  memory[kPage - 1] = 1;
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
}

TEST(VirtualMemory, ATakenAddressCannotBeReserved) {
  char* const memory = ReserveLarge();
  ASSERT_NE(nullptr, memory);
  EXPECT_EQ(nullptr, VirtualAlloc(memory, kGranularity, MEM_RESERVE, PAGE_READWRITE));
  EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_ADDRESS), GetLastError());
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
  EXPECT_EQ(memory, VirtualAlloc(memory, kGranularity, MEM_RESERVE, PAGE_READWRITE));
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
}

TEST(VirtualMemory, WhatIsNotReservedCannotBeCommitted) {
  char* const memory = ReserveLarge();
  ASSERT_NE(nullptr, memory);
  EXPECT_EQ(nullptr, VirtualAlloc(memory + kLarge - kPage, 2 * kPage, MEM_COMMIT, PAGE_READWRITE));
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
  EXPECT_EQ(nullptr, VirtualAlloc(memory, kPage, MEM_COMMIT, PAGE_READWRITE));
}

TEST(VirtualMemory, BadCallsFail) {
  EXPECT_EQ(nullptr, VirtualAlloc(nullptr, 0, MEM_RESERVE, PAGE_READWRITE));
  EXPECT_EQ(nullptr, VirtualAlloc(nullptr, kPage, 0, PAGE_READWRITE));
  char* const memory = ReserveLarge();
  ASSERT_NE(nullptr, memory);
  EXPECT_FALSE(VirtualFree(memory, kLarge, MEM_RELEASE)) << "a release names no size";
  EXPECT_TRUE(VirtualFree(memory, 0, MEM_RELEASE));
  EXPECT_FALSE(VirtualFree(memory, 0, MEM_RELEASE)) << "once only";
  EXPECT_FALSE(VirtualFree(nullptr, 0, MEM_RELEASE));
}

}  // namespace
