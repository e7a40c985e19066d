// The message queue of a thread: sent and posted messages, input, timers, focus and hooks.
#pragma once

#include <array>
#include <condition_variable>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "user/window.h"

namespace desktop {

// A message sent from another thread.
struct SentMessage {
  HWND window;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  std::shared_ptr<Queue> sender;  // null: nobody waits
  LRESULT result = 0;
  bool done = false;    // handled or replied to
  bool failed = false;  // the window or its thread has gone
};

// A mouse or keyboard event before it has found its window.
struct InputEvent {
  unsigned long long id = 0;
  UINT message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;  // of a key
  BYTE key = 0;       // the exact key (VK_LSHIFT...), or the mouse button's
  POINT point{};
  DWORD time = 0;
  ULONG_PTR extra = 0;
};

struct Timer {
  HWND window;
  UINT_PTR id;
  UINT period;
  TIMERPROC proc;
  unsigned long long due;
  unsigned long long order;  // of equals, the one that was set first comes first
  UINT message;              // WM_TIMER or WM_SYSTIMER
};

struct Hook {
  HHOOK handle;
  int id;
  HOOKPROC proc;
  bool removed = false;
};

struct TrackedMouse {
  HWND window = nullptr;
  DWORD flags = 0;
  DWORD hoverTime = 0;
  POINT hoverPoint{};
  unsigned long long hoverDue = 0;
};

struct Caret {
  HWND window = nullptr;
  int x = 0, y = 0, width = 0, height = 0;
  HBITMAP bitmap = nullptr;
  int hideCount = 1;
};

struct Click {
  UINT message = 0;
  HWND window = nullptr;
  DWORD time = 0;
  POINT point{};
};

struct Queue {
  DWORD thread = 0;
  bool dead = false;
  bool waiting = false;
  std::condition_variable wake;
  unsigned long long deadline = ~0ull;  // of a wait with a time limit

  std::deque<std::shared_ptr<SentMessage>> sent;
  std::vector<std::shared_ptr<SentMessage>> receiving;  // innermost last
  std::deque<MSG> posted;
  bool quit = false;
  int exitCode = 0;
  std::deque<InputEvent> input;
  std::vector<Timer> timers;
  UINT changed = 0;  // QS_ bits since the last GetQueueStatus

  HWND active = nullptr;
  HWND focus = nullptr;
  HWND capture = nullptr;
  HWND moveSize = nullptr;
  std::array<BYTE, 256> keys{};
  HCURSOR cursor = nullptr;
  int cursorCount = 0;
  Caret caret;
  TrackedMouse tracked;
  Click click;

  std::array<std::vector<std::shared_ptr<Hook>>, 16> hooks;  // by id + 1, newest last
  std::vector<Hook*> runningHooks;

  DWORD messageTime = 0;
  POINT messagePoint{};
  LPARAM extraInfo = 0;
  int emptyPeeks = 0;
  WCHAR highSurrogate = 0;
};

// The queue of the calling thread, made when there is none.
std::shared_ptr<Queue>& MyQueue();
std::shared_ptr<Queue> QueueOfThread(DWORD thread);
const std::vector<std::shared_ptr<Queue>>& AllQueues();
// The queue whose active window is the foreground window, or null.
std::shared_ptr<Queue>& ForegroundQueue();

void SetChanged(Queue& queue, UINT bits);
// Answers all messages that other threads have sent to this one. Lock not held.
void ReceiveSent();
// Gives up the lock until something arrives for the queue or real time has passed (0: no limit).
void WaitForWork(Queue& queue, unsigned realMilliseconds);

// Puts input into the queue that shall see it.
void PostInput(const std::shared_ptr<Queue>& queue, const InputEvent& event);
// What a thread asks for with GetMessageW and PeekMessageW.
struct Filter {
  HWND window = nullptr;
  UINT first = 0;
  UINT last = 0;
  UINT flags = PM_REMOVE;
  bool Takes(UINT message) const { return (!first && !last) || (message >= first && message <= last); }
  bool Removes() const { return flags & PM_REMOVE; }
};

// Makes the message for an input event that is due. May send messages. Lock not held.
enum class InputOutcome { deliver, drop, leave };
InputOutcome MakeMouseMessage(const InputEvent& event, MSG& msg, const Filter& filter);
InputOutcome MakeKeyMessage(const InputEvent& event, MSG& msg, const Filter& filter);
// The mouse has left a tracked window, or rests in it: posts what was asked for. Lock held.
void CheckTrackedMouse(Queue& queue);
// Adopts what an input event does to the keys as the thread sees them.
void ApplyKeys(Queue& queue, const InputEvent& event);
bool MatchesFilter(HWND window, HWND filter);

// Timers. Lock held.
Timer* DueTimer(Queue& queue, const Filter& filter);
// The next moment at which something of the queue falls due; ~0 if never.
unsigned long long NextDue(const Queue& queue);
void ForgetTimers(HWND window);
void SetSystemTimer(HWND window, UINT_PTR id, UINT period);
void KillSystemTimer(HWND window, UINT_PTR id);

// Sends a message to a window of any thread; like SendMessageW but for inner use. Lock not held.
inline LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(window, message, wParam, lParam);
}

// Hooks of the calling thread. Lock not held.
bool HasHook(int id);
LRESULT CallHooks(int id, int code, WPARAM wParam, LPARAM lParam);

// A window is gone: its queue forgets it. Lock held.
void QueueForgetsWindow(HWND window);
void ResetQueues();

}  // namespace desktop
