// Collections of fixed types: arrays, lists and maps of pointers, objects, strings and numbers.
#pragma once

#include "afxtempl.h"

#define AFX_DECLARE_ARRAY(class_name, TYPE, ARG_TYPE)           \
  class VORNFW_API class_name : public CArray<TYPE, ARG_TYPE> { \
    DECLARE_DYNAMIC(class_name)                                 \
                                                                \
   public:                                                      \
    class_name();                                               \
    ~class_name() override;                                     \
  };

AFX_DECLARE_ARRAY(CByteArray, BYTE, BYTE)
AFX_DECLARE_ARRAY(CWordArray, WORD, WORD)
AFX_DECLARE_ARRAY(CDWordArray, DWORD, DWORD)
AFX_DECLARE_ARRAY(CUIntArray, UINT, UINT)
AFX_DECLARE_ARRAY(CPtrArray, void*, void*)
AFX_DECLARE_ARRAY(CObArray, CObject*, CObject*)
AFX_DECLARE_ARRAY(CStringArray, CString, const CString&)

#define AFX_DECLARE_LIST(class_name, TYPE, ARG_TYPE)           \
  class VORNFW_API class_name : public CList<TYPE, ARG_TYPE> { \
    DECLARE_DYNAMIC(class_name)                                \
                                                               \
   public:                                                     \
    explicit class_name(INT_PTR nBlockSize = 10);              \
    ~class_name() override;                                    \
  };

AFX_DECLARE_LIST(CPtrList, void*, void*)
AFX_DECLARE_LIST(CObList, CObject*, CObject*)
AFX_DECLARE_LIST(CStringList, CString, const CString&)

#define AFX_DECLARE_MAP(class_name, KEY, ARG_KEY, VALUE, ARG_VALUE)           \
  class VORNFW_API class_name : public CMap<KEY, ARG_KEY, VALUE, ARG_VALUE> { \
    DECLARE_DYNAMIC(class_name)                                               \
                                                                              \
   public:                                                                    \
    using BASE_KEY = KEY;                                                     \
    using BASE_ARG_KEY = ARG_KEY;                                             \
    using BASE_VALUE = VALUE;                                                 \
    using BASE_ARG_VALUE = ARG_VALUE;                                         \
    explicit class_name(INT_PTR nBlockSize = 10);                             \
    ~class_name() override;                                                   \
  };

AFX_DECLARE_MAP(CMapWordToPtr, WORD, WORD, void*, void*)
AFX_DECLARE_MAP(CMapPtrToWord, void*, void*, WORD, WORD)
AFX_DECLARE_MAP(CMapPtrToPtr, void*, void*, void*, void*)
AFX_DECLARE_MAP(CMapWordToOb, WORD, WORD, CObject*, CObject*)
AFX_DECLARE_MAP(CMapStringToPtr, CString, LPCWSTR, void*, void*)
AFX_DECLARE_MAP(CMapStringToOb, CString, LPCWSTR, CObject*, CObject*)
AFX_DECLARE_MAP(CMapStringToString, CString, LPCWSTR, CString, LPCWSTR)
