// Module states, the chain of extension modules, and the search for resources along it.
#include "afxstat_.h"
#include "thread_state.h"

#include <mutex>

// ---- Locks -------------------------------------------------------------------------------------------

namespace {

// Never destroyed: modules that go after this one still lock. It is made in place at first use.
std::recursive_mutex& Lock(int type) {
  static std::recursive_mutex* const locks = new std::recursive_mutex[CRIT_MAX];
  if (type < 0 || type >= CRIT_MAX) AfxThrowInvalidArgException();
  return locks[type];
}

class LibraryListLock {
 public:
  LibraryListLock() { AfxLockGlobals(CRIT_DYNLINKLIST); }
  ~LibraryListLock() { AfxUnlockGlobals(CRIT_DYNLINKLIST); }
  LibraryListLock(const LibraryListLock&) = delete;
  LibraryListLock& operator=(const LibraryListLock&) = delete;
};

HINSTANCE g_frameworkInstance;

}  // namespace

void AfxLockGlobals(int nLockType) { Lock(nLockType).lock(); }
void AfxUnlockGlobals(int nLockType) { Lock(nLockType).unlock(); }

// ---- States --------------------------------------------------------------------------------------------

AFX_MODULE_STATE::AFX_MODULE_STATE(BOOL bDLL)
    : m_pCurrentWinApp(nullptr),
      m_hCurrentInstanceHandle(bDLL ? nullptr : ::GetModuleHandleW(nullptr)),
      m_hCurrentResourceHandle(m_hCurrentInstanceHandle),
      m_lpszCurrentAppName(nullptr),
      m_bDLL(bDLL != FALSE) {}

AFX_MODULE_STATE::~AFX_MODULE_STATE() = default;

namespace {

// The program's own state. Never destroyed: extension modules leave its list when they are unloaded,
// which may be after this module's static objects have gone.
AFX_MODULE_STATE& ProgramState() {
  static AFX_MODULE_STATE* const state = new AFX_MODULE_STATE(FALSE);
  return *state;
}

}  // namespace

AFX_MODULE_STATE* AfxGetModuleState() {
  AFX_MODULE_STATE* const current = framework::CurrentThread().moduleState;
  return current != nullptr ? current : &ProgramState();
}

AFX_MODULE_STATE* AfxGetStaticModuleState() { return &ProgramState(); }
AFX_MODULE_STATE* AfxGetAppModuleState() { return &ProgramState(); }

AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* pNewState) noexcept {
  framework::ThreadState& thread = framework::CurrentThread();
  AFX_MODULE_STATE* const former = thread.moduleState;
  thread.moduleState = pNewState;
  return former != nullptr ? former : &ProgramState();
}

AFX_MAINTAIN_STATE2::AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pNewState) noexcept
    : m_pPrevModuleState(AfxSetModuleState(pNewState)) {}

AFX_MAINTAIN_STATE2::~AFX_MAINTAIN_STATE2() { AfxSetModuleState(m_pPrevModuleState); }

// ---- Extension modules -------------------------------------------------------------------------------

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE hModule) {
  if (state.bInitialized) return TRUE;
  state.bInitialized = TRUE;
  state.hModule = hModule;
  state.hResource = hModule;
  return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL) {
  if (!state.bInitialized) return;
  const LibraryListLock lock;
  CDynLinkLibrary* next = nullptr;
  for (CDynLinkLibrary* p = ProgramState().m_libraryList; p != nullptr; p = next) {
    next = p->m_pNextDLL;
    if (p->m_hModule == state.hModule) delete p;
  }
  state.bInitialized = FALSE;
}

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CObject)

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem), m_pNextDLL(nullptr) {
  const LibraryListLock lock;
  AfxGetModuleState()->m_libraryList.AddHead(this);
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_bSystem(FALSE), m_pNextDLL(nullptr) {
  const LibraryListLock lock;
  AfxGetModuleState()->m_libraryList.AddHead(this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
  const LibraryListLock lock;
  if (!AfxGetModuleState()->m_libraryList.Remove(this)) ProgramState().m_libraryList.Remove(this);
}

// ---- Resources ---------------------------------------------------------------------------------------

HINSTANCE AfxGetInstanceHandle() { return AfxGetModuleState()->m_hCurrentInstanceHandle; }
HINSTANCE AfxGetResourceHandle() { return AfxGetModuleState()->m_hCurrentResourceHandle; }

void AfxSetResourceHandle(HINSTANCE hInstResource) {
  AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}

HINSTANCE AfxFindResourceHandle(LPCWSTR lpszName, LPCWSTR lpszType) {
  const auto has = [&](HINSTANCE module) {
    return module != nullptr && ::FindResourceW(module, lpszName, lpszType) != nullptr;
  };
  AFX_MODULE_STATE* const state = AfxGetModuleState();
  const HINSTANCE current = state->m_hCurrentResourceHandle;
  if (has(current)) return current;
  {
    const LibraryListLock lock;
    for (const CDynLinkLibrary* p = state->m_libraryList; p != nullptr; p = p->m_pNextDLL) {
      if (has(p->m_hResource)) return p->m_hResource;
    }
  }
  return has(g_frameworkInstance) ? g_frameworkInstance : current;
}

HINSTANCE AfxFindStringResourceHandle(UINT nID) {
  // Strings lie in blocks of sixteen, so a block that exists may still lack the string.
  wchar_t first[2];
  const auto has = [&](HINSTANCE module) {
    return module != nullptr && ::LoadStringW(module, nID, first, 2) > 0;
  };
  AFX_MODULE_STATE* const state = AfxGetModuleState();
  const HINSTANCE current = state->m_hCurrentResourceHandle;
  if (has(current)) return current;
  {
    const LibraryListLock lock;
    for (const CDynLinkLibrary* p = state->m_libraryList; p != nullptr; p = p->m_pNextDLL) {
      if (has(p->m_hResource)) return p->m_hResource;
    }
  }
  return has(g_frameworkInstance) ? g_frameworkInstance : nullptr;
}

int AfxLoadString(UINT nIDS, LPWSTR lpszBuf, UINT nMaxBuf) {
  if (lpszBuf == nullptr || nMaxBuf == 0) return 0;
  lpszBuf[0] = L'\0';
  const HINSTANCE module = AfxFindStringResourceHandle(nIDS);
  return module != nullptr ? ::LoadStringW(module, nIDS, lpszBuf, static_cast<int>(nMaxBuf)) : 0;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) g_frameworkInstance = instance;
  return TRUE;
}
