#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_trial_wtp_codes.om4";

const std::string CHECK_FAILED = Fail("Presenting_trials_based_on_code_functions_as_expected",
                                      "Something bad happened instead.", EXPERIMENT, 80,
                                      "We expected to see event 1 once and event 2 also once as "
                                      "that's what the macro is set up to do.");

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2012_3_9_tolmey_2668_trial_wtp_codes.om4",
                   "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_trial_wtp_codes.om4",
                   "pass Presenting_trials_based_on_code_functions_as_expected",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_2012_3_9_tolmey_2668_trial_wtp_codes.om4",
                   "pass Expansion_duration_2012_3_9_tolmey_2668_trial_wtp_codes.om4",
                   "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_trial_wtp_codes.om4__1614_ms",
                   "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_trial_wtp_codes.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "Event\nName", "event 2").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{CHECK_FAILED, Fail("Correct_quantity_of_data_cells",
                                      "Too many data cells. More than expected.", EXPERIMENT, 89,
                                      "No extra info.")}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("1614").Failures(),
            (Lines{CHECK_FAILED, Fail("Correct_quantity_of_data_cells",
                                      "Too few data cells. Fewer than expected.", EXPERIMENT, 98,
                                      "No extra info.")}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(0, "Event\nName", "event 2")
          .SetDuration("1631")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CHECK_FAILED,
             Fail("Experiment_duration_2012_3_9_tolmey_2668_trial_wtp_codes.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 1600 and 1630. Instead, we got a duration of 1631."),
             Fail("Expansion_duration_2012_3_9_tolmey_2668_trial_wtp_codes.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, FailsOnAWrongCode) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Set(1, "code", "no").Failures(),
      Lines{
          Fail("Data_appears_completely_and_in_order",
               "Mismatch in the ordering of data cells in datafile.", EXPERIMENT, 144,
               "At datafile row index 1 we expected {yes}, but that was not the actual content.")});
}

TEST(Test_2012_3_9_tolmey_2668_trial_wtp_codes, FailsWithoutTheCodeColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("code").Failures(),
            Lines{Fail(
                "Data_appears_completely_and_in_order",
                "Mismatch in the ordering of data cells in datafile.", EXPERIMENT, 144,
                "At datafile row index 0 we expected {no}, but that was not the actual content.")});
}

}  // namespace
}  // namespace Tests
