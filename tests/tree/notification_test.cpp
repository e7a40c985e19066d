// The notification of the parent window, and permissions against their rule.
#include "support/host_window.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::HostWindow;
using support::TestTree;

class Notification : public testing::Test {
 protected:
  Notification()
      : host({.handler = [this](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
          return Receive(message, wParam, lParam);
        }}) {
    const RECT rect{0, 0, 100, 100};
    EXPECT_NE(tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, rect, CWnd::FromHandle(host), 42), 0);
    tree.Build("root [a b]");
    count = 0;
  }
  ~Notification() override {
    tree.recording = false;
    tree.DestroyWindow();
  }
  std::optional<LRESULT> Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_NOTIFY) return std::nullopt;
    ++count;
    id = wParam;
    seen = *reinterpret_cast<const NMSTREE*>(lParam);
    return reply;
  }

  int count = 0;
  WPARAM id = 0;
  NMSTREE seen{};
  LRESULT reply = 0;
  HostWindow host;
  TestTree tree;
};

TEST_F(Notification, CarriesTheControlTheCodeAndTheItems) {
  EXPECT_EQ(tree.NotifyParent(0xABCD, tree["a"], tree["b"]), 1);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(id, 42u);
  EXPECT_EQ(seen.hdr.hwndFrom, tree.GetSafeHwnd());
  EXPECT_EQ(seen.hdr.idFrom, 42u);
  EXPECT_EQ(seen.hdr.code, 0xABCDu);
  EXPECT_EQ(seen.pItem1, tree["a"]);
  EXPECT_EQ(seen.pItem2, tree["b"]);
}

TEST_F(Notification, APositiveAnswerIsAVeto) {
  const std::pair<LRESULT, int> answers[] = {{0, 1}, {-1, 1}, {1, 0}, {7, 0}};
  for (const auto& [answer, result] : answers) {
    reply = answer;
    EXPECT_EQ(tree.NotifyParent(1, nullptr, nullptr), result) << answer;
  }
}

TEST_F(Notification, IsNeverSentByTheLibrary) {
  tree.SelectItem(tree["a"]);
  tree.Add("a1", tree["a"]);
  tree.Expand(tree["a"], STE_EXPAND);
  tree.SetItemText(tree["a"], L"x");
  tree.DeleteAllItems(STI_ROOT);
  tree.log.Clear();
  EXPECT_EQ(count, 0);
}

TEST(NotifyParent, OfAWindowWithoutAParentSendsNothing) {
  TestTree tree;
  ASSERT_NE(tree.CreateTreeCtrl(WS_POPUP, CRect(0, 0, 50, 50), nullptr, 0), 0);
  EXPECT_EQ(tree.NotifyParent(1, nullptr, nullptr), 1);
  tree.DestroyWindow();
}

TEST(NotificationCodes, AreTheDocumentedOnes) {
  EXPECT_EQ(STN_DRAGANDDROP, -423);
  EXPECT_EQ(STN_SELECTDROPTARGET, -424);
  EXPECT_EQ(STN_DROP, -425);
}

// --- Permissions -------------------------------------------------------------------------------------

// By the rule, step for step, on plain numbers.
int Allowed(unsigned state, unsigned parentState, unsigned permission) {
  const unsigned asked = permission & 0xFFFF0000u;
  const unsigned guarded[] = {0x10000, 0x20000, 0x40000, 0x80000, 0x200000, 0x400000};
  bool isSingle = asked == 0x100000 || asked == 0x800000;
  for (unsigned code : guarded) {
    if (asked != code) continue;
    isSingle = true;
    if (state & 0x800000) return 0;
  }
  if (asked == 0) return 1;
  if (!isSingle && (state & asked)) return 0;
  if ((state & asked) == asked) return 0;
  if (!(asked & 0x60000)) return 1;
  return parentState & 0x800000 ? 0 : 1;
}

TEST(IsAllow, FollowsItsRuleForEveryCodeAndCombination) {
  TestTree tree;
  tree.Build("root [p [i]]");
  for (unsigned parentState : {0u, unsigned{STIS_NOMODIFY}, unsigned{STIS_NODRAG}}) {
    tree.SetItemState(tree["p"], parentState);
    for (unsigned state = 0; state < 256; ++state) {
      tree.SetItemState(tree["i"], state << 16);
      for (unsigned asked = 0; asked < 256; ++asked) {
        ASSERT_EQ(tree.IsAllow(tree["i"], asked << 16 | 0x1234),
                  Allowed(state << 16, parentState, asked << 16))
            << std::hex << state << " " << parentState << " " << asked;
      }
    }
  }
}

TEST(IsAllow, AsksTheRootLikeAnyOther) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.CanDeleteItem(tree.GetRootItem()), 1);
  tree.ModifyItemState(tree.GetRootItem(), 0, STIS_NOMODIFY);
  EXPECT_EQ(tree.CanDeleteItem(tree.GetRootItem()), 0);
  EXPECT_EQ(tree.CanDragItem(tree["a"]), 0) << "and it is a parent like any other";
  EXPECT_EQ(tree.CanDeleteItem(tree["a"]), 1);
  EXPECT_EQ(tree.IsAllow(STI_ROOT, STIS_NODELETE), 1);
}

TEST(Hooks, AllButOneAgreeByDefault) {
  CVornTreeCtrl tree;
  CVornTreeItem* const item = tree.InsertItem(L"x", -1, -1);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.OnSelChanging(item, item), 1);
  EXPECT_EQ(tree.OnSelChanged(item, item), 1);
  EXPECT_EQ(tree.OnMultiSelChanging(item, item), 1);
  EXPECT_EQ(tree.OnMultiSelChanged(item, item), 1);
  EXPECT_EQ(tree.OnItemIconClic(item, 0), 1);
  EXPECT_EQ(tree.OnItemExpanding(item), 1);
  EXPECT_EQ(tree.OnItemExpanded(item), 1);
  EXPECT_EQ(tree.OnItemDblClk(item), 1);
  EXPECT_EQ(tree.OnBeginDrag(item, CPoint()), 1);
  EXPECT_EQ(tree.OnDragOver(item), 1);
  EXPECT_EQ(tree.OnBeginDrop(items, item, 0, 0), 1);
  EXPECT_EQ(tree.OnDrop(item, item), 1);
  EXPECT_EQ(tree.OnEndDrop(), 1);
  tree.OnDeleteItem(item);
  EXPECT_EQ(tree.OnBeginLabelEdit(item), 1);
  EXPECT_EQ(tree.OnEndLabelEdit(item, L""), 1);
  EXPECT_EQ(tree.OnChecking(item), 1);
  EXPECT_EQ(tree.OnChecked(item), 1);
  EXPECT_EQ(tree.OnClearSelection(item), 1);
  EXPECT_EQ(tree.OnChangeActiveDoc(item, item), 1);
  EXPECT_EQ(tree.OnDragAndDropFromTreeCtrl(0, nullptr), 1);
  EXPECT_EQ(tree.OnSelectDropTargetFromTreeCtrl(nullptr), 0);
  EXPECT_EQ(tree.OnDropFromTreeCtrl(nullptr), 1);
  EXPECT_EQ(tree.GetCount(), 1u);
  EXPECT_FALSE(tree.IsItemSelected(item));
}

TEST(OnClearSelection, ByDefaultClearsEveryDocumentWhenAskedTo) {
  TestTree tree;
  tree.EnableMultipleSelection(1);
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a*] d2+ [b*]]");
  EXPECT_EQ(tree.CVornTreeCtrl::OnClearSelection(nullptr), 1);
  EXPECT_EQ(tree.Selected(), "a b") << "not without its bit";
  tree.ModifySelectionType(0, STST_CLEARALLDOCS);
  EXPECT_EQ(tree.CVornTreeCtrl::OnClearSelection(nullptr), 1);
  EXPECT_EQ(tree.Selected(), "");
  tree.ModifySelectionType(STST_BYDOCUMENTS, 0);
  tree.SelectItem(tree["a"]);
  EXPECT_EQ(tree.CVornTreeCtrl::OnClearSelection(nullptr), 1);
  EXPECT_EQ(tree.Selected(), "a") << "only a selection by documents has documents to clear";
  tree.log.Clear();
}

}  // namespace
