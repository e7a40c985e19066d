// CString: a wide string of value semantics with shared, counted storage.
#pragma once

#include "afxver_.h"

#include <cstdarg>
#include <cwchar>

// One counted block of text. Strings that are copies of each other share one until either is changed;
// counting is safe across threads, a single CString object is not.
struct CStringData;

// A string of wide characters. Lengths, positions and sizes count characters, not bytes. A null pointer
// argument is an empty string. Positions outside the string: Mid, Left, Right, Insert and Delete clip
// them; operator[], GetAt and SetAt raise the invalid-argument exception.
class VORNFW_API CString {
 public:
  using XCHAR = wchar_t;
  using YCHAR = char;
  using PXSTR = LPWSTR;
  using PCXSTR = LPCWSTR;

  CString() noexcept;
  CString(const CString& strSrc) noexcept;
  CString(CString&& strSrc) noexcept;
  // A pointer whose high bits are zero is a string resource id, as MAKEINTRESOURCE makes it.
  CString(LPCWSTR pszSrc);
  CString(LPCSTR pszSrc);
  CString(const unsigned char* pszSrc) : CString(reinterpret_cast<LPCSTR>(pszSrc)) {}
  CString(LPCWSTR pch, int nLength);
  CString(LPCSTR pch, int nLength);
  CString(wchar_t ch, int nRepeat = 1);
  CString(char ch, int nRepeat = 1);
  ~CString();

  CString& operator=(const CString& strSrc) noexcept;
  CString& operator=(CString&& strSrc) noexcept;
  CString& operator=(LPCWSTR pszSrc);
  CString& operator=(LPCSTR pszSrc);
  CString& operator=(wchar_t ch);
  CString& operator=(char ch);

  int GetLength() const noexcept;
  BOOL IsEmpty() const noexcept { return GetLength() == 0; }
  void Empty() noexcept;
  wchar_t GetAt(int iChar) const;
  wchar_t operator[](int iChar) const { return GetAt(iChar); }
  void SetAt(int iChar, wchar_t ch);
  operator LPCWSTR() const noexcept { return m_pszData; }
  LPCWSTR GetString() const noexcept { return m_pszData; }

  // Direct access: room for at least nMinBufLength characters and the final null. ReleaseBuffer sets
  // the length; -1 takes the text up to its null.
  LPWSTR GetBuffer() { return GetBuffer(0); }
  LPWSTR GetBuffer(int nMinBufLength);
  LPWSTR GetBufferSetLength(int nLength);
  void ReleaseBuffer(int nNewLength = -1);
  void ReleaseBufferSetLength(int nNewLength);
  LPWSTR LockBuffer() { return GetBuffer(); }
  void UnlockBuffer() noexcept {}
  void Preallocate(int nLength);
  int GetAllocLength() const noexcept;
  void FreeExtra();
  void Truncate(int nNewLength);
  void SetString(LPCWSTR pszSrc);
  void SetString(LPCWSTR pszSrc, int nLength);
  void Append(LPCWSTR pszSrc);
  void Append(LPCWSTR pszSrc, int nLength);
  void Append(const CString& strSrc);
  void AppendChar(wchar_t ch);
  static void CopyChars(LPWSTR pchDest, LPCWSTR pchSrc, int nChars) noexcept;
  static int StringLength(LPCWSTR psz) noexcept;

  CString& operator+=(const CString& str);
  CString& operator+=(LPCWSTR pszSrc);
  CString& operator+=(LPCSTR pszSrc);
  CString& operator+=(wchar_t ch);
  CString& operator+=(char ch);

  int Compare(LPCWSTR psz) const;
  int CompareNoCase(LPCWSTR psz) const;
  // By the user's locale.
  int Collate(LPCWSTR psz) const noexcept;
  int CollateNoCase(LPCWSTR psz) const noexcept;

  CString Mid(int iFirst) const;
  CString Mid(int iFirst, int nCount) const;
  CString Left(int nCount) const;
  CString Right(int nCount) const;
  CString SpanIncluding(LPCWSTR pszCharSet) const;
  CString SpanExcluding(LPCWSTR pszCharSet) const;

  // -1: not found.
  int Find(wchar_t ch, int iStart = 0) const noexcept;
  int Find(LPCWSTR pszSub, int iStart = 0) const noexcept;
  int ReverseFind(wchar_t ch) const noexcept;
  int FindOneOf(LPCWSTR pszCharSet) const noexcept;

  CString& MakeUpper();
  CString& MakeLower();
  CString& MakeReverse();
  CString& Trim();
  CString& Trim(wchar_t chTarget);
  CString& Trim(LPCWSTR pszTargets);
  CString& TrimLeft();
  CString& TrimLeft(wchar_t chTarget);
  CString& TrimLeft(LPCWSTR pszTargets);
  CString& TrimRight();
  CString& TrimRight(wchar_t chTarget);
  CString& TrimRight(LPCWSTR pszTargets);

  // Insert and Delete return the new length, Replace and Remove the number of occurrences changed.
  int Insert(int iIndex, wchar_t ch);
  int Insert(int iIndex, LPCWSTR psz);
  int Delete(int iIndex, int nCount = 1);
  int Replace(wchar_t chOld, wchar_t chNew);
  int Replace(LPCWSTR pszOld, LPCWSTR pszNew);
  int Remove(wchar_t chRemove);
  // The next run of characters that are not in pszTokens, from iStart on; iStart moves behind it, and
  // becomes -1 (with an empty result) when there is none.
  CString Tokenize(LPCWSTR pszTokens, int& iStart) const;

  // The format language of Windows' wide printf: %s and %c are wide, %S, %C, %hs and %hc narrow; %ls
  // and %ws wide; %I64d, %I32d, %Id besides the standard length marks. %l is 32 bits wide.
  void Format(LPCWSTR pszFormat, ...);
  void Format(UINT nFormatID, ...);
  void FormatV(LPCWSTR pszFormat, va_list args);
  void AppendFormat(LPCWSTR pszFormat, ...);
  void AppendFormat(UINT nFormatID, ...);
  void AppendFormatV(LPCWSTR pszFormat, va_list args);

  // Loads a string resource; FALSE, with the string left as it was, if there is none. Without an
  // instance the chain of modules is searched (AfxFindStringResourceHandle).
  BOOL LoadString(UINT nID);
  BOOL LoadString(HINSTANCE hInstance, UINT nID);
  BOOL GetEnvironmentVariable(LPCWSTR pszVar);

  friend VORNFW_API CString operator+(const CString& str1, const CString& str2);
  friend VORNFW_API CString operator+(const CString& str1, LPCWSTR psz2);
  friend VORNFW_API CString operator+(LPCWSTR psz1, const CString& str2);
  friend VORNFW_API CString operator+(const CString& str1, wchar_t ch2);
  friend VORNFW_API CString operator+(wchar_t ch1, const CString& str2);

 private:
  LPWSTR m_pszData;
};

using CStringW = CString;

inline bool operator==(const CString& str1, const CString& str2) { return str1.Compare(str2) == 0; }
inline bool operator==(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) == 0; }
inline bool operator<(const CString& str1, const CString& str2) { return str1.Compare(str2) < 0; }
inline bool operator<(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) < 0; }
inline bool operator<(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) > 0; }
inline bool operator>(const CString& str1, const CString& str2) { return str1.Compare(str2) > 0; }
inline bool operator>(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) > 0; }
inline bool operator>(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) < 0; }
inline bool operator<=(const CString& str1, const CString& str2) { return str1.Compare(str2) <= 0; }
inline bool operator<=(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) <= 0; }
inline bool operator<=(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) >= 0; }
inline bool operator>=(const CString& str1, const CString& str2) { return str1.Compare(str2) >= 0; }
inline bool operator>=(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) >= 0; }
inline bool operator>=(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) <= 0; }
