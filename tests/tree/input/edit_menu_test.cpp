// The menu that the host supplies for the box, by its answers.
#include "tree/input/edit_scene.h"

namespace {

using support::OpenEdit;

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

}  // namespace
