// Items changed by a record, and image lists that are none.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

TEST(SetItemRecord, TakesWhatItsMaskNames) {
  TestTree tree;
  tree.Build("root [a [x] b]");
  STITEM record{};
  record.hItem = tree["a"];
  record.mask = STIF_PARAM;
  record.lParam = 42;
  record.iImage = 7;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(tree.GetItemData(tree["a"]), 42u);
  EXPECT_EQ(tree["a"]->m_nImage, -1) << "not named";

  record.mask = STIF_STATE;
  record.state = record.stateMask = STIS_EXPANDED | STIS_SELECTED;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(tree.Text(), "root [a+*@ [x] b]");
  record.state = 0;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(tree.Text(), "root [a+*@ [x] b]") << "bits can only be turned on";
  EXPECT_EQ(CheckTree(tree), "");
  tree.log.Clear();
}

TEST(SetItemRecord, AnnouncesChildrenByExactlyOne) {
  TestTree tree;
  tree.Build("root [a]");
  STITEM record{};
  record.hItem = tree["a"];
  record.mask = STIF_CHILDREN;
  for (int children : {0, 2, -1}) {
    record.cChildren = children;
    EXPECT_EQ(tree.SetItem(&record), 1);
    EXPECT_EQ(tree.ItemHasChildren(tree["a"]), 0);
  }
  record.cChildren = 1;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(tree.ItemHasChildren(tree["a"]), 1);
}

TEST(SetItemRecord, WithoutATextEmptiesTheLabel) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItem* const item = tree["a"];
  STITEM record{};
  record.hItem = item;
  record.mask = STIF_TEXT;
  record.cchTextMax = 3;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_STREQ(tree.GetItemText(item), L"");
}

TEST(SetItemState, OfBoldMakesTheItemBold) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.SetItemState(tree["a"], STIS_BOLD), 1);
  EXPECT_TRUE(tree.IsItemBold(tree["a"]));
}

TEST(SetItemRecord, OfNothingIsRefused) {
  TestTree tree;
  STITEM record{};
  EXPECT_EQ(tree.SetItem(nullptr), 0);
  EXPECT_EQ(tree.SetItem(&record), 0);
}

TEST(StateImage, IsStoredAndToldBack) {
  TestTree tree;
  tree.Build("root [a]");
  int image = 9;
  EXPECT_EQ(tree.SetItemImageState(tree["a"], -1), 1) << "as it was";
  EXPECT_EQ(tree.SetItemImageState(tree["a"], 3), 1);
  EXPECT_EQ(tree.GetItemImageState(tree["a"], image), 1);
  EXPECT_EQ(image, 3);
  EXPECT_EQ(tree.SetItemImageState(nullptr, 3), 0);
  EXPECT_EQ(tree.GetItemImageState(nullptr, image), 0);
}

TEST(ImageLists, OfNoNumberAreNone) {
  TestTree tree;
  CImageList images;
  ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
  SIZE size{};
  for (int which : {static_cast<int>(STIL_COUNT), 7}) {
    const auto list = static_cast<VornTreeImageList>(which);
    EXPECT_EQ(tree.GetImageList(list), nullptr);
    EXPECT_EQ(tree.GetImageSize(list, &size), 0);
    EXPECT_EQ(tree.SetImageList(&images, list), nullptr);
    tree.DetachImageList(list);
  }
  EXPECT_EQ(tree.GetImageSize(STIL_NORMAL, nullptr), 0);
  EXPECT_EQ(tree.SetImageList(nullptr, STIL_NORMAL), nullptr);
}

TEST(ModifyItemState, OfNoBitsChangesNothing) {
  TestTree tree;
  tree.Build("root [a]");
  tree.SetItemState(tree["a"], STIS_NODRAG);
  EXPECT_EQ(tree.ModifyItemState(tree["a"], 0, 0), 1);
  EXPECT_EQ(tree.GetItemState(tree["a"]), unsigned{STIS_NODRAG});
}

TEST(IsShortcutItemOf, NeedsTwoItems) {
  TestTree tree;
  tree.Build("root [a b]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  EXPECT_EQ(tree.IsShortcutItemOf(shortcut, tree["a"]), 1);
  EXPECT_EQ(tree.IsShortcutItemOf(shortcut, tree["b"]), 0);
  EXPECT_EQ(tree.IsShortcutItemOf(shortcut, nullptr), 0);
  EXPECT_EQ(tree.IsShortcutItemOf(nullptr, tree["a"]), 0);
}

TEST(SetItemFont, OfAFontWithoutAHandleIsAsNone) {
  TestTree tree;
  tree.Build("root [a]");
  CFont own, none;
  ASSERT_TRUE(own.CreatePointFont(120, L"Tahoma"));
  tree.SetItemFont(tree["a"], &own);
  EXPECT_NE(tree["a"]->m_pFont, nullptr);
  tree.SetItemFont(tree["a"], &none);
  EXPECT_EQ(tree["a"]->m_pFont, nullptr);
}

TEST(InsertItemRecord, WithImagesAndData) {
  TestTree tree;
  STINSERTSTRUCT insert{};
  insert.hParent = STI_ROOT;
  insert.item.mask = STIF_IMAGE | STIF_SELECTEDIMAGE | STIF_PARAM;
  insert.item.iImage = 1;
  insert.item.iSelectedImage = 2;
  insert.item.lParam = 3;
  CVornTreeItem* const item = tree.InsertItem(&insert);
  ASSERT_NE(item, nullptr);
  int image = 0, selected = 0;
  EXPECT_EQ(tree.GetItemImage(item, image, selected), 1);
  EXPECT_EQ(image, 1);
  EXPECT_EQ(selected, 2);
  EXPECT_EQ(tree.GetItemData(item), 3u);
  insert.hParent = nullptr;
  EXPECT_EQ(tree.InsertItem(&insert), nullptr);
}

}  // namespace
