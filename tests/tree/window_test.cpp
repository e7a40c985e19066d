// The control in its window: real messages, real input, pixels.
#include <memory>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/picture.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::At;
using support::CheckTree;
using support::HostWindow;
using support::Picture;
using support::TestTree;

constexpr unsigned kLinesAndButtons = STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT;

class TreeWindow : public testing::Test {
 protected:
  void Create(unsigned style, int cx = 200, int cy = 160) {
    host = std::make_unique<HostWindow>(support::HostOptions{.cx = cx + 40, .cy = cy + 40});
    const RECT rect{20, 20, 20 + cx, 20 + cy};
    ASSERT_NE(tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE | style, rect, CWnd::FromHandle(*host), 7), 0);
    support::Pump();
  }
  ~TreeWindow() override {
    tree.log.Clear();
    tree.recording = false;
    if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
  }

  // The middle of an item's label, on the screen.
  POINT Label(const std::string& label) {
    support::Pump();
    CRect rect;
    EXPECT_EQ(tree.GetItemRect(tree[label], rect, 1), 1) << label;
    return At(tree, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
  }
  POINT Button(const std::string& label) {
    support::Pump();
    CRect rect;
    tree.GetItemRect(tree[label], rect, 1);
    return At(tree, rect.left - 10, rect.top + rect.Height() / 2);
  }

  std::unique_ptr<HostWindow> host;
  TestTree tree;
};

TEST_F(TreeWindow, BorderBecomesAClientEdge) {
  Create(WS_BORDER);
  EXPECT_EQ(tree.GetStyle() & WS_BORDER, 0u);
  EXPECT_NE(tree.GetExStyle() & WS_EX_CLIENTEDGE, 0u);
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(tree), &tree);
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(*host), nullptr);
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(nullptr), nullptr);
  EXPECT_TRUE(VornIsTreeCtrlWindow(tree));
}

TEST_F(TreeWindow, PaintsItsRowsOneBelowTheOther) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha+ [Beta Gamma] Delta]");
  tree.UpdateTree();
  support::Pump();
  EXPECT_EQ(tree.GetDisplayCount(), 4);
  int bottom = 0;
  for (const char* label : {"Alpha", "Beta", "Gamma", "Delta"}) {
    CRect rect;
    ASSERT_EQ(tree.GetItemRect(tree[label], rect, 1), 1);
    EXPECT_EQ(rect.top, bottom);
    bottom = rect.bottom;
  }
  EXPECT_TRUE(support::SavePng(support::CaptureClient(tree), "tree-window.png"));
}

TEST_F(TreeWindow, AClickOnALabelSelectsAndPaintsTheHighlight) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha Delta]");
  tree.UpdateTree();
  support::Click(Label("Delta"));
  EXPECT_EQ(tree.Selected(), "Delta");
  CRect rect;
  tree.GetItemRect(tree["Delta"], rect, 1);
  support::Pump();
  HDC dc = ::GetDC(tree);
  EXPECT_EQ(::GetPixel(dc, rect.left + 1, rect.top + 3), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(::GetPixel(dc, rect.right + 4, rect.top + 3), ::GetSysColor(COLOR_WINDOW));
  ::ReleaseDC(tree, dc);
}

TEST_F(TreeWindow, AClickOnTheButtonOpensAndSelectsNothing) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha [Beta]]");
  tree.UpdateTree();
  const POINT button = Button("Alpha");
  support::Click(button);
  EXPECT_EQ(tree.Rows(), "Alpha Beta");
  EXPECT_EQ(tree.Selected(), "");
  support::Click(button);
  EXPECT_EQ(tree.Rows(), "Alpha");
  EXPECT_LOG(tree.log, R"(
    OnItemExpanding Alpha
    OnItemExpanded Alpha
    OnItemExpanding Alpha
    OnItemExpanded Alpha)");
}

TEST_F(TreeWindow, ADoubleClickTogglesAndOnALeafAddsToTheSelection) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha [Beta] Delta]");
  tree.UpdateTree();
  support::DoubleClick(Label("Alpha"));
  EXPECT_EQ(tree.Rows(), "Alpha Beta Delta");
  support::DoubleClick(Label("Delta"));
  EXPECT_EQ(tree.Selected(), "Delta");
}

TEST_F(TreeWindow, HasABarOnlyForRowsThatDoNotFit) {
  Create(kLinesAndButtons, 200, 100);
  for (int i = 0; i < 3; ++i) tree.Add("x");
  support::Pump();
  EXPECT_EQ(tree.GetStyle() & WS_VSCROLL, 0u);
  for (int i = 0; i < 20; ++i) tree.Add("x" + std::to_string(i));
  support::Pump();
  EXPECT_NE(tree.GetStyle() & WS_VSCROLL, 0u);
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  tree.GetScrollInfo(SB_VERT, &info, SIF_ALL);
  EXPECT_EQ(info.nMax, tree.GetVisibleCount()) << "the count itself, meant";
  tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0), 0);
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 1);
  EXPECT_EQ(tree.GetFirstDisplayItem(), tree.GetNextVisibleItem(tree.GetFirstVisibleItem()));
  EXPECT_EQ(tree.EnsureVisible(tree["x19"]), 1);
  support::Pump();
  EXPECT_TRUE(tree.IsDisplayItem(tree["x19"]));
}

TEST_F(TreeWindow, KeysMoveFoldAndOpen) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha [Beta] Delta]");
  tree.UpdateTree();
  support::Click(Label("Alpha"));
  const auto key = [&](UINT code) { tree.SendMessage(WM_KEYDOWN, code, 1); };
  key(VK_RIGHT);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Delta");
  key(VK_RIGHT);
  EXPECT_EQ(tree.Selected(), "Beta");
  key(VK_DOWN);
  EXPECT_EQ(tree.Selected(), "Delta");
  key(VK_UP);
  key(VK_LEFT);
  EXPECT_EQ(tree.Selected(), "Alpha");
  key(VK_LEFT);
  EXPECT_EQ(tree.Rows(), "Alpha Delta");
  key(VK_END);
  EXPECT_EQ(tree.Selected(), "Delta");
  key(VK_HOME);
  EXPECT_EQ(tree.Selected(), "Alpha");
}

TEST_F(TreeWindow, LettersTypedFindTheRow) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha Beta Bravo]");
  tree.UpdateTree();
  support::Click(Label("Alpha"));
  support::PumpFor(1000);
  EXPECT_EQ(tree.OnTypeAhead('b', 1), 1);
  EXPECT_EQ(tree.Selected(), "Beta");
  EXPECT_EQ(tree.OnTypeAhead('r', 1), 1);
  EXPECT_EQ(tree.Selected(), "Bravo");
  EXPECT_EQ(tree.OnTypeAhead(' ', 1), 0);
  EXPECT_EQ(tree.OnTypeAhead('a', 0), 0);
  support::PumpFor(1000);
}

TEST_F(TreeWindow, AnEditIsCommittedByEnterAndDroppedByEscape) {
  Create(kLinesAndButtons | STS_EDITLABELS);
  tree.Build("root [Alpha Delta]");
  tree.UpdateTree();
  support::Pump();
  CEdit* edit = tree.EditLabel(tree["Alpha"]);
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(tree.GetEditControl(), edit);
  edit->SetWindowText(L"Omega");
  edit->SendMessage(WM_CHAR, 13, 1);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  ASSERT_NE(tree["Omega"], nullptr);
  edit = tree.EditLabel(tree["Omega"]);
  ASSERT_NE(edit, nullptr);
  edit->SetWindowText(L"Nothing");
  edit->SendMessage(WM_CHAR, 27, 1);
  EXPECT_NE(tree["Omega"], nullptr);
  EXPECT_LOG(tree.log, R"(
    OnBeginLabelEdit Alpha
    OnEndLabelEdit 'Omega' Alpha
    OnBeginLabelEdit Omega)");
}

TEST_F(TreeWindow, AnEditSurvivesItsItemAndItsWindowDoesNotOutliveTheTree) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha Delta]");
  tree.UpdateTree();
  ASSERT_NE(tree.EditLabel(tree["Alpha"]), nullptr);
  tree.DeleteItem(tree["Alpha"]);
  EXPECT_EQ(tree.EndLabelEdit(), 0);
  ASSERT_NE(tree.EditLabel(tree["Delta"]), nullptr);
  tree.recording = false;
  tree.DestroyWindow();
  EXPECT_EQ(tree.GetEditControl(), nullptr);
}

TEST_F(TreeWindow, DestroyedInsideAHookItHolds) {
  for (const char* when : {"OnSelChanging", "OnSelChanged", "OnClearSelection"}) {
    TestTree victim;
    HostWindow parent;
    victim.CreateTreeCtrl(WS_CHILD | WS_VISIBLE | kLinesAndButtons, RECT{0, 0, 150, 100},
                          CWnd::FromHandle(parent), 8);
    victim.Build("root [Alpha Delta]");
    victim.recording = false;
    victim.UpdateTree();
    support::Pump();
    CRect rect;
    ASSERT_EQ(victim.GetItemRect(victim["Delta"], rect, 1), 1);
    victim.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
      if (hook == when && victim.GetSafeHwnd() != nullptr) victim.DestroyWindow();
      return 1;
    };
    support::Click(At(victim, rect.left + 5, rect.top + 5));
    EXPECT_EQ(victim.GetSafeHwnd(), nullptr);
    EXPECT_EQ(victim.GetRootItem(), nullptr);
  }
}

TEST_F(TreeWindow, SetRedrawNestsAndRepaintsAtTheEnd) {
  Create(kLinesAndButtons);
  tree.SetRedraw(FALSE);
  tree.SetRedraw(FALSE);
  tree.Build("root [Alpha Delta]");
  tree.SetRedraw(TRUE);
  support::Pump();
  EXPECT_EQ(tree.GetDisplayCount(), 0);
  tree.SetRedraw(TRUE);
  support::Pump();
  EXPECT_EQ(tree.GetDisplayCount(), 2);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(TreeWindow, HitTestTellsTheZone) {
  Create(kLinesAndButtons);
  tree.Build("root [Alpha+ [Beta]]");
  tree.UpdateTree();
  support::Pump();
  CRect rect;
  ASSERT_EQ(tree.GetItemRect(tree["Beta"], rect, 1), 1);
  const auto zone = [&](int x, int y) {
    unsigned flags = 0;
    tree.HitTest(CPoint(x, y), &flags);
    return flags;
  };
  const int y = rect.top + rect.Height() / 2;
  EXPECT_EQ(zone(5, y), 0x0008u);
  EXPECT_EQ(zone(2 + 2 * 20 - 5, y), 0x0010u);
  EXPECT_EQ(zone(2 + 2 * 20 + 5, y), 0x0004u);
  EXPECT_EQ(zone(190, y), 0x0020u);
  EXPECT_EQ(zone(50, 150), 0x0200u);
  EXPECT_EQ(tree.HitTest(CPoint(2 + 2 * 20 + 5, y), nullptr), tree["Beta"]);
}

}  // namespace
