// Trees of thousands of rows in a window: what single changes do to the scroll ranges, and where items
// come to be when they are brought into view. Told by a walk of all rows each time.
#include <algorithm>
#include <memory>
#include <random>

#include "support/driver.h"
#include "support/host_window.h"
#include "test_tree.h"
#include "tree/model/VornTreeItem.h"

namespace {

using support::CheckTree;
using support::HostWindow;
using support::TestTree;

constexpr int kRows = 3000;
constexpr int kHeight = 160;

class ManyRows : public testing::Test {
 protected:
  ManyRows() {
    tree.recording = false;
    host = std::make_unique<HostWindow>(support::HostOptions{.cx = 240, .cy = 200});
    tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, kHeight), CWnd::FromHandle(*host), 7);
  }
  ~ManyRows() override {
    if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
  }

  CVornTreeItem* Insert(CVornTreeItem* parent, CVornTreeItem* after, size_t length = 6) {
    const std::wstring label(length, L'm');
    return tree.InsertItem(label.c_str(), -1, -1, parent, after);
  }

  // Each item has some children, all open.
  void FillOpen() {
    tree.SetRedraw(FALSE);
    std::vector<CVornTreeItem*> items;
    for (int i = 0; i < kRows; ++i) {
      CVornTreeItem* const parent = i < 20 ? STI_ROOT : items[static_cast<size_t>(i / 20)];
      items.push_back(Insert(parent, STI_LAST, 3 + static_cast<size_t>(i % 5)));
    }
    tree.Expand(STI_ROOT, STE_EXPANDALL);
    tree.SetRedraw(TRUE);
  }

  std::vector<CVornTreeItem*> Walk() {
    std::vector<CVornTreeItem*> rows;
    for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr;
         row = tree.GetNextVisibleItem(row)) {
      rows.push_back(row);
    }
    return rows;
  }

  CVornTreeItem* AnyOf(const std::vector<CVornTreeItem*>& rows) { return rows[random() % rows.size()]; }

  SCROLLINFO Bar(int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    tree.GetScrollInfo(bar, &info, SIF_ALL);
    return info;
  }

  // The ranges as they have to be.
  void ExpectRanges(const char* after) {
    tree.UpdateTree();
    const std::vector<CVornTreeItem*> rows = Walk();
    ASSERT_EQ(tree.GetVisibleCount(), static_cast<int>(rows.size())) << after;
    EXPECT_EQ(Bar(SB_VERT).nMax, static_cast<int>(rows.size())) << after;
    int widest = 0, tall = 0;
    for (const CVornTreeItem* row : rows) {
      ASSERT_NE(row->m_nLabelOffset, 0) << after;
      widest = std::max(widest, row->m_nLabelOffset);
      tall += std::max(row->m_nHeight, imageHeight);
    }
    int cx = 0, cy = 0;
    EXPECT_EQ(tree.GetSize(cx, cy), 1);
    EXPECT_EQ(cx, widest) << after;
    EXPECT_EQ(cy, tall) << after;
    if (widest + 2 > 200) {
      EXPECT_EQ(Bar(SB_HORZ).nMax, widest + 4) << after;
    }
    const size_t position = static_cast<size_t>(tree.GetScrollPos(SB_VERT));
    CVornTreeItem* const first = position < rows.size() ? rows[position] : nullptr;
    EXPECT_EQ(tree.GetFirstDisplayItem(), first) << after;
  }

  std::unique_ptr<HostWindow> host;
  TestTree tree;
  std::mt19937 random{21};
  int imageHeight = 0;
};

TEST_F(ManyRows, ANewRowCountsWhereverItComes) {
  FillOpen();
  ExpectRanges("the filling");
  for (int i = 0; i < 60; ++i) {
    CVornTreeItem* const row = AnyOf(Walk());
    CVornTreeItem* const parent = tree.GetParentItem(row);
    if (i % 3 == 0) Insert(row, i % 2 ? STI_FIRST : STI_LAST, 4);
    if (i % 3 == 1) Insert(parent != nullptr ? parent : STI_ROOT, row, 8);
    if (i % 3 == 2) Insert(STI_ROOT, STI_FIRST, 5);
    ExpectRanges("an insertion");
  }
}

TEST_F(ManyRows, TheWidestRowRulesUntilItGoes) {
  FillOpen();
  CVornTreeItem* const wide = Insert(STI_ROOT, STI_FIRST, 60);
  ExpectRanges("a wide row");
  EXPECT_GT(Bar(SB_HORZ).nMax, 200);
  tree.SetItemText(wide, L"m");
  ExpectRanges("a shorter label");
  tree.SetItemText(wide, std::wstring(70, L'm').c_str());
  ExpectRanges("a longer label");
  tree.DeleteItem(wide);
  ExpectRanges("the row's end");
}

TEST_F(ManyRows, RowsOfOtherHeightsCount) {
  FillOpen();
  CFont font;
  ASSERT_TRUE(font.CreateFont(40, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"));
  for (int i = 0; i < 20; ++i) {
    tree.SetItemFont(AnyOf(Walk()), i % 4 == 3 ? nullptr : &font);
    ExpectRanges("another font");
  }
  CImageList images;
  ASSERT_TRUE(images.Create(30, 30, ILC_COLOR32, 1, 1));
  tree.SetImageList(&images, STIL_NORMAL);
  imageHeight = 30;
  ExpectRanges("taller images");
}

TEST_F(ManyRows, DeletedRowsGoWithAllBelow) {
  FillOpen();
  for (int i = 0; i < 40; ++i) {
    tree.DeleteItem(AnyOf(Walk()));
    ExpectRanges("a deletion");
  }
  tree.DeleteAllItems(tree.GetFirstVisibleItem());
  ExpectRanges("the deletion of all children");
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(ManyRows, ChangesOfEveryKindKeepTheRanges) {
  FillOpen();
  std::vector<CVornTreeItem*> hidden;
  for (int i = 0; i < 300; ++i) {
    CVornTreeItem* const row = AnyOf(Walk());
    CVornTreeItem* const other = AnyOf(Walk());
    switch (random() % 9) {
      case 0: tree.Expand(row, STE_COLLAPSE); break;
      case 1: tree.Expand(row, STE_EXPANDALL); break;
      case 2:
        tree.SetItemVisibility(row, 0);
        hidden.push_back(row);
        break;
      case 3:
        if (!hidden.empty()) tree.SetItemVisibility(hidden.back(), 1);
        break;
      case 4: tree.MoveItem(other, row, random() % 2 ? STI_FIRST : STI_LAST); break;
      case 5:
        tree.SortChildrenByName(tree.GetParentItem(row) ? tree.GetParentItem(row) : tree.GetRootItem());
        break;
      case 6: tree.SetItemText(row, std::wstring(1 + random() % 40, L'w').c_str()); break;
      case 7: Insert(row, STI_LAST, 1 + random() % 10); break;
      default: tree.DeleteItem(Insert(other, STI_FIRST)); break;
    }
    if (tree.GetVisibleCount() < 1200) FillOpen();
    ExpectRanges("some change");
    if (testing::Test::HasFailure()) return;
  }
}

TEST_F(ManyRows, AnItemMadeFirstVisibleIsAtItsNumber) {
  FillOpen();
  for (int i = 0; i < 40; ++i) {
    const std::vector<CVornTreeItem*> rows = Walk();
    const size_t number = random() % (rows.size() - 20);
    ASSERT_EQ(tree.SetFirstVisible(rows[number]), 1);
    EXPECT_EQ(tree.GetScrollPos(SB_VERT), static_cast<int>(number));
    support::Pump();
    EXPECT_EQ(tree.GetFirstDisplayItem(), rows[number]);
    if (i % 4 == 0) tree.DeleteItem(AnyOf(rows));
    support::Pump();
  }
}

TEST_F(ManyRows, EnsureVisibleScrollsUpToTheItemAndDownBehindIt) {
  FillOpen();
  for (int i = 0; i < 40; ++i) {
    const std::vector<CVornTreeItem*> rows = Walk();
    const size_t number = random() % rows.size();
    const int before = tree.GetScrollPos(SB_VERT);
    tree.UpdateTree();
    const auto shown = std::find(rows.begin(), rows.end(), tree.GetLastDisplayItem()) - rows.begin();
    ASSERT_EQ(tree.EnsureVisible(rows[number]), 1);
    const int after = tree.GetScrollPos(SB_VERT);
    if (static_cast<int>(number) < before) {
      EXPECT_EQ(after, static_cast<int>(number)) << "above";
    } else if (static_cast<int>(number) > shown) {
      EXPECT_GT(after, before);
      EXPECT_LE(after, static_cast<int>(number));
      support::Pump();
      CRect rect;
      EXPECT_EQ(tree.GetItemRect(rows[number], rect, 1), 1) << "below";
    }
    support::Pump();
  }
}

TEST_F(ManyRows, HiddenOpenItemsAreSteppedOverForwardOnly) {
  // Meant: backward, the rows below a hidden open item are met.
  FillOpen();
  CVornTreeItem* const parent = tree.GetNextItem(tree.GetFirstVisibleItem());
  CVornTreeItem* const behind = tree.GetNextItem(parent);
  ASSERT_GT(tree.GetVisibleChildCount(parent), 0u);
  CVornTreeItem* const last = tree.GetLastVisibleItem(parent);
  tree.SetItemVisibility(parent, 0);
  ExpectRanges("the hiding");
  EXPECT_EQ(tree.GetNextVisibleItem(tree.GetFirstVisibleItem()), behind);
  EXPECT_EQ(tree.GetPrevVisibleItem(behind), last);
  tree.SetItemVisibility(parent, 1);
  ExpectRanges("the showing");
}

TEST_F(ManyRows, ManyChangesWithRedrawHeldCountAtTheRelease) {
  FillOpen();
  tree.SetRedraw(FALSE);
  for (int i = 0; i < 1500; ++i) Insert(STI_ROOT, STI_LAST, 1 + static_cast<size_t>(i % 30));
  tree.SetRedraw(TRUE);
  ExpectRanges("a filling");
  tree.SetRedraw(FALSE);
  for (int i = 0; i < 500; ++i) tree.DeleteItem(tree.GetLastVisibleItem(tree.GetRootItem()));
  tree.SetRedraw(TRUE);
  ExpectRanges("an emptying");
}

}  // namespace
