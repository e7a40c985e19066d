#include "user/queue.h"

#include <algorithm>
#include <chrono>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

std::vector<std::shared_ptr<Queue>>& Queues() {
  static auto& queues = *new std::vector<std::shared_ptr<Queue>>;
  return queues;
}

void FailWaitingSenders(Queue& queue) {
  const auto fail = [](const std::shared_ptr<SentMessage>& message) {
    if (message->done) return;
    message->done = message->failed = true;
    if (message->sender) message->sender->wake.notify_all();
  };
  for (const auto& message : queue.sent) fail(message);
  for (const auto& message : queue.receiving) fail(message);
  queue.sent.clear();
}

// Windows do not outlive their thread.
void CloseQueue(const std::shared_ptr<Queue>& queue) {
  WorldLock lock(WorldMutex());
  if (queue->dead) return;
  queue->dead = true;
  // A window takes its children along: handles tell which ones are still there.
  std::vector<HWND> windows;
  for (const Window* window : AllWindows())
    if (window->queue == queue) windows.push_back(window->handle);
  for (const HWND handle : windows)
    if (Window* window = FromHandle(handle)) DestroyQuietly(window);
  FailWaitingSenders(*queue);
  queue->posted.clear();
  queue->input.clear();
  queue->timers.clear();
  std::erase(Queues(), queue);
  if (ForegroundQueue() == queue) ForegroundQueue() = nullptr;
  for (const auto& other : Queues()) other->wake.notify_all();
}

struct QueueHolder {
  std::shared_ptr<Queue> queue;
  ~QueueHolder() {
    if (queue) CloseQueue(queue);
  }
};

}  // namespace

std::shared_ptr<Queue>& MyQueue() {
  static thread_local QueueHolder holder;
  if (!holder.queue || holder.queue->dead) {
    holder.queue = std::make_shared<Queue>();
    holder.queue->thread = GetCurrentThreadId();
    Queues().push_back(holder.queue);
  }
  return holder.queue;
}

const std::vector<std::shared_ptr<Queue>>& AllQueues() { return Queues(); }

std::shared_ptr<Queue> QueueOfThread(DWORD thread) {
  for (const auto& queue : Queues())
    if (queue->thread == thread) return queue;
  return nullptr;
}

std::shared_ptr<Queue>& ForegroundQueue() {
  static auto& queue = *new std::shared_ptr<Queue>;
  return queue;
}

void SetChanged(Queue& queue, UINT bits) {
  queue.changed |= bits;
  queue.waiting = false;
  queue.wake.notify_all();
}

void WaitForWork(Queue& queue, unsigned realMilliseconds) {
  std::unique_lock<std::mutex> lock(WorldMutex().native(), std::adopt_lock);
  queue.waiting = true;
  if (realMilliseconds) {
    queue.wake.wait_for(lock, std::chrono::milliseconds(realMilliseconds));
  } else {
    queue.wake.wait(lock);
  }
  queue.waiting = false;
  lock.release();
}

void QueueForgetsWindow(HWND window) {
  for (const auto& queue : Queues()) {
    std::erase_if(queue->posted, [window](const MSG& msg) { return msg.hwnd == window; });
    if (queue->active == window) queue->active = nullptr;
    if (queue->focus == window) queue->focus = nullptr;
    if (queue->capture == window) queue->capture = nullptr;
    if (queue->moveSize == window) queue->moveSize = nullptr;
    if (queue->caret.window == window) queue->caret = {};
    if (queue->tracked.window == window) queue->tracked = {};
    if (queue->click.window == window) queue->click = {};
    for (const auto& message : queue->sent) {
      if (message->window != window || message->done) continue;
      message->done = message->failed = true;
      if (message->sender) message->sender->wake.notify_all();
    }
    std::erase_if(queue->sent, [](const auto& message) { return message->failed; });
  }
  ForgetTimers(window);
}

void ResetQueues() {
  for (const auto& queue : Queues()) {
    FailWaitingSenders(*queue);
    queue->posted.clear();
    queue->input.clear();
    queue->timers.clear();
    for (auto& hooks : queue->hooks) hooks.clear();
    queue->quit = false;
    queue->changed = 0;
    queue->active = queue->focus = queue->capture = queue->moveSize = nullptr;
    queue->keys.fill(0);
    queue->cursor = nullptr;
    queue->cursorCount = 0;
    queue->caret = {};
    queue->tracked = {};
    queue->click = {};
    queue->messageTime = 0;
    queue->messagePoint = {};
    queue->extraInfo = 0;
    queue->emptyPeeks = 0;
  }
  ForegroundQueue() = nullptr;
}

bool MatchesFilter(HWND window, HWND filter) {
  if (!filter) return true;
  if (reinterpret_cast<LONG_PTR>(filter) == -1 || reinterpret_cast<LONG_PTR>(filter) == 1) return !window;
  if (!window) return false;
  const Window* outer = FromHandle(filter);
  const Window* inner = FromHandle(window);
  return outer && inner && IsDescendant(outer, inner);
}

}  // namespace desktop
