#include "NameOrder.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <cwctype>
#include <type_traits>

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

// Beyond the beginning that all labels share, as much of a label as fits into two numbers, so that most
// comparisons look at nothing else.
struct Label {
  std::uint64_t first;
  std::uint64_t second;
  const wchar_t* text;  // in lower case, from the end of what all share
  size_t taken;         // when the item's turn comes
};

constexpr int kPerNumber = 3;
constexpr int kBitsOfCharacter = 21;

// Characters compare as unsigned numbers; those too great for the number are left to the text.
std::uint64_t Pack(const wchar_t*& text) {
  constexpr std::uint64_t kGreatest = (std::uint64_t{1} << kBitsOfCharacter) - 1;
  std::uint64_t number = 0;
  for (int i = 0; i < kPerNumber; ++i) {
    const std::uint64_t c = static_cast<std::make_unsigned_t<wchar_t>>(*text);
    number = number << kBitsOfCharacter | std::min(c, kGreatest);
    if (*text != L'\0') ++text;
  }
  return number;
}

// Below 0, 0 or above 0.
int CompareTexts(const wchar_t* a, const wchar_t* b) {
  for (; *a == *b; ++a, ++b) {
    if (*a == L'\0') return 0;
  }
  using Unsigned = std::make_unsigned_t<wchar_t>;
  return static_cast<Unsigned>(*a) < static_cast<Unsigned>(*b) ? -1 : 1;
}

int Compare(const Label& a, const Label& b) {
  if (a.first != b.first) return a.first < b.first ? -1 : 1;
  if (a.second != b.second) return a.second < b.second ? -1 : 1;
  return CompareTexts(a.text, b.text);
}

class Lowering {
 public:
  Lowering() {
    for (size_t c = 0; c < kNarrow; ++c) m_narrow[c] = Lower(static_cast<wint_t>(c));
  }
  wchar_t operator()(wchar_t c) const {
    const auto number = static_cast<std::make_unsigned_t<wchar_t>>(c);
    return number < kNarrow ? m_narrow[number] : Lower(static_cast<wint_t>(c));
  }

 private:
  static constexpr size_t kNarrow = 128;
  static wchar_t Lower(wint_t c) { return static_cast<wchar_t>(std::towlower(c)); }
  wchar_t m_narrow[kNarrow];
};

// All labels in lower case, one behind the other, each with its null.
std::vector<wchar_t> LowerTexts(const std::vector<CVornTreeItem*>& items) {
  const Lowering lower;
  std::vector<wchar_t> texts;
  for (const CVornTreeItem* item : items) {
    for (const wchar_t* text = item->GetText(); *text != L'\0'; ++text) texts.push_back(lower(*text));
    texts.push_back(L'\0');
  }
  return texts;
}

size_t SharedLength(const wchar_t* a, const wchar_t* b, size_t most) {
  size_t length = 0;
  while (length < most && a[length] != L'\0' && a[length] == b[length]) ++length;
  return length;
}

std::vector<Label> SortedLabels(const std::vector<wchar_t>& texts, size_t count) {
  std::vector<Label> labels(count);
  size_t shared = texts.size();
  const wchar_t* text = texts.data();
  for (size_t i = 0; i < count; ++i) {
    labels[i] = Label{0, 0, text, i};
    shared = SharedLength(texts.data(), text, shared);
    text += std::wcslen(text) + 1;
  }
  for (Label& label : labels) {
    const wchar_t* rest = label.text += shared;
    label.first = Pack(rest);
    label.second = Pack(rest);
  }
  std::sort(labels.begin(), labels.end(), [](const Label& a, const Label& b) {
    const int order = Compare(a, b);
    return order != 0 ? order < 0 : a.taken < b.taken;
  });
  return labels;
}

// A run of equal labels in the finished row. They stand in it by turn.
struct Run {
  size_t first;
  size_t size;
  size_t met;  // whose turn has come
};

std::vector<Run> RunsOf(const std::vector<Label>& labels) {
  std::vector<Run> runs;
  for (size_t i = 0; i < labels.size(); ++i) {
    if (i == 0 || Compare(labels[i - 1], labels[i]) != 0) runs.push_back(Run{i, 0, 0});
    ++runs.back().size;
  }
  return runs;
}

// Replays the searches on numbers alone: of the row at each turn only the count of lower labels and
// that of equal ones matter. Gives the place within its run that each label gets at its turn.
std::vector<long> PlacesInRuns(const std::vector<Label>& labels, std::vector<Run>& runs) {
  std::vector<size_t> runOf(labels.size());
  for (size_t r = 0; r < runs.size(); ++r) {
    for (size_t i = 0; i < runs[r].size; ++i) runOf[labels[runs[r].first + i].taken] = r;
  }
  Fenwick inRow(runs.size());
  std::vector<long> places(labels.size());
  for (size_t turn = 0; turn < labels.size(); ++turn) {
    Run& run = runs[runOf[turn]];
    if (run.met > 0) {
      const long lower = inRow.Below(runOf[turn]);
      const long equal = static_cast<long>(run.met);
      const SearchResult result = BinarySearch(
          static_cast<long>(turn), [=](long i) { return i < lower; },
          [=](long i) { return i >= lower && i < lower + equal; });
      places[run.first + run.met] = result.index - lower;
    }
    ++run.met;
    inRow.Add(runOf[turn], 1);
  }
  return places;
}

// Later insertions push earlier ones back; taken from the last to the first, each finds its final place
// among those still free.
template <class Put>
void SpreadRun(const Run& run, const std::vector<long>& places, Put put) {
  Fenwick free(run.size);
  for (size_t i = 0; i < run.size; ++i) free.Add(i, 1);
  for (size_t i = run.size; i-- > 0;) {
    const size_t place = free.Find(places[run.first + i]);
    free.Add(place, -1);
    put(run.first + i, run.first + place);
  }
}

}  // namespace

std::vector<CVornTreeItem*> OrderByName(const std::vector<CVornTreeItem*>& items) {
  const std::vector<wchar_t> texts = LowerTexts(items);
  const std::vector<Label> labels = SortedLabels(texts, items.size());
  std::vector<Run> runs = RunsOf(labels);
  std::vector<CVornTreeItem*> row(items.size());
  const auto put = [&](size_t label, size_t place) { row[place] = items[labels[label].taken]; };
  if (runs.size() == labels.size()) {  // no two are equal: the order is that of the labels
    for (size_t i = 0; i < labels.size(); ++i) put(i, i);
    return row;
  }
  const std::vector<long> places = PlacesInRuns(labels, runs);
  for (const Run& run : runs) {
    if (run.size == 1) {
      put(run.first, run.first);
    } else {
      SpreadRun(run, places, put);
    }
  }
  return row;
}

}  // namespace vorn
