// The library's start-up without memory or classes.
#include <VornComCtl.h>
#include <afxdllx.h>

#include <optional>

#include "each_failure.h"

namespace {

using faults::Kind;

// A module state that no module has joined yet, and no class registered.
class FreshStart {
 public:
  FreshStart() : m_state(FALSE), m_earlier(AfxSetModuleState(&m_state)) {
    AfxVornUnregisterClasses();
    ::UnregisterClassW(L"VornLibrary::VornTreeCtrl", ::GetModuleHandleW(L"VornComCtl"));
  }
  ~FreshStart() {
    while (CDynLinkLibrary* const library = m_state.m_libraryList.GetHead()) delete library;
    AfxSetModuleState(m_earlier);
  }

 private:
  AFX_MODULE_STATE m_state;
  AFX_MODULE_STATE* m_earlier;
};

class StartUpFault : public testing::TestWithParam<Kind> {
 protected:
  void TearDown() override { AfxInitVornComCtl(); }
};

TEST_P(StartUpFault, GivesZeroOrGoesOnWithout) {
  std::optional<FreshStart> start;
  faults::Experiment experiment;
  experiment.prepare = [&] { start.emplace(); };
  experiment.act = [] { return AfxInitVornComCtl() != 0; };
  experiment.cleanUp = [&] { start.reset(); };
  // The place in the chain of modules and all classes but the tree's may be left out.
  experiment.mayWorkAllTheSame = true;
  const long failures = faults::RunWithEachFailure(GetParam(), experiment);
  EXPECT_GE(failures, GetParam() == Kind::Call ? 4 : 1) << "one per class, one for the chain";
}

TEST_P(StartUpFault, AClassIsThereOrItSaysSo) {
  std::optional<FreshStart> start;
  faults::Experiment experiment;
  experiment.prepare = [&] { start.emplace(); };
  experiment.act = [] { return AfxVornRegisterClass(CS_DBLCLKS, L"VornLibrary::VornBar") != 0; };
  experiment.cleanUp = [&] { start.reset(); };
  faults::RunWithEachFailure(GetParam(), experiment);
}

INSTANTIATE_TEST_SUITE_P(Each, StartUpFault, testing::Values(Kind::Allocation, Kind::Call));

}  // namespace
