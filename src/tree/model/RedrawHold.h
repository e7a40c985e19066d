// Layout and painting held back for the time of one operation. Internal.
#pragma once

#include "../VornTreeCtrl.h"

namespace vorn {

class RedrawHold {
 public:
  explicit RedrawHold(CVornTreeCtrl* tree) : m_pTree(tree) { m_pTree->SetRedraw(FALSE); }
  ~RedrawHold() { m_pTree->SetRedraw(TRUE); }
  RedrawHold(const RedrawHold&) = delete;
  RedrawHold& operator=(const RedrawHold&) = delete;

 private:
  CVornTreeCtrl* m_pTree;
};

}  // namespace vorn
