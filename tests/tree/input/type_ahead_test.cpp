// Rows found by the first letters of their labels.
#include <cctype>
#include <cwchar>

#include "tree/input/input_scene.h"

namespace {

using support::InputScene;
using support::Type;

class TypeAhead : public testing::Test {
 protected:
  TypeAhead() : TypeAhead("root [Alpha Beta+ [Babel [Baker]] Bravo Delta aaron]") {}
  explicit TypeAhead(const std::string& text) : scene(text), tree(scene.tree) {
    tree.recording = false;
    Forget();
  }
  // Empties what was typed, as the third timer does.
  void Forget() { tree.SendMessage(WM_TIMER, 3); }
  std::string Focus() { return tree.Name(tree.GetItemHasFocus()); }
  // The focus after letters typed without a pause, from an item.
  std::string After(const char* label, const wchar_t* letters) {
    scene.Start(label);
    Forget();
    Type(letters);
    return Focus();
  }

  InputScene scene;
  support::TestTree& tree;
};

TEST_F(TypeAhead, ALetterFindsTheNextRowThatBeginsWithIt) {
  EXPECT_EQ(After("Alpha", L"b"), "Beta");
  EXPECT_EQ(After("Beta", L"b"), "Babel");
  EXPECT_EQ(After("Babel", L"b"), "Bravo");
  EXPECT_EQ(After("Bravo", L"b"), "Beta") << "from the top again";
  EXPECT_EQ(tree.Selected(), "Beta");
}

TEST_F(TypeAhead, CaseIsIgnored) {
  EXPECT_EQ(After("Alpha", L"BR"), "Bravo");
  EXPECT_EQ(After("Alpha", L"AAR"), "aaron");
}

TEST_F(TypeAhead, FurtherLettersMayStillMatchTheRowReached) {
  scene.Start("Alpha");
  Type(L"b");
  EXPECT_EQ(Focus(), "Beta");
  Type(L"e");
  EXPECT_EQ(Focus(), "Beta");
  Forget();
  scene.Start("Alpha");
  Type(L"br");
  EXPECT_EQ(Focus(), "Bravo");
  Type(L"avo");
  EXPECT_EQ(Focus(), "Bravo");
}

TEST_F(TypeAhead, ASearchThatMissesBehindTheFocusStartsAgainAtTheTop) {
  scene.Start("Alpha");
  Type(L"br");
  Type(L"x");
  EXPECT_EQ(Focus(), "Bravo") << "no row: the selection stays";
  EXPECT_EQ(After("Bravo", L"be"), "Beta");
}

TEST_F(TypeAhead, APauseBeginsANewSearchAfterTheRowReached) {
  scene.Start("Bravo");
  Type(L"a");
  EXPECT_EQ(Focus(), "aaron");
  InputScene::PauseTyping();
  Type(L"b");
  EXPECT_EQ(Focus(), "Beta") << "for b, not ab";
}

TEST_F(TypeAhead, TheSameLetterTwiceSearchesForBothAndDoesNotCycle) {
  EXPECT_EQ(After("Alpha", L"bb"), "Beta");
  EXPECT_EQ(After("Alpha", L"aa"), "aaron");
}

TEST_F(TypeAhead, OnlyRowsAreFound) {
  tree.SetItemVisibility(tree["Delta"], 0);
  EXPECT_EQ(After("Alpha", L"d"), "Alpha") << "hidden";
  EXPECT_EQ(After("Alpha", L"bak"), "Babel") << "folded: the search stops at what bak began with";
  EXPECT_EQ(tree.Rows(), "Alpha Beta Babel Bravo aaron");
}

TEST_F(TypeAhead, TheTimerNumberedThreeEmptiesTheLetters) {
  scene.Start("Alpha");
  Type(L"b");
  Forget();
  Type(L"d");
  EXPECT_EQ(Focus(), "Delta");
}

TEST_F(TypeAhead, TypingWhileNoRowMatchesGoesOnUntilThePause) {
  scene.Start("Alpha");
  Type(L"x");
  Type(L"d");
  EXPECT_EQ(Focus(), "Alpha") << "xd";
  InputScene::PauseTyping();
  Type(L"d");
  EXPECT_EQ(Focus(), "Delta");
}

TEST_F(TypeAhead, AWordGoesOnFromOneTreeToTheNext) {
  support::TestTree other;
  other.recording = false;
  other.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), CWnd::FromHandle(*scene.host), 8);
  other.Build("root [Bravo Delta*]");
  ::SetFocus(tree);
  scene.Start("Alpha");
  Type(L"b");
  EXPECT_EQ(other.OnTypeAhead('r', 1), 1);
  EXPECT_EQ(other.Selected(), "Bravo");
  other.log.Clear();
  other.DestroyWindow();
}

TEST_F(TypeAhead, KeysAreNotUsedWithoutAFocusRowsOrPermission) {
  EXPECT_EQ(tree.OnTypeAhead('b', 1), 0) << "no focus";
  scene.Start("Alpha");
  EXPECT_EQ(tree.OnTypeAhead('b', 0), 0) << "as a host might send it";
  EXPECT_EQ(tree.OnTypeAhead(0, 1), 0);
  EXPECT_EQ(tree.EnableAutoSelection(0), 1);
  EXPECT_EQ(tree.IsAutoSelectionEnabled(), 0);
  EXPECT_EQ(tree.OnTypeAhead('b', 1), 0);
  EXPECT_EQ(tree.EnableAutoSelection(1), 0);
  EXPECT_EQ(tree.OnTypeAhead('b', 1), 1);
  EXPECT_EQ(Focus(), "Beta");
  tree.DeleteAllItems(STI_ROOT);
  EXPECT_EQ(tree.OnTypeAhead('b', 1), 0) << "no item";
}

TEST_F(TypeAhead, ACharacterWithoutLParamIsNotTaken) {
  scene.Start("Alpha");
  MSG message{tree, WM_CHAR, 'b', 0, 0, {}};
  EXPECT_FALSE(tree.PreTranslateMessage(&message));
  message.lParam = 1;
  EXPECT_TRUE(tree.PreTranslateMessage(&message));
  EXPECT_EQ(Focus(), "Beta");
}

bool IsAccepted(int c) {
  if (std::isalnum(c) || c == 0x21 || c == 0x7B || c == 0x7D || c == 0x7E) return true;
  constexpr struct { int first, last; } kRanges[] = {{0x23, 0x26}, {0x28, 0x2F}, {0x3C, 0x40}, {0x5B, 0x60}};
  for (const auto& range : kRanges) {
    if (c >= range.first && c <= range.last) return true;
  }
  return false;
}

TEST_F(TypeAhead, LettersDigitsAndMostSignsAreTaken) {
  scene.Start("Alpha");
  for (int c = 1; c < 0x80; ++c) {
    Forget();
    EXPECT_EQ(tree.OnTypeAhead(static_cast<unsigned>(c), 1), IsAccepted(c) ? 1 : 0) << c;
  }
  for (const wchar_t c : {L' ', L'"', L'\'', L':', L';', L'|'}) {
    Forget();
    EXPECT_EQ(tree.OnTypeAhead(c, 1), 0) << static_cast<int>(c);
  }
}

TEST_F(TypeAhead, TheThirtyFirstLetterGoesToTheHost) {
  scene.Start("Alpha");
  for (int i = 0; i < 30; ++i) EXPECT_EQ(tree.OnTypeAhead('x', 1), 1) << i;
  EXPECT_EQ(tree.OnTypeAhead('x', 1), 0);
  MSG message{tree, WM_CHAR, 'x', 1, 0, {}};
  EXPECT_FALSE(tree.PreTranslateMessage(&message));
  InputScene::PauseTyping();
  EXPECT_EQ(tree.OnTypeAhead('d', 1), 1);
  EXPECT_EQ(Focus(), "Delta");
}

TEST_F(TypeAhead, TheRowFoundIsBroughtIntoView) {
  for (int i = 0; i < 30; ++i) tree.Add("n" + std::to_string(i));
  tree.Add("zulu");
  support::Pump();
  EXPECT_EQ(After("Alpha", L"z"), "zulu");
  EXPECT_TRUE(tree.IsDisplayItem(tree["zulu"]));
}

TEST_F(TypeAhead, AVetoLeavesTheSelectionAndMovesTheFocus) {
  scene.Start("Alpha");
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook != "OnSelChanging";
  };
  Type(L"d");
  EXPECT_EQ(tree.Selected(), "Alpha");
  EXPECT_EQ(Focus(), "Delta");
}

// --- The environment -------------------------------------------------------------------------------

TEST(TypeAheadVariable, AtAnyValueTypeAheadStartsOff) {
  ASSERT_EQ(::_wputenv(L"NOTEST_WID4217=0"), 0);
  {
    InputScene scene("root [Alpha Delta]");
    support::TestTree& tree = scene.tree;
    tree.recording = false;
    scene.Start("Alpha");
    InputScene::PauseTyping();
    Type(L"d");
    EXPECT_EQ(tree.Selected(), "Alpha");
    EXPECT_EQ(tree.EnableAutoSelection(1), 0);
    Type(L"d");
    EXPECT_EQ(tree.Selected(), "Delta");
  }
  ASSERT_EQ(::_wputenv(L"NOTEST_WID4217="), 0);
  support::TestTree later;
  EXPECT_EQ(later.IsAutoSelectionEnabled(), 1) << "it is read for each control";
}

}  // namespace
