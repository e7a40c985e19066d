// A paint of the tree control writes each pixel of the screen once: nothing flickers.
#include <desktop/desktop.h>

#include <algorithm>

#include "support/driver.h"
#include "tree/painted_tree.h"

namespace {

using support::kLinesAndButtons;

class TreeFlicker : public support::PaintedTree {
 protected:
  void SetUp() override {
    Create(kLinesAndButtons | STS_CHECKBOXES | STS_SHOWSELALWAYS, 150, 120);
    tree.Build("root [a+ [a1= a2* [x] a3] b+ [b1 b2 b3] c d e f g]");
    tree.recording = false;
    Show();
  }
  // The lowest and highest number of writes to the pixels of a part of the client area.
  struct Extremes {
    unsigned low;
    unsigned high;
  };
  Extremes Of(const CRect& part, const std::vector<unsigned>& counts) {
    CRect client;
    tree.GetClientRect(client);
    Extremes extremes{1000, 0};
    for (int y = part.top; y < part.bottom; ++y) {
      for (int x = part.left; x < part.right; ++x) {
        const unsigned count =
            counts.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(client.right) +
                      static_cast<std::size_t>(x));
        extremes = {std::min(extremes.low, count), std::max(extremes.high, count)};
      }
    }
    return extremes;
  }
  CRect Client() {
    CRect client;
    tree.GetClientRect(client);
    return client;
  }
  // Acts, and tells how often the pixels of the client area were written meanwhile.
  template <class Action>
  Extremes Counted(Action action) {
    EXPECT_TRUE(desktop::StartCountingWrites(tree));
    action();
    return Of(Client(), desktop::StopCountingWrites());
  }
};

TEST_F(TreeFlicker, TheCountSeesWritesTwice) {
  EXPECT_TRUE(desktop::StartCountingWrites(tree));
  {
    CClientDC dc(&tree);
    dc.FillSolidRect(CRect(0, 0, 10, 10), RGB(1, 2, 3));
    dc.FillSolidRect(CRect(5, 5, 10, 10), RGB(1, 2, 3));
    dc.SetPixelV(5, 5, RGB(4, 5, 6));
    dc.MoveTo(20, 20);
    dc.LineTo(25, 20);
  }
  const std::vector<unsigned> counts = desktop::StopCountingWrites();
  EXPECT_EQ(Of(CRect(0, 0, 5, 5), counts).high, 1u);
  EXPECT_EQ(Of(CRect(6, 6, 10, 10), counts).low, 2u);
  EXPECT_EQ(Of(CRect(5, 5, 6, 6), counts).low, 3u);
  EXPECT_EQ(Of(CRect(20, 20, 25, 21), counts).low, 1u);
  EXPECT_EQ(Of(CRect(30, 30, 60, 60), counts).high, 0u);
  EXPECT_TRUE(desktop::StopCountingWrites().empty());
  EXPECT_FALSE(desktop::StartCountingWrites(nullptr));
}

TEST_F(TreeFlicker, AWholePaintWritesEachPixelOnce) {
  const Extremes counted = Counted([&] { Repaint(); });
  EXPECT_EQ(counted.low, 1u);
  EXPECT_EQ(counted.high, 1u);
}

TEST_F(TreeFlicker, ErasingAddsNothing) {
  const Extremes counted =
      Counted([&] { ::RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW); });
  EXPECT_EQ(counted.low, 1u);
  EXPECT_EQ(counted.high, 1u);
}

TEST_F(TreeFlicker, APartialPaintWritesThatPartOnce) {
  ASSERT_TRUE(desktop::StartCountingWrites(tree));
  const CRect part(10, 20, 70, 50);
  ::InvalidateRect(tree, part, TRUE);
  ::UpdateWindow(tree);
  const std::vector<unsigned> counts = desktop::StopCountingWrites();
  EXPECT_EQ(Of(part, counts).low, 1u);
  EXPECT_EQ(Of(Client(), counts).high, 1u);
  EXPECT_EQ(Of(CRect(80, 20, 100, 50), counts).high, 0u);
}

TEST_F(TreeFlicker, EveryScrollWritesEachPixelOnce) {
  ASSERT_TRUE(HasBar(SB_VERT));
  for (const WPARAM code : {SB_LINEDOWN, SB_PAGEDOWN, SB_PAGEUP, SB_BOTTOM, SB_TOP}) {
    const Extremes counted = Counted([&] { tree.SendMessage(WM_VSCROLL, code, 0); });
    EXPECT_EQ(counted.low, 1u) << code;
    EXPECT_EQ(counted.high, 1u) << code;
  }
}

TEST_F(TreeFlicker, AChangeOfSelectionWritesEachPixelOnce) {
  const Extremes counted = Counted([&] {
    tree.SelectItem(tree["a1"]);
    ::UpdateWindow(tree);
  });
  EXPECT_EQ(counted.high, 1u);
}

TEST_F(TreeFlicker, ALayoutThatChangesNoBarWritesEachPixelOnce) {
  const Extremes counted = Counted([&] { tree.UpdateTree(); });
  EXPECT_EQ(counted.low, 1u);
  EXPECT_EQ(counted.high, 1u);
}

TEST_F(TreeFlicker, ABurstUnderAHeldRedrawWritesEachPixelOnce) {
  const Extremes counted = Counted([&] {
    tree.SetRedraw(FALSE);
    for (int i = 0; i < 20; ++i) tree.Add("more");
    tree.SetItemText(tree["a1"], L"other");
    tree.SetRedraw(TRUE);
  });
  EXPECT_EQ(counted.low, 1u);
  EXPECT_EQ(counted.high, 1u);
}

}  // namespace
