// The selection manager: what clicks, keys and host calls do, in an object that has no window.
#include <functional>
#include <utility>
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

// A press and a release on a row, with keys forced.
void Click(TestTree& tree, const std::string& label, int ctrl = 0, int shift = 0) {
  CVornTreeSelection* const manager = tree.GetSelectionManager();
  const CVornSelectionGuard keys(manager, ctrl, shift);
  manager->OnLButtonDown(tree[label]);
  if (tree.GetSelectionManager() == manager) manager->OnLButtonUp(tree[label]);
}

void KeyTo(TestTree& tree, const std::string& label, int ctrl = 0, int shift = 0) {
  CVornTreeSelection* const manager = tree.GetSelectionManager();
  const CVornSelectionGuard keys(manager, ctrl, shift);
  manager->OnKeyDown(tree[label], VK_DOWN);
}

long SelectedCount(TestTree& tree) {
  CVornTreeItemArray items;
  tree.GetCurrentSelection(items);
  return items.GetSize();
}

// Answers 0 to one hook.
TestTree::Answer Refuse(const std::string& refused) {
  return
      [refused](const std::string& hook, CVornTreeItem*, CVornTreeItem*) { return hook == refused ? 0 : 1; };
}

// --- Types -----------------------------------------------------------------------------------------

TEST(SelectionType, StartsSingleAndIsModifiedByBits) {
  TestTree tree;
  EXPECT_EQ(tree.GetSelectionType(), unsigned{STST_SINGLE});
  EXPECT_TRUE(tree.IsSingleSelection());
  tree.EnableMultipleSelection(1);
  EXPECT_EQ(tree.GetSelectionType(), unsigned{STST_MULTIPLE});
  tree.EnableMultipleSelection(2);
  EXPECT_EQ(tree.GetSelectionType(), unsigned{STST_SINGLE}) << "exactly 1 turns on";
  tree.EnableClearSelectionWithEmptyArea(1);
  EXPECT_TRUE(tree.IsClearSelectionWithEmptyArea());
  EXPECT_EQ(tree.ModifySelectionType(STST_CLEARONEMPTY, STST_ENSUREVISIBLE),
            unsigned{STST_SINGLE | STST_CLEARONEMPTY});
  EXPECT_FALSE(tree.IsSelectionByDocuments());
}

TEST(SelectionType, OnlyByDocumentsChangesTheManager) {
  TestTree tree;
  CVornTreeSelection* const plain = tree.GetSelectionManager();
  tree.EnableMultipleSelection(1);
  EXPECT_EQ(tree.GetSelectionManager(), plain);
  tree.EnableSelectionByDocuments(1);
  EXPECT_TRUE(tree.GetSelectionManager()->IsKindOf(RUNTIME_CLASS(CVornTreeMultiSelection)));
  tree.EnableSelectionByDocuments(0);
  EXPECT_FALSE(tree.GetSelectionManager()->IsKindOf(RUNTIME_CLASS(CVornTreeMultiSelection)));
}

TEST(SelectionType, ANewManagerTakesUpTheSelectedItems) {
  TestTree tree;
  tree.Build("root [d1+ [a* b*] d2+ [c]]");
  tree.EnableSelectionByDocuments(1);
  EXPECT_EQ(tree.GetActiveDocItem(), tree["d1"]);
  EXPECT_EQ(SelectedCount(tree), 2);
  tree.ModifySelectionType(STST_BYDOCUMENTS, 0);
  EXPECT_EQ(SelectedCount(tree), 2);
  EXPECT_EQ(tree.Selected(), "a b");
  tree.log.Clear();
}

// --- Host calls ------------------------------------------------------------------------------------

TEST(SelectItem, KeepsOrReplacesTheOthers) {
  TestTree tree;
  tree.Build("root [a b c]");
  tree.SelectItem(tree["a"]);
  tree.SelectItem(tree["b"], 1);
  EXPECT_EQ(tree.Selected(), "a b");
  tree.SelectItem(tree["c"]);
  EXPECT_EQ(tree.Selected(), "c");
  EXPECT_EQ(tree.GetSelectedItem(), tree["c"]);
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["c"]);
  EXPECT_LOG(tree.log, R"(
    OnSelChanging - a
    OnClearSelection -
    OnSelChanged - a
    OnSelChanging a b
    OnSelChanged a b
    OnSelChanging b c
    OnClearSelection -
    OnSelChanged b c)");
}

TEST(SelectItem, DeniedMovesTheAnchorAllTheSame) {
  TestTree tree;
  tree.Build("root [a b]");
  tree.SelectItem(tree["a"]);
  tree.log.Clear();
  tree.ModifyItemState(tree["b"], 0, STIS_NOSELECT);
  EXPECT_EQ(tree.GetSelectionManager()->SelectItem(tree["b"], 0), 0);
  EXPECT_EQ(tree.Selected(), "a");
  EXPECT_EQ(tree.GetSelectedItem(), tree["b"]);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]);
}

TEST(SelectItem, VetoedKeepsTheSelectionAndMovesTheFocus) {
  TestTree tree;
  tree.Build("root [a* b]");
  tree.answer = Refuse("OnSelChanging");
  EXPECT_EQ(tree.SelectItem(tree["b"]), 1) << "the control's own call always succeeds for an item";
  EXPECT_LOG(tree.log, "OnSelChanging a b");
  EXPECT_EQ(tree.Selected(), "a");
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]);
}

TEST(SelectItem, OfAHiddenDocumentClaimsSuccess) {
  TestTree tree;
  tree.Build("root [d1+ [a*] d2+! [b]]");
  EXPECT_EQ(tree.SelectItem(tree["b"]), 1);
  EXPECT_EQ(tree.Selected(), "a");
  EXPECT_EQ(tree.SelectItem(nullptr), 0);
}

TEST(UnselectItem, TellsWithoutAskingAndReturnsNothing) {
  TestTree tree;
  tree.Build("root [a* b]");
  EXPECT_EQ(tree.UnselectItem(tree["a"]), 0);
  EXPECT_LOG(tree.log, "OnSelChanged a -");
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
}

TEST(Select, ActsByCode) {
  TestTree tree;
  tree.Build("root [a b]");
  EXPECT_EQ(tree.Select(tree["a"], STSEL_SELECT), 0);
  EXPECT_EQ(tree.Selected(), "a");
  EXPECT_EQ(tree.Select(tree["b"], STSEL_ADD), 0);
  EXPECT_EQ(tree.Selected(), "a b") << "adds in a single-selection tree";
  EXPECT_EQ(tree.Select(tree["a"], STSEL_UNSELECT), 0);
  EXPECT_EQ(tree.Selected(), "b");
  EXPECT_EQ(tree.Select(tree["a"], STSEL_FIRSTVISIBLE), 1);
  for (unsigned code : {0u, 4u, 6u, 7u, 10u, 15u}) EXPECT_EQ(tree.Select(tree["a"], code), 0);
  EXPECT_EQ(tree.Select(tree["a"], STSEL_SELECTFIRSTVISIBLE), 1);
  EXPECT_EQ(tree.Select(nullptr, STSEL_SELECTFIRSTVISIBLE), 0);
  EXPECT_EQ(tree.Selected(), "a");
  tree.log.Clear();
}

TEST(Select, UnselectsShortcutsToo) {
  TestTree tree;
  tree.Build("root [a]");
  CVornTreeItem* const shortcut = tree.CreateShortcut(tree["a"], STI_ROOT, STI_LAST);
  tree.SelectItem(tree["a"]);
  tree.SelectItem(shortcut, 1);
  EXPECT_EQ(SelectedCount(tree), 2);
  tree.Select(tree["a"], STSEL_UNSELECTWITHSHORTCUTS);
  EXPECT_EQ(SelectedCount(tree), 0);
  tree.log.Clear();
}

TEST(ClearSelection, CanBeVetoedAndResetsTheAnchor) {
  TestTree tree;
  tree.Build("root [a* b*]");
  tree.answer = Refuse("OnClearSelection");
  tree.ClearSelection(tree["b"]);
  EXPECT_EQ(tree.Selected(), "a b");
  tree.answer = nullptr;
  tree.ClearSelection(STI_ROOT);
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_LOG(tree.log, "OnClearSelection b\nOnClearSelection root");
}

TEST(ClearSelection, OfAnEmptySelectionKeepsTheAnchor) {
  TestTree tree;
  tree.Build("root [a]");
  tree.ModifyItemState(tree["a"], 0, STIS_NOSELECT);
  tree.SelectItem(tree["a"]);
  tree.ClearSelection(nullptr);
  EXPECT_EQ(tree.GetSelectedItem(), tree["a"]);
  tree.log.Clear();
}

TEST(GetCurrentSelection, SharesTheManagersList) {
  TestTree tree;
  tree.Build("root [a* b]");
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 1);
  tree.SelectItem(tree["b"], 1);
  EXPECT_EQ(items.GetSize(), 2) << "later changes show";
  tree.ClearSelection(nullptr);
  EXPECT_EQ(tree.GetCurrentSelection(items), 0);
  EXPECT_EQ(items.GetSize(), 0);
  tree.log.Clear();
}

TEST(Selection, OfADeletedItemIsNull) {
  TestTree tree;
  tree.Build("root [a*]");
  tree.DeleteItem(tree["a"]);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
  tree.log.Clear();
}

// --- Clicks ----------------------------------------------------------------------------------------

TEST(Click, SelectsOneAndTellsTheOldAnchor) {
  TestTree tree;
  tree.Build("root [a b]");
  Click(tree, "a");
  Click(tree, "b");
  EXPECT_EQ(tree.Text(), "root [a b*@]");
  EXPECT_LOG(tree.log, R"(
    OnClearSelection a
    OnSelChanging - a
    OnSelChanged - a
    OnClearSelection b
    OnSelChanging a b
    OnSelChanged a b)");
}

TEST(Click, RefusedLeavesNothingSelectedAndTheFocusMoved) {
  TestTree tree;
  tree.Build("root [a* b]");
  tree.answer = Refuse("OnSelChanging");
  Click(tree, "b");
  EXPECT_LOG(tree.log, "OnClearSelection b\nOnSelChanging a b");
  EXPECT_EQ(tree.Text(), "root [a b@]");
}

TEST(Click, OnADeniedItemRunsTheHooksAndSelectsNothing) {
  TestTree tree;
  tree.Build("root [a* b]");
  tree.ModifyItemState(tree["b"], 0, STIS_NOSELECT);
  Click(tree, "b");
  EXPECT_LOG(tree.log, "OnClearSelection b\nOnSelChanging a b\nOnSelChanged a b");
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(tree.GetSelectedItem(), tree["b"]);
}

TEST(CtrlClick, AddsAndTakesOut) {
  TestTree tree;
  tree.Build("root [a b]");
  Click(tree, "a");
  Click(tree, "b", 1);
  EXPECT_EQ(tree.Selected(), "a b");
  tree.log.Clear();
  Click(tree, "a", 1);
  EXPECT_EQ(tree.Selected(), "b");
  EXPECT_LOG(tree.log, "OnSelChanging b a\nOnSelChanged b a");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["b"]);
}

TEST(CtrlClick, OnTheAnchorLeavesNone) {
  TestTree tree;
  tree.Build("root [a b]");
  Click(tree, "a");
  Click(tree, "b", 1);
  Click(tree, "b", 1);
  EXPECT_EQ(tree.Selected(), "a");
  EXPECT_EQ(tree.GetLastSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["b"]);
  tree.log.Clear();
}

TEST(CtrlClick, DeniedOrVetoedMovesTheFocusOnly) {
  TestTree tree;
  tree.Build("root [a* b]");
  tree.ModifyItemState(tree["b"], 0, STIS_NOSELECT);
  Click(tree, "b", 1);
  EXPECT_EQ(tree.Text(), "root [a* b@]") << "no hook is asked for a denied item";
}

TEST(ShiftClick, WithoutAnAnchorIsAPlainClick) {
  TestTree tree;
  tree.Build("root [a b c]");
  Click(tree, "b", 0, 1);
  EXPECT_EQ(tree.Selected(), "b");
  EXPECT_LOG(tree.log, "OnClearSelection b\nOnSelChanging - b\nOnSelChanged - b");
}

TEST(ShiftClick, SelectsTheRowsFromTheAnchorThatStays) {
  TestTree tree;
  tree.Build("root [a b c d]");
  Click(tree, "b");
  tree.log.Clear();
  Click(tree, "d", 0, 1);
  EXPECT_EQ(tree.Selected(), "b c d");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["b"]);
  EXPECT_EQ(tree.GetItemHasFocus(), tree["d"]);
  EXPECT_LOG(tree.log, R"(
    OnMultiSelChanging b d
    OnClearSelection d
    OnSelChanging - b
    OnSelChanged - b
    OnSelChanging - c
    OnSelChanged - c
    OnSelChanging - d
    OnSelChanged - d
    OnMultiSelChanged b d)");
  Click(tree, "a", 0, 1);
  EXPECT_EQ(tree.Selected(), "a b");
  tree.log.Clear();
}

TEST(ShiftClick, VetoedKeepsTheSelection) {
  TestTree tree;
  tree.Build("root [a* b c]");
  tree.answer = Refuse("OnMultiSelChanging");
  Click(tree, "c", 0, 1);
  EXPECT_LOG(tree.log, "OnMultiSelChanging a c");
  EXPECT_EQ(tree.Text(), "root [a* b c@]");
}

TEST(ShiftClick, LeavesOutFoldedHiddenDeniedAndVetoedRows) {
  TestTree tree;
  tree.Build("root [a b [x y] c! d e f]");
  tree.ModifyItemState(tree["d"], 0, STIS_NOSELECT);
  Click(tree, "a");
  tree.log.Clear();
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem* item) {
    return hook == "OnSelChanging" && item == tree["e"] ? 0 : 1;
  };
  Click(tree, "f", 0, 1);
  EXPECT_EQ(tree.Selected(), "a b f");
  tree.log.Clear();
}

TEST(CtrlShiftClick, AddsToTheSavedSelection) {
  TestTree tree;
  tree.Build("root [a b c d e]");
  Click(tree, "a");
  Click(tree, "c", 1);
  EXPECT_EQ(tree.Selected(), "a c");
  Click(tree, "d", 1, 1);
  EXPECT_EQ(tree.Selected(), "a c d");
  Click(tree, "e", 1, 1);
  EXPECT_EQ(tree.Selected(), "a c d e");
  Click(tree, "d", 1, 1);
  EXPECT_EQ(tree.Selected(), "a c d") << "each range starts from what was saved";
  tree.log.Clear();
}

TEST(RightClick, KeepsASelectedItemsCompanyAndReplacesOtherwise) {
  TestTree tree;
  tree.Build("root [a* b* c]");
  CVornTreeSelection* const manager = tree.GetSelectionManager();
  EXPECT_EQ(manager->OnRButtonDown(tree["a"]), 1);
  EXPECT_EQ(tree.Selected(), "a b");
  EXPECT_EQ(SelectedCount(tree), 2);
  EXPECT_EQ(manager->OnRButtonDown(tree["c"]), 1);
  EXPECT_EQ(tree.Selected(), "c");
  EXPECT_EQ(manager->OnRButtonUp(tree["c"]), 1);
  tree.log.Clear();
}

TEST(RightClick, OnADeniedItemListsItWithoutTheFlag) {
  TestTree tree;
  tree.Build("root [a]");
  tree.ModifyItemState(tree["a"], 0, STIS_NOSELECT);
  EXPECT_EQ(tree.GetSelectionManager()->OnRButtonDown(tree["a"]), 1);
  EXPECT_EQ(tree.Selected(), "");
  EXPECT_EQ(SelectedCount(tree), 1) << "meant";
  tree.log.Clear();
}

TEST(RightClick, VetoedMovesTheFocus) {
  TestTree tree;
  tree.Build("root [a* b]");
  tree.answer = Refuse("OnSelChanging");
  EXPECT_EQ(tree.GetSelectionManager()->OnRButtonDown(tree["b"]), 0);
  EXPECT_LOG(tree.log, "OnSelChanging a b");
  EXPECT_EQ(tree.Text(), "root [a* b@]");
}

// --- Keys ------------------------------------------------------------------------------------------

TEST(Key, MovesTheSelection) {
  TestTree tree;
  tree.Build("root [a* b]");
  KeyTo(tree, "b");
  EXPECT_EQ(tree.Text(), "root [a b*@]");
  EXPECT_LOG(tree.log, "OnSelChanging a b\nOnClearSelection b\nOnSelChanged a b");
  EXPECT_EQ(tree.GetSelectionManager()->OnKeyDown(nullptr, VK_DOWN), 0);
}

TEST(Key, WithCtrlActsLikeWithout) {
  TestTree tree;
  tree.Build("root [a* b]");
  KeyTo(tree, "b", 1);
  EXPECT_EQ(tree.Selected(), "b");
  tree.log.Clear();
}

TEST(Key, VetoedKeepsTheSelectionUnlikeAClick) {
  TestTree tree;
  tree.Build("root [a* b]");
  tree.answer = Refuse("OnSelChanging");
  KeyTo(tree, "b");
  EXPECT_LOG(tree.log, "OnSelChanging a b");
  EXPECT_EQ(tree.Text(), "root [a* b@]");
}

TEST(Key, WithShiftExtendsFromTheAnchorAndWithCtrlKeepsWhatIsSelected) {
  TestTree tree;
  tree.Build("root [a b c d]");
  Click(tree, "a");
  KeyTo(tree, "b", 0, 1);
  KeyTo(tree, "c", 0, 1);
  EXPECT_EQ(tree.Selected(), "a b c");
  KeyTo(tree, "b", 0, 1);
  EXPECT_EQ(tree.Selected(), "a b");
  KeyTo(tree, "d", 1, 1);
  EXPECT_EQ(tree.Selected(), "a b c d");
  KeyTo(tree, "b", 1, 1);
  EXPECT_EQ(tree.Selected(), "a b c d");
  EXPECT_EQ(tree.GetLastSelectedItem(), tree["a"]);
  tree.log.Clear();
}

TEST(Modifiers, OfTheKeyboardCountInMultipleSelectionOnly) {
  TestTree tree;
  tree.Build("root [a* b]");
  Click(tree, "b", 0, 0);
  EXPECT_EQ(tree.Selected(), "b");
  const CVornSelectionGuard keys(tree.GetSelectionManager(), 1, 0);
  tree.GetSelectionManager()->OnLButtonDown(tree["a"]);
  EXPECT_EQ(tree.Selected(), "a b") << "forcing counts in single selection, too";
  tree.log.Clear();
}

TEST(SelectionGuard, RestoresAndToleratesNull) {
  TestTree tree;
  CVornTreeSelection* const manager = tree.GetSelectionManager();
  {
    const CVornSelectionGuard outer(manager, 0, 1);
    const CVornSelectionGuard inner(manager, 1, 0);
    const CVornSelectionGuard none(nullptr, 1, 1);
    EXPECT_EQ(manager->GetForceShift(), 0);
  }
  EXPECT_EQ(manager->GetForceShift(), 0);
  EXPECT_EQ(manager->SetForceCtrl(1), 0);
  EXPECT_EQ(manager->SetForceCtrl(0), 1);
}

TEST(UpdateSelection, ForcesByFlagsAndTakesUpAndForgets) {
  TestTree tree;
  tree.Build("root [a b]");
  tree.UpdateSelection(nullptr, STUS_SHIFTON);
  EXPECT_EQ(tree.GetSelectionManager()->GetForceShift(), 1);
  tree.UpdateSelection(nullptr, STUS_SHIFTON | STUS_SHIFTOFF);
  EXPECT_EQ(tree.GetSelectionManager()->GetForceShift(), 1) << "on before off";
  tree.UpdateSelection(nullptr, STUS_SHIFTOFF);
  EXPECT_EQ(tree.GetSelectionManager()->GetForceShift(), 0);
  tree.ModifyItemState(tree["a"], 0, STIS_SELECTED);
  EXPECT_EQ(SelectedCount(tree), 0);
  tree.UpdateSelection(tree["a"], STUS_ITEMADDED);
  EXPECT_EQ(SelectedCount(tree), 1);
  tree.UpdateSelection(tree["a"], STUS_ITEMREMOVED);
  EXPECT_EQ(SelectedCount(tree), 0);
  EXPECT_EQ(tree.Selected(), "");
}

TEST(GetDraggableItems, TakesTheTopmostOfEachBranch) {
  TestTree tree;
  tree.EnableMultipleSelection(1);
  tree.Build("root [a+* [a1*] b+ [b1* b2*] c*]");
  tree.ModifyItemState(tree["c"], 0, STIS_NODRAG);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetSelectionManager()->GetDraggableItems(STI_ROOT, items), 1);
  ASSERT_EQ(items.GetSize(), 3);
  EXPECT_EQ(items[0], tree["a"]);
  EXPECT_EQ(items[1], tree["b1"]);
  EXPECT_EQ(items[2], tree["b2"]);
  EXPECT_EQ(tree.GetSelectionManager()->GetDraggableItems(nullptr, items), 0);
}

TEST(GetFirstInOrder, TellsWhichComesHigher) {
  TestTree tree, other;
  tree.Build("root [a [a1 a2] b]");
  other.Build("root [x]");
  const auto first = [&](CVornTreeItem* a, CVornTreeItem* b) {
    return CVornTreeSelection::GetFirstInOrder(a, b);
  };
  EXPECT_EQ(first(tree["b"], tree["a2"]), tree["a2"]);
  EXPECT_EQ(first(tree["a1"], tree["a2"]), tree["a1"]);
  EXPECT_EQ(first(tree["a2"], tree["a"]), tree["a"]);
  EXPECT_EQ(first(tree["a"], tree["a"]), nullptr);
  EXPECT_EQ(first(tree["a"], nullptr), nullptr);
  EXPECT_EQ(first(tree["a"], other["x"]), nullptr);
}

// --- Hooks that do as they like ----------------------------------------------------------------------

using Deed = std::function<void(TestTree&, CVornTreeItem*)>;

struct NamedDeed {
  const char* name;
  Deed deed;
};

const std::vector<NamedDeed>& Deeds() {
  static const std::vector<NamedDeed> deeds = {
      {"deletes the item", [](TestTree& tree, CVornTreeItem* item) { tree.DeleteItem(item); }},
      {"deletes all", [](TestTree& tree, CVornTreeItem*) { tree.DeleteAllItems(STI_ROOT); }},
      {"moves the item",
       [](TestTree& tree, CVornTreeItem* item) { tree.MoveItem(STI_ROOT, item, STI_FIRST); }},
      {"selects another", [](TestTree& tree, CVornTreeItem*) { tree.SelectItem(tree["d"], 1); }},
      {"clears", [](TestTree& tree, CVornTreeItem*) { tree.ClearSelection(nullptr); }},
      {"changes the type",
       [](TestTree& tree, CVornTreeItem*) {
         tree.EnableSelectionByDocuments(!tree.IsSelectionByDocuments());
       }},
  };
  return deeds;
}

// Runs an action once for each hook and deed; the deed is done in the first call of the hook.
void TryHostileHooks(const std::function<void(TestTree&)>& prepare,
                     const std::function<void(TestTree&)>& act) {
  for (const char* hostile : {"OnSelChanging", "OnSelChanged", "OnMultiSelChanging", "OnMultiSelChanged",
                              "OnClearSelection", "OnChangeActiveDoc"}) {
    for (const NamedDeed& deed : Deeds()) {
      SCOPED_TRACE(std::string(hostile) + " " + deed.name);
      TestTree tree;
      prepare(tree);
      bool done = false;
      tree.answer = [&](const std::string& hook, CVornTreeItem* first, CVornTreeItem* second) {
        if (hook == hostile && !std::exchange(done, true))
          deed.deed(tree, second != nullptr ? second : first);
        return 1;
      };
      act(tree);
      EXPECT_EQ(CheckTree(tree), "");
      tree.answer = nullptr;
      Click(tree, "d");
      CVornTreeItemArray items;
      tree.GetCurrentSelection(items);
      for (long i = 0; i < items.GetSize(); ++i) EXPECT_NE(tree.Name(items[i]), "?");
      tree.log.Clear();
    }
  }
}

TEST(HostileSelectionHooks, LeaveASoundTree) {
  for (int byDocuments : {0, 1}) {
    const auto prepare = [byDocuments](TestTree& tree) {
      tree.EnableMultipleSelection(1);
      tree.EnableSelectionByDocuments(byDocuments);
      tree.Build("root [a+ [b* c] d+ [e f]]");
      tree.log.Clear();
    };
    TryHostileHooks(prepare, [](TestTree& tree) { Click(tree, "c"); });
    TryHostileHooks(prepare, [](TestTree& tree) { Click(tree, "b"); });
    TryHostileHooks(prepare, [](TestTree& tree) { Click(tree, "b", 1); });
    TryHostileHooks(prepare, [](TestTree& tree) { Click(tree, "c", 1); });
    TryHostileHooks(prepare, [](TestTree& tree) { Click(tree, "f", 0, 1); });
    TryHostileHooks(prepare, [](TestTree& tree) { Click(tree, "c", 1, 1); });
    TryHostileHooks(prepare, [](TestTree& tree) { KeyTo(tree, "f"); });
    TryHostileHooks(prepare, [](TestTree& tree) { KeyTo(tree, "c", 0, 1); });
    TryHostileHooks(prepare, [](TestTree& tree) { tree.SelectItem(tree["e"]); });
    TryHostileHooks(prepare, [](TestTree& tree) { tree.UnselectItem(tree["b"]); });
    TryHostileHooks(prepare, [](TestTree& tree) { tree.ClearSelection(tree["b"]); });
    TryHostileHooks(prepare, [](TestTree& tree) { tree.GetSelectionManager()->OnRButtonDown(tree["e"]); });
    TryHostileHooks(prepare, [](TestTree& tree) { tree.DeleteItem(tree["a"]); });
    TryHostileHooks(prepare, [](TestTree& tree) { tree.Select(tree["f"], STSEL_ADD); });
    TryHostileHooks(prepare, [](TestTree& tree) { tree.GetSelectionManager()->RestoreSelection(); });
  }
}

}  // namespace
