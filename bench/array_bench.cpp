// The arrays, each beside the standard container that does the same work.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include "core/VornSortedArray.h"

namespace {

struct Thing {
  int value;
};
using Sorted = TVornSortedArray_byValue<Thing*, int>;

// Pointers to different things in random order.
std::vector<Thing*> Shuffled(long count) {
  static std::vector<Thing> things(1 << 20);
  std::vector<Thing*> shuffled;
  shuffled.reserve(static_cast<std::size_t>(count));
  for (long i = 0; i < count; ++i) shuffled.push_back(&things[static_cast<std::size_t>(i)]);
  std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
  return shuffled;
}

void ArrayAdd(benchmark::State& state) {
  const auto things = Shuffled(state.range(0));
  for (auto _ : state) {
    TVornArray<Thing*> array;
    for (Thing* thing : things) array.Add(thing, nullptr);
    benchmark::DoNotOptimize(array.Array());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ArrayAdd)->Arg(100000);

void VectorAdd(benchmark::State& state) {
  const auto things = Shuffled(state.range(0));
  for (auto _ : state) {
    std::vector<Thing*> vector;
    // NOLINTNEXTLINE(performance-inefficient-vector-operation): growing is what is timed
    for (Thing* thing : things) vector.push_back(thing);
    benchmark::DoNotOptimize(vector.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(VectorAdd)->Arg(100000);

void SortedAdd(benchmark::State& state) {
  const auto things = Shuffled(state.range(0));
  for (auto _ : state) {
    Sorted array;
    for (Thing* thing : things) array.Add(thing, nullptr);
    benchmark::DoNotOptimize(array.Array());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SortedAdd)->Arg(1000)->Arg(10000)->Arg(100000);

void SortedAddToVector(benchmark::State& state) {
  const auto things = Shuffled(state.range(0));
  for (auto _ : state) {
    std::vector<Thing*> vector;
    for (Thing* thing : things) {
      const auto place = std::lower_bound(vector.begin(), vector.end(), thing);
      if (place == vector.end() || *place != thing) vector.insert(place, thing);
    }
    benchmark::DoNotOptimize(vector.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SortedAddToVector)->Arg(1000)->Arg(10000)->Arg(100000);

void SortedSearch(benchmark::State& state) {
  const auto things = Shuffled(state.range(0));
  Sorted array;
  for (Thing* thing : things) array.Add(thing, nullptr);
  std::size_t next = 0;
  for (auto _ : state) {
    long index;
    benchmark::DoNotOptimize(array.Search(things[next], &index));
    next = next + 1 < things.size() ? next + 1 : 0;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(SortedSearch)->Arg(1000)->Arg(100000);

void SortedSearchInVector(benchmark::State& state) {
  const auto things = Shuffled(state.range(0));
  std::vector<Thing*> vector = things;
  std::sort(vector.begin(), vector.end());
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::lower_bound(vector.begin(), vector.end(), things[next]));
    next = next + 1 < things.size() ? next + 1 : 0;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(SortedSearchInVector)->Arg(1000)->Arg(100000);

// Handing an array out: one more reference, whatever the size.
void ArrayShare(benchmark::State& state) {
  TVornArray<Thing*> array, other, shared;
  for (Thing* thing : Shuffled(state.range(0))) array.Add(thing, nullptr);
  for (auto _ : state) {
    shared = array;
    benchmark::DoNotOptimize(shared.Array());
    shared = other;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ArrayShare)->Arg(1000);

void ArrayCopy(benchmark::State& state) {
  TVornArray<Thing*> array;
  for (Thing* thing : Shuffled(state.range(0))) array.Add(thing, nullptr);
  for (auto _ : state) {
    TVornArray<Thing*> copy(array);
    benchmark::DoNotOptimize(copy.Array());
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ArrayCopy)->Arg(1000);

}  // namespace
