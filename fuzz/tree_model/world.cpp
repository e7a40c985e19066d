#include "world.h"

#include <algorithm>
#include <map>

#include "VornComCtl.h"
#include "model.h"
#include "tree/model/TreeCheck.h"
#include "tree/model/VornTreeItem.h"

namespace fuzz {

namespace {

constexpr size_t kMostItems = 24;

std::string Narrow(const wchar_t* text) {
  std::string narrow;
  for (; text != nullptr && *text != 0; ++text) narrow += static_cast<char>(*text);
  return narrow;
}

// Refuses about one question in eight, by the count of questions so far: both sides ask in the same order.
class Answers {
 public:
  explicit Answers(uint32_t seed) : m_seed(seed) {}
  int Next() {
    uint32_t x = m_seed + 0x9E3779B9u * ++m_count;
    x ^= x >> 16;
    x *= 0x85EBCA6Bu;
    x ^= x >> 13;
    return (x & 7) == 0 ? 0 : 1;
  }

 private:
  uint32_t m_seed;
  uint32_t m_count = 0;
};

using Log = std::vector<std::string>;

class World;

class FuzzTree : public CVornTreeCtrl {
 public:
  World* world = nullptr;

  int OnSelChanging(CVornTreeItem* a, CVornTreeItem* b) override { return Told("OnSelChanging", a, b); }
  int OnSelChanged(CVornTreeItem* a, CVornTreeItem* b) override { return Told("OnSelChanged", a, b); }
  int OnMultiSelChanging(CVornTreeItem* a, CVornTreeItem* b) override {
    return Told("OnMultiSelChanging", a, b);
  }
  int OnMultiSelChanged(CVornTreeItem* a, CVornTreeItem* b) override {
    return Told("OnMultiSelChanged", a, b);
  }
  int OnItemExpanding(CVornTreeItem* a) override { return Told("OnItemExpanding", a, nullptr); }
  int OnItemExpanded(CVornTreeItem* a) override { return Told("OnItemExpanded", a, nullptr); }
  void OnDeleteItem(CVornTreeItem* a) override { Told("OnDeleteItem", a, nullptr); }
  int OnChecking(CVornTreeItem* a) override { return Told("OnChecking", a, nullptr); }
  int OnChecked(CVornTreeItem* a) override { return Told("OnChecked", a, nullptr); }
  int OnClearSelection(CVornTreeItem* a) override {
    return Told("OnClearSelection", a, nullptr) ? CVornTreeCtrl::OnClearSelection(a) : 0;
  }
  int OnChangeActiveDoc(CVornTreeItem* a, CVornTreeItem* b) override {
    return Told("OnChangeActiveDoc", a, b);
  }

 private:
  int Told(const char* hook, CVornTreeItem* a, CVornTreeItem* b);
};

class World {
 public:
  explicit World(uint32_t seed)
      : m_treeAnswers(seed),
        m_modelAnswers(seed),
        m_model([this](const std::string& hook, const Node* a, const Node* b) {
          m_modelLog.push_back(hook + " " + Name(a) + " " + Name(b));
          return m_modelAnswers.Next();
        }) {
    m_tree.world = this;
    Pair(m_model.Root(), m_tree.GetRootItem());
  }

  int Told(const char* hook, CVornTreeItem* a, CVornTreeItem* b) {
    m_treeLog.push_back(std::string(hook) + " " + Name(a) + " " + Name(b));
    return m_treeAnswers.Next();
  }

  // Does one step on both sides; what differs, or nothing.
  std::string Do(const Step& step, std::set<std::string>* events);

 private:
  static std::string Name(const Node* node) { return node == nullptr ? "-" : std::to_string(node->id); }
  std::string Name(CVornTreeItem* item) {
    if (item == nullptr) return "-";
    if (item == STI_ROOT) return "0";
    const auto found = m_nodeOf.find(item);
    return found == m_nodeOf.end() ? "?" : Name(found->second);
  }

  void Pair(Node* node, CVornTreeItem* item) {
    if (node == nullptr || item == nullptr) return;
    m_itemOf[node] = item;
    m_nodeOf[item] = node;
  }
  CVornTreeItem* ItemOf(Node* node) { return node == nullptr ? nullptr : m_itemOf[node]; }

  std::vector<Node*> Living(bool withRoot) {
    std::vector<Node*> living;
    for (const auto& node : m_model.Nodes()) {
      const bool isRoot = node.get() == m_model.Root();
      const bool linked = isRoot || (node->alive && node->parent != nullptr);
      if (linked && (withRoot || !isRoot)) living.push_back(node.get());
    }
    return living;
  }
  Node* Pick(uint8_t operand, bool withRoot = false) {
    const std::vector<Node*> living = Living(withRoot);
    return living.empty() ? nullptr : living[operand % living.size()];
  }

  // A place under a parent: first, last, or behind some item, which may be a child of another parent.
  Place PlaceOf(uint8_t operand, Node** behind) {
    *behind = nullptr;
    if (operand % 4 == 0) return Place::First;
    if (operand % 4 == 1) return Place::Last;
    *behind = Pick(operand / 4);
    return *behind == nullptr ? Place::Last : Place::Behind;
  }
  CVornTreeItem* AfterOf(Place place, Node* behind) {
    if (place == Place::First) return STI_FIRST;
    return place == Place::Last ? STI_LAST : ItemOf(behind);
  }

  void Act(const Step& step);
  void ActOnLinks(const Step& step);
  void ActOnState(const Step& step);
  void ActOnSelection(const Step& step);
  void Result(long ofTree, long ofModel) {
    m_treeLog.push_back("= " + std::to_string(ofTree));
    m_modelLog.push_back("= " + std::to_string(ofModel));
  }
  static std::string EventOf(const Step& step, const Log& log);
  std::string Compare();
  std::string Describe(const CVornTreeItem* item) const;
  static std::string Describe(const Node* node);
  std::string Shape(CVornTreeItem* item);
  std::string Shape(Node* node);

  Log m_treeLog, m_modelLog;
  Answers m_treeAnswers, m_modelAnswers;
  Model m_model;
  FuzzTree m_tree;
  std::map<const Node*, CVornTreeItem*> m_itemOf;
  std::map<const CVornTreeItem*, Node*> m_nodeOf;
  int m_made = 0;
};

int FuzzTree::Told(const char* hook, CVornTreeItem* a, CVornTreeItem* b) { return world->Told(hook, a, b); }

int ByData(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : a > b; }

// --- Steps -----------------------------------------------------------------------------------------

void World::ActOnLinks(const Step& step) {
  Node* behind = nullptr;
  const Place place = PlaceOf(step.third, &behind);
  Node* const parent = Pick(step.first, true);
  Node* const node = Pick(step.second);
  switch (step.operation % 7) {
    case 0:
    case 1: {
      if (Living(false).size() >= kMostItems) return;
      // Few labels, so that equal ones are common.
      const std::string label(1, static_cast<char>((m_made % 2 ? 'a' : 'A') + m_made % 5));
      const unsigned data = static_cast<unsigned>(m_made++ % 7);
      Node* const made = m_model.Insert(label, parent, place, behind);
      CVornTreeItem* const item = m_tree.InsertItem(std::wstring(label.begin(), label.end()).c_str(), -1, -1,
                                                    ItemOf(parent), AfterOf(place, behind), data);
      Result(item != nullptr, made != nullptr);
      Pair(made, item);
      return;
    }
    case 2:
      if (node == nullptr) return;
      m_model.Delete(node);
      Result(m_tree.DeleteItem(ItemOf(node)), 1);
      return;
    case 3:
      m_model.DeleteAll(parent);
      Result(m_tree.DeleteAllItems(ItemOf(parent)), 1);
      return;
    case 4:
      if (node == nullptr) return;
      Result(m_tree.MoveItem(ItemOf(parent), ItemOf(node), AfterOf(place, behind)),
             m_model.Move(parent, node, place, behind));
      return;
    case 5: {
      if (node == nullptr || Living(false).size() >= kMostItems) return;
      Node* const made = m_model.CreateShortcut(node, parent, place, behind);
      CVornTreeItem* const item = m_tree.CreateShortcut(ItemOf(node), ItemOf(parent), AfterOf(place, behind));
      Result(item != nullptr, made != nullptr);
      Pair(made, item);
      return;
    }
    default:
      if (step.third % 4 != 0) {
        Result(m_tree.SortChildrenByName(ItemOf(parent)), m_model.SortByName(parent));
      } else {
        STSORTCB sort{ItemOf(parent), ByData, 0};
        std::map<const Node*, int> ranks;
        for (const Node* child : parent->children) {
          ranks[child] = static_cast<int>(m_tree.GetItemData(m_itemOf[child]));
        }
        Result(m_tree.SortChildren(&sort),
               m_model.SortByRank(parent, [&](const Node* child) { return ranks[child]; }));
      }
  }
}

void World::ActOnState(const Step& step) {
  Node* const node = Pick(step.first);
  if (node == nullptr) return;
  CVornTreeItem* const item = ItemOf(node);
  const int on = step.second & 1;
  switch (step.operation % 9) {
    case 0:
    case 1: {
      constexpr unsigned kCodes[] = {1, 2, 2, 3, 3, 4, 5, 6, 0x8006, 0x8002};
      const unsigned code = kCodes[step.second % 10];
      Result(m_tree.Expand(item, code), m_model.Expand(node, code));
      return;
    }
    case 2: Result(m_tree.SetItemVisibility(item, on), m_model.SetVisibility(node, on)); return;
    case 3: Result(m_tree.LockItemVisibility(item, on), m_model.Lock(node, on)); return;
    case 4: Result(m_tree.UnlockItemVisibility(item), m_model.Unlock(node)); return;
    case 5:
      m_tree.SetCheckBox(item, on);
      m_model.SetCheckBox(node, on);
      Result(m_tree.SetItemCheck(item, step.third & 1), m_model.SetCheck(node, step.third & 1));
      return;
    case 6:
      m_tree.ModifyItemState(item, on ? STIS_NOSELECT : 0u, on ? 0u : unsigned{STIS_NOSELECT});
      m_model.ModifyState(node, on ? kNoSelect : 0u, on ? 0u : unsigned{kNoSelect});
      return;
    case 7:
      m_tree.ModifyItemState(item, 0, STIS_HASCHILDREN);
      m_model.ModifyState(node, 0, kHasChildren);
      return;
    default: {
      Node* const target = m_model.ShortcutTarget(node);
      CVornTreeItem* const of = m_tree.GetShortcutItem(item);
      Result(of != nullptr, target != nullptr);
    }
  }
}

void World::ActOnSelection(const Step& step) {
  Node* const node = Pick(step.first);
  if (node == nullptr) return;
  CVornTreeItem* const item = ItemOf(node);
  CVornTreeSelection& manager = *m_tree.GetSelectionManager();
  const bool ctrl = step.second & 1, shift = step.second & 2;
  const int operation = step.operation % 12;
  if (operation <= 4) {
    manager.SetForceCtrl(ctrl);
    manager.SetForceShift(shift);
    m_model.Force(ctrl, shift);
  }
  switch (operation) {
    case 0:
    case 1:
      Result(manager.OnLButtonDown(item), m_model.PressLeft(node));
      Result(manager.OnLButtonUp(item), m_model.ReleaseLeft(node));
      break;
    case 2: Result(manager.OnRButtonDown(item), m_model.PressRight(node)); break;
    case 3:
    case 4: Result(manager.OnKeyDown(item, VK_DOWN), m_model.KeyDown(node)); break;
    case 5:
    case 6: Result(m_tree.SelectItem(item, step.third & 1), m_model.Select(node, step.third & 1)); break;
    case 7:
      m_tree.Select(item, step.third & 1 ? STSEL_UNSELECT : STSEL_UNSELECTWITHSHORTCUTS);
      m_model.Unselect(node, !(step.third & 1));
      break;
    case 8:
      m_tree.ClearSelection(step.third & 1 ? item : nullptr);
      m_model.Clear(step.third & 1 ? node : nullptr);
      break;
    case 9:
      m_tree.EnableSelectionByDocuments(step.second & 1);
      m_model.SetByDocuments(step.second & 1);
      break;
    case 10:
      m_tree.ModifySelectionType(STST_CLEARALLDOCS, step.second & 1 ? unsigned{STST_CLEARALLDOCS} : 0u);
      m_model.SetClearAllDocuments(step.second & 1);
      break;
    default: Result(m_tree.SetDocumentDisplay(step.second & 1), m_model.SetDocumentDisplay(step.second & 1));
  }
  if (operation <= 4) {
    m_tree.GetSelectionManager()->SetForceCtrl(0);
    m_tree.GetSelectionManager()->SetForceShift(0);
    m_model.Force(false, false);
  }
}

void World::Act(const Step& step) {
  const unsigned kind = step.operation / 64;
  if (kind == 0) return ActOnLinks(step);
  if (kind == 1) return ActOnState(step);
  ActOnSelection(step);
}

// --- Comparing -------------------------------------------------------------------------------------

std::string World::Describe(const CVornTreeItem* item) const {
  constexpr unsigned kModelled =
      kSelected | kExpanded | kChecked | kShortcut | kHidden | kLocked | kHasChildren | kNoDrop | kNoSelect;
  return Narrow(item->m_strText) + ":" + std::to_string(item->m_nLevel) + "," +
         std::to_string(item->m_nDescendants) + "," + std::to_string(item->m_nVisibleDescendants) + "," +
         std::to_string(item->m_nHiddenDescendants) + "," + std::to_string(item->m_nState & kModelled) + "," +
         std::to_string(item->m_bLockedVisible);
}

std::string World::Describe(const Node* node) {
  return node->label + ":" + std::to_string(node->level) + "," + std::to_string(node->descendants) + "," +
         std::to_string(node->rows) + "," + std::to_string(node->hidden) + "," + std::to_string(node->state) +
         "," + std::to_string(node->lockedVisible);
}

std::string World::Shape(CVornTreeItem* item) {
  std::string text = Name(item) + "=" + Describe(item) + " [";
  const CVornTreeItem* before = nullptr;
  for (CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
    if (child->m_pParent != item || child->m_pPrevSibling != before) text += " broken links!";
    text += Shape(child) + " ";
    before = child;
  }
  if (item->m_pLastChild != before) text += " broken end!";
  return text + "]";
}

std::string World::Shape(Node* node) {
  std::string text = Name(node) + "=" + Describe(node) + " [";
  for (Node* child : node->children) text += Shape(child) + " ";
  return text + "]";
}

std::string World::Compare() {
  const auto differ = [](const std::string& what, const std::string& tree, const std::string& model) {
    return tree == model ? "" : what + "\n  control: " + tree + "\n  model:   " + model;
  };
  const auto join = [](const Log& log) {
    std::string text;
    for (const std::string& line : log) text += line + "; ";
    return text;
  };
  std::string wrong = differ("hooks and results", join(m_treeLog), join(m_modelLog));
  m_treeLog.clear();
  m_modelLog.clear();
  if (wrong.empty()) wrong = differ("shape", Shape(m_tree.GetRootItem()), Shape(m_model.Root()));
  if (!wrong.empty()) return wrong;

  std::string rows, modelRows;
  for (CVornTreeItem* row = m_tree.GetFirstVisibleItem(); row != nullptr;
       row = m_tree.GetNextVisibleItem(row)) {
    rows += Name(row) + " ";
  }
  for (const Node* row : m_model.Rows()) modelRows += Name(row) + " ";
  wrong = differ("rows", rows, modelRows);
  if (wrong.empty()) {
    wrong = differ("row count", std::to_string(m_tree.GetVisibleCount()), std::to_string(m_model.RowCount()));
  }
  if (wrong.empty()) wrong = differ("focus", Name(m_tree.GetItemHasFocus()), Name(m_model.Focus()));
  if (wrong.empty()) wrong = differ("anchor", Name(m_tree.GetLastSelectedItem()), Name(m_model.Last()));
  if (wrong.empty())
    wrong = differ("active document", Name(m_tree.GetActiveDocItem()), Name(m_model.ActiveDocument()));
  if (!wrong.empty()) return wrong;

  CVornTreeItemArray selected;
  m_tree.GetCurrentSelection(selected);
  std::vector<std::string> names, modelNames;
  for (long i = 0; i < selected.GetSize(); ++i) names.push_back(Name(selected[i]));
  for (const Node* node : m_model.Selection()) modelNames.push_back(Name(node));
  std::sort(names.begin(), names.end());
  std::sort(modelNames.begin(), modelNames.end());
  return differ("selection", join(names), join(modelNames));
}

// What a step brought about, whatever the items: names of hooks and results stay, and what comes twice in a
// row counts once.
std::string World::EventOf(const Step& step, const Log& log) {
  std::string event = std::to_string(step.operation / 64) + "." + std::to_string(step.operation % 64);
  std::string before;
  for (const std::string& line : log) {
    std::string general;
    for (char c : line) {
      if (line[0] == '=' || c < '0' || c > '9') general += c;
    }
    if (general != before) event += "; " + general;
    before = general;
  }
  return event;
}

std::string World::Do(const Step& step, std::set<std::string>* events) {
  Act(step);
  if (events != nullptr && !m_treeLog.empty()) events->insert(EventOf(step, m_treeLog));
  char wrong[256];
  if (!vorn::IsTreeSound(m_tree, false, wrong, sizeof(wrong))) return wrong;
  return Compare();
}

}  // namespace

std::string Run(const Steps& steps, uint32_t seed, std::set<std::string>* events) {
  World world(seed);
  for (size_t i = 0; i < steps.size(); ++i) {
    const std::string wrong = world.Do(steps[i], events);
    if (!wrong.empty()) return "after step " + std::to_string(i) + ": " + wrong;
  }
  return "";
}

}  // namespace fuzz
