// The list of selected items without memory for what it gathers: the change is made at once, or not at all.
#include <selection/SelectedItems.h>

#include "each_failure.h"

namespace {

CVornTreeItem* Item(int i) { return reinterpret_cast<CVornTreeItem*>(static_cast<uintptr_t>(i + 1) * 256); }

constexpr int kMany = 6000;

void Fill(SelectedItems& list) {
  for (int i = 0; i < kMany; ++i) list.Add(Item(2 * i), nullptr);
}

TEST(SelectedItemsFault, AnItemIsTakenOrNothingChanged) {
  for (long n = 1;; ++n) {
    SelectedItems list;
    Fill(list);
    faults::Fail(faults::Kind::Allocation, n);
    const int taken = list.Add(Item(1), nullptr);
    const bool failed = faults::Seen(faults::Kind::Allocation) >= n;
    faults::Fail(faults::Kind::Allocation, 0);
    CVornTreeItem* item = Item(1);
    EXPECT_EQ(list.Find(item) != nullptr, taken != 0);
    EXPECT_EQ(list.GetSize(), kMany + taken);
    if (!failed) break;
  }
}

TEST(SelectedItemsFault, AnItemIsAlwaysLost) {
  for (long n = 1;; ++n) {
    SelectedItems list;
    Fill(list);
    faults::Fail(faults::Kind::Allocation, n);
    list.Drop(Item(2));
    const bool failed = faults::Seen(faults::Kind::Allocation) >= n;
    faults::Fail(faults::Kind::Allocation, 0);
    CVornTreeItem* item = Item(2);
    EXPECT_EQ(list.Find(item), nullptr);
    EXPECT_EQ(list.GetSize(), kMany - 1);
    if (!failed) break;
  }
}

}  // namespace
