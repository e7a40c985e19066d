// Texts, data, images, states, check marks, fonts and colours.
#include <utility>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::TestTree;

// The buffer behind it lasts as long as the process: the first half of this can be seen once only.
TEST(AAItemText, OfADeadItemIsEmptyUntilTheRootIsAskedFor) {
  static bool neverAsked = true;
  TestTree tree;
  CVornTreeItem* const dead = tree.Add("x");
  tree.DeleteItem(dead);
  tree.log.Clear();
  if (std::exchange(neverAsked, false)) {
    EXPECT_STREQ(tree.GetItemText(dead), L"");
  }
  EXPECT_STREQ(tree.GetItemText(STI_ROOT), L"Root");
  EXPECT_STREQ(tree.GetItemText(dead), L"Root");
  EXPECT_STREQ(tree.GetItemText(tree.GetRootItem()), L"");
}

TEST(GetItem, GivesTheStateWhateverTheMask) {
  TestTree tree;
  tree.Build("root [a+ [a1]]");
  STITEM record{};
  record.hItem = tree["a"];
  EXPECT_EQ(tree.GetItem(&record), 1);
  EXPECT_EQ(record.state, unsigned{STIS_EXPANDED});
  record.mask = STIF_TEXT | STIF_CHILDREN | STIF_PARAM | STIF_IMAGE;
  EXPECT_EQ(tree.GetItem(&record), 1);
  EXPECT_STREQ(record.pszText, L"a");
  EXPECT_EQ(record.pszText, tree.GetItemText(tree["a"])) << "the item's own text, not a copy";
  EXPECT_EQ(record.cchTextMax, 1);
  EXPECT_EQ(record.cChildren, 1);
  EXPECT_EQ(record.iImage, -1);
  EXPECT_EQ(tree.GetItem(nullptr), 0);
}

TEST(SetItem, ImageAloneClearsTheSelectedImage) {
  TestTree tree;
  CVornTreeItem* const item = tree.InsertItem(L"x", 1, 2);
  STITEM record{};
  record.hItem = item;
  record.mask = STIF_IMAGE;
  record.iImage = 3;
  EXPECT_EQ(tree.SetItem(&record), 1);
  int image = 0, selected = 0;
  tree.GetItemImage(item, image, selected);
  EXPECT_EQ(image, 3);
  EXPECT_EQ(selected, -1);
  record.mask = STIF_SELECTEDIMAGE;
  record.iImage = 4;
  record.iSelectedImage = 5;
  tree.SetItem(&record);
  tree.GetItemImage(item, image, selected);
  EXPECT_EQ(image, 4) << "counts in both";
  EXPECT_EQ(selected, 5);
}

TEST(SetItem, CannotClearAStateBit) {
  TestTree tree;
  tree.Build("root [a+ [a1]]");
  STITEM record{};
  record.hItem = tree["a"];
  record.mask = STIF_STATE;
  record.stateMask = STIS_EXPANDED;
  EXPECT_EQ(tree.SetItem(&record), 1);
  EXPECT_TRUE(tree.IsItemExpanded(tree["a"]));
}

TEST(SetItem, EmptiesTheTextWithoutCharacters) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("abc");
  wchar_t text[] = L"xyz";
  STITEM record{};
  record.hItem = item;
  record.mask = STIF_TEXT;
  record.pszText = text;
  record.cchTextMax = 2;
  tree.SetItem(&record);
  EXPECT_STREQ(tree.GetItemText(item), L"xy");
  record.cchTextMax = 0;
  tree.SetItem(&record);
  EXPECT_STREQ(tree.GetItemText(item), L"");
}

TEST(SetItemCheck, NeedsABoxAndReturnsTheEarlierMark) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  EXPECT_EQ(tree.SetItemCheck(item, 1), 0);
  EXPECT_EQ(tree.GetItemCheck(item), 0);
  EXPECT_EQ(tree.SetCheckBox(item, 1), 1);
  EXPECT_EQ(tree.GetCheckBox(item), 1);
  EXPECT_EQ(tree.SetItemCheck(item, 1), 0) << "the earlier mark, not success";
  EXPECT_EQ(tree.GetItemCheck(item), 1);
  EXPECT_EQ(tree.SetItemCheck(item, 0), 1);
  EXPECT_LOG(tree.log, "OnChecking x\nOnChecked x\nOnChecking x\nOnChecked x");
}

TEST(SetItemCheck, IsVetoedByTheHook) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  tree.SetCheckBox(item, 1);
  tree.answer = [](const std::string&, CVornTreeItem*, CVornTreeItem*) { return 0; };
  EXPECT_EQ(tree.SetItemCheck(item, 1), 0);
  EXPECT_EQ(tree.GetItemCheck(item), 0);
  EXPECT_LOG(tree.log, "OnChecking x");
}

TEST(SetItemCheck, SurvivesAHookThatDeletesTheItem) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  tree.SetCheckBox(item, 1);
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnChecking") tree.DeleteItem(item);
    return 1;
  };
  EXPECT_EQ(tree.SetItemCheck(item, 1), 0);
  EXPECT_EQ(tree.GetCount(), 0u);
  tree.log.Clear();
}

TEST(ItemState, SetReplacesAndModifyRemovesThenAdds) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  tree.ModifyItemState(item, 0, STIS_NODRAG | STIS_NODROP);
  tree.ModifyItemState(item, STIS_NODRAG, STIS_NODELETE);
  EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_NODROP | STIS_NODELETE});
  EXPECT_EQ(tree.GetItemState(item, STIS_NODROP), unsigned{STIS_NODROP});
  tree.SetItemState(item, STIS_NOSELECT);
  EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_NOSELECT});
}

TEST(ItemFont, HeightFollowsTheFontAndStaysWhenItGoes) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  LOGFONTW logFont{};
  logFont.lfHeight = -12;
  CFont font;
  font.CreateFontIndirect(&logFont);
  tree.SetItemFont(item, &font);
  ASSERT_NE(item->m_pFont, nullptr);
  EXPECT_NE(item->m_pFont->GetSafeHandle(), font.GetSafeHandle()) << "a copy";
  const int height = item->m_nHeight;
  tree.SetItemFont(item, nullptr);
  EXPECT_EQ(item->m_pFont, nullptr);
  EXPECT_EQ(item->m_nHeight, height);
}

TEST(ItemFont, BoldMakesABoldFontAndBothBitsKeepNotBold) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  LOGFONTW logFont{};
  logFont.lfHeight = -12;
  logFont.lfWeight = FW_NORMAL;
  CFont font;
  font.CreateFontIndirect(&logFont);
  tree.SetItemFont(item, &font);
  EXPECT_EQ(tree.SetItemBold(item, 1), 1);
  EXPECT_TRUE(tree.IsItemBold(item));
  item->m_pFont->GetLogFont(&logFont);
  EXPECT_EQ(logFont.lfWeight, FW_BOLD);
  EXPECT_EQ(tree.SetItemBold(item, 0), 1);
  EXPECT_FALSE(tree.IsItemBold(item));
  EXPECT_EQ(tree.GetItemState(item, STIS_NOTBOLD), unsigned{STIS_NOTBOLD});
  EXPECT_EQ(tree.UpdateItemFont(item, STFF_BOLD | STFF_NOTBOLD), 1);
  item->m_pFont->GetLogFont(&logFont);
  EXPECT_EQ(logFont.lfWeight, FW_BOLD);
  EXPECT_EQ(tree.GetItemState(item, STIS_BOLD | STIS_NOTBOLD), unsigned{STIS_NOTBOLD});
}

TEST(ItemFont, ItalicAndUnderlineOnWinOverOff) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  LOGFONTW logFont{};
  logFont.lfHeight = -12;
  CFont font;
  font.CreateFontIndirect(&logFont);
  tree.SetItemFont(item, &font);
  EXPECT_EQ(tree.UpdateItemFont(item, STFF_ITALIC | STFF_NOTITALIC | STFF_UNDERLINE), 1);
  item->m_pFont->GetLogFont(&logFont);
  EXPECT_TRUE(logFont.lfItalic);
  EXPECT_TRUE(logFont.lfUnderline);
  EXPECT_EQ(tree.UpdateItemFont(item, 0), 0);
  EXPECT_EQ(tree.UpdateItemFont(nullptr, STFF_ITALIC), 0);
}

TEST(Colors, FallBackFromItemToControlToSystem) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  EXPECT_EQ(tree.GetItemTextColor(item), ::GetSysColor(COLOR_WINDOWTEXT));
  EXPECT_EQ(tree.GetItemBkColor(item), ::GetSysColor(COLOR_WINDOW));
  tree.SetTextColor(RGB(1, 2, 3));
  tree.SetBkColor(RGB(4, 5, 6));
  EXPECT_EQ(tree.GetItemTextColor(item), RGB(1, 2, 3));
  EXPECT_EQ(tree.GetItemBkColor(item), RGB(4, 5, 6));
  EXPECT_EQ(tree.GetItemTextColor(nullptr), ::GetSysColor(COLOR_WINDOWTEXT));
  EXPECT_EQ(tree.GetItemBkColor(nullptr), RGB(4, 5, 6));
  tree.SetItemTextColor(item, RGB(7, 8, 9));
  tree.SetItemBkColor(item, RGB(10, 11, 12));
  EXPECT_EQ(tree.GetItemTextColor(item), RGB(7, 8, 9));
  EXPECT_EQ(tree.GetItemBkColor(item), RGB(10, 11, 12));
}

TEST(Colors, GreyTextDefaultsToTheHighlight) {
  TestTree tree;
  EXPECT_EQ(tree.GetGrayTextColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(tree.GetHighlightColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(tree.GetShowAlwaysColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(tree.GetTextHighlightColor(), ::GetSysColor(COLOR_HIGHLIGHTTEXT));
}

TEST(ImageLists, NullChangesNothingAndStateAsksForButtons) {
  TestTree tree;
  CImageList images, states;
  images.Create(16, 12, ILC_COLOR32, 1, 1);
  states.Create(10, 10, ILC_COLOR32, 1, 1);
  EXPECT_EQ(tree.SetImageList(nullptr, STIL_NORMAL), nullptr);
  EXPECT_EQ(tree.SetImageList(&images, static_cast<VornTreeImageList>(7)), nullptr);
  EXPECT_EQ(tree.SetImageList(&images, STIL_NORMAL), nullptr) << "no earlier list";
  CSize size;
  EXPECT_EQ(tree.GetImageSize(STIL_NORMAL, &size), 1);
  EXPECT_EQ(size, CSize(16, 12));
  EXPECT_EQ(tree.GetImageSize(static_cast<VornTreeImageList>(4), &size), 0);
  tree.SetImageList(&states, STIL_STATE);
  EXPECT_EQ(tree.GetImageList(STIL_STATE), nullptr) << "the button list decides";
  tree.SetImageList(&images, STIL_BUTTON);
  ASSERT_NE(tree.GetImageList(STIL_STATE), nullptr);
  EXPECT_EQ(tree.GetImageList(STIL_STATE)->GetSafeHandle(), states.GetSafeHandle());
  tree.DetachImageList(STIL_NORMAL);
  EXPECT_EQ(tree.GetImageList(STIL_NORMAL), nullptr);
  tree.GetImageSize(STIL_NORMAL, &size);
  EXPECT_EQ(size, CSize(16, 12)) << "the size stays";
}

TEST(ImageLists, AStaleListIsRefusedAndTheOldOneStays) {
  TestTree tree;
  CImageList good, stale;
  good.Create(16, 16, ILC_COLOR32, 1, 1);
  tree.SetImageList(&good, STIL_NORMAL);
  stale.Create(8, 8, ILC_COLOR32, 1, 1);
  ::ImageList_Destroy(stale.m_hImageList);
  EXPECT_EQ(tree.SetImageList(&stale, STIL_NORMAL), nullptr);
  EXPECT_EQ(tree.GetImageList(STIL_NORMAL)->GetSafeHandle(), good.GetSafeHandle());
  stale.m_hImageList = nullptr;
}

TEST(ImageLists, HighImagesMakeRowsHighAndLeaveTheMeasuredHeight) {
  TestTree tree;
  CVornTreeItem* const item = tree.Add("x");
  const int measured = item->m_nHeight;
  CImageList images;
  images.Create(24, 48, ILC_COLOR32, 1, 1);
  tree.SetImageList(&images, STIL_NORMAL);
  int cx = 0, cy = 0;
  EXPECT_EQ(tree.GetSize(cx, cy), 1);
  EXPECT_EQ(cy, 48);
  EXPECT_EQ(item->m_nHeight, measured);
}

}  // namespace
