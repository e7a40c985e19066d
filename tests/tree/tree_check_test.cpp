// The invariant walker finds what is wrong: each invariant is broken once, and mended again.
#include <functional>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

class TreeCheck : public testing::Test {
 protected:
  void SetUp() override {
    tree.Build("root [a+ [b* c] d [e]]");
    ASSERT_EQ(CheckTree(tree), "");
  }
  void TearDown() override {
    EXPECT_EQ(CheckTree(tree), "") << "mended";
    tree.log.Clear();
  }

  // What the walker says while a field has another value.
  template <class T>
  std::string With(T& field, T value) {
    const T kept = field;
    field = value;
    const std::string wrong = CheckTree(tree);
    field = kept;
    return wrong;
  }

  TestTree tree;
};

TEST_F(TreeCheck, FindsLinksThatDoNotMatch) {
  EXPECT_EQ(With(tree["d"]->m_pPrevSibling, static_cast<CVornTreeItem*>(nullptr)),
            "'d': previous sibling is another");
  EXPECT_EQ(With(tree["b"]->m_pParent, tree["d"]), "'b': parent is another");
  EXPECT_EQ(With(tree["a"]->m_pLastChild, tree["b"]), "'a': last child is another");
  EXPECT_EQ(With(tree["b"]->m_pNextSibling, tree["b"]), "'b': previous sibling is another") << "a ring";
  EXPECT_EQ(With(tree["c"]->m_pTree, static_cast<CVornTreeCtrl*>(nullptr)), "'c': control is another");
  EXPECT_EQ(With(tree["e"]->m_pShortcutTarget, tree["e"]), "'e': stands for itself");
}

TEST_F(TreeCheck, FindsALevelThatIsWrong) {
  EXPECT_EQ(With(tree["e"]->m_nLevel, 7), "'e': level is 7, not 2");
}

TEST_F(TreeCheck, FindsCountsThatAreWrong) {
  EXPECT_EQ(With(tree["a"]->m_nDescendants, 5u), "'a': count of descendants is 5, not 2");
  EXPECT_EQ(With(tree["a"]->m_nVisibleDescendants, 1), "'a': count of rows is 1, not 2");
  EXPECT_EQ(With(tree["d"]->m_nVisibleDescendants, 1), "'d': count of rows is 1, not 0") << "it is folded";
}

TEST_F(TreeCheck, LeavesRowsAloneWhenAsked) {
  tree["a"]->m_nVisibleDescendants = 1;
  EXPECT_EQ(CheckTree(tree, false), "");
  tree["a"]->m_nVisibleDescendants = 2;
}

TEST_F(TreeCheck, FindsARootThatIsNotOnTop) {
  CVornTreeItem* const root = tree.GetRootItem();
  EXPECT_EQ(With(root->m_nLevel, 1), "the root is not on top");
  EXPECT_EQ(With(root->m_pParent, tree["a"]), "the root is not on top");
  EXPECT_EQ(With(root->m_pNextSibling, tree["a"]), "the root has a sibling");
  EXPECT_EQ(With(root->m_pPrevSibling, tree["a"]), "the root has a sibling");
  EXPECT_EQ(With(root->m_nMagic, 7u), "the root is dead");
  EXPECT_EQ(With(root->m_pTree, static_cast<CVornTreeCtrl*>(nullptr)), "the root belongs to another control");
}

TEST_F(TreeCheck, FindsChildrenThatAreNone) {
  CVornTreeItem* const dead = tree.Add("dead");
  tree.DeleteItem(dead);
  EXPECT_EQ(With(tree["d"]->m_pFirstChild, dead), "'d': has a dead child");
  EXPECT_EQ(With(tree["d"]->m_pFirstChild, STI_FIRST), "'d': has a dead child") << "a place is no item";
  EXPECT_EQ(With(tree["e"]->m_nMagic, 7u), "'d': has a child that is no item");
}

// What managers keep to themselves.
class Inside : public CVornTreeSelection {
 public:
  static constexpr auto kFocus = &Inside::m_pFocus;
  static constexpr auto kAnchor = &Inside::m_pLastSelected;
  static constexpr auto kInClear = &Inside::m_bInClear;
  static constexpr auto kTree = &Inside::m_pTree;
  static constexpr auto kSaved = &Inside::m_arrSaved;
};

TEST_F(TreeCheck, FindsWhatAManagerMustNotHold) {
  CVornTreeItem* const dead = tree.Add("dead");
  tree.DeleteItem(dead);
  TestTree other;
  other.Build("root [x]");
  CVornTreeSelection& manager = *tree.GetSelectionManager();
  EXPECT_EQ(With(manager.*Inside::kFocus, dead), "the manager has a focus that is gone");
  EXPECT_EQ(With(manager.*Inside::kFocus, other["x"]), "the manager has a focus that is gone");
  EXPECT_EQ(With(manager.*Inside::kAnchor, dead), "the manager has an anchor that is gone");
  EXPECT_EQ(With(manager.*Inside::kInClear, BOOL{TRUE}), "the manager is still clearing");
  EXPECT_EQ(With(manager.*Inside::kTree, static_cast<CVornTreeCtrl*>(&other)),
            "the manager belongs to another control");
  CVornTreeItemArray& saved = manager.*Inside::kSaved;
  saved.Add(dead, nullptr);
  EXPECT_EQ(CheckTree(tree), "the saved selection holds an item that is gone");
  saved.RemoveAll();
  for (int i = 0; i < 2; ++i) saved.Add(tree["a"], nullptr);
  EXPECT_EQ(CheckTree(tree), "the saved selection is not in order") << "twice the same";
  saved.RemoveAll();
}

TEST_F(TreeCheck, FindsADocumentThatIsGone) {
  tree.EnableSelectionByDocuments(1);
  CVornTreeItem* const document = tree["d"];
  tree.UpdateSelection(document, STUS_ACTIVATE);
  // Sorting drops the second of two equal ones, which stays alive.
  STSORTCB all{tree.GetRootItem(), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
  tree.SortChildren(&all);
  ASSERT_EQ(tree["d"], nullptr);
  EXPECT_EQ(With(document->m_nMagic, 7u), "a document is gone");
  tree.MoveItem(STI_ROOT, document, STI_LAST);
}

TEST_F(TreeCheck, LetsAnEmptyControlPass) {
  TestTree empty;
  EXPECT_EQ(CheckTree(empty), "");
}

TEST_F(TreeCheck, TellsOfLabelsInOneAlphabetOnly) {
  tree.SetItemText(tree["e"], L"\x00E9t\x00E9");
  CVornTreeItem* const item = tree.GetChildItem(tree["d"]);
  EXPECT_EQ(With(item->m_nLevel, 7), "'?t?': level is 7, not 2");
}

TEST_F(TreeCheck, FindsWhatADocumentsManagerMustNotHold) {
  tree.EnableSelectionByDocuments(1);
  tree.SelectItem(tree["c"]);
  auto& manager = static_cast<CVornTreeMultiSelection&>(*tree.GetSelectionManager());
  CVornTreeItem* const dead = tree.Add("dead");
  tree.DeleteItem(dead);
  tree.UpdateSelection(tree["c"], STUS_ACTIVATE);
  EXPECT_EQ(With(manager.GetActiveManager()->*Inside::kFocus, dead),
            "a document's manager has a focus that is gone");
}

}  // namespace
