// The model without memory: an operation is done, or nothing of it is.
#include <algorithm>
#include <string>

#include <VornComCtl.h>

#include "each_failure.h"

namespace {

using faults::Kind;

class ModelFault : public testing::Test {
 protected:
  void SetUp() override {
    AfxInitVornComCtl();
    for (const wchar_t* label : {L"delta", L"bravo", L"charlie", L"alpha"}) {
      CVornTreeItem* const item = tree.InsertItem(label, -1, -1);
      tree.SetItemData(item, static_cast<unsigned __int64>(label[0]));
    }
    first = tree.GetChildItem(STI_ROOT);
  }
  // The initials of the documents.
  std::wstring Labels() {
    std::wstring labels;
    for (CVornTreeItem* item = tree.GetChildItem(STI_ROOT); item != nullptr; item = tree.GetNextItem(item)) {
      labels += tree.GetItemText(item)[0];
    }
    return labels;
  }
  std::wstring AnyOrder() {
    std::wstring labels = Labels();
    std::sort(labels.begin(), labels.end());
    return labels;
  }
  // Puts the first item in front again, as it was before a sort.
  void Mix() { tree.MoveItem(STI_ROOT, first, STI_FIRST); }

  CVornTreeCtrl tree;
  CVornTreeItem* first = nullptr;
};

TEST_F(ModelFault, AShortcutIsThereOrNothingChanged) {
  CVornTreeItem* shortcut = nullptr;
  faults::Experiment experiment;
  experiment.prepare = [this] { tree.ModifyItemState(first, 0, STIS_SELECTED); };
  experiment.act = [&] { return (shortcut = tree.CreateShortcut(first, STI_ROOT, STI_LAST)) != nullptr; };
  experiment.complete = [&] {
    return tree.GetShortcutItem(shortcut) == first &&
           std::wstring(tree.GetItemText(shortcut)) == L"Raccourci vers delta" && !tree.IsItemSelected(first);
  };
  experiment.cleanUp = [&] {
    if (shortcut == nullptr) {
      EXPECT_TRUE(tree.IsItemSelected(first));
    } else {
      tree.DeleteItem(shortcut);
    }
    shortcut = nullptr;
    EXPECT_EQ(tree.GetCount(), 4u);
    CVornTreeItemArray list;
    tree.GetShortcutItems(first, list);
    EXPECT_EQ(list.GetSize(), 0);
  };
  experiment.mayWorkAllTheSame = true;
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
}

TEST_F(ModelFault, SortingByDataLosesNobody) {
  faults::Experiment experiment;
  experiment.prepare = [this] { Mix(); };
  experiment.act = [this] {
    STSORTCB sort{tree.GetRootItem(), [](LPARAM a, LPARAM b, LPARAM) { return static_cast<int>(a - b); }, 0};
    return tree.SortChildren(&sort) != 0;
  };
  experiment.complete = [this] { return Labels() == L"abcd"; };
  experiment.cleanUp = [this] {
    EXPECT_EQ(AnyOrder(), L"abcd");
    EXPECT_EQ(tree.GetCount(), 4u);
  };
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
}

TEST_F(ModelFault, SortingByNameIsDoneOrChangesNothing) {
  faults::Experiment experiment;
  std::wstring before;
  experiment.prepare = [&] {
    Mix();
    before = Labels();
  };
  bool sorted = false;
  experiment.act = [&] { return sorted = tree.SortChildrenByName(tree.GetRootItem()); };
  experiment.complete = [this] { return Labels() == L"abcd"; };
  experiment.cleanUp = [&] {
    if (!sorted) {
      EXPECT_EQ(Labels(), before);
    }
  };
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
}

TEST_F(ModelFault, ALabelIsSetOrStays) {
  const std::wstring label(300, L'x');
  faults::Experiment experiment;
  experiment.prepare = [this] { tree.SetItemText(first, L"delta"); };
  bool done = false;
  experiment.act = [&] { return done = tree.SetItemText(first, label.c_str()) != 0; };
  experiment.complete = [&] { return tree.GetItemText(first) == label; };
  experiment.cleanUp = [&] {
    if (!done) {
      EXPECT_EQ(std::wstring(tree.GetItemText(first)), L"delta");
    }
  };
  experiment.mayWorkAllTheSame = true;
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
}

TEST_F(ModelFault, ARecordsLabelIsSetOrTheWholeRecordIsRefused) {
  std::wstring label(300, L'x');
  faults::Experiment experiment;
  experiment.prepare = [this] {
    tree.SetItemText(first, L"delta");
    tree.SetItemData(first, 1);
  };
  bool done = false;
  experiment.act = [&] {
    STITEM record{};
    record.hItem = first;
    record.mask = STIF_TEXT | STIF_PARAM;
    record.pszText = label.data();
    record.cchTextMax = 300;
    record.lParam = 2;
    return done = tree.SetItem(&record) != 0;
  };
  experiment.complete = [&] { return tree.GetItemText(first) == label && tree.GetItemData(first) == 2; };
  experiment.cleanUp = [&] {
    if (!done) {
      EXPECT_EQ(std::wstring(tree.GetItemText(first)), L"delta");
      EXPECT_EQ(tree.GetItemData(first), 1u);
    }
    CVornTreeItem* const probe = tree.InsertItem(L"probe", -1, -1);
    EXPECT_NE(probe, nullptr) << "redraw is not held any more";
    tree.DeleteItem(probe);
  };
  experiment.mayWorkAllTheSame = true;
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
}

TEST_F(ModelFault, AnItemThatDoesNotComeLeavesItsParentAsItWas) {
  CVornTreeItem* item = nullptr;
  faults::Experiment experiment;
  experiment.prepare = [this] { tree.ModifyItemState(first, 0, STIS_HASCHILDREN); };
  experiment.act = [&] {
    wchar_t label[] = L"a label of its own";
    STINSERTSTRUCT insert{};
    insert.hParent = first;
    insert.item.mask = STIF_TEXT;
    insert.item.pszText = label;
    insert.item.cchTextMax = 18;
    return (item = tree.InsertItem(&insert)) != nullptr;
  };
  experiment.complete = [&] { return std::wstring(tree.GetItemText(item)) == L"a label of its own"; };
  experiment.cleanUp = [&] {
    if (item == nullptr) {
      EXPECT_EQ(tree.GetItemState(first, STIS_HASCHILDREN), unsigned{STIS_HASCHILDREN});
      EXPECT_EQ(tree.GetChildItem(first), nullptr);
    } else {
      tree.DeleteItem(item);
    }
    item = nullptr;
    EXPECT_EQ(tree.GetCount(), 4u);
  };
  experiment.mayWorkAllTheSame = true;
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
}

}  // namespace
