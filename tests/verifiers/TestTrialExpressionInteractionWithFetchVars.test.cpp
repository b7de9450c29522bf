#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "tolmey_2807_test.om5";
const char* const COLUMN = "Test_Variable\n(Trial Variable)";

std::string ContentFailure(size_t row, const std::string& expected) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", EXPERIMENT, 144,
              "At datafile row index " + std::to_string(row) + " we expected {" + expected +
                  "}, but that was not the actual content.");
}

std::string DurationFailure(const std::string& message) {
  return Fail("Experiment_duration_tolmey_2807_test.om5",
              "Experiment duration is weird. Too short or too long (see details below).",
              EXPERIMENT, 228, message);
}

TEST(TestTrialExpressionInteractionWithFetchVars, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite tolmey_2807_test.om5",
                   "pass VerifyDatafile_was_called_for_tolmey_2807_test.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_tolmey_2807_test.om5",
                   "pass Expansion_duration_tolmey_2807_test.om5",
                   "pass __TIMING__TRACKING__tolmey_2807_test.om5__1587_ms",
                   "pass __EXPANSION__TRACKING__tolmey_2807_test.om5__27_ms"}));
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnEachWrongCell) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 30u);
  for (size_t row = 0; row < sample.RowCount(); ++row) {
    EXPECT_EQ(DataFile(sample).Set(row, COLUMN, "Violet").Failures(),
              Lines{ContentFailure(row, sample.Cell(row, COLUMN))});
  }
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnAVariableThatShowsInASecondRow) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(4, COLUMN, "Orange").Failures(),
            Lines{ContentFailure(4, "")});
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines{Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                       EXPERIMENT, 89, "No extra info.")});
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(29).SetDuration("1587").Failures(),
            Lines{Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.",
                       EXPERIMENT, 98, "No extra info.")});
}

TEST(TestTrialExpressionInteractionWithFetchVars, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(COLUMN).Failures(),
            Lines{ContentFailure(0, "Red")});
}

TEST(TestTrialExpressionInteractionWithFetchVars, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(0, COLUMN, "Orange")
          .SetDuration("1499")
          .SetExpansion("5001")
          .Failures(),
      (Lines{ContentFailure(0, "Red"),
             DurationFailure(
                 "Expected a duration between 1500 and 1700. Instead, we got a duration of 1499."),
             Fail("Expansion_duration_tolmey_2807_test.om5",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(TestTrialExpressionInteractionWithFetchVars, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetDuration("1550").Failures(BOTH_MACHINES),
      (Lines{
          DurationFailure(
              "Expected a duration between 1600 and 2200. Instead, we got a duration of 1550."),
          DurationFailure(
              "Expected a duration between 2000 and 2300. Instead, we got a duration of 1550.")}));
}

TEST(TestTrialExpressionInteractionWithFetchVars, JudgesEachOfSeveralFilesByItself) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(27, COLUMN, "Yellow").Failures(),
            Lines{ContentFailure(27, "Orange")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
