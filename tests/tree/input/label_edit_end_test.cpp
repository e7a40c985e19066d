// Every way in which a label edit ends, and what it leaves in the item.
#include <functional>
#include <utility>

#include "support/text.h"
#include "tree/input/edit_scene.h"
#include "tree/model/VornTreeItem.h"

namespace {

using support::InputScene;
using support::Key;
using support::LabelEdit;
using support::OpenEdit;
using support::Type;

constexpr unsigned kStyle = support::kEditStyle;

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
  EXPECT_EQ(alpha->m_nHeight % 2, 0);
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

TEST_F(OpenEdit, OfAnItemThatTheHostDeletesMeanwhileNothingIsStored) {
  tree.answer = [&](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
    if (hook.starts_with("OnEndLabelEdit")) tree.DeleteItem(item);
    return 1;
  };
  EXPECT_EQ(tree.EndLabelEdit(), 0);
  EXPECT_EQ(tree.Text(), "root [Delta]");
  tree.log.Clear();
}

// What the box tells its parent, heard ahead of the control.
struct Notices {
  WNDPROC control = nullptr;
  int code = 0;
  std::function<void()> act;
} g_notices;

LRESULT CALLBACK Overhear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const WNDPROC control = g_notices.control;
  if (message == WM_COMMAND && lParam != 0 && HIWORD(wParam) == g_notices.code && g_notices.act) {
    const std::function<void()> act = std::exchange(g_notices.act, nullptr);
    act();
  }
  return ::CallWindowProcW(control, window, message, wParam, lParam);
}

class Notified : public testing::TestWithParam<int> {
 protected:
  void Listen(HWND window, std::function<void()> act) {
    g_notices = {nullptr, GetParam(), std::move(act)};
    g_notices.control = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Overhear)));
  }
};

TEST_P(Notified, TheHostMayEndTheEditWheneverTheBoxTellsOfItself) {
  for (const char* deed : {"end", "delete", "destroy", "edit", "empty"}) {
    SCOPED_TRACE(deed);
    InputScene scene("root [Alpha [Beta] Delta]", kStyle);
    support::TestTree& tree = scene.tree;
    tree.recording = false;
    bool done = false;
    Listen(tree, [&] {
      done = true;
      if (deed == std::string("end")) tree.EndLabelEdit();
      if (deed == std::string("delete")) tree.DeleteItem(tree["Alpha"]);
      if (deed == std::string("destroy")) tree.DestroyWindow();
      if (deed == std::string("edit")) tree.EditLabel(tree["Delta"]);
      if (deed == std::string("empty")) tree.DeleteAllItems(STI_ROOT);
    });
    tree.EditLabel(tree["Alpha"]);
    Type(L"xy");
    if (tree.m_hWnd != nullptr && tree.GetEditControl() != nullptr) Key(VK_RETURN);
    EXPECT_TRUE(done);
    if (tree.m_hWnd == nullptr) continue;
    tree.EndLabelEdit();
    EXPECT_EQ(tree.GetEditControl(), nullptr);
    EXPECT_EQ(support::CheckTree(tree), "");
    EXPECT_EQ(::GetCapture(), nullptr);
  }
}

INSTANTIATE_TEST_SUITE_P(Codes, Notified, testing::Values(EN_SETFOCUS, EN_UPDATE, EN_CHANGE, EN_KILLFOCUS));

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
