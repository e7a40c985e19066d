// CVornTreeCtrl: rows by number. Walks where the tree is small, asks the index of rows where it is not.
#include <new>

#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "RowIndex.h"
#include "VornTreeOperations.h"

#ifdef VORN_CHECK_TREES
#include <cstdio>
#include <cstdlib>
#endif

namespace {

#ifdef VORN_CHECK_TREES
// Builds that check trees ask the index for every tree, and compare it with the walk each time.
constexpr int kWorthIndexing = 1;

void Verify(const vorn::RowIndex& rows, const CVornTreeCtrl& tree, int visibleCount) {
  const auto expect = [](bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "The index of rows is wrong: %s\n", what);
    std::abort();
  };
  int index = 0;
  const CVornTreeItem* last = nullptr;
  for (CVornTreeItem* row = tree.GetFirstVisibleItem(); row != nullptr; row = tree.GetNextVisibleItem(row)) {
    expect(rows.At(index) == row, "another row is at this place");
    expect(rows.IndexOf(row) == index, "another number for this row");
    expect(tree.GetPrevVisibleItem(row) == last, "backward is another way");
    last = row;
    ++index;
  }
  expect(rows.GetCount() == index && visibleCount == index, "another count of rows");
  expect(rows.At(index) == nullptr && rows.At(-1) == nullptr, "rows where there are none");
}
#else
constexpr int kWorthIndexing = 1000;

void Verify(const vorn::RowIndex&, const CVornTreeCtrl&, int) {}
#endif

}  // namespace

// The index, or null when it cannot answer or is not worth while.
vorn::RowIndex* CVornTreeCtrl::Rows() const {
  if (IsDocumentMode() || m_pRoot == nullptr || m_pRoot->m_nVisibleDescendants < kWorthIndexing) {
    return nullptr;
  }
  if (m_pRows == nullptr) m_pRows = new (std::nothrow) vorn::RowIndex;
  if (m_pRows == nullptr || !m_pRows->Prepare(m_pRoot)) return nullptr;
  Verify(*m_pRows, *this, m_pRoot->m_nVisibleDescendants);
  return m_pRows;
}

CVornTreeItem* CVornTreeCtrl::RowAt(int index) const {
  if (index < 0) return nullptr;
  if (const vorn::RowIndex* const rows = Rows()) return rows->At(index);
  return CVornTreeOperations::FindVisibleByIndex(&index, GetFirstVisibleItem());
}

// Whether item comes before the other one in the tree.
bool CVornTreeCtrl::IsAbove(CVornTreeItem* item, CVornTreeItem* other) const {
  const vorn::RowIndex* const rows = IsItemValid(item) && IsItemValid(other) ? Rows() : nullptr;
  if (rows != nullptr) {
    const int index = rows->IndexOf(item), otherIndex = rows->IndexOf(other);
    if (index >= 0 && otherIndex >= 0) return index < otherIndex;
  }
  return CVornTreeSelection::GetFirstInOrder(other, item) == item;
}

// Steps up or down from a row to an item; *position goes along. Null if the rows end before.
CVornTreeItem* CVornTreeCtrl::StepToRow(CVornTreeItem* from, CVornTreeItem* to, bool up,
                                        int* position) const {
  const vorn::RowIndex* const rows = IsItemValid(from) ? Rows() : nullptr;
  const int start = rows != nullptr ? rows->IndexOf(from) : -1;
  if (start >= 0) {
    const int end = rows->IndexOf(to);
    if (end < 0 || (up ? end > start : end < start)) return nullptr;
    *position += end - start;
    return to;
  }
  CVornTreeItem* row = from;
  while (row != nullptr && row != to) {
    row = up ? GetPrevVisibleItem(row) : GetNextVisibleItem(row);
    *position += up ? -1 : 1;
  }
  return row;
}

// --- News for the index ----------------------------------------------------------------------------

void CVornTreeCtrl::OnRowsChanged() const {
  if (m_pRows != nullptr) m_pRows->SetStale();
}

void CVornTreeCtrl::OnItemLinked(CVornTreeItem* item) const {
  if (m_pRows != nullptr && m_pRows->IsReady()) m_pRows->OnLinked(m_pRoot, item);
}

void CVornTreeCtrl::OnItemUnlinking(CVornTreeItem* item) const {
  if (m_pRows != nullptr && m_pRows->IsReady()) m_pRows->OnUnlinking(m_pRoot, item);
}

void CVornTreeCtrl::OnItemResized(const CVornTreeItem* item) const {
  if (m_pRows != nullptr && m_pRows->IsReady()) m_pRows->OnResized(item);
}

void CVornTreeCtrl::OnAllItemsResized() const {
  if (m_pRows != nullptr) m_pRows->OnAllResized();
}
