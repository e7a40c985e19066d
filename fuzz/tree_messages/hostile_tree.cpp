#include "hostile_tree.h"

namespace fuzz {

void HostileTree::InitializeItemFont(CVornTreeItem* item) {
  if (Answer() != 0) CVornTreeCtrl::InitializeItemFont(item);
}

int HostileTree::IsAllow(CVornTreeItem* item, unsigned long permission) {
  return Answer() != 0 ? CVornTreeCtrl::IsAllow(item, permission) : 0;
}

int HostileTree::OnClearSelection(CVornTreeItem* item) {
  return Answer() != 0 ? CVornTreeCtrl::OnClearSelection(item) : 0;
}

}  // namespace fuzz
