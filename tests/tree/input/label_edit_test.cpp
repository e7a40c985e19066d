// The box in which a label is edited: how it opens, looks, grows and ends.
#include "edit/VornTreeEdit.h"
#include "support/text.h"
#include "tree/input/input_scene.h"
#include "tree/model/VornTreeItem.h"

namespace {

using support::InputScene;
using support::Key;
using support::Type;

constexpr unsigned kStyle = support::kPlain | STS_EDITLABELS;
constexpr const char* kScene = "root [Alpha [Beta] Delta]";

// An edit of Alpha is open, nothing is recorded yet.
class OpenEdit : public testing::Test {
 protected:
  OpenEdit() : scene(kScene, kStyle), tree(scene.tree) {
    edit = tree.EditLabel(tree["Alpha"]);
    alpha = tree["Alpha"];
    tree.log.Clear();
  }
  HWND Box() { return edit->GetSafeHwnd(); }
  RECT BoxRect() {
    RECT rect{};
    ::GetWindowRect(Box(), &rect);
    ::MapWindowPoints(nullptr, tree, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
  }
  std::string Label() { return support::Narrow(tree.GetItemText(alpha)); }

  InputScene scene;
  support::TestTree& tree;
  CEdit* edit = nullptr;
  CVornTreeItem* alpha = nullptr;
};

class LabelEdit : public testing::Test {
 protected:
  LabelEdit() : scene(kScene, kStyle), tree(scene.tree) {}
  InputScene scene;
  support::TestTree& tree;
};

// --- Opening ---------------------------------------------------------------------------------------

TEST_F(LabelEdit, EditLabelGivesTheBoxThatGetEditControlKnows) {
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  CEdit* const edit = tree.EditLabel(tree["Alpha"]);
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(tree.GetEditControl(), edit);
  EXPECT_EQ(tree.EndLabelEdit(), 1);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Alpha\nOnEndLabelEdit 'Alpha' Alpha");
}

TEST_F(LabelEdit, NothingThatIsNoLiveItemIsEdited) {
  CVornTreeItem* const dead = tree["Delta"];
  tree.recording = false;
  tree.DeleteItem(dead);
  tree.recording = true;
  EXPECT_EQ(tree.EditLabel(nullptr), nullptr);
  EXPECT_EQ(tree.EditLabel(dead), nullptr);
  EXPECT_EQ(tree.EditLabel(STI_ROOT), nullptr);
  EXPECT_EQ(tree.EditLabel(STI_FIRST), nullptr);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
}

TEST_F(LabelEdit, EditLabelStopsTheTimerEvenForNoItem) {
  ::SetTimer(tree, 1, 60000, nullptr);
  tree.EditLabel(nullptr);
  EXPECT_FALSE(scene.StopEditTimer());
}

TEST_F(LabelEdit, ItemsThatMayNotBeRenamedAreNotEdited) {
  tree.ModifyItemState(tree["Delta"], 0, STIS_NORENAME);
  EXPECT_EQ(tree.EditLabel(tree["Delta"]), nullptr);
  tree.ModifyItemState(tree["Alpha"], 0, STIS_NOMODIFY);
  EXPECT_EQ(tree.EditLabel(tree["Alpha"]), nullptr) << "an item that denies change";
  EXPECT_EQ(tree.EditLabel(tree["Beta"]), nullptr) << "and its children";
  EXPECT_EQ(tree.BeginLabelEdit(tree["Beta"]), 0);
}

TEST_F(LabelEdit, TheHostMayRefuseTheEdit) {
  tree.answer = [](const std::string&, CVornTreeItem*, CVornTreeItem*) { return 0; };
  EXPECT_EQ(tree.EditLabel(tree["Alpha"]), nullptr);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Alpha");
}

TEST_F(LabelEdit, BeginLabelEditAsksAndOpensNothing) {
  EXPECT_EQ(tree.BeginLabelEdit(tree["Alpha"]), 1);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Alpha");
}

TEST_F(LabelEdit, AnItemInAFoldedBranchIsBroughtIntoView) {
  ASSERT_NE(tree.EditLabel(tree["Beta"]), nullptr);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Delta");
  EXPECT_TRUE(tree.IsDisplayItem(tree["Beta"]));
  tree.log.Clear();
  tree.EndLabelEdit();
  tree.log.Clear();
}

TEST_F(LabelEdit, AnotherEditIsCommittedFirst) {
  CEdit* const first = tree.EditLabel(tree["Alpha"]);
  ASSERT_NE(first, nullptr);
  first->SetWindowText(L"Omega");
  CEdit* const second = tree.EditLabel(tree["Delta"]);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(tree.GetEditControl(), second);
  EXPECT_EQ(scene.EditText(), L"Delta");
  EXPECT_EQ(::GetFocus(), second->m_hWnd);
  EXPECT_LOG(tree.log, R"(
    OnBeginLabelEdit Alpha
    OnEndLabelEdit 'Omega' Alpha
    OnBeginLabelEdit Delta)");
  tree.EndLabelEdit();
  tree.log.Clear();
}

// --- The box ---------------------------------------------------------------------------------------

TEST_F(OpenEdit, TheBoxHasItsOwnClassStyleAndId) {
  wchar_t name[64] = {};
  ::GetClassNameW(Box(), name, 64);
  EXPECT_STREQ(name, L"VornLibrary::VornTreeEdit");
  // The border is there too; the system draws it and takes the bit away.
  constexpr DWORD kBox = WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | ES_MULTILINE;
  EXPECT_EQ(edit->GetStyle() & kBox, kBox);
  EXPECT_EQ(::GetDlgCtrlID(Box()), 61440);
  EXPECT_EQ(::GetParent(Box()), tree.m_hWnd);
  EXPECT_EQ(::GetFocus(), Box());
  EXPECT_EQ(::SendMessageW(Box(), WM_GETDLGCODE, 0, 0), DLGC_WANTALLKEYS);
}

TEST_F(OpenEdit, TheClassGoesWithTheBox) {
  const auto module = reinterpret_cast<HINSTANCE>(::GetClassLongPtrW(Box(), GCLP_HMODULE));
  WNDCLASSW info{};
  EXPECT_TRUE(::GetClassInfoW(module, L"VornLibrary::VornTreeEdit", &info));
  Key(VK_ESCAPE);
  EXPECT_FALSE(::GetClassInfoW(module, L"VornLibrary::VornTreeEdit", &info));
  ASSERT_NE(tree.EditLabel(alpha), nullptr) << "and comes again with the next one";
  EXPECT_TRUE(::GetClassInfoW(module, L"VornLibrary::VornTreeEdit", &info));
  Key(VK_ESCAPE);
  tree.log.Clear();
}

TEST_F(OpenEdit, TheBoxCoversTheLabelAndTenPixelsMore) {
  const RECT box = BoxRect();
  CRect label;
  ASSERT_EQ(tree.GetItemRect(alpha, label, 1), 1);
  EXPECT_EQ(box.left, label.left);
  EXPECT_EQ(box.top, label.top);
  EXPECT_EQ(box.right, label.right + 10);
  EXPECT_EQ(box.bottom, label.bottom);
}

TEST(LabelEditInANarrowWindow, TheBoxStaysInTheWindow) {
  InputScene scene("root [Abcdefghijklmnopqrstuvwxyz]", kStyle, 100);
  support::TestTree& tree = scene.tree;
  tree.SetScrollPos(SB_HORZ, 40);
  ASSERT_NE(tree.EditLabel(tree.GetFirstVisibleItem()), nullptr);
  RECT box{};
  ::GetWindowRect(*tree.GetEditControl(), &box);
  ::MapWindowPoints(nullptr, tree, reinterpret_cast<POINT*>(&box), 2);
  CRect client;
  ::GetClientRect(tree, client);
  EXPECT_GE(box.left, 0);
  EXPECT_EQ(box.right, client.right);
  tree.EndLabelEdit();
  tree.log.Clear();
}

TEST_F(OpenEdit, TheWholeTextIsSelected) {
  EXPECT_EQ(scene.EditText(), L"Alpha");
  DWORD start = 1, end = 0;
  ::SendMessageW(Box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 0u);
  EXPECT_EQ(end, 5u);
}

TEST_F(OpenEdit, OneLineStartsAtTheTopOfTheBox) {
  RECT format{};
  ::SendMessageW(Box(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&format));
  EXPECT_EQ(format.top, 1);
}

TEST_F(LabelEdit, TheBoxHasTheItemsFont) {
  tree.SetItemBold(tree["Delta"], 1);
  CEdit* const edit = tree.EditLabel(tree["Delta"]);
  ASSERT_NE(edit, nullptr);
  LOGFONTW font{};
  ::GetObjectW(reinterpret_cast<HFONT>(edit->SendMessage(WM_GETFONT)), sizeof(font), &font);
  EXPECT_EQ(font.lfWeight, FW_BOLD);
  tree.EndLabelEdit();
  tree.log.Clear();
}

// --- Typing ----------------------------------------------------------------------------------------

TEST_F(OpenEdit, TheBoxGrowsWithTheTextByASlackOfTwoLetters) {
  const RECT before = BoxRect();
  Type(L"MMMMMMMMMM");
  const RECT after = BoxRect();
  EXPECT_EQ(after.left, before.left);
  EXPECT_EQ(after.top, before.top);
  EXPECT_EQ(after.bottom, before.bottom);
  HDC dc = ::GetWindowDC(Box());
  const HGDIOBJ earlier = ::SelectObject(dc, reinterpret_cast<HFONT>(edit->SendMessage(WM_GETFONT)));
  SIZE text{}, slack{};
  ::GetTextExtentPoint32W(dc, L"MMMMMMMMMM", 10, &text);
  ::GetTextExtentPoint32W(dc, L"ZZ", 2, &slack);
  ::SelectObject(dc, earlier);
  ::ReleaseDC(Box(), dc);
  EXPECT_EQ(after.right, before.left + text.cx + slack.cx);
  EXPECT_GT(after.right, before.right);
}

TEST_F(OpenEdit, TheBoxEndsAtTheRightEdgeOfTheControl) {
  Type(L"MMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMM");
  CRect client;
  ::GetClientRect(tree, client);
  EXPECT_EQ(BoxRect().right, client.right);
  EXPECT_EQ(scene.EditText().size(), 36u) << "the text scrolls in the box";
}

TEST_F(OpenEdit, WithoutTextTheBoxHasItsFirstWidthNotLess) {
  const RECT before = BoxRect();
  Type(L"MMMMMMMMMM");
  ::SendMessageW(Box(), EM_SETSEL, 0, -1);
  Key(VK_BACK);
  EXPECT_EQ(scene.EditText(), L"");
  EXPECT_EQ(support::Text(BoxRect()), support::Text(before));
}

TEST_F(OpenEdit, ControlASelectsEverything) {
  ::SendMessageW(Box(), EM_SETSEL, 2, 2);
  Key('A', {.control = true});
  DWORD start = 1, end = 0;
  ::SendMessageW(Box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 0u);
  EXPECT_EQ(end, 5u);
  EXPECT_EQ(scene.EditText(), L"Alpha");
  EXPECT_EQ(::SendMessageW(Box(), WM_CHAR, 1, 1), 0);
}

TEST_F(OpenEdit, CharactersWithAltAreSwallowed) {
  CWnd* const box = edit;
  MSG message{Box(), WM_SYSCHAR, 'x', 1, 0, {}};
  EXPECT_TRUE(box->PreTranslateMessage(&message));
  message.message = WM_CHAR;
  EXPECT_FALSE(box->PreTranslateMessage(&message));
}

TEST_F(OpenEdit, KeysGoToTheBoxAndNotToTheTree) {
  for (const UINT key : {VK_DOWN, VK_UP, VK_HOME, VK_END, VK_SPACE, VK_ADD, VK_MULTIPLY, VK_RIGHT}) Key(key);
  Type(L"d");
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(tree.Rows(), "Alpha Delta");
  EXPECT_NE(tree.GetEditControl(), nullptr);
  EXPECT_NE(scene.EditText().find(L'd'), std::wstring::npos);
}

// --- Ending ----------------------------------------------------------------------------------------

TEST_F(OpenEdit, EnterCommits) {
  Type(L"Omega");
  Key(VK_RETURN);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(Label(), "Omega");
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Omega' Alpha");
}

TEST_F(OpenEdit, EnterWithTheTextUnchangedStillAsksAndSetsIt) {
  alpha->m_nTextWidth = 0;
  Key(VK_RETURN);
  EXPECT_GT(alpha->m_nTextWidth, 0) << "setting the text measures the item again";
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Alpha' Alpha");
}

TEST_F(OpenEdit, EscapeLeavesTheTextAndAsksNobody) {
  Type(L"Omega");
  Key(VK_ESCAPE);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(Label(), "Alpha");
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
  EXPECT_LOG(scene.hostLog, "") << "the host's dialog does not hear of it";
}

TEST_F(OpenEdit, ARefusalLeavesTheTextAndClosesTheBox) {
  tree.answer = [](const std::string&, CVornTreeItem*, CVornTreeItem*) { return 0; };
  Type(L"Omega");
  EXPECT_EQ(tree.EndLabelEdit(), 0);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(Label(), "Alpha");
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Omega' Alpha");
}

TEST_F(OpenEdit, TheFocusThatLeavesCommits) {
  Type(L"Omega");
  ::SetFocus(*scene.host);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(Label(), "Omega");
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Omega' Alpha");
}

TEST_F(OpenEdit, AnotherWindowThatIsActivatedCommits) {
  Type(L"Omega");
  const support::HostWindow other;
  ::SetActiveWindow(other);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Omega' Alpha");
}

TEST_F(OpenEdit, AClickOnAnotherRowCommitsOnceAndSelects) {
  Type(L"Omega");
  scene.Click("Delta");
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(tree.Text(), "root [Omega [Beta] Delta*@]");
  EXPECT_LOG(tree.log, R"(
    OnEndLabelEdit 'Omega' Alpha
    OnClearSelection Delta
    OnSelChanging - Delta
    OnSelChanged - Delta)");
}

TEST_F(OpenEdit, APressOnNoRowCommits) {
  support::Click(scene.Below());
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Alpha' Alpha");
}

TEST_F(OpenEdit, ARightPressCommits) {
  support::Click(scene.Below(), support::Button::Right);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Alpha' Alpha");
}

TEST_F(OpenEdit, ScrollMessagesCommitOnlyWhenThereIsABar) {
  tree.SendMessage(WM_VSCROLL, SB_LINEDOWN);
  tree.SendMessage(WM_HSCROLL, SB_LINERIGHT);
  tree.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
  EXPECT_NE(tree.GetEditControl(), nullptr) << "all rows fit";
}

TEST(LabelEditWithBars, EveryScrollCommits) {
  std::string rows = "root [Abcdefghijklmnopqrstuvwxyzabcdefghijkl";
  for (int i = 0; i < 20; ++i) rows += " r" + std::to_string(i);
  InputScene scene(rows + "]", kStyle, 120, 90);
  support::TestTree& tree = scene.tree;
  const auto endsBy = [&](UINT message, WPARAM wParam) {
    EXPECT_NE(tree.EditLabel(tree["r1"]), nullptr);
    tree.SendMessage(message, wParam);
    EXPECT_EQ(tree.GetEditControl(), nullptr) << message << " " << wParam;
    EXPECT_LOG(tree.log, "OnBeginLabelEdit r1\nOnEndLabelEdit 'r1' r1");
  };
  endsBy(WM_VSCROLL, SB_LINEDOWN);
  endsBy(WM_VSCROLL, SB_ENDSCROLL);  // the position stays
  endsBy(WM_HSCROLL, SB_LINERIGHT);
  endsBy(WM_HSCROLL, SB_ENDSCROLL);
  endsBy(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
}

TEST_F(OpenEdit, OfADeletedItemNobodyIsAsked) {
  tree.recording = false;
  tree.DeleteItem(alpha);
  tree.recording = true;
  Type(L"Omega");
  EXPECT_EQ(tree.EndLabelEdit(), 0);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(tree.Text(), "root [Delta]");
}

TEST_F(OpenEdit, TheEndOfTheWindowEndsIt) {
  Type(L"Omega");
  tree.DestroyWindow();
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  // Systems differ in whether the box loses the focus, and so commits, before its parent goes.
  EXPECT_LOG(tree.log, "? OnEndLabelEdit 'Omega' Alpha");
}

TEST_F(OpenEdit, EndLabelEditWithoutAnEditDoesNothing) {
  EXPECT_EQ(tree.EndLabelEdit(), 1);
  ::SetFocus(*scene.host);
  EXPECT_EQ(tree.EndLabelEdit(), 0);
  EXPECT_EQ(::GetFocus(), static_cast<HWND>(*scene.host));
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Alpha' Alpha");
}

TEST_F(OpenEdit, ASecondEndEditFromTheSameBoxReturnsZero) {
  auto* const box = static_cast<CVornTreeEdit*>(edit);
  int inner = -1;
  tree.answer = [&](const std::string&, CVornTreeItem*, CVornTreeItem*) {
    EXPECT_EQ(tree.GetEditControl(), nullptr) << "closed for all to see before the host is asked";
    inner = box->EndEdit(1);
    return 1;
  };
  Type(L"Omega");
  EXPECT_EQ(box->EndEdit(0), 1);
  EXPECT_EQ(inner, 0);
  EXPECT_EQ(Label(), "Omega");
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Omega' Alpha");
}

TEST_F(OpenEdit, EndEditCancels) {
  Type(L"Omega");
  EXPECT_EQ(static_cast<CVornTreeEdit*>(edit)->EndEdit(1), 0);
  EXPECT_EQ(Label(), "Alpha");
}

TEST_F(OpenEdit, TheHostMayOpenTheNextEditWhileOneEnds) {
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook.starts_with("OnEndLabelEdit 'Omega'")) {
      EXPECT_NE(tree.EditLabel(tree["Delta"]), nullptr);
    }
    return 1;
  };
  Type(L"Omega");
  Key(VK_RETURN);
  EXPECT_EQ(Label(), "Omega");
  ASSERT_NE(tree.GetEditControl(), nullptr);
  EXPECT_EQ(scene.EditText(), L"Delta");
  EXPECT_EQ(::GetFocus(), tree.GetEditControl()->m_hWnd);
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Omega' Alpha\nOnBeginLabelEdit Delta");
  Key(VK_ESCAPE);
}

TEST_F(OpenEdit, TheHostMayInsistOnABetterText) {
  int refused = 0;
  tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
    if (!hook.starts_with("OnEndLabelEdit") || ++refused > 3) return 1;
    tree.EditLabel(item);
    return 0;
  };
  for (int i = 0; i < 3; ++i) {
    Key(VK_RETURN);
    ASSERT_NE(tree.GetEditControl(), nullptr);
  }
  Key(VK_RETURN);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(refused, 4);
  tree.log.Clear();
}

// --- The encoded sequence --------------------------------------------------------------------------

class EncodedEdit : public LabelEdit {
 protected:
  ~EncodedEdit() override { VornTreeSetEncodedSequence(nullptr); }
};

TEST_F(EncodedEdit, ShowsABackslashAndStoresTheSequence) {
  VornTreeSetEncodedSequence(L"%5C");
  tree.recording = false;
  CVornTreeItem* const item = tree["Delta"];
  tree.SetItemText(item, L"a%5Cb%5C");
  ASSERT_NE(tree.EditLabel(item), nullptr);
  EXPECT_EQ(scene.EditText(), L"a\\b\\");
  tree.recording = true;
  Type(L"x\\y\\z");
  Key(VK_RETURN);
  EXPECT_STREQ(tree.GetItemText(item), L"x%5Cy%5Cz");
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'x\\y\\z' a%5Cb%5C") << "the host is told the text as typed";
}

TEST_F(EncodedEdit, WithoutASequenceABackslashStays) {
  CVornTreeItem* const item = tree["Delta"];
  ASSERT_NE(tree.EditLabel(item), nullptr);
  Type(L"x\\y");
  Key(VK_RETURN);
  EXPECT_STREQ(tree.GetItemText(item), L"x\\y");
  tree.log.Clear();
}

// --- The host's menu -------------------------------------------------------------------------------

struct MenuCall {
  int count = 0;
  HWND window = nullptr;
  int x = 0, y = 0, reserved = -1;
  unsigned int answer = 0;
  std::function<void()> meanwhile;
} g_menu;

unsigned int OnMenu(HWND window, int x, int y, int reserved) {
  g_menu.window = window;
  g_menu.x = x;
  g_menu.y = y;
  g_menu.reserved = reserved;
  ++g_menu.count;
  if (g_menu.meanwhile) g_menu.meanwhile();
  return g_menu.answer;
}

class EditMenu : public OpenEdit {
 protected:
  EditMenu() {
    g_menu = MenuCall{};
    VornTreeEditContextMenuSetCallback(OnMenu);
  }
  ~EditMenu() override { VornTreeEditContextMenuSetCallback(nullptr); }
  void Ask(unsigned int answer) {
    g_menu.answer = answer;
    ::SendMessageW(Box(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Box()), MAKELPARAM(30, 40));
  }
  void Select(int from, int to) {
    ::SendMessageW(Box(), EM_SETSEL, static_cast<WPARAM>(from), static_cast<LPARAM>(to));
  }
};

TEST_F(EditMenu, TheCallbackIsToldTheWindowAndThePoint) {
  Ask(0);
  EXPECT_EQ(g_menu.count, 1);
  EXPECT_EQ(g_menu.window, Box());
  EXPECT_EQ(g_menu.x, 30);
  EXPECT_EQ(g_menu.y, 40);
  EXPECT_EQ(g_menu.reserved, 0);
  EXPECT_EQ(scene.EditText(), L"Alpha");
}

TEST_F(EditMenu, ARightClickInTheBoxAsksIt) {
  support::Click(support::MiddleOf(Box()), support::Button::Right);
  EXPECT_EQ(g_menu.count, 1);
  EXPECT_EQ(g_menu.window, Box());
}

TEST_F(EditMenu, ClearEmptiesTheBoxAndUndoBringsItBack) {
  Ask(0xE120);
  EXPECT_EQ(scene.EditText(), L"");
  EXPECT_NE(::SendMessageW(Box(), EM_CANUNDO, 0, 0), 0);
  Ask(0xE12B);
  EXPECT_EQ(scene.EditText(), L"Alpha");
}

TEST_F(EditMenu, ClearInABoxThatIsReadOnlyCannotBeUndone) {
  ::SendMessageW(Box(), EM_EMPTYUNDOBUFFER, 0, 0);
  ::SendMessageW(Box(), EM_SETREADONLY, TRUE, 0);
  Ask(0xE120);
  EXPECT_EQ(::SendMessageW(Box(), EM_CANUNDO, 0, 0), 0);
}

TEST_F(EditMenu, CutCopyAndPaste) {
  Select(0, 2);
  Ask(0xE123);
  EXPECT_EQ(scene.EditText(), L"pha");
  Select(3, 3);
  Ask(0xE125);
  EXPECT_EQ(scene.EditText(), L"phaAl");
  Select(0, 1);
  Ask(0xE122);
  EXPECT_EQ(scene.EditText(), L"phaAl");
  Select(5, 5);
  Ask(0xE125);
  EXPECT_EQ(scene.EditText(), L"phaAlp");
}

TEST_F(EditMenu, SelectAll) {
  Select(2, 2);
  Ask(0xE12A);
  DWORD start = 1, end = 0;
  ::SendMessageW(Box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 0u);
  EXPECT_EQ(end, 5u);
}

TEST_F(EditMenu, OtherAnswersDoNothing) {
  Select(0, 2);
  for (const unsigned int answer : {0u, 1u, 0xE121u, 0xE124u, 0xE126u, 0xE12Cu, 0xFFFFFFFFu}) Ask(answer);
  EXPECT_EQ(scene.EditText(), L"Alpha");
  DWORD start = 1, end = 0;
  ::SendMessageW(Box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(end, 2u);
}

TEST_F(EditMenu, TheMenuMayTakeTheFocusWithoutEndingTheEdit) {
  g_menu.meanwhile = [&] { ::SetFocus(*scene.host); };
  Ask(0xE12A);
  EXPECT_EQ(tree.GetEditControl(), edit);
  EXPECT_LOG(tree.log, "");
  ::SetFocus(Box());
  ::SetFocus(*scene.host);
  EXPECT_EQ(tree.GetEditControl(), nullptr) << "afterwards it ends as ever";
  EXPECT_LOG(tree.log, "OnEndLabelEdit 'Alpha' Alpha");
}

TEST_F(EditMenu, APressDuringTheMenuCommitsAfterTheSelectionHasMoved) {
  const POINT spot = scene.Spot("Delta");
  g_menu.meanwhile = [&] {
    POINT client = spot;
    ::ScreenToClient(tree, &client);
    tree.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(client.x, client.y));
  };
  Ask(0xE122);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_LOG(tree.log, R"(
    OnClearSelection Delta
    OnSelChanging - Delta
    OnSelChanged - Delta
    OnEndLabelEdit 'Alpha' Alpha)");
}

TEST_F(EditMenu, TheMenuMayEndTheEditOrTheWindow) {
  g_menu.meanwhile = [&] { tree.EndLabelEdit(); };
  Ask(0xE120);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(Label(), "Alpha");
  tree.log.Clear();
  edit = tree.EditLabel(alpha);
  ASSERT_NE(edit, nullptr);
  g_menu.meanwhile = [&] { tree.DestroyWindow(); };
  Ask(0xE120);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Alpha");
}

TEST_F(OpenEdit, WithoutACallbackTheBoxShowsItsOwnMenu) {
  const support::Later answer(50, [] { ::EndMenu(); });
  ::SendMessageW(Box(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Box()), MAKELPARAM(30, 40));
  EXPECT_TRUE(answer.Done()) << "the menu's own loop has run";
  EXPECT_EQ(scene.EditText(), L"Alpha");
  tree.EndLabelEdit();
  tree.log.Clear();
}

// --- Boxes by themselves ---------------------------------------------------------------------------

TEST_F(LabelEdit, ABoxWithoutAnItemIsNotMade) {
  CVornTreeEdit box(nullptr);
  EXPECT_EQ(box.Create(WS_CHILD, CRect(0, 0, 50, 20), &tree, 1), 0);
  EXPECT_EQ(box.m_hWnd, nullptr);
}

TEST_F(LabelEdit, ABoxInAnotherWindowHasNoTreeToTell) {
  auto made = std::make_unique<CVornTreeEdit>(tree["Alpha"]);
  CVornTreeEdit& box = *made;
  CWnd* const parent = CWnd::FromHandle(*scene.host);
  ASSERT_EQ(box.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), parent, 1), 1);
  EXPECT_EQ(reinterpret_cast<HGDIOBJ>(box.SendMessage(WM_GETFONT)), ::GetStockObject(DEFAULT_GUI_FONT));
  EXPECT_EQ(support::WindowText(box), L"Alpha");
  EXPECT_EQ(box.EndEdit(0), 0);
  box.SendMessage(WM_CHAR, 13, 1);
  box.SendMessage(WM_CHAR, 27, 1);
  EXPECT_TRUE(::IsWindow(box));
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  made.reset();
  scene.hostLog.Clear();  // the box was the host's child
}

TEST_F(LabelEdit, ABoxThatCannotBeMadeStaysWithoutAWindow) {
  static const auto refuse = [](int code, WPARAM wParam, LPARAM lParam) -> LRESULT {
    wchar_t name[64] = {};
    ::GetClassNameW(reinterpret_cast<HWND>(wParam), name, 64);
    if (code == HCBT_CREATEWND && std::wcscmp(name, L"VornLibrary::VornTreeEdit") == 0) return 1;
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
  };
  const HHOOK hook = ::SetWindowsHookExW(WH_CBT, +refuse, nullptr, ::GetCurrentThreadId());
  CEdit* const edit = tree.EditLabel(tree["Alpha"]);
  ::UnhookWindowsHookEx(hook);
  EXPECT_EQ(edit, nullptr);
  ASSERT_NE(tree.GetEditControl(), nullptr);
  EXPECT_EQ(tree.GetEditControl()->m_hWnd, nullptr);
  EXPECT_EQ(tree.EndLabelEdit(), 0);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Alpha");
}

// --- By the mouse ----------------------------------------------------------------------------------

TEST_F(LabelEdit, ASecondClickOpensTheBoxAfterAWhile) {
  scene.Click("Delta");
  tree.log.Clear();
  scene.Click("Delta");
  EXPECT_EQ(tree.GetEditControl(), nullptr) << "not at once";
  EXPECT_TRUE(support::PumpUntil([&] { return tree.GetEditControl() != nullptr; }, 4000));
  EXPECT_EQ(scene.EditText(), L"Delta");
  EXPECT_FALSE(scene.StopEditTimer()) << "it runs once";
  EXPECT_LOG(tree.log, "OnBeginLabelEdit Delta");
  Key(VK_ESCAPE);
}

}  // namespace
