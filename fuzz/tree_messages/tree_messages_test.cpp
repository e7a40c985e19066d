// Random messages, input and calls, with a host that does anything in its hooks: nothing may crash, hang or
// be left behind.
#include <gtest/gtest.h>

#include "scene.h"
#include "support/process.h"

namespace {

constexpr size_t kStepsPerScene = 250;

bool LeavesMore(const support::Alive& before, const support::Alive& after) {
  return after.windows > before.windows || after.gdiObjects > before.gdiObjects || after.dcs > before.dcs ||
         after.timers > before.timers || after.menus > before.menus || after.imageLists > before.imageLists;
}

bool Leaks(const fuzz::Steps& steps, uint32_t seed) {
  const support::Alive before = support::CountAlive();
  fuzz::Play(steps, seed);
  return LeavesMore(before, support::CountAlive());
}

// Plays a scene, and once more if it left something behind: what is made at its first use stays.
size_t PlayCleanly(const fuzz::Steps& steps, uint32_t seed) {
  const support::Alive before = support::CountAlive();
  const size_t sent = fuzz::Play(steps, seed);
  EXPECT_EQ(GetCapture(), nullptr);
  if (!LeavesMore(before, support::CountAlive()) || !Leaks(steps, seed)) return sent;
  const auto leaks = [seed](const fuzz::Steps& some) { return Leaks(some, seed); };
  ADD_FAILURE() << "left behind by seed " << seed << ", steps " << fuzz::ToText(fuzz::Shrink(steps, leaks));
  return sent;
}

TEST(TreeMessages, SurvivesWhatFuzzersFound) {
  for (const std::vector<uint8_t>& input : fuzz::ReadCorpus(VORN_CORPUS)) {
    uint32_t seed = 0;
    const fuzz::Steps steps = fuzz::StepsFromBytes(input.data(), input.size(), kStepsPerScene, seed);
    PlayCleanly(steps, seed);
  }
}

// VORN_FUZZ_STEPS and VORN_FUZZ_SEED ask for another length and another first seed of the run.
TEST(TreeMessages, SurvivesAnything) {
  const size_t wanted = fuzz::NumberFromEnvironment("VORN_FUZZ_STEPS", 20000);
  uint32_t seed = static_cast<uint32_t>(fuzz::NumberFromEnvironment("VORN_FUZZ_SEED", 1));
  size_t sent = 0;
  for (size_t done = 0; done < wanted; done += kStepsPerScene, ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    sent += PlayCleanly(fuzz::RandomSteps(seed, kStepsPerScene), seed);
    if (HasFailure()) return;
  }
  RecordProperty("messages", std::to_string(sent));
  EXPECT_GT(sent, wanted / 2);
}

}  // namespace
