// Keys: what each does with each modifier and kind of selection, and who sees it.
#include "support/picture.h"
#include "tree/input/input_scene.h"

namespace {

using support::InputScene;
using support::Key;
using support::Keys;

constexpr const char* kScene = "root [Alpha+ [Beta [Gamma] Bravo] Delta [Echo] Foxtrot]";
constexpr UINT kTreeKeys[] = {VK_ESCAPE, VK_SPACE, VK_PRIOR, VK_NEXT,     VK_END, VK_HOME,     VK_LEFT,
                              VK_UP,     VK_RIGHT, VK_DOWN,  VK_MULTIPLY, VK_ADD, VK_SUBTRACT, VK_DIVIDE};

class Keyboard : public testing::Test {
 protected:
  Keyboard() : scene(kScene), tree(scene.tree) { tree.recording = false; }

  // The focus after one key, from an item.
  std::string After(const char* label, UINT key, Keys keys = {}) {
    scene.Start(label);
    Key(key, keys);
    return tree.Name(tree.GetItemHasFocus());
  }
  BOOL Translate(UINT message, WPARAM wParam, LPARAM lParam = 1) {
    MSG m{tree, message, wParam, lParam, 0, {}};
    return tree.PreTranslateMessage(&m);
  }
  bool IsWhollyInvalid() {
    RECT invalid{}, client{};
    ::GetUpdateRect(tree, &invalid, FALSE);
    ::GetClientRect(tree, &client);
    return ::EqualRect(&invalid, &client);
  }

  InputScene scene;
  support::TestTree& tree;
};

// --- Ahead of the dispatch -------------------------------------------------------------------------

TEST_F(Keyboard, ItsKeysAreTakenBeforeTheHostSeesThem) {
  scene.Start("Beta");
  for (const UINT key : kTreeKeys) EXPECT_TRUE(Translate(WM_KEYDOWN, key)) << key;
  scene.hostLog.Clear();
}

TEST_F(Keyboard, OtherKeysAndMessagesAreNotTaken) {
  scene.Start("Beta");
  for (const UINT key :
       {VK_TAB, VK_RETURN, VK_F2, VK_DELETE, VK_INSERT, VK_SHIFT, VK_BACK, VK_DECIMAL, 0x41}) {
    EXPECT_FALSE(Translate(WM_KEYDOWN, static_cast<UINT>(key))) << key;
  }
  EXPECT_FALSE(Translate(WM_KEYUP, VK_DOWN));
  EXPECT_FALSE(Translate(WM_SYSKEYDOWN, VK_DOWN));
  EXPECT_FALSE(Translate(WM_CHAR, ' '));
  EXPECT_FALSE(Translate(WM_MOUSEMOVE, 0));
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), "Beta");
}

TEST_F(Keyboard, DuringAnEditNothingIsTaken) {
  scene.Start("Beta");
  ASSERT_NE(tree.EditLabel(tree["Beta"]), nullptr);
  for (const UINT key : kTreeKeys) EXPECT_FALSE(Translate(WM_KEYDOWN, key)) << key;
  EXPECT_FALSE(Translate(WM_CHAR, 'd'));
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), "Beta");
}

TEST_F(Keyboard, AsksDialogsForAllKeysAndCharacters) {
  EXPECT_EQ(tree.SendMessage(WM_GETDLGCODE), DLGC_WANTALLKEYS | DLGC_WANTCHARS);
}

TEST_F(Keyboard, AKeyThatGoesUpDoesNothing) {
  scene.Start("Beta");
  ::ValidateRect(tree, nullptr);
  for (const UINT key : kTreeKeys) EXPECT_EQ(tree.SendMessage(WM_KEYUP, key, 1), 0);
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), "Beta");
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
}

// --- Every key -------------------------------------------------------------------------------------

TEST_F(Keyboard, WithoutAFocusItemNoKeyWorks) {
  ::SetTimer(tree, 1, 60000, nullptr);
  ::SetTimer(tree, 3, 60000, nullptr);
  ::ValidateRect(tree, nullptr);
  for (const UINT key : kTreeKeys) tree.SendMessage(WM_KEYDOWN, key, 1);
  EXPECT_EQ(tree.Text(), kScene);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE)) << "no repaint follows";
  EXPECT_LOG(scene.hostLog, "") << "also Escape";
  EXPECT_FALSE(::KillTimer(tree, 1)) << "but the timers are stopped";
  EXPECT_FALSE(::KillTimer(tree, 3));
}

TEST_F(Keyboard, EveryKeyRepaintsAllAndStopsTheTimers) {
  scene.Start("Beta");
  for (const UINT key : {static_cast<UINT>(VK_DOWN), static_cast<UINT>('Q')}) {
    ::SetTimer(tree, 1, 60000, nullptr);
    ::SetTimer(tree, 3, 60000, nullptr);
    ::ValidateRect(tree, nullptr);
    tree.SendMessage(WM_KEYDOWN, key, 1);
    EXPECT_TRUE(IsWhollyInvalid()) << key;
    EXPECT_FALSE(::KillTimer(tree, 1));
    EXPECT_FALSE(::KillTimer(tree, 3));
  }
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), "Bravo") << "other keys do nothing else";
}

TEST_F(Keyboard, AHookThatMovesTheFocusWindowIsOverruled) {
  scene.Start("Beta");
  tree.answer = [&](const std::string&, CVornTreeItem*, CVornTreeItem*) {
    ::SetFocus(*scene.host);
    return 1;
  };
  Key(VK_DOWN);
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
}

TEST_F(Keyboard, TheFocusReturnsToTheWindowThatHadIt) {
  scene.Start("Beta");
  ::SetFocus(*scene.host);
  tree.SendMessage(WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(::GetFocus(), static_cast<HWND>(*scene.host));
}

TEST_F(Keyboard, AVetoLeavesTheFocusMoved) {
  scene.Start("Beta");
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook != "OnSelChanging";
  };
  Key(VK_DOWN);
  EXPECT_EQ(tree.Text(), "root [Alpha+ [Beta* [Gamma] Bravo@] Delta [Echo] Foxtrot]");
}

TEST_F(Keyboard, EscapeSendsCancelToTheParent) {
  scene.Start("Beta");
  for (const Keys keys : {Keys{}, Keys{.shift = true}}) {
    tree.SendMessage(WM_KEYDOWN, VK_ESCAPE, 1);
    Key(VK_ESCAPE, keys);
    EXPECT_LOG(scene.hostLog, "host WM_COMMAND 2 0\nhost WM_COMMAND 2 0");
  }
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), "Beta");
}

TEST_F(Keyboard, SpaceTurnsTheCheckMark) {
  tree.SetCheckBox(tree["Beta"], 1);
  scene.Start("Beta");
  Key(VK_SPACE);
  EXPECT_EQ(tree.GetItemCheck(tree["Beta"]), 1);
  Key(VK_SPACE, {.control = true});
  EXPECT_EQ(tree.GetItemCheck(tree["Beta"]), 0);
  scene.Start("Bravo");
  Key(VK_SPACE);
  EXPECT_EQ(tree.GetItemCheck(tree["Bravo"]), 0) << "without a box there is no mark";
}

TEST_F(Keyboard, UpAndDownGoFromRowToRow) {
  EXPECT_EQ(After("Alpha", VK_DOWN), "Beta");
  EXPECT_EQ(After("Bravo", VK_DOWN), "Delta");
  EXPECT_EQ(After("Foxtrot", VK_DOWN), "Foxtrot") << "the last row";
  EXPECT_EQ(After("Beta", VK_UP), "Alpha");
  EXPECT_EQ(After("Delta", VK_UP), "Bravo");
  EXPECT_EQ(After("Alpha", VK_UP), "Alpha") << "the first row";
  EXPECT_EQ(tree.Selected(), "Alpha");
}

TEST_F(Keyboard, ControlUpGoesToTheFirstBrotherAndThenToTheParent) {
  const Keys control{.control = true};
  EXPECT_EQ(After("Bravo", VK_UP, control), "Beta");
  EXPECT_EQ(After("Beta", VK_UP, control), "Alpha");
  EXPECT_EQ(After("Foxtrot", VK_UP, control), "Alpha") << "the first row of the tree";
  EXPECT_EQ(After("Alpha", VK_UP, control), "Alpha");
}

TEST_F(Keyboard, ControlDownGoesToTheLastRowUnderTheParentAndThenOut) {
  const Keys control{.control = true};
  EXPECT_EQ(After("Beta", VK_DOWN, control), "Bravo");
  EXPECT_EQ(After("Bravo", VK_DOWN, control), "Delta");
  EXPECT_EQ(After("Alpha", VK_DOWN, control), "Foxtrot") << "the last row of the tree";
  EXPECT_EQ(After("Foxtrot", VK_DOWN, control), "Foxtrot");
}

TEST_F(Keyboard, ControlDownReachesTheLastRowDeepUnderTheParent) {
  tree.Expand(tree["Delta"], STE_EXPAND);
  tree.MoveItem(STI_ROOT, tree["Delta"], STI_LAST);
  EXPECT_EQ(After("Alpha", VK_DOWN, {.control = true}), "Echo");
}

TEST_F(Keyboard, ControlAndShiftTogetherMoveAsWithoutControl) {
  const Keys both{.control = true, .shift = true};
  EXPECT_EQ(After("Bravo", VK_UP, both), "Beta");
  EXPECT_EQ(After("Delta", VK_UP, both), "Bravo");
  EXPECT_EQ(After("Delta", VK_DOWN, both), "Foxtrot");
}

TEST_F(Keyboard, LeftFoldsAndThenGoesToTheParent) {
  EXPECT_EQ(After("Alpha", VK_LEFT), "Alpha");
  EXPECT_EQ(tree.Rows(), "Alpha Delta Foxtrot");
  EXPECT_EQ(After("Alpha", VK_LEFT), "Alpha") << "a folded item at the top stays";
  tree.Expand(tree["Alpha"], STE_EXPAND);
  EXPECT_EQ(After("Beta", VK_LEFT), "Alpha");
  EXPECT_EQ(After("Bravo", VK_LEFT, {.control = true}), "Alpha");
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Delta Foxtrot");
}

TEST_F(Keyboard, RightOpensAndThenEnters) {
  EXPECT_EQ(After("Delta", VK_RIGHT), "Delta");
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Delta Echo Foxtrot");
  EXPECT_EQ(After("Delta", VK_RIGHT), "Echo");
  EXPECT_EQ(After("Echo", VK_RIGHT), "Echo") << "a leaf";
}

TEST_F(Keyboard, RightOnAnItemWithAnnouncedChildrenDoesNothing) {
  tree.ModifyItemState(tree["Foxtrot"], 0, STIS_HASCHILDREN);
  scene.Start("Foxtrot");
  tree.recording = true;
  Key(VK_RIGHT);
  EXPECT_LOG(tree.log, "");
}

TEST_F(Keyboard, PlusAndMinusOpenAndFold) {
  tree.recording = true;
  scene.Start("Delta");
  Key(VK_ADD);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Delta Echo Foxtrot");
  Key(VK_ADD);
  Key(VK_SUBTRACT);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Delta Foxtrot");
  EXPECT_LOG(tree.log, R"(
    OnItemExpanding Delta
    OnItemExpanded Delta
    OnItemExpanding Delta
    OnItemExpanded Delta)");
}

TEST_F(Keyboard, PlusOnALeafDoesNothing) {
  tree.recording = true;
  scene.Start("Foxtrot");
  Key(VK_ADD);
  Key(VK_SUBTRACT);
  EXPECT_LOG(tree.log, "");
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), "Foxtrot");
}

TEST_F(Keyboard, StarOpensEverythingBelow) {
  tree.recording = true;
  EXPECT_EQ(After("Alpha", VK_MULTIPLY), "Alpha");
  EXPECT_EQ(tree.Rows(), "Alpha Beta Gamma Bravo Delta Foxtrot");
  EXPECT_EQ(tree.GetDisplayCount(), 6) << "painted at once";
  EXPECT_EQ(support::CheckTree(tree), "");
  EXPECT_LOG(tree.log, "OnItemExpanding Alpha\nOnItemExpanded Alpha");
}

TEST_F(Keyboard, StarOpensAlthoughTheHostRefuses) {
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook != "OnItemExpanding";
  };
  EXPECT_EQ(After("Delta", VK_MULTIPLY), "Delta");
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Delta Echo Foxtrot") << "the second opening asks nobody";
}

TEST_F(Keyboard, StarOnAHiddenFocusItemLeavesItFolded) {
  scene.Start("Delta");
  tree.SetItemVisibility(tree["Delta"], 0);
  Key(VK_MULTIPLY);
  EXPECT_FALSE(tree.IsItemExpanded(tree["Delta"]));
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Foxtrot");
}

TEST_F(Keyboard, SlashFoldsEverythingBelow) {
  tree.Expand(tree["Beta"], STE_EXPAND);
  EXPECT_EQ(After("Alpha", VK_DIVIDE), "Alpha");
  EXPECT_EQ(tree.Rows(), "Alpha Delta Foxtrot");
  EXPECT_FALSE(tree.IsItemExpanded(tree["Beta"]));
  EXPECT_EQ(tree.GetDisplayCount(), 3) << "painted at once";
}

// --- Home, End and pages ---------------------------------------------------------------------------

class ManyRows : public testing::Test {
 protected:
  ManyRows() : scene(Rows(), support::kPlain, 120, 100), tree(scene.tree) { tree.recording = false; }
  static std::string Rows() {
    std::string rows = "root [Abcdefghijklmnopqrstuvwxyzabcdefghijkl";
    for (int i = 1; i < 40; ++i) rows += " r" + std::to_string(i);
    return rows + "]";
  }
  std::string After(const std::string& label, UINT key, Keys keys = {}) {
    scene.Start(label);
    Key(key, keys);
    return tree.Name(tree.GetItemHasFocus());
  }
  static std::string Row(int i) { return "r" + std::to_string(i); }

  InputScene scene;
  support::TestTree& tree;
};

TEST_F(ManyRows, HomeAndEndReachTheFirstAndTheLastRow) {
  tree.SetScrollPos(SB_HORZ, 30);
  EXPECT_EQ(After("r5", VK_END), "r39");
  EXPECT_TRUE(tree.IsDisplayItem(tree["r39"]));
  tree.SetScrollPos(SB_HORZ, 30);
  Key(VK_HOME);
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), "Abcdefghijklmnopqrstuvwxyzabcdefghijkl");
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 0);
  EXPECT_EQ(tree.GetScrollPos(SB_HORZ), 0);
}

TEST_F(ManyRows, APageIsOneRowLessThanTheWindowShows) {
  const int shown = tree.GetDisplayCount();
  ASSERT_GT(shown, 2);
  EXPECT_EQ(After("r10", VK_NEXT), Row(10 + tree.GetDisplayCount() - 1));
  scene.Start("r20");
  tree.EnsureVisible(tree["r20"]);
  support::Pump();
  const int again = tree.GetDisplayCount();
  Key(VK_PRIOR);
  EXPECT_EQ(tree.Name(tree.GetItemHasFocus()), Row(20 - again + 1));
}

TEST_F(ManyRows, APageEndsAtTheEnds) {
  EXPECT_EQ(After("r38", VK_NEXT), "r39");
  EXPECT_EQ(After("r39", VK_NEXT), "r39");
  EXPECT_EQ(After("r1", VK_PRIOR), "Abcdefghijklmnopqrstuvwxyzabcdefghijkl");
}

TEST_F(ManyRows, AWindowOfOneRowHasNoPages) {
  tree.SetWindowPos(nullptr, 0, 0, 120, 10, SWP_NOMOVE | SWP_NOZORDER);
  tree.SetScrollPos(SB_VERT, 5);
  tree.UpdateTree();
  ASSERT_EQ(tree.GetDisplayCount(), 1);
  EXPECT_EQ(After("r5", VK_NEXT), "r5");
  EXPECT_EQ(After("r5", VK_PRIOR), "r5");
}

// --- Modifiers and kinds of selection --------------------------------------------------------------

TEST_F(Keyboard, ShiftMeansNothingInASingleSelection) {
  EXPECT_EQ(After("Beta", VK_DOWN, {.shift = true}), "Bravo");
  EXPECT_EQ(tree.Selected(), "Bravo");
}

TEST_F(Keyboard, ShiftExtendsFromTheAnchor) {
  tree.EnableMultipleSelection(1);
  scene.Start("Beta");
  Key(VK_DOWN, {.shift = true});
  EXPECT_EQ(tree.Selected(), "Beta Bravo");
  Key(VK_DOWN, {.shift = true});
  EXPECT_EQ(tree.Selected(), "Beta Bravo Delta");
  EXPECT_EQ(tree.Name(tree.GetLastSelectedItem()), "Beta") << "the anchor stays";
  Key(VK_END, {.shift = true});
  EXPECT_EQ(tree.Selected(), "Beta Bravo Delta Foxtrot");
  Key(VK_HOME, {.shift = true});
  EXPECT_EQ(tree.Selected(), "Alpha Beta");
  Key(VK_DOWN);
  EXPECT_EQ(tree.Selected(), "Beta");
}

TEST_F(Keyboard, ControlAndShiftExtendAndKeepTheRest) {
  tree.EnableMultipleSelection(1);
  scene.Start("Foxtrot");
  tree.SelectItem(tree["Alpha"], 1);
  Key(VK_DOWN, {.control = true, .shift = true});
  EXPECT_EQ(tree.Selected(), "Alpha Beta Foxtrot");
}

TEST_F(Keyboard, ControlWithAnArrowSelectsAsWithoutIt) {
  tree.EnableMultipleSelection(1);
  scene.Start("Alpha");
  Key(VK_DOWN, {.control = true});
  EXPECT_EQ(tree.Selected(), "Foxtrot");
  Key(VK_PRIOR, {.control = true});
  EXPECT_EQ(tree.Selected(), tree.Name(tree.GetItemHasFocus()));
}

TEST_F(Keyboard, TheModifiersOfTheMoveCountInASingleSelectionToo) {
  EXPECT_TRUE(tree.IsSingleSelection());
  EXPECT_EQ(After("Bravo", VK_UP, {.control = true}), "Beta");
}

// --- The focus rectangle ---------------------------------------------------------------------------

TEST_F(Keyboard, TheFocusRectangleCanBeTurnedOff) {
  EXPECT_TRUE(tree.IsFocusRectVisible());
  tree.SetFocusRectVisible(false);
  EXPECT_FALSE(tree.IsFocusRectVisible());
  tree.SetFocusRectVisible(true);
  EXPECT_TRUE(tree.IsFocusRectVisible());
}

TEST_F(Keyboard, TheFocusRectangleIsDrawnWhetherOrNotTheWindowHasTheFocus) {
  scene.Start("Beta");
  const auto picture = [&](bool visible) {
    tree.SetFocusRectVisible(visible);
    tree.UpdateTree();
    return support::CaptureClient(tree);
  };
  EXPECT_FALSE(picture(true) == picture(false));
  ::SetFocus(*scene.host);
  const support::Picture drawn = picture(true);
  EXPECT_FALSE(drawn == picture(false));
  EXPECT_TRUE(drawn == picture(true));
}

// --- The focus of the window -----------------------------------------------------------------------

TEST_F(Keyboard, TheTreeWithTheFocusHasTheCurrentOptions) {
  CVornTreeOptions* const own = AfxGetVornTreeOptions();
  support::TestTree other;
  other.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 20), CWnd::FromHandle(*scene.host), 8);
  EXPECT_NE(AfxGetVornTreeOptions(), own);
  ::SetFocus(*scene.host);
  EXPECT_NE(AfxGetVornTreeOptions(), own);
  ::SetFocus(tree);
  EXPECT_EQ(AfxGetVornTreeOptions(), own);
  other.DestroyWindow();
  EXPECT_EQ(AfxGetVornTreeOptions(), own);
}

TEST_F(Keyboard, TheFocusThatLeavesStopsTheTimerOfTheEdit) {
  ::SetTimer(tree, 1, 60000, nullptr);
  ::SetFocus(*scene.host);
  EXPECT_FALSE(scene.StopEditTimer());
}

TEST_F(Keyboard, TheTimerLivesOnWhenTheFocusGoesToTheBox) {
  ASSERT_NE(tree.EditLabel(tree["Beta"]), nullptr);
  HWND const box = *tree.GetEditControl();
  ::SetTimer(tree, 1, 60000, nullptr);
  tree.SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(box));
  EXPECT_NE(tree.GetEditControl(), nullptr);
  EXPECT_TRUE(scene.StopEditTimer());
}

}  // namespace
