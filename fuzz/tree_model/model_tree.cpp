// The model's items: links and counts, step by step as the rules state them.
#include <algorithm>
#include <cctype>

#include "model.h"

namespace fuzz {

Model::Model(Oracle oracle) : m_oracle(std::move(oracle)) {
  m_root = NewNode("");
  m_root->level = 0;
  m_root->state = kExpanded;
}

Node* Model::NewNode(const std::string& label) {
  m_nodes.push_back(std::make_unique<Node>());
  m_nodes.back()->id = static_cast<int>(m_nodes.size()) - 1;
  m_nodes.back()->label = label;
  return m_nodes.back().get();
}

Node* Model::DocumentOf(Node* node) const {
  if (!IsAlive(node) || node == m_root) return nullptr;
  while (node->parent != nullptr && node->parent != m_root) node = node->parent;
  return node;
}

// --- Links -----------------------------------------------------------------------------------------

void Model::AddToAncestors(Node* from, long total, int rows, int hidden) {
  for (Node* node = from; node != nullptr; node = node->parent) {
    if (node->Has(kExpanded)) {
      node->rows += rows;
      node->hidden += hidden;
    }
    if (node->Has(kHidden) || !node->Has(kExpanded)) rows = hidden = 0;
    node->descendants = static_cast<unsigned>(static_cast<long>(node->descendants) + total);
  }
}

void Model::AddRows(Node* from, int rows) {
  for (Node* node = from; node != nullptr; node = node->parent) {
    if (node->Has(kExpanded)) node->rows += rows;
    if (node->Has(kHidden) || !node->Has(kExpanded)) break;
  }
}

void Model::SetLevels(Node* node, int level) {
  node->level = level;
  for (Node* child : node->children) SetLevels(child, level + 1);
}

void Model::Link(Node* parent, Node* node, size_t place) {
  const unsigned total = node->descendants + 1;
  int rows = 0, hidden = 0;
  if (parent->Has(kExpanded)) {
    rows = node->Has(kHidden) ? 0 : node->rows + 1;
    hidden = node->Has(kHidden) ? node->hidden + 1 : node->hidden;
  }
  parent->descendants += total;
  parent->rows += rows;
  parent->hidden += hidden;
  if (parent->Has(kHidden)) rows = 0;
  parent->children.insert(parent->children.begin() + static_cast<long>(place), node);
  AddToAncestors(parent->parent, static_cast<long>(total), rows, hidden);
  if (node->level != parent->level + 1) SetLevels(node, parent->level + 1);
  node->parent = parent;
  parent->Set(kHasChildren, false);
}

void Model::PutIn(Node* parent, Node* node, Place place, Node* behind) {
  size_t at = parent->children.size();
  if (place == Place::First) at = 0;
  if (place == Place::Behind) {
    const auto found = std::find(parent->children.begin(), parent->children.end(), behind);
    if (found != parent->children.end()) at = static_cast<size_t>(found - parent->children.begin()) + 1;
  }
  Link(parent, node, at);
}

void Model::Unlink(Node* node) {
  if (node->parent == nullptr) return;
  std::erase(node->parent->children, node);
  const long total = static_cast<long>(node->descendants) + 1;
  int rows = 1, hidden = node->hidden;
  if (node->Has(kHidden)) {
    rows = 0;
    hidden = node->rows + 1 + node->hidden;
  } else if (node->Has(kExpanded)) {
    rows = node->rows + 1;
  }
  AddToAncestors(node->parent, -total, -rows, -hidden);
  node->parent = nullptr;
}

// What is below a node goes, children before their parents; then its shortcuts: those at odd places,
// counted from 1, and the last one of an even number.
void Model::DestroyBelow(Node* node) {
  while (!node->children.empty()) {
    Node* const child = node->children.front();
    node->children.erase(node->children.begin());
    child->parent = nullptr;
    DestroyBelow(child);
    child->alive = false;
  }
  if (!node->shortcuts.empty()) {
    const std::vector<Node*> list = node->shortcuts;
    node->shortcuts.clear();
    for (size_t i = 0; i < list.size(); ++i) {
      const bool goes = i % 2 == 0 || i + 1 == list.size();
      if (goes && list[i]->alive && list[i] != node) Kill(list[i]);
    }
  } else if (node->Has(kShortcut) && IsAlive(node->target)) {
    auto& list = node->target->shortcuts;
    const auto found = std::find(list.begin(), list.end(), node);
    if (found != list.end()) list.erase(found);
  }
}

void Model::Kill(Node* node) {
  if (!node->alive) return;
  Unlink(node);
  DestroyBelow(node);
  node->alive = false;
}

// --- Changes ---------------------------------------------------------------------------------------

Node* Model::Insert(const std::string& label, Node* parent, Place place, Node* behind) {
  if (place == Place::Behind && (!IsAlive(behind) || behind->parent != parent)) return nullptr;
  Node* const node = NewNode(label);
  PutIn(parent, node, place, behind);
  return node;
}

void Model::Forget(Node* node) {
  if (m_byDocuments) {
    // A tree without items takes no news, also not of an item that fell out of it.
    if (m_root->children.empty()) return;
    if (Manager* manager = ManagerOf(DocumentOf(node))) RemoveFrom(*manager, node);
  } else {
    RemoveFrom(m_plain, node);
  }
  for (Node* child : node->children) Forget(child);
}

void Model::Delete(Node* node) {
  const bool isDocument = node->parent == m_root;
  Forget(node);
  if (isDocument) DocumentGone(node);
  Ask("OnDeleteItem", node);
  Kill(node);
  ForgetDead();
}

void Model::DeleteAll(Node* parent) {
  Ask("OnDeleteItem", parent);
  while (!parent->children.empty()) {
    Node* const child = parent->children.back();
    Forget(child);
    Kill(child);
  }
  ForgetDead();
}

int Model::Move(Node* parent, Node* node, Place place, Node* behind) {
  if (place == Place::Behind && (!IsAlive(behind) || behind->parent != parent)) return 0;
  for (Node* above = parent; above != nullptr; above = above->parent) {
    if (above == node) return 0;
  }
  if (place == Place::Behind && behind == node) {
    const auto found = std::find(parent->children.begin(), parent->children.end(), node);
    place = found == parent->children.begin() ? Place::First : Place::Behind;
    if (place == Place::Behind) behind = *(found - 1);
  }
  Unlink(node);
  PutIn(parent, node, place, behind);
  return 1;
}

// --- Visibility ------------------------------------------------------------------------------------

void Model::SetVisible(Node* node, int visible) {
  if (node->Has(kLocked)) {
    node->lockedVisible = visible;
    return;
  }
  node->Set(kHidden, !visible);
  Node* const parent = node->parent;
  if (parent == nullptr) return;
  const int rows = parent->Has(kExpanded) ? node->rows + 1 : 0;
  parent->hidden += visible ? -1 : 1;
  parent->rows += visible ? rows : -rows;
  if (parent->Has(kHidden) || !parent->Has(kExpanded) || rows == 0) return;
  AddRows(parent->parent, visible ? rows : -rows);
}

int Model::SetVisibility(Node* node, int visible) {
  const bool needed = visible ? node->Has(kHidden) : !node->Has(kHidden);
  if (needed || node->Has(kLocked)) SetVisible(node, visible);
  return needed ? !visible : visible;
}

int Model::Lock(Node* node, int visible) {
  const bool wasLocked = node->Has(kLocked);
  const int present = wasLocked ? node->lockedVisible : !node->Has(kHidden);
  if (!wasLocked) {
    node->lockedVisible = present;
    if (present && !visible) SetVisible(node, 0);
  } else if (!present != !visible) {
    node->Set(kLocked, false);
    SetVisible(node, visible);
  }
  node->Set(kLocked, true);
  return wasLocked;
}

int Model::Unlock(Node* node) {
  if (!node->Has(kLocked)) return 0;
  node->Set(kLocked, false);
  const int present = !node->Has(kHidden);
  if (!present != !node->lockedVisible) SetVisible(node, node->lockedVisible);
  return 1;
}

// --- Expansion -------------------------------------------------------------------------------------

void Model::ExpandAllBelow(Node* node) {
  if (node->children.empty()) return;
  if (!node->Has(kHidden)) node->Set(kExpanded, true);
  int rows = 0;
  for (Node* child : node->children) {
    ExpandAllBelow(child);
    if (!child->Has(kHidden)) rows += 1 + child->rows;
  }
  node->rows = rows;
}

void Model::CollapseAllBelow(Node* node) {
  if (node->children.empty() || !node->Has(kExpanded)) return;
  node->Set(kExpanded, false);
  for (Node* child : node->children) CollapseAllBelow(child);
  node->rows = 0;
}

int Model::Expand(Node* node, unsigned code) {
  unsigned action = code & 0xFF;
  const bool anyway = (code & 0x8000) != 0;
  if (node->children.empty() && !node->Has(kHasChildren)) return 0;
  const bool open = node->Has(kExpanded);
  if (action == 3) action = open ? 1 : 2;
  if (action != 4 && action != 5) {
    if (open) {
      if (action == 2) return 1;
      if (action != 1 && !anyway) return 0;
    } else {
      if (action == 1) return 1;
      if (action != 2 && !anyway) return 0;
    }
  }
  if (!Ask("OnItemExpanding", node)) return 0;
  int childRows = 0;
  for (Node* child : node->children) {
    if (!child->Has(kHidden)) childRows += 1 + child->rows;
  }
  switch (action) {
    case 1:
      node->Set(kExpanded, false);
      if (!node->children.empty()) {
        node->rows = 0;
        AddRows(node->parent, node->Has(kHidden) ? 0 : -childRows);
      }
      break;
    case 2:
      node->Set(kExpanded, true);
      if (!node->children.empty()) {
        node->rows = childRows;
        AddRows(node->parent, node->Has(kHidden) ? 0 : childRows);
      }
      break;
    case 4: {
      if (node->children.empty() || !open) break;
      int rows = 0;
      for (Node* child : node->children) {
        if (!child->Has(kHidden)) rows += 1 + (child->Has(kExpanded) ? child->rows : 0);
      }
      CollapseAllBelow(node);
      AddRows(node->parent, -rows);
      break;
    }
    case 5: {
      if (node->children.empty()) break;
      const int before = node->rows;
      ExpandAllBelow(node);
      AddRows(node->parent, node->rows - before);
      break;
    }
    default: break;
  }
  Ask("OnItemExpanded", node);
  return 1;
}

// --- Rows ------------------------------------------------------------------------------------------

Node* Model::FirstRow(const Node* parent) const {
  if (parent == nullptr || parent->rows < 1) return nullptr;
  for (Node* child : parent->children) {
    if (!child->Has(kHidden)) return child;
  }
  return nullptr;
}

Node* Model::NextRow(Node* node) const {
  if (node->Has(kExpanded)) {
    if (Node* child = FirstRow(node)) return child;
  }
  Node* const active = m_onlyActive ? const_cast<Model*>(this)->ActiveDocument() : nullptr;
  while (node->parent != nullptr) {
    const auto& siblings = node->parent->children;
    auto at = std::find(siblings.begin(), siblings.end(), node);
    for (++at; at != siblings.end(); ++at) {
      if (!(*at)->Has(kHidden)) return *at;
    }
    if (node->parent == m_root || (m_onlyActive && node->parent == active)) return nullptr;
    node = node->parent;
  }
  return nullptr;
}

std::vector<Node*> Model::Rows() const {
  Node* from = m_root;
  if (m_onlyActive) {
    from = const_cast<Model*>(this)->ActiveDocument();
    if (!IsAlive(from)) return {};
  }
  std::vector<Node*> rows;
  for (Node* row = FirstRow(from); row != nullptr; row = NextRow(row)) rows.push_back(row);
  return rows;
}

int Model::RowCount() const {
  if (m_onlyActive != 1) return m_root->rows;
  const Node* document = const_cast<Model*>(this)->ActiveDocument();
  return IsAlive(document) ? document->rows : 0;
}

// --- Attributes, shortcuts, sorting ----------------------------------------------------------------

int Model::SetCheck(Node* node, int check) {
  if (!node->checkBox || !Ask("OnChecking", node)) return 0;
  const int before = node->Has(kChecked);
  node->Set(kChecked, check != 0);
  Ask("OnChecked", node);
  return before;
}

void Model::ModifyState(Node* node, unsigned remove, unsigned add) {
  node->state = (node->state & ~remove) | add;
}

Node* Model::ShortcutTarget(Node* node) {
  if (!node->Has(kShortcut)) return nullptr;
  if (!IsAlive(node->target)) {
    node->Set(kShortcut, false);
    node->target = nullptr;
  }
  return node->target;
}

Node* Model::CreateShortcut(Node* target, Node* parent, Place place, Node* behind) {
  if (target == m_root) return nullptr;
  if (ShortcutTarget(target) != nullptr) return nullptr;
  if (place == Place::Behind && (!IsAlive(behind) || behind->parent != parent)) return nullptr;
  Node* const node = NewNode("Raccourci vers" + (target->label.empty() ? "" : " " + target->label));
  node->level = target->level;
  node->state = target->state | kShortcut | kNoDrop;
  node->checkBox = target->checkBox;
  node->target = target;
  target->Set(kSelected, false);
  target->shortcuts.push_back(node);
  PutIn(parent, node, place, behind);
  return node;
}

bool Model::SortByName(Node* parent) {
  if (parent->children.empty()) return false;
  const auto lower = [](const Node* node) {
    std::string text = node->label;
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
  };
  std::vector<Node*> row;
  while (!parent->children.empty()) {
    Node* const child = parent->children.front();
    Unlink(child);
    size_t low = 0, high = row.size();
    while (low < high) {
      const size_t middle = (low + high) / 2;
      const int order = lower(row[middle]).compare(lower(child));
      if (order == 0) {
        high = middle;
        break;
      }
      if (order < 0) {
        low = low == middle ? high : middle;
      } else {
        high = high == middle ? low : middle;
      }
    }
    row.insert(row.begin() + static_cast<long>(high), child);
  }
  parent->rows = 0;
  for (Node* child : row) Link(parent, child, parent->children.size());
  return true;
}

int Model::SortByRank(Node* parent, const std::function<int(const Node*)>& rank) {
  if (parent->children.empty()) return 0;
  std::vector<Node*> row;
  while (!parent->children.empty()) {
    Node* const child = parent->children.front();
    Unlink(child);
    auto at = row.begin();
    while (at != row.end() && rank(*at) < rank(child)) ++at;
    if (at != row.end() && rank(*at) == rank(child)) continue;  // falls out of the tree
    row.insert(at, child);
  }
  parent->rows = 0;
  for (Node* child : row) Link(parent, child, parent->children.size());
  return 1;
}

}  // namespace fuzz
