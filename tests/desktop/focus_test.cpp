// Activation, focus, disabled windows.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"

using namespace support;

namespace {

HostOptions Child(HWND parent, Recorder* log, const char* name, int x = 0) {
  return {.style = WS_CHILD | WS_VISIBLE,
          .x = x,
          .y = 0,
          .cx = 40,
          .cy = 40,
          .parent = parent,
          .log = log,
          .name = name};
}

}  // namespace

TEST(Focus, LosingComesBeforeGetting) {
  Recorder log;
  HostWindow host;
  HostWindow a(Child(host, &log, "a"));
  HostWindow b(Child(host, &log, "b", 50));
  SetFocus(a);
  log.Clear();
  log.Only({WM_SETFOCUS, WM_KILLFOCUS});
  EXPECT_EQ(a.Handle(), SetFocus(b));
  EXPECT_LOG(log, "a WM_KILLFOCUS\nb WM_SETFOCUS");
  SetFocus(b);
  EXPECT_LOG(log, "");
}

TEST(Focus, TheOtherWindowIsInTheMessage) {
  HWND lostTo = nullptr;
  HWND gotFrom = nullptr;
  HostWindow host;
  HostOptions options = Child(host, nullptr, "");
  options.handler = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_KILLFOCUS) lostTo = reinterpret_cast<HWND>(wParam);
    if (message == WM_SETFOCUS) gotFrom = reinterpret_cast<HWND>(wParam);
    return std::nullopt;
  };
  HostWindow a(options);
  HostWindow b(Child(host, nullptr, "", 50));
  SetFocus(host);
  SetFocus(a);
  EXPECT_EQ(host.Handle(), gotFrom);
  SetFocus(b);
  EXPECT_EQ(b.Handle(), lostTo);
}

TEST(Focus, IsGoneAlreadyWhenTheLossIsTold) {
  HWND focus = nullptr;
  HostWindow host;
  HostOptions options = Child(host, nullptr, "");
  options.handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_KILLFOCUS) focus = GetFocus();
    return std::nullopt;
  };
  HostWindow a(options);
  HostWindow b(Child(host, nullptr, "", 50));
  SetFocus(a);
  SetFocus(b);
  EXPECT_EQ(b.Handle(), focus);
}

TEST(Focus, SetInAnotherTopLevelActivatesIt) {
  Recorder log;
  HostWindow first({.log = &log, .name = "first"});
  HostWindow child(Child(first, &log, "child"));
  HostWindow second({.x = 500, .log = &log, .name = "second"});
  log.Clear();
  log.Only({WM_NCACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS});
  SetFocus(child);
  EXPECT_LOG(log, R"(
      second WM_NCACTIVATE 0
      second WM_ACTIVATE 0
      first WM_NCACTIVATE 1
      first WM_ACTIVATE 1
      second WM_KILLFOCUS
      ? first WM_SETFOCUS
      ? first WM_KILLFOCUS
      child WM_SETFOCUS)");
  EXPECT_EQ(first.Handle(), GetActiveWindow());
  EXPECT_EQ(child.Handle(), GetFocus());
}

TEST(Focus, ActivationGivesItToTheWindowItself) {
  Recorder log;
  HostWindow first({.log = &log, .name = "first"});
  HostWindow second({.x = 500, .log = &log, .name = "second"});
  log.Clear();
  log.Only({WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS});
  EXPECT_EQ(second.Handle(), SetActiveWindow(first));
  EXPECT_LOG(log, R"(
      second WM_ACTIVATE 0
      first WM_ACTIVATE 1
      second WM_KILLFOCUS
      first WM_SETFOCUS)");
  EXPECT_EQ(first.Handle(), GetForegroundWindow());
}

TEST(Focus, NoneIsPossible) {
  HostWindow host;
  SetFocus(host);
  EXPECT_EQ(host.Handle(), SetFocus(nullptr));
  EXPECT_EQ(nullptr, GetFocus());
  EXPECT_EQ(host.Handle(), GetActiveWindow());
}

TEST(Focus, HidingGivesItToTheParent) {
  HostWindow host;
  HostWindow child(Child(host, nullptr, ""));
  SetFocus(child);
  ShowWindow(child, SW_HIDE);
  EXPECT_EQ(host.Handle(), GetFocus());
}

TEST(Focus, DestroyedActiveWindowHandsOnToItsOwner) {
  HostWindow owner;
  HostWindow other({.x = 500});
  HostWindow popup({.x = 300, .parent = owner});
  EXPECT_EQ(popup.Handle(), GetActiveWindow());
  popup.Destroy();
  EXPECT_EQ(owner.Handle(), GetActiveWindow());
}

TEST(Disabled, GetsNoFocus) {
  HostWindow host;
  HostWindow child(Child(host, nullptr, ""));
  SetFocus(host);
  EnableWindow(child, FALSE);
  SetFocus(child);
  EXPECT_EQ(host.Handle(), GetFocus());
}

TEST(Disabled, LosesTheFocusAndTheCapture) {
  HostWindow host;
  HostWindow child(Child(host, nullptr, ""));
  SetFocus(child);
  EnableWindow(child, FALSE);
  EXPECT_NE(child.Handle(), GetFocus());
}

TEST(Disabled, EnableTellsAndReturnsTheOldState) {
  Recorder log;
  HostWindow host({.style = WS_POPUP, .log = &log});
  log.Clear();
  log.Only({WM_ENABLE});
  EXPECT_FALSE(EnableWindow(host, FALSE));
  EXPECT_LOG(log, "host WM_ENABLE 0");
  EXPECT_TRUE(EnableWindow(host, FALSE));
  EXPECT_LOG(log, "");
  EXPECT_FALSE(IsWindowEnabled(host));
  EXPECT_TRUE(EnableWindow(host, TRUE));
  EXPECT_LOG(log, "host WM_ENABLE 1");
}

TEST(Disabled, ClicksFallThroughToTheParent) {
  Recorder log;
  HostWindow host({.log = &log});
  HostWindow child(Child(host, &log, "child"));
  EnableWindow(child, FALSE);
  log.Clear();
  log.Only({WM_LBUTTONDOWN});
  Click(At(child, 10, 11));
  EXPECT_LOG(log, "host WM_LBUTTONDOWN 10,11 L");
}

TEST(Disabled, TopLevelSwallowsTheMouse) {
  Recorder log;
  HostWindow host({.log = &log});
  EnableWindow(host, FALSE);
  log.Clear();
  log.Only({WM_LBUTTONDOWN, WM_MOUSEMOVE});
  Click(At(host, 10, 11));
  EXPECT_LOG(log, "");
}

TEST(Disabled, ByStyleFromTheStart) {
  HostWindow host({.style = WS_POPUP | WS_DISABLED});
  EXPECT_FALSE(IsWindowEnabled(host));
}

TEST(Active, NoActivateWindowsStayInTheBackground) {
  HostWindow host;
  HostWindow popup({.style = WS_POPUP, .exStyle = WS_EX_NOACTIVATE | WS_EX_TOPMOST, .parent = host});
  ShowWindow(popup, SW_SHOWNOACTIVATE);
  EXPECT_TRUE(IsWindowVisible(popup));
  EXPECT_EQ(host.Handle(), GetActiveWindow());
}

TEST(Active, ChildrenAreNotActivated) {
  HostWindow host;
  HostWindow child(Child(host, nullptr, ""));
  HostWindow other({.x = 500});
  SetActiveWindow(child);
  EXPECT_EQ(other.Handle(), GetActiveWindow());
}

TEST(Active, FirstWindowOfTheApplicationIsTold) {
  Recorder log;
  log.Only({WM_ACTIVATEAPP});
  HostWindow host({.log = &log});
  SetForegroundWindow(host);
  Pump();
  EXPECT_LOG(log, "? host WM_ACTIVATEAPP 1");
  EXPECT_EQ(host.Handle(), GetForegroundWindow());
}
