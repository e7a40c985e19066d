// The habits of the lookups about sentinels, hidden items, shortcuts and what is gone.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::TestTree;

TEST(GetNextItem, OfAnItemThatIsGoneIsNullByEveryCode) {
  TestTree tree;
  tree.Build("root [a b c]");
  CVornTreeItem* const dead = tree["b"];
  tree.DeleteItem(dead);
  tree.log.Clear();
  EXPECT_EQ(tree.GetNextItem(dead), nullptr);
  EXPECT_EQ(tree.GetPrevItem(dead), nullptr);
  for (unsigned code = STGN_NEXT; code <= STGN_LASTVISIBLE; ++code) {
    EXPECT_EQ(tree.GetNextItem(dead, code), nullptr) << code;
  }
}

TEST(GetNextItem, CodesHaveTheDocumentedValues) {
  const unsigned codes[] = {STGN_ROOT,       STGN_NEXT,         STGN_PREVIOUS,    STGN_PARENT,
                            STGN_CHILD,      STGN_FIRSTVISIBLE, STGN_NEXTVISIBLE, STGN_PREVIOUSVISIBLE,
                            STGN_DROPHILITE, STGN_CARET,        STGN_LASTVISIBLE};
  unsigned value = 0;
  for (unsigned code : codes) EXPECT_EQ(code, value++);
}

TEST(GetNextItem, TheParentOfADocumentIsTheRootAndOfTheRootNone) {
  TestTree tree;
  tree.Build("root [a [b]]");
  EXPECT_EQ(tree.GetNextItem(tree["b"], STGN_PARENT), tree["a"]);
  EXPECT_EQ(tree.GetNextItem(tree["a"], STGN_PARENT), tree.GetRootItem());
  EXPECT_EQ(tree.GetNextItem(tree.GetRootItem(), STGN_PARENT), nullptr);
  EXPECT_EQ(tree.GetNextItem(STI_ROOT, STGN_PARENT), nullptr);
}

TEST(GetNextItem, SiblingsIncludeHiddenOnes) {
  TestTree tree;
  tree.Build("root [a b! c]");
  EXPECT_EQ(tree.GetNextItem(tree["a"]), tree["b"]);
  EXPECT_EQ(tree.GetPrevItem(tree["c"]), tree["b"]);
  EXPECT_EQ(tree.GetNextItem(tree["c"]), nullptr);
  EXPECT_EQ(tree.GetPrevItem(tree["a"]), nullptr);
  EXPECT_EQ(tree.GetNextItem(tree.GetRootItem()), nullptr);
}

TEST(GetNextItem, TheCaretDoesNotLookAtItsArgument) {
  TestTree tree;
  tree.Build("root [a* b]");
  EXPECT_EQ(tree.GetNextItem(tree["b"], STGN_CARET), tree["a"]);
  EXPECT_EQ(tree.GetNextItem(STI_LAST, STGN_CARET), tree["a"]);
  EXPECT_EQ(tree.GetNextItem(STI_LAST, STGN_ROOT), tree.GetRootItem());
}

TEST(GetNextItem, WithoutAWindowNoRowIsDisplayed) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.GetNextItem(tree["a"], STGN_FIRSTVISIBLE), nullptr);
}

TEST(GetChildItem, TakesTheRootByBothNames) {
  TestTree tree;
  EXPECT_EQ(tree.GetChildItem(STI_ROOT), nullptr);
  EXPECT_EQ(tree.GetLastChildItem(tree.GetRootItem()), tree.GetRootItem()) << "no children: the item itself";
  tree.Build("root [a b]");
  EXPECT_EQ(tree.GetChildItem(STI_ROOT), tree["a"]);
  EXPECT_EQ(tree.GetChildItem(tree.GetRootItem()), tree["a"]);
  EXPECT_EQ(tree.GetLastChildItem(STI_ROOT), nullptr) << "the sentinel is not understood here";
}

TEST(GetParentList, OfTheRootIsEmptyAndSucceeds) {
  TestTree tree;
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetParentList(tree.GetRootItem(), list), 1);
  EXPECT_EQ(list.GetSize(), 0);
}

TEST(GetParentList, OfAnItemOfAnotherControlStopsShortOfItsRoot) {
  TestTree tree, other;
  other.Build("root [a [b]]");
  CVornTreeItemArray list;
  EXPECT_EQ(tree.GetParentList(other["b"], list), 1);
  EXPECT_EQ(list.GetSize(), 2);
}

TEST(GetChildCount, KnowsRowsFromItems) {
  TestTree tree;
  tree.Build("root [doc+ [a+ [x y! z] b [c]]]");
  EXPECT_EQ(tree.GetChildCount(tree["doc"]), 6u);
  EXPECT_EQ(tree.GetVisibleChildCount(tree["doc"]), 4u);
  EXPECT_EQ(tree.GetVisibleChildCount(tree["b"]), 0u);
  EXPECT_EQ(tree.GetChildCount(tree.GetRootItem()), tree.GetCount());
  EXPECT_EQ(tree.GetVisibleChildCount(STI_ROOT), 0u);
}

TEST(GetItemFromName, FindsHiddenOnesAndShortcutsAndTheFirstOfEqual) {
  TestTree tree;
  tree.Build("root [a! A t]");
  EXPECT_EQ(tree.GetItemFromName(L"A"), tree["a"]);
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["t"], STI_ROOT, STI_LAST);
  EXPECT_EQ(tree.GetItemFromName(L"RACCOURCI VERS T"), shortcut);
}

TEST(GetItemFromName, TakesTheRootByPointerAndNoLabelIsFoundByAnEmptyName) {
  TestTree tree;
  tree.Add("");
  CVornTreeItem* const x = tree.Add("x");
  EXPECT_EQ(tree.GetItemFromName(L"x", tree.GetRootItem()), x);
  EXPECT_EQ(tree.GetItemFromName(L"", tree.GetRootItem()), nullptr);
  EXPECT_EQ(tree.GetItemFromName(L"x", STI_LAST), x) << "any other pointer means the documents";
}

TEST(GetItemFromFullPathName, DropsTheDataOfSegmentsBeforeTheLast) {
  TestTree tree;
  CVornTreeItem* const doc = tree.InsertItem(L"Doc", -1, -1, STI_ROOT, STI_LAST, 7);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"Doc", 7), doc);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"Doc", 8), nullptr);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"Doc\\", 8), doc);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"\\Doc", 7), doc);
}

TEST(GetItemFromFullPathName, CannotNameALabelWithABackslash) {
  TestTree tree;
  CVornTreeItem* const odd = tree.InsertItem(L"a\\b", -1, -1);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"a\\b"), nullptr);
  CString text;
  EXPECT_EQ(tree.GetItemFullText(odd, text), 1);
  EXPECT_STREQ(text, L"\\a\\b") << "as stored";
}

TEST(GetItemFullText, LeavesTheEncodedSequenceInPlace) {
  VornTreeSetEncodedSequence(L"%5C");
  TestTree tree;
  CVornTreeItem* const item = tree.InsertItem(L"a%5Cb", -1, -1, tree.Add("Doc"));
  CString text;
  EXPECT_EQ(tree.GetItemFullText(item, text), 1);
  EXPECT_STREQ(text, L"\\Doc\\a%5Cb");
  EXPECT_EQ(tree.GetItemFromFullPathName(text), item);
  VornTreeSetEncodedSequence(L"");
}

TEST(GetItemFullText, OfTheRootIsEmpty) {
  TestTree tree;
  CString text = L"before";
  EXPECT_EQ(tree.GetItemFullText(tree.GetRootItem(), text), 0);
  EXPECT_STREQ(text, L"");
  text = L"before";
  EXPECT_EQ(tree.GetItemFullText(nullptr, text), 0);
  EXPECT_STREQ(text, L"before");
}

TEST(GetItemFullText, OfAnUnlabelledItemIsEmpty) {
  TestTree tree;
  CString text = L"before";
  EXPECT_EQ(tree.GetItemFullText(tree.Add("", tree.Add("Doc")), text), 0);
  EXPECT_STREQ(text, L"");
}

TEST(GetItemFromItemData, FindsTheFirstOfEqualAndTakesTheRootByAnyName) {
  TestTree tree;
  CVornTreeItem* const first = tree.InsertItem(L"a", -1, -1, STI_ROOT, STI_LAST, 5);
  tree.InsertItem(L"b", -1, -1, STI_ROOT, STI_LAST, 5);
  CVornTreeItem* const wide = tree.InsertItem(L"c", -1, -1, STI_ROOT, STI_LAST, 0x500000005ULL);
  for (CVornTreeItem* parent :
       {STI_ROOT, STI_FIRST, tree.GetRootItem(), static_cast<CVornTreeItem*>(nullptr)}) {
    EXPECT_EQ(tree.GetItemFromItemData(5, parent), first);
    EXPECT_EQ(tree.GetItemFromItemData(0x500000005ULL, parent), wide) << "all 64 bits count";
  }
  EXPECT_EQ(tree.GetItemFromItemData(5, first), nullptr);
}

TEST(GetItemFromItemDatas, EndsWhereChildrenOrBrothersRunOut) {
  TestTree tree;
  CVornTreeItem* const a = tree.InsertItem(L"a", -1, -1, STI_ROOT, STI_LAST, 1);
  CVornTreeItem* const b = tree.InsertItem(L"b", -1, -1, a, STI_LAST, 2);
  unsigned __int64 path[] = {1, 2, 3};
  EXPECT_EQ(tree.GetItemFromItemDatas(path, 2), b);
  EXPECT_EQ(tree.GetItemFromItemDatas(path, 3), nullptr);
  path[0] = 9;
  EXPECT_EQ(tree.GetItemFromItemDatas(path, 1), nullptr);
  EXPECT_EQ(tree.GetItemFromItemDatas(path, -1), nullptr);
  unsigned __int64 zero = 0;
  CVornTreeItem* const none = tree.InsertItem(L"c", -1, -1, STI_ROOT, STI_LAST, 0);
  EXPECT_EQ(tree.GetItemFromItemDatas(&zero, 1), none) << "no data is data here";
}

TEST(GetItemPosition, OfWhatHasNoParentIsZero) {
  TestTree tree;
  tree.Build("root [a b]");
  CVornTreeItem* const b = tree["b"];
  STSORTCB sort{tree.GetRootItem(), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
  tree.SortChildren(&sort);
  EXPECT_EQ(tree.GetItemPosition(b), 0);
}

TEST(IsExist, OfADocumentTakesTheRootByPointer) {
  TestTree tree;
  tree.Build("root [a [b] c]");
  EXPECT_TRUE(tree.IsExist(tree["a"], tree.GetRootItem()));
  EXPECT_FALSE(tree.IsExist(tree["b"], tree.GetRootItem()));
  EXPECT_TRUE(tree.IsExist(tree["b"], STI_ROOT)) << "which asks for no parent at all";
  EXPECT_FALSE(tree.IsExist(tree["b"], STI_FIRST));
  CVornTreeItem* const dead = tree["c"];
  tree.DeleteItem(dead);
  tree.log.Clear();
  EXPECT_FALSE(tree.IsExist(dead, nullptr));
  EXPECT_FALSE(tree.IsExist(tree["b"], dead));
}

TEST(ItemHasChildren, CountsAnnouncedOnesAndRefusesTheSentinel) {
  TestTree tree;
  tree.Build("root [a [b] c# d]");
  EXPECT_EQ(tree.ItemHasChildren(tree["a"]), 1);
  EXPECT_EQ(tree.ItemHasChildren(tree["c"]), 1);
  EXPECT_EQ(tree.ItemHasChildren(tree["d"]), 0);
  EXPECT_EQ(tree.ItemHasChildren(tree.GetRootItem()), 1);
  EXPECT_EQ(tree.ItemHasChildren(STI_ROOT), 0);
}

}  // namespace
