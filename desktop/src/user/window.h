// The window, the window class and the tables of both. All of this is guarded by the world's lock.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "gdi/region.h"
#include "gdi/surface.h"
#include "gdi/window_dc.h"
#include "world.h"

namespace desktop {

struct Queue;

struct WindowClass {
  std::wstring name;
  ATOM atom = 0;
  UINT style = 0;
  WNDPROC proc = nullptr;
  HINSTANCE instance = nullptr;
  HICON icon = nullptr;
  HICON iconSmall = nullptr;
  HCURSOR cursor = nullptr;
  HBRUSH background = nullptr;
  std::wstring menuName;
  LPCWSTR menuId = nullptr;  // a number instead of a name
  bool hasMenuName = false;
  bool system = false;  // outlives a reset
  int windowExtra = 0;
  std::vector<BYTE> extra;
  int windows = 0;
  HDC dc = nullptr;  // CS_CLASSDC
};

struct ScrollBar {
  int low = 0;
  int high = 100;
  int page = 0;
  int pos = 0;
  UINT disabled = ESB_ENABLE_BOTH;
};

// What a window waits to have painted.
struct UpdateState {
  Region region;  // in coordinates of the whole window
  bool erase = false;
  bool delayedErase = false;  // WM_ERASEBKGND was refused: BeginPaint tells so
  bool nonclient = false;
  bool internalPaint = false;
  bool Any() const { return !region.IsEmpty() || internalPaint; }
};

struct Window {
  HWND handle = nullptr;
  std::shared_ptr<WindowClass> cls;
  std::shared_ptr<Queue> queue;
  WNDPROC proc = nullptr;

  // The tree. Siblings are linked from the top of the z-order to its bottom.
  Window* parent = nullptr;  // the desktop window for a top-level one; null for the desktop itself
  Window* owner = nullptr;
  Window* above = nullptr;
  Window* below = nullptr;
  Window* firstChild = nullptr;
  Window* lastChild = nullptr;

  DWORD style = 0;
  DWORD exStyle = 0;
  LONG_PTR id = 0;  // of a child window
  HMENU menu = nullptr;
  HMENU systemMenu = nullptr;
  HINSTANCE instance = nullptr;
  LONG_PTR userData = 0;
  std::vector<BYTE> extra;
  std::wstring text;
  std::map<std::wstring, HANDLE> properties;
  HICON iconBig = nullptr;
  HICON iconSmall = nullptr;

  // Both in client coordinates of the parent.
  RECT rect{};
  RECT client{};
  RECT menuBar{};  // in coordinates of the whole window
  RECT normalRect{};
  POINT minPos{-1, -1};
  POINT maxPos{-1, -1};
  bool restoreToMaximized = false;

  std::optional<Region> shape;  // SetWindowRgn, in coordinates of the whole window
  ScrollBar horizontal;
  ScrollBar vertical;
  UpdateState update;
  std::shared_ptr<Surface> surface;  // of a top-level window
  HDC ownDC = nullptr;               // CS_OWNDC

  COLORREF layerKey = 0;
  BYTE layerAlpha = 255;
  DWORD layerFlags = 0;

  HWND lastActivePopup = nullptr;
  UINT uiState = 0;
  bool created = false;     // WM_CREATE has succeeded
  bool needsSize = true;    // no WM_SIZE was seen since the creation
  bool destroying = false;  // DestroyWindow has begun
  bool messageOnly = false;
  bool ncActive = false;
  bool showPending = false;

  bool IsChildStyle() const { return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD; }
  int Width() const { return rect.right - rect.left; }
  int Height() const { return rect.bottom - rect.top; }
};

// The window behind a handle, or null; sets ERROR_INVALID_WINDOW_HANDLE when asked to.
Window* FromHandle(HWND handle);
Window* FromHandleOrError(HWND handle);
// The root of all top-level windows; the root of all message-only windows.
Window* DesktopWindow();
Window* MessageRoot();
bool IsDesktop(const Window* window);

// A new window without any relation; null when the table is full.
Window* AllocateWindow();
// Removes it from the tree and from the table and frees it.
void FreeWindow(Window* window);
// Every window but the two roots, for enumeration.
std::vector<Window*> AllWindows();

// Links a window below `after` among the children of parent (HWND_TOP and so on have been resolved by
// the caller): null puts it at the top.
void LinkWindow(Window* window, Window* parent, Window* after);
void UnlinkWindow(Window* window);

// The top-level window that a window is in; itself for a top-level one.
Window* TopLevel(Window* window);
// True if the window and all its ancestors have WS_VISIBLE.
bool IsShown(const Window* window);
bool IsDescendant(const Window* ancestor, const Window* window);
// The handles of the children from the top down.
std::vector<HWND> ChildHandles(HWND parent);

// Top left corner of the client area (of the frame) on the screen.
POINT ClientOrigin(const Window* window);
POINT WindowOrigin(const Window* window);
// The client area in coordinates of the whole window.
RECT ClientInWindow(const Window* window);
RECT WindowOnScreen(const Window* window);
RECT ClientOnScreen(const Window* window);

std::shared_ptr<WindowClass> FindClass(LPCWSTR name, HINSTANCE instance);
std::shared_ptr<WindowClass> DesktopClass();
void ResetClasses();

inline bool IsAtom(LPCWSTR name) { return IS_INTRESOURCE(name); }
std::wstring FoldCase(LPCWSTR text);

// Handles that mean windows without being any.
inline bool IsSpecial(HWND handle) {
  return reinterpret_cast<LONG_PTR>(handle) >= -3 && reinterpret_cast<LONG_PTR>(handle) <= 1;
}

}  // namespace desktop
