// Document mode: only what is below the active document shows.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

// Moves the focus and leaves the anchor: a click that the host refuses.
void FocusOnly(TestTree& tree, const std::string& label) {
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnSelChanging" ? 0 : 1;
  };
  tree.GetSelectionManager()->OnLButtonDown(tree[label]);
  tree.answer = nullptr;
  tree.log.Clear();
}

TEST(ActiveDocument, IsThatOfTheFocusInAPlainSelection) {
  TestTree tree;
  tree.Build("root [d1+ [a*] d2+ [b]]");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  FocusOnly(tree, "b");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]);
  tree.SelectItem(tree["d1"]);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]) << "a document is its own";
  tree.log.Clear();
}

TEST(ActiveDocument, IsNullWithoutAFocus) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  tree.EnableSelectionByDocuments(1);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
}

TEST(SetDocumentDisplay, OpensTheDocumentOfTheAnchorBeforeThatOfTheFocus) {
  TestTree tree;
  tree.Build("root [d1 [a] d2 [b]]");
  tree.SelectItem(tree["a"]);
  FocusOnly(tree, "b");
  ASSERT_EQ(tree.GetLastSelectedItem(), tree["a"]);
  EXPECT_EQ(tree.SetDocumentDisplay(1), 0);
  EXPECT_LOG(tree.log, "OnItemExpanding d1\nOnItemExpanded d1");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d2"]) << "shown is that of the focus";
  EXPECT_EQ(tree.Rows(), "");
}

TEST(SetDocumentDisplay, OpensTheDocumentOfTheFocusWithoutAnAnchor) {
  TestTree tree;
  tree.Build("root [d1 [a] d2 [b]]");
  FocusOnly(tree, "b");
  ASSERT_EQ(tree.GetLastSelectedItem(), nullptr);
  tree.SetDocumentDisplay(1);
  EXPECT_LOG(tree.log, "OnItemExpanding d2\nOnItemExpanded d2");
  EXPECT_EQ(tree.Rows(), "b");
}

TEST(SetDocumentDisplay, OpensTheActiveDocumentInASelectionByDocuments) {
  TestTree tree;
  tree.Build("root [d1 [a] d2 [b]]");
  tree.EnableSelectionByDocuments(1);
  tree.SelectItem(tree["b"]);
  tree.log.Clear();
  tree.SetDocumentDisplay(1);
  EXPECT_LOG(tree.log, "OnItemExpanding d2\nOnItemExpanded d2");
  EXPECT_EQ(tree.Rows(), "b");
}

TEST(SetDocumentDisplay, OpensNothingForOtherValuesThanOne) {
  TestTree tree;
  tree.Build("root [d1 [a]]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  for (int mode : {2, -1, 0}) tree.SetDocumentDisplay(mode);
  EXPECT_FALSE(tree.IsItemExpanded(tree["d1"]));
  EXPECT_EQ(tree.SetDocumentDisplay(0), 0);
}

TEST(SetDocumentDisplay, ARefusedOpeningChangesTheModeAllTheSame) {
  TestTree tree;
  tree.Build("root [d1 [a]]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  tree.answer = [](const std::string&, CVornTreeItem*, CVornTreeItem*) { return 0; };
  EXPECT_EQ(tree.SetDocumentDisplay(1), 0);
  EXPECT_LOG(tree.log, "OnItemExpanding d1");
  EXPECT_EQ(tree.IsDisplayOnlyActiveDocument(), 1);
  EXPECT_EQ(tree.Rows(), "");
}

TEST(SetDocumentDisplay, IsSetOnceTheOpeningIsOver) {
  TestTree tree;
  tree.Build("root [d1 [a] d2]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  std::string rowsInside;
  tree.answer = [&](const std::string&, CVornTreeItem*, CVornTreeItem*) {
    rowsInside += tree.Rows() + ";";
    return 1;
  };
  tree.SetDocumentDisplay(1);
  EXPECT_EQ(rowsInside, "d1 d2;d1 a d2;");
  EXPECT_EQ(tree.Rows(), "a");
  tree.log.Clear();
}

TEST(SetDocumentDisplay, AHookMayDeleteTheDocumentThatItOpens) {
  TestTree tree;
  tree.Build("root [d1 [a] d2+ [b]]");
  tree.SelectItem(tree["a"]);
  tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
    if (hook == "OnItemExpanding") tree.DeleteItem(item);
    return 1;
  };
  EXPECT_EQ(tree.SetDocumentDisplay(1), 0);
  EXPECT_EQ(tree.Text(), "root [d2+ [b]]");
  EXPECT_EQ(tree.Rows(), "");
  EXPECT_EQ(CheckTree(tree), "");
  tree.log.Clear();
}

TEST(DocumentDisplay, FollowsTheActiveDocument) {
  TestTree tree;
  tree.Build("root [d1+ [a a2] d2+ [b]]");
  tree.SelectItem(tree["a"]);
  tree.SetDocumentDisplay(1);
  EXPECT_EQ(tree.GetVisibleCount(), 2);
  tree.SelectItem(tree["b"]);
  EXPECT_EQ(tree.Rows(), "b");
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  tree.DeleteItem(tree["d2"]);
  EXPECT_EQ(tree.Rows(), "");
  EXPECT_EQ(tree.GetVisibleCount(), 0);
  tree.log.Clear();
}

TEST(DocumentDisplay, EveryDocumentIsNotVisible) {
  TestTree tree;
  tree.Build("root [d1+ [a*] d2+ [b]]");
  tree.SetDocumentDisplay(1);
  EXPECT_EQ(tree.ItemIsVisible(tree["d1"]), 0);
  EXPECT_EQ(tree.ItemIsVisible(tree["d2"]), 0);
  EXPECT_EQ(tree.ItemIsVisible(tree["b"]), 1) << "not asked of what is below";
}

TEST(DocumentDisplay, TheWalksBackStayInTheDocument) {
  TestTree tree;
  tree.Build("root [d1+ [x] d2+ [a! b+ [c] d] d3]");
  tree.SelectItem(tree["b"]);
  tree.SetDocumentDisplay(1);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["b"]), nullptr);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["c"]), tree["b"]);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["d"]), tree["c"]);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["d2"]), nullptr) << "its sibling is another document";
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["d3"]), tree["d"]) << "its sibling is the active one";
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["x"]), tree["d1"]) << "outside, the parent is not the active one";
  EXPECT_EQ(tree.GetLastVisibleItem(tree["d2"]), tree["d"]);
  tree.log.Clear();
}

TEST(DocumentDisplay, TheWalkForwardLeavesAnotherDocumentAsEver) {
  TestTree tree;
  tree.Build("root [d1+ [x] d2+ [b]]");
  tree.SelectItem(tree["b"]);
  tree.SetDocumentDisplay(1);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["x"]), tree["d2"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["b"]), nullptr);
  tree.log.Clear();
}

}  // namespace
