// The main function of every test program.
#include <windows.h>

#include <gtest/gtest.h>

#include <clocale>

#include "support/process.h"

namespace {

// Fails a test that leaves windows, drawing objects, DCs or timers behind.
class LeakListener : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { m_before = support::CountAlive(); }

  void OnTestEnd(const testing::TestInfo&) override {
    const support::Alive after = support::CountAlive();
    Expect("windows", m_before.windows, after.windows);
    Expect("GDI objects", m_before.gdiObjects, after.gdiObjects);
    Expect("device contexts", m_before.dcs, after.dcs);
    Expect("timers", m_before.timers, after.timers);
    support::CleanUpAfterTest();
  }

  static void Expect(const char* what, int before, int after) {
    if (after > before) {
      ADD_FAILURE() << "left behind: " << what << ": " << after - before;
    }
  }

  support::Alive m_before;
};

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  support::PrepareProcess();
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new LeakListener);
  return RUN_ALL_TESTS();
}
