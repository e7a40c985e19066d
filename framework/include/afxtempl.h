// Collection templates: CArray, CList, CMap, and the typed-pointer wrappers. A position or index that
// is out of range raises the invalid-argument exception.
#pragma once

#include "afx.h"

#include <algorithm>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

// ---- Helpers that hosts may specialise ---------------------------------------------------------------

template <class TYPE, class ARG_TYPE>
BOOL CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2) {
  return *pElement1 == *pElement2;
}

template <class TYPE>
void CopyElements(TYPE* pDest, const TYPE* pSrc, INT_PTR nCount) {
  std::copy_n(pSrc, nCount, pDest);
}

template <class ARG_KEY>
UINT HashKey(ARG_KEY key) {
  if constexpr (std::is_pointer_v<std::decay_t<ARG_KEY>>) {
    return static_cast<UINT>(reinterpret_cast<DWORD_PTR>(key) >> 4);
  } else {
    const auto bits = static_cast<unsigned long long>(key);
    return static_cast<UINT>(bits ^ (bits >> 32));
  }
}
template <>
VORNFW_API UINT HashKey<LPCWSTR>(LPCWSTR key);
template <>
VORNFW_API UINT HashKey<LPCSTR>(LPCSTR key);
template <>
inline UINT HashKey<const CString&>(const CString& key) {
  return HashKey<LPCWSTR>(key);
}
template <>
inline UINT HashKey<CString>(CString key) {
  return HashKey<LPCWSTR>(key);
}

// ---- CArray ------------------------------------------------------------------------------------------

// A growing array. TYPE needs a default constructor, copying and assignment.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
 public:
  CArray() = default;

  INT_PTR GetSize() const { return m_nSize; }
  INT_PTR GetCount() const { return m_nSize; }
  BOOL IsEmpty() const { return m_nSize == 0; }
  INT_PTR GetUpperBound() const { return m_nSize - 1; }
  // New elements are default-initialised. nGrowBy: how many more to allocate at a time; -1 leaves it,
  // 0 lets the array choose.
  void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) {
    ENSURE_ARG(nNewSize >= 0);
    if (nGrowBy >= 0) m_nGrowBy = nGrowBy;
    if (nNewSize == 0) return Reset();
    Reserve(nNewSize);
    for (INT_PTR i = nNewSize; i < m_nSize; ++i) m_pData[static_cast<size_t>(i)] = TYPE();
    m_nSize = nNewSize;
  }
  void FreeExtra() {
    if (m_nSize == 0) return Reset();
    if (m_nSize < m_nMaxSize) Reallocate(m_nSize);
  }
  void RemoveAll() { SetSize(0); }

  const TYPE& GetAt(INT_PTR nIndex) const { return m_pData[Checked(nIndex)]; }
  TYPE& GetAt(INT_PTR nIndex) { return m_pData[Checked(nIndex)]; }
  void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_pData[Checked(nIndex)] = newElement; }
  const TYPE& ElementAt(INT_PTR nIndex) const { return m_pData[Checked(nIndex)]; }
  TYPE& ElementAt(INT_PTR nIndex) { return m_pData[Checked(nIndex)]; }
  const TYPE& operator[](INT_PTR nIndex) const { return m_pData[Checked(nIndex)]; }
  TYPE& operator[](INT_PTR nIndex) { return m_pData[Checked(nIndex)]; }
  // Null while the array is empty.
  const TYPE* GetData() const { return m_pData.get(); }
  TYPE* GetData() { return m_pData.get(); }

  // Grows the array where needed.
  void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement) {
    ENSURE_ARG(nIndex >= 0);
    TYPE element(newElement);  // it may lie in this array
    if (nIndex >= m_nSize) SetSize(nIndex + 1);
    m_pData[static_cast<size_t>(nIndex)] = std::move(element);
  }
  // Returns the index of the new element.
  INT_PTR Add(ARG_TYPE newElement) {
    const INT_PTR nIndex = m_nSize;
    SetAtGrow(nIndex, newElement);
    return nIndex;
  }
  // Returns the index of the first appended element.
  INT_PTR Append(const CArray& src) {
    ENSURE_ARG(this != &src);
    const INT_PTR nOldSize = m_nSize;
    SetSize(nOldSize + src.m_nSize);
    if (src.m_nSize > 0) CopyElements<TYPE>(m_pData.get() + nOldSize, src.m_pData.get(), src.m_nSize);
    return nOldSize;
  }
  void Copy(const CArray& src) {
    if (this == &src) return;
    SetSize(src.m_nSize);
    if (src.m_nSize > 0) CopyElements<TYPE>(m_pData.get(), src.m_pData.get(), src.m_nSize);
  }

  // Beyond the end the array grows up to nIndex first.
  void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1) {
    ENSURE_ARG(nIndex >= 0 && nCount > 0);
    TYPE element(newElement);
    const INT_PTR nOldSize = m_nSize;
    SetSize(std::max(nIndex, nOldSize) + nCount);
    TYPE* const data = m_pData.get();
    if (nIndex < nOldSize) std::move_backward(data + nIndex, data + nOldSize, data + nOldSize + nCount);
    std::fill_n(data + nIndex, nCount, element);
  }
  void InsertAt(INT_PTR nStartIndex, CArray* pNewArray) {
    ENSURE_ARG(pNewArray != nullptr && pNewArray != this && nStartIndex >= 0);
    for (INT_PTR i = 0; i < pNewArray->m_nSize; ++i) InsertAt(nStartIndex + i, pNewArray->GetAt(i));
  }
  void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) {
    ENSURE_ARG(nIndex >= 0 && nCount >= 0 && nIndex <= m_nSize && nCount <= m_nSize - nIndex);
    TYPE* const data = m_pData.get();
    std::move(data + nIndex + nCount, data + m_nSize, data + nIndex);
    for (INT_PTR i = m_nSize - nCount; i < m_nSize; ++i) data[i] = TYPE();
    m_nSize -= nCount;
  }

 private:
  size_t Checked(INT_PTR nIndex) const {
    if (nIndex < 0 || nIndex >= m_nSize) AfxThrowInvalidArgException();
    return static_cast<size_t>(nIndex);
  }
  void Reset() {
    m_pData.reset();
    m_nSize = m_nMaxSize = 0;
  }
  void Reserve(INT_PTR nNeeded) {
    if (nNeeded <= m_nMaxSize) return;
    // Growing by an eighth keeps adding one by one linear without much waste.
    const INT_PTR nGrowBy = m_nGrowBy > 0 ? m_nGrowBy : std::clamp<INT_PTR>(m_nSize / 8, 4, 1024);
    Reallocate(std::max(nNeeded, m_nMaxSize + (m_nMaxSize > 0 ? nGrowBy : 0)));
  }
  void Reallocate(INT_PTR nMaxSize) {
    if (nMaxSize > PTRDIFF_MAX / static_cast<INT_PTR>(sizeof(TYPE))) AfxThrowMemoryException();
    std::unique_ptr<TYPE[]> data(new (std::nothrow) TYPE[static_cast<size_t>(nMaxSize)]());
    if (data == nullptr) AfxThrowMemoryException();
    std::move(m_pData.get(), m_pData.get() + m_nSize, data.get());
    m_pData = std::move(data);
    m_nMaxSize = nMaxSize;
  }

  std::unique_ptr<TYPE[]> m_pData;  // m_nMaxSize elements, those behind m_nSize in their first state
  INT_PTR m_nSize = 0;
  INT_PTR m_nMaxSize = 0;
  INT_PTR m_nGrowBy = 0;
};

// ---- CList -------------------------------------------------------------------------------------------

// A doubly linked list. A POSITION stays valid until its element is removed.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject {
 public:
  // nBlockSize is accepted for the sake of its users; nodes are allocated one by one.
  explicit CList(INT_PTR nBlockSize = 10) { UNUSED(nBlockSize); }
  ~CList() override { RemoveAll(); }

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  TYPE& GetHead() { return Node(m_pHead)->data; }
  const TYPE& GetHead() const { return Node(m_pHead)->data; }
  TYPE& GetTail() { return Node(m_pTail)->data; }
  const TYPE& GetTail() const { return Node(m_pTail)->data; }
  TYPE RemoveHead() { return Unlink(Node(m_pHead)); }
  TYPE RemoveTail() { return Unlink(Node(m_pTail)); }

  POSITION AddHead(ARG_TYPE newElement) { return Link(newElement, nullptr, m_pHead); }
  POSITION AddTail(ARG_TYPE newElement) { return Link(newElement, m_pTail, nullptr); }
  void AddHead(CList* pNewList) {
    ENSURE_ARG(pNewList != nullptr && pNewList != this);
    for (CNode* p = pNewList->m_pTail; p != nullptr; p = p->pPrev) AddHead(p->data);
  }
  void AddTail(CList* pNewList) {
    ENSURE_ARG(pNewList != nullptr && pNewList != this);
    for (CNode* p = pNewList->m_pHead; p != nullptr; p = p->pNext) AddTail(p->data);
  }
  void RemoveAll() {
    for (CNode* p = m_pHead; p != nullptr;) delete std::exchange(p, p->pNext);
    m_pHead = m_pTail = nullptr;
    m_nCount = 0;
  }

  POSITION GetHeadPosition() const { return Position(m_pHead); }
  POSITION GetTailPosition() const { return Position(m_pTail); }
  // The element at the position, which moves on to the next (previous) one, null at the end.
  TYPE& GetNext(POSITION& rPosition) { return Step(rPosition, &CNode::pNext)->data; }
  const TYPE& GetNext(POSITION& rPosition) const { return Step(rPosition, &CNode::pNext)->data; }
  TYPE& GetPrev(POSITION& rPosition) { return Step(rPosition, &CNode::pPrev)->data; }
  const TYPE& GetPrev(POSITION& rPosition) const { return Step(rPosition, &CNode::pPrev)->data; }

  TYPE& GetAt(POSITION position) { return Node(position)->data; }
  const TYPE& GetAt(POSITION position) const { return Node(position)->data; }
  void SetAt(POSITION pos, ARG_TYPE newElement) { Node(pos)->data = newElement; }
  void RemoveAt(POSITION position) { Unlink(Node(position)); }
  // Without a position: at the head (before) or at the tail (after).
  POSITION InsertBefore(POSITION position, ARG_TYPE newElement) {
    if (position == nullptr) return AddHead(newElement);
    CNode* const p = Node(position);
    return Link(newElement, p->pPrev, p);
  }
  POSITION InsertAfter(POSITION position, ARG_TYPE newElement) {
    if (position == nullptr) return AddTail(newElement);
    CNode* const p = Node(position);
    return Link(newElement, p, p->pNext);
  }

  // The first equal element behind startAfter (null: from the head); null if there is none.
  POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const {
    CNode* p = startAfter != nullptr ? Node(startAfter)->pNext : m_pHead;
    while (p != nullptr && !CompareElements(&p->data, &searchValue)) p = p->pNext;
    return Position(p);
  }
  POSITION FindIndex(INT_PTR nIndex) const {
    if (nIndex < 0 || nIndex >= m_nCount) return nullptr;
    CNode* p = m_pHead;
    while (nIndex-- > 0) p = p->pNext;
    return Position(p);
  }

 private:
  struct CNode {
    CNode* pNext;
    CNode* pPrev;
    TYPE data;
  };

  static POSITION Position(CNode* p) { return reinterpret_cast<POSITION>(p); }
  static CNode* Node(POSITION position) { return Node(reinterpret_cast<CNode*>(position)); }
  static CNode* Node(CNode* p) {
    if (p == nullptr) AfxThrowInvalidArgException();
    return p;
  }
  static CNode* Step(POSITION& rPosition, CNode* CNode::*link) {
    CNode* const p = Node(rPosition);
    rPosition = Position(p->*link);
    return p;
  }
  POSITION Link(ARG_TYPE newElement, CNode* pPrev, CNode* pNext) {
    auto* const p = new (std::nothrow) CNode{pNext, pPrev, TYPE(newElement)};
    if (p == nullptr) AfxThrowMemoryException();
    (pPrev != nullptr ? pPrev->pNext : m_pHead) = p;
    (pNext != nullptr ? pNext->pPrev : m_pTail) = p;
    ++m_nCount;
    return Position(p);
  }
  TYPE Unlink(CNode* p) {
    const std::unique_ptr<CNode> owner(p);
    (p->pPrev != nullptr ? p->pPrev->pNext : m_pHead) = p->pNext;
    (p->pNext != nullptr ? p->pNext->pPrev : m_pTail) = p->pPrev;
    --m_nCount;
    return std::move(p->data);
  }

  CNode* m_pHead = nullptr;
  CNode* m_pTail = nullptr;
  INT_PTR m_nCount = 0;
};

// ---- CMap --------------------------------------------------------------------------------------------

// A hash table. The walk over it is in no particular order, and survives removal of the pairs it has
// already given.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
 public:
  struct CPair {
    const KEY key;
    VALUE value;
  };

  explicit CMap(INT_PTR nBlockSize = 10) { UNUSED(nBlockSize); }
  ~CMap() override { RemoveAll(); }

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  BOOL Lookup(ARG_KEY key, VALUE& rValue) const {
    const CPair* const pair = PLookup(key);
    if (pair == nullptr) return FALSE;
    rValue = pair->value;
    return TRUE;
  }
  const CPair* PLookup(ARG_KEY key) const { return FindAssoc(key); }
  CPair* PLookup(ARG_KEY key) { return FindAssoc(key); }
  // Adds the key with a default value if it is missing.
  VALUE& operator[](ARG_KEY key) {
    CAssoc* p = FindAssoc(key);
    if (p != nullptr) return p->value;
    if (m_table == nullptr) InitHashTable(m_nHashTableSize);
    const UINT nHash = HashKey<ARG_KEY>(key);
    CAssoc*& bucket = m_table[nHash % m_nHashTableSize];
    p = new (std::nothrow) CAssoc{{KEY(key), VALUE()}, nHash, bucket};
    if (p == nullptr) AfxThrowMemoryException();
    bucket = p;
    ++m_nCount;
    return p->value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
  BOOL RemoveKey(ARG_KEY key) {
    if (m_table == nullptr) return FALSE;
    CAssoc** link = &m_table[HashKey<ARG_KEY>(key) % m_nHashTableSize];
    while (*link != nullptr && !CompareElements(&(*link)->key, &key)) link = &(*link)->pNext;
    if (*link == nullptr) return FALSE;
    delete std::exchange(*link, (*link)->pNext);
    --m_nCount;
    return TRUE;
  }
  void RemoveAll() {
    for (CAssoc* p = FirstFrom(0); p != nullptr;) delete std::exchange(p, Next(p));
    m_table.reset();
    m_nCount = 0;
  }

  POSITION GetStartPosition() const { return reinterpret_cast<POSITION>(FirstFrom(0)); }
  void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const {
    auto* const p = reinterpret_cast<CAssoc*>(rNextPosition);
    if (p == nullptr) AfxThrowInvalidArgException();
    rNextPosition = reinterpret_cast<POSITION>(Next(p));
    rKey = p->key;
    rValue = p->value;
  }
  const CPair* PGetFirstAssoc() const { return FirstFrom(0); }
  CPair* PGetFirstAssoc() { return FirstFrom(0); }
  const CPair* PGetNextAssoc(const CPair* pAssocRet) const { return Next(Assoc(pAssocRet)); }
  CPair* PGetNextAssoc(const CPair* pAssocRet) { return Next(Assoc(pAssocRet)); }

  UINT GetHashTableSize() const { return m_nHashTableSize; }
  // Only while the map is empty.
  void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE) {
    ENSURE_ARG(hashSize > 0 && m_nCount == 0);
    m_nHashTableSize = hashSize;
    m_table.reset(bAllocNow ? new (std::nothrow) CAssoc*[hashSize]() : nullptr);
    if (bAllocNow && m_table == nullptr) AfxThrowMemoryException();
  }

 private:
  struct CAssoc : CPair {
    UINT nHash;
    CAssoc* pNext;
  };

  static const CAssoc* Assoc(const CPair* pair) {
    if (pair == nullptr) AfxThrowInvalidArgException();
    return static_cast<const CAssoc*>(pair);
  }
  CAssoc* FindAssoc(ARG_KEY key) const {
    if (m_table == nullptr) return nullptr;
    CAssoc* p = m_table[HashKey<ARG_KEY>(key) % m_nHashTableSize];
    while (p != nullptr && !CompareElements(&p->key, &key)) p = p->pNext;
    return p;
  }
  CAssoc* FirstFrom(UINT bucket) const {
    for (; m_table != nullptr && bucket < m_nHashTableSize; ++bucket) {
      if (m_table[bucket] != nullptr) return m_table[bucket];
    }
    return nullptr;
  }
  CAssoc* Next(const CAssoc* p) const {
    return p->pNext != nullptr ? p->pNext : FirstFrom(p->nHash % m_nHashTableSize + 1);
  }

  std::unique_ptr<CAssoc*[]> m_table;  // m_nHashTableSize buckets; null while nothing was ever added
  INT_PTR m_nCount = 0;
  UINT m_nHashTableSize = 17;
};

// ---- Typed pointers ----------------------------------------------------------------------------------

// CPtrArray or CObArray that gives its elements as TYPE, a pointer type.
template <class BASE_CLASS, class TYPE>
class CTypedPtrArray : public BASE_CLASS {
 public:
  TYPE GetAt(INT_PTR nIndex) const { return static_cast<TYPE>(BASE_CLASS::GetAt(nIndex)); }
  TYPE& ElementAt(INT_PTR nIndex) { return reinterpret_cast<TYPE&>(BASE_CLASS::ElementAt(nIndex)); }
  void SetAt(INT_PTR nIndex, TYPE ptr) { BASE_CLASS::SetAt(nIndex, ptr); }
  void SetAtGrow(INT_PTR nIndex, TYPE newElement) { BASE_CLASS::SetAtGrow(nIndex, newElement); }
  INT_PTR Add(TYPE newElement) { return BASE_CLASS::Add(newElement); }
  INT_PTR Append(const CTypedPtrArray& src) { return BASE_CLASS::Append(src); }
  void Copy(const CTypedPtrArray& src) { BASE_CLASS::Copy(src); }
  void InsertAt(INT_PTR nIndex, TYPE newElement, INT_PTR nCount = 1) {
    BASE_CLASS::InsertAt(nIndex, newElement, nCount);
  }
  void InsertAt(INT_PTR nStartIndex, CTypedPtrArray* pNewArray) {
    BASE_CLASS::InsertAt(nStartIndex, pNewArray);
  }
  TYPE operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
  TYPE& operator[](INT_PTR nIndex) { return ElementAt(nIndex); }
};

// CPtrList or CObList that gives its elements as TYPE, a pointer type.
template <class BASE_CLASS, class TYPE>
class CTypedPtrList : public BASE_CLASS {
 public:
  explicit CTypedPtrList(INT_PTR nBlockSize = 10) : BASE_CLASS(nBlockSize) {}
  TYPE& GetHead() { return reinterpret_cast<TYPE&>(BASE_CLASS::GetHead()); }
  TYPE GetHead() const { return static_cast<TYPE>(BASE_CLASS::GetHead()); }
  TYPE& GetTail() { return reinterpret_cast<TYPE&>(BASE_CLASS::GetTail()); }
  TYPE GetTail() const { return static_cast<TYPE>(BASE_CLASS::GetTail()); }
  TYPE RemoveHead() { return static_cast<TYPE>(BASE_CLASS::RemoveHead()); }
  TYPE RemoveTail() { return static_cast<TYPE>(BASE_CLASS::RemoveTail()); }
  POSITION AddHead(TYPE newElement) { return BASE_CLASS::AddHead(newElement); }
  POSITION AddTail(TYPE newElement) { return BASE_CLASS::AddTail(newElement); }
  void AddHead(CTypedPtrList* pNewList) { BASE_CLASS::AddHead(pNewList); }
  void AddTail(CTypedPtrList* pNewList) { BASE_CLASS::AddTail(pNewList); }
  TYPE& GetNext(POSITION& rPosition) { return reinterpret_cast<TYPE&>(BASE_CLASS::GetNext(rPosition)); }
  TYPE GetNext(POSITION& rPosition) const { return static_cast<TYPE>(BASE_CLASS::GetNext(rPosition)); }
  TYPE& GetPrev(POSITION& rPosition) { return reinterpret_cast<TYPE&>(BASE_CLASS::GetPrev(rPosition)); }
  TYPE GetPrev(POSITION& rPosition) const { return static_cast<TYPE>(BASE_CLASS::GetPrev(rPosition)); }
  TYPE& GetAt(POSITION position) { return reinterpret_cast<TYPE&>(BASE_CLASS::GetAt(position)); }
  TYPE GetAt(POSITION position) const { return static_cast<TYPE>(BASE_CLASS::GetAt(position)); }
  void SetAt(POSITION pos, TYPE newElement) { BASE_CLASS::SetAt(pos, newElement); }
};

// CMapPtrToPtr and the like with typed keys and values.
template <class BASE_CLASS, class KEY, class VALUE>
class CTypedPtrMap : public BASE_CLASS {
 public:
  explicit CTypedPtrMap(INT_PTR nBlockSize = 10) : BASE_CLASS(nBlockSize) {}
  BOOL Lookup(typename BASE_CLASS::BASE_ARG_KEY key, VALUE& rValue) const {
    return BASE_CLASS::Lookup(key, reinterpret_cast<typename BASE_CLASS::BASE_VALUE&>(rValue));
  }
  VALUE& operator[](typename BASE_CLASS::BASE_ARG_KEY key) {
    return reinterpret_cast<VALUE&>(BASE_CLASS::operator[](key));
  }
  void SetAt(KEY key, VALUE newValue) { BASE_CLASS::SetAt(key, newValue); }
  BOOL RemoveKey(KEY key) { return BASE_CLASS::RemoveKey(key); }
  void GetNextAssoc(POSITION& rPosition, KEY& rKey, VALUE& rValue) const {
    BASE_CLASS::GetNextAssoc(rPosition, reinterpret_cast<typename BASE_CLASS::BASE_KEY&>(rKey),
                             reinterpret_cast<typename BASE_CLASS::BASE_VALUE&>(rValue));
  }
};
