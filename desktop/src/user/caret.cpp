// The caret and the cursor's shape.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

// Draws the caret by inverting; a second call takes it away.
void Invert(const Caret& caret) {
  const HDC dc = GetDCEx(caret.window, nullptr, DCX_USESTYLE | DCX_CACHE);
  if (!dc) return;
  PatBlt(dc, caret.x, caret.y, caret.width, caret.height, DSTINVERT);
  ReleaseDC(caret.window, dc);
}

bool Shows(const Caret& caret) { return caret.window && caret.hideCount == 0; }

Caret Current() {
  WorldLock lock(WorldMutex());
  return MyQueue()->caret;
}

void Replace(const Caret& caret) {
  WorldLock lock(WorldMutex());
  MyQueue()->caret = caret;
}

}  // namespace

void HideCaretForPaint(HWND window) { HideCaret(window); }

}  // namespace desktop

BOOL WINAPI CreateCaret(HWND handle, HBITMAP bitmap, int width, int height) {
  {
    WorldLock lock(WorldMutex());
    if (!FromHandleOrError(handle)) return FALSE;
    if (FailsHere()) {
      SetLastError(ERROR_NOT_ENOUGH_MEMORY);
      return FALSE;
    }
  }
  const Caret old = Current();
  if (Shows(old)) Invert(old);
  Caret caret;
  caret.window = handle;
  caret.width = width ? width : Metric(SM_CXBORDER);
  caret.height = height ? height : Metric(SM_CYBORDER);
  BITMAP info{};
  if (reinterpret_cast<ULONG_PTR>(bitmap) > 1 && GetObjectW(bitmap, sizeof(info), &info)) {
    caret.bitmap = bitmap;
    caret.width = info.bmWidth;
    caret.height = std::abs(info.bmHeight);
  }
  Replace(caret);
  return TRUE;
}

BOOL WINAPI DestroyCaret() {
  const Caret caret = Current();
  if (!caret.window) return FALSE;
  if (Shows(caret) && IsWindow(caret.window)) Invert(caret);
  Replace({});
  return TRUE;
}

BOOL WINAPI ShowCaret(HWND handle) {
  Caret caret = Current();
  if (!caret.window || (handle && handle != caret.window)) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
  }
  if (caret.hideCount == 0) return TRUE;
  --caret.hideCount;
  Replace(caret);
  if (Shows(caret)) Invert(caret);
  return TRUE;
}

BOOL WINAPI HideCaret(HWND handle) {
  Caret caret = Current();
  if (!caret.window || (handle && handle != caret.window)) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
  }
  if (Shows(caret)) Invert(caret);
  ++caret.hideCount;
  Replace(caret);
  return TRUE;
}

BOOL WINAPI SetCaretPos(int x, int y) {
  Caret caret = Current();
  if (!caret.window) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
  }
  if (caret.x == x && caret.y == y) return TRUE;
  if (Shows(caret)) Invert(caret);
  caret.x = x;
  caret.y = y;
  Replace(caret);
  if (Shows(caret)) Invert(caret);
  return TRUE;
}

BOOL WINAPI GetCaretPos(LPPOINT point) {
  if (!point) return FALSE;
  const Caret caret = Current();
  *point = {caret.x, caret.y};
  return TRUE;
}

HCURSOR WINAPI SetCursor(HCURSOR cursor) {
  WorldLock lock(WorldMutex());
  return std::exchange(MyQueue()->cursor, cursor);
}

HCURSOR WINAPI GetCursor() {
  WorldLock lock(WorldMutex());
  return MyQueue()->cursor;
}

int WINAPI ShowCursor(BOOL show) {
  WorldLock lock(WorldMutex());
  Queue& queue = *MyQueue();
  queue.cursorCount += show ? 1 : -1;
  return queue.cursorCount;
}
