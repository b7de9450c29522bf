#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_goto_block_any.om4";

const std::string CHECK_FAILED =
    Fail("Go_to_block_any_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 65,
         "We expected to see exactly two events, event 1 and event 3, as the block containing "
         "event 1 was set to present the block containing event 3.");

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_any, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_macro_goto_block_any.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_goto_block_any.om4",
             "pass Go_to_block_any_functions_as_expected",
             "pass Experiment_duration_2012_3_9_tolmey_2668_macro_goto_block_any.om4",
             "pass Expansion_duration_2012_3_9_tolmey_2668_macro_goto_block_any.om4",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_goto_block_any.om4__1624_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_goto_block_any.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_any, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(1, "Event\nName", "event 2").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_any, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_any, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("1624").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_any, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_any, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, "Event\nName", "event 2")
          .SetDuration("1661")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_macro_goto_block_any.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 1600 and 1660. Instead, we got a duration of 1661."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_macro_goto_block_any.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_any, PassesInEitherOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetColumn("Event\nName", {"event 3", "event 1"}).Failures(),
      Lines{});
}

}  // namespace
}  // namespace Tests
