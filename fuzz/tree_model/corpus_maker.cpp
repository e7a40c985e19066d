// Makes the corpus: tree_model_corpus <folder> <first seed> <count> [most files]
//
// Runs random sequences and keeps those that bring about what none before did, with all steps taken out that
// are not needed for it.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "world.h"

namespace {

using Events = std::set<std::string>;

constexpr size_t kSteps = 250;
constexpr size_t kWorthKeeping = 3;  // new events

Events EventsOf(const fuzz::Steps& steps, uint32_t seed) {
  Events events;
  fuzz::Run(steps, seed, &events);
  return events;
}

// As libFuzzer has it: four bytes of seed, and four a step.
void Write(const std::filesystem::path& path, const fuzz::Steps& steps, uint32_t seed) {
  std::ofstream file(path, std::ios::binary);
  for (int shift = 0; shift < 32; shift += 8) file.put(static_cast<char>(seed >> shift & 0xFF));
  for (const fuzz::Step& step : steps) {
    for (uint8_t byte : {step.operation, step.first, step.second, step.third}) {
      file.put(static_cast<char>(byte));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: %s <folder> <first seed> <count> [most files]\n", argv[0]);
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  const auto first = static_cast<uint32_t>(std::atoll(argv[2]));
  const auto count = static_cast<uint32_t>(std::atoll(argv[3]));
  int left = argc > 4 ? std::atoi(argv[4]) : 1000;
  std::filesystem::create_directories(folder);
  Events known;
  for (uint32_t seed = first; seed < first + count && left > 0; ++seed) {
    const fuzz::Steps steps = fuzz::RandomSteps(seed, kSteps);
    Events fresh;
    for (const std::string& event : EventsOf(steps, seed)) {
      if (known.count(event) == 0) fresh.insert(event);
    }
    if (fresh.size() < kWorthKeeping) continue;
    const fuzz::Steps kept = fuzz::Shrink(steps, [&fresh, seed](const fuzz::Steps& fewer) {
      const Events events = EventsOf(fewer, seed);
      return std::includes(events.begin(), events.end(), fresh.begin(), fresh.end());
    });
    known.merge(EventsOf(kept, seed));
    Write(folder / ("seed-" + std::to_string(seed)), kept, seed);
    --left;
  }
  std::printf("%zu events\n", known.size());
}
