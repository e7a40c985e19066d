// Parents, owners, siblings, z-order.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

HostOptions Child(HWND parent, int x, int y, int cx, int cy, int id = 0) {
  return {.style = WS_CHILD | WS_VISIBLE, .x = x, .y = y, .cx = cx, .cy = cy, .parent = parent, .id = id};
}

// The ids of the children, top of the z-order first.
std::string Order(HWND parent) {
  std::string text;
  for (HWND w = GetTopWindow(parent); w; w = GetWindow(w, GW_HWNDNEXT)) {
    text += std::to_string(GetDlgCtrlID(w)) + " ";
  }
  return text;
}

}  // namespace

TEST(Relation, ParentAndOwnerAreTwoThings) {
  HostWindow owner({.style = WS_POPUP});
  HostWindow popup({.style = WS_POPUP, .parent = owner});
  HostWindow child(Child(owner, 0, 0, 10, 10));
  EXPECT_EQ(owner.Handle(), GetParent(popup));
  EXPECT_EQ(owner.Handle(), GetWindow(popup, GW_OWNER));
  EXPECT_EQ(GetDesktopWindow(), GetAncestor(popup, GA_PARENT));
  EXPECT_EQ(owner.Handle(), GetParent(child));
  EXPECT_EQ(nullptr, GetWindow(child, GW_OWNER));
  EXPECT_EQ(owner.Handle(), GetAncestor(child, GA_PARENT));
  EXPECT_EQ(nullptr, GetParent(owner));
}

TEST(Relation, RootsOfAChild) {
  HostWindow owner({.style = WS_POPUP});
  HostWindow popup({.style = WS_POPUP, .parent = owner});
  HostWindow child(Child(popup, 0, 0, 10, 10));
  EXPECT_EQ(popup.Handle(), GetAncestor(child, GA_ROOT));
  EXPECT_EQ(owner.Handle(), GetAncestor(child, GA_ROOTOWNER));
}

TEST(Relation, AnOwnerIsNeverAChild) {
  HostWindow top({.style = WS_POPUP});
  HostWindow child(Child(top, 0, 0, 10, 10));
  HostWindow popup({.style = WS_POPUP, .parent = child});
  EXPECT_EQ(top.Handle(), GetWindow(popup, GW_OWNER));
}

TEST(Relation, IsChildSeesAllDescendants) {
  HostWindow top({.style = WS_POPUP});
  HostWindow child(Child(top, 0, 0, 10, 10));
  HostWindow inner(Child(child, 0, 0, 10, 10));
  HostWindow popup({.style = WS_POPUP, .parent = top});
  EXPECT_TRUE(IsChild(top, inner));
  EXPECT_FALSE(IsChild(inner, top));
  EXPECT_FALSE(IsChild(top, popup));
  EXPECT_FALSE(IsChild(top, top));
}

TEST(Relation, NewChildrenGoToTheBottom) {
  HostWindow top({.style = WS_POPUP});
  HostWindow a(Child(top, 0, 0, 10, 10, 1));
  HostWindow b(Child(top, 0, 0, 10, 10, 2));
  HostWindow c(Child(top, 0, 0, 10, 10, 3));
  EXPECT_EQ("1 2 3 ", Order(top));
  EXPECT_EQ(a.Handle(), GetWindow(top, GW_CHILD));
  EXPECT_EQ(c.Handle(), GetWindow(a, GW_HWNDLAST));
  EXPECT_EQ(a.Handle(), GetWindow(c, GW_HWNDFIRST));
  EXPECT_EQ(a.Handle(), GetWindow(b, GW_HWNDPREV));
  EXPECT_EQ(nullptr, GetWindow(a, GW_HWNDPREV));
}

TEST(Relation, SetWindowPosReorders) {
  HostWindow top({.style = WS_POPUP});
  HostWindow a(Child(top, 0, 0, 10, 10, 1));
  HostWindow b(Child(top, 0, 0, 10, 10, 2));
  HostWindow c(Child(top, 0, 0, 10, 10, 3));
  const UINT keep = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  SetWindowPos(c, HWND_TOP, 0, 0, 0, 0, keep);
  EXPECT_EQ("3 1 2 ", Order(top));
  SetWindowPos(c, a, 0, 0, 0, 0, keep);
  EXPECT_EQ("1 3 2 ", Order(top));
  SetWindowPos(a, HWND_BOTTOM, 0, 0, 0, 0, keep);
  EXPECT_EQ("3 2 1 ", Order(top));
  SetWindowPos(b, HWND_TOP, 0, 0, 0, 0, keep | SWP_NOZORDER);
  EXPECT_EQ("3 2 1 ", Order(top));
  BringWindowToTop(b);
  EXPECT_EQ("2 3 1 ", Order(top));
}

TEST(Relation, TopmostWindowsStayAboveOthers) {
  HostWindow high({.exStyle = WS_EX_TOPMOST, .x = 300, .y = 300, .cx = 50, .cy = 50});
  HostWindow low({.x = 300, .y = 300, .cx = 50, .cy = 50});
  EXPECT_EQ(high.Handle(), WindowFromPoint({310, 310}));
  SetWindowPos(high, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  EXPECT_EQ(0u, GetWindowLongW(high, GWL_EXSTYLE) & WS_EX_TOPMOST);
  SetWindowPos(low, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_EQ(low.Handle(), WindowFromPoint({310, 310}));
}

TEST(Relation, SetParentMovesAWindowBetweenParents) {
  HostWindow a({.style = WS_POPUP});
  HostWindow b({.style = WS_POPUP});
  HostWindow child(Child(a, 3, 4, 10, 10));
  EXPECT_EQ(a.Handle(), SetParent(child, b));
  EXPECT_EQ(b.Handle(), GetParent(child));
  EXPECT_EQ(nullptr, GetTopWindow(a));
  EXPECT_EQ("103,104,113,114", WindowRectText(child));
}

TEST(Relation, SetParentOfDescendantIsRefused) {
  HostWindow top({.style = WS_POPUP});
  HostWindow child(Child(top, 0, 0, 10, 10));
  HostWindow inner(Child(child, 0, 0, 5, 5));
  EXPECT_EQ(nullptr, SetParent(child, inner));
  EXPECT_EQ(top.Handle(), GetParent(child));
}

TEST(Relation, EnumChildWindowsGoesDeep) {
  HostWindow top({.style = WS_POPUP});
  HostWindow a(Child(top, 0, 0, 10, 10, 1));
  HostWindow inner(Child(a, 0, 0, 5, 5, 11));
  HostWindow b(Child(top, 0, 0, 10, 10, 2));
  std::vector<int> ids;
  EnumChildWindows(
      top,
      [](HWND w, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<int>*>(list)->push_back(GetDlgCtrlID(w));
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&ids));
  EXPECT_EQ((std::vector<int>{1, 11, 2}), ids);
}

TEST(Relation, EnumChildWindowsStopsOnDemand) {
  HostWindow top({.style = WS_POPUP});
  HostWindow a(Child(top, 0, 0, 10, 10, 1));
  HostWindow b(Child(top, 0, 0, 10, 10, 2));
  int count = 0;
  EnumChildWindows(
      top,
      [](HWND, LPARAM counter) -> BOOL {
        ++*reinterpret_cast<int*>(counter);
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&count));
  EXPECT_EQ(1, count);
}

TEST(Relation, FindsDialogItemsById) {
  HostWindow top({.style = WS_POPUP});
  HostWindow a(Child(top, 0, 0, 10, 10, 7));
  EXPECT_EQ(a.Handle(), GetDlgItem(top, 7));
  EXPECT_EQ(nullptr, GetDlgItem(top, 8));
  EXPECT_EQ(7, GetWindowLongPtrW(a, GWLP_ID));
  SetWindowLongPtrW(a, GWLP_ID, 8);
  EXPECT_EQ(a.Handle(), GetDlgItem(top, 8));
}

TEST(Relation, WindowFromPointPrefersVisibleTopChildren) {
  HostWindow top({.x = 200, .y = 200, .cx = 100, .cy = 100});
  HostWindow a(Child(top, 10, 10, 50, 50, 1));
  HostWindow b(Child(top, 10, 10, 50, 50, 2));
  EXPECT_EQ(a.Handle(), WindowFromPoint({220, 220}));
  ShowWindow(a, SW_HIDE);
  EXPECT_EQ(b.Handle(), WindowFromPoint({220, 220}));
  EXPECT_EQ(top.Handle(), WindowFromPoint({205, 205}));
}

TEST(Relation, WindowFromPointPassesDisabledChildrenBy) {
  HostWindow top({.x = 200, .y = 200, .cx = 100, .cy = 100});
  HostWindow a(Child(top, 10, 10, 50, 50, 1));
  EnableWindow(a, FALSE);
  EXPECT_EQ(top.Handle(), WindowFromPoint({220, 220}));
}

TEST(Relation, WindowFromPointAsksForTransparency) {
  HostWindow top({.x = 200, .y = 200, .cx = 100, .cy = 100});
  HostOptions options = Child(top, 10, 10, 50, 50, 1);
  options.handler = [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_NCHITTEST) return HTTRANSPARENT;
    return std::nullopt;
  };
  HostWindow glass(options);
  EXPECT_EQ(top.Handle(), WindowFromPoint({220, 220}));
}

TEST(Relation, ChildFromPointSeesHiddenAndDisabledOnes) {
  HostWindow top({.x = 200, .y = 200, .cx = 100, .cy = 100});
  HostWindow a(Child(top, 10, 10, 20, 20, 1));
  ShowWindow(a, SW_HIDE);
  EXPECT_EQ(a.Handle(), ChildWindowFromPoint(top, {15, 15}));
  EXPECT_EQ(top.Handle(), ChildWindowFromPointEx(top, {15, 15}, CWP_SKIPINVISIBLE));
  EXPECT_EQ(top.Handle(), ChildWindowFromPoint(top, {50, 50}));
  EXPECT_EQ(nullptr, ChildWindowFromPoint(top, {150, 50}));
}

TEST(Relation, MapsPointsBetweenWindows) {
  HostWindow top({.style = WS_POPUP | WS_BORDER, .x = 200, .y = 150});
  HostWindow child(Child(top, 10, 20, 30, 30));
  POINT points[2] = {{0, 0}, {5, 6}};
  MapWindowPoints(child, nullptr, points, 2);
  EXPECT_EQ("211,171", Text(points[0]));
  EXPECT_EQ("216,177", Text(points[1]));
  MapWindowPoints(nullptr, top, points, 1);
  EXPECT_EQ("10,20", Text(points[0]));
}

TEST(Relation, AnOwnedPopupStaysAboveItsOwner) {
  HostWindow owner({.x = 200, .y = 200, .cx = 100, .cy = 100});
  HostWindow popup({.x = 200, .y = 200, .cx = 100, .cy = 100, .parent = owner});
  EXPECT_EQ(popup.Handle(), WindowFromPoint({220, 220}));
  Click({220, 220});
  SetWindowPos(owner, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_EQ(popup.Handle(), WindowFromPoint({220, 220}));
}
