#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2013-05-14_and_or_expression_evaluation.om5";

TEST(TestBooleanExpressionOperatorPrecedence, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2013-05-14_and_or_expression_evaluation.om5",
             "pass VerifyDatafile_was_called_for_2013-05-14_and_or_expression_evaluation.om5",
             "pass Data_appears_completely_and_in_order",
             "pass Experiment_duration_2013-05-14_and_or_expression_evaluation.om5",
             "pass Expansion_duration_2013-05-14_and_or_expression_evaluation.om5",
             "pass __TIMING__TRACKING__2013-05-14_and_or_expression_evaluation.om5__1274_ms",
             "pass __EXPANSION__TRACKING__2013-05-14_and_or_expression_evaluation.om5__31_ms"}));
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsOnEachWrongCell) {
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 49u);
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName");
}

// Had the host read "or" before "and", a trial's feedback would come or go: one row more or less.
TEST(TestBooleanExpressionOperatorPrecedence, FailsOnAMissingFeedbackByTheLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(1).Failures(), Lines{TooFewCells(EXPERIMENT)});
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsOnAFeedbackTooManyByTheLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatRow(1).Failures(), Lines{TooManyCells(EXPERIMENT)});
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsOnAFeedbackUnderTheWrongTrial) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SwapRows(44, 45).Failures(),
            Lines{CellDiffers(EXPERIMENT, 44, "feedback event (26, T19)")});
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "event (1, a)")});
}

TEST(TestBooleanExpressionOperatorPrecedence, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(1, "Event\nName", "feedback event (1, F1)")
                .SetDuration("1751")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 1, "feedback event (1, T1)"),
                   DurationOutOfBounds(EXPERIMENT, 49, 1750, "1751"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(TestBooleanExpressionOperatorPrecedence, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("20").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 1500, 2600, "20"),
                   DurationOutOfBounds(EXPERIMENT, 200, 1200, "20")}));
}

TEST(TestBooleanExpressionOperatorPrecedence, JudgesEachOfSeveralFilesByItself) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(48, "Event\nName", "").Failures(),
            Lines{CellDiffers(EXPERIMENT, 48, "event (29, cc)")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
