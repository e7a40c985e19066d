// What a removal and a move do step by step, as hooks can see it.
#include "support/driver.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"
#include "tree/tree_access.h"

namespace {

using support::CheckTree;
using support::TestTree;

class RemovalSteps : public testing::Test {
 protected:
  ~RemovalSteps() override {
    tree.answer = nullptr;
    tree.log.Clear();
    tree.recording = false;
    if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
  }
  void Show() {
    ASSERT_NE(tree.CreateTreeCtrl(WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 120), nullptr, 0), 0);
    support::Pump();
  }
  void InOnDeleteItem(std::function<void(CVornTreeItem*)> look) {
    tree.answer = [this, look](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
      if (hook == "OnDeleteItem") {
        ++calls;
        look(item);
      }
      return 1;
    };
  }
  int calls = 0;
  TestTree tree;
};

// --- DeleteItem --------------------------------------------------------------------------------------

TEST_F(RemovalSteps, TheHookFindsTheItemLinkedAndItsSubtreeUnselected) {
  tree.EnableMultipleSelection(1);
  tree.Build("root [a+* [b* [c*]] d*]");
  InOnDeleteItem([this](CVornTreeItem* item) {
    EXPECT_EQ(item, tree["a"]);
    EXPECT_EQ(tree.Text(), "root [a+ [b [c]] d*@]");
    CVornTreeItemArray items;
    tree.GetCurrentSelection(items);
    EXPECT_EQ(items.GetSize(), 1);
    EXPECT_EQ(VornTreeAccess::RedrawLock(tree), 1);
  });
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(VornTreeAccess::RedrawLock(tree), 0);
  EXPECT_TRUE(VornTreeAccess::NeedLayout(tree)) << "without a window the layout waits";
}

TEST_F(RemovalSteps, TheDisplayListIsForgottenBeforeTheHook) {
  Show();
  tree.Build("root [a b]");
  tree.UpdateTree();
  ASSERT_EQ(tree.GetFirstDisplayItem(), tree["a"]);
  InOnDeleteItem([this](CVornTreeItem*) {
    EXPECT_EQ(tree.GetFirstDisplayItem(), nullptr);
    EXPECT_EQ(tree.GetLastDisplayItem(), nullptr);
  });
  tree.DeleteItem(tree["b"]);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(tree.GetFirstDisplayItem(), tree["a"]) << "and made anew by the paint at the end";
  EXPECT_EQ(tree.GetDisplayCount(), 1);
  EXPECT_FALSE(VornTreeAccess::NeedLayout(tree));
}

TEST_F(RemovalSteps, FocusAndAnchorLeaveWithTheItem) {
  tree.Build("root [a+ [b*] c]");
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]);
  InOnDeleteItem([this](CVornTreeItem*) {
    EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
    EXPECT_EQ(tree.GetLastSelectedItem(), nullptr);
  });
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(calls, 1);
}

TEST_F(RemovalSteps, ADocumentThatIsNotActiveIsActivatedToGo) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a] d2+ [b]]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  tree.DeleteItem(tree["d2"]);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnDeleteItem d2");
  EXPECT_EQ(tree.GetActiveDocItem(), nullptr);
}

TEST_F(RemovalSteps, ADocumentWhoseActivationIsRefusedGoesAllTheSame) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a] d2+ [b]]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    return hook == "OnChangeActiveDoc" ? 0 : 1;
  };
  EXPECT_EQ(tree.DeleteItem(tree["d2"]), 1);
  EXPECT_LOG(tree.log, "OnChangeActiveDoc d1 d2\nOnDeleteItem d2");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
}

TEST_F(RemovalSteps, AnItemBelowADocumentChangesNoActivity) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a] d2+ [b]]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  tree.DeleteItem(tree["b"]);
  EXPECT_LOG(tree.log, "OnDeleteItem b");
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
}

TEST_F(RemovalSteps, OfAHiddenOrClosedSubtreeKeepTheRows) {
  tree.Build("root [a+ [b [c] d! [e]] f]");
  tree.DeleteItem(tree["b"]);
  EXPECT_EQ(tree.Rows(), "a f");
  EXPECT_EQ(tree.GetVisibleCount(), 2);
  tree.DeleteItem(tree["d"]);
  EXPECT_EQ(tree.Rows(), "a f");
  EXPECT_EQ(tree.GetVisibleCount(), 2);
  EXPECT_EQ(CheckTree(tree), "");
}

// --- The whole tree ----------------------------------------------------------------------------------

TEST_F(RemovalSteps, TheRootByItsPointerIsTheTreeBySentinel) {
  tree.Build("root [a+ [b*] c]");
  InOnDeleteItem([this](CVornTreeItem* item) {
    EXPECT_EQ(item, STI_ROOT);
    EXPECT_EQ(tree.Selected(), calls == 1 ? "b" : "") << "the selection is still there the first time";
  });
  EXPECT_EQ(tree.DeleteItem(tree.GetRootItem()), 1);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_EQ(tree.GetVisibleCount(), 0);
  EXPECT_EQ(tree.DeleteAllItems(tree.GetRootItem()), 1);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(tree.DeleteItem(STI_ROOT), 0) << "the sentinel is no item";
  EXPECT_EQ(calls, 2);
}

TEST_F(RemovalSteps, EmptyingTheTreeTellsTheManagerOfTheActiveDocument) {
  tree.EnableSelectionByDocuments(1);
  tree.Build("root [d1+ [a*] d2]");
  EXPECT_EQ(tree.DeleteItem(tree.GetRootItem()), 1);
  EXPECT_LOG(tree.log, "OnDeleteItem root");
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
  tree.Build("root [d3+ [c]]");
  EXPECT_EQ(tree.SelectItem(tree["c"]), 1);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d3"]);
}

TEST_F(RemovalSteps, EmptyingAnItemKeepsItAndItsState) {
  tree.Build("root [a+* [b c] d]");
  tree.ModifyItemState(tree["a"], 0, STIS_HASCHILDREN);
  EXPECT_EQ(tree.DeleteAllItems(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [a+*@# d]");
  EXPECT_EQ(tree.GetChildCount(tree["a"]), 0u);
  EXPECT_EQ(CheckTree(tree), "");
  tree.log.Clear();
  EXPECT_EQ(tree.DeleteAllItems(tree["d"]), 1);
  EXPECT_LOG(tree.log, "OnDeleteItem d");
}

TEST_F(RemovalSteps, ASiblingThatIsAShortcutOfOneThatGoesBreaksNoWalk) {
  for (const char* order : {"root [p [t] q]", "root [p [x t y] q]"}) {
    tree.DeleteAllItems(STI_ROOT);
    tree.Build(order);
    for (int i = 0; i < 4; ++i) {
      tree.CreateShortcut(tree["t"], tree["p"], i % 2 == 0 ? STI_FIRST : STI_LAST);
    }
    tree.CreateShortcut(tree["p"], tree["t"], STI_FIRST);
    EXPECT_EQ(tree.DeleteAllItems(tree["p"]), 1);
    EXPECT_EQ(tree.GetChildCount(tree["p"]), 0u);
    EXPECT_EQ(CheckTree(tree), "");
  }
}

// --- MoveItem ------------------------------------------------------------------------------------------

TEST_F(RemovalSteps, AMoveTakesFirstLastOrBehind) {
  tree.Build("root [a [a1 a2] b c]");
  EXPECT_EQ(tree.MoveItem(tree["a"], tree["c"], STI_FIRST), 1);
  EXPECT_EQ(tree.Text(), "root [a [c a1 a2] b]");
  EXPECT_EQ(tree.MoveItem(tree["a"], tree["b"], tree["a1"]), 1);
  EXPECT_EQ(tree.Text(), "root [a [c a1 b a2]]");
  EXPECT_EQ(tree.MoveItem(STI_ROOT, tree["a1"], tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [a [c b a2] a1]");
  EXPECT_EQ(tree.MoveItem(tree["a"], tree["c"], STI_LAST), 1);
  EXPECT_EQ(tree.Text(), "root [a [b a2 c] a1]");
  EXPECT_EQ(CheckTree(tree), "");
  EXPECT_LOG(tree.log, "");
}

TEST_F(RemovalSteps, AMoveTakesTheCountsAlong) {
  tree.Build("root [a+ [b+ [x y z!] c] d+ [e]]");
  tree.MoveItem(tree["d"], tree["b"], STI_FIRST);
  EXPECT_EQ(tree.Rows(), "a c d b x y e");
  EXPECT_EQ(tree.GetVisibleChildCount(tree["d"]), 4u);
  EXPECT_EQ(tree.GetChildCount(tree["d"]), 5u);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(RemovalSteps, AMoveUnderAClosedParentTakesTheRowsOffTheScreen) {
  tree.Build("root [a+ [b+ [x]] d [e]]");
  tree.MoveItem(tree["d"], tree["b"], STI_LAST);
  EXPECT_EQ(tree.Rows(), "a d");
  EXPECT_EQ(tree.GetVisibleCount(), 2);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(RemovalSteps, AMoveRepaintsAllAndLeavesTheDisplayListAsItWas) {
  Show();
  tree.Build("root [a b c]");
  tree.UpdateTree();
  CVornTreeItem* const first = tree.GetFirstDisplayItem();
  VornTreeAccess::NeedLayout(tree) = FALSE;
  ::ValidateRect(tree, nullptr);
  EXPECT_EQ(tree.MoveItem(STI_ROOT, tree["a"], STI_LAST), 1);
  CRect dirty, client;
  EXPECT_TRUE(::GetUpdateRect(tree, dirty, FALSE));
  tree.GetClientRect(client);
  EXPECT_EQ(dirty, client);
  EXPECT_EQ(tree.GetFirstDisplayItem(), first);
  EXPECT_FALSE(VornTreeAccess::NeedLayout(tree));
  support::Pump();
  EXPECT_EQ(tree.GetFirstDisplayItem(), tree["b"]) << "the next layout mends it";
}

// --- SetItemFamily -------------------------------------------------------------------------------------

class Family : public RemovalSteps {
 protected:
  // An item that has no place: it fell out of a sort.
  CVornTreeItem* Loose() {
    CVornTreeItem* const keeper = tree.Add("keeper");
    tree.Add("first", keeper);
    CVornTreeItem* const item = tree.Add("loose", keeper);
    STSORTCB sort{keeper, [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
    tree.SortChildren(&sort);
    EXPECT_EQ(tree.GetParentItem(item), nullptr);
    return item;
  }
};

TEST_F(Family, PlacesWhatHasNoPlace) {
  tree.Build("root [a [b c]]");
  CVornTreeItem* const item = Loose();
  EXPECT_EQ(tree.SetItemFamily(item, tree["a"], tree["b"]), item);
  EXPECT_EQ(tree.Text(), "root [a [b loose c] keeper [first]]");
  CVornTreeItem* const second = Loose();
  EXPECT_EQ(tree.SetItemFamily(second, STI_ROOT, STI_FIRST), second);
  EXPECT_EQ(tree.GetChildItem(STI_ROOT), second);
  CVornTreeItem* const third = Loose();
  EXPECT_EQ(tree.SetItemFamily(third, nullptr, nullptr), third) << "no parent means the root here";
  EXPECT_EQ(tree.GetLastChildItem(tree.GetRootItem()), third);
  EXPECT_EQ(CheckTree(tree, false), "");
}

TEST_F(Family, DeletesWhatGetsABadPlace) {
  tree.Build("root [a [b] c]");
  CVornTreeItem* const item = Loose();
  EXPECT_EQ(tree.SetItemFamily(item, tree["c"], tree["b"]), nullptr);
  EXPECT_STREQ(tree.GetItemText(item), tree.GetItemText(STI_FIRST)) << "it is no item any more";
  EXPECT_EQ(tree.SetItemFamily(nullptr, tree["c"], tree["b"]), nullptr);
}

TEST_F(Family, RefusesTheRootAndWhatHasAPlace) {
  tree.Build("root [a [b] c]");
  EXPECT_EQ(tree.SetItemFamily(tree["b"], tree["c"], STI_LAST), nullptr);
  EXPECT_EQ(tree.SetItemFamily(tree["b"], tree["c"], tree["b"]), nullptr);
  EXPECT_EQ(tree.SetItemFamily(tree.GetRootItem(), tree["c"], tree["b"]), nullptr);
  EXPECT_EQ(tree.SetItemFamily(tree.GetRootItem(), tree["c"], STI_LAST), nullptr);
  EXPECT_EQ(tree.Text(), "root [a [b] c]");
  CVornTreeItem* const item = Loose();
  CVornTreeItem* const below = tree.Add("below", item);
  EXPECT_EQ(tree.SetItemFamily(item, below, STI_LAST), nullptr) << "there is no place below itself";
  EXPECT_EQ(tree.GetParentItem(below), item);
  EXPECT_EQ(CheckTree(tree, false), "");
}

}  // namespace
