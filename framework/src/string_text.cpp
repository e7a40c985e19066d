// CString: comparing, searching, cutting, changing.
#include "afx.h"
#include "string_data.h"

#include <algorithm>
#include <cwctype>

namespace {

LPCWSTR OrEmpty(LPCWSTR text) { return text != nullptr ? text : L""; }

// One character in lower case, by the system's tables.
wchar_t Lower(wchar_t ch) {
  ::CharLowerBuffW(&ch, 1);
  return ch;
}

bool IsSpace(wchar_t ch) { return std::iswspace(static_cast<std::wint_t>(ch)) != 0; }

bool IsIn(LPCWSTR set, wchar_t ch) { return ch != L'\0' && std::wcschr(set, ch) != nullptr; }

int CompareByLocale(LPCWSTR first, LPCWSTR second, DWORD flags) {
  const int result = ::CompareStringW(LOCALE_USER_DEFAULT, flags, first, -1, second, -1);
  return result == 0 ? std::wcscmp(first, second) : result - CSTR_EQUAL;
}

template <class Predicate>
void CutLeft(CString& text, Predicate unwanted) {
  const LPCWSTR first = text.GetString();
  const LPCWSTR last = first + text.GetLength();
  const LPCWSTR kept = std::find_if_not(first, last, unwanted);
  if (kept != first) text.Delete(0, static_cast<int>(kept - first));
}

template <class Predicate>
void CutRight(CString& text, Predicate unwanted) {
  const LPCWSTR first = text.GetString();
  int length = text.GetLength();
  while (length > 0 && unwanted(first[length - 1])) --length;
  text.Truncate(length);
}

}  // namespace

// ---- Comparing -----------------------------------------------------------------------------------------

int CString::Compare(LPCWSTR psz) const { return std::wcscmp(m_pszData, OrEmpty(psz)); }

int CString::CompareNoCase(LPCWSTR psz) const {
  LPCWSTR a = m_pszData;
  LPCWSTR b = OrEmpty(psz);
  for (;; ++a, ++b) {
    const wchar_t first = *a == *b ? *a : Lower(*a);
    const wchar_t second = *a == *b ? *b : Lower(*b);
    if (first != second) return first < second ? -1 : 1;
    if (first == L'\0') return 0;
  }
}

int CString::Collate(LPCWSTR psz) const noexcept { return CompareByLocale(m_pszData, OrEmpty(psz), 0); }

int CString::CollateNoCase(LPCWSTR psz) const noexcept {
  return CompareByLocale(m_pszData, OrEmpty(psz), NORM_IGNORECASE);
}

// ---- Cutting -----------------------------------------------------------------------------------------

CString CString::Mid(int iFirst) const { return Mid(iFirst, GetLength()); }

CString CString::Mid(int iFirst, int nCount) const {
  const int first = std::clamp(iFirst, 0, GetLength());
  const int count = std::clamp(nCount, 0, GetLength() - first);
  if (first == 0 && count == GetLength()) return *this;
  return CString(static_cast<LPCWSTR>(m_pszData) + first, count);
}

CString CString::Left(int nCount) const { return Mid(0, nCount); }

CString CString::Right(int nCount) const {
  const int count = std::clamp(nCount, 0, GetLength());
  return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(LPCWSTR pszCharSet) const {
  return Left(static_cast<int>(std::wcsspn(m_pszData, OrEmpty(pszCharSet))));
}

CString CString::SpanExcluding(LPCWSTR pszCharSet) const {
  return Left(static_cast<int>(std::wcscspn(m_pszData, OrEmpty(pszCharSet))));
}

CString CString::Tokenize(LPCWSTR pszTokens, int& iStart) const {
  if (iStart < 0) AfxThrowInvalidArgException();
  const LPCWSTR tokens = OrEmpty(pszTokens);
  if (iStart <= GetLength()) {
    const int first = iStart + static_cast<int>(std::wcsspn(m_pszData + iStart, tokens));
    const int count = static_cast<int>(std::wcscspn(m_pszData + first, tokens));
    if (count > 0) {
      iStart = first + count + 1;
      return Mid(first, count);
    }
  }
  iStart = -1;
  return CString();
}

// ---- Searching ---------------------------------------------------------------------------------------

int CString::Find(wchar_t ch, int iStart) const noexcept {
  if (iStart < 0 || iStart >= GetLength()) return -1;
  const LPCWSTR found = std::wcschr(m_pszData + iStart, ch);
  return found != nullptr ? static_cast<int>(found - m_pszData) : -1;
}

int CString::Find(LPCWSTR pszSub, int iStart) const noexcept {
  if (pszSub == nullptr || iStart < 0 || iStart > GetLength()) return -1;
  const LPCWSTR found = std::wcsstr(m_pszData + iStart, pszSub);
  return found != nullptr ? static_cast<int>(found - m_pszData) : -1;
}

int CString::ReverseFind(wchar_t ch) const noexcept {
  const LPCWSTR found = std::wcsrchr(m_pszData, ch);
  return found != nullptr ? static_cast<int>(found - m_pszData) : -1;
}

int CString::FindOneOf(LPCWSTR pszCharSet) const noexcept {
  const LPCWSTR found = std::wcspbrk(m_pszData, OrEmpty(pszCharSet));
  return found != nullptr ? static_cast<int>(found - m_pszData) : -1;
}

// ---- Changing ----------------------------------------------------------------------------------------

CString& CString::MakeUpper() {
  if (!IsEmpty()) ::CharUpperBuffW(GetBuffer(), static_cast<DWORD>(GetLength()));
  return *this;
}

CString& CString::MakeLower() {
  if (!IsEmpty()) ::CharLowerBuffW(GetBuffer(), static_cast<DWORD>(GetLength()));
  return *this;
}

CString& CString::MakeReverse() {
  LPWSTR const buffer = GetBuffer();
  std::reverse(buffer, buffer + GetLength());
  return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::Trim(wchar_t chTarget) { return TrimRight(chTarget).TrimLeft(chTarget); }
CString& CString::Trim(LPCWSTR pszTargets) { return TrimRight(pszTargets).TrimLeft(pszTargets); }

CString& CString::TrimLeft() {
  CutLeft(*this, IsSpace);
  return *this;
}

CString& CString::TrimLeft(wchar_t chTarget) {
  CutLeft(*this, [=](wchar_t ch) { return ch == chTarget; });
  return *this;
}

CString& CString::TrimLeft(LPCWSTR pszTargets) {
  CutLeft(*this, [set = OrEmpty(pszTargets)](wchar_t ch) { return IsIn(set, ch); });
  return *this;
}

CString& CString::TrimRight() {
  CutRight(*this, IsSpace);
  return *this;
}

CString& CString::TrimRight(wchar_t chTarget) {
  CutRight(*this, [=](wchar_t ch) { return ch == chTarget; });
  return *this;
}

CString& CString::TrimRight(LPCWSTR pszTargets) {
  CutRight(*this, [set = OrEmpty(pszTargets)](wchar_t ch) { return IsIn(set, ch); });
  return *this;
}

int CString::Insert(int iIndex, wchar_t ch) {
  const wchar_t text[2] = {ch, L'\0'};
  return Insert(iIndex, text);
}

int CString::Insert(int iIndex, LPCWSTR psz) {
  const CString inserted(psz, StringLength(psz));
  if (inserted.IsEmpty()) return GetLength();
  const int index = std::clamp(iIndex, 0, GetLength());
  *this = Left(index) + inserted + Mid(index);
  return GetLength();
}

int CString::Delete(int iIndex, int nCount) {
  const int index = std::max(iIndex, 0);
  if (nCount <= 0 || index >= GetLength()) return GetLength();
  const int count = std::min(nCount, GetLength() - index);
  LPWSTR const buffer = GetBuffer();
  const int length = GetLength();
  std::copy(buffer + index + count, buffer + length, buffer + index);
  ReleaseBufferSetLength(length - count);
  return GetLength();
}

int CString::Replace(wchar_t chOld, wchar_t chNew) {
  const int count = static_cast<int>(std::count(m_pszData, m_pszData + GetLength(), chOld));
  if (count == 0 || chOld == chNew) return 0;
  LPWSTR const buffer = GetBuffer();
  std::replace(buffer, buffer + GetLength(), chOld, chNew);
  return count;
}

int CString::Replace(LPCWSTR pszOld, LPCWSTR pszNew) {
  const int oldLength = StringLength(pszOld);
  if (oldLength == 0) return 0;
  const int newLength = StringLength(pszNew);
  CString result;
  int count = 0;
  int kept = 0;
  for (int at = Find(pszOld); at >= 0; at = Find(pszOld, kept)) {
    result.Append(m_pszData + kept, at - kept);
    result.Append(pszNew, newLength);
    kept = at + oldLength;
    ++count;
  }
  if (count == 0) return 0;
  result.Append(m_pszData + kept, GetLength() - kept);
  *this = result;
  return count;
}

int CString::Remove(wchar_t chRemove) {
  const int count = static_cast<int>(std::count(m_pszData, m_pszData + GetLength(), chRemove));
  if (count == 0) return 0;
  LPWSTR const buffer = GetBuffer();
  const LPCWSTR end = std::remove(buffer, buffer + GetLength(), chRemove);
  ReleaseBufferSetLength(static_cast<int>(end - buffer));
  return count;
}
