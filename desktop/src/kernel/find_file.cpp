// Attributes of files, and listing folders by a pattern.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "kernel.h"
#include "objects.h"

namespace desktop {

namespace {

constexpr ULONGLONG kEpoch = 116444736000000000ULL;

class FileSearch : public KernelObject {
 public:
  std::string folder;
  std::vector<std::string> names;
  size_t next = 0;
};

FILETIME FileTimeOf(const timespec& time) {
  const ULONGLONG ticks =
      kEpoch + static_cast<ULONGLONG>(time.tv_sec) * 10000000ULL + static_cast<ULONGLONG>(time.tv_nsec) / 100;
  return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

DWORD AttributesOf(const std::string& path, const std::string& name, const struct stat& status) {
  DWORD attributes = S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
  if (name.size() > 1 && name[0] == '.' && name != "..") attributes |= FILE_ATTRIBUTE_HIDDEN;
  if (!(status.st_mode & 0222) || (geteuid() != 0 && access(path.c_str(), W_OK) != 0))
    attributes |= FILE_ATTRIBUTE_READONLY;
  return attributes;
}

std::string NameOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// '*' and '?' as in listings of folders; "*.*" means all. Without regard to case.
bool Matches(const wchar_t* pattern, const wchar_t* name) {
  for (; *pattern; ++pattern, ++name) {
    if (*pattern == L'*') {
      for (const wchar_t* rest = name;; ++rest) {
        if (Matches(pattern + 1, rest)) return true;
        if (!*rest) return false;
      }
    }
    if (!*name) return false;
    if (*pattern != L'?' && LowerCase(*pattern) != LowerCase(*name)) return false;
  }
  return !*name;
}

bool ListFolder(FileSearch& search, const std::wstring& pattern) {
  DIR* folder = opendir(search.folder.empty() ? "." : search.folder.c_str());
  if (!folder) return false;
  while (const dirent* entry = readdir(folder))
    if (Matches(pattern.c_str(), WideFromUtf8(std::string(entry->d_name)).c_str()))
      search.names.emplace_back(entry->d_name);
  closedir(folder);
  // "." and ".." first, as on the file systems of Windows.
  std::sort(search.names.begin(), search.names.end());
  return true;
}

bool Fill(const FileSearch& search, const std::string& name, WIN32_FIND_DATAW& data) {
  const std::string path = search.folder + name;
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 && lstat(path.c_str(), &status) != 0) return false;
  data = {};
  data.dwFileAttributes = AttributesOf(path, name, status);
  data.ftCreationTime = FileTimeOf(status.st_ctim);
  data.ftLastAccessTime = FileTimeOf(status.st_atim);
  data.ftLastWriteTime = FileTimeOf(status.st_mtim);
  const auto size = S_ISDIR(status.st_mode) ? 0ULL : static_cast<ULONGLONG>(status.st_size);
  data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
  data.nFileSizeLow = static_cast<DWORD>(size);
  lstrcpynW(data.cFileName, WideFromUtf8(name).c_str(), MAX_PATH);
  return true;
}

// A file that has gone since the listing is passed over.
bool FillNext(FileSearch& search, WIN32_FIND_DATAW& data) {
  while (search.next < search.names.size())
    if (Fill(search, search.names[search.next++], data)) return true;
  return false;
}

}  // namespace

}  // namespace desktop

using desktop::FileSearch;
using desktop::NativePath;

DWORD GetFileAttributesW(LPCWSTR fileName) {
  if (!fileName || !*fileName) {
    SetLastError(ERROR_PATH_NOT_FOUND);
    return INVALID_FILE_ATTRIBUTES;
  }
  const std::string path = NativePath(fileName);
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return desktop::AttributesOf(path, desktop::NameOf(path), status);
  SetLastError(desktop::ErrorFromErrno(errno));
  return INVALID_FILE_ATTRIBUTES;
}

HANDLE FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data) {
  if (!pattern || !data) {
    SetLastError(ERROR_PATH_NOT_FOUND);
    return INVALID_HANDLE_VALUE;
  }
  const std::string path = NativePath(pattern);
  const std::string wanted = desktop::NameOf(path);
  auto search = std::make_shared<FileSearch>();
  search->folder = path.substr(0, path.size() - wanted.size());
  const bool all = wanted == "*.*";
  if (!desktop::ListFolder(*search, all ? L"*" : desktop::WideFromUtf8(wanted))) {
    SetLastError(errno == EACCES ? ERROR_ACCESS_DENIED : ERROR_PATH_NOT_FOUND);
    return INVALID_HANDLE_VALUE;
  }
  if (!desktop::FillNext(*search, *data)) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return INVALID_HANDLE_VALUE;
  }
  return desktop::NewHandle(search);
}

BOOL FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW data) {
  const auto object = desktop::ObjectAs<FileSearch>(search);
  if (!object) return FALSE;
  if (desktop::FillNext(*object, *data)) return TRUE;
  SetLastError(ERROR_NO_MORE_FILES);
  return FALSE;
}

BOOL FindClose(HANDLE search) { return desktop::ObjectAs<FileSearch>(search) && desktop::DropHandle(search); }
