// Items in a tree that has no window.
#include <afxwin.h>

#include <benchmark/benchmark.h>

#include "VornComCtl.h"

namespace {

void Fill(CVornTreeCtrl& tree, long count) {
  tree.SetRedraw(FALSE);
  for (long i = 0; i < count; ++i) tree.InsertItem(L"twelve chars", -1, -1);
  tree.SetRedraw(TRUE);
}

void TreeFill(benchmark::State& state) {
  for (auto _ : state) {
    CVornTreeCtrl tree;
    Fill(tree, state.range(0));
    state.PauseTiming();
    tree.DeleteAllItems(STI_ROOT);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(TreeFill)->Arg(1000000)->Unit(benchmark::kMillisecond);

void TreeDeleteAll(benchmark::State& state) {
  CVornTreeCtrl tree;
  for (auto _ : state) {
    state.PauseTiming();
    Fill(tree, state.range(0));
    state.ResumeTiming();
    tree.DeleteAllItems(STI_ROOT);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(TreeDeleteAll)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
