#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_reset_trial_count.om4";

const std::string CHECK_FAILED = Fail(
    "Reset_trial_count_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 63,
    "We expected to see event 1 once and event 2 also once as that's what the macro is set up to "
    "do. This one is tricky-ish as it uses both a when to run experession and a macro to work.");

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite 2012_3_9_tolmey_2668_macro_reset_trial_count.om4",
          "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_reset_trial_count.om4",
          "pass Reset_trial_count_functions_as_expected",
          "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_reset_trial_count.om4__1613_ms",
          "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_reset_trial_count.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(1, "Event\nName", "event 1").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("1613").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, BoundsNothing) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetDuration("99999999")
                .SetExpansion("99999999")
                .Failures(SERVER_MACHINE),
            Lines{});
}

TEST(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, FailsInAnotherOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetColumn("Event\nName", {"event 2", "event 1"}).Failures(),
      Lines{CHECK_FAILED});
}

}  // namespace
}  // namespace Tests
