#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2015-10-29_test_long_isi.om5";

const char* const TIME = "Cumulative\nTime";

const int INTERVALS[] = {10,  20,  30,  40,  50,  60,  70,  80, 90,
                         100, 200, 300, 400, 500, 600, 700, 800};

const std::string NOT_NUMERIC =
    Fail("NON_NUMERIC_TIME_VALUE", "Cum time string should always be convertible to a number",
         EXPERIMENT, 150,
         "we called the wx function ToLong on a string, and it failed to produce a number");

std::string WrongInterval(int row, int expected, int found) {
  return Fail("UNEXPECTED_ISI_VALUE",
              "Cum time on some row reflects an unexpected ISI__see details", EXPERIMENT, 174,
              "the isi leading to row " + std::to_string(row) + " should have an isi of " +
                  std::to_string(expected) + " but we found " + std::to_string(found));
}

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

// The record of all but the suite's frame.
Lines Checks(const DataFile& file) {
  Lines lines = file.Verify();
  lines.erase(lines.begin(), lines.begin() + 2);
  lines.resize(lines.size() - 3);
  return lines;
}

// The sample with the second time of a pair moved.
DataFile WithInterval(std::size_t pair, int interval) {
  DataFile file = Sample();
  const int start = std::stoi(file.Cell(2 * pair, TIME));
  return file.Set(2 * pair + 1, TIME, std::to_string(start + interval));
}

TEST(TestISI, PassesItsSampleWithoutABoundOnExpansion) {
  EXPECT_EQ(Sample().Verify(),
            (Lines{"suite 2015-10-29_test_long_isi.om5",
                   "pass VerifyDatafile_was_called_for_2015-10-29_test_long_isi.om5",
                   "pass Data_appears_completely_and_in_order", "pass ISI_LENGTHS_OK",
                   "pass Experiment_duration_2015-10-29_test_long_isi.om5",
                   "pass __TIMING__TRACKING__2015-10-29_test_long_isi.om5__4146_ms",
                   "pass __EXPANSION__TRACKING__2015-10-29_test_long_isi.om5__27_ms"}));
}

TEST(TestISI, FailsOnAChangeOfAnyComparedCell) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"timestamp-002", "timestamp-003", "timestamp-002", "timestamp-003", "timestamp-002",
       "timestamp-003", "timestamp-002", "timestamp-003", "timestamp-002", "timestamp-003",
       "timestamp-002", "timestamp-003", "timestamp-002", "timestamp-003", "timestamp-002",
       "timestamp-003", "timestamp-002", "timestamp-003", "timestamp-002", "timestamp-003",
       "timestamp-002", "timestamp-003", "timestamp-002", "timestamp-003", "timestamp-002",
       "timestamp-003", "timestamp-002", "timestamp-003", "timestamp-002", "timestamp-003",
       "timestamp-002", "timestamp-003", "timestamp-002", "timestamp-003"});
}

TEST(TestISI, AllowsEachInterval5MsEitherWay) {
  for (std::size_t pair = 0; pair < 17; ++pair) {
    const int row = static_cast<int>(2 * pair + 1);
    const int interval = INTERVALS[pair];
    for (const int found : {interval - 5, interval, interval + 5}) {
      EXPECT_EQ(Checks(WithInterval(pair, found)),
                (Lines{"pass Data_appears_completely_and_in_order", "pass ISI_LENGTHS_OK"}));
    }
    for (const int found : {interval - 6, interval + 6, -interval}) {
      EXPECT_EQ(Checks(WithInterval(pair, found)),
                (Lines{"pass Data_appears_completely_and_in_order",
                       WrongInterval(row, interval, found)}));
    }
  }
}

TEST(TestISI, NamesTheRowOfTheLastInterval) {
  EXPECT_EQ(
      WithInterval(16, 815).Failures(),
      Lines{Fail("UNEXPECTED_ISI_VALUE",
                 "Cum time on some row reflects an unexpected ISI__see details", EXPERIMENT, 174,
                 "the isi leading to row 33 should have an isi of 800 but we found 815")});
  EXPECT_EQ(WithInterval(16, 805).Failures(), Lines{});
}

TEST(TestISI, EveryBadIntervalFailsByItself) {
  DataFile file = Sample();
  for (std::size_t row = 0; row < 34; ++row) file.Set(row, TIME, "4100");
  Lines failures;
  for (int pair = 0; pair < 17; ++pair) {
    failures.push_back(WrongInterval(2 * pair + 1, INTERVALS[pair], 0));
  }
  EXPECT_EQ(file.Failures(), failures);
}

TEST(TestISI, DoesNotMeasureBetweenPairs) {
  // The first two rows move together, so that the gap to the third is another.
  EXPECT_EQ(Sample().Set(0, TIME, "4").Set(1, TIME, "14").Failures(), Lines{});
}

TEST(TestISI, ATimeThatIsNoNumberInTheFirstPairStopsTheWalk) {
  for (const std::size_t row : {std::size_t{0}, std::size_t{1}}) {
    for (const char* text : {"", "soon", "24 ms", "24.5"}) {
      EXPECT_EQ(Checks(Sample().Set(row, TIME, text).Set(5, TIME, "0")),
                (Lines{"pass Data_appears_completely_and_in_order", NOT_NUMERIC}));
    }
  }
}

TEST(TestISI, ATimeThatIsNoNumberLaterStopsTheWalkThere) {
  const int found = 4 - std::stoi(Sample().Cell(2, TIME));
  EXPECT_EQ(
      Checks(
          Sample().Set(3, TIME, "4").Set(4, TIME, "none").Set(5, TIME, "none").Set(7, TIME, "4")),
      (Lines{"pass Data_appears_completely_and_in_order", WrongInterval(3, 20, found),
             NOT_NUMERIC}));
}

TEST(TestISI, ReadsNoTimesBehindTheLastPairAndNoneThatAreMissing) {
  EXPECT_EQ(Checks(Sample().RepeatLastRow().Set(33, TIME, "4142").Set(34, TIME, "4146")),
            (Lines{TooManyCells(EXPERIMENT), "pass ISI_LENGTHS_OK"}));
  EXPECT_EQ(Sample().KeepRows(33).SetDuration("4100").Failures(),
            (Lines{TooFewCells(EXPERIMENT), NOT_NUMERIC}));
}

TEST(TestISI, FailsWithoutItsColumns) {
  EXPECT_EQ(Sample().RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "timestamp-002")});
  EXPECT_EQ(Sample().RemoveColumn(TIME).Failures(),
            (Lines{NOT_NUMERIC, DurationUnavailable(EXPERIMENT)}));
}

TEST(TestISI, BearsTheEndsOfTheRange) {
  EXPECT_EQ(Sample()
                .Set(0, TIME, "-9223372036854775808")
                .Set(1, TIME, "9223372036854775807")
                .Set(2, TIME, "9223372036854775807")
                .Set(3, TIME, "-9223372036854775808")
                .Failures(),
            (Lines{WrongInterval(1, 10, 2147483647), WrongInterval(3, 20, -2147483648)}));
}

TEST(TestISI, ChecksTheBoundAfterAFailure) {
  EXPECT_EQ(Sample().Set(0, "Event\nName", "").Set(1, TIME, "").SetDuration("5001").Failures(),
            (Lines{CellDiffers(EXPERIMENT, 0, "timestamp-002"), NOT_NUMERIC,
                   DurationOutOfBounds(EXPERIMENT, 4084, 5000, "5001")}));
}

TEST(TestISI, CountsEachFileAfresh) {
  EXPECT_EQ(WithInterval(0, 16).Failures(), Lines{WrongInterval(1, 10, 16)});
  EXPECT_EQ(Checks(Sample()),
            (Lines{"pass Data_appears_completely_and_in_order", "pass ISI_LENGTHS_OK"}));
  EXPECT_EQ(Checks(WithInterval(0, 16)),
            (Lines{"pass Data_appears_completely_and_in_order", WrongInterval(1, 10, 16)}));
}

}  // namespace
}  // namespace Tests
