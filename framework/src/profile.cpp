// CWinApp: the profile, in the registry or in a file.
#include "afxwin.h"
#include "memory.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <vector>

namespace {

// An open registry key.
class Key {
 public:
  explicit Key(HKEY key) : m_key(key) {}
  ~Key() {
    if (m_key != nullptr) ::RegCloseKey(m_key);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  explicit operator bool() const { return m_key != nullptr; }
  operator HKEY() const { return m_key; }

 private:
  HKEY m_key;
};

HKEY OpenOrCreate(HKEY parent, LPCWSTR name) {
  HKEY key = nullptr;
  DWORD disposition = 0;
  if (parent == nullptr || name == nullptr) return nullptr;
  const LONG error = ::RegCreateKeyExW(parent, name, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                       KEY_READ | KEY_WRITE, nullptr, &key, &disposition);
  return error == ERROR_SUCCESS ? key : nullptr;
}

// The value's bytes if it is there and of that type.
bool ReadValue(HKEY key, LPCWSTR entry, DWORD type, std::vector<BYTE>& bytes) {
  DWORD found = 0;
  DWORD size = 0;
  if (::RegQueryValueExW(key, entry, nullptr, &found, nullptr, &size) != ERROR_SUCCESS || found != type) {
    return false;
  }
  // The value may change between the two questions; a longer one is then refused by the second.
  framework::WithMemory([&] { bytes.assign(size, 0); });
  if (size == 0) return true;
  if (::RegQueryValueExW(key, entry, nullptr, &found, bytes.data(), &size) != ERROR_SUCCESS) return false;
  bytes.resize(size);
  return found == type;
}

CString ReadFileString(LPCWSTR section, LPCWSTR entry, LPCWSTR fallback, LPCWSTR file) {
  CString text;
  for (int room = 256;; room *= 2) {
    LPWSTR const buffer = text.GetBuffer(room);
    const DWORD length =
        ::GetPrivateProfileStringW(section, entry, fallback, buffer, static_cast<DWORD>(room), file);
    text.ReleaseBufferSetLength(static_cast<int>(length));
    // room - 1 characters: the text has probably been cut off.
    if (static_cast<int>(length) < room - 1 || room >= 0x1000000) return text;
  }
}

// In a file, each byte is two letters: the low four bits, then the high ones, counted from A.
CString Letters(const BYTE* data, UINT size) {
  CString text;
  text.Preallocate(static_cast<int>(size) * 2);
  for (UINT i = 0; i < size; ++i) {
    text.AppendChar(static_cast<wchar_t>(L'A' + (data[i] & 15)));
    text.AppendChar(static_cast<wchar_t>(L'A' + (data[i] >> 4)));
  }
  return text;
}

bool Bytes(const CString& letters, std::vector<BYTE>& bytes) {
  if (letters.GetLength() % 2 != 0) return false;
  bytes.clear();
  framework::WithMemory([&] { bytes.reserve(static_cast<size_t>(letters.GetLength()) / 2); });
  for (int i = 0; i < letters.GetLength(); i += 2) {
    const int low = letters[i] - L'A';
    const int high = letters[i + 1] - L'A';
    if (low < 0 || low > 15 || high < 0 || high > 15) return false;
    bytes.push_back(static_cast<BYTE>(low | (high << 4)));
  }
  return true;
}

}  // namespace

HKEY CWinApp::GetAppRegistryKey() {
  if (m_pszRegistryKey == nullptr || m_pszProfileName == nullptr) return nullptr;
  const Key software(OpenOrCreate(HKEY_CURRENT_USER, L"Software"));
  const Key company(OpenOrCreate(software, m_pszRegistryKey));
  return OpenOrCreate(company, m_pszProfileName);
}

HKEY CWinApp::GetSectionKey(LPCWSTR lpszSection) {
  if (lpszSection == nullptr) return nullptr;
  const Key app(GetAppRegistryKey());
  return OpenOrCreate(app, lpszSection);
}

// ---- Numbers -----------------------------------------------------------------------------------------

UINT CWinApp::GetProfileInt(LPCWSTR lpszSection, LPCWSTR lpszEntry, int nDefault) {
  if (lpszSection == nullptr || lpszEntry == nullptr) return static_cast<UINT>(nDefault);
  if (m_pszRegistryKey == nullptr) {
    return ::GetPrivateProfileIntW(lpszSection, lpszEntry, nDefault, m_pszProfileName);
  }
  const Key section(GetSectionKey(lpszSection));
  std::vector<BYTE> bytes;
  if (!section || !ReadValue(section, lpszEntry, REG_DWORD, bytes) || bytes.size() != sizeof(DWORD)) {
    return static_cast<UINT>(nDefault);
  }
  DWORD value = 0;
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

BOOL CWinApp::WriteProfileInt(LPCWSTR lpszSection, LPCWSTR lpszEntry, int nValue) {
  if (lpszSection == nullptr || lpszEntry == nullptr) return FALSE;
  if (m_pszRegistryKey == nullptr) {
    CString text;
    text.Format(L"%d", nValue);
    return ::WritePrivateProfileStringW(lpszSection, lpszEntry, text, m_pszProfileName);
  }
  const Key section(GetSectionKey(lpszSection));
  if (!section) return FALSE;
  return ::RegSetValueExW(section, lpszEntry, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&nValue),
                          sizeof nValue) == ERROR_SUCCESS;
}

// ---- Text --------------------------------------------------------------------------------------------

CString CWinApp::GetProfileString(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPCWSTR lpszDefault) {
  CString fallback(lpszDefault, CString::StringLength(lpszDefault));
  if (lpszSection == nullptr || lpszEntry == nullptr) return fallback;
  if (m_pszRegistryKey == nullptr) {
    return ReadFileString(lpszSection, lpszEntry, fallback, m_pszProfileName);
  }
  const Key section(GetSectionKey(lpszSection));
  std::vector<BYTE> bytes;
  if (!section || !ReadValue(section, lpszEntry, REG_SZ, bytes)) return fallback;
  // What others have written there need not end in a null.
  CString text;
  const size_t length = bytes.size() / sizeof(wchar_t);
  std::memcpy(text.GetBuffer(static_cast<int>(length)), bytes.data(), length * sizeof(wchar_t));
  text.ReleaseBufferSetLength(static_cast<int>(length));
  text.Truncate(CString::StringLength(text));
  return text;
}

BOOL CWinApp::WriteProfileString(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPCWSTR lpszValue) {
  if (lpszSection == nullptr) return FALSE;
  if (m_pszRegistryKey == nullptr) {
    return ::WritePrivateProfileStringW(lpszSection, lpszEntry, lpszValue, m_pszProfileName);
  }
  if (lpszEntry == nullptr) {
    const Key app(GetAppRegistryKey());
    return app && ::RegDeleteKeyW(app, lpszSection) == ERROR_SUCCESS;
  }
  const Key section(GetSectionKey(lpszSection));
  if (!section) return FALSE;
  if (lpszValue == nullptr) return ::RegDeleteValueW(section, lpszEntry) == ERROR_SUCCESS;
  const DWORD size = static_cast<DWORD>((std::wcslen(lpszValue) + 1) * sizeof(wchar_t));
  return ::RegSetValueExW(section, lpszEntry, 0, REG_SZ, reinterpret_cast<const BYTE*>(lpszValue), size) ==
         ERROR_SUCCESS;
}

// ---- Bytes -------------------------------------------------------------------------------------------

BOOL CWinApp::GetProfileBinary(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPBYTE* ppData, UINT* pBytes) {
  ENSURE_ARG(ppData != nullptr && pBytes != nullptr);
  *ppData = nullptr;
  *pBytes = 0;
  if (lpszSection == nullptr || lpszEntry == nullptr) return FALSE;
  std::vector<BYTE> bytes;
  if (m_pszRegistryKey != nullptr) {
    const Key section(GetSectionKey(lpszSection));
    if (!section || !ReadValue(section, lpszEntry, REG_BINARY, bytes)) return FALSE;
  } else {
    const CString letters = ReadFileString(lpszSection, lpszEntry, L"", m_pszProfileName);
    if (letters.IsEmpty() || !Bytes(letters, bytes)) return FALSE;
  }
  framework::WithMemory([&] { *ppData = new BYTE[bytes.size()]; });
  std::copy(bytes.begin(), bytes.end(), *ppData);
  *pBytes = static_cast<UINT>(bytes.size());
  return TRUE;
}

BOOL CWinApp::WriteProfileBinary(LPCWSTR lpszSection, LPCWSTR lpszEntry, LPBYTE pData, UINT nBytes) {
  if (lpszSection == nullptr || lpszEntry == nullptr || (pData == nullptr && nBytes > 0)) return FALSE;
  if (m_pszRegistryKey == nullptr) {
    return ::WritePrivateProfileStringW(lpszSection, lpszEntry, Letters(pData, nBytes), m_pszProfileName);
  }
  const Key section(GetSectionKey(lpszSection));
  return section && ::RegSetValueExW(section, lpszEntry, 0, REG_BINARY, pData, nBytes) == ERROR_SUCCESS;
}
