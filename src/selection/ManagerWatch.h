// Tells an operation of a selection manager whether the manager outlived a hook. Internal.
#pragma once

#include "../core/VornComCtlApi.h"

class CVornTreeSelection;

namespace vorn {

// Lives on the stack of one operation. Hooks may delete the manager (a change of the selection type, the
// end of a document or of the control); after each hook the operation asks here before it goes on.
class VORNCOMCTL_API ManagerWatch {
 public:
  explicit ManagerWatch(const CVornTreeSelection* manager);
  ~ManagerWatch();
  ManagerWatch(const ManagerWatch&) = delete;
  ManagerWatch& operator=(const ManagerWatch&) = delete;

  bool IsAlive() const { return m_pManager != nullptr; }
  explicit operator bool() const { return IsAlive(); }

  // The manager is being destroyed.
  static void Forget(const CVornTreeSelection* manager);

 private:
  const CVornTreeSelection* m_pManager;
  ManagerWatch* m_pOuter;
  ManagerWatch* m_pInner = nullptr;
};

}  // namespace vorn
