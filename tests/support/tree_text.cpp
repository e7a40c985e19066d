#include "support/tree_text.h"

#include <algorithm>
#include <string_view>

namespace support {
namespace {

bool IsMark(char c) { return c && std::string_view(kTreeMarks).find(c) != std::string_view::npos; }

// Whether a name ends before the character, unless it stands in quotes.
bool IsBreak(char c) { return IsMark(c) || std::string_view(" \t\n[]\"").find(c) != std::string_view::npos; }

class Reader {
 public:
  explicit Reader(const std::string& text) : m_text(text) {}

  std::optional<TextNode> Whole() {
    auto node = ReadNode();
    SkipBlanks();
    if (m_at != m_text.size()) return std::nullopt;
    return node;
  }

 private:
  std::optional<TextNode> ReadNode() {
    SkipBlanks();
    TextNode node;
    auto name = ReadName();
    if (!name) return std::nullopt;
    node.text = *name;
    while (IsMark(Peek())) node.marks += Take();
    SkipBlanks();
    if (Peek() != '[') return node;
    Take();
    for (SkipBlanks(); Peek() != ']'; SkipBlanks()) {
      auto child = ReadNode();
      if (!child) return std::nullopt;
      node.children.push_back(std::move(*child));
    }
    Take();
    return node;
  }

  std::optional<std::string> ReadName() {
    std::string name;
    if (Peek() != '"') {
      while (Peek() && !IsBreak(Peek())) name += Take();
      return name.empty() ? std::nullopt : std::optional(name);
    }
    Take();
    while (Peek() != '"') {
      if (Peek() == '\\') Take();
      if (!Peek()) return std::nullopt;
      name += Take();
    }
    Take();
    return name;
  }

  void SkipBlanks() {
    while (Peek() == ' ' || Peek() == '\t' || Peek() == '\n') Take();
  }

  char Peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
  char Take() { return m_text[m_at++]; }

  const std::string& m_text;
  std::size_t m_at = 0;
};

}  // namespace

std::string QuotedName(const std::string& name) {
  if (!name.empty() && std::none_of(name.begin(), name.end(), IsBreak)) return name;
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::optional<TextNode> TextToTree(const std::string& text) { return Reader(text).Whole(); }

}  // namespace support
