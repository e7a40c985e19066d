// Arrays that keep their order by binary search.
//
// An Insert at a place that breaks the order marks the array unsorted, and the next Search, Add, FindAdv
// or Sort empties it: the elements are not sorted afterwards but dropped. This is meant.
#pragma once

#include "VornArray.h"

namespace vorn {

// Where a binary search ended.
struct SearchResult {
  bool found;  // an equal element was met
  long index;  // of the equal element, or where the searched one belongs
  long met;    // the element that the last comparison looked at
};

// Searches count ordered elements. isLower(i) tells whether element i comes before what is searched,
// isEqual(i) whether it is the same. At least one element is needed.
template <class Lower, class Equal>
SearchResult BinarySearch(long count, Lower isLower, Equal isEqual) {
  long low = 0;
  long high = count;
  long middle;
  do {
    middle = low + (high - low) / 2;
    if (isLower(middle)) {
      low = low == middle ? high : middle;
    } else if (isEqual(middle)) {
      return {true, middle, middle};
    } else {
      high = middle;
    }
  } while (high - low >= 1);
  return {isEqual(middle) != 0, high, middle};
}

// The address of an element or value, as compare functions take it.
template <class T>
void** AddressOf(T& value) {
  return static_cast<void**>(static_cast<void*>(&value));
}

// What every array's Sort does to an unsorted array: takes a copy, empties the array, and puts back as
// many elements as the array then holds, which is none. false: no memory for the copy, nothing changed.
template <class T>
bool DropUnsorted(TVornArray<T>& array, int& sorted) {
  if (sorted) return true;
  TVornArray<T> copy;
  if (!copy.Copy(array)) return false;
  array.RemoveAll();
  sorted = 1;
  return true;
}

// The search by element that the sorted arrays share. Meant: it works on the elements and their count as
// they were before an unsorted array was emptied.
template <class Array, class T>
SearchResult SearchItem(Array& array, T& item) {
  const long count = array.GetSize();
  T* const data = array.Array();
  array.Sort();
  if (count < 1) return {false, 0, -1};
  return BinarySearch(
      count, [&](long i) { return array.IsLower(data[i], item); },
      [&](long i) { return array.IsEqual(data[i], item); });
}

}  // namespace vorn

// Sorted by IsLower and IsEqual, and searched by a value V of the element by IsLowerAdv and IsEqualAdv.
template <class T, class V>
class TVornSortedArray_byValue : public TVornArray<T> {
 public:
  // Gets the addresses of two elements, or of an element and a value: below 0, 0, above 0.
  using CompareFunction = int (*)(void**, void**);

  TVornSortedArray_byValue() = default;
  // Copies the elements, the sorted mark and both compare functions.
  TVornSortedArray_byValue(const TVornSortedArray_byValue& source) = default;
  // Shares the elements, copies the sorted mark and both compare functions.
  TVornSortedArray_byValue& operator=(const TVornSortedArray_byValue& source);

  // Stores in order. An element equal to a stored one is dropped: 1, with *index at the stored one. 0
  // when memory is short.
  int Add(const T& item, long* index) override;

  // Stores at index, in order or not (then the array is unsorted), unless an equal element is stored.
  int Insert(const T& item, long index) override;

  // By the function of SetCompare, if there is one.
  int IsLower(T& a, T& b) override;
  int IsEqual(T& a, T& b) override;

  // Stores in order of the element's value; elements of equal value are kept, a new one in front of the
  // one found. false without a value (GetValue) or memory.
  virtual bool AddByValue(T& item, long* index);

  // The value by which item is searched. The base has none: false.
  virtual bool GetValue(T& item, V& value);

  // An element of this value, in place, or null.
  virtual T* FindAdv(V& value);

  // Whether the element comes before the value, by the function of SetCompareAdv; 0 without one.
  virtual int IsLowerAdv(T& item, V& value);

  // Meant: asks SetCompareAdv's function whether the element comes before the value, as IsLowerAdv does.
  virtual int IsEqualAdv(T& item, V& value);

  // Whether item is stored: 1 with *index at it, else 0 with *index where it belongs. An unsorted array is
  // emptied; the result still tells of the elements that it had.
  int Search(T item, long* index);

  // The same by value. An empty array gives false and leaves *index alone.
  bool Search(V value, long* index);

  // Empties an unsorted array. 1; 0 when memory is short, and nothing changed.
  int Sort();
  bool SortByValue() { return vorn::DropUnsorted(*this, m_bSorted); }

  void SetCompare(CompareFunction compare) { m_pfnCompare = compare; }
  void SetCompareAdv(CompareFunction compare) { m_pfnCompareAdv = compare; }

  int m_bSorted = 1;                          // the elements are in order; for reading
  CompareFunction m_pfnCompare = nullptr;     // set by SetCompare
  CompareFunction m_pfnCompareAdv = nullptr;  // set by SetCompareAdv

 private:
  // false: nothing to search in.
  bool FindValue(V& value, vorn::SearchResult& result);
};

// Sorted by IsLower and IsEqual, for derived classes that compare by data of the application.
template <class T>
class TVornSortedArray_ByData : public TVornArray<T> {
 public:
  TVornSortedArray_ByData() = default;
  TVornSortedArray_ByData(const TVornSortedArray_ByData& source) = default;
  TVornSortedArray_ByData& operator=(const TVornSortedArray_ByData& source);

  // As in TVornSortedArray_byValue.
  int Add(const T& item, long* index) override;
  int Insert(const T& item, long index) override;
  // By binary search.
  T* Find(T& item) override;
  int Search(T item, long* index);
  int Sort() { return vorn::DropUnsorted(*this, m_bSorted) ? 1 : 0; }

  int m_bSorted = 1;         // the elements are in order; for reading
  void* m_pSpare = nullptr;  // keeps the layout
};

namespace vorn {

template <class Array, class T>
int SearchInto(Array& array, T& item, long* index) {
  const SearchResult result = SearchItem(array, item);
  if (index) *index = result.index;
  return result.found ? 1 : 0;
}

// Where an element goes that the array is to store in order. false: an equal one is at index. An unsorted
// array is emptied before the search, so that the new element is stored in any case.
template <class Array, class T>
bool PlaceForNew(Array& array, T item, long& index) {
  array.Sort();
  return !SearchInto(array, item, &index);
}

}  // namespace vorn

// ---- By value ----------------------------------------------------------------------------------------

template <class T, class V>
TVornSortedArray_byValue<T, V>& TVornSortedArray_byValue<T, V>::operator=(
    const TVornSortedArray_byValue& source) {
  TVornArray<T>::operator=(source);
  m_bSorted = source.m_bSorted;
  m_pfnCompare = source.m_pfnCompare;
  m_pfnCompareAdv = source.m_pfnCompareAdv;
  return *this;
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::Add(const T& item, long* index) {
  long place;
  const bool isNew = vorn::PlaceForNew(*this, item, place);
  if (index) *index = place;
  return isNew ? TVornArray<T>::Insert(item, place) : 1;
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::Insert(const T& item, long index) {
  long place;
  if (Search(T(item), &place)) return 1;
  if (place != index) m_bSorted = 0;
  return TVornArray<T>::Insert(item, index);
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::IsLower(T& a, T& b) {
  if (!m_pfnCompare) return TVornArray<T>::IsLower(a, b);
  return m_pfnCompare(vorn::AddressOf(a), vorn::AddressOf(b)) < 0;
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::IsEqual(T& a, T& b) {
  if (!m_pfnCompare) return TVornArray<T>::IsEqual(a, b);
  return m_pfnCompare(vorn::AddressOf(a), vorn::AddressOf(b)) == 0;
}

template <class T, class V>
bool TVornSortedArray_byValue<T, V>::AddByValue(T& item, long* index) {
  V value{};
  if (!GetValue(item, value)) return false;
  long place = 0;
  Search(value, &place);
  if (index) *index = place;
  return TVornArray<T>::Insert(item, place) != 0;
}

template <class T, class V>
bool TVornSortedArray_byValue<T, V>::GetValue(T&, V&) {
  return false;
}

template <class T, class V>
T* TVornSortedArray_byValue<T, V>::FindAdv(V& value) {
  vorn::SearchResult result;
  if (!FindValue(value, result) || !result.found) return nullptr;
  return this->Array() + result.met;
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::IsLowerAdv(T& item, V& value) {
  if (!m_pfnCompareAdv) return 0;
  return m_pfnCompareAdv(vorn::AddressOf(item), vorn::AddressOf(value)) < 0;
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::IsEqualAdv(T& item, V& value) {
  if (!m_pfnCompareAdv) return 0;
  return m_pfnCompareAdv(vorn::AddressOf(item), vorn::AddressOf(value)) < 0;
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::Search(T item, long* index) {
  return vorn::SearchInto(*this, item, index);
}

template <class T, class V>
bool TVornSortedArray_byValue<T, V>::Search(V value, long* index) {
  vorn::SearchResult result;
  if (!FindValue(value, result)) return false;
  if (index) *index = result.index;
  return result.found;
}

template <class T, class V>
int TVornSortedArray_byValue<T, V>::Sort() {
  return vorn::DropUnsorted(*this, m_bSorted) ? 1 : 0;
}

template <class T, class V>
bool TVornSortedArray_byValue<T, V>::FindValue(V& value, vorn::SearchResult& result) {
  SortByValue();
  const long count = this->GetSize();
  if (count < 1) return false;
  T* const data = this->Array();
  result = vorn::BinarySearch(
      count, [&](long i) { return IsLowerAdv(data[i], value); },
      [&](long i) { return IsEqualAdv(data[i], value); });
  return true;
}

// ---- By data -----------------------------------------------------------------------------------------

template <class T>
TVornSortedArray_ByData<T>& TVornSortedArray_ByData<T>::operator=(const TVornSortedArray_ByData& source) {
  TVornArray<T>::operator=(source);
  m_bSorted = source.m_bSorted;
  return *this;
}

template <class T>
int TVornSortedArray_ByData<T>::Add(const T& item, long* index) {
  long place;
  const bool isNew = vorn::PlaceForNew(*this, item, place);
  if (index) *index = place;
  return isNew ? TVornArray<T>::Insert(item, place) : 1;
}

template <class T>
int TVornSortedArray_ByData<T>::Insert(const T& item, long index) {
  long place;
  if (Search(T(item), &place)) return 1;
  if (place != index) m_bSorted = 0;
  return TVornArray<T>::Insert(item, index);
}

template <class T>
T* TVornSortedArray_ByData<T>::Find(T& item) {
  Sort();
  if (this->GetSize() < 1) return nullptr;
  const vorn::SearchResult result = vorn::SearchItem(*this, item);
  return result.found ? this->Array() + result.met : nullptr;
}

template <class T>
int TVornSortedArray_ByData<T>::Search(T item, long* index) {
  return vorn::SearchInto(*this, item, index);
}
