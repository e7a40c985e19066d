// The edit control.
#include <windows.h>

#include <gtest/gtest.h>

#include "desktop/control_window.h"
#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

class Edit : public Control {
 public:
  explicit Edit(DWORD style = ES_AUTOHSCROLL, const wchar_t* text = L"") : Control(L"EDIT", style, text) {}

  // "first,last" of the selection.
  std::string Selection() const {
    DWORD first = 0;
    DWORD last = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    return std::to_string(first) + "," + std::to_string(last);
  }
  void Select(int first, int last) const { Send(EM_SETSEL, static_cast<WPARAM>(first), last); }
  void Replace(const wchar_t* text, bool undo = true) const {
    Send(EM_REPLACESEL, undo, reinterpret_cast<LPARAM>(text));
  }
  std::wstring Content() const { return WindowText(window); }
};

}  // namespace

TEST(Edit, TypingInsertsAndTells) {
  Edit edit;
  Type(L"né");
  EXPECT_EQ(L"né", edit.Content());
  EXPECT_EQ("2,2", edit.Selection());
  EXPECT_LOG(edit.log, Told(EN_UPDATE) + Told(EN_CHANGE) + Told(EN_UPDATE) + Told(EN_CHANGE));
}

TEST(Edit, TypingReplacesTheSelection) {
  Edit edit(ES_AUTOHSCROLL, L"abcdef");
  edit.Select(1, 4);
  Type(L"X");
  EXPECT_EQ(L"aXef", edit.Content());
  EXPECT_EQ("2,2", edit.Selection());
  edit.log.Clear();
}

TEST(Edit, KeysMoveAndSelect) {
  Edit edit(ES_AUTOHSCROLL, L"abcdef");
  edit.Select(2, 2);
  Key(VK_RIGHT);
  EXPECT_EQ("3,3", edit.Selection());
  Key(VK_RIGHT, {.shift = true});
  EXPECT_EQ("3,4", edit.Selection());
  Key(VK_HOME, {.shift = true});
  EXPECT_EQ("0,3", edit.Selection());
  Key(VK_END);
  EXPECT_EQ("6,6", edit.Selection());
  Key(VK_LEFT);
  EXPECT_EQ("5,5", edit.Selection());
}

TEST(Edit, DeletingKeys) {
  Edit edit(ES_AUTOHSCROLL, L"abcdef");
  edit.Select(3, 3);
  Key(VK_BACK);
  EXPECT_EQ(L"abdef", edit.Content());
  Key(VK_DELETE);
  EXPECT_EQ(L"abef", edit.Content());
  edit.Select(0, 2);
  Key(VK_DELETE);
  EXPECT_EQ(L"ef", edit.Content());
  edit.log.Clear();
}

TEST(Edit, ControlArrowsGoByWords) {
  Edit edit(ES_AUTOHSCROLL, L"one two three");
  edit.Select(0, 0);
  Key(VK_RIGHT, {.control = true});
  EXPECT_EQ("4,4", edit.Selection());
  Key(VK_RIGHT, {.control = true});
  EXPECT_EQ("8,8", edit.Selection());
  Key(VK_LEFT, {.control = true});
  EXPECT_EQ("4,4", edit.Selection());
}

TEST(Edit, SelectionIsCutToTheText) {
  Edit edit(ES_AUTOHSCROLL, L"abc");
  edit.Select(0, -1);
  EXPECT_EQ("0,3", edit.Selection());
  edit.Select(1, 100);
  EXPECT_EQ("1,3", edit.Selection());
  edit.Select(-1, 0);
  EXPECT_EQ("3,3", edit.Selection());
}

TEST(Edit, UndoTakesBackAndForth) {
  Edit edit(ES_AUTOHSCROLL, L"abc");
  EXPECT_FALSE(edit.Send(EM_CANUNDO));
  edit.Select(1, 2);
  edit.Replace(L"XY");
  EXPECT_EQ(L"aXYc", edit.Content());
  EXPECT_TRUE(edit.Send(EM_CANUNDO));
  EXPECT_TRUE(edit.Send(EM_UNDO));
  EXPECT_EQ(L"abc", edit.Content());
  EXPECT_TRUE(edit.Send(EM_UNDO));
  EXPECT_EQ(L"aXYc", edit.Content());
  edit.Send(EM_EMPTYUNDOBUFFER);
  EXPECT_FALSE(edit.Send(EM_CANUNDO));
  edit.log.Clear();
}

TEST(Edit, SetTextForgetsUndoAndTells) {
  Edit edit(ES_AUTOHSCROLL, L"abc");
  edit.Replace(L"X");
  edit.log.Clear();
  SetWindowTextW(edit.window, L"new");
  EXPECT_LOG(edit.log, Told(EN_UPDATE) + Told(EN_CHANGE));
  EXPECT_FALSE(edit.Send(EM_CANUNDO));
  EXPECT_EQ("0,0", edit.Selection());
}

TEST(Edit, ModifiedFlag) {
  Edit edit;
  EXPECT_FALSE(edit.Send(EM_GETMODIFY));
  Type(L"x");
  EXPECT_TRUE(edit.Send(EM_GETMODIFY));
  edit.Send(EM_SETMODIFY, FALSE);
  EXPECT_FALSE(edit.Send(EM_GETMODIFY));
  edit.Replace(L"y");
  EXPECT_TRUE(edit.Send(EM_GETMODIFY));
  edit.log.Clear();
}

TEST(Edit, ClipboardMessages) {
  Edit edit(ES_AUTOHSCROLL, L"été indien");
  edit.Select(0, 3);
  edit.Send(WM_COPY);
  edit.Select(4, 10);
  edit.Send(WM_CUT);
  EXPECT_EQ(L"été ", edit.Content());
  edit.Select(0, 0);
  edit.Send(WM_PASTE);
  EXPECT_EQ(L"indienété ", edit.Content());
  edit.Select(0, 6);
  edit.Send(WM_CLEAR);
  EXPECT_EQ(L"été ", edit.Content());
  edit.Send(WM_UNDO);
  EXPECT_EQ(L"indienété ", edit.Content());
  edit.log.Clear();
}

TEST(Edit, ClipboardKeys) {
  Edit edit(ES_AUTOHSCROLL, L"abc");
  edit.Select(0, 2);
  Key('C', {.control = true});
  edit.Select(3, 3);
  Key('V', {.control = true});
  EXPECT_EQ(L"abcab", edit.Content());
  edit.Select(0, 3);
  Key('X', {.control = true});
  EXPECT_EQ(L"ab", edit.Content());
  Key('Z', {.control = true});
  EXPECT_EQ(L"abcab", edit.Content());
  edit.log.Clear();
}

TEST(Edit, LimitStopsTyping) {
  Edit edit;
  edit.Send(EM_LIMITTEXT, 3);
  EXPECT_EQ(3, edit.Send(EM_GETLIMITTEXT));
  Type(L"abc");
  edit.log.Clear();
  Type(L"d");
  EXPECT_EQ(L"abc", edit.Content());
  EXPECT_LOG(edit.log, Told(EN_MAXTEXT) + "?" + Told(EN_UPDATE) + "?" + Told(EN_CHANGE));
}

TEST(Edit, LimitDoesNotBindSetText) {
  Edit edit;
  edit.Send(EM_LIMITTEXT, 3);
  SetWindowTextW(edit.window, L"longer");
  EXPECT_EQ(L"longer", edit.Content());
  edit.log.Clear();
}

TEST(Edit, ReadOnlyRefusesKeysOnly) {
  Edit edit(ES_AUTOHSCROLL | ES_READONLY, L"abc");
  Type(L"x");
  Key(VK_DELETE);
  EXPECT_EQ(L"abc", edit.Content());
  edit.Select(3, 3);
  edit.Replace(L"d");
  EXPECT_EQ(L"abcd", edit.Content());
  edit.Send(EM_SETREADONLY, FALSE);
  EXPECT_EQ(0u, GetWindowLongW(edit.window, GWL_STYLE) & ES_READONLY);
  Type(L"e");
  EXPECT_EQ(L"abcde", edit.Content());
  edit.log.Clear();
}

TEST(Edit, CasesAreForced) {
  Edit upper(ES_AUTOHSCROLL | ES_UPPERCASE);
  Type(L"abÉé");
  EXPECT_EQ(L"ABÉÉ", upper.Content());
  upper.log.Clear();
}

TEST(Edit, NumbersOnly) {
  Edit edit(ES_AUTOHSCROLL | ES_NUMBER);
  Type(L"1a2");
  EXPECT_EQ(L"12", edit.Content());
  edit.log.Clear();
}

TEST(Edit, FocusIsTold) {
  Edit edit;
  const HWND host = GetParent(edit.window);
  SetFocus(host);
  SetFocus(edit.window);
  EXPECT_LOG(edit.log, Told(EN_KILLFOCUS) + Told(EN_SETFOCUS));
}

TEST(Edit, ClickPlacesTheCaret) {
  Edit edit(ES_AUTOHSCROLL, L"iiii");
  edit.Select(0, -1);
  Click(At(edit.window, 140, 5));
  EXPECT_EQ("4,4", edit.Selection());
  Click(At(edit.window, 1, 5));
  EXPECT_EQ("0,0", edit.Selection());
}

TEST(Edit, DoubleClickSelectsAWord) {
  Edit edit(ES_AUTOHSCROLL, L"wide words");
  DoubleClick(At(edit.window, 8, 6));
  EXPECT_EQ(0u, edit.Selection().find("0,"));
  EXPECT_NE("0,0", edit.Selection());
  EXPECT_NE("0,10", edit.Selection());
}

TEST(Edit, PositionsAndCharacters) {
  Edit edit(ES_AUTOHSCROLL, L"abc");
  const LRESULT first = edit.Send(EM_POSFROMCHAR, 0);
  const LRESULT second = edit.Send(EM_POSFROMCHAR, 1);
  EXPECT_LT(LOWORD(first), LOWORD(second));
  EXPECT_EQ(HIWORD(first), HIWORD(second));
  EXPECT_EQ(1, LOWORD(edit.Send(EM_CHARFROMPOS, 0, MAKELPARAM(LOWORD(second), HIWORD(second)))));
}

TEST(Edit, MarginsMoveTheText) {
  Edit edit(ES_AUTOHSCROLL, L"abc");
  edit.Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(0, 0));
  const int before = LOWORD(edit.Send(EM_POSFROMCHAR, 0));
  edit.Send(EM_SETMARGINS, EC_LEFTMARGIN, MAKELPARAM(10, 0));
  EXPECT_EQ(before + 10, LOWORD(edit.Send(EM_POSFROMCHAR, 0)));
  EXPECT_EQ(10, LOWORD(edit.Send(EM_GETMARGINS)));
}

TEST(Edit, PasswordIsHiddenButThere) {
  Edit edit(ES_AUTOHSCROLL | ES_PASSWORD, L"secret");
  EXPECT_NE(0, edit.Send(EM_GETPASSWORDCHAR));
  EXPECT_EQ(L"secret", edit.Content());
}

TEST(Edit, DialogCodeAsksForItsKeys) {
  const LRESULT code = Edit().Send(WM_GETDLGCODE);
  EXPECT_NE(0, code & DLGC_WANTARROWS);
  EXPECT_NE(0, code & DLGC_WANTCHARS);
  EXPECT_NE(0, code & DLGC_HASSETSEL);
  EXPECT_NE(0, Edit(ES_MULTILINE).Send(WM_GETDLGCODE) & DLGC_WANTALLKEYS);
}

TEST(EditLines, CountAndContent) {
  Edit edit(ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL, L"one\r\ntwo\r\n\r\nfour");
  EXPECT_EQ(4, edit.Send(EM_GETLINECOUNT));
  EXPECT_EQ(5, edit.Send(EM_LINEINDEX, 1));
  EXPECT_EQ(10, edit.Send(EM_LINEINDEX, 2));
  EXPECT_EQ(-1, edit.Send(EM_LINEINDEX, 9));
  EXPECT_EQ(3, edit.Send(EM_LINELENGTH, 6));
  EXPECT_EQ(0, edit.Send(EM_LINELENGTH, 10));
  EXPECT_EQ(1, edit.Send(EM_LINEFROMCHAR, 7));
  wchar_t line[16] = {15};
  EXPECT_EQ(4, edit.Send(EM_GETLINE, 3, reinterpret_cast<LPARAM>(line)));
  EXPECT_EQ(0, wcsncmp(L"four", line, 4));
}

TEST(EditLines, ReturnMakesALine) {
  Edit edit(ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_WANTRETURN, L"ab");
  edit.Select(1, 1);
  Key(VK_RETURN);
  EXPECT_EQ(L"a\r\nb", edit.Content());
  EXPECT_EQ("3,3", edit.Selection());
  Key(VK_BACK);
  EXPECT_EQ(L"ab", edit.Content());
  edit.log.Clear();
}

TEST(EditLines, ArrowsGoUpAndDown) {
  Edit edit(ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL, L"aaa\r\naaa\r\naaa");
  edit.Select(1, 1);
  Key(VK_DOWN);
  EXPECT_EQ("6,6", edit.Selection());
  Key(VK_UP);
  EXPECT_EQ("1,1", edit.Selection());
  Key(VK_END, {.control = true});
  EXPECT_EQ("13,13", edit.Selection());
  Key(VK_HOME, {.control = true});
  EXPECT_EQ("0,0", edit.Selection());
}

TEST(EditLines, WrapsWithoutHorizontalScrolling) {
  Edit edit(ES_MULTILINE | ES_AUTOVSCROLL, L"words that are together much wider than the control is");
  EXPECT_GT(edit.Send(EM_GETLINECOUNT), 1);
  EXPECT_EQ(std::wstring::npos, edit.Content().find(L'\n'));
}
