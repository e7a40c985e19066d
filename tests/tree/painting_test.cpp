// Whole paints of the control: every style on every kind of row, pixel by pixel, and what a repaint of a
// part shows.
#include <random>

#include "tree/painted_tree.h"
#include "tree/row_reference.h"

namespace {

using support::kLinesAndButtons;
using support::Picture;
using support::RowReference;
using support::SolidImages;

constexpr COLORREF kPaper = RGB(250, 240, 220);
constexpr COLORREF kOtherPaper = RGB(210, 230, 250);

class TreePainting : public support::PaintedTree {
 protected:
  // Empties every label and gives it a background of its own, so that each pixel is known.
  void BlankLabels() {
    tree.SetRedraw(FALSE);
    Blank(tree.GetRootItem());
    tree.SetRedraw(TRUE);
  }
  void Blank(CVornTreeItem* parent) {
    for (CVornTreeItem* child = parent->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      tree.SetItemText(child, L"");
      tree.SetItemBkColor(child, m_blank++ % 2 ? kPaper : kOtherPaper);
      Blank(child);
    }
  }
  // The same client area, drawn by the reference.
  Picture Expected() {
    RowReference reference(tree, tree.GetStyle(), tree.IsDisplayOnlyActiveDocument() == 1 ? 1 : 0, lists);
    CRect client;
    tree.GetClientRect(client);
    Picture picture = reference.Draw(tree.GetFirstDisplayItem(), tree.GetScrollPos(SB_HORZ), client.Size());
    labels = reference.Labels();
    return picture;
  }
  void ExpectAsReference(const std::string& what) {
    Show();
    const Picture expected = Expected(), actual = Look();
    if (expected == actual) return;
    support::SavePng(expected, "tree-expected.png");
    support::SavePng(actual, "tree-actual.png");
    ADD_FAILURE() << what << ", style " << std::hex << tree.GetStyle() << ": see tree-expected.png";
  }
  void SetStyle(unsigned style) {
    constexpr unsigned kAll = STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT | STS_CHECKBOXES |
                              STS_IMAGEBUTTONS | STS_EXPANDEDIMAGE | STS_SHOWSELALWAYS;
    tree.ModifyStyle(kAll, style);
  }
  void UseOwnLists() {
    tree.SetImageList(&normal.list, STIL_NORMAL);
    tree.SetImageList(&checkBoxes.list, STIL_CHECKBOX);
    tree.SetImageList(&buttons.list, STIL_BUTTON);
    tree.SetImageList(&states.list, STIL_STATE);
    lists = {&normal.list, &checkBoxes.list, &buttons.list, &states.list};
  }

  SolidImages normal{18, 22, 4}, checkBoxes{16, 16, 2}, buttons{11, 7, 2}, states{10, 12, 3};
  RowReference::Lists lists;
  std::map<CVornTreeItem*, CRect> labels;
  int m_blank = 0;
};

// All eight pairs of lines, buttons and first-level styles, with either kind of button.
constexpr unsigned kLineStyles[] = {0,
                                    STS_HASBUTTONS,
                                    STS_HASLINES,
                                    STS_LINESATROOT,
                                    STS_HASBUTTONS | STS_HASLINES,
                                    STS_HASBUTTONS | STS_LINESATROOT,
                                    STS_HASLINES | STS_LINESATROOT,
                                    kLinesAndButtons,
                                    STS_IMAGEBUTTONS,
                                    STS_IMAGEBUTTONS | STS_HASBUTTONS,
                                    STS_IMAGEBUTTONS | STS_HASLINES,
                                    STS_IMAGEBUTTONS | STS_LINESATROOT,
                                    STS_IMAGEBUTTONS | STS_HASBUTTONS | STS_HASLINES,
                                    STS_IMAGEBUTTONS | STS_HASBUTTONS | STS_LINESATROOT,
                                    STS_IMAGEBUTTONS | STS_HASLINES | STS_LINESATROOT,
                                    STS_IMAGEBUTTONS | kLinesAndButtons};

constexpr const char* kScenes[] = {
    "root [only]",
    "root [a b]",
    "root [a b c]",
    "root [a+ [a1+ [a11 a12] a2] b+ [b1+ [b11+ [b111]]] c [c1]]",
    "root [h! a+ [h1! a1 h2! a2 h3!] h4! b+ [x! [y]] c! [d]]",
    "root [a# b+# c+ [d!]]",
};

TEST_F(TreePainting, EveryLineAndButtonStyleOnEveryShapeOfTree) {
  Create(0, 180, 240);
  UseOwnLists();
  for (const char* scene : kScenes) {
    tree.DeleteAllItems(STI_ROOT);
    tree.Build(scene);
    BlankLabels();
    for (const unsigned style : kLineStyles) {
      SetStyle(style);
      ExpectAsReference(scene);
    }
  }
}

TEST_F(TreePainting, EveryStyleWithTheSharedLists) {
  Create(0, 180, 240);
  lists.checkBoxes = tree.GetImageList(STIL_CHECKBOX);
  lists.buttons = tree.GetImageList(STIL_BUTTON);
  ASSERT_NE(lists.checkBoxes, nullptr);
  ASSERT_NE(lists.buttons, nullptr);
  tree.Build("root [a+ [a1+ [a11= a12] a2] b= [b1] c]");
  BlankLabels();
  for (const unsigned style : kLineStyles) {
    for (const unsigned boxes : {0u, static_cast<unsigned>(STS_CHECKBOXES)}) {
      SetStyle(style | boxes);
      ExpectAsReference("shared lists");
    }
  }
}

TEST_F(TreePainting, EveryMixOfExtrasBeforeTheLabel) {
  Create(kLinesAndButtons, 180, 400);
  UseOwnLists();
  tree.Build("root [a+ [b c d e f g h i] j k l m]");
  int mix = 0;
  for (const char* label : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m"}) {
    CVornTreeItem* const item = tree[label];
    if (mix & 1) tree.SetCheckBox(item, 1);
    if (mix & 2) tree.SetItemImageState(item, mix % 3);
    if (mix & 4) tree.SetItemImage(item, mix % 2, 2);
    if (mix == 8) tree.SetItemImage(item, 1, -1);
    if (mix == 9) tree.SetItemImage(item, -1, 3);
    if (mix == 10) tree.ModifyItemState(item, 0, STIS_CHECKED);
    ++mix;
  }
  BlankLabels();
  for (const unsigned extra : {0u, 0x0100u, 0x0200u, 0x0300u}) {
    SetStyle(kLinesAndButtons | extra);
    ExpectAsReference("not selected");
  }
  tree.SetFocus();
  tree.SetFocusRectVisible(false);
  tree.EnableMultipleSelection(1);
  for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr; row = tree.GetNextVisibleItem(row)) {
    tree.SelectItem(row, 1);
  }
  for (const unsigned extra : {0u, 0x0100u, 0x0200u, 0x0300u}) {
    SetStyle(kLinesAndButtons | extra);
    ExpectAsReference("all selected");
  }
}

TEST_F(TreePainting, DocumentModeTakesOneLevelOff) {
  Create(0, 180, 240);
  UseOwnLists();
  tree.SetFocusRectVisible(false);
  tree.Build("root [a+ [a1+ [a11 a12+ [a121]] a2 a3+ [a31]] b]");
  tree.SelectItem(tree["a1"]);
  CVornTreeItem* const first = tree["a1"];
  tree.SetDocumentDisplay(1);
  BlankLabels();
  for (const unsigned style : kLineStyles) {
    SetStyle(style | STS_CHECKBOXES);
    ExpectAsReference("document mode");
    ASSERT_EQ(tree.GetFirstDisplayItem(), first);
  }
}

TEST_F(TreePainting, InDocumentModeTheDocumentsChildrenStandAtTheFirstColumn) {
  Create(kLinesAndButtons);
  tree.Build("root [a+ [a1+ [a11]]]");
  tree.SelectItem(tree["a1"]);
  EXPECT_EQ(LabelOf("a1").left, 2 + 2 * 20);
  tree.SetDocumentDisplay(1);
  Show();
  EXPECT_EQ(LabelOf("a1").left, 2 + 20) << "one column, and no extra indentation";
  EXPECT_EQ(LabelOf("a11").left, 2 + 2 * 20);
  tree.SetDocumentDisplay(2);
  Show();
  EXPECT_EQ(LabelOf("a1").left, 2 + 2 * 20) << "only the value 1 takes a level off";
}

TEST_F(TreePainting, ScrolledSidewaysAllMovesLeft) {
  Create(kLinesAndButtons | STS_CHECKBOXES, 60, 240);
  UseOwnLists();
  tree.Build(kScenes[3]);
  BlankLabels();
  for (const int position : {1, 13, 40}) {
    tree.SetScrollPos(SB_HORZ, position);
    ::RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ASSERT_EQ(tree.GetScrollPos(SB_HORZ), position);
    const Picture expected = Expected();
    EXPECT_EQ(Look(), expected) << position;
    EXPECT_EQ(CRect(tree.GetFirstDisplayItem()->m_Rect), labels[tree.GetFirstDisplayItem()]);
  }
}

TEST_F(TreePainting, EveryRowKeepsThePlaceWhereItsLabelWasDrawn) {
  Create(kLinesAndButtons | STS_CHECKBOXES, 180, 240);
  UseOwnLists();
  tree.Build(kScenes[3]);
  Show();
  Expected();
  ASSERT_EQ(labels.size(), 10u);
  for (const auto& [item, rect] : labels) EXPECT_EQ(CRect(item->m_Rect), rect) << tree.Name(item);
}

TEST_F(TreePainting, ThePaintWalksFromTheScrollPosition) {
  Create(kLinesAndButtons, 180, 80);
  UseOwnLists();  // rows as high as the images
  tree.Build(kScenes[3]);
  BlankLabels();
  ASSERT_TRUE(HasBar(SB_VERT));
  CVornTreeItem* row = tree.GetFirstVisibleItem();
  for (int position = 0; row != nullptr; ++position, row = tree.GetNextVisibleItem(row)) {
    tree.SetScrollPos(SB_VERT, position);
    if (tree.GetScrollPos(SB_VERT) != position) break;  // the range ends
    Repaint();
    EXPECT_EQ(tree.GetFirstDisplayItem(), row);
    EXPECT_EQ(Look(), Expected()) << position;
  }
}

TEST_F(TreePainting, AScrollPositionBeyondTheEndLeavesTheBackgroundOnly) {
  Create(kLinesAndButtons, 180, 80);
  Fill(30);
  ASSERT_GT(tree.GetDisplayCount(), 0);
  SCROLLINFO info = Bar(SB_VERT);
  info.fMask = SIF_ALL;
  info.nMax = 100;
  info.nPos = 60;
  tree.SetScrollInfo(SB_VERT, &info, TRUE);
  Repaint();
  EXPECT_EQ(tree.GetDisplayCount(), 0);
  EXPECT_EQ(tree.GetFirstDisplayItem(), nullptr);
  EXPECT_EQ(tree.GetLastDisplayItem(), nullptr);
  const Picture picture = Look();
  EXPECT_EQ(picture.Count(support::Rgb(::GetSysColor(COLOR_WINDOW))), picture.width * picture.height);
}

TEST_F(TreePainting, ARowThatStartsOnTheBottomEdgeIsDrawn) {
  Create(0, 180, 100);
  Fill(40);
  const int height = LabelOf("r0").Height();
  Resize(180, 4 * height);
  EXPECT_EQ(tree.GetDisplayCount(), 5);
  EXPECT_EQ(tree.Name(tree.GetLastDisplayItem()), "r4");
  EXPECT_EQ(CRect(Row(4)->m_Rect).top, 4 * height);
  Resize(180, 4 * height - 1);
  EXPECT_EQ(tree.GetDisplayCount(), 4);
}

TEST_F(TreePainting, AnEmptyTreeShowsTheBackgroundColour) {
  Create(kLinesAndButtons);
  tree.SetBkColor(kPaper);
  Repaint();
  EXPECT_EQ(tree.GetDisplayCount(), 0);
  const Picture picture = Look();
  EXPECT_EQ(picture.Count(support::Rgb(kPaper)), picture.width * picture.height);
}

TEST_F(TreePainting, ErasingIsAnsweredAndDrawsNothing) {
  Create(kLinesAndButtons);
  tree.Build("root [a]");
  Show();
  const support::Canvas canvas(50, 50, kPaper);
  const HDC dc = canvas;
  EXPECT_EQ(tree.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 1);
  EXPECT_EQ(canvas.Read().Count(support::Rgb(kPaper)), 50 * 50);
}

TEST_F(TreePainting, APaintThatFindsALayoutPendingLaysOutFirst) {
  Create(kLinesAndButtons, 180, 80);
  tree.Build("root [a b]");
  Show();
  const auto large = support::FontOfHeight(44);
  ASSERT_NE(large, nullptr);
  for (const char* label : {"a", "b"}) tree.SetItemFont(tree[label], large.get());
  EXPECT_FALSE(HasBar(SB_VERT));
  ::UpdateWindow(tree);
  EXPECT_TRUE(HasBar(SB_VERT));
  EXPECT_EQ(LabelOf("a").Height(), 46);
  EXPECT_EQ(LabelOf("b").top, 46);
}

TEST_F(TreePainting, TheFocusRectangleLiesOnTheLabel) {
  Create(kLinesAndButtons);
  tree.Build("root [a b]");
  BlankLabels();
  CVornTreeItem* const second = tree.GetRootItem()->m_pLastChild;
  tree.SetFocus();
  tree.SelectItem(second);
  tree.SetFocusRectVisible(false);
  Repaint();
  const Picture without = Look();
  tree.SetFocusRectVisible(true);
  Repaint();
  const Picture with = Look();
  const CRect label = LabelOf(second);
  int different = 0;
  for (int y = 0; y < with.height; ++y) {
    for (int x = 0; x < with.width; ++x) {
      if (with.At(x, y) == without.At(x, y)) continue;
      ++different;
      const bool inside = x > label.left && x < label.right - 1 && y > label.top && y < label.bottom - 1;
      EXPECT_TRUE(label.PtInRect(CPoint(x, y)) && !inside) << x << ' ' << y;
    }
  }
  EXPECT_GE(different, label.Width()) << "every second pixel of the frame";
}

// --- Parts of the window ---------------------------------------------------------------------------

class TreeRepaint : public TreePainting {
 protected:
  int Random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

  void RandomTree() {
    tree.SetRedraw(FALSE);
    tree.DeleteAllItems(STI_ROOT);
    std::vector<CVornTreeItem*> items{tree.GetRootItem()};
    for (int i = 0; i < 40; ++i) {
      CVornTreeItem* const parent = items[static_cast<std::size_t>(Random(static_cast<int>(items.size())))];
      CVornTreeItem* const item =
          tree.Add("item " + std::to_string(i), parent == items[0] ? STI_ROOT : parent);
      items.push_back(item);
      if (Random(3) == 0) tree.SetCheckBox(item, 1);
      if (Random(3) == 0) tree.SetItemImage(item, Random(4), Random(4));
      if (Random(4) == 0) tree.SetItemImageState(item, Random(3));
      if (Random(3) == 0) tree.SetItemBkColor(item, RGB(Random(256), Random(256), Random(256)));
      if (Random(3) == 0) tree.SetItemTextColor(item, RGB(Random(256), Random(256), Random(256)));
      if (Random(6) == 0) tree.SetItemVisibility(item, 0);
    }
    for (CVornTreeItem* item : items) {
      if (item != tree.GetRootItem() && Random(4) != 0) tree.Expand(item, STE_EXPAND);
    }
    tree.SetRedraw(TRUE);
  }
  void RandomView() {
    SetStyle(kLineStyles[Random(16)] | (Random(2) ? STS_CHECKBOXES : 0u));
    Resize(40 + Random(200), 40 + Random(200));
    for (const int bar : {SB_HORZ, SB_VERT}) {
      if (HasBar(bar)) tree.SetScrollPos(bar, Random(Bar(bar).nMax + 1));
    }
    Repaint();
  }
  // Spoils the pixels, so that only what is really painted anew can come out right.
  void Spoil(const CRect& part) {
    CClientDC dc(&tree);
    dc.FillSolidRect(part, RGB(255, 0, 255));
  }

  std::mt19937 m_random{20240607};
};

TEST_F(TreeRepaint, APartPaintedAloneIsAsInAWholePaint) {
  Create(0);
  UseOwnLists();
  for (int round = 0; round < 25; ++round) {
    RandomTree();
    RandomView();
    const Picture whole = Look();
    for (int part = 0; part < 6; ++part) {
      const int x = Random(whole.width), y = Random(whole.height);
      const CRect rect(x, y, x + 1 + Random(whole.width), y + 1 + Random(whole.height));
      Spoil(rect);
      ::InvalidateRect(tree, rect, part % 2);
      ::UpdateWindow(tree);
      ASSERT_EQ(Look(), whole) << "round " << round << " part " << part;
    }
    CRgn region, more;
    region.CreateRectRgn(0, 0, Random(100), Random(100));
    more.Attach(::CreateEllipticRgn(Random(50), Random(50), 50 + Random(150), 50 + Random(150)));
    region.CombineRgn(&region, &more, RGN_XOR);
    Spoil(CRect(0, 0, 0, 0));
    ::InvalidateRgn(tree, region, TRUE);
    ::UpdateWindow(tree);
    ASSERT_EQ(Look(), whole) << "round " << round;
  }
}

TEST_F(TreeRepaint, AScrollShowsWhatAWholePaintShows) {
  Create(kLinesAndButtons, 120, 100);
  UseOwnLists();
  constexpr int kCodes[] = {SB_LINEUP, SB_LINEDOWN, SB_PAGEUP,       SB_PAGEDOWN,
                            SB_TOP,    SB_BOTTOM,   SB_THUMBPOSITION};
  for (int round = 0; round < 10; ++round) {
    RandomTree();
    RandomView();
    for (int step = 0; step < 12; ++step) {
      const bool across = Random(2) == 0;
      const WPARAM code = MAKEWPARAM(kCodes[Random(7)], Random(20));
      tree.SendMessage(across ? WM_HSCROLL : WM_VSCROLL, code, 0);
      const Picture after = Look();
      Repaint();
      ASSERT_EQ(Look(), after) << "round " << round << " step " << step;
    }
  }
}

TEST_F(TreeRepaint, PixelsMovedByTheSystemAreCompletedByThePaint) {
  Create(kLinesAndButtons, 150, 120);
  UseOwnLists();
  RandomTree();
  RandomView();
  const Picture whole = Look();
  // Another window's drag over the control, or a host that scrolls it as a picture.
  for (int step = 0; step < 10; ++step) {
    ::ScrollWindowEx(tree, Random(40) - 20, Random(40) - 20, nullptr, nullptr, nullptr, nullptr,
                     SW_INVALIDATE);
    Repaint();
    ASSERT_EQ(Look(), whole) << step;
  }
}

TEST_F(TreeRepaint, ChangesOfAnItemShowAsInAWholePaint) {
  Create(kLinesAndButtons, 160, 160);
  UseOwnLists();
  for (int round = 0; round < 15; ++round) {
    RandomTree();
    RandomView();
    for (int step = 0; step < 10; ++step) {
      const int index = Random(40);
      CVornTreeItem* const item = tree["item " + std::to_string(index)];
      if (item == nullptr) continue;
      switch (Random(6)) {
        case 0: tree.SetItemImage(item, Random(4), Random(4)); break;
        case 1: tree.SetItemImageState(item, Random(4) - 1); break;
        case 2: tree.SetCheckBox(item, Random(2)); break;
        case 3: tree.ModifyItemState(item, 0, STIS_CHECKED); break;
        case 4: tree.Expand(item, STE_TOGGLE); break;
        default: tree.SetItemText(item, Random(2) ? L"x" : L"a much longer label"); break;
      }
      ::UpdateWindow(tree);
      const Picture after = Look();
      Repaint();
      ASSERT_EQ(Look(), after) << "round " << round << " step " << step;
      if (tree["item " + std::to_string(index)] == nullptr) tree.SetItemText(item, L"renamed");
    }
  }
  tree.log.Clear();
}

}  // namespace
