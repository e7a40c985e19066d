// Sequences of steps: made at random, read from bytes, shrunk when they fail, written for a test.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace fuzz {

// What to do, with operands that are taken modulo what there is: any bytes are a valid step, and a
// sequence stays valid when steps are taken out.
struct Step {
  uint8_t operation;
  uint8_t first;
  uint8_t second;
  uint8_t third;
};
using Steps = std::vector<Step>;

Steps RandomSteps(uint32_t seed, size_t count);

// Four bytes a step; the first four are the seed of the answers. No more than most steps are taken.
Steps StepsFromBytes(const uint8_t* data, size_t size, size_t most, uint32_t& seed);

// The files of a folder, each the bytes of an input, in the order of their names. Empty if it cannot be
// read.
std::vector<std::vector<uint8_t>> ReadCorpus(const std::string& folder);

// The shortest sequence found, by taking steps out, that still fails.
Steps Shrink(Steps steps, const std::function<bool(const Steps&)>& fails);

// "{1, 2, 3, 4}, ..." for a regression test.
std::string ToText(const Steps& steps);

// The value of an environment variable, or the other one if it is not set.
size_t NumberFromEnvironment(const char* name, size_t otherwise);

}  // namespace fuzz
