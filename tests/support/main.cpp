// The main function of every test program.
#include <windows.h>

#include <gtest/gtest.h>

#include <clocale>
#include <set>
#include <string>

#include "support/process.h"

namespace {

// Fails a test that leaves windows, drawing objects, DCs or timers behind. Systems and libraries
// make some objects at their first use and keep them, so a test that left something behind is only
// suspected at first. Suspects are run again, and condemned when they never stop.
class LeakListener : public testing::EmptyTestEventListener {
 public:
  // The names of the suspects so far, as a filter; then begins a new round.
  std::string NextRound(bool last) {
    std::string filter;
    for (const std::string& name : m_suspects) filter += (filter.empty() ? "" : ":") + name;
    m_suspects.clear();
    m_last = last;
    return filter;
  }

 private:
  void OnTestStart(const testing::TestInfo&) override { m_before = support::CountAlive(); }

  void OnTestEnd(const testing::TestInfo& test) override {
    m_name = std::string(test.test_suite_name()) + "." + test.name();
    const support::Alive after = support::CountAlive();
    Expect("windows", m_before.windows, after.windows);
    Expect("GDI objects", m_before.gdiObjects, after.gdiObjects);
    Expect("device contexts", m_before.dcs, after.dcs);
    Expect("timers", m_before.timers, after.timers);
    Expect("menus", m_before.menus, after.menus);
    Expect("image lists", m_before.imageLists, after.imageLists);
    support::CleanUpAfterTest();
  }

  void Expect(const char* what, int before, int after) {
    if (after <= before) return;
    if (!m_last) {
      m_suspects.insert(m_name);
      return;
    }
    ADD_FAILURE() << "left behind: " << what << ": " << after - before;
  }

  support::Alive m_before;
  std::string m_name;
  std::set<std::string> m_suspects;
  bool m_last = false;
};

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  support::PrepareProcess();
  testing::InitGoogleTest(&argc, argv);
  auto* leaks = new LeakListener;  // gtest deletes it
  testing::UnitTest::GetInstance()->listeners().Append(leaks);
  int result = RUN_ALL_TESTS();
  constexpr int kRounds = 2;
  for (int round = 1; round <= kRounds; ++round) {
    const std::string suspects = leaks->NextRound(round == kRounds);
    if (suspects.empty()) break;
    testing::GTEST_FLAG(filter) = suspects;
    testing::GTEST_FLAG(brief) = true;
    result |= RUN_ALL_TESTS();
  }
  return result;
}
