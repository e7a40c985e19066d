// The state of a module (program or library) and the current one of a thread.
#pragma once

#include "afx.h"

class CWinApp;

// One per extension module, a static object, filled by AfxInitExtensionModule in DllMain.
struct AFX_EXTENSION_MODULE {
  BOOL bInitialized = FALSE;
  HINSTANCE hModule = nullptr;
  HINSTANCE hResource = nullptr;
  CRuntimeClass* pFirstSharedClass = nullptr;
  void* pFirstSharedFactory = nullptr;
};

// At process attach: notes the module's handle in the record. TRUE on success; once is enough.
VORNFW_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE hModule);
// At process detach: takes the module's CDynLinkLibrary objects off every list and deletes them.
VORNFW_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// Joins a module to the current module state's chain for as long as the object lives. Made with new and
// never deleted by the module: the list owns it.
class VORNFW_API CDynLinkLibrary : public CObject {
  DECLARE_DYNAMIC(CDynLinkLibrary)

 public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
  CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
  virtual ~CDynLinkLibrary();

  HMODULE m_hModule;
  HMODULE m_hResource;
  BOOL m_bSystem;
  CDynLinkLibrary* m_pNextDLL;
};

inline CDynLinkLibrary*& AfxNextInSimpleList(CDynLinkLibrary* p) { return p->m_pNextDLL; }

// An intrusive list, newest first: it needs no memory and may outlive everything. The elements are
// chained by the member that the pointer type's overload of AfxNextInSimpleList gives.
template <class TYPE>
class CTypedSimpleList {
 public:
  BOOL IsEmpty() const { return m_pHead == nullptr; }
  TYPE GetHead() const { return m_pHead; }
  TYPE GetNext(TYPE p) const { return AfxNextInSimpleList(p); }
  operator TYPE() const { return m_pHead; }
  void AddHead(TYPE p) {
    AfxNextInSimpleList(p) = m_pHead;
    m_pHead = p;
  }
  // TRUE if p was in the list.
  BOOL Remove(TYPE p) {
    for (TYPE* link = &m_pHead; *link != nullptr; link = &AfxNextInSimpleList(*link)) {
      if (*link != p) continue;
      *link = AfxNextInSimpleList(p);
      return TRUE;
    }
    return FALSE;
  }
  void RemoveAll() { m_pHead = nullptr; }

 private:
  TYPE m_pHead = nullptr;
};

// What belongs to one module: its application object, where its resources lie, the extension modules
// that joined it. The program's own state exists as soon as anything asks for it.
class VORNFW_API AFX_MODULE_STATE {
 public:
  explicit AFX_MODULE_STATE(BOOL bDLL);
  ~AFX_MODULE_STATE();
  AFX_MODULE_STATE(const AFX_MODULE_STATE&) = delete;
  AFX_MODULE_STATE& operator=(const AFX_MODULE_STATE&) = delete;

  CWinApp* m_pCurrentWinApp;
  HINSTANCE m_hCurrentInstanceHandle;
  HINSTANCE m_hCurrentResourceHandle;
  LPCWSTR m_lpszCurrentAppName;
  BYTE m_bDLL;
  // Newest first. Walk it under AfxLockGlobals(CRIT_DYNLINKLIST).
  CTypedSimpleList<CDynLinkLibrary*> m_libraryList;
};

// The current thread's module state; in normal life never null.
VORNFW_API AFX_MODULE_STATE* AfxGetModuleState();
// The state of the program itself.
VORNFW_API AFX_MODULE_STATE* AfxGetStaticModuleState();
VORNFW_API AFX_MODULE_STATE* AfxGetAppModuleState();
// Makes another state the thread's current one (null: the program's) and returns the former.
VORNFW_API AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* pNewState) noexcept;

// Puts a module state in place for a scope.
class VORNFW_API AFX_MAINTAIN_STATE2 {
 public:
  explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pNewState) noexcept;
  ~AFX_MAINTAIN_STATE2();
  AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
  AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

 private:
  AFX_MODULE_STATE* m_pPrevModuleState;
};
#define AFX_MANAGE_STATE(p) AFX_MAINTAIN_STATE2 _ctlState(p);

// Process-wide locks. They nest within a thread.
constexpr int CRIT_DYNLINKLIST = 0;
constexpr int CRIT_RUNTIMECLASSLIST = 1;
constexpr int CRIT_OBJECTFACTORYLIST = 2;
constexpr int CRIT_WINMSGCACHE = 3;
constexpr int CRIT_REGCLASSLIST = 4;
constexpr int CRIT_MAX = 8;
VORNFW_API void AfxLockGlobals(int nLockType);
VORNFW_API void AfxUnlockGlobals(int nLockType);

// Where resources come from.
VORNFW_API HINSTANCE AfxGetInstanceHandle();
VORNFW_API HINSTANCE AfxGetResourceHandle();
VORNFW_API void AfxSetResourceHandle(HINSTANCE hInstResource);
// The first module that has the resource: the current resource handle, the extension modules (newest
// first), the framework. Without any, the current resource handle.
VORNFW_API HINSTANCE AfxFindResourceHandle(LPCWSTR lpszName, LPCWSTR lpszType);
VORNFW_API HINSTANCE AfxFindStringResourceHandle(UINT nID);
// Copies a string resource of the chain (null-terminated); its length, 0 if there is none.
VORNFW_API int AfxLoadString(UINT nIDS, LPWSTR lpszBuf, UINT nMaxBuf = 256);
