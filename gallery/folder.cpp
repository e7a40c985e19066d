#include "folder.h"

FolderSummary SummarizeFolder(const CString& path) {
  FolderSummary summary;
  CString pattern = path;
  pattern.TrimRight(L"\\/");
  WIN32_FIND_DATAW entry = {};
  const HANDLE search = ::FindFirstFileW(pattern + L"\\*", &entry);
  if (path.IsEmpty() || search == INVALID_HANDLE_VALUE) return summary;
  summary.found = true;
  do {
    const CString name = entry.cFileName;
    if (name == L"." || name == L"..") continue;
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      ++summary.folders;
      continue;
    }
    ++summary.files;
    summary.bytes += (static_cast<unsigned long long>(entry.nFileSizeHigh) << 32) + entry.nFileSizeLow;
  } while (::FindNextFileW(search, &entry));
  ::FindClose(search);
  return summary;
}
