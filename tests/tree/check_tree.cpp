#include "tree/test_tree.h"

#include "tree/model/VornTreeItem.h"

namespace support {

namespace {

// The tests' own look at the magic word.
bool IsAlive(const CVornTreeItem* item) { return item != nullptr && item->m_nMagic == CVornTreeItem::kMagic; }

struct Sums {
  unsigned int descendants = 0;
  int rows = 0;
};

class Checker {
 public:
  Checker(CVornTreeCtrl& tree, bool exactRows) : m_tree(tree), m_exactRows(exactRows) {}

  std::string Run() {
    CVornTreeItem* const root = m_tree.GetRootItem();
    if (root == nullptr) return "";
    if (!IsAlive(root)) return "the root is dead";
    if (root->m_nLevel != 0 || root->m_pParent != nullptr) return "the root is not on top";
    Visit(root);
    return m_wrong;
  }

 private:
  void Wrong(const CVornTreeItem* item, const std::string& what) {
    if (m_wrong.empty()) m_wrong = "'" + Narrow(item->m_strText) + "': " + what;
  }

  // Depth is that of the tests' scenes: recursion will do.
  Sums Visit(CVornTreeItem* item) {
    Sums sums;
    const CVornTreeItem* before = nullptr;
    for (CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      if (!IsAlive(child)) {
        Wrong(item, "has a dead child");
        return sums;
      }
      if (child->m_pPrevSibling != before) Wrong(child, "previous sibling is another");
      if (child->m_pParent != item) Wrong(child, "parent is another");
      if (child->m_pTree != &m_tree) Wrong(child, "control is another");
      if (child->m_nLevel != item->m_nLevel + 1) Wrong(child, "level is wrong");
      if (!m_wrong.empty()) return sums;
      const Sums below = Visit(child);
      sums.descendants += below.descendants + 1;
      if (!(child->m_nState & STIS_HIDDEN)) sums.rows += below.rows + 1;
      before = child;
    }
    if (item->m_pLastChild != before) Wrong(item, "last child is another");
    if (item->m_nDescendants != sums.descendants) Wrong(item, "count of descendants is wrong");
    if (!(item->m_nState & STIS_EXPANDED)) sums.rows = 0;
    if (m_exactRows && item->m_nVisibleDescendants != sums.rows) {
      Wrong(item, "count of rows is " + std::to_string(item->m_nVisibleDescendants) + ", not " +
                      std::to_string(sums.rows));
    }
    return sums;
  }

  CVornTreeCtrl& m_tree;
  bool m_exactRows;
  std::string m_wrong;
};

}  // namespace

std::string CheckTree(CVornTreeCtrl& tree, bool exactRows) { return Checker(tree, exactRows).Run(); }

}  // namespace support
