#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "all_feedback_branching.om4";

TEST(TestThreeFeedbackBranchingJumps, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite all_feedback_branching.om4",
                   "pass VerifyDatafile_was_called_for_all_feedback_branching.om4",
                   "pass Data_appears_completely_and_in_order",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_all_feedback_branching.om4",
                   "pass Expansion_duration_all_feedback_branching.om4",
                   "pass __TIMING__TRACKING__all_feedback_branching.om4__245_ms",
                   "pass __EXPANSION__TRACKING__all_feedback_branching.om4__41_ms"}));
}

TEST(TestThreeFeedbackBranchingJumps, FailsOnAChangeOfAnyComparedCell) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"how are you - FB with ZERO branch action after", "feedback event!",
       "won't you - FB with SKIP TO NEXT TRIAL", "feedback event!", "OMG 2nd trial",
       "hello - FB with REPEAT the trial. (then code to stop)", "feedback event!", "OMG 2nd trial",
       "hello - FB with REPEAT the trial. (then code to stop)"});
  ExpectEachCellIsCompared(EXPERIMENT, "init",
                           {"", "", "", "", "unset (trial)", "unset (event)|unset (trial)",
                            "unset (trial)", "unset (trial)", "set (event)|unset (trial)"});
}

TEST(TestThreeFeedbackBranchingJumps, FailsOnATagCellWithoutItsLevels) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(8, "init", "set|unset").Failures(),
            Lines{CellDiffers(EXPERIMENT, 8, "set (event)|unset (trial)")});
}

TEST(TestThreeFeedbackBranchingJumps, FailsTwiceOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
}

TEST(TestThreeFeedbackBranchingJumps, FailsTwiceOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(8).Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(TestThreeFeedbackBranchingJumps, FailsWithoutItsColumns) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").RemoveColumn("init").Failures(),
      (Lines{CellDiffers(EXPERIMENT, 0, "how are you - FB with ZERO branch action after"),
             CellDiffers(EXPERIMENT, 0, "")}));
}

TEST(TestThreeFeedbackBranchingJumps, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(4, "Event\nName", "OMG 3rd trial")
                .SetDuration("89")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 4, "OMG 2nd trial"),
                   DurationOutOfBounds(EXPERIMENT, 90, 400, "89"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
