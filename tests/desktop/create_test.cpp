// Creation and destruction: which messages, in which order.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/host_window.h"
#include "support/recorder.h"

using namespace support;

TEST(Create, HiddenPopupMessages) {
  Recorder log;
  HostWindow host({.style = WS_POPUP, .cx = 50, .cy = 40, .log = &log});
  EXPECT_LOG(log, R"(
      ? host WM_GETMINMAXINFO
      host WM_NCCREATE
      host WM_NCCALCSIZE 0
      host WM_CREATE
      host WM_SIZE 0 50x40
      host WM_MOVE 100,100)");
}

TEST(Create, OverlappedWindowsAreAskedForTheirLimits) {
  Recorder log;
  log.Only({WM_GETMINMAXINFO, WM_NCCREATE, WM_CREATE});
  HostWindow host({.style = WS_OVERLAPPEDWINDOW, .log = &log});
  EXPECT_LOG(log, "host WM_GETMINMAXINFO\nhost WM_NCCREATE\nhost WM_CREATE");
}

TEST(Create, ChildTellsItsParentAfterCreate) {
  Recorder log;
  HostWindow parent({.style = WS_POPUP, .log = &log, .name = "parent"});
  log.Only({WM_NCCREATE, WM_CREATE, WM_SIZE, WM_MOVE, WM_PARENTNOTIFY, WM_SHOWWINDOW});
  log.Clear();
  HostWindow child({.style = WS_CHILD | WS_VISIBLE,
                    .x = 5,
                    .y = 6,
                    .cx = 20,
                    .cy = 10,
                    .parent = parent,
                    .log = &log,
                    .name = "child"});
  EXPECT_LOG(log, R"(
      child WM_NCCREATE
      child WM_CREATE
      child WM_SIZE 0 20x10
      child WM_MOVE 5,6
      parent WM_PARENTNOTIFY WM_CREATE
      child WM_SHOWWINDOW 1)");
}

TEST(Create, ChildMayKeepItsParentUninformed) {
  Recorder log;
  log.Only({WM_PARENTNOTIFY});
  HostWindow parent({.style = WS_POPUP, .log = &log, .name = "parent"});
  HostWindow child({.style = WS_CHILD, .exStyle = WS_EX_NOPARENTNOTIFY, .parent = parent});
  child.Destroy();
  EXPECT_LOG(log, "");
}

TEST(Create, VisiblePopupBecomesActiveAndGetsTheFocus) {
  Recorder log;
  log.Only({WM_CREATE, WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_ACTIVATEAPP, WM_NCACTIVATE, WM_ACTIVATE,
            WM_SETFOCUS, WM_NCPAINT, WM_WINDOWPOSCHANGED});
  HostWindow host({.style = WS_POPUP | WS_VISIBLE, .log = &log});
  EXPECT_LOG(log, R"(
      host WM_CREATE
      host WM_SHOWWINDOW 1
      host WM_WINDOWPOSCHANGING
      ? host WM_WINDOWPOSCHANGING
      ? host WM_ACTIVATEAPP 1
      host WM_NCACTIVATE 1
      host WM_ACTIVATE 1
      host WM_SETFOCUS
      ? host WM_NCPAINT
      host WM_WINDOWPOSCHANGED)");
  EXPECT_EQ(host.Handle(), GetActiveWindow());
  EXPECT_EQ(host.Handle(), GetFocus());
}

TEST(Create, RefusedInNcCreateDestroysWithoutDestroyMessage) {
  Recorder log;
  log.Except({WM_GETMINMAXINFO});
  HostWindow host({.style = WS_POPUP,
                   .handler = [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                     if (message == WM_NCCREATE) return 0;
                     return std::nullopt;
                   },
                   .log = &log});
  EXPECT_EQ(nullptr, host.Handle());
  EXPECT_LOG(log, "host WM_NCCREATE\nhost WM_NCDESTROY");
}

TEST(Create, RefusedInCreateDestroysTheWindow) {
  Recorder log;
  log.Only({WM_NCCREATE, WM_CREATE, WM_DESTROY, WM_NCDESTROY, WM_SIZE});
  HostWindow host({.style = WS_POPUP,
                   .handler = [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                     if (message == WM_CREATE) return -1;
                     return std::nullopt;
                   },
                   .log = &log});
  EXPECT_EQ(nullptr, host.Handle());
  EXPECT_LOG(log, R"(
      host WM_NCCREATE
      host WM_CREATE
      ? host WM_DESTROY
      host WM_NCDESTROY)");
}

TEST(Create, CreateStructHoldsTheArguments) {
  CREATESTRUCTW seen = {};
  std::wstring title;
  HostWindow host({.style = WS_POPUP | WS_BORDER,
                   .exStyle = WS_EX_TOOLWINDOW,
                   .x = 11,
                   .y = 12,
                   .cx = 13,
                   .cy = 14,
                   .text = L"the title",
                   .handler = [&](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
                     if (message == WM_NCCREATE) {
                       seen = *reinterpret_cast<CREATESTRUCTW*>(lParam);
                       title = seen.lpszName;
                     }
                     return std::nullopt;
                   }});
  EXPECT_EQ(11, seen.x);
  EXPECT_EQ(12, seen.y);
  EXPECT_EQ(13, seen.cx);
  EXPECT_EQ(14, seen.cy);
  EXPECT_EQ(WS_POPUP | WS_BORDER, static_cast<DWORD>(seen.style) & (WS_POPUP | WS_BORDER));
  EXPECT_EQ(L"the title", title);
}

TEST(Destroy, ParentGoesBeforeItsChildren) {
  Recorder log;
  HostWindow parent({.style = WS_POPUP, .log = &log, .name = "parent"});
  HostWindow child({.style = WS_CHILD, .parent = parent, .log = &log, .name = "child"});
  HostWindow inner({.style = WS_CHILD, .parent = child, .log = &log, .name = "inner"});
  log.Clear();
  log.Only({WM_DESTROY, WM_NCDESTROY});
  parent.Destroy();
  EXPECT_LOG(log, R"(
      parent WM_DESTROY
      child WM_DESTROY
      inner WM_DESTROY
      inner WM_NCDESTROY
      child WM_NCDESTROY
      parent WM_NCDESTROY)");
  EXPECT_EQ(nullptr, inner.Handle());
}

TEST(Destroy, ParentHearsOfAChildFirst) {
  Recorder log;
  HostWindow parent({.style = WS_POPUP, .log = &log, .name = "parent"});
  HostWindow child({.style = WS_CHILD, .parent = parent, .log = &log, .name = "child"});
  log.Clear();
  log.Only({WM_DESTROY, WM_NCDESTROY, WM_PARENTNOTIFY});
  child.Destroy();
  EXPECT_LOG(log, R"(
      parent WM_PARENTNOTIFY WM_DESTROY
      child WM_DESTROY
      child WM_NCDESTROY)");
}

TEST(Destroy, OwnerTakesItsPopupsAlong) {
  Recorder log;
  HostWindow owner({.style = WS_POPUP, .log = &log, .name = "owner"});
  HostWindow popup({.style = WS_POPUP, .parent = owner, .log = &log, .name = "popup"});
  log.Clear();
  log.Only({WM_DESTROY, WM_NCDESTROY});
  owner.Destroy();
  EXPECT_LOG(log, R"(
      popup WM_DESTROY
      popup WM_NCDESTROY
      owner WM_DESTROY
      owner WM_NCDESTROY)");
}

TEST(Destroy, HandleIsDeadAfterwards) {
  HostWindow host({.style = WS_POPUP});
  const HWND handle = host;
  host.Destroy();
  EXPECT_FALSE(IsWindow(handle));
  SetLastError(0);
  EXPECT_EQ(0, SendMessageW(handle, WM_USER, 0, 0));
  EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE), GetLastError());
  EXPECT_FALSE(PostMessageW(handle, WM_USER, 0, 0));
  EXPECT_FALSE(DestroyWindow(handle));
}

TEST(Destroy, VisibleWindowIsHiddenFirst) {
  Recorder log;
  HostWindow host({.log = &log});
  log.Clear();
  log.Only({WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_DESTROY, WM_NCDESTROY});
  host.Destroy();
  EXPECT_LOG(log, R"(
      host WM_WINDOWPOSCHANGING
      ? host WM_WINDOWPOSCHANGING
      host WM_WINDOWPOSCHANGED
      host WM_DESTROY
      host WM_NCDESTROY)");
}

TEST(Destroy, FocusLeavesBeforeTheWindowGoes) {
  Recorder log;
  HostWindow parent({.log = &log, .name = "parent"});
  HostWindow child({.style = WS_CHILD | WS_VISIBLE, .parent = parent, .log = &log, .name = "child"});
  SetFocus(child);
  log.Clear();
  log.Only({WM_KILLFOCUS, WM_SETFOCUS, WM_DESTROY});
  child.Destroy();
  EXPECT_LOG(log, R"(
      child WM_KILLFOCUS
      parent WM_SETFOCUS
      child WM_DESTROY)");
  EXPECT_EQ(parent.Handle(), GetFocus());
}

TEST(Destroy, CloseMessageDestroysByDefault) {
  HostWindow host({.style = WS_POPUP});
  SendMessageW(host, WM_CLOSE, 0, 0);
  EXPECT_EQ(nullptr, host.Handle());
}
