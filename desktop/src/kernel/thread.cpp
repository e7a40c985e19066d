// Threads, events, waits, critical sections, thread-local slots.
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include <windows.h>

#include "objects.h"
#include "world.h"

namespace desktop {

namespace {

// What threads and events have in common: a state that is waited for.
class Signal : public KernelObject {
 public:
  Signal(bool manualReset, bool set) : m_manualReset(manualReset), m_set(set) {}
  bool CanWait() const override { return true; }

  bool Wait(DWORD milliseconds) override {
    std::unique_lock lock(m_mutex);
    const auto isSet = [this] { return m_set; };
    if (milliseconds == INFINITE)
      m_changed.wait(lock, isSet);
    else if (!m_changed.wait_for(lock, std::chrono::milliseconds(milliseconds), isSet))
      return false;
    if (!m_manualReset) m_set = false;
    return true;
  }

  void Set(bool set) {
    const std::lock_guard lock(m_mutex);
    m_set = set;
    if (set) m_changed.notify_all();
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  const bool m_manualReset;
  bool m_set;
};

class Event : public Signal {
 public:
  using Signal::Signal;
};

class Thread : public Signal {
 public:
  Thread(LPTHREAD_START_ROUTINE start, LPVOID param) : Signal(true, false), m_start(start), m_param(param) {}

  // Body of the thread; holds the object until it is over.
  static void Run(const std::shared_ptr<Thread>& self, Signal& started, DWORD& id) {
    id = GetCurrentThreadId();
    started.Set(true);
    self->m_resumed.Wait(INFINITE);
    const DWORD code = self->m_start(self->m_param);
    {
      const std::lock_guard lock(self->m_mutex);
      self->m_exitCode = code;
    }
    self->Set(true);
  }

  DWORD Resume() {
    const std::lock_guard lock(m_mutex);
    m_resumed.Set(true);
    return std::exchange(m_suspended, 0u);
  }
  void StartSuspended() { m_suspended = 1; }
  DWORD ExitCode() {
    const std::lock_guard lock(m_mutex);
    return m_exitCode;
  }

 private:
  const LPTHREAD_START_ROUTINE m_start;
  const LPVOID m_param;
  Signal m_resumed{true, false};
  std::mutex m_mutex;
  DWORD m_exitCode = STILL_ACTIVE;
  DWORD m_suspended = 0;
};

std::map<HANDLE, std::shared_ptr<KernelObject>>& Handles() {
  static auto& handles = *new std::map<HANDLE, std::shared_ptr<KernelObject>>;
  return handles;
}

// Runs body on a thread of its own. reserve: bytes of stack; 0 leaves them to the system.
bool StartThread(SIZE_T reserve, std::function<void()> body) {
  constexpr SIZE_T kGranularity = 64 * 1024;
  pthread_attr_t attributes;
  if (pthread_attr_init(&attributes) != 0) return false;
  pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
  if (reserve != 0) {
    pthread_attr_setstacksize(&attributes, (reserve + kGranularity - 1) / kGranularity * kGranularity);
  }
  auto owned = std::make_unique<std::function<void()>>(std::move(body));
  const auto run = [](void* param) -> void* {
    const std::unique_ptr<std::function<void()>> toRun(static_cast<std::function<void()>*>(param));
    (*toRun)();
    return nullptr;
  };
  pthread_t thread;
  const bool started = pthread_create(&thread, &attributes, run, owned.get()) == 0;
  pthread_attr_destroy(&attributes);
  if (started) static_cast<void>(owned.release());
  return started;
}

}  // namespace

bool KernelObject::Wait(DWORD) { return true; }

HANDLE NewHandle(std::shared_ptr<KernelObject> object) {
  WorldLock lock(WorldMutex());
  // Multiples of four, and none twice while the program runs, so that a stale one is known.
  static ULONG_PTR next = 0x100;
  const auto handle = reinterpret_cast<HANDLE>(next += 4);
  Handles()[handle] = std::move(object);
  return handle;
}

bool DropHandle(HANDLE handle) {
  std::shared_ptr<KernelObject> last;  // dies after the lock is released
  WorldLock lock(WorldMutex());
  const auto found = Handles().find(handle);
  if (found == Handles().end()) return false;
  last = std::move(found->second);
  Handles().erase(found);
  return true;
}

std::shared_ptr<KernelObject> ObjectFromHandle(HANDLE handle) {
  WorldLock lock(WorldMutex());
  const auto found = Handles().find(handle);
  if (found != Handles().end()) return found->second;
  SetLastError(ERROR_INVALID_HANDLE);
  return nullptr;
}

}  // namespace desktop

using desktop::Event;
using desktop::NewHandle;
using desktop::ObjectAs;
using desktop::Signal;
using desktop::Thread;

DWORD GetCurrentThreadId() {
  thread_local const auto id = static_cast<DWORD>(syscall(SYS_gettid));
  return id;
}

DWORD GetCurrentProcessId() { return static_cast<DWORD>(getpid()); }

HANDLE GetCurrentProcess() { return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)); }

HANDLE GetCurrentThread() { return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-2)); }

void ExitProcess(UINT exitCode) { std::exit(static_cast<int>(exitCode)); }

HANDLE CreateThread(LPSECURITY_ATTRIBUTES, SIZE_T stackSize, LPTHREAD_START_ROUTINE start, LPVOID param,
                    DWORD flags, LPDWORD threadId) {
  if (!start) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  const auto thread = std::make_shared<Thread>(start, param);
  if (flags & CREATE_SUSPENDED)
    thread->StartSuspended();
  else
    thread->Resume();
  Signal started(true, false);
  DWORD id = 0;
  const SIZE_T reserve = flags & STACK_SIZE_PARAM_IS_A_RESERVATION ? stackSize : 0;
  if (!desktop::StartThread(reserve, [thread, &started, &id] { Thread::Run(thread, started, id); })) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  started.Wait(INFINITE);
  if (threadId) *threadId = id;
  return NewHandle(thread);
}

DWORD ResumeThread(HANDLE thread) {
  const auto object = ObjectAs<Thread>(thread);
  return object ? object->Resume() : static_cast<DWORD>(-1);
}

BOOL GetExitCodeThread(HANDLE thread, LPDWORD exitCode) {
  const auto object = ObjectAs<Thread>(thread);
  if (object) *exitCode = object->ExitCode();
  return object != nullptr;
}

HANDLE CreateEventW(LPSECURITY_ATTRIBUTES, BOOL manualReset, BOOL initialState, LPCWSTR name) {
  if (name) {
    SetLastError(ERROR_NOT_SUPPORTED);
    return nullptr;
  }
  SetLastError(NO_ERROR);
  return NewHandle(std::make_shared<Event>(manualReset != FALSE, initialState != FALSE));
}

BOOL SetEvent(HANDLE event) {
  const auto object = ObjectAs<Event>(event);
  if (object) object->Set(true);
  return object != nullptr;
}

BOOL ResetEvent(HANDLE event) {
  const auto object = ObjectAs<Event>(event);
  if (object) object->Set(false);
  return object != nullptr;
}

DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds) {
  const auto waited = desktop::ObjectFromHandle(object);
  if (!waited || !waited->CanWait()) {
    SetLastError(ERROR_INVALID_HANDLE);
    return WAIT_FAILED;
  }
  return waited->Wait(milliseconds) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

BOOL CloseHandle(HANDLE object) {
  if (object == GetCurrentProcess() || object == GetCurrentThread()) return TRUE;
  if (desktop::DropHandle(object)) return TRUE;
  SetLastError(ERROR_INVALID_HANDLE);
  return FALSE;
}

void InitializeCriticalSection(LPCRITICAL_SECTION section) { section->impl = new std::recursive_mutex; }

BOOL InitializeCriticalSectionAndSpinCount(LPCRITICAL_SECTION section, DWORD) {
  InitializeCriticalSection(section);
  return TRUE;
}

void DeleteCriticalSection(LPCRITICAL_SECTION section) {
  delete static_cast<std::recursive_mutex*>(std::exchange(section->impl, nullptr));
}

void EnterCriticalSection(LPCRITICAL_SECTION section) {
  static_cast<std::recursive_mutex*>(section->impl)->lock();
}

BOOL TryEnterCriticalSection(LPCRITICAL_SECTION section) {
  return static_cast<std::recursive_mutex*>(section->impl)->try_lock();
}

void LeaveCriticalSection(LPCRITICAL_SECTION section) {
  static_cast<std::recursive_mutex*>(section->impl)->unlock();
}

namespace {

constexpr DWORD kTlsSlots = 1088;

// Which slots are taken. A slot that is taken anew starts with null in every thread: each use has a number.
std::array<unsigned, kTlsSlots> g_tlsUse{};
std::array<bool, kTlsSlots> g_tlsTaken{};
unsigned g_tlsUses = 0;

struct TlsValue {
  unsigned use = 0;
  LPVOID value = nullptr;
};
thread_local std::array<TlsValue, kTlsSlots> t_tls;

}  // namespace

DWORD TlsAlloc() {
  desktop::WorldLock lock(desktop::WorldMutex());
  for (DWORD i = 0; i < kTlsSlots; ++i) {
    if (g_tlsTaken[i]) continue;
    g_tlsTaken[i] = true;
    g_tlsUse[i] = ++g_tlsUses;
    return i;
  }
  SetLastError(ERROR_NO_MORE_ITEMS);
  return TLS_OUT_OF_INDEXES;
}

BOOL TlsFree(DWORD index) {
  desktop::WorldLock lock(desktop::WorldMutex());
  if (index >= kTlsSlots || !g_tlsTaken[index]) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  g_tlsTaken[index] = false;
  return TRUE;
}

LPVOID TlsGetValue(DWORD index) {
  if (index >= kTlsSlots) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  SetLastError(NO_ERROR);
  desktop::WorldLock lock(desktop::WorldMutex());
  return t_tls[index].use == g_tlsUse[index] ? t_tls[index].value : nullptr;
}

BOOL TlsSetValue(DWORD index, LPVOID value) {
  if (index >= kTlsSlots) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  desktop::WorldLock lock(desktop::WorldMutex());
  t_tls[index] = {g_tlsUse[index], value};
  return TRUE;
}
