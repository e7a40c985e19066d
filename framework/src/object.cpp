// Objects and their run-time classes.
#include "afx.h"
#include "afxstat_.h"

#include <cstring>

CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF,
                                       nullptr,   &CObject::_GetBaseClass,           nullptr};

CRuntimeClass* CObject::_GetBaseClass() { return nullptr; }
CRuntimeClass* CObject::GetThisClass() { return &classCObject; }
CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }
CObject::~CObject() = default;

void* CObject::operator new(size_t nSize) {
  void* const p = ::operator new(nSize, std::nothrow);
  if (p == nullptr) AfxThrowMemoryException();
  return p;
}

void* CObject::operator new(size_t nSize, const std::nothrow_t& tag) noexcept {
  return ::operator new(nSize, tag);
}

void CObject::operator delete(void* p) noexcept { ::operator delete(p); }
void CObject::operator delete(void* p, const std::nothrow_t&) noexcept { ::operator delete(p); }

BOOL CObject::IsSerializable() const { return GetRuntimeClass()->m_wSchema != 0xFFFF; }

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }

void CObject::Serialize(CArchive&) {}
void CObject::AssertValid() const {}
void CObject::Dump(CDumpContext&) const {}

CObject* AfxDynamicDownCast(const CRuntimeClass* pClass, CObject* pObject) {
  return pObject != nullptr && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

CObject* AfxStaticDownCast(const CRuntimeClass* pClass, CObject* pObject) {
  ASSERT(pObject == nullptr || pObject->IsKindOf(pClass));
  UNUSED(pClass);
  return pObject;
}

// ---- Run-time classes --------------------------------------------------------------------------------

CObject* CRuntimeClass::CreateObject() const {
  if (m_pfnCreateObject == nullptr) return nullptr;
  try {
    return m_pfnCreateObject();
  } catch (CMemoryException* e) {
    e->Delete();
    return nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const {
  for (const CRuntimeClass* p = this; p != nullptr;
       p = p->m_pfnGetBaseClass != nullptr ? p->m_pfnGetBaseClass() : nullptr) {
    if (p == pBaseClass) return TRUE;
  }
  return FALSE;
}

namespace {

// Every class with an AFX_CLASSINIT, in all loaded modules. A plain pointer: it is written by static
// initialisers, before any object of this file could have been constructed.
constinit CRuntimeClass* g_firstClass = nullptr;

class ClassListLock {
 public:
  ClassListLock() { AfxLockGlobals(CRIT_RUNTIMECLASSLIST); }
  ~ClassListLock() { AfxUnlockGlobals(CRIT_RUNTIMECLASSLIST); }
  ClassListLock(const ClassListLock&) = delete;
  ClassListLock& operator=(const ClassListLock&) = delete;
};

}  // namespace

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass) noexcept : m_pClass(pNewClass) {
  const ClassListLock lock;
  pNewClass->m_pNextClass = g_firstClass;
  g_firstClass = pNewClass;
}

AFX_CLASSINIT::~AFX_CLASSINIT() {
  const ClassListLock lock;
  for (CRuntimeClass** link = &g_firstClass; *link != nullptr; link = &(*link)->m_pNextClass) {
    if (*link != m_pClass) continue;
    *link = m_pClass->m_pNextClass;
    return;
  }
}

CRuntimeClass* CRuntimeClass::FromName(LPCSTR lpszClassName) {
  if (lpszClassName == nullptr) return nullptr;
  const ClassListLock lock;
  for (CRuntimeClass* p = g_firstClass; p != nullptr; p = p->m_pNextClass) {
    if (std::strcmp(p->m_lpszClassName, lpszClassName) == 0) return p;
  }
  return nullptr;
}

CObject* CRuntimeClass::CreateObject(LPCSTR lpszClassName) {
  const CRuntimeClass* const found = FromName(lpszClassName);
  return found != nullptr ? found->CreateObject() : nullptr;
}
