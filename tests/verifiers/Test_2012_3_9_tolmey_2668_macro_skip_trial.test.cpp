#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_skip_trial.om4";

const std::string CHECK_FAILED =
    Fail("Repeat_block_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 63,
         "We expected to see event 1 once and event 3 also once as that's what the macro is set up "
         "to do.");

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_macro_skip_trial.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_skip_trial.om4",
             "pass Repeat_block_functions_as_expected",
             "pass Experiment_duration_2012_3_9_tolmey_2668_macro_skip_trial.om4",
             "pass Expansion_duration_2012_3_9_tolmey_2668_macro_skip_trial.om4",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_skip_trial.om4__1609_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_skip_trial.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(1, "Event\nName", "event 2").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("1609").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, "Event\nName", "event 2")
          .SetDuration("1621")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_macro_skip_trial.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 1600 and 1620. Instead, we got a duration of 1621."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_macro_skip_trial.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_skip_trial, FailsInAnotherOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetColumn("Event\nName", {"event 3", "event 1"}).Failures(),
      Lines{CHECK_FAILED});
}

}  // namespace
}  // namespace Tests
