#include "thread_state.h"

namespace framework {

namespace {

// Trivially destructible, so that it may be asked even while the thread's other objects go.
thread_local constinit ThreadState* t_state = nullptr;

struct Owner {
  ThreadState state;
  Owner() { t_state = &state; }
  ~Owner() {
    // Tables may ask for the state while they go; whoever asks later gets none.
    for (auto& table : state.tables) table.reset();
    t_state = nullptr;
  }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
};

// A thread that still works in its last static destructors gets a state that stays.
ThreadState& LastResort() {
  static ThreadState* const state = new ThreadState;
  return *state;
}

thread_local constinit bool t_owned = false;

}  // namespace

ThreadState& CurrentThread() {
  if (t_state != nullptr) return *t_state;
  if (t_owned) return LastResort();
  t_owned = true;
  thread_local Owner owner;
  return owner.state;
}

ThreadState* CurrentThreadIfAny() noexcept { return t_state; }

}  // namespace framework
