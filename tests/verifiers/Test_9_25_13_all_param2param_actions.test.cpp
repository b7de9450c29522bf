#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "9_25_13_all_param2param_actions.om5";
const char* const PARAMETERS[] = {"Counter 1", "Counter 2", "Counter 3", "Bonus Counter",
                                  "Text 1",    "Text 2",    "Text 3"};

const std::string CHECK_FAILED =
    Fail("Having_parameters_get_modified_by_values_in_other_parameters",
         "Something bad happened instead.", EXPERIMENT, 123,
         "We expected very  specific values to be in the parameter cells, at least one of them "
         "wasn't right.");

std::string BoundFailure(const std::string& name, const std::string& message) {
  return Fail(name, "Experiment duration is weird. Too short or too long (see details below).",
              EXPERIMENT, 228, message);
}

TEST(Test_9_25_13_all_param2param_actions, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 9_25_13_all_param2param_actions.om5",
                   "pass VerifyDatafile_was_called_for_9_25_13_all_param2param_actions.om5",
                   "pass Having_parameters_get_modified_by_values_in_other_parameters",
                   "pass Experiment_duration_9_25_13_all_param2param_actions.om5",
                   "pass Expansion_duration_9_25_13_all_param2param_actions.om5",
                   "pass __TIMING__TRACKING__9_25_13_all_param2param_actions.om5__1533_ms",
                   "pass __EXPANSION__TRACKING__9_25_13_all_param2param_actions.om5__12_ms"}));
}

TEST(Test_9_25_13_all_param2param_actions, FailsOnEachOfTwentyOneWrongCells) {
  for (const char* const parameter : PARAMETERS) {
    for (size_t row = 0; row < 3; ++row) {
      EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, parameter, "0").Failures(),
                Lines{CHECK_FAILED})
          << parameter << " in row " << row;
    }
  }
}

TEST(Test_9_25_13_all_param2param_actions, FailsOnceWhenAllCellsAreWrong) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (const char* const parameter : PARAMETERS) file.SetColumn(parameter, {"0", "0", "0"});
  EXPECT_EQ(file.Failures(), Lines{CHECK_FAILED});
}

TEST(Test_9_25_13_all_param2param_actions, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).SetDuration("1533").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_9_25_13_all_param2param_actions, DoesNotCountTheRows) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), Lines{});
}

TEST(Test_9_25_13_all_param2param_actions, FailsWithoutAnyOfItsColumns) {
  for (const char* const parameter : PARAMETERS) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(parameter).Failures(), Lines{CHECK_FAILED})
        << parameter;
  }
}

TEST(Test_9_25_13_all_param2param_actions, FindsAColumnInTheFirstPlace) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).MoveColumnToFront("Text 3").Failures(), Lines{});
}

TEST(Test_9_25_13_all_param2param_actions, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(2, "Text 3", "three")
          .SetDuration("1621")
          .SetExpansion("21")
          .Failures(),
      (Lines{CHECK_FAILED,
             BoundFailure(
                 "Experiment_duration_9_25_13_all_param2param_actions.om5",
                 "Expected a duration between 1500 and 1620. Instead, we got a duration of 1621."),
             BoundFailure(
                 "Expansion_duration_9_25_13_all_param2param_actions.om5",
                 "Expected a duration between 0 and 20. Instead, we got a duration of 21.")}));
}

TEST(Test_9_25_13_all_param2param_actions, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetDuration("1499").Failures(BOTH_MACHINES),
      (Lines{BoundFailure(
                 "Experiment_duration_9_25_13_all_param2param_actions.om5",
                 "Expected a duration between 1700 and 2050. Instead, we got a duration of 1499."),
             BoundFailure(
                 "Experiment_duration_9_25_13_all_param2param_actions.om5",
                 "Expected a duration between 1500 and 1650. Instead, we got a duration of 1499."),
             BoundFailure(
                 "Expansion_duration_9_25_13_all_param2param_actions.om5",
                 "Expected a duration between 200 and 300. Instead, we got a duration of 12.")}));
}

}  // namespace
}  // namespace Tests
