// Times of whole operations on trees of 10^4, 10^5 and 10^6 items, in an object without a window, on
// whichever desktop it is built for. Prints nanoseconds per item and how the cost grows: an exponent of 1
// is a cost in proportion to the items. Arguments: part of the names of the operations to run.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>
#include <vector>

#include "VornComCtl.h"
#include "bench_time.h"

namespace {

const Labels g_labels(1000000);

struct Scene {
  CVornTreeCtrl tree;
  std::vector<CVornTreeItem*> items;
};

void FillFlat(Scene& scene, size_t count, CVornTreeItem* place) {
  for (size_t i = 0; i < count; ++i) {
    scene.items.push_back(scene.tree.InsertItem(g_labels[i], -1, -1, STI_ROOT, place, i + 1));
  }
}

// Each item has ten children, as long as there are any.
void FillFan(Scene& scene, size_t count) {
  for (size_t i = 0; i < count; ++i) {
    CVornTreeItem* const parent = i == 0 ? STI_ROOT : scene.items[(i - 1) / 10];
    scene.items.push_back(scene.tree.InsertItem(g_labels[i], -1, -1, parent, STI_LAST, i + 1));
  }
}

struct Row {
  const char* name;
  std::function<void(Scene&, size_t)> prepare;
  std::function<void(Scene&, size_t)> act;
  size_t times = 0;  // single operations that act consists of; 0: one for each item
};

void Nothing(Scene&, size_t) {}
void Flat(Scene& scene, size_t count) { FillFlat(scene, count, STI_LAST); }
void FanOpen(Scene& scene, size_t count) {
  FillFan(scene, count);
  scene.tree.Expand(STI_ROOT, STE_EXPANDALL);
}

void WalkRows(Scene& scene, size_t) {
  for (CVornTreeItem* row = scene.tree.GetFirstVisibleItem(); row != nullptr;
       row = scene.tree.GetNextVisibleItem(row)) {
  }
}

void SelectAll(Scene& scene, size_t count) {
  scene.tree.GetSelectionManager()->SelectRange(scene.items.front(), scene.items[count - 1]);
}

void SortNames(Scene& scene, size_t) { scene.tree.SortChildrenByName(scene.tree.GetRootItem()); }

void FlatSorted(Scene& scene, size_t count) {
  Flat(scene, count);
  SortNames(scene, count);
}

// In the order of the rows, which is not that of the items' making.
void SelectRows(Scene& scene, size_t) {
  CVornTreeCtrl& tree = scene.tree;
  tree.GetSelectionManager()->SelectRange(tree.GetFirstVisibleItem(),
                                          tree.GetLastVisibleItem(tree.GetRootItem()));
}

void SortData(Scene& scene, size_t) {
  STSORTCB sort{scene.tree.GetRootItem(), [](LPARAM a, LPARAM b, LPARAM) { return a > b ? -1 : a < b; }, 0};
  scene.tree.SortChildren(&sort);
}

// Every second item, in random order: what is deleted below another is gone already and refused.
void DeleteHalf(Scene& scene, size_t count) {
  std::mt19937 random(3);
  for (size_t i = 0; i < count / 2; ++i) scene.tree.DeleteItem(scene.items[random() % count]);
}

constexpr size_t kPaths = 1000;

void PathLookups(Scene& scene, size_t) {
  CString path;
  for (size_t i = 0; i < kPaths; ++i) {
    scene.tree.GetItemFullText(scene.items[i * 7919 % scene.items.size()], path);
    scene.tree.GetItemFromFullPathName(path);
  }
}

const Row kRows[] = {
    {"insert at the end, flat", Nothing, Flat},
    {"insert at the front, flat", Nothing, [](Scene& s, size_t n) { FillFlat(s, n, STI_FIRST); }},
    {"insert, fan of 10", Nothing, [](Scene& s, size_t n) { FillFan(s, n); }},
    {"expand all, fan of 10", FillFan, [](Scene& s, size_t) { s.tree.Expand(STI_ROOT, STE_EXPANDALL); }},
    {"collapse all, fan of 10", FanOpen,
     [](Scene& s, size_t) { s.tree.Expand(s.items[0], STE_COLLAPSEALL); }},
    {"walk all rows, fan of 10", FanOpen, WalkRows},
    {"walk all rows, flat", Flat, WalkRows},
    {"find by label, last of flat", Flat,
     [](Scene& s, size_t n) { s.tree.GetItemFromName(g_labels[n - 1]); }},
    {"find by data, last of flat", Flat, [](Scene& s, size_t n) { s.tree.GetItemFromItemData(n); }},
    {"path of an item and back, fan", FillFan, PathLookups, kPaths},
    {"select a range of all, flat", Flat, SelectAll},
    {"select a range of all, sorted", FlatSorted, SelectRows},
    {"clear that selection", [](Scene& s, size_t n) { Flat(s, n), SelectAll(s, n); },
     [](Scene& s, size_t) { s.tree.ClearSelection(nullptr); }},
    {"sort by label, flat", Flat, SortNames},
    {"sort by data, flat", Flat, SortData},
    {"delete half one by one, flat", Flat, DeleteHalf},
    {"delete half one by one, fan", FanOpen, DeleteHalf},
    {"delete all, flat", Flat, [](Scene& s, size_t) { s.tree.DeleteAllItems(STI_ROOT); }},
    {"delete all, fan of 10", FanOpen, [](Scene& s, size_t) { s.tree.DeleteAllItems(STI_ROOT); }},
};

double Measure(const Row& row, size_t count) {
  double best = 0;
  for (int round = 0; round < (count < 1000000 ? 5 : 2); ++round) {
    Scene scene;
    scene.items.reserve(count);
    scene.tree.SetRedraw(FALSE);
    row.prepare(scene, count);
    const Stopwatch watch;
    row.act(scene, count);
    const double took = watch.Elapsed();
    if (round == 0 || took < best) best = took;
    scene.tree.SetRedraw(TRUE);
  }
  return best;
}

}  // namespace

bool IsWanted(const Row& row, int argc, char** argv) {
  if (argc < 2) return true;
  for (int i = 1; i < argc; ++i) {
    if (std::strstr(row.name, argv[i]) != nullptr) return true;
  }
  return false;
}

void PrintRow(const Row& row) {
  constexpr size_t kCounts[] = {10000, 100000, 1000000};
  double took[3];
  std::printf("%-34s", row.name);
  for (int i = 0; i < 3; ++i) {
    took[i] = Measure(row, kCounts[i]);
    std::printf(" %10.1f", took[i] / static_cast<double>(row.times ? row.times : kCounts[i]));
  }
  std::printf("   %9.1f %8.2f\n", took[2] / 1e6, std::log10(took[2] / took[1]));
  std::fflush(stdout);
}

// One tree grows, so that no memory is used twice.
void PrintBytes() {
  Scene scene;
  scene.items.resize(1000000);
  scene.items.clear();
  scene.tree.SetRedraw(FALSE);
  const double before = UsedBytes();
  std::printf("%-34s", "bytes an item, label included");
  for (size_t count : {10000, 100000, 1000000}) {
    FillFlat(scene, count - scene.items.size(), STI_LAST);
    std::printf(" %10.0f", (UsedBytes() - before) / static_cast<double>(count));
  }
  std::printf("\n");
}

int main(int argc, char** argv) {
  AfxInitVornComCtl();
  std::printf("%-34s %10s %10s %10s   %9s %8s\n", "ns per item", "10^4", "10^5", "10^6", "10^6 [ms]",
              "exponent");
  if (argc < 2) PrintBytes();
  for (const Row& row : kRows) {
    if (!IsWanted(row, argc, argv)) continue;
    PrintRow(row);
  }
  return 0;
}
