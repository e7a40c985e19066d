// Random steps on the control and on the model: both must tell the same.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "world.h"

namespace {

constexpr size_t kStepsPerWorld = 250;

// VORN_FUZZ_STEPS asks for another length of the run.
size_t StepsWanted() {
  const char* wanted = std::getenv("VORN_FUZZ_STEPS");
  return wanted != nullptr ? static_cast<size_t>(std::atoll(wanted)) : 1000000;
}

TEST(TreeModel, AgreesWithTheControlAfterEveryStep) {
  const char* firstSeed = std::getenv("VORN_FUZZ_SEED");
  uint32_t seed = firstSeed != nullptr ? static_cast<uint32_t>(std::atoll(firstSeed)) : 1;
  for (size_t done = 0; done < StepsWanted(); done += kStepsPerWorld, ++seed) {
    const std::vector<fuzz::Step> steps = fuzz::RandomSteps(seed, kStepsPerWorld);
    if (fuzz::Run(steps, seed).empty()) continue;
    const std::vector<fuzz::Step> fewer = fuzz::Shrink(steps, seed);
    FAIL() << "seed " << seed << ", steps " << fuzz::ToText(fewer) << "\n" << fuzz::Run(fewer, seed);
  }
}

}  // namespace
