#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4";

const std::string CHECK_FAILED = Fail(
    "The_greater_or_equal_to_operator_works", "Something bad happened instead.", EXPERIMENT, 60,
    "We expected to see event 1 once. I really hope this test never fails. Wow I'm really curious "
    "what happens in ombrelia right now.");

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_less_than_equal, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite 2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4",
          "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4",
          "pass The_greater_or_equal_to_operator_works",
          "pass Experiment_duration_2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4",
          "pass Expansion_duration_2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4",
          "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4__1622_ms",
          "pass "
          "__EXPANSION__TRACKING__2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_less_than_equal, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "Event\nName", "event 1 ").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_less_than_equal, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_less_than_equal, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("1622").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_less_than_equal, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_less_than_equal, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(0, "Event\nName", "event 1 ")
          .SetDuration("1651")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 1600 and 1650. Instead, we got a duration of 1651."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_trial_wtp_less_than_equal.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_less_than_equal, PassesWithItsEventInAnyRow) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetColumn("Event\nName", {"event 2", "event 1"}).Failures(),
      Lines{});
}

}  // namespace
}  // namespace Tests
