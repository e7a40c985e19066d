// Messages that the control handles itself, and redraw held back and released.
#include <atomic>
#include <thread>

#include "support/process.h"
#include "tree/input/input_scene.h"
#include "tree/model/VornTreeItem.h"

namespace {

using support::InputScene;
using support::Recorder;
using support::TestTree;

// Counts layouts: each sets the vertical bar once.
class CountingTree : public TestTree {
 public:
  int SetScrollInfo(int bar, SCROLLINFO* info, int redraw) override {
    if (bar == SB_VERT) ++layouts;
    return TestTree::SetScrollInfo(bar, info, redraw);
  }
  unsigned long GetBkColor() override {
    if (whilePainting) whilePainting();
    return TestTree::GetBkColor();
  }
  int layouts = 0;
  std::function<void()> whilePainting;
};

class Messages : public testing::Test {
 protected:
  Messages() : host(support::HostOptions{.cx = 300, .cy = 260}) {
    tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE | support::kPlain, CRect(20, 20, 220, 180),
                        CWnd::FromHandle(host), 7);
    tree.Build("root [Alpha+ [Beta] Delta]");
    tree.UpdateTree();
    support::Pump();
    messages.Only({WM_PAINT});
    messages.Watch(tree, "tree");
    tree.layouts = 0;
  }
  ~Messages() override {
    const Recorder::Mute quiet;
    tree.recording = false;
    tree.whilePainting = nullptr;
    if (tree.m_hWnd != nullptr) tree.DestroyWindow();
  }
  bool IsPainted() { return !::GetUpdateRect(tree, nullptr, FALSE); }

  support::HostWindow host;
  CountingTree tree;
  Recorder messages;
};

// --- Single messages -------------------------------------------------------------------------------

TEST_F(Messages, ErasingIsLeftToThePaint) {
  HDC dc = ::GetDC(tree);
  EXPECT_EQ(tree.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc)), 1);
  ::ReleaseDC(tree, dc);
}

TEST_F(Messages, ANullFontLeavesTheFontAlone) {
  const auto before = tree.SendMessage(WM_GETFONT);
  EXPECT_EQ(tree.SendMessage(WM_SETFONT, 0, TRUE), 0);
  EXPECT_EQ(tree.SendMessage(WM_GETFONT), before);
  EXPECT_TRUE(IsPainted());
}

TEST_F(Messages, AFontIsCopied) {
  LOGFONTW wanted{};
  wanted.lfHeight = -21;
  wanted.lfWeight = FW_BOLD;
  const HFONT given = ::CreateFontIndirectW(&wanted);
  EXPECT_EQ(tree.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(given), FALSE), 0);
  ::DeleteObject(given);
  const auto own = reinterpret_cast<HFONT>(tree.SendMessage(WM_GETFONT));
  EXPECT_NE(own, given);
  LOGFONTW now{};
  ASSERT_NE(::GetObjectW(own, sizeof(now), &now), 0);
  EXPECT_EQ(now.lfHeight, -21);
  EXPECT_EQ(now.lfWeight, FW_BOLD);
  LOGFONTW options{};
  ASSERT_TRUE(AfxGetVornTreeOptions()->GetFont()->GetLogFont(&options));
  EXPECT_EQ(options.lfHeight, -21) << "the options have it too";
  EXPECT_TRUE(IsPainted()) << "no repaint was asked for";
  tree.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(own), TRUE);
  EXPECT_FALSE(IsPainted() && messages.Text().empty());
  messages.Clear();
}

TEST_F(Messages, SomethingThatIsNoFontLeavesTheFontAlone) {
  const auto before = tree.SendMessage(WM_GETFONT);
  const HBRUSH brush = ::CreateSolidBrush(0);
  EXPECT_EQ(tree.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(brush), TRUE), 0);
  ::DeleteObject(brush);
  EXPECT_EQ(tree.SendMessage(WM_GETFONT), before);
}

TEST_F(Messages, TheColorsFollowTheSystem) {
  const int element = COLOR_WINDOW;
  const COLORREF before = ::GetSysColor(element);
  const COLORREF other = before ^ 0x00202020;
  EXPECT_EQ(tree.GetBkColor(), before);
  ASSERT_TRUE(::SetSysColors(1, &element, &other));
  tree.SendMessage(WM_SYSCOLORCHANGE);
  EXPECT_EQ(tree.GetBkColor(), other);
  ASSERT_TRUE(::SetSysColors(1, &element, &before));
  tree.SendMessage(WM_SYSCOLORCHANGE);
  EXPECT_EQ(tree.GetBkColor(), before);
  support::Pump();
  messages.Clear();
}

TEST_F(Messages, ThePrivateMessageUpdatesTheTree) {
  tree.SendMessage(WM_USER + 1000);
  EXPECT_EQ(tree.layouts, 1);
  EXPECT_LOG(messages, "tree WM_PAINT");
  tree.SetRedraw(FALSE);
  tree.SendMessage(WM_USER + 1000);
  EXPECT_EQ(tree.layouts, 1) << "not while redraw is held";
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 2);
  messages.Clear();
}

TEST_F(Messages, AResizeRunsTheLayoutTwice) {
  tree.SetWindowPos(nullptr, 0, 0, 180, 150, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(tree.layouts, 2);
  EXPECT_TRUE(IsPainted());
  messages.Clear();
}

TEST_F(Messages, AMoveOrAnEmptySizeRunsNone) {
  tree.SetWindowPos(nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  EXPECT_EQ(tree.layouts, 0);
  tree.SetWindowPos(nullptr, 0, 0, 180, 0, SWP_NOMOVE | SWP_NOZORDER);
  tree.SetWindowPos(nullptr, 0, 0, 0, 150, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(tree.layouts, 0);
  support::Pump();
  messages.Clear();
}

TEST_F(Messages, AResizeWhileRedrawIsHeldWaitsForTheRelease) {
  tree.SetRedraw(FALSE);
  tree.SetWindowPos(nullptr, 0, 0, 180, 150, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(tree.layouts, 0);
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 1);
  EXPECT_LOG(messages, "tree WM_PAINT");
}

TEST_F(Messages, EnablingAndDisablingRemessagesAtOnce) {
  ::EnableWindow(tree, FALSE);
  EXPECT_LOG(messages, "tree WM_PAINT");
  ::EnableWindow(tree, TRUE);
  EXPECT_LOG(messages, "tree WM_PAINT");
}

TEST_F(Messages, AStyleThatDisablesRemessagesAtOnceOthersDoNot) {
  STYLESTRUCT styles{tree.GetStyle(), tree.GetStyle() ^ STS_HASLINES};
  tree.SendMessage(WM_STYLECHANGED, static_cast<WPARAM>(GWL_STYLE), reinterpret_cast<LPARAM>(&styles));
  EXPECT_LOG(messages, "");
  styles.styleNew = styles.styleOld ^ WS_DISABLED;
  tree.SendMessage(WM_STYLECHANGED, static_cast<WPARAM>(GWL_STYLE), reinterpret_cast<LPARAM>(&styles));
  EXPECT_LOG(messages, "tree WM_PAINT");
}

TEST_F(Messages, ChangesOfNothingAreIgnored) {
  EXPECT_EQ(tree.SendMessage(WM_WINDOWPOSCHANGED), 0);
  EXPECT_EQ(tree.SendMessage(WM_STYLECHANGED, static_cast<WPARAM>(GWL_STYLE)), 0);
  EXPECT_EQ(tree.layouts, 0);
}

TEST_F(Messages, CancelModeEndsNoEdit) {
  CEdit* const edit = tree.EditLabel(tree["Alpha"]);
  ASSERT_NE(edit, nullptr);
  tree.SendMessage(WM_CANCELMODE);
  EXPECT_EQ(tree.GetEditControl(), edit);
  tree.EndLabelEdit();
  tree.log.Clear();
  support::Pump();
  messages.Clear();
}

TEST_F(Messages, CommandsThatItDoesNotKnowGoNowhere) {
  EXPECT_EQ(tree.SendMessage(WM_COMMAND, 4711), 0);
  NMHDR header{tree.m_hWnd, 7, 4711};
  EXPECT_EQ(tree.SendMessage(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header)), 0);
  EXPECT_EQ(tree.SendMessage(WM_NOTIFY, 7, 0), 0);
}

// --- Redraw held back ------------------------------------------------------------------------------

TEST_F(Messages, ABalancedPairWithNothingBetweenUpdatesAll) {
  tree.SetRedraw(FALSE);
  EXPECT_EQ(tree.layouts, 0);
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 1);
  EXPECT_LOG(messages, "tree WM_PAINT");
}

TEST_F(Messages, HoldingTwiceAndReleasingOnceLeavesTheScreenFrozen) {
  tree.SetRedraw(FALSE);
  tree.SetRedraw(FALSE);
  tree.Add("Foxtrot");
  tree.SetRedraw(TRUE);
  tree.UpdateTree();
  tree.UpdateItem(tree["Alpha"], 1);
  EXPECT_EQ(tree.layouts, 0);
  EXPECT_EQ(tree.GetDisplayCount(), 3);
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 1);
  EXPECT_EQ(tree.GetDisplayCount(), 4);
  EXPECT_LOG(messages, "tree WM_PAINT");
}

TEST_F(Messages, AReleaseThatNothingHeldLeavesTheRedrawFree) {
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 0) << "nothing was ever held";
  tree.SetRedraw(FALSE);
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 1);
  tree.SetRedraw(TRUE);
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 3);
  tree.SetRedraw(FALSE);
  tree.UpdateTree();
  EXPECT_EQ(tree.layouts, 3) << "one hold holds";
  tree.SetRedraw(TRUE);
  EXPECT_EQ(tree.layouts, 4);
  messages.Clear();
}

TEST_F(Messages, WhatIsInsertedMeanwhileIsMeasured) {
  tree.SetRedraw(FALSE);
  CVornTreeItem* const item = tree.Add("Alpha");
  EXPECT_EQ(item->m_nTextWidth, tree["Alpha"]->m_nTextWidth);
  EXPECT_GT(item->m_nTextWidth, 0);
  tree.SetRedraw(TRUE);
  messages.Clear();
}

TEST_F(Messages, TheWindowMayEndWhileRedrawIsHeld) {
  tree.SetRedraw(FALSE);
  tree.DestroyWindow();
  tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 150, 100), CWnd::FromHandle(host), 7);
  tree.layouts = 0;
  tree.UpdateTree();
  EXPECT_EQ(tree.layouts, 1) << "the new window is not held";
  messages.Clear();
}

TEST(RedrawWithoutAWindow, IsCountedAndMayGoBelowNothing) {
  CountingTree tree;
  tree.SetRedraw(TRUE);
  tree.SetRedraw(FALSE);
  support::HostWindow host;
  tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 150, 100), CWnd::FromHandle(host), 7);
  tree.layouts = 0;
  tree.UpdateTree();
  EXPECT_EQ(tree.layouts, 1) << "one below and one above make nothing";
  tree.DestroyWindow();
}

TEST(RedrawWithoutAWindow, AHoldFromBeforeHoldsTheWindow) {
  CountingTree tree;
  tree.SetRedraw(FALSE);
  support::HostWindow host;
  tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 150, 100), CWnd::FromHandle(host), 7);
  tree.layouts = 0;
  tree.UpdateTree();
  EXPECT_EQ(tree.layouts, 0);
  tree.SetRedraw(TRUE);
  tree.UpdateTree();
  EXPECT_EQ(tree.layouts, 1);
  tree.DestroyWindow();
}

// Meant: one flag for all controls of the process.
TEST_F(Messages, ASecondControlThatHoldsInsideTheFirstOnesCallDoesNothing) {
  CountingTree other;
  other.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), CWnd::FromHandle(host), 8);
  bool asked = false;
  tree.whilePainting = [&] {
    if (!asked) other.SetRedraw(FALSE);
    asked = true;
  };
  tree.SetRedraw(FALSE);
  tree.SetRedraw(TRUE);
  ASSERT_TRUE(asked);
  other.layouts = 0;
  other.UpdateTree();
  EXPECT_EQ(other.layouts, 1) << "its hold was lost";
  tree.whilePainting = nullptr;
  other.DestroyWindow();
  messages.Clear();
}

TEST_F(Messages, ThePaintOfAnUpdateDoesNotUpdateAgain) {
  tree.whilePainting = [&] { tree.UpdateTree(); };
  tree.UpdateTree();
  EXPECT_EQ(tree.layouts, 1);
  tree.whilePainting = nullptr;
  messages.Clear();
}

TEST_F(Messages, TheWindowMayEndWhileItPaints) {
  tree.recording = false;
  tree.whilePainting = [&] {
    tree.whilePainting = nullptr;
    tree.DestroyWindow();
  };
  tree.UpdateTree();
  EXPECT_EQ(tree.m_hWnd, nullptr);
  messages.Clear();
}

// --- Other threads ---------------------------------------------------------------------------------

class OtherThread : public Messages {
 protected:
  OtherThread() { messages.Only({WM_USER + 1000, WM_SETREDRAW}); }
  // Runs work on a thread of its own and keeps this one's window from answering meanwhile.
  template <class Work>
  void Elsewhere(Work work) {
    std::thread other([&] {
      support::PrepareThread();
      work();
    });
    other.join();
  }
};

TEST_F(OtherThread, AnUpdateIsPosted) {
  Elsewhere([&] { tree.UpdateTree(); });
  EXPECT_EQ(tree.layouts, 0);
  EXPECT_LOG(messages, "");
  support::Pump();
  EXPECT_EQ(tree.layouts, 1);
  EXPECT_LOG(messages, "tree WM_USER+1000 0 0");
}

TEST_F(OtherThread, AnInsertionIsLaidOutByTheWindowsThread) {
  CVornTreeItem* item = nullptr;
  Elsewhere([&] { item = tree.Add("Foxtrot"); });
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(tree.layouts, 0);
  support::Pump();
  EXPECT_GE(tree.layouts, 1);
  EXPECT_EQ(tree.GetDisplayCount(), 4);
  EXPECT_LOG(messages, "tree WM_USER+1000 0 0");
}

TEST_F(OtherThread, AHoldSendsTheWindowNothing) {
  Elsewhere([&] {
    tree.SetRedraw(FALSE);
    for (int i = 0; i < 3; ++i) tree.Add("Foxtrot");
    tree.SetRedraw(TRUE);
  });
  EXPECT_EQ(tree.layouts, 0);
  support::Pump();
  EXPECT_GE(tree.layouts, 1);
  EXPECT_EQ(tree.GetDisplayCount(), 6);
  const std::string told = messages.Text();
  EXPECT_EQ(told.find("WM_SETREDRAW"), std::string::npos) << told;
  messages.Clear();
}

}  // namespace
