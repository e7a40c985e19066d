// Every public operation that takes an item, with everything that is none.
#include <functional>
#include <vector>

#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace {

using support::CheckTree;
using support::TestTree;

struct Operation {
  const char* name;
  // The result as a number; void operations give 0.
  std::function<long long(TestTree&, CVornTreeItem*)> call;
  long long result = 0;    // for an invalid item
  bool takesRoot = false;  // STI_ROOT means the root here
};

long long Number(const void* pointer) { return pointer != nullptr; }

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"InsertItem under", [](TestTree& t, CVornTreeItem* i) { return Number(t.InsertItem(L"x", -1, -1, i)); }, 0, true},
      {"DeleteItem", [](TestTree& t, CVornTreeItem* i) { return t.DeleteItem(i); }},
      {"DeleteAllItems", [](TestTree& t, CVornTreeItem* i) { return t.DeleteAllItems(i); }, 0, true},
      {"MoveItem under", [](TestTree& t, CVornTreeItem* i) { return t.MoveItem(i, t["b"], STI_LAST); }, 0, true},
      {"MoveItem", [](TestTree& t, CVornTreeItem* i) { return t.MoveItem(STI_ROOT, i, STI_LAST); }},
      {"GetNextItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i)); }},
      {"GetPrevItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetPrevItem(i)); }},
      {"GetNextItem next", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_NEXT)); }},
      {"GetNextItem parent", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_PARENT)); }},
      {"GetNextItem rows", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_NEXTVISIBLE)); }},
      {"GetChildItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetChildItem(i)); }, 0, true},
      {"GetLastChildItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetLastChildItem(i)); }},
      {"GetParentItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetParentItem(i)); }},
      {"GetParentList",
       [](TestTree& t, CVornTreeItem* i) {
         CVornTreeItemArray list;
         return t.GetParentList(i, list) + list.GetSize();
       }},
      {"GetChildCount", [](TestTree& t, CVornTreeItem* i) { return t.GetChildCount(i); }},
      {"GetVisibleChildCount", [](TestTree& t, CVornTreeItem* i) { return t.GetVisibleChildCount(i); }},
      {"GetItemFullText",
       [](TestTree& t, CVornTreeItem* i) {
         CString text;
         return t.GetItemFullText(i, text);
       }},
      {"GetItemPosition", [](TestTree& t, CVornTreeItem* i) { return t.GetItemPosition(i); }},
      {"IsExist", [](TestTree& t, CVornTreeItem* i) { return t.IsExist(i, nullptr); }},
      {"IsParentItemOf", [](TestTree& t, CVornTreeItem* i) { return t.IsParentItemOf(i, t["b"]); }},
      {"IsParentItemOf below", [](TestTree& t, CVornTreeItem* i) { return t.IsParentItemOf(t["a"], i); }},
      {"ItemHasChildren", [](TestTree& t, CVornTreeItem* i) { return t.ItemHasChildren(i); }},
      {"GetItem",
       [](TestTree& t, CVornTreeItem* i) {
         STITEM record{};
         record.hItem = i;
         return t.GetItem(&record);
       }},
      {"SetItem",
       [](TestTree& t, CVornTreeItem* i) {
         STITEM record{};
         record.hItem = i;
         record.mask = STIF_TEXT | STIF_PARAM | STIF_STATE;
         record.stateMask = record.state = STIS_EXPANDED | STIS_SELECTED;
         return t.SetItem(&record);
       }},
      {"SetItemText", [](TestTree& t, CVornTreeItem* i) { return t.SetItemText(i, L"x"); }},
      {"GetItemData", [](TestTree& t, CVornTreeItem* i) { return static_cast<long long>(t.GetItemData(i)); }},
      {"SetItemData", [](TestTree& t, CVornTreeItem* i) { return t.SetItemData(i, 9), 0; }},
      {"GetItemImage",
       [](TestTree& t, CVornTreeItem* i) {
         int image = 0, selected = 0;
         return t.GetItemImage(i, image, selected);
       }},
      {"SetItemImage", [](TestTree& t, CVornTreeItem* i) { return t.SetItemImage(i, 1, 1); }},
      {"GetItemImageState",
       [](TestTree& t, CVornTreeItem* i) {
         int image = 0;
         return t.GetItemImageState(i, image);
       }},
      {"SetItemImageState", [](TestTree& t, CVornTreeItem* i) { return t.SetItemImageState(i, 1); }},
      {"GetItemState", [](TestTree& t, CVornTreeItem* i) { return static_cast<long long>(t.GetItemState(i)); }},
      {"GetItemState mask", [](TestTree& t, CVornTreeItem* i) { return t.GetItemState(i, 0xFFFFFFFFu); }},
      {"SetItemState", [](TestTree& t, CVornTreeItem* i) { return t.SetItemState(i, STIS_NODRAG); }},
      {"ModifyItemState", [](TestTree& t, CVornTreeItem* i) { return t.ModifyItemState(i, 0, STIS_NODRAG); }},
      {"GetCheckBox", [](TestTree& t, CVornTreeItem* i) { return t.GetCheckBox(i); }},
      {"SetCheckBox", [](TestTree& t, CVornTreeItem* i) { return t.SetCheckBox(i, 1); }},
      {"GetItemCheck", [](TestTree& t, CVornTreeItem* i) { return t.GetItemCheck(i); }},
      {"SetItemCheck", [](TestTree& t, CVornTreeItem* i) { return t.SetItemCheck(i, 1); }},
      {"IsItemBold", [](TestTree& t, CVornTreeItem* i) { return t.IsItemBold(i); }},
      {"SetItemBold", [](TestTree& t, CVornTreeItem* i) { return t.SetItemBold(i, 1); }},
      {"IsItemExpanded", [](TestTree& t, CVornTreeItem* i) { return t.IsItemExpanded(i); }},
      {"IsItemSelected", [](TestTree& t, CVornTreeItem* i) { return t.IsItemSelected(i); }},
      {"GetItemFont", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetItemFont(i)); }},
      {"SetItemFont", [](TestTree& t, CVornTreeItem* i) { return t.SetItemFont(i, nullptr), 0; }},
      {"UpdateItemFont", [](TestTree& t, CVornTreeItem* i) { return t.UpdateItemFont(i, STFF_BOLD); }},
      {"SetItemTextColor", [](TestTree& t, CVornTreeItem* i) { return t.SetItemTextColor(i, 0), 0; }},
      {"SetItemBkColor", [](TestTree& t, CVornTreeItem* i) { return t.SetItemBkColor(i, 0), 0; }},
      {"CreateShortcut", [](TestTree& t, CVornTreeItem* i) { return Number(t.CreateShortcut(i, STI_ROOT, STI_LAST)); }},
      {"CreateShortcut under",
       [](TestTree& t, CVornTreeItem* i) { return Number(t.CreateShortcut(t["b"], i, STI_LAST)); }, 0, true},
      {"GetShortcutItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetShortcutItem(i)); }},
      {"GetShortcutItems",
       [](TestTree& t, CVornTreeItem* i) {
         CVornTreeItemArray list;
         return t.GetShortcutItems(i, list) + list.GetSize();
       }},
      {"IsShortcutItemOf", [](TestTree& t, CVornTreeItem* i) { return t.IsShortcutItemOf(i, t["b"]); }},
      {"SortChildren",
       [](TestTree& t, CVornTreeItem* i) {
         STSORTCB sort{i, [](LPARAM, LPARAM, LPARAM) { return 1; }, 0};
         return t.SortChildren(&sort);
       }},
      {"SortChildrenByName", [](TestTree& t, CVornTreeItem* i) { return t.SortChildrenByName(i); }},
      {"GetLastVisibleItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetLastVisibleItem(i)); }},
      {"GetNextVisibleItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextVisibleItem(i)); }},
      {"GetPrevVisibleItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetPrevVisibleItem(i)); }},
      {"IsDisplayItem", [](TestTree& t, CVornTreeItem* i) { return t.IsDisplayItem(i); }},
      {"ItemIsVisible", [](TestTree& t, CVornTreeItem* i) { return t.ItemIsVisible(i); }},
      {"GetItemVisibility", [](TestTree& t, CVornTreeItem* i) { return t.GetItemVisibility(i); }},
      {"SetItemVisibility", [](TestTree& t, CVornTreeItem* i) { return t.SetItemVisibility(i, 0); }},
      {"LockItemVisibility", [](TestTree& t, CVornTreeItem* i) { return t.LockItemVisibility(i, 0); }},
      {"UnlockItemVisibility", [](TestTree& t, CVornTreeItem* i) { return t.UnlockItemVisibility(i); }},
      {"ItemIsLockedVisibility", [](TestTree& t, CVornTreeItem* i) { return t.ItemIsLockedVisibility(i); }},
      {"Expand", [](TestTree& t, CVornTreeItem* i) { return t.Expand(i, STE_EXPAND); }, 0, true},
      {"EnsureVisible", [](TestTree& t, CVornTreeItem* i) { return t.EnsureVisible(i); }},
      {"SetFirstVisible", [](TestTree& t, CVornTreeItem* i) { return t.SetFirstVisible(i); }},
      {"SelectSetFirstVisible", [](TestTree& t, CVornTreeItem* i) { return t.SelectSetFirstVisible(i); }},
      {"GetItemRect",
       [](TestTree& t, CVornTreeItem* i) {
         RECT rect;
         return t.GetItemRect(i, &rect, 1);
       }},
      {"EditLabel", [](TestTree& t, CVornTreeItem* i) { return Number(t.EditLabel(i)); }},
      {"SelectItem", [](TestTree& t, CVornTreeItem* i) { return t.SelectItem(i, 1); }},
      {"UnselectItem", [](TestTree& t, CVornTreeItem* i) { return t.UnselectItem(i); }},
      {"Select", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_SELECT); }},
      {"Select add", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_ADD); }},
      {"UpdateSelection",
       [](TestTree& t, CVornTreeItem* i) { return t.UpdateSelection(i, STUS_ITEMREMOVED | STUS_REBUILD), 0; }},
      {"manager press", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnLButtonDown(i); }},
      {"manager release", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnLButtonUp(i); }},
      {"manager right press", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnRButtonDown(i); }},
      {"manager key", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnKeyDown(i, VK_UP); }},
      {"manager draggable",
       [](TestTree& t, CVornTreeItem* i) {
         CVornTreeItemArray items;
         return t.GetSelectionManager()->GetDraggableItems(i, items);
       },
       0, true},
      {"IsAllow", [](TestTree& t, CVornTreeItem* i) { return t.IsAllow(i, STIS_NODELETE); }, 1},
  };
  return operations;
}

class BadInput : public testing::TestWithParam<int> {};

TEST_P(BadInput, GivesTheStatedResultAndChangesNothing) {
  TestTree tree, other;
  tree.EnableSelectionByDocuments(GetParam());
  tree.Build("root [a+ [a1* a2!] b [b1]]");
  CVornTreeItem* const dead = tree.Add("x");
  tree.DeleteItem(dead);
  tree.log.Clear();
  alignas(8) static char garbage[4096];
  const std::string before = tree.Text();
  const std::vector<std::pair<const char*, CVornTreeItem*>> bad = {
      {"null", nullptr},
      {"STI_ROOT", STI_ROOT},
      {"STI_FIRST", STI_FIRST},
      {"STI_LAST", STI_LAST},
      {"dead", dead},
      {"garbage", reinterpret_cast<CVornTreeItem*>(garbage)},
      {"odd", reinterpret_cast<CVornTreeItem*>(reinterpret_cast<char*>(tree["a"]) + 8)},
  };
  for (const Operation& operation : Operations()) {
    for (const auto& [what, item] : bad) {
      if (item == STI_ROOT && operation.takesRoot) continue;
      SCOPED_TRACE(std::string(operation.name) + " with " + what);
      EXPECT_EQ(operation.call(tree, item), operation.result);
      EXPECT_EQ(tree.Text(), before);
      EXPECT_EQ(CheckTree(tree), "");
      tree.log.Clear();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BothManagers, BadInput, testing::Values(0, 1));

// Operations that change links or the selection, with an item of another control.
TEST(ForeignInput, AnItemOfAnotherControlIsNotLinkedSelectedOrDeleted) {
  TestTree tree, other;
  tree.Build("root [a b]");
  other.Build("root [x [y]]");
  CVornTreeItem* const foreign = other["x"];
  EXPECT_EQ(tree.InsertItem(L"z", -1, -1, foreign), nullptr);
  EXPECT_EQ(tree.DeleteItem(foreign), 0);
  EXPECT_EQ(tree.DeleteAllItems(foreign), 0);
  EXPECT_EQ(tree.MoveItem(tree["a"], foreign, STI_LAST), 0);
  EXPECT_EQ(tree.MoveItem(foreign, tree["a"], STI_LAST), 0);
  EXPECT_EQ(tree.CreateShortcut(foreign, STI_ROOT, STI_LAST), nullptr);
  EXPECT_EQ(tree.Expand(foreign, STE_EXPAND), 0);
  EXPECT_EQ(tree.SelectItem(foreign), 0);
  EXPECT_FALSE(tree.SortChildrenByName(foreign));
  EXPECT_EQ(tree.Text(), "root [a b]");
  EXPECT_EQ(other.Text(), "root [x [y]]");
  EXPECT_EQ(CheckTree(other), "");
}

}  // namespace
