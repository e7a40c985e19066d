// What the files of the window part ask of each other beyond windows and queues.
#pragma once

#include <algorithm>

#include <windows.h>

#include "user/queue.h"
#include "user/window.h"

#define WM_SYSTIMER 0x0118
#define DCX_USESTYLE 0x00010000
#define SWP_NOCLIENTSIZE 0x0800
#define SWP_NOCLIENTMOVE 0x1000
#define SWP_STATECHANGED 0x8000

namespace desktop {

// Coordinates of windows and parts of them are kept within bounds that no sum of theirs leaves.
constexpr int kFar = 1 << 22;
inline int Near(int coordinate) { return std::clamp(coordinate, -kFar, kFar); }
inline POINT Near(POINT point) { return {Near(point.x), Near(point.y)}; }
inline RECT Near(const RECT& rect) {
  return {Near(rect.left), Near(rect.top), Near(rect.right), Near(rect.bottom)};
}

// --- clock. Lock held.
unsigned long long ClockNow();
DWORD ClockTicks();
// Moves the clock and wakes the threads that wait for it.
void MoveClock(unsigned long long to);
void ResetClock();

// --- painting. Lock held.
// The visible part of a window in its own coordinates (DCX_WINDOW) or client coordinates.
Region VisibleRegion(Window* window, DWORD dcxFlags);
// Adds a part (in window coordinates) to what waits for paint. Flags are RDW_.
void Redraw(Window* window, const Region& part, bool frame, UINT flags);
// Children are taken along too; whole window when part is null.
void RedrawAll(Window* window, UINT flags);
bool NeedsPaint(const Window* window);
// The first window of the thread that waits for WM_PAINT and passes the filter, or null.
Window* WindowToPaint(const Queue& queue, HWND filter);
// The surface that the window draws into (its top-level window's), made when there is none, and the place
// of the window's top left corner in it.
std::shared_ptr<Surface> SurfaceOf(Window* window, POINT* origin);
// Windows have moved, appeared or gone: DCs that are out learn their new targets.
void RetargetDCs();
void DropDCs(Window* window);
// Copies pixels within a surface; overlapping allowed.
void MovePixels(Surface& surface, const RECT& from, int dx, int dy, const Region& within);

// Lock not held.
void EraseNow(HWND window, UINT rdwFlags);
void UpdateNow(HWND window, UINT rdwFlags);
void PaintFrame(HWND window, HRGN clip);

// --- position. Lock not held.
bool ApplyPosition(HWND window, HWND after, int x, int y, int cx, int cy, UINT flags);
// The rectangles that WM_NCCALCSIZE has decided, set without messages. Lock held.
void SetRects(Window* window, const RECT& rect, const RECT& client);
MINMAXINFO AskMinMax(HWND window);
UINT MinMaximize(HWND window, UINT command, RECT* rect);

// --- non-client. Lock not held unless it says so.
LRESULT DefNcCalcSize(HWND window, WPARAM wParam, LPARAM lParam);
LRESULT DefNcHitTest(HWND window, POINT point);
LRESULT DefNcPaint(HWND window, HRGN clip);
LRESULT DefNcButtonDown(HWND window, WPARAM hit, LPARAM point);
LRESULT DefNcDoubleClick(HWND window, WPARAM hit, LPARAM point);
LRESULT DefSysCommand(HWND window, WPARAM wParam, LPARAM lParam);
void SizeMoveLoop(HWND window, WPARAM command);
void ScrollBarLoop(HWND window, int bar, POINT screenPoint);
// Frame widths without scroll bars and menu. Lock held or not.
void AdjustForFrame(RECT& rect, DWORD style, DWORD exStyle);
// Fills what the frame of a window looks like into its window DC, within the clip (screen coordinates).
void PaintNonClient(HWND window, HRGN clip);
void PaintScrollBars(HWND window, HDC dc);
void ResetDCs();
void ResetWindowTable();
void ResetCaretBlink();
SIZE FrameSize(DWORD style, DWORD exStyle);
inline bool HasCaption(DWORD style) { return (style & WS_CAPTION) == WS_CAPTION; }
// Scroll bar rectangle in window coordinates; empty without that bar. Lock held.
RECT ScrollBarRect(const Window* window, int bar);
void PaintScrollBar(HWND window, HDC dc, int bar, int pressed, bool thumbMoved, int thumbPos);
// The bar control (class "ScrollBar") shares the parts.
ScrollBar* BarOf(Window* window, int bar);
// The parts of a bar along its length, in pixels from its start.
struct BarLayout {
  int length = 0;
  int arrow = 0;       // length of an arrow button
  int thumbStart = 0;  // 0 with a length of 0: no thumb
  int thumbLength = 0;
};
BarLayout LayOutBar(const RECT& rect, const ScrollBar& bar, bool horizontal);
// The position that a thumb at this place means.
int PosOfThumb(const BarLayout& layout, const ScrollBar& bar, int thumbStart);
// nTrackPos: where the thumb is being dragged, or the position. Lock held.
int TrackedPos(HWND window, int bar);
void ResetTracking();

// --- focus. Lock not held.
bool MakeActive(HWND window, HWND* previous, bool byMouse, bool withFocus);
bool MakeForeground(HWND window, bool byMouse);
void SetFocusTo(HWND window);
void ActivateOther(HWND window);
// Sets the capture; the flag tells a menu or size loop's own.
HWND SetCaptureTo(HWND window);

// --- mouse. Lock not held.
// The deepest window under a point, asked with WM_NCHITTEST; hit is its answer.
HWND WindowAt(HWND root, POINT point, int* hit);
// The same without messages. Lock held.
Window* WindowAtQuietly(POINT point);
bool ContainsPoint(const Window* window, POINT screenPoint);
void MoveCursor(POINT to);
POINT CursorPos();
void ResetInput();
void ForgetInput(HWND window);
void HideCaretForPaint(HWND window);
BYTE AsyncKey(int key);
std::array<BYTE, 256>& AsyncKeys();

// --- metrics.
int Metric(int index);
COLORREF SystemColor(int index);
void ResetMetrics();

// --- destruction. Lock not held: sends nothing.
void DestroyQuietly(Window* window);
// Sends WM_NCDESTROY, from children to parents; each window ends with its own. Not under the lock.
void Finish(HWND handle);

// --- parents.
void NotifyParent(HWND window, UINT event);
bool SendStyleChange(HWND window, int index, DWORD value, DWORD* old);

}  // namespace desktop
