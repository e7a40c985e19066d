// Paints and measurings of the tree control when the system's objects or memory run out.
#include <desktop/desktop.h>

#include "VornComCtl.h"
#include "each_failure.h"
#include "support/picture.h"

namespace {

using faults::Kind;

constexpr unsigned kStyle =
    WS_POPUP | WS_VISIBLE | STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT | STS_CHECKBOXES;

class TreePaintFault : public testing::TestWithParam<Kind> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(tree.CreateTreeCtrl(kStyle, CRect(0, 0, 200, 100), nullptr, 0));
    parent = tree.InsertItem(L"Dossier", -1, -1);
    tree.InsertItem(L"Feuille", -1, -1, parent);
    tree.Expand(parent, STE_EXPAND);
    ::UpdateWindow(tree);
  }
  void Repaint() { ::RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

  CVornTreeCtrl tree;
  CVornTreeItem* parent = nullptr;
};

TEST_P(TreePaintFault, APaintThatFailsLeavesTheNextOneWhole) {
  const support::Picture whole = support::CaptureClient(tree);
  faults::Experiment experiment;
  experiment.act = [&] {
    Repaint();
    return true;
  };
  experiment.mayWorkAllTheSame = true;
  faults::RunWithEachFailure(GetParam(), experiment);
  Repaint();
  EXPECT_EQ(support::CaptureClient(tree), whole);
}

TEST_P(TreePaintFault, ASingleRowIsDrawnOrRefused) {
  const support::Picture whole = support::CaptureClient(tree);
  faults::Experiment experiment;
  experiment.act = [&] {
    CVornTreeDC dc(&tree);
    return dc.RedrawItem(&tree, parent) == 1;
  };
  experiment.mayWorkAllTheSame = true;
  faults::RunWithEachFailure(GetParam(), experiment);
  Repaint();
  EXPECT_EQ(support::CaptureClient(tree), whole);
}

INSTANTIATE_TEST_SUITE_P(Each, TreePaintFault, testing::Values(Kind::Allocation, Kind::Call));

class TreeMeasureFault : public testing::Test {
 protected:
  // The height of the row that gets a text while one call fails.
  int HeightWithFailure(long call) {
    CVornTreeCtrl tree;
    EXPECT_TRUE(tree.CreateTreeCtrl(kStyle, CRect(0, 0, 200, 100), nullptr, 0));
    CVornTreeItem* const item = tree.InsertItem(L"x", -1, -1);
    ::UpdateWindow(tree);
    desktop::FailNthCall(call);
    tree.SetItemText(item, L"Feuille");
    desktop::FailNthCall(0);
    tree.InsertItem(L"y", -1, -1);
    ::UpdateWindow(tree);
    CRect rect;
    EXPECT_EQ(tree.GetItemRect(item, rect, 0), 1);
    return rect.Height();
  }
};

TEST_F(TreeMeasureFault, AFailedMeasuringIsDoneOnceMoreOnAFreshContext) {
  const int usual = HeightWithFailure(0);
  EXPECT_GT(usual, 10);
  EXPECT_EQ(HeightWithFailure(1), usual);
}

}  // namespace
