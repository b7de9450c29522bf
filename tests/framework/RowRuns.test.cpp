#include "framework/RowRuns.h"

#include <gtest/gtest.h>

#include "tests/support/Table.h"

namespace Tests {
namespace {

using Ombrelia::RunEquals;
using Ombrelia::RunsAreEqual;

const auto Letters = [] {
  return TableOf({"Number", "Letter"},
                 {{"1", "a"}, {"2", "b"}, {"3", "c"}, {"4", "a"}, {"5", "b"}, {"6", "d"}});
};

TEST(RowRuns, AreEqualCellByCell) {
  const auto table = Letters();
  EXPECT_TRUE(RunsAreEqual(*table, 1, 0, 3, 2));
  EXPECT_FALSE(RunsAreEqual(*table, 1, 0, 3, 3));
  EXPECT_FALSE(RunsAreEqual(*table, 1, 0, 1, 1));
}

TEST(RowRuns, LookAtTheirOwnColumnOnly) { EXPECT_FALSE(RunsAreEqual(*Letters(), 0, 0, 3, 2)); }

TEST(RowRuns, OfNoLengthAreEqual) {
  EXPECT_TRUE(RunsAreEqual(*Letters(), 1, 0, 1, 0));
  EXPECT_TRUE(RunEquals(*Letters(), 1, 0, {}));
}

TEST(RowRuns, ReadCellsOutOfRangeAsUndefined) {
  const auto table = Letters();
  EXPECT_FALSE(RunsAreEqual(*table, 1, 3, 6, 1));
  EXPECT_TRUE(RunsAreEqual(*table, 1, 6, 100, 2));
  EXPECT_TRUE(RunsAreEqual(*table, 1, -1, 6, 1));
  EXPECT_TRUE(RunsAreEqual(*table, -1, 0, 3, 3));
  EXPECT_TRUE(RunEquals(*table, 1, 5, {wxT("d"), wxT("?")}));
  EXPECT_FALSE(RunEquals(*table, 1, 5, {wxT("d"), wxT("")}));
  EXPECT_TRUE(RunEquals(*table, -1, 0, {wxT("?")}));
}

TEST(RowRuns, EqualTheTextsFromTheirFirstRowOn) {
  const auto table = Letters();
  EXPECT_TRUE(RunEquals(*table, 1, 0, {wxT("a"), wxT("b"), wxT("c")}));
  EXPECT_TRUE(RunEquals(*table, 1, 3, {wxT("a"), wxT("b"), wxT("d")}));
  EXPECT_FALSE(RunEquals(*table, 1, 3, {wxT("a"), wxT("b"), wxT("c")}));
  EXPECT_FALSE(RunEquals(*table, 1, 0, {wxT("A")}));
  EXPECT_FALSE(RunEquals(*table, 1, 0, {wxT("a ")}));
}

TEST(RowRuns, TakeEmptyCellsForEmptyTexts) {
  const auto table = TableOf({"Number", "Letter"}, {{"1", ""}, {"2", "b"}});
  EXPECT_TRUE(RunEquals(*table, 1, 0, {wxT(""), wxT("b")}));
}

TEST(RowRuns, OfATableWithoutRowsReadAsUndefined) {
  const auto table = TableOf({}, {});
  EXPECT_FALSE(RunEquals(*table, 0, 0, {wxT("a")}));
  EXPECT_TRUE(RunsAreEqual(*table, 0, 0, 3, 2));
}

}  // namespace
}  // namespace Tests
