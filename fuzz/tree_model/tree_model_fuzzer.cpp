// libFuzzer's door: four bytes a step, the first four are the seed of the answers.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "world.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostSteps = 400;
  uint32_t seed = 0;
  if (size < sizeof(seed)) return 0;
  std::memcpy(&seed, data, sizeof(seed));
  std::vector<fuzz::Step> steps;
  for (size_t at = sizeof(seed); at + 4 <= size && steps.size() < kMostSteps; at += 4) {
    steps.push_back({data[at], data[at + 1], data[at + 2], data[at + 3]});
  }
  const std::string wrong = fuzz::Run(steps, seed);
  if (wrong.empty()) return 0;
  std::fprintf(stderr, "%s\n", wrong.c_str());
  std::abort();
}
