// The memory of items, beside the general allocator.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "core/ItemPool.h"

namespace {

using vorn::ItemPool;

void Use(void* slot) { std::memset(slot, 1, ItemPool::kSlotSize); }

// All items made, then all deleted in the same order.
void PoolFillAndEmpty(benchmark::State& state) {
  std::vector<void*> items(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    for (void*& item : items) Use(item = ItemPool::Allocate(ItemPool::kSlotSize));
    for (void* item : items) ItemPool::Free(item);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  ItemPool::ReleaseIfUnused();
}
BENCHMARK(PoolFillAndEmpty)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void MallocFillAndEmpty(benchmark::State& state) {
  std::vector<void*> items(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    for (void*& item : items) Use(item = std::malloc(ItemPool::kSlotSize));
    for (void* item : items) std::free(item);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(MallocFillAndEmpty)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// The deletions alone.
void PoolEmpty(benchmark::State& state) {
  std::vector<void*> items(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    for (void*& item : items) Use(item = ItemPool::Allocate(ItemPool::kSlotSize));
    state.ResumeTiming();
    for (void* item : items) ItemPool::Free(item);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  ItemPool::ReleaseIfUnused();
}
BENCHMARK(PoolEmpty)->Arg(1000000)->Unit(benchmark::kMillisecond);

// One item comes, one goes: what an edited tree does.
void PoolTurnover(benchmark::State& state) {
  for (auto _ : state) ItemPool::Free(ItemPool::Allocate(ItemPool::kSlotSize));
  state.SetItemsProcessed(state.iterations());
  ItemPool::ReleaseIfUnused();
}
BENCHMARK(PoolTurnover);

// The validity test, which every operation of the control begins with.
void PoolReadMagic(benchmark::State& state) {
  std::vector<void*> items(static_cast<std::size_t>(state.range(0)));
  for (void*& item : items) Use(item = ItemPool::Allocate(ItemPool::kSlotSize));
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ItemPool::ReadMagic(items[next]));
    next = next + 1 < items.size() ? next + 1 : 0;
  }
  state.SetItemsProcessed(state.iterations());
  for (void* item : items) ItemPool::Free(item);
  ItemPool::ReleaseIfUnused();
}
BENCHMARK(PoolReadMagic)->Arg(1000)->Arg(1000000);

}  // namespace
