// What an extension module needs: its record, and the object by which it joins the program's chain of
// resources.
#pragma once

#include "afxstat_.h"

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
