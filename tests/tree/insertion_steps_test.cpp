// What an insertion does step by step: options, hook, layout, paint, the record's states.
#include <set>

#include "support/driver.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"
#include "tree/tree_access.h"

namespace {

using support::CheckTree;
using support::TestTree;

// Sees each new item in the hook that is there for its font.
class WatchingTree : public TestTree {
 public:
  std::function<void(CVornTreeItem*)> born;
  void InitializeItemFont(CVornTreeItem* item) override {
    if (born) born(item);
  }
};

class InsertionSteps : public testing::Test {
 protected:
  ~InsertionSteps() override {
    tree.log.Clear();
    tree.recording = false;
    if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
  }
  // Rows for about six items.
  void Show() {
    ASSERT_NE(tree.CreateTreeCtrl(WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 120), nullptr, 0), 0);
    support::Pump();
  }
  bool IsDirty() { return ::GetUpdateRect(tree, nullptr, FALSE) != FALSE; }
  bool NeedsLayout() { return VornTreeAccess::NeedLayout(tree) != FALSE; }
  int Lock() { return VornTreeAccess::RedrawLock(tree); }

  WatchingTree tree;
};

TEST_F(InsertionSteps, TheOptionsOfTheControlBecomeTheCurrentOnes) {
  CVornTreeOptions* const own = AfxGetVornTreeOptions();
  TestTree other;
  EXPECT_NE(AfxGetVornTreeOptions(), own);
  tree.Add("x");
  EXPECT_EQ(AfxGetVornTreeOptions(), own);
}

TEST_F(InsertionSteps, AnInvalidParentIsRefusedBeforeTheOptionsChange) {
  TestTree other;
  CVornTreeOptions* const others = AfxGetVornTreeOptions();
  EXPECT_EQ(tree.Add("x", nullptr), nullptr);
  EXPECT_EQ(AfxGetVornTreeOptions(), others);
}

TEST_F(InsertionSteps, TheHookSeesTheItemOnceLinkedAndWithoutItsLabel) {
  tree.Build("root [a b]");
  int calls = 0;
  tree.born = [&](CVornTreeItem* item) {
    ++calls;
    EXPECT_EQ(tree.GetItemPosition(item), 2);
    EXPECT_STREQ(tree.GetItemText(item), L"");
    EXPECT_EQ(tree.GetItemData(item), 9u);
    int image = 0, selected = 0;
    tree.GetItemImage(item, image, selected);
    EXPECT_EQ(image, 3);
    EXPECT_EQ(selected, 4);
  };
  tree.InsertItem(L"x", 3, 4, STI_ROOT, tree["a"], 9);
  EXPECT_EQ(calls, 1);
  tree.born = nullptr;
}

TEST_F(InsertionSteps, AFontGivenInTheHookMeasuresTheLabel) {
  LOGFONTW logFont{};
  logFont.lfHeight = -40;
  CFont large;
  large.CreateFontIndirect(&logFont);
  const int plain = tree.Add("some label")->m_nTextWidth;
  tree.born = [&](CVornTreeItem* item) { tree.SetItemFont(item, &large); };
  CVornTreeItem* const item = tree.Add("some label");
  EXPECT_GT(item->m_nTextWidth, plain);
  EXPECT_GE(item->m_nHeight, 40);
  tree.born = nullptr;
}

TEST_F(InsertionSteps, UnderAClosedParentNothingIsLaidOut) {
  Show();
  tree.Build("root [a]");
  tree.UpdateTree();
  ASSERT_FALSE(IsDirty());
  VornTreeAccess::NeedLayout(tree) = FALSE;
  tree.Add("a2", tree.Add("a1", tree["a"]));
  EXPECT_TRUE(NeedsLayout());
  EXPECT_EQ(tree.GetDisplayCount(), 1);
}

TEST_F(InsertionSteps, AFirstChildMakesItsParentsButtonAppear) {
  Show();
  tree.Build("root [a b]");
  tree.UpdateTree();
  ASSERT_FALSE(IsDirty());
  tree.Add("a1", tree["a"]);
  CRect dirty, row;
  EXPECT_TRUE(::GetUpdateRect(tree, dirty, FALSE));
  tree.GetItemRect(tree["a"], row, 0);
  EXPECT_EQ(dirty, row) << "the row of the parent is painted again";
}

TEST_F(InsertionSteps, WhileRedrawIsHeldNothingIsLaidOut) {
  Show();
  tree.SetRedraw(FALSE);
  tree.Add("a");
  EXPECT_TRUE(NeedsLayout());
  EXPECT_EQ(Lock(), 1);
  EXPECT_EQ(tree.GetDisplayCount(), 0);
  tree.SetRedraw(TRUE);
  EXPECT_FALSE(NeedsLayout());
  EXPECT_EQ(tree.GetDisplayCount(), 1);
}

TEST_F(InsertionSteps, ARowThatShowsIsPaintedAtOnce) {
  Show();
  tree.Add("a");
  EXPECT_EQ(tree.GetDisplayCount(), 1) << "the first row of all shows as its parent is open";
  tree.Add("b");
  EXPECT_EQ(tree.GetDisplayCount(), 2);
  EXPECT_FALSE(IsDirty());
  EXPECT_FALSE(NeedsLayout());
  EXPECT_EQ(Lock(), 0);
}

TEST_F(InsertionSteps, ARowFarBelowTheWindowIsNotPainted) {
  Show();
  for (int i = 0; i < 40; ++i) tree.Add(std::to_string(i));
  support::Pump();
  CVornTreeItem* const last = tree.GetLastDisplayItem();
  ASSERT_NE(last, tree["39"]);
  int paints = 0;
  tree.born = [&](CVornTreeItem*) { ::ValidateRect(tree, nullptr); };
  tree.Add("far");
  paints += IsDirty();
  EXPECT_EQ(paints, 0);
  EXPECT_FALSE(NeedsLayout());
  EXPECT_EQ(tree.GetVisibleCount(), 41);
  SCROLLINFO info{sizeof(info), SIF_RANGE, 0, 0, 0, 0, 0};
  tree.GetScrollInfo(SB_VERT, &info, SIF_RANGE);
  EXPECT_GE(info.nMax, 39) << "but the bar knows of it";
  tree.born = nullptr;
}

TEST_F(InsertionSteps, WithoutAWindowNothingIsLeftHeld) {
  tree.Add("a");
  EXPECT_FALSE(NeedsLayout());
  EXPECT_EQ(Lock(), 0);
}

TEST_F(InsertionSteps, FromAnotherThreadTheLayoutIsPosted) {
  Show();
  tree.Add("a");
  struct Shared {
    WatchingTree* tree;
    CVornTreeItem* item;
  } shared{&tree, nullptr};
  const LPTHREAD_START_ROUTINE insert = [](LPVOID param) -> DWORD {
    auto* const with = static_cast<Shared*>(param);
    with->item = with->tree->InsertItem(L"b", -1, -1);
    return 0;
  };
  HANDLE thread = ::CreateThread(nullptr, 0, insert, &shared, 0, nullptr);
  std::set<UINT> posted;
  while (::WaitForSingleObject(thread, 1) == WAIT_TIMEOUT) {
    MSG message;  // answers what the other thread sends, and leaves what it posts
    ::PeekMessageW(&message, nullptr, WM_USER + 2000, WM_USER + 2000, PM_NOREMOVE);
  }
  ::CloseHandle(thread);
  ASSERT_NE(shared.item, nullptr);
  EXPECT_EQ(tree.GetNextItem(tree["a"]), shared.item);
  MSG message;
  EXPECT_TRUE(::PeekMessageW(&message, tree, WM_USER + 1000, WM_USER + 1000, PM_NOREMOVE));
  EXPECT_EQ(tree.GetDisplayCount(), 1);
  support::Pump();
  EXPECT_EQ(tree.GetDisplayCount(), 2);
}

TEST_F(InsertionSteps, AfterItsWindowAControlTakesNoItems) {
  Show();
  CVornTreeItem* const item = tree.Add("a");
  tree.DestroyWindow();
  EXPECT_EQ(tree.Add("b"), nullptr);
  EXPECT_EQ(tree.GetRootItem(), nullptr);
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_EQ(tree.DeleteItem(item), 0);
  EXPECT_EQ(tree.DeleteAllItems(STI_ROOT), 0);
  EXPECT_EQ(tree.DeleteItem(nullptr), 0);
  EXPECT_EQ(tree.MoveItem(STI_ROOT, item, STI_LAST), 0);
  EXPECT_EQ(tree.GetItemFromName(L"a"), nullptr);
  EXPECT_EQ(tree.GetItemFromFullPathName(L"a"), nullptr);
  EXPECT_EQ(tree.GetItemFromItemData(1), nullptr);
  unsigned __int64 data = 1;
  EXPECT_EQ(tree.GetItemFromItemDatas(&data, 1), nullptr);
  EXPECT_EQ(tree.GetNextItem(nullptr, STGN_ROOT), nullptr);
  EXPECT_EQ(tree.GetNextItem(nullptr, STGN_CARET), nullptr);
  EXPECT_EQ(tree.GetNextItem(nullptr, STGN_DROPHILITE), nullptr);
  EXPECT_EQ(tree.GetChildItem(STI_ROOT), nullptr);
  EXPECT_EQ(tree.CreateShortcut(item, STI_ROOT, STI_LAST), nullptr);
}

// --- The record's states -----------------------------------------------------------------------------

class InsertionRecord : public InsertionSteps {
 protected:
  InsertionRecord() {
    insert.hParent = STI_ROOT;
    insert.item.mask = STIF_STATE;
  }
  CVornTreeItem* Insert(unsigned state, unsigned mask) {
    insert.item.state = state;
    insert.item.stateMask = mask;
    return tree.InsertItem(&insert);
  }
  STINSERTSTRUCT insert{};
};

TEST_F(InsertionRecord, NeedsAParent) {
  insert.hParent = nullptr;
  EXPECT_EQ(tree.InsertItem(&insert), nullptr);
}

TEST_F(InsertionRecord, WithoutMaskBitsHasTheDefaults) {
  insert.item = {};
  insert.item.iImage = 3;
  insert.item.iSelectedImage = 4;
  insert.item.lParam = 5;
  insert.item.cChildren = 1;
  insert.item.state = insert.item.stateMask = 0xFFFFFFFF;
  wchar_t text[] = L"text";
  insert.item.pszText = text;
  insert.item.cchTextMax = 4;
  CVornTreeItem* const item = tree.InsertItem(&insert);
  EXPECT_STREQ(tree.GetItemText(item), L"");
  int image = 0, selected = 0;
  tree.GetItemImage(item, image, selected);
  EXPECT_EQ(image, -1);
  EXPECT_EQ(selected, -1);
  EXPECT_EQ(tree.GetItemData(item), 0u);
  EXPECT_EQ(tree.GetItemState(item), 0u);
}

TEST_F(InsertionRecord, TakesDataAndTheSelectedImageByTheirOwnBits) {
  insert.item.mask = STIF_PARAM | STIF_SELECTEDIMAGE;
  insert.item.iImage = 3;
  insert.item.iSelectedImage = 4;
  insert.item.lParam = -5;
  CVornTreeItem* const item = tree.InsertItem(&insert);
  int image = 0, selected = 0;
  tree.GetItemImage(item, image, selected);
  EXPECT_EQ(image, -1);
  EXPECT_EQ(selected, 4);
  EXPECT_EQ(tree.GetItemData(item), static_cast<unsigned __int64>(-5));
}

TEST_F(InsertionRecord, NullAsThePlaceAppends) {
  tree.Build("root [a b]");
  insert.hInsertAfter = nullptr;
  EXPECT_EQ(tree.GetItemPosition(tree.InsertItem(&insert)), 3);
  insert.hInsertAfter = STI_FIRST;
  EXPECT_EQ(tree.GetItemPosition(tree.InsertItem(&insert)), 1);
}

TEST_F(InsertionRecord, ANewItemCannotBeOpenedByIt) {
  insert.item.mask |= STIF_CHILDREN;
  insert.item.cChildren = 1;
  CVornTreeItem* const item = Insert(STIS_EXPANDED, STIS_EXPANDED);
  EXPECT_EQ(tree.GetItemState(item), unsigned{STIS_HASCHILDREN}) << "children are announced after the states";
}

TEST_F(InsertionRecord, ACheckNeedsABox) {
  EXPECT_EQ(tree.GetItemState(Insert(STIS_CHECKED, STIS_CHECKED)), 0u);
  Show();
  tree.ModifyStyle(0, STS_CHECKBOXES);
  EXPECT_EQ(tree.GetItemState(Insert(STIS_CHECKED, STIS_CHECKED)), unsigned{STIS_CHECKED});
  EXPECT_EQ(tree.GetItemState(Insert(0, STIS_CHECKED)), 0u);
}

TEST_F(InsertionRecord, OnlyOneAnnouncesChildren) {
  insert.item.mask = STIF_CHILDREN;
  insert.item.cChildren = 2;
  EXPECT_EQ(tree.ItemHasChildren(tree.InsertItem(&insert)), 0);
  insert.item.cChildren = -1;
  EXPECT_EQ(tree.ItemHasChildren(tree.InsertItem(&insert)), 0);
  insert.item.cChildren = 1;
  EXPECT_EQ(tree.ItemHasChildren(tree.InsertItem(&insert)), 1);
}

TEST_F(InsertionRecord, HidingNeedsItsMaskAndAnyHigherState) {
  EXPECT_EQ(tree.GetItemVisibility(Insert(127, STIS_HIDDEN)), 1);
  EXPECT_EQ(tree.GetItemVisibility(Insert(128, STIS_HIDDEN)), 0);
  EXPECT_EQ(tree.GetItemVisibility(Insert(0x80000000, STIS_HIDDEN)), 0);
  EXPECT_EQ(tree.GetItemVisibility(Insert(STIS_HIDDEN, 0)), 1);
  EXPECT_EQ(CheckTree(tree), "");
}

TEST_F(InsertionRecord, AddsToTheSelection) {
  tree.Build("root [a*]");
  CVornTreeItem* const item = Insert(STIS_SELECTED, STIS_SELECTED);
  EXPECT_LOG(tree.log, "OnSelChanging a \nOnSelChanged a ");
  CVornTreeItemArray items;
  tree.GetCurrentSelection(items);
  EXPECT_EQ(items.GetSize(), 2);
  EXPECT_EQ(tree.GetSelectedItem(), item);
}

TEST_F(InsertionRecord, HoldsRedrawWhileItActsOnWhatShows) {
  int lock = -1;
  tree.answer = [&](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
    if (hook == "OnSelChanging") lock = Lock();
    return 1;
  };
  Insert(STIS_SELECTED, STIS_SELECTED);
  EXPECT_EQ(lock, 0) << "nothing is displayed without a window";
  Show();
  tree.Add("a");
  Insert(STIS_SELECTED, STIS_SELECTED);
  EXPECT_EQ(lock, 1);
  EXPECT_EQ(Lock(), 0);
}

}  // namespace
