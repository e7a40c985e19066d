// Combo boxes and scroll bar controls.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/driver.h"
#include "support/host_window.h"

using namespace support;

namespace {

constexpr int kId = 7;

// A combo box with three rows; what its parent is told is kept as notification codes.
class Combo {
 public:
  explicit Combo(DWORD style)
      : m_host({.cx = 300, .cy = 200, .handler = [this](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
                  return Receive(message, wParam, lParam);
                }}) {
    window = CreateWindowExW(0, L"ComboBox", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | style, 10, 10, 120,
                             100, m_host, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kId)),
                             GetModuleHandleW(nullptr), nullptr);
    for (const wchar_t* row : {L"one", L"two", L"three"}) SendText(CB_ADDSTRING, 0, row);
    Pump();
    codes.clear();
  }
  ~Combo() { DestroyWindow(window); }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window, message, wParam, lParam);
  }
  LRESULT SendText(UINT message, WPARAM wParam, const wchar_t* text) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(text));
  }
  std::wstring Text() const {
    wchar_t text[50];
    GetWindowTextW(window, text, 50);
    return text;
  }
  std::vector<int> Told() { return std::exchange(codes, {}); }

  HWND window = nullptr;
  std::vector<int> codes;
  std::vector<DRAWITEMSTRUCT> drawn;
  std::vector<DELETEITEMSTRUCT> deleted;

 private:
  std::optional<LRESULT> Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && LOWORD(wParam) == kId) codes.push_back(HIWORD(wParam));
    if (message == WM_DRAWITEM) drawn.push_back(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    if (message == WM_DELETEITEM) deleted.push_back(*reinterpret_cast<DELETEITEMSTRUCT*>(lParam));
    if (message == WM_MEASUREITEM) reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = 20;
    return {};
  }

  HostWindow m_host;
};

using Codes = std::vector<int>;

}  // namespace

TEST(ComboBox, IsOneLineHighWhateverItsSize) {
  const Combo combo(CBS_DROPDOWNLIST);
  SendMessageW(combo.window, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
  RECT rect{};
  GetWindowRect(combo.window, &rect);
  EXPECT_EQ(21, rect.bottom - rect.top);
  EXPECT_EQ(17, combo.Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
  EXPECT_EQ(13, combo.Send(CB_GETITEMHEIGHT, 0));
  MoveWindow(combo.window, 0, 0, 90, 300, TRUE);
  GetWindowRect(combo.window, &rect);
  EXPECT_EQ(21, rect.bottom - rect.top);
  EXPECT_EQ(90, rect.right - rect.left);
}

TEST(ComboBox, RowsAndChoice) {
  Combo combo(CBS_DROPDOWNLIST);
  EXPECT_EQ(3, combo.Send(CB_GETCOUNT));
  EXPECT_EQ(CB_ERR, combo.Send(CB_GETCURSEL));
  EXPECT_EQ(1, combo.Send(CB_SETCURSEL, 1));
  EXPECT_EQ(L"two", combo.Text());
  EXPECT_EQ(CB_ERR, combo.Send(CB_SETCURSEL, 9));
  EXPECT_EQ(2, combo.SendText(CB_FINDSTRING, static_cast<WPARAM>(-1), L"TH"));
  EXPECT_EQ(CB_ERR, combo.SendText(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), L"th"));
  EXPECT_EQ(0, combo.SendText(CB_SELECTSTRING, static_cast<WPARAM>(-1), L"on"));
  EXPECT_EQ(L"one", combo.Text());
  EXPECT_EQ(Codes{}, combo.Told());
}

TEST(ComboBox, SortsOnDemand) {
  const Combo combo(CBS_DROPDOWNLIST | CBS_SORT);
  wchar_t text[20];
  combo.Send(CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(L"three", text);
  EXPECT_EQ(1, combo.SendText(CB_ADDSTRING, 0, L"p"));
  EXPECT_EQ(0, combo.SendText(CB_INSERTSTRING, 0, L"z"));
}

TEST(ComboBox, KeysChooseWhileItIsClosed) {
  Combo combo(CBS_DROPDOWNLIST);
  SetFocus(combo.window);
  EXPECT_EQ(Codes{CBN_SETFOCUS}, combo.Told());
  Key(VK_DOWN);
  EXPECT_EQ((Codes{CBN_SELENDOK, CBN_SELCHANGE}), combo.Told());
  EXPECT_EQ(L"one", combo.Text());
  Type(L"t");
  EXPECT_EQ(L"two", combo.Text());
}

TEST(ComboBox, DropsDownAndClosesByKeys) {
  Combo combo(CBS_DROPDOWNLIST);
  SetFocus(combo.window);
  combo.Told();
  combo.Send(CB_SHOWDROPDOWN, TRUE);
  EXPECT_TRUE(combo.Send(CB_GETDROPPEDSTATE));
  Key(VK_DOWN);
  Key(VK_RETURN);
  EXPECT_FALSE(combo.Send(CB_GETDROPPEDSTATE));
  EXPECT_EQ((Codes{CBN_DROPDOWN, CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP}), combo.Told());
  combo.Send(CB_SHOWDROPDOWN, TRUE);
  Key(VK_ESCAPE);
  EXPECT_EQ((Codes{CBN_DROPDOWN, CBN_SELENDCANCEL, CBN_CLOSEUP}), combo.Told());
}

TEST(ComboBox, MouseOpensAndChooses) {
  Combo combo(CBS_DROPDOWNLIST);
  RECT rect{};
  GetWindowRect(combo.window, &rect);
  Click({rect.right - 8, rect.top + 8});
  EXPECT_TRUE(combo.Send(CB_GETDROPPEDSTATE));
  combo.Told();
  const int row = static_cast<int>(combo.Send(CB_GETITEMHEIGHT, 0));
  Click({rect.left + 20, rect.bottom + 1 + row + row / 2});
  EXPECT_EQ(1, combo.Send(CB_GETCURSEL));
  EXPECT_EQ((Codes{CBN_SELENDOK, CBN_CLOSEUP, CBN_SELCHANGE}), combo.Told());
}

TEST(ComboBox, LosingTheFocusClosesIt) {
  Combo combo(CBS_DROPDOWNLIST);
  SetFocus(combo.window);
  combo.Send(CB_SHOWDROPDOWN, TRUE);
  combo.Told();
  SetFocus(GetParent(combo.window));
  EXPECT_EQ((Codes{CBN_SELENDCANCEL, CBN_CLOSEUP, CBN_KILLFOCUS}), combo.Told());
}

TEST(ComboBox, TypingInItsEditIsTold) {
  Combo combo(CBS_DROPDOWN | CBS_AUTOHSCROLL);
  combo.Send(CB_SETCURSEL, 1);
  SetFocus(combo.window);
  EXPECT_EQ(combo.window, GetParent(GetFocus()));
  combo.Told();
  SetWindowTextW(combo.window, L"new");
  EXPECT_EQ(Codes{}, combo.Told());
  combo.Send(CB_SETEDITSEL, 0, MAKELPARAM(3, 3));
  Type(L"x");
  EXPECT_EQ((Codes{CBN_EDITUPDATE, CBN_EDITCHANGE}), combo.Told());
  EXPECT_EQ(L"newx", combo.Text());
  EXPECT_EQ(CB_ERR, combo.Send(CB_GETCURSEL));
}

TEST(ComboBox, OwnerDrawsItsRows) {
  Combo combo(CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS);
  combo.Send(CB_SETITEMDATA, 1, 55);
  combo.Send(CB_SETCURSEL, 1);
  combo.drawn.clear();
  RedrawWindow(combo.window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  ASSERT_FALSE(combo.drawn.empty());
  const DRAWITEMSTRUCT& line = combo.drawn.back();
  EXPECT_EQ(static_cast<UINT>(ODT_COMBOBOX), line.CtlType);
  EXPECT_EQ(static_cast<UINT>(kId), line.CtlID);
  EXPECT_EQ(combo.window, line.hwndItem);
  EXPECT_EQ(1u, line.itemID);
  EXPECT_EQ(55u, line.itemData);
  EXPECT_TRUE(line.itemState & ODS_COMBOBOXEDIT);
  EXPECT_EQ(20, combo.Send(CB_GETITEMHEIGHT, 0));
}

TEST(ComboBox, EndOfRowsIsTold) {
  Combo combo(CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS);
  for (int i = 0; i < 3; ++i) combo.Send(CB_SETITEMDATA, static_cast<WPARAM>(i), 10 + i);
  combo.Send(CB_RESETCONTENT);
  ASSERT_EQ(3u, combo.deleted.size());
  EXPECT_EQ(12u, combo.deleted.front().itemData);
  EXPECT_EQ(static_cast<UINT>(ODT_COMBOBOX), combo.deleted.front().CtlType);
  EXPECT_EQ(0, combo.Send(CB_GETCOUNT));
}

TEST(ComboBox, WidthOfTheListIsAtLeastItsOwn) {
  const Combo combo(CBS_DROPDOWNLIST);
  EXPECT_EQ(120, combo.Send(CB_GETDROPPEDWIDTH));
  combo.Send(CB_SETDROPPEDWIDTH, 200);
  EXPECT_EQ(200, combo.Send(CB_GETDROPPEDWIDTH));
  combo.Send(CB_SETDROPPEDWIDTH, 20);
  EXPECT_EQ(120, combo.Send(CB_GETDROPPEDWIDTH));
}

namespace {

class Bar {
 public:
  Bar()
      : m_host({.cx = 200, .cy = 200, .handler = [this](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
                  if (message == WM_VSCROLL && reinterpret_cast<HWND>(lParam) == window)
                    codes.push_back(LOWORD(wParam));
                  return std::optional<LRESULT>();
                }}) {
    window = CreateWindowExW(0, L"ScrollBar", L"", WS_CHILD | WS_VISIBLE | SBS_VERT, 10, 10, 17, 150, m_host,
                             nullptr, GetModuleHandleW(nullptr), nullptr);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = 99;
    info.nPage = 10;
    info.nPos = 20;
    SetScrollInfo(window, SB_CTL, &info, TRUE);
    Pump();
  }
  ~Bar() { DestroyWindow(window); }

  HWND window = nullptr;
  std::vector<int> codes;

 private:
  HostWindow m_host;
};

}  // namespace

TEST(ScrollBarControl, KeepsItsRangeAndPosition) {
  const Bar bar;
  EXPECT_EQ(20, GetScrollPos(bar.window, SB_CTL));
  int low = -1;
  int high = -1;
  GetScrollRange(bar.window, SB_CTL, &low, &high);
  EXPECT_EQ(0, low);
  EXPECT_EQ(99, high);
  EXPECT_EQ(20, SetScrollPos(bar.window, SB_CTL, 500, TRUE));
  // The last page is where it ends.
  EXPECT_EQ(90, GetScrollPos(bar.window, SB_CTL));
}

TEST(ScrollBarControl, ArrowsAndShaftTellTheParent) {
  Bar bar;
  // A bar may have a loop of its own while the button is down.
  const auto click = [](POINT point) {
    PostMouseMove(point);
    PostPress(point);
    PostRelease(point);
    PumpFor(600);
  };
  RECT rect{};
  GetWindowRect(bar.window, &rect);
  click({rect.left + 8, rect.top + 5});
  EXPECT_EQ((Codes{SB_LINEUP, SB_ENDSCROLL}), std::exchange(bar.codes, {}));
  click({rect.left + 8, rect.bottom - 5});
  EXPECT_EQ((Codes{SB_LINEDOWN, SB_ENDSCROLL}), std::exchange(bar.codes, {}));
  click({rect.left + 8, rect.bottom - 25});
  EXPECT_EQ((Codes{SB_PAGEDOWN, SB_ENDSCROLL}), std::exchange(bar.codes, {}));
}
