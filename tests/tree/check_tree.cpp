#include "tree/model/TreeCheck.h"
#include "tree/test_tree.h"

namespace support {

std::string CheckTree(CVornTreeCtrl& tree, bool exactRows) {
  char wrong[256];
  return vorn::IsTreeSound(tree, exactRows, wrong, sizeof(wrong)) ? "" : wrong;
}

}  // namespace support
