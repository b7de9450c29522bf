#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_present_event.om4";

const std::string CHECK_FAILED =
    Fail("Present_event_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 70,
         "We expected to see exactly three events, event 2, event 1, event 2 again.");

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_macro_present_event.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_present_event.om4",
             "pass Present_event_functions_as_expected",
             "pass Experiment_duration_2012_3_9_tolmey_2668_macro_present_event.om4",
             "pass Expansion_duration_2012_3_9_tolmey_2668_macro_present_event.om4",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_present_event.om4__5041_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_present_event.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "Event\nName", "event 1").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).SetDuration("5041").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(0, "Event\nName", "event 1")
          .SetDuration("5101")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_macro_present_event.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 5000 and 5100. Instead, we got a duration of 5101."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_macro_present_event.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_present_event, FailsInAnotherOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetColumn("Event\nName", {"event 1", "event 2", "event 2"})
                .Failures(),
            Lines{CHECK_FAILED});
}

}  // namespace
}  // namespace Tests
