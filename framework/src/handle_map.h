// From handles to the objects that wrap them. Private to the framework.
#pragma once

#include "thread_state.h"

#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>

namespace framework {

// An object that is never destroyed: other objects ask for it while the process ends.
template <class T>
class Immortal {
 public:
  Immortal() { ::new (static_cast<void*>(m_storage)) T; }
  T& operator*() { return *std::launder(reinterpret_cast<T*>(m_storage)); }

 private:
  alignas(T) unsigned char m_storage[sizeof(T)];
};

// Who owns a handle. One map for the process, since an object may go on another thread than it came on,
// but an owner is found only in the thread in which it took the handle over.
template <class Object, class Handle>
class OwnerMap {
 public:
  // The newest owner counts: an earlier one was left behind when its handle was freed behind its back.
  // False if memory is short.
  bool Add(Handle handle, Object* object) noexcept {
    try {
      const std::lock_guard lock(m_mutex);
      m_owners.insert_or_assign(handle, Owner{object, ::GetCurrentThreadId()});
      return true;
    } catch (const std::bad_alloc&) {
      return false;
    }
  }

  void Remove(Handle handle, const Object* object) noexcept {
    const std::lock_guard lock(m_mutex);
    const auto place = m_owners.find(handle);
    if (place != m_owners.end() && place->second.object == object) m_owners.erase(place);
  }

  Object* Find(Handle handle) const noexcept {
    const std::lock_guard lock(m_mutex);
    const auto place = m_owners.find(handle);
    if (place == m_owners.end() || place->second.thread != ::GetCurrentThreadId()) return nullptr;
    return place->second.object;
  }

  // The handle that object owns; the object itself is not touched and may be gone.
  Handle HandleOf(const Object* object) const noexcept {
    const std::lock_guard lock(m_mutex);
    for (const auto& [handle, owner] : m_owners) {
      if (owner.object == object) return handle;
    }
    return Handle{};
  }

 private:
  struct Owner {
    Object* object;
    DWORD thread;
  };

  mutable std::mutex m_mutex;
  std::unordered_map<Handle, Owner> m_owners;
};

// The temporary wrappers of one thread. A handle may have one per wrapper class, since a handle that is freed
// and given out again can change its kind.
template <class Object, class Handle, Handle Object::*Member>
class TemporaryTable final : public HandleTable {
 public:
  TemporaryTable() = default;
  ~TemporaryTable() override { DeleteTemporary(); }

  // Null if memory is short.
  template <class Kind>
  Kind* Get(Handle handle) noexcept {
    const Key key{handle, RUNTIME_CLASS(Kind)};
    try {
      std::unique_ptr<Object>& place = m_wrappers[key];
      if (place == nullptr) {
        place.reset(new (std::nothrow) Kind);
        if (place == nullptr) {
          m_wrappers.erase(key);
          return nullptr;
        }
      }
      (*place).*Member = handle;
      return static_cast<Kind*>(place.get());
    } catch (const std::bad_alloc&) {
      return nullptr;
    }
  }

  void DeleteTemporary() override {
    for (auto& [key, wrapper] : m_wrappers) (*wrapper).*Member = nullptr;
    m_wrappers.clear();
  }

 private:
  struct Key {
    Handle handle;
    const CRuntimeClass* kind;
    bool operator==(const Key&) const = default;
  };
  struct Hash {
    size_t operator()(const Key& key) const noexcept {
      return std::hash<const void*>()(key.handle) * 31 + std::hash<const void*>()(key.kind);
    }
  };

  std::unordered_map<Key, std::unique_ptr<Object>, Hash> m_wrappers;
};

// The table of this thread, made at its first use; null if memory is short.
template <class Table>
Table* TableOfThread(HandleKind kind) noexcept {
  std::unique_ptr<HandleTable>& place = CurrentThread().TableOf(kind);
  if (place == nullptr) place.reset(new (std::nothrow) Table);
  return static_cast<Table*>(place.get());
}

// Frees the temporary wrappers of one kind in this thread.
inline void DeleteTemporaryOf(HandleKind kind) noexcept {
  ThreadState* const state = CurrentThreadIfAny();
  if (state == nullptr) return;
  if (HandleTable* const table = state->TableOf(kind).get()) table->DeleteTemporary();
}

}  // namespace framework
