// Sorting of children: by data, where equal ones fall out, and by label, where they stay.
#include <algorithm>
#include <cwctype>
#include <random>
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::Narrow;
using support::TestTree;

int ByData(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : a > b; }

std::string Children(TestTree& tree, CVornTreeItem* parent) {
  std::string labels;
  for (CVornTreeItem* item = tree.GetChildItem(parent); item != nullptr; item = tree.GetNextItem(item)) {
    labels += (labels.empty() ? "" : " ") + Narrow(tree.GetItemText(item));
  }
  return labels;
}

TEST(SortChildren, OrdersByTheComparisonOfData) {
  TestTree tree;
  for (int value : {5, 1, 4, 2, 3}) {
    tree.InsertItem(std::to_wstring(value).c_str(), -1, -1, STI_ROOT, STI_LAST, static_cast<unsigned>(value));
  }
  STSORTCB sort{tree.GetRootItem(), ByData, 0};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_EQ(Children(tree, STI_ROOT), "1 2 3 4 5");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(SortChildren, PassesElementChildAndParameter) {
  TestTree tree;
  tree.InsertItem(L"a", -1, -1, STI_ROOT, STI_LAST, 1);
  tree.InsertItem(L"b", -1, -1, STI_ROOT, STI_LAST, 2);
  static std::vector<LPARAM> seen;
  seen.clear();
  STSORTCB sort{tree.GetRootItem(),
                [](LPARAM a, LPARAM b, LPARAM param) {
                  seen.insert(seen.end(), {a, b, param});
                  return -1;
                },
                77};
  tree.SortChildren(&sort);
  ASSERT_GE(seen.size(), 3u);
  EXPECT_EQ(seen[0], 1);
  EXPECT_EQ(seen[1], 2);
  EXPECT_EQ(seen[2], 77);
}

TEST(SortChildren, OfEqualChildrenKeepsOnlyTheFirst) {
  TestTree tree;
  tree.Build("root [a b c]");
  CVornTreeItem* const b = tree["b"];
  STSORTCB sort{tree.GetRootItem(), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_EQ(tree.Text(), "root [a]");
  EXPECT_EQ(tree.GetCount(), 1u);
  EXPECT_EQ(tree.GetParentItem(b), nullptr) << "unlinked, not deleted";
  EXPECT_STREQ(tree.GetItemText(b), L"b");
}

TEST(SortChildren, RefusesWhatCannotBeSorted) {
  TestTree tree;
  tree.Build("root [b a]");
  STSORTCB sort{tree.GetRootItem(), nullptr, 0};
  EXPECT_EQ(tree.SortChildren(&sort), 0);
  sort.lpfnCompare = ByData;
  sort.hParent = nullptr;
  EXPECT_EQ(tree.SortChildren(&sort), 0);
  sort.hParent = tree["a"];
  EXPECT_EQ(tree.SortChildren(&sort), 0) << "no children";
  sort.hParent = STI_ROOT;
  EXPECT_EQ(tree.SortChildren(&sort), 0) << "the sentinel is not understood";
  EXPECT_EQ(tree.SortChildren(nullptr), 0);
  EXPECT_EQ(tree.Text(), "root [b a]");
}

// What is lost to the tree is not lost to the process.
TEST(SortChildren, WhatFellOutLivesAsLongAsTheControl) {
  CVornTreeItem* fallen = nullptr;
  CVornTreeItem* below = nullptr;
  {
    TestTree tree;
    tree.Build("root [a b [b1] c d]");
    fallen = tree["b"];
    below = tree["b1"];
    CVornTreeItem* const deleted = tree["c"];
    CVornTreeItem* const taken = tree["d"];
    CFont font;
    font.CreatePointFont(120, L"Tahoma");
    tree.SetItemFont(fallen, &font);
    STSORTCB sort{tree.GetRootItem(), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
    tree.SortChildren(&sort);
    tree.DeleteItem(deleted);
    tree.MoveItem(tree["a"], taken, STI_LAST);
    EXPECT_EQ(fallen->m_nMagic, CVornTreeItem::kMagic);
    EXPECT_EQ(below->m_nMagic, CVornTreeItem::kMagic);
    tree.log.Clear();
  }
  EXPECT_NE(fallen->m_nMagic, CVornTreeItem::kMagic);
  EXPECT_NE(below->m_nMagic, CVornTreeItem::kMagic);
}

TEST(SortChildrenByName, KeepsEqualLabelsTheLaterInFront) {
  TestTree tree;
  tree.Build("root [b A a]");
  EXPECT_TRUE(tree.SortChildrenByName(tree.GetRootItem()));
  EXPECT_EQ(tree.Text(), "root [a A b]");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(SortChildrenByName, OfOneChildChangesNothing) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_TRUE(tree.SortChildrenByName(tree.GetRootItem()));
  EXPECT_EQ(tree.Text(), "root [a]");
  EXPECT_FALSE(tree.SortChildrenByName(tree["a"]));
  EXPECT_FALSE(tree.SortChildrenByName(nullptr));
}

TEST(SortChildrenByName, LeavesSubtreesAndSelectionAlone) {
  TestTree tree;
  tree.Build("root [b+ [z y*] a]");
  EXPECT_TRUE(tree.SortChildrenByName(tree.GetRootItem()));
  EXPECT_EQ(tree.Text(), "root [a b+ [z y*@]]");
  EXPECT_EQ(tree.GetSelectedItem(), tree["y"]);
  EXPECT_EQ(tree.Rows(), "a b z y");
}

// The order by the rule itself: one item after the other into a row, each by binary search.
std::vector<CVornTreeItem*> OneByOne(TestTree& tree, const std::vector<CVornTreeItem*>& items) {
  const auto compare = [&](CVornTreeItem* a, CVornTreeItem* b) {
    const wchar_t *x = tree.GetItemText(a), *y = tree.GetItemText(b);
    for (; *x != 0 && std::towlower(*x) == std::towlower(*y); ++x, ++y) {
    }
    return static_cast<long>(std::towlower(*x)) - static_cast<long>(std::towlower(*y));
  };
  std::vector<CVornTreeItem*> row;
  for (CVornTreeItem* item : items) {
    long low = 0, high = static_cast<long>(row.size()), place = 0;
    bool found = false;
    while (high - low >= 1) {
      const long middle = (low + high) / 2;
      const long order = compare(row[static_cast<size_t>(middle)], item);
      if (order < 0) {
        low = low == middle ? high : middle;
      } else if (order == 0) {
        place = middle;
        found = true;
        break;
      } else {
        high = high == middle ? low : middle;
      }
    }
    if (!found) place = high;
    row.insert(row.begin() + place, item);
  }
  return row;
}

TEST(SortChildrenByName, GivesTheOrderOfOneByOneInsertion) {
  std::mt19937 random(7);
  for (int round = 0; round < 40; ++round) {
    TestTree tree;
    std::vector<CVornTreeItem*> items;
    const unsigned labels = 1 + static_cast<unsigned>(random() % 12);
    for (int i = 0; i < 120; ++i) {
      const std::string label(1, static_cast<char>((random() % 2 ? 'a' : 'A') + random() % labels));
      items.push_back(tree.Add(label));
    }
    const std::vector<CVornTreeItem*> expected = OneByOne(tree, items);
    ASSERT_TRUE(tree.SortChildrenByName(tree.GetRootItem()));
    CVornTreeItem* item = tree.GetChildItem(STI_ROOT);
    for (CVornTreeItem* wanted : expected) {
      ASSERT_EQ(item, wanted) << "round " << round;
      item = tree.GetNextItem(item);
    }
    ASSERT_EQ(CheckTree(tree), "");
  }
}

TEST(SortChildren, GivesTheOrderOfOneByOneInsertion) {
  std::mt19937 random(11);
  TestTree tree;
  std::vector<unsigned> values;
  for (int i = 0; i < 6000; ++i) {
    values.push_back(static_cast<unsigned>(random() % 100000));
    tree.InsertItem(L"", -1, -1, STI_ROOT, STI_LAST, values.back());
  }
  STSORTCB sort{tree.GetRootItem(), ByData, 0};
  ASSERT_EQ(tree.SortChildren(&sort), 1);
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  CVornTreeItem* item = tree.GetChildItem(STI_ROOT);
  for (unsigned value : values) {
    ASSERT_NE(item, nullptr);
    ASSERT_EQ(tree.GetItemData(item), value);
    item = tree.GetNextItem(item);
  }
  EXPECT_EQ(item, nullptr);
}

}  // namespace
