// The list of shortcuts that an item keeps, and which of them go with it.
#include <vector>

#include "items.h"

namespace {

using items::Grove;

class ItemShortcuts : public Grove {
 protected:
  ItemShortcuts() : target(Add(root, L"target")) {}

  // A shortcut as it stands in the tree, without its look.
  CVornTreeItem* Shortcut(const wchar_t* text = L"") {
    CVornTreeItem* const item = Add(root, text);
    item->m_nState |= STIS_SHORTCUT;
    item->m_pShortcutTarget = target;
    EXPECT_EQ(target->AddShortcut(item), 1);
    return item;
  }
  // Deletes the target; what is left beside it.
  std::wstring Left() {
    delete target;
    return Children(root);
  }

  CVornTreeItem* const target;
};

TEST_F(ItemShortcuts, AnItemWithoutThemHasNone) {
  EXPECT_EQ(target->GetShortcutCount(), 0);
  EXPECT_EQ(target->m_Shortcuts.Array(), nullptr) << "and no storage for them";
  EXPECT_EQ(target->GetShortcutTarget(), nullptr);
}

TEST_F(ItemShortcuts, NoneIsMadeWithoutAControl) { EXPECT_EQ(target->CreateShortcut(), nullptr); }

TEST_F(ItemShortcuts, AddingNeedsAShortcutWithALivingTarget) {
  EXPECT_EQ(target->AddShortcut(nullptr), 0);
  CVornTreeItem* const plain = Add(root);
  EXPECT_EQ(target->AddShortcut(plain), 0);
  EXPECT_EQ(target->GetShortcutCount(), 0);
  CVornTreeItem* const other = Add(root);
  CVornTreeItem* const shortcut = Shortcut();
  EXPECT_EQ(other->AddShortcut(shortcut), 1);
  EXPECT_EQ(shortcut->GetShortcutTarget(), other) << "it points here now";
  EXPECT_EQ(target->GetShortcutCount(), 1);
  delete other;
}

TEST_F(ItemShortcuts, RemovingNeedsAShortcutThatIsListed) {
  EXPECT_EQ(target->RemoveShortcut(nullptr), 0);
  CVornTreeItem* const plain = Add(root);
  EXPECT_EQ(target->RemoveShortcut(plain), 0);
  CVornTreeItem* const shortcut = Shortcut();
  EXPECT_EQ(plain->RemoveShortcut(shortcut), 0) << "listed elsewhere";
  EXPECT_EQ(target->RemoveShortcut(shortcut), 1);
  EXPECT_EQ(target->GetShortcutCount(), 0);
  EXPECT_EQ(target->RemoveShortcut(shortcut), 0);
}

TEST_F(ItemShortcuts, OneWhoseTargetIsGoneIsOrdinaryWhenAsked) {
  CVornTreeItem* const shortcut = Add(root);
  CVornTreeItem* const gone = Add(root);
  shortcut->m_nState |= STIS_SHORTCUT | STIS_NODROP;
  shortcut->m_pShortcutTarget = gone;
  delete gone;
  EXPECT_TRUE(shortcut->HasState(STIS_SHORTCUT)) << "nobody asked yet";
  EXPECT_EQ(shortcut->GetShortcutTarget(), nullptr);
  EXPECT_EQ(shortcut->GetState(), unsigned{STIS_NODROP});
  EXPECT_EQ(shortcut->m_pShortcutTarget, nullptr);
}

TEST_F(ItemShortcuts, EveryOtherOneOutlivesTheTargetButNotTheLast) {
  for (const wchar_t* text : {L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8"}) Shortcut(text);
  EXPECT_EQ(Left(), L"246");
}

// A leaf that is not linked goes without leaving the list of its target.
TEST_F(ItemShortcuts, DeadEntriesAreStepsOfTheWalkAndMoveNothing) {
  CVornTreeItem* const a = Shortcut(L"a");
  Shortcut(L"b");
  Shortcut(L"c");
  Shortcut(L"d");
  a->Detach(false);
  delete a;
  ASSERT_EQ(target->GetShortcutCount(), 4);
  EXPECT_EQ(Left(), L"c") << "b goes, c takes its place unseen, and the walk ends on d";
}

TEST_F(ItemShortcuts, ADeadLastEntryEndsTheWalk) {
  Shortcut(L"a");
  Shortcut(L"b");
  CVornTreeItem* const c = Shortcut(L"c");
  c->Detach(false);
  delete c;
  EXPECT_EQ(Left(), L"b");
}

TEST_F(ItemShortcuts, WhatTheHostPutsIntoTheListGoesToo) {
  CVornTreeItem* ordinary = Add(root, L"o");
  Shortcut(L"a");
  Shortcut(L"b");
  target->m_Shortcuts.Add(ordinary, nullptr);
  EXPECT_EQ(Left(), L"b");
}

TEST_F(ItemShortcuts, TheRootIsNoShortcutEvenWhenItIsListed) {
  Shortcut(L"a");
  CVornTreeItem* above = root;
  target->m_Shortcuts.Add(above, nullptr);
  EXPECT_EQ(Left(), L"");
  EXPECT_TRUE(IsItemValid(root));
}

TEST_F(ItemShortcuts, TheTargetInItsOwnListGoesOnce) {
  CVornTreeItem* self = target;
  Shortcut(L"a");
  target->m_Shortcuts.Add(self, nullptr);
  EXPECT_EQ(Left(), L"");
}

TEST_F(ItemShortcuts, ASubtreeOfShortcutsOfEachOthersTargetsGoes) {
  CVornTreeItem* const first = Shortcut(L"a");
  CVornTreeItem* const second = Shortcut(L"b");
  CVornTreeItem* const below = Add(first, L"x");
  target->Detach(false);
  below->InsertAfter(target, nullptr);
  second->Detach(false);
  target->InsertAfter(second, nullptr);
  delete first;
  EXPECT_EQ(Children(root), L"");
  EXPECT_EQ(root->m_nDescendants, 0u);
}

}  // namespace
