// The other buttons, moves of the pointer, timers and the capture.
#include "support/picture.h"
#include "tree/input/mouse_scene.h"

namespace {

using support::Button;
using support::InputScene;
using support::kCheckBox;
using support::kImage;
using support::kIndent;
using support::kLabel;
using support::kRight;
using support::kStateImage;
using support::Mouse;

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

TEST_F(Mouse, ARightPressOnContentRepaintsAll) {
  const POINT content = scene.Spot("Beta"), beside = scene.Spot("Beta", kRight);
  ::ValidateRect(tree, nullptr);
  Send(WM_RBUTTONDOWN, beside, MK_RBUTTON);
  EXPECT_FALSE(::GetUpdateRect(tree, nullptr, FALSE));
  Send(WM_RBUTTONDOWN, content, MK_RBUTTON);
  EXPECT_TRUE(IsWhollyInvalid());
  tree.log.Clear();
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
