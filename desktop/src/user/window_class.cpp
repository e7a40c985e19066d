#include <algorithm>
#include <list>

#include "controls/controls.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

constexpr int kMaxExtra = 4096;

struct ClassTable {
  std::list<std::shared_ptr<WindowClass>> classes;
  ATOM nextAtom = 0xC040;
  std::vector<std::wstring> names;  // atom - 0xC000 - 0x40 -> folded name
  bool ready = false;
  bool registering = false;  // the classes of the system are being registered
};

ClassTable& TheClasses() {
  static auto& table = *new ClassTable;
  return table;
}

// A name keeps its atom for the life of the program, so that an atom never changes its meaning.
ATOM AtomOf(const std::wstring& folded) {
  ClassTable& table = TheClasses();
  const auto found = std::find(table.names.begin(), table.names.end(), folded);
  if (found != table.names.end()) return static_cast<ATOM>(0xC040 + (found - table.names.begin()));
  table.names.push_back(folded);
  return static_cast<ATOM>(0xC040 + table.names.size() - 1);
}

void AddSystemClass(const wchar_t* name, UINT style, WNDPROC proc) {
  auto cls = std::make_shared<WindowClass>();
  cls->name = name;
  cls->style = style;
  cls->proc = proc;
  cls->system = true;
  if (name[0] == L'#') {
    cls->atom = static_cast<ATOM>(wcstol(name + 1, nullptr, 10));
  } else {
    cls->atom = AtomOf(FoldCase(name));
  }
  TheClasses().classes.push_back(cls);
}

LRESULT CALLBACK DesktopProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) return TRUE;
  if (message == WM_GETTEXT || message == WM_GETTEXTLENGTH) return 0;
  if (message == WM_ERASEBKGND) return TRUE;
  return DefWindowProcW(window, message, wParam, lParam);
}

void Prepare() {
  ClassTable& table = TheClasses();
  if (table.ready) return;
  table.ready = true;
  table.registering = true;
  AddSystemClass(L"#32769", CS_DBLCLKS, DesktopProc);
  AddSystemClass(L"Message", 0, DesktopProc);
  RegisterControlClasses();
  table.registering = false;
}

bool SameName(const WindowClass& cls, LPCWSTR name, const std::wstring& folded) {
  if (IsAtom(name)) return cls.atom == static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
  return FoldCase(cls.name.c_str()) == folded;
}

// What a class of the program hides: first its own, then global ones, then the system's.
std::shared_ptr<WindowClass> Find(LPCWSTR name, HINSTANCE instance, bool ownOnly) {
  Prepare();
  const std::wstring folded = IsAtom(name) ? std::wstring() : FoldCase(name);
  std::shared_ptr<WindowClass> fallback;
  for (const auto& cls : TheClasses().classes) {
    if (!SameName(*cls, name, folded)) continue;
    const bool global = cls->system || (cls->style & CS_GLOBALCLASS);
    if (!global && (!instance || cls->instance == instance)) return cls;
    if (ownOnly && global && !cls->system && cls->instance == instance) return cls;
    if (global && (!fallback || fallback->system)) fallback = cls;
  }
  return ownOnly ? nullptr : fallback;
}

ATOM Register(const WNDCLASSEXW& wc) {
  if (!wc.lpszClassName || !*FoldCase(IsAtom(wc.lpszClassName) ? L"#" : wc.lpszClassName).c_str() ||
      !wc.lpfnWndProc || wc.cbClsExtra < 0 || wc.cbWndExtra < 0) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  const HINSTANCE instance = wc.hInstance ? wc.hInstance : GetModuleHandleW(nullptr);
  WorldLock lock(WorldMutex());
  if (FailsHere()) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
  }
  if (!TheClasses().registering && Find(wc.lpszClassName, instance, true)) {
    SetLastError(ERROR_CLASS_ALREADY_EXISTS);
    return 0;
  }
  Prepare();
  auto cls = std::make_shared<WindowClass>();
  if (IsAtom(wc.lpszClassName)) {
    cls->atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(wc.lpszClassName));
    cls->name = L"#" + std::to_wstring(cls->atom);
    const size_t index = static_cast<size_t>(cls->atom) - 0xC040;
    if (cls->atom >= 0xC040 && index < TheClasses().names.size()) cls->name = TheClasses().names[index];
  } else if (wc.lpszClassName[0] == L'#') {
    cls->name = wc.lpszClassName;
    cls->atom = static_cast<ATOM>(wcstol(wc.lpszClassName + 1, nullptr, 10));
  } else {
    cls->name = wc.lpszClassName;
    cls->atom = AtomOf(FoldCase(wc.lpszClassName));
  }
  cls->style = wc.style;
  cls->proc = wc.lpfnWndProc;
  cls->instance = instance;
  cls->icon = wc.hIcon;
  cls->iconSmall = wc.hIconSm;
  cls->cursor = wc.hCursor;
  cls->background = wc.hbrBackground;
  cls->hasMenuName = wc.lpszMenuName != nullptr;
  if (IsAtom(wc.lpszMenuName)) {
    cls->menuId = wc.lpszMenuName;
  } else {
    cls->menuName = wc.lpszMenuName;
  }
  cls->windowExtra = std::min(wc.cbWndExtra, kMaxExtra);
  cls->extra.resize(static_cast<size_t>(std::min(wc.cbClsExtra, kMaxExtra)));
  cls->system = TheClasses().registering;
  TheClasses().classes.push_front(cls);
  return cls->atom;
}

LPCWSTR MenuName(const WindowClass& cls) { return cls.menuName.empty() ? cls.menuId : cls.menuName.c_str(); }

ULONG_PTR ReadExtra(const std::vector<BYTE>& extra, int index, size_t size, bool& ok) {
  ok = index >= 0 && static_cast<size_t>(index) + size <= extra.size();
  ULONG_PTR value = 0;
  if (ok) memcpy(&value, extra.data() + index, size);
  return value;
}

// A value of the class; set it at the same time when a new one is given.
ULONG_PTR ClassValue(WindowClass& cls, int index, size_t size, const LONG_PTR* fresh) {
  const auto exchange = [fresh](auto& field) {
    const auto old = reinterpret_cast<ULONG_PTR>(field);
    if (fresh) field = reinterpret_cast<std::remove_reference_t<decltype(field)>>(*fresh);
    return old;
  };
  switch (index) {
    case GCLP_HBRBACKGROUND: return exchange(cls.background);
    case GCLP_HCURSOR: return exchange(cls.cursor);
    case GCLP_HICON: return exchange(cls.icon);
    case GCLP_HICONSM: return exchange(cls.iconSmall);
    case GCLP_HMODULE: return exchange(cls.instance);
    case GCLP_WNDPROC: return exchange(cls.proc);
    case GCLP_MENUNAME: {
      const auto old = reinterpret_cast<ULONG_PTR>(MenuName(cls));
      if (!fresh) return old;
      const auto name = reinterpret_cast<LPCWSTR>(*fresh);
      cls.menuName = IsAtom(name) ? L"" : name;
      cls.menuId = IsAtom(name) ? name : nullptr;
      return old;
    }
    case GCL_STYLE: {
      const ULONG_PTR old = cls.style;
      if (fresh) cls.style = static_cast<UINT>(*fresh);
      return old;
    }
    case GCL_CBWNDEXTRA: {
      const auto old = static_cast<ULONG_PTR>(cls.windowExtra);
      if (fresh) cls.windowExtra = std::clamp(static_cast<int>(*fresh), 0, kMaxExtra);
      return old;
    }
    case GCL_CBCLSEXTRA:
      if (fresh) break;
      return cls.extra.size();
    case GCW_ATOM:
      if (fresh) break;
      return cls.atom;
    default: {
      bool ok;
      const ULONG_PTR old = ReadExtra(cls.extra, index, size, ok);
      if (!ok) break;
      if (fresh) memcpy(cls.extra.data() + index, fresh, size);
      return old;
    }
  }
  SetLastError(index < 0 ? ERROR_INVALID_INDEX : ERROR_INVALID_PARAMETER);
  return 0;
}

ULONG_PTR ClassValueOf(HWND window, int index, size_t size, const LONG_PTR* fresh) {
  WorldLock lock(WorldMutex());
  Window* found = FromHandleOrError(window);
  return found ? ClassValue(*found->cls, index, size, fresh) : 0;
}

}  // namespace

std::wstring FoldCase(LPCWSTR text) {
  std::wstring folded(text);
  for (wchar_t& c : folded) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  return folded;
}

std::shared_ptr<WindowClass> FindClass(LPCWSTR name, HINSTANCE instance) {
  return name ? Find(name, instance, false) : nullptr;
}

std::shared_ptr<WindowClass> DesktopClass() { return Find(MAKEINTATOM(32769), nullptr, false); }

void ResetClasses() {
  TheClasses().classes.clear();
  TheClasses().ready = false;
}

}  // namespace desktop

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* wc) {
  if (!wc || wc->cbSize != sizeof(WNDCLASSEXW)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  return Register(*wc);
}

ATOM WINAPI RegisterClassW(const WNDCLASSW* wc) {
  if (!wc) {
    SetLastError(ERROR_NOACCESS);
    return 0;
  }
  return Register({sizeof(WNDCLASSEXW), wc->style, wc->lpfnWndProc, wc->cbClsExtra, wc->cbWndExtra,
                   wc->hInstance, wc->hIcon, wc->hCursor, wc->hbrBackground, wc->lpszMenuName,
                   wc->lpszClassName, nullptr});
}

BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE instance) {
  if (!name) {
    SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
    return FALSE;
  }
  const HINSTANCE owner = instance ? instance : GetModuleHandleW(nullptr);
  WorldLock lock(WorldMutex());
  const auto cls = Find(name, owner, true);
  if (!cls) {
    SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
    return FALSE;
  }
  if (cls->windows > 0) {
    SetLastError(ERROR_CLASS_HAS_WINDOWS);
    return FALSE;
  }
  if (cls->dc) DestroyWindowDC(cls->dc);
  TheClasses().classes.remove(cls);
  return TRUE;
}

BOOL WINAPI GetClassInfoExW(HINSTANCE instance, LPCWSTR name, LPWNDCLASSEXW wc) {
  if (!wc || !name) {
    SetLastError(ERROR_NOACCESS);
    return FALSE;
  }
  const HINSTANCE owner = instance ? instance : GetModuleHandleW(nullptr);
  WorldLock lock(WorldMutex());
  const auto cls = Find(name, owner, false);
  if (!cls) {
    SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
    return FALSE;
  }
  *wc = {wc->cbSize,
         cls->style,
         cls->proc,
         static_cast<int>(cls->extra.size()),
         cls->windowExtra,
         cls->system ? nullptr : instance,
         cls->icon,
         cls->cursor,
         cls->background,
         MenuName(*cls),
         name,
         cls->iconSmall};
  // As on Windows the result is the class's atom, which reads as TRUE.
  return cls->atom;
}

BOOL WINAPI GetClassInfoW(HINSTANCE instance, LPCWSTR name, LPWNDCLASSW wc) {
  WNDCLASSEXW full{};
  full.cbSize = sizeof(full);
  if (!wc) {
    SetLastError(ERROR_NOACCESS);
    return FALSE;
  }
  const BOOL atom = GetClassInfoExW(instance, name, &full);
  if (!atom) return FALSE;
  *wc = {full.style, full.lpfnWndProc, full.cbClsExtra,    full.cbWndExtra,   full.hInstance,
         full.hIcon, full.hCursor,     full.hbrBackground, full.lpszMenuName, full.lpszClassName};
  return atom;
}

int WINAPI GetClassNameW(HWND window, LPWSTR name, int size) {
  if (!name || size <= 0) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  WorldLock lock(WorldMutex());
  const Window* found = FromHandleOrError(window);
  if (!found) return 0;
  const size_t length = std::min(found->cls->name.size(), static_cast<size_t>(size) - 1);
  wmemcpy(name, found->cls->name.c_str(), length);
  name[length] = 0;
  return static_cast<int>(length);
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index) {
  return ClassValueOf(window, index, sizeof(ULONG_PTR), nullptr);
}

ULONG_PTR WINAPI SetClassLongPtrW(HWND window, int index, LONG_PTR value) {
  return ClassValueOf(window, index, sizeof(LONG_PTR), &value);
}

DWORD WINAPI GetClassLongW(HWND window, int index) {
  return static_cast<DWORD>(ClassValueOf(window, index, sizeof(DWORD), nullptr));
}

DWORD WINAPI SetClassLongW(HWND window, int index, LONG value) {
  const LONG_PTR wide = value;
  return static_cast<DWORD>(ClassValueOf(window, index, sizeof(DWORD), &wide));
}

WORD WINAPI GetClassWord(HWND window, int index) {
  return static_cast<WORD>(ClassValueOf(window, index, sizeof(WORD), nullptr));
}
