// Selection, rows and expansion in a window: real keys and clicks, the delayed edit, what is on screen.
#include <memory>

#include "support/driver.h"
#include "support/host_window.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::At;
using support::CheckTree;
using support::HostWindow;
using support::TestTree;

class RowsInWindow : public testing::Test {
 protected:
  // The host is the application's main window.
  void Create(unsigned style = 0, int cx = 200, int cy = 160) {
    host = std::make_unique<HostWindow>(support::HostOptions{.cx = cx + 40, .cy = cy + 40});
    if (AfxGetApp() == nullptr) app = std::make_unique<CWinApp>();
    main.Attach(*host);
    AfxGetApp()->m_pMainWnd = &main;
    const RECT rect{20, 20, 20 + cx, 20 + cy};
    ASSERT_NE(tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE | style, rect, CWnd::FromHandle(*host), 7), 0);
    support::Pump();
  }
  ~RowsInWindow() override {
    tree.log.Clear();
    tree.recording = false;
    if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
    main.Detach();
    if (AfxGetApp() != nullptr) AfxGetApp()->m_pMainWnd = nullptr;
  }

  void Build(const std::string& scene) {
    tree.SetRedraw(FALSE);
    tree.Build(scene);
    tree.SetRedraw(TRUE);
    support::Pump();
    tree.log.Clear();
  }
  // Documents r0, r1, ...
  void BuildRows(int count) {
    tree.SetRedraw(FALSE);
    for (int i = 0; i < count; ++i) tree.Add("r" + std::to_string(i));
    tree.SetRedraw(TRUE);
    support::Pump();
  }
  POINT Label(const std::string& label) {
    support::Pump();
    CRect rect;
    EXPECT_EQ(tree.GetItemRect(tree[label], rect, 1), 1) << label;
    return At(tree, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
  }
  void Click(const std::string& label, support::Keys keys = {}) {
    support::Click(Label(label), support::Button::Left, keys);
  }
  bool WantsPaint() { return ::GetUpdateRect(tree, nullptr, FALSE) != FALSE; }
  // What is on screen, from the first row to the last.
  std::string OnScreen() {
    std::string labels;
    for (CVornTreeItem* row = tree.GetFirstDisplayItem(); row != nullptr;
         row = tree.GetNextVisibleItem(row)) {
      labels += (labels.empty() ? "" : " ") + tree.Name(row);
      if (row == tree.GetLastDisplayItem()) break;
    }
    return labels;
  }

  std::unique_ptr<HostWindow> host;
  std::unique_ptr<CWinApp> app;
  CWnd main;
  TestTree tree;
};

// --- The delayed edit ------------------------------------------------------------------------------

constexpr int kShortOfEdit = 1000;  // milliseconds; the edit opens after 1500
constexpr int kPastEdit = 1000;     // and this much later it is open

TEST_F(RowsInWindow, AClickOnTheSoleSelectedItemOpensItsEditLater) {
  Create(STS_EDITLABELS);
  Build("root [Alpha Delta]");
  Click("Alpha");
  tree.log.Clear();
  Click("Alpha");
  EXPECT_EQ(tree.Selected(), "Alpha");
  support::PumpFor(kShortOfEdit);
  EXPECT_LOG(tree.log, "") << "no hook runs for the click";
  support::PumpFor(kPastEdit);
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Alpha");
  EXPECT_NE(tree.GetEditControl(), nullptr);
}

TEST_F(RowsInWindow, WithoutCurrentOptionsTheEditOpensAfterTheOrdinaryTime) {
  Create(STS_EDITLABELS);
  Build("root [Alpha]");
  Click("Alpha");
  { TestTree other; }  // takes the current options along
  ASSERT_EQ(AfxGetVornTreeOptions(), nullptr);
  tree.GetSelectionManager()->OnLButtonDown(tree["Alpha"]);
  tree.GetSelectionManager()->OnLButtonUp(tree["Alpha"]);
  support::PumpFor(kShortOfEdit);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  support::PumpFor(kPastEdit);
  EXPECT_NE(tree.GetEditControl(), nullptr);
  tree.log.Clear();
}

TEST_F(RowsInWindow, WithoutTheStyleNoEditFollows) {
  Create();
  Build("root [Alpha]");
  Click("Alpha");
  Click("Alpha");
  tree.log.Clear();
  support::PumpFor(kShortOfEdit + kPastEdit);
  EXPECT_LOG(tree.log, "");
}

TEST_F(RowsInWindow, AnotherEventInTimeKeepsTheEditClosed) {
  using Event = std::function<void()>;
  const Event events[] = {
      [this] { Click("Delta"); },
      [this] { tree.GetSelectionManager()->OnRButtonDown(tree["Alpha"]); },
      [this] { tree.SendMessage(WM_KEYDOWN, VK_DOWN, 1); },
      [this] { ::SetFocus(*host); },
  };
  Create(STS_EDITLABELS);
  Build("root [Alpha Delta]");
  for (const Event& event : events) {
    Click("Alpha");
    Click("Alpha");
    support::PumpFor(kShortOfEdit);
    event();
    support::PumpFor(kPastEdit);
    EXPECT_EQ(tree.GetEditControl(), nullptr) << "event " << &event - events;
    Click("Delta");
    support::PumpFor(kPastEdit);
  }
}

TEST_F(RowsInWindow, ARefusedPressOnAnotherItemKeepsTheEditClosedAsWell) {
  Create(STS_EDITLABELS);
  Build("root [Alpha Delta]");
  Click("Alpha");
  Click("Alpha");
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnSelChanging" ? 0 : 1;
  };
  Click("Delta");
  support::PumpFor(kShortOfEdit + kPastEdit);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
}

// --- Real keys -------------------------------------------------------------------------------------

TEST_F(RowsInWindow, KeysOfTheKeyboardCountInMultipleSelection) {
  Create();
  Build("root [a b c d e]");
  tree.EnableMultipleSelection(1);
  Click("a");
  Click("c", {.control = true});
  EXPECT_EQ(tree.Selected(), "a c");
  Click("e", {.shift = true});
  EXPECT_EQ(tree.Selected(), "c d e");
  Click("d", {.control = true});
  EXPECT_EQ(tree.Selected(), "c e");
  Click("b", {.control = true, .shift = true});
  EXPECT_EQ(tree.Selected(), "b c d e") << "the range and what was saved";
}

TEST_F(RowsInWindow, KeysOfTheKeyboardMeanNothingInSingleSelection) {
  Create();
  Build("root [a b c]");
  Click("a");
  Click("c", {.control = true});
  EXPECT_EQ(tree.Selected(), "c");
  Click("b", {.shift = true});
  EXPECT_EQ(tree.Selected(), "b");
}

TEST_F(RowsInWindow, AReleaseOnOneOfSeveralLeavesItAlone) {
  Create();
  Build("root [a b c]");
  tree.EnableMultipleSelection(1);
  Click("a");
  Click("c", {.shift = true});
  ASSERT_EQ(tree.Selected(), "a b c");
  tree.log.Clear();
  support::Press(Label("b"));
  EXPECT_EQ(tree.Selected(), "a b c") << "it waits for the release";
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]);
  EXPECT_LOG(tree.log, "");
  support::Release(Label("b"));
  EXPECT_EQ(tree.Selected(), "b");
  EXPECT_LOG(tree.log, "OnClearSelection b\nOnSelChanging - b\nOnSelChanged - b");
}

TEST_F(RowsInWindow, APressInAnApplicationThatIsNotActiveDoesNotWait) {
  Create();
  Build("root [a b]");
  tree.EnableMultipleSelection(1);
  Click("a");
  Click("b", {.shift = true});
  AfxGetApp()->m_pMainWnd = nullptr;
  Click("a");
  EXPECT_EQ(tree.Selected(), "a b");
}

// --- Into view -------------------------------------------------------------------------------------

TEST_F(RowsInWindow, SelectItemBringsIntoViewByTheBitOnly) {
  Create(0, 200, 100);
  BuildRows(30);
  tree.SelectItem(tree["r20"]);
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 0);
  tree.ModifySelectionType(0, STST_ENSUREVISIBLE);
  tree.SelectItem(tree["r20"]);
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 0) << "it was selected: nothing changed";
  tree.SelectItem(tree["r25"]);
  support::Pump();
  EXPECT_GT(tree.GetScrollPos(SB_VERT), 0);
  EXPECT_TRUE(tree.IsDisplayItem(tree["r25"]));
  tree.log.Clear();
}

TEST_F(RowsInWindow, SelectItemAsksForAPaintEvenWhenNothingChanges) {
  Create();
  Build("root [a*]");
  ASSERT_FALSE(WantsPaint());
  EXPECT_EQ(tree.SelectItem(tree["a"]), 1);
  EXPECT_TRUE(WantsPaint());
  support::Pump();
  EXPECT_EQ(tree.SelectItem(nullptr), 0);
  EXPECT_FALSE(WantsPaint());
}

TEST_F(RowsInWindow, SelectByCodeScrollsToTheItem) {
  Create(0, 200, 100);
  BuildRows(30);
  EXPECT_EQ(tree.Select(tree["r8"], STSEL_FIRSTVISIBLE), 1);
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 8);
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(tree.Select(tree["r4"], STSEL_SELECTFIRSTVISIBLE), 1);
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 4);
  EXPECT_EQ(tree.Selected(), "r4");
  tree.log.Clear();
}

TEST_F(RowsInWindow, AKeyBringsItsItemIntoView) {
  Create(0, 200, 100);
  BuildRows(30);
  EXPECT_EQ(tree.GetSelectionManager()->OnKeyDown(tree["r20"], VK_DOWN), 1);
  support::Pump();
  EXPECT_TRUE(tree.IsDisplayItem(tree["r20"]));
  tree.log.Clear();
}

TEST_F(RowsInWindow, ParentsAreOpenedFromTheNearestUp) {
  Create();
  Build("root [a [b [c [d]]] e]");
  EXPECT_EQ(tree.EnsureVisible(tree["d"]), 1);
  EXPECT_LOG(tree.log, R"(
    OnItemExpanding c
    OnItemExpanded c
    OnItemExpanding b
    OnItemExpanded b
    OnItemExpanding a
    OnItemExpanded a)");
  EXPECT_EQ(tree.Rows(), "a b c d e");
}

TEST_F(RowsInWindow, ForADocumentNothingIsOpened) {
  Create();
  Build("root [a b]");
  tree.Expand(STI_ROOT, STE_COLLAPSE);
  tree.log.Clear();
  EXPECT_EQ(tree.EnsureVisible(tree["b"]), 1);
  EXPECT_LOG(tree.log, "");
}

// --- The display list ------------------------------------------------------------------------------

TEST_F(RowsInWindow, EachPositionShowsTheRowWithThatIndex) {
  Create(0, 200, 100);
  Build("root [a+ [b! [x] c+ [d e!] f [g]] h! i+ [j k] l m n o]");
  std::vector<CVornTreeItem*> rows;
  for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr; row = tree.GetNextVisibleItem(row)) {
    rows.push_back(row);
  }
  ASSERT_EQ(static_cast<int>(rows.size()), tree.GetVisibleCount());
  for (int i = 0; i < 6; ++i) {
    tree.SetScrollPos(SB_VERT, i);
    tree.UpdateTree();
    support::Pump();
    EXPECT_EQ(tree.GetFirstDisplayItem(), rows[static_cast<size_t>(i)]) << i;
  }
}

TEST_F(RowsInWindow, TheDisplayListEndsWithItsLastRow) {
  Create(0, 200, 100);
  BuildRows(30);
  tree.SetScrollPos(SB_VERT, 3);
  tree.UpdateTree();
  support::Pump();
  CVornTreeItem* const first = tree.GetFirstDisplayItem();
  CVornTreeItem* const last = tree.GetLastDisplayItem();
  ASSERT_EQ(first, tree["r3"]);
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(tree.IsDisplayItem(first), 1);
  EXPECT_EQ(tree.IsDisplayItem(last), 1);
  EXPECT_EQ(tree.IsDisplayItem(tree.GetNextVisibleItem(last)), 0);
  EXPECT_EQ(tree.IsDisplayItem(tree["r2"]), 0);
  EXPECT_EQ(tree.IsDisplayItem(tree["r29"]), 0);
  EXPECT_EQ(tree.IsDisplayItem(nullptr), 0);
}

TEST_F(RowsInWindow, ADisplayListOfOneRowHoldsAllRowsBelowIt) {
  Create(0, 200, 6);
  Build("root [a [a1] b c! d]");
  ASSERT_EQ(OnScreen(), "a");
  EXPECT_EQ(tree.IsDisplayItem(tree["a"]), 1);
  EXPECT_EQ(tree.IsDisplayItem(tree["b"]), 1);
  EXPECT_EQ(tree.IsDisplayItem(tree["d"]), 1);
  EXPECT_EQ(tree.IsDisplayItem(tree["a1"]), 0) << "no row";
  EXPECT_EQ(tree.IsDisplayItem(tree["c"]), 0) << "no row";
}

TEST_F(RowsInWindow, TheDisplayListIsThatOfTheLastPaint) {
  Create();
  Build("root [a b c]");
  ASSERT_EQ(OnScreen(), "a b c");
  EXPECT_EQ(tree.GetDisplayCount(), 3);
  tree.SetRedraw(FALSE);
  tree.Add("first", STI_ROOT, STI_FIRST);
  EXPECT_EQ(tree.GetFirstDisplayItem(), tree["a"]) << "nothing marks it stale";
  EXPECT_EQ(tree.IsDisplayItem(tree["first"]), 0);
  EXPECT_EQ(tree.GetDisplayCount(), 3);
  tree.SetRedraw(TRUE);
  support::Pump();
  EXPECT_EQ(OnScreen(), "first a b c");
  EXPECT_EQ(tree.GetDisplayCount(), 4);
}

TEST_F(RowsInWindow, ADisplayListOfItemsThatAreGoneIsNone) {
  Create();
  Build("root [a b]");
  tree.SetRedraw(FALSE);
  tree.DeleteAllItems(STI_ROOT);
  EXPECT_EQ(tree.GetFirstDisplayItem(), nullptr);
  EXPECT_EQ(tree.GetLastDisplayItem(), nullptr);
  EXPECT_EQ(tree.IsDisplayItem(tree.GetRootItem()), 0);
  tree.SetRedraw(TRUE);
  support::Pump();
  EXPECT_EQ(tree.GetDisplayCount(), 0);
  tree.log.Clear();
}

TEST_F(RowsInWindow, DocumentModeShowsAndHidesAtOnce) {
  Create();
  Build("root [d1+ [a b] d2+ [c]]");
  tree.SelectItem(tree["b"]);
  EXPECT_EQ(tree.SetDocumentDisplay(1), 0);
  EXPECT_EQ(OnScreen(), "a b");
  tree.SelectItem(tree["c"]);
  support::Pump();
  EXPECT_EQ(OnScreen(), "c");
  EXPECT_EQ(tree.SetDocumentDisplay(0), 1);
  EXPECT_EQ(OnScreen(), "d1 a b d2 c");
  tree.log.Clear();
}

TEST_F(RowsInWindow, HidingShowsAtOnceUnderAnOpenParentOnly) {
  Create();
  Build("root [a+ [b] c [d]]");
  tree.SetItemVisibility(tree["b"], 0);
  EXPECT_EQ(OnScreen(), "a c");
  ::ValidateRect(tree, nullptr);
  tree.SetItemVisibility(tree["d"], 0);
  EXPECT_FALSE(WantsPaint());
  tree.LockItemVisibility(tree["c"], 0);
  EXPECT_EQ(OnScreen(), "a");
  tree.UnlockItemVisibility(tree["c"]);
  EXPECT_EQ(OnScreen(), "a c");
}

TEST_F(RowsInWindow, ACountThatOutlivedItsRowsIsPassed) {
  Create(0, 200, 100);
  Build("root [a! [x] b c d e f g h i j]");
  // Opened with all while hidden it stays closed, and keeps its count when its children go.
  tree.Expand(tree["a"], STE_EXPANDALL);
  tree.DeleteAllItems(tree["a"]);
  ASSERT_EQ(tree.GetVisibleChildCount(tree["a"]), 1u);
  tree.SetItemVisibility(tree["a"], 1);
  EXPECT_EQ(tree.GetLastVisibleItem(tree["a"]), tree["a"]);
  tree.SetScrollPos(SB_VERT, 2);
  tree.UpdateTree();
  support::Pump();
  EXPECT_EQ(tree.GetFirstDisplayItem(), tree["c"]);
  EXPECT_EQ(CheckTree(tree, false), "");
  tree.log.Clear();
}

TEST_F(RowsInWindow, AKeyMayLoseItsManagerWhileItsItemIsBroughtIntoView) {
  Create();
  Build("root [a [b] c]");
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnItemExpanding") tree.EnableSelectionByDocuments(1);
    return 1;
  };
  EXPECT_EQ(tree.GetSelectionManager()->OnKeyDown(tree["b"], VK_DOWN), 1);
  EXPECT_EQ(tree.Selected(), "b");
  EXPECT_EQ(CheckTree(tree), "");
  tree.log.Clear();
}

// --- Opening ---------------------------------------------------------------------------------------

class OpeningInWindow : public RowsInWindow {
 protected:
  // Six rows fit and a seventh shows in part. The row with this index is p, which gets some children.
  void Prepare(int index, int children, unsigned style = 0) {
    Create(style, 200, 100);
    tree.recording = false;
    tree.SetRedraw(FALSE);
    for (int i = 0; i < index; ++i) tree.Add("r" + std::to_string(i));
    CVornTreeItem* const parent = tree.Add("p");
    for (int i = 0; i < children; ++i) tree.Add("c" + std::to_string(i), parent);
    for (int i = 0; i < 20; ++i) tree.Add("s" + std::to_string(i));
    tree.SetRedraw(TRUE);
    support::Pump();
    CRect row;
    ASSERT_EQ(tree.GetItemRect(tree.GetFirstVisibleItem(), row, 1), 1);
    tree.SetWindowPos(nullptr, 0, 0, 200, 6 * row.Height() + row.Height() * 3 / 4, SWP_NOMOVE | SWP_NOZORDER);
    tree.UpdateTree();
    support::Pump();
    ASSERT_EQ(tree.GetDisplayCount(), 7);
  }
  // The position after the opening.
  int Open(int index, int children, unsigned flags) {
    Prepare(index, children);
    EXPECT_EQ(tree.Expand(tree["p"], STE_EXPAND | flags), 1);
    support::Pump();
    return tree.GetScrollPos(SB_VERT);
  }
  int OpenByClick(unsigned style) {
    Prepare(6, 10, STS_HASBUTTONS | STS_LINESATROOT | style);
    CRect rect;
    EXPECT_EQ(tree.GetItemRect(tree["p"], rect, 1), 1);
    support::Click(At(tree, rect.left - 10, (rect.top + rect.bottom) / 2));
    EXPECT_TRUE(tree.IsItemExpanded(tree["p"]));
    return tree.GetScrollPos(SB_VERT);
  }
};

TEST_F(OpeningInWindow, DoesNotScrollWithoutTheFlag) { EXPECT_EQ(Open(6, 10, 0), 0); }

TEST_F(OpeningInWindow, ScrollsNewRowsIntoViewUntilTheItemIsOnTop) {
  EXPECT_EQ(Open(6, 10, STE_SCROLL), 6);
  EXPECT_EQ(tree.GetFirstDisplayItem(), tree["p"]);
}

TEST_F(OpeningInWindow, ScrollsByOneRowForEachNewOne) {
  EXPECT_EQ(Open(6, 2, STE_SCROLL), 2);
  EXPECT_EQ(tree.IsDisplayItem(tree["p"]), 1);
  EXPECT_EQ(tree.IsDisplayItem(tree["c1"]), 1);
}

TEST_F(OpeningInWindow, AboveARowThatShowsScrollsNothing) {
  EXPECT_EQ(Open(5, 10, STE_SCROLL), 0) << "meant: the new rows count as shown";
}

TEST_F(OpeningInWindow, OfTheTopRowScrollsNothing) { EXPECT_EQ(Open(0, 10, STE_SCROLL), 0); }

TEST_F(OpeningInWindow, BelowTheWindowScrollsNothing) { EXPECT_EQ(Open(12, 10, STE_SCROLL), 0); }

TEST_F(OpeningInWindow, ByAClickScrollsWithTheStyle) { EXPECT_EQ(OpenByClick(STS_SCROLLONEXPAND), 6); }

TEST_F(OpeningInWindow, ByAClickScrollsWithTheOtherStyle) {
  EXPECT_EQ(OpenByClick(STS_SCROLLONEXPANDALT), 6);
}

TEST_F(OpeningInWindow, ByAClickWithoutAStyleScrollsNothing) { EXPECT_EQ(OpenByClick(0), 0); }

TEST_F(OpeningInWindow, ByTheHostsCallScrollsNothingInSpiteOfTheStyle) {
  Prepare(6, 10, STS_SCROLLONEXPAND | STS_SCROLLONEXPANDALT);
  tree.Expand(tree["p"], STE_EXPAND);
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 0);
}

TEST_F(OpeningInWindow, ScrollsSidewaysToTheItemsLevel) {
  Create(0, 60, 100);
  tree.recording = false;
  CVornTreeItem* item = STI_ROOT;
  for (int i = 0; i < 5; ++i) {
    item = tree.InsertItem(L"wide label", 0, 0, item);
    if (i < 3) tree.EnsureVisible(item);
  }
  CVornTreeItem* const parent = tree.GetParentItem(item);
  tree.Expand(tree.GetParentItem(parent), STE_EXPAND);
  tree.SetScrollPos(SB_HORZ, 0);
  support::Pump();
  EXPECT_EQ(tree.Expand(parent, STE_EXPAND | STE_SCROLL), 1);
  EXPECT_EQ(tree.GetScrollPos(SB_HORZ), static_cast<int>(tree.GetIndent()) * 3);
}

TEST_F(OpeningInWindow, WithAllBelowPaintsOnce) {
  Create();
  Build("root [a [b [c] d [e]] f [g]]");
  tree.log.Watch(tree, "tree");
  tree.log.Only({WM_PAINT});
  tree.Expand(STI_ROOT, STE_EXPANDALL);
  support::Pump();
  EXPECT_LOG(tree.log, "OnItemExpanding root\ntree WM_PAINT\nOnItemExpanded root")
      << "at the end of the work";
}

// --- The window goes inside a hook -----------------------------------------------------------------

TEST(WindowGone, InsideAHookOfExpansionOrSelection) {
  using Act = std::function<void(TestTree&)>;
  const Act acts[] = {
      [](TestTree& tree) { tree.Expand(tree["p"], STE_EXPAND | STE_SCROLL); },
      [](TestTree& tree) { tree.Expand(tree["p"], STE_EXPANDALL); },
      [](TestTree& tree) { tree.EnsureVisible(tree["q"]); },
      [](TestTree& tree) { tree.SetFirstVisible(tree["q"]); },
      [](TestTree& tree) { tree.SelectSetFirstVisible(tree["q"]); },
      [](TestTree& tree) { tree.SetDocumentDisplay(1); },
      [](TestTree& tree) { tree.SelectItem(tree["x"]); },
      [](TestTree& tree) { tree.UnselectItem(tree["a"]); },
      [](TestTree& tree) { tree.ClearSelection(nullptr); },
      [](TestTree& tree) { tree.Select(tree["x"], STSEL_ADD); },
      [](TestTree& tree) { tree.UpdateSelection(tree["x"], STUS_ACTIVATE); },
      [](TestTree& tree) { tree.UpdateSelection(nullptr, STUS_NOACTIVE); },
      [](TestTree& tree) { tree.EnableSelectionByDocuments(!tree.IsSelectionByDocuments()); },
      [](TestTree& tree) { tree.GetSelectionManager()->OnLButtonDown(tree["x"]); },
      [](TestTree& tree) { tree.GetSelectionManager()->OnRButtonDown(tree["x"]); },
      [](TestTree& tree) { tree.GetSelectionManager()->OnKeyDown(tree["x"], VK_DOWN); },
      [](TestTree& tree) { tree.GetSelectionManager()->SelectRange(tree["a"], tree["x"]); },
      [](TestTree& tree) { tree.DeleteItem(tree["p"]); },
      [](TestTree& tree) { tree.DeleteAllItems(STI_ROOT); },
  };
  HostWindow host;
  for (const Act& act : acts) {
    for (int call = 0; call < 4; ++call) {
      for (bool byDocuments : {false, true}) {
        SCOPED_TRACE(testing::Message() << "act " << &act - acts << ", call " << call);
        TestTree tree;
        tree.recording = false;
        tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, RECT{0, 0, 150, 100}, CWnd::FromHandle(host), 8);
        tree.EnableSelectionByDocuments(byDocuments);
        tree.ModifySelectionType(0, STST_ENSUREVISIBLE);
        tree.Build("root [a* p [q] x]");
        tree.recording = false;
        support::Pump();
        int wait = call;
        tree.answer = [&](const std::string&, CVornTreeItem*, CVornTreeItem*) {
          if (wait-- == 0) tree.DestroyWindow();
          return 1;
        };
        act(tree);
        tree.answer = nullptr;
        EXPECT_EQ(tree.GetSafeHwnd() == nullptr, wait < 0);
        if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
        EXPECT_EQ(tree.GetRootItem(), nullptr);
        EXPECT_EQ(tree.GetSelectionManager(), nullptr);
        EXPECT_EQ(tree.GetFirstVisibleItem(), nullptr);
        EXPECT_EQ(tree.GetVisibleCount(), 0);
        EXPECT_EQ(tree.GetCount(), 0u);
        CVornTreeItemArray hidden;
        EXPECT_EQ(tree.GetHiddenItems(hidden), 0);
        EXPECT_EQ(CheckTree(tree), "");
      }
    }
  }
}

}  // namespace
