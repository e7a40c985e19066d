// The rules of single attributes, of fonts and of the control's own, and what each of them repaints.
#include <string>

#include "support/driver.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"
#include "tree/tree_access.h"

namespace {

using support::TestTree;

class ShownAttributes : public testing::Test {
 protected:
  ShownAttributes() {
    EXPECT_NE(tree.CreateTreeCtrl(WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 120), nullptr, 0), 0);
    tree.Build("root [a b c]");
    tree.UpdateTree();
    item = tree["b"];
    support::Pump();
  }
  ~ShownAttributes() override {
    tree.log.Clear();
    tree.recording = false;
    tree.DestroyWindow();
  }
  CRect Dirty() {
    CRect rect;
    ::GetUpdateRect(tree, rect, FALSE);
    return rect;
  }
  CRect Row() {
    CRect rect;
    tree.GetItemRect(item, rect, 0);
    return rect;
  }
  CRect Client() {
    CRect rect;
    tree.GetClientRect(rect);
    return rect;
  }
  LOGFONTW ControlFont() {
    LOGFONTW logFont{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(tree, WM_GETFONT, 0, 0)), sizeof(logFont), &logFont);
    return logFont;
  }

  TestTree tree;
  CVornTreeItem* item = nullptr;
};

// --- UpdateItem ----------------------------------------------------------------------------------------

TEST_F(ShownAttributes, AnUpdateInvalidatesTheWholeRow) {
  VornTreeAccess::NeedLayout(tree) = FALSE;
  tree.UpdateItem(item, 0);
  EXPECT_EQ(Dirty(), Row());
  EXPECT_EQ(Row().Width(), Client().Width());
  EXPECT_TRUE(VornTreeAccess::NeedLayout(tree));
}

TEST_F(ShownAttributes, AnUpdateNowPaintsAtOnce) {
  tree.UpdateItem(item, 1);
  EXPECT_TRUE(Dirty().IsRectEmpty());
}

TEST_F(ShownAttributes, AnUpdateOfWhatIsNotOnScreenDoesNothing) {
  CVornTreeItem* const below = tree.Add("below", item);
  support::Pump();
  VornTreeAccess::NeedLayout(tree) = FALSE;
  tree.UpdateItem(below, 0);
  tree.UpdateItem(nullptr, 0);
  EXPECT_TRUE(Dirty().IsRectEmpty());
  VornTreeAccess::FirstDisplay(tree) = nullptr;
  tree.UpdateItem(item, 0);
  EXPECT_TRUE(Dirty().IsRectEmpty()) << "without a display list nothing is on screen";
  EXPECT_FALSE(VornTreeAccess::NeedLayout(tree));
}

TEST_F(ShownAttributes, AnUpdateOfARowWithoutAPlaceInvalidatesAll) {
  item->m_Rect = RECT{};
  tree.UpdateItem(item, 0);
  EXPECT_EQ(Dirty(), Client());
}

TEST_F(ShownAttributes, WhileRedrawIsHeldATextIsMeasuredAndNothingInvalidated) {
  tree.SetRedraw(FALSE);
  const int width = item->m_nTextWidth;
  EXPECT_EQ(tree.SetItemText(item, L"a much longer label"), 1);
  EXPECT_GT(item->m_nTextWidth, width);
  EXPECT_TRUE(Dirty().IsRectEmpty());
  tree.SetRedraw(TRUE);
  EXPECT_STREQ(tree.GetItemText(item), L"a much longer label");
}

TEST_F(ShownAttributes, AColourOfAnItemShowsAtTheNextRepaintOnly) {
  tree.SetItemBkColor(item, RGB(1, 2, 3));
  tree.SetItemTextColor(item, RGB(4, 5, 6));
  EXPECT_TRUE(Dirty().IsRectEmpty());
}

TEST_F(ShownAttributes, AColourOfTheControlRepaintsAll) {
  using Setter = void (CVornTreeCtrl::*)(unsigned long);
  for (Setter set : {&CVornTreeCtrl::SetBkColor, &CVornTreeCtrl::SetTextColor,
                     &CVornTreeCtrl::SetGrayTextColor, &CVornTreeCtrl::SetTextHighLightColor,
                     &CVornTreeCtrl::SetHighLightColor, &CVornTreeCtrl::SetShowAlwaysColor}) {
    ::ValidateRect(tree, nullptr);
    (tree.*set)(RGB(1, 2, 3));
    EXPECT_EQ(Dirty(), Client());
  }
}

TEST_F(ShownAttributes, AnImageThatDoesNotChangeRepaintsNothing) {
  tree.SetItemImageState(item, 3);
  VornTreeAccess::NeedLayout(tree) = FALSE;
  EXPECT_EQ(tree.SetItemImageState(item, 3), 1);
  EXPECT_FALSE(VornTreeAccess::NeedLayout(tree));
  ::InvalidateRect(tree, nullptr, FALSE);
  EXPECT_EQ(tree.SetItemImageState(item, 3), 1);
  EXPECT_FALSE(Dirty().IsRectEmpty()) << "nor is what waits painted now";
  EXPECT_EQ(tree.SetItemImageState(item, -2), 1);
  EXPECT_TRUE(Dirty().IsRectEmpty()) << "a change is painted at once";
  int image = 0;
  EXPECT_EQ(tree.GetItemImageState(item, image), 1);
  EXPECT_EQ(image, -2);
}

// --- Fonts ---------------------------------------------------------------------------------------------

TEST_F(ShownAttributes, NormalWeightForWhatIsNormalMakesNoFont) {
  ASSERT_NE(ControlFont().lfWeight, FW_BOLD);
  LOGFONTW normal = ControlFont();
  normal.lfWeight = FW_NORMAL;
  CFont font;
  font.CreateFontIndirect(&normal);
  tree.SetFont(&font, TRUE);
  EXPECT_EQ(tree.SetItemBold(item, 0), 1);
  EXPECT_EQ(tree.GetItemState(item, STIS_BOLD | STIS_NOTBOLD), unsigned{STIS_NOTBOLD});
  EXPECT_EQ(item->m_pFont, nullptr);
}

TEST_F(ShownAttributes, BoldIsDerivedFromTheControlsFont) {
  EXPECT_EQ(tree.SetItemBold(item, 1), 1);
  EXPECT_TRUE(tree.IsItemBold(item));
  ASSERT_NE(item->m_pFont, nullptr);
  LOGFONTW own{};
  item->m_pFont->GetLogFont(&own);
  EXPECT_EQ(own.lfWeight, FW_BOLD);
  EXPECT_EQ(own.lfHeight, ControlFont().lfHeight);
  EXPECT_EQ(tree.GetItemFont(item), item->m_pFont);
  EXPECT_EQ(tree.SetItemBold(item, 0), 1);
  item->m_pFont->GetLogFont(&own);
  EXPECT_EQ(own.lfWeight, FW_NORMAL);
}

TEST_F(ShownAttributes, AnItemWithoutAFontHasTheControls) {
  ASSERT_NE(tree.GetItemFont(item), nullptr);
  EXPECT_EQ(tree.GetItemFont(item)->GetSafeHandle(),
            reinterpret_cast<HANDLE>(::SendMessageW(tree, WM_GETFONT, 0, 0)));
  EXPECT_EQ(tree.GetItemFont(nullptr), nullptr);
}

TEST_F(ShownAttributes, BoldByStateDerivesTheFontBeforeTheBitsAreSet) {
  EXPECT_EQ(tree.ModifyItemState(item, 0, STIS_BOLD), 1);
  EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_BOLD});
  LOGFONTW own{};
  item->m_pFont->GetLogFont(&own);
  EXPECT_EQ(own.lfWeight, FW_BOLD);
  EXPECT_EQ(tree.SetItemState(item, STIS_NOTBOLD), 1);
  EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_NOTBOLD});
  item->m_pFont->GetLogFont(&own);
  EXPECT_EQ(own.lfWeight, FW_NORMAL);
  EXPECT_EQ(tree.SetItemState(item, 0), 1);
  item->m_pFont->GetLogFont(&own);
  EXPECT_EQ(own.lfWeight, FW_NORMAL) << "without either bit the font is left alone";
  EXPECT_EQ(tree.ModifyItemState(item, STIS_BOLD, 0), 1);
  EXPECT_EQ(tree.GetItemState(item), 0u);
}

TEST_F(ShownAttributes, StylesAreDerivedOnTopOfEachOther) {
  EXPECT_EQ(tree.UpdateItemFont(item, STFF_ITALIC), 1);
  EXPECT_EQ(tree.UpdateItemFont(item, STFF_UNDERLINE), 1);
  EXPECT_EQ(tree.UpdateItemFont(item, STFF_BOLD), 1);
  LOGFONTW own{};
  item->m_pFont->GetLogFont(&own);
  EXPECT_TRUE(own.lfItalic && own.lfUnderline && own.lfWeight == FW_BOLD);
  EXPECT_EQ(tree.UpdateItemFont(item, STFF_NOTITALIC | STFF_NOTUNDERLINED), 1);
  item->m_pFont->GetLogFont(&own);
  EXPECT_TRUE(!own.lfItalic && !own.lfUnderline && own.lfWeight == FW_BOLD);
  EXPECT_EQ(tree.UpdateItemFont(item, 0x100), 0) << "no bit that means anything";
  EXPECT_EQ(tree.UpdateItemFont(item, 0x40), 1)
      << "a low bit without a meaning changes nothing, and succeeds";
}

TEST_F(ShownAttributes, AFontRepaintsAllAlsoWhenItGoes) {
  CFont font;
  LOGFONTW logFont = ControlFont();
  font.CreateFontIndirect(&logFont);
  ::ValidateRect(tree, nullptr);
  tree.SetItemFont(item, &font);
  EXPECT_EQ(Dirty(), Client());
  ::ValidateRect(tree, nullptr);
  tree.SetItemFont(item, nullptr);
  EXPECT_EQ(Dirty(), Client());
  ::ValidateRect(tree, nullptr);
  tree.SetItemFont(item, nullptr);
  EXPECT_TRUE(Dirty().IsRectEmpty()) << "there was none to take away";
}

TEST_F(ShownAttributes, TheControlsFontSetsTheHeightOfNewItems) {
  LOGFONTW logFont = ControlFont();
  logFont.lfHeight = -30;
  CFont font;
  font.CreateFontIndirect(&logFont);
  tree.SetFont(&font, TRUE);
  EXPECT_EQ(tree.GetDefaultHeight(), 34);
  EXPECT_EQ(ControlFont().lfHeight, -30);
  logFont.lfHeight = 0;
  CFont open;
  open.CreateFontIndirect(&logFont);
  tree.SetFont(&open, TRUE);
  EXPECT_EQ(tree.GetDefaultHeight(), 20);
  tree.SetFont(nullptr, TRUE);
  LOGFONTW icons{};
  ::SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof(icons), &icons, 0);
  EXPECT_EQ(ControlFont().lfHeight, icons.lfHeight);
}

TEST(ControlFont, WaitsForTheWindow) {
  TestTree tree;
  LOGFONTW logFont{};
  logFont.lfHeight = -30;
  CFont font;
  font.CreateFontIndirect(&logFont);
  const int before = tree.GetDefaultHeight();
  tree.SetFont(&font, TRUE);
  EXPECT_EQ(tree.GetDefaultHeight(), before);
  CVornTreeItem* const item = tree.Add("x");
  EXPECT_EQ(tree.GetItemFont(item), nullptr);
  EXPECT_EQ(tree.SetItemBold(item, 1), 0) << "there is no font to derive from";
  EXPECT_FALSE(tree.IsItemBold(item));
  EXPECT_EQ(tree.ModifyItemState(item, 0, STIS_BOLD), 1);
  EXPECT_TRUE(tree.IsItemBold(item)) << "the bit alone";
}

// --- Records -------------------------------------------------------------------------------------------

TEST_F(ShownAttributes, ARecordIsAppliedWithRedrawHeld) {
  int lock = -1;
  tree.answer = [&](const std::string&, CVornTreeItem*, CVornTreeItem*) {
    lock = VornTreeAccess::RedrawLock(tree);
    return 1;
  };
  STITEM record{};
  record.hItem = item;
  record.mask = STIF_STATE | STIF_PARAM | STIF_CHILDREN;
  record.state = record.stateMask = STIS_SELECTED;
  record.lParam = 77;
  record.cChildren = 1;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(lock, 1);
  EXPECT_EQ(VornTreeAccess::RedrawLock(tree), 0);
  EXPECT_TRUE(tree.IsItemSelected(item));
  EXPECT_EQ(tree.GetItemData(item), 77u);
  EXPECT_EQ(tree.ItemHasChildren(item), 1);
  tree.answer = nullptr;
}

TEST_F(ShownAttributes, ARecordsStatesNeedTheirBitTwiceAndOnlyThreeCount) {
  STITEM record{};
  record.hItem = item;
  record.mask = STIF_STATE;
  record.state = 0xFFFFFFFF;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(tree.GetItemState(item), 0u);
  record.stateMask = 0xFFFFFFFF;
  record.state = 0;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(tree.GetItemState(item), 0u);
  tree.SetCheckBox(item, 1);
  tree.Add("child", item);
  record.state = 0xFFFFFFFF;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_SELECTED | STIS_EXPANDED | STIS_CHECKED});
}

TEST_F(ShownAttributes, ARecordCanCarryTheItemsOwnText) {
  tree.SetItemText(item, L"some label");
  STITEM record{};
  record.hItem = item;
  record.mask = STIF_TEXT;
  EXPECT_EQ(tree.GetItem(&record), 1);
  EXPECT_EQ(record.cchTextMax, 10);
  record.pszText += 5;
  record.cchTextMax = 3;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_STREQ(tree.GetItemText(item), L"lab");
  EXPECT_EQ(tree.SetItemText(item, tree.GetItemText(item) + 1), 1);
  EXPECT_STREQ(tree.GetItemText(item), L"ab");
  record.pszText = nullptr;
  record.cchTextMax = 3;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_STREQ(tree.GetItemText(item), L"");
}

TEST_F(ShownAttributes, AnUnaskedFieldOfARecordStaysAsItWas) {
  STITEM record{};
  record.hItem = item;
  record.pszText = nullptr;
  record.iImage = 70;
  record.iSelectedImage = 71;
  record.cChildren = 72;
  record.lParam = 73;
  record.cchTextMax = 74;
  EXPECT_EQ(tree.GetItem(&record), 1);
  EXPECT_EQ(record.pszText, nullptr);
  EXPECT_EQ(record.iImage, 70);
  EXPECT_EQ(record.iSelectedImage, 71);
  EXPECT_EQ(record.cChildren, 72);
  EXPECT_EQ(record.lParam, 73);
  EXPECT_EQ(record.cchTextMax, 74);
  record.mask = STIF_SELECTEDIMAGE;
  EXPECT_EQ(tree.GetItem(&record), 1);
  EXPECT_EQ(record.iSelectedImage, 71) << "both images come with STIF_IMAGE";
  record.mask = STIF_IMAGE;
  EXPECT_EQ(tree.GetItem(&record), 1);
  EXPECT_EQ(record.iImage, -1);
  EXPECT_EQ(record.iSelectedImage, -1);
}

// --- Check marks ---------------------------------------------------------------------------------------

TEST_F(ShownAttributes, CheckBoxesForAllMakeEveryItemCheckable) {
  EXPECT_EQ(tree.SetItemCheck(item, 1), 0);
  EXPECT_LOG(tree.log, "");
  tree.ModifyStyle(0, STS_CHECKBOXES);
  EXPECT_EQ(tree.SetItemCheck(item, 1), 0);
  EXPECT_EQ(tree.GetItemCheck(item), 1);
  EXPECT_EQ(tree.GetCheckBox(item), 0);
  EXPECT_EQ(tree.SetItemCheck(item, 2), 1) << "the earlier mark";
  EXPECT_EQ(tree.GetItemCheck(item), 1);
  EXPECT_EQ(tree.SetItemCheck(item, 0), 1);
  EXPECT_EQ(tree.GetItemCheck(item), 0);
}

TEST_F(ShownAttributes, ACheckBoxComesAndGoes) {
  EXPECT_EQ(tree.SetCheckBox(item, 5), 1);
  EXPECT_EQ(tree.GetCheckBox(item), 1);
  EXPECT_EQ(tree.SetCheckBox(item, 0), 1);
  EXPECT_EQ(tree.GetCheckBox(item), 0);
}

// --- Images of the control -----------------------------------------------------------------------------

TEST_F(ShownAttributes, AReplacedListIsHandedBack) {
  CImageList first, second;
  first.Create(16, 12, ILC_COLOR32, 1, 1);
  second.Create(10, 9, ILC_COLOR32, 1, 1);
  tree.SetImageList(&first, STIL_NORMAL);
  ASSERT_NE(tree.GetImageList(STIL_NORMAL), nullptr);
  EXPECT_EQ(tree.GetImageList(STIL_NORMAL)->GetSafeHandle(), first.GetSafeHandle());
  CImageList* const old = tree.SetImageList(&second, STIL_NORMAL);
  ASSERT_NE(old, nullptr);
  EXPECT_EQ(old->GetSafeHandle(), first.GetSafeHandle());
  CSize size;
  EXPECT_EQ(tree.GetImageSize(STIL_NORMAL, &size), 1);
  EXPECT_EQ(size, CSize(10, 9));
  CImageList empty;
  EXPECT_NE(tree.SetImageList(&empty, STIL_NORMAL), nullptr) << "an object without a list empties the slot";
  EXPECT_EQ(tree.GetImageList(STIL_NORMAL), nullptr);
  EXPECT_EQ(tree.GetImageSize(STIL_NORMAL, &size), 1);
  EXPECT_EQ(size, CSize(10, 9));
}

TEST_F(ShownAttributes, ANewListIsPaintedAtOnce) {
  CImageList images;
  images.Create(16, 40, ILC_COLOR32, 1, 1);
  ::ValidateRect(tree, nullptr);
  tree.SetImageList(&images, STIL_NORMAL);
  EXPECT_TRUE(Dirty().IsRectEmpty());
  EXPECT_EQ(Row().Height(), 40);
}

TEST(ImageLists, OnlyTheFourExist) {
  TestTree tree;
  CImageList images;
  images.Create(16, 16, ILC_COLOR32, 1, 1);
  CSize size(3, 4);
  for (int list : {-1, 4, 1000}) {
    const auto which = static_cast<VornTreeImageList>(list);
    EXPECT_EQ(tree.GetImageList(which), nullptr);
    EXPECT_EQ(tree.GetImageSize(which, &size), 0);
    EXPECT_EQ(tree.SetImageList(&images, which), nullptr);
    tree.DetachImageList(which);
  }
  EXPECT_EQ(size, CSize(3, 4));
  EXPECT_EQ(tree.GetImageSize(STIL_STATE, &size), 1) << "a size of nothing is a size";
  EXPECT_EQ(size, CSize(0, 0));
}

// --- Colours of the control ----------------------------------------------------------------------------

TEST(Colors, EachFallsBackWhenItIsTakenAway) {
  TestTree tree;
  const auto check = [&](auto set, auto get, int system) {
    EXPECT_EQ((tree.*get)(), ::GetSysColor(system));
    (tree.*set)(RGB(9, 8, 7));
    EXPECT_EQ((tree.*get)(), RGB(9, 8, 7));
    (tree.*set)(0xFFFFFFFE);
    EXPECT_EQ((tree.*get)(), 0xFFFFFFFEul);
    (tree.*set)(ST_CLR_NONE);
    EXPECT_EQ((tree.*get)(), ::GetSysColor(system));
  };
  check(&CVornTreeCtrl::SetBkColor, &CVornTreeCtrl::GetBkColor, COLOR_WINDOW);
  check(&CVornTreeCtrl::SetTextColor, &CVornTreeCtrl::GetTextColor, COLOR_WINDOWTEXT);
  check(&CVornTreeCtrl::SetGrayTextColor, &CVornTreeCtrl::GetGrayTextColor, COLOR_HIGHLIGHT);
  check(&CVornTreeCtrl::SetTextHighLightColor, &CVornTreeCtrl::GetTextHighlightColor, COLOR_HIGHLIGHTTEXT);
  check(&CVornTreeCtrl::SetHighLightColor, &CVornTreeCtrl::GetHighlightColor, COLOR_HIGHLIGHT);
  check(&CVornTreeCtrl::SetShowAlwaysColor, &CVornTreeCtrl::GetShowAlwaysColor, COLOR_HIGHLIGHT);
}

TEST(Colors, AnInvalidItemHasTheSystemsTextOnTheControlsGround) {
  TestTree tree;
  tree.SetTextColor(RGB(1, 1, 1));
  tree.SetBkColor(RGB(2, 2, 2));
  EXPECT_EQ(tree.GetItemTextColor(STI_ROOT), ::GetSysColor(COLOR_WINDOWTEXT));
  EXPECT_EQ(tree.GetItemBkColor(STI_ROOT), RGB(2, 2, 2));
  CVornTreeItem* const item = tree.Add("x");
  tree.SetItemTextColor(item, RGB(3, 3, 3));
  tree.SetItemTextColor(item, ST_CLR_NONE);
  EXPECT_EQ(tree.GetItemTextColor(item), RGB(1, 1, 1)) << "no colour of its own again";
}

}  // namespace
