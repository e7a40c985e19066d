// The error of a thread, and the texts of errors.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <string>

#include <windows.h>

#include "kernel.h"

namespace {

thread_local DWORD t_lastError = 0;

struct ErrorText {
  DWORD error;
  LPCWSTR text;
};

const ErrorText kErrorTexts[] = {
    {ERROR_SUCCESS, L"Success.\r\n"},
    {ERROR_INVALID_FUNCTION, L"Invalid function.\r\n"},
    {ERROR_FILE_NOT_FOUND, L"File not found.\r\n"},
    {ERROR_PATH_NOT_FOUND, L"Path not found.\r\n"},
    {ERROR_ACCESS_DENIED, L"Access denied.\r\n"},
    {ERROR_INVALID_HANDLE, L"Invalid handle.\r\n"},
    {ERROR_NOT_ENOUGH_MEMORY, L"Not enough memory.\r\n"},
    {ERROR_OUTOFMEMORY, L"Out of memory.\r\n"},
    {ERROR_NO_MORE_FILES, L"No more files.\r\n"},
    {ERROR_FILE_EXISTS, L"File already exists.\r\n"},
    {ERROR_INVALID_PARAMETER, L"Invalid parameter.\r\n"},
    {ERROR_INSUFFICIENT_BUFFER, L"Insufficient buffer.\r\n"},
    {ERROR_MOD_NOT_FOUND, L"Module not found.\r\n"},
    {ERROR_PROC_NOT_FOUND, L"Procedure not found.\r\n"},
    {ERROR_ALREADY_EXISTS, L"Object already exists.\r\n"},
    {ERROR_INVALID_WINDOW_HANDLE, L"Invalid window handle.\r\n"},
    {ERROR_INVALID_MENU_HANDLE, L"Invalid menu handle.\r\n"},
    {ERROR_CANNOT_FIND_WND_CLASS, L"Cannot find window class.\r\n"},
    {ERROR_CLASS_ALREADY_EXISTS, L"Class already exists.\r\n"},
    {ERROR_RESOURCE_NAME_NOT_FOUND, L"Resource name not found.\r\n"},
    {ERROR_RESOURCE_TYPE_NOT_FOUND, L"Resource type not found.\r\n"},
};

// Writes the message as FormatMessageW hands it out: into the buffer, or into a block of its own.
DWORD Deliver(const std::wstring& text, DWORD flags, LPWSTR buffer, DWORD size) {
  const auto length = static_cast<DWORD>(text.size());
  if (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) {
    const size_t characters = std::max<size_t>(text.size() + 1, size);
    auto* block = static_cast<LPWSTR>(LocalAlloc(LMEM_ZEROINIT, characters * sizeof(WCHAR)));
    if (!block) return 0;
    text.copy(block, text.size());
    *reinterpret_cast<LPWSTR*>(buffer) = block;
    return length;
  }
  if (length >= size) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  text.copy(buffer, text.size());
  buffer[length] = 0;
  return length;
}

}  // namespace

namespace desktop {

DWORD ErrorFromErrno(int error) {
  switch (error) {
    case ENOENT: return ERROR_FILE_NOT_FOUND;
    case ENOTDIR: return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EISDIR:
    case EROFS: return ERROR_ACCESS_DENIED;
    case EBADF: return ERROR_INVALID_HANDLE;
    case ENOMEM: return ERROR_NOT_ENOUGH_MEMORY;
    case EEXIST: return ERROR_FILE_EXISTS;
    case ENOTEMPTY: return ERROR_DIR_NOT_EMPTY;
    case ENOSPC: return ERROR_DISK_FULL;
    case ENAMETOOLONG: return ERROR_INVALID_NAME;
    case EFAULT: return ERROR_NOACCESS;
    default: return ERROR_INVALID_PARAMETER;
  }
}

}  // namespace desktop

DWORD GetLastError() { return t_lastError; }

void SetLastError(DWORD error) { t_lastError = error; }

DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD, LPWSTR buffer, DWORD size,
                     va_list*) {
  if (!buffer) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  if (flags & FORMAT_MESSAGE_FROM_STRING) {
    if (!(flags & FORMAT_MESSAGE_IGNORE_INSERTS)) {
      SetLastError(ERROR_INVALID_PARAMETER);
      return 0;
    }
    return Deliver(static_cast<LPCWSTR>(source), flags, buffer, size);
  }
  const auto* found = std::find_if(std::begin(kErrorTexts), std::end(kErrorTexts),
                                   [=](const ErrorText& entry) { return entry.error == messageId; });
  if (!(flags & FORMAT_MESSAGE_FROM_SYSTEM) || found == std::end(kErrorTexts)) {
    SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return 0;
  }
  return Deliver(found->text, flags, buffer, size);
}

void OutputDebugStringA(LPCSTR text) {
  // Seen only by who asks for it, as by an attached debugger.
  static const bool wanted = std::getenv("VORN_DEBUG_OUTPUT") != nullptr;
  if (wanted && text) std::fputs(text, stderr);
}

void OutputDebugStringW(LPCWSTR text) {
  if (text) OutputDebugStringA(desktop::Utf8FromWide(text).c_str());
}

BOOL IsDebuggerPresent() { return FALSE; }

void DebugBreak() { __builtin_trap(); }
