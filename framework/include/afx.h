// The ground of the framework: objects with run-time classes, exceptions, strings, diagnostics.
#pragma once

#include "afxver_.h"
#include "cstringt.h"

#include <new>

class CObject;
class CException;
class CArchive;
class CDumpContext;

struct __POSITION {};
// A place in a collection; null is none.
typedef __POSITION* POSITION;

#define BEFORE_START_POSITION ((POSITION)-1L)

// ---- Diagnostics -------------------------------------------------------------------------------------

// Formats like CString::Format and sends the text to the debugger (OutputDebugString).
VORNFW_API void AfxTrace(LPCWSTR pszFormat, ...);
// Reports a failed ASSERT to the debugger and standard error; TRUE asks the caller to break.
VORNFW_API BOOL AfxAssertFailedLine(LPCSTR lpszFileName, int nLine);
VORNFW_API void AfxDebugBreak();
VORNFW_API BOOL AfxIsValidAddress(const void* lp, UINT_PTR nBytes, BOOL bReadWrite = TRUE);
VORNFW_API BOOL AfxIsValidString(LPCWSTR lpsz, int nLength = -1);

#ifdef _DEBUG
#define ASSERT(f) ((f) || !AfxAssertFailedLine(__FILE__, __LINE__) || (AfxDebugBreak(), false))
#define VERIFY(f) ASSERT(f)
#define TRACE AfxTrace
#define ASSERT_VALID(pOb) ((pOb)->AssertValid())
#else
#define ASSERT(f) ((void)0)
#define VERIFY(f) ((void)(f))
#define TRACE(...) ((void)0)
#define ASSERT_VALID(pOb) ((void)0)
#endif
#define TRACE0(text) TRACE(L##text)
#define TRACE1(text, p1) TRACE(L##text, p1)
#define TRACE2(text, p1, p2) TRACE(L##text, p1, p2)
#define TRACE3(text, p1, p2, p3) TRACE(L##text, p1, p2, p3)
#define ASSERT_POINTER(p, type) ASSERT(((p) != nullptr) && AfxIsValidAddress((p), sizeof(type), FALSE))
#define ASSERT_NULL_OR_POINTER(p, type) \
  ASSERT(((p) == nullptr) || AfxIsValidAddress((p), sizeof(type), FALSE))
#define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
// Checks that hold in every build: a failed one raises the invalid-argument exception, or returns.
#define ENSURE_THROW(cond, exception) \
  do {                                \
    if (!(cond)) {                    \
      exception;                      \
    }                                 \
  } while (false)
#define ENSURE(cond) ENSURE_THROW(cond, AfxThrowInvalidArgException())
#define ENSURE_ARG(cond) ENSURE_THROW(cond, AfxThrowInvalidArgException())
#define ENSURE_VALID(pOb) ENSURE_THROW((pOb) != nullptr, AfxThrowInvalidArgException())
#ifndef UNUSED
#define UNUSED(x) ((void)(x))
#endif
#ifndef UNUSED_ALWAYS
#define UNUSED_ALWAYS(x) ((void)(x))
#endif
#ifndef DEBUG_NEW
#define DEBUG_NEW new
#endif

// ---- Run-time classes --------------------------------------------------------------------------------

// What is known of a class at run time. One constant per class, made by the macros below.
struct VORNFW_API CRuntimeClass {
  LPCSTR m_lpszClassName;
  int m_nObjectSize;
  UINT m_wSchema;
  CObject* (*m_pfnCreateObject)();  // null: the class cannot be created dynamically
  CRuntimeClass* (*m_pfnGetBaseClass)();
  CRuntimeClass* m_pNextClass;

  // A new object, or null if the class is not dynamic or memory is short.
  CObject* CreateObject() const;
  // TRUE if this is pBaseClass or derives from it.
  BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
  // Creates by name among the classes that a module registered; null if there is none.
  static CObject* CreateObject(LPCSTR lpszClassName);
  static CRuntimeClass* FromName(LPCSTR lpszClassName);
};

// The base of the framework's classes. Not copyable; deleted through this base.
class VORNFW_API CObject {
 public:
  virtual CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject() = 0;

  // Allocation raises the memory exception when memory is short.
  void* operator new(size_t nSize);
  void* operator new(size_t, void* p) { return p; }
  void* operator new(size_t nSize, const std::nothrow_t&) noexcept;
  void operator delete(void* p) noexcept;
  void operator delete(void*, void*) noexcept {}
  void operator delete(void* p, const std::nothrow_t&) noexcept;

  BOOL IsSerializable() const;
  BOOL IsKindOf(const CRuntimeClass* pClass) const;
  virtual void Serialize(CArchive& ar);
  virtual void AssertValid() const;
  virtual void Dump(CDumpContext& dc) const;

  static CRuntimeClass classCObject;
  static CRuntimeClass* _GetBaseClass();
  static CRuntimeClass* GetThisClass();

  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;

 protected:
  CObject() = default;
};

// The object as class_name if it is one, else null. A null object gives null.
VORNFW_API CObject* AfxDynamicDownCast(const CRuntimeClass* pClass, CObject* pObject);
VORNFW_API CObject* AfxStaticDownCast(const CRuntimeClass* pClass, CObject* pObject);

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())
#define DYNAMIC_DOWNCAST(class_name, object)                             \
  static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), \
                                              const_cast<CObject*>(static_cast<const CObject*>(object))))
#define STATIC_DOWNCAST(class_name, object) static_cast<class_name*>(object)

#define DECLARE_DYNAMIC(class_name)       \
 protected:                               \
  static CRuntimeClass* _GetBaseClass();  \
                                          \
 public:                                  \
  static CRuntimeClass class##class_name; \
  static CRuntimeClass* GetThisClass();   \
  virtual CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name) \
  DECLARE_DYNAMIC(class_name)         \
  static CObject* CreateObject();

#define DECLARE_SERIAL(class_name) DECLARE_DYNCREATE(class_name)

// _RUNTIME_CLASS names the constant itself, for initialisers within the defining module.
#define _RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew)                    \
  CRuntimeClass* class_name::_GetBaseClass() { return RUNTIME_CLASS(base_class_name); }         \
  CRuntimeClass class_name::class##class_name = {                                               \
      #class_name, static_cast<int>(sizeof(class_name)), wSchema,                               \
      pfnNew,      &class_name::_GetBaseClass,           nullptr};                              \
  CRuntimeClass* class_name::GetThisClass() { return &class_name::class##class_name; }          \
  CRuntimeClass* class_name::GetRuntimeClass() const { return &class_name::class##class_name; } \
  static const AFX_CLASSINIT _init_##class_name(&class_name::class##class_name);

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)         \
  CObject* class_name::CreateObject() { return new class_name; } \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, &class_name::CreateObject)

#define IMPLEMENT_SERIAL(class_name, base_class_name, wSchema)   \
  CObject* class_name::CreateObject() { return new class_name; } \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, &class_name::CreateObject)

// Makes a class known by name while its module is loaded.
struct VORNFW_API AFX_CLASSINIT {
  explicit AFX_CLASSINIT(CRuntimeClass* pNewClass) noexcept;
  ~AFX_CLASSINIT();
  AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
  AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

 private:
  CRuntimeClass* m_pClass;
};

// ---- Exceptions --------------------------------------------------------------------------------------

// Exceptions are thrown by pointer and deleted with Delete() by whoever catches them last.
class VORNFW_API CException : public CObject {
  DECLARE_DYNAMIC(CException)

 public:
  CException();
  explicit CException(BOOL bAutoDelete);
  virtual ~CException();

  // Frees the object unless it is one of the framework's permanent ones.
  void Delete();
  // Writes a message for the user, at most nMaxError characters with the null; FALSE if there is none.
  virtual BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
  virtual BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr);
  // Shows the message in a box; nError is the string shown if the exception has none of its own.
  virtual int ReportError(UINT nType = MB_OK, UINT nError = 0);

 protected:
  BOOL m_bAutoDelete;
};

// An exception with a fixed text; its objects are usually permanent.
class VORNFW_API CSimpleException : public CException {
  DECLARE_DYNAMIC(CSimpleException)

 public:
  CSimpleException();
  explicit CSimpleException(BOOL bAutoDelete);
  CSimpleException(BOOL bAutoDelete, LPCWSTR lpszMessage);
  virtual ~CSimpleException();
  BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
  BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;

 protected:
  LPCWSTR m_lpszMessage;
};

#define AFX_DECLARE_SIMPLE_EXCEPTION(class_name)          \
  class VORNFW_API class_name : public CSimpleException { \
    DECLARE_DYNAMIC(class_name)                           \
                                                          \
   public:                                                \
    class_name();                                         \
    explicit class_name(BOOL bAutoDelete);                \
    class_name(BOOL bAutoDelete, LPCWSTR lpszMessage);    \
    virtual ~class_name();                                \
  };

AFX_DECLARE_SIMPLE_EXCEPTION(CMemoryException)        // memory is short
AFX_DECLARE_SIMPLE_EXCEPTION(CNotSupportedException)  // a feature that is not there
AFX_DECLARE_SIMPLE_EXCEPTION(CResourceException)      // a resource is missing or cannot be made
AFX_DECLARE_SIMPLE_EXCEPTION(CUserException)          // the user has been told and the operation ends
AFX_DECLARE_SIMPLE_EXCEPTION(CInvalidArgException)    // an argument out of its range

[[noreturn]] VORNFW_API void AfxThrowMemoryException();
[[noreturn]] VORNFW_API void AfxThrowNotSupportedException();
[[noreturn]] VORNFW_API void AfxThrowResourceException();
[[noreturn]] VORNFW_API void AfxThrowUserException();
[[noreturn]] VORNFW_API void AfxThrowInvalidArgException();

#define TRY try {
#define CATCH(class_name, e) \
  }                          \
  catch (class_name * e) {
#define AND_CATCH(class_name, e) \
  }                              \
  catch (class_name * e) {
#define CATCH_ALL(e) \
  }                  \
  catch (CException * e) {
#define AND_CATCH_ALL(e) \
  }                      \
  catch (CException * e) {
#define END_CATCH }
#define END_CATCH_ALL }
#define THROW(e) throw e
#define THROW_LAST() throw
#define END_TRY            \
  }                        \
  catch (CException * e) { \
    e->Delete();           \
  }
