// The left button: what a press, a release and a double click do on each zone of a row.
#include "tree/input/mouse_scene.h"

namespace {

using support::Button;
using support::InputScene;
using support::kCheckBox;
using support::Keys;
using support::kImage;
using support::kIndent;
using support::kLabel;
using support::kRight;
using support::kStateImage;
using support::Mouse;

// --- The left button -------------------------------------------------------------------------------

TEST_F(Mouse, APressTakesTheFocus) {
  ::SetFocus(*scene.host);
  support::Click(scene.Below());
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
  EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(Mouse, LabelAndImagesSelect) {
  tree.recording = false;
  for (const unsigned zone : {kLabel, kImage, kStateImage}) {
    tree.ClearSelection(nullptr);
    scene.Click("Beta", zone);
    EXPECT_EQ(tree.Selected(), "Beta") << zone;
  }
}

TEST_F(Mouse, NothingElseInARowSelects) {
  for (const unsigned zone : {kIndent, support::kButton, kRight, kCheckBox}) {
    scene.Click("Beta", zone);
    EXPECT_EQ(tree.Selected(), "") << zone;
    EXPECT_EQ(tree.GetItemHasFocus(), nullptr) << zone;
  }
  tree.log.Clear();
}

TEST_F(Mouse, APressOnTheButtonOpensAndFolds) {
  scene.Click("Beta", support::kButton);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Gamma Bravo Delta Foxtrot");
  scene.Click("Beta", support::kButton);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Delta Foxtrot");
  EXPECT_LOG(tree.log, R"(
    OnItemExpanding Beta
    OnItemExpanded Beta
    OnItemExpanding Beta
    OnItemExpanded Beta)");
}

TEST_F(Mouse, ARefusedOpeningChangesNothingAndSelectsNothing) {
  Refuse("OnItemExpanding");
  scene.Click("Beta", support::kButton);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Bravo Delta Foxtrot");
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_LOG(tree.log, "OnItemExpanding Beta");
}

TEST_F(Mouse, APressOnTheCheckBoxTurnsTheMarkAndRepaintsAll) {
  const POINT spot = scene.Spot("Beta", kCheckBox);
  ::ValidateRect(tree, nullptr);
  Send(WM_LBUTTONDOWN, spot);
  EXPECT_TRUE(IsWhollyInvalid());
  EXPECT_EQ(tree.GetItemCheck(tree["Beta"]), 1);
  Send(WM_LBUTTONDOWN, spot);
  EXPECT_EQ(tree.GetItemCheck(tree["Beta"]), 0);
  EXPECT_LOG(tree.log, "OnChecking Beta\nOnChecked Beta\nOnChecking Beta\nOnChecked Beta");
}

TEST_F(Mouse, APressThatIsForTheSelectionRepaintsAll) {
  for (const unsigned zone : {kLabel, kImage, kStateImage}) {
    const POINT spot = scene.Spot("Beta", zone);
    ::ValidateRect(tree, nullptr);
    Send(WM_LBUTTONDOWN, spot);
    EXPECT_TRUE(IsWhollyInvalid()) << zone;
  }
  const POINT right = scene.Spot("Beta", kRight);
  ::ValidateRect(tree, nullptr);
  Send(WM_LBUTTONDOWN, right);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
  tree.log.Clear();
}

TEST_F(Mouse, AnImageThatTheHostTakesRepaintsAllToo) {
  Refuse("OnItemIconClic");
  const POINT spot = scene.Spot("Beta", kImage);
  ::ValidateRect(tree, nullptr);
  Send(WM_LBUTTONDOWN, spot);
  EXPECT_TRUE(IsWhollyInvalid());
  tree.log.Clear();
}

TEST_F(Mouse, AReleaseRepaintsOnlyWhenItChangedTheSelection) {
  tree.recording = false;
  tree.EnableMultipleSelection(1);
  scene.Start("Delta");
  tree.SelectItem(tree["Foxtrot"], 1);
  const POINT spot = scene.Spot("Delta");
  Send(WM_LBUTTONDOWN, spot);
  ::ValidateRect(tree, nullptr);
  Send(WM_LBUTTONUP, spot, 0);
  EXPECT_TRUE(IsWhollyInvalid());
  ::ValidateRect(tree, nullptr);
  Send(WM_LBUTTONUP, spot, 0);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
}

TEST_F(Mouse, TheHostIsToldWhichImageWasPressed) {
  scene.Click("Beta", kImage);
  tree.UnselectItem(tree["Beta"]);
  tree.log.Clear();
  scene.Click("Beta", kImage);
  scene.Click("Beta", kStateImage);
  EXPECT_LOG(tree.log, R"(
    OnItemIconClic Beta
    OnClearSelection Beta
    OnSelChanging - Beta
    OnSelChanged - Beta
    OnItemIconClic(state) Beta)");
}

TEST_F(Mouse, AnImageThatTheHostTakesSelectsNothingAndMarksTheWindow) {
  Refuse("OnItemIconClic");
  scene.Click("Beta", kImage);
  EXPECT_TRUE(IsIgnoring());
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_LOG(tree.log, "OnItemIconClic Beta");
  scene.Click("Delta", kRight);
  EXPECT_FALSE(IsIgnoring()) << "each press takes the mark away";
}

TEST_F(Mouse, TheStateImageCanBeTakenToo) {
  Refuse("OnItemIconClic(state)");
  scene.Click("Beta", kStateImage);
  EXPECT_TRUE(IsIgnoring());
  EXPECT_EQ(tree.Selected(), "");
  tree.log.Clear();
}

TEST_F(Mouse, TheDoubleClickOnAnImageThatTheHostTookIsIgnored) {
  Refuse("OnItemIconClic");
  support::DoubleClick(scene.Spot("Beta", kImage));
  EXPECT_FALSE(IsIgnoring());
  EXPECT_LOG(tree.log, "OnItemIconClic Beta");
}

TEST_F(Mouse, TheDoubleClickOnAnotherImageToggles) {
  support::DoubleClick(scene.Spot("Beta", kImage));
  EXPECT_TRUE(tree.IsItemExpanded(tree["Beta"]));
  EXPECT_LOG(tree.log, R"(
    OnItemIconClic Beta
    OnClearSelection Beta
    OnSelChanging - Beta
    OnSelChanged - Beta
    OnItemDblClk Beta
    OnItemExpanding Beta
    OnItemExpanded Beta)");
}

TEST_F(Mouse, TheEmptyAreaClearsTheSelectionOnlyIfTheHostWishes) {
  scene.Start("Delta");
  tree.recording = false;
  const auto clickAll = [&](Keys keys) {
    for (const POINT spot : {scene.Below(), scene.Spot("Beta", kIndent), scene.Spot("Beta", kRight)}) {
      support::Click(spot, Button::Left, keys);
    }
  };
  clickAll({});
  EXPECT_EQ(tree.Selected(), "Delta");
  tree.EnableClearSelectionWithEmptyArea(1);
  clickAll({.control = true});
  clickAll({.shift = true});
  EXPECT_EQ(tree.Selected(), "Delta");
  for (const POINT spot : {scene.Below(), scene.Spot("Beta", kIndent), scene.Spot("Beta", kRight)}) {
    scene.Start("Delta");
    support::Click(spot);
    EXPECT_EQ(tree.Selected(), "");
    EXPECT_EQ(tree.GetLastSelectedItem(), nullptr);
  }
}

TEST_F(Mouse, AnEmptyTreeTakesAPressAndDoesNothing) {
  tree.recording = false;
  tree.DeleteAllItems(STI_ROOT);
  tree.recording = true;
  tree.EnableClearSelectionWithEmptyArea(1);
  support::DoubleClick(scene.Below());
  support::Click(scene.Below(), Button::Right);
  EXPECT_LOG(tree.log, "");
}

TEST_F(Mouse, AReleaseCountsAnywhereInTheRow) {
  tree.recording = false;
  tree.EnableMultipleSelection(1);
  scene.Start("Delta");
  tree.SelectItem(tree["Foxtrot"], 1);
  support::Press(scene.Spot("Delta"));
  EXPECT_EQ(tree.Selected(), "Delta Foxtrot") << "the release decides";
  support::Release(scene.Spot("Delta", kRight));
  EXPECT_EQ(tree.Selected(), "Delta");
}

TEST_F(Mouse, AReleaseOnNoRowLeavesThePressWaiting) {
  tree.recording = false;
  tree.EnableMultipleSelection(1);
  scene.Start("Delta");
  tree.SelectItem(tree["Foxtrot"], 1);
  support::Press(scene.Spot("Delta"));
  support::Release(scene.Below());
  EXPECT_EQ(tree.Selected(), "Delta Foxtrot");
  support::Release(scene.Spot("Delta"));
  EXPECT_EQ(tree.Selected(), "Delta");
}

TEST_F(Mouse, AReleaseAloneDoesNothing) {
  scene.Start("Delta");
  support::Release(scene.Spot("Beta"));
  EXPECT_EQ(tree.Selected(), "Delta");
  EXPECT_LOG(tree.log, "");
}

// --- Scrolling after an opening --------------------------------------------------------------------

class ScrollOnExpand : public testing::TestWithParam<unsigned> {};

TEST_P(ScrollOnExpand, APressOnTheButtonOfTheLastRowScrollsTheNewRowsIntoView) {
  // More rows than fit: a bar that comes only with the opening cannot be moved yet.
  std::string rows = "root [";
  for (int i = 0; i < 16; ++i) rows += " r" + std::to_string(i);
  InputScene scene(rows + "]", support::kPlain | GetParam());
  support::TestTree& tree = scene.tree;
  tree.recording = false;
  CRect row;
  ASSERT_EQ(tree.GetItemRect(tree["r0"], row, 1), 1);
  tree.SetWindowPos(nullptr, 0, 0, 200, 6 * row.Height() - 1, SWP_NOMOVE | SWP_NOZORDER);
  ASSERT_EQ(tree.GetLastDisplayItem(), tree["r5"]);
  for (const char* label : {"a", "b", "c"}) tree.Add(label, tree["r5"]);
  scene.Click("r5", support::kButton);
  ASSERT_TRUE(tree.IsItemExpanded(tree["r5"]));
  EXPECT_EQ(tree.GetScrollPos(SB_VERT) > 0, GetParam() != 0);
  tree.Expand(tree["r5"], STE_COLLAPSE);
  tree.SetScrollPos(SB_VERT, 0);
  tree.UpdateTree();
  tree.Expand(tree["r5"], STE_EXPAND);
  EXPECT_EQ(tree.GetScrollPos(SB_VERT), 0) << "a host's call does not scroll";
}

INSTANTIATE_TEST_SUITE_P(Styles, ScrollOnExpand, testing::Values(0u, 0x2000u, 0x4000u));

// --- The double click ------------------------------------------------------------------------------

TEST_F(Mouse, ADoubleClickStopsTheTimerOfTheEdit) {
  tree.recording = false;
  ::SetTimer(tree, 1, 60000, nullptr);
  Send(WM_LBUTTONDBLCLK, scene.Below());
  EXPECT_FALSE(scene.StopEditTimer());
}

TEST_F(Mouse, ADoubleClickTakesTheFocus) {
  ::SetFocus(*scene.host);
  Send(WM_LBUTTONDBLCLK, scene.Below());
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
}

TEST_F(Mouse, ADoubleClickOnALeafAddsItAndKeepsTheFormerSelection) {
  scene.Start("Delta");
  tree.log.Clear();
  Send(WM_LBUTTONDBLCLK, scene.Spot("Foxtrot"));
  EXPECT_EQ(tree.Selected(), "Delta Foxtrot");
  EXPECT_LOG(tree.log, R"(
    OnItemDblClk Foxtrot
    OnSelChanging Delta Foxtrot
    OnSelChanged Delta Foxtrot)");
}

TEST_F(Mouse, ARefusedOpeningByDoubleClickAddsToTheSelectionToo) {
  scene.Start("Delta");
  Refuse("OnItemExpanding");
  Send(WM_LBUTTONDBLCLK, scene.Spot("Beta"));
  EXPECT_FALSE(tree.IsItemExpanded(tree["Beta"]));
  EXPECT_EQ(tree.Selected(), "Beta Delta");
  tree.log.Clear();
}

TEST_F(Mouse, OnlyTheAnswerOneGoesOnToTheOpening) {
  for (const int answer : {0, 2, -1}) {
    tree.answer = [=](const std::string&, CVornTreeItem*, CVornTreeItem*) { return answer; };
    Send(WM_LBUTTONDBLCLK, scene.Spot("Beta"));
    EXPECT_FALSE(tree.IsItemExpanded(tree["Beta"])) << answer;
    EXPECT_LOG(tree.log, "OnItemDblClk Beta");
  }
}

TEST_F(Mouse, ADoubleClickOnTheStateImageToggles) {
  Send(WM_LBUTTONDBLCLK, scene.Spot("Beta", kStateImage));
  EXPECT_TRUE(tree.IsItemExpanded(tree["Beta"]));
  tree.log.Clear();
}

TEST_F(Mouse, ADoubleClickOnACheckBoxChangesItOnce) {
  support::DoubleClick(scene.Spot("Beta", kCheckBox));
  EXPECT_EQ(tree.GetItemCheck(tree["Beta"]), 1);
  EXPECT_LOG(tree.log, "OnChecking Beta\nOnChecked Beta");
}

TEST_F(Mouse, ADoubleClickOnAButtonActsOnce) {
  support::DoubleClick(scene.Spot("Beta", support::kButton));
  EXPECT_TRUE(tree.IsItemExpanded(tree["Beta"]));
  EXPECT_LOG(tree.log, "OnItemExpanding Beta\nOnItemExpanded Beta");
}

TEST_F(Mouse, ADoubleClickInTheEmptyAreaClearsAsAPressDoes) {
  tree.recording = false;
  for (const POINT spot : {scene.Below(), scene.Spot("Beta", kIndent), scene.Spot("Beta", kRight)}) {
    scene.Start("Delta");
    tree.EnableClearSelectionWithEmptyArea(0);
    Send(WM_LBUTTONDBLCLK, spot);
    EXPECT_EQ(tree.Selected(), "Delta");
    tree.EnableClearSelectionWithEmptyArea(1);
    Send(WM_LBUTTONDBLCLK, spot, MK_LBUTTON | MK_CONTROL);
    Send(WM_LBUTTONDBLCLK, spot, MK_LBUTTON | MK_SHIFT);
    EXPECT_EQ(tree.Selected(), "Delta");
    Send(WM_LBUTTONDBLCLK, spot);
    EXPECT_EQ(tree.Selected(), "");
  }
}

}  // namespace
