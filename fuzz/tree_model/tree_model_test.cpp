// Random steps on the control and on the model: both must tell the same.
#include <gtest/gtest.h>

#include <string>

#include "world.h"

namespace {

constexpr size_t kStepsPerWorld = 250;

TEST(TreeModel, AgreesOnAnEmptyWorld) { EXPECT_EQ(fuzz::Run({}, 1), ""); }

// What random runs have found, and what was wrong.
TEST(TreeModel, AgreesOnWhatWasFoundBefore) {
  // A shortcut below another one of the same target.
  EXPECT_EQ(fuzz::Run({{7, 7, 135, 54},
                       {5, 186, 59, 254},
                       {7, 99, 17, 64},
                       {5, 16, 185, 120},
                       {120, 153, 46, 53},
                       {15, 78, 248, 148},
                       {33, 254, 100, 136},
                       {218, 253, 192, 224},
                       {155, 125, 219, 156},
                       {9, 240, 144, 176}},
                      380),
            "");
  // A document that was moved below another one while it was active.
  EXPECT_EQ(fuzz::Run({{49, 180, 26, 74},
                       {0, 102, 151, 26},
                       {151, 223, 245, 166},
                       {15, 81, 154, 135},
                       {65, 229, 172, 70},
                       {189, 164, 231, 95},
                       {11, 111, 93, 53},
                       {163, 246, 97, 251},
                       {18, 198, 164, 237},
                       {233, 32, 40, 22}},
                      480),
            "");
}

// Each brings about what the others do not; made by corpus_maker.cpp.
TEST(TreeModel, AgreesOnItsCorpus) {
  const std::vector<std::vector<uint8_t>> corpus = fuzz::ReadCorpus(VORN_CORPUS);
  EXPECT_FALSE(corpus.empty()) << VORN_CORPUS;
  for (size_t i = 0; i < corpus.size(); ++i) {
    uint32_t seed = 0;
    const fuzz::Steps steps = fuzz::StepsFromBytes(corpus[i].data(), corpus[i].size(), kStepsPerWorld, seed);
    EXPECT_FALSE(steps.empty()) << i;
    EXPECT_EQ(fuzz::Run(steps, seed), "") << "entry " << i;
  }
}

// VORN_FUZZ_STEPS and VORN_FUZZ_SEED ask for another length and another first seed of the run.
TEST(TreeModel, AgreesWithTheControlAfterEveryStep) {
  const size_t wanted = fuzz::NumberFromEnvironment("VORN_FUZZ_STEPS", 1000000);
  uint32_t seed = static_cast<uint32_t>(fuzz::NumberFromEnvironment("VORN_FUZZ_SEED", 1));
  for (size_t done = 0; done < wanted; done += kStepsPerWorld, ++seed) {
    const fuzz::Steps steps = fuzz::RandomSteps(seed, kStepsPerWorld);
    if (fuzz::Run(steps, seed).empty()) continue;
    const fuzz::Steps fewer =
        fuzz::Shrink(steps, [seed](const fuzz::Steps& some) { return !fuzz::Run(some, seed).empty(); });
    FAIL() << "seed " << seed << ", steps " << fuzz::ToText(fewer) << "\n" << fuzz::Run(fewer, seed);
  }
}

}  // namespace
