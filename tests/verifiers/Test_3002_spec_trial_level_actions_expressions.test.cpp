#include <gtest/gtest.h>

#include "tests/support/ChecksOnTable.h"
#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Ombrelia {
class Test_3002_spec_trial_level_actions_expressions;
}

namespace Tests {
namespace {

const char* const EXPERIMENT = "3002_spec_trial_level_actions_expressions.om5";
const char* const COLUMN = "color\n(Trial Variable)";

const std::string CHECK_FAILED =
    Fail("Having_events_presented_with_the_right_color_variables_in_specific_order",
         "Something bad happened instead.", EXPERIMENT, 79,
         "We expected RGBRGB to show up in the data file in that precise order");

TEST(Test_3002_spec_trial_level_actions_expressions, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 3002_spec_trial_level_actions_expressions.om5",
             "pass VerifyDatafile_was_called_for_3002_spec_trial_level_actions_expressions.om5",
             "pass Having_events_presented_with_the_right_color_variables_in_specific_order",
             "pass Experiment_duration_3002_spec_trial_level_actions_expressions.om5",
             "pass Expansion_duration_3002_spec_trial_level_actions_expressions.om5",
             "pass __TIMING__TRACKING__3002_spec_trial_level_actions_expressions.om5__3061_ms",
             "pass __EXPANSION__TRACKING__3002_spec_trial_level_actions_expressions.om5__42_ms"}));
}

TEST(Test_3002_spec_trial_level_actions_expressions, FailsOnceWithFiveMatchesOfSix) {
  for (std::size_t row = 0; row < 6; ++row) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, COLUMN, "black").Failures(),
              Lines{CHECK_FAILED})
        << row;
  }
}

TEST(Test_3002_spec_trial_level_actions_expressions, ReadsAllSixColors) {
  EXPECT_EQ(CellsReadByChecksOn<Ombrelia::Test_3002_spec_trial_level_actions_expressions>(
                DataFile::Sample(EXPERIMENT).Set(0, COLUMN, "black"), EXPERIMENT, COLUMN),
            6U);
}

TEST(Test_3002_spec_trial_level_actions_expressions, FailsOnTheRightColorsInAnotherOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetColumn(COLUMN, {"green", "red", "blue", "red", "green", "blue"})
                .Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_3002_spec_trial_level_actions_expressions, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(5).SetDuration("3061").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_3002_spec_trial_level_actions_expressions, DoesNotCountTheRows) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), Lines{});
}

TEST(Test_3002_spec_trial_level_actions_expressions, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(COLUMN).Failures(), Lines{CHECK_FAILED});
}

TEST(Test_3002_spec_trial_level_actions_expressions, FindsItsColumnInTheFirstPlace) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).MoveColumnToFront(COLUMN).Failures(), Lines{});
}

TEST(Test_3002_spec_trial_level_actions_expressions, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(0, COLUMN, "blue")
                .SetDuration("3301")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 3000, 3300, "3301"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(Test_3002_spec_trial_level_actions_expressions, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("2900").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 3000, 3200, "2900"),
                   DurationOutOfBounds(EXPERIMENT, 3100, 3700, "2900")}));
}

}  // namespace
}  // namespace Tests
