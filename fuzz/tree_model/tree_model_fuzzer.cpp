// libFuzzer's door.
#include <cstdio>
#include <cstdlib>

#include "world.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostSteps = 400;
  uint32_t seed = 0;
  const fuzz::Steps steps = fuzz::StepsFromBytes(data, size, kMostSteps, seed);
  const std::string wrong = fuzz::Run(steps, seed);
  if (wrong.empty()) return 0;
  std::fprintf(stderr, "%s\n", wrong.c_str());
  std::abort();
}
