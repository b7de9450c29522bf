#include "framework/RowRuns.h"

#include <gtest/gtest.h>

#include "tests/support/Table.h"

namespace Tests {
namespace {

using Ombrelia::RunEquals;

const auto Letters = [] {
  return TableOf({"Number", "Letter"},
                 {{"1", "a"}, {"2", "b"}, {"3", "c"}, {"4", "a"}, {"5", "b"}, {"6", "d"}});
};

TEST(RowRuns, EqualTheTextsFromTheirFirstRowOn) {
  const auto table = Letters();
  EXPECT_TRUE(RunEquals(*table, wxT("Letter"), 0, {wxT("a"), wxT("b"), wxT("c")}));
  EXPECT_TRUE(RunEquals(*table, wxT("Letter"), 3, {wxT("a"), wxT("b"), wxT("d")}));
  EXPECT_FALSE(RunEquals(*table, wxT("Letter"), 3, {wxT("a"), wxT("b"), wxT("c")}));
  EXPECT_FALSE(RunEquals(*table, wxT("Letter"), 0, {wxT("A")}));
  EXPECT_FALSE(RunEquals(*table, wxT("Letter"), 0, {wxT("a ")}));
}

TEST(RowRuns, LookAtTheirOwnColumnOnly) {
  EXPECT_TRUE(RunEquals(*Letters(), wxT("Number"), 0, {wxT("1"), wxT("2")}));
  EXPECT_FALSE(RunEquals(*Letters(), wxT("Number"), 0, {wxT("a"), wxT("b")}));
}

TEST(RowRuns, OfNoLengthAreEqual) { EXPECT_TRUE(RunEquals(*Letters(), wxT("Letter"), 0, {})); }

TEST(RowRuns, ReadCellsOutOfRangeAsUndefined) {
  const auto table = Letters();
  EXPECT_TRUE(RunEquals(*table, wxT("Letter"), 5, {wxT("d"), wxT("?")}));
  EXPECT_FALSE(RunEquals(*table, wxT("Letter"), 5, {wxT("d"), wxT("")}));
  EXPECT_TRUE(RunEquals(*table, wxT("Letter"), -1, {wxT("?"), wxT("a")}));
  EXPECT_TRUE(RunEquals(*table, wxT("letter"), 0, {wxT("?")}));
}

TEST(RowRuns, TakeEmptyCellsForEmptyTexts) {
  const auto table = TableOf({"Number", "Letter"}, {{"1", ""}, {"2", "b"}});
  EXPECT_TRUE(RunEquals(*table, wxT("Letter"), 0, {wxT(""), wxT("b")}));
}

TEST(RowRuns, OfATableWithoutRowsReadAsUndefined) {
  const auto table = TableOf({}, {});
  EXPECT_FALSE(RunEquals(*table, wxT("Letter"), 0, {wxT("a")}));
  EXPECT_TRUE(RunEquals(*table, wxT("Letter"), 0, {wxT("?")}));
}

}  // namespace
}  // namespace Tests
