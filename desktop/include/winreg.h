// A registry in memory, empty at the start of the program.
#pragma once

#include "windef.h"
#include "winbase.h"

#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000000))))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000001))))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000002))))
#define HKEY_USERS (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000003))))

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_ALL_ACCESS 0xF003F
#define REG_OPTION_NON_VOLATILE 0x00000000
#define REG_OPTION_VOLATILE 0x00000001
#define REG_CREATED_NEW_KEY 0x00000001
#define REG_OPENED_EXISTING_KEY 0x00000002

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_MULTI_SZ 7
#define REG_QWORD 11

using REGSAM = ACCESS_MASK;
using LSTATUS = LONG;

DESKTOP_API LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass,
                                           DWORD options, REGSAM access, LPSECURITY_ATTRIBUTES security,
                                           PHKEY result, LPDWORD disposition);
DESKTOP_API LSTATUS WINAPI RegCreateKeyW(HKEY key, LPCWSTR subKey, PHKEY result);
DESKTOP_API LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access,
                                         PHKEY result);
DESKTOP_API LSTATUS WINAPI RegCloseKey(HKEY key);
// Sizes are in bytes, and a text counts 4 bytes a character here.
DESKTOP_API LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type,
                                            LPBYTE data, LPDWORD size);
DESKTOP_API LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type,
                                          const BYTE* data, DWORD size);
DESKTOP_API LSTATUS WINAPI RegDeleteValueW(HKEY key, LPCWSTR name);
// Fails for a key with sub-keys.
DESKTOP_API LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR subKey);
DESKTOP_API LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR subKey);
DESKTOP_API LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize,
                                         LPDWORD reserved, LPWSTR keyClass, LPDWORD classSize,
                                         LPFILETIME lastWrite);
DESKTOP_API LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize,
                                         LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);
#define RegCreateKeyEx RegCreateKeyExW
#define RegCreateKey RegCreateKeyW
#define RegOpenKeyEx RegOpenKeyExW
#define RegQueryValueEx RegQueryValueExW
#define RegSetValueEx RegSetValueExW
#define RegDeleteValue RegDeleteValueW
#define RegDeleteKey RegDeleteKeyW
#define RegDeleteTree RegDeleteTreeW
#define RegEnumKeyEx RegEnumKeyExW
#define RegEnumValue RegEnumValueW
