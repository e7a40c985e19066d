// Messages sent, within a thread and between threads.
#include <algorithm>
#include <chrono>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

struct Target {
  WNDPROC proc = nullptr;
  bool hooked = false;
};

LRESULT CallHooked(WNDPROC proc, HWND window, UINT message, WPARAM wParam, LPARAM lParam, bool fromOther) {
  CWPSTRUCT before{lParam, wParam, message, window};
  CallHooks(WH_CALLWNDPROC, HC_ACTION, !fromOther, reinterpret_cast<LPARAM>(&before));
  const LRESULT result = proc(window, message, wParam, lParam);
  CWPRETSTRUCT after{result, lParam, wParam, message, window};
  CallHooks(WH_CALLWNDPROCRET, HC_ACTION, !fromOther, reinterpret_cast<LPARAM>(&after));
  return result;
}

bool WantsCallHooks(const Queue& queue) {
  return !queue.hooks[WH_CALLWNDPROC + 1].empty() || !queue.hooks[WH_CALLWNDPROCRET + 1].empty();
}

LRESULT CallTarget(const Target& target, HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                   bool fromOther) {
  if (target.hooked) return CallHooked(target.proc, window, message, wParam, lParam, fromOther);
  return target.proc(window, message, wParam, lParam);
}

// Keeps the record of messages in reception right also when a window procedure throws.
class Reception {
 public:
  Reception(Queue& queue, std::shared_ptr<SentMessage> message) : m_queue(queue), m_message(message) {
    m_queue.receiving.push_back(std::move(message));
  }
  ~Reception() {
    WorldLock lock(WorldMutex());
    std::erase(m_queue.receiving, m_message);
    if (m_message->done) return;
    m_message->done = true;
    m_message->result = result;
    if (m_message->sender) SetChanged(*m_message->sender, 0);
  }
  LRESULT result = 0;

 private:
  Queue& m_queue;
  std::shared_ptr<SentMessage> m_message;
};

std::shared_ptr<SentMessage> TakeSent(Queue& queue, Target& target) {
  while (!queue.sent.empty()) {
    auto message = queue.sent.front();
    queue.sent.pop_front();
    const Window* window = FromHandle(message->window);
    if (window && !message->done) {
      target = {window->proc, WantsCallHooks(queue)};
      return message;
    }
  }
  return nullptr;
}

std::shared_ptr<SentMessage> QueueSent(Window& window, UINT message, WPARAM wParam, LPARAM lParam,
                                       std::shared_ptr<Queue> sender) {
  auto sent = std::make_shared<SentMessage>();
  sent->window = window.handle;
  sent->message = message;
  sent->wParam = wParam;
  sent->lParam = lParam;
  sent->sender = std::move(sender);
  window.queue->sent.push_back(sent);
  SetChanged(*window.queue, QS_SENDMESSAGE);
  return sent;
}

// Waits for the answer; meanwhile answers what others send to this thread, unless that is blocked.
bool AwaitAnswer(const std::shared_ptr<SentMessage>& sent, UINT flags, UINT timeout, bool limited) {
  using namespace std::chrono;
  const auto end = steady_clock::now() + milliseconds(timeout);
  for (;;) {
    if (!(flags & SMTO_BLOCK)) ReceiveSent();
    WorldLock lock(WorldMutex());
    if (sent->done) return !sent->failed;
    Queue& queue = *MyQueue();
    if (!(flags & SMTO_BLOCK) && !queue.sent.empty()) continue;
    const auto left = duration_cast<milliseconds>(end - steady_clock::now()).count();
    if (limited && left <= 0) {
      sent->sender = nullptr;
      SetLastError(ERROR_TIMEOUT);
      return false;
    }
    WaitForWork(queue, limited ? static_cast<unsigned>(left) : 0);
  }
}

bool SendAcross(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT timeout,
                bool limited, LRESULT* result) {
  std::shared_ptr<SentMessage> sent;
  {
    WorldLock lock(WorldMutex());
    Window* target = FromHandleOrError(window);
    if (!target) return false;
    sent = QueueSent(*target, message, wParam, lParam, MyQueue());
  }
  if (!AwaitAnswer(sent, flags, timeout, limited)) return false;
  *result = sent->result;
  return true;
}

// True if the window is of this thread; then target is what to call.
enum class Where { nowhere, here, elsewhere };
Where Locate(HWND window, Target& target) {
  WorldLock lock(WorldMutex());
  const Window* found = FromHandleOrError(window);
  if (!found) return Where::nowhere;
  const Queue* queue = MyQueue().get();
  if (found->queue && found->queue.get() != queue) return Where::elsewhere;
  target = {found->proc, WantsCallHooks(*queue)};
  return Where::here;
}

std::vector<HWND> BroadcastTargets() {
  WorldLock lock(WorldMutex());
  std::vector<HWND> targets;
  for (const Window* window = DesktopWindow()->firstChild; window; window = window->below)
    if ((window->style & (WS_POPUP | WS_CHILD)) != WS_CHILD) targets.push_back(window->handle);
  return targets;
}

}  // namespace

void ReceiveSent() {
  for (;;) {
    Target target;
    std::shared_ptr<SentMessage> message;
    std::shared_ptr<Queue> queue;
    {
      WorldLock lock(WorldMutex());
      queue = MyQueue();
      if (queue->sent.empty()) return;
      message = TakeSent(*queue, target);
      if (!message) return;
    }
    Reception reception(*queue, message);
    reception.result =
        CallTarget(target, message->window, message->message, message->wParam, message->lParam, true);
  }
}

}  // namespace desktop

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window == HWND_BROADCAST) {
    for (HWND target : BroadcastTargets()) SendMessageW(target, message, wParam, lParam);
    return TRUE;
  }
  Target target;
  switch (Locate(window, target)) {
    case Where::nowhere: return 0;
    case Where::here: return CallTarget(target, window, message, wParam, lParam, false);
    case Where::elsewhere: break;
  }
  LRESULT result = 0;
  return SendAcross(window, message, wParam, lParam, SMTO_NORMAL, 0, false, &result) ? result : 0;
}

LRESULT WINAPI SendMessageTimeoutW(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                                   UINT timeout, DWORD_PTR* result) {
  LRESULT answer = 0;
  bool ok = true;
  if (window == HWND_BROADCAST) {
    for (HWND target : BroadcastTargets())
      SendMessageTimeoutW(target, message, wParam, lParam, flags, timeout, nullptr);
    answer = 1;
  } else {
    Target target;
    switch (Locate(window, target)) {
      case Where::nowhere: return 0;
      case Where::here: answer = CallTarget(target, window, message, wParam, lParam, false); break;
      case Where::elsewhere:
        ok = SendAcross(window, message, wParam, lParam, flags, timeout, true, &answer);
        break;
    }
  }
  if (ok && result) *result = static_cast<DWORD_PTR>(answer);
  return ok;
}

BOOL WINAPI SendNotifyMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window == HWND_BROADCAST) {
    for (HWND target : BroadcastTargets()) SendNotifyMessageW(target, message, wParam, lParam);
    return TRUE;
  }
  Target target;
  switch (Locate(window, target)) {
    case Where::nowhere: return FALSE;
    case Where::here: CallTarget(target, window, message, wParam, lParam, false); return TRUE;
    case Where::elsewhere: break;
  }
  WorldLock lock(WorldMutex());
  Window* found = FromHandleOrError(window);
  if (!found) return FALSE;
  QueueSent(*found, message, wParam, lParam, nullptr);
  return TRUE;
}

LRESULT WINAPI CallWindowProcW(WNDPROC proc, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return proc ? proc(window, message, wParam, lParam) : 0;
}

BOOL WINAPI ReplyMessage(LRESULT result) {
  WorldLock lock(WorldMutex());
  Queue& queue = *MyQueue();
  if (queue.receiving.empty()) return FALSE;
  SentMessage& message = *queue.receiving.back();
  if (message.done) return FALSE;
  message.done = true;
  message.result = result;
  if (message.sender) SetChanged(*message.sender, 0);
  return TRUE;
}

DWORD WINAPI InSendMessageEx(LPVOID) {
  WorldLock lock(WorldMutex());
  const Queue& queue = *MyQueue();
  if (queue.receiving.empty()) return ISMEX_NOSEND;
  const SentMessage& message = *queue.receiving.back();
  return (message.sender ? ISMEX_SEND : ISMEX_NOTIFY) | (message.done ? ISMEX_REPLIED : 0);
}

BOOL WINAPI InSendMessage() {
  return (InSendMessageEx(nullptr) & (ISMEX_REPLIED | ISMEX_SEND)) == ISMEX_SEND;
}
