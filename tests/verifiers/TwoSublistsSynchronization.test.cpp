#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/TodayIs.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "two_sublists_synchronization.om5";

// What the host draws on the Mac until the first of March 2016.
DataFile TemporaryFile() {
  return DataFile::Sample(EXPERIMENT)
      .SetColumn("Event\nName", {"numbers (1, 1)", "numbers (2, 2)", "numbers (5, 5)",
                                 "letters (3, c)", "letters (4, d)"});
}

TEST(TwoSublistsSynchronization, PassesItsSample) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite two_sublists_synchronization.om5",
                   "pass VerifyDatafile_was_called_for_two_sublists_synchronization.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_two_sublists_synchronization.om5",
                   "pass Expansion_duration_two_sublists_synchronization.om5",
                   "pass __TIMING__TRACKING__two_sublists_synchronization.om5__517_ms",
                   "pass __EXPANSION__TRACKING__two_sublists_synchronization.om5__66_ms"}));
}

TEST(TwoSublistsSynchronization, ComparesTheTemporaryListAloneUntilTheLastDayOfFebruary) {
  const TodayIs today(2016, 2, 29);
  EXPECT_EQ(TemporaryFile().Verify(),
            (Lines{"suite two_sublists_synchronization.om5",
                   "pass VerifyDatafile_was_called_for_two_sublists_synchronization.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_two_sublists_synchronization.om5",
                   "pass Expansion_duration_two_sublists_synchronization.om5",
                   "pass __TIMING__TRACKING__two_sublists_synchronization.om5__517_ms",
                   "pass __EXPANSION__TRACKING__two_sublists_synchronization.om5__66_ms"}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "numbers (1, 1)")});
}

TEST(TwoSublistsSynchronization, ComparesTheRegularListFromTheFirstOfMarchOn) {
  {
    const TodayIs today(2016, 3, 1);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{CellDiffers(EXPERIMENT, 0, "numbers (2, 2)")});
  }
  {
    const TodayIs today(2031, 1, 15);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{CellDiffers(EXPERIMENT, 0, "numbers (2, 2)")});
  }
}

TEST(TwoSublistsSynchronization, FailsOnEachWrongCell) {
  const TodayIs today(2016, 3, 1);
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 5u);
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName");
  ExpectEachCellIsCompared(EXPERIMENT, "color");
}

TEST(TwoSublistsSynchronization, FailsOnEachWrongCellOfTheTemporaryList) {
  const TodayIs today(2016, 2, 29);
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName", TemporaryFile());
}

TEST(TwoSublistsSynchronization, ComparesTheTagsInBothCasesAndAfterTheEvents) {
  {
    const TodayIs today(2016, 2, 29);
    EXPECT_EQ(
        TemporaryFile().Set(3, "Event\nName", "x").Set(2, "color", "blue").Failures(),
        (Lines{CellDiffers(EXPERIMENT, 3, "letters (3, c)"), CellDiffers(EXPERIMENT, 2, "red")}));
  }
  {
    const TodayIs today(2016, 3, 1);
    EXPECT_EQ(
        DataFile::Sample(EXPERIMENT).Set(3, "Event\nName", "x").Set(2, "color", "blue").Failures(),
        (Lines{CellDiffers(EXPERIMENT, 3, "letters (1, a)"), CellDiffers(EXPERIMENT, 2, "red")}));
  }
}

TEST(TwoSublistsSynchronization, FailsTwiceByTheLengthOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines(2, TooManyCells(EXPERIMENT)));
}

TEST(TwoSublistsSynchronization, FailsTwiceByTheLengthOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(4).SetDuration("517").Failures(),
            Lines(2, TooFewCells(EXPERIMENT)));
}

TEST(TwoSublistsSynchronization, FailsWithoutItsColumns) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").RemoveColumn("color").Failures(),
      (Lines{CellDiffers(EXPERIMENT, 0, "numbers (2, 2)"), CellDiffers(EXPERIMENT, 0, "red")}));
}

TEST(TwoSublistsSynchronization, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(4, "color", "blue")
          .SetDuration("499")
          .SetExpansion("401")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 4, "red"), DurationOutOfBounds(EXPERIMENT, 500, 5200, "499"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 400, "401")}));
}

TEST(TwoSublistsSynchronization, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("499").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 500, 650, "499"),
                   DurationOutOfBounds(EXPERIMENT, 500, 11600, "499"),
                   ExpansionOutOfBounds(EXPERIMENT, 150, 250, "66")}));
}

}  // namespace
}  // namespace Tests
