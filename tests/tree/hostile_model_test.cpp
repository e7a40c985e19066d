// Hosts that do as they like inside the hooks of the model.
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

// Also tells of what is no hook by name but asks the host all the same.
class HostileTree : public TestTree {
 public:
  void InitializeItemFont(CVornTreeItem* item) override {
    if (answer) answer("InitializeItemFont", item, nullptr);
  }
  int IsAllow(CVornTreeItem* item, unsigned long permission) override {
    if (answer) answer("IsAllow", item, nullptr);
    return TestTree::IsAllow(item, permission);
  }
};

using Act = std::function<void(HostileTree&)>;

struct Deed {
  const char* name;
  std::function<void(HostileTree&, CVornTreeItem*, const Act&)> run;
};

const std::vector<Deed>& Deeds() {
  static const std::vector<Deed> deeds = {
      {"deletes the item", [](HostileTree& t, CVornTreeItem* i, const Act&) { t.DeleteItem(i); }},
      {"deletes its parent",
       [](HostileTree& t, CVornTreeItem* i, const Act&) { t.DeleteItem(t.GetParentItem(i)); }},
      {"deletes its children", [](HostileTree& t, CVornTreeItem* i, const Act&) { t.DeleteAllItems(i); }},
      {"deletes all", [](HostileTree& t, CVornTreeItem*, const Act&) { t.DeleteAllItems(STI_ROOT); }},
      {"deletes the root", [](HostileTree& t, CVornTreeItem*, const Act&) { t.DeleteItem(t.GetRootItem()); }},
      {"moves the item to the top",
       [](HostileTree& t, CVornTreeItem* i, const Act&) { t.MoveItem(STI_ROOT, i, STI_FIRST); }},
      {"moves the item down",
       [](HostileTree& t, CVornTreeItem* i, const Act&) { t.MoveItem(t["e"], i, STI_LAST); }},
      {"moves another below it",
       [](HostileTree& t, CVornTreeItem* i, const Act&) { t.MoveItem(i, t["d"], STI_LAST); }},
      {"does it again", [](HostileTree& t, CVornTreeItem*, const Act& again) { again(t); }},
      {"inserts below it", [](HostileTree& t, CVornTreeItem* i, const Act&) { t.Add("n", i); }},
      {"selects another", [](HostileTree& t, CVornTreeItem*, const Act&) { t.SelectItem(t["f"], 1); }},
      {"selects it", [](HostileTree& t, CVornTreeItem* i, const Act&) { t.SelectItem(i, 0); }},
      {"clears", [](HostileTree& t, CVornTreeItem*, const Act&) { t.ClearSelection(nullptr); }},
      {"changes the manager", [](HostileTree& t, CVornTreeItem*,
                                 const Act&) { t.EnableSelectionByDocuments(!t.IsSelectionByDocuments()); }},
      {"opens or folds it", [](HostileTree& t, CVornTreeItem* i, const Act&) { t.Expand(i, STE_TOGGLE); }},
      {"hides it", [](HostileTree& t, CVornTreeItem* i, const Act&) { t.SetItemVisibility(i, 0); }},
      {"sorts", [](HostileTree& t, CVornTreeItem*, const Act&) { t.SortChildrenByName(t.GetRootItem()); }},
      {"makes a shortcut of it",
       [](HostileTree& t, CVornTreeItem* i, const Act&) { t.CreateShortcut(i, STI_ROOT, STI_FIRST); }},
      {"renames it", [](HostileTree& t, CVornTreeItem* i, const Act&) { t.SetItemText(i, L"renamed"); }},
      {"shows documents only", [](HostileTree& t, CVornTreeItem*,
                                  const Act&) { t.SetDocumentDisplay(!t.IsDisplayOnlyActiveDocument()); }},
  };
  return deeds;
}

constexpr const char* kHooks[] = {"OnDeleteItem",       "OnChecking",       "OnChecked",
                                  "InitializeItemFont", "IsAllow",          "OnSelChanging",
                                  "OnSelChanged",       "OnClearSelection", "OnItemExpanding",
                                  "OnItemExpanded",     "OnChangeActiveDoc"};

// What holds whatever the host did. An item that was moved into another document stays in the selection of
// the one that it left, which hears nothing of its end.
void ExpectSound(HostileTree& tree, bool changedDocument) {
  tree.answer = nullptr;
  EXPECT_EQ(CheckTree(tree, false), "");
  CVornTreeItemArray items;
  tree.GetCurrentSelection(items);
  for (long i = 0; !changedDocument && i < items.GetSize(); ++i) EXPECT_NE(tree.Name(items[i]), "?");
  for (CVornTreeItem* item : {tree.GetItemHasFocus(), tree.GetLastSelectedItem()}) {
    EXPECT_NE(tree.Name(item), "?");
  }
  EXPECT_NE(tree.Add("after"), nullptr);
  EXPECT_EQ(tree.DeleteAllItems(STI_ROOT), 1);
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_EQ(CheckTree(tree, false), "");
  tree.log.Clear();
}

// Runs an action once for each hook and deed; the deed is done in the first call of the hook.
void TryAll(const Act& act) {
  for (int byDocuments : {0, 1}) {
    for (const char* hostile : kHooks) {
      for (const Deed& deed : Deeds()) {
        SCOPED_TRACE(std::string(hostile) + " " + deed.name + (byDocuments ? ", by documents" : ""));
        HostileTree tree;
        tree.EnableMultipleSelection(1);
        tree.EnableSelectionByDocuments(byDocuments);
        tree.Build("root [a+ [b c+ [g]] d+ [e f]]");
        tree.SetCheckBox(tree["b"], 1);
        tree.CreateShortcut(tree["b"], tree["d"], STI_LAST);
        tree.CreateShortcut(tree["a"], tree["c"], STI_LAST);
        tree.SelectItem(tree["b"]);
        tree.log.Clear();
        bool done = false;
        tree.answer = [&](const std::string& hook, CVornTreeItem* first, CVornTreeItem* second) {
          if (hook == hostile && !std::exchange(done, true)) {
            deed.run(tree, second != nullptr ? second : first, act);
          }
          return 1;
        };
        act(tree);
        ExpectSound(tree, byDocuments && std::string(deed.name).starts_with("moves"));
      }
    }
  }
}

TEST(HostileModelHooks, DeleteItem) {
  TryAll([](HostileTree& t) { t.DeleteItem(t["a"]); });
  TryAll([](HostileTree& t) { t.DeleteItem(t["b"]); });
}

TEST(HostileModelHooks, DeleteAllItems) {
  TryAll([](HostileTree& t) { t.DeleteAllItems(STI_ROOT); });
  TryAll([](HostileTree& t) { t.DeleteAllItems(t["a"]); });
  TryAll([](HostileTree& t) { t.DeleteItem(t.GetRootItem()); });
}

TEST(HostileModelHooks, SetItemCheck) {
  TryAll([](HostileTree& t) { t.SetItemCheck(t["b"], 1); });
}

TEST(HostileModelHooks, InsertItem) {
  TryAll([](HostileTree& t) { t.Add("x", t["a"], STI_FIRST); });
  TryAll([](HostileTree& t) { t.Add("x"); });
}

TEST(HostileModelHooks, InsertRecord) {
  TryAll([](HostileTree& t) {
    STINSERTSTRUCT insert{};
    insert.hParent = t["a"];
    insert.item.mask = STIF_STATE | STIF_CHILDREN;
    insert.item.state = insert.item.stateMask = STIS_SELECTED | STIS_EXPANDED | STIS_CHECKED | STIS_HIDDEN;
    insert.item.cChildren = 1;
    CVornTreeItem* const item = t.InsertItem(&insert);
    EXPECT_TRUE(item == nullptr || t.IsExist(item, nullptr));
  });
}

TEST(HostileModelHooks, SetItem) {
  TryAll([](HostileTree& t) {
    STITEM record{};
    record.hItem = t["b"];
    record.mask = STIF_STATE | STIF_CHILDREN | STIF_TEXT;
    record.state = record.stateMask = STIS_SELECTED | STIS_EXPANDED | STIS_CHECKED;
    record.cChildren = 1;
    t.SetItem(&record);
  });
}

// --- What must follow ------------------------------------------------------------------------------

class HostileModel : public testing::Test {
 protected:
  HostileModel() { tree.Build("root [a+ [b c] d]"); }
  ~HostileModel() override {
    tree.answer = nullptr;
    EXPECT_EQ(CheckTree(tree), "");
    tree.log.Clear();
  }
  // Once, at the first call of a hook.
  void In(const std::string& name, std::function<void(CVornTreeItem*)> run) {
    const auto done = std::make_shared<bool>(false);
    tree.answer = [name, run, done](const std::string& hook, CVornTreeItem* item, CVornTreeItem*) {
      if (hook == name && !std::exchange(*done, true)) run(item);
      return 1;
    };
  }
  HostileTree tree;
};

TEST_F(HostileModel, DeletingWhatIsBeingDeletedIsDoneOnce) {
  In("OnDeleteItem", [this](CVornTreeItem* item) { EXPECT_EQ(tree.DeleteItem(item), 1); });
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [d]");
}

TEST_F(HostileModel, WhatIsMovedInItsLastHookGoesAllTheSame) {
  In("OnDeleteItem", [this](CVornTreeItem* item) { tree.MoveItem(tree["d"], item, STI_LAST); });
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [d]");
}

TEST_F(HostileModel, WhatIsInsertedBelowGoesAlongAndWhatIsBesideStays) {
  In("OnDeleteItem", [this](CVornTreeItem* item) {
    tree.Add("below", item);
    tree.Add("beside");
  });
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [d beside]");
}

TEST_F(HostileModel, WhatIsMovedAwayFromTheDyingStays) {
  In("OnDeleteItem", [this](CVornTreeItem*) { tree.MoveItem(STI_ROOT, tree["b"], STI_LAST); });
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [d b]");
}

TEST_F(HostileModel, WhatIsSelectedBelowTheDyingLeavesTheSelection) {
  In("OnDeleteItem", [this](CVornTreeItem*) { tree.SelectItem(tree["b"], 0); });
  EXPECT_EQ(tree.DeleteItem(tree["a"]), 1);
  CVornTreeItemArray items;
  EXPECT_EQ(tree.GetCurrentSelection(items), 0);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
}

TEST_F(HostileModel, EmptyingTakesWhatTheHookAdded) {
  In("OnDeleteItem", [this](CVornTreeItem*) { tree.Add("late", tree["a"]); });
  EXPECT_EQ(tree.DeleteAllItems(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [a+ d]");
}

TEST_F(HostileModel, EmptyingAnItemThatTheHookDeletesSucceeds) {
  In("OnDeleteItem", [this](CVornTreeItem* item) { tree.DeleteItem(item); });
  EXPECT_EQ(tree.DeleteAllItems(tree["a"]), 1);
  EXPECT_EQ(tree.Text(), "root [d]");
}

TEST_F(HostileModel, AMarkIsSetWhereverTheItemWasMoved) {
  tree.SetCheckBox(tree["b"], 1);
  In("OnChecking", [this](CVornTreeItem* item) { tree.MoveItem(STI_ROOT, item, STI_LAST); });
  EXPECT_EQ(tree.SetItemCheck(tree["b"], 1), 0);
  EXPECT_EQ(tree.Text(), "root [a+ [c] d b=]");
}

TEST_F(HostileModel, AMarkSetInTheHookIsTheEarlierOne) {
  tree.SetCheckBox(tree["b"], 1);
  In("OnChecking", [this](CVornTreeItem* item) { tree.ModifyItemState(item, 0, STIS_CHECKED); });
  EXPECT_EQ(tree.SetItemCheck(tree["b"], 1), 1) << "noted behind the hook";
}

TEST_F(HostileModel, AnItemDeletedAfterItsMarkWasSetHadItsEarlierMark) {
  tree.SetCheckBox(tree["b"], 1);
  tree.ModifyItemState(tree["b"], 0, STIS_CHECKED);
  In("OnChecked", [this](CVornTreeItem* item) { tree.DeleteItem(item); });
  EXPECT_EQ(tree.SetItemCheck(tree["b"], 0), 1);
  EXPECT_EQ(tree["b"], nullptr);
}

TEST_F(HostileModel, ANewItemThatItsHookDeletesIsNone) {
  In("InitializeItemFont", [this](CVornTreeItem* item) { tree.DeleteItem(item); });
  EXPECT_EQ(tree.Add("x", tree["a"]), nullptr);
  In("InitializeItemFont", [this](CVornTreeItem*) { tree.DeleteItem(tree["a"]); });
  EXPECT_EQ(tree.Add("x", tree["a"]), nullptr);
  EXPECT_EQ(tree.Text(), "root [d]");
}

TEST_F(HostileModel, ANewItemThatItsHookMovesIsLabelledThere) {
  In("InitializeItemFont", [this](CVornTreeItem* item) { tree.MoveItem(tree["d"], item, STI_LAST); });
  CVornTreeItem* const item = tree.Add("x", tree["a"]);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(tree.Text(), "root [a+ [b c] d [x]]");
}

TEST_F(HostileModel, ARecordThatTheHookChangesIsReadAsItWas) {
  STINSERTSTRUCT insert{};
  insert.hParent = STI_ROOT;
  insert.item.mask = STIF_STATE | STIF_CHILDREN;
  insert.item.state = insert.item.stateMask = STIS_SELECTED;
  insert.item.cChildren = 1;
  In("OnSelChanging", [&insert](CVornTreeItem*) { insert.item.cChildren = 0; });
  CVornTreeItem* const item = tree.InsertItem(&insert);
  EXPECT_EQ(tree.ItemHasChildren(item), 1);
}

TEST_F(HostileModel, ModelChangesAskForNoPermission) {
  tree.SetCheckBox(tree["b"], 1);
  tree.answer = [](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    EXPECT_NE(hook, "IsAllow");
    return 1;
  };
  tree.SetItemCheck(tree["b"], 1);
  tree.SetItemText(tree["b"], L"x");
  tree.MoveItem(STI_ROOT, tree["c"], STI_FIRST);
  tree.CreateShortcut(tree["d"], STI_ROOT, STI_LAST);
  tree.DeleteItem(tree["a"]);
  tree.DeleteAllItems(STI_ROOT);
}

// --- A comparison that touches the tree --------------------------------------------------------------

TestTree* g_sorted = nullptr;
std::function<void(TestTree&)> g_deed;

int Meddling(LPARAM a, LPARAM b, LPARAM) {
  static bool inside = false;
  if (!std::exchange(inside, true)) {
    g_deed(*g_sorted);
    inside = false;
  }
  return a < b ? -1 : a > b;
}

TEST(HostileComparison, LeavesASoundTree) {
  const std::pair<const char*, std::function<void(TestTree&)>> deeds[] = {
      {"deletes a child", [](TestTree& t) { t.DeleteItem(t.GetChildItem(t["p"])); }},
      {"deletes all children", [](TestTree& t) { t.DeleteAllItems(t["p"]); }},
      {"deletes the parent", [](TestTree& t) { t.DeleteItem(t["p"]); }},
      {"deletes all", [](TestTree& t) { t.DeleteAllItems(STI_ROOT); }},
      {"sorts", [](TestTree& t) { t.SortChildrenByName(t["p"]); }},
      {"moves the parent", [](TestTree& t) { t.MoveItem(t["q"], t["p"], STI_LAST); }},
      {"moves a child away", [](TestTree& t) { t.MoveItem(STI_ROOT, t.GetChildItem(t["p"]), STI_LAST); }},
      {"selects a child", [](TestTree& t) { t.SelectItem(t.GetChildItem(t["p"])); }},
      {"changes the data", [](TestTree& t) { t.SetItemData(t.GetChildItem(t["p"]), 3); }},
  };
  for (const auto& [name, deed] : deeds) {
    SCOPED_TRACE(name);
    TestTree tree;
    tree.Build("root [p+ [1 2 3 4 5 6 7 8] q]");
    LPARAM data = 5;
    for (CVornTreeItem* item = tree.GetChildItem(tree["p"]); item != nullptr; item = tree.GetNextItem(item)) {
      tree.SetItemData(item, static_cast<unsigned>(data = data * 7 % 11));
    }
    g_sorted = &tree;
    g_deed = deed;
    STSORTCB sort{tree["p"], Meddling, 0};
    tree.SortChildren(&sort);
    EXPECT_EQ(CheckTree(tree, false), "");
    tree.DeleteAllItems(STI_ROOT);
    EXPECT_EQ(tree.GetCount(), 0u);
    tree.log.Clear();
  }
}

// A child that fell out can be given another place before the sorted ones are linked again.
TEST(HostileComparison, MayGiveAChildAPlaceOfItsOwn) {
  TestTree tree;
  tree.Build("root [p [1 2 3] q]");
  CVornTreeItem* const first = tree["1"];
  tree.SetItemData(tree["2"], 2);
  tree.SetItemData(tree["3"], 3);
  g_sorted = &tree;
  g_deed = [first](TestTree& t) { t.MoveItem(t["q"], first, STI_LAST); };
  STSORTCB sort{tree["p"], Meddling, 0};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_EQ(tree.Text(), "root [p [2 3] q [1]]");
  EXPECT_EQ(CheckTree(tree, false), "");
}

TEST(HostileComparison, MayHangTheParentBelowAChild) {
  TestTree tree;
  tree.Build("root [p [1 2] q]");
  CVornTreeItem* const first = tree["1"];
  tree.SetItemData(tree["2"], 2);
  g_sorted = &tree;
  g_deed = [first](TestTree& t) { t.MoveItem(first, t["p"], STI_LAST); };
  STSORTCB sort{tree["p"], Meddling, 0};
  tree.SortChildren(&sort);
  EXPECT_EQ(tree.Text(), "root [q]");
  EXPECT_EQ(CheckTree(tree, false), "");
}

TEST(SortChildren, ReadsTheRecordOnce) {
  TestTree tree;
  tree.Build("root [1 2 3]");
  static STSORTCB sort;
  static int params;
  params = 0;
  sort = {tree.GetRootItem(),
          [](LPARAM, LPARAM, LPARAM param) {
            params += param != 7;
            sort.lParam = 8;
            return -1;
          },
          7};
  EXPECT_EQ(tree.SortChildren(&sort), 1);
  EXPECT_EQ(params, 0);
}

}  // namespace
