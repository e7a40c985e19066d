// The box in which a label is edited: how it opens, looks and grows.
#include "support/text.h"
#include "tree/input/edit_scene.h"

namespace {

using support::InputScene;
using support::Key;
using support::LabelEdit;
using support::OpenEdit;
using support::Type;

constexpr unsigned kStyle = support::kEditStyle;

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
  auto* const box = static_cast<CVornTreeEdit*>(edit);
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

TEST_F(LabelEdit, TwoBoxesShareTheClass) {
  auto other = std::make_unique<CVornTreeEdit>(tree["Delta"]);
  CWnd* const parent = CWnd::FromHandle(*scene.host);
  ASSERT_EQ(other->Create(WS_CHILD, CRect(0, 0, 50, 20), parent, 1), 1);
  ASSERT_NE(tree.EditLabel(tree["Alpha"]), nullptr);
  other.reset();
  Type(L"Omega");
  Key(VK_RETURN);
  EXPECT_NE(tree["Omega"], nullptr);
  ASSERT_NE(tree.EditLabel(tree["Delta"]), nullptr);
  Key(VK_ESCAPE);
  tree.log.Clear();
  scene.hostLog.Clear();
}

}  // namespace
