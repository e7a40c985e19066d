#include "TreeCheck.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "../../selection/VornTreeMultiSelection.h"
#include "../VornTreeCtrl.h"
#include "VornTreeItem.h"

namespace vorn {

namespace {

std::string LabelOf(const CVornTreeItem* item) {
  std::string label;
  for (const wchar_t* c = item->GetText(); *c != L'\0'; ++c) {
    label += *c < 0x80 ? static_cast<char>(*c) : '?';
  }
  return label;
}

std::string Difference(const char* what, long long is, long long shouldBe) {
  return std::string(what) + " is " + std::to_string(is) + ", not " + std::to_string(shouldBe);
}

}  // namespace

class TreeWalker {
 public:
  TreeWalker(const CVornTreeCtrl& tree, bool exactRows) : m_tree(tree), m_exactRows(exactRows) {}

  // Empty if all is well.
  const std::string& Run() {
    if (m_tree.m_pRoot != nullptr && CheckRoot(m_tree.m_pRoot)) WalkItems(m_tree.m_pRoot);
    if (m_wrong.empty() && m_tree.m_pSelection != nullptr) CheckManagers(*m_tree.m_pSelection);
    return m_wrong;
  }

 private:
  bool Wrong(const CVornTreeItem* item, const std::string& what) {
    m_wrong = '\'';
    m_wrong += LabelOf(item) + "': " + what;
    return false;
  }

  bool WrongHere(const char* who, const char* what) {
    m_wrong = std::string(who) + " " + what;
    return false;
  }

  bool CheckRoot(const CVornTreeItem* root) {
    if (!IsItemValid(root)) return WrongHere("the root", "is dead");
    if (root->m_pTree != &m_tree) return WrongHere("the root", "belongs to another control");
    if (root->m_nLevel != 0 || root->m_pParent != nullptr) return WrongHere("the root", "is not on top");
    if (root->m_pPrevSibling != nullptr || root->m_pNextSibling != nullptr) {
      return WrongHere("the root", "has a sibling");
    }
    return true;
  }

  // An item's children are looked at before they are followed, and its counts when theirs are known to be
  // right. No recursion: a tree may be deep. Nothing is allocated while all is well.
  void WalkItems(const CVornTreeItem* root) {
    const CVornTreeItem* at = root;
    if (!CheckChildren(at)) return;
    while (true) {
      if (at->m_pFirstChild != nullptr) {
        at = at->m_pFirstChild;
        if (!CheckChildren(at)) return;
        continue;
      }
      while (true) {
        if (!CheckCounts(at) || at == root) return;
        if (at->m_pNextSibling != nullptr) break;
        at = at->m_pParent;
      }
      at = at->m_pNextSibling;
      if (!CheckChildren(at)) return;
    }
  }

  bool CheckChildren(const CVornTreeItem* item) {
    const CVornTreeItem* before = nullptr;
    for (const CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      if (ItemPool::ReadMagic(child) == 0) return Wrong(item, "has a dead child");
      if (!IsItemValid(child) || LooksLikePlace(reinterpret_cast<std::uintptr_t>(child))) {
        return Wrong(item, "has a child that is no item");
      }
      if (child->m_pPrevSibling != before) return Wrong(child, "previous sibling is another");
      if (child->m_pParent != item) return Wrong(child, "parent is another");
      if (child->m_pTree != &m_tree) return Wrong(child, "control is another");
      if (child->m_nLevel != item->m_nLevel + 1) {
        return Wrong(child, Difference("level", child->m_nLevel, item->m_nLevel + 1));
      }
      if (child->m_pShortcutTarget == child) return Wrong(child, "stands for itself");
      before = child;
    }
    if (item->m_pLastChild != before) return Wrong(item, "last child is another");
    return true;
  }

  bool CheckCounts(const CVornTreeItem* item) {
    unsigned int descendants = 0;
    int rows = 0;
    for (const CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      descendants += child->m_nDescendants + 1;
      if (!child->IsHidden()) rows += child->m_nVisibleDescendants + 1;
    }
    if (!item->IsExpanded()) rows = 0;
    if (item->m_nDescendants != descendants) {
      return Wrong(item, Difference("count of descendants", item->m_nDescendants, descendants));
    }
    if (m_exactRows && item->m_nVisibleDescendants != rows) {
      return Wrong(item, Difference("count of rows", item->m_nVisibleDescendants, rows));
    }
    return true;
  }

  // --- Managers ---

  // Dead items may be held until the control next tells its managers to let go.
  bool IsHeldRightly(const CVornTreeItem* item) const {
    if (IsItemValid(item)) return item->m_pTree == &m_tree;
    return item == nullptr || m_tree.m_nDeaths != 0;
  }

  bool CheckManagers(const CVornTreeSelection& manager) {
    if (manager.m_pTree != &m_tree) return WrongHere("the manager", "belongs to another control");
    const auto* byDocuments = DYNAMIC_DOWNCAST(CVornTreeMultiSelection, &manager);
    return CheckManager(manager, "the manager") && (byDocuments == nullptr || CheckDocuments(*byDocuments));
  }

  bool CheckDocuments(const CVornTreeMultiSelection& manager) {
    bool activeIsThere = manager.m_pActiveDoc == nullptr && manager.m_pActiveManager == nullptr;
    const CVornTreeItem* before = nullptr;
    for (long i = 0; i < manager.m_arrDocuments.GetSize(); ++i) {
      const tagAssocSelItem& document = *manager.m_arrDocuments[i];
      if (document.pManager == nullptr) return WrongHere("a document", "has no manager");
      if (document.pDocument <= before) return WrongHere("the list of documents", "is not in order");
      if (!IsHeldRightly(document.pDocument)) return WrongHere("a document", "is gone");
      if (!CheckManager(*document.pManager, "a document's manager")) return false;
      if (document.pDocument == manager.m_pActiveDoc && document.pManager == manager.m_pActiveManager) {
        activeIsThere = true;
      }
      before = document.pDocument;
    }
    if (!activeIsThere) return WrongHere("the active document", "is not among the documents");
    return true;
  }

  bool CheckManager(const CVornTreeSelection& manager, const char* who) {
    if (!IsHeldRightly(manager.m_pFocus)) return WrongHere(who, "has a focus that is gone");
    if (!IsHeldRightly(manager.m_pLastSelected)) return WrongHere(who, "has an anchor that is gone");
    if (manager.m_bInClear) return WrongHere(who, "is still clearing");
    return CheckList(manager.m_arrSelected.Settled(), "the selection") &&
           CheckList(manager.m_arrSaved, "the saved selection");
  }

  // Both lists are in the order of the addresses, and hold nothing twice.
  bool CheckList(const TVornArray<CVornTreeItem*>& items, const char* which) {
    const CVornTreeItem* before = nullptr;
    for (long i = 0; i < items.GetSize(); ++i) {
      if (items[i] <= before) return WrongHere(which, "is not in order");
      if (!IsHeldRightly(items[i])) return WrongHere(which, "holds an item that is gone");
      before = items[i];
    }
    return true;
  }

  const CVornTreeCtrl& m_tree;
  const bool m_exactRows;
  std::string m_wrong;
};

bool IsTreeSound(const CVornTreeCtrl& tree, bool exactRows, char* wrong, size_t size) {
  TreeWalker walker(tree, exactRows);
  const std::string& found = walker.Run();
  std::snprintf(wrong, size, "%s", found.c_str());
  return found.empty();
}

#ifdef VORN_CHECK_TREES

namespace {

constexpr unsigned int kAlwaysChecked = 256;     // items; trees up to this size are checked every time
constexpr unsigned int kItemsPerOperation = 16;  // that may be looked at in larger ones, on average

thread_local OperationCheck* g_innermostCheck = nullptr;
thread_local unsigned int g_credit = 0;

bool IsDue(unsigned int items) {
  if (items <= kAlwaysChecked) return true;
  g_credit += kItemsPerOperation;
  if (g_credit < items) return false;
  g_credit = 0;
  return true;
}

}  // namespace

OperationCheck::OperationCheck(const CVornTreeCtrl* tree) : m_pTree(tree), m_pOuter(g_innermostCheck) {
  for (const OperationCheck* outer = m_pOuter; outer != nullptr; outer = outer->m_pOuter) {
    if (outer->m_pTree == tree) m_pTree = nullptr;
  }
  g_innermostCheck = this;
}

OperationCheck::~OperationCheck() {
  g_innermostCheck = m_pOuter;
  if (m_pTree == nullptr || m_pTree->GetRootItem() == nullptr || std::uncaught_exceptions() != 0) return;
  if (!IsDue(m_pTree->GetChildCount(m_pTree->GetRootItem()))) return;
  char wrong[256];
  if (IsTreeSound(*m_pTree, false, wrong, sizeof(wrong))) return;
  std::fprintf(stderr, "A tree is not sound after an operation: %s\n", wrong);
  std::abort();
}

void OperationCheck::Forget(const CVornTreeCtrl* tree) {
  for (OperationCheck* check = g_innermostCheck; check != nullptr; check = check->m_pOuter) {
    if (check->m_pTree == tree) check->m_pTree = nullptr;
  }
}

#endif  // VORN_CHECK_TREES

}  // namespace vorn
