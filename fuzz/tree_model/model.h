// An independent model of the tree: items, counts, visibility, expansion, shortcuts, selection. Slow and
// plain on purpose, and written from the rules; it shares no code with the library.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace fuzz {

// State bits that the model knows, with the library's values.
enum : unsigned {
  kSelected = 0x1,
  kExpanded = 0x2,
  kChecked = 0x8,
  kShortcut = 0x20,
  kHidden = 0x80,
  kLocked = 0x100,
  kHasChildren = 0x200,
  kNoDrop = 0x40000,
  kNoSelect = 0x100000,
};

struct Node {
  int id = 0;
  bool alive = true;
  Node* parent = nullptr;
  std::vector<Node*> children;
  Node* target = nullptr;
  std::vector<Node*> shortcuts;
  int level = -1;
  unsigned descendants = 0;
  int rows = 0;    // visible descendants
  int hidden = 0;  // hidden descendants
  unsigned state = 0;
  bool checkBox = false;
  int lockedVisible = 1;
  std::string label;

  bool Has(unsigned bit) const { return (state & bit) == bit; }
  void Set(unsigned bit, bool on) { state = on ? state | bit : state & ~bit; }
};

// Is told each hook in order and answers it.
using Oracle = std::function<int(const std::string& hook, const Node* first, const Node* second)>;

// One manager of a plain selection.
struct Manager {
  Node* last = nullptr;
  Node* focus = nullptr;
  bool shift = false, ctrl = false;
  bool pendingUp = false;
  bool inClear = false;
  std::vector<Node*> selected;
  std::vector<Node*> saved;
  bool forceShift = false, forceCtrl = false;
};

struct Document {
  Node* node;
  std::unique_ptr<Manager> manager;
};

enum class Place { First, Last, Behind };

class Model {
 public:
  explicit Model(Oracle oracle);

  Node* Root() { return m_root; }
  const std::vector<std::unique_ptr<Node>>& Nodes() const { return m_nodes; }

  // --- Changes ---
  Node* Insert(const std::string& label, Node* parent, Place place, Node* behind);
  void Delete(Node* node);
  void DeleteAll(Node* parent);
  int Move(Node* parent, Node* node, Place place, Node* behind);
  int Expand(Node* node, unsigned code);
  int SetVisibility(Node* node, int visible);
  int Lock(Node* node, int visible);
  int Unlock(Node* node);
  int SetCheck(Node* node, int check);
  Node* CreateShortcut(Node* target, Node* parent, Place place, Node* behind);
  Node* ShortcutTarget(Node* node);
  bool SortByName(Node* parent);
  int SortByRank(Node* parent, const std::function<int(const Node*)>& rank);
  void ModifyState(Node* node, unsigned remove, unsigned add);
  void SetCheckBox(Node* node, bool on) { node->checkBox = on; }

  // --- Selection ---
  int PressLeft(Node* node);
  int ReleaseLeft(Node* node);
  int PressRight(Node* node);
  int KeyDown(Node* node);
  int Select(Node* node, int keepOthers);
  void Unselect(Node* node, int shortcutsToo);
  void Clear(Node* node);
  void Force(bool ctrl, bool shift);
  void SetMultiple(bool on) { m_multiple = on; }
  void SetByDocuments(bool on);
  void SetClearAllDocuments(bool on) { m_clearAll = on; }
  int SetDocumentDisplay(int onlyActive);

  // --- Answers ---
  std::vector<Node*> Rows() const;
  int RowCount() const;
  Node* Focus();
  Node* Last();
  Node* ActiveDocument();
  std::vector<Node*> Selection();

 private:
  int Ask(const std::string& hook, Node* first, Node* second = nullptr) {
    return m_oracle(hook, first, second);
  }
  Node* NewNode(const std::string& label);
  Node* DocumentOf(Node* node) const;
  static bool IsAlive(const Node* node) { return node != nullptr && node->alive; }
  int CanSelect(const Node* node) const { return node->Has(kNoSelect) ? 0 : 1; }

  void Link(Node* parent, Node* node, size_t place);
  void Unlink(Node* node);
  void PutIn(Node* parent, Node* node, Place place, Node* behind);
  void Kill(Node* node);
  void DestroyBelow(Node* node);
  void AddToAncestors(Node* from, long total, int rows, int hidden);
  static void AddRows(Node* from, int rows);
  void SetLevels(Node* node, int level);
  void SetVisible(Node* node, int visible);
  void ExpandAllBelow(Node* node);
  void CollapseAllBelow(Node* node);
  Node* FirstRow(const Node* parent) const;
  Node* NextRow(Node* node) const;

  Manager* Active();
  bool Activate(Node* node);
  Manager* ManagerOf(Node* document);
  void Forget(Node* node);
  bool RemoveFrom(Manager& manager, Node* node);
  void Take(Manager& manager, Node* node);
  void ReadModifiers(Manager& manager) const;
  void ClearManager(Manager& manager, Node* node, bool resetLast);
  void ClearAcross(Manager* manager, Node* node, bool resetLast);
  void Range(Manager& manager, Node* from, Node* to);
  static Node* FirstInOrder(Node* a, Node* b);
  int PlainPress(Manager& manager, Node* node);
  int PlainRelease(Manager& manager, Node* node);
  int PlainRight(Manager& manager, Node* node);
  int PlainKey(Manager& manager, Node* node);
  int PlainSelect(Manager& manager, Node* node, int keepOthers);
  void PlainUnselect(Manager& manager, Node* node, int shortcutsToo);
  void DocumentGone(Node* node);
  void ForgetDead();

  Oracle m_oracle;
  std::vector<std::unique_ptr<Node>> m_nodes;
  Node* m_root = nullptr;
  bool m_multiple = false;
  bool m_byDocuments = false;
  bool m_clearAll = false;
  int m_onlyActive = 0;
  Manager m_plain;  // also the outer one of a selection by documents
  std::vector<Document> m_documents;
  Node* m_activeDocument = nullptr;
  Manager* m_activeManager = nullptr;
  bool m_documentChanged = false;
};

}  // namespace fuzz
