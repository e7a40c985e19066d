#include "Module.h"

#include <afxdllx.h>

#include <new>

#include "ItemPool.h"
#include "VornFunctions.h"
#include "WindowClasses.h"

// Filled while the module is attached to the process.
static AFX_EXTENSION_MODULE gVornComCtlModule;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) return AfxInitExtensionModule(gVornComCtlModule, instance);
  if (reason == DLL_PROCESS_DETACH) {
    AfxTermExtensionModule(gVornComCtlModule);
    vorn::ItemPool::ReleaseIfUnused();
  }
  return TRUE;
}

namespace vorn {

HINSTANCE ModuleInstance() { return gVornComCtlModule.hModule; }

namespace {

bool IsInChain(AFX_MODULE_STATE* state) {
  AfxLockGlobals(CRIT_DYNLINKLIST);
  CDynLinkLibrary* library = state->m_libraryList.GetHead();
  while (library && library->m_hModule != gVornComCtlModule.hModule) library = library->m_pNextDLL;
  AfxUnlockGlobals(CRIT_DYNLINKLIST);
  return library != nullptr;
}

}  // namespace

}  // namespace vorn

int AfxInitVornComCtl() {
  AFX_MODULE_STATE* const state = AfxGetModuleState();
  if (!state) return 0;
  if (!vorn::IsInChain(state)) {
    // The chain owns the object. Without memory for it the step is left out.
    [[maybe_unused]] auto* const owned = new (std::nothrow) CDynLinkLibrary(gVornComCtlModule);
  }
  AfxVornRegisterClass(CS_DBLCLKS, vorn::kBarClass);
  AfxVornRegisterClass(CS_CLASSDC | CS_SAVEBITS, vorn::kToolTipClass);
  AfxVornRegisterClass(CS_DBLCLKS, vorn::kReportWndClass);
  return AfxVornRegisterClass(CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS | CS_SAVEBITS, vorn::kTreeCtrlClass);
}
