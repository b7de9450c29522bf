#include "framework/ExpectedCells.h"

#include <gtest/gtest.h>

namespace Tests {
namespace {

using Cells = std::vector<wxString>;
using Ombrelia::ExpectedCells;

TEST(ExpectedCells, HoldNothingAtFirst) { EXPECT_EQ(ExpectedCells().Cells(), Cells{}); }

TEST(ExpectedCells, GrowByCellsRunsAndSequences) {
  EXPECT_EQ(ExpectedCells()
                .Add(wxT("a"))
                .Repeat(3, wxT("b"))
                .AddAll({wxT("c"), wxT("d")})
                .RepeatAll(2, {wxT("e"), wxT("")})
                .Cells(),
            (Cells{wxT("a"), wxT("b"), wxT("b"), wxT("b"), wxT("c"), wxT("d"), wxT("e"), wxT(""),
                   wxT("e"), wxT("")}));
}

TEST(ExpectedCells, GrowByNothingFromRunsOfNoLength) {
  EXPECT_EQ(ExpectedCells().Repeat(0, wxT("a")).RepeatAll(0, {wxT("b")}).AddAll({}).Cells(),
            Cells{});
}

TEST(ExpectedCells, StartFromBlankRows) {
  EXPECT_EQ(ExpectedCells::Blank(3).Cells(), (Cells{wxT(""), wxT(""), wxT("")}));
  EXPECT_EQ(ExpectedCells::Blank(0).Cells(), Cells{});
}

TEST(ExpectedCells, AreFilledByRow) {
  EXPECT_EQ(ExpectedCells::Blank(3).Row(0, wxT("a")).Row(2, wxT("b")).Cells(),
            (Cells{wxT("a"), wxT(""), wxT("b")}));
}

TEST(ExpectedCells, KeepTheLastCellOfARow) {
  EXPECT_EQ(ExpectedCells::Blank(1).Row(0, wxT("a")).Row(0, wxT("b")).Cells(), Cells{wxT("b")});
}

TEST(ExpectedCells, AreFilledByRangesThatHoldBothEnds) {
  EXPECT_EQ(ExpectedCells::Blank(5).Range(1, 3, wxT("a")).Cells(),
            (Cells{wxT(""), wxT("a"), wxT("a"), wxT("a"), wxT("")}));
  EXPECT_EQ(ExpectedCells::Blank(2).Range(1, 1, wxT("a")).Cells(), (Cells{wxT(""), wxT("a")}));
}

TEST(ExpectedCells, AreFilledCellByCellFromARow) {
  EXPECT_EQ(ExpectedCells::Blank(4).From(1, {wxT("a"), wxT("b")}).Cells(),
            (Cells{wxT(""), wxT("a"), wxT("b"), wxT("")}));
}

// The remainder is that of the row's own number, not of its place in the range.
TEST(ExpectedCells, AreFilledByTheRemainderOfTheRowNumber) {
  EXPECT_EQ(
      ExpectedCells::Blank(9).Remainder(1, 7, 3, 2, wxT("a")).Cells(),
      (Cells{wxT(""), wxT(""), wxT("a"), wxT(""), wxT(""), wxT("a"), wxT(""), wxT(""), wxT("")}));
}

TEST(ExpectedCells, AreFilledByGroups) {
  EXPECT_EQ(ExpectedCells::Blank(8).Groups(1, 3, 1, 2, {wxT("a"), wxT("b")}).Cells(),
            (Cells{wxT(""), wxT(""), wxT("a"), wxT("a"), wxT(""), wxT("b"), wxT("b"), wxT("")}));
  EXPECT_EQ(ExpectedCells::Blank(3).Groups(0, 1, 0, 0, {wxT("a"), wxT("b")}).Cells(),
            (Cells{wxT("a"), wxT("b"), wxT("")}));
}

TEST(ExpectedCells, MayGrowBehindBlankRows) {
  EXPECT_EQ(ExpectedCells::Blank(1).Add(wxT("a")).Row(1, wxT("b")).Cells(),
            (Cells{wxT(""), wxT("b")}));
}

// A table with a mistake in it must not look like a table: no data file has its length then.
TEST(ExpectedCells, HoldNothingAfterARowBeyondTheEnd) {
  EXPECT_EQ(ExpectedCells::Blank(2).Row(2, wxT("a")).Cells(), Cells{});
  EXPECT_EQ(ExpectedCells::Blank(2).Range(0, 2, wxT("a")).Cells(), Cells{});
  EXPECT_EQ(ExpectedCells::Blank(2).From(1, {wxT("a"), wxT("b")}).Cells(), Cells{});
  EXPECT_EQ(ExpectedCells::Blank(2).Remainder(0, 3, 3, 2, wxT("a")).Cells(), Cells{});
  EXPECT_EQ(ExpectedCells::Blank(5).Groups(0, 3, 2, 2, {wxT("a"), wxT("b")}).Cells(), Cells{});
  EXPECT_EQ(ExpectedCells::Blank(2).Row(2, wxT("a")).Add(wxT("b")).Cells(), Cells{});
}

TEST(ExpectedCells, HoldNothingAfterARangeThatEndsBeforeItStarts) {
  EXPECT_EQ(ExpectedCells::Blank(5).Range(3, 2, wxT("a")).Cells(), Cells{});
  EXPECT_EQ(ExpectedCells::Blank(5).Groups(0, 4, 3, 2, {wxT("a")}).Cells(), Cells{});
}

TEST(ExpectedCells, HoldNothingAfterARowOutsideItsGroup) {
  EXPECT_EQ(ExpectedCells::Blank(9).Groups(0, 4, 2, 4, {wxT("a")}).Cells(), Cells{});
}

TEST(ExpectedCells, HoldNothingAfterADivisorOfNought) {
  EXPECT_EQ(ExpectedCells::Blank(5).Remainder(0, 4, 0, 0, wxT("a")).Cells(), Cells{});
}

}  // namespace
}  // namespace Tests
