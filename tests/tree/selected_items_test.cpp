// The list of selected items by itself: changes in the midst of a long one are gathered, and nobody sees
// that.
#include "selection/SelectedItems.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

constexpr int kMany = 6000;  // long enough for changes to be gathered

// The list never looks into an item.
CVornTreeItem* Item(int i) { return reinterpret_cast<CVornTreeItem*>(static_cast<uintptr_t>(i + 1) * 256); }

class SelectedItemsList : public testing::Test {
 protected:
  void SetUp() override {
    for (int i = 0; i < kMany; ++i) Add(2 * i);
  }
  void Add(int i) {
    EXPECT_EQ(list.Add(Item(i), nullptr), 1);
    expected.insert(i);
  }
  void Drop(int i) {
    list.Drop(Item(i));
    expected.erase(i);
  }
  void ExpectAll() {
    std::vector<CVornTreeItem*> all;
    for (int i : expected) all.push_back(Item(i));
    const CVornTreeItemUserArray& settled = list.Settled();
    EXPECT_EQ(std::vector<CVornTreeItem*>(settled.Array(), settled.Array() + settled.GetSize()), all);
  }

  SelectedItems list;
  std::set<int> expected;
};

TEST_F(SelectedItemsList, TakesItemsInTheMidstOnceEach) {
  for (int i : {1, 101, 51, 101, 2, 1}) Add(i);
  ExpectAll();
}

TEST_F(SelectedItemsList, TakesItemsAtTheEndAtOnce) {
  Add(2 * kMany + 1);
  Add(2 * kMany - 3);
  ExpectAll();
}

TEST_F(SelectedItemsList, TellsThePlaceOfAnItem) {
  Add(1);
  long index = -1;
  EXPECT_EQ(list.Add(Item(3), &index), 1);
  expected.insert(3);
  EXPECT_EQ(index, 3);
  EXPECT_EQ(list.Add(Item(3), &index), 1);
  EXPECT_EQ(index, 3) << "it is in already";
  ExpectAll();
}

TEST_F(SelectedItemsList, LosesItemsInTheMidstAndAtTheEnd) {
  for (int i : {0, 100, 50, 2 * kMany - 2}) Drop(i);
  Drop(100);
  Drop(51);
  ExpectAll();
}

TEST_F(SelectedItemsList, LosesWhatItHasJustTakenAndTakesItAgain) {
  Add(1);
  Drop(1);
  Drop(0);
  Add(0);
  Drop(2);
  Add(3);
  ExpectAll();
}

TEST_F(SelectedItemsList, AnswersForWhatIsGathered) {
  Add(1);
  CVornTreeItem* item = Item(1);
  EXPECT_NE(list.Find(item), nullptr);
  Drop(4);
  item = Item(4);
  EXPECT_EQ(list.Find(item), nullptr);
  EXPECT_EQ(list.GetSize(), static_cast<long>(expected.size()));
  EXPECT_EQ(list[0], Item(0));
  EXPECT_EQ(list.GetAt(1), Item(1));
  EXPECT_EQ(list.ElementAt(2), Item(2));
  list.Remove(0, 2);
  EXPECT_EQ(list.Array()[0], Item(2));
}

TEST_F(SelectedItemsList, IsEmptyOfWhatIsGatheredAsWell) {
  Add(1);
  list.RemoveAll();
  EXPECT_EQ(list.GetSize(), 0);
}

TEST_F(SelectedItemsList, ChangesAtOnceWhileSomebodySharesIt) {
  CVornTreeItemArray shared;
  static_cast<TVornArray<CVornTreeItem*>&>(shared) = list.Settled();
  Add(1);
  Drop(0);
  EXPECT_EQ(shared[0], Item(1));
  EXPECT_EQ(shared.GetSize(), static_cast<long>(expected.size()));
  ExpectAll();
}

}  // namespace
