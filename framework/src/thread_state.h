// What the framework keeps per thread, and once per process. Private to the framework.
#pragma once

#include "afxstat_.h"

#include <array>
#include <cstddef>
#include <memory>

class CWinThread;
class CWnd;

namespace framework {

// Base of the tables that map handles to their wrapper objects. Concrete tables stand with the wrappers.
class HandleTable {
 public:
  HandleTable() = default;
  virtual ~HandleTable() = default;
  HandleTable(const HandleTable&) = delete;
  HandleTable& operator=(const HandleTable&) = delete;
  // Deletes the temporary wrappers that nobody may use any longer; runs at idle.
  virtual void DeleteTemporary() = 0;
};

enum class HandleKind { Window, Menu, DeviceContext, GdiObject, ImageList, Count };

struct ThreadState {
  AFX_MODULE_STATE* moduleState = nullptr;  // null: the program's
  CWinThread* thread = nullptr;             // the object that runs this thread, if there is one
  std::array<std::unique_ptr<HandleTable>, static_cast<size_t>(HandleKind::Count)> tables;

  std::unique_ptr<HandleTable>& TableOf(HandleKind kind) { return tables[static_cast<size_t>(kind)]; }

  // Windows: the message being handled, the window under creation and the hook that waits for it.
  MSG lastMessage = {};
  CWnd* windowBeingCreated = nullptr;
  HHOOK creationHook = nullptr;
  HHOOK messageFilterHook = nullptr;
  CWnd* alternateMainWindow = nullptr;
  HWND routingFrame = nullptr;
  HWND exchangingDialog = nullptr;  // inside UpdateData, whose notifications are not for handlers
  int temporaryLock = 0;            // above 0: temporary wrappers stay (see AfxLockTempMaps)

  // The loop: what the last idle-relevant mouse message was.
  MSG messageOfLoop = {};
  POINT lastMousePosition = {};
  UINT lastMouseMessage = 0;
};

// The calling thread's state; made at its first use and destroyed when the thread ends.
ThreadState& CurrentThread();
// The same, or null if this thread has none (or no longer has).
ThreadState* CurrentThreadIfAny() noexcept;

// Dialogs, menus and scroll bars have loops of their own: between these two calls the thread's
// CWinThread sees their messages (ProcessMessageFilter).
void BeginMessageFilter();
void EndMessageFilter();

}  // namespace framework
