// Ranges and removals in long selections: what hooks and holders of the list see meanwhile.
#include <algorithm>
#include <random>

#include "test_tree.h"

namespace {

using support::TestTree;

constexpr int kMany = 20000;  // long enough for changes of the list to be gathered

// Many items in one level, in another order than that in which they were made.
class LongRange : public testing::Test {
 protected:
  LongRange() {
    tree.recording = false;
    tree.EnableMultipleSelection(1);
    tree.SetRedraw(FALSE);
    for (int i = 0; i < kMany; ++i) {
      const unsigned mixed = static_cast<unsigned>(i) * 2654435761u;
      items.push_back(tree.InsertItem(std::to_wstring(mixed).c_str(), -1, -1));
    }
    tree.SortChildrenByName(tree.GetRootItem());
    tree.SetRedraw(TRUE);
  }

  CVornTreeItem* First() { return tree.GetFirstVisibleItem(); }
  CVornTreeItem* Last() { return tree.GetLastVisibleItem(tree.GetRootItem()); }

  void SelectAll() { tree.GetSelectionManager()->SelectRange(First(), Last()); }

  // The list that a host gets, by value.
  std::vector<CVornTreeItem*> Listed() {
    CVornTreeItemArray list;
    tree.GetCurrentSelection(list);
    return {list.Array(), list.Array() + list.GetSize()};
  }

  // What the list must be: the items that carry the mark, by address.
  std::vector<CVornTreeItem*> Marked() {
    std::vector<CVornTreeItem*> marked;
    for (CVornTreeItem* item = First(); item != nullptr; item = tree.GetNextVisibleItem(item)) {
      if (tree.IsItemSelected(item)) marked.push_back(item);
    }
    std::sort(marked.begin(), marked.end(), std::less<>());
    return marked;
  }

  TestTree tree;
  std::vector<CVornTreeItem*> items;
};

TEST_F(LongRange, TakesEveryRowOnceInTheOrderOfAddresses) {
  SelectAll();
  EXPECT_EQ(Listed().size(), static_cast<size_t>(kMany));
  EXPECT_EQ(Listed(), Marked());
  SelectAll();
  EXPECT_EQ(Listed(), Marked()) << "nothing twice";
}

TEST_F(LongRange, FromTheEndToTheBeginningIsTheSame) {
  tree.GetSelectionManager()->SelectRange(Last(), First());
  EXPECT_EQ(Listed().size(), static_cast<size_t>(kMany));
  EXPECT_EQ(Listed(), Marked());
}

TEST_F(LongRange, AHookThatAsksSeesAllThatWasTakenSoFar) {
  int told = 0, wrong = 0;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook != "OnSelChanged" || ++told % 1999 != 0) return 1;
    const std::vector<CVornTreeItem*> listed = Listed();
    if (static_cast<int>(listed.size()) != told || listed != Marked()) ++wrong;
    return 1;
  };
  SelectAll();
  EXPECT_EQ(told, kMany);
  EXPECT_EQ(wrong, 0);
}

TEST_F(LongRange, AHolderOfTheListSeesEachRowAtOnce) {
  tree.SelectItem(items[0], 0);
  CVornTreeItemArray held;
  tree.GetCurrentSelection(held);
  int wrong = 0;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem* item) {
    if (hook == "OnSelChanged") {
      const std::vector<CVornTreeItem*> list(held.Array(), held.Array() + held.GetSize());
      if (!std::binary_search(list.begin(), list.end(), item, std::less<>())) ++wrong;
    }
    return 1;
  };
  CVornTreeItem* last = First();
  for (int i = 0; i < 5000; ++i) last = tree.GetNextVisibleItem(last);
  tree.GetSelectionManager()->SelectRange(First(), last);
  EXPECT_EQ(wrong, 0);
}

TEST_F(LongRange, RowsThatAHookTakesOutAgainStayOut) {
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem* item) {
    if (hook == "OnSelChanged" && item != nullptr && tree.IsItemSelected(item) &&
        reinterpret_cast<uintptr_t>(item) / 64 % 7 == 0) {
      tree.UnselectItem(item);
    }
    return 1;
  };
  SelectAll();
  EXPECT_LT(Listed().size(), static_cast<size_t>(kMany));
  EXPECT_EQ(Listed(), Marked());
}

TEST_F(LongRange, DeletedItemsLeaveTheList) {
  SelectAll();
  std::shuffle(items.begin(), items.end(), std::mt19937(11));
  for (int i = 0; i < kMany / 2; ++i) ASSERT_EQ(tree.DeleteItem(items[static_cast<size_t>(i)]), 1);
  EXPECT_EQ(Listed().size(), static_cast<size_t>(kMany - kMany / 2));
  EXPECT_EQ(Listed(), Marked());
}

TEST_F(LongRange, UnselectedItemsCanBeSelectedAgain) {
  SelectAll();
  std::shuffle(items.begin(), items.end(), std::mt19937(12));
  std::mt19937 random(13);
  tree.SetRedraw(FALSE);
  for (CVornTreeItem* item : items) {
    tree.UnselectItem(item);
    if (random() % 3 == 0) tree.SelectItem(item, 1);
  }
  tree.SetRedraw(TRUE);
  EXPECT_EQ(Listed(), Marked());
}

TEST_F(LongRange, DeletingAllEmptiesTheList) {
  SelectAll();
  EXPECT_EQ(tree.DeleteAllItems(STI_ROOT), 1);
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetCurrentSelection(list), 0);
  EXPECT_EQ(list.GetSize(), 0);
}

TEST_F(LongRange, ClearingTakesTheMarksAwayToo) {
  SelectAll();
  tree.ClearSelection(nullptr);
  EXPECT_TRUE(Listed().empty());
  EXPECT_TRUE(Marked().empty());
}

TEST_F(LongRange, WithCtrlTheSavedRangeComesBack) {
  tree.GetSelectionManager()->SetForceShift(1);
  tree.SelectItem(First(), 1);
  CVornTreeItem* const quarter = items[static_cast<size_t>(kMany / 4)];
  tree.GetSelectionManager()->OnLButtonDown(quarter);
  const std::vector<CVornTreeItem*> before = Listed();
  tree.GetSelectionManager()->SetForceCtrl(1);
  tree.GetSelectionManager()->OnLButtonDown(Last());
  const std::vector<CVornTreeItem*> after = Listed();
  EXPECT_TRUE(std::includes(after.begin(), after.end(), before.begin(), before.end(), std::less<>()));
  EXPECT_EQ(after, Marked());
}

}  // namespace
