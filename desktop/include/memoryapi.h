// Memory by pages.
#pragma once

#include "windef.h"

#define ERROR_INVALID_ADDRESS 487

#define MEM_COMMIT 0x00001000
#define MEM_RESERVE 0x00002000
#define MEM_RELEASE 0x00008000
#define PAGE_READWRITE 0x04

// Reserves addresses, commits memory to reserved ones, or both; PAGE_READWRITE is the one protection.
DESKTOP_API LPVOID WINAPI VirtualAlloc(LPVOID wanted, SIZE_T size, DWORD type, DWORD protection);
// Gives a whole reservation back: size 0, MEM_RELEASE.
DESKTOP_API BOOL WINAPI VirtualFree(LPVOID memory, SIZE_T size, DWORD type);
