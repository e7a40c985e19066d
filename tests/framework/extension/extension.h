// An extension module for the tests: resources and a run-time class of its own.
#pragma once

#include <afxdllx.h>

namespace extension {

// The module's handle, as DllMain got it.
AFX_EXT_API HINSTANCE Handle();
// Joins the chain once more; the caller deletes the object to leave it.
AFX_EXT_API CDynLinkLibrary* Join();
// Throws, so that a test can catch what another module threw.
AFX_EXT_API void ThrowUser();
AFX_EXT_API int At(const CString& text, int index);

}  // namespace extension

class AFX_EXT_CLASS CExtensionObject : public CObject {
  DECLARE_DYNCREATE(CExtensionObject)

 public:
  CExtensionObject() = default;
};
