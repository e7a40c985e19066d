// Kernel objects behind the handles of CreateFileW, CreateThread, CreateEventW and FindFirstFileW.
#pragma once

#include <memory>

#include <windows.h>

namespace desktop {

// The handles own their object: a thread or a wait may keep it longer.
class KernelObject {
 public:
  virtual ~KernelObject() = default;
  // Waits in real time. False when the time is over first.
  virtual bool Wait(DWORD milliseconds);
  virtual bool CanWait() const { return false; }
};

HANDLE NewHandle(std::shared_ptr<KernelObject> object);
bool DropHandle(HANDLE handle);
// The object behind a handle, or null with ERROR_INVALID_HANDLE.
std::shared_ptr<KernelObject> ObjectFromHandle(HANDLE handle);

template <typename T>
std::shared_ptr<T> ObjectAs(HANDLE handle) {
  auto object = std::dynamic_pointer_cast<T>(ObjectFromHandle(handle));
  if (!object) SetLastError(ERROR_INVALID_HANDLE);
  return object;
}

}  // namespace desktop
