// The fields of an item: what they are at first, how they are read and written.
#include "items.h"

namespace {

using items::Grove;

class ItemFields : public Grove {};

TEST_F(ItemFields, OfANewItem) {
  CVornTreeCtrl tree;
  CVornTreeItem* const item = new CVornTreeItem(&tree);
  EXPECT_EQ(item->m_pTree, &tree);
  for (CVornTreeItem* link : {item->m_pParent, item->m_pFirstChild, item->m_pLastChild, item->m_pPrevSibling,
                              item->m_pNextSibling, item->m_pShortcutTarget}) {
    EXPECT_EQ(link, nullptr);
  }
  EXPECT_EQ(item->m_Shortcuts.GetSize(), 0);
  EXPECT_EQ(item->m_nLevel, -1);
  EXPECT_EQ(Counts(item), "0 0 0");
  EXPECT_TRUE(::IsRectEmpty(&item->m_Rect));
  EXPECT_EQ(item->m_nHeight, 20);
  EXPECT_EQ(item->m_nTextWidth, 0);
  EXPECT_EQ(item->m_nLabelOffset, 0);
  EXPECT_STREQ(item->GetText(), L"");
  EXPECT_EQ(item->m_pFont, nullptr);
  EXPECT_EQ(item->m_clrText, 0xFFFFFFFFu);
  EXPECT_EQ(item->m_clrBk, 0xFFFFFFFFu);
  EXPECT_EQ(item->m_nImage, -1);
  EXPECT_EQ(item->m_nSelectedImage, -1);
  EXPECT_EQ(item->m_nStateImage, -1);
  EXPECT_EQ(item->m_nState, 0u);
  EXPECT_EQ(item->m_nExtFlags, 0u);
  EXPECT_EQ(item->m_nData, 0u);
  EXPECT_EQ(item->m_bLockedVisible, 1);
  EXPECT_EQ(item->m_nMagic, 0x19790316u);
  delete item;
  EXPECT_FALSE(IsItemValid(item));
  EXPECT_EQ(item->m_nMagic, 0u);
}

TEST_F(ItemFields, ValidIsWhatLives) {
  EXPECT_TRUE(IsItemValid(root));
  for (const CVornTreeItem* none : {static_cast<CVornTreeItem*>(nullptr), STI_ROOT, STI_FIRST, STI_LAST}) {
    EXPECT_FALSE(IsItemValid(none));
  }
  EXPECT_FALSE(IsItemValid(reinterpret_cast<CVornTreeItem*>(0x00000000FFFF0000ULL)));
  EXPECT_FALSE(IsItemValid(reinterpret_cast<CVornTreeItem*>(0x00007FFFFFFF1000ULL)));
}

TEST_F(ItemFields, AStateIsThereWhenAllItsBitsAre) {
  root->m_nState = STIS_SELECTED | STIS_CHECKED;
  EXPECT_TRUE(root->HasState(STIS_SELECTED | STIS_CHECKED));
  EXPECT_FALSE(root->HasState(STIS_SELECTED | STIS_HIDDEN));
  EXPECT_TRUE(root->HasState(0));
  EXPECT_TRUE(root->IsSelected() && root->IsChecked());
  EXPECT_FALSE(root->IsExpanded() || root->IsDropHilited() || root->IsLockedVisibility());
  root->m_nExtFlags = STIX_CHECKBOX;
  EXPECT_TRUE(root->HasExtFlag(STIX_CHECKBOX));
  EXPECT_FALSE(root->HasExtFlag(STIX_CHECKBOX | STIX_HASIMAGE));
  EXPECT_EQ(root->GetCheckBox(), 1);
}

// Another class may answer for the state bits: every reader comes through the one operation.
TEST_F(ItemFields, AnOverriddenStateIsWhatReadersSee) {
  class Hidden : public CVornTreeItem {
   public:
    Hidden() : CVornTreeItem(nullptr) {}
    bool HasState(unsigned int mask) const override {
      return mask == STIS_HIDDEN || CVornTreeItem::HasState(mask);
    }
  };
  CVornTreeItem* const item = new Hidden;
  EXPECT_EQ(item->GetVisibility(), 0);
  root->InsertAfter(item, nullptr);
  EXPECT_EQ(root->HasVisibleChild(), 0);
  EXPECT_EQ(Counts(root), "1 0 1");
}

TEST_F(ItemFields, TheParentIsNullBelowTheControlsRoot) {
  CVornTreeCtrl tree;
  CVornTreeItem* const document = tree.InsertItem(L"d", -1, -1);
  CVornTreeItem* const item = tree.InsertItem(L"i", -1, -1, document);
  EXPECT_EQ(document->GetParentItem(), nullptr);
  EXPECT_EQ(document->IsTopLevelItem(), 1);
  EXPECT_EQ(item->GetParentItem(), document);
  EXPECT_EQ(item->IsTopLevelItem(), 0);
  CVornTreeItem* const loose = Add(root);
  EXPECT_EQ(loose->GetParentItem(), root) << "without a control no parent is its root";
  EXPECT_EQ(loose->IsTopLevelItem(), 0);
}

TEST_F(ItemFields, ChildrenAreThereOrAnnounced) {
  EXPECT_EQ(root->HasChildren(), 0);
  EXPECT_EQ(root->HasVisibleChild(), 0);
  root->ModifyState(0, STIS_HASCHILDREN);
  EXPECT_EQ(root->HasChildren(), 1);
  EXPECT_EQ(root->HasVisibleChild(), 1);
  CVornTreeItem* const child = Add(root);
  EXPECT_EQ(root->HasVisibleChild(), 1);
  child->SetVisible(0);
  EXPECT_EQ(root->HasVisibleChild(), 0);
  root->ModifyState(0, STIS_HASCHILDREN);
  EXPECT_EQ(root->HasVisibleChild(), 1) << "all are hidden: what is announced counts";
}

TEST_F(ItemFields, VisibleRelativesSkipHiddenOnes) {
  CVornTreeItem* const a = Add(root);
  CVornTreeItem* const b = Add(root);
  CVornTreeItem* const c = Add(root);
  EXPECT_EQ(root->GetFirstVisibleChild(), a);
  a->SetVisible(0);
  EXPECT_EQ(root->GetFirstVisibleChild(), b);
  b->SetVisible(0);
  EXPECT_EQ(a->GetNextVisibleSibling(), c);
  EXPECT_EQ(c->GetPrevVisibleSibling(), nullptr);
  EXPECT_EQ(c->GetNextVisibleSibling(), nullptr);
  a->SetVisible(1);
  EXPECT_EQ(c->GetPrevVisibleSibling(), a);
  root->m_nVisibleDescendants = 0;
  EXPECT_EQ(root->GetFirstVisibleChild(), nullptr) << "the count decides";
}

TEST_F(ItemFields, AnItemIsItsOwnDescendant) {
  CVornTreeItem* const child = Add(root);
  EXPECT_EQ(child->IsDescendantOf(child), 1);
  EXPECT_EQ(child->IsDescendantOf(root), 1);
  EXPECT_EQ(root->IsDescendantOf(child), 0);
  EXPECT_EQ(child->IsDescendantOf(nullptr), 0);
}

TEST_F(ItemFields, AncestorsGoUpToTheRoot) {
  CVornTreeItem* const a = Add(root);
  CVornTreeItem* const b = Add(a);
  CVornTreeItemArray line;
  line.Add(root, nullptr);
  b->CollectAncestors(line);
  ASSERT_EQ(line.GetSize(), 4) << "added to what is there";
  EXPECT_EQ(line[1], b);
  EXPECT_EQ(line[2], a);
  EXPECT_EQ(line[3], root);
}

TEST_F(ItemFields, ColoursFallBackOnControlAndSystem) {
  CVornTreeItem* const item = Add(root);
  EXPECT_EQ(item->GetTextColor(), ::GetSysColor(COLOR_WINDOWTEXT));
  EXPECT_EQ(item->GetBkColor(), ::GetSysColor(COLOR_WINDOW));
  item->SetTextColor(0xFFFFFFFE);
  item->SetBkColor(RGB(1, 2, 3));
  EXPECT_EQ(item->GetTextColor(), 0xFFFFFFFEu);
  EXPECT_EQ(item->GetBkColor(), RGB(1, 2, 3));

  class Painted : public CVornTreeCtrl {
   public:
    unsigned long GetBkColor() override { return RGB(7, 7, 7); }
  } tree;
  CVornTreeItem* const own = tree.InsertItem(L"x", -1, -1);
  EXPECT_EQ(own->GetBkColor(), RGB(7, 7, 7)) << "the control's virtual operation is asked";
}

TEST_F(ItemFields, ARowIsNeverLowerThanTheImages) {
  CVornTreeItem* const loose = Add(root);
  loose->m_nHeight = 6;
  EXPECT_EQ(loose->GetItemHeight(), 6) << "without a control";
  CVornTreeCtrl tree;
  CVornTreeItem* const item = tree.InsertItem(L"x", -1, -1);
  item->m_nHeight = 6;
  CImageList images;
  images.Create(10, 31, ILC_COLOR32, 1, 1);
  tree.SetImageList(&images, STIL_NORMAL);
  EXPECT_EQ(item->GetItemHeight(), 31);
  item->m_nHeight = 40;
  EXPECT_EQ(item->GetItemHeight(), 40);
}

TEST_F(ItemFields, TheSizeRectangleIsTextAndMargins) {
  CVornTreeItem* const item = Add(root);
  item->m_nTextWidth = 50;
  item->m_nHeight = 18;
  const RECT* const rect = item->GetSizeRect();
  EXPECT_EQ(rect, item->GetRect());
  EXPECT_EQ(CRect(*rect), CRect(0, 0, 54, 18));
}

TEST_F(ItemFields, ModifyingRemovesBeforeItAdds) {
  CVornTreeItem* const item = Add(root);
  item->ModifyState(STIS_BOLD, STIS_BOLD | STIS_NODRAG);
  EXPECT_EQ(item->GetState(), unsigned{STIS_BOLD | STIS_NODRAG});
  item->ModifyState(STIS_BOLD, 0);
  EXPECT_EQ(item->GetState(), unsigned{STIS_NODRAG});
  item->ModifyState(0, 0);
  EXPECT_EQ(item->GetState(), unsigned{STIS_NODRAG});
}

TEST_F(ItemFields, SettersSetAndClearTheirBit) {
  CVornTreeItem* const item = Add(root);
  const auto toggle = [item](unsigned bit, auto set) {
    (item->*set)(true);
    EXPECT_EQ(item->GetState(), bit);
    (item->*set)(false);
    EXPECT_EQ(item->GetState(), 0u);
  };
  toggle(STIS_SELECTED, &CVornTreeItem::SetSelected);
  toggle(STIS_EXPANDED, &CVornTreeItem::SetExpanded);
  toggle(STIS_CHECKED, &CVornTreeItem::SetChecked);
  toggle(STIS_DROPHILITED, &CVornTreeItem::SetDropHilited);
  item->SetCheckBox(true);
  EXPECT_EQ(item->m_nExtFlags, unsigned{STIX_CHECKBOX});
  item->SetCheckBox(false);
  EXPECT_EQ(item->m_nExtFlags, 0u);
}

TEST_F(ItemFields, ImagesSetTheirFlagUnlessBothAreNegative) {
  CVornTreeItem* const item = Add(root);
  item->SetImages(-1, 3);
  EXPECT_TRUE(item->HasExtFlag(STIX_HASIMAGE));
  item->SetImages(-1, -1);
  EXPECT_FALSE(item->HasExtFlag(STIX_HASIMAGE));
  item->SetImages(0, -7);
  EXPECT_TRUE(item->HasExtFlag(STIX_HASIMAGE));
  int image = 9, selected = 9;
  item->GetImages(&image, &selected);
  EXPECT_EQ(image, 0);
  EXPECT_EQ(selected, -7);
}

TEST_F(ItemFields, DataIsStoredUnlessItIsAShortcut) {
  CVornTreeItem* const item = Add(root);
  EXPECT_EQ(item->SetData(5), 0);
  EXPECT_EQ(item->GetData(), 5u);
  item->ModifyState(0, STIS_SHORTCUT);
  EXPECT_EQ(item->SetData(6), 1);
  EXPECT_EQ(item->GetData(), 5u);
}

TEST_F(ItemFields, WithoutAControlTextIsNotMeasured) {
  CVornTreeItem* const item = Add(root, L"some label");
  EXPECT_EQ(item->m_nTextWidth, 0);
  EXPECT_EQ(item->m_nHeight, 20);
  item->SetText(nullptr);
  EXPECT_STREQ(item->GetText(), L"");
}

TEST_F(ItemFields, TheOwnTextCanBeSetAgain) {
  CVornTreeItem* const item = Add(root, L"some label");
  item->SetText(item->GetText());
  EXPECT_STREQ(item->GetText(), L"some label");
  item->SetText(item->GetText() + 5);
  EXPECT_STREQ(item->GetText(), L"label");
}

// Two settings: a height of -12 gives 16, and taking the font away leaves it.
TEST_F(ItemFields, TheHeightOfAFontStaysWhenItGoes) {
  CVornTreeItem* const item = Add(root);
  LOGFONTW logFont{};
  logFont.lfHeight = -12;
  CFont font, open;
  font.CreateFontIndirect(&logFont);
  item->SetFont(&font);
  EXPECT_EQ(item->m_nHeight, 16);
  EXPECT_NE(item->GetFont(), nullptr);
  item->SetFont(nullptr);
  EXPECT_EQ(item->m_nHeight, 16);
  EXPECT_EQ(item->GetFont(), nullptr);
  logFont.lfHeight = 0;
  open.CreateFontIndirect(&logFont);
  item->SetFont(&open);
  EXPECT_EQ(item->m_nHeight, 20) << "a font that leaves its height open";
  CFont none;
  item->SetFont(&none);
  EXPECT_EQ(item->GetFont(), nullptr) << "one without a handle takes the own one away";
}

TEST_F(ItemFields, ASecondFontReplacesTheFirstInTheSameObject) {
  CVornTreeItem* const item = Add(root);
  LOGFONTW logFont{};
  logFont.lfHeight = -12;
  CFont first, second;
  first.CreateFontIndirect(&logFont);
  logFont.lfHeight = 30;
  second.CreateFontIndirect(&logFont);
  item->SetFont(&first);
  CFont* const own = item->GetFont();
  item->SetFont(&second);
  EXPECT_EQ(item->GetFont(), own);
  EXPECT_EQ(item->m_nHeight, 34);
  LOGFONTW stored{};
  own->GetLogFont(&stored);
  EXPECT_EQ(stored.lfHeight, 30);
  item->SetFont(own);
  EXPECT_NE(own->GetSafeHandle(), nullptr) << "its own font is one like any other";
  EXPECT_EQ(item->m_nHeight, 34);
}

TEST_F(ItemFields, AFontThatIsGoneChangesNothing) {
  CVornTreeItem* const item = Add(root);
  LOGFONTW logFont{};
  logFont.lfHeight = -12;
  CFont good, gone;
  good.CreateFontIndirect(&logFont);
  item->SetFont(&good);
  gone.CreateFontIndirect(&logFont);
  ::DeleteObject(gone.GetSafeHandle());
  const HGDIOBJ before = item->GetFont()->GetSafeHandle();
  item->SetFont(&gone);
  ASSERT_NE(item->GetFont(), nullptr);
  EXPECT_EQ(item->GetFont()->GetSafeHandle(), before);
  gone.Detach();
}

// --- Locked visibility -----------------------------------------------------------------------------

TEST_F(ItemFields, LockedOnesOnlyRememberTheWish) {
  CVornTreeItem* const item = Add(root);
  EXPECT_EQ(item->LockVisibility(1), 0);
  item->SetVisible(0);
  EXPECT_FALSE(item->IsHidden());
  EXPECT_EQ(item->GetVisibility(), 0);
  EXPECT_EQ(item->UnlockVisibility(), 1);
  EXPECT_TRUE(item->IsHidden());
  EXPECT_EQ(item->UnlockVisibility(), 0);
}

}  // namespace
