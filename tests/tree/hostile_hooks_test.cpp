// Hooks that pull the ground away: in every hook that runs here the host does each of a number of deeds. No
// crash, no look at what is gone, and a tree that hangs together afterwards.
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

// item: the one that the hook is about, possibly null or a place.
struct Deed {
  const char* name;
  std::function<void(TestTree&, CVornTreeItem* item)> run;
};

const std::vector<Deed>& Deeds() {
  static const std::vector<Deed> deeds = {
      {"delete the item", [](TestTree& t, CVornTreeItem* i) { t.DeleteItem(i); }},
      {"delete its parent", [](TestTree& t, CVornTreeItem* i) { t.DeleteItem(t.GetParentItem(i)); }},
      {"delete its document",
       [](TestTree& t, CVornTreeItem* i) {
         CVornTreeItemArray line;
         if (t.GetParentList(i, line) && line.GetSize() > 0) t.DeleteItem(line[line.GetSize() - 1]);
       }},
      {"delete what is below it", [](TestTree& t, CVornTreeItem* i) { t.DeleteAllItems(i); }},
      {"delete all", [](TestTree& t, CVornTreeItem*) { t.DeleteAllItems(STI_ROOT); }},
      {"delete the root's", [](TestTree& t, CVornTreeItem*) { t.DeleteItem(t.GetRootItem()); }},
      {"delete another", [](TestTree& t, CVornTreeItem*) { t.DeleteItem(t["d"]); }},
      {"move the item up", [](TestTree& t, CVornTreeItem* i) { t.MoveItem(STI_ROOT, i, STI_FIRST); }},
      {"move the item away", [](TestTree& t, CVornTreeItem* i) { t.MoveItem(t["d"], i, STI_LAST); }},
      {"insert below it", [](TestTree& t, CVornTreeItem* i) { t.Add("new", i); }},
      {"hide the item", [](TestTree& t, CVornTreeItem* i) { t.SetItemVisibility(i, 0); }},
      {"lock the item", [](TestTree& t, CVornTreeItem* i) { t.LockItemVisibility(i, 0); }},
      {"sort all", [](TestTree& t, CVornTreeItem*) { t.SortChildrenByName(t.GetRootItem()); }},
      {"toggle the item", [](TestTree& t, CVornTreeItem* i) { t.Expand(i, STE_TOGGLE); }},
      {"fold the tree", [](TestTree& t, CVornTreeItem*) { t.Expand(STI_ROOT, STE_COLLAPSEALL); }},
      {"open the tree", [](TestTree& t, CVornTreeItem*) { t.Expand(STI_ROOT, STE_EXPANDALL); }},
      {"select the item", [](TestTree& t, CVornTreeItem* i) { t.SelectItem(i); }},
      {"select another", [](TestTree& t, CVornTreeItem*) { t.SelectItem(t["e"], 1); }},
      {"unselect the item", [](TestTree& t, CVornTreeItem* i) { t.UnselectItem(i); }},
      {"clear the selection", [](TestTree& t, CVornTreeItem*) { t.ClearSelection(nullptr); }},
      {"click another", [](TestTree& t, CVornTreeItem*) { t.GetSelectionManager()->OnLButtonDown(t["f"]); }},
      {"activate another document",
       [](TestTree& t, CVornTreeItem*) { t.UpdateSelection(t["f"], STUS_ACTIVATE); }},
      {"activate none", [](TestTree& t, CVornTreeItem*) { t.UpdateSelection(nullptr, STUS_NOACTIVE); }},
      {"change the manager",
       [](TestTree& t, CVornTreeItem*) { t.EnableSelectionByDocuments(!t.IsSelectionByDocuments()); }},
      {"change the manager twice",
       [](TestTree& t, CVornTreeItem*) {
         for (int i = 0; i < 2; ++i) t.EnableSelectionByDocuments(!t.IsSelectionByDocuments());
       }},
      {"show the active document only", [](TestTree& t, CVornTreeItem*) { t.SetDocumentDisplay(1); }},
  };
  return deeds;
}

using Act = std::function<void(TestTree&)>;

// The actions reenter themselves in the hook, too.
std::vector<Deed> DeedsAgainst(const Act& act) {
  std::vector<Deed> deeds = Deeds();
  deeds.push_back({"do it again", [act](TestTree& t, CVornTreeItem*) { act(t); }});
  return deeds;
}

void Prepare(TestTree& tree, bool byDocuments) {
  tree.recording = false;
  tree.EnableMultipleSelection(1);
  tree.EnableSelectionByDocuments(byDocuments);
  tree.Build("root [a+ [b* c+ [x]] d+ [e f] g [h+ [y]] k#]");
  tree.SetCheckBox(tree["c"], 1);
  tree.recording = false;
}

// What remains is usable.
void Probe(TestTree& tree) {
  tree.answer = nullptr;
  tree.SelectItem(tree["e"]);
  tree.Expand(STI_ROOT, STE_EXPANDALL);
  tree.ClearSelection(nullptr);
  CVornTreeItemArray items;
  tree.GetCurrentSelection(items);
  for (long i = 0; i < items.GetSize(); ++i) EXPECT_NE(tree.Name(items[i]), "?");
  tree.DeleteAllItems(STI_ROOT);
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_EQ(CheckTree(tree, false), "");
}

// How often each hook runs when the host does nothing.
std::map<std::string, int> CountCalls(const Act& act, bool byDocuments) {
  TestTree tree;
  Prepare(tree, byDocuments);
  std::map<std::string, int> calls;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) { return ++calls[hook], 1; };
  act(tree);
  return calls;
}

// Does a deed in one call of a hook.
void Try(const Act& act, bool byDocuments, const std::string& hostile, int call, const Deed& deed) {
  SCOPED_TRACE(testing::Message() << hostile << " " << call << ": " << deed.name
                                  << (byDocuments ? ", by documents" : ""));
  TestTree tree;
  Prepare(tree, byDocuments);
  int wait = call;
  tree.answer = [&](const std::string& hook, CVornTreeItem* first, CVornTreeItem* second) {
    if (hook == hostile && wait-- == 0) deed.run(tree, second != nullptr ? second : first);
    return 1;
  };
  act(tree);
  EXPECT_LT(wait, 0) << "the hook did not run";
  EXPECT_EQ(CheckTree(tree, false), "");
  Probe(tree);
}

// Each deed in the first call of each hook, and in the last.
void TryAll(const Act& act) {
  const std::vector<Deed> deeds = DeedsAgainst(act);
  for (bool byDocuments : {false, true}) {
    for (const auto& [hook, calls] : CountCalls(act, byDocuments)) {
      for (const Deed& deed : deeds) {
        Try(act, byDocuments, hook, 0, deed);
        if (calls > 1) Try(act, byDocuments, hook, calls - 1, deed);
      }
    }
  }
}

CVornTreeSelection& Manager(TestTree& tree) { return *tree.GetSelectionManager(); }

// Presses and releases, with the manager that is there at the time.
void Click(TestTree& tree, const char* label, int ctrl, int shift) {
  {
    const CVornSelectionGuard keys(&Manager(tree), ctrl, shift);
    Manager(tree).OnLButtonDown(tree[label]);
  }
  const CVornSelectionGuard keys(&Manager(tree), ctrl, shift);
  Manager(tree).OnLButtonUp(tree[label]);
}

void Key(TestTree& tree, const char* label, int ctrl, int shift) {
  const CVornSelectionGuard keys(&Manager(tree), ctrl, shift);
  Manager(tree).OnKeyDown(tree[label], VK_DOWN);
}

TEST(HostileHooks, WhileAnItemOpensOrFolds) {
  for (const char* label : {"a", "g", "k"}) {
    for (unsigned code :
         std::initializer_list<unsigned>{STE_EXPAND, STE_COLLAPSE, STE_COLLAPSEALL, STE_EXPANDALL,
                                         STE_EXPAND | STE_SCROLL, 6u | STE_ANYWAY}) {
      TryAll([=](TestTree& tree) { tree.Expand(tree[label], code); });
    }
  }
}

TEST(HostileHooks, WhileTheTreeOpensOrFolds) {
  TryAll([](TestTree& tree) { tree.Expand(STI_ROOT, STE_COLLAPSE); });
  TryAll([](TestTree& tree) { tree.Expand(STI_ROOT, STE_EXPANDALL); });
}

TEST(HostileHooks, WhileDocumentsAreShown) {
  TryAll([](TestTree& tree) {
    tree.SelectItem(tree["h"]);
    tree.SetDocumentDisplay(1);
    tree.SetDocumentDisplay(0);
  });
}

TEST(HostileHooks, WhileTheMouseSelects) {
  for (int keys = 0; keys < 4; ++keys) {
    for (const char* label : {"b", "c", "f"}) {
      TryAll([=](TestTree& tree) { Click(tree, label, keys & 1, keys & 2); });
    }
  }
}

TEST(HostileHooks, WhileAPressOnASelectedItemIsReleased) {
  TryAll([](TestTree& tree) {
    tree.SelectItem(tree["c"], 1);
    {
      const CVornSelectionGuard keys(&Manager(tree), 1, 0);
      Manager(tree).OnLButtonDown(tree["c"]);
    }
    Manager(tree).OnLButtonUp(tree["c"]);
  });
}

TEST(HostileHooks, WhileTheRightButtonSelects) {
  for (const char* label : {"b", "e"}) {
    TryAll([=](TestTree& tree) { Manager(tree).OnRButtonDown(tree[label]); });
  }
}

TEST(HostileHooks, WhileKeysSelect) {
  for (int keys = 0; keys < 4; ++keys) {
    for (const char* label : {"c", "e"}) {
      TryAll([=](TestTree& tree) { Key(tree, label, keys & 1, keys & 2); });
    }
  }
}

TEST(HostileHooks, WhileARangeIsSelected) {
  TryAll([](TestTree& tree) { Manager(tree).SelectRange(tree["a"], tree["f"]); });
  TryAll([](TestTree& tree) { Manager(tree).SelectRange(tree["g"], tree["b"]); });
  TryAll([](TestTree& tree) { Manager(tree).RestoreSelection(); });
}

TEST(HostileHooks, WhileTheHostSelects) {
  for (int keep : {0, 1}) {
    TryAll([=](TestTree& tree) { tree.SelectItem(tree["e"], keep); });
  }
  for (unsigned code :
       {STSEL_SELECT, STSEL_ADD, STSEL_UNSELECT, STSEL_UNSELECTWITHSHORTCUTS, STSEL_SELECTFIRSTVISIBLE}) {
    TryAll([=](TestTree& tree) { tree.Select(tree["b"], code); });
    TryAll([=](TestTree& tree) { tree.Select(tree["e"], code); });
  }
}

TEST(HostileHooks, WhileShortcutsAreUnselected) {
  TryAll([](TestTree& tree) {
    for (int i = 0; i < 3; ++i) {
      if (tree["b"] != nullptr) tree.SelectItem(tree.CreateShortcut(tree["b"], STI_ROOT, STI_LAST), 1);
    }
    tree.Select(tree["b"], STSEL_UNSELECTWITHSHORTCUTS);
  });
}

TEST(HostileHooks, WhileTheSelectionIsCleared) {
  TryAll([](TestTree& tree) { tree.ClearSelection(tree["b"]); });
  TryAll([](TestTree& tree) { tree.ClearSelection(tree["e"]); });
  TryAll([](TestTree& tree) { tree.ClearSelection(nullptr); });
  TryAll([](TestTree& tree) {
    tree.ModifySelectionType(0, STST_CLEARALLDOCS);
    Click(tree, "e", 0, 0);
    tree.ClearSelection(nullptr);
  });
}

TEST(HostileHooks, WhileTheSelectionIsUpdated) {
  for (unsigned flags :
       std::initializer_list<unsigned>{STUS_REBUILD, STUS_ACTIVATE, STUS_NOACTIVE, STUS_ITEMADDED,
                                       STUS_ITEMREMOVED, STUS_REBUILD | STUS_ITEMREMOVED}) {
    TryAll([=](TestTree& tree) { tree.UpdateSelection(tree["e"], flags); });
  }
}

TEST(HostileHooks, WhileTheManagerIsReplaced) {
  TryAll([](TestTree& tree) { tree.EnableSelectionByDocuments(!tree.IsSelectionByDocuments()); });
}

TEST(HostileHooks, WhileManagersAreToldOfItems) {
  TryAll([](TestTree& tree) { Manager(tree).OnItemAdded(tree["e"]); });
  TryAll([](TestTree& tree) { Manager(tree).OnItemRemoved(tree["b"]); });
  TryAll([](TestTree& tree) { Manager(tree).OnItemRemoved(tree["d"]); });
  TryAll([](TestTree& tree) { Manager(tree).OnRButtonUp(tree["e"]); });
  TryAll([](TestTree& tree) { Manager(tree).OnKeyUp(tree["e"], VK_DOWN); });
}

TEST(HostileHooks, WhileItemsGo) {
  for (const char* label : {"b", "a", "d", "g"}) {
    TryAll([=](TestTree& tree) { tree.DeleteItem(tree[label]); });
  }
  TryAll([](TestTree& tree) { tree.DeleteItem(tree.GetRootItem()); });
  TryAll([](TestTree& tree) { tree.DeleteAllItems(tree["a"]); });
  TryAll([](TestTree& tree) { tree.DeleteAllItems(STI_ROOT); });
}

TEST(HostileHooks, WhileAnItemIsChecked) {
  TryAll([](TestTree& tree) { tree.SetItemCheck(tree["c"], 1); });
}

TEST(HostileHooks, WhileARecordIsInserted) {
  TryAll([](TestTree& tree) {
    STINSERTSTRUCT insert{};
    insert.hParent = tree["g"];
    if (insert.hParent == nullptr) return;
    insert.hInsertAfter = STI_LAST;
    insert.item.mask = STIF_STATE | STIF_CHILDREN;
    insert.item.cChildren = 1;
    insert.item.state = insert.item.stateMask = STIS_SELECTED | STIS_EXPANDED | STIS_CHECKED | STIS_HIDDEN;
    tree.InsertItem(&insert);
  });
}

// --- Permission is a hook as well ------------------------------------------------------------------

class AskingTree : public TestTree {
 public:
  std::function<void(CVornTreeItem*)> whenAsked;

  int IsAllow(CVornTreeItem* item, unsigned long permission) override {
    const std::function<void(CVornTreeItem*)> deed = whenAsked;
    whenAsked = nullptr;
    if (deed) deed(item);
    return CVornTreeCtrl::IsAllow(item, permission);
  }
};

TEST(HostilePermission, WhileItemsAreSelectedOrGatheredForADrag) {
  const std::vector<Act> acts = {
      [](TestTree& tree) { Click(tree, "c", 0, 0); },
      [](TestTree& tree) { Click(tree, "c", 1, 0); },
      [](TestTree& tree) { Click(tree, "b", 0, 0); },
      [](TestTree& tree) { Click(tree, "f", 0, 1); },
      [](TestTree& tree) {
        {
          const CVornSelectionGuard keys(&Manager(tree), 1, 0);
          auto& asking = static_cast<AskingTree&>(tree);
          const auto deed = std::exchange(asking.whenAsked, nullptr);
          tree.SelectItem(tree["c"], 1);
          Manager(tree).OnLButtonDown(tree["c"]);
          asking.whenAsked = deed;
        }
        Manager(tree).OnLButtonUp(tree["c"]);
      },
      [](TestTree& tree) { Key(tree, "c", 0, 0); },
      [](TestTree& tree) { Manager(tree).OnRButtonDown(tree["e"]); },
      [](TestTree& tree) { Manager(tree).SelectRange(tree["c"], tree["c"]); },
      [](TestTree& tree) { Manager(tree).SelectRange(tree["c"], tree["f"]); },
      [](TestTree& tree) { tree.SelectItem(tree["e"]); },
      [](TestTree& tree) {
        CVornTreeItemArray items;
        Manager(tree).GetDraggableItems(STI_ROOT, items);
        Manager(tree).GetDraggableItems(tree["a"], items);
      },
  };
  for (const Act& act : acts) {
    for (const Deed& deed : Deeds()) {
      for (bool byDocuments : {false, true}) {
        SCOPED_TRACE(testing::Message() << &act - acts.data() << ": " << deed.name << " " << byDocuments);
        AskingTree tree;
        Prepare(tree, byDocuments);
        tree.UpdateSelection(tree["b"], STUS_ACTIVATE);
        tree.whenAsked = [&](CVornTreeItem* item) { deed.run(tree, item); };
        act(tree);
        EXPECT_EQ(CheckTree(tree, false), "");
        tree.whenAsked = nullptr;
        Probe(tree);
      }
    }
  }
}

TEST(HostilePermission, AnItemThatLeavesTheGatheredBranchEndsTheGathering) {
  AskingTree tree;
  tree.recording = false;
  tree.Build("root [a+ [b c*] d]");
  tree.recording = false;
  // Asked for a first, then for b.
  tree.whenAsked = [&](CVornTreeItem*) {
    tree.whenAsked = [&](CVornTreeItem* item) { tree.MoveItem(STI_ROOT, item, STI_LAST); };
  };
  CVornTreeItemArray items;
  EXPECT_EQ(Manager(tree).GetDraggableItems(tree["a"], items), 1);
  EXPECT_EQ(items.GetSize(), 0);
  EXPECT_EQ(tree.Text(), "root [a+ [c*@] d b]");
}

}  // namespace
