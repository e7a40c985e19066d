// libFuzzer's door.
#include "scene.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostSteps = 250;
  uint32_t seed = 0;
  const fuzz::Steps steps = fuzz::StepsFromBytes(data, size, kMostSteps, seed);
  fuzz::Play(steps, seed);
  return 0;
}
