#include "support/steps.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace fuzz {

Steps RandomSteps(uint32_t seed, size_t count) {
  std::mt19937 random(seed);
  const auto byte = [&random] { return static_cast<uint8_t>(random() >> 8); };
  Steps steps(count);
  for (Step& step : steps) step = {byte(), byte(), byte(), byte()};
  return steps;
}

Steps StepsFromBytes(const uint8_t* data, size_t size, size_t most, uint32_t& seed) {
  Steps steps;
  seed = 0;
  if (size < sizeof(seed)) return steps;
  std::memcpy(&seed, data, sizeof(seed));
  for (size_t at = sizeof(seed); at + 4 <= size && steps.size() < most; at += 4) {
    steps.push_back({data[at], data[at + 1], data[at + 2], data[at + 3]});
  }
  return steps;
}

std::vector<std::vector<uint8_t>> ReadCorpus(const std::string& folder) {
  std::vector<std::filesystem::path> paths;
  std::error_code failed;
  for (const auto& entry : std::filesystem::directory_iterator(folder, failed)) paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  std::vector<std::vector<uint8_t>> inputs;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return inputs;
}

Steps Shrink(Steps steps, const std::function<bool(const Steps&)>& fails) {
  for (size_t part = steps.size() / 2; part > 0; part /= 2) {
    for (size_t at = 0; at + part <= steps.size();) {
      Steps fewer = steps;
      fewer.erase(fewer.begin() + static_cast<long>(at), fewer.begin() + static_cast<long>(at + part));
      if (fails(fewer)) {
        steps = fewer;
      } else {
        at += part;
      }
    }
  }
  return steps;
}

std::string ToText(const Steps& steps) {
  std::string text;
  for (const Step& step : steps) {
    text += "{" + std::to_string(step.operation) + ", " + std::to_string(step.first) + ", " +
            std::to_string(step.second) + ", " + std::to_string(step.third) + "}, ";
  }
  return text;
}

size_t NumberFromEnvironment(const char* name, size_t otherwise) {
  const char* value = std::getenv(name);
  return value != nullptr ? static_cast<size_t>(std::atoll(value)) : otherwise;
}

}  // namespace fuzz
