// Plain intrusive lists, for lists that must outlive everything and allocate nothing.
#pragma once

#include "afx.h"

// A list through a pointer inside the elements; nNextOffset is that pointer's place in them.
class VORNFW_API CSimpleList {
 public:
  explicit CSimpleList(int nNextOffset = 0) : m_pHead(nullptr), m_nNextOffset(nNextOffset) {}
  void Construct(int nNextOffset) { m_nNextOffset = nNextOffset; }

  BOOL IsEmpty() const { return m_pHead == nullptr; }
  void AddHead(void* p);
  void RemoveAll() { m_pHead = nullptr; }
  void* GetHead() const { return m_pHead; }
  void* GetNext(void* p) const { return *NextOf(p); }
  // TRUE if p was in the list.
  BOOL Remove(void* p);

 private:
  void** NextOf(void* p) const { return reinterpret_cast<void**>(static_cast<BYTE*>(p) + m_nNextOffset); }

  void* m_pHead;
  int m_nNextOffset;
};

// The same for elements of one type; TYPE is a pointer type.
template <class TYPE>
class CTypedSimpleList : public CSimpleList {
 public:
  explicit CTypedSimpleList(int nNextOffset = 0) : CSimpleList(nNextOffset) {}
  void AddHead(TYPE p) { CSimpleList::AddHead(p); }
  TYPE GetHead() const { return static_cast<TYPE>(CSimpleList::GetHead()); }
  TYPE GetNext(TYPE p) const { return static_cast<TYPE>(CSimpleList::GetNext(p)); }
  BOOL Remove(TYPE p) { return CSimpleList::Remove(p); }
  operator TYPE() const { return GetHead(); }
};
