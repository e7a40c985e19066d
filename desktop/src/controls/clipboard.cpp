// The clipboard: one for all windows; texts are converted between their two formats.
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include <windows.h>

#include "kernel/kernel.h"
#include "world.h"

namespace desktop {

namespace {

constexpr UINT kFirstRegisteredFormat = 0xC000;

struct Clipboard {
  bool open = false;
  HWND openWindow = nullptr;
  DWORD openThread = 0;
  HWND owner = nullptr;
  std::map<UINT, HANDLE> data;
  std::vector<std::wstring> formats;
};

Clipboard& TheClipboard() {
  static auto& clipboard = *new Clipboard;
  return clipboard;
}

void FreeData() {
  auto& data = TheClipboard().data;
  for (const auto& [format, handle] : data)
    if (handle) GlobalFree(handle);
  data.clear();
}

const RegisterReset g_reset(0, [] {
  FreeData();
  TheClipboard() = Clipboard();
});

HANDLE Copy(const void* bytes, size_t size) {
  const HANDLE handle = GlobalAlloc(GMEM_MOVEABLE, size);
  void* target = handle ? GlobalLock(handle) : nullptr;
  if (target) std::memcpy(target, bytes, size);
  if (target) GlobalUnlock(handle);
  return handle;
}

HANDLE NarrowFrom(HANDLE wide) {
  const auto* text = static_cast<LPCWSTR>(GlobalLock(wide));
  if (!text) return nullptr;
  const std::wstring source(text, wcsnlen(text, GlobalSize(wide) / sizeof(WCHAR)));
  GlobalUnlock(wide);
  std::string narrow(source.size() + 1, 0);
  WideCharToMultiByte(CP_ACP, 0, source.c_str(), -1, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                      nullptr);
  return Copy(narrow.data(), narrow.size());
}

HANDLE WideFrom(HANDLE narrow) {
  const auto* text = static_cast<LPCSTR>(GlobalLock(narrow));
  if (!text) return nullptr;
  const std::string source(text, strnlen(text, GlobalSize(narrow)));
  GlobalUnlock(narrow);
  std::wstring wide(source.size() + 1, 0);
  MultiByteToWideChar(CP_ACP, 0, source.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
  return Copy(wide.data(), wide.size() * sizeof(WCHAR));
}

bool OpenHere() {
  const Clipboard& clipboard = TheClipboard();
  if (clipboard.open && clipboard.openThread == GetCurrentThreadId()) return true;
  SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
  return false;
}

}  // namespace

}  // namespace desktop

using desktop::kFirstRegisteredFormat;
using desktop::OpenHere;
using desktop::TheClipboard;
using desktop::WorldLock;
using desktop::WorldMutex;

BOOL OpenClipboard(HWND owner) {
  const bool isWindow = !owner || IsWindow(owner);
  WorldLock lock(WorldMutex());
  auto& clipboard = TheClipboard();
  if (!isWindow) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (clipboard.open && (clipboard.openWindow != owner || clipboard.openThread != GetCurrentThreadId())) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
  }
  clipboard.open = true;
  clipboard.openWindow = owner;
  clipboard.openThread = GetCurrentThreadId();
  return TRUE;
}

BOOL CloseClipboard() {
  WorldLock lock(WorldMutex());
  if (!OpenHere()) return FALSE;
  TheClipboard().open = false;
  TheClipboard().openWindow = nullptr;
  return TRUE;
}

BOOL EmptyClipboard() {
  HWND before = nullptr;
  {
    WorldLock lock(WorldMutex());
    if (!OpenHere()) return FALSE;
    before = TheClipboard().owner;
  }
  if (before && IsWindow(before)) SendMessageW(before, WM_DESTROYCLIPBOARD, 0, 0);
  WorldLock lock(WorldMutex());
  desktop::FreeData();
  TheClipboard().owner = TheClipboard().openWindow;
  return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data) {
  WorldLock lock(WorldMutex());
  if (!OpenHere()) return nullptr;
  if (format == 0 || !data) {
    SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
    return nullptr;
  }
  HANDLE& slot = TheClipboard().data[format];
  if (slot && slot != data) GlobalFree(slot);
  return slot = data;
}

HANDLE GetClipboardData(UINT format) {
  WorldLock lock(WorldMutex());
  if (!OpenHere()) return nullptr;
  auto& data = TheClipboard().data;
  const auto found = data.find(format);
  if (found != data.end()) return found->second;
  if (format == CF_UNICODETEXT && data.count(CF_TEXT)) return data[format] = desktop::WideFrom(data[CF_TEXT]);
  if (format == CF_TEXT && data.count(CF_UNICODETEXT))
    return data[format] = desktop::NarrowFrom(data[CF_UNICODETEXT]);
  return nullptr;
}

BOOL IsClipboardFormatAvailable(UINT format) {
  WorldLock lock(WorldMutex());
  const auto& data = TheClipboard().data;
  if (data.count(format)) return TRUE;
  return (format == CF_TEXT && data.count(CF_UNICODETEXT)) ||
         (format == CF_UNICODETEXT && data.count(CF_TEXT));
}

int CountClipboardFormats() {
  WorldLock lock(WorldMutex());
  return static_cast<int>(TheClipboard().data.size());
}

HWND GetClipboardOwner() {
  WorldLock lock(WorldMutex());
  return TheClipboard().owner;
}

HWND GetOpenClipboardWindow() {
  WorldLock lock(WorldMutex());
  return TheClipboard().openWindow;
}

UINT RegisterClipboardFormatW(LPCWSTR name) {
  if (!name || !*name) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  WorldLock lock(WorldMutex());
  auto& formats = TheClipboard().formats;
  for (size_t i = 0; i < formats.size(); ++i)
    if (desktop::EqualNoCase(formats[i], name)) return kFirstRegisteredFormat + static_cast<UINT>(i);
  formats.emplace_back(name);
  return kFirstRegisteredFormat + static_cast<UINT>(formats.size()) - 1;
}
