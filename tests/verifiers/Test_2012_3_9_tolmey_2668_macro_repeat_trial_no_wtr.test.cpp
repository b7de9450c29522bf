#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4";

const std::string CHECK_FAILED =
    Fail("Repeat_trial_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 63,
         "We expected to see event 1 once and then event 2 repeated three times as that's what the "
         "macro is set up to do.");

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite 2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4",
          "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4",
          "pass Repeat_trial_functions_as_expected",
          "pass Experiment_duration_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4",
          "pass Expansion_duration_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4",
          "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4__3222_ms",
          "pass "
          "__EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(2, "Event\nName", "event 1").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(3).SetDuration("3222").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(2, "Event\nName", "event 1")
          .SetDuration("3251")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 3200 and 3250. Instead, we got a duration of 3251."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

// The event is counted in row 0, too, but then row 0 is not what it should be.
TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, FailsWhenItStartsWithTheRepeatedEvent) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetColumn("Event\nName", {"event 2", "event 2", "event 2", "event 1"})
                .Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, FailsOnAWrongFirstEvent) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "Event\nName", "Event 1").Failures(),
            Lines{CHECK_FAILED});
}

}  // namespace
}  // namespace Tests
