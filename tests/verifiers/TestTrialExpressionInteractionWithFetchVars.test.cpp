#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "tolmey_2807_test.om5";
const char* const COLUMN = "Test_Variable\n(Trial Variable)";

TEST(TestTrialExpressionInteractionWithFetchVars, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite tolmey_2807_test.om5",
                   "pass VerifyDatafile_was_called_for_tolmey_2807_test.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_tolmey_2807_test.om5",
                   "pass Expansion_duration_tolmey_2807_test.om5",
                   "pass __TIMING__TRACKING__tolmey_2807_test.om5__1587_ms",
                   "pass __EXPANSION__TRACKING__tolmey_2807_test.om5__27_ms"}));
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnEachWrongCell) {
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 30u);
  ExpectEachCellIsCompared(EXPERIMENT, COLUMN);
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnAVariableThatShowsInASecondRow) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(4, COLUMN, "Orange").Failures(),
            Lines{CellDiffers(EXPERIMENT, 4, "")});
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines{TooManyCells(EXPERIMENT)});
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(29).SetDuration("1587").Failures(),
            Lines{TooFewCells(EXPERIMENT)});
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(COLUMN).Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "Red")});
}

TEST(TestTrialExpressionInteractionWithFetchVars, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(0, COLUMN, "Orange")
          .SetDuration("1499")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 0, "Red"), DurationOutOfBounds(EXPERIMENT, 1500, 1700, "1499"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(TestTrialExpressionInteractionWithFetchVars, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("1550").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 1600, 2200, "1550"),
                   DurationOutOfBounds(EXPERIMENT, 2000, 2300, "1550")}));
}

TEST(TestTrialExpressionInteractionWithFetchVars, JudgesEachOfSeveralFilesByItself) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(27, COLUMN, "Yellow").Failures(),
            Lines{CellDiffers(EXPERIMENT, 27, "Orange")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
