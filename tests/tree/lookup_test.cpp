// Navigation and lookup.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::TestTree;

TEST(GetNextItem, AnswersByCode) {
  TestTree tree;
  tree.Build("root [a+ [a1 a2] b*]");
  CVornTreeItem* const a = tree["a"];
  EXPECT_EQ(tree.GetNextItem(nullptr, STGN_ROOT), tree.GetRootItem());
  EXPECT_EQ(tree.GetNextItem(a, STGN_NEXT), tree["b"]);
  EXPECT_EQ(tree.GetNextItem(tree["b"], STGN_PREVIOUS), a);
  EXPECT_EQ(tree.GetNextItem(a, STGN_PARENT), tree.GetRootItem());
  EXPECT_EQ(tree.GetNextItem(a, STGN_CHILD), tree["a1"]);
  EXPECT_EQ(tree.GetNextItem(STI_ROOT, STGN_CHILD), a);
  EXPECT_EQ(tree.GetNextItem(tree["a2"], STGN_NEXTVISIBLE), tree["b"]);
  EXPECT_EQ(tree.GetNextItem(tree["b"], STGN_PREVIOUSVISIBLE), tree["a2"]);
  EXPECT_EQ(tree.GetNextItem(nullptr, STGN_CARET), tree["b"]);
  EXPECT_EQ(tree.GetNextItem(a, STGN_DROPHILITE), nullptr);
}

TEST(GetNextItem, LastVisibleIsAlwaysNull) {
  TestTree tree;
  tree.Build("root [a+ [a1]]");
  EXPECT_EQ(tree.GetNextItem(tree["a"], STGN_LASTVISIBLE), nullptr);
  EXPECT_EQ(tree.GetNextItem(tree["a"], 11), nullptr);
  EXPECT_EQ(tree.GetNextItem(tree["a"], 0xFFFFFFFF), nullptr);
}

TEST(GetNextItem, RootAndNullHaveNoSiblings) {
  TestTree tree;
  tree.Build("root [a b]");
  EXPECT_EQ(tree.GetNextItem(STI_ROOT), nullptr);
  EXPECT_EQ(tree.GetNextItem(nullptr), nullptr);
  EXPECT_EQ(tree.GetPrevItem(STI_ROOT), nullptr);
  EXPECT_EQ(tree.GetPrevItem(nullptr), nullptr);
  EXPECT_EQ(tree.GetChildItem(nullptr), nullptr);
}

TEST(GetLastChildItem, OfALeafIsTheLeaf) {
  TestTree tree;
  tree.Build("root [a [a1 a2]]");
  EXPECT_EQ(tree.GetLastChildItem(tree["a"]), tree["a2"]);
  EXPECT_EQ(tree.GetLastChildItem(tree["a2"]), tree["a2"]);
  EXPECT_EQ(tree.GetLastChildItem(tree.GetRootItem()), tree["a"]);
  EXPECT_EQ(tree.GetLastChildItem(nullptr), nullptr);
}

TEST(GetParentItem, OfADocumentIsTheRootWhileTheListStopsShort) {
  TestTree tree;
  tree.Build("root [a [a1]]");
  EXPECT_EQ(tree.GetParentItem(tree["a"]), tree.GetRootItem());
  EXPECT_EQ(tree.GetParentItem(STI_ROOT), nullptr);
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetParentList(tree["a1"], list), 1);
  ASSERT_EQ(list.GetSize(), 2);
  EXPECT_EQ(list[0], tree["a1"]);
  EXPECT_EQ(list[1], tree["a"]);
  EXPECT_EQ(tree.GetParentList(tree["a"], list), 1);
  EXPECT_EQ(list.GetSize(), 3) << "the list is not emptied first";
  EXPECT_EQ(tree.GetParentList(STI_ROOT, list), 0);
}

TEST(GetChildCount, CountsAllBelowHiddenOnesToo) {
  TestTree tree;
  tree.Build("root [doc [a [x y! z] b]]");
  EXPECT_EQ(tree.GetChildCount(tree["doc"]), 5u);
  EXPECT_EQ(tree.GetChildCount(STI_ROOT), 0u);
  EXPECT_EQ(tree.GetCount(), 6u);
}

TEST(GetItemFromName, IgnoresCaseAndLooksAtDirectChildrenOnly) {
  TestTree tree;
  tree.Build("root [a [Leaf] b]");
  EXPECT_EQ(tree.GetItemFromName(L"LEAF", tree["a"]), tree["Leaf"]);
  EXPECT_EQ(tree.GetItemFromName(L"leaf"), nullptr);
  EXPECT_EQ(tree.GetItemFromName(L"B", STI_ROOT), tree["b"]);
  EXPECT_EQ(tree.GetItemFromName(nullptr), nullptr);
  EXPECT_EQ(tree.GetItemFromName(L""), nullptr);
}

TEST(GetItemFromName, WithAStaleParentSearchesTheDocuments) {
  TestTree tree;
  tree.Build("root [a b]");
  CVornTreeItem* const dead = tree["a"];
  tree.DeleteItem(dead);
  tree.log.Clear();
  EXPECT_EQ(tree.GetItemFromName(L"b", dead), tree["b"]);
  EXPECT_EQ(tree.GetItemFromName(L"b", nullptr), tree["b"]);
}

TEST(GetItemFromName, WithDataNeedsBoth) {
  TestTree tree;
  tree.InsertItem(L"x", -1, -1, STI_ROOT, STI_LAST, 1);
  CVornTreeItem* const second = tree.InsertItem(L"x", -1, -1, STI_ROOT, STI_LAST, 2);
  EXPECT_EQ(tree.GetItemFromName(L"x", STI_ROOT, 2), second);
  EXPECT_EQ(tree.GetItemFromName(L"x", STI_ROOT, 3), nullptr);
  EXPECT_EQ(tree.GetItemFromName(L"y", STI_ROOT, 2), nullptr);
}

TEST(GetItemFromFullPathName, SkipsEmptySegments) {
  TestTree tree;
  tree.Build("root [Doc [Leaf]]");
  CVornTreeItem* const leaf = tree["Leaf"];
  for (const wchar_t* path : {L"Doc\\Leaf", L"\\Doc\\Leaf", L"\\\\Doc\\\\Leaf\\", L"doc\\LEAF\\\\"}) {
    EXPECT_EQ(tree.GetItemFromFullPathName(path), leaf);
  }
  EXPECT_EQ(tree.GetItemFromFullPathName(L"\\\\"), nullptr);
  EXPECT_EQ(tree.GetItemFromFullPathName(L""), nullptr);
  EXPECT_EQ(tree.GetItemFromFullPathName(nullptr), nullptr);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"Doc\\None"), nullptr);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"None\\Leaf"), nullptr);
}

TEST(GetItemFromFullPathName, DataAppliesToTheLastSegmentOnly) {
  TestTree tree;
  CVornTreeItem* const doc = tree.InsertItem(L"Doc", -1, -1, STI_ROOT, STI_LAST, 7);
  tree.InsertItem(L"Leaf", -1, -1, doc, STI_LAST, 1);
  CVornTreeItem* const second = tree.InsertItem(L"Leaf", -1, -1, doc, STI_LAST, 2);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"Doc\\Leaf", 2), second);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"Doc\\Leaf", 3), nullptr);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"Doc\\Leaf\\", 3), tree.GetChildItem(doc))
      << "a path that ends in a separator drops the data";
}

TEST(GetItemFromItemData, TakesTheFirstDirectChild) {
  TestTree tree;
  CVornTreeItem* const a = tree.InsertItem(L"a", -1, -1, STI_ROOT, STI_LAST, 5);
  CVornTreeItem* const below = tree.InsertItem(L"b", -1, -1, a, STI_LAST, 6);
  EXPECT_EQ(tree.GetItemFromItemData(5), a);
  EXPECT_EQ(tree.GetItemFromItemData(6), nullptr);
  EXPECT_EQ(tree.GetItemFromItemData(6, a), below);
  EXPECT_EQ(tree.GetItemFromItemData(0), nullptr);
}

TEST(GetItemFromItemDatas, FollowsAPathWithoutBacktracking) {
  TestTree tree;
  CVornTreeItem* const first = tree.InsertItem(L"a", -1, -1, STI_ROOT, STI_LAST, 1);
  CVornTreeItem* const second = tree.InsertItem(L"b", -1, -1, STI_ROOT, STI_LAST, 1);
  CVornTreeItem* const leaf = tree.InsertItem(L"c", -1, -1, second, STI_LAST, 2);
  unsigned long long path[] = {1, 2};
  EXPECT_EQ(tree.GetItemFromItemDatas(path, 1), first);
  EXPECT_EQ(tree.GetItemFromItemDatas(path, 2), nullptr) << "the first match on a level decides";
  tree.SetItemData(first, 9);
  EXPECT_EQ(tree.GetItemFromItemDatas(path, 2), leaf);
  EXPECT_EQ(tree.GetItemFromItemDatas(nullptr, 2), nullptr);
  EXPECT_EQ(tree.GetItemFromItemDatas(path, 0), nullptr);
}

TEST(GetItemFullText, GivesAPathThatLeadsBack) {
  TestTree tree;
  tree.Build("root [Doc [Folder [Leaf]]]");
  CString text = L"before";
  EXPECT_EQ(tree.GetItemFullText(tree["Leaf"], text), 1);
  EXPECT_STREQ(text, L"\\Doc\\Folder\\Leaf");
  EXPECT_EQ(tree.GetItemFromFullPathName(text), tree["Leaf"]);
}

TEST(GetItemFullText, BeneathAnEmptyLabelIsEmpty) {
  TestTree tree;
  CVornTreeItem* const unnamed = tree.InsertItem(L"", -1, -1);
  CString text = L"before";
  EXPECT_EQ(tree.GetItemFullText(tree.Add("x", unnamed), text), 0);
  EXPECT_STREQ(text, L"");
  text = L"before";
  EXPECT_EQ(tree.GetItemFullText(STI_ROOT, text), 0);
  EXPECT_STREQ(text, L"before");
}

TEST(GetItemPosition, CountsFromOneHiddenOnesToo) {
  TestTree tree;
  tree.Build("root [a! b c]");
  EXPECT_EQ(tree.GetItemPosition(tree["a"]), 1);
  EXPECT_EQ(tree.GetItemPosition(tree["c"]), 3);
  EXPECT_EQ(tree.GetItemPosition(tree.GetRootItem()), 0);
  EXPECT_EQ(tree.GetItemPosition(STI_ROOT), 0);
}

TEST(IsExist, AsksForTheDirectParent) {
  TestTree tree;
  tree.Build("root [a [a1 [x]]]");
  EXPECT_TRUE(tree.IsExist(tree["x"], tree["a1"]));
  EXPECT_FALSE(tree.IsExist(tree["x"], tree["a"]));
  EXPECT_TRUE(tree.IsExist(tree["x"], nullptr));
  EXPECT_TRUE(tree.IsExist(tree["x"], STI_ROOT));
  EXPECT_FALSE(tree.IsExist(nullptr, nullptr));
}

TEST(IsParentItemOf, CountsTheItemItselfAndTheRootButNotTheSentinel) {
  TestTree tree;
  tree.Build("root [a [a1 [x]] b]");
  EXPECT_TRUE(tree.IsParentItemOf(tree["a"], tree["x"]));
  EXPECT_TRUE(tree.IsParentItemOf(tree["x"], tree["x"]));
  EXPECT_TRUE(tree.IsParentItemOf(tree.GetRootItem(), tree["x"]));
  EXPECT_FALSE(tree.IsParentItemOf(STI_ROOT, tree["x"]));
  EXPECT_FALSE(tree.IsParentItemOf(tree["b"], tree["x"]));
}

}  // namespace
