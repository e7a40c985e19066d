// Linking and unlinking of items, and the counts that every ancestor keeps.
#include "items.h"

namespace {

using items::Grove;

class ItemLinks : public Grove {
 protected:
  // A loose item that claims seven items below it, three of them rows and two hidden.
  CVornTreeItem* Loaded(unsigned state = 0) {
    CVornTreeItem* const item = new CVornTreeItem(nullptr);
    item->m_nState = state;
    item->m_nDescendants = 7;
    item->m_nVisibleDescendants = 3;
    item->m_nHiddenDescendants = 2;
    return item;
  }
  // Two levels below the root, with these states.
  void Stem(unsigned upperState, unsigned lowerState) {
    upper = Add(root);
    lower = Add(upper);
    upper->m_nState = upperState;
    lower->m_nState = lowerState;
    for (CVornTreeItem* item : {root, upper, lower}) Zero(item);
  }
  static void Zero(CVornTreeItem* item) {
    item->m_nDescendants = 0;
    item->m_nVisibleDescendants = item->m_nHiddenDescendants = 0;
  }
  std::string AllCounts() const { return Counts(lower) + ", " + Counts(upper) + ", " + Counts(root); }

  CVornTreeItem* upper = nullptr;
  CVornTreeItem* lower = nullptr;
};

// --- Places ----------------------------------------------------------------------------------------

TEST_F(ItemLinks, InsertAfterPutsFirstBehindOrLast) {
  const auto make = [](const wchar_t* text) {
    CVornTreeItem* const item = new CVornTreeItem(nullptr);
    item->SetText(text);
    return item;
  };
  CVornTreeItem* const b = make(L"b");
  root->InsertAfter(b, nullptr);
  root->InsertAfter(make(L"a"), STI_FIRST);
  CVornTreeItem* const d = make(L"d");
  root->InsertAfter(d, nullptr);
  root->InsertAfter(make(L"c"), b);
  root->InsertAfter(make(L"e"), d);
  EXPECT_EQ(Children(root), L"abcde");
  root->InsertFirst(make(L"0"), nullptr);
  root->InsertFirst(make(L"1"), root->m_pFirstChild);
  root->InsertFirst(make(L"x"), d);
  EXPECT_EQ(Children(root), L"10abcxde");
  EXPECT_EQ(root->m_nDescendants, 8u);
}

TEST_F(ItemLinks, TheFirstOfNoneIgnoresItsPlace) {
  CVornTreeItem* const a = Add(root, L"a");
  CVornTreeItem* const b = new CVornTreeItem(nullptr);
  b->SetText(L"b");
  a->InsertAfter(b, root);
  EXPECT_EQ(Children(a), L"b");
}

TEST_F(ItemLinks, AnnouncedChildrenAreThereWithTheFirst) {
  root->ModifyState(0, STIS_HASCHILDREN);
  Add(root);
  EXPECT_FALSE(root->HasState(STIS_HASCHILDREN));
}

// --- Levels ----------------------------------------------------------------------------------------

TEST_F(ItemLinks, AMovedSubtreeIsRenumbered) {
  CVornTreeItem* const a = Add(root);
  CVornTreeItem* const b = Add(a);
  CVornTreeItem* const c = Add(b);
  EXPECT_EQ(c->m_nLevel, 3);
  b->Detach(false);
  EXPECT_EQ(b->m_nLevel, 2) << "unlinking leaves the level";
  root->InsertAfter(b, nullptr);
  EXPECT_EQ(b->m_nLevel, 1);
  EXPECT_EQ(c->m_nLevel, 2);
}

TEST_F(ItemLinks, AFirstLinkNumbersTheItemAlone) {
  CVornTreeItem* const item = new CVornTreeItem(nullptr);
  CVornTreeItem* const below = Add(item);
  EXPECT_EQ(below->m_nLevel, 0);
  root->InsertAfter(item, nullptr);
  EXPECT_EQ(item->m_nLevel, 1);
  EXPECT_EQ(below->m_nLevel, 0) << "meant: only a change of level reaches the subtree";
}

// --- Counts on linking -----------------------------------------------------------------------------

TEST_F(ItemLinks, LinkingCountsThroughOpenParents) {
  Stem(STIS_EXPANDED, STIS_EXPANDED);
  lower->InsertAfter(Loaded(), nullptr);
  EXPECT_EQ(AllCounts(), "8 4 2, 8 4 2, 8 4 2");
}

TEST_F(ItemLinks, LinkingAHiddenItemCountsItAmongTheHidden) {
  Stem(STIS_EXPANDED, STIS_EXPANDED);
  lower->InsertAfter(Loaded(STIS_HIDDEN), nullptr);
  EXPECT_EQ(AllCounts(), "8 0 3, 8 0 3, 8 0 3");
}

TEST_F(ItemLinks, LinkingUnderAClosedParentCountsDescendantsOnly) {
  Stem(STIS_EXPANDED, 0);
  lower->InsertAfter(Loaded(), nullptr);
  EXPECT_EQ(AllCounts(), "8 0 0, 8 0 0, 8 0 0");
}

TEST_F(ItemLinks, LinkingUnderAHiddenParentCountsNoRowsAbove) {
  Stem(STIS_EXPANDED, STIS_EXPANDED | STIS_HIDDEN);
  lower->InsertAfter(Loaded(), nullptr);
  EXPECT_EQ(AllCounts(), "8 4 2, 8 0 2, 8 0 2") << "the hidden ones count on, meant";
}

TEST_F(ItemLinks, LinkingStopsAtAClosedAncestor) {
  Stem(0, STIS_EXPANDED);
  lower->InsertAfter(Loaded(), nullptr);
  EXPECT_EQ(AllCounts(), "8 4 2, 8 0 0, 8 0 0");
}

TEST_F(ItemLinks, LinkingStopsAboveAHiddenAncestor) {
  Stem(STIS_EXPANDED | STIS_HIDDEN, STIS_EXPANDED);
  lower->InsertAfter(Loaded(), nullptr);
  EXPECT_EQ(AllCounts(), "8 4 2, 8 4 2, 8 0 0");
}

TEST_F(ItemLinks, InsertFirstCountsTheSame) {
  Stem(STIS_EXPANDED, STIS_EXPANDED);
  lower->InsertFirst(Loaded(STIS_EXPANDED), nullptr);
  EXPECT_EQ(AllCounts(), "8 4 2, 8 4 2, 8 4 2");
}

// --- Counts on unlinking ---------------------------------------------------------------------------

class ItemUnlinking : public ItemLinks {
 protected:
  // What is left of the counts when an item with this state goes.
  std::string After(unsigned upperState, unsigned lowerState, unsigned itemState) {
    Stem(upperState, lowerState);
    CVornTreeItem* const item = Loaded();
    lower->InsertAfter(item, nullptr);
    item->m_nState = itemState;
    for (CVornTreeItem* each : {root, upper, lower}) {
      each->m_nDescendants = 100;
      each->m_nVisibleDescendants = each->m_nHiddenDescendants = 50;
    }
    item->Detach(false);
    EXPECT_EQ(item->m_pParent, nullptr);
    delete item;
    return AllCounts();
  }
};

TEST_F(ItemUnlinking, AnOpenItemTakesItsRowsAlong) {
  EXPECT_EQ(After(STIS_EXPANDED, STIS_EXPANDED, STIS_EXPANDED), "92 46 48, 92 46 48, 92 46 48");
}

TEST_F(ItemUnlinking, AClosedItemIsOneRow) {
  EXPECT_EQ(After(STIS_EXPANDED, STIS_EXPANDED, 0), "92 49 48, 92 49 48, 92 49 48");
}

TEST_F(ItemUnlinking, AHiddenItemTakesItsRowsFromTheHidden) {
  EXPECT_EQ(After(STIS_EXPANDED, STIS_EXPANDED, STIS_HIDDEN | STIS_EXPANDED), "92 50 44, 92 50 44, 92 50 44");
}

TEST_F(ItemUnlinking, NothingButDescendantsAboveAClosedParent) {
  EXPECT_EQ(After(STIS_EXPANDED, 0, STIS_EXPANDED), "92 50 50, 92 50 50, 92 50 50");
}

TEST_F(ItemUnlinking, NothingButDescendantsAboveAHiddenParent) {
  EXPECT_EQ(After(STIS_EXPANDED, STIS_EXPANDED | STIS_HIDDEN, STIS_EXPANDED), "92 46 48, 92 50 50, 92 50 50");
}

// --- Detach ----------------------------------------------------------------------------------------

TEST_F(ItemLinks, AFreeLeafStaysAsItIs) {
  CVornTreeCtrl tree;
  CVornTreeItem* const leaf = new CVornTreeItem(&tree);
  leaf->m_nLabelOffset = 7;
  leaf->Detach(true);
  EXPECT_EQ(leaf->m_nLabelOffset, 7);
  EXPECT_EQ(leaf->m_pTree, &tree);
  delete leaf;
}

TEST_F(ItemLinks, DetachingKeepsTheSubtreeAndTheControl) {
  CVornTreeItem* const a = Add(root, L"a");
  CVornTreeItem* const b = Add(root, L"b");
  CVornTreeItem* const c = Add(root, L"c");
  Add(b, L"x");
  b->m_nLabelOffset = 7;
  b->Detach(false);
  EXPECT_EQ(Children(root), L"ac");
  EXPECT_EQ(Children(b), L"x");
  EXPECT_EQ(b->m_nLabelOffset, 0);
  EXPECT_EQ(b->m_pPrevSibling, nullptr);
  EXPECT_EQ(b->m_pNextSibling, nullptr);
  a->InsertAfter(b, nullptr);
  EXPECT_EQ(Children(a), L"b");
  c->Detach(false);
  a->Detach(false);
  EXPECT_EQ(Children(root), L"");
  root->InsertAfter(a, nullptr);
  root->InsertAfter(c, STI_FIRST);
}

TEST_F(ItemLinks, DestructionTakesTheSubtreeAndTheControlAway) {
  CVornTreeCtrl tree;
  CVornTreeItem* const item = new CVornTreeItem(&tree);
  CVornTreeItem* const child = Add(item);
  CVornTreeItem* const below = Add(child);
  item->Detach(true);
  EXPECT_EQ(item->m_pTree, nullptr);
  EXPECT_EQ(item->m_pFirstChild, nullptr);
  EXPECT_EQ(item->m_pLastChild, nullptr);
  EXPECT_FALSE(IsItemValid(child));
  EXPECT_FALSE(IsItemValid(below));
  EXPECT_TRUE(IsItemValid(item));
  delete item;
}

TEST_F(ItemLinks, DestroyingChildrenClearsTheLinksOfTheItem) {
  CVornTreeItem* const item = Add(root);
  CVornTreeItem* const child = Add(item);
  item->m_nLabelOffset = 7;
  const int level = item->m_nLevel;
  item->Detach(false);
  item->DestroyChildren();
  EXPECT_FALSE(IsItemValid(child));
  EXPECT_EQ(item->m_pFirstChild, nullptr);
  EXPECT_EQ(item->m_pLastChild, nullptr);
  EXPECT_EQ(item->m_nLabelOffset, 0);
  EXPECT_EQ(item->m_nLevel, level);
  delete item;
}

TEST_F(ItemLinks, DeletingALinkedItemUnlinksIt) {
  CVornTreeItem* const a = Add(root, L"a");
  Add(root, L"b");
  Add(a);
  delete a;
  EXPECT_EQ(Children(root), L"b");
  EXPECT_EQ(root->m_nDescendants, 1u);
}

}  // namespace
