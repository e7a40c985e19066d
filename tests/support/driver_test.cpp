#include "support/driver.h"

#include <gtest/gtest.h>

#include "support/host_window.h"
#include "support/recorder.h"

using namespace support;

TEST(Driver, ClicksAtAPoint) {
  Recorder log;
  log.Only({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK});
  HostWindow host({.classStyle = CS_DBLCLKS, .log = &log});
  Click(At(host, 10, 20));
  Click(At(host, 10, 20));
  EXPECT_LOG(log, R"(
      host WM_LBUTTONDOWN 10,20 L
      host WM_LBUTTONUP 10,20
      host WM_LBUTTONDOWN 10,20 L
      host WM_LBUTTONUP 10,20)");
  DoubleClick(At(host, 50, 20), Button::Left, {.shift = true});
  EXPECT_LOG(log, R"(
      host WM_LBUTTONDOWN 50,20 LS
      host WM_LBUTTONUP 50,20 S
      host WM_LBUTTONDBLCLK 50,20 LS
      host WM_LBUTTONUP 50,20 S)");
}

TEST(Driver, DragsInSteps) {
  Recorder log;
  HostWindow host({.log = &log});
  MoveTo(At(host, 10, 10));
  log.Only({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MOUSEMOVE});
  log.Clear();
  Drag(At(host, 10, 10), At(host, 50, 30));
  EXPECT_LOG(log, R"(
      ? host WM_MOUSEMOVE 10,10
      host WM_LBUTTONDOWN 10,10 L
      host WM_MOUSEMOVE 20,15 L
      host WM_MOUSEMOVE 30,20 L
      host WM_MOUSEMOVE 40,25 L
      host WM_MOUSEMOVE 50,30 L
      ? host WM_MOUSEMOVE 50,30 L
      host WM_LBUTTONUP 50,30)");
}

TEST(Driver, TypesText) {
  Recorder log;
  log.Only({WM_CHAR});
  HostWindow host({.log = &log});
  SetFocus(host);
  Type(L"né");
  EXPECT_LOG(log, "host WM_CHAR 'n'\nhost WM_CHAR 0xe9");
}

TEST(Driver, TurnsTheWheel) {
  Recorder log;
  log.Only({WM_MOUSEWHEEL});
  HostWindow host({.log = &log});
  SetFocus(host);
  Wheel(MiddleOf(host), -2, {.control = true});
  EXPECT_LOG(log, "host WM_MOUSEWHEEL -240 C");
}

TEST(Driver, AnswersLater) {
  bool answered = false;
  const Later later(10, [&] { answered = true; });
  EXPECT_FALSE(later.Done());
  EXPECT_TRUE(PumpUntil([&] { return answered; }));
  EXPECT_TRUE(later.Done());
}

TEST(Driver, AnAnswerGoesWithItsScope) {
  bool answered = false;
  {
    const Later later(10, [&] { answered = true; });
  }
  PumpFor(40);
  EXPECT_FALSE(answered);
}
