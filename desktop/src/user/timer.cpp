#include <algorithm>

#include "user/live.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

constexpr UINT kSlowest = USER_TIMER_MAXIMUM;
unsigned long long g_order = 0;

UINT_PTR FreeId(const Queue& queue) {
  UINT_PTR id = 0x7fff;
  const auto taken = [&queue](UINT_PTR wanted) {
    return std::any_of(queue.timers.begin(), queue.timers.end(),
                       [wanted](const Timer& timer) { return !timer.window && timer.id == wanted; });
  };
  while (taken(id)) --id;
  return id;
}

void PutTimer(Queue& queue, HWND window, UINT_PTR id, UINT period, TIMERPROC proc, UINT message) {
  std::erase_if(queue.timers, [=](const Timer& timer) {
    return timer.window == window && timer.id == id && timer.message == message;
  });
  queue.timers.push_back({window, id, period, proc, ClockNow() + period, g_order++, message});
}

bool TakeAway(Queue& queue, HWND window, UINT_PTR id, UINT message) {
  return std::erase_if(queue.timers, [=](const Timer& timer) {
    return timer.window == window && timer.id == id && timer.message == message;
  });
}

// The queue that has the timers of a window; null if the window is none.
std::shared_ptr<Queue> QueueFor(HWND window) {
  if (!window) return MyQueue();
  const Window* found = FromHandleOrError(window);
  return found ? found->queue : nullptr;
}

}  // namespace

Timer* DueTimer(Queue& queue, const Filter& filter) {
  Timer* first = nullptr;
  for (Timer& timer : queue.timers) {
    if (timer.due > ClockNow() || !filter.Takes(timer.message)) continue;
    if (!MatchesFilter(timer.window, filter.window)) continue;
    if (!first || timer.due < first->due || (timer.due == first->due && timer.order < first->order))
      first = &timer;
  }
  return first;
}

unsigned long long NextDue(const Queue& queue) {
  unsigned long long due = queue.deadline;
  for (const Timer& timer : queue.timers) due = std::min(due, timer.due);
  if (queue.tracked.window && (queue.tracked.flags & TME_HOVER)) due = std::min(due, queue.tracked.hoverDue);
  return due;
}

void ForgetTimers(HWND window) {
  for (const auto& queue : AllQueues())
    std::erase_if(queue->timers, [window](const Timer& timer) { return timer.window == window; });
}

void SetSystemTimer(HWND window, UINT_PTR id, UINT period) {
  const auto queue = QueueFor(window);
  if (queue) PutTimer(*queue, window, id, period, nullptr, WM_SYSTIMER);
}

void KillSystemTimer(HWND window, UINT_PTR id) {
  const auto queue = QueueFor(window);
  if (queue) TakeAway(*queue, window, id, WM_SYSTIMER);
}

int LiveTimers() {
  size_t count = 0;
  for (const auto& queue : AllQueues()) {
    count += static_cast<size_t>(std::count_if(queue->timers.begin(), queue->timers.end(),
                                               [](const Timer& timer) { return timer.message == WM_TIMER; }));
  }
  return static_cast<int>(count);
}

}  // namespace desktop

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT elapse, TIMERPROC proc) {
  WorldLock lock(WorldMutex());
  if (FailsHere()) {
    SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    return 0;
  }
  const auto queue = QueueFor(window);
  if (!queue) return 0;
  if (!window) {
    const bool known = std::any_of(queue->timers.begin(), queue->timers.end(), [id](const Timer& timer) {
      return !timer.window && timer.id == id && timer.message == WM_TIMER;
    });
    if (!known) id = FreeId(*queue);
  }
  const UINT period = std::clamp<UINT>(elapse, USER_TIMER_MINIMUM, kSlowest);
  PutTimer(*queue, window, id, period, proc, WM_TIMER);
  // A thread that waits without a time limit has to look at the clock again.
  if (queue != MyQueue()) SetChanged(*queue, 0);
  return id ? id : 1;
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id) {
  WorldLock lock(WorldMutex());
  const auto queue = QueueFor(window);
  if (!queue) return FALSE;
  // A message of the timer that was not read yet goes with it: none was made before it was asked for.
  return TakeAway(*queue, window, id, WM_TIMER);
}
