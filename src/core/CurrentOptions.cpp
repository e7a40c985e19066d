#include "CurrentOptions.h"

#include "VornFunctions.h"

static CVornTreeOptions* gCurrentOptions = nullptr;

CVornTreeOptions* AfxGetVornTreeOptions() { return gCurrentOptions; }

namespace vorn {

void SetCurrentOptions(CVornTreeOptions* options) { gCurrentOptions = options; }

}  // namespace vorn
