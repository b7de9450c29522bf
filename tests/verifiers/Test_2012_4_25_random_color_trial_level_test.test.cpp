#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012-4-25_random_color_trial_level_test.om4";
const char* const COLOR = "Text color\n(Trial Variable)";

const std::string CHECK_FAILED =
    Fail("Test_didnt_randomly_break_and_all_trials_were_presented",
         "Something bad happened instead.", EXPERIMENT, 63,
         "We expected to see three events with three different values of the trial variable.");

TEST(Test_2012_4_25_random_color_trial_level_test, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012-4-25_random_color_trial_level_test.om4",
             "pass VerifyDatafile_was_called_for_2012-4-25_random_color_trial_level_test.om4",
             "pass Test_didnt_randomly_break_and_all_trials_were_presented",
             "pass Experiment_duration_2012-4-25_random_color_trial_level_test.om4",
             "pass Expansion_duration_2012-4-25_random_color_trial_level_test.om4",
             "pass __TIMING__TRACKING__2012-4-25_random_color_trial_level_test.om4__1523_ms",
             "pass __EXPANSION__TRACKING__2012-4-25_random_color_trial_level_test.om4__27_ms"}));
}

TEST(Test_2012_4_25_random_color_trial_level_test, FailsWhenAnyOfTheThreeIsMissing) {
  for (const std::size_t row : {0U, 1U, 2U}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, COLOR, "Blue").Failures(), Lines{CHECK_FAILED})
        << "row " << row;
  }
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).SetDuration("1523").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_4_25_random_color_trial_level_test, TellsUpperFromLowerCase) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  EXPECT_EQ(file.SetColumn(COLOR, {"Red", "yellow", "Green"}).Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2012_4_25_random_color_trial_level_test, PassesInAnyOrder) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  EXPECT_EQ(file.SetColumn(COLOR, {"Red", "Yellow", "Green"}).Failures(), Lines{});
  EXPECT_EQ(file.SetColumn(COLOR, {"Green", "Red", "Yellow"}).Failures(), Lines{});
}

TEST(Test_2012_4_25_random_color_trial_level_test, CountsNoRowsAndIgnoresOtherLevels) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  EXPECT_EQ(file.RepeatLastRow().RepeatLastRow().Failures(), Lines{});
  EXPECT_EQ(file.SetColumn(COLOR, {"Blue", "Green", "", "Yellow", "Red"}).Failures(), Lines{});
}

TEST(Test_2012_4_25_random_color_trial_level_test, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(COLOR).Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2012_4_25_random_color_trial_level_test, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(1, COLOR, "Blue")
                .SetDuration("1601")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 1500, 1600, "1601"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
