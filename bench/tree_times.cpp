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

void SortData(Scene& scene, size_t) {
  STSORTCB sort{scene.tree.GetRootItem(), [](LPARAM a, LPARAM b, LPARAM) { return a > b ? -1 : a < b; }, 0};
  scene.tree.SortChildren(&sort);
}

// Every second item, in random order: what is deleted below another is gone already and refused.
void DeleteHalf(Scene& scene, size_t count) {
  std::mt19937 random(3);
  for (size_t i = 0; i < count / 2; ++i) scene.tree.DeleteItem(scene.items[random() % count]);
}

void PathLookups(Scene& scene, size_t) {
  CString path;
  for (size_t i = 0; i < 1000; ++i) {
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
    {"1000 paths there and back, fan", FillFan, PathLookups},
    {"select a range of all, flat", Flat, SelectAll},
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
  for (int round = 0; round < (count < 1000000 ? 3 : 1); ++round) {
    Scene scene;
    scene.items.reserve(count);
    scene.tree.SetRedraw(FALSE);
    row.prepare(scene, count);
    const double start = Now();
    row.act(scene, count);
    const double took = Now() - start;
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

int main(int argc, char** argv) {
  AfxInitVornComCtl();
  std::printf("%-34s %10s %10s %10s   %9s %8s\n", "ns per item", "10^4", "10^5", "10^6", "10^6 [ms]",
              "exponent");
  for (const Row& row : kRows) {
    if (!IsWanted(row, argc, argv)) continue;
    const double small = Measure(row, 10000), middle = Measure(row, 100000), large = Measure(row, 1000000);
    std::printf("%-34s %10.1f %10.1f %10.1f   %9.1f %8.2f\n", row.name, small / 1e4, middle / 1e5,
                large / 1e6, large / 1e6, std::log10(large / middle));
    std::fflush(stdout);
  }
  return 0;
}
