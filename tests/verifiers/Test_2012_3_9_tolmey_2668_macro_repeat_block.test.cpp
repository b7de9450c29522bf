#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_repeat_block.om4";

const std::string CHECK_FAILED =
    Fail("Repeat_block_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 59,
         "We expected to see event 1 three times as that's what the macro is set up to do.");

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_macro_repeat_block.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_repeat_block.om4",
             "pass Repeat_block_functions_as_expected",
             "pass Experiment_duration_2012_3_9_tolmey_2668_macro_repeat_block.om4",
             "pass Expansion_duration_2012_3_9_tolmey_2668_macro_repeat_block.om4",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_repeat_block.om4__2431_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_repeat_block.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(1, "Event\nName", "event 2").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).SetDuration("2431").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, "Event\nName", "event 2")
          .SetDuration("2501")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_macro_repeat_block.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 2400 and 2500. Instead, we got a duration of 2501."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_macro_repeat_block.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_repeat_block, FailsOnAFourthEventWhateverStandsBetween) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.RepeatLastRow().Set(1, "Event\nName", "event 2");
  EXPECT_EQ(file.Failures(), Lines{CHECK_FAILED});
}

}  // namespace
}  // namespace Tests
