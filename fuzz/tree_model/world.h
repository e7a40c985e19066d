// The control and the model side by side, driven by the same steps and compared after each.
#pragma once

#include <set>

#include "support/steps.h"

namespace fuzz {

// Runs steps in a fresh world. An empty text, or what differed first and after which step. seed decides
// which hooks refuse. events collects what the steps brought about: each a kind of step with its hooks and
// results, without the items.
std::string Run(const Steps& steps, uint32_t seed, std::set<std::string>* events = nullptr);

}  // namespace fuzz
