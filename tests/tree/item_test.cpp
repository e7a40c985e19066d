// Items: validity, sentinels, flags and data, as hosts see them.
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

TEST(Item, SentinelsAreNoItems) {
  TestTree tree;
  for (CVornTreeItem* place : {STI_ROOT, STI_FIRST, STI_LAST}) {
    STITEM record{};
    record.hItem = place;
    EXPECT_EQ(tree.GetItem(&record), 0);
    EXPECT_EQ(tree.DeleteItem(place), 0);
    EXPECT_EQ(tree.SetItemText(place, L"x"), 0);
  }
}

TEST(Item, SentinelValuesAreTheDocumentedOnes) {
  EXPECT_EQ(reinterpret_cast<unsigned long long>(STI_ROOT), 0xFFFFFFFFFFFF0001ULL);
  EXPECT_EQ(reinterpret_cast<unsigned long long>(STI_FIRST), 0xFFFFFFFFFFFF0002ULL);
  EXPECT_EQ(reinterpret_cast<unsigned long long>(STI_LAST), 0xFFFFFFFFFFFF0003ULL);
}

TEST(Item, ADeletedItemIsRefused) {
  TestTree tree;
  tree.Build("root [a b]");
  CVornTreeItem* const a = tree["a"];
  tree.DeleteItem(a);
  tree.log.Clear();
  EXPECT_EQ(tree.SetItemText(a, L"x"), 0);
  EXPECT_EQ(tree.GetItemState(a), 0u);
  EXPECT_EQ(tree.Expand(a, STE_EXPAND), 0);
  EXPECT_EQ(tree.DeleteItem(a), 0);
}

TEST(Item, AForeignPointerIsRefused) {
  TestTree tree;
  std::vector<char> memory(4096);
  CVornTreeItem* const foreign = reinterpret_cast<CVornTreeItem*>(memory.data());
  EXPECT_EQ(tree.SetItemText(foreign, L"x"), 0);
  EXPECT_EQ(tree.GetItemState(foreign), 0u);
  EXPECT_EQ(tree.SetItemText(reinterpret_cast<CVornTreeItem*>(0x10), L"x"), 0);
}

TEST(Item, ANewItemHasItsDefaults) {
  TestTree tree;
  CVornTreeItem* const item = tree.InsertItem(L"x", -1, -1);
  EXPECT_EQ(tree.GetItemState(item), 0u);
  EXPECT_EQ(tree.GetItemData(item), 0u);
  int image = 0, selected = 0;
  EXPECT_EQ(tree.GetItemImage(item, image, selected), 1);
  EXPECT_EQ(image, -1);
  EXPECT_EQ(selected, -1);
  EXPECT_EQ(tree.GetItemImageState(item, image), 1);
  EXPECT_EQ(image, -1);
  EXPECT_EQ(tree.GetItemVisibility(item), 1);
  EXPECT_EQ(item->m_nLevel, 1);
}

TEST(Item, AnnouncedChildrenCountUntilTheFirstIsLinked) {
  TestTree tree;
  STINSERTSTRUCT insert{};
  insert.hParent = STI_ROOT;
  insert.item.mask = STIF_CHILDREN;
  insert.item.cChildren = 1;
  CVornTreeItem* const item = tree.InsertItem(&insert);
  EXPECT_EQ(tree.ItemHasChildren(item), 1);
  CVornTreeItem* const child = tree.Add("child", item);
  EXPECT_EQ(tree.GetItemState(item, STIS_HASCHILDREN), 0u);
  tree.DeleteItem(child);
  tree.log.Clear();
  EXPECT_EQ(tree.ItemHasChildren(item), 0);
}

TEST(Item, OneImageOfTwoIsEnoughForTheImageFlag) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  tree.SetItemImage(item, -1, 3);
  EXPECT_TRUE(item->m_nExtFlags & STIX_HASIMAGE);
  tree.SetItemImage(item, -1, -1);
  EXPECT_FALSE(item->m_nExtFlags & STIX_HASIMAGE);
  tree.SetItemImage(item, 0, -1);
  EXPECT_TRUE(item->m_nExtFlags & STIX_HASIMAGE);
}

TEST(Item, ALockedItemReportsTheWishAndGoesAtUnlock) {
  TestTree tree;
  tree.Build("root [a b]");
  CVornTreeItem* const a = tree["a"];
  EXPECT_EQ(tree.LockItemVisibility(a, 1), 0);
  EXPECT_EQ(tree.SetItemVisibility(a, 0), 1);
  EXPECT_EQ(tree.GetItemVisibility(a), 0);
  EXPECT_EQ(tree.GetItemState(a, STIS_HIDDEN), 0u);
  EXPECT_EQ(tree.Rows(), "a b");
  EXPECT_EQ(tree.UnlockItemVisibility(a), 1);
  EXPECT_EQ(tree.Rows(), "b");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(Item, MeasuredHeightsAreEven) {
  TestTree tree;
  for (const char* label : {"", "a", "gjpqy", "a longer label"}) {
    EXPECT_EQ(tree.Add(label)->m_nHeight % 2, 0) << label;
  }
}

}  // namespace
