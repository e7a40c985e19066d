// The shell. ShellExecuteW starts nothing: desktop.h gives the record of what was asked.
#pragma once

#include "windows.h"

#define SE_ERR_FNF 2
#define SE_ERR_PNF 3
#define SE_ERR_ACCESSDENIED 5
#define SE_ERR_NOASSOC 31

// Records the call and returns a value above 32, or SE_ERR_FNF for an empty file name.
DESKTOP_API HINSTANCE WINAPI ShellExecuteW(HWND owner, LPCWSTR operation, LPCWSTR file, LPCWSTR parameters,
                                           LPCWSTR folder, INT showCommand);
#define ShellExecute ShellExecuteW

// The result is freed with LocalFree.
DESKTOP_API LPWSTR* WINAPI CommandLineToArgvW(LPCWSTR commandLine, int* count);
