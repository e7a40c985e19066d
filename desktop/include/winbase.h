// Modules, memory, strings, files, profile, threads and time.
#pragma once

#include "windef.h"

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

#define ERROR_SUCCESS 0
#define NO_ERROR 0
#define ERROR_INVALID_FUNCTION 1
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_PATH_NOT_FOUND 3
#define ERROR_ACCESS_DENIED 5
#define ERROR_INVALID_HANDLE 6
#define ERROR_NOT_ENOUGH_MEMORY 8
#define ERROR_OUTOFMEMORY 14
#define ERROR_INVALID_DRIVE 15
#define ERROR_NO_MORE_FILES 18
#define ERROR_SHARING_VIOLATION 32
#define ERROR_HANDLE_EOF 38
#define ERROR_NOT_SUPPORTED 50
#define ERROR_FILE_EXISTS 80
#define ERROR_INVALID_PARAMETER 87
#define ERROR_DISK_FULL 112
#define ERROR_CALL_NOT_IMPLEMENTED 120
#define ERROR_INSUFFICIENT_BUFFER 122
#define ERROR_INVALID_NAME 123
#define ERROR_MOD_NOT_FOUND 126
#define ERROR_PROC_NOT_FOUND 127
#define ERROR_DIR_NOT_EMPTY 145
#define ERROR_NOT_LOCKED 158
#define ERROR_BAD_PATHNAME 161
#define ERROR_ALREADY_EXISTS 183
#define ERROR_ENVVAR_NOT_FOUND 203
#define ERROR_MORE_DATA 234
#define ERROR_NO_MORE_ITEMS 259
#define ERROR_DIRECTORY 267
#define ERROR_NOACCESS 998
#define ERROR_INVALID_FLAGS 1004
#define ERROR_KEY_DELETED 1018
#define ERROR_UNRECOGNIZED_VOLUME 1005
#define ERROR_NO_UNICODE_TRANSLATION 1113
#define ERROR_NOT_FOUND 1168
#define ERROR_INVALID_WINDOW_HANDLE 1400
#define ERROR_INVALID_MENU_HANDLE 1401
#define ERROR_INVALID_CURSOR_HANDLE 1402
#define ERROR_INVALID_ACCEL_HANDLE 1403
#define ERROR_INVALID_HOOK_HANDLE 1404
#define ERROR_INVALID_DWP_HANDLE 1405
#define ERROR_TLW_WITH_WSCHILD 1406
#define ERROR_CANNOT_FIND_WND_CLASS 1407
#define ERROR_WINDOW_OF_OTHER_THREAD 1408
#define ERROR_HOTKEY_ALREADY_REGISTERED 1409
#define ERROR_CLASS_ALREADY_EXISTS 1410
#define ERROR_CLASS_DOES_NOT_EXIST 1411
#define ERROR_CLASS_HAS_WINDOWS 1412
#define ERROR_INVALID_INDEX 1413
#define ERROR_INVALID_ICON_HANDLE 1414
#define ERROR_LISTBOX_ID_NOT_FOUND 1416
#define ERROR_NO_WILDCARD_CHARACTERS 1417
#define ERROR_CLIPBOARD_NOT_OPEN 1418
#define ERROR_HOTKEY_NOT_REGISTERED 1419
#define ERROR_WINDOW_NOT_DIALOG 1420
#define ERROR_CONTROL_ID_NOT_FOUND 1421
#define ERROR_WINDOW_NOT_COMBOBOX 1423
#define ERROR_DC_NOT_FOUND 1425
#define ERROR_INVALID_HOOK_FILTER 1426
#define ERROR_INVALID_FILTER_PROC 1427
#define ERROR_HOOK_NEEDS_HMOD 1428
#define ERROR_GLOBAL_ONLY_HOOK 1429
#define ERROR_NO_SCROLLBARS 1447
#define ERROR_INVALID_SCROLLBAR_RANGE 1448
#define ERROR_NON_MDICHILD_WINDOW 1445
#define ERROR_POPUP_ALREADY_ACTIVE 1446
#define ERROR_NO_SYSTEM_RESOURCES 1450
#define ERROR_MENU_ITEM_NOT_FOUND 1456
#define ERROR_TIMEOUT 1460
#define ERROR_INVALID_MONITOR_HANDLE 1461
#define ERROR_RESOURCE_DATA_NOT_FOUND 1812
#define ERROR_RESOURCE_TYPE_NOT_FOUND 1813
#define ERROR_RESOURCE_NAME_NOT_FOUND 1814
#define ERROR_RESOURCE_LANG_NOT_FOUND 1815

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))
#define INFINITE 0xFFFFFFFFu
#define WAIT_OBJECT_0 0u
#define WAIT_ABANDONED 0x00000080u
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED 0xFFFFFFFFu
#define STILL_ACTIVE 259u

struct SECURITY_ATTRIBUTES {
  DWORD nLength;
  LPVOID lpSecurityDescriptor;
  BOOL bInheritHandle;
};
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};
using PFILETIME = FILETIME*;
using LPFILETIME = FILETIME*;

struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;
  WORD wDayOfWeek;
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};
using PSYSTEMTIME = SYSTEMTIME*;
using LPSYSTEMTIME = SYSTEMTIME*;

struct LARGE_INTEGER {
  union {
    struct {
      DWORD LowPart;
      LONG HighPart;
    } u;
    LONGLONG QuadPart;
  };
};
using PLARGE_INTEGER = LARGE_INTEGER*;

// ---- Errors ----

DESKTOP_API DWORD WINAPI GetLastError();
DESKTOP_API void WINAPI SetLastError(DWORD error);

#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x00000100
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200
#define FORMAT_MESSAGE_FROM_STRING 0x00000400
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000
// Texts of system errors only; FORMAT_MESSAGE_FROM_STRING without inserts.
DESKTOP_API DWORD WINAPI FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId,
                                        LPWSTR buffer, DWORD size, va_list* arguments);
#define FormatMessage FormatMessageW

DESKTOP_API void WINAPI OutputDebugStringA(LPCSTR text);
DESKTOP_API void WINAPI OutputDebugStringW(LPCWSTR text);
#define OutputDebugString OutputDebugStringW
DESKTOP_API BOOL WINAPI IsDebuggerPresent();
DESKTOP_API void WINAPI DebugBreak();

// ---- Modules and resources ----

#define IS_INTRESOURCE(r) ((reinterpret_cast<ULONG_PTR>(r) >> 16) == 0)
#define MAKEINTRESOURCEW(i) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(i))))
#define MAKEINTRESOURCE MAKEINTRESOURCEW
#define MAKEINTATOM(i) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(i))))

#define RT_CURSOR MAKEINTRESOURCE(1)
#define RT_BITMAP MAKEINTRESOURCE(2)
#define RT_ICON MAKEINTRESOURCE(3)
#define RT_MENU MAKEINTRESOURCE(4)
#define RT_DIALOG MAKEINTRESOURCE(5)
#define RT_STRING MAKEINTRESOURCE(6)
#define RT_ACCELERATOR MAKEINTRESOURCE(9)
#define RT_RCDATA MAKEINTRESOURCE(10)
#define RT_GROUP_CURSOR MAKEINTRESOURCE(12)
#define RT_GROUP_ICON MAKEINTRESOURCE(14)
#define RT_VERSION MAKEINTRESOURCE(16)
#define RT_MANIFEST MAKEINTRESOURCE(24)

using ENUMRESNAMEPROCW = BOOL(CALLBACK*)(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR param);

#define LOAD_LIBRARY_AS_DATAFILE 0x00000002

// A registered module by its name (with or without path and extension, without regard to case); null:
// the program.
DESKTOP_API HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
DESKTOP_API DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size);
// A registered module by its name, or else a shared library of the system.
DESKTOP_API HMODULE WINAPI LoadLibraryW(LPCWSTR fileName);
DESKTOP_API HMODULE WINAPI LoadLibraryExW(LPCWSTR fileName, HANDLE file, DWORD flags);
DESKTOP_API BOOL WINAPI FreeLibrary(HMODULE module);
DESKTOP_API FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
DESKTOP_API BOOL WINAPI DisableThreadLibraryCalls(HMODULE module);
DESKTOP_API HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
DESKTOP_API HRSRC WINAPI FindResourceExW(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language);
DESKTOP_API HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
DESKTOP_API LPVOID WINAPI LockResource(HGLOBAL data);
DESKTOP_API BOOL WINAPI FreeResource(HGLOBAL data);
DESKTOP_API DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource);
DESKTOP_API BOOL WINAPI EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW callback,
                                           LONG_PTR param);
#define GetModuleHandle GetModuleHandleW
#define GetModuleFileName GetModuleFileNameW
#define LoadLibrary LoadLibraryW
#define LoadLibraryEx LoadLibraryExW
#define FindResource FindResourceW
#define FindResourceEx FindResourceExW
#define EnumResourceNames EnumResourceNamesW

// ---- Process and threads ----

struct CRITICAL_SECTION {
  void* impl;
};
using LPCRITICAL_SECTION = CRITICAL_SECTION*;
using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID param);

#define TLS_OUT_OF_INDEXES 0xFFFFFFFFu
#define CREATE_SUSPENDED 0x00000004
#define STACK_SIZE_PARAM_IS_A_RESERVATION 0x00010000
#define THREAD_PRIORITY_LOWEST (-2)
#define THREAD_PRIORITY_BELOW_NORMAL (-1)
#define THREAD_PRIORITY_NORMAL 0
#define THREAD_PRIORITY_ABOVE_NORMAL 1
#define THREAD_PRIORITY_HIGHEST 2

DESKTOP_API DWORD WINAPI GetCurrentThreadId();
DESKTOP_API DWORD WINAPI GetCurrentProcessId();
DESKTOP_API HANDLE WINAPI GetCurrentProcess();
DESKTOP_API HANDLE WINAPI GetCurrentThread();
[[noreturn]] DESKTOP_API void WINAPI ExitProcess(UINT exitCode);
DESKTOP_API LPWSTR WINAPI GetCommandLineW();
#define GetCommandLine GetCommandLineW

// A thread of CreateThread has a message queue of its own as soon as it asks for one. stackSize counts with
// STACK_SIZE_PARAM_IS_A_RESERVATION only, as the most that the stack can grow to.
DESKTOP_API HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T stackSize,
                                       LPTHREAD_START_ROUTINE start, LPVOID param, DWORD flags,
                                       LPDWORD threadId);
DESKTOP_API DWORD WINAPI ResumeThread(HANDLE thread);
DESKTOP_API BOOL WINAPI GetExitCodeThread(HANDLE thread, LPDWORD exitCode);
DESKTOP_API HANDLE WINAPI CreateEventW(LPSECURITY_ATTRIBUTES attributes, BOOL manualReset, BOOL initialState,
                                       LPCWSTR name);
DESKTOP_API BOOL WINAPI SetEvent(HANDLE event);
DESKTOP_API BOOL WINAPI ResetEvent(HANDLE event);
// Threads and events. Waits in real time, not by the desktop's clock.
DESKTOP_API DWORD WINAPI WaitForSingleObject(HANDLE object, DWORD milliseconds);
#define CreateEvent CreateEventW

DESKTOP_API void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section);
DESKTOP_API BOOL WINAPI InitializeCriticalSectionAndSpinCount(LPCRITICAL_SECTION section, DWORD spinCount);
DESKTOP_API void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section);
DESKTOP_API void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section);
DESKTOP_API BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section);
DESKTOP_API void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section);

DESKTOP_API DWORD WINAPI TlsAlloc();
DESKTOP_API BOOL WINAPI TlsFree(DWORD index);
DESKTOP_API LPVOID WINAPI TlsGetValue(DWORD index);
DESKTOP_API BOOL WINAPI TlsSetValue(DWORD index, LPVOID value);

inline LONG InterlockedIncrement(LONG volatile* target) {
  return __atomic_add_fetch(target, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedDecrement(LONG volatile* target) {
  return __atomic_sub_fetch(target, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedExchange(LONG volatile* target, LONG value) {
  return __atomic_exchange_n(target, value, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedExchangeAdd(LONG volatile* target, LONG value) {
  return __atomic_fetch_add(target, value, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedCompareExchange(LONG volatile* target, LONG exchange, LONG comparand) {
  __atomic_compare_exchange_n(target, &comparand, exchange, false, __ATOMIC_SEQ_CST, __ATOMIC_SEQ_CST);
  return comparand;
}
inline PVOID InterlockedExchangePointer(PVOID volatile* target, PVOID value) {
  return __atomic_exchange_n(target, value, __ATOMIC_SEQ_CST);
}
inline PVOID InterlockedCompareExchangePointer(PVOID volatile* target, PVOID exchange, PVOID comparand) {
  __atomic_compare_exchange_n(target, &comparand, exchange, false, __ATOMIC_SEQ_CST, __ATOMIC_SEQ_CST);
  return comparand;
}

// ---- Time: the desktop's virtual clock ----

DESKTOP_API void WINAPI Sleep(DWORD milliseconds);
DESKTOP_API DWORD WINAPI GetTickCount();
DESKTOP_API ULONGLONG WINAPI GetTickCount64();
DESKTOP_API BOOL WINAPI QueryPerformanceCounter(LARGE_INTEGER* count);
DESKTOP_API BOOL WINAPI QueryPerformanceFrequency(LARGE_INTEGER* frequency);

// ---- Time of day: the machine's ----

DESKTOP_API void WINAPI GetLocalTime(LPSYSTEMTIME time);
DESKTOP_API void WINAPI GetSystemTime(LPSYSTEMTIME time);
DESKTOP_API void WINAPI GetSystemTimeAsFileTime(LPFILETIME time);
DESKTOP_API BOOL WINAPI FileTimeToSystemTime(const FILETIME* fileTime, LPSYSTEMTIME systemTime);
DESKTOP_API BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* systemTime, LPFILETIME fileTime);
DESKTOP_API BOOL WINAPI FileTimeToLocalFileTime(const FILETIME* fileTime, LPFILETIME localTime);

// ---- Memory ----

#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GMEM_SHARE 0x2000
#define GMEM_DDESHARE 0x2000
#define GHND 0x0042
#define GPTR 0x0040
#define GMEM_INVALID_HANDLE 0x8000
#define LMEM_FIXED 0x0000
#define LMEM_MOVEABLE 0x0002
#define LMEM_ZEROINIT 0x0040
#define LHND 0x0042
#define LPTR 0x0040
#define HEAP_NO_SERIALIZE 0x00000001
#define HEAP_ZERO_MEMORY 0x00000008

DESKTOP_API HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T bytes);
DESKTOP_API HGLOBAL WINAPI GlobalReAlloc(HGLOBAL memory, SIZE_T bytes, UINT flags);
DESKTOP_API LPVOID WINAPI GlobalLock(HGLOBAL memory);
DESKTOP_API BOOL WINAPI GlobalUnlock(HGLOBAL memory);
DESKTOP_API SIZE_T WINAPI GlobalSize(HGLOBAL memory);
DESKTOP_API UINT WINAPI GlobalFlags(HGLOBAL memory);
DESKTOP_API HGLOBAL WINAPI GlobalHandle(LPCVOID pointer);
DESKTOP_API HGLOBAL WINAPI GlobalFree(HGLOBAL memory);
DESKTOP_API HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T bytes);
DESKTOP_API HLOCAL WINAPI LocalReAlloc(HLOCAL memory, SIZE_T bytes, UINT flags);
DESKTOP_API LPVOID WINAPI LocalLock(HLOCAL memory);
DESKTOP_API BOOL WINAPI LocalUnlock(HLOCAL memory);
DESKTOP_API SIZE_T WINAPI LocalSize(HLOCAL memory);
DESKTOP_API HLOCAL WINAPI LocalFree(HLOCAL memory);
DESKTOP_API HANDLE WINAPI GetProcessHeap();
DESKTOP_API LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes);
DESKTOP_API LPVOID WINAPI HeapReAlloc(HANDLE heap, DWORD flags, LPVOID memory, SIZE_T bytes);
DESKTOP_API SIZE_T WINAPI HeapSize(HANDLE heap, DWORD flags, LPCVOID memory);
DESKTOP_API BOOL WINAPI HeapFree(HANDLE heap, DWORD flags, LPVOID memory);

// True when the process may not read (write) every byte of the range.
DESKTOP_API BOOL WINAPI IsBadReadPtr(const void* pointer, UINT_PTR bytes);
DESKTOP_API BOOL WINAPI IsBadWritePtr(LPVOID pointer, UINT_PTR bytes);
DESKTOP_API BOOL WINAPI IsBadCodePtr(FARPROC function);
// maximum: in characters.
DESKTOP_API BOOL WINAPI IsBadStringPtrW(LPCWSTR text, UINT_PTR maximum);
#define IsBadStringPtr IsBadStringPtrW

#define CopyMemory(destination, source, length) memcpy((destination), (source), (length))
#define MoveMemory(destination, source, length) memmove((destination), (source), (length))
#define FillMemory(destination, length, fill) memset((destination), (fill), (length))
#define ZeroMemory(destination, length) memset((destination), 0, (length))

// ---- Strings ----

DESKTOP_API int WINAPI lstrlenA(LPCSTR text);
DESKTOP_API int WINAPI lstrlenW(LPCWSTR text);
DESKTOP_API int WINAPI lstrcmpW(LPCWSTR a, LPCWSTR b);
DESKTOP_API int WINAPI lstrcmpiW(LPCWSTR a, LPCWSTR b);
DESKTOP_API LPWSTR WINAPI lstrcpyW(LPWSTR destination, LPCWSTR source);
// maximum: in characters, with the final zero.
DESKTOP_API LPWSTR WINAPI lstrcpynW(LPWSTR destination, LPCWSTR source, int maximum);
DESKTOP_API LPWSTR WINAPI lstrcatW(LPWSTR destination, LPCWSTR source);
DESKTOP_API int WINAPI MulDiv(int number, int numerator, int denominator);
#define lstrlen lstrlenW
#define lstrcmp lstrcmpW
#define lstrcmpi lstrcmpiW
#define lstrcpy lstrcpyW
#define lstrcpyn lstrcpynW
#define lstrcat lstrcatW

// ---- Files. Paths are those of Linux; '\\' is taken for '/', and a drive letter is dropped ----

#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define GENERIC_ALL 0x10000000u
#define FILE_SHARE_READ 0x00000001
#define FILE_SHARE_WRITE 0x00000002
#define FILE_SHARE_DELETE 0x00000004
#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5
#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2
#define INVALID_FILE_SIZE 0xFFFFFFFFu
#define INVALID_SET_FILE_POINTER 0xFFFFFFFFu
#define INVALID_FILE_ATTRIBUTES 0xFFFFFFFFu
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_HIDDEN 0x00000002
#define FILE_ATTRIBUTE_SYSTEM 0x00000004
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_NORMAL 0x00000080
#define FILE_ATTRIBUTE_TEMPORARY 0x00000100

struct OVERLAPPED;
using LPOVERLAPPED = OVERLAPPED*;

struct WIN32_FIND_DATAW {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime;
  FILETIME ftLastAccessTime;
  FILETIME ftLastWriteTime;
  DWORD nFileSizeHigh;
  DWORD nFileSizeLow;
  DWORD dwReserved0;
  DWORD dwReserved1;
  WCHAR cFileName[MAX_PATH];
  WCHAR cAlternateFileName[14];
};
using WIN32_FIND_DATA = WIN32_FIND_DATAW;
using LPWIN32_FIND_DATAW = WIN32_FIND_DATAW*;
using LPWIN32_FIND_DATA = WIN32_FIND_DATAW*;

DESKTOP_API HANDLE WINAPI CreateFileW(LPCWSTR fileName, DWORD access, DWORD shareMode,
                                      LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                                      HANDLE templateFile);
// overlapped must be null.
DESKTOP_API BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD bytes, LPDWORD read,
                                 LPOVERLAPPED overlapped);
DESKTOP_API BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD bytes, LPDWORD written,
                                  LPOVERLAPPED overlapped);
DESKTOP_API DWORD WINAPI SetFilePointer(HANDLE file, LONG distance, PLONG distanceHigh, DWORD method);
DESKTOP_API BOOL WINAPI SetEndOfFile(HANDLE file);
DESKTOP_API DWORD WINAPI GetFileSize(HANDLE file, LPDWORD sizeHigh);
DESKTOP_API BOOL WINAPI FlushFileBuffers(HANDLE file);
// Files, threads and events.
DESKTOP_API BOOL WINAPI CloseHandle(HANDLE object);
DESKTOP_API HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data);
DESKTOP_API BOOL WINAPI FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW data);
DESKTOP_API BOOL WINAPI FindClose(HANDLE search);
DESKTOP_API DWORD WINAPI GetFileAttributesW(LPCWSTR fileName);
DESKTOP_API BOOL WINAPI DeleteFileW(LPCWSTR fileName);
DESKTOP_API BOOL WINAPI CreateDirectoryW(LPCWSTR path, LPSECURITY_ATTRIBUTES security);
DESKTOP_API BOOL WINAPI RemoveDirectoryW(LPCWSTR path);
DESKTOP_API DWORD WINAPI GetTempPathW(DWORD size, LPWSTR buffer);
DESKTOP_API UINT WINAPI GetTempFileNameW(LPCWSTR path, LPCWSTR prefix, UINT unique, LPWSTR fileName);
DESKTOP_API DWORD WINAPI GetCurrentDirectoryW(DWORD size, LPWSTR buffer);
DESKTOP_API BOOL WINAPI SetCurrentDirectoryW(LPCWSTR path);
DESKTOP_API DWORD WINAPI GetFullPathNameW(LPCWSTR fileName, DWORD size, LPWSTR buffer, LPWSTR* filePart);
DESKTOP_API UINT WINAPI GetWindowsDirectoryW(LPWSTR buffer, UINT size);
#define CreateFile CreateFileW
#define FindFirstFile FindFirstFileW
#define FindNextFile FindNextFileW
#define GetFileAttributes GetFileAttributesW
#define DeleteFile DeleteFileW
#define CreateDirectory CreateDirectoryW
#define RemoveDirectory RemoveDirectoryW
#define GetTempPath GetTempPathW
#define GetTempFileName GetTempFileNameW
#define GetCurrentDirectory GetCurrentDirectoryW
#define SetCurrentDirectory SetCurrentDirectoryW
#define GetFullPathName GetFullPathNameW
#define GetWindowsDirectory GetWindowsDirectoryW

// ---- Environment ----

#define MAX_COMPUTERNAME_LENGTH 15
DESKTOP_API DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);
DESKTOP_API BOOL WINAPI SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value);
DESKTOP_API BOOL WINAPI GetComputerNameW(LPWSTR buffer, LPDWORD size);
#define GetEnvironmentVariable GetEnvironmentVariableW
#define SetEnvironmentVariable SetEnvironmentVariableW
#define GetComputerName GetComputerNameW

// ---- Profile files. A name without a folder lies in the Windows directory ----

DESKTOP_API DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue,
                                                  LPWSTR buffer, DWORD size, LPCWSTR fileName);
DESKTOP_API UINT WINAPI GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultValue,
                                              LPCWSTR fileName);
DESKTOP_API DWORD WINAPI GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size,
                                                   LPCWSTR fileName);
DESKTOP_API DWORD WINAPI GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR fileName);
DESKTOP_API BOOL WINAPI WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value,
                                                   LPCWSTR fileName);
#define GetPrivateProfileString GetPrivateProfileStringW
#define GetPrivateProfileInt GetPrivateProfileIntW
#define GetPrivateProfileSection GetPrivateProfileSectionW
#define GetPrivateProfileSectionNames GetPrivateProfileSectionNamesW
#define WritePrivateProfileString WritePrivateProfileStringW

// ---- What the C library of Windows offers beyond the standard. In formats, %s and %c are wide, %S, %C,
// %hs and %hc narrow, and %I64 is a prefix for 64-bit integers ----

DESKTOP_API int _snwprintf(wchar_t* buffer, size_t size, const wchar_t* format, ...);
DESKTOP_API int _vsnwprintf(wchar_t* buffer, size_t size, const wchar_t* format, va_list arguments);
DESKTOP_API int _scwprintf(const wchar_t* format, ...);
DESKTOP_API int _vscwprintf(const wchar_t* format, va_list arguments);
DESKTOP_API int _wcsicmp(const wchar_t* a, const wchar_t* b);
DESKTOP_API int _wcsnicmp(const wchar_t* a, const wchar_t* b, size_t maximum);
DESKTOP_API int _stricmp(const char* a, const char* b);
DESKTOP_API wchar_t* _wcsdup(const wchar_t* text);
DESKTOP_API wchar_t* _wcslwr(wchar_t* text);
DESKTOP_API wchar_t* _wcsupr(wchar_t* text);
DESKTOP_API int _wtoi(const wchar_t* text);
DESKTOP_API long long _wtoi64(const wchar_t* text);
DESKTOP_API double _wtof(const wchar_t* text);
DESKTOP_API wchar_t* _itow(int value, wchar_t* buffer, int radix);
// The value lives until the variable changes.
DESKTOP_API wchar_t* _wgetenv(const wchar_t* name);
// "name=value"; "name=" removes the variable.
DESKTOP_API int _wputenv(const wchar_t* assignment);
