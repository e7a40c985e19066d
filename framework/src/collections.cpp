#include "afxcoll.h"

template <>
UINT HashKey<LPCWSTR>(LPCWSTR key) {
  UINT hash = 2166136261U;
  for (; key != nullptr && *key != L'\0'; ++key) hash = (hash ^ static_cast<UINT>(*key)) * 16777619U;
  return hash;
}

template <>
UINT HashKey<LPCSTR>(LPCSTR key) {
  UINT hash = 2166136261U;
  for (; key != nullptr && *key != '\0'; ++key) hash = (hash ^ static_cast<BYTE>(*key)) * 16777619U;
  return hash;
}

#define IMPLEMENT_ARRAY(class_name)      \
  IMPLEMENT_DYNAMIC(class_name, CObject) \
  class_name::class_name() = default;    \
  class_name::~class_name() = default;

IMPLEMENT_ARRAY(CByteArray)
IMPLEMENT_ARRAY(CWordArray)
IMPLEMENT_ARRAY(CDWordArray)
IMPLEMENT_ARRAY(CUIntArray)
IMPLEMENT_ARRAY(CPtrArray)
IMPLEMENT_ARRAY(CObArray)
IMPLEMENT_ARRAY(CStringArray)

#define IMPLEMENT_NODES(class_name, base)                          \
  IMPLEMENT_DYNAMIC(class_name, CObject)                           \
  class_name::class_name(INT_PTR nBlockSize) : base(nBlockSize) {} \
  class_name::~class_name() = default;

IMPLEMENT_NODES(CPtrList, CList)
IMPLEMENT_NODES(CObList, CList)
IMPLEMENT_NODES(CStringList, CList)
IMPLEMENT_NODES(CMapWordToPtr, CMap)
IMPLEMENT_NODES(CMapPtrToWord, CMap)
IMPLEMENT_NODES(CMapPtrToPtr, CMap)
IMPLEMENT_NODES(CMapWordToOb, CMap)
IMPLEMENT_NODES(CMapStringToPtr, CMap)
IMPLEMENT_NODES(CMapStringToOb, CMap)
IMPLEMENT_NODES(CMapStringToString, CMap)
