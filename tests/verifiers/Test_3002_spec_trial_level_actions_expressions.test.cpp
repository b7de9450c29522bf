#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "3002_spec_trial_level_actions_expressions.om5";
const char* const COLUMN = "color\n(Trial Variable)";

const std::string CHECK_FAILED =
    Fail("Having_events_presented_with_the_right_color_variables_in_specific_order",
         "Something bad happened instead.", EXPERIMENT, 79,
         "We expected RGBRGB to show up in the data file in that precise order");

std::string DurationFailure(const std::string& message) {
  return Fail("Experiment_duration_3002_spec_trial_level_actions_expressions.om5",
              "Experiment duration is weird. Too short or too long (see details below).",
              EXPERIMENT, 228, message);
}

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
  for (size_t row = 0; row < 6; ++row) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, COLUMN, "black").Failures(),
              Lines{CHECK_FAILED})
        << row;
  }
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
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(0, COLUMN, "blue")
          .SetDuration("3301")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             DurationFailure(
                 "Expected a duration between 3000 and 3300. Instead, we got a duration of 3301."),
             Fail("Expansion_duration_3002_spec_trial_level_actions_expressions.om5",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_3002_spec_trial_level_actions_expressions, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetDuration("2900").Failures(BOTH_MACHINES),
      (Lines{
          DurationFailure(
              "Expected a duration between 3000 and 3200. Instead, we got a duration of 2900."),
          DurationFailure(
              "Expected a duration between 3100 and 3700. Instead, we got a duration of 2900.")}));
}

}  // namespace
}  // namespace Tests
