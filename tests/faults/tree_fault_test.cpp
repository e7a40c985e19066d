// The tree control without memory or handles: no row, no window, but never a crash or a leak.
#include <VornComCtl.h>

#include "each_failure.h"

namespace {

using faults::Kind;

class TreeFault : public testing::TestWithParam<Kind> {
 protected:
  void SetUp() override { AfxInitVornComCtl(); }
};

void FreeWrappers() {
  AfxLockTempMaps();
  AfxUnlockTempMaps();
}

TEST_P(TreeFault, ATreeWithARow) {
  faults::Experiment experiment;
  experiment.prepare = FreeWrappers;
  experiment.act = [] {
    CVornTreeCtrl tree;
    if (!tree.CreateTreeCtrl(WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 100), nullptr, 0)) return false;
    CVornTreeItem* const item = tree.InsertItem(L"Élément", -1, -1);
    tree.UpdateWindow();
    return item != nullptr;
  };
  experiment.mayWorkAllTheSame = true;
  faults::RunWithEachFailure(GetParam(), experiment);
}

// A tree that stands, and a row that does not come.
TEST_P(TreeFault, ARowIsThereOrNothingChanged) {
  CVornTreeCtrl tree;
  ASSERT_TRUE(tree.CreateTreeCtrl(WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 100), nullptr, 0));
  CVornTreeItem* const first = tree.InsertItem(L"premier", -1, -1);
  CVornTreeItem* item = nullptr;
  bool unchanged = true;
  faults::Experiment experiment;
  experiment.prepare = FreeWrappers;
  experiment.act = [&] {
    item = tree.InsertItem(L"second", -1, -1);
    return item != nullptr;
  };
  experiment.complete = [&] { return tree.GetNextItem(first, STGN_NEXT) == item; };
  experiment.cleanUp = [&] {
    if (item != nullptr) {
      tree.DeleteItem(item);
    } else {
      unchanged = unchanged && tree.GetNextItem(first, STGN_NEXT) == nullptr;
    }
    item = nullptr;
  };
  experiment.mayWorkAllTheSame = true;
  EXPECT_GT(faults::RunWithEachFailure(GetParam(), experiment), 0);
  EXPECT_TRUE(unchanged);
}

INSTANTIATE_TEST_SUITE_P(Each, TreeFault, testing::Values(Kind::Allocation, Kind::Call));

}  // namespace
