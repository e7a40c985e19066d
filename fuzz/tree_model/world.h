// The control and the model side by side, driven by the same steps and compared after each.
#pragma once

#include <cstdint>
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

// Runs steps in a fresh world. An empty text, or what differed first and after which step. seed decides
// which hooks refuse.
std::string Run(const std::vector<Step>& steps, uint32_t seed);

// Random steps.
std::vector<Step> RandomSteps(uint32_t seed, size_t count);

// The shortest sequence found, by taking steps out, that still differs.
std::vector<Step> Shrink(std::vector<Step> steps, uint32_t seed);

// "{1, 2, 3, 4}, ..." for a regression test.
std::string ToText(const std::vector<Step>& steps);

}  // namespace fuzz
