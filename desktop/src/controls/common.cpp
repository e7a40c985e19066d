// What the library of common controls offers besides controls.
#include <commctrl.h>

#include <algorithm>
#include <map>
#include <vector>

#include "world.h"

namespace desktop {

namespace {

struct Subclass {
  SUBCLASSPROC procedure;
  UINT_PTR id;
  DWORD_PTR data;
};

struct SubclassedWindow {
  WNDPROC original = nullptr;
  std::vector<Subclass> subclasses;  // the one set last is called first
  std::vector<size_t> running;       // how far down each call under way has come
};

std::map<HWND, SubclassedWindow>& Windows() {
  static auto& windows = *new std::map<HWND, SubclassedWindow>;
  return windows;
}

const RegisterReset g_reset(0, [] { Windows().clear(); });

SubclassedWindow* FindWindowOf(HWND window) {
  const auto found = Windows().find(window);
  return found == Windows().end() ? nullptr : &found->second;
}

Subclass* FindSubclass(SubclassedWindow* window, SUBCLASSPROC procedure, UINT_PTR id) {
  if (!window) return nullptr;
  for (Subclass& subclass : window->subclasses)
    if (subclass.procedure == procedure && subclass.id == id) return &subclass;
  return nullptr;
}

// Calls the next procedure of the call under way: a subclass, or the window's own at the end.
LRESULT CallNext(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  Subclass next{};
  WNDPROC original = nullptr;
  {
    WorldLock lock(WorldMutex());
    SubclassedWindow* window = FindWindowOf(handle);
    if (!window) return DefWindowProcW(handle, message, wParam, lParam);
    original = window->original;
    if (!window->running.empty() && window->running.back() > 0) {
      const size_t index = std::min(--window->running.back(), window->subclasses.size() - 1);
      if (!window->subclasses.empty()) next = window->subclasses[index];
    }
  }
  if (next.procedure) return next.procedure(handle, message, wParam, lParam, next.id, next.data);
  return CallWindowProcW(original, handle, message, wParam, lParam);
}

LRESULT CALLBACK SubclassedProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  {
    WorldLock lock(WorldMutex());
    if (SubclassedWindow* window = FindWindowOf(handle)) window->running.push_back(window->subclasses.size());
  }
  const LRESULT result = CallNext(handle, message, wParam, lParam);
  WorldLock lock(WorldMutex());
  SubclassedWindow* window = FindWindowOf(handle);
  if (!window) return result;
  if (!window->running.empty()) window->running.pop_back();
  if (message == WM_NCDESTROY) Windows().erase(handle);
  return result;
}

}  // namespace

}  // namespace desktop

using desktop::FindSubclass;
using desktop::FindWindowOf;
using desktop::WorldLock;
using desktop::WorldMutex;

BOOL SetWindowSubclass(HWND handle, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) {
  if (!procedure || !IsWindow(handle)) return FALSE;
  WorldLock lock(WorldMutex());
  if (desktop::Subclass* known = FindSubclass(FindWindowOf(handle), procedure, id)) {
    known->data = data;
    return TRUE;
  }
  auto& window = desktop::Windows()[handle];
  window.subclasses.push_back({procedure, id, data});
  if (!window.original)
    window.original = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(desktop::SubclassedProc)));
  return TRUE;
}

BOOL RemoveWindowSubclass(HWND handle, SUBCLASSPROC procedure, UINT_PTR id) {
  WorldLock lock(WorldMutex());
  desktop::SubclassedWindow* window = FindWindowOf(handle);
  const desktop::Subclass* known = FindSubclass(window, procedure, id);
  if (!known) return FALSE;
  const auto index = static_cast<size_t>(known - window->subclasses.data());
  window->subclasses.erase(window->subclasses.begin() + static_cast<std::ptrdiff_t>(index));
  // Calls under way that have not come to it yet have one less to go.
  for (size_t& left : window->running)
    if (left > index) --left;
  // Someone may have subclassed on top of us: then the procedure has to stay.
  const bool isOurs =
      GetWindowLongPtrW(handle, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(desktop::SubclassedProc);
  if (window->subclasses.empty() && window->running.empty() && isOurs) {
    const WNDPROC original = window->original;
    desktop::Windows().erase(handle);
    SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
  }
  return TRUE;
}

LRESULT DefSubclassProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  return desktop::CallNext(handle, message, wParam, lParam);
}

void InitCommonControls() {}

BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes) {
  return classes && classes->dwSize == sizeof(INITCOMMONCONTROLSEX);
}

BOOL _TrackMouseEvent(LPTRACKMOUSEEVENT request) { return TrackMouseEvent(request); }
