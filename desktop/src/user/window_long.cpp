// Words, properties, text and enabling of windows.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

constexpr size_t kMaxText = 1 << 20;

bool IsExtra(const Window* window, int index, size_t size) {
  if (index >= 0 && static_cast<size_t>(index) + size <= window->extra.size()) return true;
  SetLastError(ERROR_INVALID_INDEX);
  return false;
}

LONG_PTR Read(HWND handle, int index, size_t size) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window) return 0;
  switch (index) {
    case GWLP_WNDPROC: return reinterpret_cast<LONG_PTR>(window->proc);
    case GWLP_HINSTANCE: return reinterpret_cast<LONG_PTR>(window->instance);
    case GWLP_USERDATA: return window->userData;
    case GWL_STYLE: return static_cast<LONG>(window->style);
    case GWL_EXSTYLE: return static_cast<LONG>(window->exStyle);
    case GWLP_ID: return window->IsChildStyle() ? window->id : reinterpret_cast<LONG_PTR>(window->menu);
    case GWLP_HWNDPARENT: {
      const Window* parent = window->IsChildStyle() ? window->parent : window->owner;
      return parent && parent != DesktopWindow() ? reinterpret_cast<LONG_PTR>(parent->handle) : 0;
    }
    default: break;
  }
  if (!IsExtra(window, index, size)) return 0;
  if (size == sizeof(LONG)) {
    LONG value;
    memcpy(&value, window->extra.data() + index, sizeof(value));
    return value;
  }
  LONG_PTR value;
  memcpy(&value, window->extra.data() + index, sizeof(value));
  return value;
}

// The bits that no program changes by itself.
DWORD FixedStyle(const Window& window, int index, DWORD value) {
  if (index == GWL_STYLE) {
    if (!window.IsChildStyle()) value |= WS_CLIPSIBLINGS;
    return value;
  }
  DWORD fixed = (value & ~WS_EX_TOPMOST) | (window.exStyle & WS_EX_TOPMOST);
  const bool edge = (fixed & WS_EX_DLGMODALFRAME) ||
                    (!(fixed & WS_EX_STATICEDGE) && (window.style & (WS_DLGFRAME | WS_THICKFRAME)));
  return edge ? fixed | WS_EX_WINDOWEDGE : fixed & ~WS_EX_WINDOWEDGE;
}

LONG_PTR SetStyle(HWND handle, int index, DWORD value) {
  DWORD old;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandleOrError(handle);
    if (!window) return 0;
    old = index == GWL_STYLE ? window->style : window->exStyle;
  }
  STYLESTRUCT change{old, value};
  Send(handle, WM_STYLECHANGING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&change));
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return 0;
    DWORD& field = index == GWL_STYLE ? window->style : window->exStyle;
    field = FixedStyle(*window, index, change.styleNew);
    change.styleNew = field;
    if ((old ^ field) & WS_VISIBLE && index == GWL_STYLE) RetargetDCs();
  }
  Send(handle, WM_STYLECHANGED, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&change));
  return static_cast<LONG>(old);
}

LONG_PTR SetParentWord(HWND handle, LONG_PTR value) {
  bool child;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandleOrError(handle);
    if (!window) return 0;
    child = window->IsChildStyle();
  }
  const auto parent = reinterpret_cast<HWND>(value);
  if (child) return reinterpret_cast<LONG_PTR>(SetParent(handle, parent));
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  Window* owner = FromHandle(parent);
  if (!window || (parent && !owner)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  const HWND old = window->owner ? window->owner->handle : nullptr;
  window->owner = owner && owner->parent ? TopLevel(owner) : nullptr;
  return reinterpret_cast<LONG_PTR>(old);
}

LONG_PTR Write(HWND handle, int index, size_t size, LONG_PTR value) {
  if (index == GWL_STYLE || index == GWL_EXSTYLE) return SetStyle(handle, index, static_cast<DWORD>(value));
  if (index == GWLP_HWNDPARENT) return SetParentWord(handle, value);
  const LONG_PTR old = Read(handle, index, size);
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  if (!window) return 0;
  switch (index) {
    case GWLP_WNDPROC: window->proc = reinterpret_cast<WNDPROC>(value); return old;
    case GWLP_HINSTANCE: window->instance = reinterpret_cast<HINSTANCE>(value); return old;
    case GWLP_USERDATA: window->userData = value; return old;
    case GWLP_ID:
      if (window->IsChildStyle()) {
        window->id = value;
      } else {
        window->menu = reinterpret_cast<HMENU>(value);
      }
      return old;
    default: break;
  }
  if (!IsExtra(window, index, size)) return 0;
  memcpy(window->extra.data() + index, &value, size);
  return old;
}

std::wstring PropertyName(LPCWSTR name) {
  if (!IsAtom(name)) return FoldCase(name);
  return L"#" + std::to_wstring(reinterpret_cast<ULONG_PTR>(name));
}

std::wstring Widen(LPCSTR name) {
  std::wstring wide;
  for (; *name; ++name) wide.push_back(static_cast<unsigned char>(*name));
  return wide;
}

BOOL SetProperty(HWND handle, const std::wstring& name, HANDLE data) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  if (!window) return FALSE;
  window->properties[name] = data;
  return TRUE;
}

HANDLE GetProperty(HWND handle, const std::wstring& name) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window) return nullptr;
  const auto found = window->properties.find(name);
  return found == window->properties.end() ? nullptr : found->second;
}

HANDLE TakeProperty(HWND handle, const std::wstring& name) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  if (!window) return nullptr;
  const auto found = window->properties.find(name);
  if (found == window->properties.end()) return nullptr;
  const HANDLE data = found->second;
  window->properties.erase(found);
  return data;
}

bool IsMine(HWND handle) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  return window && window->queue == MyQueue();
}

}  // namespace

}  // namespace desktop

LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index) { return Read(window, index, sizeof(LONG_PTR)); }

LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
  return Write(window, index, sizeof(LONG_PTR), value);
}

LONG WINAPI GetWindowLongW(HWND window, int index) {
  return static_cast<LONG>(Read(window, index, sizeof(LONG)));
}

LONG WINAPI SetWindowLongW(HWND window, int index, LONG value) {
  return static_cast<LONG>(Write(window, index, sizeof(LONG), value));
}

BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE data) {
  return name && SetProperty(window, PropertyName(name), data);
}

HANDLE WINAPI GetPropW(HWND window, LPCWSTR name) {
  return name ? GetProperty(window, PropertyName(name)) : nullptr;
}

HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name) {
  return name ? TakeProperty(window, PropertyName(name)) : nullptr;
}

BOOL WINAPI SetPropA(HWND window, LPCSTR name, HANDLE data) {
  if (IS_INTRESOURCE(name)) return SetPropW(window, reinterpret_cast<LPCWSTR>(name), data);
  return SetProperty(window, FoldCase(Widen(name).c_str()), data);
}

HANDLE WINAPI GetPropA(HWND window, LPCSTR name) {
  if (IS_INTRESOURCE(name)) return GetPropW(window, reinterpret_cast<LPCWSTR>(name));
  return GetProperty(window, FoldCase(Widen(name).c_str()));
}

HANDLE WINAPI RemovePropA(HWND window, LPCSTR name) {
  if (IS_INTRESOURCE(name)) return RemovePropW(window, reinterpret_cast<LPCWSTR>(name));
  return TakeProperty(window, FoldCase(Widen(name).c_str()));
}

int WINAPI EnumPropsExW(HWND handle, PROPENUMPROCEXW proc, LPARAM param) {
  std::map<std::wstring, HANDLE> properties;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandleOrError(handle);
    if (!window || !proc) return -1;
    properties = window->properties;
  }
  int result = -1;
  for (const auto& [name, data] : properties) {
    std::wstring copy = name;
    result = proc(handle, copy.data(), data, static_cast<ULONG_PTR>(param));
    if (!result) break;
  }
  return result;
}

int WINAPI EnumPropsW(HWND handle, PROPENUMPROCW proc) {
  if (!proc) return -1;
  const auto relay = [](HWND window, LPWSTR name, HANDLE data, ULONG_PTR param) {
    return reinterpret_cast<PROPENUMPROCW>(param)(window, name, data);
  };
  return EnumPropsExW(handle, relay, reinterpret_cast<LPARAM>(proc));
}

BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text) {
  if (!IsWindow(window)) return FALSE;
  return Send(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size) {
  if (!text || size <= 0) return 0;
  text[0] = 0;
  if (!IsWindow(window)) return 0;
  if (!IsMine(window)) return InternalGetWindowText(window, text, size);
  return static_cast<int>(
      Send(window, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(text)));
}

int WINAPI GetWindowTextLengthW(HWND window) {
  return IsWindow(window) ? static_cast<int>(Send(window, WM_GETTEXTLENGTH)) : 0;
}

int WINAPI InternalGetWindowText(HWND handle, LPWSTR text, int size) {
  if (!text || size <= 0) return 0;
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  text[0] = 0;
  if (!window) return 0;
  const size_t length = std::min({window->text.size(), static_cast<size_t>(size) - 1, kMaxText});
  wmemcpy(text, window->text.c_str(), length);
  text[length] = 0;
  return static_cast<int>(length);
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable) {
  bool was;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandleOrError(handle);
    if (!window) return FALSE;
    was = window->style & WS_DISABLED;
  }
  const auto setBit = [handle](bool disabled) {
    WorldLock lock(WorldMutex());
    Window* window = FromHandle(handle);
    if (!window) return;
    window->style = disabled ? window->style | WS_DISABLED : window->style & ~WS_DISABLED;
  };
  if (enable && was) {
    setBit(false);
    Send(handle, WM_ENABLE, TRUE);
  } else if (!enable && !was) {
    Send(handle, WM_CANCELMODE);
    setBit(true);
    const HWND focus = GetFocus();
    if (focus == handle) SetFocus(nullptr);
    const HWND capture = GetCapture();
    if (capture && (capture == handle || IsChild(handle, capture))) ReleaseCapture();
    if (IsWindow(handle)) Send(handle, WM_ENABLE, FALSE);
  }
  return was;
}

int WINAPI SetWindowRgn(HWND handle, HRGN region, BOOL redraw) {
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandleOrError(handle);
    if (!window) return 0;
    const Region* shape = region ? RegionFromHandle(region) : nullptr;
    if (region && !shape) return 0;
    window->shape.reset();
    if (shape) window->shape = *shape;
    RetargetDCs();
  }
  // The system keeps the region from here on.
  if (region) DeleteObject(region);
  const UINT flags = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED;
  SetWindowPos(handle, nullptr, 0, 0, 0, 0, flags | (redraw ? 0 : SWP_NOREDRAW));
  return 1;
}

int WINAPI GetWindowRgn(HWND handle, HRGN region) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  Region* result = RegionFromHandle(region);
  if (!window || !result || !window->shape) return ERROR;
  *result = *window->shape;
  if (result->IsEmpty()) return NULLREGION;
  return result->IsRectangle() ? SIMPLEREGION : COMPLEXREGION;
}

BOOL WINAPI SetLayeredWindowAttributes(HWND handle, COLORREF key, BYTE alpha, DWORD flags) {
  WorldLock lock(WorldMutex());
  Window* window = FromHandleOrError(handle);
  if (!window) return FALSE;
  if (!(window->exStyle & WS_EX_LAYERED)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  window->layerKey = key;
  window->layerAlpha = alpha;
  window->layerFlags = flags;
  return TRUE;
}

BOOL WINAPI GetLayeredWindowAttributes(HWND handle, COLORREF* key, BYTE* alpha, DWORD* flags) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandleOrError(handle);
  if (!window || !(window->exStyle & WS_EX_LAYERED) || !window->layerFlags) return FALSE;
  if (key) *key = window->layerKey;
  if (alpha) *alpha = window->layerAlpha;
  if (flags) *flags = window->layerFlags;
  return TRUE;
}
