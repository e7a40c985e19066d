// Sizes and places of items: the measured label, the end of the label for the scroll range, rectangles on
// the screen, and the two operations that turn a change into a layout.
#include <thread>

#include "core/VornFunctions.h"
#include "tree/painted_tree.h"

namespace {

using support::FontOfHeight;
using support::kLinesAndButtons;
using support::SolidImages;
using support::TestTree;

class TreeGeometry : public support::PaintedTree {
 protected:
  void UseFontOfHeight(int pixels) {
    font = FontOfHeight(pixels);
    ASSERT_NE(font, nullptr);
    tree.SetFont(font.get(), FALSE);
  }
  // Computed anew.
  int RightOf(CVornTreeItem* item) {
    tree.SetRedraw(FALSE);
    tree.SetItemText(item, std::wstring(tree.GetItemText(item)).c_str());
    tree.SetRedraw(TRUE);
    return Right(item);
  }
  // As it is kept; the item is a row.
  int Right(CVornTreeItem* item) {
    int cx = 0, cy = 0;
    tree.GetSize(cx, cy);
    return item->m_nLabelOffset;
  }
  int Height(CVornTreeItem* item) { return support::HeightOf(tree, item); }

  std::unique_ptr<CFont> font;
};

// --- Measuring -------------------------------------------------------------------------------------

TEST_F(TreeGeometry, HeightsAreTheTextsPlusTheSpacingMadeEven) {
  Create(0);
  UseFontOfHeight(15);
  CVornTreeItem* const item = tree.Add("x");
  EXPECT_EQ(item->m_nHeight, 18) << "15 + 2, made even";
  tree.SetItemSpacing(CVornTreeCtrl::SpacingLarge);
  EXPECT_EQ(item->m_nHeight, 18) << "the setter stores only";
  tree.SetItemText(item, L"x");
  EXPECT_EQ(item->m_nHeight, 26) << "15 + 10, made even";
  tree.SetItemSpacing(CVornTreeCtrl::SpacingLarger);
  tree.SetItemText(item, L"x");
  EXPECT_EQ(item->m_nHeight, 30) << "15 + 15";
  tree.SetItemSpacing(static_cast<CVornTreeCtrl::ItemSpacing>(3));
  tree.SetItemText(item, L"x");
  EXPECT_EQ(item->m_nHeight, 18) << "an unknown spacing counts as the first";
}

TEST_F(TreeGeometry, GetItemSizeItselfDoesNotRound) {
  Create(0);
  UseFontOfHeight(15);
  CVornTreeItem* const item = tree.Add("x");
  EXPECT_EQ(tree.GetItemSize(item), 1);
  EXPECT_EQ(item->m_nHeight, 17);
  tree.SetRedraw(FALSE);
  tree.SetItemText(item, L"x");
  EXPECT_EQ(item->m_nHeight, 18);
  EXPECT_EQ(item->m_nLabelOffset, 0);
  tree.SetRedraw(TRUE);
}

TEST_F(TreeGeometry, TheWidthIsTheTextsPlusTwo) {
  Create(0);
  UseFontOfHeight(16);
  for (const wchar_t* text : {L"", L"x", L"Une étiquette", L"WWWWWWWWWWWWWWWW"}) {
    CVornTreeItem* const item = tree.Add("label");
    tree.SetItemText(item, text);
    SIZE size{};
    CClientDC dc(&tree);
    CFont* const earlier = dc.SelectObject(font.get());
    ::GetTextExtentPoint32W(dc, text, static_cast<int>(wcslen(text)), &size);
    dc.SelectObject(earlier);
    EXPECT_EQ(item->m_nTextWidth, size.cx + 2);
  }
}

TEST_F(TreeGeometry, ItemsWithAFontOfTheirOwnAreMeasuredInIt) {
  Create(0);
  UseFontOfHeight(16);
  CVornTreeItem* const item = tree.Add("text");
  const int width = item->m_nTextWidth;
  const auto large = FontOfHeight(31);
  ASSERT_NE(large, nullptr);
  tree.SetItemFont(item, large.get());
  EXPECT_EQ(item->m_nHeight, 34);
  EXPECT_GT(item->m_nTextWidth, width);
  EXPECT_EQ(item->m_nLabelOffset, 0);
}

TEST_F(TreeGeometry, LabelsAreMeasuredAsTheyAreShown) {
  Create(0);
  VornTreeSetEncodedSequence(L"<bs>");
  CVornTreeItem* const encoded = tree.Add("a<bs>b<bs>c");
  VornTreeSetEncodedSequence(nullptr);
  CVornTreeItem* const plain = tree.Add("a\\b\\c");
  CVornTreeItem* const whole = tree.Add("a<bs>b<bs>c");
  EXPECT_EQ(encoded->m_nTextWidth, plain->m_nTextWidth);
  EXPECT_GT(whole->m_nTextWidth, plain->m_nTextWidth);
}

TEST_F(TreeGeometry, MeasuresTheSameWhileRedrawIsHeld) {
  Create(0);
  UseFontOfHeight(15);
  CVornTreeItem* const before = tree.Add("some label");
  tree.SetRedraw(FALSE);
  CVornTreeItem* const held = tree.Add("some label");
  EXPECT_EQ(held->m_nHeight, before->m_nHeight);
  EXPECT_EQ(held->m_nTextWidth, before->m_nTextWidth);
  tree.SetRedraw(TRUE);
}

TEST_F(TreeGeometry, AControlWithoutAWindowMeasuresToo) {
  TestTree windowless;
  CVornTreeItem* const item = windowless.Add("x");
  EXPECT_EQ(item->m_nHeight % 2, 0);
  EXPECT_GT(item->m_nTextWidth, 2);
  EXPECT_EQ(windowless.GetItemSize(nullptr), 0);
}

// --- Height ----------------------------------------------------------------------------------------

TEST_F(TreeGeometry, RowsAreNeverLowerThanTheImages) {
  Create(0);
  UseFontOfHeight(15);
  CVornTreeItem* const item = tree.Add("x");
  int cx = 0, cy = 0;
  tree.GetSize(cx, cy);
  EXPECT_EQ(cy, 18);
  SolidImages images(24, 24, 1);
  tree.SetImageList(&images.list, STIL_NORMAL);
  tree.GetSize(cx, cy);
  EXPECT_EQ(cy, 24);
  EXPECT_EQ(item->m_nHeight, 18) << "the measured height stays";
  Show();
  EXPECT_EQ(LabelOf(item).Height(), 24);
  SolidImages lower(16, 12, 1);
  tree.SetImageList(&lower.list, STIL_NORMAL);
  Show();
  EXPECT_EQ(LabelOf(item).Height(), 18);
}

// --- The end of the label --------------------------------------------------------------------------

TEST_F(TreeGeometry, TheEndOfTheLabelByStyleLevelAndExtras) {
  Create(0, 400, 160);
  tree.Build("root [a+ [b+ [c]]]");
  CVornTreeItem* const items[] = {tree["a"], tree["b"], tree["c"]};
  constexpr int kIndent = 20;
  const unsigned styles[] = {0, 1, 2, 3, 4, 5, 6, 7, 0x800, 0x802, 0x804, 0x806};
  for (const unsigned style : styles) {
    tree.ModifyStyle(0x0A07, style);
    const bool column = (style & 6) == 6 || (style & 5) == 5 || (style & 0x804) == 0x804;
    const bool buttons = (style & 0x801) != 0;
    for (CVornTreeItem* item : items) {
      const int level = item->m_nLevel, width = item->m_nTextWidth;
      SCOPED_TRACE(std::to_string(style) + " level " + std::to_string(level));
      const bool deep = level > 1 || column;
      // Meant: without a check box or image the level plays no part.
      EXPECT_EQ(RightOf(item), (deep ? 2 + kIndent + 2 : buttons ? 2 + kIndent : 2) + width);
      const int start = deep ? kIndent * level + 2 + kIndent : buttons ? kIndent : 0;
      tree.SetCheckBox(item, 1);
      EXPECT_EQ(RightOf(item), start + 2 + width);
      tree.SetItemImage(item, 0, 0);
      EXPECT_EQ(RightOf(item), start + 16 + 2 + width);
      tree.SetCheckBox(item, 0);
      EXPECT_EQ(RightOf(item), start + 2 + width);
      tree.SetItemImage(item, -1, -1);
      tree.ModifyStyle(0, STS_CHECKBOXES);
      EXPECT_EQ(RightOf(item), start + 2 + width) << "the style is as good as the item's flag";
      tree.ModifyStyle(STS_CHECKBOXES, 0);
    }
  }
}

TEST_F(TreeGeometry, TheEndOfTheLabelLeavesOutTheStateImage) {
  Create(kLinesAndButtons);
  CVornTreeItem* const item = tree.Add("x");
  const int right = RightOf(item);
  tree.SetItemImageState(item, 2);
  EXPECT_EQ(RightOf(item), right);
}

TEST_F(TreeGeometry, TheEndOfTheLabelIsKeptUntilTextOrFontChange) {
  Create(kLinesAndButtons);
  CVornTreeItem* const item = tree.Add("x");
  const int right = RightOf(item);
  EXPECT_EQ(item->m_nLabelOffset, right);
  tree.SetIndent(35);
  EXPECT_EQ(Right(item), right) << "the indentation alone does not tell the items";
  tree.ModifyStyle(kLinesAndButtons, 0);
  EXPECT_EQ(Right(item), right);
  tree.ModifyStyle(0, kLinesAndButtons);
  tree.SetItemText(item, L"x");
  EXPECT_EQ(Right(item), right + 15);
  tree.SetIndent(50);
  tree.SetItemFont(item, tree.GetItemFont(item));
  EXPECT_EQ(Right(item), right + 30);
}

// --- GetItemRect and GetSize -----------------------------------------------------------------------

TEST_F(TreeGeometry, GetItemRectGivesTheLabelOrTheWholeRow) {
  Create(kLinesAndButtons);
  tree.Build("root [a b]");
  Show();
  CRect text, row;
  EXPECT_EQ(tree.GetItemRect(tree["b"], text, 1), 1);
  EXPECT_EQ(tree.GetItemRect(tree["b"], row, 0), 1);
  EXPECT_EQ(text, CRect(tree["b"]->m_Rect));
  EXPECT_EQ(row, CRect(0, text.top, 200, text.bottom));
  EXPECT_EQ(tree.GetItemRect(tree["b"], text, 5), 1) << "any value asks for the text";
  EXPECT_NE(text, row);
}

TEST_F(TreeGeometry, GetItemRectEmptiesTheRectangleWhateverFollows) {
  Create(kLinesAndButtons, 200, 60);
  Fill(30);
  CRect rect(1, 2, 3, 4);
  EXPECT_EQ(tree.GetItemRect(Row(29), rect, 0), 0) << "below the window";
  EXPECT_EQ(rect, CRect());
  rect = CRect(1, 2, 3, 4);
  EXPECT_EQ(tree.GetItemRect(nullptr, rect, 0), 0);
  EXPECT_EQ(rect, CRect());
  rect = CRect(1, 2, 3, 4);
  EXPECT_EQ(tree.GetItemRect(STI_ROOT, rect, 1), 0);
  EXPECT_EQ(rect, CRect());
  EXPECT_EQ(tree.GetItemRect(Row(0), nullptr, 1), 0);
  tree.SetScrollPos(SB_VERT, 10);
  Repaint();
  rect = CRect(1, 2, 3, 4);
  EXPECT_EQ(tree.GetItemRect(Row(0), rect, 0), 0) << "above the window";
  EXPECT_EQ(rect, CRect());
  EXPECT_EQ(tree.GetItemRect(tree.GetFirstDisplayItem(), rect, 0), 1);
  EXPECT_EQ(tree.GetItemRect(tree.GetLastDisplayItem(), rect, 0), 1) << "the last one is found";
  TestTree windowless;
  CVornTreeItem* const item = windowless.Add("x");
  EXPECT_EQ(windowless.GetItemRect(item, rect, 0), 0);
  EXPECT_EQ(rect, CRect());
}

TEST_F(TreeGeometry, GetItemRectReadsTheLastPaint) {
  Create(kLinesAndButtons);
  tree.Build("root [a b]");
  Show();
  tree.SetRedraw(FALSE);
  CVornTreeItem* const early = tree.Add("early", STI_ROOT, STI_FIRST);
  CRect rect;
  EXPECT_EQ(tree.GetItemRect(early, rect, 1), 0) << "not yet in the display list";
  CVornTreeItem* const between = tree.Add("between", STI_ROOT, tree["a"]);
  EXPECT_EQ(tree.GetItemRect(between, rect, 1), 1);
  EXPECT_EQ(rect, CRect()) << "within the list, but never drawn";
  EXPECT_EQ(tree.GetItemRect(tree["b"], rect, 1), 1);
  EXPECT_EQ(rect.top, LabelOf("a").bottom) << "where it was";
  tree.SetRedraw(TRUE);
  EXPECT_EQ(LabelOf("b").top, 3 * LabelOf("a").Height());
}

TEST_F(TreeGeometry, GetSizeIsTheExtentOfAllRows) {
  Create(kLinesAndButtons, 200, 40);
  int cx = 5, cy = 5;
  EXPECT_EQ(tree.GetSize(cx, cy), 1);
  EXPECT_EQ(cx, 0);
  EXPECT_EQ(cy, 0);
  tree.Build("root [a+ [somewhatLonger] b [notCountedAtAll] c!]");
  EXPECT_EQ(tree.GetSize(cx, cy), 1);
  EXPECT_EQ(cy, 3 * Height(tree["a"]));
  EXPECT_EQ(cx, tree["somewhatLonger"]->m_nLabelOffset);
}

TEST_F(TreeGeometry, PlainSettersStoreAndDoNothingElse) {
  Create(kLinesAndButtons);
  tree.Build("root [a]");
  Show();
  const support::Picture before = Look();
  const CRect label = LabelOf("a");
  EXPECT_EQ(tree.GetIndent(), 20u);
  const int height = tree.GetDefaultHeight();
  tree.SetIndent(40);
  tree.SetItemSpacing(CVornTreeCtrl::SpacingLarger);
  EXPECT_EQ(tree.GetIndent(), 40u);
  EXPECT_EQ(tree.GetDefaultHeight(), height);
  EXPECT_EQ(TestTree().GetDefaultHeight(), 20);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
  EXPECT_EQ(Look(), before);
  EXPECT_EQ(LabelOf("a"), label);
  Repaint();
  EXPECT_EQ(LabelOf("a").left, label.left + 20) << "the next paint takes it up";
  EXPECT_EQ(LabelOf("a").Height(), label.Height());
}

// --- UpdateItem, UpdateTree, CalcLayout ------------------------------------------------------------

TEST_F(TreeGeometry, UpdateItemInvalidatesTheWholeRowAndAsksForALayout) {
  Create(kLinesAndButtons);
  tree.Build("root [a b]");
  Show();
  tree.UpdateItem(tree["b"], 0);
  CRect update;
  ASSERT_TRUE(::GetUpdateRect(tree, update, FALSE));
  EXPECT_EQ(update, CRect(0, LabelOf("b").top, 200, LabelOf("b").bottom));
  ::UpdateWindow(tree);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
  tree.UpdateItem(tree["b"], 1);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE)) << "painted at once";
}

TEST_F(TreeGeometry, UpdateItemOfWhatIsNotOnTheScreenDoesNothing) {
  Create(kLinesAndButtons, 200, 60);
  Fill(30);
  ASSERT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
  tree.UpdateItem(Row(29), 1);
  tree.UpdateItem(nullptr, 1);
  tree.UpdateItem(STI_ROOT, 1);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
}

TEST_F(TreeGeometry, UpdateItemWhileRedrawIsHeldAsksForNoLayout) {
  Create(kLinesAndButtons, 200, 60);
  Fill(30);
  tree.SetRedraw(FALSE);
  tree.UpdateItem(Row(0), 1);
  tree.SetScrollPos(SB_VERT, 1);
  tree.SendMessage(WM_PAINT);
  EXPECT_EQ(First(), "r1") << "a paint draws, and does not lay out first";
  tree.SetRedraw(TRUE);
  tree.UpdateItem(Row(1), 0);
  EXPECT_TRUE(::GetUpdateRect(tree, nullptr, FALSE));
}

TEST_F(TreeGeometry, UpdateTreeDoesNothingWhileRedrawIsHeld) {
  Create(kLinesAndButtons, 200, 100);
  tree.SetRedraw(FALSE);
  for (int i = 0; i < 30; ++i) tree.Add("x");
  tree.UpdateTree();
  EXPECT_FALSE(HasBar(SB_VERT));
  EXPECT_EQ(tree.GetDisplayCount(), 0);
  tree.SetRedraw(TRUE);
  EXPECT_TRUE(HasBar(SB_VERT));
  EXPECT_GT(tree.GetDisplayCount(), 0);
}

TEST_F(TreeGeometry, UpdateTreeOfAnotherThreadLeavesTheBarsToTheWindowsOwn) {
  Create(kLinesAndButtons, 200, 100);
  Fill(30);
  CVornTreeItem* const child = tree.Add("child", Row(0));
  ASSERT_EQ(Bar(SB_VERT).nMax, 30);
  // A move changes the rows and leaves the layout to the next paint.
  EXPECT_EQ(tree.MoveItem(STI_ROOT, child, STI_LAST), 1);
  std::thread([this] { tree.UpdateTree(); }).join();
  EXPECT_EQ(Bar(SB_VERT).nMax, 30) << "not touched from a foreign thread";
  MSG message;
  ASSERT_TRUE(::PeekMessageW(&message, tree, WM_USER + 1000, WM_USER + 1000, PM_REMOVE));
  EXPECT_EQ(message.message, 2024u);
  EXPECT_EQ(message.wParam, 0u);
  EXPECT_EQ(message.lParam, 0);
  ::DispatchMessageW(&message);
  EXPECT_EQ(Bar(SB_VERT).nMax, 31);
}

TEST_F(TreeGeometry, CalcLayoutTakesTheClientAreaAndSetsTheBars) {
  Create(kLinesAndButtons, 200, 100);
  tree.SetRedraw(FALSE);
  for (int i = 0; i < 30; ++i) tree.Add("x");
  EXPECT_FALSE(HasBar(SB_VERT));
  tree.CalcLayout();
  EXPECT_TRUE(HasBar(SB_VERT));
  tree.SetRedraw(TRUE);
  TestTree windowless;
  windowless.Add("x");
  windowless.CalcLayout();
  windowless.UpdateTree();
  windowless.UpdateItem(windowless["x"], 1);
}

TEST_F(TreeGeometry, EveryChangeReachesTheBarsThroughTheNextPaint) {
  Create(kLinesAndButtons, 200, 100);
  Fill(3);
  ASSERT_FALSE(HasBar(SB_VERT));
  const auto large = FontOfHeight(40);
  ASSERT_NE(large, nullptr);
  for (int i = 0; i < 3; ++i) tree.SetItemFont(Row(i), large.get());
  ::UpdateWindow(tree);
  EXPECT_TRUE(HasBar(SB_VERT));
}

// --- Far values ------------------------------------------------------------------------------------

TEST_F(TreeGeometry, AnIndentationOfAnySizeIsBorne) {
  Create(kLinesAndButtons | STS_CHECKBOXES);
  tree.Build("root [a+ [b+ [c]]]");
  for (const unsigned indent : {0u, 1u, 100000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    tree.SetIndent(indent);
    tree.SetRedraw(FALSE);
    for (const char* label : {"a", "b", "c"}) tree.SetItemText(tree[label], support::Wide(label).c_str());
    tree.SetRedraw(TRUE);
    Zone(50, 30);
    tree.EnsureVisible(tree["c"]);
    ::UpdateWindow(tree);
  }
  tree.SetIndent(20);
  Show();
  EXPECT_EQ(tree.GetDisplayCount(), 3);
}

}  // namespace
