#include "folder.h"

#include <algorithm>
#include <cwctype>

#include "french.h"

namespace {

struct Keyed {
  FolderEntry entry;
  CString key;  // the name without case: made once, compared often
};

bool IsBefore(const Keyed& a, const Keyed& b) {
  if (a.entry.isFolder != b.entry.isFolder) return a.entry.isFolder;
  const int order = a.key.Compare(b.key);
  return order != 0 ? order < 0 : a.entry.name.Compare(b.entry.name) < 0;
}

CString KeyOf(const CString& name) {
  CString key = name;
  for (int i = 0; i < key.GetLength(); ++i) key.SetAt(i, static_cast<wchar_t>(std::towlower(key.GetAt(i))));
  return key;
}

bool IsDots(LPCWSTR name) { return name[0] == L'.' && (name[1] == 0 || (name[1] == L'.' && name[2] == 0)); }

// What the failure of a search means for a folder.
DWORD SearchError(const CString& path, DWORD error) {
  // The root of a drive has no entry for itself and may be empty.
  if (error == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
  const DWORD attributes = ::GetFileAttributesW(path);
  const bool isFile = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  return isFile ? ERROR_DIRECTORY : error;
}

}  // namespace

FolderContent ReadFolder(const CString& path) {
  FolderContent content;
  WIN32_FIND_DATAW found = {};
  const HANDLE search =
      path.IsEmpty() ? INVALID_HANDLE_VALUE : ::FindFirstFileW(JoinPath(path, L"*"), &found);
  if (search == INVALID_HANDLE_VALUE) {
    content.error = path.IsEmpty() ? ERROR_PATH_NOT_FOUND : SearchError(path, ::GetLastError());
    return content;
  }
  std::vector<Keyed> keyed;
  do {
    if (IsDots(found.cFileName)) continue;
    FolderEntry entry{found.cFileName, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
                      (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0 || found.cFileName[0] == L'.'};
    keyed.push_back({entry, KeyOf(entry.name)});
  } while (::FindNextFileW(search, &found));
  ::FindClose(search);
  std::sort(keyed.begin(), keyed.end(), IsBefore);
  content.entries.reserve(keyed.size());
  for (Keyed& one : keyed) content.entries.push_back(std::move(one.entry));
  return content;
}

CString JoinPath(const CString& folder, const CString& name) {
  CString path = folder;
  path.TrimRight(L"\\/");
  return path + L"\\" + name;
}

CString PathName(const CString& path) {
  CString name = path;
  name.TrimRight(L"\\/");
  name = name.Mid(std::max(name.ReverseFind(L'\\'), name.ReverseFind(L'/')) + 1);
  return name.IsEmpty() ? path : name;
}

CString FolderErrorText(DWORD error) {
  switch (error) {
    case ERROR_ACCESS_DENIED: return L"Accès refusé";
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME: return L"Dossier introuvable";
    case ERROR_DIRECTORY: return L"Ce n’est pas un dossier";
    default: break;
  }
  CString text;
  text.Format(L"Lecture impossible (erreur %lu)", static_cast<unsigned long>(error));
  return text;
}

CString DefaultFolder() {
  for (LPCWSTR path : {L"Z:\\usr\\share", L"/usr/share", L"C:\\Program Files"}) {
    const DWORD attributes = ::GetFileAttributesW(path);
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return path;
  }
  return L"C:\\";
}
