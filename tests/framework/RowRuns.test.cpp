#include "framework/RowRuns.h"

#include <gtest/gtest.h>

#include "tests/support/Table.h"

namespace Tests {
namespace {

using Ombrelia::RunEquals;
using Ombrelia::RunEqualsInAnyOrder;

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

TEST(RowRuns, InAnyOrderEqualTheTextsOfTheirRowsOnly) {
  const auto table = Letters();
  EXPECT_TRUE(RunEqualsInAnyOrder(*table, wxT("Letter"), 0, {wxT("c"), wxT("a"), wxT("b")}));
  EXPECT_TRUE(RunEqualsInAnyOrder(*table, wxT("Letter"), 3, {wxT("d"), wxT("b"), wxT("a")}));
  EXPECT_FALSE(RunEqualsInAnyOrder(*table, wxT("Letter"), 3, {wxT("c"), wxT("b"), wxT("a")}));
  EXPECT_TRUE(RunEqualsInAnyOrder(*table, wxT("Letter"), 0, {}));
}

TEST(RowRuns, InAnyOrderHoldEachTextAsOftenAsListed) {
  const auto table = TableOf({"Letter"}, {{"a"}, {"b"}, {"a"}});
  EXPECT_TRUE(RunEqualsInAnyOrder(*table, wxT("Letter"), 0, {wxT("a"), wxT("a"), wxT("b")}));
  EXPECT_FALSE(RunEqualsInAnyOrder(*table, wxT("Letter"), 0, {wxT("a"), wxT("b"), wxT("b")}));
}

TEST(RowRuns, InAnyOrderReadCellsOutOfRangeAsUndefined) {
  EXPECT_TRUE(RunEqualsInAnyOrder(*Letters(), wxT("Letter"), 5, {wxT("?"), wxT("d")}));
  EXPECT_FALSE(RunEqualsInAnyOrder(*Letters(), wxT("Letter"), 5, {wxT("d"), wxT("a")}));
  EXPECT_TRUE(RunEqualsInAnyOrder(*Letters(), wxT("letter"), 0, {wxT("?")}));
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
