// Status bars, progress bars, subclassing, message boxes.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "support/driver.h"
#include "support/host_window.h"

using namespace support;

namespace {

struct StatusBar {
  StatusBar() : host({.cx = 300, .cy = 150}) {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    window = CreateWindowExW(0, STATUSCLASSNAMEW, L"first", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, host, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
  }
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window, message, wParam, lParam);
  }
  std::wstring Text(int part) const {
    wchar_t text[50] = L"";
    Send(SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text));
    return text;
  }

  HostWindow host;
  HWND window;
};

struct Progress {
  Progress() : host({.cx = 300, .cy = 150}) {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    window = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, host, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
  }
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window, message, wParam, lParam);
  }

  HostWindow host;
  HWND window;
};

}  // namespace

TEST(StatusBar, KeepsToTheBottomOfItsParent) {
  const StatusBar bar;
  RECT client{};
  GetClientRect(bar.host, &client);
  RECT rect{};
  GetWindowRect(bar.window, &rect);
  MapWindowPoints(nullptr, bar.host, reinterpret_cast<POINT*>(&rect), 2);
  EXPECT_EQ(0, rect.left);
  EXPECT_EQ(client.right, rect.right);
  EXPECT_EQ(client.bottom, rect.bottom);
  SetWindowPos(bar.host, nullptr, 0, 0, 200, 100, SWP_NOMOVE | SWP_NOZORDER);
  bar.Send(WM_SIZE);
  GetClientRect(bar.host, &client);
  GetWindowRect(bar.window, &rect);
  MapWindowPoints(nullptr, bar.host, reinterpret_cast<POINT*>(&rect), 2);
  EXPECT_EQ(client.right, rect.right);
  EXPECT_EQ(client.bottom, rect.bottom);
}

TEST(StatusBar, PartsHaveTexts) {
  const StatusBar bar;
  EXPECT_EQ(L"first", bar.Text(0));
  const int rights[] = {50, 120, -1};
  EXPECT_TRUE(bar.Send(SB_SETPARTS, 3, reinterpret_cast<LPARAM>(rights)));
  EXPECT_EQ(3, bar.Send(SB_GETPARTS));
  EXPECT_TRUE(bar.Send(SB_SETTEXTW, 1 | SBT_POPOUT, reinterpret_cast<LPARAM>(L"second")));
  EXPECT_EQ(L"second", bar.Text(1));
  EXPECT_EQ(MAKELONG(6, SBT_POPOUT), bar.Send(SB_GETTEXTLENGTHW, 1));
  EXPECT_EQ(L"", bar.Text(2));
  EXPECT_FALSE(bar.Send(SB_SETTEXTW, 9, reinterpret_cast<LPARAM>(L"none")));
  RECT rect{};
  EXPECT_TRUE(bar.Send(SB_GETRECT, 1, reinterpret_cast<LPARAM>(&rect)));
  EXPECT_EQ(52, rect.left);
  EXPECT_EQ(120, rect.right);
}

TEST(StatusBar, SimpleModeHasATextOfItsOwn) {
  const StatusBar bar;
  EXPECT_FALSE(bar.Send(SB_ISSIMPLE));
  bar.Send(SB_SIMPLE, TRUE);
  EXPECT_TRUE(bar.Send(SB_ISSIMPLE));
  EXPECT_TRUE(bar.Send(SB_SETTEXTW, SB_SIMPLEID, reinterpret_cast<LPARAM>(L"busy")));
  bar.Send(SB_SIMPLE, FALSE);
  EXPECT_EQ(L"first", bar.Text(0));
}

TEST(ProgressBar, PositionStaysInTheRange) {
  const Progress bar;
  EXPECT_EQ(MAKELONG(0, 100), bar.Send(PBM_SETRANGE, 0, MAKELPARAM(10, 50)));
  EXPECT_EQ(10, bar.Send(PBM_GETRANGE, TRUE));
  EXPECT_EQ(50, bar.Send(PBM_GETRANGE, FALSE));
  EXPECT_EQ(10, bar.Send(PBM_SETPOS, 30));
  EXPECT_EQ(30, bar.Send(PBM_GETPOS));
  EXPECT_EQ(30, bar.Send(PBM_DELTAPOS, 100));
  EXPECT_EQ(50, bar.Send(PBM_GETPOS));
}

TEST(ProgressBar, StepsStartAgainAtTheEnd) {
  const Progress bar;
  bar.Send(PBM_SETPOS, 85);
  EXPECT_EQ(10, bar.Send(PBM_SETSTEP, 10));
  EXPECT_EQ(85, bar.Send(PBM_STEPIT));
  EXPECT_EQ(95, bar.Send(PBM_STEPIT));
  EXPECT_EQ(5, bar.Send(PBM_GETPOS));
}

namespace {

std::string g_calls;

LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR data) {
  if (message == WM_APP) g_calls += std::to_string(id) + ":" + std::to_string(data) + " ";
  if (message == WM_APP + 1 && id == 2) RemoveWindowSubclass(window, Note, 2);
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, Note, id);
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace

TEST(Subclass, LastOneSetIsCalledFirst) {
  g_calls.clear();
  const HostWindow host;
  EXPECT_TRUE(SetWindowSubclass(host, Note, 1, 10));
  EXPECT_TRUE(SetWindowSubclass(host, Note, 2, 20));
  SendMessageW(host, WM_APP, 0, 0);
  EXPECT_EQ("2:20 1:10 ", std::exchange(g_calls, ""));
  EXPECT_TRUE(SetWindowSubclass(host, Note, 1, 11));
  SendMessageW(host, WM_APP + 1, 0, 0);
  SendMessageW(host, WM_APP, 0, 0);
  EXPECT_EQ("1:11 ", std::exchange(g_calls, ""));
  EXPECT_FALSE(RemoveWindowSubclass(host, Note, 2));
  EXPECT_TRUE(RemoveWindowSubclass(host, Note, 1));
  SendMessageW(host, WM_APP, 0, 0);
  EXPECT_EQ("", g_calls);
}

TEST(MessageBoxTest, ButtonsAnswer) {
  const HostWindow host;
  const auto ask = [&](UINT type, int id) {
    const Later answer(
        50, [=] { PostMessageW(FindWindowW(L"#32770", L"Title"), WM_COMMAND, static_cast<WPARAM>(id), 0); });
    return MessageBoxW(host, L"A question of some length?", L"Title", type);
  };
  EXPECT_EQ(IDOK, ask(MB_OK, IDOK));
  EXPECT_EQ(IDNO, ask(MB_YESNOCANCEL | MB_ICONQUESTION, IDNO));
  EXPECT_EQ(IDCANCEL, ask(MB_OKCANCEL, IDCANCEL));
  EXPECT_EQ(IDRETRY, ask(MB_ABORTRETRYIGNORE, IDRETRY));
}

TEST(MessageBoxTest, ShowsItsTextAndDefaultButton) {
  const HostWindow host;
  std::wstring text;
  HWND focused = nullptr;
  int focusId = 0;
  bool ownerEnabled = true;
  const Later answer(50, [&] {
    const HWND box = FindWindowW(L"#32770", L"Title");
    wchar_t buffer[100] = L"";
    GetWindowTextW(GetDlgItem(box, 0xFFFF), buffer, 100);
    text = buffer;
    focused = GetFocus();
    focusId = GetDlgCtrlID(focused);
    ownerEnabled = IsWindowEnabled(host) != FALSE;
    PostKey(VK_RETURN);
  });
  EXPECT_EQ(IDNO, MessageBoxW(host, L"Really?", L"Title", MB_YESNO | MB_DEFBUTTON2));
  EXPECT_EQ(L"Really?", text);
  EXPECT_EQ(IDNO, focusId);
  EXPECT_FALSE(ownerEnabled);
  EXPECT_TRUE(IsWindowEnabled(host));
}
