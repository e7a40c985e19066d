// The mouse: what a press, a release, a double click and a move do on each zone of a row.
#include "support/picture.h"
#include "tree/input/input_scene.h"

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

constexpr const char* kScene = "root [Alpha+ [Beta [Gamma] Bravo] Delta [Echo] Foxtrot]";
constexpr const wchar_t* kIgnored = L"IgnoreLBDblClick";

class Mouse : public testing::Test {
 protected:
  Mouse() : Mouse(support::kPlain) {}
  explicit Mouse(unsigned style) : scene(kScene, style), tree(scene.tree) { scene.Dress("Beta"); }

  bool IsIgnoring() { return ::GetPropW(tree, kIgnored) == reinterpret_cast<HANDLE>(1); }
  void Refuse(const std::string& refused) {
    tree.answer = [refused](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
      return hook != refused;
    };
  }
  bool IsWhollyInvalid() {
    RECT invalid{}, client{};
    ::GetUpdateRect(tree, &invalid, FALSE);
    ::GetClientRect(tree, &client);
    return ::EqualRect(&invalid, &client);
  }
  // A message by hand: nothing is painted after it.
  void Send(UINT message, POINT screen, WPARAM flags = MK_LBUTTON) {
    ::ScreenToClient(tree, &screen);
    tree.SendMessage(message, flags, MAKELPARAM(screen.x, screen.y));
  }

  InputScene scene;
  support::TestTree& tree;
};

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

// --- The other buttons -----------------------------------------------------------------------------

TEST_F(Mouse, ARightPressSelectsOnLabelAndImages) {
  tree.recording = false;
  for (const unsigned zone : {kLabel, kImage, kStateImage}) {
    scene.Start("Delta");
    ::SetFocus(*scene.host);
    support::Click(scene.Spot("Beta", zone), Button::Right);
    EXPECT_EQ(tree.Selected(), "Beta") << zone;
    EXPECT_EQ(::GetFocus(), tree.m_hWnd);
  }
}

TEST_F(Mouse, ARightPressElsewhereLeavesTheSelection) {
  scene.Start("Delta");
  tree.EnableClearSelectionWithEmptyArea(1);
  for (const unsigned zone : {kIndent, kRight, kCheckBox, support::kButton}) {
    support::Click(scene.Spot("Beta", zone), Button::Right);
    EXPECT_EQ(tree.Selected(), "Delta") << zone;
  }
  support::Click(scene.Below(), Button::Right);
  EXPECT_EQ(tree.Selected(), "Delta");
  EXPECT_EQ(tree.GetItemCheck(tree["Beta"]), 0);
  EXPECT_LOG(tree.log, "");
}

TEST_F(Mouse, ARightPressDoesNotTellOfImages) {
  support::Click(scene.Spot("Beta", kImage), Button::Right);
  EXPECT_LOG(tree.log, R"(
    OnSelChanging - Beta
    OnClearSelection Beta
    OnSelChanged - Beta)");
}

TEST_F(Mouse, ARightReleaseAsksForTheContextMenu) {
  support::Recorder log;
  log.Only({WM_CONTEXTMENU});
  log.Watch(tree, "tree");
  const POINT spot = scene.Spot("Delta");
  support::Click(spot, Button::Right);
  EXPECT_LOG(log, "tree WM_CONTEXTMENU " + std::to_string(spot.x) + "," + std::to_string(spot.y));
  tree.log.Clear();
}

TEST_F(Mouse, TheControlHasNoContextMenuOfItsOwn) {
  support::Recorder log;
  log.Only({WM_CONTEXTMENU});
  log.Watch(*scene.host, "host");
  EXPECT_EQ(tree.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(tree.m_hWnd), MAKELPARAM(5, 5)), 0);
  EXPECT_LOG(log, "") << "nor is the parent asked";
}

TEST_F(Mouse, TheMiddleButtonDoesNothing) {
  scene.Start("Delta");
  support::DoubleClick(scene.Spot("Beta"), Button::Middle);
  EXPECT_EQ(tree.Selected(), "Delta");
  EXPECT_LOG(tree.log, "");
}

// --- Moves -----------------------------------------------------------------------------------------

class HotTracking : public Mouse {
 protected:
  HotTracking() : Mouse(support::kPlain | STS_HOTTRACK) { tree.recording = false; }
  // The labels of the rows that are marked.
  std::string Hot() {
    std::string hot;
    for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr;
         row = tree.GetNextVisibleItem(row)) {
      if (tree.GetItemState(row, STIS_HOT)) hot += (hot.empty() ? "" : " ") + tree.Name(row);
    }
    return hot;
  }
};

TEST_F(HotTracking, TheRowUnderThePointerIsMarked) {
  support::MoveTo(scene.Spot("Delta"));
  EXPECT_EQ(Hot(), "Delta");
  for (const unsigned zone : {kLabel, kImage, kStateImage}) {
    support::MoveTo(scene.Spot("Delta"));
    support::MoveTo(scene.Spot("Beta", zone));
    EXPECT_EQ(Hot(), "Beta") << zone;
  }
}

TEST_F(HotTracking, EnteringARowBesideItsContentDoesNotMarkIt) {
  for (const unsigned zone : {kIndent, kRight, kCheckBox, support::kButton}) {
    support::MoveTo(scene.Spot("Delta"));
    support::MoveTo(scene.Spot("Beta", zone));
    EXPECT_EQ(Hot(), "") << zone;
  }
}

TEST_F(HotTracking, MovingFromTheLabelToItsRightKeepsTheMark) {
  support::MoveTo(scene.Spot("Beta"));
  support::MoveTo(scene.Spot("Beta", kRight));
  EXPECT_EQ(Hot(), "Beta");
  support::MoveTo(scene.Below());
  EXPECT_EQ(Hot(), "");
}

TEST_F(HotTracking, ThePointerThatLeavesTheWindowLeavesTheMark) {
  support::MoveTo(scene.Spot("Beta"));
  support::MoveTo(support::At(*scene.host, 5, 5));
  EXPECT_TRUE(support::PumpUntil([] { return true; }, 100));
  tree.SendMessage(WM_MOUSELEAVE);
  EXPECT_EQ(Hot(), "Beta");
  support::MoveTo(scene.Spot("Delta"));
  EXPECT_EQ(Hot(), "Delta");
}

TEST_F(HotTracking, TheMarkStaysWhileTheLeftButtonIsDown) {
  support::MoveTo(scene.Spot("Beta"));
  support::Press(scene.Spot("Beta"));
  support::MoveTo(scene.Spot("Delta"));
  EXPECT_EQ(Hot(), "Beta");
  support::Release(scene.Spot("Delta"));
  support::MoveTo(scene.Spot("Foxtrot"));
  EXPECT_EQ(Hot(), "Foxtrot");
}

TEST_F(HotTracking, TheMarkIsPaintedAtOnce) {
  support::MoveTo(scene.Below());
  const support::Picture before = support::CaptureClient(tree);
  support::MoveTo(scene.Spot("Delta"));
  EXPECT_FALSE(support::CaptureClient(tree) == before);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
  support::MoveTo(scene.Below());
  EXPECT_TRUE(support::CaptureClient(tree) == before);
}

TEST_F(HotTracking, AMarkedRowMayGo) {
  support::MoveTo(scene.Spot("Delta"));
  tree.DeleteItem(tree["Delta"]);
  support::MoveTo(scene.Spot("Foxtrot"));
  EXPECT_EQ(Hot(), "Foxtrot");
}

TEST_F(Mouse, WithoutTheStyleNothingIsMarked) {
  support::MoveTo(scene.Spot("Delta"));
  EXPECT_EQ(tree.GetItemState(tree["Delta"], STIS_HOT), 0u);
}

TEST_F(Mouse, TheControlHearsOfThePointerThatLeavesEachTime) {
  support::Recorder log;
  log.Only({WM_MOUSELEAVE});
  log.Watch(tree, "tree");
  for (int i = 0; i < 2; ++i) {
    support::MoveTo(scene.Spot("Delta"));
    support::MoveTo(support::At(*scene.host, 5, 5));
    EXPECT_TRUE(support::PumpUntil([&] { return !log.Text().empty(); }));
    EXPECT_LOG(log, "tree WM_MOUSELEAVE");
  }
}

TEST_F(Mouse, NotificationsCarryTheLastPlaceOfThePointer) {
  POINT told{};
  scene.host->SetHandler([&](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
    if (message == WM_NOTIFY) told = reinterpret_cast<NMSTREE*>(lParam)->ptMouse;
    return std::nullopt;
  });
  const POINT spot = scene.Spot("Delta");
  support::MoveTo(spot);
  support::MoveTo(support::At(*scene.host, 5, 5));
  EXPECT_EQ(tree.NotifyParent(77, nullptr, nullptr), 1);
  POINT client = spot;
  ::ScreenToClient(tree, &client);
  EXPECT_EQ(told.x, client.x);
  EXPECT_EQ(told.y, client.y);
}

TEST_F(Mouse, TheCursorIsTheClasss) {
  support::MoveTo(scene.Spot("Delta"));
  const auto own = reinterpret_cast<HCURSOR>(::GetClassLongPtrW(tree, GCLP_HCURSOR));
  ASSERT_NE(own, nullptr);
  ::SetCursor(nullptr);
  tree.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(tree.m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(::GetCursor(), own);
}

// --- Timers and capture ----------------------------------------------------------------------------

TEST_F(Mouse, TimersOneToThreeAreStoppedBeforeTheyAct) {
  for (const UINT_PTR id : {1, 2, 3}) {
    ::SetTimer(tree, id, 60000, nullptr);
    tree.SendMessage(WM_TIMER, id);
    EXPECT_FALSE(::KillTimer(tree, id)) << id;
  }
  ::SetTimer(tree, 4, 60000, nullptr);
  tree.SendMessage(WM_TIMER, 4);
  EXPECT_TRUE(::KillTimer(tree, 4)) << "another one goes on";
  EXPECT_LOG(tree.log, "");
}

TEST_F(Mouse, TheFirstTimerEditsTheLastSelectedItem) {
  scene.Start("Delta");
  tree.SendMessage(WM_TIMER, 1);
  ASSERT_NE(tree.GetEditControl(), nullptr);
  EXPECT_EQ(scene.EditText(), L"Delta");
  tree.EndLabelEdit();
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Delta\nOnEndLabelEdit 'Delta' Delta");
}

class ClickToEdit : public Mouse {
 protected:
  ClickToEdit() : Mouse(support::kPlain | STS_EDITLABELS) {
    tree.recording = false;
    scene.Click("Delta");
  }
};

TEST_F(ClickToEdit, OnlyASecondClickOnTheSoleSelectedItemStartsTheTimer) {
  EXPECT_FALSE(scene.StopEditTimer()) << "the first click has selected it";
  scene.Click("Delta");
  EXPECT_TRUE(scene.StopEditTimer());
  tree.SelectItem(tree["Foxtrot"], 1);
  scene.Click("Delta");
  EXPECT_FALSE(scene.StopEditTimer()) << "one of two";
}

TEST_F(ClickToEdit, WithoutTheStyleNoTimerIsStarted) {
  tree.ModifyStyle(STS_EDITLABELS, 0);
  scene.Click("Delta");
  EXPECT_FALSE(scene.StopEditTimer());
}

TEST_F(ClickToEdit, ThePressAlreadyIsNotEnough) {
  support::Press(scene.Spot("Delta"));
  EXPECT_FALSE(scene.StopEditTimer());
  support::Release(scene.Spot("Delta"));
  EXPECT_TRUE(scene.StopEditTimer());
}

TEST_F(ClickToEdit, ADoubleClickStopsIt) {
  support::DoubleClick(scene.Spot("Delta"));
  EXPECT_FALSE(scene.StopEditTimer());
  EXPECT_TRUE(tree.IsItemExpanded(tree["Delta"]));
}

TEST_F(ClickToEdit, AKeyAPressElsewhereARightPressAndTheLossOfTheFocusStopIt) {
  const auto start = [&] {
    scene.Start("Delta");
    ::SetFocus(tree);
    ::SetTimer(tree, 1, 60000, nullptr);
  };
  start();
  InputScene::Key(VK_UP);
  EXPECT_FALSE(scene.StopEditTimer());
  start();
  scene.Click("Foxtrot");
  EXPECT_FALSE(scene.StopEditTimer());
  start();
  support::Click(scene.Spot("Delta"), Button::Right);
  EXPECT_FALSE(scene.StopEditTimer());
  start();
  ::SetFocus(*scene.host);
  EXPECT_FALSE(scene.StopEditTimer());
}

TEST_F(Mouse, TheLossOfTheCaptureAndARelaseOnTheFrameAreTheSystemsAffair) {
  scene.Start("Delta");
  EXPECT_EQ(tree.SendMessage(WM_CAPTURECHANGED), 0);
  tree.SendMessage(WM_NCLBUTTONUP, HTBORDER, 0);
  tree.SendMessage(WM_NCMOUSEMOVE, HTBORDER, 0);
  EXPECT_EQ(tree.Selected(), "Delta");
  EXPECT_LOG(tree.log, "");
}

}  // namespace
