// Trees as one line of text: `root [a b [b1*] c]`. Nodes are separated by blanks, the children of a
// node stand in brackets after it, and marks follow its name at once.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace support {

// How the writer sees a tree whose nodes are Node values.
template <class Node>
struct TreeSource {
  std::function<std::string(const Node&)> text;
  std::function<std::vector<Node>(const Node&)> children;
  std::function<std::string(const Node&)> marks = [](const Node&) { return std::string(); };
};

// A name as it stands in the notation: in quotes when it has blanks, brackets, quotes or marks.
std::string QuotedName(const std::string& name);

template <class Node>
std::string TreeToText(const Node& node, const TreeSource<Node>& source) {
  std::string text = QuotedName(source.text(node)) + source.marks(node);
  const std::vector<Node> children = source.children(node);
  if (children.empty()) return text;
  std::string list;
  for (const Node& child : children) list += (list.empty() ? "" : " ") + TreeToText(child, source);
  return text + " [" + list + "]";
}

// A tree that was read from the notation: to build a scene from one line.
struct TextNode {
  std::string text;
  std::string marks;
  std::vector<TextNode> children;
};

// The root of the tree, or nothing where the text is not one whole tree.
std::optional<TextNode> TextToTree(const std::string& text);

// The characters that are marks. What each means is up to the writer: selected, checked, hidden, ...
inline constexpr const char* kTreeMarks = "*!+-~^@#=%";

}  // namespace support
