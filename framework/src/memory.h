// Shortage of memory, as the framework tells it. Private to the framework.
#pragma once

#include "afx.h"

#include <new>

namespace framework {

// Runs the work; where the language's library runs out of memory, the framework's exception is raised.
template <class Work>
auto WithMemory(Work work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
  }
  AfxThrowMemoryException();
}

}  // namespace framework
