#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_goto_block_prev.om4";

const std::string CHECK_FAILED = Fail(
    "Go_to_block_previous_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 78,
    "We expected to see exactly five events, event 1, 2, 1, 2, 2 due to interactions between the "
    "when to run settings and macros.");

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_macro_goto_block_prev.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_goto_block_prev.om4",
             "pass Go_to_block_previous_functions_as_expected",
             "pass Experiment_duration_2012_3_9_tolmey_2668_macro_goto_block_prev.om4",
             "pass Expansion_duration_2012_3_9_tolmey_2668_macro_goto_block_prev.om4",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_goto_block_prev.om4__7639_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_goto_block_prev.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(3, "Event\nName", "event 1").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(4).SetDuration("7639").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(3, "Event\nName", "event 1")
          .SetDuration("7701")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_macro_goto_block_prev.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 7600 and 7700. Instead, we got a duration of 7701."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_macro_goto_block_prev.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, FailsInAnotherOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetColumn("Event\nName", {"event 1", "event 1", "event 2", "event 2", "event 2"})
                .Failures(),
            Lines{CHECK_FAILED});
}

}  // namespace
}  // namespace Tests
