// Files and folders by the paths of Linux.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <windows.h>

#include "kernel.h"
#include "objects.h"

namespace desktop {

namespace {

class File : public KernelObject {
 public:
  explicit File(int descriptor) : m_descriptor(descriptor) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() override { close(m_descriptor); }
  int Descriptor() const { return m_descriptor; }

 private:
  const int m_descriptor;
};

BOOL Answer(bool good) {
  if (!good) SetLastError(ErrorFromErrno(errno));
  return good;
}

// Not found means 'path not found' when even the folder is missing.
BOOL AnswerForPath(bool good, const std::string& path) {
  if (good) return TRUE;
  const DWORD error = ErrorFromErrno(errno);
  std::error_code ignored;
  const auto folder = std::filesystem::path(path).parent_path();
  const bool folderMissing = !folder.empty() && !std::filesystem::is_directory(folder, ignored);
  SetLastError(error == ERROR_FILE_NOT_FOUND && folderMissing ? ERROR_PATH_NOT_FOUND : error);
  return FALSE;
}

int OpenFlags(DWORD access, DWORD disposition) {
  const bool reads = (access & (GENERIC_READ | GENERIC_ALL)) != 0;
  const bool writes = (access & (GENERIC_WRITE | GENERIC_ALL)) != 0;
  const int mode = writes ? (reads ? O_RDWR : O_WRONLY) : O_RDONLY;
  switch (disposition) {
    case CREATE_NEW: return mode | O_CREAT | O_EXCL;
    case CREATE_ALWAYS: return mode | O_CREAT | O_TRUNC;
    case OPEN_ALWAYS: return mode | O_CREAT;
    case TRUNCATE_EXISTING: return mode | O_TRUNC;
    default: return mode;
  }
}

std::wstring CurrentFolder() {
  std::error_code ignored;
  return WideFromUtf8(std::filesystem::current_path(ignored).string());
}

// The folder for what Windows keeps in its own: bare names of profile files.
std::wstring WindowsFolder() {
  const char* home = getenv("HOME");
  const std::string folder = std::string(home ? home : "/tmp") + "/.windows";
  mkdir(folder.c_str(), 0755);
  return WideFromUtf8(folder);
}

bool IsFolder(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

}  // namespace

std::string NativePath(LPCWSTR path) {
  const size_t length = wcslen(path);
  const bool hasDrive = length >= 2 && path[1] == L':' && IsCharAlphaW(path[0]);
  std::string native = Utf8FromWide(path + (hasDrive ? 2 : 0), length - (hasDrive ? 2 : 0));
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

}  // namespace desktop

using desktop::Answer;
using desktop::AnswerForPath;
using desktop::CopyOut;
using desktop::File;
using desktop::NativePath;
using desktop::ObjectAs;
using desktop::WideFromUtf8;

HANDLE CreateFileW(LPCWSTR fileName, DWORD access, DWORD, LPSECURITY_ATTRIBUTES, DWORD disposition, DWORD,
                   HANDLE) {
  if (!fileName || !*fileName || disposition < CREATE_NEW || disposition > TRUNCATE_EXISTING) {
    SetLastError(fileName && !*fileName ? ERROR_PATH_NOT_FOUND : ERROR_INVALID_PARAMETER);
    return INVALID_HANDLE_VALUE;
  }
  const std::string path = NativePath(fileName);
  if (desktop::IsFolder(path)) {
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
  }
  const bool existed = access && ::access(path.c_str(), F_OK) == 0;
  const int descriptor = open(path.c_str(), desktop::OpenFlags(access, disposition) | O_CLOEXEC, 0666);
  if (!AnswerForPath(descriptor >= 0, path)) return INVALID_HANDLE_VALUE;
  const bool mayExist = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
  SetLastError(existed && mayExist ? ERROR_ALREADY_EXISTS : NO_ERROR);
  return desktop::NewHandle(std::make_shared<File>(descriptor));
}

BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD bytes, LPDWORD read, LPOVERLAPPED) {
  if (read) *read = 0;
  const auto object = ObjectAs<File>(file);
  if (!object) return FALSE;
  const ssize_t count = ::read(object->Descriptor(), buffer, bytes);
  if (read && count > 0) *read = static_cast<DWORD>(count);
  return Answer(count >= 0);
}

BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD bytes, LPDWORD written, LPOVERLAPPED) {
  if (written) *written = 0;
  const auto object = ObjectAs<File>(file);
  if (!object) return FALSE;
  const auto* at = static_cast<const char*>(buffer);
  for (DWORD left = bytes; left > 0;) {
    const ssize_t count = write(object->Descriptor(), at, left);
    if (count < 0 && errno == EINTR) continue;
    if (!Answer(count >= 0)) return FALSE;
    at += count;
    left -= static_cast<DWORD>(count);
    if (written) *written += static_cast<DWORD>(count);
  }
  return TRUE;
}

DWORD SetFilePointer(HANDLE file, LONG distance, PLONG distanceHigh, DWORD method) {
  const auto object = ObjectAs<File>(file);
  if (!object || method > FILE_END) {
    if (object) SetLastError(ERROR_INVALID_PARAMETER);
    return INVALID_SET_FILE_POINTER;
  }
  const off_t offset = distanceHigh ? (static_cast<off_t>(*distanceHigh) << 32 | static_cast<DWORD>(distance))
                                    : static_cast<off_t>(distance);
  static constexpr int kOrigin[] = {SEEK_SET, SEEK_CUR, SEEK_END};
  const off_t position = lseek(object->Descriptor(), offset, kOrigin[method]);
  if (!Answer(position >= 0)) return INVALID_SET_FILE_POINTER;
  SetLastError(NO_ERROR);
  if (distanceHigh) *distanceHigh = static_cast<LONG>(position >> 32);
  return static_cast<DWORD>(position);
}

BOOL SetEndOfFile(HANDLE file) {
  const auto object = ObjectAs<File>(file);
  if (!object) return FALSE;
  return Answer(ftruncate(object->Descriptor(), lseek(object->Descriptor(), 0, SEEK_CUR)) == 0);
}

DWORD GetFileSize(HANDLE file, LPDWORD sizeHigh) {
  const auto object = ObjectAs<File>(file);
  struct stat status {};
  if (!object || !Answer(fstat(object->Descriptor(), &status) == 0)) return INVALID_FILE_SIZE;
  if (sizeHigh) *sizeHigh = static_cast<DWORD>(status.st_size >> 32);
  return static_cast<DWORD>(status.st_size);
}

BOOL FlushFileBuffers(HANDLE file) { return ObjectAs<File>(file) != nullptr; }

BOOL DeleteFileW(LPCWSTR fileName) {
  const std::string path = NativePath(fileName);
  return AnswerForPath(unlink(path.c_str()) == 0, path);
}

BOOL CreateDirectoryW(LPCWSTR path, LPSECURITY_ATTRIBUTES) {
  const std::string native = NativePath(path);
  if (mkdir(native.c_str(), 0777) == 0) return TRUE;
  SetLastError(errno == EEXIST   ? ERROR_ALREADY_EXISTS
               : errno == ENOENT ? ERROR_PATH_NOT_FOUND
                                 : desktop::ErrorFromErrno(errno));
  return FALSE;
}

BOOL RemoveDirectoryW(LPCWSTR path) {
  const std::string native = NativePath(path);
  return AnswerForPath(rmdir(native.c_str()) == 0, native);
}

DWORD GetTempPathW(DWORD size, LPWSTR buffer) {
  const char* folder = getenv("TMPDIR");
  std::wstring path = WideFromUtf8(std::string(folder && *folder ? folder : "/tmp"));
  if (path.back() != L'/') path += L'/';
  return CopyOut(path, buffer, size);
}

UINT GetTempFileNameW(LPCWSTR path, LPCWSTR prefix, UINT unique, LPWSTR fileName) {
  if (!desktop::IsFolder(NativePath(path))) {
    SetLastError(ERROR_DIRECTORY);
    return 0;
  }
  const std::wstring start = std::wstring(prefix ? prefix : L"").substr(0, 3);
  static unsigned next = static_cast<unsigned>(getpid());
  for (int attempt = 0; attempt < 0xFFFF; ++attempt) {
    const UINT number = unique ? unique & 0xFFFF : (++next & 0xFFFF ? next & 0xFFFF : 1);
    wchar_t digits[8];
    _itow(static_cast<int>(number), digits, 16);
    std::wstring full = path;
    if (!full.empty() && full.back() != L'/' && full.back() != L'\\') full += L'/';
    full += start + digits + L".tmp";
    if (full.size() >= MAX_PATH) break;
    if (!unique) {
      const int made = open(NativePath(full.c_str()).c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
      if (made < 0 && errno == EEXIST) continue;
      if (!Answer(made >= 0)) return 0;
      close(made);
    }
    wcscpy(fileName, full.c_str());
    return number;
  }
  SetLastError(ERROR_FILE_EXISTS);
  return 0;
}

DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer) {
  return CopyOut(desktop::CurrentFolder(), buffer, size);
}

BOOL SetCurrentDirectoryW(LPCWSTR path) {
  const std::string native = NativePath(path);
  return AnswerForPath(chdir(native.c_str()) == 0, native);
}

DWORD GetFullPathNameW(LPCWSTR fileName, DWORD size, LPWSTR buffer, LPWSTR* filePart) {
  if (!fileName || !*fileName) {
    SetLastError(ERROR_INVALID_NAME);
    return 0;
  }
  std::error_code ignored;
  const auto absolute = std::filesystem::absolute(NativePath(fileName), ignored).lexically_normal();
  const std::wstring path = WideFromUtf8(absolute.string());
  const DWORD length = CopyOut(path, buffer, size);
  if (filePart && buffer && length == path.size()) {
    const size_t slash = path.rfind(L'/');
    *filePart = slash + 1 < path.size() ? buffer + slash + 1 : nullptr;
  }
  return length;
}

UINT GetWindowsDirectoryW(LPWSTR buffer, UINT size) {
  return CopyOut(desktop::WindowsFolder(), buffer, size);
}
