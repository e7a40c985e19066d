// A scoped object that makes the framework load resources from the library. Internal.
#pragma once

#include <afxwin.h>

#include "Module.h"

class CVornSetRessource {
 public:
  CVornSetRessource() : m_hEarlier(AfxGetResourceHandle()) { AfxSetResourceHandle(vorn::ModuleInstance()); }
  ~CVornSetRessource() { AfxSetResourceHandle(m_hEarlier); }
  CVornSetRessource(const CVornSetRessource&) = delete;
  CVornSetRessource& operator=(const CVornSetRessource&) = delete;

 private:
  HINSTANCE m_hEarlier;
};
