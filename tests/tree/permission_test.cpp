// Permissions, and the notification of the parent.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::TestTree;

TEST(IsAllow, AllowsInvalidItems) {
  TestTree tree;
  tree.ModifyItemState(tree.GetRootItem(), 0, STIS_NODELETE);
  EXPECT_EQ(tree.IsAllow(STI_ROOT, STIS_NODELETE), 1);
  EXPECT_EQ(tree.IsAllow(nullptr, STIS_NODELETE), 1);
  EXPECT_EQ(tree.IsAllow(tree.GetRootItem(), STIS_NODELETE), 0);
}

TEST(IsAllow, EachBitDeniesItsOwn) {
  TestTree tree;
  tree.Build("root [a]");
  using Question = int (CVornTreeCtrl::*)(CVornTreeItem*);
  const std::pair<unsigned, Question> questions[] = {
      {STIS_NODELETE, &CVornTreeCtrl::CanDeleteItem}, {STIS_NODRAG, &CVornTreeCtrl::CanDragItem},
      {STIS_NODROP, &CVornTreeCtrl::CanDropItem},     {STIS_NORENAME, &CVornTreeCtrl::CanRenameItem},
      {STIS_NOSELECT, &CVornTreeCtrl::CanSelectItem}, {STIS_NODUPLICATE, &CVornTreeCtrl::CanDuplicateItem},
      {STIS_NOUPDATE, &CVornTreeCtrl::CanUpdateItem}, {STIS_NOMODIFY, &CVornTreeCtrl::CanModifyItem},
  };
  for (const auto& [bit, question] : questions) {
    EXPECT_EQ((tree.*question)(tree["a"]), 1) << bit;
    tree.SetItemState(tree["a"], bit);
    EXPECT_EQ((tree.*question)(tree["a"]), 0) << bit;
    tree.SetItemState(tree["a"], 0);
  }
}

TEST(IsAllow, AnUnmodifiableItemCanStillBeSelected) {
  TestTree tree;
  tree.Build("root [a]");
  tree.SetItemState(tree["a"], STIS_NOMODIFY);
  EXPECT_EQ(tree.CanSelectItem(tree["a"]), 1);
  EXPECT_EQ(tree.CanDeleteItem(tree["a"]), 0);
  EXPECT_EQ(tree.CanUpdateItem(tree["a"]), 0);
  EXPECT_EQ(tree.CanModifyItem(tree["a"]), 0);
}

TEST(IsAllow, AnUnmodifiableParentKeepsItsChildrenFromDragAndDropOnly) {
  TestTree tree;
  tree.Build("root [a [a1]]");
  tree.SetItemState(tree["a"], STIS_NOMODIFY);
  EXPECT_EQ(tree.CanDragItem(tree["a1"]), 0);
  EXPECT_EQ(tree.CanDropItem(tree["a1"]), 0);
  EXPECT_EQ(tree.CanDeleteItem(tree["a1"]), 1);
}

TEST(IsAllow, ACombinationIsRefusedForEitherBit) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.IsAllow(tree["a"], 0x30000), 1);
  tree.SetItemState(tree["a"], STIS_NODRAG);
  EXPECT_EQ(tree.IsAllow(tree["a"], 0x30000), 0);
}

TEST(IsAllow, LowBitsAskNothing) {
  TestTree tree;
  tree.Build("root [a]");
  tree.SetItemState(tree["a"], 0xFFFFFFFF & ~unsigned{STIS_SHORTCUT});
  EXPECT_EQ(tree.IsAllow(tree["a"], 0x0000FFFF), 1);
  EXPECT_EQ(tree.IsAllow(tree["a"], 0), 1);
}

TEST(IsAllow, ShortcutsTakeNoDrops) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  EXPECT_EQ(tree.CanDeleteItem(shortcut), 1);
  EXPECT_EQ(tree.CanDropItem(shortcut), 0);
}

TEST(IsAllow, AnOverrideChangesAllQuestions) {
  class Refusing : public CVornTreeCtrl {
   public:
    int IsAllow(CVornTreeItem*, unsigned long) override { return 0; }
  } tree;
  CVornTreeItem* const item = tree.InsertItem(L"x", -1, -1);
  EXPECT_EQ(tree.CanDeleteItem(item), 0);
  EXPECT_EQ(tree.CanSelectItem(item), 0);
  EXPECT_EQ(tree.SelectItem(item), 1);
  EXPECT_FALSE(tree.IsItemSelected(item));
}

TEST(NotifyParent, WithoutAParentAllows) {
  TestTree tree;
  EXPECT_EQ(tree.NotifyParent(1, nullptr, nullptr), 1);
}

TEST(Hooks, OnlyTheForeignDropTargetDefaultsToNo) {
  class Open : public CVornTreeCtrl {
  } tree;
  EXPECT_EQ(tree.OnSelectDropTargetFromTreeCtrl(nullptr), 0);
  EXPECT_EQ(tree.OnDropFromTreeCtrl(nullptr), 1);
  EXPECT_EQ(tree.OnDragAndDropFromTreeCtrl(0, nullptr), 1);
  EXPECT_EQ(tree.OnSelChanging(nullptr, nullptr), 1);
  EXPECT_EQ(tree.OnEndDrop(), 1);
  EXPECT_EQ(tree.OnClearSelection(nullptr), 1);
}

}  // namespace
