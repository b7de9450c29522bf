#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

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
    for (std::size_t row = 0; row < 3; ++row) {
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
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(2, "Text 3", "three")
                .SetDuration("1621")
                .SetExpansion("21")
                .Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 1500, 1620, "1621"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 20, "21")}));
}

TEST(Test_9_25_13_all_param2param_actions, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("1499").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 1700, 2050, "1499"),
                   DurationOutOfBounds(EXPERIMENT, 1500, 1650, "1499"),
                   ExpansionOutOfBounds(EXPERIMENT, 200, 300, "12")}));
}

}  // namespace
}  // namespace Tests
