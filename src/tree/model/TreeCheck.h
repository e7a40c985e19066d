// The invariant walker: looks whether a control's items and selection managers hang together. Internal.
//
// Tests call it where they like. A library built with VORN_CHECK_TREES also calls it by itself, at the end
// of every operation that changes a tree, and ends the program at the first thing that is wrong.
#pragma once

#include <cstddef>

#include "../../core/VornComCtlApi.h"

class CVornTreeCtrl;

namespace vorn {

// Links both ways, levels, counts of descendants, sentinels, and that managers hold nothing that is gone.
// exactRows: the counts of rows, too, which some operations are meant to leave inexact.
// True if all is well; otherwise wrong (size bytes) tells the first thing that is not.
VORNCOMCTL_API bool IsTreeSound(const CVornTreeCtrl& tree, bool exactRows, char* wrong, size_t size);

// Lives as long as an operation that changes the tree. Only the outermost one checks, when it ends: what a
// hook calls may find a selection half done. Large trees are checked once in a while, so that the cost of
// checking stays a small part of what an operation costs anyway.
#ifdef VORN_CHECK_TREES
class OperationCheck {
 public:
  explicit OperationCheck(const CVornTreeCtrl* tree);
  ~OperationCheck();
  OperationCheck(const OperationCheck&) = delete;
  OperationCheck& operator=(const OperationCheck&) = delete;

  // The control ends: there is nothing left to look at.
  static void Forget(const CVornTreeCtrl* tree);

 private:
  const CVornTreeCtrl* m_pTree;
  OperationCheck* m_pOuter;
};
#else
class OperationCheck {
 public:
  explicit OperationCheck(const CVornTreeCtrl*) {}
  ~OperationCheck() {}  // not trivial, so that nothing is called unused
  static void Forget(const CVornTreeCtrl*) {}
};
#endif

}  // namespace vorn
