// Whose options AfxGetVornTreeOptions gives. Internal.
#pragma once

class CVornTreeOptions;

namespace vorn {

// Null: nobody's.
void SetCurrentOptions(CVornTreeOptions* options);

}  // namespace vorn
