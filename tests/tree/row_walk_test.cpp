// The walk of the rows step by step, in scenes where hidden, folded and foreign items lie in the way.
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

// --- Forward ---------------------------------------------------------------------------------------

TEST(FirstRow, IsTheFirstDocumentThatIsNotHidden) {
  TestTree tree;
  tree.Build("root [a! b! c]");
  EXPECT_EQ(tree.GetFirstVisibleItem(), tree["c"]);
  tree.SetItemVisibility(tree["c"], 0);
  EXPECT_EQ(tree.GetFirstVisibleItem(), nullptr);
}

TEST(FirstRow, IsNullBelowARootThatIsFolded) {
  TestTree tree;
  tree.Build("root [a b]");
  EXPECT_EQ(tree.Expand(STI_ROOT, STE_COLLAPSE), 1);
  EXPECT_EQ(tree.GetFirstVisibleItem(), nullptr) << "the count decides";
  EXPECT_EQ(tree.GetVisibleCount(), 0);
  EXPECT_EQ(tree.Expand(tree.GetRootItem(), STE_EXPAND), 1);
  EXPECT_EQ(tree.Rows(), "a b");
  tree.log.Clear();
}

TEST(NextRow, SkipsHiddenChildrenAndSiblings) {
  TestTree tree;
  tree.Build("root [a+ [x! y z!] b! c]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"]), tree["y"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["y"]), tree["c"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["c"]), nullptr);
}

TEST(NextRow, OfAnExpandedItemWhoseChildrenAreAllHiddenIsItsSibling) {
  TestTree tree;
  tree.Build("root [a+ [x! y!] b]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"]), tree["b"]);
}

TEST(NextRow, ClimbsOverSeveralLevels) {
  TestTree tree;
  tree.Build("root [a+ [b+ [c+ [d]] e!] f]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["d"]), tree["f"]);
}

TEST(NextRow, OfTheRootIsTheFirstRow) {
  TestTree tree;
  tree.Build("root [a b]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree.GetRootItem()), tree["a"]);
  EXPECT_EQ(tree.GetNextVisibleItem(STI_ROOT), nullptr) << "the sentinel is not understood here";
}

TEST(NextRow, OfAHiddenItemGoesIntoItsChildren) {
  TestTree tree;
  tree.Build("root [a+! [x] b]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"]), tree["x"]) << "only what is met on the way is left out";
}

TEST(ProtectedWalk, StopsWithoutAStopParentAtTheTopLevel) {
  TestTree tree;
  tree.Build("root [a+ [x]]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["x"], 1, nullptr), nullptr);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"], 0, nullptr), nullptr);
  EXPECT_EQ(tree.GetNextVisibleItem(nullptr, 1, nullptr), nullptr);
}

TEST(ProtectedWalk, StaysInTheSubtreeOfWhatHasOpened) {
  TestTree tree;
  tree.Build("root [a+ [x y] b]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"], 1, tree["a"]), tree["x"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["x"], 1, tree["a"]), tree["y"]);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["y"], 1, tree["a"]), nullptr);
}

TEST(ProtectedWalk, GoesDownOnlyWhereThereAreRows) {
  TestTree tree;
  tree.Build("root [a b [x] c+ [y! z!] d]");
  EXPECT_EQ(tree.GetNextVisibleItem(tree["a"], 1, nullptr), tree["b"]) << "a leaf";
  EXPECT_EQ(tree.GetNextVisibleItem(tree["b"], 1, nullptr), tree["c"]) << "folded";
  EXPECT_EQ(tree.GetNextVisibleItem(tree["c"], 1, nullptr), tree["d"]) << "all hidden";
}

TEST(ProtectedWalk, StopsAtTheActiveDocument) {
  TestTree tree;
  tree.Build("root [d1+ [a+ [x]] d2]");
  tree.SelectItem(tree["x"]);
  tree.SetDocumentDisplay(1);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["x"], 1, tree["d2"]), nullptr);
  EXPECT_EQ(tree.GetNextVisibleItem(tree["d1"], 0, nullptr), tree["d2"]) << "its siblings are met before";
  tree.log.Clear();
}

// --- Backward --------------------------------------------------------------------------------------

TEST(LastRow, OfAnItemIsTheLastOfItsSubtree) {
  TestTree tree;
  tree.Build("root [a+ [b+ [c] d] e [f]]");
  EXPECT_EQ(tree.GetLastVisibleItem(tree["a"]), tree["d"]);
  EXPECT_EQ(tree.GetLastVisibleItem(tree["b"]), tree["c"]);
  EXPECT_EQ(tree.GetLastVisibleItem(tree["e"]), tree["e"]) << "folded";
  EXPECT_EQ(tree.GetLastVisibleItem(tree["f"]), tree["f"]) << "a leaf";
  EXPECT_EQ(tree.GetLastVisibleItem(tree.GetRootItem()), tree["e"]);
}

TEST(LastRow, BehindHiddenChildrenIsTheRowBefore) {
  TestTree tree;
  tree.Build("root [a+ [b+ [c d!] e!]]");
  EXPECT_EQ(tree.GetLastVisibleItem(tree["a"]), tree["c"]);
  EXPECT_EQ(tree.GetLastVisibleItem(tree["e"]), tree["c"]) << "of a hidden leaf";
  EXPECT_EQ(tree.GetLastVisibleItem(tree["d"]), tree["c"]);
}

TEST(LastRow, OfAnItemWithHiddenChildrenOnlyIsTheItem) {
  TestTree tree;
  tree.Build("root [a+ [b! c!]]");
  EXPECT_EQ(tree.GetLastVisibleItem(tree["a"]), tree["a"]);
}

TEST(LastRow, OfTheRootOfAnEmptyTreeIsTheRootItself) {
  TestTree tree;
  EXPECT_EQ(tree.GetLastVisibleItem(tree.GetRootItem()), tree.GetRootItem());
}

TEST(PreviousRow, IsTheLastOfTheSiblingsSubtreeOrTheParent) {
  TestTree tree;
  tree.Build("root [a+ [b+ [c]] d]");
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["d"]), tree["c"]);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["c"]), tree["b"]);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["b"]), tree["a"]);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["a"]), nullptr) << "above it is the root";
  EXPECT_EQ(tree.GetPrevVisibleItem(tree.GetRootItem()), nullptr);
}

TEST(PreviousRow, PassesSeveralHiddenSiblings) {
  TestTree tree;
  tree.Build("root [a b! c! d p+ [x! y! z]]");
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["d"]), tree["a"]);
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["z"]), tree["p"]);
}

TEST(PreviousRow, TheParentIsNotAskedWhetherItIsHidden) {
  TestTree tree;
  tree.Build("root [a b+! [x]]");
  EXPECT_EQ(tree.GetPrevVisibleItem(tree["x"]), tree["b"]);
}

// --- Counts ----------------------------------------------------------------------------------------

TEST(RowCounts, OfASubtreeAreThoseOfItsExpandedPart) {
  TestTree tree;
  tree.Build("root [a+ [b [c d] e! f] g [h]]");
  EXPECT_EQ(tree.GetVisibleChildCount(tree["a"]), 2u);
  EXPECT_EQ(tree.GetVisibleChildCount(tree["b"]), 0u);
  EXPECT_EQ(tree.GetVisibleChildCount(tree["g"]), 0u);
  EXPECT_EQ(tree.GetVisibleChildCount(tree.GetRootItem()), 4u);
  EXPECT_EQ(tree.GetVisibleCount(), 4);
}

TEST(HidingCounts, BelowAFoldedParentOnlyItsHiddenItems) {
  TestTree tree;
  tree.Build("root [a [b+ [c]]]");
  tree.SetItemVisibility(tree["b"], 0);
  EXPECT_EQ(tree["a"]->m_nHiddenDescendants, 1);
  EXPECT_EQ(tree["a"]->m_nVisibleDescendants, 0);
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  tree.SetItemVisibility(tree["b"], 1);
  EXPECT_EQ(tree["a"]->m_nHiddenDescendants, 0);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(HidingCounts, BelowAHiddenParentInThatOnly) {
  TestTree tree;
  tree.Build("root [a+! [b+ [c] d]]");
  ASSERT_EQ(tree["a"]->m_nVisibleDescendants, 3);
  tree.SetItemVisibility(tree["b"], 0);
  EXPECT_EQ(tree["a"]->m_nVisibleDescendants, 1);
  EXPECT_EQ(tree.GetVisibleCount(), 0);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(HidingCounts, UpToTheFirstAncestorThatIsFoldedOrHidden) {
  TestTree tree;
  tree.Build("root [a+ [b! [x]] c+ [d [e+ [f]]]]");
  tree.Expand(tree["b"], STE_EXPAND);
  tree.SetItemVisibility(tree["x"], 0);
  EXPECT_EQ(tree["b"]->m_nVisibleDescendants, 0);
  EXPECT_EQ(tree["a"]->m_nVisibleDescendants, 0);
  tree.SetItemVisibility(tree["f"], 0);
  EXPECT_EQ(tree["e"]->m_nVisibleDescendants, 0);
  EXPECT_EQ(tree["d"]->m_nVisibleDescendants, 0) << "folded: counts nothing";
  EXPECT_EQ(tree["c"]->m_nVisibleDescendants, 1);
  EXPECT_EQ(tree.GetVisibleCount(), 3);
  EXPECT_EQ(CheckTree(tree), "");
  tree.log.Clear();
}

TEST(HidingCounts, OfTheRootChangeNothingElse) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.SetItemVisibility(tree.GetRootItem(), 0), 1);
  EXPECT_EQ(tree.GetItemVisibility(tree.GetRootItem()), 0);
  EXPECT_EQ(tree.GetVisibleCount(), 1);
  EXPECT_EQ(tree.SetItemVisibility(tree.GetRootItem(), 1), 0);
}

// --- Visibility asked ------------------------------------------------------------------------------

TEST(ItemIsVisible, IsZeroForTheRootAndFollowsTheWishOfALockedItem) {
  TestTree tree;
  tree.Build("root [a b!]");
  EXPECT_EQ(tree.ItemIsVisible(tree.GetRootItem()), 0);
  EXPECT_EQ(tree.GetItemVisibility(tree.GetRootItem()), 1);
  EXPECT_EQ(tree.ItemIsVisible(tree["a"]), 1);
  EXPECT_EQ(tree.ItemIsVisible(tree["b"]), 0);
  tree.LockItemVisibility(tree["a"], 1);
  tree.SetItemVisibility(tree["a"], 0);
  EXPECT_EQ(tree.ItemIsVisible(tree["a"]), 0);
  EXPECT_EQ(tree.GetItemVisibility(tree["a"]), 0);
  EXPECT_EQ(tree.Rows(), "a") << "it still draws";
}

TEST(ItemIsVisible, DoesNotLookAtTheAncestors) {
  TestTree tree;
  tree.Build("root [a! [b]]");
  EXPECT_EQ(tree.ItemIsVisible(tree["b"]), 1);
}

TEST(SetItemVisibility, GivesBackWhatItWasGivenWhenThereIsNothingToDo) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 7), 7);
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 0), 1);
  EXPECT_EQ(tree.SetItemVisibility(tree["a"], 7), 0);
  EXPECT_EQ(tree.Rows(), "a");
}

// --- Locks -----------------------------------------------------------------------------------------

struct LockCase {
  const char* scene;  // of the item a
  int locked;         // locked first, with this; -1: not
  int wish;           // then told this; -1: nothing
  int lock;           // then locked with this
  int wasLocked;
  bool hidden;  // afterwards
  int kept;     // what unlocking comes back to
};

TEST(LockItemVisibility, InEveryState) {
  const LockCase cases[] = {
      {"a", -1, -1, 1, 0, false, 1}, {"a", -1, -1, 0, 0, true, 1},  {"a!", -1, -1, 1, 0, true, 0},
      {"a!", -1, -1, 0, 0, true, 0}, {"a", 1, -1, 1, 1, false, 1},  {"a", 1, -1, 0, 1, true, 1},
      {"a", 1, 0, 0, 1, false, 0},   {"a!", 0, -1, 1, 1, false, 0}, {"a!", 0, 1, 0, 1, true, 1},
      {"a!", 0, 1, 1, 1, true, 1},
  };
  for (const LockCase& each : cases) {
    SCOPED_TRACE(testing::Message() << each.scene << " " << each.locked << " " << each.wish << " "
                                    << each.lock);
    TestTree tree;
    tree.Build("root [" + std::string(each.scene) + "]");
    CVornTreeItem* const a = tree["a"];
    if (each.locked >= 0) {
      EXPECT_EQ(tree.LockItemVisibility(a, each.locked), 0);
    }
    if (each.wish >= 0) tree.SetItemVisibility(a, each.wish);
    EXPECT_EQ(tree.LockItemVisibility(a, each.lock), each.wasLocked);
    EXPECT_EQ(tree.ItemIsLockedVisibility(a), 1);
    EXPECT_EQ(a->IsHidden(), each.hidden);
    EXPECT_EQ(tree.GetItemVisibility(a), each.kept);
    EXPECT_EQ(tree.UnlockItemVisibility(a), 1);
    EXPECT_EQ(tree.ItemIsLockedVisibility(a), 0);
    EXPECT_EQ(a->IsHidden(), each.kept == 0);
  }
}

TEST(LockItemVisibility, AgainstTheWishOfAnItemThatShowsCountsItTwice) {
  TestTree tree;
  tree.Build("root [a b]");
  tree.LockItemVisibility(tree["a"], 1);
  tree.SetItemVisibility(tree["a"], 0);
  EXPECT_EQ(tree.LockItemVisibility(tree["a"], 1), 1);
  EXPECT_EQ(tree.GetVisibleCount(), 3) << "meant: it is shown once more";
  EXPECT_EQ(tree.Rows(), "a b");
}

TEST(UnlockItemVisibility, ReplaysTheLastWish) {
  TestTree tree;
  tree.Build("root [a+ [x] b!]");
  tree.LockItemVisibility(tree["a"], 1);
  tree.LockItemVisibility(tree["b"], 1);
  tree.SetItemVisibility(tree["a"], 0);
  EXPECT_EQ(tree.SetItemVisibility(tree["b"], 1), 0) << "hidden before, by the flag";
  EXPECT_EQ(tree.Rows(), "a x");
  EXPECT_EQ(tree.GetVisibleCount(), 2) << "a wish counts nothing";
  EXPECT_EQ(tree.UnlockItemVisibility(tree["a"]), 1);
  EXPECT_EQ(tree.UnlockItemVisibility(tree["b"]), 1);
  EXPECT_EQ(tree.Rows(), "b");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST(ItemIsLockedVisibility, IsZeroForWhatIsNoItem) {
  TestTree tree;
  EXPECT_EQ(tree.ItemIsLockedVisibility(nullptr), 0);
  EXPECT_EQ(tree.ItemIsLockedVisibility(STI_ROOT), 0);
}

TEST(GetHiddenItems, OfATreeWithoutAnyAddsNothing) {
  TestTree tree;
  tree.Build("root [a [b]]");
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetHiddenItems(items), 0);
  EXPECT_EQ(items.GetSize(), 0);
}

TEST(GetHiddenItems, ListsTheParentAloneOfAHiddenPair) {
  TestTree tree;
  tree.Build("root [a+ [b! [c!]]]");
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetHiddenItems(items), 0);
  ASSERT_EQ(items.GetSize(), 1);
  EXPECT_EQ(items[0], tree["b"]);
}

}  // namespace
