#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_exit_experiment.om4";

const std::string CHECK_FAILED =
    Fail("Experiment_exited_after_one_trial_as_expected", "Something bad happened instead.",
         EXPERIMENT, 43, "We expected the experiment to exit after one trial.");

TEST(Test_2012_3_9_tolmey_2668_macro_exit_experiment, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_macro_exit_experiment.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_exit_experiment.om4",
             "pass Experiment_exited_after_one_trial_as_expected",
             "pass Experiment_duration_2012_3_9_tolmey_2668_macro_exit_experiment.om4",
             "pass Expansion_duration_2012_3_9_tolmey_2668_macro_exit_experiment.om4",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_exit_experiment.om4__812_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_exit_experiment.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_exit_experiment, ReadsNoCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "Event\nName", "anything").Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(), Lines{});
}

TEST(Test_2012_3_9_tolmey_2668_macro_exit_experiment, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_exit_experiment, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .RepeatLastRow()
          .SetDuration("901")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_macro_exit_experiment.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 800 and 900. Instead, we got a duration of 901."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_macro_exit_experiment.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

}  // namespace
}  // namespace Tests
