// The virtual clock. It stands still while a thread works; a thread that sleeps, or that waits for messages
// with a timer pending, moves it on.
#include <algorithm>
#include <chrono>
#include <thread>

#include "desktop/desktop.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

// Not 0: a program may take a tick of 0 for 'never'.
constexpr unsigned long long kStart = 100000;
unsigned long long g_now = kStart;

// A program that looks at the time again and again waits for it to pass.
constexpr unsigned kLooksPerTick = 256;
unsigned g_looks = 0;

unsigned long long Look() {
  WorldLock lock(WorldMutex());
  if (++g_looks % kLooksPerTick == 0) MoveClock(g_now + 1);
  return g_now;
}

}  // namespace

unsigned long long ClockNow() { return g_now; }
DWORD ClockTicks() { return static_cast<DWORD>(g_now); }

void MoveClock(unsigned long long to) {
  if (to <= g_now) return;
  g_now = to;
  for (const auto& queue : AllQueues())
    if (NextDue(*queue) <= g_now) queue->wake.notify_all();
}

void ResetClock() {
  g_now = kStart;
  g_looks = 0;
}

unsigned long long Now() {
  WorldLock lock(WorldMutex());
  return g_now - kStart;
}

void AdvanceClock(DWORD milliseconds) {
  WorldLock lock(WorldMutex());
  MoveClock(g_now + milliseconds);
}

}  // namespace desktop

void WINAPI Sleep(DWORD milliseconds) {
  bool alone;
  {
    WorldLock lock(WorldMutex());
    g_looks = 0;
    MyQueue();
    alone = AllQueues().size() <= 1;
    if (milliseconds != INFINITE) MoveClock(g_now + milliseconds);
  }
  if (milliseconds == INFINITE) {
    for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
  }
  // Others get their turn: a loop of short sleeps often waits for another thread.
  if (!alone) std::this_thread::sleep_for(std::chrono::microseconds(milliseconds ? 200 : 0));
}

DWORD WINAPI GetTickCount() { return static_cast<DWORD>(Look()); }

ULONGLONG WINAPI GetTickCount64() { return Look(); }

BOOL WINAPI QueryPerformanceCounter(LARGE_INTEGER* count) {
  if (!count) {
    SetLastError(ERROR_NOACCESS);
    return FALSE;
  }
  count->QuadPart = static_cast<LONGLONG>(Look() * 10000);
  return TRUE;
}

BOOL WINAPI QueryPerformanceFrequency(LARGE_INTEGER* frequency) {
  if (!frequency) {
    SetLastError(ERROR_NOACCESS);
    return FALSE;
  }
  frequency->QuadPart = 10000000;
  return TRUE;
}
