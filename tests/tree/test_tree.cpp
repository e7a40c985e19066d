#include "tree/test_tree.h"

#include "support/tree_text.h"
#include "tree/model/VornTreeItem.h"

namespace support {

std::string Narrow(const wchar_t* text) {
  std::string narrow;
  for (; text != nullptr && *text != 0; ++text) narrow += *text < 0x80 ? static_cast<char>(*text) : '?';
  return narrow;
}

std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }

namespace {

// Rows and marks are read from the fields, not through the operations under test.
std::string MarksOf(TestTree& tree, const CVornTreeItem* item) {
  std::string marks;
  const auto mark = [&](bool set, char c) {
    if (set) marks += c;
  };
  mark(item->m_nState & STIS_EXPANDED, '+');
  mark(item->m_nState & STIS_HIDDEN, '!');
  mark(item->m_nState & STIS_SELECTED, '*');
  mark(tree.GetItemHasFocus() == item, '@');
  mark(item->m_nState & STIS_CHECKED, '=');
  mark(item->m_nState & STIS_SHORTCUT, '~');
  mark(item->m_nState & STIS_HASCHILDREN, '#');
  return marks;
}

CVornTreeItem* Find(CVornTreeItem* item, const std::string& label) {
  for (CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
    if (Narrow(child->m_strText) == label) return child;
    if (CVornTreeItem* below = Find(child, label)) return below;
  }
  return nullptr;
}

bool Has(const TextNode& node, char mark) { return node.marks.find(mark) != std::string::npos; }

void AddBelow(TestTree& tree, CVornTreeItem* parent, const TextNode& node) {
  for (const TextNode& child : node.children) {
    CVornTreeItem* item = tree.Add(child.text, parent);
    AddBelow(tree, item, child);
    if (Has(child, '#')) tree.ModifyItemState(item, 0, STIS_HASCHILDREN);
    if (Has(child, '+')) tree.Expand(item, STE_EXPAND);
    if (Has(child, '!')) tree.SetItemVisibility(item, 0);
    if (Has(child, '=')) tree.ModifyItemState(item, 0, STIS_CHECKED);
    if (Has(child, '*')) tree.SelectItem(item, 1);
  }
}

}  // namespace

void TestTree::Build(const std::string& scene) {
  const std::optional<TextNode> root = TextToTree(scene);
  ASSERT_TRUE(root.has_value()) << scene;
  recording = false;
  AddBelow(*this, GetRootItem(), *root);
  recording = true;
}

CVornTreeItem* TestTree::operator[](const std::string& label) {
  return GetRootItem() == nullptr ? nullptr : Find(GetRootItem(), label);
}

std::string TestTree::Text() {
  TreeSource<CVornTreeItem*> source;
  source.text = [this](CVornTreeItem* item) {
    return item == GetRootItem() ? "root" : Narrow(item->m_strText);
  };
  source.children = [](CVornTreeItem* item) {
    std::vector<CVornTreeItem*> children;
    for (CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      children.push_back(child);
    }
    return children;
  };
  source.marks = [this](CVornTreeItem* item) { return item == GetRootItem() ? "" : MarksOf(*this, item); };
  return TreeToText(GetRootItem(), source);
}

std::string TestTree::Rows() {
  std::string rows;
  for (CVornTreeItem* row = GetFirstVisibleItem(); row != nullptr; row = GetNextVisibleItem(row)) {
    rows += (rows.empty() ? "" : " ") + Narrow(row->m_strText);
  }
  return rows;
}

std::string TestTree::Selected() {
  std::string labels;
  const std::function<void(CVornTreeItem*)> walk = [&](CVornTreeItem* item) {
    if (item->m_nState & STIS_SELECTED) labels += (labels.empty() ? "" : " ") + Narrow(item->m_strText);
    for (CVornTreeItem* child = item->m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
      walk(child);
    }
  };
  if (GetRootItem() != nullptr) walk(GetRootItem());
  return labels;
}

CVornTreeItem* TestTree::Add(const std::string& label, CVornTreeItem* parent, CVornTreeItem* after) {
  return InsertItem(Wide(label).c_str(), -1, -1, parent, after);
}

std::string TestTree::Name(CVornTreeItem* item) {
  if (item == nullptr) return "-";
  if (item == STI_ROOT || item == GetRootItem()) return "root";
  // Only a live item answers with a state; a label of "Root" may stand for any other.
  STITEM record{};
  record.hItem = item;
  return GetItem(&record) ? Narrow(GetItemText(item)) : "?";
}

// --- Hooks -----------------------------------------------------------------------------------------

int TestTree::Answered(const std::string& hook, CVornTreeItem* first, CVornTreeItem* second) {
  const Answer current = answer;  // which may replace itself
  return current ? current(hook, first, second) : 1;
}

int TestTree::Told(const std::string& hook, CVornTreeItem* first) {
  if (recording) log.Note(hook + " " + Name(first));
  return Answered(hook, first, nullptr);
}

int TestTree::Told(const std::string& hook, CVornTreeItem* first, CVornTreeItem* second) {
  if (recording) log.Note(hook + " " + Name(first) + " " + Name(second));
  return Answered(hook, first, second);
}

int TestTree::OnSelChanging(CVornTreeItem* old, CVornTreeItem* item) {
  return Told("OnSelChanging", old, item);
}
int TestTree::OnSelChanged(CVornTreeItem* old, CVornTreeItem* item) {
  return Told("OnSelChanged", old, item);
}
int TestTree::OnMultiSelChanging(CVornTreeItem* old, CVornTreeItem* item) {
  return Told("OnMultiSelChanging", old, item);
}
int TestTree::OnMultiSelChanged(CVornTreeItem* old, CVornTreeItem* item) {
  return Told("OnMultiSelChanged", old, item);
}
int TestTree::OnItemIconClic(CVornTreeItem* item, int flags) {
  return Told(flags ? "OnItemIconClic(state)" : "OnItemIconClic", item);
}
int TestTree::OnItemExpanding(CVornTreeItem* item) { return Told("OnItemExpanding", item); }
int TestTree::OnItemExpanded(CVornTreeItem* item) { return Told("OnItemExpanded", item); }
int TestTree::OnItemDblClk(CVornTreeItem* item) { return Told("OnItemDblClk", item); }
void TestTree::OnDeleteItem(CVornTreeItem* item) { Told("OnDeleteItem", item); }
int TestTree::OnBeginLabelEdit(CVornTreeItem* item) { return Told("OnBeginLabelEdit", item); }
int TestTree::OnEndLabelEdit(CVornTreeItem* item, const wchar_t* text) {
  return Told("OnEndLabelEdit '" + Narrow(text) + "'", item);
}
int TestTree::OnChecking(CVornTreeItem* item) { return Told("OnChecking", item); }
int TestTree::OnChecked(CVornTreeItem* item) { return Told("OnChecked", item); }
int TestTree::OnClearSelection(CVornTreeItem* item) {
  const int answered = Told("OnClearSelection", item);
  return answered ? CVornTreeCtrl::OnClearSelection(item) : 0;
}
int TestTree::OnChangeActiveDoc(CVornTreeItem* old, CVornTreeItem* item) {
  return Told("OnChangeActiveDoc", old, item);
}

}  // namespace support
