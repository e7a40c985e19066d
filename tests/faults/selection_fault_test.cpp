// Selection without memory: a control without a manager answers with nothing, and gets a manager when it can.
#include <VornComCtl.h>

#include "each_failure.h"

namespace {

// What a control without a manager says.
void ExpectNothing(CVornTreeCtrl& tree, CVornTreeItem* item) {
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetLastSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
  EXPECT_EQ(tree.GetCurrentSelection(items), 0);
  EXPECT_EQ(tree.SelectItem(item), 0);
  EXPECT_EQ(tree.UnselectItem(item), 0);
  EXPECT_EQ(tree.GetNextItem(item, STGN_CARET), nullptr);
  EXPECT_EQ(tree.DeleteAllItems(STI_ROOT), 0);
  EXPECT_EQ(tree.DeleteItem(tree.GetRootItem()), 0);
  EXPECT_EQ(tree.EnsureVisible(item), 0);
  EXPECT_EQ(tree.SetFirstVisible(item), 0);
  for (unsigned code = 0; code < 16; ++code) tree.Select(item, code);
  tree.ClearSelection(item);
  tree.UpdateSelection(item, STUS_REBUILD);
  EXPECT_FALSE(tree.IsItemSelected(item));
  EXPECT_EQ(tree.SetDocumentDisplay(1), 0);
  EXPECT_EQ(tree.GetVisibleCount(), 0);
  EXPECT_EQ(tree.GetFirstVisibleItem(), nullptr);
  EXPECT_EQ(tree.SetDocumentDisplay(0), 1);
  const CVornSelectionGuard guard(tree.GetSelectionManager(), 1, 1);
}

TEST(SelectionFault, AManagerThatCannotBeMade) {
  AfxInitVornComCtl();
  long withoutManager = 0;
  for (long n = 1;; ++n) {
    CVornTreeCtrl tree;
    CVornTreeItem* const item = tree.InsertItem(L"a", -1, -1);
    faults::Fail(faults::Kind::Allocation, n);
    const unsigned before = tree.ModifySelectionType(0, STST_BYDOCUMENTS);
    const bool failed = faults::Seen(faults::Kind::Allocation) >= n;
    faults::Fail(faults::Kind::Allocation, 0);
    EXPECT_EQ(before, unsigned{STST_SINGLE});
    EXPECT_EQ(tree.IsSelectionByDocuments(), 1);
    if (!failed) break;
    if (tree.GetSelectionManager() != nullptr) continue;
    ++withoutManager;
    ExpectNothing(tree, item);
    EXPECT_EQ(tree.DeleteItem(item), 1);
    // The next change makes one, of the class that the type asks for.
    tree.EnableMultipleSelection(1);
    ASSERT_NE(tree.GetSelectionManager(), nullptr);
    EXPECT_TRUE(tree.GetSelectionManager()->IsKindOf(RUNTIME_CLASS(CVornTreeMultiSelection)));
  }
  EXPECT_GT(withoutManager, 0);
}

TEST(SelectionFault, ADocumentThatGetsNoManager) {
  AfxInitVornComCtl();
  long refused = 0;
  for (long n = 1;; ++n) {
    CVornTreeCtrl tree;
    CVornTreeItem* const document = tree.InsertItem(L"d", -1, -1);
    CVornTreeItem* const item = tree.InsertItem(L"a", -1, -1, document);
    tree.EnableSelectionByDocuments(1);
    faults::Fail(faults::Kind::Allocation, n);
    const int pressed = tree.GetSelectionManager()->OnLButtonDown(item);
    const bool failed = faults::Seen(faults::Kind::Allocation) >= n;
    faults::Fail(faults::Kind::Allocation, 0);
    if (pressed == 0) {
      ++refused;
      EXPECT_FALSE(tree.IsItemSelected(item));
      EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
      EXPECT_EQ(tree.GetSelectionManager()->OnLButtonDown(item), 1) << "with memory it goes";
    }
    EXPECT_TRUE(tree.IsItemSelected(item));
    EXPECT_EQ(tree.GetActiveDocItem(), document);
    if (!failed) break;
  }
  EXPECT_GT(refused, 1);
}

TEST(SelectionFault, ARebuildThatGetsNoManagersForItsDocuments) {
  AfxInitVornComCtl();
  for (long n = 1;; ++n) {
    CVornTreeCtrl tree;
    CVornTreeItem* items[3];
    for (CVornTreeItem*& item : items) item = tree.InsertItem(L"a", -1, -1, tree.InsertItem(L"d", -1, -1));
    for (CVornTreeItem* item : items) tree.SelectItem(item, 1);
    faults::Fail(faults::Kind::Allocation, n);
    tree.EnableSelectionByDocuments(1);
    const bool failed = faults::Seen(faults::Kind::Allocation) >= n;
    faults::Fail(faults::Kind::Allocation, 0);
    for (CVornTreeItem* item : items) EXPECT_TRUE(tree.IsItemSelected(item)) << "the flags stay";
    tree.UpdateSelection(items[0], STUS_REBUILD);
    tree.EnableSelectionByDocuments(0);
    CVornTreeItemArray selected;
    EXPECT_EQ(tree.GetCurrentSelection(selected), 1);
    EXPECT_EQ(selected.GetSize(), 3) << "with memory all are taken up";
    if (!failed) break;
  }
}

}  // namespace
