// The model's selection: plain and by documents, step by step as the rules state them.
#include <algorithm>

#include "model.h"

namespace fuzz {

namespace {

bool Contains(const std::vector<Node*>& nodes, const Node* node) {
  return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

}  // namespace

// --- Managers --------------------------------------------------------------------------------------

Manager* Model::ManagerOf(Node* document) {
  if (!IsAlive(document)) return nullptr;
  for (Document& each : m_documents) {
    if (each.node == document) return each.manager.get();
  }
  m_documents.push_back({document, std::make_unique<Manager>()});
  return m_documents.back().manager.get();
}

Manager* Model::Active() { return m_byDocuments ? m_activeManager : &m_plain; }

void Model::Force(bool ctrl, bool shift) {
  m_plain.forceCtrl = ctrl;
  m_plain.forceShift = shift;
}

// The outer object hands what is forced on to the active manager.
bool Model::Activate(Node* node) {
  const auto handOn = [this] {
    if (m_activeManager == nullptr) return;
    m_activeManager->forceCtrl = m_plain.forceCtrl;
    m_activeManager->forceShift = m_plain.forceShift;
  };
  m_documentChanged = false;
  handOn();
  Node* const document = DocumentOf(node);
  if (document == nullptr) return false;
  if (document == m_activeDocument) return true;
  Manager* const manager = ManagerOf(document);
  if (!Ask("OnChangeActiveDoc", m_activeDocument, document)) return false;
  m_documentChanged = true;
  if (IsAlive(m_activeDocument) && m_activeManager != nullptr && m_activeDocument->Has(kSelected)) {
    PlainUnselect(*m_activeManager, m_activeDocument, 0);
  }
  m_activeDocument = document;
  m_activeManager = manager;
  handOn();
  return true;
}

void Model::DocumentGone(Node* node) {
  if (!m_byDocuments) {
    RemoveFrom(m_plain, node);
    return;
  }
  if (Activate(node)) {
    std::erase_if(m_documents, [node](const Document& each) { return each.node == node; });
    m_activeDocument = nullptr;
    m_activeManager = nullptr;
  } else if (m_activeManager != nullptr) {
    RemoveFrom(*m_activeManager, node);
  }
}

void Model::SetByDocuments(bool on) {
  if (on == m_byDocuments) return;
  Node* const focus = Focus();
  m_byDocuments = on;
  const bool ctrl = false, shift = false;  // a new object has nothing forced
  m_documents.clear();
  m_activeDocument = nullptr;
  m_activeManager = nullptr;
  m_plain = Manager();
  m_plain.forceCtrl = ctrl;
  m_plain.forceShift = shift;
  const std::function<void(Node*, Manager&)> takeUp = [&](Node* node, Manager& manager) {
    if (node->Has(kSelected) && !Contains(manager.selected, node)) manager.selected.push_back(node);
    for (Node* child : node->children) takeUp(child, manager);
  };
  if (!on) {
    takeUp(m_root, m_plain);
  } else if (!m_root->children.empty() && IsAlive(focus)) {
    for (Node* document : m_root->children) takeUp(document, *ManagerOf(document));
    Activate(focus);
  }
}

// No manager keeps what is gone.
void Model::ForgetDead() {
  const auto isDead = [](const Node* node) { return !IsAlive(node); };
  const auto forget = [&](Manager& manager) {
    if (isDead(manager.focus)) manager.focus = nullptr;
    if (isDead(manager.last)) manager.last = nullptr;
    std::erase_if(manager.selected, isDead);
    std::erase_if(manager.saved, isDead);
  };
  forget(m_plain);
  if (isDead(m_activeDocument)) {
    m_activeDocument = nullptr;
    m_activeManager = nullptr;
  }
  std::erase_if(m_documents, [&](const Document& each) { return isDead(each.node); });
  for (Document& each : m_documents) forget(*each.manager);
}

// --- What a manager does ---------------------------------------------------------------------------

bool Model::RemoveFrom(Manager& manager, Node* node) {
  bool removed = false;
  if (node->alive && node->Has(kSelected)) {
    std::erase(manager.selected, node);
    node->Set(kSelected, false);
    removed = true;
  }
  if (manager.focus == node) manager.focus = nullptr;
  if (manager.last == node || !IsAlive(manager.last)) manager.last = nullptr;
  return removed;
}

void Model::Take(Manager& manager, Node* node) {
  node->Set(kSelected, true);
  if (!Contains(manager.selected, node)) manager.selected.push_back(node);
}

// Without a keyboard: only what is forced counts.
void Model::ReadModifiers(Manager& manager) const {
  manager.ctrl = manager.forceCtrl;
  manager.shift = manager.forceShift;
}

void Model::ClearManager(Manager& manager, Node* node, bool resetLast) {
  if (!manager.inClear) {
    // The hook of the base class clears all documents when asked to.
    if (!Ask("OnClearSelection", node)) return;
    if (m_clearAll && m_byDocuments) ClearAcross(nullptr, node, false);
  }
  if (manager.selected.empty()) return;
  for (Node* each : manager.selected) {
    if (each->alive) each->Set(kSelected, false);
  }
  manager.selected.clear();
  if (resetLast) manager.last = nullptr;
}

void Model::ClearAcross(Manager* manager, Node* node, bool resetLast) {
  if (!m_clearAll) {
    if (manager != nullptr) ClearManager(*manager, node, resetLast);
    return;
  }
  for (Document& each : m_documents) {
    each.manager->inClear = true;
    ClearManager(*each.manager, node, resetLast);
    each.manager->inClear = false;
  }
}

Node* Model::FirstInOrder(Node* a, Node* b) {
  if (!IsAlive(a) || !IsAlive(b) || a == b) return nullptr;
  std::vector<Node*> lineA, lineB;
  for (Node* node = a; node != nullptr; node = node->parent) lineA.insert(lineA.begin(), node);
  for (Node* node = b; node != nullptr; node = node->parent) lineB.insert(lineB.begin(), node);
  size_t i = 0;
  while (i < lineA.size() && i < lineB.size() && lineA[i] == lineB[i]) ++i;
  if (i == lineA.size()) return a;
  if (i == lineB.size()) return b;
  if (i == 0) return nullptr;
  for (Node* child : lineA[i - 1]->children) {
    if (child == lineA[i]) return a;
    if (child == lineB[i]) return b;
  }
  return nullptr;
}

void Model::Range(Manager& manager, Node* from, Node* to) {
  Node* const first = FirstInOrder(from, to);
  if (first == nullptr) {
    if (from == to && IsAlive(from) && !from->Has(kSelected) && CanSelect(from)) Take(manager, from);
    return;
  }
  Node* const last = first == from ? to : from;
  for (Node* row = first; row != nullptr; row = NextRow(row)) {
    if (!row->Has(kSelected) && Ask("OnSelChanging", nullptr, row)) {
      if (CanSelect(row)) Take(manager, row);
      Ask("OnSelChanged", nullptr, row);
    }
    if (row == last) return;
  }
}

int Model::PlainPress(Manager& manager, Node* node) {
  ReadModifiers(manager);
  Node* const old = IsAlive(manager.last) ? manager.last : nullptr;
  if (manager.shift && old != nullptr) {
    if (!Ask("OnMultiSelChanging", old, node)) {
      manager.focus = node;
      return 0;
    }
    ClearManager(manager, node, false);
    if (manager.ctrl) {
      ClearManager(manager, nullptr, false);
      for (Node* saved : manager.saved) {
        if (saved->alive) Take(manager, saved);
      }
    }
    Range(manager, old, node);
    if (!manager.ctrl) manager.saved = manager.selected;
    Ask("OnMultiSelChanged", old, node);
    manager.focus = node;
    return 1;
  }
  if (node->Has(kSelected)) {
    // Without a main window the application is not active.
    if (!manager.ctrl) return 0;
    manager.pendingUp = true;
    manager.focus = node;
    return 0;
  }
  if (manager.ctrl) {
    if (CanSelect(node) && Ask("OnSelChanging", old, node)) {
      Take(manager, node);
      Ask("OnSelChanged", old, node);
      manager.last = node;
      manager.saved = manager.selected;
      manager.focus = node;
      return 1;
    }
    manager.focus = node;
    std::erase(manager.saved, node);
    return 0;
  }
  ClearManager(manager, node, false);
  if (!Ask("OnSelChanging", old, node)) {
    manager.focus = node;
    return 0;
  }
  if (CanSelect(node)) Take(manager, node);
  Ask("OnSelChanged", old, node);
  manager.last = manager.focus = node;
  return 1;
}

int Model::PlainRelease(Manager& manager, Node* node) {
  if (!manager.pendingUp) return 0;
  manager.pendingUp = false;
  ReadModifiers(manager);
  Node* const old = IsAlive(manager.last) ? manager.last : nullptr;
  if (manager.ctrl) {
    if (!Ask("OnSelChanging", old, node)) {
      manager.focus = node;
      return 0;
    }
    node->Set(kSelected, false);
    std::erase(manager.selected, node);
    Ask("OnSelChanged", old, node);
    if (manager.last == node) manager.last = nullptr;
    manager.focus = node;
    return 1;
  }
  const bool found = manager.focus != nullptr && Contains(manager.selected, manager.focus);
  if (!found && IsAlive(manager.focus)) manager.focus->Set(kSelected, false);
  if (found && manager.selected.size() == 1 && manager.selected[0] == old) return 0;
  ClearManager(manager, node, false);
  if (CanSelect(node) && Ask("OnSelChanging", nullptr, node) == 1) {
    Take(manager, node);
    Ask("OnSelChanged", nullptr, node);
  }
  manager.last = manager.focus = node;
  return 1;
}

int Model::PlainRight(Manager& manager, Node* node) {
  Node* const old = IsAlive(manager.last) ? manager.last : nullptr;
  const bool agreed = Ask("OnSelChanging", old, node) != 0;
  manager.focus = node;
  if (!agreed) return 0;
  if (!node->Has(kSelected)) {
    ClearManager(manager, node, false);
    if (CanSelect(node)) node->Set(kSelected, true);
  }
  if (!Contains(manager.selected, node)) manager.selected.push_back(node);
  Ask("OnSelChanged", old, node);
  manager.last = node;
  return 1;
}

int Model::PlainKey(Manager& manager, Node* node) {
  ReadModifiers(manager);
  Node* const old = IsAlive(manager.last) ? manager.last : nullptr;
  if (manager.shift) {
    if (!Ask("OnMultiSelChanging", old, node)) {
      manager.focus = node;
      return 0;
    }
    if (!manager.ctrl) ClearManager(manager, node, false);
    Range(manager, old, node);
    Ask("OnMultiSelChanged", old, node);
  } else {
    if (!Ask("OnSelChanging", old, node)) {
      manager.focus = node;
      return 0;
    }
    ClearManager(manager, node, false);
    if (CanSelect(node)) Take(manager, node);
    Ask("OnSelChanged", old, node);
    manager.last = node;
  }
  manager.focus = node;
  return 1;
}

int Model::PlainSelect(Manager& manager, Node* node, int keepOthers) {
  Node* const old = IsAlive(manager.last) ? manager.last : nullptr;
  int result = 0;
  if (!node->Has(kSelected) && CanSelect(node) && Ask("OnSelChanging", old, node)) {
    ReadModifiers(manager);
    if (!manager.ctrl && !keepOthers) ClearManager(manager, nullptr, false);
    Take(manager, node);
    Ask("OnSelChanged", old, node);
    result = 1;
  }
  manager.last = manager.focus = node;
  return result;
}

void Model::PlainUnselect(Manager& manager, Node* node, int shortcutsToo) {
  RemoveFrom(manager, node);
  Ask("OnSelChanged", node, nullptr);
  if (!shortcutsToo) return;
  for (Node* shortcut : node->shortcuts) RemoveFrom(manager, shortcut);
}

// --- From the control ------------------------------------------------------------------------------

int Model::PressLeft(Node* node) {
  if (m_byDocuments) Activate(node);
  Manager* const manager = Active();
  return manager != nullptr && DocumentOf(node) != nullptr ? PlainPress(*manager, node) : 0;
}

int Model::ReleaseLeft(Node* node) {
  if (m_byDocuments) Activate(node);
  Manager* const manager = Active();
  return manager != nullptr && DocumentOf(node) != nullptr ? PlainRelease(*manager, node) : 0;
}

int Model::PressRight(Node* node) {
  if (m_byDocuments) Activate(node);
  Manager* const manager = Active();
  return manager != nullptr && DocumentOf(node) != nullptr ? PlainRight(*manager, node) : 0;
}

int Model::KeyDown(Node* node) {
  if (!m_byDocuments) return PlainKey(m_plain, node);
  Manager* const earlier = m_activeManager;
  Node* const earlierDocument = m_activeDocument;
  Activate(node);
  if (m_documentChanged && earlier != nullptr && !m_plain.forceShift) {
    ClearAcross(earlier, earlierDocument, false);
  }
  return m_activeManager != nullptr ? PlainKey(*m_activeManager, node) : 0;
}

int Model::Select(Node* node, int keepOthers) {
  Node* const active = ActiveDocument();
  Node* const document = DocumentOf(node);
  if (IsAlive(active) && document != active) {
    const bool shown = document->Has(kLocked) ? document->lockedVisible != 0 : !document->Has(kHidden);
    if (!shown) return 1;
  }
  if (m_byDocuments) Activate(node);
  if (Manager* manager = Active()) PlainSelect(*manager, node, keepOthers);
  return 1;
}

void Model::Unselect(Node* node, int shortcutsToo) {
  if (m_byDocuments) Activate(node);
  if (Manager* manager = Active()) PlainUnselect(*manager, node, shortcutsToo);
}

void Model::Clear(Node* node) {
  if (!m_byDocuments) {
    ClearManager(m_plain, node, true);
    return;
  }
  if (node != nullptr) {
    Activate(node);
  } else {
    Activate(nullptr);
  }
  ClearAcross(m_activeManager, node, true);
}

int Model::SetDocumentDisplay(int onlyActive) {
  const int before = m_onlyActive;
  Node* document = ActiveDocument();
  if (!m_byDocuments) document = DocumentOf(Last() != nullptr ? Last() : Focus());
  if (IsAlive(document) && onlyActive == 1 && !document->Has(kExpanded)) Expand(document, 2);
  m_onlyActive = onlyActive;
  return before;
}

// --- Answers ---------------------------------------------------------------------------------------

Node* Model::Focus() {
  Manager* const manager = Active();
  return manager != nullptr && IsAlive(manager->focus) ? manager->focus : nullptr;
}

Node* Model::Last() {
  Manager* const manager = Active();
  return manager != nullptr && IsAlive(manager->last) ? manager->last : nullptr;
}

Node* Model::ActiveDocument() { return m_byDocuments ? m_activeDocument : DocumentOf(Focus()); }

std::vector<Node*> Model::Selection() {
  Manager* const manager = Active();
  return manager != nullptr ? manager->selected : std::vector<Node*>();
}

}  // namespace fuzz
