// The tree as a whole, before its parts.
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

TEST(Tree, AWindowlessControlKeepsItems) {
  TestTree tree;
  tree.Build("root [a+ [a1 a2] b]");
  EXPECT_EQ(tree.Text(), "root [a+ [a1 a2] b]");
  EXPECT_EQ(tree.Rows(), "a a1 a2 b");
  EXPECT_EQ(tree.GetCount(), 4u);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(Tree, SelectItemAsksAndTells) {
  TestTree tree;
  tree.Build("root [a b]");
  EXPECT_EQ(tree.SelectItem(tree["b"]), 1);
  EXPECT_LOG(tree.log, "OnSelChanging - b\nOnClearSelection -\nOnSelChanged - b");
  EXPECT_EQ(tree.Text(), "root [a b*@]");
}

TEST(Tree, DeleteItemRunsTheHookAfterTheSelectionIsGone) {
  TestTree tree;
  tree.Build("root [a [a1*] b]");
  std::string selected;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnDeleteItem") selected = tree.Selected();
    return 1;
  };
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_EQ(selected, "");
  EXPECT_LOG(tree.log, "OnDeleteItem a");
  EXPECT_EQ(tree.Text(), "root [b]");
  EXPECT_EQ(CheckTree(tree), "");
}

}  // namespace
