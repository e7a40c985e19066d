// Random messages, input and calls, with a host that does anything in its hooks: nothing may crash, hang or
// be left behind.
#include <gtest/gtest.h>

#include "scene.h"

namespace {

constexpr size_t kStepsPerScene = 250;

TEST(TreeMessages, SurvivesWhatFuzzersFound) {
  for (const std::vector<uint8_t>& input : fuzz::ReadCorpus(VORN_CORPUS)) {
    uint32_t seed = 0;
    const fuzz::Steps steps = fuzz::StepsFromBytes(input.data(), input.size(), kStepsPerScene, seed);
    fuzz::Play(steps, seed);
    EXPECT_EQ(GetCapture(), nullptr);
  }
}

// VORN_FUZZ_STEPS and VORN_FUZZ_SEED ask for another length and another first seed of the run.
TEST(TreeMessages, SurvivesAnything) {
  const size_t wanted = fuzz::NumberFromEnvironment("VORN_FUZZ_STEPS", 20000);
  uint32_t seed = static_cast<uint32_t>(fuzz::NumberFromEnvironment("VORN_FUZZ_SEED", 1));
  size_t sent = 0;
  for (size_t done = 0; done < wanted; done += kStepsPerScene, ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    sent += fuzz::Play(fuzz::RandomSteps(seed, kStepsPerScene), seed);
    ASSERT_EQ(GetCapture(), nullptr);
  }
  RecordProperty("messages", std::to_string(sent));
  EXPECT_GT(sent, wanted / 2);
}

}  // namespace
