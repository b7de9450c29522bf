#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2013-05-14_and_or_expression_evaluation.om5";

std::string ContentFailure(size_t row, const std::string& expected) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", EXPERIMENT, 144,
              "At datafile row index " + std::to_string(row) + " we expected {" + expected +
                  "}, but that was not the actual content.");
}

std::string DurationFailure(const std::string& message) {
  return Fail("Experiment_duration_2013-05-14_and_or_expression_evaluation.om5",
              "Experiment duration is weird. Too short or too long (see details below).",
              EXPERIMENT, 228, message);
}

TEST(TestBooleanExpressionOperatorPrecedence, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2013-05-14_and_or_expression_evaluation.om5",
             "pass VerifyDatafile_was_called_for_2013-05-14_and_or_expression_evaluation.om5",
             "pass Data_appears_completely_and_in_order",
             "pass Experiment_duration_2013-05-14_and_or_expression_evaluation.om5",
             "pass Expansion_duration_2013-05-14_and_or_expression_evaluation.om5",
             "pass __TIMING__TRACKING__2013-05-14_and_or_expression_evaluation.om5__1274_ms",
             "pass __EXPANSION__TRACKING__2013-05-14_and_or_expression_evaluation.om5__31_ms"}));
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsOnEachWrongCell) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 49u);
  for (size_t row = 0; row < sample.RowCount(); ++row) {
    EXPECT_EQ(DataFile(sample).Set(row, "Event\nName", "event").Failures(),
              Lines{ContentFailure(row, sample.Cell(row, "Event\nName"))});
  }
}

// Had the host read "or" before "and", a trial's feedback would come or go: one row more or less.
TEST(TestBooleanExpressionOperatorPrecedence, FailsOnAMissingFeedbackByTheLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(1).Failures(),
            Lines{Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.",
                       EXPERIMENT, 98, "No extra info.")});
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsOnAFeedbackTooManyByTheLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatRow(1).Failures(),
            Lines{Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                       EXPERIMENT, 89, "No extra info.")});
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsOnAFeedbackUnderTheWrongTrial) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SwapRows(44, 45).Failures(),
            Lines{ContentFailure(44, "feedback event (26, T19)")});
}

TEST(TestBooleanExpressionOperatorPrecedence, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{ContentFailure(0, "event (1, a)")});
}

TEST(TestBooleanExpressionOperatorPrecedence, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, "Event\nName", "feedback event (1, F1)")
          .SetDuration("1751")
          .SetExpansion("5001")
          .Failures(),
      (Lines{ContentFailure(1, "feedback event (1, T1)"),
             DurationFailure(
                 "Expected a duration between 49 and 1750. Instead, we got a duration of 1751."),
             Fail("Expansion_duration_2013-05-14_and_or_expression_evaluation.om5",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

TEST(TestBooleanExpressionOperatorPrecedence, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetDuration("20").Failures(BOTH_MACHINES),
      (Lines{DurationFailure(
                 "Expected a duration between 1500 and 2600. Instead, we got a duration of 20."),
             DurationFailure(
                 "Expected a duration between 200 and 1200. Instead, we got a duration of 20.")}));
}

TEST(TestBooleanExpressionOperatorPrecedence, JudgesEachOfSeveralFilesByItself) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(48, "Event\nName", "").Failures(),
            Lines{ContentFailure(48, "event (29, cc)")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
