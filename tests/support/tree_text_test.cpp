#include "support/tree_text.h"

#include <windows.h>

#include <gtest/gtest.h>

using support::TextNode;
using support::TextToTree;
using support::TreeToText;

namespace {

const support::TreeSource<TextNode> kSource = {
    [](const TextNode& node) { return node.text; },
    [](const TextNode& node) { return node.children; },
    [](const TextNode& node) { return node.marks; },
};

}  // namespace

TEST(TreeText, WritesShapeAndMarks) {
  const TextNode tree = {"root", "", {{"a", "", {}}, {"b", "", {{"b1", "*", {}}}}, {"c", "+!", {}}}};
  EXPECT_EQ("root [a b [b1*] c+!]", TreeToText(tree, kSource));
}

TEST(TreeText, QuotesNamesThatWouldBeMisread) {
  const TextNode tree = {"two words", "", {{"", "", {}}, {"a]", "*", {}}, {"say \"x\"", "", {}}}};
  EXPECT_EQ(R"("two words" ["" "a]"* "say \"x\""])", TreeToText(tree, kSource));
}

TEST(TreeText, ReadsWhatItWrites) {
  for (const char* text : {"root", "root* [a]", R"("é à" [x [y [z~]] "" "q\"\\"])"}) {
    const auto tree = TextToTree(text);
    ASSERT_TRUE(tree) << text;
    EXPECT_EQ(text, TreeToText(*tree, kSource));
  }
}

TEST(TreeText, RefusesWhatIsNotOneTree) {
  for (const char* text : {"", "a b", "a [b", "a ]", "[a]", "\"open"}) {
    EXPECT_FALSE(TextToTree(text)) << text;
  }
}
