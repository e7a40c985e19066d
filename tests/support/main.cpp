// The main function of every test program.
#include <windows.h>

#include <gtest/gtest.h>

#include <clocale>
#include <set>
#include <string>

#include "support/process.h"

namespace {

// Fails a test that leaves windows, drawing objects, DCs or timers behind. Systems and libraries
// make some objects at their first use and keep them: a test that left something behind is
// suspected at first, and condemned when it does so again.
class LeakListener : public testing::EmptyTestEventListener {
 public:
  // The names of the suspects, as a filter; from now on they are condemned.
  std::string Judge() {
    std::string filter;
    for (const std::string& name : m_suspects) filter += (filter.empty() ? "" : ":") + name;
    m_warm = true;
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
    if (!m_warm) {
      m_suspects.insert(m_name);
      return;
    }
    ADD_FAILURE() << "left behind: " << what << ": " << after - before;
  }

  support::Alive m_before;
  std::string m_name;
  std::set<std::string> m_suspects;
  bool m_warm = false;
};

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  support::PrepareProcess();
  testing::InitGoogleTest(&argc, argv);
  auto* leaks = new LeakListener;  // gtest deletes it
  testing::UnitTest::GetInstance()->listeners().Append(leaks);
  const int result = RUN_ALL_TESTS();
  const std::string suspects = leaks->Judge();
  if (suspects.empty()) return result;
  testing::GTEST_FLAG(filter) = suspects;
  return RUN_ALL_TESTS() | result;
}
