#include "NameOrder.h"

#include <algorithm>
#include <cwctype>
#include <string>

#include "../../core/VornSortedArray.h"
#include "VornTreeItem.h"

namespace vorn {

namespace {

// Sums over a growing set of positions: how many of the positions below one are taken.
class Fenwick {
 public:
  explicit Fenwick(size_t size) : m_sums(size + 1) {}

  void Add(size_t position, int value) {
    for (size_t i = position + 1; i < m_sums.size(); i += i & (~i + 1)) m_sums[i] += value;
  }

  long Below(size_t position) const {
    long sum = 0;
    for (size_t i = position; i > 0; i -= i & (~i + 1)) sum += m_sums[i];
    return sum;
  }

  // The position of the taken one that has so many taken ones before it.
  size_t Find(long rank) const {
    size_t at = 0;
    size_t step = 1;
    while (step * 2 < m_sums.size()) step *= 2;
    for (; step > 0; step /= 2) {
      if (at + step < m_sums.size() && m_sums[at + step] <= rank) {
        at += step;
        rank -= m_sums[at];
      }
    }
    return at;
  }

 private:
  std::vector<int> m_sums;
};

struct Label {
  std::wstring lower;
  size_t taken;  // when the item's turn comes
};

// A run of equal labels in the finished row.
struct Run {
  size_t first;
  std::vector<size_t> members;  // by turn
  std::vector<long> places;     // within the run, at each member's insertion
};

std::vector<Label> SortedLabels(const std::vector<CVornTreeItem*>& items) {
  std::vector<Label> labels(items.size());
  for (size_t i = 0; i < items.size(); ++i) {
    labels[i].taken = i;
    labels[i].lower = items[i]->GetText();
    for (wchar_t& c : labels[i].lower) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  }
  const auto comesFirst = [](const Label& a, const Label& b) {
    // By code, as one character after the other compares.
    const int order = a.lower.compare(b.lower);
    return order != 0 ? order < 0 : a.taken < b.taken;
  };
  std::sort(labels.begin(), labels.end(), comesFirst);
  return labels;
}

// Later insertions push earlier ones back; taken from the last to the first, each finds its final place
// among those still free.
void SpreadRun(const Run& run, const std::vector<CVornTreeItem*>& items, std::vector<CVornTreeItem*>& row) {
  if (run.members.size() == 1) {
    row[run.first] = items[run.members[0]];
    return;
  }
  Fenwick free(run.members.size());
  for (size_t i = 0; i < run.members.size(); ++i) free.Add(i, 1);
  for (size_t i = run.members.size(); i-- > 0;) {
    const size_t place = free.Find(run.places[i]);
    free.Add(place, -1);
    row[run.first + place] = items[run.members[i]];
  }
}

}  // namespace

std::vector<CVornTreeItem*> OrderByName(const std::vector<CVornTreeItem*>& items) {
  const std::vector<Label> labels = SortedLabels(items);
  std::vector<Run> runs;
  std::vector<size_t> runOf(items.size());
  for (size_t i = 0; i < labels.size(); ++i) {
    if (i == 0 || labels[i].lower != labels[i - 1].lower) runs.push_back(Run{i, {}, {}});
    runOf[labels[i].taken] = runs.size() - 1;
  }

  // Replays the searches on numbers alone: of the row at each turn only the count of lower labels and
  // that of equal ones matter.
  Fenwick inRow(runs.size());
  for (size_t turn = 0; turn < items.size(); ++turn) {
    Run& run = runs[runOf[turn]];
    const long lower = inRow.Below(runOf[turn]);
    const long equal = static_cast<long>(run.members.size());
    long place = 0;
    if (turn > 0 && equal > 0) {
      const SearchResult result = BinarySearch(
          static_cast<long>(turn), [=](long i) { return i < lower; },
          [=](long i) { return i >= lower && i < lower + equal; });
      place = result.index - lower;
    }
    run.members.push_back(turn);
    run.places.push_back(place);
    inRow.Add(runOf[turn], 1);
  }

  std::vector<CVornTreeItem*> row(items.size());
  for (const Run& run : runs) SpreadRun(run, items, row);
  return row;
}

}  // namespace vorn
