// Every operation that takes an item, with everything that is none. check_bad_input.py sees to it that none
// is left out.
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
  bool isPlace = false;    // so do null and the other sentinels mean a place
};

long long Number(const void* pointer) { return pointer != nullptr; }

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"InsertItem under", [](TestTree& t, CVornTreeItem* i) { return Number(t.InsertItem(L"x", -1, -1, i)); }, 0, true},
      {"DeleteItem", [](TestTree& t, CVornTreeItem* i) { return t.DeleteItem(i); }},
      {"DeleteAllItems", [](TestTree& t, CVornTreeItem* i) { return t.DeleteAllItems(i); }, 0, true},
      {"InsertItem behind",
       [](TestTree& t, CVornTreeItem* i) { return Number(t.InsertItem(L"x", -1, -1, t["b"], i)); }, 0, false, true},
      {"InsertItem record",
       [](TestTree& t, CVornTreeItem* i) {
         STINSERTSTRUCT insert{};
         insert.hParent = i;
         return Number(t.InsertItem(&insert));
       },
       0, true},
      {"MoveItem behind", [](TestTree& t, CVornTreeItem* i) { return t.MoveItem(t["a"], t["b"], i); }, 0, false, true},
      {"SetItemFamily", [](TestTree& t, CVornTreeItem* i) { return Number(t.SetItemFamily(i, t["b"], STI_LAST)); }},
      {"MoveItem under", [](TestTree& t, CVornTreeItem* i) { return t.MoveItem(i, t["b"], STI_LAST); }, 0, true},
      {"MoveItem", [](TestTree& t, CVornTreeItem* i) { return t.MoveItem(STI_ROOT, i, STI_LAST); }},
      {"GetNextItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i)); }},
      {"GetPrevItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetPrevItem(i)); }},
      {"GetNextItem next", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_NEXT)); }},
      {"GetNextItem previous", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_PREVIOUS)); }},
      {"GetNextItem child", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_CHILD)); }, 0, true},
      {"GetNextItem rows up",
       [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_PREVIOUSVISIBLE)); }},
      {"GetNextItem last", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_LASTVISIBLE)); }},
      {"GetNextItem first", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_FIRSTVISIBLE)); }},
      {"GetNextItem target", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextItem(i, STGN_DROPHILITE)); }},
      {"GetNextItem caret",
       [](TestTree& t, CVornTreeItem* i) { return long{t.GetNextItem(i, STGN_CARET) != t.GetSelectedItem()}; }},
      {"GetNextItem root",
       [](TestTree& t, CVornTreeItem* i) { return long{t.GetNextItem(i, STGN_ROOT) != t.GetRootItem()}; }},
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
      {"IsExist under", [](TestTree& t, CVornTreeItem* i) { return t.IsExist(t["b1"], i); }, 0, true, true},
      {"GetItemFromName below",  // anything that is no item means the documents
       [](TestTree& t, CVornTreeItem* i) { return long{t.GetItemFromName(L"b", i) == t["b"]}; }, 1, true},
      {"GetItemFromItemData below",
       [](TestTree& t, CVornTreeItem* i) { return long{t.GetItemFromItemData(7, i) == t["b"]}; }, 1, true},
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
      {"GetItemText",  // one buffer for all that is no item, which also answers for the root's name
       [](TestTree& t, CVornTreeItem* i) { return long{std::wstring(t.GetItemText(i)) == L"Root"}; }, 1},
      {"SetItemText", [](TestTree& t, CVornTreeItem* i) { return t.SetItemText(i, L"x"); }},
      {"GetItemData", [](TestTree& t, CVornTreeItem* i) { return static_cast<long long>(t.GetItemData(i)); }},
      {"SetItemData", [](TestTree& t, CVornTreeItem* i) { return t.SetItemData(i, 9), 0; }},
      {"GetItemImage",
       [](TestTree& t, CVornTreeItem* i) {
         int image = 7, selected = 8;
         return t.GetItemImage(i, image, selected) + long{image != 7 || selected != 8};
       }},
      {"SetItemImage", [](TestTree& t, CVornTreeItem* i) { return t.SetItemImage(i, 1, 1); }},
      {"GetItemImageState",
       [](TestTree& t, CVornTreeItem* i) {
         int image = 7;
         return t.GetItemImageState(i, image) + long{image != 7};
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
      {"GetItemTextColor",
       [](TestTree& t, CVornTreeItem* i) { return long{t.GetItemTextColor(i) != ::GetSysColor(COLOR_WINDOWTEXT)}; }},
      {"GetItemBkColor",
       [](TestTree& t, CVornTreeItem* i) { return long{t.GetItemBkColor(i) != t.GetBkColor()}; }},
      {"UpdateItem", [](TestTree& t, CVornTreeItem* i) { return t.UpdateItem(i, 1), 0; }},
      {"GetItemSize", [](TestTree& t, CVornTreeItem* i) { return t.GetItemSize(i); }},
      {"SetItemTextColor", [](TestTree& t, CVornTreeItem* i) { return t.SetItemTextColor(i, 0), 0; }},
      {"SetItemBkColor", [](TestTree& t, CVornTreeItem* i) { return t.SetItemBkColor(i, 0), 0; }},
      {"CreateShortcut", [](TestTree& t, CVornTreeItem* i) { return Number(t.CreateShortcut(i, STI_ROOT, STI_LAST)); }},
      {"CreateShortcut under",
       [](TestTree& t, CVornTreeItem* i) { return Number(t.CreateShortcut(t["b"], i, STI_LAST)); }, 0, true},
      {"CreateShortcut behind",
       [](TestTree& t, CVornTreeItem* i) { return Number(t.CreateShortcut(t["b"], t["a"], i)); }, 0, false, true},
      {"GetShortcutItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetShortcutItem(i)); }},
      {"GetShortcutItems",
       [](TestTree& t, CVornTreeItem* i) {
         CVornTreeItemArray list;
         return t.GetShortcutItems(i, list) + list.GetSize();
       }},
      {"IsShortcutItemOf", [](TestTree& t, CVornTreeItem* i) { return t.IsShortcutItemOf(i, t["b"]); }},
      {"IsShortcutItemOf target", [](TestTree& t, CVornTreeItem* i) { return t.IsShortcutItemOf(t["b"], i); }},
      {"SortChildren",
       [](TestTree& t, CVornTreeItem* i) {
         STSORTCB sort{i, [](LPARAM, LPARAM, LPARAM) { return 1; }, 0};
         return t.SortChildren(&sort);
       }},
      {"SortChildrenByName", [](TestTree& t, CVornTreeItem* i) { return t.SortChildrenByName(i); }},
      {"GetLastVisibleItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetLastVisibleItem(i)); }},
      {"GetNextVisibleItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextVisibleItem(i)); }},
      {"GetPrevVisibleItem", [](TestTree& t, CVornTreeItem* i) { return Number(t.GetPrevVisibleItem(i)); }},
      {"GetNextVisibleItem step",
       [](TestTree& t, CVornTreeItem* i) { return Number(t.GetNextVisibleItem(i, 1, nullptr)); }},
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
      // What is no item has no denials: the hook decides alone.
      {"BeginLabelEdit", [](TestTree& t, CVornTreeItem* i) { return t.BeginLabelEdit(i); }, 1},
      {"SelectItem", [](TestTree& t, CVornTreeItem* i) { return t.SelectItem(i, 1); }},
      {"UnselectItem", [](TestTree& t, CVornTreeItem* i) { return t.UnselectItem(i); }},
      {"Select", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_SELECT); }},
      {"Select add", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_ADD); }},
      {"Select unselect", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_UNSELECT); }},
      {"Select unselect shortcuts", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_UNSELECTWITHSHORTCUTS); }},
      {"Select first", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_FIRSTVISIBLE); }, 1},
      {"Select and first", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_SELECTFIRSTVISIBLE); }},
      {"Select target", [](TestTree& t, CVornTreeItem* i) { return t.Select(i, STSEL_DROPHILITE); }},
      {"UpdateSelection",
       [](TestTree& t, CVornTreeItem* i) { return t.UpdateSelection(i, STUS_ITEMREMOVED | STUS_REBUILD), 0; }},
      {"manager OnLButtonDown", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnLButtonDown(i); }},
      {"manager OnLButtonUp", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnLButtonUp(i); }},
      {"manager OnRButtonDown", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnRButtonDown(i); }},
      {"manager OnRButtonUp",  // does nothing, which a plain selection calls success
       [](TestTree& t, CVornTreeItem* i) {
         return t.GetSelectionManager()->OnRButtonUp(i) - !t.IsSelectionByDocuments();
       }},
      {"manager OnKeyUp",
       [](TestTree& t, CVornTreeItem* i) {
         return t.GetSelectionManager()->OnKeyUp(i, VK_UP) - !t.IsSelectionByDocuments();
       }},
      {"manager OnKeyDown", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnKeyDown(i, VK_UP); }},
      {"manager OnItemAdded", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnItemAdded(i), 0; }},
      {"manager OnItemRemoved", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->OnItemRemoved(i); }},
      {"manager SelectItem", [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->SelectItem(i, 1); }},
      {"manager UnselectItem",
       [](TestTree& t, CVornTreeItem* i) { return t.GetSelectionManager()->UnselectItem(i, 1); }},
      {"manager UpdateSelection",
       [](TestTree& t, CVornTreeItem* i) {
         return t.GetSelectionManager()->UpdateSelection(STUS_ITEMADDED, i), 0;
       }},
      {"manager SelectRange",
       [](TestTree& t, CVornTreeItem* i) {
         t.GetSelectionManager()->SelectRange(i, t["b"]);
         t.GetSelectionManager()->SelectRange(t["b"], i);
         t.GetSelectionManager()->SelectRange(i, i);
         return 0;
       }},
      {"manager GetFirstInOrder",
       [](TestTree& t, CVornTreeItem* i) {
         return Number(CVornTreeSelection::GetFirstInOrder(i, t["b"])) +
                Number(CVornTreeSelection::GetFirstInOrder(t["b"], i));
       }},
      {"manager ActivateDocument",
       [](TestTree& t, CVornTreeItem* i) {
         auto* const manager = DYNAMIC_DOWNCAST(CVornTreeMultiSelection, t.GetSelectionManager());
         return manager != nullptr ? manager->ActivateDocument(i) : 0;
       }},
      {"options GetItemSize", [](TestTree&, CVornTreeItem* i) { return AfxGetVornTreeOptions()->GetItemSize(i), 0; }},
      {"manager GetDraggableItems",
       [](TestTree& t, CVornTreeItem* i) {
         CVornTreeItemArray items;
         return t.GetSelectionManager()->GetDraggableItems(i, items);
       },
       0, true},
      {"CanDeleteItem", [](TestTree& t, CVornTreeItem* i) { return t.CanDeleteItem(i); }, 1},
      {"CanDragItem", [](TestTree& t, CVornTreeItem* i) { return t.CanDragItem(i); }, 1},
      {"CanDropItem", [](TestTree& t, CVornTreeItem* i) { return t.CanDropItem(i); }, 1},
      {"CanDuplicateItem", [](TestTree& t, CVornTreeItem* i) { return t.CanDuplicateItem(i); }, 1},
      {"CanModifyItem", [](TestTree& t, CVornTreeItem* i) { return t.CanModifyItem(i); }, 1},
      {"CanRenameItem", [](TestTree& t, CVornTreeItem* i) { return t.CanRenameItem(i); }, 1},
      {"CanSelectItem", [](TestTree& t, CVornTreeItem* i) { return t.CanSelectItem(i); }, 1},
      {"CanUpdateItem", [](TestTree& t, CVornTreeItem* i) { return t.CanUpdateItem(i); }, 1},
      {"IsAllow", [](TestTree& t, CVornTreeItem* i) { return t.IsAllow(i, STIS_NODELETE); }, 1},
  };
  return operations;
}

class BadInput : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    tree.EnableSelectionByDocuments(GetParam());
    tree.Build("root [a+ [a1* a2!] b [b1]]");
    tree.SetItemData(tree["b"], 7);
    tree.GetItemText(STI_ROOT);  // whose name the buffer holds from then on
    tree.log.Clear();
  }
  ~BadInput() override { tree.log.Clear(); }

  TestTree tree;
};

TEST_P(BadInput, GivesTheStatedResultAndChangesNothing) {
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
      const bool isSentinel = item == nullptr || item == STI_FIRST || item == STI_LAST;
      if (isSentinel && operation.isPlace) continue;
      SCOPED_TRACE(std::string(operation.name) + " with " + what);
      EXPECT_EQ(operation.call(tree, item), operation.result);
      EXPECT_EQ(tree.Text(), before);
      EXPECT_EQ(CheckTree(tree), "");
      tree.log.Clear();
    }
  }
}

// Links and selections of two controls never mix; what an item of another one looks like may change.
TEST_P(BadInput, AnItemOfAnotherControlIsNeitherLinkedNorSelectedNorDeleted) {
  for (const Operation& operation : Operations()) {
    SCOPED_TRACE(operation.name);
    TestTree other;
    other.EnableSelectionByDocuments(GetParam());
    other.Build("root [x+ [y* z] v]");
    other.recording = false;
    const std::string before = tree.Text(), selectedBefore = tree.Selected();
    CVornTreeItemArray items;
    other.GetCurrentSelection(items);
    const long selected = items.GetSize();
    const auto expectOwn = [this](CVornTreeItem* item) {
      EXPECT_TRUE(item == nullptr || tree.IsParentItemOf(tree.GetRootItem(), item));
    };
    CVornTreeItem *const x = other["x"], *const y = other["y"];
    for (CVornTreeItem* item : {x, y}) {
      operation.call(tree, item);
      EXPECT_EQ(tree.Text(), before);
      EXPECT_EQ(tree.Selected(), selectedBefore);
      EXPECT_EQ(CheckTree(tree), "");
      EXPECT_EQ(CheckTree(other, false), "");
      ASSERT_EQ(other.GetCount(), 4u);
      ASSERT_EQ(other.GetParentItem(y), x);
      expectOwn(tree.GetItemHasFocus());
      expectOwn(tree.GetLastSelectedItem());
      expectOwn(tree.GetActiveDocItem());
      tree.GetCurrentSelection(items);
      for (long i = 0; i < items.GetSize(); ++i) expectOwn(items[i]);
    }
    other.GetCurrentSelection(items);
    EXPECT_EQ(items.GetSize(), selected);
    tree.log.Clear();
  }
}

INSTANTIATE_TEST_SUITE_P(BothManagers, BadInput, testing::Values(0, 1));

// --- Records and other arguments ---------------------------------------------------------------------

TEST(BadRecords, AreRefused) {
  TestTree tree;
  tree.Build("root [a]");
  EXPECT_EQ(tree.GetItem(nullptr), 0);
  EXPECT_EQ(tree.SetItem(nullptr), 0);
  EXPECT_EQ(tree.InsertItem(static_cast<STINSERTSTRUCT*>(nullptr)), nullptr);
  EXPECT_EQ(tree.SortChildren(nullptr), 0);
  EXPECT_EQ(tree.GetImageSize(STIL_NORMAL, nullptr), 0);
  EXPECT_EQ(tree.GetItemRect(tree["a"], nullptr, 0), 0);
  unsigned __int64 data = 1;
  EXPECT_EQ(tree.GetItemFromItemDatas(&data, -1), nullptr);
  EXPECT_EQ(tree.Text(), "root [a]");
}

}  // namespace
