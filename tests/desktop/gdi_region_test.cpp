// Regions against a picture of bits.
#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

namespace {

constexpr int kSide = 24;
using Bits = std::array<std::array<bool, kSide>, kSide>;

RECT RandomRect(std::mt19937& random) {
  const auto number = [&](unsigned limit) { return static_cast<LONG>(random() % limit); };
  const LONG left = number(kSide - 1);
  const LONG top = number(kSide - 1);
  return {left, top, left + 1 + number(static_cast<unsigned>(kSide - left)),
          top + 1 + number(static_cast<unsigned>(kSide - top))};
}

void Apply(Bits& bits, const RECT& r, int mode) {
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const bool inside = x >= r.left && x < r.right && y >= r.top && y < r.bottom;
      bool& bit = bits[static_cast<size_t>(y)][static_cast<size_t>(x)];
      switch (mode) {
        case RGN_AND: bit = bit && inside; break;
        case RGN_OR: bit = bit || inside; break;
        case RGN_XOR: bit = bit != inside; break;
        default: bit = bit && !inside; break;
      }
    }
  }
}

int CountDifferences(HRGN region, const Bits& bits) {
  int count = 0;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x)
      count += (PtInRegion(region, x, y) != FALSE) != bits[static_cast<size_t>(y)][static_cast<size_t>(x)];
  }
  return count;
}

std::vector<RECT> RectsOf(HRGN region) {
  const DWORD size = GetRegionData(region, 0, nullptr);
  std::vector<char> bytes(size);
  auto* data = reinterpret_cast<RGNDATA*>(bytes.data());
  GetRegionData(region, size, data);
  const auto* rects = reinterpret_cast<const RECT*>(data->Buffer);
  return {rects, rects + data->rdh.nCount};
}

// Sorted by band; bands do not overlap and no two neighbours in a band touch.
bool IsBanded(const std::vector<RECT>& rects) {
  for (size_t i = 1; i < rects.size(); ++i) {
    const RECT& a = rects[i - 1];
    const RECT& b = rects[i];
    const bool sameBand = a.top == b.top;
    if (sameBand && (a.bottom != b.bottom || a.right >= b.left)) return false;
    if (!sameBand && b.top < a.bottom) return false;
  }
  return true;
}

}  // namespace

TEST(GdiRegion, CombinationsAgreeWithBits) {
  std::mt19937 random(20);
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  const HRGN other = CreateRectRgn(0, 0, 0, 0);
  for (int round = 0; round < 40; ++round) {
    SetRectRgn(region, 0, 0, 0, 0);
    Bits bits{};
    for (int step = 0; step < 12; ++step) {
      const RECT r = RandomRect(random);
      const int mode = step < 2 ? RGN_OR : RGN_AND + static_cast<int>(random() % 4);
      SetRectRgn(other, r.left, r.top, r.right, r.bottom);
      CombineRgn(region, region, other, mode);
      Apply(bits, r, mode);
    }
    ASSERT_EQ(0, CountDifferences(region, bits)) << "round " << round;
    EXPECT_TRUE(IsBanded(RectsOf(region))) << "round " << round;
  }
  DeleteObject(other);
  DeleteObject(region);
}

TEST(GdiRegion, EqualSetsAreEqualHoweverTheyWereMade) {
  const HRGN halves = CreateRectRgn(0, 0, 10, 5);
  const HRGN lower = CreateRectRgn(0, 5, 10, 10);
  const HRGN whole = CreateRectRgn(0, 0, 10, 10);
  EXPECT_EQ(SIMPLEREGION, CombineRgn(halves, halves, lower, RGN_OR));
  EXPECT_TRUE(EqualRgn(halves, whole));
  EXPECT_EQ(NULLREGION, CombineRgn(halves, halves, whole, RGN_DIFF));
  EXPECT_FALSE(EqualRgn(halves, whole));
  for (HRGN region : {halves, lower, whole}) DeleteObject(region);
}

TEST(GdiRegion, DataMakesTheSameRegionAgain) {
  const HRGN region = CreateRectRgn(0, 0, 20, 20);
  const HRGN hole = CreateRectRgn(5, 6, 9, 11);
  EXPECT_EQ(COMPLEXREGION, CombineRgn(region, region, hole, RGN_DIFF));
  const DWORD size = GetRegionData(region, 0, nullptr);
  std::vector<char> bytes(size);
  auto* data = reinterpret_cast<RGNDATA*>(bytes.data());
  EXPECT_EQ(size, GetRegionData(region, size, data));
  EXPECT_EQ(4u, data->rdh.nCount);
  const HRGN copy = ExtCreateRegion(nullptr, size, data);
  EXPECT_TRUE(EqualRgn(region, copy));
  for (HRGN handle : {region, hole, copy}) DeleteObject(handle);
}

TEST(GdiRegion, OffsetsMoveEverything) {
  const HRGN region = CreateRectRgn(10, 9, 2, 1);
  RECT box{};
  EXPECT_EQ(SIMPLEREGION, OffsetRgn(region, -3, 5));
  EXPECT_EQ(SIMPLEREGION, GetRgnBox(region, &box));
  EXPECT_EQ(-1, box.left);
  EXPECT_EQ(6, box.top);
  EXPECT_EQ(7, box.right);
  EXPECT_EQ(14, box.bottom);
  DeleteObject(region);
}

TEST(GdiRegion, DeadHandlesFail) {
  const HRGN region = CreateRectRgn(0, 0, 5, 5);
  const HRGN dead = CreateRectRgn(0, 0, 5, 5);
  DeleteObject(dead);
  RECT box{};
  EXPECT_EQ(ERROR, GetRgnBox(dead, &box));
  EXPECT_EQ(ERROR, CombineRgn(region, region, dead, RGN_OR));
  EXPECT_EQ(ERROR, OffsetRgn(dead, 1, 1));
  EXPECT_FALSE(PtInRegion(dead, 1, 1));
  EXPECT_FALSE(SetRectRgn(dead, 0, 0, 1, 1));
  EXPECT_FALSE(DeleteObject(dead));
  DeleteObject(region);
}
