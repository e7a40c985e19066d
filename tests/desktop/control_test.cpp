// Buttons, statics, list boxes.
#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/picture.h"
#include "support/recorder.h"
#include "desktop/control_window.h"
#include "support/text.h"

using namespace support;

TEST(Button, ClickTellsTheParent) {
  Control button(L"BUTTON", BS_PUSHBUTTON, L"Go");
  Click(At(button.window, 20, 20));
  EXPECT_LOG(button.log, Told(BN_CLICKED));
  button.Send(BM_CLICK);
  EXPECT_LOG(button.log, Told(BN_CLICKED));
}

TEST(Button, ReleaseOutsideIsNoClick) {
  Control button(L"BUTTON", BS_PUSHBUTTON, L"Go");
  Press(At(button.window, 20, 20));
  EXPECT_NE(0, button.Send(BM_GETSTATE) & BST_PUSHED);
  MoveTo(At(button.window, 20, 90));
  EXPECT_EQ(0, button.Send(BM_GETSTATE) & BST_PUSHED);
  Release(At(button.window, 20, 90));
  EXPECT_LOG(button.log, "");
}

TEST(Button, SpaceIsAClick) {
  Control button(L"BUTTON", BS_PUSHBUTTON, L"Go");
  KeyDown(VK_SPACE);
  EXPECT_LOG(button.log, "");
  KeyUp(VK_SPACE);
  EXPECT_LOG(button.log, Told(BN_CLICKED));
}

TEST(Button, CheckBoxesToggle) {
  Control box(L"BUTTON", BS_AUTOCHECKBOX, L"Gras");
  Click(At(box.window, 5, 30));
  EXPECT_EQ(BST_CHECKED, box.Send(BM_GETCHECK));
  Key(VK_SPACE);
  EXPECT_EQ(BST_UNCHECKED, box.Send(BM_GETCHECK));
  EXPECT_LOG(box.log, Told(BN_CLICKED) + Told(BN_CLICKED));
}

TEST(Button, ThreeStatesGoRound) {
  Control box(L"BUTTON", BS_AUTO3STATE);
  std::string states;
  for (int i = 0; i < 4; ++i) {
    box.Send(BM_CLICK);
    states += std::to_string(box.Send(BM_GETCHECK)) + " ";
  }
  EXPECT_EQ("1 2 0 1 ", states);
  box.log.Clear();
}

TEST(Button, PlainCheckBoxesLeaveItToTheParent) {
  Control box(L"BUTTON", BS_CHECKBOX);
  box.Send(BM_CLICK);
  EXPECT_EQ(BST_UNCHECKED, box.Send(BM_GETCHECK));
  box.Send(BM_SETCHECK, BST_CHECKED);
  EXPECT_EQ(BST_CHECKED, box.Send(BM_GETCHECK));
  EXPECT_LOG(box.log, Told(BN_CLICKED));
}

TEST(Button, DialogCodesTellTheKind) {
  EXPECT_NE(0, Control(L"BUTTON", BS_PUSHBUTTON).Send(WM_GETDLGCODE) & DLGC_UNDEFPUSHBUTTON);
  EXPECT_NE(0, Control(L"BUTTON", BS_DEFPUSHBUTTON).Send(WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON);
  EXPECT_NE(0, Control(L"BUTTON", BS_AUTORADIOBUTTON).Send(WM_GETDLGCODE) & DLGC_RADIOBUTTON);
  EXPECT_EQ(DLGC_STATIC, Control(L"BUTTON", BS_GROUPBOX).Send(WM_GETDLGCODE));
  EXPECT_NE(0, Control(L"STATIC", 0).Send(WM_GETDLGCODE) & DLGC_STATIC);
}

TEST(Button, DisabledIgnoresClicks) {
  Control button(L"BUTTON", BS_AUTOCHECKBOX);
  EnableWindow(button.window, FALSE);
  Click(At(button.window, 5, 30));
  EXPECT_EQ(BST_UNCHECKED, button.Send(BM_GETCHECK));
  EXPECT_LOG(button.log, "");
}

TEST(Button, OwnerDrawAsksTheParent) {
  UINT action = 0;
  UINT type = 0;
  HostWindow host(
      {.handler = [&](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_DRAWITEM) return std::nullopt;
        EXPECT_EQ(9u, wParam);
        action = reinterpret_cast<DRAWITEMSTRUCT*>(lParam)->itemAction;
        type = reinterpret_cast<DRAWITEMSTRUCT*>(lParam)->CtlType;
        return TRUE;
      }});
  const HWND button =
      CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 0, 0, 30, 20, host,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(9)), GetModuleHandleW(nullptr), nullptr);
  UpdateWindow(button);
  EXPECT_EQ(static_cast<UINT>(ODA_DRAWENTIRE), action);
  EXPECT_EQ(static_cast<UINT>(ODT_BUTTON), type);
}

TEST(Static, ShowsItsText) {
  Control label(L"STATIC", SS_LEFT, L"Hello");
  UpdateWindow(label.window);
  const Picture before = CaptureClient(label.window);
  EXPECT_GT(before.Count(0), 10);
  SetWindowTextW(label.window, L"");
  UpdateWindow(label.window);
  EXPECT_EQ(0, CaptureClient(label.window).Count(0));
}

TEST(Static, LetsTheMouseThrough) {
  Control label(L"STATIC", SS_LEFT, L"Hello");
  EXPECT_EQ(GetParent(label.window), WindowFromPoint(At(label.window, 10, 10)));
  Control notifying(L"STATIC", SS_LEFT | SS_NOTIFY, L"Hello");
  EXPECT_EQ(notifying.window, WindowFromPoint(At(notifying.window, 10, 10)));
  Click(At(notifying.window, 10, 10));
  EXPECT_LOG(notifying.log, Told(STN_CLICKED));
}

TEST(Static, ColoursAreTheParents) {
  HostWindow host({.handler = [](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
    if (message != WM_CTLCOLORSTATIC) return std::nullopt;
    SetTextColor(reinterpret_cast<HDC>(wParam), RGB(255, 0, 0));
    SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
  }});
  const HWND label = CreateWindowExW(0, L"STATIC", L"I", WS_CHILD | WS_VISIBLE, 0, 0, 30, 30, host, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
  UpdateWindow(label);
  const Picture picture = CaptureClient(label);
  EXPECT_GT(picture.Count(0xFF0000), 3);
  EXPECT_EQ(30 * 30 - picture.Count(0xFF0000), picture.Count(Rgb(GetSysColor(COLOR_BTNFACE))));
}

TEST(ListBox, AddsFindsAndDeletes) {
  Control list(L"LISTBOX", LBS_NOTIFY);
  EXPECT_EQ(0, list.SendText(LB_ADDSTRING, 0, L"pear"));
  EXPECT_EQ(1, list.SendText(LB_ADDSTRING, 0, L"apple"));
  EXPECT_EQ(1, list.SendText(LB_INSERTSTRING, 1, L"Été"));
  EXPECT_EQ(3, list.Send(LB_GETCOUNT));
  EXPECT_EQ(2, list.SendText(LB_FINDSTRING, static_cast<WPARAM>(-1), L"APP"));
  EXPECT_EQ(LB_ERR, list.SendText(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), L"app"));
  wchar_t text[16];
  EXPECT_EQ(3, list.SendText(LB_GETTEXT, 1, text));
  EXPECT_STREQ(L"Été", text);
  EXPECT_EQ(2, list.Send(LB_DELETESTRING, 0));
  EXPECT_EQ(LB_ERR, list.Send(LB_DELETESTRING, 9));
  list.Send(LB_RESETCONTENT);
  EXPECT_EQ(0, list.Send(LB_GETCOUNT));
}

TEST(ListBox, SortsOnDemand) {
  Control list(L"LISTBOX", LBS_SORT);
  list.SendText(LB_ADDSTRING, 0, L"pear");
  EXPECT_EQ(0, list.SendText(LB_ADDSTRING, 0, L"Apple"));
  EXPECT_EQ(1, list.SendText(LB_ADDSTRING, 0, L"fig"));
}

TEST(ListBox, KeepsDataAndSelection) {
  Control list(L"LISTBOX", LBS_NOTIFY);
  list.SendText(LB_ADDSTRING, 0, L"a");
  list.SendText(LB_ADDSTRING, 0, L"b");
  EXPECT_EQ(LB_ERR, list.Send(LB_GETCURSEL));
  EXPECT_EQ(1, list.Send(LB_SETCURSEL, 1));
  EXPECT_EQ(1, list.Send(LB_GETCURSEL));
  EXPECT_LOG(list.log, "");
  list.Send(LB_SETITEMDATA, 1, 0x12345);
  EXPECT_EQ(0x12345, list.Send(LB_GETITEMDATA, 1));
  EXPECT_EQ(LB_ERR, list.Send(LB_SETCURSEL, 5));
}

TEST(ListBox, ClicksAndKeysSelectAndTell) {
  Control list(L"LISTBOX", LBS_NOTIFY);
  for (const wchar_t* text : {L"a", L"b", L"c"}) list.SendText(LB_ADDSTRING, 0, text);
  RECT r = {};
  list.Send(LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&r));
  Click(At(list.window, 5, (r.top + r.bottom) / 2));
  EXPECT_EQ(1, list.Send(LB_GETCURSEL));
  EXPECT_LOG(list.log, Told(LBN_SELCHANGE));
  Key(VK_DOWN);
  EXPECT_EQ(2, list.Send(LB_GETCURSEL));
  EXPECT_LOG(list.log, Told(LBN_SELCHANGE));
}
