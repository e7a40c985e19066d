// What sorting is made of: a row that takes insertions anywhere, and the order by name.
#include <vector>

#include "items.h"
#include "tree/model/NameOrder.h"
#include "tree/model/SortedRow.h"

namespace {

using items::Grove;

CVornTreeItem* Number(size_t n) { return reinterpret_cast<CVornTreeItem*>(n); }

TEST(SortedRow, HoldsItsOrderAcrossManyInsertions) {
  vorn::SortedRow row;
  std::vector<CVornTreeItem*> plain;
  size_t place = 0;
  for (size_t i = 1; i <= 9000; ++i) {
    place = (place * 7919 + i) % (plain.size() + 1);
    row.Insert(Number(i), static_cast<long>(place));
    plain.insert(plain.begin() + static_cast<long>(place), Number(i));
  }
  ASSERT_EQ(row.GetSize(), 9000);
  for (size_t i = 0; i < plain.size(); ++i) ASSERT_EQ(row.At(static_cast<long>(i)), plain[i]) << i;
  std::vector<CVornTreeItem*> visited;
  row.ForEach([&visited](CVornTreeItem* item) { visited.push_back(item); });
  EXPECT_EQ(visited, plain);
}

TEST(SortedRow, IsEmptyAtFirst) {
  const vorn::SortedRow row;
  EXPECT_EQ(row.GetSize(), 0);
  row.ForEach([](CVornTreeItem*) { FAIL(); });
}

class NameOrder : public Grove {};

TEST_F(NameOrder, OfNothingIsNothing) { EXPECT_TRUE(vorn::OrderByName({}).empty()); }

TEST_F(NameOrder, PutsTheLaterOfEqualLabelsInFront) {
  std::vector<CVornTreeItem*> items;
  for (const wchar_t* text : {L"b", L"A", L"a"}) items.push_back(Add(root, text));
  const std::vector<CVornTreeItem*> expected{items[2], items[1], items[0]};
  EXPECT_EQ(vorn::OrderByName(items), expected);
}

TEST_F(NameOrder, ComparesByCodeAndPutsTheShorterFirst) {
  std::vector<CVornTreeItem*> items;
  for (const wchar_t* text : {L"ab", L"a", L"", L"a_", L"aB c", L"Z"}) items.push_back(Add(root, text));
  const std::vector<CVornTreeItem*> expected{items[2], items[1], items[3], items[0], items[4], items[5]};
  EXPECT_EQ(vorn::OrderByName(items), expected);
}

}  // namespace
