#include "extension.h"

namespace {

AFX_EXTENSION_MODULE g_module;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) return AfxInitExtensionModule(g_module, instance);
  if (reason == DLL_PROCESS_DETACH) AfxTermExtensionModule(g_module);
  return TRUE;
}

namespace extension {

HINSTANCE Handle() { return g_module.hModule; }
CDynLinkLibrary* Join() { return new CDynLinkLibrary(g_module); }
void ThrowUser() { AfxThrowUserException(); }
int At(const CString& text, int index) { return text.GetAt(index); }

}  // namespace extension

IMPLEMENT_DYNCREATE(CExtensionObject, CObject)
