#include "each_failure.h"

namespace faults {

namespace {

void ExpectNothingLeft(const desktop::LiveCounts& before, const desktop::LiveCounts& after) {
  EXPECT_EQ(before.windows, after.windows) << "windows left behind";
  EXPECT_EQ(before.gdiObjects, after.gdiObjects) << "drawing objects left behind";
  EXPECT_EQ(before.dcs, after.dcs) << "contexts left behind";
  EXPECT_EQ(before.timers, after.timers) << "timers left behind";
  EXPECT_EQ(before.menus, after.menus) << "menus left behind";
  EXPECT_EQ(before.imageLists, after.imageLists) << "image lists left behind";
}

}  // namespace

long RunWithEachFailure(Kind kind, const Experiment& experiment) {
  // Once without a failure: what is made at its first use and kept is not to be counted.
  experiment.prepare();
  EXPECT_TRUE(experiment.act()) << "without any failure";
  experiment.cleanUp();

  constexpr long tooMany = 100000;
  for (long n = 1; n < tooMany; ++n) {
    SCOPED_TRACE(testing::Message() << kind << " " << n);
    experiment.prepare();
    const desktop::LiveCounts before = desktop::CountLive();
    Fail(kind, n);
    const bool worked = experiment.act();
    const bool failedSomething = Seen(kind) >= n;
    Fail(kind, 0);
    EXPECT_TRUE(!worked || experiment.complete()) << "claims success with a part missing";
    experiment.cleanUp();
    ExpectNothingLeft(before, desktop::CountLive());
    if (!failedSomething) {
      EXPECT_TRUE(worked) << "beyond the last";
      return n - 1;
    }
    EXPECT_TRUE(!worked || experiment.mayWorkAllTheSame) << "claims success";
  }
  ADD_FAILURE() << "it never comes to an end";
  return tooMany;
}

}  // namespace faults
