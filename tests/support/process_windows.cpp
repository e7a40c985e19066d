// Windows and Wine: counts what the process owns in the system's own tables.
#include <windows.h>

#include <cstdint>
#include <string>

#include "support/process.h"

namespace support {
namespace {

HDESK g_desktop = nullptr;

// The process's table of GDI handles, as documented by debuggers: 65536 entries, shared.
struct GdiEntry {
  std::uint64_t object;
  std::uint32_t owner;
  std::uint16_t unique;
  std::uint8_t type;
  std::uint8_t flags;
  std::uint64_t user;
};
constexpr int kGdiEntries = 65536;
constexpr int kGdiTypeMask = 0x1f;
constexpr int kGdiTypeDc = 0x01;

const GdiEntry* GdiTable() {
  const char* peb;
  asm("movq %%gs:0x60, %0" : "=r"(peb));
  return *reinterpret_cast<GdiEntry* const*>(peb + 0xF8);
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  // The input method's window belongs to the system, and comes and goes with the thread's windows.
  if (wcscmp(name, L"IME") != 0 && wcscmp(name, L"MSCTFIME UI") != 0) {
    ++*reinterpret_cast<int*>(count);
  }
  return TRUE;
}

}  // namespace

void PrepareProcess() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
  SetConsoleOutputCP(CP_UTF8);
  const std::wstring name = L"vorn-test-" + std::to_wstring(GetCurrentProcessId());
  g_desktop = CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
  PrepareThread();
}

void PrepareThread() {
  if (g_desktop) SetThreadDesktop(g_desktop);
}

Alive CountAlive() {
  Alive alive;
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&alive.windows));
  const GdiEntry* table = GdiTable();
  for (int i = 0; i < kGdiEntries; ++i) {
    if (table[i].type == 0) continue;
    ++((table[i].type & kGdiTypeMask) == kGdiTypeDc ? alive.dcs : alive.gdiObjects);
  }
  return alive;
}

}  // namespace support
