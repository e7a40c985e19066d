// Trees as deep, and as wide, as memory allows: no operation may need a stack that grows with them.
#include <string>
#include <vector>

#include "support/small_stack.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::kManyItems;
using support::RunOnSmallStack;
using support::TestTree;

int ByData(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : a > b; }

// A document with a chain of items below it, each the only child of the one before.
struct Chain {
  CVornTreeItem* top = nullptr;
  CVornTreeItem* bottom = nullptr;
};

// Insertion costs the depth of the place, so a chain is put together from halves.
Chain MakeChain(TestTree& tree, int count) {
  if (count == 1) {
    CVornTreeItem* const item = tree.InsertItem(L"", -1, -1);
    return {item, item};
  }
  const Chain upper = MakeChain(tree, count / 2);
  const Chain lower = MakeChain(tree, count - count / 2);
  EXPECT_EQ(tree.MoveItem(upper.bottom, lower.top, STI_LAST), 1);
  return {upper.top, lower.bottom};
}

// Every step-th item from the top, down the chain.
std::vector<CVornTreeItem*> Samples(TestTree& tree, const Chain& chain, int step) {
  std::vector<CVornTreeItem*> samples;
  int n = 0;
  for (CVornTreeItem* item = chain.top; item != nullptr; item = tree.GetChildItem(item)) {
    if (n++ % step == 0) samples.push_back(item);
  }
  return samples;
}

class DeepTree : public testing::Test {
 protected:
  DeepTree() { tree.recording = false; }
  TestTree tree;
};

TEST_F(DeepTree, AChainIsOpenedWalkedFoldedAndDeleted) {
  RunOnSmallStack([this] {
    const Chain chain = MakeChain(tree, kManyItems);
    ASSERT_EQ(tree.GetCount(), static_cast<unsigned>(kManyItems));
    ASSERT_EQ(chain.bottom->m_nLevel, kManyItems);
    EXPECT_EQ(tree.Expand(STI_ROOT, STE_EXPANDALL), 1);
    EXPECT_EQ(tree.GetVisibleCount(), kManyItems);
    int down = 0, up = 0;
    for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr; row = tree.GetNextVisibleItem(row))
      ++down;
    for (CVornTreeItem* row = tree.GetLastVisibleItem(chain.top); row != nullptr;
         row = tree.GetPrevVisibleItem(row)) {
      ++up;
    }
    EXPECT_EQ(down, kManyItems);
    EXPECT_EQ(up, kManyItems);
    CVornTreeItemArray line;
    EXPECT_EQ(tree.GetParentList(chain.bottom, line), 1);
    EXPECT_EQ(line.GetSize(), kManyItems);
    EXPECT_EQ(tree.IsParentItemOf(chain.top, chain.bottom), 1);
    int width = 0, height = 0;
    EXPECT_EQ(tree.GetSize(width, height), 1);
    EXPECT_EQ(tree.Expand(chain.top, STE_COLLAPSE), 1);
    EXPECT_EQ(tree.GetVisibleCount(), 1);
    EXPECT_EQ(tree.Expand(chain.top, STE_EXPAND), 1);
    EXPECT_EQ(tree.Expand(chain.top, STE_COLLAPSEALL), 1);
    EXPECT_EQ(tree.GetVisibleCount(), 1);
    EXPECT_EQ(tree.DeleteItem(chain.top), 1);
    EXPECT_EQ(tree.GetCount(), 0u);
  });
}

TEST_F(DeepTree, AChainIsMovedSortedSearchedAndEmptied) {
  RunOnSmallStack([this] {
    const Chain chain = MakeChain(tree, kManyItems);
    CVornTreeItem* const beside = tree.Add("beside");
    EXPECT_EQ(tree.MoveItem(beside, chain.top, STI_LAST), 1);
    EXPECT_EQ(chain.bottom->m_nLevel, kManyItems + 1);
    EXPECT_EQ(tree.MoveItem(STI_ROOT, chain.top, STI_FIRST), 1);
    EXPECT_EQ(chain.bottom->m_nLevel, kManyItems);
    EXPECT_TRUE(tree.SortChildrenByName(tree.GetRootItem()));
    EXPECT_TRUE(tree.SortChildrenByName(tree.GetParentItem(chain.bottom)));
    tree.SetItemData(beside, 1);
    STSORTCB sort{tree.GetRootItem(), ByData, 0};
    EXPECT_EQ(tree.SortChildren(&sort), 1);
    EXPECT_EQ(tree.GetChildItem(STI_ROOT), chain.top);
    CVornTreeItemArray hidden;
    tree.SetItemVisibility(chain.bottom, 0);
    EXPECT_EQ(tree.GetHiddenItems(hidden), 0);
    EXPECT_EQ(hidden.GetSize(), 1);
    EXPECT_EQ(tree.DeleteAllItems(chain.top), 1);
    EXPECT_EQ(tree.GetCount(), 2u);
  });
}

TEST_F(DeepTree, AChainWithHiddenSelectedAndShortcutsInIt) {
  RunOnSmallStack([this] {
    tree.EnableMultipleSelection(1);
    const Chain chain = MakeChain(tree, kManyItems);
    const std::vector<CVornTreeItem*> samples = Samples(tree, chain, kManyItems / 20);
    EXPECT_EQ(tree.Expand(STI_ROOT, STE_EXPANDALL), 1);
    for (size_t i = 0; i < samples.size(); ++i) {
      EXPECT_EQ(tree.SelectItem(samples[i], 1), 1);
      EXPECT_NE(tree.CreateShortcut(samples[i], STI_ROOT, STI_LAST), nullptr);
      EXPECT_NE(tree.CreateShortcut(samples[i], samples[samples.size() - 1 - i], STI_LAST), nullptr);
      tree.LockItemVisibility(samples[i], 1);
      if (i > 10) tree.SetItemVisibility(samples[i], 0);
    }
    for (CVornTreeItem* sample : samples) tree.UnlockItemVisibility(sample);
    CVornTreeItemArray items;
    EXPECT_EQ(tree.GetSelectionManager()->GetDraggableItems(STI_ROOT, items), 1);
    tree.GetSelectionManager()->SelectRange(chain.top, samples[1]);
    tree.ClearSelection(nullptr);
    EXPECT_EQ(tree.GetCurrentSelection(items), 0);
    EXPECT_EQ(tree.Expand(STI_ROOT, STE_COLLAPSEALL), 1);
    EXPECT_EQ(tree.DeleteItem(chain.top), 1);
    EXPECT_EQ(tree.GetCount(), 0u) << "each had two shortcuts, and both go";
  });
}

TEST_F(DeepTree, AControlGoesWithItsChain) {
  RunOnSmallStack([] {
    TestTree another;
    another.recording = false;
    EXPECT_NE(MakeChain(another, kManyItems).top, nullptr);
  });
}

TEST_F(DeepTree, AChainInASelectionByDocuments) {
  RunOnSmallStack([this] {
    constexpr int kCount = 10000;  // each item that goes is looked up by its document
    tree.EnableSelectionByDocuments(1);
    const Chain chain = MakeChain(tree, kCount);
    EXPECT_EQ(tree.Expand(STI_ROOT, STE_EXPANDALL), 1);
    EXPECT_EQ(tree.SelectItem(chain.bottom), 1);
    EXPECT_EQ(tree.GetActiveDocItem(), chain.top);
    EXPECT_EQ(tree.SetDocumentDisplay(1), 0);
    EXPECT_EQ(tree.GetVisibleCount(), kCount - 1);
    tree.EnableSelectionByDocuments(0);
    tree.EnableSelectionByDocuments(1);
    EXPECT_EQ(tree.GetSelectedItem(), nullptr) << "a new manager has no anchor";
    EXPECT_EQ(tree.DeleteItem(chain.top), 1);
    EXPECT_EQ(tree.GetCount(), 0u);
  });
}

// Each target lies below the shortcut of the one before: the first takes them all along.
TEST_F(DeepTree, TargetsBelowShortcutsOfTargets) {
  RunOnSmallStack([this] {
    constexpr int kCount = 100000;
    CVornTreeItem* const first = tree.Add("t");
    CVornTreeItem* target = first;
    for (int i = 0; i < kCount; ++i) {
      CVornTreeItem* const shortcut = tree.CreateShortcut(target, STI_ROOT, STI_LAST);
      ASSERT_NE(shortcut, nullptr);
      target = tree.InsertItem(L"t", -1, -1, shortcut);
    }
    EXPECT_EQ(tree.DeleteItem(first), 1);
    EXPECT_EQ(tree.GetCount(), 0u);
  });
}

TEST_F(DeepTree, AsManySiblings) {
  RunOnSmallStack([this] {
    for (int i = 0; i < kManyItems; ++i)
      tree.InsertItem(L"", -1, -1, STI_ROOT, STI_LAST, static_cast<unsigned>(i % 1000 + 1));
    EXPECT_EQ(tree.Expand(STI_ROOT, STE_COLLAPSEALL), 1);
    EXPECT_EQ(tree.Expand(STI_ROOT, STE_EXPANDALL), 1);
    EXPECT_EQ(tree.GetVisibleCount(), kManyItems);
    EXPECT_TRUE(tree.SortChildrenByName(tree.GetRootItem()));
    EXPECT_EQ(tree.GetItemPosition(tree.GetLastChildItem(tree.GetRootItem())), kManyItems);
    STSORTCB sort{tree.GetRootItem(), ByData, 0};
    EXPECT_EQ(tree.SortChildren(&sort), 1);
    EXPECT_EQ(tree.GetCount(), 1000u) << "of equal ones only the first stays";
    EXPECT_EQ(tree.DeleteAllItems(STI_ROOT), 1);
    EXPECT_EQ(tree.GetCount(), 0u);
  });
}

}  // namespace
