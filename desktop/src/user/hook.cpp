// Hooks of the calling thread.
#include <algorithm>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

ULONG_PTR g_nextHook = 0x10001;

using Hooks = std::vector<std::shared_ptr<Hook>>;

// Marks a hook as running, also when it throws: CallNextHookEx goes on from the innermost.
class Running {
 public:
  Running(Queue& queue, Hook* hook) : m_queue(queue) { m_queue.runningHooks.push_back(hook); }
  ~Running() { m_queue.runningHooks.pop_back(); }

 private:
  Queue& m_queue;
};

LRESULT CallHook(const std::shared_ptr<Hook>& hook, int code, WPARAM wParam, LPARAM lParam) {
  Queue* queue;
  {
    WorldLock lock(WorldMutex());
    queue = MyQueue().get();
  }
  Running running(*queue, hook.get());
  return hook->proc(code, wParam, lParam);
}

// The hook that comes after one, towards the oldest; the newest when there is none before.
std::shared_ptr<Hook> Next(const Hooks& hooks, const Hook* before) {
  auto it = hooks.rbegin();
  if (before) {
    it = std::find_if(hooks.rbegin(), hooks.rend(), [before](const auto& h) { return h.get() == before; });
    if (it != hooks.rend()) ++it;
  }
  while (it != hooks.rend() && (*it)->removed) ++it;
  return it == hooks.rend() ? nullptr : *it;
}

bool IsHookId(int id) {
  switch (id) {
    case WH_MSGFILTER:
    case WH_KEYBOARD:
    case WH_GETMESSAGE:
    case WH_CALLWNDPROC:
    case WH_CBT:
    case WH_MOUSE:
    case WH_FOREGROUNDIDLE:
    case WH_CALLWNDPROCRET: return true;
    default: return false;
  }
}

// The place of a hook's list in its queue; the lowest id is -1.
size_t SlotOf(int id) {
  const int slot = id + 1;
  return static_cast<size_t>(slot);
}

}  // namespace

bool HasHook(int id) {
  WorldLock lock(WorldMutex());
  return !MyQueue()->hooks[SlotOf(id)].empty();
}

LRESULT CallHooks(int id, int code, WPARAM wParam, LPARAM lParam) {
  std::shared_ptr<Hook> hook;
  {
    WorldLock lock(WorldMutex());
    hook = Next(MyQueue()->hooks[SlotOf(id)], nullptr);
  }
  return hook ? CallHook(hook, code, wParam, lParam) : 0;
}

}  // namespace desktop

HHOOK WINAPI SetWindowsHookExW(int id, HOOKPROC proc, HINSTANCE, DWORD thread) {
  if (!proc) {
    SetLastError(ERROR_INVALID_FILTER_PROC);
    return nullptr;
  }
  if (!IsHookId(id)) {
    SetLastError(ERROR_INVALID_HOOK_FILTER);
    return nullptr;
  }
  WorldLock lock(WorldMutex());
  if (FailsHere()) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  const auto queue = !thread || thread == GetCurrentThreadId() ? MyQueue() : QueueOfThread(thread);
  if (!queue) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  auto hook = std::make_shared<Hook>();
  hook->handle = reinterpret_cast<HHOOK>(g_nextHook += 2);
  hook->id = id;
  hook->proc = proc;
  queue->hooks[SlotOf(id)].push_back(hook);
  return hook->handle;
}

BOOL WINAPI UnhookWindowsHookEx(HHOOK handle) {
  WorldLock lock(WorldMutex());
  for (const auto& queue : AllQueues()) {
    for (Hooks& hooks : queue->hooks) {
      const auto it = std::find_if(hooks.begin(), hooks.end(),
                                   [handle](const auto& hook) { return hook->handle == handle; });
      if (it == hooks.end()) continue;
      (*it)->removed = true;
      hooks.erase(it);
      return TRUE;
    }
  }
  SetLastError(ERROR_INVALID_HOOK_HANDLE);
  return FALSE;
}

LRESULT WINAPI CallNextHookEx(HHOOK, int code, WPARAM wParam, LPARAM lParam) {
  std::shared_ptr<Hook> hook;
  {
    WorldLock lock(WorldMutex());
    const Queue& queue = *MyQueue();
    if (queue.runningHooks.empty()) return 0;
    const Hook* current = queue.runningHooks.back();
    const Hooks& hooks = queue.hooks[SlotOf(current->id)];
    const bool known =
        std::any_of(hooks.begin(), hooks.end(), [current](const auto& h) { return h.get() == current; });
    // A hook that removed itself before passing on has no place in the chain any more: start anew.
    hook = Next(hooks, known ? current : nullptr);
  }
  return hook ? CallHook(hook, code, wParam, lParam) : 0;
}

BOOL WINAPI CallMsgFilterW(LPMSG msg, int code) {
  if (!HasHook(WH_MSGFILTER)) return FALSE;
  return CallHooks(WH_MSGFILTER, code, 0, reinterpret_cast<LPARAM>(msg)) != 0;
}
