// Copies of items, alone and with all below them.
#include "items.h"
#include "support/small_stack.h"

namespace {

using items::Grove;

class ItemCopy : public Grove {
 protected:
  ItemCopy() : source(new CVornTreeItem(&tree)), copy(new CVornTreeItem(&tree)) {
    source->SetText(L"label");
    source->m_nLevel = 3;
  }
  ~ItemCopy() override {
    delete copy;
    delete source;
  }
  CVornTreeItem* Below(CVornTreeItem* parent, const wchar_t* text) {
    CVornTreeItem* const item = new CVornTreeItem(&tree);
    item->SetText(text);
    parent->InsertAfter(item, nullptr);
    return item;
  }

  CVornTreeCtrl tree;
  CVornTreeItem* const source;
  CVornTreeItem* const copy;
};

TEST_F(ItemCopy, TakesLookAndStateButNotDataAndFont) {
  LOGFONTW logFont{};
  logFont.lfHeight = -12;
  CFont font;
  font.CreateFontIndirect(&logFont);
  source->SetFont(&font);
  source->SetTextColor(RGB(1, 2, 3));
  source->SetBkColor(RGB(4, 5, 6));
  source->SetImages(7, 8);
  source->SetStateImage(9);
  source->ModifyState(0, STIS_SELECTED | STIS_CHECKED | STIS_HIDDEN);
  source->SetCheckBox(true);
  source->SetData(99);
  source->m_nVisibleDescendants = 5;
  copy->SetData(77);
  copy->m_nLabelOffset = 4;
  copy->m_nHeight = 21;

  EXPECT_EQ(copy->Copy(source, false), 1);
  EXPECT_STREQ(copy->GetText(), L"label");
  EXPECT_EQ(copy->m_pTree, &tree);
  EXPECT_EQ(copy->m_nLevel, 3);
  EXPECT_EQ(copy->m_clrText, RGB(1, 2, 3));
  EXPECT_EQ(copy->m_clrBk, RGB(4, 5, 6));
  EXPECT_EQ(copy->m_nImage, 7);
  EXPECT_EQ(copy->m_nSelectedImage, 8);
  EXPECT_EQ(copy->m_nStateImage, 9);
  EXPECT_EQ(copy->m_nState, unsigned{STIS_SELECTED | STIS_CHECKED | STIS_HIDDEN});
  EXPECT_EQ(copy->m_nExtFlags, unsigned{STIX_CHECKBOX | STIX_HASIMAGE});
  EXPECT_EQ(copy->m_nData, 0u);
  EXPECT_EQ(copy->m_pFont, nullptr);
  EXPECT_EQ(Counts(copy), "0 0 0");
  EXPECT_EQ(copy->m_nLabelOffset, 0);
  EXPECT_EQ(copy->m_nHeight % 2, 0);
  EXPECT_TRUE(IsItemValid(copy));
}

TEST_F(ItemCopy, AloneHasNoChildren) {
  Below(source, L"x");
  EXPECT_EQ(copy->Copy(source, false), 1);
  EXPECT_EQ(Children(copy), L"");
  EXPECT_EQ(Children(source), L"x");
}

TEST_F(ItemCopy, OfASubtreeKeepsItsOrderAndCounts) {
  source->SetExpanded(true);
  CVornTreeItem* const a = Below(source, L"a");
  a->SetExpanded(true);
  Below(a, L"x");
  Below(a, L"y")->SetVisible(0);
  Below(source, L"b");
  EXPECT_EQ(copy->Copy(source, true), 1);
  EXPECT_EQ(Children(copy), L"ab");
  EXPECT_EQ(Children(copy->m_pFirstChild), L"xy");
  EXPECT_EQ(copy->m_pParent, nullptr);
  EXPECT_EQ(copy->m_nDescendants, 4u);
  EXPECT_EQ(copy->m_nVisibleDescendants, 3);
  EXPECT_EQ(copy->m_pFirstChild->m_nLevel, 4);
  EXPECT_EQ(copy->m_pFirstChild->m_pFirstChild->m_nLevel, 5);
}

TEST_F(ItemCopy, OfAShortcutIsMendedWhenAsked) {
  source->ModifyState(0, STIS_SHORTCUT);
  CVornTreeItem* const target = Add(root);
  source->m_pShortcutTarget = target;
  copy->Copy(source, false);
  EXPECT_TRUE(copy->HasState(STIS_SHORTCUT));
  EXPECT_EQ(copy->m_pShortcutTarget, nullptr);
  EXPECT_EQ(copy->GetShortcutTarget(), nullptr);
  EXPECT_FALSE(copy->HasState(STIS_SHORTCUT));
  EXPECT_EQ(source->GetShortcutTarget(), target);
}

TEST_F(ItemCopy, OfALongChainNeedsNoDeepStack) {
  support::RunOnSmallStack([this] {
    source->m_nLevel = support::kManyItems;
    CVornTreeItem* top = source;
    for (int level = support::kManyItems - 1; level > 0; --level) {
      CVornTreeItem* const above = new CVornTreeItem(&tree);
      above->m_nLevel = level;
      above->InsertAfter(top, nullptr);
      top = above;
    }
    EXPECT_EQ(copy->Copy(top, true), 1);
    EXPECT_EQ(copy->m_nDescendants, static_cast<unsigned>(support::kManyItems - 1));
    copy->DestroyChildren();
    source->Detach(false);
    delete top;
  });
}

}  // namespace
