// Arrays as cheap handles on shared, reference-counted storage.
//
// Assignment shares: after `a = b` both handles show every later change, whoever makes it. A copy
// construction does not share, it copies the elements. Elements are plain values of the size of a
// pointer; they are never owned. Neither the count nor the elements are protected between threads.
//
// Nothing here throws: failures are zero results. Indexes and sizes count elements.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

// Asks for a handle that owns no storage yet, see TVornArray::ProvideStorage.
struct VornNoStorage {};

// The storage behind the handles. It grows and never shrinks.
template <class T>
class TVornSharedArray {
  static_assert(std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(void*));

 public:
  TVornSharedArray() = default;
  ~TVornSharedArray() { delete[] m_pBlock; }
  TVornSharedArray(const TVornSharedArray&) = delete;
  TVornSharedArray& operator=(const TVornSharedArray&) = delete;

  // Appends; the position goes to *index unless index is null. 1, or 0 when memory is short.
  virtual int Add(const T& item, long* index);

  // Stores before the element at index; at or past the end it appends, whatever was asked. 1, or 0 when
  // memory is short or the index is negative.
  virtual int Insert(const T& item, long index);

  // Removes up to count elements from index on. Nothing happens when index is outside.
  virtual void Remove(long index, long count);

  // Removes all elements; the block stays for reuse.
  virtual void RemoveAll();

  // Makes room for so many elements. 1, or 0 when memory is short, with the old block kept.
  int Reserve(long long capacity);

  void AddReference() { ++m_nRefCount; }

  // Gives one reference back; the last one destroys the storage.
  void Release();

  T* m_pData = nullptr;        // first element, equal to m_pBlock once there is a block
  T* m_pBlock = nullptr;       // the allocated block
  int m_nCapacity = 0;         // elements that the block holds
  int m_nSize = 0;             // elements in use
  float m_fGrowFactor = 1.5f;  // the block grows by this factor, or to what is needed if that is more
  int m_nRefCount = 1;         // handles that share this storage
  T m_EmptyData = T();         // what an index past the end gives

 private:
  static constexpr int kSmallestBlock = 5;

  int GrownCapacity() const;
};

// The handle. Every operation that finds no storage (its allocation failed) gives 0 or does nothing,
// except element access, which needs storage.
template <class T>
class TVornArray {
 public:
  TVornArray() : m_pShared(new (std::nothrow) TVornSharedArray<T>) {}
  explicit TVornArray(VornNoStorage) : m_pShared(nullptr) {}
  // Copies elements and growth factor into fresh storage; the value for an index past the end is not
  // copied.
  TVornArray(const TVornArray& source);
  ~TVornArray();
  // Shares the source's storage.
  TVornArray& operator=(const TVornArray& source);

  // Appends; the position goes to *index unless index is null. 1, or 0 when memory is short.
  virtual int Add(const T& item, long* index);

  // Stores before the element at index; past the end it appends. 1, or 0 when memory is short or the
  // index is negative.
  virtual int Insert(const T& item, long index);

  // Removes the first element that IsEqual finds equal. 1, or 0 when there is none.
  virtual int Remove(T& item);

  // Removes up to count elements from index on. Nothing happens when index is outside.
  virtual void Remove(long index, long count);

  virtual void RemoveAll();

  // The first element that is equal, in place, or null.
  virtual T* Find(T& item);

  // Whether a comes before b: by default as unsigned numbers.
  virtual int IsLower(T& a, T& b);

  // Whether a and b count as the same element: by default as unsigned numbers.
  virtual int IsEqual(T& a, T& b);

  // Appends the source's elements, unless source is this array or shares its storage. When memory is
  // short nothing changes.
  TVornArray& operator+=(const TVornArray& source);

  // In spite of its name appends, too, also an array to itself. 1, or 0 when memory is short.
  int Copy(const TVornArray& source);

  // The element; an index past the end gives the storage's empty value. A negative index is not caught.
  T& operator[](long index) const;
  T& ElementAt(long index) { return (*this)[index]; }
  T GetAt(long index) { return (*this)[index]; }

  // The elements in one block (null before the first was added); valid until the array grows.
  T* Array() const { return m_pShared ? m_pShared->m_pData : nullptr; }
  long GetSize() const { return m_pShared ? m_pShared->m_nSize : 0; }

  // The factor belongs to the storage: handles that share it share the factor. 0 without storage.
  float GetGrowFactor() const { return m_pShared ? m_pShared->m_fGrowFactor : 0.0f; }
  void SetGrowFactor(float factor);

  // What an index past the end gives, for all handles of the storage.
  void SetEmptyData(const T& value);

  // Below 1 removes all. Above the present size only reserves room: the size stays. Below the present
  // size the surplus is taken off twice, see there. 1, or 0 when memory is short.
  int Resize(long size);

  // Removes one element; nothing happens when index is outside.
  void RemoveAt(long index);

  // Orders the elements by IsLower.
  void Sort() {
    if (GetSize() >= 2) QuickSort(Array(), 0, GetSize() - 1);
  }

  // One step of Sort: orders the first, middle and last element of left to right among themselves, puts
  // the middle one next to last, and returns it there.
  const T& median3(T* data, long left, long right);

  // Gives a handle that was made without storage its own. 1, or 0 when memory is short.
  int ProvideStorage();

  TVornSharedArray<T>* m_pShared;  // null if there was no memory for it; for reading

 private:
  void QuickSort(T* data, long left, long right);
  void ReleaseStorage();
};

// ---- Storage -----------------------------------------------------------------------------------------

template <class T>
int TVornSharedArray<T>::Add(const T& item, long* index) {
  if (index) *index = m_nSize;
  return Insert(item, m_nSize);
}

template <class T>
int TVornSharedArray<T>::Insert(const T& item, long index) {
  // A size below zero is what Resize can leave; there is no place to store at until RemoveAll.
  if (index < 0 || m_nSize < 0) return 0;
  const T kept = item;  // it may lie in the block that Reserve replaces
  if (!Reserve(m_nSize + 1LL)) return 0;
  if (index < m_nSize) {
    std::copy_backward(m_pData + index, m_pData + m_nSize, m_pData + m_nSize + 1);
  } else {
    index = m_nSize;
  }
  m_pData[index] = kept;
  ++m_nSize;
  return 1;
}

template <class T>
void TVornSharedArray<T>::Remove(long index, long count) {
  if (index < 0 || index >= m_nSize || count < 1) return;
  count = std::min(count, m_nSize - index);
  std::copy(m_pData + index + count, m_pData + m_nSize, m_pData + index);
  m_nSize -= static_cast<int>(count);
}

template <class T>
void TVornSharedArray<T>::RemoveAll() {
  Remove(0, m_nSize);
  m_nSize = 0;
}

template <class T>
int TVornSharedArray<T>::GrownCapacity() const {
  const float product = static_cast<float>(m_nCapacity) * m_fGrowFactor;
  if (product >= static_cast<float>(INT_MAX)) return INT_MAX;
  return product > 0 ? static_cast<int>(product) : 0;
}

template <class T>
int TVornSharedArray<T>::Reserve(long long capacity) {
  if (capacity <= m_nCapacity) return 1;
  if (capacity > INT_MAX) return 0;
  const int grown = std::max({static_cast<int>(capacity), GrownCapacity(), kSmallestBlock});
  T* block = new (std::nothrow) T[static_cast<std::size_t>(grown)];
  if (!block) return 0;
  if (m_pBlock) std::copy_n(m_pData, std::max(m_nSize, 0), block);
  delete[] m_pBlock;
  m_pBlock = m_pData = block;
  m_nCapacity = grown;
  return 1;
}

template <class T>
void TVornSharedArray<T>::Release() {
  if (--m_nRefCount > 0) return;
  RemoveAll();
  // Not `delete this`: the destructor is not virtual, and nothing may derive with more to destroy.
  this->TVornSharedArray::~TVornSharedArray();
  ::operator delete(static_cast<void*>(this));
}

// ---- Handle ------------------------------------------------------------------------------------------

template <class T>
TVornArray<T>::TVornArray(const TVornArray& source) : TVornArray() {
  if (!m_pShared || !source.m_pShared) return;
  m_pShared->m_fGrowFactor = source.m_pShared->m_fGrowFactor;
  Copy(source);
}

template <class T>
TVornArray<T>::~TVornArray() {
  ReleaseStorage();
}

template <class T>
TVornArray<T>& TVornArray<T>::operator=(const TVornArray& source) {
  if (this == &source) return *this;
  if (source.m_pShared) source.m_pShared->AddReference();
  ReleaseStorage();
  m_pShared = source.m_pShared;
  return *this;
}

template <class T>
void TVornArray<T>::ReleaseStorage() {
  if (m_pShared) m_pShared->Release();
  m_pShared = nullptr;
}

template <class T>
int TVornArray<T>::ProvideStorage() {
  if (!m_pShared) m_pShared = new (std::nothrow) TVornSharedArray<T>;
  return m_pShared ? 1 : 0;
}

template <class T>
int TVornArray<T>::Add(const T& item, long* index) {
  return m_pShared ? m_pShared->Add(item, index) : 0;
}

template <class T>
int TVornArray<T>::Insert(const T& item, long index) {
  return m_pShared ? m_pShared->Insert(item, index) : 0;
}

template <class T>
int TVornArray<T>::Remove(T& item) {
  T* const data = Array();
  for (long i = 0; i < GetSize(); ++i) {
    if (IsEqual(data[i], item)) {
      Remove(i, 1);
      return 1;
    }
  }
  return 0;
}

template <class T>
void TVornArray<T>::Remove(long index, long count) {
  if (m_pShared) m_pShared->Remove(index, count);
}

template <class T>
void TVornArray<T>::RemoveAll() {
  if (m_pShared) m_pShared->RemoveAll();
}

template <class T>
T* TVornArray<T>::Find(T& item) {
  T* const data = Array();
  for (long i = 0; i < GetSize(); ++i) {
    if (IsEqual(data[i], item)) return data + i;
  }
  return nullptr;
}

// The value as an unsigned number of a pointer's size.
template <class T>
std::uintptr_t VornAsNumber(const T& value) {
  if constexpr (std::is_pointer_v<T>) {
    return reinterpret_cast<std::uintptr_t>(value);
  } else {
    std::uintptr_t number = 0;
    std::memcpy(&number, &value, sizeof(T));
    return number;
  }
}

template <class T>
int TVornArray<T>::IsLower(T& a, T& b) {
  return VornAsNumber(a) < VornAsNumber(b);
}

template <class T>
int TVornArray<T>::IsEqual(T& a, T& b) {
  return VornAsNumber(a) == VornAsNumber(b);
}

template <class T>
TVornArray<T>& TVornArray<T>::operator+=(const TVornArray& source) {
  if (this != &source && m_pShared != source.m_pShared) Copy(source);
  return *this;
}

template <class T>
int TVornArray<T>::Copy(const TVornArray& source) {
  if (!m_pShared) return 0;
  const int count = static_cast<int>(std::max(source.GetSize(), 0L));
  const int size = std::max(m_pShared->m_nSize, 0);
  if (!m_pShared->Reserve(static_cast<long long>(size) + count)) return 0;
  std::copy_n(source.Array(), count, m_pShared->m_pData + size);
  m_pShared->m_nSize = size + count;
  return 1;
}

template <class T>
T& TVornArray<T>::operator[](long index) const {
  return index < m_pShared->m_nSize ? m_pShared->m_pData[index] : m_pShared->m_EmptyData;
}

template <class T>
void TVornArray<T>::SetGrowFactor(float factor) {
  if (m_pShared) m_pShared->m_fGrowFactor = factor;
}

template <class T>
void TVornArray<T>::SetEmptyData(const T& value) {
  if (m_pShared) m_pShared->m_EmptyData = value;
}

template <class T>
int TVornArray<T>::Resize(long size) {
  if (!m_pShared) return 0;
  if (size < 1) {
    RemoveAll();
    return 1;
  }
  const long present = m_pShared->m_nSize;
  if (size == present) return 1;
  if (size > present) return m_pShared->Reserve(size);
  // Meant: the surplus goes once from one element too early, and once more off the size alone, which so
  // ends below what was asked, and below zero when more than half was to go.
  const long surplus = present - size;
  Remove(size - 1, surplus);
  m_pShared->m_nSize -= static_cast<int>(surplus);
  return 1;
}

template <class T>
void TVornArray<T>::RemoveAt(long index) {
  if (index >= 0 && index < GetSize()) Remove(index, 1);
}

template <class T>
const T& TVornArray<T>::median3(T* data, long left, long right) {
  const long middle = left + (right - left) / 2;
  if (IsLower(data[middle], data[left])) std::swap(data[middle], data[left]);
  if (IsLower(ElementAt(right), ElementAt(left))) std::swap(data[right], data[left]);
  if (IsLower(ElementAt(right), ElementAt(middle))) std::swap(data[right], data[middle]);
  if (right == left) return data[middle];  // a range of one has no next to last
  std::swap(data[middle], data[right - 1]);
  return data[right - 1];
}

template <class T>
void TVornArray<T>::QuickSort(T* data, long left, long right) {
  while (left <= right) {
    T pivot = median3(data, left, right);
    const long last = std::max(left, right - 1);  // where the pivot waits
    long i = left;
    long j = last;
    for (;;) {
      // The ends of the range stop the scans: ranges of one and two elements have no sentinel.
      while (i < right && IsLower(data[i], pivot)) ++i;
      while (--j >= left && IsLower(pivot, data[j])) {
      }
      if (i >= j) break;
      std::swap(data[i], data[j]);
    }
    std::swap(data[i], data[last]);
    // The smaller side by recursion, the larger by the loop: the stack stays flat.
    if (i - left < right - i) {
      QuickSort(data, left, i - 1);
      left = i + 1;
    } else {
      QuickSort(data, i + 1, right);
      right = i - 1;
    }
  }
}
