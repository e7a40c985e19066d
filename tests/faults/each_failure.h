// Runs an action once for each thing in it that can fail, with just that one failing.
#pragma once

#include <desktop/desktop.h>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

namespace faults {

enum class Kind { Allocation, Call };

inline void Fail(Kind kind, long n) {
  kind == Kind::Allocation ? desktop::FailNthAllocation(n) : desktop::FailNthCall(n);
}

inline long Seen(Kind kind) {
  return kind == Kind::Allocation ? desktop::AllocationsSeen() : desktop::CallsSeen();
}

inline std::ostream& operator<<(std::ostream& out, Kind kind) {
  return out << (kind == Kind::Allocation ? "allocation" : "call");
}

// The steps of one experiment. Each run is on its own: prepare, act with a failure, clean up.
struct Experiment {
  std::function<void()> prepare = [] {};
  std::function<bool()> act;  // true: it worked
  std::function<void()> cleanUp = [] {};
  // After an action that claims to have worked: whether all of its result is there. Some failures are got
  // over, such as that of a context for the background.
  std::function<bool()> complete = [] { return true; };
  // Whether an action may get over a failure at all.
  bool mayWorkAllTheSame = false;
};

// Returns how many things were made to fail. Fails the test if one of them lets the action claim success, if
// something is left behind, or if the action does not work when nothing fails.
long RunWithEachFailure(Kind kind, const Experiment& experiment);

}  // namespace faults
