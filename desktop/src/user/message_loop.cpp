// Posting and retrieving messages.
#include <algorithm>
#include <chrono>
#include <thread>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

// A program that peeks and peeks without success waits for time to pass.
constexpr int kPatientPeeks = 1000;

void FillTime(MSG& msg) {
  msg.time = ClockTicks();
  msg.pt = CursorPos();
}

bool TakePosted(Queue& queue, const Filter& filter, MSG& msg) {
  for (auto it = queue.posted.begin(); it != queue.posted.end(); ++it) {
    if (!filter.Takes(it->message) || !MatchesFilter(it->hwnd, filter.window)) continue;
    msg = *it;
    if (filter.Removes()) queue.posted.erase(it);
    return true;
  }
  return false;
}

bool TakeQuit(Queue& queue, const Filter& filter, MSG& msg) {
  if (!queue.quit) return false;
  msg = {};
  msg.message = WM_QUIT;
  msg.wParam = static_cast<WPARAM>(queue.exitCode);
  FillTime(msg);
  if (filter.Removes()) queue.quit = false;
  return true;
}

bool IsMouse(UINT message) { return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST; }

// Whether any message that the event may become passes the filter.
bool MayTake(const Filter& filter, const InputEvent& event) {
  if (filter.Takes(event.message)) return true;
  if (IsMouse(event.message)) {
    const UINT message = event.message + (WM_NCMOUSEMOVE - WM_MOUSEMOVE);
    return filter.Takes(message) || filter.Takes(message + 2) || filter.Takes(event.message + 2);
  }
  return filter.Takes(event.message ^ (WM_KEYDOWN ^ WM_SYSKEYDOWN));
}

bool TakeInput(const std::shared_ptr<Queue>& queue, const Filter& filter, MSG& msg) {
  unsigned long long passed = 0;  // events up to this id have been looked at
  for (;;) {
    InputEvent event;
    {
      WorldLock lock(WorldMutex());
      const auto next = std::find_if(queue->input.begin(), queue->input.end(), [&](const InputEvent& e) {
        return e.id > passed && MayTake(filter, e);
      });
      if (next == queue->input.end()) return false;
      event = *next;
    }
    passed = event.id;
    const InputOutcome outcome =
        IsMouse(event.message) ? MakeMouseMessage(event, msg, filter) : MakeKeyMessage(event, msg, filter);
    if (outcome == InputOutcome::leave) continue;
    WorldLock lock(WorldMutex());
    if (outcome == InputOutcome::drop || filter.Removes()) {
      std::erase_if(queue->input, [&event](const InputEvent& e) { return e.id == event.id; });
    }
    if (outcome == InputOutcome::drop) continue;
    queue->extraInfo = static_cast<LPARAM>(event.extra);
    return true;
  }
}

bool TakePaint(Queue& queue, const Filter& filter, MSG& msg) {
  if (!filter.Takes(WM_PAINT)) return false;
  Window* window = WindowToPaint(queue, filter.window);
  if (!window) return false;
  msg = {};
  msg.hwnd = window->handle;
  msg.message = WM_PAINT;
  FillTime(msg);
  // An internal paint is asked for once only.
  if (filter.Removes()) window->update.internalPaint = false;
  return true;
}

bool TakeTimer(Queue& queue, const Filter& filter, MSG& msg) {
  Timer* timer = DueTimer(queue, filter);
  if (!timer) return false;
  msg = {};
  msg.hwnd = timer->window;
  msg.message = timer->message;
  msg.wParam = timer->id;
  msg.lParam = reinterpret_cast<LPARAM>(timer->proc);
  FillTime(msg);
  if (filter.Removes()) timer->due = ClockNow() + timer->period;
  return true;
}

UINT Wanted(const Filter& filter) {
  const UINT asked = filter.flags >> 16;
  return asked ? asked : QS_ALLINPUT;
}

bool TakeMessage(const std::shared_ptr<Queue>& queue, const Filter& filter, MSG& msg) {
  const UINT wanted = Wanted(filter);
  {
    // Ahead of the first look: what comes from now on must end the next wait.
    WorldLock lock(WorldMutex());
    queue->changed = 0;
  }
  ReceiveSent();
  {
    WorldLock lock(WorldMutex());
    if ((wanted & QS_POSTMESSAGE) && (TakePosted(*queue, filter, msg) || TakeQuit(*queue, filter, msg)))
      return true;
  }
  if ((wanted & QS_INPUT) && TakeInput(queue, filter, msg)) return true;
  WorldLock lock(WorldMutex());
  CheckTrackedMouse(*queue);
  if ((wanted & QS_POSTMESSAGE) && TakePosted(*queue, filter, msg)) return true;
  if ((wanted & QS_PAINT) && TakePaint(*queue, filter, msg)) return true;
  return (wanted & QS_TIMER) && TakeTimer(*queue, filter, msg);
}

bool Retrieve(LPMSG msg, const Filter& filter) {
  std::shared_ptr<Queue> queue;
  {
    WorldLock lock(WorldMutex());
    queue = MyQueue();
  }
  if (!TakeMessage(queue, filter, *msg)) return false;
  {
    WorldLock lock(WorldMutex());
    queue->messageTime = msg->time;
    queue->messagePoint = msg->pt;
    queue->emptyPeeks = 0;
  }
  if (HasHook(WH_GETMESSAGE))
    CallHooks(WH_GETMESSAGE, HC_ACTION, filter.flags & PM_REMOVE, reinterpret_cast<LPARAM>(msg));
  return true;
}

bool OthersWork(const Queue& mine) {
  for (const auto& queue : AllQueues())
    if (queue.get() != &mine && !queue->waiting) return true;
  return false;
}

// Other threads may still do something now: the clock goes with real time.
void WaitInRealTime(Queue& queue, unsigned long long due) {
  using namespace std::chrono;
  const unsigned long long from = ClockNow();
  const auto start = steady_clock::now();
  WaitForWork(queue, static_cast<unsigned>(std::min<unsigned long long>(due - from, 20)));
  const auto passed = duration_cast<milliseconds>(steady_clock::now() - start).count();
  MoveClock(std::min(due, from + static_cast<unsigned long long>(passed)));
}

// Waits until something changes for the queue or something falls due. Lock held.
void Idle(Queue& queue) {
  if (queue.changed || !queue.sent.empty()) return;
  const unsigned long long due = NextDue(queue);
  if (due <= ClockNow()) return;
  if (due == ~0ull) return WaitForWork(queue, 0);
  if (OthersWork(queue)) return WaitInRealTime(queue, due);
  unsigned long long earliest = due;
  for (const auto& other : AllQueues()) earliest = std::min(earliest, NextDue(*other));
  if (earliest > ClockNow()) return MoveClock(earliest);
  WaitForWork(queue, 1);  // another thread is about to wake up for what is due
}

void NudgeClock(Queue& queue) {
  if (++queue.emptyPeeks < kPatientPeeks || NextDue(queue) == ~0ull || OthersWork(queue)) return;
  MoveClock(ClockNow() + 1);
}

// Messages whose parameters point to what the sender keeps only while it waits.
bool CarriesPointer(UINT message) {
  switch (message) {
    case WM_CREATE:
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_SETTINGCHANGE:
    case WM_GETMINMAXINFO:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_COMPAREITEM:
    case WM_WINDOWPOSCHANGING:
    case WM_WINDOWPOSCHANGED:
    case WM_COPYDATA:
    case WM_NOTIFY:
    case WM_HELP:
    case WM_STYLECHANGING:
    case WM_STYLECHANGED:
    case WM_NCCREATE:
    case WM_NCCALCSIZE:
    case WM_SIZING:
    case WM_MOVING:
    case WM_MDICREATE: return true;
    default: return false;
  }
}

UINT PendingBits(const Queue& queue) {
  UINT bits = 0;
  if (!queue.sent.empty()) bits |= QS_SENDMESSAGE;
  if (!queue.posted.empty()) bits |= QS_POSTMESSAGE | QS_ALLPOSTMESSAGE;
  if (queue.quit) bits |= QS_POSTMESSAGE | QS_ALLPOSTMESSAGE;
  for (const InputEvent& event : queue.input) {
    if (!IsMouse(event.message)) {
      bits |= QS_KEY;
    } else {
      bits |= event.message == WM_MOUSEMOVE ? QS_MOUSEMOVE : QS_MOUSEBUTTON;
    }
  }
  if (WindowToPaint(queue, nullptr)) bits |= QS_PAINT;
  const bool due = std::any_of(queue.timers.begin(), queue.timers.end(),
                               [](const Timer& timer) { return timer.due <= ClockNow(); });
  return due ? bits | QS_TIMER : bits;
}

// Waits until a message of the kinds in mask has come, or the clock has reached the deadline.
bool WaitForBits(UINT mask, unsigned long long deadline, bool onlyNew) {
  for (;;) {
    WorldLock lock(WorldMutex());
    Queue& queue = *MyQueue();
    const UINT pending = PendingBits(queue) & (onlyNew ? queue.changed | QS_TIMER | QS_SENDMESSAGE : ~0u);
    if (pending & mask) return true;
    if (ClockNow() >= deadline) return false;
    if (!queue.sent.empty()) return true;
    queue.changed = 0;
    queue.deadline = deadline;
    Idle(queue);
    queue.deadline = ~0ull;
  }
}

}  // namespace

}  // namespace desktop

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (CarriesPointer(message)) {
    SetLastError(ERROR_MESSAGE_SYNC_ONLY);
    return FALSE;
  }
  WorldLock lock(WorldMutex());
  MSG msg{window, message, wParam, lParam, ClockTicks(), CursorPos()};
  if (!window) {
    MyQueue()->posted.push_back(msg);
    SetChanged(*MyQueue(), QS_POSTMESSAGE | QS_ALLPOSTMESSAGE);
    return TRUE;
  }
  if (window == HWND_BROADCAST) {
    for (const Window* top = DesktopWindow()->firstChild; top; top = top->below) {
      msg.hwnd = top->handle;
      top->queue->posted.push_back(msg);
      SetChanged(*top->queue, QS_POSTMESSAGE | QS_ALLPOSTMESSAGE);
    }
    return TRUE;
  }
  const Window* target = FromHandleOrError(window);
  if (!target) return FALSE;
  if (!target->queue) return TRUE;  // the desktop window: nobody reads there
  if (message == WM_QUIT) {
    target->queue->quit = true;
    target->queue->exitCode = static_cast<int>(wParam);
  } else {
    target->queue->posted.push_back(msg);
  }
  SetChanged(*target->queue, QS_POSTMESSAGE | QS_ALLPOSTMESSAGE);
  return TRUE;
}

BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam) {
  if (CarriesPointer(message)) {
    SetLastError(ERROR_MESSAGE_SYNC_ONLY);
    return FALSE;
  }
  WorldLock lock(WorldMutex());
  if (thread == GetCurrentThreadId()) MyQueue();
  const auto queue = QueueOfThread(thread);
  if (!queue) {
    SetLastError(ERROR_INVALID_THREAD_ID);
    return FALSE;
  }
  queue->posted.push_back({nullptr, message, wParam, lParam, ClockTicks(), CursorPos()});
  SetChanged(*queue, QS_POSTMESSAGE | QS_ALLPOSTMESSAGE);
  return TRUE;
}

void WINAPI PostQuitMessage(int exitCode) {
  WorldLock lock(WorldMutex());
  Queue& queue = *MyQueue();
  queue.quit = true;
  queue.exitCode = exitCode;
  SetChanged(queue, QS_POSTMESSAGE | QS_ALLPOSTMESSAGE);
}

BOOL WINAPI GetMessageW(LPMSG msg, HWND window, UINT first, UINT last) {
  if (!msg) {
    SetLastError(ERROR_NOACCESS);
    return -1;
  }
  {
    WorldLock lock(WorldMutex());
    MyQueue();
    if (!IsSpecial(window) && !FromHandleOrError(window)) return -1;
  }
  const Filter filter{window, first, last, PM_REMOVE};
  while (!Retrieve(msg, filter)) {
    WorldLock lock(WorldMutex());
    Idle(*MyQueue());
  }
  return msg->message != WM_QUIT;
}

BOOL WINAPI PeekMessageW(LPMSG msg, HWND window, UINT first, UINT last, UINT remove) {
  if (!msg) {
    SetLastError(ERROR_NOACCESS);
    return FALSE;
  }
  bool alone;
  {
    WorldLock lock(WorldMutex());
    if (!IsSpecial(window) && !FromHandleOrError(window)) return FALSE;
    MyQueue();
    alone = AllQueues().size() <= 1;
  }
  if (Retrieve(msg, {window, first, last, remove})) return TRUE;
  if (!alone) std::this_thread::yield();
  WorldLock lock(WorldMutex());
  NudgeClock(*MyQueue());
  return FALSE;
}

BOOL WINAPI WaitMessage() {
  WaitForBits(QS_ALLINPUT, ~0ull, true);
  return TRUE;
}

DWORD WINAPI MsgWaitForMultipleObjectsEx(DWORD count, const HANDLE* handles, DWORD milliseconds,
                                         DWORD wakeMask, DWORD flags) {
  // Objects of the kernel live in real time: they are looked at between the turns of the queue.
  const bool limited = milliseconds != INFINITE;
  const bool onlyNew = !(flags & MWMO_INPUTAVAILABLE);
  unsigned long long end;
  {
    WorldLock lock(WorldMutex());
    end = limited ? ClockNow() + milliseconds : ~0ull;
  }
  for (;;) {
    for (DWORD i = 0; i < count; ++i)
      if (WaitForSingleObject(handles[i], 0) == WAIT_OBJECT_0) return WAIT_OBJECT_0 + i;
    unsigned long long until = end;
    if (count) {
      WorldLock lock(WorldMutex());
      until = std::min(end, ClockNow() + 1);
    }
    if (WaitForBits(wakeMask, until, onlyNew)) return WAIT_OBJECT_0 + count;
    WorldLock lock(WorldMutex());
    if (ClockNow() >= end) return WAIT_TIMEOUT;
  }
}

DWORD WINAPI MsgWaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL waitAll, DWORD milliseconds,
                                       DWORD wakeMask) {
  return MsgWaitForMultipleObjectsEx(count, handles, milliseconds, wakeMask, waitAll ? MWMO_WAITALL : 0);
}

LRESULT WINAPI DispatchMessageW(const MSG* msg) {
  if (!msg) return 0;
  const bool timer = msg->message == WM_TIMER || msg->message == WM_SYSTIMER;
  if (timer && msg->lParam) {
    const auto proc = reinterpret_cast<TIMERPROC>(msg->lParam);
    proc(msg->hwnd, msg->message, msg->wParam, GetTickCount());
    return 0;
  }
  if (!msg->hwnd) return 0;
  WNDPROC proc;
  {
    WorldLock lock(WorldMutex());
    const Window* window = FromHandleOrError(msg->hwnd);
    if (!window) return 0;
    if (window->queue && window->queue != MyQueue()) {
      SetLastError(ERROR_WINDOW_OF_OTHER_THREAD);
      return 0;
    }
    proc = window->proc;
  }
  const LRESULT result = proc(msg->hwnd, msg->message, msg->wParam, msg->lParam);
  // A frame or background that WM_PAINT has not asked for is painted now.
  if (msg->message == WM_PAINT && IsWindow(msg->hwnd)) EraseNow(msg->hwnd, RDW_NOCHILDREN);
  return result;
}

DWORD WINAPI GetQueueStatus(UINT flags) {
  WorldLock lock(WorldMutex());
  Queue& queue = *MyQueue();
  const UINT pending = PendingBits(queue);
  const UINT changed = queue.changed & pending;
  queue.changed &= ~flags;
  return static_cast<DWORD>(MAKELONG(changed & flags, pending & flags));
}

BOOL WINAPI GetInputState() {
  WorldLock lock(WorldMutex());
  return (PendingBits(*MyQueue()) & (QS_KEY | QS_MOUSEBUTTON)) != 0;
}

LONG WINAPI GetMessageTime() {
  WorldLock lock(WorldMutex());
  return static_cast<LONG>(MyQueue()->messageTime);
}

DWORD WINAPI GetMessagePos() {
  WorldLock lock(WorldMutex());
  const POINT point = MyQueue()->messagePoint;
  return static_cast<DWORD>(MAKELONG(point.x, point.y));
}

LPARAM WINAPI GetMessageExtraInfo() {
  WorldLock lock(WorldMutex());
  return MyQueue()->extraInfo;
}

LPARAM WINAPI SetMessageExtraInfo(LPARAM param) {
  WorldLock lock(WorldMutex());
  return std::exchange(MyQueue()->extraInfo, param);
}

UINT WINAPI RegisterWindowMessageW(LPCWSTR name) {
  static auto& names = *new std::vector<std::wstring>;
  if (!name || !*name) {
    SetLastError(ERROR_INVALID_NAME);
    return 0;
  }
  WorldLock lock(WorldMutex());
  const std::wstring folded = FoldCase(name);
  const auto found = std::find(names.begin(), names.end(), folded);
  const auto index = static_cast<UINT>(found - names.begin());
  if (found == names.end()) names.push_back(folded);
  return 0xC000 + 0x100 + index;
}
