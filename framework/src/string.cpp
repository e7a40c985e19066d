// CString: construction, storage, assignment.
#include "afxstat_.h"
#include "string_data.h"

#include <algorithm>
#include <climits>
#include <cstring>

using framework::AddReference;
using framework::EmptyStringData;
using framework::NewStringData;
using framework::Release;

namespace {

bool IsResourceId(LPCWSTR text) { return (reinterpret_cast<ULONG_PTR>(text) >> 16) == 0; }

int NarrowLength(LPCSTR text) {
  return text != nullptr ? static_cast<int>(std::min<size_t>(std::strlen(text), INT_MAX)) : 0;
}

}  // namespace

CString::CString() noexcept : m_pszData(EmptyStringData()->Text()) {}

CString::CString(const CString& strSrc) noexcept
    : m_pszData(AddReference(CStringData::Of(strSrc.m_pszData))->Text()) {}

CString::CString(CString&& strSrc) noexcept : m_pszData(strSrc.m_pszData) {
  strSrc.m_pszData = EmptyStringData()->Text();
}

CString::CString(LPCWSTR pszSrc) : CString() {
  if (pszSrc != nullptr && IsResourceId(pszSrc)) {
    LoadString(static_cast<UINT>(reinterpret_cast<ULONG_PTR>(pszSrc)));
  } else {
    SetString(pszSrc);
  }
}

CString::CString(LPCSTR pszSrc) : CString() { framework::AppendNarrow(*this, pszSrc, NarrowLength(pszSrc)); }
CString::CString(LPCWSTR pch, int nLength) : CString() { SetString(pch, nLength); }

CString::CString(LPCSTR pch, int nLength) : CString() {
  if (nLength < 0 || (pch == nullptr && nLength > 0)) AfxThrowInvalidArgException();
  framework::AppendNarrow(*this, pch, nLength);
}

CString::CString(wchar_t ch, int nRepeat) : CString() {
  if (nRepeat <= 0) return;
  std::fill_n(GetBuffer(nRepeat), nRepeat, ch);
  ReleaseBufferSetLength(nRepeat);
}

CString::CString(char ch, int nRepeat) : CString() {
  CString one;
  framework::AppendNarrow(one, &ch, 1);
  for (int i = 0; i < nRepeat; ++i) Append(one);
}

CString::~CString() { Release(CStringData::Of(m_pszData)); }

CString& CString::operator=(const CString& strSrc) noexcept {
  CStringData* const data = AddReference(CStringData::Of(strSrc.m_pszData));
  Release(CStringData::Of(m_pszData));
  m_pszData = data->Text();
  return *this;
}

CString& CString::operator=(CString&& strSrc) noexcept {
  std::swap(m_pszData, strSrc.m_pszData);
  return *this;
}

CString& CString::operator=(LPCWSTR pszSrc) {
  SetString(pszSrc);
  return *this;
}

CString& CString::operator=(LPCSTR pszSrc) { return *this = CString(pszSrc); }
CString& CString::operator=(wchar_t ch) { return *this = CString(ch); }
CString& CString::operator=(char ch) { return *this = CString(ch); }

int CString::GetLength() const noexcept { return CStringData::Of(m_pszData)->length; }
int CString::GetAllocLength() const noexcept { return CStringData::Of(m_pszData)->capacity; }

void CString::Empty() noexcept {
  Release(CStringData::Of(m_pszData));
  m_pszData = EmptyStringData()->Text();
}

wchar_t CString::GetAt(int iChar) const {
  // The final null may be read, as in any C string.
  if (iChar < 0 || iChar > GetLength()) AfxThrowInvalidArgException();
  return m_pszData[iChar];
}

void CString::SetAt(int iChar, wchar_t ch) {
  if (iChar < 0 || iChar >= GetLength()) AfxThrowInvalidArgException();
  GetBuffer()[iChar] = ch;
}

LPWSTR CString::GetBuffer(int nMinBufLength) {
  CStringData* const data = CStringData::Of(m_pszData);
  const bool own = data != EmptyStringData() && !data->IsShared();
  const int needed = std::max(nMinBufLength, data->length);
  if (own && needed <= data->capacity) return m_pszData;

  // A string that grows gets room to grow further, or appending one by one would copy quadratically.
  const bool grows = own && data->length > 0;
  const int room =
      grows && needed < framework::kMaxStringLength / 2 ? std::max(needed, data->capacity * 2) : needed;
  CStringData* const fresh = NewStringData(room);
  std::copy_n(m_pszData, data->length + 1, fresh->Text());
  fresh->length = data->length;
  Release(data);
  m_pszData = fresh->Text();
  return m_pszData;
}

LPWSTR CString::GetBufferSetLength(int nLength) {
  LPWSTR const buffer = GetBuffer(nLength);
  ReleaseBufferSetLength(nLength);
  return buffer;
}

void CString::ReleaseBuffer(int nNewLength) {
  const CStringData* const data = CStringData::Of(m_pszData);
  if (nNewLength == -1) {
    nNewLength = static_cast<int>(std::find(m_pszData, m_pszData + data->capacity, L'\0') - m_pszData);
  }
  ReleaseBufferSetLength(nNewLength);
}

void CString::ReleaseBufferSetLength(int nNewLength) {
  CStringData* const data = CStringData::Of(m_pszData);
  if (nNewLength < 0 || nNewLength > data->capacity) AfxThrowInvalidArgException();
  if (data == EmptyStringData()) return;
  data->length = nNewLength;
  m_pszData[nNewLength] = L'\0';
}

void CString::Preallocate(int nLength) { GetBuffer(nLength); }

void CString::FreeExtra() {
  const CStringData* const data = CStringData::Of(m_pszData);
  if (data->length < data->capacity) *this = CString(static_cast<LPCWSTR>(m_pszData), data->length);
}

void CString::Truncate(int nNewLength) {
  if (nNewLength < 0) AfxThrowInvalidArgException();
  if (nNewLength >= GetLength()) return;
  GetBuffer();
  ReleaseBufferSetLength(nNewLength);
}

int CString::StringLength(LPCWSTR psz) noexcept {
  return psz != nullptr ? static_cast<int>(std::min<size_t>(std::wcslen(psz), INT_MAX)) : 0;
}

void CString::CopyChars(LPWSTR pchDest, LPCWSTR pchSrc, int nChars) noexcept {
  if (nChars > 0) std::memcpy(pchDest, pchSrc, static_cast<size_t>(nChars) * sizeof(wchar_t));
}

void CString::SetString(LPCWSTR pszSrc) { SetString(pszSrc, StringLength(pszSrc)); }

void CString::SetString(LPCWSTR pszSrc, int nLength) {
  if (nLength == 0) return Empty();
  if (nLength < 0 || pszSrc == nullptr) AfxThrowInvalidArgException();
  CStringData* const data = CStringData::Of(m_pszData);
  const bool own = data != EmptyStringData() && !data->IsShared();
  if (own && nLength <= data->capacity) {
    // The source may be a part of this very string.
    std::memmove(m_pszData, pszSrc, static_cast<size_t>(nLength) * sizeof(wchar_t));
    return ReleaseBufferSetLength(nLength);
  }
  CStringData* const fresh = NewStringData(nLength);
  CopyChars(fresh->Text(), pszSrc, nLength);
  fresh->Text()[nLength] = L'\0';
  fresh->length = nLength;
  Release(data);
  m_pszData = fresh->Text();
}

void CString::Append(LPCWSTR pszSrc) { Append(pszSrc, StringLength(pszSrc)); }

void CString::Append(LPCWSTR pszSrc, int nLength) {
  if (pszSrc == nullptr || nLength <= 0) return;
  const int before = GetLength();
  if (nLength > framework::kMaxStringLength - before) AfxThrowMemoryException();
  // A source within this string moves when the storage does: the former storage is kept meanwhile.
  const CString former = pszSrc >= m_pszData && pszSrc <= m_pszData + before ? *this : CString();
  LPWSTR const buffer = GetBuffer(before + nLength);
  CopyChars(buffer + before, pszSrc, nLength);
  ReleaseBufferSetLength(before + nLength);
}

void CString::Append(const CString& strSrc) {
  const CString source(strSrc);
  Append(source.GetString(), source.GetLength());
}

void CString::AppendChar(wchar_t ch) { Append(&ch, 1); }

CString& CString::operator+=(const CString& str) {
  Append(str);
  return *this;
}

CString& CString::operator+=(LPCWSTR pszSrc) {
  Append(pszSrc);
  return *this;
}

CString& CString::operator+=(LPCSTR pszSrc) {
  framework::AppendNarrow(*this, pszSrc, NarrowLength(pszSrc));
  return *this;
}

CString& CString::operator+=(wchar_t ch) {
  AppendChar(ch);
  return *this;
}

CString& CString::operator+=(char ch) {
  framework::AppendNarrow(*this, &ch, 1);
  return *this;
}

namespace {

CString Concatenate(LPCWSTR first, int firstLength, LPCWSTR second, int secondLength) {
  CString result;
  if (secondLength > framework::kMaxStringLength - firstLength) AfxThrowMemoryException();
  result.Preallocate(firstLength + secondLength);
  result.Append(first, firstLength);
  result.Append(second, secondLength);
  return result;
}

}  // namespace

CString operator+(const CString& str1, const CString& str2) {
  return Concatenate(str1, str1.GetLength(), str2, str2.GetLength());
}

CString operator+(const CString& str1, LPCWSTR psz2) {
  return Concatenate(str1, str1.GetLength(), psz2, CString::StringLength(psz2));
}

CString operator+(LPCWSTR psz1, const CString& str2) {
  return Concatenate(psz1, CString::StringLength(psz1), str2, str2.GetLength());
}

CString operator+(const CString& str1, wchar_t ch2) { return Concatenate(str1, str1.GetLength(), &ch2, 1); }
CString operator+(wchar_t ch1, const CString& str2) { return Concatenate(&ch1, 1, str2, str2.GetLength()); }

// ---- From outside ----------------------------------------------------------------------------------

BOOL CString::LoadString(UINT nID) {
  const HINSTANCE module = AfxFindStringResourceHandle(nID);
  return module != nullptr && LoadString(module, nID);
}

BOOL CString::LoadString(HINSTANCE hInstance, UINT nID) {
  for (int room = 256;; room *= 2) {
    CString text;
    const int length = ::LoadStringW(hInstance, nID, text.GetBuffer(room), room);
    if (length <= 0) return FALSE;
    if (length >= room - 1 && room < 0x10000) continue;  // perhaps cut off
    text.ReleaseBufferSetLength(length);
    *this = text;
    return TRUE;
  }
}

BOOL CString::GetEnvironmentVariable(LPCWSTR pszVar) {
  const DWORD room = ::GetEnvironmentVariableW(pszVar, nullptr, 0);
  if (room == 0) {
    Empty();
    return FALSE;
  }
  LPWSTR const buffer = GetBuffer(static_cast<int>(room));
  const DWORD length = ::GetEnvironmentVariableW(pszVar, buffer, room);
  ReleaseBufferSetLength(length < room ? static_cast<int>(length) : 0);
  return TRUE;
}
