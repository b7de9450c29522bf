#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "two_sublists_tagging.om5";

std::string ContentFailure(size_t row, const std::string& expected) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", EXPERIMENT, 144,
              "At datafile row index " + std::to_string(row) + " we expected {" + expected +
                  "}, but that was not the actual content.");
}

std::string BoundFailure(const std::string& name, const std::string& message) {
  return Fail(name, "Experiment duration is weird. Too short or too long (see details below).",
              EXPERIMENT, 228, message);
}

TEST(TwoSublistsTagging, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite two_sublists_tagging.om5",
                   "pass VerifyDatafile_was_called_for_two_sublists_tagging.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_two_sublists_tagging.om5",
                   "pass Expansion_duration_two_sublists_tagging.om5",
                   "pass __TIMING__TRACKING__two_sublists_tagging.om5__927_ms",
                   "pass __EXPANSION__TRACKING__two_sublists_tagging.om5__58_ms"}));
}

TEST(TwoSublistsTagging, FailsOnEachWrongTag) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 9u);
  for (const char* const column : {"color", "direction"}) {
    for (size_t row = 0; row < sample.RowCount(); ++row) {
      EXPECT_EQ(DataFile(sample).Set(row, column, "").Failures(),
                Lines{ContentFailure(row, sample.Cell(row, column))})
          << column;
    }
  }
}

TEST(TwoSublistsTagging, ComparesBothColumnsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Set(4, "color", "blue").Set(5, "direction", "down").Failures(),
      (Lines{ContentFailure(4, "red"), ContentFailure(5, "up")}));
}

TEST(TwoSublistsTagging, FailsTwiceByTheLengthOnOneRowTooMany) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
      Lines(2, Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                    EXPERIMENT, 89, "No extra info.")));
}

TEST(TwoSublistsTagging, FailsTwiceByTheLengthOnOneRowTooFew) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).KeepRows(8).SetDuration("927").Failures(),
      Lines(2, Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.",
                    EXPERIMENT, 98, "No extra info.")));
}

TEST(TwoSublistsTagging, FailsWithoutAColumnOfTags) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("color").Failures(),
            Lines{ContentFailure(0, "blue")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("direction").Failures(),
            Lines{ContentFailure(0, "down")});
}

TEST(TwoSublistsTagging, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(8, "direction", "up")
          .SetDuration("899")
          .SetExpansion("401")
          .Failures(),
      (Lines{ContentFailure(8, "down"),
             BoundFailure(
                 "Experiment_duration_two_sublists_tagging.om5",
                 "Expected a duration between 900 and 5200. Instead, we got a duration of 899."),
             BoundFailure(
                 "Expansion_duration_two_sublists_tagging.om5",
                 "Expected a duration between 0 and 400. Instead, we got a duration of 401.")}));
}

TEST(TwoSublistsTagging, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetDuration("899").Failures(BOTH_MACHINES),
      (Lines{BoundFailure(
                 "Experiment_duration_two_sublists_tagging.om5",
                 "Expected a duration between 900 and 1100. Instead, we got a duration of 899."),
             BoundFailure(
                 "Experiment_duration_two_sublists_tagging.om5",
                 "Expected a duration between 900 and 11600. Instead, we got a duration of 899."),
             BoundFailure(
                 "Expansion_duration_two_sublists_tagging.om5",
                 "Expected a duration between 150 and 250. Instead, we got a duration of 58.")}));
}

TEST(TwoSublistsTagging, JudgesEachOfSeveralFilesByItself) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "color", "red").Failures(),
            Lines{ContentFailure(0, "blue")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
