// The order in which sorting by name leaves the children of an item. Internal.
#pragma once

#include <vector>

class CVornTreeItem;

namespace vorn {

// The order that comes of taking the items one by one and putting each, by binary search for its label
// without letter case, into the row of those before it: in front of the equal label that the search
// meets, if it meets one. Computed in n log n steps.
// Throws std::bad_alloc when memory is short.
std::vector<CVornTreeItem*> OrderByName(const std::vector<CVornTreeItem*>& items);

}  // namespace vorn
