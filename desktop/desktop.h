// Side doors of the in-memory desktop, for tests: reset, pictures, failure injection, counts.
// Nothing here exists on Windows.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

namespace desktop {

// Puts everything back to how a program finds it at its start: destroys all windows of all threads
// (without a message: their threads may be gone), frees all graphics objects, menus and image lists,
// forgets window classes that were not of the system, hooks, timers, posted messages and recorded
// calls; the clock, the cursor, the keys and the system colours take their first values.
// Not to be called while a window procedure or hook runs.
DESKTOP_API void Reset();

// Writes the screen (all visible top-level windows in z-order, caret and cursor left out) or one
// window with its frame as a PNG file. False if the file cannot be written or the window is none.
DESKTOP_API bool SaveScreenPng(const char* path);
DESKTOP_API bool SaveWindowPng(HWND window, const char* path);

// Makes the nth call from now (1 = the next) that creates a window, DC, graphics object, menu, image
// list, timer or loads a resource fail as for want of memory. 0 switches it off. Counting starts anew.
DESKTOP_API void FailNthCall(long n);
// How many such calls were seen since FailNthCall.
DESKTOP_API long CallsSeen();

// Makes the nth call of operator new from now throw std::bad_alloc (the program must link
// VornDesktopAllocProbe). Allocations of the desktop itself do not count. 0 switches it off.
DESKTOP_API void FailNthAllocation(long n);
// How many allocations were seen since FailNthAllocation, while it is switched on.
DESKTOP_API long AllocationsSeen();
// For the replaced operator new, called from caller: true when this allocation is to fail.
DESKTOP_API bool AllocationFailsHere(const void* caller);

// Counts how often each pixel of a window's client area lies in the area of a drawing operation on the
// screen, from here to StopCountingWrites: a paint without flicker has no count above 1. False if the
// window is none. The window must neither move nor change its size meanwhile.
DESKTOP_API bool StartCountingWrites(HWND window);
// The counts, row by row; none if nothing was counted.
DESKTOP_API std::vector<unsigned> StopCountingWrites();

// What is alive, for leak tests. Stock objects, the desktop window and system classes do not count.
struct LiveCounts {
  int windows;
  int gdiObjects;
  int dcs;
  int timers;
  int menus;
  int imageLists;
};
DESKTOP_API LiveCounts CountLive();

// Virtual milliseconds since the start (or Reset), and a push of the clock by hand. Timers that
// become due are delivered by the next GetMessageW or PeekMessageW of their threads.
DESKTOP_API unsigned long long Now();
DESKTOP_API void AdvanceClock(DWORD milliseconds);

// One call of ShellExecuteW.
struct ShellCall {
  HWND window;
  std::wstring operation;
  std::wstring file;
  std::wstring parameters;
  std::wstring directory;
  int show;
};
// The calls since the start, the last Reset or the last ClearShellCalls.
DESKTOP_API std::vector<ShellCall> ShellCalls();
DESKTOP_API void ClearShellCalls();

}  // namespace desktop
