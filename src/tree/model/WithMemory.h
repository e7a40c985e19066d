// Steps that need memory and may not get it. Internal.
#pragma once

#include <afxwin.h>

#include <new>

namespace vorn {

// Runs a step that copies texts or fills arrays. False when memory is short; step must then leave nothing
// behind.
template <class Step>
bool RunWithMemory(Step step) {
  try {
    step();
    return true;
  } catch (CException* exception) {
    exception->Delete();
  } catch (const std::bad_alloc&) {
  }
  return false;
}

}  // namespace vorn
