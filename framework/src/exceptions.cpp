// Exceptions and the functions that throw them.
#include "afx.h"
#include "afxstat_.h"
#include "afxwin.h"

#include <cwchar>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)

CException::CException() : m_bAutoDelete(TRUE) {}
CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}
CException::~CException() = default;

void CException::Delete() {
  if (m_bAutoDelete) delete this;
}

BOOL CException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext) const {
  if (pnHelpContext != nullptr) *pnHelpContext = 0;
  if (lpszError != nullptr && nMaxError > 0) *lpszError = L'\0';
  return FALSE;
}

BOOL CException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext) {
  return static_cast<const CException*>(this)->GetErrorMessage(lpszError, nMaxError, pnHelpContext);
}

int CException::ReportError(UINT nType, UINT nError) {
  wchar_t message[512];
  if (GetErrorMessage(message, 512)) return AfxMessageBox(message, nType);
  if (nError != 0 && AfxLoadString(nError, message, 512) > 0) return AfxMessageBox(message, nType);
  return AfxMessageBox(L"Une erreur s'est produite.", nType);
}

CSimpleException::CSimpleException() : m_lpszMessage(nullptr) {}
CSimpleException::CSimpleException(BOOL bAutoDelete) : CException(bAutoDelete), m_lpszMessage(nullptr) {}
CSimpleException::CSimpleException(BOOL bAutoDelete, LPCWSTR lpszMessage)
    : CException(bAutoDelete), m_lpszMessage(lpszMessage) {}
CSimpleException::~CSimpleException() = default;

BOOL CSimpleException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext) const {
  if (m_lpszMessage == nullptr || lpszError == nullptr || nMaxError == 0) {
    return CException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
  }
  if (pnHelpContext != nullptr) *pnHelpContext = 0;
  std::wcsncpy(lpszError, m_lpszMessage, nMaxError);
  lpszError[nMaxError - 1] = L'\0';
  return TRUE;
}

BOOL CSimpleException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext) {
  return static_cast<const CSimpleException*>(this)->GetErrorMessage(lpszError, nMaxError, pnHelpContext);
}

// The thrown object is permanent: throwing must not need memory, least of all when memory is short.
#define IMPLEMENT_SIMPLE_EXCEPTION(class_name, function, message)                      \
  IMPLEMENT_DYNAMIC(class_name, CSimpleException)                                      \
  class_name::class_name() = default;                                                  \
  class_name::class_name(BOOL bAutoDelete) : CSimpleException(bAutoDelete, message) {} \
  class_name::class_name(BOOL bAutoDelete, LPCWSTR lpszMessage)                        \
      : CSimpleException(bAutoDelete, lpszMessage) {}                                  \
  class_name::~class_name() = default;                                                 \
  void function() {                                                                    \
    static class_name permanent(FALSE, message);                                       \
    throw &permanent;                                                                  \
  }

IMPLEMENT_SIMPLE_EXCEPTION(CMemoryException, AfxThrowMemoryException, L"Mémoire insuffisante.")
IMPLEMENT_SIMPLE_EXCEPTION(CNotSupportedException, AfxThrowNotSupportedException,
                           L"Opération non prise en charge.")
IMPLEMENT_SIMPLE_EXCEPTION(CResourceException, AfxThrowResourceException, L"Une ressource est introuvable.")
IMPLEMENT_SIMPLE_EXCEPTION(CUserException, AfxThrowUserException, L"Opération abandonnée.")
IMPLEMENT_SIMPLE_EXCEPTION(CInvalidArgException, AfxThrowInvalidArgException, L"Argument incorrect.")
